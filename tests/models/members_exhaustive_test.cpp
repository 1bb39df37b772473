// Every member with three 8-bit source samples per pixel against its
// reference, on one image that holds all 2^24 pixels (a planar source reads
// the same bytes as three planes side by side).
#include "models/model_kit.h"

namespace {

std::vector<Zor8u> everyPixel() {
    std::vector<Zor8u> v(std::size_t(3) << 24);
    for (std::size_t i = 0; i < (std::size_t(1) << 24); ++i)
        v[3 * i] = Zor8u(i), v[3 * i + 1] = Zor8u(i >> 8), v[3 * i + 2] = Zor8u(i >> 16);
    return v;
}

TEST(MembersExhaustive, EveryEightBitPixel) {
    const std::vector<Zor8u> src = everyPixel();
    for (const mk::Member& m : mk::members()) {
        if (m.srcSize != 1 || m.ch != 3) continue;
        SCOPED_TRACE(m.name);
        std::vector<Zor8u> got(src.size() * m.dstSize), want(got.size());
        ASSERT_EQ(m.fn(src.data(), 3 * 4096, got.data(), 3 * 4096 * m.dstSize, {4096, 4096}), zorStsOk);
        for (std::size_t y = 0; y < 4096; ++y) m.ref(&src[3 * 4096 * y], &want[3 * 4096 * m.dstSize * y], 4096, 3);
        EXPECT_TRUE(got == want);
    }
}

}  // namespace
