// Row kernels and workers of the RGB <-> CIE XYZ conversions.
#pragma once

#include "models/cie_common.h"

namespace zor {

void innerRGBToXYZ_8u_C3R(const Zor8u* src, Zor8u* dst, int width, int channels);
void innerXYZToRGB_8u_C3R(const Zor8u* src, Zor8u* dst, int width, int channels);
void innerRGBToXYZ_16u_C3R(const Zor16u* src, Zor16u* dst, int width, int channels);
void innerXYZToRGB_16u_C3R(const Zor16u* src, Zor16u* dst, int width, int channels);
void innerRGBToXYZ_16s_C3R(const Zor16s* src, Zor16s* dst, int width, int channels);
void innerXYZToRGB_16s_C3R(const Zor16s* src, Zor16s* dst, int width, int channels);
void innerRGBToXYZ_32f_C3R(const Zor32f* src, Zor32f* dst, int width, int channels);
void innerXYZToRGB_32f_C3R(const Zor32f* src, Zor32f* dst, int width, int channels);

void myRGBToXYZ_8u_C3R(const Zor8u* src, int srcStep, Zor8u* dst, int dstStep, int width, int height, int channels);
void myXYZToRGB_8u_C3R(const Zor8u* src, int srcStep, Zor8u* dst, int dstStep, int width, int height, int channels);
void myRGBToXYZ_16u_C3R(const Zor16u* src, int srcStep, Zor16u* dst, int dstStep, int width, int height,
                        int channels);
void myXYZToRGB_16u_C3R(const Zor16u* src, int srcStep, Zor16u* dst, int dstStep, int width, int height,
                        int channels);
void myRGBToXYZ_16s_C3R(const Zor16s* src, int srcStep, Zor16s* dst, int dstStep, int width, int height,
                        int channels);
void myXYZToRGB_16s_C3R(const Zor16s* src, int srcStep, Zor16s* dst, int dstStep, int width, int height,
                        int channels);
void myRGBToXYZ_32f_C3R(const Zor32f* src, int srcStep, Zor32f* dst, int dstStep, int width, int height,
                        int channels);
void myXYZToRGB_32f_C3R(const Zor32f* src, int srcStep, Zor32f* dst, int dstStep, int width, int height,
                        int channels);

}  // namespace zor
