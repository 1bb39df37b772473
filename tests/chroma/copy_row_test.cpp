// The copy routine behind every plain row copy of the chroma family.
#include "chroma/layout.h"

#include <gtest/gtest.h>

#include <cstring>
#include <numeric>
#include <vector>

namespace {

std::vector<Zor8u> ramp(std::size_t n) {
    std::vector<Zor8u> v(n);
    std::iota(v.begin(), v.end(), Zor8u{1});
    return v;
}

TEST(CopyRow, SeparateBuffersAtEveryLengthAndAlignment) {
    const std::vector<Zor8u> src = ramp(4000);
    for (int n : {0, 1, 15, 16, 17, 30, 31, 32, 33, 100, 3199, 3200, 3201, 3900})
        for (int so : {0, 1, 7})
            for (int dof : {0, 3, 15}) {
                std::vector<Zor8u> dst(4000 + 32, 0xA5), want(dst);
                std::memcpy(want.data() + dof, src.data() + so, n);
                zor::copyRow(src.data() + so, dst.data() + dof, n);
                ASSERT_EQ(dst, want) << n << " " << so << " " << dof;
            }
}

TEST(CopyRow, OverlapIsCopiedInAscendingOrder) {
    for (int n : {5, 40, 3300})
        for (int shift : {-3, 0, 3, 16}) {
            std::vector<Zor8u> buf = ramp(4000), want = buf;
            const int s = 100, d = 100 + shift;
            for (int i = 0; i < n; ++i) want[d + i] = want[s + i];
            zor::copyRow(buf.data() + s, buf.data() + d, n);
            ASSERT_EQ(buf, want) << n << " " << shift;
        }
}

}  // namespace
