// Every gray vector kernel against its scalar kernel at every CPU target, on
// random rows of every width 1..300 (row ends against a guard page), with
// weights that take each path: small and wrapping fixed-point weights; float
// weights whose sums leave the 32-bit range, infinite and NaN weights.
#include "models/gray_kernels.h"
#include "support/kernel_harness.h"

#include <cmath>
#include <limits>
#include <utility>

namespace {

using zor::GrayWeights;

GrayWeights<Zor8u> randomWeights(GrayWeights<Zor8u>, std::mt19937& rng) {
    GrayWeights<Zor8u> k;
    for (auto& w : k.w) {
        const unsigned kind = rng() % 4;
        w = kind < 2 ? rng() % 32768 : kind == 2 ? 32767 + rng() % 2 : static_cast<std::uint32_t>(rng());
    }
    return k;
}

template <class W>
W randomWeights(W, std::mt19937& rng) {
    W k;
    for (auto& w : k.w) {
        const unsigned kind = rng() % 10;
        const auto uniform = [&](float a) { return std::uniform_real_distribution<float>(-a, a)(rng); };
        w = kind < 5 ? uniform(1.5f) : kind < 7 ? uniform(40000.0f) : kind == 7 ? uniform(1e30f)
            : kind == 8 ? (rng() & 1 ? 1.0f : -1.0f) * std::numeric_limits<float>::infinity()
                        : std::numeric_limits<float>::quiet_NaN();
    }
    return k;
}

// Float results are compared with every NaN made one NaN: which payload a sum
// of two NaNs carries is the compiler's choice of operand order.
template <int Target, int N>
void nanAsNan(zor::RowC<const Zor32f, N> s, zor::RowC<Zor32f, 1> d, int width, GrayWeights<Zor32f> k) {
    const zor::GrayKernels* t = zor::grayTables()[Target] ? zor::grayTables()[Target] : zor::grayTables()[0];
    if constexpr (N == 3)
        t->c3f32(s, d, width, k);
    else
        t->ac4f32(s, d, width, k);
    for (int i = 0; i < width; ++i)
        if (std::isnan(d.p[i])) d.p[i] = std::numeric_limits<Zor32f>::quiet_NaN();
}
template <int N>
struct FloatKernel {
    decltype(&nanAsNan<0, N>) fn;
};
template <int N, int... T>
const FloatKernel<N>* const* floatTables(std::integer_sequence<int, T...>) {
    static const FloatKernel<N> tables[] = {{&nanAsNan<T, N>}...};
    static const FloatKernel<N>* const pointers[] = {&tables[T]...};
    return pointers;
}
template <int N>
const FloatKernel<N>* const* floatTables() {
    return floatTables<N>(std::make_integer_sequence<int, zor::cpu::kTargetCount>());
}

template <class Fn>
void expectShapeMatches(Fn zor::GrayKernels::*member) {
    using W = std::tuple_element_t<0, typename zt::detail::Signature<Fn>::Extras>;
    const auto weights = [](std::mt19937& rng) { return std::make_tuple(randomWeights(W{}, rng)); };
    if constexpr (std::is_same_v<W, GrayWeights<Zor32f>>) {
        constexpr int N = std::is_same_v<Fn, decltype(&nanAsNan<0, 3>)> ? 3 : 4;
        zt::expectVectorsMatchScalar(floatTables<N>, &FloatKernel<N>::fn, false, weights);
    } else {
        zt::expectVectorsMatchScalar(zor::grayTables, member, false, weights);
    }
}

#define ZOR_SHAPE_TEST(name, fn, args) \
    TEST(GrayKernelSets, name) { expectShapeMatches(&zor::GrayKernels::name); }
ZOR_GRAY_KERNELS(ZOR_SHAPE_TEST)

}  // namespace
