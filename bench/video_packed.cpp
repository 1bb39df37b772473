// Packed 16-bit output (4:2:0 to RGB565, plain and dithered) and the YUV
// conversions at 1920x1080. These families run serially: the team size does
// not change them.
#include <benchmark/benchmark.h>

#include <vector>

#include "zorcc.h"

namespace {

constexpr int kW = 1920, kH = 1080;
constexpr std::size_t kPixels = static_cast<std::size_t>(kW) * kH;

std::vector<Zor8u> noise(std::size_t n, unsigned seed) {
    std::vector<Zor8u> v(n);
    for (std::size_t i = 0; i < n; ++i) v[i] = static_cast<Zor8u>((i * 2654435761u + seed) >> 13);
    return v;
}

// Planar 4:2:0 source (three steps) to 16-bit words.
using To16 = ZorStatus (*)(const Zor8u* const[3], const int[3], Zor16u*, int, ZoriSize);

template <To16 Fn>
void planar420To16(benchmark::State& state) {
    const std::vector<Zor8u> y = noise(kPixels, 1), u = noise(kPixels / 4, 2), v = noise(kPixels / 4, 3);
    std::vector<Zor16u> dst(kPixels);
    const Zor8u* planes[3] = {y.data(), u.data(), v.data()};
    const int steps[3] = {kW, kW / 2, kW / 2};
    for (auto _ : state) {
        Fn(planes, steps, dst.data(), kW * 2, {kW, kH});
        benchmark::DoNotOptimize(dst.data());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kPixels));
}

// Interleaved to interleaved (C3 / C2).
template <ZorStatus (*Fn)(const Zor8u*, int, Zor8u*, int, ZoriSize), int SrcCh, int DstCh>
void interleaved(benchmark::State& state) {
    const std::vector<Zor8u> src = noise(kPixels * SrcCh, 4);
    std::vector<Zor8u> dst(kPixels * DstCh);
    for (auto _ : state) {
        Fn(src.data(), kW * SrcCh, dst.data(), kW * DstCh, {kW, kH});
        benchmark::DoNotOptimize(dst.data());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kPixels));
}

void rgbToYuv420(benchmark::State& state) {
    const std::vector<Zor8u> src = noise(kPixels * 3, 5);
    std::vector<Zor8u> y(kPixels), u(kPixels / 4), v(kPixels / 4);
    Zor8u* planes[3] = {y.data(), u.data(), v.data()};
    const int steps[3] = {kW, kW / 2, kW / 2};
    for (auto _ : state) {
        zoriRGBToYUV420_8u_C3P3R(src.data(), kW * 3, planes, steps, {kW, kH});
        benchmark::DoNotOptimize(y.data());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kPixels));
}

template <ZorStatus (*Fn)(const Zor8u* const[3], const int[3], Zor8u*, int, ZoriSize), int DstCh>
void yuv420ToInterleaved(benchmark::State& state) {
    const std::vector<Zor8u> y = noise(kPixels, 6), u = noise(kPixels / 4, 7), v = noise(kPixels / 4, 8);
    std::vector<Zor8u> dst(kPixels * DstCh);
    const Zor8u* planes[3] = {y.data(), u.data(), v.data()};
    const int steps[3] = {kW, kW / 2, kW / 2};
    for (auto _ : state) {
        Fn(planes, steps, dst.data(), kW * DstCh, {kW, kH});
        benchmark::DoNotOptimize(dst.data());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kPixels));
}

void yuv422ToRgbWhole(benchmark::State& state) {
    const std::vector<Zor8u> y = noise(kPixels, 9), u = noise(kPixels / 2, 10), v = noise(kPixels / 2, 11);
    std::vector<Zor8u> dst(kPixels * 3);
    const Zor8u* planes[3] = {y.data(), u.data(), v.data()};
    for (auto _ : state) {
        zoriYUV422ToRGB_8u_P3C3(planes, dst.data(), {kW, kH});
        benchmark::DoNotOptimize(dst.data());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kPixels));
}

BENCHMARK_TEMPLATE(planar420To16, zoriYCbCr420ToRGB565_8u16u_P3C3R)->Name("YCbCr420ToRGB565_8u16u_P3C3R");
BENCHMARK_TEMPLATE(planar420To16, zoriYCbCr420ToRGB565Dither_8u16u_P3C3R)->Name("YCbCr420ToRGB565Dither_8u16u_P3C3R");
BENCHMARK_TEMPLATE(planar420To16, zoriYUV420ToRGB565_8u16u_P3C3R)->Name("YUV420ToRGB565_8u16u_P3C3R");
BENCHMARK_TEMPLATE(planar420To16, zoriYUV420ToRGB565Dither_8u16u_P3C3R)->Name("YUV420ToRGB565Dither_8u16u_P3C3R");
BENCHMARK_TEMPLATE(interleaved, zoriRGBToYUV_8u_C3R, 3, 3)->Name("RGBToYUV_8u_C3R");
BENCHMARK_TEMPLATE(interleaved, zoriYUVToRGB_8u_C3R, 3, 3)->Name("YUVToRGB_8u_C3R");
BENCHMARK_TEMPLATE(interleaved, zoriRGBToYUV422_8u_C3C2R, 3, 2)->Name("RGBToYUV422_8u_C3C2R");
BENCHMARK_TEMPLATE(interleaved, zoriYUV422ToRGB_8u_C2C3R, 2, 3)->Name("YUV422ToRGB_8u_C2C3R");
BENCHMARK(yuv422ToRgbWhole)->Name("YUV422ToRGB_8u_P3C3");
BENCHMARK(rgbToYuv420)->Name("RGBToYUV420_8u_C3P3R");
BENCHMARK_TEMPLATE(yuv420ToInterleaved, zoriYUV420ToRGB_8u_P3C3R, 3)->Name("YUV420ToRGB_8u_P3C3R");
BENCHMARK_TEMPLATE(yuv420ToInterleaved, zoriYUV420ToRGB_8u_P3AC4R, 4)->Name("YUV420ToRGB_8u_P3AC4R");
BENCHMARK_TEMPLATE(yuv420ToInterleaved, zoriYUV420ToBGR_8u_P3C3R, 3)->Name("YUV420ToBGR_8u_P3C3R");

}  // namespace
