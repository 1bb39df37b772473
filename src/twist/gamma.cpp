// Gamma correction: the export table. 8u through the stored tables, 16u per
// sample or through a table built per call, 32f on a caller-given range.
// Serial rows; steps are validated after the size.
#include "core/export.h"
#include "core/memory.h"
#include "twist/gamma_kernels.h"

namespace zor {
namespace {

// The 16u table of every value through the forward or inverse curve.
void owniGammaInitFwd16u(Zor16u* table) { GammaK<&GammaKernels::tableFwd16u>::resolve()(table, 0, kGammaTableLen16u); }

void owniGammaInitInv16u(Zor16u* table) { GammaK<&GammaKernels::tableInv16u>::resolve()(table, 0, kGammaTableLen16u); }

// The 8u and 32f functions: their sample map, made once per call, and their
// kernel set.
template <class Fn>
struct MapOf;
template <class S, class D, class M>
struct MapOf<void (*)(S, D, int, M)> {
    using type = M;
};
template <auto Member>
using Gamma = PreparedRows<typename MapOf<std::decay_t<decltype(GammaKernels{}.*Member)>>::type, GammaK<Member>>;

// Small images (at most 65,536 samples, three per pixel in every layout) are
// computed per sample; larger ones through a table of all 65,536 values from
// the library's allocator, which gives the same results.
template <bool Fwd, class L>
struct Gamma16u {
    using Direct = PreparedRows<Curve16u<Fwd>, ScalarKernel<&innerGamma<L, Zor16u, Curve16u<Fwd>>>>;
    using Mapped = Rows<Serial, ScalarKernel<&innerGamma<L, Zor16u, Table16u>>, Fuse<1>>;

    template <class Images, class Extras>
    static ZorStatus run(ZoriSize roi, const Images& images, const Extras& extras) {
        if (3LL * roi.width * roi.height <= kGammaTableLen16u) return Direct::run(roi, images, extras);
        Block<Zor16u> table(kGammaTableLen16u);
        if (!table) return zorStsNoMemory;
        if (Fwd)
            owniGammaInitFwd16u(table.get());
        else
            owniGammaInitInv16u(table.get());
        return Mapped::run(roi, images, std::make_tuple(Value<Table16u>{{table.get()}}));
    }
};

// The range vMax - vMin must be greater than 0 (a NaN fails); tested before
// everything else, the pointers included.
struct GammaRange {
    template <class... A>
    static ZorStatus test(ZoriSize, const A&... a) {
        const auto args = std::forward_as_tuple(a...);
        constexpr std::size_t n = sizeof...(A);
        const Zor32f vMin = std::get<n - 2>(args).value(), vMax = std::get<n - 1>(args).value();
        return vMax - vMin > 0.0f ? zorStsOk : zorStsBadGammaRange;
    }
};
using Checks32f = Checks<GammaRange, check::Null<kOuter | kPlanes>, check::Size<>, check::Steps>;

}  // namespace
}  // namespace zor

#define ZOR_DECL_RANGE Zor32f vMin, Zor32f vMax
#define ZOR_EXPR_RANGE ::zor::Value<Zor32f>{vMin}, ::zor::Value<Zor32f>{vMax}

using namespace zor;

ZOR_EXPORT(zoriGammaFwd_8u_C3R, (ChecksWithSteps), (Gamma<&GammaKernels::fwdC3u8>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriGammaFwd_8u_C3IR, (ChecksWithSteps), (Gamma<&GammaKernels::fwdC3u8>), IO_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriGammaFwd_8u_AC4R, (ChecksWithSteps), (Gamma<&GammaKernels::fwdAC4u8>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriGammaFwd_8u_AC4IR, (ChecksWithSteps), (Gamma<&GammaKernels::fwdAC4u8>), IO_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriGammaFwd_8u_P3R, (ChecksWithSteps), (Gamma<&GammaKernels::fwdP3u8>), IN_P3(Zor8u), OUT_P3(Zor8u), ROI)
ZOR_EXPORT(zoriGammaFwd_8u_IP3R, (ChecksWithSteps), (Gamma<&GammaKernels::fwdP3u8>), IO_P3(Zor8u), ROI)
ZOR_EXPORT(zoriGammaInv_8u_C3R, (ChecksWithSteps), (Gamma<&GammaKernels::invC3u8>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriGammaInv_8u_C3IR, (ChecksWithSteps), (Gamma<&GammaKernels::invC3u8>), IO_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriGammaInv_8u_AC4R, (ChecksWithSteps), (Gamma<&GammaKernels::invAC4u8>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriGammaInv_8u_AC4IR, (ChecksWithSteps), (Gamma<&GammaKernels::invAC4u8>), IO_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriGammaInv_8u_P3R, (ChecksWithSteps), (Gamma<&GammaKernels::invP3u8>), IN_P3(Zor8u), OUT_P3(Zor8u), ROI)
ZOR_EXPORT(zoriGammaInv_8u_IP3R, (ChecksWithSteps), (Gamma<&GammaKernels::invP3u8>), IO_P3(Zor8u), ROI)
ZOR_EXPORT(zoriGammaFwd_16u_C3R, (ChecksWithSteps), (Gamma16u<true, Interleaved<3>>), IN_C(Zor16u, 3), OUT_C(Zor16u, 3), ROI)
ZOR_EXPORT(zoriGammaFwd_16u_C3IR, (ChecksWithSteps), (Gamma16u<true, Interleaved<3>>), IO_C(Zor16u, 3), ROI)
ZOR_EXPORT(zoriGammaFwd_16u_AC4R, (ChecksWithSteps), (Gamma16u<true, Interleaved<4>>), IN_C(Zor16u, 4), OUT_C(Zor16u, 4), ROI)
ZOR_EXPORT(zoriGammaFwd_16u_AC4IR, (ChecksWithSteps), (Gamma16u<true, Interleaved<4>>), IO_C(Zor16u, 4), ROI)
ZOR_EXPORT(zoriGammaFwd_16u_P3R, (ChecksWithSteps), (Gamma16u<true, Planar>), IN_P3(Zor16u), OUT_P3(Zor16u), ROI)
ZOR_EXPORT(zoriGammaFwd_16u_IP3R, (ChecksWithSteps), (Gamma16u<true, Planar>), IO_P3(Zor16u), ROI)
ZOR_EXPORT(zoriGammaInv_16u_C3R, (ChecksWithSteps), (Gamma16u<false, Interleaved<3>>), IN_C(Zor16u, 3), OUT_C(Zor16u, 3), ROI)
ZOR_EXPORT(zoriGammaInv_16u_C3IR, (ChecksWithSteps), (Gamma16u<false, Interleaved<3>>), IO_C(Zor16u, 3), ROI)
ZOR_EXPORT(zoriGammaInv_16u_AC4R, (ChecksWithSteps), (Gamma16u<false, Interleaved<4>>), IN_C(Zor16u, 4), OUT_C(Zor16u, 4), ROI)
ZOR_EXPORT(zoriGammaInv_16u_AC4IR, (ChecksWithSteps), (Gamma16u<false, Interleaved<4>>), IO_C(Zor16u, 4), ROI)
ZOR_EXPORT(zoriGammaInv_16u_P3R, (ChecksWithSteps), (Gamma16u<false, Planar>), IN_P3(Zor16u), OUT_P3(Zor16u), ROI)
ZOR_EXPORT(zoriGammaInv_16u_IP3R, (ChecksWithSteps), (Gamma16u<false, Planar>), IO_P3(Zor16u), ROI)
ZOR_EXPORT(zoriGammaFwd_32f_C3R, (Checks32f), (Gamma<&GammaKernels::fwdC3f32>), IN_C(Zor32f, 3), OUT_C(Zor32f, 3), ROI, RANGE)
ZOR_EXPORT(zoriGammaFwd_32f_C3IR, (Checks32f), (Gamma<&GammaKernels::fwdC3f32>), IO_C(Zor32f, 3), ROI, RANGE)
ZOR_EXPORT(zoriGammaFwd_32f_AC4R, (Checks32f), (Gamma<&GammaKernels::fwdAC4f32>), IN_C(Zor32f, 4), OUT_C(Zor32f, 4), ROI, RANGE)
ZOR_EXPORT(zoriGammaFwd_32f_AC4IR, (Checks32f), (Gamma<&GammaKernels::fwdAC4f32>), IO_C(Zor32f, 4), ROI, RANGE)
ZOR_EXPORT(zoriGammaFwd_32f_P3R, (Checks32f), (Gamma<&GammaKernels::fwdP3f32>), IN_P3(Zor32f), OUT_P3(Zor32f), ROI, RANGE)
ZOR_EXPORT(zoriGammaFwd_32f_IP3R, (Checks32f), (Gamma<&GammaKernels::fwdP3f32>), IO_P3(Zor32f), ROI, RANGE)
ZOR_EXPORT(zoriGammaInv_32f_C3R, (Checks32f), (Gamma<&GammaKernels::invC3f32>), IN_C(Zor32f, 3), OUT_C(Zor32f, 3), ROI, RANGE)
ZOR_EXPORT(zoriGammaInv_32f_C3IR, (Checks32f), (Gamma<&GammaKernels::invC3f32>), IO_C(Zor32f, 3), ROI, RANGE)
ZOR_EXPORT(zoriGammaInv_32f_AC4R, (Checks32f), (Gamma<&GammaKernels::invAC4f32>), IN_C(Zor32f, 4), OUT_C(Zor32f, 4), ROI, RANGE)
ZOR_EXPORT(zoriGammaInv_32f_AC4IR, (Checks32f), (Gamma<&GammaKernels::invAC4f32>), IO_C(Zor32f, 4), ROI, RANGE)
ZOR_EXPORT(zoriGammaInv_32f_P3R, (Checks32f), (Gamma<&GammaKernels::invP3f32>), IN_P3(Zor32f), OUT_P3(Zor32f), ROI, RANGE)
ZOR_EXPORT(zoriGammaInv_32f_IP3R, (Checks32f), (Gamma<&GammaKernels::invP3f32>), IO_P3(Zor32f), ROI, RANGE)
