// Bit-depth reduction: the per-type arithmetic shared by the plain quantiser,
// the error-diffusion methods (Floyd-Steinberg, Stucki, Jarvis-Judice-Ninke)
// and the ordered (Bayer) dither, and the noise tables of the noise variants.
//
// Every type pair works on a working scale: 0..255 for 8u, 0..65535 for the
// 16-bit sources (16s shifted by +32768) and 0..1 for 32f. The plain path
// quantises on 0..1 in single precision; the dither paths quantise on the
// working scale and form their output levels in their own way (for 8u through
// the integer multiplier M = trunc(65280/m + 0.000009), whose top level is 254
// whenever m does not divide 65280).
#pragma once

#include "core/arith.h"
#include "zorcc.h"

#include <type_traits>

namespace zor {

// Truncating float-to-int conversion that is defined for every input:
// out-of-range values saturate, NaN gives the most negative int. Only the
// 32f members can meet such values.
inline int truncSat(double v) {
    if (v >= 2147483647.0) return 2147483647;
    if (v > -2147483648.0) return static_cast<int>(v);
    return -2147483647 - 1;  // also NaN
}

constexpr double kLevelBias = 0.000009;  // keeps exact multiples of a step from falling short

// Per-call constants of the dither paths.
struct Quant {
    float step;     // one level on the working scale
    float invStep;  // levels per unit of the working scale
    float half;     // the noise-free rounding threshold, 0.5 * step
    int mult;       // 8u only: the level multiplier M
};

// Source sample type S, destination sample type D.
template <class S, class D>
struct RbTraits {
    using Src = S;
    using Dst = D;

    static constexpr bool kByteSrc = std::is_same_v<S, Zor8u>;
    static constexpr bool kFloatSrc = std::is_same_v<S, Zor32f>;
    static constexpr bool kWideScale = !kByteSrc && !kFloatSrc;  // 0..65535 working scale
    // The 32f-to-16-bit members keep the 8-bit limit of 256 levels.
    static constexpr int kMaxLevels = (sizeof(D) == 2 && !kFloatSrc) ? 65536 : 256;
    // Destination range on the unsigned integer scale (before the 16s offset).
    static constexpr int kTopLevel = sizeof(D) == 1 ? 255 : 65535;
    static constexpr float kDstScale = static_cast<float>(kTopLevel);
    // Error diffusion saturates at these bounds of the working scale.
    static constexpr float kTop = kByteSrc ? 255.0f : kWideScale ? 65535.0f : 1.0f;
    static constexpr float kBottom = kFloatSrc ? 1.1920929e-7f : 0.0f;

    static int toInt(double v) { return kFloatSrc ? truncSat(v) : static_cast<int>(v); }

    // The one clamp of the family: levels above the top are lowered to it,
    // negative ones (32f sources only) are left to wrap.
    static int clampTop(int level) { return level >= kTopLevel ? kTopLevel : level; }

    // A level on the unsigned destination scale to the destination sample:
    // its low bits, 16s destinations offset by -32768.
    static D store(int level) { return Offset16<D>::out(level & kTopLevel); }

    // A sample on the working scale of the dither paths.
    static float work(S s) {
        if constexpr (kFloatSrc)
            return s;
        else
            return static_cast<float>(Offset16<S>::in(s));
    }

    // A sample on 0..1, the scale of the plain path.
    static float plainValue(S s) {
        if constexpr (kFloatSrc)
            return s;
        else
            return work(s) / (kByteSrc ? 255.0f : 65535.0f);
    }

    static Quant quant(int m) {
        const float mf = static_cast<float>(m);
        Quant q{};
        if constexpr (kByteSrc) {
            q.step = (65280.0f / mf) * 0.00390625f;
            q.mult = static_cast<int>(65280.0 / m + kLevelBias);
            q.invStep = mf / 255.0f;
        } else {
            q.step = (kWideScale ? 65535.0f : 1.0f) / mf;
            q.invStep = 1.0f / q.step;
        }
        q.half = 0.5f * q.step;
        return q;
    }

    // Level k of the dither paths on the unsigned destination scale.
    static int level(int k, const Quant& q) {
        if constexpr (kByteSrc) {
            return static_cast<int>((static_cast<unsigned>(k) * static_cast<unsigned>(q.mult)) >> 8);
        } else if constexpr (kWideScale) {
            const int a = static_cast<int>(static_cast<double>(static_cast<float>(k) * q.step) + kLevelBias);
            return sizeof(D) == 1 ? a >> 8 : a;
        } else {
            return truncSat(static_cast<double>(static_cast<float>(k) * q.step * kDstScale) + kLevelBias);
        }
    }

    // The integer part of a working value, v * invStep with the bias.
    static int levelIndex(float v, const Quant& q) { return toInt(static_cast<double>(v * q.invStep) + kLevelBias); }
};

// Noise tables of the noise variants: 1024 thresholds from a 32f uniform
// generator over [low, high) and 1024 indices 0..1023 from a 16s generator,
// both seeded with 0. The sample at column x of row y uses
// thresh[(index[x mod 1024] + 2y + x) mod 1024].
class NoiseTables {
public:
    NoiseTables() = default;
    ~NoiseTables();
    NoiseTables(const NoiseTables&) = delete;
    NoiseTables& operator=(const NoiseTables&) = delete;

    // zorStsNoMemory when a table or a generator state cannot be allocated.
    ZorStatus init(float low, float high);

    float at(int x, int y) const {
        const unsigned i = static_cast<unsigned>(index_[x & 1023]) + 2u * static_cast<unsigned>(y) +
                           static_cast<unsigned>(x);
        return thresh_[i & 1023u];
    }

private:
    Zor32f* thresh_ = nullptr;
    Zor16s* index_ = nullptr;
};

}  // namespace zor
