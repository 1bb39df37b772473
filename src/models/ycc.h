// Row kernels and workers of the RGB <-> PhotoYCC conversions.
#pragma once

#include "models/cie_common.h"

namespace zor {

void innerRGBToYCC_8u_C3R(const Zor8u* src, Zor8u* dst, int width, int channels);
void innerYCCToRGB_8u_C3R(const Zor8u* src, Zor8u* dst, int width, int channels);
void innerRGBToYCC_16u_C3R(const Zor16u* src, Zor16u* dst, int width, int channels);
void innerYCCToRGB_16u_C3R(const Zor16u* src, Zor16u* dst, int width, int channels);
void innerRGBToYCC_16s_C3R(const Zor16s* src, Zor16s* dst, int width, int channels);
void innerYCCToRGB_16s_C3R(const Zor16s* src, Zor16s* dst, int width, int channels);
void innerRGBToYCC_32f_C3R(const Zor32f* src, Zor32f* dst, int width, int channels);
void innerYCCToRGB_32f_C3R(const Zor32f* src, Zor32f* dst, int width, int channels);

void myRGBToYCC_8u_C3R(const Zor8u* src, int srcStep, Zor8u* dst, int dstStep, int width, int height, int channels);
void myYCCToRGB_8u_C3R(const Zor8u* src, int srcStep, Zor8u* dst, int dstStep, int width, int height, int channels);
void myRGBToYCC_16u_C3R(const Zor16u* src, int srcStep, Zor16u* dst, int dstStep, int width, int height,
                        int channels);
void myYCCToRGB_16u_C3R(const Zor16u* src, int srcStep, Zor16u* dst, int dstStep, int width, int height,
                        int channels);
void myRGBToYCC_16s_C3R(const Zor16s* src, int srcStep, Zor16s* dst, int dstStep, int width, int height,
                        int channels);
void myYCCToRGB_16s_C3R(const Zor16s* src, int srcStep, Zor16s* dst, int dstStep, int width, int height,
                        int channels);
void myRGBToYCC_32f_C3R(const Zor32f* src, int srcStep, Zor32f* dst, int dstStep, int width, int height,
                        int channels);
void myYCCToRGB_32f_C3R(const Zor32f* src, int srcStep, Zor32f* dst, int dstStep, int width, int height,
                        int channels);

}  // namespace zor
