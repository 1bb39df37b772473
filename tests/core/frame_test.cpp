// The middle floor: row addressing and step policies, the check lists, the
// row driver (every row once, in place, whatever the team; pairs, fused
// rows, rounding to whole groups) and the choice of CPU target.
#include "core/cpu.h"
#include "core/export.h"
#include "support/testutil.h"

#include <omp.h>

#include <atomic>
#include <vector>

namespace {

TEST(Arithmetic, ShiftRoundsDownAndStepsRoundToWholeSamples) {
    EXPECT_EQ(zor::asr(-1, 16), -1);
    EXPECT_EQ(zor::asr(-65537, 16), -2);
    EXPECT_EQ(zor::asr(INT32_MIN, 16), -32768);
    EXPECT_EQ(zor::asr(INT32_MAX, 31), 0);
    using zor::StepIn;
    EXPECT_EQ((zor::effectiveStep<Zor16u, StepIn::Elements>(7)), 6);
    EXPECT_EQ((zor::effectiveStep<Zor16u, StepIn::Elements>(-3)), -4);  // floor, as an arithmetic shift
    EXPECT_EQ((zor::effectiveStep<Zor32f, StepIn::Elements>(-8)), -8);
    EXPECT_EQ((zor::effectiveStep<Zor16u, StepIn::Bytes>(7)), 7);
    EXPECT_EQ(zor::Offset16<Zor16s>::in(-32768), 0);
    EXPECT_EQ(zor::Offset16<Zor16s>::out(65535), 32767);
    EXPECT_EQ(zor::Offset16<Zor16s>::out(65536), -32768);  // low 16 bits
}

TEST(Images, RowsOfPlanesWithSubsampledChromaAndNegativeSteps) {
    std::vector<Zor8u> a(1000), b(1000), c(1000);
    Zor8u* planes[3] = {a.data() + 900, b.data() + 500, c.data() + 500};
    const int steps[3] = {-100, -50, 40};
    const auto v = zor::P3<Zor8u, zor::Steps::Three, 1, 2>{planes, steps}.view();
    EXPECT_EQ(v.row(3).p[0], a.data() + 600);
    EXPECT_EQ(v.row(3).p[1], b.data() + 450);  // chroma row 1
    EXPECT_EQ(v.row(3).p[2], c.data() + 540);
    const auto w = zor::P3<Zor8u, zor::Steps::Three, 0, 2>::whole(planes, 7, 4).view();
    EXPECT_TRUE(w.contiguous(7) && !w.contiguous(8));
    EXPECT_TRUE((zor::C<Zor8u, 3>{a.data(), 21}.view().contiguous(7)));
}

TEST(Checks, FirstFailingStepDecidesAndPlanesAreReadOnlyWhenTheArrayIsThere) {
    const Zor8u* planes[3] = {nullptr, nullptr, nullptr};
    const zor::P3<const Zor8u, zor::Steps::One> nullArray{nullptr}, nullPlanes{planes};
    const zor::C<Zor8u, 3> img{reinterpret_cast<Zor8u*>(&planes), 0};
    using Std = zor::StandardChecks;
    EXPECT_EQ(Std::run({4, 4}, nullArray, img), zorStsNullPtr);
    EXPECT_EQ(Std::run({0, 4}, nullPlanes, img), zorStsBadSize);
    EXPECT_EQ(Std::run({4, 4}, nullPlanes, img), zorStsNullPtr);
    using StepsFirst = zor::Checks<zor::check::Steps, zor::check::Size<2, 2>>;
    EXPECT_EQ(StepsFirst::run({1, 1}, img), zorStsStepErr);
    EXPECT_EQ((zor::WholeGroups<2, 2, true>::status({5, 4})), zorStsOddSizeWarning);
    EXPECT_EQ((zor::WholeGroups<4, 1, false>::done({7, 3}).width), 4);
}

// A kernel that records which rows it saw (source row offset, width, y).
std::vector<Zor8u> g_buf(64);
std::vector<std::vector<long>> g_calls;
void record(zor::RowC<const Zor8u, 1> s, zor::RowC<Zor8u, 1>, int width, int y) {
    g_calls.push_back({static_cast<long>(s.p - g_buf.data()), width, y});
}
void recordPair(zor::RowC<const Zor8u, 1>, zor::RowC<const Zor8u, 1> s1, zor::RowC<Zor8u, 1>, zor::RowC<Zor8u, 1>,
                int width) {
    g_calls.push_back({static_cast<long>(s1.p - g_buf.data()), width});
}

TEST(RowDriver, PairsFusedRowsAndRowIndex) {
    const auto run = [&](auto rows, int step, ZoriSize roi) {
        g_calls.clear();
        const auto images = std::make_tuple(zor::C<const Zor8u, 1>{g_buf.data(), step}, zor::C<Zor8u, 1>{g_buf.data(), step});
        return decltype(rows)::run(roi, images, std::make_tuple());
    };
    using Fused = zor::Rows<zor::Serial, zor::ScalarKernel<&record>, zor::Fuse<2>, zor::RowIndex>;
    run(Fused{}, 4, {4, 3});  // contiguous: one long row
    EXPECT_EQ(g_calls, (std::vector<std::vector<long>>{{0, 12, 0}}));
    run(Fused{}, 3, {3, 2});  // odd width: row by row
    EXPECT_EQ(g_calls, (std::vector<std::vector<long>>{{0, 3, 0}, {3, 3, 1}}));
    using Paired = zor::Rows<zor::Serial, zor::ScalarKernel<&recordPair>, zor::Pairs, zor::WholeGroups<2, 2, true>>;
    EXPECT_EQ(run(Paired{}, 8, {5, 5}), zorStsOddSizeWarning);
    EXPECT_EQ(g_calls, (std::vector<std::vector<long>>{{8, 4}, {24, 4}}));  // rows 1 and 3 as the second of a pair
}

struct Visit {
    std::vector<int> count, thread;
    explicit Visit(int h) : count(h, 0), thread(h, -1) {}
};
Visit runParallel(int height) {
    Visit v(height);
    zor::forRows<zor::Parallel>(height, [&](int y) {
        ++v.count[y];
        v.thread[y] = omp_get_thread_num();
    });
    return v;
}

TEST(RowDriver, ParallelRowsOnceInContiguousBlocksAndSerialWhenNested) {
    for (int team : {1, 2, 3, 4, 7}) {
        zt::TeamSize t(team);
        for (int h : {1, 2, 5, 16, 101}) {
            Visit v = runParallel(h);
            std::vector<int> sizes(team, 0);
            for (int y = 0; y < h; ++y) {
                ASSERT_EQ(v.count[y], 1) << "team " << team << " h " << h;
                if (y > 0) {
                    ASSERT_LE(v.thread[y - 1], v.thread[y]);  // static schedule: blocks in thread order
                }
                ++sizes[v.thread[y]];
            }
            if (h >= team) {
                EXPECT_LE(*std::max_element(sizes.begin(), sizes.end()) - *std::min_element(sizes.begin(), sizes.end()),
                          1);
            }
        }
    }
    zt::TeamSize t(0);  // a nonsensical team size still converts every row
    EXPECT_EQ(runParallel(9).count, std::vector<int>(9, 1));
    zt::TeamSize four(4);
    std::atomic<int> calls{0};
    zor::forRows<zor::Parallel>(-4, [&](int) { ++calls; });
    EXPECT_EQ(calls.load(), 0);
    Visit v(0);
    zt::inOuterParallelRegion([&] { v = runParallel(12); });
    EXPECT_EQ(v.thread, std::vector<int>(12, 0));  // one serialised team
}

TEST(CpuTargets, ScalarIsAlwaysThereAndForcingSwitches) {
    const auto all = zor::cpu::available();
    ASSERT_FALSE(all.empty());
    EXPECT_EQ(all.front(), zor::cpu::kScalar);
    const zor::cpu::Target was = zor::cpu::active();
    for (zor::cpu::Target t : all) {
        zor::cpu::force(t);
        EXPECT_EQ(zor::cpu::active(), t) << zor::cpu::name(t);
    }
    zor::cpu::force(was);
    // ZOR_CPU pins the best available target not above the one named.
    EXPECT_EQ(zor::cpu::choose(nullptr), all.back());
    EXPECT_EQ(zor::cpu::choose("no-such-target"), all.back());
    EXPECT_EQ(zor::cpu::choose("scalar"), zor::cpu::kScalar);
    for (zor::cpu::Target t : all) EXPECT_EQ(zor::cpu::choose(zor::cpu::name(t)), t);
}

}  // namespace
