// The library frame shared by every family: argument checks, image row
// addressing and the two row frames (serial and row-parallel).
#pragma once

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

// ---------------------------------------------------------------------------
// Arithmetic helpers for fixed point without undefined behaviour.

// Arithmetic shift right (rounds toward minus infinity) for any sign.
inline constexpr std::int32_t asr(std::int32_t v, int s) {
    return v >= 0 ? (v >> s) : ~((~v) >> s);
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

// Byte saturation by table: entries for every v in -Low..High, holding v
// clamped to 0..255. Each family states the index range of its own table.
template <int Low, int High>
struct ByteSaturation {
    static constexpr std::array<Zor8u, Low + High + 1> make() {
        std::array<Zor8u, Low + High + 1> t{};
        for (int i = 0; i <= Low + High; ++i) {
            const int v = i - Low;
            t[static_cast<std::size_t>(i)] = static_cast<Zor8u>(v < 0 ? 0 : v > 255 ? 255 : v);
        }
        return t;
    }
    static constexpr std::array<Zor8u, Low + High + 1> table = make();
    static Zor8u at(std::int32_t v) { return table[static_cast<std::size_t>(v + Low)]; }
};

// ---------------------------------------------------------------------------
// Row addressing. Steps are signed byte distances; row y of an image starts at
// base + y * step, computed in pointer-sized arithmetic.

template <class T>
inline T* rowAt(T* base, std::ptrdiff_t step, int y) {
    using Byte = std::conditional_t<std::is_const_v<T>, const char, char>;
    return reinterpret_cast<T*>(reinterpret_cast<Byte*>(base) + step * y);
}

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
// Row frames. A body is called once per row index y in [0, height).

// Serial form: rows in ascending order on the calling thread.
template <class Body>
inline void serialRows(int height, Body&& body) {
    for (int y = 0; y < height; ++y) body(y);
}

// Team size of the next parallel region, read once per call.
int teamSize();

// Row-parallel form: a parallel region of threads_omp_of_n_zor threads with a
// statically scheduled loop over the rows (contiguous blocks in thread order).
// Inside an active region with nesting off the runtime serialises the region
// to a team of one, which takes all rows.
template <class Body>
inline void parallelRows(int height, const Body& body) {
    const int team = teamSize();
#pragma omp parallel num_threads(team) shared(body, height) default(none)
    {
        if (height >= 1) {
#pragma omp for schedule(static)
            for (int y = 0; y < height; ++y) body(y);
        }
    }
}

enum class Exec { Serial, Parallel };

template <Exec E, class Body>
inline void forRows(int height, const Body& body) {
    if constexpr (E == Exec::Parallel)
        parallelRows(height, body);
    else
        serialRows(height, body);
}

}  // namespace zor
