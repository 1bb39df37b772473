// Straightforward per-pixel models of the subsampled video conversions, and
// views of test images that may be walked bottom-up (negative steps).
#pragma once

#include "support/testutil.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace ref {

using Img = zt::Image<Zor8u>;

// floor(v / 2^s) for any sign.
inline std::int64_t floorShift(std::int64_t v, int s) {
    return static_cast<std::int64_t>(std::floor(static_cast<double>(v) / static_cast<double>(std::int64_t{1} << s)));
}
inline int clamp255(std::int64_t v) { return static_cast<int>(std::min<std::int64_t>(255, std::max<std::int64_t>(0, v))); }

struct Rgb {
    int r, g, b;
};

// Encoder sums (channel sums of a group, or one pixel).
inline int yOf(Rgb p, int bias) { return static_cast<int>((16843 * p.r + 33030 * p.g + 6423 * p.b + bias) >> 16); }
inline std::int64_t pcb(std::int64_t r, std::int64_t g, std::int64_t b) { return -9699 * r - 19071 * g + 28770 * b; }
inline std::int64_t pcr(std::int64_t r, std::int64_t g, std::int64_t b) { return 28770 * r - 24117 * g - 4653 * b; }
inline int chroma(std::int64_t product, int shift, int bias) {
    return static_cast<int>(floorShift(product + (std::int64_t{128} << shift) + bias, shift) & 0xFF);
}

// Decoders, results clamped.
inline Rgb setA_B(int y, int cb, int cr, bool setB) {
    const std::int64_t d = cb - 128, e = cr - 128;
    const std::int64_t ky = setB ? 76282 : 76284, rcr = setB ? 104593 : 104595, gcb = setB ? 25689 : 25690,
                       gcr = setB ? 53279 : 53281, bcb = setB ? 132184 : 132186;
    const std::int64_t half = setB ? 32768 : 0;
    const std::int64_t l = ky * y - 16 * ky + half;
    return {clamp255(floorShift(l + rcr * e, 16)), clamp255(floorShift(l - gcb * d - gcr * e, 16)),
            clamp255(floorShift(l + bcb * d, 16))};
}
inline Rgb setC(int y, int cb, int cr) {
    const std::int64_t Y = y, Cb = cb, Cr = cr;
    return {clamp255(floorShift(76284 * Y + 104595 * Cr - 14608761, 16)),
            clamp255(floorShift(76284 * Y - 25690 * Cb - 53281 * Cr + 8887730, 16)),
            clamp255(floorShift(76284 * Y + 132186 * Cb - 18140365, 16))};
}

// An image seen top-down or bottom-up; ptr()/step() are what the library gets.
struct View {
    Img* img;
    bool flip;
    Zor8u* row(int y) const { return flip ? img->row(img->height() - 1 - y) : img->row(y); }
    Zor8u* ptr() const { return flip ? img->flippedData() : img->data(); }
    int step() const { return flip ? img->flippedStep() : img->step(); }
};

// Three planes of possibly different sizes (each at least 1 x 1), seen the
// same way; arrays of pointers and steps for the library.
struct PlaneSet {
    Img p[3];
    bool flip;
    Zor8u* ptrs[3];
    const Zor8u* cptrs[3];
    int steps[3];
    PlaneSet(int w0, int h0, int w1, int h1, bool flipped, std::uint32_t seed)
        : p{Img(std::max(w0, 1), std::max(h0, 1), 1, 3, seed), Img(std::max(w1, 1), std::max(h1, 1), 1, 4, seed + 1),
            Img(std::max(w1, 1), std::max(h1, 1), 1, 5, seed + 2)},
          flip(flipped) {
        refresh();
    }
    PlaneSet(const PlaneSet& o) : p{o.p[0], o.p[1], o.p[2]}, flip(o.flip) { refresh(); }
    void refresh() {
        for (int i = 0; i < 3; ++i) {
            ptrs[i] = view(i).ptr();
            cptrs[i] = ptrs[i];
            steps[i] = view(i).step();
        }
    }
    View view(int i) { return View{&p[i], flip}; }
    bool operator==(const PlaneSet& o) const { return p[0] == o.p[0] && p[1] == o.p[1] && p[2] == o.p[2]; }
};

// The decoder with four extra fraction bits, results clamped.
inline Rgb fine(int y, int cb, int cr) {
    const std::int64_t l = floorShift((y - 16) * 128 * 9535, 16), d = (cb - 128) * 128, e = (cr - 128) * 128;
    return {clamp255(floorShift(l + floorShift(e * 13074, 16), 4)),
            clamp255(floorShift(l - floorShift(d * 3211, 16) - floorShift(e * 6660, 16), 4)),
            clamp255(floorShift(l + floorShift(d * 16523, 16), 4))};
}

// Y, Cb, Cr of pixel x of a packed 4:2:2 row of width w: a last odd pixel reads Y and Cb from its incomplete
// group and Cr from the previous pair, or its own Cb again when there is no previous pair.
struct Ycc { int y, cb, cr; };
inline Ycc packedSamples(const Zor8u* s, int x, int w, bool cbYCr) {
    const int oY = cbYCr ? 1 : 0, oCb = cbYCr ? 0 : 1, oCr = oCb + 2;
    const Zor8u* p = s + 4 * (x / 2);
    if (x < 2 * (w / 2)) return {p[oY + 2 * (x & 1)], p[oCb], p[oCr]};
    return {p[oY], p[oCb], w > 1 ? p[oCr - 4] : p[oCb]};
}

}  // namespace ref
