// The row frames: every row converted exactly once, in the right place,
// whatever the team size, inside an outer region too.
#include "core/frame.h"
#include "support/testutil.h"

#include <omp.h>

#include <atomic>
#include <vector>

namespace {

TEST(Checks, NullAndSize) {
    int a = 0;
    EXPECT_FALSE(zor::anyNull(&a, &a));
    EXPECT_TRUE(zor::anyNull(&a, static_cast<int*>(nullptr)));
    EXPECT_FALSE(zor::badSize({1, 1}));
    EXPECT_TRUE(zor::badSize({0, 5}));
    EXPECT_TRUE(zor::badSize({5, -1}));
    EXPECT_TRUE(zor::badSize({3, 4}, 4, 1));
    EXPECT_TRUE(zor::anyBadStep(3, 0));
    EXPECT_FALSE(zor::anyBadStep(1, 7));
}

TEST(Checks, ArithmeticShiftRoundsDown) {
    EXPECT_EQ(zor::asr(-1, 16), -1);
    EXPECT_EQ(zor::asr(-65536, 16), -1);
    EXPECT_EQ(zor::asr(-65537, 16), -2);
    EXPECT_EQ(zor::asr(65535, 16), 0);
    EXPECT_EQ(zor::asr(INT32_MIN, 16), -32768);
    EXPECT_EQ(zor::asr(INT32_MAX, 31), 0);
}

TEST(RowAddressing, NegativeStepsWalkUp) {
    std::vector<unsigned char> buf(100);
    unsigned char* last = buf.data() + 90;
    EXPECT_EQ(zor::rowAt(last, -10, 3), buf.data() + 60);
    const zor::Plane<const unsigned char> p{buf.data(), 25};
    EXPECT_EQ(p.row(3), buf.data() + 75);
}

// Marks each row with the thread that converted it and counts visits.
struct Visit {
    std::vector<int> count, thread;
    explicit Visit(int h) : count(h, 0), thread(h, -1) {}
};

Visit runParallel(int height) {
    Visit v(height);
    zor::parallelRows(height, [&](int y) {
        ++v.count[y];
        v.thread[y] = omp_get_thread_num();
    });
    return v;
}

TEST(ParallelRows, EveryRowOnceInContiguousBlocksInThreadOrder) {
    for (int team : {1, 2, 3, 4, 7}) {
        zt::TeamSize t(team);
        for (int h : {1, 2, 5, 16, 101}) {
            Visit v = runParallel(h);
            for (int y = 0; y < h; ++y) ASSERT_EQ(v.count[y], 1) << "team " << team << " h " << h;
            // Static schedule without chunk: thread numbers never decrease down the image.
            for (int y = 1; y < h; ++y) ASSERT_LE(v.thread[y - 1], v.thread[y]);
            // Block sizes differ by at most one (runtime-checked on the threads that got rows).
            std::vector<int> sizes(team, 0);
            for (int y = 0; y < h; ++y) ++sizes[v.thread[y]];
            int lo = h, hi = 0;
            for (int s : sizes) {
                if (h >= team) {
                    lo = std::min(lo, s);
                }
                hi = std::max(hi, s);
            }
            if (h >= team) {
                EXPECT_LE(hi - lo, 1);
            }
        }
    }
}

TEST(ParallelRows, HeightBelowOneDoesNothing) {
    zt::TeamSize t(3);
    std::atomic<int> calls{0};
    zor::parallelRows(0, [&](int) { ++calls; });
    zor::parallelRows(-4, [&](int) { ++calls; });
    EXPECT_EQ(calls.load(), 0);
}

TEST(ParallelRows, UsesTheConfiguredTeamAndSerialisesWhenNested) {
    {
        zt::TeamSize t(3);
        std::atomic<int> maxTeam{0};
        zor::parallelRows(30, [&](int) {
            int n = omp_get_num_threads();
            int cur = maxTeam.load();
            while (n > cur && !maxTeam.compare_exchange_weak(cur, n)) {
            }
        });
        EXPECT_EQ(maxTeam.load(), 3);
    }
    {
        zt::TeamSize t(0);  // a nonsensical team size still converts every row
        Visit v = runParallel(9);
        for (int c : v.count) EXPECT_EQ(c, 1);
    }
    zt::TeamSize t(4);
    Visit v(0);
    zt::inOuterParallelRegion([&] { v = runParallel(12); });
    for (int y = 0; y < 12; ++y) {
        EXPECT_EQ(v.count[y], 1);
        EXPECT_EQ(v.thread[y], 0);  // one serialised team
    }
}

TEST(SerialRows, AscendingOnCallingThread) {
    std::vector<int> order;
    zor::forRows<zor::Serial>(5, [&](int y) { order.push_back(y); });
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2, 3, 4}));
}

}  // namespace
