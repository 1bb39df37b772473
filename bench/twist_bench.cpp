// Colour twist and gamma correction on 1920x1080 images (serial families:
// the team size does not matter). Items are pixels.
#include "zorcc.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <random>
#include <vector>

namespace {

constexpr int kW = 1920, kH = 1080;
constexpr ZoriSize kRoi{kW, kH};

template <class T>
std::vector<T> randomImage(int channels, float lo, float hi) {
    std::vector<T> v(static_cast<std::size_t>(kW) * kH * channels);
    std::mt19937 rng(1);
    std::uniform_real_distribution<float> d(lo, hi);
    for (auto& x : v) x = static_cast<T>(d(rng));
    return v;
}

const Zor32f kTwist[3][4] = {{0.299f, 0.587f, 0.114f, 0.0f},
                             {-0.16874f, -0.33126f, 0.5f, 128.0f},
                             {0.5f, -0.41869f, -0.08131f, 128.0f}};

template <class T, ZorStatus (*Fn)(const T*, int, T*, int, ZoriSize, const Zor32f[3][4])>
void BM_Twist(benchmark::State& state) {
    const int ch = static_cast<int>(state.range(0));
    const float hi = sizeof(T) == 1 ? 255.0f : sizeof(T) == 2 ? 65535.0f : 1.0f;
    auto src = randomImage<T>(ch, 0.0f, hi);
    std::vector<T> dst(src.size());
    const int step = kW * ch * static_cast<int>(sizeof(T));
    for (auto _ : state) {
        Fn(src.data(), step, dst.data(), step, kRoi, kTwist);
        benchmark::DoNotOptimize(dst.data());
    }
    state.SetItemsProcessed(state.iterations() * kW * kH);
}
BENCHMARK_TEMPLATE(BM_Twist, Zor8u, zoriColorTwist32f_8u_C3R)->Arg(3)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Twist, Zor8u, zoriColorTwist32f_8u_AC4R)->Arg(4)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Twist, Zor16u, zoriColorTwist32f_16u_C3R)->Arg(3)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Twist, Zor16s, zoriColorTwist32f_16s_C3R)->Arg(3)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Twist, Zor32f, zoriColorTwist_32f_C3R)->Arg(3)->Unit(benchmark::kMillisecond);

void BM_Twist8uP3(benchmark::State& state) {
    auto src = randomImage<Zor8u>(3, 0.0f, 255.0f);
    std::vector<Zor8u> dst(src.size());
    const Zor8u* s[3] = {src.data(), src.data() + kW * kH, src.data() + 2 * kW * kH};
    Zor8u* d[3] = {dst.data(), dst.data() + kW * kH, dst.data() + 2 * kW * kH};
    for (auto _ : state) {
        zoriColorTwist32f_8u_P3R(s, kW, d, kW, kRoi, kTwist);
        benchmark::DoNotOptimize(dst.data());
    }
    state.SetItemsProcessed(state.iterations() * kW * kH);
}
BENCHMARK(BM_Twist8uP3)->Unit(benchmark::kMillisecond);

void BM_Twist32fC4(benchmark::State& state) {
    const Zor32f t[4][4] = {{0.5f, 0.25f, 0.125f, 0.0f}, {1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 0, 1}};
    auto src = randomImage<Zor32f>(4, 0.0f, 1.0f);
    std::vector<Zor32f> dst(src.size());
    for (auto _ : state) {
        zoriColorTwist_32f_C4R(src.data(), kW * 16, dst.data(), kW * 16, kRoi, t);
        benchmark::DoNotOptimize(dst.data());
    }
    state.SetItemsProcessed(state.iterations() * kW * kH);
}
BENCHMARK(BM_Twist32fC4)->Unit(benchmark::kMillisecond);

// Gamma: 8u and 16u (through the per-call table at this size) in place of a
// fresh copy each round would measure the copy too, so they run source to
// destination.
template <class T, ZorStatus (*Fn)(const T*, int, T*, int, ZoriSize)>
void BM_Gamma(benchmark::State& state) {
    auto src = randomImage<T>(3, 0.0f, sizeof(T) == 1 ? 255.0f : 65535.0f);
    std::vector<T> dst(src.size());
    const int step = kW * 3 * static_cast<int>(sizeof(T));
    for (auto _ : state) {
        Fn(src.data(), step, dst.data(), step, kRoi);
        benchmark::DoNotOptimize(dst.data());
    }
    state.SetItemsProcessed(state.iterations() * kW * kH);
}
BENCHMARK_TEMPLATE(BM_Gamma, Zor8u, zoriGammaFwd_8u_C3R)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Gamma, Zor8u, zoriGammaInv_8u_C3R)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Gamma, Zor16u, zoriGammaFwd_16u_C3R)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Gamma, Zor16u, zoriGammaInv_16u_C3R)->Unit(benchmark::kMillisecond);

template <ZorStatus (*Fn)(const Zor32f*, int, Zor32f*, int, ZoriSize, Zor32f, Zor32f)>
void BM_Gamma32f(benchmark::State& state) {
    auto src = randomImage<Zor32f>(3, 0.0f, 1.0f);
    std::vector<Zor32f> dst(src.size());
    for (auto _ : state) {
        Fn(src.data(), kW * 12, dst.data(), kW * 12, kRoi, 0.0f, 1.0f);
        benchmark::DoNotOptimize(dst.data());
    }
    state.SetItemsProcessed(state.iterations() * kW * kH);
}
BENCHMARK_TEMPLATE(BM_Gamma32f, zoriGammaFwd_32f_C3R)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Gamma32f, zoriGammaInv_32f_C3R)->Unit(benchmark::kMillisecond);

}  // namespace
