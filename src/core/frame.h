// The library frame shared by every family: arithmetic, image arguments,
// checks and the row driver, plus the older helpers of the code that does
// not use the export table yet.
#pragma once

#include "core/arith.h"
#include "core/export.h"
#include "core/image.h"
#include "core/kernel_set.h"
#include "core/rows.h"
#include "zorcc.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace zor {

// ---------------------------------------------------------------------------
// Checks

template <class... P>
inline bool anyNull(const P*... p) {
    return ((p == nullptr) || ...);
}

inline bool badSize(ZoriSize roi, int minWidth = 1, int minHeight = 1) {
    return roi.width < minWidth || roi.height < minHeight;
}

template <class... S>
inline bool anyBadStep(S... steps) {
    return ((steps < 1) || ...);
}

// A byte step as a count of elements of T (arithmetic shift: a step that is
// not a whole number of elements loses its low bits, a negative one stays
// negative).
template <class T>
inline int elementStep(int byteStep) {
    static_assert(sizeof(T) == 1 || sizeof(T) == 2 || sizeof(T) == 4, "sample size");
    return asr(byteStep, sizeof(T) == 1 ? 0 : sizeof(T) == 2 ? 1 : 2);
}

// The same step in bytes again, rounded down to whole elements.
template <class T>
inline std::ptrdiff_t wholeElementBytes(int byteStep) {
    return static_cast<std::ptrdiff_t>(elementStep<T>(byteStep)) * static_cast<std::ptrdiff_t>(sizeof(T));
}

// ---------------------------------------------------------------------------
// Row addressing. Steps are signed byte distances; row y of an image starts at
// base + y * step, computed in pointer-sized arithmetic.

// One image plane (or interleaved image): first sample of the region and the
// row step in bytes.
template <class T>
struct Plane {
    T* base;
    std::ptrdiff_t step;
    T* row(int y) const { return rowAt(base, step, y); }
};

template <class T>
inline Plane<T> plane(T* base, int step) {
    return Plane<T>{base, step};
}

// ---------------------------------------------------------------------------
// Row frames of the code not yet on the row driver (core/rows.h).

template <class Body>
inline void serialRows(int height, Body&& body) {
    forRows<Serial>(height, body);
}

template <class Body>
inline void parallelRows(int height, const Body& body) {
    forRows<Parallel>(height, body);
}

}  // namespace zor
