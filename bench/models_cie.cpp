// XYZ, LUV, Lab and PhotoYCC at 1920x1080, three-channel layouts. The
// argument is the team size (0: the library default).
#include <benchmark/benchmark.h>

#include <cstdint>
#include <random>
#include <vector>

#include "zorcc.h"

namespace {

constexpr int kW = 1920, kH = 1080;

// Random samples over the whole range (integers) or 0..1 (floats); the LUV
// float source holds L 1..100, u -134..220, v -140..122.
enum class Fill { Full, Luv };

template <class T>
std::vector<T> randomImage(Fill fill = Fill::Full, std::uint32_t seed = 7) {
    std::vector<T> v(static_cast<std::size_t>(kW) * kH * 3);
    std::mt19937 rng(seed);
    for (std::size_t i = 0; i < v.size(); ++i) {
        if constexpr (sizeof(T) == 4) {
            auto real = [&](float lo, float hi) { return std::uniform_real_distribution<float>(lo, hi)(rng); };
            if (fill == Fill::Luv)
                v[i] = i % 3 == 0 ? real(1.0f, 100.0f) : i % 3 == 1 ? real(-134.0f, 220.0f) : real(-140.0f, 122.0f);
            else
                v[i] = real(0.0f, 1.0f);
        } else {
            v[i] = static_cast<T>(rng());
        }
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

template <class S, class D>
using Fn = ZorStatus (*)(const S*, int, D*, int, ZoriSize);

template <class S, class D>
void run(benchmark::State& state, Fn<S, D> fn, Fill fill = Fill::Full) {
    const Team team(static_cast<int>(state.range(0)));
    const std::vector<S> src = randomImage<S>(fill);
    std::vector<D> dst(src.size());
    const int ss = kW * 3 * static_cast<int>(sizeof(S)), ds = kW * 3 * static_cast<int>(sizeof(D));
    for (auto _ : state) {
        fn(src.data(), ss, dst.data(), ds, {kW, kH});
        benchmark::DoNotOptimize(dst.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * kW * kH);
}

#define CIE_BENCH(name, fn, ...)                                                      \
    void name(benchmark::State& s) { run(s, fn, ##__VA_ARGS__); }                     \
    BENCHMARK(name)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond)->UseRealTime();

CIE_BENCH(RGBToXYZ_8u_C3R, zoriRGBToXYZ_8u_C3R)
CIE_BENCH(XYZToRGB_8u_C3R, zoriXYZToRGB_8u_C3R)
CIE_BENCH(RGBToXYZ_16u_C3R, zoriRGBToXYZ_16u_C3R)
CIE_BENCH(XYZToRGB_16u_C3R, zoriXYZToRGB_16u_C3R)
CIE_BENCH(RGBToXYZ_32f_C3R, zoriRGBToXYZ_32f_C3R)

CIE_BENCH(RGBToLUV_8u_C3R, zoriRGBToLUV_8u_C3R)
CIE_BENCH(LUVToRGB_8u_C3R, zoriLUVToRGB_8u_C3R)
CIE_BENCH(RGBToLUV_16u_C3R, zoriRGBToLUV_16u_C3R)
CIE_BENCH(LUVToRGB_16u_C3R, zoriLUVToRGB_16u_C3R)
CIE_BENCH(RGBToLUV_32f_C3R, zoriRGBToLUV_32f_C3R)
CIE_BENCH(LUVToRGB_32f_C3R, zoriLUVToRGB_32f_C3R, Fill::Luv)

CIE_BENCH(BGRToLab_8u_C3R, zoriBGRToLab_8u_C3R)
CIE_BENCH(BGRToLab_8u16u_C3R, zoriBGRToLab_8u16u_C3R)
CIE_BENCH(LabToBGR_8u_C3R, zoriLabToBGR_8u_C3R)
CIE_BENCH(LabToBGR_16u8u_C3R, zoriLabToBGR_16u8u_C3R)

CIE_BENCH(RGBToYCC_8u_C3R, zoriRGBToYCC_8u_C3R)
CIE_BENCH(YCCToRGB_8u_C3R, zoriYCCToRGB_8u_C3R)
CIE_BENCH(RGBToYCC_16u_C3R, zoriRGBToYCC_16u_C3R)
CIE_BENCH(YCCToRGB_16u_C3R, zoriYCCToRGB_16u_C3R)
CIE_BENCH(RGBToYCC_32f_C3R, zoriRGBToYCC_32f_C3R)

}  // namespace
