// Error diffusion: Floyd-Steinberg and the two-row Stucki / Jarvis-Judice-Ninke
// kernels, with or without noise on the rounding threshold.
//
// The work is parallel over channels, not rows: a probe learns the team size
// T, then T sections each own one slice of error rows and a contiguous range
// of channels, walking all rows of one channel before the next. Error rows are
// not cleared between the channels of one section, so the first row of a
// channel receives the errors of the last row of the channel before it; the
// result of a multi-channel image therefore depends on T.
#include "core/frame.h"
#include "core/memory.h"
#include "reducebits/reducebits.h"

#include <omp.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace zor {

namespace {

// Rounding thresholds: half a step, or the noise table.
struct HalfThreshold {
    float half;
    struct Row {
        float half;
        float operator()(int) const { return half; }
    };
    Row row(int) const { return {half}; }
};

struct NoiseThreshold {
    const NoiseTables* tables;
    struct Row {
        const NoiseTables* tables;
        int y;
        float operator()(int x) const { return tables->at(x, y); }
    };
    Row row(int y) const { return {tables, y}; }
};

// c ? a : b without a branch (the rounding decision is data-dependent).
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
        return Tr::store(Tr::level(k + (up ? 1 : 0), q));
    }
    err = 0.0f;
    return Tr::store(0);
}

// Floyd-Steinberg row kernel for one channel: prev and cur point at column 0
// of error rows that have one zero guard element on each side.
// The error of the left neighbour is kept in a register (and q in a local
// copy, which the error stores cannot alias).
template <class Tr, class ThRow>
void innerReduceBits_fs(const typename Tr::Src* src, typename Tr::Dst* dst, const float* prev, float* cur, int width,
                        const Quant& quant, ThRow th, int stride) {
    const Quant q = quant;
    float left = cur[-1];
    for (int x = 0; x < width; ++x, src += stride, dst += stride) {
        const float e = 3.0f * prev[x + 1] + 5.0f * prev[x] + prev[x - 1] + 7.0f * left;
        const float v = Tr::work(*src) + e * 0.0625f;
        *dst = diffuseSample<Tr>(v, q, th(x), left);
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

template <class Tr, class W, class ThRow>
void innerStJj(const typename Tr::Src* src, typename Tr::Dst* dst, const float* p2, const float* p1, float* cur,
               int width, const Quant& quant, ThRow th, int stride) {
    const Quant q = quant;
    float left2 = cur[-2], left1 = cur[-1];
    for (int x = 0; x < width; ++x, src += stride, dst += stride) {
        const float e = p2[x - 2] + W::a * p2[x - 1] + W::b * p2[x] + W::a * p2[x + 1] + p2[x + 2] +
                        W::a * p1[x - 2] + W::b * p1[x - 1] + W::c * p1[x] + W::b * p1[x + 1] + W::a * p1[x + 2] +
                        W::b * left2 + W::c * left1;
        const float v = Tr::work(*src) + e * W::div;
        left2 = left1;
        *dst = diffuseSample<Tr>(v, q, th(x), left1);
        cur[x] = left1;
    }
}

// Stucki/JJN row kernel; rows have two zero guard elements on each side.
template <class Tr, class ThRow>
void innerReduceBits_st_jj(const typename Tr::Src* src, typename Tr::Dst* dst, const float* p2, const float* p1,
                           float* cur, int width, const Quant& q, ThRow th, int stride, int dtype) {
    if (dtype == 3)
        innerStJj<Tr, Stucki>(src, dst, p2, p1, cur, width, q, th, stride);
    else
        innerStJj<Tr, Jjn>(src, dst, p2, p1, cur, width, q, th, stride);
}

// Error rows of one section. A slice holds the rows back to back, each with
// its guard elements.
struct FsRows {
    static std::int64_t sliceLen(int width) { return 2 * (static_cast<std::int64_t>(width) + 2); }

    float* prev;
    float* cur;
    FsRows(float* slice, int width) : prev(slice + 1), cur(slice + width + 2 + 1) {}
    void rotate() { std::swap(prev, cur); }

    template <class Tr, class ThRow>
    void run(const typename Tr::Src* s, typename Tr::Dst* d, int width, const Quant& q, ThRow th, int stride,
             int) {
        innerReduceBits_fs<Tr>(s, d, prev, cur, width, q, th, stride);
    }
};

struct StJjRows {
    static std::int64_t rowLen(int width) { return ((static_cast<std::int64_t>(width) + 3) & ~std::int64_t{3}) + 4; }
    static std::int64_t sliceLen(int width) { return 3 * rowLen(width); }

    float* p2;
    float* p1;
    float* cur;
    StJjRows(float* slice, int width)
        : p2(slice + 2), p1(slice + rowLen(width) + 2), cur(slice + 2 * rowLen(width) + 2) {}
    void rotate() {
        float* const oldP2 = p2;
        p2 = p1;
        p1 = cur;
        cur = oldP2;
    }

    template <class Tr, class ThRow>
    void run(const typename Tr::Src* s, typename Tr::Dst* d, int width, const Quant& q, ThRow th, int stride,
             int dtype) {
        innerReduceBits_st_jj<Tr>(s, d, p2, p1, cur, width, q, th, stride, dtype);
    }
};

template <class Tr>
struct DitherImage {
    const typename Tr::Src* src;
    std::ptrdiff_t srcStep;  // elements
    typename Tr::Dst* dst;
    std::ptrdiff_t dstStep;  // elements
    int width;
    int height;
    int stride;
};

// One section: clears its slice, then runs channels [first, end) over all
// rows, one channel after the other, keeping the error rows between them.
template <class Tr, class Rows, class Thresh>
void omp_section(const DitherImage<Tr>& img, const Quant& q, const Thresh& thresh, int first, int end, float* slice,
                 std::int64_t sliceLen, int dtype) {
    std::fill(slice, slice + sliceLen, 0.0f);
    Rows rows(slice, img.width);
    for (int c = first; c < end; ++c) {
        for (int y = 0; y < img.height; ++y) {
            rows.template run<Tr>(img.src + img.srcStep * y + c, img.dst + img.dstStep * y + c, img.width, q,
                                  thresh.row(y), img.stride, dtype);
            rows.rotate();
        }
    }
}

// Number of threads a region of the library's team size is granted here (one
// inside an active region when nesting is off).
int probeTeamSize(int team) {
    int granted = 1;
#pragma omp parallel num_threads(team) shared(granted)
    {
#pragma omp single
        granted = omp_get_num_threads();
    }
    return granted;
}

// Channel ranges of the sections for T = 2, 3, 4 sections.
struct SectionPlan {
    int first[4];
    int end[4];
};

SectionPlan sectionPlan(int sections, int channels) {
    if (sections == 2) return {{0, 2, 0, 0}, {2, channels, 0, 0}};
    if (sections == 3 && channels == 4) return {{0, 2, 3, 0}, {2, 3, 4, 0}};
    if (sections == 3) return {{0, 1, 2, 0}, {1, 2, 3, 0}};
    return {{0, 1, 2, 3}, {1, 2, 3, 4}};
}

template <class Tr, class Rows, class Thresh>
ZorStatus diffuseChannels(const DitherImage<Tr>& img, const Quant& q, const Thresh& thresh, int channels, int dtype) {
    const int team = teamSize();
    int sections = channels > 1 ? probeTeamSize(team) : 1;
    // Three channels never use more than three sections; four channels use
    // one section per channel however many threads are granted.
    sections = std::min(sections, channels);

    const std::int64_t sliceLen = Rows::sliceLen(img.width);
    const std::int64_t total = sliceLen * sections;
    if (total > INT32_MAX) return zorStsNoMemory;
    Block<float> block(static_cast<int>(total));
    if (!block) return zorStsNoMemory;
    float* const base = block.get();

    if (sections == 1) {
        omp_section<Tr, Rows>(img, q, thresh, 0, channels, base, sliceLen, dtype);
        return zorStsOk;
    }
    const SectionPlan plan = sectionPlan(sections, channels);
    auto run = [&](int s) {
        if (s < sections)
            omp_section<Tr, Rows>(img, q, thresh, plan.first[s], plan.end[s], base + sliceLen * s, sliceLen, dtype);
    };
#pragma omp parallel sections num_threads(team)
    {
#pragma omp section
        run(0);
#pragma omp section
        run(1);
#pragma omp section
        run(2);
#pragma omp section
        run(3);
    }
    return zorStsOk;
}

template <class Tr, class Rows>
ZorStatus errorDiffusion(const typename Tr::Src* src, int srcStep, typename Tr::Dst* dst, int dstStep, int width,
                         int height, int m, int noise, int channelCode, int dtype) {
    const Quant q = Tr::quant(m);
    const ChannelLayout lay = channelLayout(channelCode);
    const DitherImage<Tr> img{src, srcStep, dst, dstStep, width, height, lay.stride};
    if (noise > 0) {
        NoiseTables tables;
        const float low = static_cast<float>(50 - noise) * q.step / 100.0f;
        const float high = static_cast<float>(50 + noise) * q.step / 100.0f;
        const ZorStatus st = tables.init(low, high);
        if (st != zorStsOk) return st;
        return diffuseChannels<Tr, Rows>(img, q, NoiseThreshold{&tables}, lay.channels, dtype);
    }
    return diffuseChannels<Tr, Rows>(img, q, HalfThreshold{q.half}, lay.channels, dtype);
}

}  // namespace

template <class Tr>
ZorStatus ownReduceBits_fs(const typename Tr::Src* src, int srcStep, typename Tr::Dst* dst, int dstStep, int width,
                           int height, int m, int noise, int channelCode) {
    return errorDiffusion<Tr, FsRows>(src, srcStep, dst, dstStep, width, height, m, noise, channelCode, 0);
}

template <class Tr>
ZorStatus ownReduceBits_st_jj(const typename Tr::Src* src, int srcStep, typename Tr::Dst* dst, int dstStep,
                              int width, int height, int m, int noise, int channelCode, int dtype) {
    return errorDiffusion<Tr, StJjRows>(src, srcStep, dst, dstStep, width, height, m, noise, channelCode, dtype);
}

#define ZOR_RB_INSTANTIATE(Tr)                                                                                   \
    template ZorStatus ownReduceBits_fs<Tr>(const Tr::Src*, int, Tr::Dst*, int, int, int, int, int, int);        \
    template ZorStatus ownReduceBits_st_jj<Tr>(const Tr::Src*, int, Tr::Dst*, int, int, int, int, int, int, int);
ZOR_RB_FOR_EACH_TYPE(ZOR_RB_INSTANTIATE)
#undef ZOR_RB_INSTANTIATE

}  // namespace zor
