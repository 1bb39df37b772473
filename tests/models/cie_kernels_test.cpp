// Every vector kernel of the CIE models (XYZ, LUV, Lab) against its scalar kernel at every CPU target, on random rows of
// every width 1..300 (row ends against a guard page). The random input bytes are first reshaped in place, the same way
// for both runs: 16-bit pixels are often all-edge (each channel at its minimum or maximum); float samples are mostly
// in 0..1 or -150..150, some NaN, infinite, zero, one, negative, above 1, huge or subnormal. Float results that are
// NaN are compared as one NaN (a NaN operand's payload depends on the compiler's operand order).
#include "models/lab_kernels.h"
#include "models/luv_kernels.h"
#include "models/model_kit.h"
#include "models/xyz_kernels.h"
#include "support/kernel_harness.h"

#include <cmath>
#include <string_view>

namespace {

// kStall: few float specials and channel 0 positive, for the kernel that stalls at its first dark pixel.
template <bool kStall, class T>
void reshape(T* p, int n, int ch) {
    const unsigned rate = kStall ? 2 : 64;  // float specials per 1024 samples
    bool edges = false;                     // 16-bit: one pixel in four has every channel at an end
    for (int i = 0; i < n; ++i) {
        std::uint32_t u = 0;
        std::memcpy(&u, p + i, sizeof u < sizeof(T) ? sizeof u : sizeof(T));
        if constexpr (std::is_same_v<T, Zor32f>) {
            const float unit = float(u >> 8) / 16777216.0f;
            const float special[] = {NAN, INFINITY, -INFINITY, -unit, 1.0f + 4 * unit, 1e30f, 0.0f, 1.0f, 1e-40f};
            p[i] = u % 1024 < rate ? special[(u >> 10) % 9] : (u >> 10 & 1) ? unit : kStall && i % ch == 0 ? 150 * unit : 300 * unit - 150;
        } else if constexpr (sizeof(T) == 2) {
            if (i % ch == 0) edges = u % 4 == 0;
            if (edges) p[i] = (u >> 3 & 1) ? std::numeric_limits<T>::max() : std::numeric_limits<T>::min();
        }
    }
}

template <auto Tables, int Tg, auto Member, bool kStall, class Fn>
struct Shaped;
template <auto Tables, int Tg, auto Member, bool kStall, class S, int NS, class D, int ND>
struct Shaped<Tables, Tg, Member, kStall, void (*)(zor::RowC<const S, NS>, zor::RowC<D, ND>, int)> {
    static void run(zor::RowC<const S, NS> s, zor::RowC<D, ND> d, int width) {
        if (width > 0) reshape<kStall>(const_cast<S*>(s.p), NS * width, NS);
        const auto* t = Tables()[Tg] ? Tables()[Tg] : Tables()[0];
        (t->*Member)(s, d, width);
        if constexpr (std::is_same_v<D, Zor32f>)
            for (Zor32f v, *q = d.p; q < d.p + ND * width; ++q) std::memcpy(&v, q, 4), v = std::isnan(v) ? NAN : v, std::memcpy(q, &v, 4);
    }
};

template <int Tg>
zor::XyzKernels xyzShaped() {
#define ZOR_X(name, fn, args) &Shaped<zor::xyzTables, Tg, &zor::XyzKernels::name, false, decltype(zor::XyzKernels::name)>::run,
    return {ZOR_XYZ_KERNELS(ZOR_X)};
#undef ZOR_X
}
// The 32f LUV inverse stalls at its first dark pixel: few specials, so that most rows run whole vectors.
template <int Tg>
zor::LuvKernels luvShaped() {
#define ZOR_X(name, fn, args) \
    &Shaped<zor::luvTables, Tg, &zor::LuvKernels::name, std::string_view(#name).substr(0, 8) == "toRgb32f", decltype(zor::LuvKernels::name)>::run,
    return {ZOR_LUV_KERNELS(ZOR_X)};
#undef ZOR_X
}
template <int Tg>
zor::LabKernels labShaped() {
#define ZOR_X(name, fn, args) &Shaped<zor::labTables, Tg, &zor::LabKernels::name, false, decltype(zor::LabKernels::name)>::run,
    return {ZOR_LAB_KERNELS(ZOR_X)};
#undef ZOR_X
}

// A family's tables with every kernel wrapped, by target.
template <class Table, Table (*... Make)()>
const Table* const* byTarget() {
    static const Table t[] = {Make()...};
    static const Table* const p[zor::cpu::kTargetCount] = {t, t + 1, t + 2, t + 3, t + 4};
    return p;
}
const auto xyzTables = byTarget<zor::XyzKernels, xyzShaped<0>, xyzShaped<1>, xyzShaped<2>, xyzShaped<3>, xyzShaped<4>>;
const auto luvTables = byTarget<zor::LuvKernels, luvShaped<0>, luvShaped<1>, luvShaped<2>, luvShaped<3>, luvShaped<4>>;
const auto labTables = byTarget<zor::LabKernels, labShaped<0>, labShaped<1>, labShaped<2>, labShaped<3>, labShaped<4>>;

}  // namespace

#define ZOR_XYZ_TEST(name, fn, args) \
    TEST(XyzKernelSets, name) { zt::expectVectorsMatchScalar(xyzTables, &zor::XyzKernels::name); }
ZOR_XYZ_KERNELS(ZOR_XYZ_TEST)
#define ZOR_LUV_TEST(name, fn, args) \
    TEST(LuvKernelSets, name) { zt::expectVectorsMatchScalar(luvTables, &zor::LuvKernels::name); }
ZOR_LUV_KERNELS(ZOR_LUV_TEST)
#define ZOR_LAB_TEST(name, fn, args) \
    TEST(LabKernelSets, name) { zt::expectVectorsMatchScalar(labTables, &zor::LabKernels::name); }
ZOR_LAB_KERNELS(ZOR_LAB_TEST)

// The exported members on rows wide enough for whole vectors at every target: the reference model's bytes, with every
// team size from 1 to 4 and inside an outer parallel region.
TEST(CieMembers, VectorRowsMatchReferenceForEveryTeamSize) {
    for (const mk::Member& m : mk::members()) {
        const std::string name = m.name;
        if (name.find("XYZ") == std::string::npos && name.find("LUV") == std::string::npos && name.find("Lab") == std::string::npos) continue;
        SCOPED_TRACE(m.name);
        zt::Image<Zor8u> src = mk::source(m, 67, 29, 3);
        const zt::Image<Zor8u> want = mk::expected(m, src, mk::image(67, 29, m.ch, m.dstSize, 5));
        for (zor::cpu::Target t : zt::vectorTargets()) {
            zt::ForceTarget force(t);
            zt::expectTeamIndependent<zt::Image<Zor8u>>([&] { return mk::image(67, 29, m.ch, m.dstSize, 5); }, [&](zt::Image<Zor8u>& d) {
                ASSERT_EQ(m.fn(src.data(), src.step(), d.data(), d.step(), {67, 29}), zorStsOk);
                EXPECT_EQ(zt::firstDifference(d.bytes(), want.bytes()), -1) << zor::cpu::name(t);
            });
        }
    }
}
