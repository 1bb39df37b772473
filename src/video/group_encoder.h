// The group encoders of chroma-subsampled video (4:2:2, 4:2:0, 4:1:1): the
// per-member rules (group, shift, biases) and the source layouts that only
// the encoders read (packed 16-bit BGR words, gamma-corrected RGB).
#pragma once

#include "core/checks.h"
#include "twist/gamma_tables.h"
#include "video/pixels.h"
#include "video/ycbcr.h"

#include <cstdint>
#include <cstring>

namespace zor {

struct Rgb8 {
    int r, g, b;
};

inline Zor8u lumaOf(Rgb8 p, std::int32_t bias) { return static_cast<Zor8u>((lumaProduct(p.r, p.g, p.b) + bias) >> 16); }

// Chroma of a group of Cols x Rows pixels: the products of the channel sums,
// plus 128 in output units plus a bias, shifted by 16 + log2(Cols * Rows).
// Every luma sample is rounded, except that the second pixel of each pair may
// carry another bias (the truncated Y1 of one 4:2:2 encoder).
template <int Cols, int Rows, std::int32_t BiasCb, std::int32_t BiasCr, std::int32_t LumaBias1 = kLumaRounded>
struct GroupRule {
    static constexpr int kCols = Cols;
    static constexpr int kRows = Rows;
    static constexpr int kShift = 16 + (Cols * Rows == 4 ? 2 : 1);
    static constexpr std::int32_t kOffsetCb = (128 << kShift) + BiasCb;
    static constexpr std::int32_t kOffsetCr = (128 << kShift) + BiasCr;
    static constexpr std::int32_t kLumaBias1 = LumaBias1;

    // The sums never go negative: the offset outweighs the most negative
    // product of any group of 8-bit pixels; the results lie in 16..240.
    static Zor8u cb(int sr, int sg, int sb) { return static_cast<Zor8u>((cbProduct(sr, sg, sb) + kOffsetCb) >> kShift); }
    static Zor8u cr(int sr, int sg, int sb) { return static_cast<Zor8u>((crProduct(sr, sg, sb) + kOffsetCr) >> kShift); }
};

// Pair encoder of the RGB 4:2:2 members: chroma with one half, Y1 truncated.
using RuleE422 = GroupRule<2, 1, 65536, 65536, kLumaTruncated>;
// Pair encoder of BGRA to CbYCr: one half for Cb but 65534 for Cr.
using RuleECbY = GroupRule<2, 1, 65536, 65534>;
// Pair encoder of the BGR 4:2:2 members (also packed 565/555 input): one eighth.
using RuleEB422 = GroupRule<2, 1, 16384, 16384>;
// 2 x 2 block encoder of every 4:2:0 member: one eighth.
using RuleE420 = GroupRule<2, 2, 32768, 32768>;
// Four-pixel encoder of the 4:1:1 members: one eighth.
using RuleE411 = GroupRule<4, 1, 32768, 32768>;

// The filtered 4:2:2 encoder: a three-tap 1/4, 1/2, 1/4 chroma whose sum
// takes one unit less than offset and half.
inline constexpr std::int32_t kFilteredChromaBias = 128 * 65536 + 32767;

// ---------------------------------------------------------------------------
// Source layouts of the encoders beside those of video/pixels.h. Each gives
// the R, G, B of pixel i of a row.

// BGR565 (GreenBits 6) or BGR555 (GreenBits 5) words: B in bits 0-4, G
// above it, R above G (bit 15 of 555 ignored). The fields reach the 8-bit
// scale by a left shift only, without bit replication (5-bit white is 248,
// 6-bit white 252). The row holds 16-bit words whatever the sample type asked.
template <int GreenBits>
struct PackedBgr16 {
    template <class>
    using Row = RowC<const Zor16u, 1>;
    static constexpr int kGreenBits = GreenBits;

    static void get(Row<void> r, std::ptrdiff_t i, int& red, int& green, int& blue) {
        Zor16u word;  // copied: a row may start at any byte
        std::memcpy(&word, r.p + i, sizeof word);
        const unsigned w = word;
        red = static_cast<int>(((w >> (5 + GreenBits)) & 31u) << 3);
        green = static_cast<int>(((w >> 5) & ((1u << GreenBits) - 1)) << (8 - GreenBits));
        blue = static_cast<int>((w & 31u) << 3);
    }
    static Row<void> advance(Row<void> r, std::ptrdiff_t n) { return {r.p + n}; }
};
using PixBgr565 = PackedBgr16<6>;
using PixBgr555 = PackedBgr16<5>;

// RGB bytes through the forward gamma curve (tableFwd8u).
struct PixGammaC3 : PixC3 {
    static void get(RowC<const Zor8u, 3> r, std::ptrdiff_t i, int& red, int& green, int& blue) {
        const Zor8u* p = r.p + 3 * i;
        red = tableFwd8u[p[0]];
        green = tableFwd8u[p[1]];
        blue = tableFwd8u[p[2]];
    }
};

// The source row type of a layout: bytes, or the words of the packed layouts.
template <class S>
using SrcRow = RowOf<S, const Zor8u>;

template <class S>
inline Rgb8 pixelOf(SrcRow<S> s, std::ptrdiff_t i) {
    Rgb8 p;
    S::get(s, i, p.r, p.g, p.b);
    return p;
}


}  // namespace zor
