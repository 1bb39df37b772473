// The row-parallel frame of the three-channel colour models (XYZ, LUV, Lab,
// PhotoYCC, HLS, HSV): a kernel converts one row of `width` pixels whose
// samples are `channels` apart (3 for C3, 4 for AC4) and writes channels 0..2
// only, so the AC4 members reuse the C3 kernel.
#pragma once

#include "core/frame.h"

#include <cstddef>

namespace zor {

template <class S, class D = S>
using ChannelKernel = void (*)(const S* src, D* dst, int width, int channels);

// Worker of one conversion: steps in elements of the sample types.
template <class S, class D = S>
using ChannelWorker = void (*)(const S* src, int srcStep, D* dst, int dstStep, int width, int height, int channels);

// Rows in parallel, steps in elements.
template <class S, class D = S>
void channelRows(ChannelKernel<S, D> kernel, const S* src, int srcStep, D* dst, int dstStep, int width, int height,
                 int channels) {
    const std::ptrdiff_t ss = static_cast<std::ptrdiff_t>(srcStep) * static_cast<std::ptrdiff_t>(sizeof(S));
    const std::ptrdiff_t ds = static_cast<std::ptrdiff_t>(dstStep) * static_cast<std::ptrdiff_t>(sizeof(D));
    parallelRows(height, [&](int y) { kernel(rowAt(src, ss, y), rowAt(dst, ds, y), width, channels); });
}

// Rows in parallel, steps in bytes as given.
template <class S, class D = S>
void channelRowsBytes(ChannelKernel<S, D> kernel, const S* src, int srcStep, D* dst, int dstStep, int width,
                      int height, int channels) {
    parallelRows(height,
                 [&](int y) { kernel(rowAt(src, srcStep, y), rowAt(dst, dstStep, y), width, channels); });
}

// Body of the exported functions: null pointers, then the size (steps are
// not validated), then the worker with steps in elements.
template <class S, class D = S>
inline ZorStatus channelEntry(ChannelWorker<S, D> worker, const S* pSrc, int srcStep, D* pDst, int dstStep,
                              ZoriSize roi, int channels) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roi)) return zorStsBadSize;
    worker(pSrc, elementStep<S>(srcStep), pDst, elementStep<D>(dstStep), roi.width, roi.height, channels);
    return zorStsOk;
}

}  // namespace zor
