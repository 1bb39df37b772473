// Row kernels of RGB <-> CIE L*u*v* (D65 white). RGB and XYZ meet through
// the float matrices of the XYZ conversions. N is the samples per pixel: 3,
// or 4 with the fourth neither read nor written.
#pragma once

#include "core/kernel_set.h"
#include "models/common.h"

namespace zor {

// 8u L code of the luminance ratio i/255: round-half-up((116 (i/255)^(1/3)
// - 16) * 255/100) above the linear segment, round-half-up(903.3 (i/255) *
// 255/100) on it.
inline constexpr Zor8u kPowL[256] = {
    0,   9,   18,  26,  33,  39,  44,  48,  52,  56,  60,  63,  66,  69,  72,  74,  77,  79,  81,  84,  86,  88,
    90,  92,  94,  96,  97,  99,  101, 103, 104, 106, 107, 109, 110, 112, 113, 115, 116, 117, 119, 120, 121, 123,
    124, 125, 126, 128, 129, 130, 131, 132, 133, 134, 136, 137, 138, 139, 140, 141, 142, 143, 144, 145, 146, 147,
    148, 149, 150, 151, 151, 152, 153, 154, 155, 156, 157, 158, 159, 159, 160, 161, 162, 163, 163, 164, 165, 166,
    167, 167, 168, 169, 170, 171, 171, 172, 173, 174, 174, 175, 176, 176, 177, 178, 179, 179, 180, 181, 181, 182,
    183, 183, 184, 185, 185, 186, 187, 187, 188, 189, 189, 190, 191, 191, 192, 192, 193, 194, 194, 195, 196, 196,
    197, 197, 198, 198, 199, 200, 200, 201, 201, 202, 203, 203, 204, 204, 205, 205, 206, 206, 207, 208, 208, 209,
    209, 210, 210, 211, 211, 212, 212, 213, 213, 214, 215, 215, 216, 216, 217, 217, 218, 218, 219, 219, 220, 220,
    221, 221, 222, 222, 223, 223, 224, 224, 225, 225, 225, 226, 226, 227, 227, 228, 228, 229, 229, 230, 230, 231,
    231, 232, 232, 232, 233, 233, 234, 234, 235, 235, 236, 236, 236, 237, 237, 238, 238, 239, 239, 240, 240, 240,
    241, 241, 242, 242, 242, 243, 243, 244, 244, 245, 245, 245, 246, 246, 247, 247, 247, 248, 248, 249, 249, 249,
    250, 250, 251, 251, 251, 252, 252, 253, 253, 253, 254, 254, 255, 255};

// White-point chromaticities: the forward direction and the 32f inverse use
// the first pair, the integer inverses the second, longer pair.
inline constexpr float kLuvUn = 0.197839f, kLuvVn = 0.468342f;
inline constexpr float kLuvUnInt = 0.19783941f, kLuvVnInt = 0.4683422f;

inline constexpr float kLuvLinear = 903.3f;
// 903.3 * 0.008856: from here up the inverse lightness uses the cube.
inline constexpr float kLuvLinearLimit = 7.9996247f;
// Lightness below which the inverse gives black.
inline constexpr float kLuvDark = 9e-5f;

struct LuvValue {
    float l, u, v;
};

// L, u, v of an XYZ triple whose luminance ratio is yr = Y / scale. The
// chromaticities are 0 when Y is exactly 0.
inline LuvValue xyzToLuv(float x, float y, float z, float yr) {
    const float l = yr > kCieEpsilon ? 116.0f * cubeRoot(yr) - 16.0f : kLuvLinear * yr;
    float up = 0.0f, vp = 0.0f;
    if (y != 0.0f) {
        const float d = x + 15.0f * y + 3.0f * z;
        up = 4.0f * x / d;
        vp = 9.0f * y / d;
    }
    return {l, 13.0f * l * (up - kLuvUn), 13.0f * l * (vp - kLuvVn)};
}

struct XyzValue {
    float x, y, z;
};

// X, Y, Z of a lightness l > 0 and u, v; Y (and with it X and Z) on the
// sample scale.
inline XyzValue luvToXyz(float l, float u, float v, float scale, float un, float vn) {
    float y;
    if (l >= kLuvLinearLimit) {
        const float t = (l + 16.0f) / 116.0f;
        y = t * t * t;
    } else {
        y = l / kLuvLinear;
    }
    y = y * scale;
    const float up = u / (13.0f * l) + un;
    const float vp = v / (13.0f * l) + vn;
    const float t = y / vp;
    const float x = 2.25f * t * up;
    const float z = 3.0f * t - 5.0f * y - x / 3.0f;
    return {x, y, z};
}

// 8u forward: the L code comes from kPowL at the rounded luminance; u and v
// derive from that quantised code: 1300/354 and 1300/262 scale the
// chromaticity differences and the offsets 134*255/354 and 140*255/262
// carry the rounding half.
template <int N>
void rgbToLuv8(RowC<const Zor8u, N> s, RowC<Zor8u, N> d, int width) {
    const std::ptrdiff_t n = runtimeStride(N);
    for (int i = 0; i < width; ++i) {
        const Zor8u* p = s.p + static_cast<std::ptrdiff_t>(i) * n;
        Zor8u* q = d.p + static_cast<std::ptrdiff_t>(i) * n;
        const float r = p[0], g = p[1], b = p[2];
        const float x = dotRow(kRgbToXyz, 0, r, g, b) / 255.0f;
        const float y = dotRow(kRgbToXyz, 1, r, g, b);
        const float z = dotRow(kRgbToXyz, 2, r, g, b) / 255.0f;
        const int yi = RoundCode::code(y);
        const Zor8u lc = kPowL[yi];
        float up = 0.0f, vp = 0.0f;
        if (yi != 0) {
            const float dd = x + 15.0f * y / 255.0f + 3.0f * z;
            up = 4.0f * x / dd;
            vp = 9.0f * (y / 255.0f) / dd;
        }
        const float lf = lc;
        q[0] = lc;
        q[1] = static_cast<Zor8u>(static_cast<int>(3.6723163f * lf * (up - kLuvUn) + 97.02543f));
        q[2] = static_cast<Zor8u>(static_cast<int>(4.961832f * lf * (vp - kLuvVn) + 136.75955f));
    }
}

// 16u and 16s forward: codes L*65535/100, (u+134)*65535/354,
// (v+140)*65535/262, each rounded, without clamp. 32f: L, u, v as they are,
// the luminance ratio Y itself.
template <class T, int N>
void rgbToLuv(RowC<const T, N> s, RowC<T, N> d, int width) {
    const std::ptrdiff_t n = runtimeStride(N);
    for (int i = 0; i < width; ++i) {
        const T* p = s.p + static_cast<std::ptrdiff_t>(i) * n;
        T* q = d.p + static_cast<std::ptrdiff_t>(i) * n;
        const float r = toScale(p[0]), g = toScale(p[1]), b = toScale(p[2]);
        const float x = dotRow(kRgbToXyz, 0, r, g, b);
        const float y = dotRow(kRgbToXyz, 1, r, g, b);
        const float z = dotRow(kRgbToXyz, 2, r, g, b);
        if constexpr (std::is_floating_point_v<T>) {
            const LuvValue c = xyzToLuv(x, y, z, y);
            q[0] = c.l;
            q[1] = c.u;
            q[2] = c.v;
        } else {
            const LuvValue c = xyzToLuv(x, y, z, y / 65535.0f);
            q[0] = roundStore<T>(c.l * 65535.0f / 100.0f);
            q[1] = roundStore<T>((c.u + 134.0f) * 65535.0f / 354.0f);
            q[2] = roundStore<T>((c.v + 140.0f) * 65535.0f / 262.0f);
        }
    }
}

// Integer inverses (8u, 16u, 16s): codes back to L, u, v; black (code 0 on
// the unsigned scale) for L below 9e-5; otherwise the rounded inverse
// matrix with its blue row in double, saturated to the scale.
template <class T, int N>
void luvToRgbInt(RowC<const T, N> s, RowC<T, N> d, int width) {
    constexpr float scale = kFullF<T>;
    const std::ptrdiff_t n = runtimeStride(N);
    for (int i = 0; i < width; ++i) {
        const T* p = s.p + static_cast<std::ptrdiff_t>(i) * n;
        T* q = d.p + static_cast<std::ptrdiff_t>(i) * n;
        const float l = toScale(p[0]) * 100.0f / scale;
        if (l < kLuvDark) {
            q[0] = q[1] = q[2] = fromCode<T>(0);
            continue;
        }
        const float u = toScale(p[1]) * 354.0f / scale - 134.0f;
        const float v = toScale(p[2]) * 262.0f / scale - 140.0f;
        const XyzValue c = luvToXyz(l, u, v, scale, kLuvUnInt, kLuvVnInt);
        int rgb[3];
        xyzToRgbCodes<true>(c.x, c.y, c.z, kFull<T>, rgb);
        for (int k = 0; k < 3; ++k) q[k] = fromCode<T>(rgb[k]);
    }
}

// 32f inverse. A dark pixel (L below 9e-5) zeroes the current destination
// pixel without advancing either position: the rest of the row rereads that
// source pixel and zeroes the same destination pixel again, so the
// following destination pixels of the row keep their contents.
template <int N>
void luvToRgb32(RowC<const Zor32f, N> s, RowC<Zor32f, N> d, int width) {
    const Zor32f* p = s.p;
    Zor32f* q = d.p;
    for (int i = 0; i < width; ++i) {
        if (p[0] < kLuvDark) {
            q[0] = q[1] = q[2] = 0.0f;
            continue;
        }
        const XyzValue c = luvToXyz(p[0], p[1], p[2], 1.0f, kLuvUn, kLuvVn);
        for (int k = 0; k < 3; ++k) q[k] = clampUnit(dotRow(kXyzToRgb, k, c.x, c.y, c.z));
        p += N;
        q += N;
    }
}

// ---------------------------------------------------------------------------
// The shapes: X(member, kernel template, (template arguments)).

#define ZOR_LUV_KERNELS(X)                    \
    X(toLuv8C3, rgbToLuv8, (3))               \
    X(toLuv8AC4, rgbToLuv8, (4))              \
    X(toRgb8C3, luvToRgbInt, (Zor8u, 3))      \
    X(toRgb8AC4, luvToRgbInt, (Zor8u, 4))     \
    X(toLuv16uC3, rgbToLuv, (Zor16u, 3))      \
    X(toLuv16uAC4, rgbToLuv, (Zor16u, 4))     \
    X(toRgb16uC3, luvToRgbInt, (Zor16u, 3))   \
    X(toRgb16uAC4, luvToRgbInt, (Zor16u, 4))  \
    X(toLuv16sC3, rgbToLuv, (Zor16s, 3))      \
    X(toLuv16sAC4, rgbToLuv, (Zor16s, 4))     \
    X(toRgb16sC3, luvToRgbInt, (Zor16s, 3))   \
    X(toRgb16sAC4, luvToRgbInt, (Zor16s, 4))  \
    X(toLuv32fC3, rgbToLuv, (Zor32f, 3))      \
    X(toLuv32fAC4, rgbToLuv, (Zor32f, 4))     \
    X(toRgb32fC3, luvToRgb32, (3))            \
    X(toRgb32fAC4, luvToRgb32, (4))

ZOR_KERNEL_TABLE(LuvKernels, ZOR_LUV_KERNELS, kLuvScalar, luvTables, LuvK)

}  // namespace zor
