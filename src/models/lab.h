// Row kernels of the BGR <-> CIE L*a*b* conversions (8-bit BGR, 8u or 16u Lab).
#pragma once

#include "models/cie_common.h"

namespace zor {

void innerBGRToLab_8u_C3R(const Zor8u* src, Zor8u* dst, int width);
void innerBGRToLab_8u16u_C3R(const Zor8u* src, Zor16u* dst, int width);
void innerLabToBGR_8u_C3R(const Zor8u* src, Zor8u* dst, int width);
void innerLabToBGR_16u8u_C3R(const Zor16u* src, Zor8u* dst, int width);

}  // namespace zor
