// Rows more than 2 GiB apart: every row address is computed in pointer-sized
// arithmetic. The planes are mapped without reserving memory, so that only
// the pages of the three rows are ever touched.
#include "core/export.h"
#include "support/call_harness.h"

#include <gtest/gtest.h>

#include <sys/mman.h>

namespace {

using zor::describe::Kind;

TEST(Large, RowsMoreThanTwoGigabytesApart) {
    int tested = 0, n = 0;
    for (const auto& f : zor::describe::all()) {
        bool stepped = true;
        for (const auto& p : f.params) stepped &= p.kind != Kind::WholeC && p.kind != Kind::WholeP3 && !p.elements;
        if (!stepped || n++ % 9 != 0) continue;
        zt::Call exact(f, {16, 3});
        zt::Call huge = exact;
        huge.setSteps(zt::StepMode::Padded, 1100000000);
        ASSERT_EQ(huge.run(), exact.run()) << f.name;
        EXPECT_TRUE(huge.sameRows(exact)) << huge.describeArgs();
        ++tested;
    }
    EXPECT_GE(tested, 30);
}

// The implied step of a whole packed image, 3 x width, exceeds INT_MAX from a
// width of 715,827,883.
TEST(Large, ImpliedStepsOfWholeImages) {
    const std::size_t size = std::size_t{3} << 30;
    void* m = mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    ASSERT_NE(m, MAP_FAILED);
    const auto* base = static_cast<const Zor8u*>(m);
    const ZoriSize img{715827883, 2};
    const auto c = zor::C<const Zor8u, 3>::whole(base, img).view();
    EXPECT_EQ(c.row(1).p - base, 3 * std::ptrdiff_t{715827883});
    const Zor8u* planes[3] = {base, base, base};
    const auto p = zor::P3<const Zor8u, zor::Steps::Three, 0, 2>::whole(planes, img.width, zor::halfUp(img)).view();
    EXPECT_EQ(p.row(1).p[0] - base, 715827883);
    EXPECT_EQ(p.row(1).p[1] - base, 357913942);
    munmap(m, size);
}

}  // namespace
