// Image arguments: the one vocabulary in which every exported function
// describes its images.
//
//   C<T, N>        interleaved, N samples per pixel (C1, C2, C3, C4 and AC4;
//                  which samples a kernel writes is the kernel's business)
//   P3<T, Steps>   three planes in the order of the model's name, with one
//                  step for all planes or an array of three steps; chroma
//                  planes may be subsampled vertically (V) and horizontally (H)
//   P4<T>          four planes with one step (colour planes and alpha)
//   P2<T>          a luma plane and one plane of interleaved chroma pairs
//
// An argument holds the pointers and steps exactly as the caller passed them,
// so that the checks can look at them in their documented order without
// reading through a null pointer. Only after the checks does the row driver
// ask it for a View, which addresses rows: row y of a plane starts at
// base + y * step, computed in pointer-sized arithmetic. Chroma rows of a
// vertically subsampled image are row y >> V.
//
// The step policy says what a byte step means: Bytes takes it as it is;
// Elements rounds it down to whole samples (an arithmetic shift right by
// log2 of the sample size, so an odd step of a 16-bit image loses its low
// bit and a negative step stays negative).
#pragma once

#include "core/arith.h"

#include <cstddef>
#include <type_traits>

namespace zor {

template <class T>
inline T* rowAt(T* base, std::ptrdiff_t step, std::ptrdiff_t y) {
    using Byte = std::conditional_t<std::is_const_v<T>, const char, char>;
    return reinterpret_cast<T*>(reinterpret_cast<Byte*>(base) + step * y);
}

enum class StepIn { Bytes, Elements };

template <class T, StepIn P>
inline constexpr std::ptrdiff_t effectiveStep(std::ptrdiff_t byteStep) {
    if constexpr (P == StepIn::Bytes || sizeof(T) == 1) {
        return byteStep;
    } else {
        constexpr int kShift = sizeof(T) == 2 ? 1 : sizeof(T) == 4 ? 2 : 3;
        // Floor division by the sample size (an arithmetic shift) without
        // shifting a negative value.
        const std::ptrdiff_t whole = byteStep >= 0 ? (byteStep >> kShift) : -((-byteStep + (1 << kShift) - 1) >> kShift);
        return whole * static_cast<std::ptrdiff_t>(sizeof(T));
    }
}

// What a null test looks at: the argument's own pointer (or plane array), its
// array of steps, the plane pointers inside the array. Within one test the
// order does not matter: any null gives the same status.
enum NullWhat : unsigned { kOuter = 1, kStepArray = 2, kPlanes = 4 };

// ---------------------------------------------------------------------------
// Rows as the row kernels receive them. Each carries its geometry in its
// type, so that a test can build the exact extent of any kernel's rows.

// A row of pixels of N interleaved samples.
template <class T, int N>
struct RowC {
    T* p;
};

// A row of three planes; planes 1 and 2 hold one sample per H pixels
// (rounded up).
template <class T, int H = 1>
struct Row3 {
    T* p[3];
};

// A row of a luma plane and an interleaved chroma plane that holds one
// Cb, Cr pair per H pixels.
template <class T, int H = 2>
struct Row2 {
    T* y;
    T* c;
};

// The samples per pixel of an interleaved row as a value the compiler
// cannot see through. With a constant stride of 3 the baseline instruction
// set has no shuffle to gather the channels, so loops over C3 rows stay
// scalar (with a branch per clamp); with a stride known only at run time the
// compiler vectorises them with element-wise loads and masks, as it did when
// the C3 and AC4 members shared one kernel with a channel count.
inline std::ptrdiff_t runtimeStride(int n) {
    std::ptrdiff_t v = n;
#if defined(__GNUC__)
    __asm__("" : "+r"(v));
#endif
    return v;
}

// ---------------------------------------------------------------------------
// Interleaved

template <class T, int N, StepIn P = StepIn::Bytes>
struct C {
    using Sample = T;
    using Row = RowC<T, N>;
    static constexpr int kSamples = N;
    static constexpr bool kImage = true;

    T* p;
    std::ptrdiff_t step;  // in bytes, as passed

    // A packed whole image of the given width: rows follow each other.
    static C whole(T* p, ZoriSize img) {
        return {p, static_cast<std::ptrdiff_t>(N * sizeof(T)) * img.width};
    }

    bool isNull(unsigned what) const { return (what & kOuter) && p == nullptr; }
    bool badStep() const { return step < 1; }

    struct View {
        T* p;
        std::ptrdiff_t step;
        Row row(std::ptrdiff_t y) const { return {rowAt(p, step, y)}; }
        bool contiguous(std::ptrdiff_t width) const {
            return step == width * N * static_cast<std::ptrdiff_t>(sizeof(T));
        }
    };
    View view() const { return {p, effectiveStep<T, P>(step)}; }
};

// ---------------------------------------------------------------------------
// Three planes

enum class Steps { One, Three };

template <class T, Steps S, int V = 0, int H = 1, StepIn P = StepIn::Bytes>
struct P3 {
    using Sample = T;
    using Row = Row3<T, H>;
    static constexpr bool kImage = true;

    T* const* planes;
    const int* steps = nullptr;  // Steps::Three
    std::ptrdiff_t step = 0;     // Steps::One, and the implied steps below
    std::ptrdiff_t implied[3] = {0, 0, 0};
    bool isImplied = false;

    // A whole image whose planes are packed, chroma planes chromaWidth wide.
    static P3 whole(T* const* planes, std::ptrdiff_t lumaWidth, std::ptrdiff_t chromaWidth) {
        P3 a{planes};
        const std::ptrdiff_t b = static_cast<std::ptrdiff_t>(sizeof(T));
        a.implied[0] = lumaWidth * b;
        a.implied[1] = a.implied[2] = chromaWidth * b;
        a.isImplied = true;
        return a;
    }

    bool isNull(unsigned what) const {
        if (planes == nullptr) return what & kOuter;
        if ((what & kStepArray) && S == Steps::Three && !isImplied && steps == nullptr) return true;
        return (what & kPlanes) && (planes[0] == nullptr || planes[1] == nullptr || planes[2] == nullptr);
    }
    bool badStep() const {
        if constexpr (S == Steps::One) return !isImplied && step < 1;
        return isImplied ? false : (steps[0] < 1 || steps[1] < 1 || steps[2] < 1);
    }

    struct View {
        T* base[3];
        std::ptrdiff_t s[3];
        Row row(std::ptrdiff_t y) const {
            const std::ptrdiff_t c = y >> V;
            return {{rowAt(base[0], s[0], y), rowAt(base[1], s[1], c), rowAt(base[2], s[2], c)}};
        }
        bool contiguous(std::ptrdiff_t width) const {
            const std::ptrdiff_t b = static_cast<std::ptrdiff_t>(sizeof(T));
            const std::ptrdiff_t c = (width + H - 1) / H * b;
            return V == 0 && s[0] == width * b && s[1] == c && s[2] == c;
        }
    };
    View view() const {
        View v{{planes[0], planes[1], planes[2]}, {}};
        for (int k = 0; k < 3; ++k) {
            const std::ptrdiff_t raw = isImplied ? implied[k] : S == Steps::Three ? steps[k] : step;
            v.s[k] = effectiveStep<T, P>(raw);
        }
        return v;
    }
};

// ---------------------------------------------------------------------------
// Four planes with one step (colour planes and an alpha plane)

template <class T>
struct Row4 {
    T* p[4];
};

template <class T, StepIn P = StepIn::Bytes>
struct P4 {
    using Sample = T;
    using Row = Row4<T>;
    static constexpr bool kImage = true;

    T* const* planes;
    std::ptrdiff_t step;  // in bytes, as passed

    bool isNull(unsigned what) const {
        if (planes == nullptr) return what & kOuter;
        return (what & kPlanes) &&
               (planes[0] == nullptr || planes[1] == nullptr || planes[2] == nullptr || planes[3] == nullptr);
    }
    bool badStep() const { return step < 1; }

    struct View {
        T* base[4];
        std::ptrdiff_t s;
        Row row(std::ptrdiff_t y) const {
            return {{rowAt(base[0], s, y), rowAt(base[1], s, y), rowAt(base[2], s, y), rowAt(base[3], s, y)}};
        }
        bool contiguous(std::ptrdiff_t width) const { return s == width * static_cast<std::ptrdiff_t>(sizeof(T)); }
    };
    View view() const { return {{planes[0], planes[1], planes[2], planes[3]}, effectiveStep<T, P>(step)}; }
};

// ---------------------------------------------------------------------------
// Semi-planar: luma plane and interleaved chroma plane (Cb at even bytes).

template <class T, int V = 0, int H = 2>
struct P2 {
    using Sample = T;
    using Row = Row2<T, H>;
    static constexpr bool kImage = true;

    T* y;
    std::ptrdiff_t yStep;
    T* c;
    std::ptrdiff_t cStep;

    bool isNull(unsigned what) const { return (what & kOuter) && (y == nullptr || c == nullptr); }
    bool badStep() const { return yStep < 1 || cStep < 1; }

    struct View {
        T* y;
        std::ptrdiff_t ys;
        T* c;
        std::ptrdiff_t cs;
        Row row(std::ptrdiff_t r) const { return {rowAt(y, ys, r), rowAt(c, cs, r >> V)}; }
        bool contiguous(std::ptrdiff_t width) const {
            return V == 0 && ys == width && cs == 2 * ((width + H - 1) / H);
        }
    };
    View view() const { return {y, yStep, c, cStep}; }
};

// ---------------------------------------------------------------------------
// Function-specific arguments: a pointer that the null test covers, and a
// plain value that no check looks at.

template <class T>
struct Ptr {
    static constexpr bool kImage = false;
    T* p;
    bool isNull(unsigned what) const { return (what & kOuter) && p == nullptr; }
    bool badStep() const { return false; }
    T* value() const { return p; }
};

template <class T>
struct Value {
    static constexpr bool kImage = false;
    T v;
    bool isNull(unsigned) const { return false; }
    bool badStep() const { return false; }
    T value() const { return v; }
};

}  // namespace zor
