// Row kernels of the gray conversions (the weighted sum of channels 0..2 of
// a C3 or AC4 pixel): the scalar kernels, which are the reference, and the
// list of kernel shapes from which the scalar table and, per CPU target, the
// vector table are made (models/gray_hwy.cpp).
#pragma once

#include "core/arith.h"
#include "core/image.h"
#include "core/kernel_set.h"

#include <climits>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace zor {

// The weights of one call: floats, or for 8u 12-bit fixed point (1/4096
// units) in unsigned 32-bit arithmetic.
template <class T>
struct GrayWeights {
    float w[3];
};
template <>
struct GrayWeights<Zor8u> {
    std::uint32_t w[3];
};

// Truncation toward zero to a 32-bit integer; a value outside its range (or
// NaN) gives INT32_MIN, as the processor's truncating conversion does.
inline std::int32_t truncToInt32(double v) {
    return v > -2147483649.0 && v < 2147483648.0 ? static_cast<std::int32_t>(v) : INT32_MIN;
}

// 8u: the unsigned product sum shifted right by 12, its low 8 bits stored:
// no rounding and no clamp, so large sums and negative weights wrap.
inline Zor8u grayOf(const GrayWeights<Zor8u>& k, Zor8u c0, Zor8u c1, Zor8u c2) {
    return static_cast<Zor8u>((k.w[0] * c0 + k.w[1] * c1 + k.w[2] * c2) >> 12);
}

// 16u, 16s (on the unsigned scale): the float sum truncated toward zero, its
// low 16 bits stored. 32f: the float sum.
template <class T>
inline T grayOf(const GrayWeights<T>& k, T c0, T c1, T c2) {
    if constexpr (std::is_same_v<T, Zor32f>) {
        return k.w[0] * c0 + k.w[1] * c1 + k.w[2] * c2;
    } else {
        using O = Offset16<T>;
        const float sum = k.w[0] * static_cast<float>(O::in(c0)) + k.w[1] * static_cast<float>(O::in(c1)) +
                          k.w[2] * static_cast<float>(O::in(c2));
        return O::out(static_cast<int>(static_cast<std::uint32_t>(truncToInt32(sum)) & 0xFFFFu));
    }
}

// One kernel per sample type for both source layouts (N = 3 or 4 samples per
// pixel, the fourth ignored). Samples are moved with memcpy: a row may start
// at any byte address.
template <class T>
inline T sampleAt(const T* p) {
    T v;
    std::memcpy(&v, p, sizeof v);
    return v;
}

template <class T, int N>
void gray(RowC<const T, N> s, RowC<T, 1> d, int width, GrayWeights<T> k) {
    const std::ptrdiff_t n = runtimeStride(N);
    for (std::ptrdiff_t i = 0; i < width; ++i) {
        const T* p = s.p + n * i;
        const T g = grayOf(k, sampleAt(p), sampleAt(p + 1), sampleAt(p + 2));
        std::memcpy(d.p + i, &g, sizeof g);
    }
}

// ---------------------------------------------------------------------------
// The shapes: X(member, kernel template, (template arguments)).

#define ZOR_GRAY_KERNELS(X)            \
    X(c3u8, gray, (Zor8u, 3))          \
    X(ac4u8, gray, (Zor8u, 4))         \
    X(c3u16, gray, (Zor16u, 3))        \
    X(ac4u16, gray, (Zor16u, 4))       \
    X(c3s16, gray, (Zor16s, 3))        \
    X(ac4s16, gray, (Zor16s, 4))       \
    X(c3f32, gray, (Zor32f, 3))        \
    X(ac4f32, gray, (Zor32f, 4))

ZOR_KERNEL_TABLE(GrayKernels, ZOR_GRAY_KERNELS, kGrayScalar, grayTables, GrayK)

}  // namespace zor
