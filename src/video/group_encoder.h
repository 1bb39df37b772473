// The group encoders of chroma-subsampled video (4:2:2, 4:2:0, 4:1:1): the
// per-member rules (group, shift, biases), the pixel readers, the sinks that
// place a group's samples and the encoder row frames.
#pragma once

#include "core/frame.h"
#include "video/pixels.h"
#include "video/ycbcr.h"

#include <cstdint>

namespace zor {

// Encoder arithmetic

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
    static constexpr std::int32_t kOffset = 128 << kShift;

    static constexpr std::int32_t lumaBias(int col) { return (col & 1) ? LumaBias1 : kLumaRounded; }
    // The sums never go negative: the offset outweighs the most negative
    // product of any group of 8-bit pixels.
    static Zor8u cb(int sr, int sg, int sb) {
        return static_cast<Zor8u>((cbProduct(sr, sg, sb) + kOffset + BiasCb) >> kShift);
    }
    static Zor8u cr(int sr, int sg, int sb) {
        return static_cast<Zor8u>((crProduct(sr, sg, sb) + kOffset + BiasCr) >> kShift);
    }
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

// ---------------------------------------------------------------------------
// Pixel readers: functors giving the R, G, B of pixel x of one row.

template <int Stride, int ROff, int BOff>
struct InterleavedRgb {
    const Zor8u* p;
    Rgb8 operator()(int x) const {
        const Zor8u* q = p + static_cast<std::ptrdiff_t>(x) * Stride;
        return {q[ROff], q[1], q[BOff]};
    }
};
using RgbC3 = InterleavedRgb<3, 0, 2>;
using BgrC3 = InterleavedRgb<3, 2, 0>;
using BgrAC4 = InterleavedRgb<4, 2, 0>;  // alpha is not read

struct PlanarRgb {
    const Zor8u *r, *g, *b;
    Rgb8 operator()(int x) const { return {r[x], g[x], b[x]}; }
};

// ---------------------------------------------------------------------------
// Encoder sinks: where the samples of a group go.

// Planar Y, Cb, Cr rows; Rows luma rows share one chroma row. A last odd
// pixel of a 4:2:2 row gets its Y only.
template <int Rows>
struct PlanarYCbCrSink {
    Zor8u* y[Rows];
    Zor8u* cb;
    Zor8u* cr;
    void luma(int row, int x, Zor8u v) { y[row][x] = v; }
    void chroma(int g, Zor8u vcb, Zor8u vcr) {
        cb[g] = vcb;
        cr[g] = vcr;
    }
    void lastOddPixel(int x, Rgb8 p) { y[0][x] = lumaOf(p, kLumaRounded); }
};


// Packed 4:2:2 row. A last odd pixel writes its rounded Y and a Cb of its
// own (the single-pixel equation); the Cr byte, which would lie beyond the
// row, is not written.
template <class Order>
struct Packed422Sink {
    Zor8u* d;
    void luma(int, int x, Zor8u v) { d[2 * (x & ~1) + ((x & 1) ? Order::kY1 : Order::kY0)] = v; }
    void chroma(int g, Zor8u vcb, Zor8u vcr) {
        d[4 * g + Order::kCb] = vcb;
        d[4 * g + Order::kCr] = vcr;
    }
    void lastOddPixel(int x, Rgb8 p) {
        const YCbCr8 c = encodeYCbCr(p.r, p.g, p.b);
        d[2 * x + Order::kY0] = c.y;
        d[2 * x + Order::kCb] = c.cb;
    }
};

// The encoder: `groups` groups of Rule::kCols pixels of Rule::kRows rows, read
// through src[row], written to the sink.
template <class Rule, class Src, class Sink>
inline void encodeGroups(const Src (&src)[Rule::kRows], Sink& sink, int groups) {
    for (int g = 0; g < groups; ++g) {
        int sr = 0, sg = 0, sb = 0;
        for (int row = 0; row < Rule::kRows; ++row) {
            for (int c = 0; c < Rule::kCols; ++c) {
                const int x = g * Rule::kCols + c;
                const Rgb8 p = src[row](x);
                sink.luma(row, x, lumaOf(p, Rule::lumaBias(c)));
                sr += p.r;
                sg += p.g;
                sb += p.b;
            }
        }
        sink.chroma(g, Rule::cb(sr, sg, sb), Rule::cr(sr, sg, sb));
    }
}

// One 4:2:2 row: the pairs, then a last odd pixel as the sink treats it.
template <class Rule, class Src, class Sink>
inline void encode422Row(const Src& src, Sink& sink, int width) {
    const Src rows[1] = {src};
    encodeGroups<Rule>(rows, sink, width / 2);
    if (width & 1) sink.lastOddPixel(width - 1, src(width - 1));
}

// ---------------------------------------------------------------------------
// Row frames of the encoders (serial rows). Readers are built from a row
// pointer: Reader{row}.

// Packed 4:2:2 destination: one source row per destination row.
template <class Rule, class Order, class Reader, class T>
inline void encodePacked422Rows(const T* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roi) {
    const Plane<const T> s = plane(pSrc, srcStep);
    const Plane<Zor8u> d = plane(pDst, dstStep);
    serialRows(roi.height, [&](int y) {
        Packed422Sink<Order> sink{d.row(y)};
        encode422Row<Rule>(Reader{s.row(y)}, sink, roi.width);
    });
}

// Planar destination with one step per plane: Rule::kRows source rows per
// chroma row (the height is rounded down to a multiple of it), width /
// Rule::kCols groups per row. A 4:2:2 row with an odd width also gets the Y of
// its last pixel; the other subsamplings leave the columns beyond the last
// whole group alone. With swapChroma, Cb goes to plane 2 and Cr to plane 1.
template <class Rule, class Reader, class T>
inline void encodePlanarRows(const T* pSrc, std::ptrdiff_t srcStep, Zor8u* const pDst[3], const int dstStep[3],
                             bool swapChroma, ZoriSize roi) {
    constexpr int kRows = Rule::kRows;
    const int cbPlane = swapChroma ? 2 : 1, crPlane = swapChroma ? 1 : 2;
    const int groups = roi.width / Rule::kCols;
    serialRows(roi.height / kRows, [&](int k) {
        Reader src[kRows];
        PlanarYCbCrSink<kRows> sink;
        for (int r = 0; r < kRows; ++r) {
            src[r] = Reader{rowAt(pSrc, srcStep, k * kRows + r)};
            sink.y[r] = rowAt(pDst[0], dstStep[0], k * kRows + r);
        }
        sink.cb = rowAt(pDst[cbPlane], dstStep[cbPlane], k);
        sink.cr = rowAt(pDst[crPlane], dstStep[crPlane], k);
        encodeGroups<Rule>(src, sink, groups);
        if constexpr (Rule::kCols == 2 && kRows == 1) {
            if (roi.width & 1) sink.lastOddPixel(roi.width - 1, src[0](roi.width - 1));
        }
    });
}

// The status of a conversion that rounds the size down to whole groups.
inline ZorStatus roundedSizeStatus(ZoriSize roi, int multipleW, int multipleH) {
    return (roi.width % multipleW != 0 || roi.height % multipleH != 0) ? zorStsOddSizeWarning : zorStsOk;
}

}  // namespace zor
