// Row kernels and workers of the 4:4:4 YCbCr conversions.
#pragma once

#include "video/ycbcr.h"

namespace zor {

void innerRGBToYCbCr_C3_C3R(const Zor8u* src, Zor8u* dst, int width);
void innerRGBToYCbCr_AC4R(const Zor8u* src, Zor8u* dst, int width);
void innerRGBToYCbCr_C3P2_C3P2R(const Zor8u* r, const Zor8u* g, const Zor8u* b, Zor8u* y, Zor8u* cb, Zor8u* cr,
                                int width);
void innerYCbCrToRGB_C3_C3R(const Zor8u* src, Zor8u* dst, int width);
void innerYCbCrToRGB_AC4R(const Zor8u* src, Zor8u* dst, int width);
void innerYCbCrToRGB_C3P2_C3P2R(const Zor8u* y, const Zor8u* cb, const Zor8u* cr, Zor8u* r, Zor8u* g, Zor8u* b,
                                int width);
void innerYCbCrToRGB_8u_P3C3R(const Zor8u* y, const Zor8u* cb, const Zor8u* cr, Zor8u* dst, int width);
void ownYCbCrToBGR_8u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roi);
void ownYCbCrToBGR_8u_P3C4R(const Zor8u* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roi,
                            Zor8u aval);

}  // namespace zor
