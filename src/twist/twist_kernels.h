// Row kernels of the colour twist: an affine 3x4 float matrix applied to
// every three-channel pixel, a linear 4x4 one to four-channel float pixels.
// Single-precision arithmetic in a fixed order (no fused multiply-add);
// integer results are rounded to nearest with ties to even and saturated.
#pragma once

#include "core/kernel_set.h"
#include "twist/pixels3.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace zor {

// The caller's matrix of R rows of four, copied once per call. Kernels take
// it by value, so their stores cannot alias it.
template <int R>
struct Matrix {
    float t[R][4];
    Matrix() = default;
    explicit Matrix(const Zor32f (*m)[4]) {
        for (int r = 0; r < R; ++r)
            for (int c = 0; c < 4; ++c) t[r][c] = m[r][c];
    }
};

// A result y as a sample of T. Floats are stored as they are. An integer type
// [lo, hi] takes hi from y >= hi, lo from y <= lo and from NaN, and the
// nearest integer, ties to even, in between.
template <class T>
inline T saturateRound(float y) {
    if constexpr (std::is_same_v<T, Zor32f>) {
        return y;
    } else {
        constexpr float lo = std::numeric_limits<T>::min();
        constexpr float hi = std::numeric_limits<T>::max();
#if defined(__SSE2__)
        // Without branches (the data picks the end, and gcc turns the
        // conditional form below into mispredicted jumps): maxss returns its
        // second operand when the first is NaN.
        const float c = _mm_cvtss_f32(_mm_min_ss(_mm_max_ss(_mm_set_ss(y), _mm_set_ss(lo)), _mm_set_ss(hi)));
#else
        const float above = y > lo ? y : lo;  // NaN fails the test: lo
        const float c = above < hi ? above : hi;
#endif
        // Adding and removing 1.5 * 2^23 rounds any |c| <= 65535 to an integer
        // with ties to even: the sum lies where floats are spaced by 1, and
        // the subtraction is exact.
        const float r = (c + 12582912.0f) - 12582912.0f;
        return static_cast<T>(static_cast<std::int32_t>(r));
    }
}

// One output channel: the constant is added right after the first product.
inline float twistChannel(const float* t, float x0, float x1, float x2) {
    return ((t[0] * x0 + t[3]) + t[1] * x1) + t[2] * x2;
}

// The 3x4 twist over layout L and samples T. All three inputs of a pixel are
// read before any output is written, so in place gives the same result.
template <class L, class T>
void innerColorTwist(RowOf<L, const T> s, RowOf<L, T> d, int width, Matrix<3> m) {
    for (std::ptrdiff_t i = 0; i < width; ++i) {
        const float x0 = static_cast<float>(L::at(s, i, 0));
        const float x1 = static_cast<float>(L::at(s, i, 1));
        const float x2 = static_cast<float>(L::at(s, i, 2));
        const float y0 = twistChannel(m.t[0], x0, x1, x2);
        const float y1 = twistChannel(m.t[1], x0, x1, x2);
        const float y2 = twistChannel(m.t[2], x0, x1, x2);
        L::at(d, i, 0) = saturateRound<T>(y0);
        L::at(d, i, 1) = saturateRound<T>(y1);
        L::at(d, i, 2) = saturateRound<T>(y2);
    }
}

// Four channels of samples T (32f only) through a 4x4 matrix without
// constants.
template <class T>
void innerColorTwist4(RowC<const T, 4> s, RowC<T, 4> d, int width, Matrix<4> m) {
    for (std::ptrdiff_t i = 0; i < width; ++i) {
        const T* x = s.p + 4 * i;
        T y[4];
        for (int c = 0; c < 4; ++c)
            y[c] = ((m.t[c][0] * x[0] + m.t[c][1] * x[1]) + m.t[c][2] * x[2]) + m.t[c][3] * x[3];
        for (int c = 0; c < 4; ++c) d.p[4 * i + c] = y[c];
    }
}

// ---------------------------------------------------------------------------
// The shapes: X(member, kernel template, (template arguments)).

#define ZOR_TWIST_KERNELS(X)                                  \
    X(c3u8, innerColorTwist, (Interleaved<3>, Zor8u))         \
    X(ac4u8, innerColorTwist, (Interleaved<4>, Zor8u))        \
    X(p3u8, innerColorTwist, (Planar, Zor8u))                 \
    X(c3s8, innerColorTwist, (Interleaved<3>, Zor8s))         \
    X(ac4s8, innerColorTwist, (Interleaved<4>, Zor8s))        \
    X(p3s8, innerColorTwist, (Planar, Zor8s))                 \
    X(c3u16, innerColorTwist, (Interleaved<3>, Zor16u))       \
    X(ac4u16, innerColorTwist, (Interleaved<4>, Zor16u))      \
    X(p3u16, innerColorTwist, (Planar, Zor16u))               \
    X(c3s16, innerColorTwist, (Interleaved<3>, Zor16s))       \
    X(ac4s16, innerColorTwist, (Interleaved<4>, Zor16s))      \
    X(p3s16, innerColorTwist, (Planar, Zor16s))               \
    X(c3f32, innerColorTwist, (Interleaved<3>, Zor32f))       \
    X(ac4f32, innerColorTwist, (Interleaved<4>, Zor32f))      \
    X(p3f32, innerColorTwist, (Planar, Zor32f))               \
    X(c4f32, innerColorTwist4, (Zor32f))

ZOR_KERNEL_TABLE(TwistKernels, ZOR_TWIST_KERNELS, kTwistScalar, twistTables, TwistK)

}  // namespace zor
