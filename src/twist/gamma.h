// The 16u gamma tables: every value 0..65535 through the forward or inverse
// curve, with the rounding of the 16u gamma functions.
#pragma once

#include "zorcc.h"

namespace zor {

inline constexpr int kGammaTableLen16u = 65536;

void owniGammaInitFwd16u(Zor16u* table);
void owniGammaInitInv16u(Zor16u* table);

}  // namespace zor
