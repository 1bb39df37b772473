// 4:4:4 YCbCr conversions at 1920x1080.
#include "zorcc.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

constexpr int kW = 1920, kH = 1080;

template <ZorStatus (*Fn)(const Zor8u*, int, Zor8u*, int, ZoriSize), int Ch>
void interleaved(benchmark::State& state) {
    std::vector<Zor8u> src(static_cast<std::size_t>(kW) * kH * Ch), dst(src.size());
    for (std::size_t i = 0; i < src.size(); ++i) src[i] = static_cast<Zor8u>(i * 7 + i / 3);
    for (auto _ : state) {
        Fn(src.data(), kW * Ch, dst.data(), kW * Ch, {kW, kH});
        benchmark::DoNotOptimize(dst.data());
    }
    state.SetItemsProcessed(state.iterations() * kW * kH);
}

void planarToBgr(benchmark::State& state) {
    std::vector<Zor8u> y(static_cast<std::size_t>(kW) * kH, 100), cb(y.size(), 90), cr(y.size(), 200);
    std::vector<Zor8u> dst(y.size() * 3);
    const Zor8u* planes[3] = {y.data(), cb.data(), cr.data()};
    for (auto _ : state) {
        zoriYCbCrToBGR_8u_P3C3R(planes, kW, dst.data(), kW * 3, {kW, kH});
        benchmark::DoNotOptimize(dst.data());
    }
    state.SetItemsProcessed(state.iterations() * kW * kH);
}

BENCHMARK_TEMPLATE(interleaved, zoriRGBToYCbCr_8u_C3R, 3)->Name("RGBToYCbCr_8u_C3R");
BENCHMARK_TEMPLATE(interleaved, zoriYCbCrToRGB_8u_C3R, 3)->Name("YCbCrToRGB_8u_C3R");
BENCHMARK_TEMPLATE(interleaved, zoriYCbCrToRGB_8u_AC4R, 4)->Name("YCbCrToRGB_8u_AC4R");
BENCHMARK(planarToBgr)->Name("YCbCrToBGR_8u_P3C3R");

}  // namespace
