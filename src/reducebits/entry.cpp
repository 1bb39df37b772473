// zoriReduceBits_*: the checks, the dispatch on the method and the runs of
// the methods. Plain quantisation walks the rows serially with the steps in
// bytes; the dither methods take the steps in whole elements. The ordered
// dither is row-parallel. Error diffusion is parallel over channels instead:
// a probe learns the number of threads T granted, then T sections each own
// their error rows and a contiguous range of channels, walking all rows of
// one channel before the next. Error rows are not cleared between the
// channels of one section, so the first row of a channel receives the errors
// of the last row of the channel before it: the result of a multi-channel
// image depends on T.
#include "core/export.h"
#include "core/memory.h"
#include "reducebits/diffuse.h"
#include "reducebits/kernels.h"

#include <omp.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace zor {
namespace {

// The method as an int, read without assuming that it is one of the
// enumerators: callers may pass any int.
int ditherBits(const ZorDitherType& dtype) {
    int v;
    static_assert(sizeof(v) == sizeof(dtype), "ZorDitherType is an int");
    std::memcpy(&v, &dtype, sizeof(v));
    return v;
}

template <class Src, class Dst>
using TraitsOf = RbTraits<std::remove_const_t<typename Src::Sample>, typename Dst::Sample>;

// The arguments after the images are noise, method and levels.
struct NoiseRange {
    template <class S, class D, class... Rest>
    static ZorStatus test(ZoriSize, const S&, const D&, const Value<int>& noise, const Rest&...) {
        return noise.v < 0 || noise.v > 100 ? zorStsNoiseRangeErr : zorStsOk;
    }
};

struct LevelsRange {
    template <class S, class D>
    static ZorStatus test(ZoriSize, const S&, const D&, const Value<int>&, const Value<int>&,
                          const Value<int>& levels) {
        return levels.v < 2 || levels.v > TraitsOf<S, D>::kMaxLevels ? zorStsLevelsRangeErr : zorStsOk;
    }
};

using ReduceChecks = Checks<check::Null<kOuter>, check::Size<>, NoiseRange, LevelsRange>;

// ---------------------------------------------------------------------------
// Error diffusion

// Threads granted to a region of the library's team size here (one inside an
// active region when nesting is off).
int grantedThreads() {
    int granted = 1;
    forRows<Parallel>(1, [&granted](int) { granted = omp_get_num_threads(); });
    return granted;
}

template <class Tr, int Ch, class Method, class Src, class Dst, class Th>
ZorStatus diffuseChannels(ZoriSize roi, const Src& srcImage, const Dst& dstImage, const Quant& q, const Th& th) {
    const auto src = srcImage.view();
    const auto dst = dstImage.view();
    const DiffuseArea<Tr> area{src.p, src.step, dst.p, dst.step, Src::kSamples, roi.width, roi.height};
    const int team = teamSize();
    // Three channels never use more than three sections, four channels one
    // section per channel however many threads are granted.
    const int sections = Ch > 1 ? std::min(grantedThreads(), Ch) : 1;
    // The vector kernels' tiles take about 200 floats per column; images
    // whose tiles would pass 256 MB run the scalar kernel on its two or three
    // error rows.
    constexpr auto scalar = &diffuseSection<Tr, Method, Th>;
    auto kernel = DiffuseKernel<Tr, Method, Th>::resolve();
    if (kernel != scalar && diffuseScratch<Method>(roi.width, true) * sections > (1 << 26)) kernel = scalar;
    const std::int64_t sliceLen = diffuseScratch<Method>(roi.width, kernel != scalar);
    if (sliceLen * sections > INT32_MAX) return zorStsNoMemory;
    Block<float> block(static_cast<int>(sliceLen * sections));
    if (!block) return zorStsNoMemory;

    // One section: clears its error rows, then runs channels [first, end).
    const auto section = [&](int first, int end, float* slice) { kernel(area, first, end, q, th, slice); };
    if (sections == 1) {
        section(0, Ch, block.get());
        return zorStsOk;
    }
    // Channel ranges [b[s], b[s + 1]): two sections {0, 1} and the rest; three
    // sections of four channels {0, 1}, {2}, {3}; otherwise one channel each.
    static constexpr int kTwo[] = {0, 2, Ch}, kThreeOfFour[] = {0, 2, 3, 4}, kEach[] = {0, 1, 2, 3, 4};
    const int* b = sections == 2 ? kTwo : sections == 3 && Ch == 4 ? kThreeOfFour : kEach;
    const auto run = [&](int s) {
        if (s < sections) section(b[s], b[s + 1], block.get() + sliceLen * s);
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

// The noise variants round up when the residue exceeds a table value between
// (50 - noise) and (50 + noise) percent of a step.
template <class Tr, int Ch, class Method, class Src, class Dst>
ZorStatus diffuse(ZoriSize roi, const Src& src, const Dst& dst, int m, int noise) {
    const Quant q = Tr::quant(m);
    if (noise == 0) return diffuseChannels<Tr, Ch, Method>(roi, src, dst, q, HalfStep{q.half});
    NoiseTables tables;
    const float low = static_cast<float>(50 - noise) * q.step / 100.0f;
    const float high = static_cast<float>(50 + noise) * q.step / 100.0f;
    if (tables.init(low, high) != zorStsOk) return zorStsNoMemory;
    return diffuseChannels<Tr, Ch, Method>(roi, src, dst, q, NoiseThreshold{&tables});
}

// ---------------------------------------------------------------------------
// Plain quantisation, serial. 8u samples are looked up in a table quantised
// once per call (by a byte map in vectors where the target has one). 32f
// sources, and 16-bit ones where the target has vector kernels, are
// quantised sample by sample; 16-bit sources elsewhere look their samples up
// in a table of 65536 (from the allocator) when the image has enough samples
// to repay filling it.
template <class Tr, int Ch, class Images>
ZorStatus plain(ZoriSize roi, const Images& images, int m) {
    constexpr int N = std::tuple_element_t<0, Images>::kSamples;
    using D = typename Tr::Dst;
    if constexpr (Tr::kByteSrc) {
        D table[kPlainTableSize<Tr>];
        fillPlainTable<Tr>(table, m);
        return Rows<Serial, RbKernel<&plainLookupRow<Tr, Ch, N>>>::run(roi, images, std::make_tuple(Value<const D*>{table}));
    } else {
        using Direct = RbKernel<&plainRow<Tr, Ch, N>>;
        if (Tr::kFloatSrc || Direct::resolve() != &plainRow<Tr, Ch, N> ||
            static_cast<std::int64_t>(roi.width) * roi.height * Ch < kPlainTableSize<Tr> / 2)
            return Rows<Serial, Direct>::run(roi, images, std::make_tuple(Value<int>{m}));
        if constexpr (!Tr::kFloatSrc) {
            Block<D> table(kPlainTableSize<Tr>);
            if (!table) return zorStsNoMemory;
            fillPlainTable<Tr>(table.get(), m);
            return Rows<Serial, ScalarKernel<&plainLookupRow<Tr, Ch, N>>>::run(roi, images,
                                                                                std::make_tuple(Value<const D*>{table.get()}));
        }
        return zorStsOk;
    }
}

// ---------------------------------------------------------------------------
// Ordered dither: the matrix entry, plus noise between -noise and +noise
// percent, times the step.
template <class Tr, int Ch, class Images>
ZorStatus bayer(ZoriSize roi, const Images& images, int m, int noise) {
    constexpr int N = std::tuple_element_t<0, Images>::kSamples;
    const Quant q = Tr::quant(m);
    if (noise == 0) {
        using K = RbKernel<&bayerRow<Tr, Ch, N, BayerMatrix>>;
        const auto extras = std::make_tuple(Value<Quant>{q}, Value<BayerMatrix>{BayerMatrix(q.step)});
        return Rows<Parallel, K, RowIndex>::run(roi, images, extras);
    }
    NoiseTables tables;
    const float amount = static_cast<float>(noise) / 100.0f;
    if (tables.init(-amount, amount) != zorStsOk) return zorStsNoMemory;
    using K = RbKernel<&bayerRow<Tr, Ch, N, BayerNoise>>;
    const auto extras = std::make_tuple(Value<Quant>{q}, Value<BayerNoise>{{&tables, q.step}});
    return Rows<Parallel, K, RowIndex>::run(roi, images, extras);
}

// ---------------------------------------------------------------------------

template <class T, int N>
C<T, N, StepIn::Elements> inElements(const C<T, N>& image) {
    return {image.p, image.step};
}

// Ch channels processed per pixel. Methods outside 0..4 do nothing.
template <int Ch>
struct Reduce {
    template <class Images, class Extras>
    static ZorStatus run(ZoriSize roi, const Images& images, const Extras& extras) {
        const auto& [src, dst] = images;
        using Tr = TraitsOf<std::decay_t<decltype(src)>, std::decay_t<decltype(dst)>>;
        const auto& [noise, method, levels] = extras;
        const int m = levels.v - 1;
        const auto s = inElements(src);
        const auto d = inElements(dst);
        switch (method.v) {
            case zorDitherNone:  // noise is ignored
                return plain<Tr, Ch>(roi, images, m);
            case zorDitherFS: return diffuse<Tr, Ch, Fs>(roi, s, d, m, noise.v);
            case zorDitherJJN: return diffuse<Tr, Ch, TwoRows<Jjn>>(roi, s, d, m, noise.v);
            case zorDitherStucki: return diffuse<Tr, Ch, TwoRows<Stucki>>(roi, s, d, m, noise.v);
            case zorDitherBayer: return bayer<Tr, Ch>(roi, std::make_tuple(s, d), m, noise.v);
            default: return zorStsOk;
        }
    }
};

}  // namespace
}  // namespace zor

using namespace zor;

#define ZOR_DECL_DITHER ZorDitherType dtype
#define ZOR_EXPR_DITHER ::zor::Value<int>{::zor::ditherBits(dtype)}

ZOR_EXPORT(zoriReduceBits_8u_C1R, (ReduceChecks), (Reduce<1>), IN_C(Zor8u, 1), OUT_C(Zor8u, 1), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_8u_C3R, (ReduceChecks), (Reduce<3>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_8u_AC4R, (ReduceChecks), (Reduce<3>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_8u_C4R, (ReduceChecks), (Reduce<4>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_16u_C1R, (ReduceChecks), (Reduce<1>), IN_C(Zor16u, 1), OUT_C(Zor16u, 1), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_16u_C3R, (ReduceChecks), (Reduce<3>), IN_C(Zor16u, 3), OUT_C(Zor16u, 3), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_16u_AC4R, (ReduceChecks), (Reduce<3>), IN_C(Zor16u, 4), OUT_C(Zor16u, 4), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_16u_C4R, (ReduceChecks), (Reduce<4>), IN_C(Zor16u, 4), OUT_C(Zor16u, 4), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_16s_C1R, (ReduceChecks), (Reduce<1>), IN_C(Zor16s, 1), OUT_C(Zor16s, 1), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_16s_C3R, (ReduceChecks), (Reduce<3>), IN_C(Zor16s, 3), OUT_C(Zor16s, 3), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_16s_AC4R, (ReduceChecks), (Reduce<3>), IN_C(Zor16s, 4), OUT_C(Zor16s, 4), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_16s_C4R, (ReduceChecks), (Reduce<4>), IN_C(Zor16s, 4), OUT_C(Zor16s, 4), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_16u8u_C1R, (ReduceChecks), (Reduce<1>), IN_C(Zor16u, 1), OUT_C(Zor8u, 1), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_16u8u_C3R, (ReduceChecks), (Reduce<3>), IN_C(Zor16u, 3), OUT_C(Zor8u, 3), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_16u8u_AC4R, (ReduceChecks), (Reduce<3>), IN_C(Zor16u, 4), OUT_C(Zor8u, 4), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_16u8u_C4R, (ReduceChecks), (Reduce<4>), IN_C(Zor16u, 4), OUT_C(Zor8u, 4), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_16s8u_C1R, (ReduceChecks), (Reduce<1>), IN_C(Zor16s, 1), OUT_C(Zor8u, 1), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_16s8u_C3R, (ReduceChecks), (Reduce<3>), IN_C(Zor16s, 3), OUT_C(Zor8u, 3), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_16s8u_AC4R, (ReduceChecks), (Reduce<3>), IN_C(Zor16s, 4), OUT_C(Zor8u, 4), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_16s8u_C4R, (ReduceChecks), (Reduce<4>), IN_C(Zor16s, 4), OUT_C(Zor8u, 4), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_32f8u_C1R, (ReduceChecks), (Reduce<1>), IN_C(Zor32f, 1), OUT_C(Zor8u, 1), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_32f8u_C3R, (ReduceChecks), (Reduce<3>), IN_C(Zor32f, 3), OUT_C(Zor8u, 3), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_32f8u_AC4R, (ReduceChecks), (Reduce<3>), IN_C(Zor32f, 4), OUT_C(Zor8u, 4), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_32f8u_C4R, (ReduceChecks), (Reduce<4>), IN_C(Zor32f, 4), OUT_C(Zor8u, 4), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_32f16u_C1R, (ReduceChecks), (Reduce<1>), IN_C(Zor32f, 1), OUT_C(Zor16u, 1), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_32f16u_C3R, (ReduceChecks), (Reduce<3>), IN_C(Zor32f, 3), OUT_C(Zor16u, 3), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_32f16u_AC4R, (ReduceChecks), (Reduce<3>), IN_C(Zor32f, 4), OUT_C(Zor16u, 4), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_32f16u_C4R, (ReduceChecks), (Reduce<4>), IN_C(Zor32f, 4), OUT_C(Zor16u, 4), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_32f16s_C1R, (ReduceChecks), (Reduce<1>), IN_C(Zor32f, 1), OUT_C(Zor16s, 1), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_32f16s_C3R, (ReduceChecks), (Reduce<3>), IN_C(Zor32f, 3), OUT_C(Zor16s, 3), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_32f16s_AC4R, (ReduceChecks), (Reduce<3>), IN_C(Zor32f, 4), OUT_C(Zor16s, 4), ROI, ARG(int, noise), DITHER, ARG(int, levels))
ZOR_EXPORT(zoriReduceBits_32f16s_C4R, (ReduceChecks), (Reduce<4>), IN_C(Zor32f, 4), OUT_C(Zor16s, 4), ROI, ARG(int, noise), DITHER, ARG(int, levels))
