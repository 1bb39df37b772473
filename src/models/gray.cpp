// Colour to gray: the weighted sum of channels 0..2 (RGBToGray with fixed
// weights, ColorToGray with the caller's). Serial rows. One worker per sample
// type serves both families and both source layouts (C3, AC4).
#include <cstdint>
#include <type_traits>

#include "models/hue_common.h"

namespace zor {

namespace {

constexpr float kGrayWeights[3] = {0.299f, 0.587f, 0.114f};
constexpr std::uint32_t kGrayWeights8u[3] = {1225, 2404, 467};  // 1/4096 units, sum 4096

// Float to int32 truncating toward zero; a value outside the int32 range
// (or NaN) gives INT32_MIN, as the processor's truncating conversion does.
inline std::int32_t truncToInt32(double v) {
    if (!(v > -2147483649.0 && v < 2147483648.0)) return INT32_MIN;
    return static_cast<std::int32_t>(v);
}

// Caller weight to 12-bit fixed point; negative weights wrap through the
// unsigned product sum.
inline std::uint32_t fixedWeight(float c) {
    return static_cast<std::uint32_t>(truncToInt32(static_cast<double>(c) * 4096.0 + 0.5));
}

template <class T>
constexpr int kGrayOffset = std::is_signed<T>::value ? 32768 : 0;

// 16-bit sums: truncated toward zero, low 16 bits kept (16s: offset removed).
template <class T>
inline T grayCode(float sum) {
    return static_cast<T>(static_cast<std::uint32_t>(truncToInt32(sum)) - static_cast<std::uint32_t>(kGrayOffset<T>));
}

template <class T>
void grayRow(const T* src, T* dst, int width, const float* w, int channels) {
    for (int i = 0; i < width; ++i, src += channels) {
        const float c0 = static_cast<float>(src[0] + kGrayOffset<T>);
        const float c1 = static_cast<float>(src[1] + kGrayOffset<T>);
        const float c2 = static_cast<float>(src[2] + kGrayOffset<T>);
        dst[i] = grayCode<T>(w[0] * c0 + w[1] * c1 + w[2] * c2);
    }
}

template <class T>
using GrayRowFn = void (*)(const T*, T*, int, const float*, int);

// Worker shape shared by the float-weighted types: steps in samples.
template <class T>
void grayRows(GrayRowFn<T> kernel, const T* src, int srcStep, T* dst, int dstStep, int width, int height,
              const float* weights, int channels) {
    const float* w = weights ? weights : kGrayWeights;
    const std::ptrdiff_t ss = srcStep, ds = dstStep;
    serialRows(height, [&](int y) { kernel(src + ss * y, dst + ds * y, width, w, channels); });
}

}  // namespace

// 8u: unsigned 32-bit product sum of 12-bit weights, shifted right by 12;
// no rounding and no clamp, the low 8 bits are stored.
void innerRGBToGray_8u_C3C1R(const Zor8u* src, Zor8u* dst, int width, const std::uint32_t* w, int channels) {
    for (int i = 0; i < width; ++i, src += channels)
        dst[i] = static_cast<Zor8u>((w[0] * src[0] + w[1] * src[1] + w[2] * src[2]) >> 12);
}

void innerRGBToGray_16u_C3C1R(const Zor16u* s, Zor16u* d, int width, const float* w, int channels) {
    grayRow(s, d, width, w, channels);
}
void innerRGBToGray_16s_C3C1R(const Zor16s* s, Zor16s* d, int width, const float* w, int channels) {
    grayRow(s, d, width, w, channels);
}
void innerRGBToGray_32f_C3C1R(const Zor32f* src, Zor32f* dst, int width, const float* w, int channels) {
    for (int i = 0; i < width; ++i, src += channels) dst[i] = w[0] * src[0] + w[1] * src[1] + w[2] * src[2];
}

void myRGBToGray_8u_C3C1R(const Zor8u* src, int srcStep, Zor8u* dst, int dstStep, int width, int height,
                          const float* weights, int channels) {
    std::uint32_t w[3] = {kGrayWeights8u[0], kGrayWeights8u[1], kGrayWeights8u[2]};
    if (weights)
        for (int k = 0; k < 3; ++k) w[k] = fixedWeight(weights[k]);
    const std::ptrdiff_t ss = srcStep, ds = dstStep;
    serialRows(height, [&](int y) { innerRGBToGray_8u_C3C1R(src + ss * y, dst + ds * y, width, w, channels); });
}
void myRGBToGray_16u_C3C1R(const Zor16u* src, int srcStep, Zor16u* dst, int dstStep, int width, int height,
                           const float* weights, int channels) {
    grayRows<Zor16u>(innerRGBToGray_16u_C3C1R, src, srcStep, dst, dstStep, width, height, weights, channels);
}
void myRGBToGray_16s_C3C1R(const Zor16s* src, int srcStep, Zor16s* dst, int dstStep, int width, int height,
                           const float* weights, int channels) {
    grayRows<Zor16s>(innerRGBToGray_16s_C3C1R, src, srcStep, dst, dstStep, width, height, weights, channels);
}
void myRGBToGray_32f_C3C1R(const Zor32f* src, int srcStep, Zor32f* dst, int dstStep, int width, int height,
                           const float* weights, int channels) {
    grayRows<Zor32f>(innerRGBToGray_32f_C3C1R, src, srcStep, dst, dstStep, width, height, weights, channels);
}

namespace {

template <class T>
using GrayWorkerFn = void (*)(const T*, int, T*, int, int, int, const float*, int);

// Pointers, then size; the weight pointer is not validated (null: defaults).
template <class T>
ZorStatus grayEntry(GrayWorkerFn<T> worker, const T* pSrc, int srcStep, T* pDst, int dstStep, ZoriSize roi,
                    const float* weights, int channels) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roi)) return zorStsBadSize;
    worker(pSrc, elementStep<T>(srcStep), pDst, elementStep<T>(dstStep), roi.width, roi.height, weights,
           channels);
    return zorStsOk;
}

}  // namespace

}  // namespace zor

using namespace zor;

extern "C" {

ZORCC_API ZorStatus zoriRGBToGray_8u_C3C1R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    return grayEntry<Zor8u>(myRGBToGray_8u_C3C1R, pSrc, srcStep, pDst, dstStep, roiSize, nullptr, 3);
}
ZORCC_API ZorStatus zoriRGBToGray_8u_AC4C1R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                            ZoriSize roiSize) {
    return grayEntry<Zor8u>(myRGBToGray_8u_C3C1R, pSrc, srcStep, pDst, dstStep, roiSize, nullptr, 4);
}
ZORCC_API ZorStatus zoriRGBToGray_16u_C3C1R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep,
                                            ZoriSize roiSize) {
    return grayEntry<Zor16u>(myRGBToGray_16u_C3C1R, pSrc, srcStep, pDst, dstStep, roiSize, nullptr, 3);
}
ZORCC_API ZorStatus zoriRGBToGray_16u_AC4C1R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep,
                                             ZoriSize roiSize) {
    return grayEntry<Zor16u>(myRGBToGray_16u_C3C1R, pSrc, srcStep, pDst, dstStep, roiSize, nullptr, 4);
}
ZORCC_API ZorStatus zoriRGBToGray_16s_C3C1R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep,
                                            ZoriSize roiSize) {
    return grayEntry<Zor16s>(myRGBToGray_16s_C3C1R, pSrc, srcStep, pDst, dstStep, roiSize, nullptr, 3);
}
ZORCC_API ZorStatus zoriRGBToGray_16s_AC4C1R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep,
                                             ZoriSize roiSize) {
    return grayEntry<Zor16s>(myRGBToGray_16s_C3C1R, pSrc, srcStep, pDst, dstStep, roiSize, nullptr, 4);
}
ZORCC_API ZorStatus zoriRGBToGray_32f_C3C1R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep,
                                            ZoriSize roiSize) {
    return grayEntry<Zor32f>(myRGBToGray_32f_C3C1R, pSrc, srcStep, pDst, dstStep, roiSize, nullptr, 3);
}
ZORCC_API ZorStatus zoriRGBToGray_32f_AC4C1R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep,
                                             ZoriSize roiSize) {
    return grayEntry<Zor32f>(myRGBToGray_32f_C3C1R, pSrc, srcStep, pDst, dstStep, roiSize, nullptr, 4);
}

ZORCC_API ZorStatus zoriColorToGray_8u_C3C1R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize,
                                             const Zor32f* coeffs) {
    return grayEntry<Zor8u>(myRGBToGray_8u_C3C1R, pSrc, srcStep, pDst, dstStep, roiSize, coeffs, 3);
}
ZORCC_API ZorStatus zoriColorToGray_8u_AC4C1R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                              ZoriSize roiSize, const Zor32f* coeffs) {
    return grayEntry<Zor8u>(myRGBToGray_8u_C3C1R, pSrc, srcStep, pDst, dstStep, roiSize, coeffs, 4);
}
ZORCC_API ZorStatus zoriColorToGray_16u_C3C1R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep,
                                              ZoriSize roiSize, const Zor32f* coeffs) {
    return grayEntry<Zor16u>(myRGBToGray_16u_C3C1R, pSrc, srcStep, pDst, dstStep, roiSize, coeffs, 3);
}
ZORCC_API ZorStatus zoriColorToGray_16u_AC4C1R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep,
                                               ZoriSize roiSize, const Zor32f* coeffs) {
    return grayEntry<Zor16u>(myRGBToGray_16u_C3C1R, pSrc, srcStep, pDst, dstStep, roiSize, coeffs, 4);
}
ZORCC_API ZorStatus zoriColorToGray_16s_C3C1R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep,
                                              ZoriSize roiSize, const Zor32f* coeffs) {
    return grayEntry<Zor16s>(myRGBToGray_16s_C3C1R, pSrc, srcStep, pDst, dstStep, roiSize, coeffs, 3);
}
ZORCC_API ZorStatus zoriColorToGray_16s_AC4C1R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep,
                                               ZoriSize roiSize, const Zor32f* coeffs) {
    return grayEntry<Zor16s>(myRGBToGray_16s_C3C1R, pSrc, srcStep, pDst, dstStep, roiSize, coeffs, 4);
}
ZORCC_API ZorStatus zoriColorToGray_32f_C3C1R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep,
                                              ZoriSize roiSize, const Zor32f* coeffs) {
    return grayEntry<Zor32f>(myRGBToGray_32f_C3C1R, pSrc, srcStep, pDst, dstStep, roiSize, coeffs, 3);
}
ZORCC_API ZorStatus zoriColorToGray_32f_AC4C1R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep,
                                               ZoriSize roiSize, const Zor32f* coeffs) {
    return grayEntry<Zor32f>(myRGBToGray_32f_C3C1R, pSrc, srcStep, pDst, dstStep, roiSize, coeffs, 4);
}

}  // extern "C"
