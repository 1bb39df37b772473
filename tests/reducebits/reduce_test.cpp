// Bit-depth reduction: the check order, every type, layout and method against
// a per-sample model written from the documented formulas (random images with
// padded rows, bottom-up views, odd sizes, teams of 1 to 4 threads and a team
// inside an active region), the documented quirks and allocation failures.
#include "core/memory.h"
#include "support/kernel_harness.h"
#include "support/testutil.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

namespace {

template <class S, class D>
using ReduceFn = ZorStatus (*)(const S*, int, D*, int, ZoriSize, int, ZorDitherType, int);
constexpr double kBias = 0.000009;
int sat(double v) { return v >= 2147483647.0 ? INT32_MAX : v > -2147483648.0 ? static_cast<int>(v) : INT32_MIN; }

template <class S, class D>
struct Model {
    static constexpr bool k8 = std::is_same_v<S, Zor8u>, kF = std::is_same_v<S, Zor32f>, k16 = !k8 && !kF;
    static constexpr int kTop = sizeof(D) == 1 ? 255 : 65535;
    int m;  // levels - 1
    float mf = static_cast<float>(m), step = k8 ? (65280.0f / mf) * 0.00390625f : (k16 ? 65535.0f : 1.0f) / mf;
    float inv = k8 ? mf / 255.0f : 1.0f / step;
    explicit Model(int levels) : m(levels - 1) {}
    static D store(long long a) { return static_cast<D>(static_cast<std::uint32_t>(a - (std::is_same_v<D, Zor16s> ? 32768 : 0)) & kTop); }
    static float work(S s) { return static_cast<float>(s) + (std::is_same_v<S, Zor16s> ? 32768.0f : 0.0f); }
    D plain(S s) const {
        const float x = kF ? static_cast<float>(s) : work(s) / (k8 ? 255.0f : 65535.0f), i = 1.0f / static_cast<float>(m);
        float q = static_cast<float>(sat(static_cast<float>(m) * x)) * i;
        if (x - q > 0.5f * i) q += i;
        return store(std::min(sat(q * static_cast<float>(kTop)), kTop));
    }
    long long level(int k) const {
        if (k8) return (static_cast<long long>(k) * static_cast<int>(65280.0 / m + kBias)) >> 8;
        if (k16) return static_cast<int>(static_cast<double>(static_cast<float>(k) * step) + kBias) >> (sizeof(D) == 1 ? 8 : 0);
        return sat(static_cast<double>(static_cast<float>(k) * step * static_cast<float>(kTop)) + kBias);
    }
    D diffuse(float v, float thr, float& err) const {
        err = 0.0f;
        if (v >= (k8 ? 255.0f : k16 ? 65535.0f : 1.0f)) return store(kTop);
        if (!(v >= (kF ? 1.1920929e-7f : 0.0f))) return store(0);  // below the bottom, or NaN
        int k = static_cast<int>(static_cast<double>(v * inv) + kBias);
        err = v - static_cast<float>(k) * step;
        if (err > thr) err = v - (static_cast<float>(k++) * step + step);
        return store(level(k));
    }
    D ordered(S s, float thr) const {
        const float v = work(s);
        int k = sat(static_cast<double>(v * inv) + kBias);
        if (v - static_cast<float>(k) * step > thr) k = static_cast<int>(static_cast<std::uint32_t>(k) + 1u);
        return store(k16 ? std::clamp<long long>(level(k), 0, kTop) : level(k));
    }
};

// The repeatable noise: 1024 thresholds over [low, high) and 1024 indices.
struct Noise {
    Zor32f thr[1024];
    Zor16s idx[1024];
    Noise(float low, float high) {
        ZorRandUniState_16s* s16;
        ZorRandUniState_32f* s32;
        zorsRandUniformInitAlloc_16s(&s16, 0, 1024, 0), zorsRandUniformInitAlloc_32f(&s32, low, high, 0);
        zorsRandUniform_16s(idx, 1024, s16), zorsRandUniform_32f(thr, 1024, s32);
        zorsRandUniformFree_16s(s16), zorsRandUniformFree_32f(s32);
    }
    float at(int x, int y) const { return thr[(idx[x % 1024] + 2 * y + x) % 1024]; }
};

// Channel ranges [b[s], b[s + 1]) of the error-diffusion sections of T threads.
std::vector<int> sections(int T, int ch) {
    T = std::min(T, ch);
    if (T <= 2) return T == 1 ? std::vector<int>{0, ch} : std::vector<int>{0, 2, ch};
    return T == 3 && ch == 4 ? std::vector<int>{0, 2, 3, 4} : ch == 3 ? std::vector<int>{0, 1, 2, 3} : std::vector<int>{0, 1, 2, 3, 4};
}

// Rewrites the region of dst (steps in elements) as the model says.
template <class S, class D>
void expected(const S* src, std::ptrdiff_t ss, D* dst, std::ptrdiff_t ds, int ch, int n, int w, int h, int method,
              int levels, int noise, int team) {
    static constexpr int kBayerIndex[16] = {0, 8, 2, 10, 12, 4, 14, 6, 3, 11, 1, 9, 15, 7, 13, 5};
    const Model<S, D> md(levels);
    const bool diffusion = method >= 1 && method <= 3, st = method == 3;
    const Noise nz = diffusion ? Noise(static_cast<float>(50 - noise) * md.step / 100.0f, static_cast<float>(50 + noise) * md.step / 100.0f)
                               : Noise(-noise / 100.0f, noise / 100.0f);
    const float A = st ? 2.0f : 3.0f, B = st ? 4.0f : 5.0f, C = st ? 8.0f : 7.0f;
    const std::vector<int> b = diffusion ? sections(ch == 1 ? 1 : team, ch) : std::vector<int>{0, ch};
    for (std::size_t sec = 0; sec + 1 < b.size(); ++sec) {
        // The errors of a section in processing order, channel after channel.
        std::vector<float> E(static_cast<std::size_t>(b[sec + 1] - b[sec]) * h * w);
        const auto e = [&](int r, int x) { return r < 0 || x < 0 || x >= w ? 0.0f : E[static_cast<std::size_t>(r) * w + x]; };
        for (int c = b[sec]; c < b[sec + 1]; ++c)
            for (int y = 0, r = (c - b[sec]) * h; y < h; ++y, ++r)
                for (int x = 0; x < w; ++x) {
                    const S s = src[y * ss + x * n + c];
                    D& d = dst[y * ds + x * n + c];
                    const float bayer = static_cast<float>(kBayerIndex[(y % 4) * 4 + x % 4]) / 15.0f;
                    if (method == 0) d = md.plain(s);
                    if (method == 4) d = md.ordered(s, noise > 0 ? (bayer + nz.at(x, y)) * md.step : bayer * md.step);
                    if (!diffusion) continue;
                    const float sum =
                        method == 1 ? (3.0f * e(r - 1, x + 1) + 5.0f * e(r - 1, x) + e(r - 1, x - 1) + 7.0f * e(r, x - 1)) * 0.0625f
                                    : (e(r - 2, x - 2) + A * e(r - 2, x - 1) + B * e(r - 2, x) + A * e(r - 2, x + 1) + e(r - 2, x + 2) +
                                       A * e(r - 1, x - 2) + B * e(r - 1, x - 1) + C * e(r - 1, x) + B * e(r - 1, x + 1) +
                                       A * e(r - 1, x + 2) + B * e(r, x - 2) + C * e(r, x - 1)) * (st ? 1.0f / 42.0f : 1.0f / 48.0f);
                    d = md.diffuse(md.work(s) + sum, noise > 0 ? nz.at(x, y) : 0.5f * md.step, E[static_cast<std::size_t>(r) * w + x]);
                }
    }
}

// One call against the model. Bottom-up views walk the rows with negative
// steps; the dither methods read steps in whole elements, so they get a few
// bytes more than the rows hold and must round them down. Team 0 is a call
// inside an active region, which is granted one thread.
template <class S, class D>
void check(ReduceFn<S, D> fn, int layout, int method, int levels, int noise, int team, int w, int h, bool flip, std::uint32_t seed) {
    constexpr int kCh[4] = {1, 3, 3, 4}, kN[4] = {1, 3, 4, 4};
    const int ch = kCh[layout], n = kN[layout], sign = flip ? -1 : 1;
    zt::Image<S> src(w, h, n, 3 * static_cast<int>(sizeof(S)), seed);
    std::mt19937 rng(seed);  // one sample in five at a range end; 32f mostly in -0.25..1.25, some tiny, huge, non-finite
    if constexpr (std::is_same_v<S, Zor32f>) {
        const float special[] = {0.0f, 1.0f, 1e-8f, 0.5f, NAN, 1e30f, -1e30f, INFINITY};
        src.fillSamples([&] { return rng() % 5 == 0 ? special[rng() % 8] : -0.25f + 1.5f * static_cast<float>(rng() % 4096) / 4096.0f; });
    } else {
        src.fillSamples([&] { return rng() % 5 ? static_cast<S>(rng()) : rng() % 2 ? std::numeric_limits<S>::max() : std::numeric_limits<S>::min(); });
    }
    zt::Image<D> dst(w, h, n, 5 * static_cast<int>(sizeof(D)), seed + 1), want = dst;
    const S* s0 = flip ? src.flippedData() : src.data();
    D* d0 = flip ? dst.flippedData() : dst.data();
    expected<S, D>(s0, sign * src.step() / static_cast<int>(sizeof(S)),
                   flip ? want.flippedData() : want.data(), sign * want.step() / static_cast<int>(sizeof(D)), ch, n, w, h,
                   method, levels, noise, std::max(team, 1));
    const int ss = sign * src.step() + (method ? int{sizeof(S)} - 1 : 0), ds = sign * dst.step() + (method ? int{sizeof(D)} - 1 : 0);
    zt::TeamSize t(team == 0 ? 3 : team);
    const auto call = [&] { EXPECT_EQ(fn(s0, ss, d0, ds, {w, h}, noise, static_cast<ZorDitherType>(method), levels), 0); };
    team == 0 ? zt::inOuterParallelRegion(call) : call();
    ASSERT_EQ(zt::firstDifference(dst.bytes(), want.bytes()), -1) << "layout " << layout << " method " << method << " levels "
        << levels << " noise " << noise << " team " << team << " size " << w << "x" << h << (flip ? " bottom-up" : "");
}

// Pointers, then size, then noise, then levels; unknown methods do nothing.
template <class S, class D>
void expectChecks(ReduceFn<S, D> fn, int maxLevels) {
    zt::Image<S> src(4, 3, 4, 4, 1);
    zt::Image<D> dst(4, 3, 4, 4, 2), before = dst;
    const S* s = src.data();
    D* d = dst.data();
    EXPECT_EQ(fn(nullptr, 0, d, 0, {0, 3}, 101, zorDitherNone, 1), zorStsNullPtr);
    EXPECT_EQ(fn(s, 0, nullptr, 0, {4, 0}, -1, zorDitherNone, 0), zorStsNullPtr);
    EXPECT_EQ(fn(s, 0, d, 0, {0, 3}, 101, zorDitherNone, 1), zorStsBadSize);
    EXPECT_EQ(fn(s, 0, d, 0, {4, -1}, 101, zorDitherNone, 1), zorStsBadSize);
    EXPECT_EQ(fn(s, 0, d, 0, {4, 3}, 101, zorDitherNone, 1), zorStsNoiseRangeErr);
    EXPECT_EQ(fn(s, 0, d, 0, {4, 3}, -1, zorDitherFS, 4), zorStsNoiseRangeErr);
    EXPECT_EQ(fn(s, 0, d, 0, {4, 3}, 100, zorDitherNone, 1), zorStsLevelsRangeErr);
    EXPECT_EQ(fn(s, 0, d, 0, {4, 3}, 0, zorDitherBayer, maxLevels + 1), zorStsLevelsRangeErr);
    EXPECT_EQ(fn(s, 0, d, 0, {4, 3}, 100, static_cast<ZorDitherType>(7), maxLevels), zorStsOk);
    EXPECT_TRUE(dst == before);
}

// Per type: the checks of every layout; levels and noise on a team of one;
// every layout and method inside an active region and on teams 2 to 4, where
// error diffusion splits the channels (and the errors they carry over). Sizes
// cycle through narrow and short images (the guard elements of the error
// rows), and noise 100 on one thread runs on rows longer than the noise table.
template <class S, class D>
void sweep(const char* name, const ReduceFn<S, D> (&fns)[4], int maxLevels) {
    SCOPED_TRACE(name);
    std::vector<int> levels = {2, 3, 8, 42, 256};
    if (maxLevels > 256) levels.insert(levels.end(), {1000, 65535, 65536});
    constexpr int kSizes[6][2] = {{17, 9}, {1, 3}, {2, 1}, {5, 3}, {3, 2}, {17, 9}};
    std::uint32_t n = 0;
    const auto run = [&](int layout, int method, int lv, int noise, int team) {
        const bool wide = noise == 100 && layout < 2 && team == 1;
        ++n;
        check<S, D>(fns[layout], layout, method, lv, noise, team, wide ? 1030 : kSizes[n % 6][0], wide ? 2 : kSizes[n % 6][1], n % 5 == 0, n);
    };
    for (int layout = 0; layout < 4 && !::testing::Test::HasFatalFailure(); ++layout) {
        expectChecks(fns[layout], maxLevels);
        for (int method = 0; method <= 4 && !::testing::Test::HasFatalFailure(); ++method) {
            for (int lv : levels)
                for (int noise : {0, 1, 50, 100})
                    if (method > 0 || noise < 2) run(layout, method, lv, noise, 1);
            for (int team = 0; team <= 4; ++team)
                if (team != 1) run(layout, method, maxLevels == 256 ? 42 : 65536, team % 2 ? 0 : 100, team);
        }
    }
}

#define RB_SWEEP(S, D, t, max) \
    sweep<S, D>(#t, {zoriReduceBits_##t##_C1R, zoriReduceBits_##t##_C3R, zoriReduceBits_##t##_AC4R, zoriReduceBits_##t##_C4R}, max)

TEST(ReduceBitsModel, EveryTypeLayoutAndMethod) {
    RB_SWEEP(Zor8u, Zor8u, 8u, 256);
    RB_SWEEP(Zor16u, Zor16u, 16u, 65536);
    RB_SWEEP(Zor16s, Zor16s, 16s, 65536);
    RB_SWEEP(Zor16u, Zor8u, 16u8u, 256);
    RB_SWEEP(Zor16s, Zor8u, 16s8u, 256);
    RB_SWEEP(Zor32f, Zor8u, 32f8u, 256);
    RB_SWEEP(Zor32f, Zor16u, 32f16u, 256);  // a 16-bit destination, but at most 256 levels from float
    RB_SWEEP(Zor32f, Zor16s, 32f16s, 256);
}

int plain8u(int value, int levels) {
    Zor8u s = static_cast<Zor8u>(value), d = 0;
    EXPECT_EQ(zoriReduceBits_8u_C1R(&s, 1, &d, 1, {1, 1}, 0, zorDitherNone, levels), zorStsOk);
    return d;
}

TEST(ReduceBitsPlain, DocumentedLevelsAndRounding) {
    // m * (1/m) falls below 1 in single precision for 38 level counts.
    std::vector<int> low;
    for (int levels = 2; levels <= 256; ++levels) {
        const int top = plain8u(255, levels);
        EXPECT_TRUE(top == 255 || top == 254) << levels;
        if (top == 254) low.push_back(levels);
    }
    ASSERT_EQ(low.size(), 38u);
    EXPECT_EQ(std::vector<int>(low.begin(), low.begin() + 6), (std::vector<int>{42, 48, 56, 62, 83, 84}));
    std::set<int> out;
    for (int v = 0; v < 256; ++v) {
        out.insert(plain8u(v, 8));
        EXPECT_EQ(plain8u(v, 2), v < 128 ? 0 : 255) << v;
        EXPECT_EQ(plain8u(v, 256), v) << v;
    }
    EXPECT_EQ(out, (std::set<int>{0, 36, 72, 109, 145, 182, 218, 255}));
    // Exactly half an interval rounds down; a float below 0 wraps, above 1 clamps.
    Zor32f f[4] = {0.5f, 0.25f, -0.5f, 3.0f};
    Zor8u d[4] = {};
    ASSERT_EQ(zoriReduceBits_32f8u_C1R(f, 16, d, 4, {1, 1}, 0, zorDitherNone, 2), zorStsOk);
    ASSERT_EQ(zoriReduceBits_32f8u_C1R(f + 1, 16, d + 1, 4, {1, 1}, 0, zorDitherNone, 3), zorStsOk);
    ASSERT_EQ(zoriReduceBits_32f8u_C1R(f + 2, 16, d + 2, 4, {2, 1}, 0, zorDitherNone, 256), zorStsOk);
    EXPECT_EQ(std::vector<int>(d, d + 4), (std::vector<int>{0, 0, 129, 255}));
    // 16u at 65536 levels moves some values (257 first); 16s keeps both ends.
    std::vector<Zor16u> src(65536), dst(65536);
    for (int v = 0; v < 65536; ++v) src[v] = static_cast<Zor16u>(v);
    ASSERT_EQ(zoriReduceBits_16u_C1R(src.data(), 0, dst.data(), 0, {65536, 1}, 0, zorDitherNone, 65536), zorStsOk);
    EXPECT_EQ(std::mismatch(src.begin(), src.end(), dst.begin()).first - src.begin(), 257);
    Zor16s s16[2] = {-32768, 32767}, d16[2] = {};
    ASSERT_EQ(zoriReduceBits_16s_C1R(s16, 4, d16, 4, {2, 1}, 0, zorDitherNone, 65536), zorStsOk);
    EXPECT_TRUE(d16[0] == -32768 && d16[1] == 32767);
}

// The dither paths form 8u levels as (k * M) >> 8 with M = trunc(65280/m +
// 0.000009): at 8 levels M = 9325, level 7 is 254 and level 8 is 291, which
// wraps. The Bayer matrix runs from 0 to 1 inclusive: 254 (6.97 levels) stays
// down only at the threshold 1, white (a hair above level 7 in single
// precision) goes up at the threshold 0. Error diffusion saturates instead.
TEST(ReduceBitsDither, EightBitLevelsUseTheIntegerMultiplier) {
    for (int value : {254, 255}) {
        zt::Image<Zor8u> src(8, 8, 1, 0, 1), dst(8, 8, 1, 0, 2);
        src.fillSamples([&] { return static_cast<Zor8u>(value); });
        ASSERT_EQ(zoriReduceBits_8u_C1R(src.data(), 8, dst.data(), 8, {8, 8}, 0, zorDitherBayer, 8), zorStsOk);
        for (int i = 0; i < 64; ++i)  // the corner: column 0 of matrix row 3 (threshold 1) or 0 (threshold 0)
            EXPECT_EQ(dst.data()[i], i % 4 == 0 && i / 8 % 4 == (value == 254 ? 3 : 0) ? (value == 254 ? 218 : 291 - 256) : 254) << i;
        for (ZorDitherType method : {zorDitherFS, zorDitherJJN}) {
            ASSERT_EQ(zoriReduceBits_8u_C1R(src.data(), 8, dst.data(), 8, {8, 8}, 0, method, 8), zorStsOk);
            EXPECT_TRUE(value == 254 || std::count(dst.data(), dst.data() + 64, 255) == 64);
        }
    }
    // A constant 128 at 2 levels passes 8 of the 16 thresholds; the pattern
    // phase follows the region.
    zt::Image<Zor8u> src(9, 9, 1, 0, 1), a(8, 8, 1, 0, 2), b(8, 8, 1, 0, 2);
    src.fillSamples([] { return Zor8u{128}; });
    ASSERT_EQ(zoriReduceBits_8u_C1R(src.data(), 9, a.data(), 8, {8, 8}, 0, zorDitherBayer, 2), zorStsOk);
    ASSERT_EQ(zoriReduceBits_8u_C1R(src.data() + 10, 9, b.data(), 8, {8, 8}, 0, zorDitherBayer, 2), zorStsOk);
    EXPECT_TRUE(a == b && std::count(a.data(), a.data() + 64, 255) == 32);
}

// Fail the n-th allocation of a call for every n until the call succeeds:
// each failure gives zorStsNoMemory with nothing written (and, under the
// address sanitizer, nothing leaked).
int gAllocCount = 0, gFailAt = 0;
bool failNth(std::size_t) { return ++gAllocCount != gFailAt; }

TEST(ReduceBitsMemory, EveryFailedAllocationReturnsNoMemory) {
    zt::Image<Zor32f> src(11, 5, 4, 4, 1);
    src.fillSamples([] { return 0.3f; });
    for (auto fn : {zoriReduceBits_32f16s_C1R, zoriReduceBits_32f16s_C3R, zoriReduceBits_32f16s_C4R})
        for (ZorDitherType method : {zorDitherFS, zorDitherJJN, zorDitherStucki, zorDitherBayer})
            for (int noise : {0, 40})
                for (int team : {1, 3}) {
                    zt::TeamSize t(team);
                    int n = 1;
                    for (;; ++n) {
                        zt::Image<Zor16s> dst(11, 5, 4, 4, 2), before = dst;
                        gAllocCount = 0, gFailAt = n;
                        zor::setAllocHook(failNth);
                        const ZorStatus st = fn(src.data(), src.step(), dst.data(), dst.step(), {11, 5}, noise, method, 9);
                        zor::setAllocHook(nullptr);
                        if (st == zorStsOk) break;
                        ASSERT_TRUE(st == zorStsNoMemory && dst == before) << st;
                    }
                    // Two noise tables and two generator states; error rows.
                    EXPECT_EQ(n - 1, (noise > 0 ? 4 : 0) + (method == zorDitherBayer ? 0 : 1)) << method << " " << noise;
                }
    zt::ForceTarget scalarOnly(zor::cpu::kScalar);  // plain 16-bit without vector kernels: a table per call
    zt::Image<Zor16u> big(256, 64, 3, 0, 3), out(256, 64, 3, 0, 4), before = out;
    gAllocCount = 0, gFailAt = 1, zor::setAllocHook(failNth);
    EXPECT_EQ(zoriReduceBits_16u_C3R(big.data(), big.step(), out.data(), out.step(), {256, 64}, 0, zorDitherNone, 9), zorStsNoMemory);
    zor::setAllocHook(nullptr);
    EXPECT_TRUE(out == before && gAllocCount == 1);
}

}  // namespace
