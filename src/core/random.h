// State records of the uniform random generators. The layout is part of the
// library's contract (natural alignment, little-endian):
//   id u32, seed u32, low, high, mean f64, scale f64, x, w1, w2, w3 u32, carry s32
#pragma once

#include "zorcc.h"

#include <cstdint>

namespace zor {

constexpr std::uint32_t kRandUniformId16s = 36;
constexpr std::uint32_t kRandUniformId32f = 37;

// Words of the generator: a congruential word x and a lagged
// subtract-with-borrow sequence w1, w2, w3 with its borrow.
struct RandWords {
    std::uint32_t x;
    std::uint32_t w1;
    std::uint32_t w2;
    std::uint32_t w3;
    std::int32_t carry;

    // Advances the sequence by one step and returns the signed 32-bit sum of
    // the two generators.
    std::int32_t next() {
        x = 69069u * x + 1013904243u;
        const std::uint32_t t = w2 - w3 + static_cast<std::uint32_t>(carry);
        carry = static_cast<std::int32_t>(t) < 0 ? -1 : 0;
        w3 = w2;
        w2 = w1;
        w1 = t - (static_cast<std::uint32_t>(carry) & 18u);
        return static_cast<std::int32_t>(x + w1);
    }
};

template <class T>
struct RandUniformState {
    std::uint32_t id;
    std::uint32_t seed;
    T low;
    T high;
    double mean;
    double scale;
    RandWords words;
};

}  // namespace zor

struct ZorRandUniState_16s : zor::RandUniformState<Zor16s> {};
struct ZorRandUniState_32f : zor::RandUniformState<Zor32f> {};
