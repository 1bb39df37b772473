// Row kernels of RGB <-> HSV, 8u and 16u. V is the largest sample itself;
// the hue is computed in sextants (0..6) and stored on the full code scale.
// N is the samples per pixel: 3, or 4 with the fourth neither read nor
// written. The shapes are listed at the end; their vector kernels are in
// models/hsv_hwy.cpp.
#pragma once

#include "core/kernel_set.h"
#include "models/common.h"

namespace zor {

// Hue code to sextants; the top code means hue 0.
inline float hsvSextants(int hCode, float scale) {
    return hCode == static_cast<int>(scale) ? 0.0f : static_cast<float>(hCode) * 360.0f / scale / 60.0f;
}

inline const std::array<float, 256> kSextants8u = table8u([](int v) { return hsvSextants(v, 255.0f); });

// Forward: integer max and min, float ratios. Hue priority: blue, green, red.
template <class T, int N>
void rgbToHsv(RowC<const T, N> src, RowC<T, N> dst, int width) {
    constexpr float scale = kFullF<T>;
    const std::ptrdiff_t n = runtimeStride(N);
    for (int i = 0; i < width; ++i) {
        const T* s = src.p + static_cast<std::ptrdiff_t>(i) * n;
        T* d = dst.p + static_cast<std::ptrdiff_t>(i) * n;
        const int r = s[0], g = s[1], b = s[2];
        int mx = r > g ? r : g;
        if (b > mx) mx = b;
        int mn = r < g ? r : g;
        if (b < mn) mn = b;
        int hCode = 0, sCode = 0;
        if (mx != 0 && mx != mn) {
            const float delta = static_cast<float>(mx - mn);
            sCode = RoundCode::code(delta / static_cast<float>(mx) * scale);
            const float inv = 1.0f / delta;
            float h;
            if (b == mx)
                h = 4.0f - static_cast<float>(mx - r) * inv + static_cast<float>(mx - g) * inv;
            else if (g == mx)
                h = 2.0f + static_cast<float>(b - r) * inv;
            else
                h = static_cast<float>(g - b) * inv;
            float x;
            if constexpr (sizeof(T) == 1) {
                // 8u wraps a negative hue in code units.
                x = h * scale / 6.0f;
                if (x < 0.0f) x += 255.0f;
            } else {
                // 16u wraps in sextants, below minus the float epsilon only.
                if (h + kFltEpsilon < 0.0f) h += 6.0f;
                x = h * scale / 6.0f;
            }
            hCode = RoundCode::code(x);
        }
        d[0] = static_cast<T>(hCode);
        d[1] = static_cast<T>(sCode);
        d[2] = static_cast<T>(mx);
    }
}

// Inverse: S normalised, V kept on the code scale; the top hue code is hue 0.
template <class T, int N>
void hsvToRgb(RowC<const T, N> src, RowC<T, N> dst, int width) {
    constexpr float scale = kFullF<T>;
    const std::ptrdiff_t n = runtimeStride(N);
    for (int i = 0; i < width; ++i) {
        const T* s = src.p + static_cast<std::ptrdiff_t>(i) * n;
        T* d = dst.p + static_cast<std::ptrdiff_t>(i) * n;
        const int hCode = s[0], sCode = s[1];
        const float v = static_cast<float>(s[2]);
        if (sCode == 0) {
            d[0] = d[1] = d[2] = s[2];
            continue;
        }
        float sat, hh;
        if constexpr (sizeof(T) == 1) {
            sat = kUnit8u[static_cast<std::size_t>(sCode)];
            hh = kSextants8u[static_cast<std::size_t>(hCode)];
        } else {
            sat = static_cast<float>(sCode) / scale;
            hh = hsvSextants(hCode, scale);
        }
        const int k = static_cast<int>(hh);  // hh >= 0: truncation is the floor
        const float f = hh - static_cast<float>(k);
        const float p = (1.0f - sat) * v;
        const float q = (1.0f - sat * f) * v;
        const float t = (1.0f - sat * (1.0f - f)) * v;
        float r, g, b;
        switch (k) {
            case 0: r = v, g = t, b = p; break;
            case 1: r = q, g = v, b = p; break;
            case 2: r = p, g = v, b = t; break;
            case 3: r = p, g = q, b = v; break;
            case 4: r = t, g = p, b = v; break;
            default: r = v, g = p, b = q; break;  // sextant 5 (codes below the top stay under 6)
        }
        d[0] = static_cast<T>(RoundCode::code(r));
        d[1] = static_cast<T>(RoundCode::code(g));
        d[2] = static_cast<T>(RoundCode::code(b));
    }
}

// ---------------------------------------------------------------------------
// The shapes: X(member, kernel template, (template arguments)).

#define ZOR_HSV_KERNELS(X)                 \
    X(toHsv8C3, rgbToHsv, (Zor8u, 3))      \
    X(toHsv8AC4, rgbToHsv, (Zor8u, 4))     \
    X(toRgb8C3, hsvToRgb, (Zor8u, 3))      \
    X(toRgb8AC4, hsvToRgb, (Zor8u, 4))     \
    X(toHsv16C3, rgbToHsv, (Zor16u, 3))    \
    X(toHsv16AC4, rgbToHsv, (Zor16u, 4))   \
    X(toRgb16C3, hsvToRgb, (Zor16u, 3))    \
    X(toRgb16AC4, hsvToRgb, (Zor16u, 4))

ZOR_KERNEL_TABLE(HsvKernels, ZOR_HSV_KERNELS, kHsvScalar, hsvTables, HsvK)

}  // namespace zor
