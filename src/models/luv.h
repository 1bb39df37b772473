// Row kernels and workers of the RGB <-> CIE L*u*v* conversions.
#pragma once

#include "models/cie_common.h"

namespace zor {

// 8u L code of the luminance ratio i/255.
extern const Zor8u kPowL[256];

void innerRGBToLUV_8u_C3R(const Zor8u* src, Zor8u* dst, int width, int channels);
void innerLUVToRGB_8u_C3R(const Zor8u* src, Zor8u* dst, int width, int channels);
void innerRGBToLUV_16u_C3R(const Zor16u* src, Zor16u* dst, int width, int channels);
void innerLUVToRGB_16u_C3R(const Zor16u* src, Zor16u* dst, int width, int channels);
void innerRGBToLUV_16s_C3R(const Zor16s* src, Zor16s* dst, int width, int channels);
void innerLUVToRGB_16s_C3R(const Zor16s* src, Zor16s* dst, int width, int channels);
void innerRGBToLUV_32f_C3R(const Zor32f* src, Zor32f* dst, int width, int channels);
void innerLUVToRGB_32f_C3R(const Zor32f* src, Zor32f* dst, int width, int channels);

void myRGBToLUV_8u_C3R(const Zor8u* src, int srcStep, Zor8u* dst, int dstStep, int width, int height, int channels);
void myLUVToRGB_8u_C3R(const Zor8u* src, int srcStep, Zor8u* dst, int dstStep, int width, int height, int channels);
void myRGBToLUV_16u_C3R(const Zor16u* src, int srcStep, Zor16u* dst, int dstStep, int width, int height,
                        int channels);
void myLUVToRGB_16u_C3R(const Zor16u* src, int srcStep, Zor16u* dst, int dstStep, int width, int height,
                        int channels);
void myRGBToLUV_16s_C3R(const Zor16s* src, int srcStep, Zor16s* dst, int dstStep, int width, int height,
                        int channels);
void myLUVToRGB_16s_C3R(const Zor16s* src, int srcStep, Zor16s* dst, int dstStep, int width, int height,
                        int channels);
// Steps in bytes.
void myRGBToLUV_32f_C3R(const Zor32f* src, int srcStep, Zor32f* dst, int dstStep, int width, int height,
                        int channels);
void myLUVToRGB_32f_C3R(const Zor32f* src, int srcStep, Zor32f* dst, int dstStep, int width, int height,
                        int channels);

}  // namespace zor
