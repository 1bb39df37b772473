// Row kernels of BGR <-> CIE L*a*b* (D65 white): interleaved 8-bit BGR with
// Lab as 8u or 16u codes. The forward direction uses the CIE cube root with
// its linear segment near black; the inverse uses the plain cube.
#pragma once

#include "core/kernel_set.h"
#include "models/common.h"

namespace zor {

// White point on the 0..255 scale.
inline constexpr float kLabXn = 242.366f, kLabYn = 255.0f, kLabZn = 277.632f;
inline constexpr float kLabSlope = 7.787f;
inline constexpr float kLabOffset = 0.13793103f;  // 16/116
inline constexpr float kLabLinearL = 903.3f;

// Row r of a matrix applied to a BGR pixel, summed from blue to red.
inline float dotBgr(const Matrix3& m, int r, float b, float g, float rr) {
    return m.m[r][2] * b + m.m[r][1] * g + m.m[r][0] * rr;
}

// The CIE cube-root function with its linear segment (t = 0.008856 is linear).
inline float labF(float t) { return t > kCieEpsilon ? cubeRoot(t) : kLabSlope * t + kLabOffset; }

// Steps 1 to 4 of the forward direction. The 16u codes take their lightness
// from the double cube root of Y.
struct LabValue {
    float y;       // Y / Yn
    double rootY;  // cube root of Y / Yn in double (above the threshold)
    float fy, a, b;
};

inline LabValue labOfBgr(const Zor8u* p) {
    const float b = p[0], g = p[1], r = p[2];
    const float x = dotBgr(kRgbToXyz, 0, b, g, r) / kLabXn;
    const float y = dotBgr(kRgbToXyz, 1, b, g, r) / kLabYn;
    const float z = dotBgr(kRgbToXyz, 2, b, g, r) / kLabZn;
    const float fx = labF(x), fz = labF(z);
    LabValue o{};
    o.y = y;
    if (y > kCieEpsilon) {
        o.rootY = cubeRootD(y);
        o.fy = static_cast<float>(o.rootY);
    } else {
        o.fy = kLabSlope * y + kLabOffset;
    }
    o.a = 500.0f * (fx - o.fy);
    o.b = 200.0f * (o.fy - fz);
    return o;
}

// Forward. 8u codes: L*255/100 + 0.5, a + 128.5, b + 128.5, truncated, low 8
// bits. 16u codes: L from the double cube root in double, L*65535/100,
// (a+128)*255, (b+128)*255, truncated without a rounding half, low 16 bits.
// No clamp in either.
template <class D>
void bgrToLab(RowC<const Zor8u, 3> s, RowC<D, 3> d, int width) {
    for (int i = 0; i < width; ++i) {
        const LabValue c = labOfBgr(s.p + 3 * static_cast<std::ptrdiff_t>(i));
        D* q = d.p + 3 * static_cast<std::ptrdiff_t>(i);
        if constexpr (sizeof(D) == 1) {
            const float l = c.y > kCieEpsilon ? 116.0f * c.fy - 16.0f : kLabLinearL * c.y;
            q[0] = static_cast<D>(static_cast<int>(l * 255.0f / 100.0f + 0.5f));
            q[1] = static_cast<D>(static_cast<int>(c.a + 128.5f));
            q[2] = static_cast<D>(static_cast<int>(c.b + 128.5f));
        } else {
            const double l = c.y > kCieEpsilon ? 116.0 * c.rootY - 16.0 : static_cast<double>(kLabLinearL * c.y);
            q[0] = static_cast<D>(static_cast<int>(l * 65535.0 / 100.0));
            q[1] = static_cast<D>(static_cast<int>((c.a + 128.0f) * 255.0f));
            q[2] = static_cast<D>(static_cast<int>((c.b + 128.0f) * 255.0f));
        }
    }
}

// Inverse: the cube of the three function values, the inverse matrix in
// float, each channel 0..255, stored B, G, R. 8u codes: the float value
// widened to double + 0.5, truncated. 16u codes: truncated straight from
// float, with no rounding half.
template <class S>
void labToBgr(RowC<const S, 3> s, RowC<Zor8u, 3> d, int width) {
    for (int i = 0; i < width; ++i) {
        const S* p = s.p + 3 * static_cast<std::ptrdiff_t>(i);
        Zor8u* q = d.p + 3 * static_cast<std::ptrdiff_t>(i);
        float fy, fx, fz;
        if constexpr (sizeof(S) == 1) {
            fy = (static_cast<float>(p[0]) * 100.0f / 255.0f + 16.0f) / 116.0f;
            fx = static_cast<float>(p[1] - 128) / 500.0f + fy;
            fz = fy - static_cast<float>(p[2] - 128) / 200.0f;
        } else {
            fy = (static_cast<float>(p[0]) * 100.0f / 65535.0f + 16.0f) / 116.0f;
            fx = (static_cast<float>(p[1]) / 255.0f - 128.0f) / 500.0f + fy;
            fz = fy - (static_cast<float>(p[2]) / 255.0f - 128.0f) / 200.0f;
        }
        const float x = kLabXn * (fx * fx * fx);
        const float y = kLabYn * (fy * fy * fy);
        const float z = kLabZn * (fz * fz * fz);
        for (int k = 0; k < 3; ++k) {
            const float v = dotRow(kXyzToRgb, k, x, y, z);
            q[2 - k] = clampByte(sizeof(S) == 1 ? static_cast<int>(static_cast<double>(v) + 0.5) : static_cast<int>(v));
        }
    }
}

// ---------------------------------------------------------------------------
// The shapes: X(member, kernel template, (template arguments)).

#define ZOR_LAB_KERNELS(X)              \
    X(bgrToLab8u, bgrToLab, (Zor8u))    \
    X(bgrToLab16u, bgrToLab, (Zor16u))  \
    X(labToBgr8u, labToBgr, (Zor8u))    \
    X(labToBgr16u, labToBgr, (Zor16u))

ZOR_KERNEL_TABLE(LabKernels, ZOR_LAB_KERNELS, kLabScalar, labTables, LabK)

}  // namespace zor
