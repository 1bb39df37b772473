// HLS, HSV and gray at 1920x1080. The argument is the team size (0: the
// library default); gray is serial and ignores it.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <random>
#include <vector>

#include "zorcc.h"

namespace {

constexpr int kW = 1920, kH = 1080;

template <class T>
std::vector<T> randomImage(int channels, std::uint32_t seed = 7) {
    std::vector<T> v(static_cast<std::size_t>(kW) * kH * channels);
    std::mt19937 rng(seed);
    for (auto& x : v) {
        if constexpr (sizeof(T) == 4)
            x = static_cast<T>(std::uniform_real_distribution<float>(0.0f, 1.0f)(rng));
        else
            x = static_cast<T>(rng());
    }
    return v;
}

class Team {
public:
    explicit Team(int n) : saved_(threads_omp_of_n_zor) {
        if (n > 0) threads_omp_of_n_zor = n;
    }
    ~Team() { threads_omp_of_n_zor = saved_; }

private:
    int saved_;
};

template <class T>
using Fn = ZorStatus (*)(const T*, int, T*, int, ZoriSize);

template <class T>
void interleaved(benchmark::State& state, Fn<T> fn, int channels) {
    const Team team(static_cast<int>(state.range(0)));
    const std::vector<T> src = randomImage<T>(channels);
    std::vector<T> dst(src.size());
    const int step = kW * channels * static_cast<int>(sizeof(T));
    for (auto _ : state) {
        fn(src.data(), step, dst.data(), step, {kW, kH});
        benchmark::DoNotOptimize(dst.data());
    }
    state.SetItemsProcessed(state.iterations() * kW * kH);
}

void BGRToHLS_8u_P3R(benchmark::State& state) {
    const Team team(static_cast<int>(state.range(0)));
    const std::vector<Zor8u> s0 = randomImage<Zor8u>(1, 1), s1 = randomImage<Zor8u>(1, 2),
                             s2 = randomImage<Zor8u>(1, 3);
    std::vector<Zor8u> d0(s0.size()), d1(s0.size()), d2(s0.size());
    const Zor8u* src[3] = {s0.data(), s1.data(), s2.data()};
    Zor8u* dst[3] = {d0.data(), d1.data(), d2.data()};
    for (auto _ : state) {
        zoriBGRToHLS_8u_P3R(src, kW, dst, kW, {kW, kH});
        benchmark::DoNotOptimize(d0.data());
    }
    state.SetItemsProcessed(state.iterations() * kW * kH);
}

template <class T>
void gray(benchmark::State& state, ZorStatus (*fn)(const T*, int, T*, int, ZoriSize, const Zor32f*)) {
    const std::vector<T> src = randomImage<T>(3);
    std::vector<T> dst(static_cast<std::size_t>(kW) * kH);
    const float w[3] = {0.25f, 0.5f, 0.25f};
    for (auto _ : state) {
        fn(src.data(), kW * 3 * static_cast<int>(sizeof(T)), dst.data(), kW * static_cast<int>(sizeof(T)), {kW, kH}, w);
        benchmark::DoNotOptimize(dst.data());
    }
    state.SetItemsProcessed(state.iterations() * kW * kH);
}

#define TEAMS ->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond)->UseRealTime()

BENCHMARK_CAPTURE(interleaved, RGBToHLS_8u_C3R, zoriRGBToHLS_8u_C3R, 3) TEAMS;
BENCHMARK_CAPTURE(interleaved, HLSToRGB_8u_C3R, zoriHLSToRGB_8u_C3R, 3) TEAMS;
BENCHMARK_CAPTURE(interleaved, RGBToHLS_16u_AC4R, zoriRGBToHLS_16u_AC4R, 4) TEAMS;
BENCHMARK_CAPTURE(interleaved, RGBToHLS_32f_C3R, zoriRGBToHLS_32f_C3R, 3) TEAMS;
BENCHMARK_CAPTURE(interleaved, HLSToRGB_32f_C3R, zoriHLSToRGB_32f_C3R, 3) TEAMS;
BENCHMARK(BGRToHLS_8u_P3R) TEAMS;
BENCHMARK_CAPTURE(interleaved, RGBToHSV_8u_C3R, zoriRGBToHSV_8u_C3R, 3) TEAMS;
BENCHMARK_CAPTURE(interleaved, HSVToRGB_8u_C3R, zoriHSVToRGB_8u_C3R, 3) TEAMS;
BENCHMARK_CAPTURE(interleaved, RGBToHSV_16u_C3R, zoriRGBToHSV_16u_C3R, 3) TEAMS;
BENCHMARK_CAPTURE(gray, ColorToGray_8u_C3C1R, zoriColorToGray_8u_C3C1R)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(gray, ColorToGray_16u_C3C1R, zoriColorToGray_16u_C3C1R)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(gray, ColorToGray_32f_C3C1R, zoriColorToGray_32f_C3C1R)->Unit(benchmark::kMillisecond);

}  // namespace
