// Ordered dither with the 4x4 Bayer matrix, row-parallel. The thresholds run
// from 0 to 1 inclusive (index / 15, not (index + 0.5) / 16): the entry 0
// rounds up every sample with a non-zero remainder and the entry 1 never
// does. All channels of a pixel share the threshold of the pixel's position
// in the region of interest.
#include "core/frame.h"
#include "reducebits/reducebits.h"

namespace zor {

namespace {

constexpr float kBayerThresh[16] = {
    0.0f / 15, 8.0f / 15, 2.0f / 15, 10.0f / 15,  //
    12.0f / 15, 4.0f / 15, 14.0f / 15, 6.0f / 15,  //
    3.0f / 15, 11.0f / 15, 1.0f / 15, 9.0f / 15,   //
    15.0f / 15, 7.0f / 15, 13.0f / 15, 5.0f / 15,  //
};

// Thresholds of one row: the matrix pre-scaled by the step, or, with noise,
// (matrix entry + noise) * step per pixel.
struct ScaledMatrixRow {
    const float* row;  // 4 entries
    float operator()(int x) const { return row[x & 3]; }
};

struct NoisyMatrixRow {
    const float* row;  // 4 unscaled entries
    const NoiseTables* tables;
    int y;
    float step;
    float operator()(int x) const { return (row[x & 3] + tables->at(x, y)) * step; }
};

template <class Tr>
inline typename Tr::Dst orderedSample(typename Tr::Src s, const Quant& q, float threshold) {
    const float v = Tr::work(s);
    int k = Tr::levelIndex(v, q);
    const float r = v - static_cast<float>(k) * q.step;
    if (r > threshold) k = static_cast<int>(static_cast<unsigned>(k) + 1u);
    return Tr::store(Tr::bayerClamp(Tr::level(k, q)));
}

// Row kernel for Channels channels per pixel of Stride elements (1/1 for C1,
// 3/3 for C3, 3/4 for AC4, 4/4 for C4).
template <class Tr, int Channels, int Stride, class ThRow>
void innerReduceBits_bayer(const typename Tr::Src* src, typename Tr::Dst* dst, int width, const Quant& q, ThRow th) {
    for (int x = 0; x < width; ++x, src += Stride, dst += Stride) {
        const float t = th(x);
        for (int c = 0; c < Channels; ++c) dst[c] = orderedSample<Tr>(src[c], q, t);
    }
}

template <class Tr, int Channels, int Stride, class MakeRow>
void bayerRows(const typename Tr::Src* src, std::ptrdiff_t srcStep, typename Tr::Dst* dst, std::ptrdiff_t dstStep,
               int width, int height, const Quant& q, const MakeRow& makeRow) {
    parallelRows(height, [&](int y) {
        innerReduceBits_bayer<Tr, Channels, Stride>(src + srcStep * y, dst + dstStep * y, width, q, makeRow(y));
    });
}

template <class Tr, class MakeRow>
void bayerLayout(const typename Tr::Src* src, int srcStep, typename Tr::Dst* dst, int dstStep, int width,
                 int height, const Quant& q, int channelCode, const MakeRow& makeRow) {
    switch (channelCode) {
        case 1: bayerRows<Tr, 1, 1>(src, srcStep, dst, dstStep, width, height, q, makeRow); break;
        case 3: bayerRows<Tr, 3, 3>(src, srcStep, dst, dstStep, width, height, q, makeRow); break;
        case 4: bayerRows<Tr, 3, 4>(src, srcStep, dst, dstStep, width, height, q, makeRow); break;
        default: bayerRows<Tr, 4, 4>(src, srcStep, dst, dstStep, width, height, q, makeRow); break;
    }
}

}  // namespace

template <class Tr>
ZorStatus ownReduceBits_bayer(const typename Tr::Src* src, int srcStep, typename Tr::Dst* dst, int dstStep,
                              int width, int height, int m, int noise, int channelCode) {
    const Quant q = Tr::quant(m);
    if (noise > 0) {
        NoiseTables tables;
        const float amount = static_cast<float>(noise) / 100.0f;
        const ZorStatus st = tables.init(-amount, amount);
        if (st != zorStsOk) return st;
        const NoiseTables* const t = &tables;
        const float step = q.step;
        bayerLayout<Tr>(src, srcStep, dst, dstStep, width, height, q, channelCode, [t, step](int y) {
            return NoisyMatrixRow{kBayerThresh + 4 * (y & 3), t, y, step};
        });
        return zorStsOk;
    }
    float scaled[16];
    for (int i = 0; i < 16; ++i) scaled[i] = kBayerThresh[i] * q.step;
    const float* const sc = scaled;
    bayerLayout<Tr>(src, srcStep, dst, dstStep, width, height, q, channelCode,
                    [sc](int y) { return ScaledMatrixRow{sc + 4 * (y & 3)}; });
    return zorStsOk;
}

#define ZOR_RB_INSTANTIATE(Tr) \
    template ZorStatus ownReduceBits_bayer<Tr>(const Tr::Src*, int, Tr::Dst*, int, int, int, int, int, int);
ZOR_RB_FOR_EACH_TYPE(ZOR_RB_INSTANTIATE)
#undef ZOR_RB_INSTANTIATE

}  // namespace zor
