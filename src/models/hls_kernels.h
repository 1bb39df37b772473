// Row kernels of RGB/BGR <-> HLS: the colour arithmetic (written once, in
// float on values normalised to 0..1), the sample codecs of each type and
// quantiser, the pixel layouts (which also give the channel order: RGB, BGR,
// HLS), and one forward and one inverse kernel over them. The shapes are
// listed at the end; their vector kernels are in models/hls_hwy.cpp.
#pragma once

#include "core/image.h"
#include "core/kernel_set.h"
#include "models/common.h"

namespace zor {

// ---------------------------------------------------------------------------
// Colour arithmetic

struct HlsValue {
    float h;  // degrees, 0 <= h < 360 (360 only through float rounding of a tiny negative hue)
    float l, s;
};

struct RgbValue {
    float r, g, b;
};

// Forward conversion of one normalised pixel. Integer samples are chromatic
// whenever max != min; float samples only when max - min exceeds the float
// epsilon. Hue ties go to red, then green, then blue.
template <bool FloatSamples>
inline HlsValue hlsFromRgb(float r, float g, float b) {
    float mx = r, mn = r;
    if (g > mx) mx = g;
    if (b > mx) mx = b;
    if (g < mn) mn = g;
    if (b < mn) mn = b;
    const float d = mx - mn;
    const float sum = mx + mn;
    HlsValue o{0.0f, sum / 2.0f, 0.0f};
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

// Inverse ramp of one channel at hue h (degrees): rising over 0..60, flat at
// m2 up to 180, falling over 180..240, flat at m1 from 240 on.
inline float hlsRamp(float m1, float m2, float h) {
    if (h < 60.0f) return m1 + (m2 - m1) * h / 60.0f;
    if (h < 180.0f) return m2;
    if (h < 240.0f) return m1 + (m2 - m1) * (240.0f - h) / 60.0f;
    return m1;
}

inline RgbValue rgbFromHls(float h, float l, float s) {
    if (s == 0.0f) return RgbValue{l, l, l};
    const float m2 = l > 0.5f ? l + s - l * s : l * (1.0f + s);
    const float m1 = 2.0f * l - m2;
    float hr = h + 120.0f;
    if (hr > 360.0f) hr -= 360.0f;  // exactly 360 is not wrapped
    float hb = h - 120.0f;
    if (hb < 0.0f) hb += 360.0f;
    return RgbValue{hlsRamp(m1, m2, hr), hlsRamp(m1, m2, h), hlsRamp(m1, m2, hb)};
}

// ---------------------------------------------------------------------------
// Pixel layouts: where logical channel k (R, G, B or H, L, S; 3 is alpha) of
// pixel i lies. C0..C2 give the positions of channels 0..2, so a BGR side is
// <..., 2, 1, 0>. Alpha is copied where both sides carry it; an interleaved
// side without it leaves its fourth sample alone.
template <int Stride, int C0 = 0, int C1 = 1, int C2 = 2, bool Alpha = false>
struct HlsChans {
    template <class T>
    using Row = RowC<T, Stride>;
    static constexpr bool kAlpha = Alpha;
    static constexpr int kAt[4] = {C0, C1, C2, 3};
    template <class R>
    static auto& at(const R& r, int k, std::ptrdiff_t i) {
        return r.p[i * Stride + kAt[k]];
    }
};

template <int N, int C0 = 0, int C1 = 1, int C2 = 2>
struct HlsPlanes {
    template <class T>
    using Row = std::conditional_t<N == 3, Row3<T>, Row4<T>>;
    static constexpr bool kAlpha = N == 4;
    static constexpr int kAt[4] = {C0, C1, C2, 3};
    template <class R>
    static auto& at(const R& r, int k, std::ptrdiff_t i) {
        return r.p[kAt[k]][i];
    }
};

// ---------------------------------------------------------------------------
// Sample codecs: sample <-> normalised value (or degrees for the hue).

// v * 360 / 255
inline const std::array<float, 256> kDegrees8u =
    table8u([](int v) { return static_cast<float>(v) * 360.0f / 255.0f; });

// Integer samples on the scale 255 or 65535 (16s offset). Codes are neither
// clamped nor saturated; the quantiser Q rounds or floors.
template <class T, class Q>
struct HlsIntCodec {
    using Sample = T;
    static constexpr bool kFloat = false;
    static constexpr float kScale = kFullF<T>;

    static float unit(T v) {
        if constexpr (sizeof(T) == 1)
            return kUnit8u[v];
        else
            return toScale(v) / kScale;
    }
    static float degrees(T v) {
        if constexpr (sizeof(T) == 1)
            return kDegrees8u[v];
        else
            return toScale(v) * 360.0f / kScale;
    }
    static T hue(float h) { return fromCode<T>(Q::code(h * kScale / 360.0f)); }
    static T level(float v) { return fromCode<T>(Q::code(v * kScale)); }
};

// Float samples: used as they are, the hue stored as a fraction of a turn.
struct HlsFloatCodec {
    using Sample = Zor32f;
    static constexpr bool kFloat = true;
    static float unit(Zor32f v) { return v; }
    static float degrees(Zor32f v) { return v * 360.0f; }
    static Zor32f hue(float h) { return h / 360.0f; }
    static Zor32f level(float v) { return v; }
};

// ---------------------------------------------------------------------------
// Kernels: colour pixels of layout SL to H, L, S of layout DL, and back.

template <class Codec, class SL, class DL>
void rgbToHls(typename SL::template Row<const typename Codec::Sample> s,
              typename DL::template Row<typename Codec::Sample> d, int width) {
    for (int i = 0; i < width; ++i) {
        const HlsValue o = hlsFromRgb<Codec::kFloat>(Codec::unit(SL::at(s, 0, i)), Codec::unit(SL::at(s, 1, i)),
                                                     Codec::unit(SL::at(s, 2, i)));
        DL::at(d, 0, i) = Codec::hue(o.h);
        DL::at(d, 1, i) = Codec::level(o.l);
        DL::at(d, 2, i) = Codec::level(o.s);
        if constexpr (SL::kAlpha && DL::kAlpha) DL::at(d, 3, i) = SL::at(s, 3, i);
    }
}

template <class Codec, class SL, class DL>
void hlsToRgb(typename SL::template Row<const typename Codec::Sample> s,
              typename DL::template Row<typename Codec::Sample> d, int width) {
    for (int i = 0; i < width; ++i) {
        const RgbValue o =
            rgbFromHls(Codec::degrees(SL::at(s, 0, i)), Codec::unit(SL::at(s, 1, i)), Codec::unit(SL::at(s, 2, i)));
        DL::at(d, 0, i) = Codec::level(o.r);
        DL::at(d, 1, i) = Codec::level(o.g);
        DL::at(d, 2, i) = Codec::level(o.b);
        if constexpr (SL::kAlpha && DL::kAlpha) DL::at(d, 3, i) = SL::at(s, 3, i);
    }
}

// ---------------------------------------------------------------------------
// The shapes: X(member, kernel template, (template arguments)).

// The RGB family rounds its codes; the BGR family floors them, except its
// interleaved BGRA forward member.
template <class T>
using HlsRound = std::conditional_t<std::is_same_v<T, Zor32f>, HlsFloatCodec, HlsIntCodec<T, RoundCode>>;
using HlsFloor8u = HlsIntCodec<Zor8u, FloorCode>;

// Layouts of the BGR family: interleaved (C3, C4 with alpha, AC4 with an
// untouched fourth byte) or planar, on the BGR and on the HLS side.
using BgrC3 = HlsChans<3, 2, 1, 0>;
using BgrC4 = HlsChans<4, 2, 1, 0, true>;
using BgrAC4 = HlsChans<4, 2, 1, 0>;
using BgrP3 = HlsPlanes<3, 2, 1, 0>;
using BgrP4 = HlsPlanes<4, 2, 1, 0>;
using HlsC3 = HlsChans<3>;
using HlsC4 = HlsChans<4, 0, 1, 2, true>;
using HlsAC4 = HlsChans<4>;
using HlsP3 = HlsPlanes<3>;
using HlsP4 = HlsPlanes<4>;

#define ZOR_HLS_KERNELS(X)                                          \
    X(toHls8C3, rgbToHls, (HlsRound<Zor8u>, HlsC3, HlsC3))          \
    X(toHls8AC4, rgbToHls, (HlsRound<Zor8u>, HlsAC4, HlsAC4))       \
    X(toRgb8C3, hlsToRgb, (HlsRound<Zor8u>, HlsC3, HlsC3))          \
    X(toRgb8AC4, hlsToRgb, (HlsRound<Zor8u>, HlsAC4, HlsAC4))       \
    X(toHls16uC3, rgbToHls, (HlsRound<Zor16u>, HlsC3, HlsC3))       \
    X(toHls16uAC4, rgbToHls, (HlsRound<Zor16u>, HlsAC4, HlsAC4))    \
    X(toRgb16uC3, hlsToRgb, (HlsRound<Zor16u>, HlsC3, HlsC3))       \
    X(toRgb16uAC4, hlsToRgb, (HlsRound<Zor16u>, HlsAC4, HlsAC4))    \
    X(toHls16sC3, rgbToHls, (HlsRound<Zor16s>, HlsC3, HlsC3))       \
    X(toHls16sAC4, rgbToHls, (HlsRound<Zor16s>, HlsAC4, HlsAC4))    \
    X(toRgb16sC3, hlsToRgb, (HlsRound<Zor16s>, HlsC3, HlsC3))       \
    X(toRgb16sAC4, hlsToRgb, (HlsRound<Zor16s>, HlsAC4, HlsAC4))    \
    X(toHls32fC3, rgbToHls, (HlsRound<Zor32f>, HlsC3, HlsC3))       \
    X(toHls32fAC4, rgbToHls, (HlsRound<Zor32f>, HlsAC4, HlsAC4))    \
    X(toRgb32fC3, hlsToRgb, (HlsRound<Zor32f>, HlsC3, HlsC3))       \
    X(toRgb32fAC4, hlsToRgb, (HlsRound<Zor32f>, HlsAC4, HlsAC4))    \
    X(bgrToHlsAC4, rgbToHls, (HlsRound<Zor8u>, BgrAC4, HlsAC4))     \
    X(bgrToHlsAP4, rgbToHls, (HlsFloor8u, BgrP4, HlsP4))            \
    X(bgrToHlsAP4C4, rgbToHls, (HlsFloor8u, BgrP4, HlsC4))          \
    X(bgrToHlsAC4P4, rgbToHls, (HlsFloor8u, BgrC4, HlsP4))          \
    X(bgrToHlsP3, rgbToHls, (HlsFloor8u, BgrP3, HlsP3))             \
    X(bgrToHlsP3C3, rgbToHls, (HlsFloor8u, BgrP3, HlsC3))           \
    X(bgrToHlsC3P3, rgbToHls, (HlsFloor8u, BgrC3, HlsP3))           \
    X(hlsToBgrAP4, hlsToRgb, (HlsFloor8u, HlsP4, BgrP4))            \
    X(hlsToBgrAP4C4, hlsToRgb, (HlsFloor8u, HlsP4, BgrC4))          \
    X(hlsToBgrAC4P4, hlsToRgb, (HlsFloor8u, HlsC4, BgrP4))          \
    X(hlsToBgrP3, hlsToRgb, (HlsFloor8u, HlsP3, BgrP3))             \
    X(hlsToBgrP3C3, hlsToRgb, (HlsFloor8u, HlsP3, BgrC3))           \
    X(hlsToBgrC3P3, hlsToRgb, (HlsFloor8u, HlsC3, BgrP3))

ZOR_KERNEL_TABLE(HlsKernels, ZOR_HLS_KERNELS, kHlsScalar, hlsTables, HlsK)

}  // namespace zor
