// Every gray vector kernel against its scalar kernel at every CPU target, on random rows of every width 1..300 (row ends
// against a guard page); 8u weights below 2^15, at its edge, beyond; float sums beyond the int range, infinite, NaN.
#include "models/gray_kernels.h"
#include "support/kernel_harness.h"

#include <cmath>

template <class T, int N>
std::tuple<zor::GrayWeights<T>> randomWeights(std::mt19937& rng) {
    zor::GrayWeights<T> k;
    for (auto& w : k.w) {
        const unsigned kind = rng() % 10;
        const float f = std::uniform_real_distribution<float>(-1, 1)(rng) * (kind < 5 ? 1.5f : kind < 7 ? 4e4f : kind < 8 ? 1e30f : INFINITY);
        if constexpr (std::is_same_v<T, Zor8u>) w = kind < 5 ? rng() % 32768 : kind < 7 ? 32767 + rng() % 2 : static_cast<std::uint32_t>(rng());
        else w = kind < 9 ? f : NAN;
    }
    return {k};
}

// Target T's kernels, the float ones with every NaN made one NaN (a sum of NaNs takes the compiler's first operand's).
template <int T>
const zor::GrayKernels* kernelsOf = zor::grayTables()[T] ? zor::grayTables()[T] : zor::grayTables()[0];
template <int T, int N>
void nanAsNan(zor::RowC<const Zor32f, N> s, zor::RowC<Zor32f, 1> d, int width, zor::GrayWeights<Zor32f> k) {
    std::get<N - 3>(std::make_tuple(kernelsOf<T>->c3f32, kernelsOf<T>->ac4f32))(s, d, width, k);
    for (float v, *p = d.p; p < d.p + width; ++p) std::memcpy(&v, p, 4), v = std::isnan(v) ? NAN : v, std::memcpy(p, &v, 4);
}
template <int T>
zor::GrayKernels withNanAsNan() {
    zor::GrayKernels k = *kernelsOf<T>;
    k.c3f32 = &nanAsNan<T, 3>, k.ac4f32 = &nanAsNan<T, 4>;
    return k;
}
static const zor::GrayKernels* const* testTables() {
    static const zor::GrayKernels t[] = {withNanAsNan<0>(), withNanAsNan<1>(), withNanAsNan<2>(), withNanAsNan<3>(), withNanAsNan<4>()};
    static const zor::GrayKernels* const p[zor::cpu::kTargetCount] = {t, t + 1, t + 2, t + 3, t + 4};
    return p;
}

#define ZOR_SHAPE_TEST(name, fn, args) \
    TEST(GrayKernelSets, name) { zt::expectVectorsMatchScalar(testTables, &zor::GrayKernels::name, false, randomWeights<ZOR_STRIP args>); }
ZOR_GRAY_KERNELS(ZOR_SHAPE_TEST)
