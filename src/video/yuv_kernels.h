// Row kernels of the YUV conversions (analogue-television colour differences
// U = 0.492 (B - Y) and V = 0.877 (R - Y), offset by 128) in 16.16 fixed
// point: the scalar kernels, which are the reference, and the list of kernel
// shapes from which the scalar table and, per CPU target, the vector table
// are made (video/yuv_hwy.cpp).
#pragma once

#include "core/kernel_set.h"
#include "video/pixels.h"
#include "video/ycbcr.h"

#include <cstdint>
#include <type_traits>

namespace zor {

// ---------------------------------------------------------------------------
// Encoder, written once for groups of 1, 2 and 4 pixels (4:4:4, 4:2:2 pairs,
// 4:2:0 blocks). S = 19595 R + 38470 G + 7471 B (the weights sum to 65536)
// and Y = S >> 16, truncated. A group of 2^LogN pixels takes its chroma from
// the sums of R, B and S: the differences d = (65536 sum - sumS + 2^(15 + LogN)
// - 1) >> 16 of B and R, U = ((dB 32244) >> (16 + LogN)) + 128, stored as its
// low 8 bits (it always lies in 2..253), and V = ((dR 57475) >> (16 + LogN))
// + 128 clamped to 0..255.

inline constexpr std::int32_t yuvLumaSum(int r, int g, int b) { return 19595 * r + 38470 * g + 7471 * b; }

struct YuvChroma {
    Zor8u u, v;
};

struct YuvGroup {
    std::int32_t r = 0, b = 0, s = 0;

    // Adds a pixel to the group; returns its Y.
    Zor8u add(int red, int green, int blue) {
        const std::int32_t sum = yuvLumaSum(red, green, blue);
        r += red;
        b += blue;
        s += sum;
        return static_cast<Zor8u>(sum >> 16);
    }
    template <int LogN>
    YuvChroma chroma() const {
        constexpr std::int32_t kRound = (32768 << LogN) - 1;
        const std::int32_t dB = asr(65536 * b - s + kRound, 16), dR = asr(65536 * r - s + kRound, 16);
        return {static_cast<Zor8u>(asr(dB * 32244, 16 + LogN) + 128), clampByte(asr(dR * 57475, 16 + LogN) + 128)};
    }
};

// ---------------------------------------------------------------------------
// The subsampled YUV side of a 4:2:2 row (and of one row of 4:2:0): Y of
// pixel i, U and V of pair k = i / 2.

// Planes Y, U, V; U and V (width + 1) / 2 wide. A last odd pixel has a U and
// a V of its own.
struct Planes422 {
    template <class T>
    using Row = Row3<T, 2>;

    static void putY(Row3<Zor8u, 2> r, std::ptrdiff_t i, Zor8u y) { r.p[0][i] = y; }
    static void putUV(Row3<Zor8u, 2> r, std::ptrdiff_t k, YuvChroma c) {
        r.p[1][k] = c.u;
        r.p[2][k] = c.v;
    }
    static void putOddUV(Row3<Zor8u, 2> r, std::ptrdiff_t k, YuvChroma c) { putUV(r, k, c); }
    // The samples of pair k, and of a last odd pixel (the first of pair k).
    static void pair(Row3<const Zor8u, 2> r, std::ptrdiff_t k, int& y0, int& y1, int& u, int& v) {
        y0 = r.p[0][2 * k];
        y1 = r.p[0][2 * k + 1];
        u = r.p[1][k];
        v = r.p[2][k];
    }
    static void lastOdd(Row3<const Zor8u, 2> r, std::ptrdiff_t k, int& y, int& u, int& v) {
        y = r.p[0][2 * k];
        u = r.p[1][k];
        v = r.p[2][k];
    }
    template <class T>
    static Row3<T, 2> advance(Row3<T, 2> r, std::ptrdiff_t i) {  // i even
        return {{r.p[0] + i, r.p[1] + i / 2, r.p[2] + i / 2}};
    }
};

// Packed Y0 U Y1 V. A last odd pixel has two bytes, Y and U: the encoder
// writes no V for it and the decoder takes the V of the previous pair (in a
// row of one pixel, its U).
struct Packed422 {
    template <class T>
    using Row = RowC<T, 2>;
    using O = OrderYCbCr;

    static void putY(RowC<Zor8u, 2> r, std::ptrdiff_t i, Zor8u y) { r.p[2 * (i & ~1) + ((i & 1) ? O::kY1 : O::kY0)] = y; }
    static void putUV(RowC<Zor8u, 2> r, std::ptrdiff_t k, YuvChroma c) {
        r.p[4 * k + O::kCb] = c.u;
        r.p[4 * k + O::kCr] = c.v;
    }
    static void putOddUV(RowC<Zor8u, 2> r, std::ptrdiff_t k, YuvChroma c) { r.p[4 * k + O::kCb] = c.u; }
    static void pair(RowC<const Zor8u, 2> r, std::ptrdiff_t k, int& y0, int& y1, int& u, int& v) {
        const Zor8u* q = r.p + 4 * k;
        y0 = q[O::kY0];
        y1 = q[O::kY1];
        u = q[O::kCb];
        v = q[O::kCr];
    }
    static void lastOdd(RowC<const Zor8u, 2> r, std::ptrdiff_t k, int& y, int& u, int& v) {
        const Zor8u* q = r.p + 4 * k;
        y = q[O::kY0];
        u = q[O::kCb];
        v = k > 0 ? q[O::kCr - 4] : u;
    }
    template <class T>
    static RowC<T, 2> advance(RowC<T, 2> r, std::ptrdiff_t i) {  // i even
        return {r.p + 2 * i};
    }
};

template <class L>
inline constexpr bool kSubsampled = std::is_same_v<L, Planes422> || std::is_same_v<L, Packed422>;

// RGB with a fourth byte written 0.
using PixC4Zero = Interleaved<4, 0, 1, 2, true>;

// ---------------------------------------------------------------------------
// Kernels

// 4:4:4: RGB (layout S) to YUV (layout D).
template <class S, class D>
void yuvEncode444(RowOf<S, const Zor8u> s, RowOf<D, Zor8u> d, int width) {
    for (std::ptrdiff_t i = 0; i < width; ++i) {
        int r, g, b;
        S::get(s, i, r, g, b);
        YuvGroup px;
        const Zor8u y = px.add(r, g, b);
        const YuvChroma c = px.chroma<0>();
        D::put(d, i, y, c.u, c.v);
    }
}

// 4:2:2: every pixel's Y, and the U and V of each pair; a last odd pixel is
// converted alone with the 4:4:4 rule.
template <class S, class D>
void yuvEncode422(RowOf<S, const Zor8u> s, RowOf<D, Zor8u> d, int width) {
    const auto add = [&](YuvGroup& group, std::ptrdiff_t i) {
        int r, g, b;
        S::get(s, i, r, g, b);
        D::putY(d, i, group.add(r, g, b));
    };
    std::ptrdiff_t i = 0;
    for (; i + 1 < width; i += 2) {
        YuvGroup pair;
        add(pair, i);
        add(pair, i + 1);
        D::putUV(d, i / 2, pair.chroma<1>());
    }
    if (i < width) {
        YuvGroup alone;
        add(alone, i);
        D::putOddUV(d, i / 2, alone.chroma<0>());
    }
}

// 4:2:0: source rows y and y + 1 into luma rows y and y + 1 and their shared
// chroma row (reached through d0); the width is even.
template <class S>
void yuvEncode420(RowOf<S, const Zor8u> s0, RowOf<S, const Zor8u> s1, Row3<Zor8u, 2> d0, Row3<Zor8u, 2> d1,
                  int width) {
    // The four destination rows in locals, which the loop keeps in registers.
    Zor8u *y0 = d0.p[0], *y1 = d1.p[0], *u = d0.p[1], *v = d0.p[2];
    for (std::ptrdiff_t i = 0; i + 1 < width; i += 2) {
        YuvGroup block;
        for (std::ptrdiff_t j = i; j < i + 2; ++j) {
            int r, g, b;
            S::get(s0, j, r, g, b);
            y0[j] = block.add(r, g, b);
            S::get(s1, j, r, g, b);
            y1[j] = block.add(r, g, b);
        }
        const YuvChroma c = block.chroma<2>();
        u[i / 2] = c.u;
        v[i / 2] = c.v;
    }
}

// YUV (layout S) to RGB (layout D) with decoder set K (kYuv, or kYuvRounded
// with one half before the shifts). The YUV sets take luma at full weight
// (kY = 65536), so each output is Y plus a term of the chroma alone:
// (65536 y + x) >> 16 = y + (x >> 16). The subsampled layouts give both
// pixels of a pair the pair's chroma, so its terms are taken once.
template <const Decoder& K, class S, class D>
void yuvDecode(RowOf<S, const Zor8u> s, RowOf<D, Zor8u> d, int width) {
    static_assert(K.kY == 65536, "luma at full weight");
    const auto put = [&](std::ptrdiff_t i, int y, const Rgb32& t) {
        D::put(d, i, clampByte(y + t.r), clampByte(y + t.g), clampByte(y + t.b));
    };
    if constexpr (kSubsampled<S>) {
        std::ptrdiff_t i = 0;
        int y0, y1, u, v;
        for (; i + 1 < width; i += 2) {
            S::pair(s, i / 2, y0, y1, u, v);
            const Rgb32 t = decode(K, 0, u, v);
            put(i, y0, t);
            put(i + 1, y1, t);
        }
        if (i < width) {
            S::lastOdd(s, i / 2, y0, u, v);
            put(i, y0, decode(K, 0, u, v));
        }
    } else {
        for (std::ptrdiff_t i = 0; i < width; ++i) {
            int y, u, v;
            S::get(s, i, y, u, v);
            const Rgb32 c = decode(K, y, u, v);
            D::put(d, i, clampByte(c.r), clampByte(c.g), clampByte(c.b));
        }
    }
}

// 4:2:0: luma rows y and y + 1 with the chroma row they share (reached
// through s0) to rows y and y + 1 of the destination; a pair's terms serve
// its four pixels.
template <const Decoder& K, class D>
void yuvDecode420(Row3<const Zor8u, 2> s0, Row3<const Zor8u, 2> s1, RowOf<D, Zor8u> d0, RowOf<D, Zor8u> d1,
                  int width) {
    static_assert(K.kY == 65536, "luma at full weight");
    const auto put = [](RowOf<D, Zor8u> d, std::ptrdiff_t i, int y, const Rgb32& t) {
        D::put(d, i, clampByte(y + t.r), clampByte(y + t.g), clampByte(y + t.b));
    };
    std::ptrdiff_t i = 0;
    int y0, y1, z0, z1, u, v;
    for (; i + 1 < width; i += 2) {
        Planes422::pair(s0, i / 2, y0, y1, u, v);
        Planes422::pair({{s1.p[0], s0.p[1], s0.p[2]}}, i / 2, z0, z1, u, v);
        const Rgb32 t = decode(K, 0, u, v);
        put(d0, i, y0, t);
        put(d0, i + 1, y1, t);
        put(d1, i, z0, t);
        put(d1, i + 1, z1, t);
    }
    if (i < width) {
        Planes422::lastOdd(s0, i / 2, y0, u, v);
        Planes422::lastOdd({{s1.p[0], s0.p[1], s0.p[2]}}, i / 2, z0, u, v);
        const Rgb32 t = decode(K, 0, u, v);
        put(d0, i, y0, t);
        put(d1, i, z0, t);
    }
}

// ---------------------------------------------------------------------------
// The shapes: X(member, kernel template, (template arguments)).

#define ZOR_YUV_KERNELS(X)                                                  \
    X(encode444C3, yuvEncode444, (PixC3, PixC3))                            \
    X(encode444AC4, yuvEncode444, (PixAC4, PixAC4))                         \
    X(encode444P3, yuvEncode444, (PixP3, PixP3))                            \
    X(encode444C3P3, yuvEncode444, (PixC3, PixP3))                          \
    X(decode444C3, yuvDecode, (kYuv, PixC3, PixC3))                         \
    X(decode444AC4, yuvDecode, (kYuv, PixAC4, PixAC4))                      \
    X(decode444P3, yuvDecode, (kYuv, PixP3, PixP3))                         \
    X(decode444P3C3, yuvDecode, (kYuv, PixP3, PixC3))                       \
    X(encode422C3C2, yuvEncode422, (PixC3, Packed422))                      \
    X(encode422C3P3, yuvEncode422, (PixC3, Planes422))                      \
    X(encode422P3, yuvEncode422, (PixP3, Planes422))                        \
    X(decode422C2C3, yuvDecode, (kYuv, Packed422, PixC3))                   \
    X(decode422P3C3, yuvDecode, (kYuv, Planes422, PixC3))                   \
    X(decode422P3, yuvDecode, (kYuv, Planes422, PixP3))                     \
    X(decode422P3C4, yuvDecode, (kYuv, Planes422, PixC4Zero))               \
    X(encode420C3, yuvEncode420, (PixC3))                                   \
    X(encode420P3, yuvEncode420, (PixP3))                                   \
    X(decode420P3C3, yuvDecode420, (kYuv, PixC3))                           \
    X(decode420P3, yuvDecode420, (kYuv, PixP3))                             \
    X(decode420P3C4Rounded, yuvDecode420, (kYuvRounded, PixC4Zero))         \
    X(decode420P3Bgr, yuvDecode420, (kYuv, PixBgrC3))

ZOR_KERNEL_TABLE(YuvKernels, ZOR_YUV_KERNELS, kYuvScalar, yuvTables, YuvK)

}  // namespace zor
