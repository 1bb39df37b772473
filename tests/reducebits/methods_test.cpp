// Every type, layout and method against the per-sample model, on random
// images with padded rows and bottom-up views, for teams of 1 to 4 threads.
#include "reducebits/reference.h"

#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace {

using rbref::Layout;
using rbref::ReduceFn;

constexpr Layout kLayouts[4] = {{1, 1}, {3, 3}, {3, 4}, {4, 4}};
constexpr const char* kLayoutNames[4] = {"C1", "C3", "AC4", "C4"};

// Random samples over the whole range; 32f mostly in -0.25..1.25 with exact
// ends, values below the bottom threshold and a few non-finite ones.
template <class S>
void fillSource(zt::Image<S>& img, std::uint32_t seed) {
    if constexpr (std::is_same_v<S, Zor32f>) {
        std::mt19937 rng(seed);
        std::uniform_real_distribution<float> u(-0.25f, 1.25f);
        img.fillSamples([&] {
            switch (rng() % 40) {
                case 0: return 0.0f;
                case 1: return 1.0f;
                case 2: return 1e-8f;
                case 3: return 0.5f;
                case 4: return std::numeric_limits<float>::quiet_NaN();
                case 5: return (rng() & 1) ? 1e30f : -1e30f;
                case 6: return std::numeric_limits<float>::infinity();
                default: return u(rng);
            }
        });
    }
}

template <class S, class D>
struct Case {
    ReduceFn<S, D> fn;
    int layout;
    int method;
    int levels;
    int noise;
    int team;
    int w = 17;
    int h = 9;
    bool flip = false;
    std::uint32_t seed = 7;

    std::string name() const {
        return std::string(kLayoutNames[layout]) + " method " + std::to_string(method) + " levels " +
               std::to_string(levels) + " noise " + std::to_string(noise) + " team " + std::to_string(team) +
               " size " + std::to_string(w) + "x" + std::to_string(h) + (flip ? " bottom-up" : "");
    }

    void run() const {
        const Layout lay = kLayouts[layout];
        zt::Image<S> src(w, h, lay.stride, 3 * static_cast<int>(sizeof(S)), seed);
        fillSource(src, seed);
        zt::Image<D> dst(w, h, lay.stride, 5 * static_cast<int>(sizeof(D)), seed + 1);
        zt::Image<D> want = dst;
        const rbref::View<S> sv = rbref::view(src, flip);
        rbref::expected<S, D>({sv.base, sv.step}, rbref::view(want, flip), lay, w, h, method, levels, noise, team);

        zt::TeamSize t(team);
        const auto dt = static_cast<ZorDitherType>(method);
        const ZorStatus st = flip ? fn(src.flippedData(), src.flippedStep(), dst.flippedData(), dst.flippedStep(),
                                       {w, h}, noise, dt, levels)
                                  : fn(src.data(), src.step(), dst.data(), dst.step(), {w, h}, noise, dt, levels);
        ASSERT_EQ(st, zorStsOk) << name();
        ASSERT_EQ(zt::firstDifference(dst.bytes(), want.bytes()), -1) << name();

        // A second call gives the same bytes (the noise is repeatable).
        if (noise == 0) return;
        zt::Image<D> again(w, h, lay.stride, 5 * static_cast<int>(sizeof(D)), seed + 1);
        ASSERT_EQ(fn(src.data(), src.step(), again.data(), again.step(), {w, h}, noise, dt, levels), zorStsOk);
        if (!flip) {
            ASSERT_TRUE(again == dst) << "repeated call differs: " << name();
        }
    }
};

// Levels and noise swept on a team of one; then every layout and method on
// larger teams: 2, 3 and 4 for the error diffusion of multi-channel images,
// whose results depend on the team, 3 for the rest.
template <class S, class D>
void runMatrix(const ReduceFn<S, D> (&fns)[4]) {
    using M = rbref::Model<S, D>;
    std::vector<int> levels = {2, 3, 8, 42, 256};
    if (M::kMaxLevels > 256) levels.insert(levels.end(), {1000, 65535, 65536});
    int n = 0;
    auto run = [&](int layout, int method, int lv, int noise, int team) {
        Case<S, D> c{fns[layout], layout, method, lv, noise, team};
        c.flip = (++n % 3) == 0;
        c.seed = static_cast<std::uint32_t>(n);
        c.run();
    };
    for (int layout = 0; layout < 4; ++layout)
        for (int method = 0; method <= 4; ++method) {
            for (int lv : levels)
                for (int noise : {0, 1, 50, 100}) {
                    if (method == 0 && noise > 1) continue;  // ignored there
                    run(layout, method, lv, noise, 1);
                    if (::testing::Test::HasFatalFailure()) return;
                }
            const bool split = method >= 1 && method <= 3 && layout > 0;
            for (int team = 2; team <= 4; ++team) {
                if (!split && team != 3) continue;
                run(layout, method, 8, 0, team);
                if (split) run(layout, method, M::kMaxLevels == 256 ? 42 : 65536, 100, team);
                if (::testing::Test::HasFatalFailure()) return;
            }
        }
}

#define RB_FNS(t) \
    { zoriReduceBits_##t##_C1R, zoriReduceBits_##t##_C3R, zoriReduceBits_##t##_AC4R, zoriReduceBits_##t##_C4R }

TEST(ReduceBitsModel, Type8u) { runMatrix<Zor8u, Zor8u>(RB_FNS(8u)); }
TEST(ReduceBitsModel, Type16u) { runMatrix<Zor16u, Zor16u>(RB_FNS(16u)); }
TEST(ReduceBitsModel, Type16s) { runMatrix<Zor16s, Zor16s>(RB_FNS(16s)); }
TEST(ReduceBitsModel, Type16u8u) { runMatrix<Zor16u, Zor8u>(RB_FNS(16u8u)); }
TEST(ReduceBitsModel, Type16s8u) { runMatrix<Zor16s, Zor8u>(RB_FNS(16s8u)); }
TEST(ReduceBitsModel, Type32f8u) { runMatrix<Zor32f, Zor8u>(RB_FNS(32f8u)); }
TEST(ReduceBitsModel, Type32f16u) { runMatrix<Zor32f, Zor16u>(RB_FNS(32f16u)); }
TEST(ReduceBitsModel, Type32f16s) { runMatrix<Zor32f, Zor16s>(RB_FNS(32f16s)); }

// Narrow and short images: the guard elements of the error rows supply zeros
// outside the region, and rows are never padded in the source.
TEST(ReduceBitsModel, NarrowImages) {
    const ReduceFn<Zor8u, Zor8u> f8[4] = RB_FNS(8u);
    const ReduceFn<Zor32f, Zor16s> f32[4] = RB_FNS(32f16s);
    int n = 0;
    for (int w : {1, 2, 3, 5})
        for (int h : {1, 3})
            for (int layout = 0; layout < 4; ++layout)
                for (int method = 1; method <= 4; ++method) {
                    const int team = (n++ % 4) == 0 ? 2 : 1;
                    Case<Zor8u, Zor8u> a{f8[layout], layout, method, 3, 0, team, w, h};
                    a.run();
                    Case<Zor32f, Zor16s> b{f32[layout], layout, method, 5, 50, team, w, h, true};
                    b.run();
                    if (HasFatalFailure()) return;
                }
}

// The noise pattern repeats every 1024 columns and wider rows use it whole.
TEST(ReduceBitsModel, WideRowsWrapTheNoiseTable) {
    for (int method : {1, 2, 4}) {
        Case<Zor8u, Zor8u> c{zoriReduceBits_8u_C1R, 0, method, 4, 100, 1, 1100, 3};
        c.run();
        Case<Zor16u, Zor16u> d{zoriReduceBits_16u_C3R, 1, method, 4, 30, 2, 1030, 2};
        d.run();
    }
}

// A dither method reads the steps in elements, rounding down; the plain path
// uses bytes.
TEST(ReduceBitsModel, DitherStepsRoundDownToWholeElements) {
    for (int method : {1, 3, 4}) {
        zt::Image<Zor16u> src(9, 6, 3, 4, 3);
        zt::Image<Zor16u> a(9, 6, 3, 4, 4);
        zt::Image<Zor16u> b = a;
        const auto dt = static_cast<ZorDitherType>(method);
        ASSERT_EQ(zoriReduceBits_16u_C3R(src.data(), src.step(), a.data(), a.step(), {9, 6}, 0, dt, 5), zorStsOk);
        ASSERT_EQ(zoriReduceBits_16u_C3R(src.data(), src.step() + 1, b.data(), b.step() + 1, {9, 6}, 0, dt, 5),
                  zorStsOk);
        EXPECT_TRUE(a == b) << "method " << method;
        zt::Image<Zor32f> fsrc(9, 6, 1, 8, 3);
        fillSource(fsrc, 3);
        zt::Image<Zor16s> c(9, 6, 1, 4, 4);
        zt::Image<Zor16s> d = c;
        ASSERT_EQ(zoriReduceBits_32f16s_C1R(fsrc.data(), fsrc.step(), c.data(), c.step(), {9, 6}, 0, dt, 5), zorStsOk);
        ASSERT_EQ(zoriReduceBits_32f16s_C1R(fsrc.data(), fsrc.step() + 3, d.data(), d.step() + 1, {9, 6}, 0, dt, 5),
                  zorStsOk);
        EXPECT_TRUE(c == d) << "method " << method;
    }
}

}  // namespace
