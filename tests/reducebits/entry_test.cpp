// Argument checks, the documented quirks of the level arithmetic, the team
// dependence of error diffusion and allocation failures.
#include "core/memory.h"
#include "reducebits/reference.h"

#include <set>
#include <vector>

namespace {

constexpr ZorDitherType kNone = zorDitherNone;

template <class S, class D>
void expectChecks(rbref::ReduceFn<S, D> fn, int maxLevels) {
    zt::Image<S> src(4, 3, 4, 4, 1);
    zt::Image<D> dst(4, 3, 4, 4, 2);
    const zt::Image<D> before = dst;
    const S* s = src.data();
    D* d = dst.data();
    const int ss = src.step(), ds = dst.step();
    // Pointers first, then size, then noise, then levels.
    EXPECT_EQ(fn(nullptr, ss, d, ds, {0, 3}, 101, kNone, 1), zorStsNullPtr);
    EXPECT_EQ(fn(s, ss, nullptr, ds, {4, 0}, -1, kNone, 0), zorStsNullPtr);
    EXPECT_EQ(fn(s, ss, d, ds, {0, 3}, 101, kNone, 1), zorStsBadSize);
    EXPECT_EQ(fn(s, ss, d, ds, {4, -1}, 101, kNone, 1), zorStsBadSize);
    EXPECT_EQ(fn(s, ss, d, ds, {4, 3}, 101, kNone, 1), zorStsNoiseRangeErr);
    EXPECT_EQ(fn(s, ss, d, ds, {4, 3}, -1, zorDitherFS, 4), zorStsNoiseRangeErr);
    EXPECT_EQ(fn(s, ss, d, ds, {4, 3}, 100, kNone, 1), zorStsLevelsRangeErr);
    EXPECT_EQ(fn(s, ss, d, ds, {4, 3}, 0, zorDitherBayer, maxLevels + 1), zorStsLevelsRangeErr);
    EXPECT_EQ(fn(s, ss, d, ds, {4, 3}, 0, zorDitherFS, maxLevels + 1), zorStsLevelsRangeErr);
    // Methods outside 0..4 are accepted and do nothing.
    EXPECT_EQ(fn(s, ss, d, ds, {4, 3}, 0, static_cast<ZorDitherType>(5), 2), zorStsOk);
    EXPECT_EQ(fn(s, ss, d, ds, {4, 3}, 100, static_cast<ZorDitherType>(7), maxLevels), zorStsOk);
    EXPECT_TRUE(dst == before);
    // The largest level count is accepted.
    EXPECT_EQ(fn(s, ss, d, ds, {4, 3}, 0, zorDitherFS, maxLevels), zorStsOk);
    EXPECT_EQ(fn(s, ss, d, ds, {4, 3}, 100, kNone, maxLevels), zorStsOk);
}

TEST(ReduceBitsEntry, CheckOrderAndLevelLimits) {
    expectChecks<Zor8u, Zor8u>(zoriReduceBits_8u_C1R, 256);
    expectChecks<Zor8u, Zor8u>(zoriReduceBits_8u_C4R, 256);
    expectChecks<Zor16u, Zor16u>(zoriReduceBits_16u_C3R, 65536);
    expectChecks<Zor16s, Zor16s>(zoriReduceBits_16s_AC4R, 65536);
    expectChecks<Zor16u, Zor8u>(zoriReduceBits_16u8u_C1R, 256);
    expectChecks<Zor16s, Zor8u>(zoriReduceBits_16s8u_C4R, 256);
    expectChecks<Zor32f, Zor8u>(zoriReduceBits_32f8u_C3R, 256);
    // A 16-bit destination, but still at most 256 levels from float.
    expectChecks<Zor32f, Zor16u>(zoriReduceBits_32f16u_C1R, 256);
    expectChecks<Zor32f, Zor16s>(zoriReduceBits_32f16s_AC4R, 256);
}

// Plain quantisation of single 8u values.
int plain8u(int value, int levels) {
    Zor8u s = static_cast<Zor8u>(value), d = 0;
    EXPECT_EQ(zoriReduceBits_8u_C1R(&s, 1, &d, 1, {1, 1}, 0, kNone, levels), zorStsOk);
    return d;
}

TEST(ReduceBitsPlain, TopInputGives254ForSomeLevelCounts) {
    std::vector<int> low;
    for (int levels = 2; levels <= 256; ++levels) {
        const int top = plain8u(255, levels);
        Zor32f one = 1.0f;
        Zor8u d = 0;
        ASSERT_EQ(zoriReduceBits_32f8u_C1R(&one, 4, &d, 1, {1, 1}, 0, kNone, levels), zorStsOk);
        EXPECT_EQ(d, top) << levels;
        if (top == 254)
            low.push_back(levels);
        else
            EXPECT_EQ(top, 255) << levels;
    }
    ASSERT_EQ(low.size(), 38u);
    EXPECT_EQ(std::vector<int>(low.begin(), low.begin() + 6), (std::vector<int>{42, 48, 56, 62, 83, 84}));
}

TEST(ReduceBitsPlain, LevelValuesAndRounding) {
    std::set<int> out;
    for (int v = 0; v < 256; ++v) out.insert(plain8u(v, 8));
    EXPECT_EQ(out, (std::set<int>{0, 36, 72, 109, 145, 182, 218, 255}));
    for (int v = 0; v < 256; ++v) {
        EXPECT_EQ(plain8u(v, 2), v < 128 ? 0 : 255) << v;
        EXPECT_EQ(plain8u(v, 256), v) << v;
    }
    // A residue of exactly half an interval rounds down.
    Zor32f half[2] = {0.5f, 0.25f};
    Zor8u d[2] = {};
    ASSERT_EQ(zoriReduceBits_32f8u_C1R(half, 8, d, 2, {2, 1}, 0, kNone, 2), zorStsOk);
    EXPECT_EQ(d[0], 0);
    ASSERT_EQ(zoriReduceBits_32f8u_C1R(half, 8, d, 2, {2, 1}, 0, kNone, 3), zorStsOk);
    EXPECT_EQ(d[1], 0);
    // A float below 0 wraps, above 1 clamps.
    Zor32f out2[2] = {-0.5f, 3.0f};
    ASSERT_EQ(zoriReduceBits_32f8u_C1R(out2, 8, d, 2, {2, 1}, 0, kNone, 256), zorStsOk);
    EXPECT_EQ(d[0], static_cast<Zor8u>(-127));
    EXPECT_EQ(d[1], 255);
}

TEST(ReduceBitsPlain, SixteenBitAtFullLevelsIsNotTheIdentity) {
    std::vector<Zor16u> src(65536), dst(65536);
    for (int v = 0; v < 65536; ++v) src[v] = static_cast<Zor16u>(v);
    ASSERT_EQ(zoriReduceBits_16u_C1R(src.data(), 0, dst.data(), 0, {65536, 1}, 0, kNone, 65536), zorStsOk);
    int first = -1;
    for (int v = 0; v < 65536 && first < 0; ++v)
        if (dst[v] != v) first = v;
    EXPECT_EQ(first, 257);
    // 16s keeps both ends.
    Zor16s s[2] = {-32768, 32767}, d[2] = {};
    ASSERT_EQ(zoriReduceBits_16s_C1R(s, 4, d, 4, {2, 1}, 0, kNone, 65536), zorStsOk);
    EXPECT_EQ(d[0], -32768);
    EXPECT_EQ(d[1], 32767);
}

// The dither paths form their levels from M = trunc(65280/m + 0.000009): for
// 8 levels M = 9325 and the top level is (7 * 9325) >> 8 = 254.
TEST(ReduceBitsDither, EightBitLevelsUseTheIntegerMultiplier) {
    zt::Image<Zor8u> src(8, 8, 1, 0, 1);
    src.fillSamples([] { return Zor8u{254}; });
    zt::Image<Zor8u> dst(8, 8, 1, 0, 2);
    ASSERT_EQ(zoriReduceBits_8u_C1R(src.data(), 8, dst.data(), 8, {8, 8}, 0, zorDitherBayer, 8), zorStsOk);
    // 254 is 6.97 levels: it rounds up to level 7 (254) except where the
    // threshold is the full step (row 3, column 0 of the matrix).
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x) EXPECT_EQ(dst.at(x, y), (y % 4 == 3 && x % 4 == 0) ? 218 : 254) << x << "," << y;
}

// The matrix runs from 0 to 1 inclusive: white at 8 levels sits a hair above
// level 7 in single precision, so the threshold-0 positions round up to
// level 8, whose (8 * 9325) >> 8 = 291 is stored in 8 bits.
TEST(ReduceBitsDither, BayerZeroThresholdRoundsUpEveryResidue) {
    zt::Image<Zor8u> src(8, 4, 1, 0, 1);
    src.fillSamples([] { return Zor8u{255}; });
    zt::Image<Zor8u> dst(8, 4, 1, 0, 2);
    ASSERT_EQ(zoriReduceBits_8u_C1R(src.data(), 8, dst.data(), 8, {8, 4}, 0, zorDitherBayer, 8), zorStsOk);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 8; ++x) EXPECT_EQ(dst.at(x, y), (x % 4 == 0 && y == 0) ? 291 - 256 : 254);
    // Error diffusion saturates instead: white stays 255.
    for (ZorDitherType method : {zorDitherFS, zorDitherJJN}) {
        ASSERT_EQ(zoriReduceBits_8u_C1R(src.data(), 8, dst.data(), 8, {8, 4}, 0, method, 8), zorStsOk);
        for (int y = 0; y < 4; ++y)
            for (int x = 0; x < 8; ++x) EXPECT_EQ(dst.at(x, y), 255);
    }
}

// A constant image at 2 levels: the share of top pixels grows by 1/16 per
// matrix entry passed, and the pattern phase follows the region.
TEST(ReduceBitsDither, BayerPatternFollowsTheRegion) {
    zt::Image<Zor8u> src(9, 9, 1, 0, 1);
    src.fillSamples([] { return Zor8u{128}; });
    zt::Image<Zor8u> a(8, 8, 1, 0, 2), b(8, 8, 1, 0, 2);
    ASSERT_EQ(zoriReduceBits_8u_C1R(src.data(), 9, a.data(), 8, {8, 8}, 0, zorDitherBayer, 2), zorStsOk);
    ASSERT_EQ(zoriReduceBits_8u_C1R(src.data() + 10, 9, b.data(), 8, {8, 8}, 0, zorDitherBayer, 2), zorStsOk);
    EXPECT_TRUE(a == b);
    int tops = 0;
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x) tops += a.at(x, y) == 255;
    EXPECT_EQ(tops, 4 * 8);  // 128 exceeds 8 of the 16 thresholds (0..7)/15 * 255
}

// Error rows carry from one channel into the next within a thread: a C3 image
// on one thread differs from three threads in channels 1 and 2 only.
TEST(ReduceBitsDither, ErrorCarryOverMakesChannelsDependOnTheTeam) {
    for (ZorDitherType method : {zorDitherFS, zorDitherJJN, zorDitherStucki}) {
        zt::Image<Zor8u> src(13, 7, 3, 2, 5);
        zt::Image<Zor8u> one(13, 7, 3, 2, 6), three = one, nested = one;
        {
            zt::TeamSize t(1);
            ASSERT_EQ(zoriReduceBits_8u_C3R(src.data(), src.step(), one.data(), one.step(), {13, 7}, 0, method, 4),
                      zorStsOk);
        }
        {
            zt::TeamSize t(3);
            ASSERT_EQ(zoriReduceBits_8u_C3R(src.data(), src.step(), three.data(), three.step(), {13, 7}, 0, method,
                                            4),
                      zorStsOk);
            // Inside an active region only one thread is granted.
            zt::inOuterParallelRegion([&] {
                zoriReduceBits_8u_C3R(src.data(), src.step(), nested.data(), nested.step(), {13, 7}, 0, method, 4);
            });
        }
        EXPECT_TRUE(nested == one);
        bool differs[3] = {};
        for (int y = 0; y < 7; ++y)
            for (int x = 0; x < 13; ++x)
                for (int c = 0; c < 3; ++c) differs[c] |= one.at(x, y, c) != three.at(x, y, c);
        EXPECT_FALSE(differs[0]);
        EXPECT_TRUE(differs[1]);
        EXPECT_TRUE(differs[2]);
    }
}

// Bayer and single-channel error diffusion do not depend on the team.
TEST(ReduceBitsDither, TeamIndependentForms) {
    zt::Image<Zor16s> src(21, 11, 4, 6, 9);
    for (ZorDitherType method : {zorDitherBayer, zorDitherFS, zorDitherStucki})
        for (int noise : {0, 30}) {
            zt::expectTeamIndependent<zt::Image<Zor8u>>(
                [] { return zt::Image<Zor8u>(21, 11, 4, 3, 1); },
                [&](zt::Image<Zor8u>& d) {
                    auto fn = method == zorDitherBayer ? zoriReduceBits_16s8u_AC4R : zoriReduceBits_16s8u_C1R;
                    EXPECT_EQ(fn(src.data(), src.step(), d.data(), d.step(), {21, 11}, noise, method, 7), zorStsOk);
                });
        }
}

// ---------------------------------------------------------------------------
// Allocation failures: fail the n-th allocation of a call for every n until
// the call no longer allocates that many times.

int gAllocCount = 0;
int gFailAt = 0;

bool failNth(std::size_t) { return ++gAllocCount != gFailAt; }

TEST(ReduceBitsMemory, EveryFailedAllocationReturnsNoMemory) {
    zt::Image<Zor32f> src(11, 5, 4, 4, 1);
    src.fillSamples([] { return 0.3f; });
    for (int layout = 0; layout < 3; ++layout)
        for (ZorDitherType method : {zorDitherFS, zorDitherJJN, zorDitherStucki, zorDitherBayer})
            for (int noise : {0, 40})
                for (int team : {1, 3}) {
                    auto fn = layout == 0 ? zoriReduceBits_32f16s_C1R
                                          : layout == 1 ? zoriReduceBits_32f16s_C3R : zoriReduceBits_32f16s_C4R;
                    zt::TeamSize t(team);
                    int allocations = 0;
                    for (int n = 1;; ++n) {
                        zt::Image<Zor16s> dst(11, 5, 4, 4, 2);
                        const zt::Image<Zor16s> before = dst;
                        gAllocCount = 0;
                        gFailAt = n;
                        zor::setAllocHook(failNth);
                        const ZorStatus st =
                            fn(src.data(), src.step(), dst.data(), dst.step(), {11, 5}, noise, method, 9);
                        zor::setAllocHook(nullptr);
                        if (st == zorStsOk) {
                            allocations = n - 1;
                            break;
                        }
                        ASSERT_EQ(st, zorStsNoMemory);
                        EXPECT_TRUE(dst == before);
                    }
                    // Noise tables and two generator states; error rows for
                    // the error-diffusion methods.
                    const int want = (noise > 0 ? 4 : 0) + (method == zorDitherBayer ? 0 : 1);
                    EXPECT_EQ(allocations, want) << layout << " " << method << " " << noise;
                }
}

}  // namespace
