// BGR <-> CIE L*a*b* (D65 white), interleaved 8-bit BGR with 8u or 16u Lab
// codes, on the row-parallel frame. The forward direction uses the CIE cube
// root with its linear segment near black; the inverse uses the plain cube.
#include "models/lab.h"

namespace zor {

namespace {

// White point on the 0..255 scale.
constexpr float kXn = 242.366f, kYn = 255.0f, kZn = 277.632f;
constexpr float kLinearSlope = 7.787f;
constexpr float kLinearOffset = 0.13793103f;  // 16/116
constexpr float kLinearL = 903.3f;

// Row r of a matrix applied to a BGR pixel, summed from blue to red.
inline float dotBgr(const Matrix3& m, int r, float b, float g, float rr) {
    return m.m[r][2] * b + m.m[r][1] * g + m.m[r][0] * rr;
}

// The CIE cube-root function with its linear segment (t = 0.008856 is linear).
inline float labF(float t) { return t > kCieEpsilon ? cubeRoot(t) : kLinearSlope * t + kLinearOffset; }

// Steps 1 to 4 of the forward direction. The 8u16u form keeps the double
// cube root of Y for its lightness.
struct LabF {
    float y;          // Y / Yn
    double rootY;     // cube root of Y / Yn in double (above the threshold)
    float fy, a, b;
};

inline LabF labOfBgr(const Zor8u* p) {
    const float b = p[0], g = p[1], r = p[2];
    const float x = dotBgr(kRgbToXyz, 0, b, g, r) / kXn;
    const float y = dotBgr(kRgbToXyz, 1, b, g, r) / kYn;
    const float z = dotBgr(kRgbToXyz, 2, b, g, r) / kZn;
    const float fx = labF(x), fz = labF(z);
    LabF o{};
    o.y = y;
    if (y > kCieEpsilon) {
        o.rootY = cubeRootD(y);
        o.fy = static_cast<float>(o.rootY);
    } else {
        o.fy = kLinearSlope * y + kLinearOffset;
    }
    o.a = 500.0f * (fx - o.fy);
    o.b = 200.0f * (o.fy - fz);
    return o;
}

// Inverse cube of the three function values, then the inverse matrix in float.
struct Rgbf {
    float r, g, b;
};

inline Rgbf bgrOfLabF(float fy, float fx, float fz) {
    const float x = kXn * (fx * fx * fx);
    const float y = kYn * (fy * fy * fy);
    const float z = kZn * (fz * fz * fz);
    return {dotRow(kXyzToRgb, 0, x, y, z), dotRow(kXyzToRgb, 1, x, y, z), dotRow(kXyzToRgb, 2, x, y, z)};
}

// Truncated value saturated to 0..255 (the truncation happens first).
inline Zor8u sat255(int v) { return static_cast<Zor8u>(v >= 255 ? 255 : v <= 0 ? 0 : v); }

template <class S, class D>
ZorStatus labEntry(void (*kernel)(const S*, D*, int), const S* pSrc, int srcStep, D* pDst, int dstStep,
                   ZoriSize roi) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roi)) return zorStsBadSize;
    const std::ptrdiff_t ss = wholeElementBytes<S>(srcStep);
    const std::ptrdiff_t ds = wholeElementBytes<D>(dstStep);
    const int width = roi.width;
    parallelRows(roi.height, [&](int y) { kernel(rowAt(pSrc, ss, y), rowAt(pDst, ds, y), width); });
    return zorStsOk;
}

}  // namespace

// Codes L*255/100 + 0.5, a + 128.5, b + 128.5, truncated; low 8 bits, no clamp.
void innerBGRToLab_8u_C3R(const Zor8u* src, Zor8u* dst, int width) {
    for (int i = 0; i < width; ++i, src += 3, dst += 3) {
        const LabF c = labOfBgr(src);
        const float l = c.y > kCieEpsilon ? 116.0f * c.fy - 16.0f : kLinearL * c.y;
        dst[0] = static_cast<Zor8u>(truncInt(l * 255.0f / 100.0f + 0.5f));
        dst[1] = static_cast<Zor8u>(truncInt(c.a + 128.5f));
        dst[2] = static_cast<Zor8u>(truncInt(c.b + 128.5f));
    }
}

// L from the double cube root in double; codes L*65535/100, (a+128)*255,
// (b+128)*255 truncated without a rounding half; low 16 bits, no clamp.
void innerBGRToLab_8u16u_C3R(const Zor8u* src, Zor16u* dst, int width) {
    for (int i = 0; i < width; ++i, src += 3, dst += 3) {
        const LabF c = labOfBgr(src);
        const double l = c.y > kCieEpsilon ? 116.0 * c.rootY - 16.0 : static_cast<double>(kLinearL * c.y);
        dst[0] = static_cast<Zor16u>(truncInt(l * 65535.0 / 100.0));
        dst[1] = static_cast<Zor16u>(truncInt((c.a + 128.0f) * 255.0f));
        dst[2] = static_cast<Zor16u>(truncInt((c.b + 128.0f) * 255.0f));
    }
}

// Each channel: float value widened to double, + 0.5, truncated, 0..255.
void innerLabToBGR_8u_C3R(const Zor8u* src, Zor8u* dst, int width) {
    for (int i = 0; i < width; ++i, src += 3, dst += 3) {
        const float fy = (static_cast<float>(src[0]) * 100.0f / 255.0f + 16.0f) / 116.0f;
        const float fx = static_cast<float>(src[1] - 128) / 500.0f + fy;
        const float fz = fy - static_cast<float>(src[2] - 128) / 200.0f;
        const Rgbf c = bgrOfLabF(fy, fx, fz);
        dst[0] = sat255(truncInt(static_cast<double>(c.b) + 0.5));
        dst[1] = sat255(truncInt(static_cast<double>(c.g) + 0.5));
        dst[2] = sat255(truncInt(static_cast<double>(c.r) + 0.5));
    }
}

// As the 8u inverse, but truncated straight from float: no rounding half.
void innerLabToBGR_16u8u_C3R(const Zor16u* src, Zor8u* dst, int width) {
    for (int i = 0; i < width; ++i, src += 3, dst += 3) {
        const float fy = (static_cast<float>(src[0]) * 100.0f / 65535.0f + 16.0f) / 116.0f;
        const float fx = (static_cast<float>(src[1]) / 255.0f - 128.0f) / 500.0f + fy;
        const float fz = fy - (static_cast<float>(src[2]) / 255.0f - 128.0f) / 200.0f;
        const Rgbf c = bgrOfLabF(fy, fx, fz);
        dst[0] = sat255(truncInt(c.b));
        dst[1] = sat255(truncInt(c.g));
        dst[2] = sat255(truncInt(c.r));
    }
}

}  // namespace zor

using namespace zor;

extern "C" {

ZORCC_API ZorStatus zoriBGRToLab_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                        ZoriSize roiSize) {
    return labEntry(innerBGRToLab_8u_C3R, pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriBGRToLab_8u16u_C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep,
                                           ZoriSize roiSize) {
    return labEntry(innerBGRToLab_8u16u_C3R, pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriLabToBGR_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                        ZoriSize roiSize) {
    return labEntry(innerLabToBGR_8u_C3R, pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriLabToBGR_16u8u_C3R(const Zor16u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                           ZoriSize roiSize) {
    return labEntry(innerLabToBGR_16u8u_C3R, pSrc, srcStep, pDst, dstStep, roiSize);
}

}  // extern "C"
