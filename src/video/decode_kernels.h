// Row kernels of the subsampled decoders to 8-bit RGB and BGR: the scalar
// kernels, which are the reference, and the list of kernel shapes from which
// the scalar table and, per CPU target, the vector table are made
// (video/decode_hwy.cpp).
#pragma once

#include "core/kernel_set.h"
#include "video/chroma_share.h"

namespace zor {

// Source S (a chroma sharing of video/chroma_share.h) to RGB of layout D with
// constant set K; a layout that fills a fourth byte takes the value after
// the width.
template <const Decoder& K, class S, class D, class... Fill>
ZOR_PLAIN_LOOP void decodeShared(RowOf<S, const Zor8u> s, RowOf<D, Zor8u> d, int width, Fill... fill) {
    S::forEach(s, width, [&](int x, int y, int cb, int cr) {
        const Rgb32 c = decode(K, y, cb, cr);
        D::put(d, static_cast<std::ptrdiff_t>(x), saturate(c.r), saturate(c.g), saturate(c.b), fill...);
    });
}

// The chroma half-way between rows 1 and 2 of four (the four-tap filter).
template <class T>
ZOR_PLAIN_LOOP void halfwayRow(RowC<const T, 1> r0, RowC<const T, 1> r1, RowC<const T, 1> r2, RowC<const T, 1> r3, RowC<T, 1> out,
                int width) {
    for (int k = 0; k < width; ++k)
        out.p[k] = fourTap(r0.p[k], r1.p[k], r2.p[k], r3.p[k]);
}

// ---------------------------------------------------------------------------
// The shapes: X(member, kernel template, (template arguments)).

#define ZOR_DECODE_KERNELS(X)                                                       \
    X(ycbcr422Rgb, decodeShared, (kSetC, Packed422<OrderYCbCr>, PixC3))             \
    X(ycbcr422RgbP3, decodeShared, (kSetC, Packed422<OrderYCbCr>, PixP3))           \
    X(ycbcr422Bgr, decodeShared, (kSetC, Packed422<OrderYCbCr>, PixBgrC3))          \
    X(ycbcr422BgrC4, decodeShared, (kSetC, Packed422<OrderYCbCr>, PixBgrC4, Zor8u)) \
    X(cbycr422Rgb, decodeShared, (kSetB, Packed422<OrderCbYCr>, PixC3))             \
    X(cbycr422BgrC4, decodeShared, (kSetB, Packed422<OrderCbYCr>, PixBgrC4, Zor8u)) \
    X(planar422Rgb, decodeShared, (kSetB, Shared<2>, PixC3))                        \
    X(planar422BgrC4, decodeShared, (kSetB, Shared<2>, PixBgrC4, Zor8u))            \
    X(halfway, halfwayRow, (Zor8u))

ZOR_KERNEL_TABLE(DecodeKernels, ZOR_DECODE_KERNELS, kDecodeScalar, decodeTables, DecodeK)

}  // namespace zor
