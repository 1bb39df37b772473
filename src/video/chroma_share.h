// Chroma sharing of the subsampled decoders: where pixel x of a source row
// finds its Y, Cb and Cr, and the decoders that turn them into R, G, B.
//
// A source is a template parameter of the decoder kernels:
//   Full<L>           4:4:4, every pixel has its own samples (layout L)
//   Packed422<Order>  packed pairs; both pixels of a pair share its Cb and Cr
//   Shared<H>         three planes; H horizontal pixels share one chroma
//                     sample (1: 4:4:4, 2: 4:2:2 and 4:2:0, 4: 4:1:1), a last
//                     incomplete group uses its sample like a complete one
// Each gives forEach(row, width, pixel), calling pixel(x, Y, Cb, Cr) for
// x = 0 .. width - 1, and advance(row, n) for n a multiple of its group.
#pragma once

#include "video/pixels.h"
#include "video/ycbcr.h"


namespace zor {

template <class L>
struct Full {
    template <class T>
    using Row = RowOf<L, T>;
    static constexpr int kGroup = 1;
    template <class Pixel>
    static void forEach(Row<const Zor8u> r, int width, Pixel&& pixel) {
        for (int x = 0; x < width; ++x) {
            int y, cb, cr;
            L::get(r, x, y, cb, cr);
            pixel(x, y, cb, cr);
        }
    }
    template <class T>
    static Row<T> advance(Row<T> r, std::ptrdiff_t n) {
        return L::advance(r, n);
    }
};

// Pairs are converted while two pixels remain. A last odd pixel takes Y and
// Cb from the two bytes of its incomplete group and the Cr of the previous
// pair; in a row of one pixel there is no previous pair and its Cb stands in
// for Cr.
template <class Order>
struct Packed422 {
    template <class T>
    using Row = RowC<T, 2>;
    static constexpr int kGroup = 2;
    template <class Pixel>
    static void forEach(Row<const Zor8u> r, int width, Pixel&& pixel) {
        const Zor8u* s = r.p;
        const int pairs = width / 2;
        for (int k = 0; k < pairs; ++k, s += 4) {
            const int cb = s[Order::kCb], cr = s[Order::kCr];
            pixel(2 * k, s[Order::kY0], cb, cr);
            pixel(2 * k + 1, s[Order::kY1], cb, cr);
        }
        if (width & 1) {
            const int cb = s[Order::kCb];
            pixel(width - 1, s[Order::kY0], cb, pairs > 0 ? s[Order::kCr - 4] : cb);
        }
    }
    template <class T>
    static Row<T> advance(Row<T> r, std::ptrdiff_t n) {
        return {r.p + 2 * n};
    }
};

template <int H>
struct Shared {
    template <class T>
    using Row = Row3<T, H>;
    static constexpr int kGroup = H;
    template <class Pixel>
    static void forEach(Row<const Zor8u> r, int width, Pixel&& pixel) {
        const int groups = width / H;
        for (int g = 0; g < groups; ++g) {
            const int cb = r.p[1][g], cr = r.p[2][g];
            for (int j = 0; j < H; ++j) pixel(g * H + j, r.p[0][g * H + j], cb, cr);
        }
        for (int x = groups * H; x < width; ++x) pixel(x, r.p[0][x], r.p[1][groups], r.p[2][groups]);
    }
    template <class T>
    static Row<T> advance(Row<T> r, std::ptrdiff_t n) {
        return {{r.p[0] + n, r.p[1] + n / H, r.p[2] + n / H}};
    }
};

// Decoders as types: a 16.16 constant set, or the decoder with four extra
// fraction bits. decode gives the unclamped R, G, B of one pixel.
template <const Decoder& K>
struct DecodeSet {
    static Rgb32 decode(int y, int cb, int cr) { return zor::decode(K, y, cb, cr); }
};
struct DecodeFine {
    static Rgb32 decode(int y, int cb, int cr) { return decodeFine(y, cb, cr); }
};

}  // namespace zor
