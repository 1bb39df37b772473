// Three-channel images of the colour twist and gamma functions: their check
// order and their run, serial rows with one value that each call prepares
// once (a copy of the matrix, a curve's range, a table). Their kernels are
// written over the layouts of core/pixels.h: Interleaved<3> (C3),
// Interleaved<4> (C4 and AC4; the three-channel kernels leave the fourth
// sample alone) and Planar (P3).
#pragma once

#include "core/checks.h"
#include "core/image.h"
#include "core/pixels.h"
#include "core/rows.h"

#include <cstddef>

namespace zor {

// Null pointers (the planes and the function's own pointers included), then
// the size, then every step at least 1.
using ChecksWithSteps = Checks<check::Null<kOuter | kPlanes>, check::Size<>, check::Steps>;

// Serial rows of kernel set K, which gets Prep(arguments after the size...),
// made once per call, by value after the width. Every pixel stands alone, so
// contiguous images go as one long row.
template <class Prep, class K>
using PreparedRows = Prepared<Prep, Rows<Serial, K, Fuse<1>>>;

}  // namespace zor
