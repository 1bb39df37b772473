// Kept for the gray conversion only, which still takes the older frame
// helpers through this header; the hue models include models/common.h.
#pragma once

#include "core/frame.h"
