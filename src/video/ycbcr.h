// Arithmetic shared by the video colour conversions: the BT.601 studio-range
// encoder, the two decoder constant sets and the saturation table, all in
// 32-bit fixed point with 16 fraction bits.
#pragma once

#include "core/frame.h"

#include <array>
#include <cstdint>

namespace zor {

// Saturation table: entry i holds i - 370 clamped to 0..255; index it with
// v + 370 for any v in -370..629 (every intermediate the decoders make from
// 8-bit input lies in -277..534).
using VideoSaturation = ByteSaturation<370, 629>;
static_assert(VideoSaturation::table.size() == 1000);

inline Zor8u sat8(std::int32_t v) { return VideoSaturation::at(v); }

// Encoder: coefficients 0.257, 0.504, 0.098; -0.148, -0.291, 0.439;
// 0.439, -0.368, -0.071 with offsets 16 and 128 and one half for rounding.
// The sums are never negative and always land in 16..235 / 16..240.
struct YCbCrEncoded {
    Zor8u y, cb, cr;
};

inline YCbCrEncoded encodeYCbCr(int r, int g, int b) {
    const std::int32_t y = (16843 * r + 33030 * g + 6423 * b + 1081344) >> 16;
    const std::int32_t cb = (-9699 * r - 19071 * g + 28770 * b + 8421376) >> 16;
    const std::int32_t cr = (28770 * r - 24117 * g - 4653 * b + 8421376) >> 16;
    return {static_cast<Zor8u>(y), static_cast<Zor8u>(cb), static_cast<Zor8u>(cr)};
}

// Decoder constant sets. Set A truncates (no half before the shift); set B
// has every coefficient 2/65536 smaller and adds one half to all three
// outputs. They differ by one in some pixels, and each function keeps its own.
struct DecoderSetA {
    static constexpr std::int32_t kY = 76284, kOffset = 16 * 76284, kHalf = 0;
    static constexpr std::int32_t kRCr = 104595, kGCb = 25690, kGCr = 53281, kBCb = 132186;
};
struct DecoderSetB {
    static constexpr std::int32_t kY = 76282, kOffset = 16 * 76282, kHalf = 32768;
    static constexpr std::int32_t kRCr = 104593, kGCb = 25689, kGCr = 53279, kBCb = 132184;
};

// Unclamped R, G, B of one pixel: (luma term + chroma terms) >> 16, shifted
// arithmetically. The luma product is shared by the three outputs.
struct Rgb32 {
    std::int32_t r, g, b;
};

template <class Set>
inline Rgb32 decodeYCbCr(int y, int cb, int cr) {
    const std::int32_t d = cb - 128;
    const std::int32_t e = cr - 128;
    const std::int32_t luma = Set::kY * y - Set::kOffset + Set::kHalf;
    return {asr(luma + Set::kRCr * e, 16), asr(luma - Set::kGCb * d - Set::kGCr * e, 16),
            asr(luma + Set::kBCb * d, 16)};
}

}  // namespace zor
