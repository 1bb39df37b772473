// Row kernels of the bit-depth reduction, the scalar reference of each shape.
// Tr is the RbTraits of the type pair; a pixel holds N elements of which the
// first Ch are processed (C1 1/1, C3 3/3, AC4 3/4, C4 4/4). Thresholds come
// from a source th(x, y) of the pixel's position in the region: the ordered
// dither's matrix, half a step, or either perturbed by the noise tables.
#pragma once

#include "core/image.h"
#include "reducebits/reducebits.h"

#include <cstdint>
#include <cstring>

namespace zor {

template <class Tr, int N>
using SrcRow = RowC<const typename Tr::Src, N>;
template <class Tr, int N>
using DstRow = RowC<typename Tr::Dst, N>;

// ---------------------------------------------------------------------------
// Plain quantisation, single precision on 0..1. A residue of exactly half an
// interval rounds down, and m * (1/m) falling below 1 in single precision
// makes the top input give 254 for some level counts on 8-bit destinations;
// both are kept as they are.
template <class Tr, int Ch, int N>
void plainRow(SrcRow<Tr, N> s, DstRow<Tr, N> d, int width, int m) {
    const float mf = static_cast<float>(m);
    const float inv = 1.0f / mf;
    const float half = 0.5f * inv;
    for (int x = 0; x < width; ++x, s.p += N, d.p += N)
        for (int c = 0; c < Ch; ++c) {
            const float v = Tr::plainValue(s.p[c]);
            float q = static_cast<float>(Tr::toInt(mf * v)) * inv;
            if (v - q > half) q = q + inv;
            d.p[c] = Tr::store(Tr::clampTop(Tr::toInt(q * Tr::kDstScale)));
        }
}

// ---------------------------------------------------------------------------
// Ordered dither with the 4x4 Bayer matrix. The thresholds run from 0 to 1
// inclusive (index / 15, not (index + 0.5) / 16): the entry 0 rounds up every
// sample with a non-zero remainder and the entry 1 never does. The phase is
// tied to the region of interest.
struct BayerUnit {
    float t[16];
};
constexpr BayerUnit bayerUnit() {
    BayerUnit b{};
    for (int i = 0; i < 16; ++i) b.t[i] = static_cast<float>(kBayerOrder[i / 4][i % 4]) / 15;
    return b;
}
inline constexpr BayerUnit kBayer = bayerUnit();
inline int bayerIndex(int x, int y) { return (y & 3) * 4 + (x & 3); }

// The matrix scaled by the step once per call.
struct BayerMatrix {
    float t[16];
    explicit BayerMatrix(float step) {
        for (int i = 0; i < 16; ++i) t[i] = kBayer.t[i] * step;
    }
    float operator()(int x, int y) const { return t[bayerIndex(x, y)]; }
};

// With noise: (matrix entry + noise) * step.
struct BayerNoise {
    const NoiseTables* noise;
    float step;
    float operator()(int x, int y) const { return (kBayer.t[bayerIndex(x, y)] + noise->at(x, y)) * step; }
};

// All channels of a pixel share its threshold. 16-bit sources clamp to the
// destination range; 8u and 32f store the low bits of the level.
template <class Tr, int Ch, int N, class Th>
void bayerRow(SrcRow<Tr, N> s, DstRow<Tr, N> d, int width, int y, const Quant& q, const Th& th) {
    for (int x = 0; x < width; ++x, s.p += N, d.p += N) {
        const float t = th(x, y);
        for (int c = 0; c < Ch; ++c) {
            const float v = Tr::work(s.p[c]);
            int k = Tr::levelIndex(v, q);
            const float r = v - static_cast<float>(k) * q.step;
            if (r > t) k = static_cast<int>(static_cast<unsigned>(k) + 1u);
            const int level = Tr::level(k, q);
            d.p[c] = Tr::store(Tr::kWideScale ? Tr::clampTop(level) : level);
        }
    }
}

// ---------------------------------------------------------------------------
// Error diffusion, one channel of one row, left to right. The rounding
// threshold is half a step, or the noise table.
struct HalfStep {
    float half;
    float operator()(int, int) const { return half; }
};
struct NoiseThreshold {
    const NoiseTables* noise;
    float operator()(int x, int y) const { return noise->at(x, y); }
};

// c ? a : b without a branch: the rounding decision follows the data (and
// the noise), so a branch would be mispredicted half of the time.
inline float select(bool c, float a, float b) {
    std::uint32_t ua, ub;
    std::memcpy(&ua, &a, 4);
    std::memcpy(&ub, &b, 4);
    const std::uint32_t mask = 0u - static_cast<std::uint32_t>(c);
    const std::uint32_t r = (ua & mask) | (ub & ~mask);
    float f;
    std::memcpy(&f, &r, 4);
    return f;
}

// One sample: saturate at the ends of the working scale (the error of a
// saturated sample is dropped), otherwise round to a level, rounding up when
// the residue exceeds the threshold, and keep the residue as the error. NaN
// (32f only) goes to the bottom like a negative value.
template <class Tr>
inline typename Tr::Dst diffuseSample(float v, const Quant& q, float threshold, float& err) {
    if (v >= Tr::kTop) {
        err = 0.0f;
        return Tr::store(Tr::kTopLevel);
    }
    if (v >= Tr::kBottom) {
        const int k = static_cast<int>(static_cast<double>(v * q.invStep) + kLevelBias);
        const float base = static_cast<float>(k) * q.step;
        const float r = v - base;
        const bool up = r > threshold;
        err = select(up, v - (base + q.step), r);
        return Tr::store(Tr::level(k + static_cast<int>(up), q));
    }
    err = 0.0f;
    return Tr::store(0);
}

// Floyd-Steinberg: e[0] is the previous error row, e[1] the current one, both
// at column 0 with one zero guard element on each side. A sample gathers 7/16
// of its left neighbour's error and 1, 5, 3 sixteenths of the three above.
template <class Tr, int N, class Th>
void fsRow(const typename Tr::Src* src, typename Tr::Dst* dst, float* const* e, int width, int y,
           const Quant& quant, const Th& th) {
    const Quant q = quant;  // local copies, which the stores cannot alias
    const Th t = th;
    const float* prev = e[0];
    float* cur = e[1];
    float left = cur[-1];
    for (int x = 0; x < width; ++x, src += N, dst += N) {
        const float sum = 3.0f * prev[x + 1] + 5.0f * prev[x] + prev[x - 1] + 7.0f * left;
        const float v = Tr::work(*src) + sum * 0.0625f;
        *dst = diffuseSample<Tr>(v, q, t(x, y), left);
        cur[x] = left;
    }
}

// Weights a, b, c and the divisor of the two-row kernels.
struct Stucki {
    static constexpr float a = 2.0f, b = 4.0f, c = 8.0f, div = 0.023809524f;  // 1/42
};
struct Jjn {
    static constexpr float a = 3.0f, b = 5.0f, c = 7.0f, div = 0.020833334f;  // 1/48
};

// Stucki and Jarvis-Judice-Ninke: e[0] the row two above, e[1] the row above,
// e[2] the current row, each with two zero guard elements on each side.
template <class Tr, class W, int N, class Th>
void twoRowsRow(const typename Tr::Src* src, typename Tr::Dst* dst, float* const* e, int width, int y,
                const Quant& quant, const Th& th) {
    const Quant q = quant;
    const Th t = th;
    const float* p2 = e[0];
    const float* p1 = e[1];
    float* cur = e[2];
    float left2 = cur[-2], left1 = cur[-1];
    for (int x = 0; x < width; ++x, src += N, dst += N) {
        const float sum = p2[x - 2] + W::a * p2[x - 1] + W::b * p2[x] + W::a * p2[x + 1] + p2[x + 2] +
                          W::a * p1[x - 2] + W::b * p1[x - 1] + W::c * p1[x] + W::b * p1[x + 1] + W::a * p1[x + 2] +
                          W::b * left2 + W::c * left1;
        const float v = Tr::work(*src) + sum * W::div;
        left2 = left1;
        *dst = diffuseSample<Tr>(v, q, t(x, y), left1);
        cur[x] = left1;
    }
}

// The error rows of each method: how many, their guard elements, their
// length, and the kernel. After every image row the rows rotate by one: the
// current row becomes the row above.
struct Fs {
    static constexpr int kRows = 2, kGuard = 1;
    static std::int64_t rowLen(int width) { return static_cast<std::int64_t>(width) + 2; }
    template <class Tr, int N, class Th>
    static constexpr auto kernel = &fsRow<Tr, N, Th>;
};

// The two-row kernels round their rows up to a multiple of 4 elements.
template <class W>
struct TwoRows {
    static constexpr int kRows = 3, kGuard = 2;
    static std::int64_t rowLen(int width) { return ((static_cast<std::int64_t>(width) + 3) & ~std::int64_t{3}) + 4; }
    template <class Tr, int N, class Th>
    static constexpr auto kernel = &twoRowsRow<Tr, W, N, Th>;
};

}  // namespace zor
