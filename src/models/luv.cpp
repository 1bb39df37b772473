// RGB <-> CIE L*u*v* (D65 white) for 8u, 16u, 16s and 32f, in C3 and AC4
// layouts, on the row-parallel frame. RGB and XYZ meet through the float
// matrices of the XYZ conversions.
#include "models/luv.h"

namespace zor {

// Entry i: round-half-up((116 (i/255)^(1/3) - 16) * 255/100) above the
// linear segment, round-half-up(903.3 (i/255) * 255/100) on it.
const Zor8u kPowL[256] = {
    0, 9, 18, 26, 33, 39, 44, 48, 52, 56, 60, 63, 66, 69, 72, 74,
    77, 79, 81, 84, 86, 88, 90, 92, 94, 96, 97, 99, 101, 103, 104, 106,
    107, 109, 110, 112, 113, 115, 116, 117, 119, 120, 121, 123, 124, 125, 126, 128,
    129, 130, 131, 132, 133, 134, 136, 137, 138, 139, 140, 141, 142, 143, 144, 145,
    146, 147, 148, 149, 150, 151, 151, 152, 153, 154, 155, 156, 157, 158, 159, 159,
    160, 161, 162, 163, 163, 164, 165, 166, 167, 167, 168, 169, 170, 171, 171, 172,
    173, 174, 174, 175, 176, 176, 177, 178, 179, 179, 180, 181, 181, 182, 183, 183,
    184, 185, 185, 186, 187, 187, 188, 189, 189, 190, 191, 191, 192, 192, 193, 194,
    194, 195, 196, 196, 197, 197, 198, 198, 199, 200, 200, 201, 201, 202, 203, 203,
    204, 204, 205, 205, 206, 206, 207, 208, 208, 209, 209, 210, 210, 211, 211, 212,
    212, 213, 213, 214, 215, 215, 216, 216, 217, 217, 218, 218, 219, 219, 220, 220,
    221, 221, 222, 222, 223, 223, 224, 224, 225, 225, 225, 226, 226, 227, 227, 228,
    228, 229, 229, 230, 230, 231, 231, 232, 232, 232, 233, 233, 234, 234, 235, 235,
    236, 236, 236, 237, 237, 238, 238, 239, 239, 240, 240, 240, 241, 241, 242, 242,
    242, 243, 243, 244, 244, 245, 245, 245, 246, 246, 247, 247, 247, 248, 248, 249,
    249, 249, 250, 250, 251, 251, 251, 252, 252, 253, 253, 253, 254, 254, 255, 255
};

namespace {

// White-point chromaticities: the forward direction and the 32f inverse use
// the first pair, the integer inverses the second, longer pair.
constexpr float kUn = 0.197839f, kVn = 0.468342f;
constexpr float kUnInv = 0.19783941f, kVnInv = 0.4683422f;

constexpr float kLinearL = 903.3f;
// 903.3 * 0.008856: from here up the inverse lightness uses the cube.
constexpr float kLinearLimit = 7.9996247f;
// Lightness below which the inverse gives black.
constexpr float kDarkL = 9e-5f;

struct Luv {
    float l, u, v;
};

// L, u, v of an XYZ triple whose luminance ratio is yr = Y / scale. The
// chromaticities are 0 when Y is exactly 0.
inline Luv xyzToLuv(float x, float y, float z, float yr) {
    const float l = yr > kCieEpsilon ? 116.0f * cubeRoot(yr) - 16.0f : kLinearL * yr;
    float up = 0.0f, vp = 0.0f;
    if (y != 0.0f) {
        const float d = x + 15.0f * y + 3.0f * z;
        up = 4.0f * x / d;
        vp = 9.0f * y / d;
    }
    return {l, 13.0f * l * (up - kUn), 13.0f * l * (vp - kVn)};
}

// X, Y, Z of a lightness l > 0 and u, v; Y (and with it X and Z) on the
// sample scale.
struct Xyz {
    float x, y, z;
};

inline Xyz luvToXyz(float l, float u, float v, float scale, float un, float vn) {
    float y;
    if (l >= kLinearLimit) {
        const float t = (l + 16.0f) / 116.0f;
        y = t * t * t;
    } else {
        y = l / kLinearL;
    }
    y = y * scale;
    const float up = u / (13.0f * l) + un;
    const float vp = v / (13.0f * l) + vn;
    const float t = y / vp;
    const float x = 2.25f * t * up;
    const float z = 3.0f * t - 5.0f * y - x / 3.0f;
    return {x, y, z};
}

// 16u and 16s forward: codes L*65535/100, (u+134)*65535/354,
// (v+140)*65535/262, each + 0.499999 and truncated, without clamp.
template <class T>
void rgbToLuv16(const T* src, T* dst, int width, int channels) {
    using S = Sample16<T>;
    for (int i = 0; i < width; ++i, src += channels, dst += channels) {
        const float r = S::in(src[0]), g = S::in(src[1]), b = S::in(src[2]);
        const float x = dotRow(kRgbToXyz, 0, r, g, b);
        const float y = dotRow(kRgbToXyz, 1, r, g, b);
        const float z = dotRow(kRgbToXyz, 2, r, g, b);
        const Luv c = xyzToLuv(x, y, z, y / 65535.0f);
        dst[0] = S::out(truncInt(c.l * 65535.0f / 100.0f + kHalfLess));
        dst[1] = S::out(truncInt((c.u + 134.0f) * 65535.0f / 354.0f + kHalfLess));
        dst[2] = S::out(truncInt((c.v + 140.0f) * 65535.0f / 262.0f + kHalfLess));
    }
}

// Integer inverses (8u, 16u, 16s): codes back to L, u, v; black for L below
// 9e-5; otherwise the rounded inverse matrix with its blue row in double,
// saturated to 0..hi.
template <class T, class In, class Out>
void luvToRgbInt(const T* src, T* dst, int width, int channels, float scale, In in, Out out) {
    const int hi = static_cast<int>(scale);
    for (int i = 0; i < width; ++i, src += channels, dst += channels) {
        const float l = in(src[0]) * 100.0f / scale;
        if (l < kDarkL) {
            dst[0] = dst[1] = dst[2] = out(0);
            continue;
        }
        const float u = in(src[1]) * 354.0f / scale - 134.0f;
        const float v = in(src[2]) * 262.0f / scale - 140.0f;
        const Xyz p = luvToXyz(l, u, v, scale, kUnInv, kVnInv);
        int c[3];
        xyzToRgbCodes<true>(p.x, p.y, p.z, hi, c);
        dst[0] = out(c[0]);
        dst[1] = out(c[1]);
        dst[2] = out(c[2]);
    }
}

template <class T>
void luvToRgb16(const T* src, T* dst, int width, int channels) {
    using S = Sample16<T>;
    luvToRgbInt(src, dst, width, channels, 65535.0f, S::in, S::out);
}

}  // namespace

// The L code comes from kPowL at the rounded luminance; u and v derive from
// that quantised code: 1300/354 and 1300/262 scale the chromaticity
// differences and the offsets 134*255/354 and 140*255/262 carry the rounding
// half.
void innerRGBToLUV_8u_C3R(const Zor8u* src, Zor8u* dst, int width, int channels) {
    for (int i = 0; i < width; ++i, src += channels, dst += channels) {
        const float r = src[0], g = src[1], b = src[2];
        const float x = dotRow(kRgbToXyz, 0, r, g, b) / 255.0f;
        const float y = dotRow(kRgbToXyz, 1, r, g, b);
        const float z = dotRow(kRgbToXyz, 2, r, g, b) / 255.0f;
        const int yi = truncInt(y + kHalfLess);
        const Zor8u lc = kPowL[yi];
        float up = 0.0f, vp = 0.0f;
        if (yi != 0) {
            const float d = x + 15.0f * y / 255.0f + 3.0f * z;
            up = 4.0f * x / d;
            vp = 9.0f * (y / 255.0f) / d;
        }
        const float lf = lc;
        dst[0] = lc;
        dst[1] = static_cast<Zor8u>(truncInt(3.6723163f * lf * (up - kUn) + 97.02543f));
        dst[2] = static_cast<Zor8u>(truncInt(4.961832f * lf * (vp - kVn) + 136.75955f));
    }
}

void innerLUVToRGB_8u_C3R(const Zor8u* src, Zor8u* dst, int width, int channels) {
    luvToRgbInt(
        src, dst, width, channels, 255.0f, [](Zor8u s) { return static_cast<float>(s); },
        [](int c) { return static_cast<Zor8u>(c); });
}

void innerRGBToLUV_16u_C3R(const Zor16u* src, Zor16u* dst, int width, int channels) {
    rgbToLuv16(src, dst, width, channels);
}
void innerLUVToRGB_16u_C3R(const Zor16u* src, Zor16u* dst, int width, int channels) {
    luvToRgb16(src, dst, width, channels);
}
void innerRGBToLUV_16s_C3R(const Zor16s* src, Zor16s* dst, int width, int channels) {
    rgbToLuv16(src, dst, width, channels);
}
void innerLUVToRGB_16s_C3R(const Zor16s* src, Zor16s* dst, int width, int channels) {
    luvToRgb16(src, dst, width, channels);
}

void innerRGBToLUV_32f_C3R(const Zor32f* src, Zor32f* dst, int width, int channels) {
    for (int i = 0; i < width; ++i, src += channels, dst += channels) {
        const float r = src[0], g = src[1], b = src[2];
        const float x = dotRow(kRgbToXyz, 0, r, g, b);
        const float y = dotRow(kRgbToXyz, 1, r, g, b);
        const float z = dotRow(kRgbToXyz, 2, r, g, b);
        const Luv c = xyzToLuv(x, y, z, y);
        dst[0] = c.l;
        dst[1] = c.u;
        dst[2] = c.v;
    }
}

// A dark pixel (L below 9e-5) zeroes the current destination pixel without
// advancing either position: the rest of the row rereads that source pixel
// and zeroes the same destination pixel again, so the following destination
// pixels of the row keep their contents.
void innerLUVToRGB_32f_C3R(const Zor32f* src, Zor32f* dst, int width, int channels) {
    for (int i = 0; i < width; ++i) {
        const float l = src[0];
        if (l < kDarkL) {
            dst[0] = dst[1] = dst[2] = 0.0f;
            continue;
        }
        const Xyz p = luvToXyz(l, src[1], src[2], 1.0f, kUn, kVn);
        dst[0] = clamp01(dotRow(kXyzToRgb, 0, p.x, p.y, p.z));
        dst[1] = clamp01(dotRow(kXyzToRgb, 1, p.x, p.y, p.z));
        dst[2] = clamp01(dotRow(kXyzToRgb, 2, p.x, p.y, p.z));
        src += channels;
        dst += channels;
    }
}

ZOR_CIE_WORKER(myRGBToLUV_8u_C3R, innerRGBToLUV_8u_C3R, Zor8u, Zor8u)
ZOR_CIE_WORKER(myLUVToRGB_8u_C3R, innerLUVToRGB_8u_C3R, Zor8u, Zor8u)
ZOR_CIE_WORKER(myRGBToLUV_16u_C3R, innerRGBToLUV_16u_C3R, Zor16u, Zor16u)
ZOR_CIE_WORKER(myLUVToRGB_16u_C3R, innerLUVToRGB_16u_C3R, Zor16u, Zor16u)
ZOR_CIE_WORKER(myRGBToLUV_16s_C3R, innerRGBToLUV_16s_C3R, Zor16s, Zor16s)
ZOR_CIE_WORKER(myLUVToRGB_16s_C3R, innerLUVToRGB_16s_C3R, Zor16s, Zor16s)
ZOR_CIE_WORKER(myLUVToRGB_32f_C3R, innerLUVToRGB_32f_C3R, Zor32f, Zor32f)

void myRGBToLUV_32f_C3R(const Zor32f* src, int srcStep, Zor32f* dst, int dstStep, int width, int height,
                        int channels) {
    channelRowsBytes<Zor32f, Zor32f>(innerRGBToLUV_32f_C3R, src, srcStep, dst, dstStep, width, height, channels);
}

namespace {

// The 32f forward functions hand their byte steps to the worker unchanged.
ZorStatus rgbToLuv32fEntry(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roi,
                           int channels) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roi)) return zorStsBadSize;
    myRGBToLUV_32f_C3R(pSrc, srcStep, pDst, dstStep, roi.width, roi.height, channels);
    return zorStsOk;
}

}  // namespace

}  // namespace zor

using namespace zor;

extern "C" {

ZOR_CIE_EXPORT(zoriRGBToLUV_8u_C3R, myRGBToLUV_8u_C3R, Zor8u, Zor8u, 3)
ZOR_CIE_EXPORT(zoriRGBToLUV_8u_AC4R, myRGBToLUV_8u_C3R, Zor8u, Zor8u, 4)
ZOR_CIE_EXPORT(zoriLUVToRGB_8u_C3R, myLUVToRGB_8u_C3R, Zor8u, Zor8u, 3)
ZOR_CIE_EXPORT(zoriLUVToRGB_8u_AC4R, myLUVToRGB_8u_C3R, Zor8u, Zor8u, 4)
ZOR_CIE_EXPORT(zoriRGBToLUV_16u_C3R, myRGBToLUV_16u_C3R, Zor16u, Zor16u, 3)
ZOR_CIE_EXPORT(zoriRGBToLUV_16u_AC4R, myRGBToLUV_16u_C3R, Zor16u, Zor16u, 4)
ZOR_CIE_EXPORT(zoriLUVToRGB_16u_C3R, myLUVToRGB_16u_C3R, Zor16u, Zor16u, 3)
ZOR_CIE_EXPORT(zoriLUVToRGB_16u_AC4R, myLUVToRGB_16u_C3R, Zor16u, Zor16u, 4)
ZOR_CIE_EXPORT(zoriRGBToLUV_16s_C3R, myRGBToLUV_16s_C3R, Zor16s, Zor16s, 3)
ZOR_CIE_EXPORT(zoriRGBToLUV_16s_AC4R, myRGBToLUV_16s_C3R, Zor16s, Zor16s, 4)
ZOR_CIE_EXPORT(zoriLUVToRGB_16s_C3R, myLUVToRGB_16s_C3R, Zor16s, Zor16s, 3)
ZOR_CIE_EXPORT(zoriLUVToRGB_16s_AC4R, myLUVToRGB_16s_C3R, Zor16s, Zor16s, 4)
ZOR_CIE_EXPORT(zoriLUVToRGB_32f_C3R, myLUVToRGB_32f_C3R, Zor32f, Zor32f, 3)
ZOR_CIE_EXPORT(zoriLUVToRGB_32f_AC4R, myLUVToRGB_32f_C3R, Zor32f, Zor32f, 4)

ZORCC_API ZorStatus zoriRGBToLUV_32f_C3R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep,
                                         ZoriSize roiSize) {
    return rgbToLuv32fEntry(pSrc, srcStep, pDst, dstStep, roiSize, 3);
}

ZORCC_API ZorStatus zoriRGBToLUV_32f_AC4R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep,
                                          ZoriSize roiSize) {
    return rgbToLuv32fEntry(pSrc, srcStep, pDst, dstStep, roiSize, 4);
}

}  // extern "C"
