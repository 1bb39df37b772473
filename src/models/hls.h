// RGB/BGR and HLS: the colour arithmetic (written once, in float on values
// normalised to 0..1), the sample codecs of each type and rounding, the
// pixel access of each memory layout, and the row kernels and workers.
#pragma once

#include <type_traits>

#include "models/hue_common.h"

namespace zor {

// ---------------------------------------------------------------------------
// Colour arithmetic

struct HlsF {
    float h;  // degrees, 0 <= h < 360 (360 only through float rounding of a tiny negative hue)
    float l, s;
};

struct RgbF {
    float r, g, b;
};

// Forward conversion of one normalised pixel. Integer samples are chromatic
// whenever max != min; float samples only when max - min exceeds the float
// epsilon. Hue ties go to red, then green, then blue.
template <bool FloatSamples>
inline HlsF hlsFromRgb(float r, float g, float b) {
    float mx = r, mn = r;
    if (g > mx) mx = g;
    if (b > mx) mx = b;
    if (g < mn) mn = g;
    if (b < mn) mn = b;
    const float d = mx - mn;
    const float sum = mx + mn;
    HlsF o{0.0f, sum / 2.0f, 0.0f};
    const bool chromatic = FloatSamples ? d > kFltEpsilon : d != 0.0f;
    if (!chromatic) return o;
    o.s = d / (o.l <= 0.5f ? sum : 2.0f - sum);
    // Red: (g - b) * 60 / d; blue: (r - g) * 60 / d + 240; green:
    // (b - r) * 60 / d + 120. Operands are selected first so that the row
    // loop has few unpredictable branches; red adds no offset at all.
    const bool red = r == mx, blue = g != mx;
    const float p = red ? g : blue ? r : b;
    const float q = red ? b : blue ? g : r;
    float h = (p - q) * 60.0f / d;
    if (!red) h += blue ? 240.0f : 120.0f;
    if (h < 0.0f) h += 360.0f;
    o.h = h;
    return o;
}

// Inverse ramp of one channel at hue h (degrees): rising over 0..60,
// flat at m2 up to 180, falling over 180..240, flat at m1 from 240 on.
inline float hlsRamp(float m1, float m2, float h) {
    if (h < 60.0f) return m1 + (m2 - m1) * h / 60.0f;
    if (h < 180.0f) return m2;
    if (h < 240.0f) return m1 + (m2 - m1) * (240.0f - h) / 60.0f;
    return m1;
}

inline RgbF rgbFromHls(float h, float l, float s) {
    if (s == 0.0f) return RgbF{l, l, l};
    const float m2 = l > 0.5f ? l + s - l * s : l * (1.0f + s);
    const float m1 = 2.0f * l - m2;
    float hr = h + 120.0f;
    if (hr > 360.0f) hr -= 360.0f;  // exactly 360 is not wrapped
    float hb = h - 120.0f;
    if (hb < 0.0f) hb += 360.0f;
    return RgbF{hlsRamp(m1, m2, hr), hlsRamp(m1, m2, h), hlsRamp(m1, m2, hb)};
}

// ---------------------------------------------------------------------------
// Sample codecs: sample <-> normalised value (or degrees for the hue).

// Integer samples: scale 255 or 65535; 16s samples are offset by 32768
// onto the unsigned scale and back. Codes are neither clamped nor
// saturated; the quantiser Q decides rounding or flooring.
template <class T, class Q>
struct HlsIntCodec {
    static constexpr bool kFloat = false;
    static constexpr float kScale = sizeof(T) == 1 ? 255.0f : 65535.0f;
    static constexpr int kOffset = std::is_signed<T>::value ? 32768 : 0;

    static float unit(T v) {
        if constexpr (sizeof(T) == 1) return kUnit8u[v];
        return static_cast<float>(static_cast<int>(v) + kOffset) / kScale;
    }
    static float degrees(T v) {
        if constexpr (sizeof(T) == 1) return kDegrees8u[v];
        return static_cast<float>(static_cast<int>(v) + kOffset) * 360.0f / kScale;
    }
    static T hue(float h) { return static_cast<T>(Q::code(h * kScale / 360.0f) - kOffset); }
    static T level(float v) { return static_cast<T>(Q::code(v * kScale) - kOffset); }
};

// Float samples: used as they are, the hue stored as a fraction of a turn.
struct HlsFloatCodec {
    static constexpr bool kFloat = true;
    static float unit(Zor32f v) { return v; }
    static float degrees(Zor32f v) { return v * 360.0f; }
    static Zor32f hue(float h) { return h / 360.0f; }
    static Zor32f level(float v) { return v; }
};

// ---------------------------------------------------------------------------
// Pixel access: channel k of pixel i is at c[k][i * Stride]. An interleaved
// row of Stride channels has c[k] = row + k; a planar row has c[k] = plane k
// and Stride 1.

template <class T, int Stride, int N>
struct PixelRow {
    T* c[N];
    T& at(int k, int i) const { return c[k][static_cast<std::ptrdiff_t>(i) * Stride]; }
};

template <int Stride, int N, class T>
inline PixelRow<T, Stride, N> interleavedRow(T* row) {
    PixelRow<T, Stride, N> p{};
    for (int k = 0; k < N; ++k) p.c[k] = row + k;
    return p;
}

template <int N, class T>
inline PixelRow<T, 1, N> planarRow(T* const* planes) {
    PixelRow<T, 1, N> p{};
    for (int k = 0; k < N; ++k) p.c[k] = planes[k];
    return p;
}

// Channel order of the colour side: RGB or BGR (HLS is always H, L, S).
enum class Order { Rgb, Bgr };

// Forward row: colour pixels of src to H, L, S in dst channels 0..2; with
// CopyAlpha, channel 3 of src is copied to channel 3 of dst.
template <class Codec, Order O, bool CopyAlpha, class S, class D>
inline void hlsForwardRow(const S& src, const D& dst, int width) {
    constexpr int r = O == Order::Rgb ? 0 : 2, b = 2 - r;
    for (int i = 0; i < width; ++i) {
        const HlsF o =
            hlsFromRgb<Codec::kFloat>(Codec::unit(src.at(r, i)), Codec::unit(src.at(1, i)), Codec::unit(src.at(b, i)));
        dst.at(0, i) = Codec::hue(o.h);
        dst.at(1, i) = Codec::level(o.l);
        dst.at(2, i) = Codec::level(o.s);
        if constexpr (CopyAlpha) dst.at(3, i) = src.at(3, i);
    }
}

// Inverse row: H, L, S of src channels 0..2 to colour pixels of dst.
template <class Codec, Order O, bool CopyAlpha, class S, class D>
inline void hlsInverseRow(const S& src, const D& dst, int width) {
    constexpr int r = O == Order::Rgb ? 0 : 2, b = 2 - r;
    for (int i = 0; i < width; ++i) {
        const RgbF o = rgbFromHls(Codec::degrees(src.at(0, i)), Codec::unit(src.at(1, i)), Codec::unit(src.at(2, i)));
        dst.at(r, i) = Codec::level(o.r);
        dst.at(1, i) = Codec::level(o.g);
        dst.at(b, i) = Codec::level(o.b);
        if constexpr (CopyAlpha) dst.at(3, i) = src.at(3, i);
    }
}

// ---------------------------------------------------------------------------
// RGB family: interleaved C3/AC4 kernels (channel count 3 or 4) and workers
// (steps in samples).

void innerRGBToHLS_8u_C3R(const Zor8u* src, Zor8u* dst, int width, int channels);
void innerHLSToRGB_8u_C3R(const Zor8u* src, Zor8u* dst, int width, int channels);
void innerRGBToHLS_16u_C3R(const Zor16u* src, Zor16u* dst, int width, int channels);
void innerHLSToRGB_16u_C3R(const Zor16u* src, Zor16u* dst, int width, int channels);
void innerRGBToHLS_16s_C3R(const Zor16s* src, Zor16s* dst, int width, int channels);
void innerHLSToRGB_16s_C3R(const Zor16s* src, Zor16s* dst, int width, int channels);
void innerRGBToHLS_32f_C3R(const Zor32f* src, Zor32f* dst, int width, int channels);
void innerHLSToRGB_32f_C3R(const Zor32f* src, Zor32f* dst, int width, int channels);

void myRGBToHLS_8u_C3R(const Zor8u* src, int srcStep, Zor8u* dst, int dstStep, int width, int height, int channels);
void myHLSToRGB_8u_C3R(const Zor8u* src, int srcStep, Zor8u* dst, int dstStep, int width, int height, int channels);
void myRGBToHLS_16u_C3R(const Zor16u* src, int srcStep, Zor16u* dst, int dstStep, int width, int height, int channels);
void myHLSToRGB_16u_C3R(const Zor16u* src, int srcStep, Zor16u* dst, int dstStep, int width, int height, int channels);
void myRGBToHLS_16s_C3R(const Zor16s* src, int srcStep, Zor16s* dst, int dstStep, int width, int height, int channels);
void myHLSToRGB_16s_C3R(const Zor16s* src, int srcStep, Zor16s* dst, int dstStep, int width, int height, int channels);
void myRGBToHLS_32f_C3R(const Zor32f* src, int srcStep, Zor32f* dst, int dstStep, int width, int height, int channels);
void myHLSToRGB_32f_C3R(const Zor32f* src, int srcStep, Zor32f* dst, int dstStep, int width, int height, int channels);

// ---------------------------------------------------------------------------
// BGR family (8u): one kernel per layout, called with the row's plane
// pointers (or interleaved row) and the width.

void innerBGRToHLS_8u_AC4R(const Zor8u* src, Zor8u* dst, int width);
void ownpi_BGRToHLS_8u_AP4(const Zor8u* const src[4], Zor8u* const dst[4], int width);
void ownpi_BGRToHLS_8u_AP4C4(const Zor8u* const src[4], Zor8u* dst, int width);
void ownpi_BGRToHLS_8u_AC4P4(const Zor8u* src, Zor8u* const dst[4], int width);
void ownpi_BGRToHLS_8u_P3(const Zor8u* const src[3], Zor8u* const dst[3], int width);
void ownpi_BGRToHLS_8u_P3C3(const Zor8u* const src[3], Zor8u* dst, int width);
void ownpi_BGRToHLS_8u_C3P3(const Zor8u* src, Zor8u* const dst[3], int width);
void ownpi_HLSToBGR_8u_AP4(const Zor8u* const src[4], Zor8u* const dst[4], int width);
void ownpi_HLSToBGR_8u_AP4C4(const Zor8u* const src[4], Zor8u* dst, int width);
void ownpi_HLSToBGR_8u_AC4P4(const Zor8u* src, Zor8u* const dst[4], int width);
void ownpi_HLSToBGR_8u_P3(const Zor8u* const src[3], Zor8u* const dst[3], int width);
void ownpi_HLSToBGR_8u_P3C3(const Zor8u* const src[3], Zor8u* dst, int width);
void ownpi_HLSToBGR_8u_C3P3(const Zor8u* src, Zor8u* const dst[3], int width);

}  // namespace zor
