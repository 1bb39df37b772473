// Pixel layouts of the video conversions: where the three samples of pixel i
// of a row are. A kernel is written once over these; the layout is a
// template parameter.
//
//   Interleaved<Stride, C0, C1, C2>  sample k of pixel i at row[i * Stride + Ck]
//                                    (RGB C3: <3, 0, 1, 2>; BGR C3: <3, 2, 1, 0>;
//                                    AC4: stride 4, the fourth byte untouched)
//   Interleaved<4, C0, C1, C2, true> as above, the fourth byte written with a
//                                    fill value (aval)
//   Planar                           sample k of pixel i at plane k, index i
//
// For an RGB side the samples are R, G, B; for a YCbCr side Y, Cb, Cr.
#pragma once

#include "core/image.h"

// A scalar kernel over interleaved bytes where the compiler's own
// vectorisation (and its splitting of a loop into one loop per store stream)
// is slower than the plain loop: both are left off for it.
#if defined(__GNUC__) && !defined(__clang__)
#define ZOR_PLAIN_LOOP __attribute__((optimize("no-tree-vectorize", "no-tree-loop-distribution")))
#else
#define ZOR_PLAIN_LOOP
#endif

namespace zor {

template <int Stride, int C0, int C1, int C2, bool Fill = false>
struct Interleaved {
    template <class T>
    using Row = RowC<T, Stride>;
    static constexpr int kStride = Stride;
    static constexpr int kC[3] = {C0, C1, C2};
    static constexpr bool kFill = Fill;

    template <class T>
    static void get(RowC<const T, Stride> r, std::ptrdiff_t i, int& a, int& b, int& c) {
        const T* p = r.p + i * Stride;
        a = p[C0];
        b = p[C1];
        c = p[C2];
    }
    template <class T>
    static void put(RowC<T, Stride> r, std::ptrdiff_t i, T a, T b, T c, T fill = 0) {
        T* p = r.p + i * Stride;
        p[C0] = a;
        p[C1] = b;
        p[C2] = c;
        if constexpr (Fill) p[3] = fill;
    }
    template <class T>
    static RowC<T, Stride> advance(RowC<T, Stride> r, std::ptrdiff_t n) {
        return {r.p + n * Stride};
    }
};

struct Planar {
    template <class T>
    using Row = Row3<T>;
    static constexpr int kStride = 1;
    static constexpr bool kFill = false;

    template <class T>
    static void get(Row3<const T> r, std::ptrdiff_t i, int& a, int& b, int& c) {
        a = r.p[0][i];
        b = r.p[1][i];
        c = r.p[2][i];
    }
    template <class T>
    static void put(Row3<T> r, std::ptrdiff_t i, T a, T b, T c, T = 0) {
        r.p[0][i] = a;
        r.p[1][i] = b;
        r.p[2][i] = c;
    }
    template <class T>
    static Row3<T> advance(Row3<T> r, std::ptrdiff_t n) {
        return {{r.p[0] + n, r.p[1] + n, r.p[2] + n}};
    }
};

using PixC3 = Interleaved<3, 0, 1, 2>;       // RGB or YCbCr, three bytes
using PixAC4 = Interleaved<4, 0, 1, 2>;      // the same with an untouched fourth byte
using PixBgrC3 = Interleaved<3, 2, 1, 0>;    // B, G, R
using PixBgrAC4 = Interleaved<4, 2, 1, 0>;   // B, G, R, alpha untouched
using PixBgrC4 = Interleaved<4, 2, 1, 0, true>;  // B, G, R, fill value
using PixP3 = Planar;

// Sample orders of packed 4:2:2: byte offsets inside a pair's four bytes. In
// both orders the first two bytes hold one Y and the Cb.
struct OrderYCbCr {
    static constexpr int kY0 = 0, kCb = 1, kY1 = 2, kCr = 3;
};
struct OrderCbYCr {
    static constexpr int kCb = 0, kY0 = 1, kCr = 2, kY1 = 3;
};

// The row type of layout L over samples T.
template <class L, class T>
using RowOf = typename L::template Row<T>;

}  // namespace zor
