// Colour to gray: the weighted sum of channels 0..2 (RGBToGray with fixed
// weights, ColorToGray with the caller's). Serial rows.
#include "core/export.h"
#include "models/gray_kernels.h"

#include <tuple>

namespace zor {
namespace {

// The weights of a call: the caller's (an optional pointer after the size,
// not checked: null means the defaults), for 8u converted once to 1/4096
// units by truncate(c * 4096 + 0.5), which wraps negative weights through the
// unsigned product sum.
template <class T>
GrayWeights<T> grayWeights(const Zor32f* c) {
    if constexpr (std::is_same_v<T, Zor8u>) {
        if (!c) return {{1225, 2404, 467}};
        GrayWeights<T> k;
        for (int i = 0; i < 3; ++i) k.w[i] = static_cast<std::uint32_t>(truncToInt32(static_cast<double>(c[i]) * 4096.0 + 0.5));
        return k;
    } else {
        if (!c) return {{0.299f, 0.587f, 0.114f}};
        return {{c[0], c[1], c[2]}};
    }
}

// Every pixel stands alone, so contiguous images go as one long row.
template <class T, auto Member>
struct GrayRun {
    template <class Images, class... Extras>
    static ZorStatus run(ZoriSize roi, const Images& images, const std::tuple<Extras...>& extras) {
        const Zor32f* caller = nullptr;
        if constexpr (sizeof...(Extras) == 1) caller = std::get<0>(extras).value();
        return Rows<Serial, GrayK<Member>, Fuse<1>>::run(
            roi, images, std::make_tuple(Value<GrayWeights<T>>{grayWeights<T>(caller)}));
    }
};

}  // namespace
}  // namespace zor

using namespace zor;

// Steps of 16-bit and float images are rounded down to whole samples.
#define ZOR_GRAY(T, N) IN_C(T, N, ::zor::StepIn::Elements), OUT_C(T, 1, ::zor::StepIn::Elements), ROI
#define ZOR_DECL_WEIGHTS const Zor32f coeffs[3]
#define ZOR_EXPR_WEIGHTS ::zor::Value<const Zor32f*>{coeffs}
using K = GrayKernels;

ZOR_EXPORT(zoriRGBToGray_8u_C3C1R, (StandardChecks), (GrayRun<Zor8u, &K::c3u8>), ZOR_GRAY(Zor8u, 3))
ZOR_EXPORT(zoriRGBToGray_8u_AC4C1R, (StandardChecks), (GrayRun<Zor8u, &K::ac4u8>), ZOR_GRAY(Zor8u, 4))
ZOR_EXPORT(zoriRGBToGray_16u_C3C1R, (StandardChecks), (GrayRun<Zor16u, &K::c3u16>), ZOR_GRAY(Zor16u, 3))
ZOR_EXPORT(zoriRGBToGray_16u_AC4C1R, (StandardChecks), (GrayRun<Zor16u, &K::ac4u16>), ZOR_GRAY(Zor16u, 4))
ZOR_EXPORT(zoriRGBToGray_16s_C3C1R, (StandardChecks), (GrayRun<Zor16s, &K::c3s16>), ZOR_GRAY(Zor16s, 3))
ZOR_EXPORT(zoriRGBToGray_16s_AC4C1R, (StandardChecks), (GrayRun<Zor16s, &K::ac4s16>), ZOR_GRAY(Zor16s, 4))
ZOR_EXPORT(zoriRGBToGray_32f_C3C1R, (StandardChecks), (GrayRun<Zor32f, &K::c3f32>), ZOR_GRAY(Zor32f, 3))
ZOR_EXPORT(zoriRGBToGray_32f_AC4C1R, (StandardChecks), (GrayRun<Zor32f, &K::ac4f32>), ZOR_GRAY(Zor32f, 4))
ZOR_EXPORT(zoriColorToGray_8u_C3C1R, (StandardChecks), (GrayRun<Zor8u, &K::c3u8>), ZOR_GRAY(Zor8u, 3), WEIGHTS)
ZOR_EXPORT(zoriColorToGray_8u_AC4C1R, (StandardChecks), (GrayRun<Zor8u, &K::ac4u8>), ZOR_GRAY(Zor8u, 4), WEIGHTS)
ZOR_EXPORT(zoriColorToGray_16u_C3C1R, (StandardChecks), (GrayRun<Zor16u, &K::c3u16>), ZOR_GRAY(Zor16u, 3), WEIGHTS)
ZOR_EXPORT(zoriColorToGray_16u_AC4C1R, (StandardChecks), (GrayRun<Zor16u, &K::ac4u16>), ZOR_GRAY(Zor16u, 4), WEIGHTS)
ZOR_EXPORT(zoriColorToGray_16s_C3C1R, (StandardChecks), (GrayRun<Zor16s, &K::c3s16>), ZOR_GRAY(Zor16s, 3), WEIGHTS)
ZOR_EXPORT(zoriColorToGray_16s_AC4C1R, (StandardChecks), (GrayRun<Zor16s, &K::ac4s16>), ZOR_GRAY(Zor16s, 4), WEIGHTS)
ZOR_EXPORT(zoriColorToGray_32f_C3C1R, (StandardChecks), (GrayRun<Zor32f, &K::c3f32>), ZOR_GRAY(Zor32f, 3), WEIGHTS)
ZOR_EXPORT(zoriColorToGray_32f_AC4C1R, (StandardChecks), (GrayRun<Zor32f, &K::ac4f32>), ZOR_GRAY(Zor32f, 4), WEIGHTS)
