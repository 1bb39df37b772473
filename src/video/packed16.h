// Decoding of 8-bit YCbCr straight into 16-bit packed RGB/BGR words
// (5-6-5, 5-5-5, 4-4-4), truncated or with a 4x4 ordered dither: the scalar
// row kernels, which are the reference, and the list of kernel shapes
// (vector kernels in video/packed16_hwy.cpp).
#pragma once

#include "core/kernel_set.h"
#include "video/chroma_share.h"

#include <cstdint>
#include <cstring>

namespace zor {

// ---------------------------------------------------------------------------
// Dither thresholds, indexed [y & 3][x & 3] with (x, y) the position inside
// the region: [0] for 5- and 6-bit fields, [1] (stored right after it) for
// 4-bit fields. Both follow the 4x4 Bayer order; the second is it times 289.
struct BayerThresholds {
    std::int32_t t[2][4][4];
    constexpr const std::int32_t (&operator[](int k) const)[4][4] { return t[k]; }
};
constexpr BayerThresholds bayerThresholds() {
    BayerThresholds b{{{{0, 1118, 279, 1398}, {1678, 559, 1957, 839}, {419, 1538, 139, 1258}, {2097, 978, 1817, 699}}}};
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x) b.t[1][y][x] = kBayerOrder[y][x] * 289;
    return b;
}
inline constexpr BayerThresholds _bayer_thresh_int = bayerThresholds();
static_assert(_bayer_thresh_int[0][3][0] == 2097 && _bayer_thresh_int[1][3][0] == 4335, "the documented thresholds");

// ---------------------------------------------------------------------------
// Output formats. The name lists the channels from the low end of the word
// up; the BGR member of a format swaps the shifts of the R and B fields.
template <int RBBits, int GBits, bool Bgr>
struct PackedFormat {
    static constexpr int kRBBits = RBBits;
    static constexpr int kGBits = GBits;
    static constexpr int kRShift = Bgr ? RBBits + GBits : 0;
    static constexpr int kGShift = RBBits;
    static constexpr int kBShift = Bgr ? 0 : RBBits + GBits;
};

using RGB565 = PackedFormat<5, 6, false>;
using BGR565 = PackedFormat<5, 6, true>;
using RGB555 = PackedFormat<5, 5, false>;
using BGR555 = PackedFormat<5, 5, true>;
using RGB444 = PackedFormat<4, 4, false>;
using BGR444 = PackedFormat<4, 4, true>;

// The threshold that a field of Bits bits compares with at phase (x & 3,
// y & 3): the 6-bit field takes half the 5-bit threshold.
template <int Bits>
inline constexpr std::int32_t ditherThreshold(int y, int x) {
    const std::int32_t t = _bayer_thresh_int[Bits == 4 ? 1 : 0][y & 3][x & 3];
    return Bits == 6 ? t >> 1 : t;
}

// Quantisation of one channel value v (0..255) to a field of Bits bits.
// Plain: the top bits. Dithered: q = (max v) >> 8 with max = 2^Bits - 1,
// then one more when the remainder 256 v - q floor(65280 / max) is greater
// than the threshold (strictly).
template <int Bits>
inline int quantise(int v) {
    return v >> (8 - Bits);
}
template <int Bits>
inline int quantise(int v, std::int32_t threshold) {
    constexpr int kMax = (1 << Bits) - 1;
    constexpr int kUnit = 256 * 255 / kMax;  // 2105, 1036, 4352
    const int q = (kMax * v) >> 8;
    return 256 * v - kUnit * q > threshold ? q + 1 : q;
}

// Source S (video/chroma_share.h) decoded with Dec into words of format Fmt;
// the dithered kernels take the row index inside the region after the width.
template <class Dec, class S, class Fmt, class... Phase>
ZOR_PLAIN_LOOP void toPacked16(RowOf<S, const Zor8u> s, RowC<Zor16u, 1> d, int width, Phase... y) {
    static_assert(sizeof...(Phase) <= 1, "one row index");
    S::forEach(s, width, [&](int x, int yv, int cb, int cr) {
        const Rgb32 c = Dec::decode(yv, cb, cr);
        const int r = saturate(c.r), g = saturate(c.g), b = saturate(c.b);
        const int qr = quantise<Fmt::kRBBits>(r, ditherThreshold<Fmt::kRBBits>(y, x)...);
        const int qg = quantise<Fmt::kGBits>(g, ditherThreshold<Fmt::kGBits>(y, x)...);
        const int qb = quantise<Fmt::kRBBits>(b, ditherThreshold<Fmt::kRBBits>(y, x)...);
        const Zor16u word = static_cast<Zor16u>((qr << Fmt::kRShift) | (qg << Fmt::kGShift) | (qb << Fmt::kBShift));
        std::memcpy(d.p + x, &word, sizeof word);  // rows of words at any byte address
    });
}

// ---------------------------------------------------------------------------
// The shapes: X(member, kernel template, (template arguments)). Per format:
// interleaved 4:4:4 (set A, or the fine decoder when dithered), planar 4:4:4
// and planar 4:2:2 / 4:2:0 (the fine decoder), packed 4:2:2 (set C, or the
// fine decoder when dithered); `int` marks the dithered kernels. The 4:1:1
// members have set A with one half in all three outputs.

#define ZOR_PACKED16_FORMAT(X, F)                                             \
    X(c3##F, toPacked16, (DecodeSet<kSetA>, Full<PixC3>, F))                  \
    X(c3##F##Dither, toPacked16, (DecodeFine, Full<PixC3>, F, int))           \
    X(p3##F, toPacked16, (DecodeFine, Shared<1>, F))                          \
    X(p3##F##Dither, toPacked16, (DecodeFine, Shared<1>, F, int))             \
    X(c2##F, toPacked16, (DecodeSet<kSetC>, Packed422<OrderYCbCr>, F))        \
    X(c2##F##Dither, toPacked16, (DecodeFine, Packed422<OrderYCbCr>, F, int)) \
    X(sub##F, toPacked16, (DecodeFine, Shared<2>, F))                         \
    X(sub##F##Dither, toPacked16, (DecodeFine, Shared<2>, F, int))

#define ZOR_PACKED16_KERNELS(X)                                                                                      \
    ZOR_PACKED16_FORMAT(X, RGB565) ZOR_PACKED16_FORMAT(X, BGR565) ZOR_PACKED16_FORMAT(X, RGB555)                      \
    ZOR_PACKED16_FORMAT(X, BGR555) ZOR_PACKED16_FORMAT(X, RGB444) ZOR_PACKED16_FORMAT(X, BGR444)                      \
    X(p411BGR565, toPacked16, (DecodeSet<kSetARounded>, Shared<4>, BGR565))                                          \
    X(p411BGR555, toPacked16, (DecodeSet<kSetARounded>, Shared<4>, BGR555))

ZOR_KERNEL_TABLE(Packed16Kernels, ZOR_PACKED16_KERNELS, kPacked16Scalar, packed16Tables, Packed16K)

}  // namespace zor
