// Every gamma vector kernel against its scalar kernel at every CPU target, on random rows of every width 1..300 (row
// ends against a guard page). 32f rows are made of samples inside and around the range, on the branch threshold and a
// few ulps either side (on [0, 4375] both thresholds are exact), NaN, infinities, signed zeros, denormals and huge
// values, on ranges wide, narrow, negative and far from zero.
#include "support/kernel_harness.h"
#include "twist/gamma_kernels.h"

#include <cmath>

namespace {

float asFloat(std::uint32_t b) {
    float v;
    std::memcpy(&v, &b, 4);
    return v;
}

// The samples of a float input row, rewritten from their random bits in place (both runs start from the same bits).
template <bool Fwd>
void interesting(float* p, std::size_t n, const zor::Curve32f<Fwd>& c) {
    for (float* q = p; q < p + n; ++q) {
        std::uint32_t b;
        std::memcpy(&b, q, 4);
        const float u = static_cast<float>(b >> 8) / 16777216.0f, r = static_cast<float>(c.r);
        const float edge = c.vMin + static_cast<float>((Fwd ? zor::kGammaFwdThreshold : zor::kGammaInvThreshold) * c.r);
        float v;
        switch (b % 16) {
            case 0: v = asFloat(b | 0x7F800001u); break;  // NaN
            case 1: v = b & 16 ? INFINITY : -INFINITY; break;
            case 2: v = b & 16 ? 0.0f : -0.0f; break;
            case 3: v = asFloat(b & 0x807FFFFFu); break;  // denormal
            case 4: v = std::nextafter(edge, (b >> 8) % 2 ? INFINITY : -INFINITY); break;
            case 5: v = edge; break;
            case 6: v = asFloat(b); break;  // any
            default: v = c.vMin - 0.25f * r + 1.5f * r * u;
        }
        std::memcpy(q, &v, 4);
    }
}
template <int N, class M>
void rewrite(zor::RowC<const Zor32f, N> s, int width, const M& m) { interesting(const_cast<float*>(s.p), std::size_t(N) * width, m); }
template <class M>
void rewrite(zor::Row3<const Zor32f> s, int width, const M& m) { for (const float* p : s.p) interesting(const_cast<float*>(p), width, m); }

template <int T>
const zor::GammaKernels* kernelsOf = zor::gammaTables()[T] ? zor::gammaTables()[T] : zor::gammaTables()[0];
template <int T, auto Member, class S, class D, class M>
void withInputs(S s, D d, int width, M m) {
    rewrite(s, width, m);
    (kernelsOf<T>->*Member)(s, d, width, m);
}
template <int T>
zor::GammaKernels rewritingInputs() {
    zor::GammaKernels k = *kernelsOf<T>;
    k.fwdC3f32 = &withInputs<T, &zor::GammaKernels::fwdC3f32>, k.fwdAC4f32 = &withInputs<T, &zor::GammaKernels::fwdAC4f32>;
    k.fwdP3f32 = &withInputs<T, &zor::GammaKernels::fwdP3f32>, k.invC3f32 = &withInputs<T, &zor::GammaKernels::invC3f32>;
    k.invAC4f32 = &withInputs<T, &zor::GammaKernels::invAC4f32>, k.invP3f32 = &withInputs<T, &zor::GammaKernels::invP3f32>;
    return k;
}
const zor::GammaKernels* const* testTables() {
    static const zor::GammaKernels t[] = {rewritingInputs<0>(), rewritingInputs<1>(), rewritingInputs<2>(),
                                          rewritingInputs<3>(), rewritingInputs<4>()};
    static const zor::GammaKernels* const p[zor::cpu::kTargetCount] = {t, t + 1, t + 2, t + 3, t + 4};
    return p;
}

template <class Fn>
auto mapFor(std::mt19937& rng) {
    using M = std::tuple_element_t<0, typename zt::detail::Signature<Fn>::Extras>;
    if constexpr (std::is_empty_v<M>) {
        return std::make_tuple(M());
    } else {
        static const float ranges[][2] = {{0, 1}, {-3.5f, 250.25f}, {1000, 1000.5f}, {-1, 1}, {0, 1e-30f}, {-2e30f, 3e30f}, {0, 65535}, {0, 4375}};
        const auto& r = ranges[rng() % std::size(ranges)];
        return std::make_tuple(M(r[0], r[1]));
    }
}

}  // namespace

#define ZOR_SHAPE_TEST(name, fn, args)                                                                                 \
    TEST(GammaKernelSets, name) {                                                                                      \
        zt::expectVectorsMatchScalar(testTables, &zor::GammaKernels::name, false, mapFor<decltype(zor::GammaKernels::name)>); \
    }
ZOR_GAMMA_ROW_KERNELS(ZOR_SHAPE_TEST)

// The 16u tables, whole and in parts that start and end off the vectors, at every target.
TEST(GammaKernelSets, Tables16u) {
    for (auto member : {&zor::GammaKernels::tableFwd16u, &zor::GammaKernels::tableInv16u})
        for (zor::cpu::Target t : zt::vectorTargets())
            for (const auto& [first, count] : {std::pair{0, 65536}, {3, 1000}, {65530, 6}}) {
                std::vector<Zor16u> want(65536, 7), got(65536, 7);
                (zor::kGammaScalar.*member)(want.data(), first, count);
                (zor::gammaTables()[t] ? zor::gammaTables()[t]->*member : zor::kGammaScalar.*member)(got.data(), first, count);
                EXPECT_EQ(got, want) << "target " << t << " from " << first;
            }
}
