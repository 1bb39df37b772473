// Row kernels of RGB <-> CIE XYZ. N is the samples per pixel: 3, or 4 with
// the fourth neither read nor written.
#pragma once

#include "core/kernel_set.h"
#include "models/common.h"

namespace zor {

// The matrices in 16.16 fixed point, truncated toward zero.
inline constexpr std::int32_t kRgbToXyz8[3][3] = {{27030, 23434, 11824}, {13937, 46868, 4729}, {1267, 7811, 62274}};
inline constexpr std::int32_t kXyzToRgb8[3][3] = {
    {212368, -100738, -32671}, {-63521, 122944, 2723}, {3646, -13372, 69291}};

inline std::int32_t fixedRow(const std::int32_t (&row)[3], std::int32_t a, std::int32_t b, std::int32_t c) {
    return row[0] * a + row[1] * b + row[2] * c;
}

// 8u: X and Y are floors (their rows sum below 65536); Z reaches 277 and goes
// through the saturation table.
template <int N>
void rgbToXyz8(RowC<const Zor8u, N> s, RowC<Zor8u, N> d, int width) {
    const std::ptrdiff_t n = runtimeStride(N);
    for (int i = 0; i < width; ++i) {
        const Zor8u* p = s.p + static_cast<std::ptrdiff_t>(i) * n;
        Zor8u* q = d.p + static_cast<std::ptrdiff_t>(i) * n;
        const std::int32_t r = p[0], g = p[1], b = p[2];
        q[0] = static_cast<Zor8u>(fixedRow(kRgbToXyz8[0], r, g, b) >> 16);
        q[1] = static_cast<Zor8u>(fixedRow(kRgbToXyz8[1], r, g, b) >> 16);
        q[2] = ModelSaturation::at(fixedRow(kRgbToXyz8[2], r, g, b) >> 16);
    }
}

// 8u inverse: the floor of each row (arithmetic shift, also for negative
// sums), then 0..255.
template <int N>
void xyzToRgb8(RowC<const Zor8u, N> s, RowC<Zor8u, N> d, int width) {
    const std::ptrdiff_t n = runtimeStride(N);
    for (int i = 0; i < width; ++i) {
        const Zor8u* p = s.p + static_cast<std::ptrdiff_t>(i) * n;
        Zor8u* q = d.p + static_cast<std::ptrdiff_t>(i) * n;
        for (int k = 0; k < 3; ++k) q[k] = clampByte(asr(fixedRow(kXyzToRgb8[k], p[0], p[1], p[2]), 16));
    }
}

// 16u, 16s and 32f. Integer X and Y keep their low 16 bits (their rows sum
// to at most 1), Z saturates; 32f X and Y are not clamped, Z is.
template <class T, int N>
void rgbToXyz(RowC<const T, N> s, RowC<T, N> d, int width) {
    const std::ptrdiff_t n = runtimeStride(N);
    for (int i = 0; i < width; ++i) {
        const T* p = s.p + static_cast<std::ptrdiff_t>(i) * n;
        T* q = d.p + static_cast<std::ptrdiff_t>(i) * n;
        const float r = toScale(p[0]), g = toScale(p[1]), b = toScale(p[2]);
        q[0] = roundStore<T>(dotRow(kRgbToXyz, 0, r, g, b));
        q[1] = roundStore<T>(dotRow(kRgbToXyz, 1, r, g, b));
        q[2] = saturateStore<T>(dotRow(kRgbToXyz, 2, r, g, b));
    }
}

// 16u, 16s and 32f inverse, each channel within the scale. The 16u inverse
// adds its blue row's rounding constant and Z term in double; the 16s one
// stays in float throughout.
template <class T, int N>
void xyzToRgb(RowC<const T, N> s, RowC<T, N> d, int width) {
    const std::ptrdiff_t n = runtimeStride(N);
    for (int i = 0; i < width; ++i) {
        const T* p = s.p + static_cast<std::ptrdiff_t>(i) * n;
        T* q = d.p + static_cast<std::ptrdiff_t>(i) * n;
        const float x = toScale(p[0]), y = toScale(p[1]), z = toScale(p[2]);
        if constexpr (std::is_same_v<T, Zor16u>) {
            int c[3];
            xyzToRgbCodes<true>(x, y, z, kFull<T>, c);
            for (int k = 0; k < 3; ++k) q[k] = fromCode<T>(c[k]);
        } else {
            for (int k = 0; k < 3; ++k) q[k] = saturateStore<T>(dotRow(kXyzToRgb, k, x, y, z));
        }
    }
}

// ---------------------------------------------------------------------------
// The shapes: X(member, kernel template, (template arguments)).

#define ZOR_XYZ_KERNELS(X)                   \
    X(toXyz8C3, rgbToXyz8, (3))              \
    X(toXyz8AC4, rgbToXyz8, (4))             \
    X(toRgb8C3, xyzToRgb8, (3))              \
    X(toRgb8AC4, xyzToRgb8, (4))             \
    X(toXyz16uC3, rgbToXyz, (Zor16u, 3))     \
    X(toXyz16uAC4, rgbToXyz, (Zor16u, 4))    \
    X(toRgb16uC3, xyzToRgb, (Zor16u, 3))     \
    X(toRgb16uAC4, xyzToRgb, (Zor16u, 4))    \
    X(toXyz16sC3, rgbToXyz, (Zor16s, 3))     \
    X(toXyz16sAC4, rgbToXyz, (Zor16s, 4))    \
    X(toRgb16sC3, xyzToRgb, (Zor16s, 3))     \
    X(toRgb16sAC4, xyzToRgb, (Zor16s, 4))    \
    X(toXyz32fC3, rgbToXyz, (Zor32f, 3))     \
    X(toXyz32fAC4, rgbToXyz, (Zor32f, 4))    \
    X(toRgb32fC3, xyzToRgb, (Zor32f, 3))     \
    X(toRgb32fAC4, xyzToRgb, (Zor32f, 4))

ZOR_KERNEL_TABLE(XyzKernels, ZOR_XYZ_KERNELS, kXyzScalar, xyzTables, XyzK)

}  // namespace zor
