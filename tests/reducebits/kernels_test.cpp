// Every bit-depth reduction vector kernel against its scalar kernel at every CPU target, on random rows of every width
// 1..300 (row ends against a guard page): random level counts, matrix rows and noise. Float sources are mapped from the
// random bytes to mostly 0..1 with NaN, infinities, signed zeros, denormals, huge values and neighbours of level
// boundaries mixed in.
#include "reducebits/kernels.h"
#include "support/kernel_harness.h"

#include <cmath>
#include <limits>

namespace {
using namespace zor;

const zor::NoiseTables& noiseOf(float amount) {
    static zor::NoiseTables low, high;  // noise 1 and 100 percent
    static const bool made = low.init(-0.01f, 0.01f) == zorStsOk && high.init(-1.0f, 1.0f) == zorStsOk;
    EXPECT_TRUE(made);
    return amount > 0.5f ? high : low;
}

// Level counts at both ends of the type's range and random ones between.
template <class Tr>
int randomM(std::mt19937& rng) {
    const int max = Tr::kMaxLevels - 1, pick = static_cast<int>(rng() % 4);
    return pick == 0 ? 1 : pick == 1 ? max : 1 + static_cast<int>(rng() % static_cast<unsigned>(pick == 2 ? 16 : max));
}

template <class Tr, int Ch, int N, class Th>
std::tuple<int, zor::Quant, Th> bayerExtras(std::mt19937& rng) {
    const zor::Quant q = Tr::quant(randomM<Tr>(rng));
    const int y = static_cast<int>(rng() % 2000);
    if constexpr (std::is_same_v<Th, zor::BayerMatrix>)
        return {y, q, zor::BayerMatrix(q.step)};
    else
        return {y, q, zor::BayerNoise{&noiseOf(static_cast<float>(rng() % 2)), q.step}};
}

template <class Tr, int Ch, int N>
std::tuple<int> extrasFor(std::mt19937& rng) {
    return {randomM<Tr>(rng)};
}
template <class Tr, int Ch, int N, class Th>
std::tuple<int, zor::Quant, Th> extrasFor(std::mt19937& rng) {
    return bayerExtras<Tr, Ch, N, Th>(rng);
}

// A float from four random bytes: mostly 0..1 (some a little outside), else a special value or a value next to a
// boundary k/m of a small m.
float saneFloat(float raw) {
    std::uint32_t b;
    std::memcpy(&b, &raw, 4);
    const float special[] = {NAN, INFINITY, -INFINITY, -0.0f, 0.0f, 1.0f, 1e-40f, 3e38f, -1.0f, 16384.0f, 5e6f, 1.0000001f};
    const float u = static_cast<float>(b >> 8) * (1.0f / 16777216.0f);
    switch (b & 7) {
        case 0: return special[(b >> 3) % 12];
        case 1: {
            const float k = static_cast<float>((b >> 3) % 64), m = static_cast<float>((b >> 9) % 255 + 1), at = k / m;
            return (b >> 17) % 3 == 0 ? at : std::nextafter(at, (b >> 17) % 3 == 1 ? 2.0f : -2.0f);
        }
        case 2: return u * 1.5f - 0.2f;
        default: return u;
    }
}

// Target T's kernel of `member`, float sources first mapped by saneFloat (both for the scalar and the vector run).
template <int T>
const zor::RbKernels* kernelsOf() {
    return zor::rbTables()[T] ? zor::rbTables()[T] : zor::rbTables()[0];
}
template <int T, auto Member, class Tr, int N, class... X>
void onSaneFloats(zor::SrcRow<Tr, N> s, zor::DstRow<Tr, N> d, int width, X... x) {
    std::vector<Zor32f> f(s.p, s.p + static_cast<std::size_t>(width) * N);
    for (Zor32f& v : f) v = saneFloat(v);
    (kernelsOf<T>()->*Member)({f.data()}, d, width, x...);
}
template <int T, auto Member, class Tr, int Ch, int N>
void sane(zor::SrcRow<Tr, N> s, zor::DstRow<Tr, N> d, int width, int m) {
    onSaneFloats<T, Member, Tr, N>(s, d, width, m);
}
template <int T, auto Member, class Tr, int Ch, int N, class Th>
void sane(zor::SrcRow<Tr, N> s, zor::DstRow<Tr, N> d, int width, int y, zor::Quant q, Th th) {
    onSaneFloats<T, Member, Tr, N>(s, d, width, y, q, th);
}

template <class Tr, int Ch, int N, class... Th>
constexpr bool floatSource() {
    return Tr::kFloatSrc;
}

template <int T>
zor::RbKernels withSaneFloats() {
    zor::RbKernels k = *kernelsOf<T>();
#define ZOR_RB_WRAP(name, fn, args) \
    if constexpr (floatSource<ZOR_STRIP args>()) \
        k.name = &sane<T, &zor::RbKernels::name, ZOR_STRIP args>;
    ZOR_RB_KERNELS(ZOR_RB_WRAP)
#undef ZOR_RB_WRAP
    return k;
}
const zor::RbKernels* const* testTables() {
    static const zor::RbKernels t[] = {withSaneFloats<0>(), withSaneFloats<1>(), withSaneFloats<2>(), withSaneFloats<3>(),
                                        withSaneFloats<4>()};
    static const zor::RbKernels* const p[zor::cpu::kTargetCount] = {t, t + 1, t + 2, t + 3, t + 4};
    return p;
}

#define ZOR_SHAPE_TEST(name, fn, args)                                                                  \
    TEST(ReduceBitsKernelSets, name) {                                                                  \
        const auto extras = [](std::mt19937& rng) { return extrasFor<ZOR_STRIP args>(rng); };        \
        zt::expectVectorsMatchScalar(testTables, &zor::RbKernels::name, false, extras);                 \
    }
ZOR_RB_KERNELS(ZOR_SHAPE_TEST)

}  // namespace
