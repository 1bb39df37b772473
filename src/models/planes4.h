// Four planes sharing one step (B, G, R, A or H, L, S, A): the image argument,
// its row and its export groups, in the vocabulary of core/image.h.
#pragma once

#include "core/image.h"

#include <cstddef>

namespace zor {

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

}  // namespace zor

#define ZOR_DECL_IN_P4(T) const T *const pSrc[4], int srcStep
#define ZOR_EXPR_IN_P4(T) ::zor::P4<const T>{pSrc, srcStep}
#define ZOR_DECL_OUT_P4(T) T *const pDst[4], int dstStep
#define ZOR_EXPR_OUT_P4(T) ::zor::P4<T>{pDst, dstStep}
