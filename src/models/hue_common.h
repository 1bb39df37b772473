// Pieces shared by the hue models (HLS, HSV): code quantisers, element steps
// and the row-parallel frame of the interleaved RGB-ordered functions.
#pragma once

#include <array>
#include <cstddef>

#include "core/frame.h"

namespace zor {

// Single-precision machine epsilon: the float kernels' chroma threshold.
constexpr float kFltEpsilon = 1.1920929e-7f;

// Rounding quantiser of the RGB family and of HSV: the bias is added in
// float, so a product just below a half-integer can round up (127.5 gives
// 128), and the sum is truncated toward zero.
struct RoundCode {
    static int code(float scaled) { return static_cast<int>(scaled + 0.499999f); }
};

// Flooring quantiser of the planar BGR HLS layouts: the float product is
// widened to double and nudged by 1e-7 before truncation (127.5 gives 127).
struct FloorCode {
    static int code(float scaled) { return static_cast<int>(static_cast<double>(scaled) + 1e-7); }
};

// Per-code tables of 8-bit float quotients: the very values the division
// would give, looked up instead of divided.
template <class F>
inline std::array<float, 256> table8u(F f) {
    std::array<float, 256> t{};
    for (int v = 0; v < 256; ++v) t[v] = f(v);
    return t;
}

// v / 255
inline const std::array<float, 256> kUnit8u = table8u([](int v) { return static_cast<float>(v) / 255.0f; });
// v * 360 / 255
inline const std::array<float, 256> kDegrees8u = table8u([](int v) { return static_cast<float>(v) * 360.0f / 255.0f; });

// Byte step to a step in samples of T (arithmetic shift: an odd byte step of
// a 16-bit image loses its low bit).
template <class T>
inline int stepInElements(int byteStep) {
    constexpr int shift = sizeof(T) == 1 ? 0 : sizeof(T) == 2 ? 1 : 2;
    return asr(byteStep, shift);
}

// Row kernel of an interleaved conversion that handles channels 0..2 of
// pixels `channels` samples apart (3 for C3, 4 for AC4).
template <class T>
using ChannelRowFn = void (*)(const T* src, T* dst, int width, int channels);

// Worker of an interleaved conversion: steps in samples.
template <class T>
using ChannelWorkerFn = void (*)(const T* src, int srcStep, T* dst, int dstStep, int width, int height, int channels);

// Row-parallel loop of an interleaved worker.
template <class T>
inline void channelRows(ChannelRowFn<T> kernel, const T* src, int srcStep, T* dst, int dstStep, int width, int height,
                        int channels) {
    const std::ptrdiff_t ss = srcStep, ds = dstStep;
    parallelRows(height, [&](int y) { kernel(src + ss * y, dst + ds * y, width, channels); });
}

// Exported-function body of the interleaved RGB-ordered members: pointers,
// then size; steps are not validated.
template <class T>
inline ZorStatus channelEntry(ChannelWorkerFn<T> worker, const T* pSrc, int srcStep, T* pDst, int dstStep, ZoriSize roi,
                              int channels) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roi)) return zorStsBadSize;
    worker(pSrc, stepInElements<T>(srcStep), pDst, stepInElements<T>(dstStep), roi.width, roi.height, channels);
    return zorStsOk;
}

}  // namespace zor
