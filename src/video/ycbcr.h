// Arithmetic of the video colour conversions, written once: the BT.601
// studio-range encoder and every decoder constant set, in 32-bit fixed point
// with 16 fraction bits.
#pragma once

#include "core/arith.h"

#include <cstdint>

namespace zor {

// ---------------------------------------------------------------------------
// Encoder: coefficients 0.257, 0.504, 0.098; -0.148, -0.291, 0.439;
// 0.439, -0.368, -0.071. The products are linear, so applied to the channel
// sums of a group of pixels they give the sum of the pixels' products.

inline constexpr std::int32_t lumaProduct(int r, int g, int b) { return 16843 * r + 33030 * g + 6423 * b; }
inline constexpr std::int32_t cbProduct(int r, int g, int b) { return -9699 * r - 19071 * g + 28770 * b; }
inline constexpr std::int32_t crProduct(int r, int g, int b) { return 28770 * r - 24117 * g - 4653 * b; }

// Offsets before the shift: 16 (luma) or 128 (chroma) in output units, with
// or without one half.
inline constexpr std::int32_t kLumaRounded = 16 * 65536 + 32768;
inline constexpr std::int32_t kLumaTruncated = 16 * 65536;
inline constexpr std::int32_t kChromaRounded = 128 * 65536 + 32768;

// One pixel: the sums are never negative and land in 16..235 / 16..240, so
// the stored byte is the shifted sum without a clamp.
struct YCbCr8 {
    Zor8u y, cb, cr;
};
inline constexpr YCbCr8 encodeYCbCr(int r, int g, int b) {
    return {static_cast<Zor8u>((lumaProduct(r, g, b) + kLumaRounded) >> 16),
            static_cast<Zor8u>((cbProduct(r, g, b) + kChromaRounded) >> 16),
            static_cast<Zor8u>((crProduct(r, g, b) + kChromaRounded) >> 16)};
}

// ---------------------------------------------------------------------------
// Decoders. Every 16.16 decoder of the family has the form
//   R = (kY y + kRV v + offR) >> 16
//   G = (kY y - kGU u - kGV v + offG) >> 16
//   B = (kY y + kBU u + offB) >> 16
// with y, u, v the unsigned samples (Y, Cb, Cr or Y, U, V), an arithmetic
// shift, and a clamp to 0..255; a constant set is these eight numbers. The
// offsets hold the centring of the chroma at 128, the luma offset and the
// rounding half where a set has one.
struct Decoder {
    std::int32_t kY, kRV, kGU, kGV, kBU;
    std::int32_t offR, offG, offB;
};

// A set written around centred chroma: luma term kY (y - yOffset) + half.
inline constexpr Decoder centred(std::int32_t kY, std::int32_t yOffset, std::int32_t kRV, std::int32_t kGU,
                                 std::int32_t kGV, std::int32_t kBU, std::int32_t half) {
    const std::int32_t base = half - kY * yOffset;
    return {kY, kRV, kGU, kGV, kBU, base - 128 * kRV, base + 128 * kGU + 128 * kGV, base - 128 * kBU};
}

// Set A: 1.164, 1.596, 0.392, 0.813, 2.017, truncating.
inline constexpr Decoder kSetA = centred(76284, 16, 104595, 25690, 53281, 132186, 0);
// Set A with one half before every shift: the 4:1:1 packed-output decoder.
inline constexpr Decoder kSetARounded = centred(76284, 16, 104595, 25690, 53281, 132186, 32768);
// Set B: every coefficient 2/65536 smaller, one half in all three outputs.
inline constexpr Decoder kSetB = centred(76282, 16, 104593, 25689, 53279, 132184, 32768);
// Set C of the packed 4:2:2 decoders: set A with biases 57, 14 and 13
// (/65536) below set A's for R, G and B.
inline constexpr Decoder kSetC = {76284, 104595, 25690, 53281, 132186, -14608761, 8887730, -18140365};
static_assert(kSetC.offR == kSetA.offR - 57 && kSetC.offG == kSetA.offG - 14 && kSetC.offB == kSetA.offB - 13);
// YUV: R = Y + 1.140 V', G = Y - 0.394 U' - 0.581 V', B = Y + 2.032 U'
// (U', V' centred), truncating, or rounding with one half.
inline constexpr Decoder kYuv = centred(65536, 0, 74711, 25821, 38076, 133169, 0);
inline constexpr Decoder kYuvRounded = centred(65536, 0, 74711, 25821, 38076, 133169, 32768);

struct Rgb32 {
    std::int32_t r, g, b;
};

// The decoders' byte saturation: the 1000-entry table of the family (entry i
// holds i - 370 clamped to 0..255); every intermediate of the decoders lies in
// -370..629. A table read is the cheapest clamp in the scalar kernels; the
// bytes are those of clampByte, which the vector kernels get from saturating
// narrowing.
inline Zor8u saturate(std::int32_t v) { return ByteSaturation<370, 629>::at(v); }

// Unclamped R, G, B of one pixel.
inline constexpr Rgb32 decode(const Decoder& k, int y, int u, int v) {
    const std::int32_t luma = k.kY * y;
    return {asr(luma + k.kRV * v + k.offR, 16), asr(luma - k.kGU * u - k.kGV * v + k.offG, 16),
            asr(luma + k.kBU * u + k.offB, 16)};
}

// The decoder with four extra fraction bits (every dithered packed-output
// member and the plain planar ones): values stay scaled by 16 until the
// final shift, and each chroma product is shifted on its own.
inline constexpr Rgb32 decodeFine(int y, int cb, int cr) {
    const std::int32_t luma = asr((y - 16) * 128 * 9535, 16);
    const std::int32_t d = (cb - 128) * 128, e = (cr - 128) * 128;
    return {asr(luma + asr(e * 13074, 16), 4), asr(luma - asr(d * 3211, 16) - asr(e * 6660, 16), 4),
            asr(luma + asr(d * 16523, 16), 4)};
}

}  // namespace zor
