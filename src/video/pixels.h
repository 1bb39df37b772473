// Pixel layouts of the video conversions: the RGB/BGR and YCbCr sides in
// the generic layouts of core/pixels.h, and the sample orders of packed
// 4:2:2. For an RGB side the samples are R, G, B; for a YCbCr side Y, Cb, Cr.
#pragma once

#include "core/pixels.h"

namespace zor {

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

}  // namespace zor
