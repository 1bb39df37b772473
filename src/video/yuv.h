// Arithmetic and row kernels of the YUV conversions (analogue-television
// colour differences U = 0.492 (B - Y), V = 0.877 (R - Y), offset by 128) in
// 16.16 fixed point. Kernels address each channel through its own pointer
// and a compile-time element stride, so one kernel serves interleaved
// (stride 3 or 4, packed 4:2:2 strides 2 and 4) and planar (stride 1) sides.
#pragma once

#include <cstdint>

#include "core/frame.h"

namespace zor {


// ---------------------------------------------------------------------------
// Encoder. S = 19595 R + 38470 G + 7471 B (the weights sum to 65536); Y is S
// truncated. The colour differences of a group of 2^LogN pixels come from the
// channel sums: d = (65536 sum - sumS + 2^(15+LogN) - 1) >> 16, then
// U = ((dB 32244) >> (16+LogN)) + 128 stored as its low 8 bits (always in
// range) and V = that with dR and 57475, clamped to 0..255.
inline std::int32_t yuvLumaSum(int r, int g, int b) { return 19595 * r + 38470 * g + 7471 * b; }
inline Zor8u yuvLuma(std::int32_t s) { return static_cast<Zor8u>(s >> 16); }

struct YuvChroma {
    Zor8u u, v;
};

template <int LogN>
inline YuvChroma yuvChroma(std::int32_t sumR, std::int32_t sumB, std::int32_t sumS) {
    constexpr std::int32_t kRound = (32768 << LogN) - 1;  // 32767, 65535, 131071
    const std::int32_t dB = asr(65536 * sumB - sumS + kRound, 16);
    const std::int32_t dR = asr(65536 * sumR - sumS + kRound, 16);
    return {static_cast<Zor8u>(asr(dB * 32244, 16 + LogN) + 128), clampByte(asr(dR * 57475, 16 + LogN) + 128)};
}

// ---------------------------------------------------------------------------
// Decoder: R = (65536 Y + 74711 v) >> 16, G = (65536 Y - 25821 u - 38076 v)
// >> 16, B = (65536 Y + 133169 u) >> 16 with u = U - 128, v = V - 128,
// clamped; truncating unless Round adds one half before the shifts.
struct YuvTerms {
    std::int32_t r, g, b;
};

inline YuvTerms yuvTerms(int u, int v) {
    const std::int32_t du = u - 128, dv = v - 128;
    return {74711 * dv, -25821 * du - 38076 * dv, 133169 * du};
}

template <bool Round>
inline void yuvPixel(int y, const YuvTerms& t, Zor8u* r, Zor8u* g, Zor8u* b) {
    const std::int32_t luma = 65536 * y + (Round ? 32768 : 0);
    *r = clampByte(asr(luma + t.r, 16));
    *g = clampByte(asr(luma + t.g, 16));
    *b = clampByte(asr(luma + t.b, 16));
}

// ---------------------------------------------------------------------------
// Row kernels. S* are source strides, D* destination strides (in bytes).

// 4:4:4, RGB to YUV.
template <int SS, int DS>
void innerRGBToYUV(const Zor8u* r, const Zor8u* g, const Zor8u* b, Zor8u* y, Zor8u* u, Zor8u* v, int width) {
    for (int i = 0; i < width; ++i) {
        const int R = r[i * SS], G = g[i * SS], B = b[i * SS];
        const std::int32_t s = yuvLumaSum(R, G, B);
        const YuvChroma c = yuvChroma<0>(R, B, s);
        y[i * DS] = yuvLuma(s);
        u[i * DS] = c.u;
        v[i * DS] = c.v;
    }
}

// 4:4:4, YUV to RGB; the AC4 destinations of this family leave alpha alone.
template <int SS, int DS>
void innerYUVToRGB(const Zor8u* y, const Zor8u* u, const Zor8u* v, Zor8u* r, Zor8u* g, Zor8u* b, int width) {
    for (int i = 0; i < width; ++i)
        yuvPixel<false>(y[i * SS], yuvTerms(u[i * SS], v[i * SS]), r + i * DS, g + i * DS, b + i * DS);
}

// 4:2:2, RGB to YUV: Y of each pixel, U and V of each pair from the pair's
// sums. A last odd pixel is converted alone with the 4:4:4 rule; it writes
// its V only when WriteOddV (the packed Y0 U Y1 V rows have no byte for it).
template <int SS, int DY, int DC, bool WriteOddV>
void innerRGBToYUV422(const Zor8u* r, const Zor8u* g, const Zor8u* b, Zor8u* y, Zor8u* u, Zor8u* v, int width) {
    int i = 0, k = 0;
    for (; i + 1 < width; i += 2, ++k) {
        const int R0 = r[i * SS], G0 = g[i * SS], B0 = b[i * SS];
        const int R1 = r[(i + 1) * SS], G1 = g[(i + 1) * SS], B1 = b[(i + 1) * SS];
        const std::int32_t s0 = yuvLumaSum(R0, G0, B0), s1 = yuvLumaSum(R1, G1, B1);
        y[i * DY] = yuvLuma(s0);
        y[(i + 1) * DY] = yuvLuma(s1);
        const YuvChroma c = yuvChroma<1>(R0 + R1, B0 + B1, s0 + s1);
        u[k * DC] = c.u;
        v[k * DC] = c.v;
    }
    if (i < width) {
        const int R = r[i * SS], G = g[i * SS], B = b[i * SS];
        const std::int32_t s = yuvLumaSum(R, G, B);
        const YuvChroma c = yuvChroma<0>(R, B, s);
        y[i * DY] = yuvLuma(s);
        u[k * DC] = c.u;
        if constexpr (WriteOddV) v[k * DC] = c.v;
    }
}

// 4:2:0, RGB to YUV: two source rows, their two luma rows and one chroma row;
// width even.
template <int SS>
void innerRGBToYUV420(const Zor8u* r0, const Zor8u* g0, const Zor8u* b0, const Zor8u* r1, const Zor8u* g1,
                      const Zor8u* b1, Zor8u* y0, Zor8u* y1, Zor8u* u, Zor8u* v, int width) {
    for (int i = 0, k = 0; i + 1 < width; i += 2, ++k) {
        std::int32_t sumR = 0, sumB = 0, sumS = 0;
        for (int j = i; j < i + 2; ++j) {
            const int Ra = r0[j * SS], Ga = g0[j * SS], Ba = b0[j * SS];
            const int Rb = r1[j * SS], Gb = g1[j * SS], Bb = b1[j * SS];
            const std::int32_t sa = yuvLumaSum(Ra, Ga, Ba), sb = yuvLumaSum(Rb, Gb, Bb);
            y0[j] = yuvLuma(sa);
            y1[j] = yuvLuma(sb);
            sumR += Ra + Rb;
            sumB += Ba + Bb;
            sumS += sa + sb;
        }
        const YuvChroma c = yuvChroma<2>(sumR, sumB, sumS);
        u[k] = c.u;
        v[k] = c.v;
    }
}

// 4:2:2 and 4:2:0 (one row), YUV to RGB: each U, V pair serves the two pixels
// it covers. A last odd pixel uses the chroma of its incomplete pair; in the
// packed Y0 U Y1 V form (PackedOdd) that pair holds only Y and U, so V is the
// previous pair's (a one-pixel row uses its U for V too). Alpha0 writes 0 to
// the byte at offset 3 from r.
template <int SY, int SC, int DS, bool PackedOdd, bool Round, bool Alpha0>
void innerYUV422ToRGB(const Zor8u* y, const Zor8u* u, const Zor8u* v, Zor8u* r, Zor8u* g, Zor8u* b, int width) {
    int i = 0, k = 0;
    auto put = [&](int j, const YuvTerms& t) {
        yuvPixel<Round>(y[j * SY], t, r + j * DS, g + j * DS, b + j * DS);
        if constexpr (Alpha0) r[j * DS + 3] = 0;
    };
    for (; i + 1 < width; i += 2, ++k) {
        const YuvTerms t = yuvTerms(u[k * SC], v[k * SC]);
        put(i, t);
        put(i + 1, t);
    }
    if (i < width) {
        const int vv = !PackedOdd ? v[k * SC] : k == 0 ? u[0] : v[(k - 1) * SC];
        put(i, yuvTerms(u[k * SC], vv));
    }
}

}  // namespace zor
