// Every colour twist vector kernel against its scalar kernel at every CPU target, on random rows of every width 1..300
// (row ends against a guard page): random matrices, matrices whose results fall on and next to one half, matrices
// with infinite or NaN entries, with huge finite ones and with results of up to 17 bits; float rows hold every bit pattern (NaN, infinities,
// denormals, signed zeros).
#include "support/kernel_harness.h"
#include "twist/twist_kernels.h"

#include <cmath>

namespace {

template <int R>
zor::Matrix<R> randomMatrix(std::mt19937& rng, float span) {
    std::uniform_real_distribution<float> w(-1.25f, 1.25f), c(-span, span);
    float t[4][4];
    const unsigned kind = rng() % 8;
    for (int r = 0; r < 4; ++r)
        for (int k = 0; k < 4; ++k) {
            t[r][k] = k == 3 && R == 3 ? c(rng) : w(rng);
            if (kind == 0) t[r][k] = std::round(t[r][k] * 4) / 4 + (k == 3 ? 0.5f : 0.0f);  // ties
            if (kind == 1 && rng() % 6 == 0) t[r][k] = rng() % 2 ? INFINITY : NAN;
            if (kind == 2 && rng() % 3 == 0) t[r][k] *= 1e10f;  // finite results far beyond any integer type
            if (kind == 3) t[r][k] *= 256.0f;  // results across the 8-bit range up to and past +-2^15 and 2^16
        }
    return zor::Matrix<R>(t);
}

// Target T's kernels with every NaN of a float result made one NaN (which NaN a sum of two keeps is the compiler's
// choice of operand order).
void canonical(float* p, std::size_t n) {
    for (float v, *q = p; q < p + n; ++q) std::memcpy(&v, q, 4), v = std::isnan(v) ? NAN : v, std::memcpy(q, &v, 4);
}
template <class R>
void canonicalRow(R, int) {}
template <int N>
void canonicalRow(zor::RowC<Zor32f, N> d, int width) { canonical(d.p, std::size_t(N) * width); }
void canonicalRow(zor::Row3<Zor32f> d, int width) { for (float* p : d.p) canonical(p, width); }

template <int T>
const zor::TwistKernels* kernelsOf = zor::twistTables()[T] ? zor::twistTables()[T] : zor::twistTables()[0];
template <int T, auto Member, class S, class D, class M>
void nanAsNan(S s, D d, int width, M m) {
    (kernelsOf<T>->*Member)(s, d, width, m);
    canonicalRow(d, width);
}
template <int T>
zor::TwistKernels withNanAsNan() {
    zor::TwistKernels k = *kernelsOf<T>;
    k.c3f32 = &nanAsNan<T, &zor::TwistKernels::c3f32>, k.ac4f32 = &nanAsNan<T, &zor::TwistKernels::ac4f32>;
    k.p3f32 = &nanAsNan<T, &zor::TwistKernels::p3f32>, k.c4f32 = &nanAsNan<T, &zor::TwistKernels::c4f32>;
    return k;
}
const zor::TwistKernels* const* testTables() {
    static const zor::TwistKernels t[] = {withNanAsNan<0>(), withNanAsNan<1>(), withNanAsNan<2>(), withNanAsNan<3>(),
                                          withNanAsNan<4>()};
    static const zor::TwistKernels* const p[zor::cpu::kTargetCount] = {t, t + 1, t + 2, t + 3, t + 4};
    return p;
}

// The matrix of a kernel: constants up to 0.6 of the samples' range (1000 for floats).
template <class Fn>
std::tuple<std::tuple_element_t<0, typename zt::detail::Signature<Fn>::Extras>> matrixFor(std::mt19937& rng) {
    using M = std::tuple_element_t<0, typename zt::detail::Signature<Fn>::Extras>;
    using T = typename zt::detail::RowGeometry<std::tuple_element_t<1, typename zt::detail::Signature<Fn>::Rows>>::Sample;
    const float span = std::is_same_v<T, float> ? 1000.0f : float(std::numeric_limits<T>::max()) * 0.6f;
    return {randomMatrix<sizeof(M) / 16>(rng, span)};
}

}  // namespace

#define ZOR_SHAPE_TEST(name, fn, args)                                                           \
    TEST(TwistKernelSets, name) {                                                                \
        zt::expectVectorsMatchScalar(testTables, &zor::TwistKernels::name, false,                \
                                     matrixFor<decltype(zor::TwistKernels::name)>);              \
    }
ZOR_TWIST_KERNELS(ZOR_SHAPE_TEST)
