// Row kernels of the bit-depth reduction, the scalar reference of each shape.
// Tr is the RbTraits of the type pair; a pixel holds N elements of which the
// first Ch are processed (C1 1/1, C3 3/3, AC4 3/4, C4 4/4). Thresholds come
// from a source th(x, y) of the pixel's position in the region: the ordered
// dither's matrix, half a step, or either perturbed by the noise tables.
#pragma once

#include "core/image.h"
#include "core/kernel_set.h"
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
template <class Tr>
inline typename Tr::Dst plainSample(typename Tr::Src s, int m) {
    const float mf = static_cast<float>(m);
    const float inv = 1.0f / mf;
    const float half = 0.5f * inv;
    const float v = Tr::plainValue(s);
    float q = static_cast<float>(Tr::toInt(mf * v)) * inv;
    if (v - q > half) q = q + inv;
    return Tr::store(Tr::clampTop(Tr::toInt(q * Tr::kDstScale)));
}

template <class Tr, int Ch, int N>
void plainRow(SrcRow<Tr, N> s, DstRow<Tr, N> d, int width, int m) {
    for (int x = 0; x < width; ++x, s.p += N, d.p += N)
        for (int c = 0; c < Ch; ++c) d.p[c] = plainSample<Tr>(s.p[c], m);
}

// 8-bit and 16-bit sources: the result depends only on the sample and m, so
// a call quantises every possible sample once into a table (indexed by the
// sample on the unsigned scale) and the rows look it up.
template <class Tr>
inline constexpr int kPlainTableSize = Tr::kByteSrc ? 256 : 65536;

template <class Tr>
void fillPlainTable(typename Tr::Dst* table, int m) {
    using S = typename Tr::Src;
    for (int u = 0; u < kPlainTableSize<Tr>; ++u) table[u] = plainSample<Tr>(static_cast<S>(Offset16<S>::out(u)), m);
}

template <class Tr, int Ch, int N>
void plainLookupRow(SrcRow<Tr, N> s, DstRow<Tr, N> d, int width, const typename Tr::Dst* table) {
    using S = typename Tr::Src;
    for (int x = 0; x < width; ++x, s.p += N, d.p += N)
        for (int c = 0; c < Ch; ++c) d.p[c] = table[Offset16<S>::in(s.p[c])];
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
    BayerMatrix() = default;
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

// A threshold source seen from column x0 of the row on (the tail of a row
// that a vector kernel hands to the scalar kernel).
template <class Th>
struct FromColumn {
    Th th;
    int x0;
    float operator()(int x, int y) const { return th(x + x0, y); }
};

// All channels of a pixel share its threshold. 16-bit sources clamp to the
// destination range; 8u and 32f store the low bits of the level.
template <class Tr, int Ch, int N, class Th>
void bayerRow(SrcRow<Tr, N> s, DstRow<Tr, N> d, int width, int y, Quant q, Th th) {
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
// kSkew is the column shift from one row to the next in the vector kernels'
// wavefront (reducebits/diffuse.h).
struct Fs {
    static constexpr int kRows = 2, kGuard = 1, kSkew = 3;
    static std::int64_t rowLen(int width) { return static_cast<std::int64_t>(width) + 2; }
    template <class Tr, int N, class Th>
    static constexpr auto kernel = &fsRow<Tr, N, Th>;
};

// The two-row kernels round their rows up to a multiple of 4 elements.
template <class W>
struct TwoRows {
    static constexpr int kRows = 3, kGuard = 2, kSkew = 4;
    static std::int64_t rowLen(int width) { return ((static_cast<std::int64_t>(width) + 3) & ~std::int64_t{3}) + 4; }
    template <class Tr, int N, class Th>
    static constexpr auto kernel = &twoRowsRow<Tr, W, N, Th>;
};

// ---------------------------------------------------------------------------
// The shapes with vector kernels (reducebits/reducebits_hwy.cpp): the plain
// table lookup of 8u, plain quantisation of 16-bit and 32f sources and the
// ordered dither of every type pair, with and without noise, in the layouts
// C1, C3, AC4 and C4 (Ch processed of N).
using Rb8u = RbTraits<Zor8u, Zor8u>;
using Rb16u = RbTraits<Zor16u, Zor16u>;
using Rb16s = RbTraits<Zor16s, Zor16s>;
using Rb16u8u = RbTraits<Zor16u, Zor8u>;
using Rb16s8u = RbTraits<Zor16s, Zor8u>;
using Rb32f8u = RbTraits<Zor32f, Zor8u>;
using Rb32f16u = RbTraits<Zor32f, Zor16u>;
using Rb32f16s = RbTraits<Zor32f, Zor16s>;

#define ZOR_RB_LAYOUTS(X, name, fn, Tr, ...)                                                      \
    X(name##C1, fn, (Tr, 1, 1 __VA_ARGS__)) X(name##C3, fn, (Tr, 3, 3 __VA_ARGS__))             \
    X(name##AC4, fn, (Tr, 3, 4 __VA_ARGS__)) X(name##C4, fn, (Tr, 4, 4 __VA_ARGS__))
#define ZOR_RB_BAYER(X, name, Th)                                                                   \
    ZOR_RB_LAYOUTS(X, name##8u, bayerRow, Rb8u, , Th) ZOR_RB_LAYOUTS(X, name##16u, bayerRow, Rb16u, , Th) \
    ZOR_RB_LAYOUTS(X, name##16s, bayerRow, Rb16s, , Th)                                          \
    ZOR_RB_LAYOUTS(X, name##16u8u, bayerRow, Rb16u8u, , Th)                                      \
    ZOR_RB_LAYOUTS(X, name##16s8u, bayerRow, Rb16s8u, , Th)                                      \
    ZOR_RB_LAYOUTS(X, name##32f8u, bayerRow, Rb32f8u, , Th)                                      \
    ZOR_RB_LAYOUTS(X, name##32f16u, bayerRow, Rb32f16u, , Th)                                    \
    ZOR_RB_LAYOUTS(X, name##32f16s, bayerRow, Rb32f16s, , Th)
#define ZOR_RB_PLAIN16(X)                                                                            \
    ZOR_RB_LAYOUTS(X, plain16u, plainRow, Rb16u) ZOR_RB_LAYOUTS(X, plain16s, plainRow, Rb16s)         \
    ZOR_RB_LAYOUTS(X, plain16u8u, plainRow, Rb16u8u) ZOR_RB_LAYOUTS(X, plain16s8u, plainRow, Rb16s8u)
#define ZOR_RB_KERNELS(X)                                                                            \
    ZOR_RB_LAYOUTS(X, plainTable8u, plainLookupRow, Rb8u)                                            \
    ZOR_RB_PLAIN16(X)                                                                                \
    ZOR_RB_LAYOUTS(X, plain32f8u, plainRow, Rb32f8u) ZOR_RB_LAYOUTS(X, plain32f16u, plainRow, Rb32f16u) \
    ZOR_RB_LAYOUTS(X, plain32f16s, plainRow, Rb32f16s)                                               \
    ZOR_RB_BAYER(X, bayer, BayerMatrix) ZOR_RB_BAYER(X, bayerNoise, BayerNoise)

ZOR_KERNEL_TABLE(RbKernels, ZOR_RB_KERNELS, kRbScalar, rbTables, RbK)

// The kernel set of a scalar kernel that has a vector kernel in the list.
template <auto Fn>
struct RbShape;
#define ZOR_RB_SHAPE(name, fn, args)                      \
    template <>                                           \
    struct RbShape<&fn<ZOR_STRIP args>> {                 \
        static constexpr auto member = &RbKernels::name;  \
    };
ZOR_RB_KERNELS(ZOR_RB_SHAPE)
#undef ZOR_RB_SHAPE
template <auto Fn>
using RbKernel = RbK<RbShape<Fn>::member>;

}  // namespace zor
