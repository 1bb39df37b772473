// Row kernels of the subsampled encoders: the scalar kernels, which are the
// reference, and the list of kernel shapes from which both the scalar table
// and, per CPU target, the vector table are made (video/encode_hwy.cpp).
#pragma once

#include "core/kernel_set.h"
#include "core/rows.h"
#include "video/group_encoder.h"

namespace zor {

// ---------------------------------------------------------------------------
// Destination rows moved on by n pixels.

inline RowC<Zor8u, 2> advance(RowC<Zor8u, 2> d, std::ptrdiff_t n) { return {d.p + 2 * n}; }
template <int H>
inline Row3<Zor8u, H> advance(Row3<Zor8u, H> d, std::ptrdiff_t n) {
    return {{d.p[0] + n, d.p[1] + n / H, d.p[2] + n / H}};
}

// ---------------------------------------------------------------------------
// 4:2:2

// Into packed Y0 Cb Y1 Cr or Cb Y0 Cr Y1 (Order): the pairs, then a last odd
// pixel that writes its rounded Y and a Cb of its own (the single-pixel
// equation); its Cr byte, which would lie beyond the row, is not written.
template <class Rule, class S, class Order>
void encode422Packed(SrcRow<S> s, RowC<Zor8u, 2> dst, int width) {
    Zor8u* d = dst.p;
    const int pairs = width / 2;
    for (int k = 0; k < pairs; ++k) {
        const Rgb8 a = pixelOf<S>(s, 2 * k), b = pixelOf<S>(s, 2 * k + 1);
        const int r = a.r + b.r, g = a.g + b.g, bl = a.b + b.b;
        d[4 * k + Order::kY0] = lumaOf(a, kLumaRounded);
        d[4 * k + Order::kY1] = lumaOf(b, Rule::kLumaBias1);
        d[4 * k + Order::kCb] = Rule::cb(r, g, bl);
        d[4 * k + Order::kCr] = Rule::cr(r, g, bl);
    }
    if (width & 1) {
        const Rgb8 a = pixelOf<S>(s, width - 1);
        const YCbCr8 c = encodeYCbCr(a.r, a.g, a.b);
        d[4 * pairs + Order::kY0] = c.y;
        d[4 * pairs + Order::kCb] = c.cb;
    }
}

// Into planes (chroma of the BGR pair encoder): a last odd pixel gets its Y
// only.
template <class S>
void encode422Planar(SrcRow<S> s, Row3<Zor8u, 2> d, int width) {
    for (int k = 0; k < width / 2; ++k) {
        const Rgb8 a = pixelOf<S>(s, 2 * k), b = pixelOf<S>(s, 2 * k + 1);
        d.p[0][2 * k] = lumaOf(a, kLumaRounded);
        d.p[0][2 * k + 1] = lumaOf(b, kLumaRounded);
        d.p[1][k] = RuleEB422::cb(a.r + b.r, a.g + b.g, a.b + b.b);
        d.p[2][k] = RuleEB422::cr(a.r + b.r, a.g + b.g, a.b + b.b);
    }
    if (width & 1) d.p[0][width - 1] = lumaOf(pixelOf<S>(s, width - 1), kLumaRounded);
}

// The filtered encoder into Cb Y0 Cr Y1, from the left terms (the quarter
// products of the pixel before the first) onwards. The chroma of pair k
// weighs the pixels 2k - 1, 2k, 2k + 1 by 1/4, 1/2, 1/4, each product floor-
// shifted on its own, and takes kFilteredChromaBias; lumas are rounded. A
// last odd pixel writes its Y and a Cb of its own with a full half, no Cr.
template <class S>
void encodeFilteredFrom(SrcRow<S> s, RowC<Zor8u, 2> dst, int width, std::int32_t leftCb, std::int32_t leftCr) {
    Zor8u* d = dst.p;
    for (int k = 0; k < width / 2; ++k, d += 4) {
        const Rgb8 a = pixelOf<S>(s, 2 * k), b = pixelOf<S>(s, 2 * k + 1);
        const std::int32_t rightCb = asr(cbProduct(b.r, b.g, b.b), 2);
        const std::int32_t rightCr = asr(crProduct(b.r, b.g, b.b), 2);
        d[0] = static_cast<Zor8u>((asr(cbProduct(a.r, a.g, a.b), 1) + leftCb + rightCb + kFilteredChromaBias) >> 16);
        d[1] = lumaOf(a, kLumaRounded);
        d[2] = static_cast<Zor8u>((asr(crProduct(a.r, a.g, a.b), 1) + leftCr + rightCr + kFilteredChromaBias) >> 16);
        d[3] = lumaOf(b, kLumaRounded);
        leftCb = rightCb;
        leftCr = rightCr;
    }
    if (width & 1) {
        const Rgb8 a = pixelOf<S>(s, width - 1);
        const YCbCr8 c = encodeYCbCr(a.r, a.g, a.b);
        d[0] = c.cb;
        d[1] = c.y;
    }
}

// A row starts with left terms of 0: the first pair's chroma has three
// quarters of the weight, no pixel is repeated at the edge.
template <class S>
void encodeFiltered422(SrcRow<S> s, RowC<Zor8u, 2> d, int width) {
    encodeFilteredFrom<S>(s, d, width, 0, 0);
}

// ---------------------------------------------------------------------------
// 4:2:0 and 4:1:1: whole groups only (the row driver rounds the region down).

// 2 x 2 blocks of source rows s0, s1 into luma rows d0, d1 and the one chroma
// row (reached through d0); Swap puts Cr in plane 1 and Cb in plane 2.
template <class S, bool Swap>
void encode420(SrcRow<S> s0, SrcRow<S> s1, Row3<Zor8u, 2> d0, Row3<Zor8u, 2> d1, int width) {
    for (int k = 0; k < width / 2; ++k) {
        const Rgb8 p[4] = {pixelOf<S>(s0, 2 * k), pixelOf<S>(s0, 2 * k + 1), pixelOf<S>(s1, 2 * k),
                           pixelOf<S>(s1, 2 * k + 1)};
        d0.p[0][2 * k] = lumaOf(p[0], kLumaRounded);
        d0.p[0][2 * k + 1] = lumaOf(p[1], kLumaRounded);
        d1.p[0][2 * k] = lumaOf(p[2], kLumaRounded);
        d1.p[0][2 * k + 1] = lumaOf(p[3], kLumaRounded);
        const int r = p[0].r + p[1].r + p[2].r + p[3].r, g = p[0].g + p[1].g + p[2].g + p[3].g,
                  b = p[0].b + p[1].b + p[2].b + p[3].b;
        d0.p[Swap ? 2 : 1][k] = RuleE420::cb(r, g, b);
        d0.p[Swap ? 1 : 2][k] = RuleE420::cr(r, g, b);
    }
}

// Four horizontal pixels per chroma sample.
template <class S>
void encode411(SrcRow<S> s, Row3<Zor8u, 4> d, int width) {
    for (int k = 0; k < width / 4; ++k) {
        int r = 0, g = 0, b = 0;
        for (int c = 0; c < 4; ++c) {
            const Rgb8 p = pixelOf<S>(s, 4 * k + c);
            d.p[0][4 * k + c] = lumaOf(p, kLumaRounded);
            r += p.r, g += p.g, b += p.b;
        }
        d.p[1][k] = RuleE411::cb(r, g, b);
        d.p[2][k] = RuleE411::cr(r, g, b);
    }
}

// ---------------------------------------------------------------------------
// The shapes: X(member, kernel template, (template arguments)).

#define ZOR_ENCODE_KERNELS(X)                                           \
    X(rgbTo422C2, encode422Packed, (RuleE422, PixC3, OrderYCbCr))       \
    X(rgbP3To422C2, encode422Packed, (RuleE422, PixP3, OrderYCbCr))     \
    X(bgraToCbYCr, encode422Packed, (RuleECbY, PixBgrAC4, OrderCbYCr))  \
    X(bgrTo422C2, encode422Packed, (RuleEB422, PixBgrC3, OrderYCbCr))   \
    X(bgraTo422C2, encode422Packed, (RuleEB422, PixBgrAC4, OrderYCbCr)) \
    X(rgbFiltered, encodeFiltered422, (PixC3))                          \
    X(rgbGammaFiltered, encodeFiltered422, (PixGammaC3))                \
    X(bgrTo422P3, encode422Planar, (PixBgrC3))                          \
    X(bgraTo422P3, encode422Planar, (PixBgrAC4))                        \
    X(bgr565To422, encode422Planar, (PixBgr565))                        \
    X(bgr555To422, encode422Planar, (PixBgr555))                        \
    X(rgbTo420, encode420, (PixC3, false))                              \
    X(bgrTo420, encode420, (PixBgrC3, false))                           \
    X(bgraTo420, encode420, (PixBgrAC4, false))                         \
    X(bgrToYCrCb420, encode420, (PixBgrC3, true))                       \
    X(bgraToYCrCb420, encode420, (PixBgrAC4, true))                     \
    X(bgr565To420, encode420, (PixBgr565, false))                       \
    X(bgr555To420, encode420, (PixBgr555, false))                       \
    X(bgr565ToYCrCb420, encode420, (PixBgr565, true))                   \
    X(bgr555ToYCrCb420, encode420, (PixBgr555, true))                   \
    X(bgrTo411, encode411, (PixBgrC3))                                  \
    X(bgraTo411, encode411, (PixBgrAC4))                                \
    X(bgr565To411, encode411, (PixBgr565))                              \
    X(bgr555To411, encode411, (PixBgr555))

ZOR_KERNEL_TABLE(EncodeKernels, ZOR_ENCODE_KERNELS, kEncodeScalar, encodeTables, EncodeK)

// ---------------------------------------------------------------------------
// How the exported encoders check and run (serial rows).


template <auto M>
using Run = Rows<Serial, EncodeK<M>>;
// Pairs never straddle contiguous rows of an even width: one long row.
template <auto M>
using Run422 = Rows<Serial, EncodeK<M>, Fuse<2>>;
template <auto M, bool Warn>
using Run420 = Rows<Serial, EncodeK<M>, Pairs, WholeGroups<2, 2, Warn>>;
template <auto M>
using Run411 = Rows<Serial, EncodeK<M>, WholeGroups<4, 1, true>, Fuse<4>>;

}  // namespace zor
