// Chroma layout conversions at 1920x1080 against memcpy of the bytes each
// conversion writes (the reference line). The family runs serially, so the
// team size does not matter.
#include "zorcc.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

namespace {

constexpr int kW = 1920, kH = 1080;
constexpr ZoriSize kRoi{kW, kH};

// One picture's planes in every layout the benchmarks need, source and
// destination alike, filled with a fixed pattern.
struct Buffers {
    std::vector<Zor8u> y, y2, c422[2], c420[2], c411[2], c2, c2b, p2c420, p2c411;
    Buffers() {
        auto fill = [](std::vector<Zor8u>& v, std::size_t n) {
            v.resize(n);
            for (std::size_t i = 0; i < n; ++i) v[i] = static_cast<Zor8u>(i * 2654435761u >> 24);
        };
        fill(y, kW * kH);
        fill(y2, kW * kH);
        for (int i = 0; i < 2; ++i) {
            fill(c422[i], kW / 2 * kH);
            fill(c420[i], kW / 2 * kH / 2);
            fill(c411[i], kW / 4 * kH);
        }
        fill(c2, 2 * kW * kH);
        fill(c2b, 2 * kW * kH);
        fill(p2c420, kW * kH / 2);
        fill(p2c411, kW / 2 * kH);
    }
};

Buffers& buffers() {
    static Buffers b;
    return b;
}

struct P3 {
    Zor8u* p[3];
    int step[3];
};

P3 planes422(std::vector<Zor8u>& y) {
    Buffers& b = buffers();
    return {{y.data(), b.c422[0].data(), b.c422[1].data()}, {kW, kW / 2, kW / 2}};
}
P3 planes420(std::vector<Zor8u>& y) {
    Buffers& b = buffers();
    return {{y.data(), b.c420[0].data(), b.c420[1].data()}, {kW, kW / 2, kW / 2}};
}
P3 planes411(std::vector<Zor8u>& y) {
    Buffers& b = buffers();
    return {{y.data(), b.c411[0].data(), b.c411[1].data()}, {kW, kW / 4, kW / 4}};
}

template <class F>
void run(benchmark::State& state, std::size_t bytesWritten, F&& call) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(call());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytesWritten));
}

constexpr std::size_t k422Bytes = 2u * kW * kH;      // 4:2:2 picture
constexpr std::size_t k420Bytes = 3u * kW * kH / 2;  // 4:2:0 or 4:1:1 picture

void BM_Memcpy(benchmark::State& state) {
    const std::size_t n = static_cast<std::size_t>(state.range(0));
    std::vector<Zor8u> a(n, 1), b(n, 2);
    run(state, n, [&] { return std::memcpy(b.data(), a.data(), n); });
}
BENCHMARK(BM_Memcpy)->Arg(k422Bytes)->Arg(k420Bytes)->UseRealTime();

void BM_YCbCr422_P3C2R(benchmark::State& state) {
    Buffers& b = buffers();
    P3 s = planes422(b.y);
    run(state, k422Bytes, [&] { return zoriYCbCr422_8u_P3C2R(s.p, s.step, b.c2.data(), 2 * kW, kRoi); });
}
BENCHMARK(BM_YCbCr422_P3C2R)->UseRealTime();

void BM_YCbCr422_C2P3R(benchmark::State& state) {
    Buffers& b = buffers();
    P3 d = planes422(b.y);
    run(state, k422Bytes, [&] { return zoriYCbCr422_8u_C2P3R(b.c2.data(), 2 * kW, d.p, d.step, kRoi); });
}
BENCHMARK(BM_YCbCr422_C2P3R)->UseRealTime();

void BM_YCbCr422ToCbYCr422_C2R(benchmark::State& state) {
    Buffers& b = buffers();
    run(state, k422Bytes,
        [&] { return zoriYCbCr422ToCbYCr422_8u_C2R(b.c2.data(), 2 * kW, b.c2b.data(), 2 * kW, kRoi); });
}
BENCHMARK(BM_YCbCr422ToCbYCr422_C2R)->UseRealTime();

void BM_YCbCr420_P3P2R(benchmark::State& state) {
    Buffers& b = buffers();
    P3 s = planes420(b.y);
    run(state, k420Bytes,
        [&] { return zoriYCbCr420_8u_P3P2R(s.p, s.step, b.y2.data(), kW, b.p2c420.data(), kW, kRoi); });
}
BENCHMARK(BM_YCbCr420_P3P2R)->UseRealTime();

void BM_YCbCr420_P2P3R(benchmark::State& state) {
    Buffers& b = buffers();
    P3 d = planes420(b.y2);
    run(state, k420Bytes,
        [&] { return zoriYCbCr420_8u_P2P3R(b.y.data(), kW, b.p2c420.data(), kW, d.p, d.step, kRoi); });
}
BENCHMARK(BM_YCbCr420_P2P3R)->UseRealTime();

void BM_YCbCr422ToYCbCr420_P3R(benchmark::State& state) {
    Buffers& b = buffers();
    P3 s = planes422(b.y), d = planes420(b.y2);
    run(state, k420Bytes, [&] { return zoriYCbCr422ToYCbCr420_8u_P3R(s.p, s.step, d.p, d.step, kRoi); });
}
BENCHMARK(BM_YCbCr422ToYCbCr420_P3R)->UseRealTime();

void BM_YCbCr422ToYCbCr420_C2P3R(benchmark::State& state) {
    Buffers& b = buffers();
    P3 d = planes420(b.y2);
    run(state, k420Bytes, [&] { return zoriYCbCr422ToYCbCr420_8u_C2P3R(b.c2.data(), 2 * kW, d.p, d.step, kRoi); });
}
BENCHMARK(BM_YCbCr422ToYCbCr420_C2P3R)->UseRealTime();

void BM_YCbCr420ToYCbCr422_P2C2R(benchmark::State& state) {
    Buffers& b = buffers();
    run(state, k422Bytes, [&] {
        return zoriYCbCr420ToYCbCr422_8u_P2C2R(b.y.data(), kW, b.p2c420.data(), kW, b.c2.data(), 2 * kW, kRoi);
    });
}
BENCHMARK(BM_YCbCr420ToYCbCr422_P2C2R)->UseRealTime();

void BM_YCbCr420ToYCbCr422_P3R(benchmark::State& state) {
    Buffers& b = buffers();
    P3 s = planes420(b.y), d = planes422(b.y2);
    run(state, k422Bytes, [&] { return zoriYCbCr420ToYCbCr422_8u_P3R(s.p, s.step, d.p, d.step, kRoi); });
}
BENCHMARK(BM_YCbCr420ToYCbCr422_P3R)->UseRealTime();

void BM_YCbCr422ToYCbCr411_C2P2R(benchmark::State& state) {
    Buffers& b = buffers();
    run(state, k420Bytes, [&] {
        return zoriYCbCr422ToYCbCr411_8u_C2P2R(b.c2.data(), 2 * kW, b.y2.data(), kW, b.p2c411.data(), kW / 2, kRoi);
    });
}
BENCHMARK(BM_YCbCr422ToYCbCr411_C2P2R)->UseRealTime();

void BM_YCbCr411ToYCbCr422_P3C2R(benchmark::State& state) {
    Buffers& b = buffers();
    P3 s = planes411(b.y);
    run(state, k422Bytes,
        [&] { return zoriYCbCr411ToYCbCr422_8u_P3C2R(s.p, s.step, b.c2.data(), 2 * kW, kRoi); });
}
BENCHMARK(BM_YCbCr411ToYCbCr422_P3C2R)->UseRealTime();

void BM_YCbCr420ToYCbCr411_P3P2R(benchmark::State& state) {
    Buffers& b = buffers();
    P3 s = planes420(b.y);
    run(state, k420Bytes, [&] {
        return zoriYCbCr420ToYCbCr411_8u_P3P2R(s.p, s.step, b.y2.data(), kW, b.p2c411.data(), kW / 2, kRoi);
    });
}
BENCHMARK(BM_YCbCr420ToYCbCr411_P3P2R)->UseRealTime();

void BM_YCbCr411ToYCbCr420_P2P3R(benchmark::State& state) {
    Buffers& b = buffers();
    P3 d = planes420(b.y2);
    run(state, k420Bytes, [&] {
        return zoriYCbCr411ToYCbCr420_8u_P2P3R(b.y.data(), kW, b.p2c411.data(), kW / 2, d.p, d.step, kRoi);
    });
}
BENCHMARK(BM_YCbCr411ToYCbCr420_P2P3R)->UseRealTime();

void BM_YCbCr420ToYCbCr422_Filter_P3R(benchmark::State& state) {
    Buffers& b = buffers();
    P3 s = planes420(b.y), d = planes422(b.y2);
    run(state, k422Bytes, [&] { return zoriYCbCr420ToYCbCr422_Filter_8u_P3R(s.p, s.step, d.p, d.step, kRoi); });
}
BENCHMARK(BM_YCbCr420ToYCbCr422_Filter_P3R)->UseRealTime();

void BM_YCbCr420ToYCrCb420_Filter_P2P3R(benchmark::State& state) {
    Buffers& b = buffers();
    P3 d = planes420(b.y2);
    run(state, k420Bytes, [&] {
        return zoriYCbCr420ToYCrCb420_Filter_8u_P2P3R(b.y.data(), kW, b.p2c420.data(), kW, d.p, d.step, kRoi,
                                                      zorSliceWhole);
    });
}
BENCHMARK(BM_YCbCr420ToYCrCb420_Filter_P2P3R)->UseRealTime();

void BM_YCbCr420ToYCbCr422_Filter_P2C2R(benchmark::State& state) {
    Buffers& b = buffers();
    run(state, k422Bytes, [&] {
        return zoriYCbCr420ToYCbCr422_Filter_8u_P2C2R(b.y.data(), kW, b.p2c420.data(), kW, b.c2.data(), 2 * kW, kRoi,
                                                      zorSliceWhole);
    });
}
BENCHMARK(BM_YCbCr420ToYCbCr422_Filter_P2C2R)->UseRealTime();

}  // namespace
