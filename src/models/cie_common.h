// Arithmetic shared by the XYZ, LUV, Lab and PhotoYCC conversions: the RGB/XYZ
// matrices, sample-type traits, the byte saturation table, the exact float
// evaluation orders, the truncating quantisers and the row-parallel worker.
//
// Float expressions are written in the order in which they must be evaluated
// (the build keeps every operation separately rounded); reordering any of
// them changes results in the last unit and with that some integer codes.
#pragma once

#include "core/frame.h"
#include "models/channel_frame.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace zor {

// ---------------------------------------------------------------------------
// Matrices between linear RGB and CIE XYZ (D65, BT.709 primaries).

struct Matrix3 {
    float m[3][3];
};

inline constexpr Matrix3 kRgbToXyz = {{{0.412453f, 0.35758f, 0.180423f},
                                       {0.212671f, 0.71516f, 0.072169f},
                                       {0.019334f, 0.119193f, 0.950227f}}};

inline constexpr Matrix3 kXyzToRgb = {{{3.240479f, -1.53715f, -0.498535f},
                                       {-0.969256f, 1.875991f, 0.041556f},
                                       {0.055648f, -0.204043f, 1.057311f}}};

// Row r of a matrix applied to (a, b, c): (m0*a + m1*b) + m2*c, in float.
inline float dotRow(const Matrix3& m, int r, float a, float b, float c) {
    return m.m[r][0] * a + m.m[r][1] * b + m.m[r][2] * c;
}

// The rounding constant of the float-to-code conversions and its exact value
// once widened to double.
inline constexpr float kHalfLess = 0.499999f;
inline constexpr double kHalfLessD = 0.4999989867210388;
static_assert(static_cast<double>(kHalfLess) == kHalfLessD, "0.499999f must widen to 0.4999989867210388");

// Cube root through the double-precision pow with the float value of 1/3.
inline constexpr double kThirdF = 0.3333333432674408;
static_assert(static_cast<double>(1.0f / 3.0f) == kThirdF, "exponent is the float value of 1/3");
inline double cubeRootD(float t) { return std::pow(static_cast<double>(t), kThirdF); }
inline float cubeRoot(float t) { return static_cast<float>(cubeRootD(t)); }

// Threshold of the linear segment of the CIE lightness (strictly greater takes
// the cube root).
inline constexpr float kCieEpsilon = 0.008856f;

// ---------------------------------------------------------------------------
// Quantisers

// Truncation toward zero of a value known to lie well inside the int range.
template <class F>
inline int truncInt(F v) {
    return static_cast<int>(v);
}

// Truncation with saturation to 0..hi: hi or more gives hi, below 1 gives 0
// (also NaN and minus infinity), otherwise truncation toward zero.
template <class F>
inline int truncSat(F v, int hi) {
    if (v >= static_cast<F>(hi)) return hi;
    if (!(v >= static_cast<F>(1))) return 0;
    return static_cast<int>(v);
}

// R, G, B codes of one XYZ triple on a sample scale whose top code is hi:
// each row of the inverse matrix plus 0.499999, truncated, saturated to
// 0..hi. With BlueInDouble the blue row adds the rounding constant and its Z
// term in double to the float sum of its first two terms.
inline constexpr double kBlueZD = 1.057311;

template <bool BlueInDouble>
inline void xyzToRgbCodes(float x, float y, float z, int hi, int out[3]) {
    out[0] = truncSat(dotRow(kXyzToRgb, 0, x, y, z) + kHalfLess, hi);
    out[1] = truncSat(dotRow(kXyzToRgb, 1, x, y, z) + kHalfLess, hi);
    if constexpr (BlueInDouble) {
        const float part = kXyzToRgb.m[2][0] * x + kXyzToRgb.m[2][1] * y;
        out[2] = truncSat(static_cast<double>(part) + kHalfLessD + static_cast<double>(z) * kBlueZD, hi);
    } else {
        out[2] = truncSat(dotRow(kXyzToRgb, 2, x, y, z) + kHalfLess, hi);
    }
}

// Float clamp to 0..1 (negative gives 0, 1 or more gives 1).
inline float clamp01(float v) { return v < 0.0f ? 0.0f : (v >= 1.0f ? 1.0f : v); }

// Byte saturation of the XYZ and PhotoYCC fixed-point paths, indexed by a
// signed value in -371..629.
inline Zor8u satByte(std::int32_t v) { return ByteSaturation<371, 629>::at(v); }

// ---------------------------------------------------------------------------
// Integer sample types on the unsigned 16-bit scale: 16u as is, 16s offset by
// 32768 on the way in and out.

template <class T>
struct Sample16;

template <>
struct Sample16<Zor16u> {
    static float in(Zor16u s) { return static_cast<float>(s); }
    // Low 16 bits of a code on the 0..65535 scale.
    static Zor16u out(int code) { return static_cast<Zor16u>(code); }
};

template <>
struct Sample16<Zor16s> {
    static float in(Zor16s s) { return static_cast<float>(static_cast<int>(s) + 32768); }
    static Zor16s out(int code) { return static_cast<Zor16s>(static_cast<std::uint16_t>(code - 32768)); }
};

}  // namespace zor

// Defines the worker `name` of a family: the row-parallel frame around one
// row kernel, with steps in elements.
#define ZOR_CIE_WORKER(name, kernel, S, D)                                                              \
    void name(const S* src, int srcStep, D* dst, int dstStep, int width, int height, int channels) {   \
        ::zor::channelRows<S, D>(kernel, src, srcStep, dst, dstStep, width, height, channels);       \
    }

// Defines the exported function `name` (inside extern "C"): checks, then the
// worker with the given channel count.
#define ZOR_CIE_EXPORT(name, worker, S, D, channels)                                                    \
    ZORCC_API ZorStatus name(const S* pSrc, int srcStep, D* pDst, int dstStep, ZoriSize roiSize) {      \
        return ::zor::channelEntry<S, D>(worker, pSrc, srcStep, pDst, dstStep, roiSize, channels);           \
    }
