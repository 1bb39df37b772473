// What the colour models (XYZ, LUV, Lab, PhotoYCC, HLS, HSV) share: their
// export form, samples as floats and back, the quantisers, the RGB/XYZ
// matrices and the CIE cube root.
//
// Float expressions are written in the order in which they must be evaluated
// (the build keeps every operation separately rounded); reordering any of
// them changes results in the last unit and with that some integer codes.
#pragma once

#include "core/arith.h"
#include "core/export.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace zor {

// ---------------------------------------------------------------------------
// Export form: the pointers, then the size (steps are not validated); then
// the rows in parallel, each handed to one row kernel.

using ModelChecks = Checks<check::Null<kOuter>, check::Size<>>;

template <auto Kernel>
using ParallelRows = Rows<Parallel, ScalarKernel<Kernel>>;

// ---------------------------------------------------------------------------
// Samples. Integer samples live on the scale 0..kFull (16s offset onto the
// unsigned scale on the way in and back on the way out); 32f samples are
// used as they are.

template <class T>
inline constexpr int kFull = sizeof(T) == 1 ? 255 : 65535;
template <class T>
inline constexpr float kFullF = static_cast<float>(kFull<T>);

template <class T>
inline float toScale(T v) {
    if constexpr (std::is_floating_point_v<T>)
        return v;
    else
        return static_cast<float>(Offset16<T>::in(v));
}

// A code on the unsigned scale as a sample: its low bits, 16s offset back.
template <class T>
inline T fromCode(int code) {
    return Offset16<T>::out(code);
}

// ---------------------------------------------------------------------------
// Quantisers

// The rounding constant of the float-to-code conversions and its exact value
// once widened to double.
inline constexpr float kHalfLess = 0.499999f;
inline constexpr double kHalfLessD = 0.4999989867210388;
static_assert(static_cast<double>(kHalfLess) == kHalfLessD, "0.499999f must widen to 0.4999989867210388");

// Rounding: + 0.499999 in float, truncated toward zero. The sum is rounded
// to float first, so 127.5 gives 128.
struct RoundCode {
    static int code(float v) { return static_cast<int>(v + kHalfLess); }
};

// Flooring of the planar BGR HLS layouts: the float product widened to
// double, + 1e-7, truncated toward zero (127.5 gives 127).
struct FloorCode {
    static int code(float v) { return static_cast<int>(static_cast<double>(v) + 1e-7); }
};

// Truncation saturated to 0..hi: hi or more gives hi, below 1 gives 0 (NaN
// and minus infinity too), otherwise truncation toward zero.
template <class F>
inline int saturateCode(F v, int hi) {
    if (v >= static_cast<F>(hi)) return hi;
    if (!(v >= static_cast<F>(1))) return 0;
    return static_cast<int>(v);
}

// 0..1 for floats: negative gives 0, 1 or more gives 1.
inline float clampUnit(float v) { return v < 0.0f ? 0.0f : (v >= 1.0f ? 1.0f : v); }

// A float result stored as a sample: integer types rounded without a clamp,
// 32f as it is.
template <class T>
inline T roundStore(float v) {
    if constexpr (std::is_floating_point_v<T>)
        return v;
    else
        return fromCode<T>(RoundCode::code(v));
}

// A float result stored as a sample within the scale: integer types rounded
// and saturated to 0..kFull, 32f clamped to 0..1.
template <class T>
inline T saturateStore(float v) {
    if constexpr (std::is_floating_point_v<T>)
        return clampUnit(v);
    else
        return fromCode<T>(saturateCode(v + kHalfLess, kFull<T>));
}

// Byte saturation of the XYZ and PhotoYCC fixed-point paths, indexed by a
// signed value in -371..629.
using ModelSaturation = ByteSaturation<371, 629>;

// ---------------------------------------------------------------------------
// Linear RGB and CIE XYZ (D65, BT.709 primaries)

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

// R, G, B codes of one XYZ triple on a scale whose top code is hi: each row
// of the inverse matrix plus 0.499999, truncated, saturated to 0..hi. With
// BlueInDouble the blue row adds the rounding constant and its Z term in
// double to the float sum of its first two terms.
template <bool BlueInDouble>
inline void xyzToRgbCodes(float x, float y, float z, int hi, int out[3]) {
    out[0] = saturateCode(dotRow(kXyzToRgb, 0, x, y, z) + kHalfLess, hi);
    out[1] = saturateCode(dotRow(kXyzToRgb, 1, x, y, z) + kHalfLess, hi);
    if constexpr (BlueInDouble) {
        const float part = kXyzToRgb.m[2][0] * x + kXyzToRgb.m[2][1] * y;
        out[2] = saturateCode(static_cast<double>(part) + kHalfLessD + static_cast<double>(z) * 1.057311, hi);
    } else {
        out[2] = saturateCode(dotRow(kXyzToRgb, 2, x, y, z) + kHalfLess, hi);
    }
}

// Cube root through the double-precision pow with the float value of 1/3.
inline constexpr double kThirdF = 0.3333333432674408;
static_assert(static_cast<double>(1.0f / 3.0f) == kThirdF, "exponent is the float value of 1/3");
inline double cubeRootD(float t) { return std::pow(static_cast<double>(t), kThirdF); }
inline float cubeRoot(float t) { return static_cast<float>(cubeRootD(t)); }

// Threshold of the linear segment of the CIE lightness (strictly greater
// takes the cube root).
inline constexpr float kCieEpsilon = 0.008856f;

// ---------------------------------------------------------------------------
// Hue models (HLS, HSV)

// Single-precision machine epsilon: the float kernels' chroma threshold.
inline constexpr float kFltEpsilon = 1.1920929e-7f;

// Per-code tables of 8-bit float quotients: the very values the division
// would give, looked up instead of divided.
template <class F>
inline std::array<float, 256> table8u(F f) {
    std::array<float, 256> t{};
    for (int v = 0; v < 256; ++v) t[static_cast<std::size_t>(v)] = f(v);
    return t;
}

// v / 255
inline const std::array<float, 256> kUnit8u = table8u([](int v) { return static_cast<float>(v) / 255.0f; });

}  // namespace zor
