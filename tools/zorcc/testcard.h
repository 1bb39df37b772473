// The built-in test card of the zorcc tool.
#pragma once

#include "image_io.h"

namespace zorcc_tool {

// An RGB test card: 75% colour bars across the top half, then a row of full
// saturation primaries and secondaries, a gray ramp, red/green/blue ramps and
// a strip of fine checks, so that both flat colours and gradients show.
Image8 makeTestCard(int width = 1280, int height = 720);

}  // namespace zorcc_tool
