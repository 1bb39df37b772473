// Straightforward per-pixel models of the subsampled video conversions, and
// views of test images that may be walked bottom-up (negative steps).
#pragma once

#include "support/testutil.h"
#include "twist/gamma_tables.h"

#include <algorithm>
#include <string>
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

// --- Encoders ---------------------------------------------------------------
// Every RGB/BGR/packed-word to subsampled YCbCr member as one table row, one
// per-pixel model of them all, and the images of one call.

enum class In { Rgb, Bgr, Bgra, RgbPlanes, W565, W555 };
enum class Out { YCbCr, CbYCr, Planes, PlanesSwapped };  // packed orders; planes with Cb or Cr second
constexpr int kRounded = 1081344, kTruncated = 1048576;
#define ZT_FN(f) reinterpret_cast<void (*)()>(f)

struct Encoder {
    const char* name;
    void (*fn)();  // called through its own type
    In in;
    Out out;
    int cols, rows;  // the chroma group; cols 0: the filtered 4:2:2 encoder
    int biasCb, biasCr, y1Bias, minW, minH;
    bool warns, planesFirst, gamma;
    bool packed() const { return out == Out::YCbCr || out == Out::CbYCr; }
};

// Images with `pad` bytes after each row (0: contiguous), seen bottom-up when
// flipped.
struct EncodeImages {
    const Encoder& e;
    bool flip;
    Img src, dst[3];
    zt::Planes3<Zor8u> srcPlanes;
    static int bytesIn(In in) { return in == In::Bgra ? 4 : in == In::W565 || in == In::W555 ? 2 : 3; }
    static int chromaWidth(const Encoder& e, int w) {
        return std::max(e.packed() ? 0 : e.rows == 1 && e.cols == 2 ? (w + 1) / 2 : w / e.cols, 1);
    }
    EncodeImages(const Encoder& enc, int w, int h, bool flipped, int pad, std::uint32_t seed)
        : e(enc), flip(flipped), src(std::max(w, 1), std::max(h, 1), bytesIn(e.in), pad, seed),
          dst{Img(std::max(w, 1), std::max(h, 1), e.packed() ? 2 : 1, pad, seed + 1),
              Img(chromaWidth(e, w), std::max(h / e.rows, 1), 1, pad, seed + 2),
              Img(chromaWidth(e, w), std::max(h / e.rows, 1), 1, pad, seed + 3)},
          srcPlanes(std::max(w, 1), std::max(h, 1), pad, seed + 4) {}
    Zor8u* row(int plane, int y) { return View{&dst[plane], flip}.row(y); }
    // R, G, B of pixel (x, y) as the encoder sees them (fields scaled, gamma applied).
    Rgb pixel(int x, int y) {
        const Zor8u* q = View{&src, flip}.row(y) + x * bytesIn(e.in);
        auto plane = [&](int i) { return int(View{&srcPlanes.p[i], flip}.row(y)[x]); };
        const int w = q[0] | q[1] << 8, g5 = ((w >> 5) & 31) << 3;
        Rgb p = e.in == In::Rgb ? Rgb{q[0], q[1], q[2]} : e.in == In::RgbPlanes ? Rgb{plane(0), plane(1), plane(2)}
                : e.in == In::W565 ? Rgb{(w >> 11) << 3, ((w >> 5) & 63) << 2, (w & 31) << 3}
                : e.in == In::W555 ? Rgb{((w >> 10) & 31) << 3, g5, (w & 31) << 3} : Rgb{q[2], q[1], q[0]};
        if (e.gamma) p = {zor::tableFwd8u[p.r], zor::tableFwd8u[p.g], zor::tableFwd8u[p.b]};
        return p;
    }
    void model(int w, int h) {
        const int oY = e.out == Out::CbYCr, cols = e.cols ? e.cols : 2, shift = cols * e.rows == 4 ? 18 : 17;
        auto putY = [&](int x, int y, int v) { row(0, y)[e.packed() ? 2 * x + oY : x] = Zor8u(v); };
        auto putC = [&](int g, int k, int cr, int v) {
            (e.packed() ? row(0, k) + 4 * g + 2 * cr + 1 - oY : row(1 + (cr ^ (e.out == Out::PlanesSwapped)), k) + g)[0] = Zor8u(v);
        };
        auto tap = [&](int x, int k, int s, int cr) {  // a pixel's own chroma product, floor-shifted
            const Rgb p = pixel(x, k);
            return x < 0 ? 0 : floorShift(cr ? pcr(p.r, p.g, p.b) : pcb(p.r, p.g, p.b), s);
        };
        for (int k = 0; k < h / e.rows && w >= e.minW && h >= e.minH; ++k)
            for (int g = 0; g < w / cols; ++g) {
                std::int64_t sr = 0, sg = 0, sb = 0;
                for (int r = 0; r < e.rows; ++r)
                    for (int c = 0; c < cols; ++c) {
                        const Rgb p = pixel(g * cols + c, k * e.rows + r);
                        putY(g * cols + c, k * e.rows + r, yOf(p, c & 1 ? e.y1Bias : kRounded));
                        sr += p.r, sg += p.g, sb += p.b;
                    }
                for (int cr = 0; cr < 2; ++cr)  // filtered: 1/4, 1/2, 1/4 over 2g-1, 2g, 2g+1, nothing left of the row
                    putC(g, k, cr, e.cols ? chroma(cr ? pcr(sr, sg, sb) : pcb(sr, sg, sb), shift, cr ? e.biasCr : e.biasCb)
                                          : int(floorShift(tap(2 * g, k, 1, cr) + tap(2 * g + 1, k, 2, cr) + tap(2 * g - 1, k, 2, cr) + 8421375, 16) & 255));
            }
        for (int y = 0; y < h && cols == 2 && e.rows == 1 && (w & 1) && w >= e.minW; ++y) {
            putY(w - 1, y, yOf(pixel(w - 1, y), kRounded));  // the last odd pixel; packed: a Cb of its own
            if (e.packed()) putC(w / 2, y, 0, int(floorShift(tap(w - 1, y, 0, 0) + 8421376, 16)));
        }
    }
    // Calls the member; broken: 1 source null, 2 destination null, 3 array of
    // steps null, 4 + i plane i null (the source's, for planar RGB).
    ZorStatus call(int w, int h, int broken = 0, int srcStepDelta = 0) {
        Zor8u* dp[3];
        int ds[3];
        const Zor8u* sp[3];
        for (int i = 0; i < 3; ++i) dp[i] = View{&dst[i], flip}.ptr(), ds[i] = View{&dst[i], flip}.step();
        std::copy_n(flip ? srcPlanes.flippedCptr() : srcPlanes.cptr(), 3, sp);
        Zor8u* d = broken == 2 ? nullptr : dp[0];
        if (broken >= 4) (e.in == In::RgbPlanes ? sp[broken - 4] : const_cast<const Zor8u*&>(dp[broken - 4])) = nullptr;
        const Zor8u* s = broken == 1 ? nullptr : View{&src, flip}.ptr();
        const int ss = (e.in == In::RgbPlanes ? (flip ? -1 : 1) * srcPlanes.step() : View{&src, flip}.step()) + srcStepDelta;
        if (e.in == In::RgbPlanes)
            return reinterpret_cast<ZorStatus (*)(const Zor8u* const*, int, Zor8u*, int, ZoriSize)>(e.fn)(s ? sp : nullptr, ss, d, ds[0], {w, h});
        if (e.packed()) return reinterpret_cast<ZorStatus (*)(const Zor8u*, int, Zor8u*, int, ZoriSize)>(e.fn)(s, ss, d, ds[0], {w, h});
        using P3 = Zor8u* const*;
        if (e.in == In::Rgb || e.in == In::Bgr || e.in == In::Bgra)
            return reinterpret_cast<ZorStatus (*)(const Zor8u*, int, P3, const int*, ZoriSize)>(e.fn)(s, ss, broken == 2 ? nullptr : dp, broken == 3 ? nullptr : ds, {w, h});
        return reinterpret_cast<ZorStatus (*)(const Zor16u*, int, P3, const int*, ZoriSize)>(e.fn)(
            reinterpret_cast<const Zor16u*>(s), ss, broken == 2 ? nullptr : dp, broken == 3 ? nullptr : ds, {w, h});
    }
    ZorStatus expected(int w, int h) const {
        return w < e.minW || h < e.minH ? zorStsBadSize : e.gamma && flip ? zorStsStepErr
               : e.warns && (w % (e.cols ? e.cols : 1) || h % e.rows) ? zorStsOddSizeWarning : zorStsOk;
    }
    bool sameDst(const EncodeImages& o) const { return dst[0] == o.dst[0] && dst[1] == o.dst[1] && dst[2] == o.dst[2]; }
};

// The member against the model on one size.
inline void expectEncoderMatchesModel(const Encoder& e, int w, int h, bool flip, int pad, std::uint32_t seed) {
    SCOPED_TRACE(std::string(e.name) + " " + std::to_string(w) + "x" + std::to_string(h) + " flip " + std::to_string(flip) + " pad " + std::to_string(pad));
    EncodeImages got(e, w, h, flip, pad, seed), want(e, w, h, flip, pad, seed);
    if (want.expected(w, h) >= 0) want.model(w, h);
    EXPECT_EQ(got.call(w, h), want.expected(w, h));
    EXPECT_TRUE(got.sameDst(want));
}

}  // namespace ref
