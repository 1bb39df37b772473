// Row kernels of the 4:4:4 conversions: the scalar kernels, which are the
// reference, and the list of kernel shapes from which both the scalar table
// and, per CPU target, the vector table are made (video/ycbcr444_hwy.cpp).
#pragma once

#include "core/kernel_set.h"
#include "video/pixels.h"
#include "video/ycbcr.h"

namespace zor {

// ---------------------------------------------------------------------------
// 4:4:4

// RGB (samples R, G, B of layout S) to YCbCr (layout D).
template <class S, class D>
void encode444(RowOf<S, const Zor8u> s, RowOf<D, Zor8u> d, int width) {
    for (int i = 0; i < width; ++i) {
        int r, g, b;
        S::get(s, i, r, g, b);
        const YCbCr8 c = encodeYCbCr(r, g, b);
        D::put(d, i, c.y, c.cb, c.cr);
    }
}

// YCbCr (layout S) to RGB (layout D) with constant set K; a layout that
// fills a fourth byte takes the fill value after the width.
template <const Decoder& K, class S, class D, class... Fill>
void decode444(RowOf<S, const Zor8u> s, RowOf<D, Zor8u> d, int width, Fill... fill) {
    for (int i = 0; i < width; ++i) {
        int y, u, v;
        S::get(s, i, y, u, v);
        const Rgb32 c = decode(K, y, u, v);
        D::put(d, i, saturate(c.r), saturate(c.g), saturate(c.b), fill...);
    }
}

// ---------------------------------------------------------------------------
// The shapes: X(member, kernel template, (template arguments)).

#define ZOR_YCBCR444_KERNELS(X)                                         \
    X(encodeC3, encode444, (PixC3, PixC3))                           \
    X(encodeAC4, encode444, (PixAC4, PixAC4))                        \
    X(encodeP3, encode444, (PixP3, PixP3))                           \
    X(decodeAC3, decode444, (kSetA, PixC3, PixC3))                   \
    X(decodeAAC4, decode444, (kSetA, PixAC4, PixAC4))                \
    X(decodeAP3, decode444, (kSetA, PixP3, PixP3))                   \
    X(decodeBP3C3, decode444, (kSetB, PixP3, PixC3))                 \
    X(decodeBP3Bgr, decode444, (kSetB, PixP3, PixBgrC3))             \
    X(decodeBP3BgrC4, decode444, (kSetB, PixP3, PixBgrC4, Zor8u))

ZOR_KERNEL_TABLE(YCbCr444Kernels, ZOR_YCBCR444_KERNELS, kYCbCr444Scalar, ycbcr444Tables, YCbCr444K)

}  // namespace zor
