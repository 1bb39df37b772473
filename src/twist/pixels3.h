// Three-channel images of the colour twist and gamma functions: the pixel
// layouts their kernels are written over, their check order, and their run:
// serial rows with one value that each call prepares once (a copy of the
// matrix, a curve's range, a table).
//
//   Chans<3>  C3: three interleaved samples per pixel
//   Chans<4>  C4 and AC4: four per pixel (the three-channel kernels leave the
//             fourth alone)
//   Planes    P3: sample k of pixel i at plane k, index i
#pragma once

#include "core/checks.h"
#include "core/image.h"
#include "core/rows.h"

#include <cstddef>

namespace zor {

template <int N>
struct Chans {
    template <class T>
    using Row = RowC<T, N>;
    template <class T>
    static T& at(RowC<T, N> r, std::ptrdiff_t i, int k) {
        return r.p[i * N + k];
    }
};

struct Planes {
    template <class T>
    using Row = Row3<T>;
    template <class T>
    static T& at(Row3<T> r, std::ptrdiff_t i, int k) {
        return r.p[k][i];
    }
};

// The row type of layout L over samples T (the video layouts call it RowOf).
template <class L, class T>
using RowIn = typename L::template Row<T>;

// Null pointers (the planes and the function's own pointers included), then
// the size, then every step at least 1.
using ChecksWithSteps = Checks<check::Null<kOuter | kPlanes>, check::Size<>, check::Steps>;

// Serial rows of kernel set K, which gets Prep(arguments after the size...),
// made once per call, by value after the width. Every pixel stands alone, so
// contiguous images go as one long row.
template <class Prep, class K>
using PreparedRows = Prepared<Prep, Rows<Serial, K, Fuse<1>>>;

}  // namespace zor
