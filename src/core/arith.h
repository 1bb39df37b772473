// Fixed-point arithmetic shared by every family, written once and free of
// undefined behaviour: the arithmetic shift, the byte clamp, byte saturation
// tables and the offset that puts signed 16-bit samples on the unsigned scale.
#pragma once

#include "zorcc.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace zor {

// Arithmetic shift right (rounds toward minus infinity) for any sign.
inline constexpr std::int32_t asr(std::int32_t v, int s) { return v >= 0 ? (v >> s) : ~((~v) >> s); }

// v clamped to 0..255.
inline constexpr Zor8u clampByte(std::int32_t v) { return static_cast<Zor8u>(v < 0 ? 0 : v > 255 ? 255 : v); }

// The four-tap interpolation half-way between samples b and c of a, b, c, d
// (rows or columns): (-a + 9 b + 9 c - d + 8) >> 4, an arithmetic shift,
// clamped to 0..255.
inline constexpr Zor8u fourTap(int a, int b, int c, int d) { return clampByte(asr(9 * (b + c) - a - d + 8, 4)); }

// The 4x4 Bayer order of the ordered dithers, indexed [y & 3][x & 3].
inline constexpr int kBayerOrder[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};

// Byte saturation by table: entries for every v in -Low..High, holding v
// clamped to 0..255. A family whose intermediates are documented as table
// reads states its own index range; the stored bytes equal clampByte.
template <int Low, int High>
struct ByteSaturation {
    static constexpr std::array<Zor8u, Low + High + 1> make() {
        std::array<Zor8u, Low + High + 1> t{};
        for (int i = 0; i <= Low + High; ++i) t[static_cast<std::size_t>(i)] = clampByte(i - Low);
        return t;
    }
    static constexpr std::array<Zor8u, Low + High + 1> table = make();
    static Zor8u at(std::int32_t v) { return table[static_cast<std::size_t>(v + Low)]; }
};

// Signed 16-bit samples are offset by 32768 onto the unsigned 16-bit scale on
// the way in and back on the way out; unsigned samples pass unchanged.
template <class T>
struct Offset16 {
    static constexpr int kOffset = 0;
    static constexpr int in(T v) { return static_cast<int>(v); }
    static constexpr T out(int code) { return static_cast<T>(code); }
};
template <>
struct Offset16<Zor16s> {
    static constexpr int kOffset = 32768;
    static constexpr int in(Zor16s v) { return static_cast<int>(v) + 32768; }
    // The low 16 bits of code - 32768, as a two's complement sample.
    static constexpr Zor16s out(int code) { return static_cast<Zor16s>(static_cast<std::uint16_t>(code - 32768)); }
};

}  // namespace zor
