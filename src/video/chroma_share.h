// Chroma sharing of the subsampled decoders: the decoder sets, the walk
// that hands every pixel of a packed or planar row its group's Cb and Cr
// (with the last odd pixel's rule) and the decoder outputs.
#pragma once

#include "core/frame.h"
#include "video/pixels.h"
#include "video/ycbcr.h"

namespace zor {

// ---------------------------------------------------------------------------
// Decoders: unclamped R, G, B of one pixel; clamp with sat8.

// Set B of the 4:4:4 code (rounding, 76282 family).
struct SetB {
    static Rgb32 decode(int y, int cb, int cr) { return zor::decode(kSetB, y, cb, cr); }
};

// Set C of the packed 4:2:2 decoders: the coefficients of set A on unsigned
// Cb and Cr, with biases 57, 14 and 13 (/65536) below set A's for R, G, B.
struct SetC {
    static Rgb32 decode(int y, int cb, int cr) {
        const std::int32_t luma = 76284 * y;
        return {asr(luma + 104595 * cr - 14608761, 16), asr(luma - 25690 * cb - 53281 * cr + 8887730, 16),
                asr(luma + 132186 * cb - 18140365, 16)};
    }
};

// Walks one packed 4:2:2 row and calls pixel(x, Y, Cb, Cr) for x = 0 ..
// width - 1; both pixels of a pair get the pair's Cb and Cr. A last odd pixel
// takes Y and Cb from the two bytes of its incomplete group and the Cr of the
// previous pair; in a row of width 1 there is no previous pair and its Cb
// stands in for Cr.
template <class Order, class Pixel>
inline void forEachPacked422(const Zor8u* s, int width, Pixel&& pixel) {
    const int pairs = width / 2;
    for (int k = 0; k < pairs; ++k, s += 4) {
        const int cb = s[Order::kCb], cr = s[Order::kCr];
        pixel(2 * k, s[Order::kY0], cb, cr);
        pixel(2 * k + 1, s[Order::kY1], cb, cr);
    }
    if (width & 1) {
        const int cb = s[Order::kCb];
        const int cr = pairs > 0 ? s[Order::kCr - 4] : cb;
        pixel(width - 1, s[Order::kY0], cb, cr);
    }
}

// Planar chroma shared by Group horizontal pixels: pixel x uses chroma sample
// x / Group (the chroma row is chosen by the caller).
template <int Group, class Pixel>
inline void forEachPlanarShared(const Zor8u* y, const Zor8u* cb, const Zor8u* cr, int width, Pixel&& pixel) {
    for (int x = 0; x < width; ++x) pixel(x, y[x], cb[x / Group], cr[x / Group]);
}

// Decoder outputs: store the clamped R, G, B of pixel x.
template <int Stride, int ROff, int BOff, bool Alpha = false>
struct InterleavedOut {
    Zor8u* p;
    Zor8u aval;
    void operator()(int x, Rgb32 c) const {
        Zor8u* q = p + static_cast<std::ptrdiff_t>(x) * Stride;
        q[ROff] = clampByte(c.r);
        q[1] = clampByte(c.g);
        q[BOff] = clampByte(c.b);
        if constexpr (Alpha) q[3] = aval;
    }
};
using RgbOutC3 = InterleavedOut<3, 0, 2>;
using BgrOutC3 = InterleavedOut<3, 2, 0>;
using BgrOutC4 = InterleavedOut<4, 2, 0, true>;  // writes aval as the fourth byte

struct PlanarRgbOut {
    Zor8u *r, *g, *b;
    void operator()(int x, Rgb32 c) const {
        r[x] = clampByte(c.r);
        g[x] = clampByte(c.g);
        b[x] = clampByte(c.b);
    }
};

// Decodes one packed 4:2:2 row with a constant set into an output.
template <class Set, class Order, class Out>
inline void decodePacked422Row(const Zor8u* src, const Out& out, int width) {
    forEachPacked422<Order>(src, width, [&](int x, int y, int cb, int cr) { out(x, Set::decode(y, cb, cr)); });
}

}  // namespace zor
