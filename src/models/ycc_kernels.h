// Row kernels of RGB <-> PhotoYCC. N is the samples per pixel: 3, or 4 with
// the fourth neither read nor written. The shapes are listed at the end;
// their vector kernels are in models/ycc_hwy.cpp.
#pragma once

#include "core/kernel_set.h"
#include "models/common.h"

namespace zor {

// Chroma offsets 156 and 137 on the sample scale: times 257 on the 16-bit
// scale, over 255 for 32f.
template <class T>
inline constexpr float kYccOff1 = std::is_floating_point_v<T> ? 0.6117647f : 40092.0f;
template <class T>
inline constexpr float kYccOff2 = std::is_floating_point_v<T> ? 0.5372549f : 35209.0f;

// The 16u forward matrix: the model's products combined into one matrix.
inline constexpr Matrix3 kRgbToYcc16 = {{{0.213267f, 0.418688f, 0.0813124f},
                                         {-0.130621f, -0.256437f, 0.387058f},
                                         {0.372876f, -0.312237f, -0.0606389f}}};

// 8u forward: weights 0.299, 0.587, 0.114 in units of 1/16384; every shift
// floors and nothing is rounded or clamped (the chroma keeps its low 8 bits).
template <int N>
void rgbToYcc8(RowC<const Zor8u, N> s, RowC<Zor8u, N> d, int width) {
    const std::ptrdiff_t n = runtimeStride(N);
    for (int i = 0; i < width; ++i) {
        const Zor8u* p = s.p + static_cast<std::ptrdiff_t>(i) * n;
        Zor8u* q = d.p + static_cast<std::ptrdiff_t>(i) * n;
        const std::int32_t r = p[0], g = p[1], b = p[2];
        const std::int32_t sum = 4898 * r + 9617 * g + 1867 * b;
        q[0] = static_cast<Zor8u>(((sum >> 10) * 2921) >> 16);
        q[1] = static_cast<Zor8u>(asr(asr(b * 16384 - sum, 10) * 1789, 16) + 156);
        q[2] = static_cast<Zor8u>(asr(asr(r * 16384 - sum, 10) * 2178, 16) + 137);
    }
}

// 8u inverse: 12 fraction bits; the table saturates indices from -346 to 565.
template <int N>
void yccToRgb8(RowC<const Zor8u, N> s, RowC<Zor8u, N> d, int width) {
    const std::ptrdiff_t n = runtimeStride(N);
    for (int i = 0; i < width; ++i) {
        const Zor8u* p = s.p + static_cast<std::ptrdiff_t>(i) * n;
        Zor8u* q = d.p + static_cast<std::ptrdiff_t>(i) * n;
        const std::int32_t ty = 5564 * static_cast<std::int32_t>(p[0]);
        const std::int32_t t1 = 9084 * static_cast<std::int32_t>(p[1]) - 1417104;
        const std::int32_t t2 = 7460 * static_cast<std::int32_t>(p[2]) - 1022020;
        q[0] = ModelSaturation::at(asr(ty + t2, 12));
        q[1] = ModelSaturation::at(asr(16 * ty - 794 * asr(t1, 8) - 2084 * asr(t2, 8), 16));
        q[2] = ModelSaturation::at(asr(ty + t1, 12));
    }
}

// 16u forward: the combined matrix plus the offsets, rounded, no clamp.
template <int N>
void rgbToYcc16u(RowC<const Zor16u, N> s, RowC<Zor16u, N> d, int width) {
    const float off[3] = {0.0f, kYccOff1<Zor16u>, kYccOff2<Zor16u>};
    const std::ptrdiff_t n = runtimeStride(N);
    for (int i = 0; i < width; ++i) {
        const Zor16u* p = s.p + static_cast<std::ptrdiff_t>(i) * n;
        Zor16u* q = d.p + static_cast<std::ptrdiff_t>(i) * n;
        const float r = p[0], g = p[1], b = p[2];
        for (int k = 0; k < 3; ++k) q[k] = roundStore<Zor16u>(dotRow(kRgbToYcc16, k, r, g, b) + off[k]);
    }
}

// 16s and 32f forward: the model form (luma first, then the scaled luma and
// chroma differences); 16s rounded without clamp, 32f as computed.
template <class T, int N>
void rgbToYccModel(RowC<const T, N> s, RowC<T, N> d, int width) {
    const std::ptrdiff_t n = runtimeStride(N);
    for (int i = 0; i < width; ++i) {
        const T* p = s.p + static_cast<std::ptrdiff_t>(i) * n;
        T* q = d.p + static_cast<std::ptrdiff_t>(i) * n;
        const float r = toScale(p[0]), g = toScale(p[1]), b = toScale(p[2]);
        const float yl = 0.299f * r + 0.587f * g + 0.114f * b;
        q[0] = roundStore<T>(0.7132668f * yl);
        q[1] = roundStore<T>(0.43686f * (b - yl) + kYccOff1<T>);
        q[2] = roundStore<T>(0.53192f * (r - yl) + kYccOff2<T>);
    }
}

// 16u, 16s and 32f inverse, each channel within the scale. For 16s, sample
// + 32768 minus 40092 (35209) equals the signed sample minus 7324 (2441)
// exactly.
template <class T, int N>
void yccToRgb(RowC<const T, N> s, RowC<T, N> d, int width) {
    const std::ptrdiff_t n = runtimeStride(N);
    for (int i = 0; i < width; ++i) {
        const T* p = s.p + static_cast<std::ptrdiff_t>(i) * n;
        T* q = d.p + static_cast<std::ptrdiff_t>(i) * n;
        const float l = 1.3584f * toScale(p[0]);
        const float d1 = 2.2179f * (toScale(p[1]) - kYccOff1<T>);
        const float d2 = 1.8215f * (toScale(p[2]) - kYccOff2<T>);
        q[0] = saturateStore<T>(l + d2);
        q[1] = saturateStore<T>(l - 0.194f * d1 - 0.509f * d2);
        q[2] = saturateStore<T>(l + d1);
    }
}

// ---------------------------------------------------------------------------
// The shapes: X(member, kernel template, (template arguments)).

#define ZOR_YCC_KERNELS(X)                        \
    X(toYcc8C3, rgbToYcc8, (3))                   \
    X(toYcc8AC4, rgbToYcc8, (4))                  \
    X(toRgb8C3, yccToRgb8, (3))                   \
    X(toRgb8AC4, yccToRgb8, (4))                  \
    X(toYcc16uC3, rgbToYcc16u, (3))               \
    X(toYcc16uAC4, rgbToYcc16u, (4))              \
    X(toRgb16uC3, yccToRgb, (Zor16u, 3))          \
    X(toRgb16uAC4, yccToRgb, (Zor16u, 4))         \
    X(toYcc16sC3, rgbToYccModel, (Zor16s, 3))     \
    X(toYcc16sAC4, rgbToYccModel, (Zor16s, 4))    \
    X(toRgb16sC3, yccToRgb, (Zor16s, 3))          \
    X(toRgb16sAC4, yccToRgb, (Zor16s, 4))         \
    X(toYcc32fC3, rgbToYccModel, (Zor32f, 3))     \
    X(toYcc32fAC4, rgbToYccModel, (Zor32f, 4))    \
    X(toRgb32fC3, yccToRgb, (Zor32f, 3))          \
    X(toRgb32fAC4, yccToRgb, (Zor32f, 4))

ZOR_KERNEL_TABLE(YccKernels, ZOR_YCC_KERNELS, kYccScalar, yccTables, YccK)

}  // namespace zor
