// Pixel layouts: where the three samples of pixel i of a row are. A kernel
// is written once over these; the layout is a template parameter.
//
//   Interleaved<Stride, C0, C1, C2>  sample k of pixel i at row[i * Stride + Ck]
//                                    (C3 <3>; BGR C3 <3, 2, 1, 0>; AC4 and C4
//                                    stride 4, the fourth sample untouched)
//   Interleaved<4, C0, C1, C2, true> as above, the fourth sample written with a
//                                    fill value
//   Planar                           sample k of pixel i at plane k, index i
#pragma once

#include "core/image.h"

#include <cstddef>

// A scalar kernel over interleaved bytes where the compiler's own
// vectorisation (and its splitting of a loop into one loop per store stream)
// is slower than the plain loop: both are left off for it.
#if defined(__GNUC__) && !defined(__clang__)
#define ZOR_PLAIN_LOOP __attribute__((optimize("no-tree-vectorize", "no-tree-loop-distribution")))
#else
#define ZOR_PLAIN_LOOP
#endif

namespace zor {

template <int Stride, int C0 = 0, int C1 = 1, int C2 = 2, bool Fill = false>
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
    // Sample k of pixel i, in the layout's channel order.
    template <class T>
    static T& at(RowC<T, Stride> r, std::ptrdiff_t i, int k) {
        return r.p[i * Stride + kC[k]];
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
    template <class T>
    static T& at(Row3<T> r, std::ptrdiff_t i, int k) {
        return r.p[k][i];
    }
};

// The row type of layout L over samples T.
template <class L, class T>
using RowOf = typename L::template Row<T>;

}  // namespace zor
