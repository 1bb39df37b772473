// Bit-depth reduction: the per-type arithmetic shared by the plain quantiser,
// the error-diffusion methods (Floyd-Steinberg, Stucki, Jarvis-Judice-Ninke)
// and the ordered (Bayer) dither, and the workers the entry points call.
//
// Every type pair works on a working scale: 0..255 for 8u, 0..65535 for the
// 16-bit sources (16s shifted by +32768) and 0..1 for 32f. The plain path
// quantises on 0..1 in single precision; the dither paths quantise on the
// working scale and form their output levels in their own way (for 8u through
// the integer multiplier M = trunc(65280/m + 0.000009), whose top level is 254
// whenever m does not divide 65280).
#pragma once

#include "zorcc.h"

#include <cstddef>
#include <cstdint>

namespace zor {

// Truncating float-to-int conversion that is defined for every input:
// out-of-range values saturate, NaN gives the most negative int. Only the
// 32f members can meet such values.
inline int truncSat(double v) {
    if (v >= 2147483647.0) return 2147483647;
    if (v > -2147483648.0) return static_cast<int>(v);
    return -2147483647 - 1;  // also NaN
}

// Layout of the channels: the entry points pass a channel code (1 C1, 3 C3,
// 4 AC4, 5 C4); the workers process `channels` samples per pixel of `stride`
// elements.
struct ChannelLayout {
    int channels;
    int stride;
};

inline ChannelLayout channelLayout(int channelCode) {
    switch (channelCode) {
        case 1: return {1, 1};
        case 3: return {3, 3};
        case 4: return {3, 4};
        default: return {4, 4};
    }
}

// Per-call constants of the dither paths.
struct Quant {
    float step;     // one level on the working scale
    float invStep;  // levels per unit of the working scale
    float half;     // the noise-free rounding threshold, 0.5 * step
    int mult;       // 8u only: the level multiplier M
};

enum class In { U8, U16, S16, F32 };
enum class Out { U8, U16, S16 };

template <In I> struct InSample;
template <> struct InSample<In::U8> { using type = Zor8u; };
template <> struct InSample<In::U16> { using type = Zor16u; };
template <> struct InSample<In::S16> { using type = Zor16s; };
template <> struct InSample<In::F32> { using type = Zor32f; };

template <Out O> struct OutSample;
template <> struct OutSample<Out::U8> { using type = Zor8u; };
template <> struct OutSample<Out::U16> { using type = Zor16u; };
template <> struct OutSample<Out::S16> { using type = Zor16s; };

constexpr double kLevelBias = 0.000009;  // keeps exact multiples of a step from falling short

template <In I, Out O>
struct RbTraits {
    using Src = typename InSample<I>::type;
    using Dst = typename OutSample<O>::type;

    static constexpr bool kFloatSrc = I == In::F32;
    static constexpr bool kWideScale = I == In::U16 || I == In::S16;  // 0..65535 working scale
    // The 32f-to-16-bit members keep the 8-bit limit of 256 levels.
    static constexpr int kMaxLevels = (O != Out::U8 && !kFloatSrc) ? 65536 : 256;
    // Destination range on the unsigned integer scale (before the 16s offset).
    static constexpr int kTopLevel = O == Out::U8 ? 255 : 65535;
    static constexpr float kDstScale = O == Out::U8 ? 255.0f : 65535.0f;

    static int toInt(double v) {
        if constexpr (kFloatSrc)
            return truncSat(v);
        else
            return static_cast<int>(v);
    }

    // A value on the unsigned destination scale to the destination sample:
    // the low bits are kept, 16s destinations are shifted by -32768.
    static Dst store(int level) {
        const unsigned u = static_cast<unsigned>(level);
        if constexpr (O == Out::U8)
            return static_cast<Zor8u>(u);
        else if constexpr (O == Out::U16)
            return static_cast<Zor16u>(u);
        else
            return static_cast<Zor16s>(static_cast<Zor16u>(u - 32768u));
    }

    // --- plain quantisation (single precision on 0..1)

    static float plainValue(Src s) {
        if constexpr (I == In::U8)
            return static_cast<float>(s) / 255.0f;
        else if constexpr (I == In::U16)
            return static_cast<float>(s) / 65535.0f;
        else if constexpr (I == In::S16)
            return static_cast<float>(s + 32768) / 65535.0f;
        else
            return s;
    }

    // --- dither paths

    static float work(Src s) {
        if constexpr (I == In::S16)
            return static_cast<float>(s + 32768);
        else
            return static_cast<float>(s);
    }

    // Error diffusion saturates at these bounds of the working scale.
    static constexpr float kTop = I == In::U8 ? 255.0f : kWideScale ? 65535.0f : 1.0f;
    static constexpr float kBottom = kFloatSrc ? 1.1920929e-7f : 0.0f;

    static Quant quant(int m) {
        const float mf = static_cast<float>(m);
        Quant q{};
        if constexpr (I == In::U8) {
            q.step = (65280.0f / mf) * 0.00390625f;
            q.mult = static_cast<int>(65280.0 / m + kLevelBias);
            q.invStep = mf / 255.0f;
        } else {
            q.step = (kWideScale ? 65535.0f : 1.0f) / mf;
            q.invStep = 1.0f / q.step;
            q.mult = 0;
        }
        q.half = 0.5f * q.step;
        return q;
    }

    // Level k of the dither paths on the unsigned destination scale.
    static int level(int k, const Quant& q) {
        if constexpr (I == In::U8) {
            return static_cast<int>((static_cast<unsigned>(k) * static_cast<unsigned>(q.mult)) >> 8);
        } else if constexpr (kWideScale) {
            const int a = static_cast<int>(static_cast<double>(static_cast<float>(k) * q.step) + kLevelBias);
            if constexpr (O == Out::U8)
                return a >> 8;
            else
                return a;
        } else {
            return truncSat(static_cast<double>(static_cast<float>(k) * q.step * kDstScale) + kLevelBias);
        }
    }

    // The integer part of a working value, v * invStep with the bias.
    static int levelIndex(float v, const Quant& q) {
        return toInt(static_cast<double>(v * q.invStep) + kLevelBias);
    }

    // The ordered dither clamps the 16-bit sources' levels to the destination
    // range; 8u needs no clamp and 32f stores the low bits.
    static int bayerClamp(int a) {
        if constexpr (kWideScale) {
            if (a > kTopLevel) return kTopLevel;
            if (a < 0) return 0;
        }
        return a;
    }
};

using Rb8u = RbTraits<In::U8, Out::U8>;
using Rb16u = RbTraits<In::U16, Out::U16>;
using Rb16s = RbTraits<In::S16, Out::S16>;
using Rb16u8u = RbTraits<In::U16, Out::U8>;
using Rb16s8u = RbTraits<In::S16, Out::U8>;
using Rb32f8u = RbTraits<In::F32, Out::U8>;
using Rb32f16u = RbTraits<In::F32, Out::U16>;
using Rb32f16s = RbTraits<In::F32, Out::S16>;

#define ZOR_RB_FOR_EACH_TYPE(X) \
    X(Rb8u) X(Rb16u) X(Rb16s) X(Rb16u8u) X(Rb16s8u) X(Rb32f8u) X(Rb32f16u) X(Rb32f16s)

// ---------------------------------------------------------------------------
// Workers. m = levels - 1. The plain worker takes steps in bytes, the dither
// workers take steps in elements. noise = 0 selects the noise-free variant.

template <class Tr>
void ownNo_PX(const typename Tr::Src* src, int srcStep, typename Tr::Dst* dst, int dstStep, int width, int height,
              int m, int channelCode);

template <class Tr>
ZorStatus ownReduceBits_fs(const typename Tr::Src* src, int srcStep, typename Tr::Dst* dst, int dstStep, int width,
                           int height, int m, int noise, int channelCode);

// dtype 3 is Stucki, any other value Jarvis-Judice-Ninke.
template <class Tr>
ZorStatus ownReduceBits_st_jj(const typename Tr::Src* src, int srcStep, typename Tr::Dst* dst, int dstStep,
                              int width, int height, int m, int noise, int channelCode, int dtype);

template <class Tr>
ZorStatus ownReduceBits_bayer(const typename Tr::Src* src, int srcStep, typename Tr::Dst* dst, int dstStep,
                              int width, int height, int m, int noise, int channelCode);

// ---------------------------------------------------------------------------
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
