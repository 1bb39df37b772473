// Error diffusion by sections. A section owns a contiguous range of channels
// and runs them one after another, every row of one channel before the next,
// with its error rows carried over from channel to channel: one chain of
// "global rows" g = (c - first) * height + y, each row taking the errors of
// the one or two rows before it in the chain.
//
// The scalar kernel walks the chain row by row. The vector kernels
// (reducebits/diffuse_hwy.cpp) run 32 or 64 global rows at once as a skewed
// wavefront: at step t lane j works on column t - kSkew * j of row j, so the
// errors it needs from the rows above were made by lanes j - 1 and j - 2 a
// few steps earlier. The scalar kernel needs diffuseScratch<Method>(width,
// false) floats of working memory, the vector kernels (width, true).
#pragma once

#include "core/image.h"
#include "core/kernel_set.h"
#include "core/rows.h"
#include "reducebits/kernels.h"

#include <algorithm>
#include <cstdint>
#include <type_traits>

namespace zor {

// The images of one call: rows at base + y * step (step in bytes), n
// samples per pixel, the channel c of a pixel at offset c.
template <class Tr>
struct DiffuseArea {
    const typename Tr::Src* src;
    std::ptrdiff_t srcStep;
    typename Tr::Dst* dst;
    std::ptrdiff_t dstStep;
    int n, width, height;
};

// The wavefront's layout in the working memory, in floats, for waves of
// Rows rows: an error tile of kPre + steps rows of Rows + 2 (two slots for
// the errors of the two rows before the wave, then one per lane), the
// sample tile and the threshold tile of steps rows of Rows, and the last two
// error rows of the wave before.
template <class Method, int Rows>
struct Wave {
    static constexpr int kPre = Method::kGuard + (Method::kRows - 1) * Method::kSkew;
    static constexpr int kStride = Rows + 2;
    static std::int64_t steps(int width) { return static_cast<std::int64_t>(width) + Method::kSkew * (Rows - 1); }
    static std::int64_t errLen(int width) { return (kPre + steps(width)) * kStride; }
    static std::int64_t tileLen(int width) { return steps(width) * Rows; }
    static std::int64_t len(int width) {
        return errLen(width) + 2 * tileLen(width) + 2 * static_cast<std::int64_t>(width);
    }
};

// Floats of working memory of one section.
template <class Method>
std::int64_t diffuseScratch(int width, bool waves) {
    const std::int64_t rows = Method::kRows * Method::rowLen(width);
    return waves ? std::max({rows, Wave<Method, 32>::len(width), Wave<Method, 64>::len(width)}) : rows;
}

template <class Tr, class Method, class Th, int N>
void diffuseRows(const DiffuseArea<Tr>& a, int first, int end, const Quant& q, const Th& th, float* scratch) {
    const std::int64_t rowLen = Method::rowLen(a.width);
    std::fill(scratch, scratch + Method::kRows * rowLen, 0.0f);
    float* e[Method::kRows];
    for (int i = 0; i < Method::kRows; ++i) e[i] = scratch + i * rowLen + Method::kGuard;
    for (int c = first; c < end; ++c)
        forRows<Serial>(a.height, [&](int y) {
            Method::template kernel<Tr, N, Th>(rowAt(a.src, a.srcStep, y) + c, rowAt(a.dst, a.dstStep, y) + c, e,
                                               a.width, y, q, th);
            std::rotate(e, e + 1, e + Method::kRows);
        });
}

// Calls f with the samples per pixel as a constant (1, 3 or 4).
template <class F>
inline void withSamples(int n, const F& f) {
    if (n == 1)
        f(std::integral_constant<int, 1>());
    else if (n == 3)
        f(std::integral_constant<int, 3>());
    else
        f(std::integral_constant<int, 4>());
}

// One section, channels [first, end): clears its error rows and runs the
// chain row by row.
template <class Tr, class Method, class Th>
void diffuseSection(const DiffuseArea<Tr>& a, int first, int end, const Quant& q, const Th& th, float* scratch) {
    withSamples(a.n, [&](auto samples) { diffuseRows<Tr, Method, Th, decltype(samples)::value>(a, first, end, q, th, scratch); });
}

// The shapes: every type pair, method and threshold.
#define ZOR_RB_DIFFUSE_TYPE(X, name, Tr)                                        \
    X(name##Fs, diffuseSection, (Tr, Fs, HalfStep))                             \
    X(name##FsNoise, diffuseSection, (Tr, Fs, NoiseThreshold))                  \
    X(name##Stucki, diffuseSection, (Tr, TwoRows<Stucki>, HalfStep))            \
    X(name##StuckiNoise, diffuseSection, (Tr, TwoRows<Stucki>, NoiseThreshold)) \
    X(name##Jjn, diffuseSection, (Tr, TwoRows<Jjn>, HalfStep))                  \
    X(name##JjnNoise, diffuseSection, (Tr, TwoRows<Jjn>, NoiseThreshold))
#define ZOR_RB_DIFFUSE(X)                                                               \
    ZOR_RB_DIFFUSE_TYPE(X, d8u, Rb8u)                                                   \
    ZOR_RB_DIFFUSE_TYPE(X, d16u, Rb16u)                                                 \
    ZOR_RB_DIFFUSE_TYPE(X, d16s, Rb16s) ZOR_RB_DIFFUSE_TYPE(X, d16u8u, Rb16u8u)         \
        ZOR_RB_DIFFUSE_TYPE(X, d16s8u, Rb16s8u) ZOR_RB_DIFFUSE_TYPE(X, d32f8u, Rb32f8u) \
            ZOR_RB_DIFFUSE_TYPE(X, d32f16u, Rb32f16u) ZOR_RB_DIFFUSE_TYPE(X, d32f16s, Rb32f16s)

ZOR_KERNEL_TABLE(DiffuseKernels, ZOR_RB_DIFFUSE, kDiffuseScalar, diffuseTables, DiffuseK)

template <class Tr, class Method, class Th>
struct DiffuseShape;
#define ZOR_RB_DIFFUSE_SHAPE(name, fn, args)                  \
    template <>                                               \
    struct DiffuseShape<ZOR_STRIP args> {                     \
        static constexpr auto member = &DiffuseKernels::name; \
    };
ZOR_RB_DIFFUSE(ZOR_RB_DIFFUSE_SHAPE)
#undef ZOR_RB_DIFFUSE_SHAPE
template <class Tr, class Method, class Th>
using DiffuseKernel = DiffuseK<DiffuseShape<Tr, Method, Th>::member>;

}  // namespace zor
