// RGB and HSV, 8u and 16u, interleaved C3 and AC4, rows in parallel. V is the
// largest sample itself; the hue is computed in sextants (0..6) and stored
// on the full code scale. Only channels 0..2 are written.
#include <type_traits>

#include "models/hue_common.h"

namespace zor {

namespace {

template <class T>
constexpr float kHsvScale = sizeof(T) == 1 ? 255.0f : 65535.0f;

// Hue code to sextants; the top code means hue 0.
inline float sextants(int hCode, float scale) {
    return hCode == static_cast<int>(scale) ? 0.0f : static_cast<float>(hCode) * 360.0f / scale / 60.0f;
}

const std::array<float, 256> kSextants8u = table8u([](int v) { return sextants(v, 255.0f); });

// Forward: integer max/min, float ratios. Hue priority: blue, green, red.
template <class T>
inline void rgbToHsvPixel(const T* s, T* d) {
    constexpr float scale = kHsvScale<T>;
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

// Inverse: S normalised, V kept on the code scale; the top hue code is hue 0.
template <class T>
inline void hsvToRgbPixel(const T* s, T* d) {
    constexpr float scale = kHsvScale<T>;
    const int hCode = s[0], sCode = s[1];
    const float v = static_cast<float>(s[2]);
    if (sCode == 0) {
        d[0] = d[1] = d[2] = s[2];
        return;
    }
    float sat, hh;
    if constexpr (sizeof(T) == 1) {
        sat = kUnit8u[sCode];
        hh = kSextants8u[hCode];
    } else {
        sat = static_cast<float>(sCode) / scale;
        hh = sextants(hCode, scale);
    }
    const int i = static_cast<int>(hh);  // hh >= 0: truncation is the floor
    const float f = hh - static_cast<float>(i);
    const float p = (1.0f - sat) * v;
    const float q = (1.0f - sat * f) * v;
    const float t = (1.0f - sat * (1.0f - f)) * v;
    float r, g, b;
    switch (i) {
        case 0:
            r = v, g = t, b = p;
            break;
        case 1:
            r = q, g = v, b = p;
            break;
        case 2:
            r = p, g = v, b = t;
            break;
        case 3:
            r = p, g = q, b = v;
            break;
        case 4:
            r = t, g = p, b = v;
            break;
        default:
            r = v, g = p, b = q;
            break;  // sextant 5 (codes below the top stay under 6)
    }
    d[0] = static_cast<T>(RoundCode::code(r));
    d[1] = static_cast<T>(RoundCode::code(g));
    d[2] = static_cast<T>(RoundCode::code(b));
}

template <class T>
void rgbToHsvRow(const T* src, T* dst, int width, int channels) {
    for (int i = 0; i < width; ++i, src += channels, dst += channels) rgbToHsvPixel(src, dst);
}

template <class T>
void hsvToRgbRow(const T* src, T* dst, int width, int channels) {
    for (int i = 0; i < width; ++i, src += channels, dst += channels) hsvToRgbPixel(src, dst);
}

}  // namespace

void innerRGBToHSV_8u_C3R(const Zor8u* s, Zor8u* d, int w, int ch) { rgbToHsvRow(s, d, w, ch); }
void innerHSVToRGB_8u_C3R(const Zor8u* s, Zor8u* d, int w, int ch) { hsvToRgbRow(s, d, w, ch); }
void innerRGBToHSV_16u_C3R(const Zor16u* s, Zor16u* d, int w, int ch) { rgbToHsvRow(s, d, w, ch); }
void innerHSVToRGB_16u_C3R(const Zor16u* s, Zor16u* d, int w, int ch) { hsvToRgbRow(s, d, w, ch); }

void myRGBToHSV_8u_C3R(const Zor8u* s, int ss, Zor8u* d, int ds, int w, int h, int ch) {
    channelRows<Zor8u>(innerRGBToHSV_8u_C3R, s, ss, d, ds, w, h, ch);
}
void myHSVToRGB_8u_C3R(const Zor8u* s, int ss, Zor8u* d, int ds, int w, int h, int ch) {
    channelRows<Zor8u>(innerHSVToRGB_8u_C3R, s, ss, d, ds, w, h, ch);
}
void myRGBToHSV_16u_C3R(const Zor16u* s, int ss, Zor16u* d, int ds, int w, int h, int ch) {
    channelRows<Zor16u>(innerRGBToHSV_16u_C3R, s, ss, d, ds, w, h, ch);
}
void myHSVToRGB_16u_C3R(const Zor16u* s, int ss, Zor16u* d, int ds, int w, int h, int ch) {
    channelRows<Zor16u>(innerHSVToRGB_16u_C3R, s, ss, d, ds, w, h, ch);
}

}  // namespace zor

using namespace zor;

extern "C" {

ZORCC_API ZorStatus zoriRGBToHSV_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    return channelEntry<Zor8u>(myRGBToHSV_8u_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 3);
}
ZORCC_API ZorStatus zoriRGBToHSV_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    return channelEntry<Zor8u>(myRGBToHSV_8u_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 4);
}
ZORCC_API ZorStatus zoriHSVToRGB_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    return channelEntry<Zor8u>(myHSVToRGB_8u_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 3);
}
ZORCC_API ZorStatus zoriHSVToRGB_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    return channelEntry<Zor8u>(myHSVToRGB_8u_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 4);
}
ZORCC_API ZorStatus zoriRGBToHSV_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize) {
    return channelEntry<Zor16u>(myRGBToHSV_16u_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 3);
}
ZORCC_API ZorStatus zoriRGBToHSV_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep,
                                          ZoriSize roiSize) {
    return channelEntry<Zor16u>(myRGBToHSV_16u_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 4);
}
ZORCC_API ZorStatus zoriHSVToRGB_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize) {
    return channelEntry<Zor16u>(myHSVToRGB_16u_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 3);
}
ZORCC_API ZorStatus zoriHSVToRGB_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep,
                                          ZoriSize roiSize) {
    return channelEntry<Zor16u>(myHSVToRGB_16u_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 4);
}

}  // extern "C"
