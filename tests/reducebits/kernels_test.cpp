// Every bit-depth reduction vector kernel against its scalar kernel at every CPU target on random rows of widths 1..300,
// random level counts, matrix rows and noise. Float rows are mapped to mostly 0..1 with specials and neighbours of k/m.
#include "reducebits/kernels.h"
#include "support/kernel_harness.h"

#include <cmath>
namespace {
using namespace zor;

template <class Tr>
int randomM(std::mt19937& rng) {  // 1, the largest, small or any
    const unsigned pick = rng() % 4, max = Tr::kMaxLevels - 1;
    return static_cast<int>(pick == 0 ? 1 : pick == 1 ? max : 1 + rng() % (pick == 2 ? 16 : max));
}
template <class Tr, int Ch, int N>
auto extrasFor(std::mt19937& rng) {  // m, or the 8u table of m
    static Zor8u tables[256][256];
    const int m = randomM<Tr>(rng);
    if constexpr (Tr::kByteSrc) return fillPlainTable<Tr>(tables[m], m), std::tuple<const Zor8u*>{tables[m]};
    else return std::tuple<int>{m};
}
template <class Tr, int Ch, int N, class Th>
std::tuple<int, Quant, Th> extrasFor(std::mt19937& rng) {
    static NoiseTables noise[2];  // 1 and 100 percent
    static const int made = noise[0].init(-0.01f, 0.01f) | noise[1].init(-1.0f, 1.0f);
    EXPECT_EQ(made, 0);
    const Quant q = Tr::quant(randomM<Tr>(rng));
    const int y = static_cast<int>(rng() % 2000);  // noise tables repeat after 512 rows
    if constexpr (std::is_same_v<Th, BayerMatrix>) return {y, q, BayerMatrix(q.step)};
    else return {y, q, BayerNoise{&noise[rng() % 2], q.step}};
}
float saneFloat(float raw) {
    std::uint32_t b = 0;
    std::memcpy(&b, &raw, 4);
    const float special[] = {NAN, INFINITY, -INFINITY, -0.0f, 0.0f, 1.0f, 1e-40f, 3e38f, -1.0f, 16384.0f, 5e6f, 1.0000001f};
    const float u = static_cast<float>(b >> 8) * (1.0f / 16777216.0f), at = static_cast<float>((b >> 3) % 64) / static_cast<float>((b >> 9) % 255 + 1);
    const unsigned kind = b & 7;
    return kind == 0 ? special[(b >> 3) % 12] : kind == 1 ? std::nextafter(at, (b >> 17) % 2 ? 2.0f : -2.0f) : kind == 2 ? at : kind == 3 ? u * 1.5f - 0.2f : u;
}

template <int T>
const RbKernels* kernelsOf() { return rbTables()[T] ? rbTables()[T] : rbTables()[0]; }
// Target T's kernel of Member, float rows mapped by saneFloat first.
template <int T, auto Member, class Tr, int N, class... X>
void onSane(SrcRow<Tr, N> s, DstRow<Tr, N> d, int width, X... x) {
    std::vector<Zor32f> f(s.p, s.p + static_cast<std::size_t>(width) * N);
    for (Zor32f& v : f) v = saneFloat(v);
    (kernelsOf<T>()->*Member)({f.data()}, d, width, x...);
}
template <int T, auto Member, class Tr, int Ch, int N, class... Th>
auto sane() {
    if constexpr (!Tr::kFloatSrc) return kernelsOf<T>()->*Member;
    else if constexpr (sizeof...(Th) == 0) return &onSane<T, Member, Tr, N, int>;
    else return &onSane<T, Member, Tr, N, int, Quant, Th...>;
}
template <int T>
RbKernels withSaneFloats() {
#define ZOR_RB_WRAP(name, fn, args) sane<T, &RbKernels::name, ZOR_STRIP args>(),
    return {ZOR_RB_KERNELS(ZOR_RB_WRAP)};
}
const RbKernels* const* testTables() {
    static const RbKernels t[] = {withSaneFloats<0>(), withSaneFloats<1>(), withSaneFloats<2>(), withSaneFloats<3>(), withSaneFloats<4>()};
    static const RbKernels* const p[cpu::kTargetCount] = {t, t + 1, t + 2, t + 3, t + 4};
    return p;
}

#define ZOR_SHAPE_TEST(name, fn, args) \
    TEST(ReduceBitsKernelSets, name) { zt::expectVectorsMatchScalar(testTables, &RbKernels::name, false, extrasFor<ZOR_STRIP args>); }
ZOR_RB_KERNELS(ZOR_SHAPE_TEST)

}  // namespace
