// Table-driven robustness over every exported image function (core/describe.h,
// support/call_harness.h): failed allocations, steps that are not a multiple of
// the sample size, and sizes up to INT_MAX.
#include "core/memory.h"
#include "support/call_harness.h"
#include "support/testutil.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

using zor::describe::Function;
using zor::describe::Kind;

int gAllocs = 0, gFailAt = 0;
bool failNth(std::size_t) { return ++gAllocs != gFailAt; }

// Fails the 1st, 2nd, ... allocation of a call until it completes: each
// failure returns zorStsNoMemory and writes nothing (LeakSanitizer, in the
// sanitizer build, sees that nothing leaks).
int failEachAllocation(const zt::Call& call) {
    for (int n = 1;; ++n) {
        zt::Call c = call;
        gAllocs = 0, gFailAt = n;
        zor::setAllocHook(failNth);
        const ZorStatus st = c.run();
        zor::setAllocHook(nullptr);
        if (gAllocs < n) return n - 1;
        EXPECT_EQ(st, zorStsNoMemory) << c.describeArgs() << " allocation " << n;
        EXPECT_EQ(c.verify(call, st), "") << c.describeArgs();
    }
}

TEST(Robust, EveryFailedAllocationReturnsNoMemory) {
    int allocating = 0;
    for (const Function& f : zor::describe::all())
        for (int dither = 0; dither < 5; ++dither)
            for (int noise : {0, 30})
                for (int team : {1, 3}) {
                    zt::TeamSize t(team);
                    zt::Call call(f, {13, 5});
                    call.setValue("dtype", dither);
                    call.setValue("noise", noise);
                    if (failEachAllocation(call) > 0) ++allocating;
                }
    // ReduceBits (every member with every method and noise) and 16u gamma.
    EXPECT_GT(allocating, 300);

    gAllocs = 0, gFailAt = 1;
    zor::setAllocHook(failNth);
    EXPECT_EQ(zorsMalloc_16s(7), nullptr);
    auto* s16 = reinterpret_cast<ZorRandUniState_16s*>(&gAllocs);
    auto* s32 = reinterpret_cast<ZorRandUniState_32f*>(&gFailAt);
    gAllocs = 0;
    EXPECT_EQ(zorsRandUniformInitAlloc_16s(&s16, 0, 9, 1), zorStsNoMemory);
    gAllocs = 0;
    EXPECT_EQ(zorsRandUniformInitAlloc_32f(&s32, 0, 1, 1), zorStsNoMemory);
    zor::setAllocHook(nullptr);
    EXPECT_EQ(static_cast<void*>(s16), static_cast<void*>(&gAllocs));
    EXPECT_EQ(static_cast<void*>(s32), static_cast<void*>(&gFailAt));
}

// A C caller may pass any int as the dither type: an unknown one converts
// nothing and returns zorStsOk (and clang's enum check sees no load of it).
TEST(Robust, AnyIntAsDitherType) {
    int tested = 0;
    for (const Function& f : zor::describe::all())
        for (int dtype : {-1, 5, INT_MIN, INT_MAX}) {
            zt::Call call(f, {5, 3});
            bool has = false;
            for (const auto& p : f.params) has |= p.name == "dtype";
            if (!has) break;
            call.setValue("dtype", dtype);
            const zt::Call before = call;
            EXPECT_EQ(call.run(), zorStsOk) << call.describeArgs();
            EXPECT_EQ(call.firstDifferentPlane(before), -1) << call.describeArgs();
            ++tested;
        }
    EXPECT_EQ(tested, 32 * 4);
}

// A 16- or 32-bit image whose byte step is odd puts every other row at a
// misaligned address; the result equals that of the same rows with exact
// steps (and, under the undefined-behaviour sanitizer, no typed access is
// misaligned).
TEST(Robust, OddByteStepsOfWideSamples) {
    int tested = 0;
    for (const Function& f : zor::describe::all()) {
        bool wideBytes = false;
        for (const auto& p : f.params)
            wideBytes |= p.bytes > 1 && !p.elements && p.kind != Kind::Value && p.kind != Kind::Pointer &&
                         p.kind != Kind::WholeC && p.kind != Kind::WholeP3;
        if (!wideBytes) continue;
        for (int pad : {1, 3}) {
            // (The dither methods of ReduceBits round steps to whole samples;
            // plain quantisation takes them in bytes.)
            zt::Call exact(f, {37, 4});
            exact.setValue("dtype", 0);
            zt::Call odd = exact;
            odd.setSteps(zt::StepMode::Padded, pad);
            const zt::Call before = odd;
            const ZorStatus a = exact.run(), b = odd.run();
            ASSERT_EQ(a, b) << f.name;
            EXPECT_TRUE(odd.sameRows(exact)) << odd.describeArgs();
            EXPECT_EQ(odd.verify(before, b), "") << odd.describeArgs();
        }
        ++tested;
    }
    EXPECT_GE(tested, 69);
}

// Sizes up to INT_MAX reach no signed overflow in the checks: a call whose
// checks fail for a reason other than its size still fails at any size (or
// fails the size check) and touches no memory.
TEST(Robust, ChecksAtExtremeSizes) {
    int tested = 0;
    for (const Function& f : zor::describe::all())
        for (int setup = 0; setup < 2; ++setup) {
            zt::Call call(f, {4, 4});
            if (setup == 0) {
                call.setSteps(zt::StepMode::Zero, 0);
                call.setValue("levels", 1);
                call.setValue("vMax", 0);
            } else if (!call.nullPlanes()) {
                continue;
            }
            const zt::Call before = call;
            const ZorStatus st = zt::Call(call).run();
            if (st >= 0 || st == zorStsBadSize) continue;
            ++tested;
            for (ZoriSize roi : {ZoriSize{INT_MAX, INT_MAX}, ZoriSize{INT_MAX, 1}, ZoriSize{1, INT_MAX}}) {
                zt::Call big = call;
                big.setRoi(roi);
                const ZorStatus s = big.run();
                EXPECT_TRUE(s == st || s == zorStsBadSize) << big.describeArgs() << " " << s;
                EXPECT_EQ(big.verify(before, s), "") << big.describeArgs();
            }
        }
    EXPECT_GT(tested, 250);
}

}  // namespace
