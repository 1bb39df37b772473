// Subsampled YCbCr encoders and decoders (4:2:2, 4:2:0) at 1920x1080. The
// video family runs its rows serially, so the team size does not matter.
#include "zorcc.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

constexpr int kW = 1920, kH = 1080;

std::vector<Zor8u> pattern(std::size_t n) {
    std::vector<Zor8u> v(n);
    for (std::size_t i = 0; i < n; ++i) v[i] = static_cast<Zor8u>(i * 7 + i / 3);
    return v;
}

// Interleaved source to packed 4:2:2 or packed 4:2:2 to interleaved.
template <ZorStatus (*Fn)(const Zor8u*, int, Zor8u*, int, ZoriSize), int SrcCh, int DstCh>
void interleaved(benchmark::State& state) {
    const std::vector<Zor8u> src = pattern(static_cast<std::size_t>(kW) * kH * SrcCh);
    std::vector<Zor8u> dst(static_cast<std::size_t>(kW) * kH * DstCh);
    for (auto _ : state) {
        Fn(src.data(), kW * SrcCh, dst.data(), kW * DstCh, {kW, kH});
        benchmark::DoNotOptimize(dst.data());
    }
    state.SetItemsProcessed(state.iterations() * kW * kH);
}

// Interleaved source to planar subsampled YCbCr (cw x ch chroma planes).
template <ZorStatus (*Fn)(const Zor8u*, int, Zor8u* const[3], const int[3], ZoriSize), int SrcCh, int Cols,
          int Rows>
void toPlanar(benchmark::State& state) {
    const std::vector<Zor8u> src = pattern(static_cast<std::size_t>(kW) * kH * SrcCh);
    const int cw = kW / Cols, chh = kH / Rows;
    std::vector<Zor8u> y(static_cast<std::size_t>(kW) * kH), cb(static_cast<std::size_t>(cw) * chh), cr(cb.size());
    Zor8u* planes[3] = {y.data(), cb.data(), cr.data()};
    const int steps[3] = {kW, cw, cw};
    for (auto _ : state) {
        Fn(src.data(), kW * SrcCh, planes, steps, {kW, kH});
        benchmark::DoNotOptimize(y.data());
    }
    state.SetItemsProcessed(state.iterations() * kW * kH);
}

void planar422ToRgb(benchmark::State& state) {
    const std::vector<Zor8u> y = pattern(static_cast<std::size_t>(kW) * kH), cb = pattern(y.size() / 2),
                             cr = pattern(y.size() / 2);
    std::vector<Zor8u> dst(y.size() * 3);
    const Zor8u* planes[3] = {y.data(), cb.data(), cr.data()};
    const int steps[3] = {kW, kW / 2, kW / 2};
    for (auto _ : state) {
        zoriYCbCr422ToRGB_8u_P3C3R(planes, steps, dst.data(), kW * 3, {kW, kH});
        benchmark::DoNotOptimize(dst.data());
    }
    state.SetItemsProcessed(state.iterations() * kW * kH);
}

void ycrcb420FilterToBgra(benchmark::State& state) {
    const std::vector<Zor8u> y = pattern(static_cast<std::size_t>(kW) * kH), cr = pattern(y.size() / 4),
                             cb = pattern(y.size() / 4);
    std::vector<Zor8u> dst(y.size() * 4);
    const Zor8u* planes[3] = {y.data(), cr.data(), cb.data()};
    const int steps[3] = {kW, kW / 2, kW / 2};
    for (auto _ : state) {
        zoriYCrCb420ToBGR_Filter_8u_P3C4R(planes, steps, dst.data(), kW * 4, {kW, kH}, 255);
        benchmark::DoNotOptimize(dst.data());
    }
    state.SetItemsProcessed(state.iterations() * kW * kH);
}

BENCHMARK_TEMPLATE(interleaved, zoriRGBToYCbCr422_8u_C3C2R, 3, 2)->Name("RGBToYCbCr422_8u_C3C2R");
BENCHMARK_TEMPLATE(interleaved, zoriRGBToCbYCr422_8u_C3C2R, 3, 2)->Name("RGBToCbYCr422_8u_C3C2R");
BENCHMARK_TEMPLATE(toPlanar, zoriBGRToYCbCr422_8u_C3P3R, 3, 2, 1)->Name("BGRToYCbCr422_8u_C3P3R");
BENCHMARK_TEMPLATE(toPlanar, zoriRGBToYCbCr420_8u_C3P3R, 3, 2, 2)->Name("RGBToYCbCr420_8u_C3P3R");
BENCHMARK_TEMPLATE(toPlanar, zoriBGRToYCbCr420_8u_AC4P3R, 4, 2, 2)->Name("BGRToYCbCr420_8u_AC4P3R");
BENCHMARK_TEMPLATE(interleaved, zoriYCbCr422ToRGB_8u_C2C3R, 2, 3)->Name("YCbCr422ToRGB_8u_C2C3R");
BENCHMARK_TEMPLATE(interleaved, zoriYCbCr422ToBGR_8u_C2C3R, 2, 3)->Name("YCbCr422ToBGR_8u_C2C3R");
BENCHMARK(planar422ToRgb)->Name("YCbCr422ToRGB_8u_P3C3R");
BENCHMARK(ycrcb420FilterToBgra)->Name("YCrCb420ToBGR_Filter_8u_P3C4R");

}  // namespace
