// RGB and HLS, interleaved C3 and AC4, for 8u, 16u, 16s and 32f: rounding
// quantiser, rows in parallel; AC4 members use the C3 kernels with a
// channel count of 4 and never touch channel 3.
#include "models/hls.h"

namespace zor {

namespace {

template <class T>
using RoundCodec = std::conditional_t<std::is_same<T, Zor32f>::value, HlsFloatCodec, HlsIntCodec<T, RoundCode>>;

template <class T>
void rgbToHlsRow(const T* src, T* dst, int width, int channels) {
    using C = RoundCodec<T>;
    if (channels == 4)
        hlsForwardRow<C, Order::Rgb, false>(interleavedRow<4, 3>(src), interleavedRow<4, 3>(dst), width);
    else
        hlsForwardRow<C, Order::Rgb, false>(interleavedRow<3, 3>(src), interleavedRow<3, 3>(dst), width);
}

template <class T>
void hlsToRgbRow(const T* src, T* dst, int width, int channels) {
    using C = RoundCodec<T>;
    if (channels == 4)
        hlsInverseRow<C, Order::Rgb, false>(interleavedRow<4, 3>(src), interleavedRow<4, 3>(dst), width);
    else
        hlsInverseRow<C, Order::Rgb, false>(interleavedRow<3, 3>(src), interleavedRow<3, 3>(dst), width);
}

}  // namespace

void innerRGBToHLS_8u_C3R(const Zor8u* s, Zor8u* d, int w, int ch) { rgbToHlsRow(s, d, w, ch); }
void innerHLSToRGB_8u_C3R(const Zor8u* s, Zor8u* d, int w, int ch) { hlsToRgbRow(s, d, w, ch); }
void innerRGBToHLS_16u_C3R(const Zor16u* s, Zor16u* d, int w, int ch) { rgbToHlsRow(s, d, w, ch); }
void innerHLSToRGB_16u_C3R(const Zor16u* s, Zor16u* d, int w, int ch) { hlsToRgbRow(s, d, w, ch); }
void innerRGBToHLS_16s_C3R(const Zor16s* s, Zor16s* d, int w, int ch) { rgbToHlsRow(s, d, w, ch); }
void innerHLSToRGB_16s_C3R(const Zor16s* s, Zor16s* d, int w, int ch) { hlsToRgbRow(s, d, w, ch); }
void innerRGBToHLS_32f_C3R(const Zor32f* s, Zor32f* d, int w, int ch) { rgbToHlsRow(s, d, w, ch); }
void innerHLSToRGB_32f_C3R(const Zor32f* s, Zor32f* d, int w, int ch) { hlsToRgbRow(s, d, w, ch); }

void myRGBToHLS_8u_C3R(const Zor8u* s, int ss, Zor8u* d, int ds, int w, int h, int ch) {
    channelRows<Zor8u>(innerRGBToHLS_8u_C3R, s, ss, d, ds, w, h, ch);
}
void myHLSToRGB_8u_C3R(const Zor8u* s, int ss, Zor8u* d, int ds, int w, int h, int ch) {
    channelRows<Zor8u>(innerHLSToRGB_8u_C3R, s, ss, d, ds, w, h, ch);
}
void myRGBToHLS_16u_C3R(const Zor16u* s, int ss, Zor16u* d, int ds, int w, int h, int ch) {
    channelRows<Zor16u>(innerRGBToHLS_16u_C3R, s, ss, d, ds, w, h, ch);
}
void myHLSToRGB_16u_C3R(const Zor16u* s, int ss, Zor16u* d, int ds, int w, int h, int ch) {
    channelRows<Zor16u>(innerHLSToRGB_16u_C3R, s, ss, d, ds, w, h, ch);
}
void myRGBToHLS_16s_C3R(const Zor16s* s, int ss, Zor16s* d, int ds, int w, int h, int ch) {
    channelRows<Zor16s>(innerRGBToHLS_16s_C3R, s, ss, d, ds, w, h, ch);
}
void myHLSToRGB_16s_C3R(const Zor16s* s, int ss, Zor16s* d, int ds, int w, int h, int ch) {
    channelRows<Zor16s>(innerHLSToRGB_16s_C3R, s, ss, d, ds, w, h, ch);
}
void myRGBToHLS_32f_C3R(const Zor32f* s, int ss, Zor32f* d, int ds, int w, int h, int ch) {
    channelRows<Zor32f>(innerRGBToHLS_32f_C3R, s, ss, d, ds, w, h, ch);
}
void myHLSToRGB_32f_C3R(const Zor32f* s, int ss, Zor32f* d, int ds, int w, int h, int ch) {
    channelRows<Zor32f>(innerHLSToRGB_32f_C3R, s, ss, d, ds, w, h, ch);
}

}  // namespace zor

using namespace zor;

extern "C" {

ZORCC_API ZorStatus zoriRGBToHLS_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    return channelEntry<Zor8u>(myRGBToHLS_8u_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 3);
}
ZORCC_API ZorStatus zoriRGBToHLS_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    return channelEntry<Zor8u>(myRGBToHLS_8u_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 4);
}
ZORCC_API ZorStatus zoriHLSToRGB_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    return channelEntry<Zor8u>(myHLSToRGB_8u_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 3);
}
ZORCC_API ZorStatus zoriHLSToRGB_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    return channelEntry<Zor8u>(myHLSToRGB_8u_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 4);
}

ZORCC_API ZorStatus zoriRGBToHLS_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize) {
    return channelEntry<Zor16u>(myRGBToHLS_16u_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 3);
}
ZORCC_API ZorStatus zoriRGBToHLS_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep,
                                          ZoriSize roiSize) {
    return channelEntry<Zor16u>(myRGBToHLS_16u_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 4);
}
ZORCC_API ZorStatus zoriHLSToRGB_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize) {
    return channelEntry<Zor16u>(myHLSToRGB_16u_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 3);
}
ZORCC_API ZorStatus zoriHLSToRGB_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep,
                                          ZoriSize roiSize) {
    return channelEntry<Zor16u>(myHLSToRGB_16u_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 4);
}

ZORCC_API ZorStatus zoriRGBToHLS_16s_C3R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize) {
    return channelEntry<Zor16s>(myRGBToHLS_16s_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 3);
}
ZORCC_API ZorStatus zoriRGBToHLS_16s_AC4R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep,
                                          ZoriSize roiSize) {
    return channelEntry<Zor16s>(myRGBToHLS_16s_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 4);
}
ZORCC_API ZorStatus zoriHLSToRGB_16s_C3R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize) {
    return channelEntry<Zor16s>(myHLSToRGB_16s_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 3);
}
ZORCC_API ZorStatus zoriHLSToRGB_16s_AC4R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep,
                                          ZoriSize roiSize) {
    return channelEntry<Zor16s>(myHLSToRGB_16s_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 4);
}

ZORCC_API ZorStatus zoriRGBToHLS_32f_C3R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize) {
    return channelEntry<Zor32f>(myRGBToHLS_32f_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 3);
}
ZORCC_API ZorStatus zoriRGBToHLS_32f_AC4R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep,
                                          ZoriSize roiSize) {
    return channelEntry<Zor32f>(myRGBToHLS_32f_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 4);
}
ZORCC_API ZorStatus zoriHLSToRGB_32f_C3R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize) {
    return channelEntry<Zor32f>(myHLSToRGB_32f_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 3);
}
ZORCC_API ZorStatus zoriHLSToRGB_32f_AC4R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep,
                                          ZoriSize roiSize) {
    return channelEntry<Zor32f>(myHLSToRGB_32f_C3R, pSrc, srcStep, pDst, dstStep, roiSize, 4);
}

}  // extern "C"
