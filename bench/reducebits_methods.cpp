// Bit-depth reduction of an 8u C3 1920x1080 image to 8 levels, every method,
// with and without noise, on one thread and on the default team (argument:
// team size, 0 for the library's default).
#include "zorcc.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

constexpr int kW = 1920, kH = 1080;

void reduce(benchmark::State& state, ZorDitherType method, int noise) {
    std::vector<Zor8u> src(static_cast<std::size_t>(kW) * kH * 3), dst(src.size());
    for (std::size_t i = 0; i < src.size(); ++i) src[i] = static_cast<Zor8u>(i * 7 + i / 5);
    const int saved = threads_omp_of_n_zor;
    if (state.range(0) > 0) threads_omp_of_n_zor = static_cast<int>(state.range(0));
    for (auto _ : state) {
        const ZorStatus st = zoriReduceBits_8u_C3R(src.data(), kW * 3, dst.data(), kW * 3, {kW, kH}, noise, method, 8);
        if (st != zorStsOk) state.SkipWithError("call failed");
        benchmark::DoNotOptimize(dst.data());
    }
    threads_omp_of_n_zor = saved;
    state.SetItemsProcessed(state.iterations() * kW * kH);
}

#define RB_BENCH(name, method, noise) \
    BENCHMARK_CAPTURE(reduce, name, method, noise)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond)

RB_BENCH(None, zorDitherNone, 0);
RB_BENCH(FloydSteinberg, zorDitherFS, 0);
RB_BENCH(FloydSteinbergNoise, zorDitherFS, 50);
RB_BENCH(JJN, zorDitherJJN, 0);
RB_BENCH(Stucki, zorDitherStucki, 0);
RB_BENCH(StuckiNoise, zorDitherStucki, 50);
RB_BENCH(Bayer, zorDitherBayer, 0);
RB_BENCH(BayerNoise, zorDitherBayer, 50);

}  // namespace
