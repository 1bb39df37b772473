// YCoCg on 1920x1080 images (a serial family: the team size does not
// matter). Items are pixels.
#include "zorcc.h"

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

namespace {

constexpr int kW = 1920, kH = 1080;
constexpr ZoriSize kRoi{kW, kH};

template <class T>
std::vector<T> randomSamples(std::size_t n, int lo, int hi) {
    std::vector<T> v(n);
    std::mt19937 rng(1);
    std::uniform_int_distribution<int> d(lo, hi);
    for (auto& x : v) x = static_cast<T>(d(rng));
    return v;
}

template <class S, class P, ZorStatus (*Fn)(const S*, int, P* const[3], int, ZoriSize)>
void BM_Forward(benchmark::State& state) {
    const int ch = static_cast<int>(state.range(0));
    auto src = randomSamples<S>(static_cast<std::size_t>(kW) * kH * ch, sizeof(S) == 1 ? 0 : -32768,
                                sizeof(S) == 1 ? 255 : 32767);
    std::vector<P> planes(static_cast<std::size_t>(kW) * kH * 3);
    P* d[3] = {planes.data(), planes.data() + kW * kH, planes.data() + 2 * kW * kH};
    for (auto _ : state) {
        Fn(src.data(), kW * ch * static_cast<int>(sizeof(S)), d, kW * static_cast<int>(sizeof(P)), kRoi);
        benchmark::DoNotOptimize(planes.data());
    }
    state.SetItemsProcessed(state.iterations() * kW * kH);
}
BENCHMARK_TEMPLATE(BM_Forward, Zor8u, Zor16s, zoriBGRToYCoCg_8u16s_C3P3R)->Arg(3)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Forward, Zor8u, Zor16s, zoriBGRToYCoCg_Rev_8u16s_C3P3R)->Arg(3)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Forward, Zor8u, Zor16s, zoriBGRToYCoCg_Rev_8u16s_C4P3R)->Arg(4)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Forward, Zor16s, Zor16s, zoriSBGRToYCoCg_Rev_16s_C3P3R)->Arg(3)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Forward, Zor16s, Zor32s, zoriSBGRToYCoCg_16s32s_C3P3R)->Arg(3)->Unit(benchmark::kMillisecond);

template <class P, class D, ZorStatus (*Fn)(const P* const[3], int, D*, int, ZoriSize)>
void BM_Inverse(benchmark::State& state) {
    auto planes = randomSamples<P>(static_cast<std::size_t>(kW) * kH * 3, -200, 200);
    const P* s[3] = {planes.data(), planes.data() + kW * kH, planes.data() + 2 * kW * kH};
    std::vector<D> dst(static_cast<std::size_t>(kW) * kH * 3);
    for (auto _ : state) {
        Fn(s, kW * static_cast<int>(sizeof(P)), dst.data(), kW * 3 * static_cast<int>(sizeof(D)), kRoi);
        benchmark::DoNotOptimize(dst.data());
    }
    state.SetItemsProcessed(state.iterations() * kW * kH);
}
BENCHMARK_TEMPLATE(BM_Inverse, Zor16s, Zor8u, zoriYCoCgToBGR_16s8u_P3C3R)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Inverse, Zor16s, Zor8u, zoriYCoCgToBGR_Rev_16s8u_P3C3R)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Inverse, Zor16s, Zor16s, zoriYCoCgToSBGR_Rev_16s_P3C3R)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Inverse, Zor32s, Zor16s, zoriYCoCgToSBGR_32s16s_P3C3R)->Unit(benchmark::kMillisecond);

}  // namespace
