// Pieces shared by the hue models (HLS, HSV): the code quantisers and the
// 8-bit quotient tables.
#pragma once

#include <array>
#include <cstddef>

#include "core/frame.h"
#include "models/channel_frame.h"

namespace zor {

// Single-precision machine epsilon: the float kernels' chroma threshold.
constexpr float kFltEpsilon = 1.1920929e-7f;

// Rounding quantiser of the RGB family and of HSV: the bias is added in
// float, so a product just below a half-integer can round up (127.5 gives
// 128), and the sum is truncated toward zero.
struct RoundCode {
    static int code(float scaled) { return static_cast<int>(scaled + 0.499999f); }
};

// Flooring quantiser of the planar BGR HLS layouts: the float product is
// widened to double and nudged by 1e-7 before truncation (127.5 gives 127).
struct FloorCode {
    static int code(float scaled) { return static_cast<int>(static_cast<double>(scaled) + 1e-7); }
};

// Per-code tables of 8-bit float quotients: the very values the division
// would give, looked up instead of divided.
template <class F>
inline std::array<float, 256> table8u(F f) {
    std::array<float, 256> t{};
    for (int v = 0; v < 256; ++v) t[v] = f(v);
    return t;
}

// v / 255
inline const std::array<float, 256> kUnit8u = table8u([](int v) { return static_cast<float>(v) / 255.0f; });
// v * 360 / 255
inline const std::array<float, 256> kDegrees8u = table8u([](int v) { return static_cast<float>(v) * 360.0f / 255.0f; });

}  // namespace zor
