// Error diffusion at every CPU target against the scalar target, through the exported functions: every type pair,
// layout and method, with and without noise, random sizes (chains of rows shorter and longer than a wavefront, row
// ends inside its ramps), bottom-up images, teams of 1 to 4 and a call inside an outer parallel region. Float
// sources mix NaN, infinities, signed zeros, denormals and values at the saturation bounds into 0..1.
#include "support/kernel_harness.h"
#include "support/testutil.h"

#include <cmath>
namespace {

template <class S, class D>
using ReduceFn = ZorStatus (*)(const S*, int, D*, int, ZoriSize, int, ZorDitherType, int);

template <class S>
S sample(std::mt19937& rng) {
    if constexpr (!std::is_same_v<S, Zor32f>) {
        return static_cast<S>(rng());
    } else {
        const float special[] = {NAN, INFINITY, -INFINITY, -0.0f, 0.0f, 1.0f, 1e-40f, 1.1920929e-7f, 1.1920928e-7f, 0.99999994f, -1e-3f, 2.0f};
        const float u = static_cast<float>(rng() >> 8) * (1.0f / 16777216.0f);
        return rng() % 8 == 0 ? special[rng() % 12] : u;
    }
}

template <class S, class D>
void compareTargets(const char* name, const ReduceFn<S, D> (&fns)[4], int maxLevels) {
    SCOPED_TRACE(name);
    std::mt19937 rng(16);
    const ZorDitherType methods[] = {zorDitherFS, zorDitherStucki, zorDitherJJN};
    for (int i = 0; i < 48 && !::testing::Test::HasFailure(); ++i) {
        const int layout = i % 4, channels = layout == 0 ? 1 : layout == 1 ? 3 : 4;
        const int w = i % 12 == 5 ? 300 + static_cast<int>(rng() % 800) : 1 + static_cast<int>(rng() % 40);
        const int h = 1 + static_cast<int>(rng() % (i % 8 == 3 ? 70 : 20)), team = static_cast<int>(rng() % 5);
        const bool tie = std::is_same_v<S, Zor32f> && i % 6 == 1;  // a chain's first residue is exactly half a step
        const int noise = i % 3 == 0 || tie ? 0 : static_cast<int>(rng() % 101);
        const int levels = tie ? 3 : 2 + static_cast<int>(rng() % (maxLevels - 1));
        const ZorDitherType method = methods[(i / 4) % 3];
        const bool flip = rng() % 2;
        zt::Image<S> src(w, h, channels, 3 * static_cast<int>(sizeof(S)), i);
        src.fillSamples([&] { return sample<S>(rng); });
        if (tie) src.row(0)[0] = src.row(h - 1)[0] = static_cast<S>(0.25f);
        zt::Image<D> ref(w, h, channels, 5 * static_cast<int>(sizeof(D)), i);
        const auto run = [&](zt::Image<D>& dst) {
            const S* s = flip ? src.row(h - 1) : src.data();
            D* d = flip ? dst.row(h - 1) : dst.data();
            const int ss = flip ? -src.step() : src.step(), ds = flip ? -dst.step() : dst.step();
            zt::TeamSize t(team == 0 ? 3 : team);
            const auto call = [&] { EXPECT_EQ(fns[layout](s, ss, d, ds, {w, h}, noise, method, levels), zorStsOk); };
            team == 0 ? zt::inOuterParallelRegion(call) : call();
        };
        {
            zt::ForceTarget scalar(zor::cpu::kScalar);
            run(ref);
        }
        for (zor::cpu::Target target : zt::vectorTargets()) {
            zt::ForceTarget force(target);
            zt::Image<D> got(w, h, channels, 5 * static_cast<int>(sizeof(D)), i);
            run(got);
            EXPECT_TRUE(got == ref) << "target " << target << " layout " << layout << " method " << method << " size " << w
                                    << "x" << h << " team " << team << " noise " << noise << " levels " << levels;
        }
    }
}

#define RB_TARGETS(S, D, t, max) \
    compareTargets<S, D>(#t, {zoriReduceBits_##t##_C1R, zoriReduceBits_##t##_C3R, zoriReduceBits_##t##_AC4R, zoriReduceBits_##t##_C4R}, max)

TEST(ReduceBitsDiffusion, VectorTargetsMatchScalar) {
    RB_TARGETS(Zor8u, Zor8u, 8u, 256);
    RB_TARGETS(Zor16u, Zor16u, 16u, 65536);
    RB_TARGETS(Zor16s, Zor16s, 16s, 65536);
    RB_TARGETS(Zor16u, Zor8u, 16u8u, 256);
    RB_TARGETS(Zor16s, Zor8u, 16s8u, 256);
    RB_TARGETS(Zor32f, Zor8u, 32f8u, 256);
    RB_TARGETS(Zor32f, Zor16u, 32f16u, 256);
    RB_TARGETS(Zor32f, Zor16s, 32f16s, 256);
}

}  // namespace
