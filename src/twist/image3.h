// Three-channel images of the colour twist and gamma functions (C3, AC4, P3
// and their in-place forms), their argument checks and the shared row
// kernels. A pixel operation receives the three input samples of a pixel by
// value and writes the three outputs, so every input of a pixel is read
// before any output is written and the in-place forms give the same result
// as the others. In AC4 images the fourth sample is neither read nor written.
#pragma once

#include "core/frame.h"

#include <cstddef>

namespace zor {

// ---------------------------------------------------------------------------
// Row kernels

// n pixels of an interleaved row with Stride samples per pixel.
template <int Stride, class T, class Op>
void innerPixels3(const T* src, T* dst, std::ptrdiff_t n, const Op& shared) {
    const Op op = shared;  // a local copy the stores cannot alias
    for (std::ptrdiff_t i = 0; i < n; ++i, src += Stride, dst += Stride) op(src[0], src[1], src[2], dst[0], dst[1], dst[2]);
}

// n pixels of a planar row.
template <class T, class Op>
void innerPlanes3(const T* s0, const T* s1, const T* s2, T* d0, T* d1, T* d2, std::ptrdiff_t n, const Op& shared) {
    const Op op = shared;
    for (std::ptrdiff_t i = 0; i < n; ++i) op(s0[i], s1[i], s2[i], d0[i], d1[i], d2[i]);
}

// ---------------------------------------------------------------------------
// Image descriptions. Both kinds offer the null test (outer pointers and plane
// pointers), the step test and a serial row loop over a pixel operation.

template <class T, int Stride>
struct Interleaved3 {
    using Sample = T;
    const T* src;
    int srcStep;
    T* dst;
    int dstStep;

    bool anyNullPtr() const { return anyNull(src, dst); }
    bool anyBadStep() const { return zor::anyBadStep(srcStep, dstStep); }

    // Packed rows: both steps equal one row of whole pixels, so the image can
    // be taken as one run of width x height pixels.
    bool packed(ZoriSize roi) const {
        const long long row = static_cast<long long>(Stride) * static_cast<long long>(sizeof(T)) * roi.width;
        return srcStep == dstStep && srcStep == row;
    }

    template <class Op>
    void run(ZoriSize roi, const Op& op) const {
        const Plane<const T> s = plane(src, srcStep);
        const Plane<T> d = plane(dst, dstStep);
        serialRows(roi.height, [&](int y) { innerPixels3<Stride>(s.row(y), d.row(y), roi.width, op); });
    }

    template <class Op>
    void runOnce(ZoriSize roi, const Op& op) const {
        innerPixels3<Stride>(src, dst, static_cast<std::ptrdiff_t>(roi.width) * roi.height, op);
    }
};

template <class T>
struct Planar3 {
    using Sample = T;
    const T* const* src;
    int srcStep;
    T* const* dst;
    int dstStep;

    bool anyNullPtr() const {
        return anyNull(src, dst) || anyNull(src[0], src[1], src[2]) || anyNull(dst[0], dst[1], dst[2]);
    }
    bool anyBadStep() const { return zor::anyBadStep(srcStep, dstStep); }

    template <class Op>
    void run(ZoriSize roi, const Op& op) const {
        const std::ptrdiff_t ss = srcStep, ds = dstStep;
        serialRows(roi.height, [&](int y) {
            innerPlanes3(rowAt(src[0], ss, y), rowAt(src[1], ss, y), rowAt(src[2], ss, y), rowAt(dst[0], ds, y),
                         rowAt(dst[1], ds, y), rowAt(dst[2], ds, y), roi.width, op);
        });
    }
};

// In-place forms: one pointer (or plane array) and one step for both sides.
template <class T, int Stride>
inline Interleaved3<T, Stride> inPlace(T* p, int step) {
    return {p, step, p, step};
}

template <class T>
inline Planar3<T> inPlace(T* const* p, int step) {
    return {p, step, p, step};
}

// The checks of this family: null pointers, then the size, then the steps.
// `moreNull` adds the function's own pointers (the twist matrix) to the first.
template <class Img>
inline ZorStatus checkImage(const Img& img, ZoriSize roi, bool moreNull = false) {
    if (moreNull || img.anyNullPtr()) return zorStsNullPtr;
    if (badSize(roi)) return zorStsBadSize;
    if (img.anyBadStep()) return zorStsStepErr;
    return zorStsOk;
}

}  // namespace zor
