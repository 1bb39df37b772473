// Every member of the colour models against its reference: whole
// destinations (padding and AC4 alpha untouched), top-down and bottom-up,
// every team size, the argument checks in their order and the step rules.
#include "models/model_kit.h"

namespace {

using mk::Member;
using Img = zt::Image<Zor8u>;

ZorStatus run(const Member& m, Img& src, Img& dst, ZoriSize roi, bool flip = false) {
    return flip ? m.fn(src.flippedData(), src.flippedStep(), dst.flippedData(), dst.flippedStep(), roi)
                : m.fn(src.data(), src.step(), dst.data(), dst.step(), roi);
}

TEST(Members, MatchReferenceTopDownAndBottomUp) {
    for (const Member& m : mk::members()) {
        SCOPED_TRACE(m.name);
        for (ZoriSize roi : {ZoriSize{1, 1}, ZoriSize{37, 9}, ZoriSize{3, 26}}) {
            Img src = mk::source(m, roi.width, roi.height, roi.width);
            const Img dst0 = mk::image(roi.width, roi.height, m.ch, m.dstSize, 2);
            const Img want = mk::expected(m, src, dst0);
            for (bool flip : {false, true}) {
                if (flip && m.steps != Member::kNoStepCheck) continue;  // negative steps are rejected there
                Img dst = dst0;
                ASSERT_EQ(run(m, src, dst, roi, flip), zorStsOk);
                EXPECT_EQ(zt::firstDifference(dst.bytes(), want.bytes()), -1) << (flip ? "bottom-up" : "top-down");
            }
        }
    }
}

TEST(Members, SameResultForEveryTeamSize) {
    for (const Member& m : mk::members()) {
        SCOPED_TRACE(m.name);
        Img src = mk::source(m, 7, 23, 3);
        zt::expectTeamIndependent<Img>([&] { return mk::image(7, 23, m.ch, m.dstSize, 5); },
                                       [&](Img& d) { ASSERT_EQ(run(m, src, d, {7, 23}), zorStsOk); });
    }
}

// Pointers (with every plane pointer) first, nothing written on an error.
// Most members test the size next and never the steps: a zero source step
// converts the first row into every row. The BGR HLS members test the steps:
// the planar and mixed layouts before the size, the BGRA one after it.
TEST(Members, CheckOrder) {
    for (const Member& m : mk::members()) {
        SCOPED_TRACE(m.name);
        Img src = mk::source(m, 5, 4, 6);
        const Img dst0 = mk::image(5, 4, m.ch, m.dstSize, 8);
        Img dst = dst0;
        const int ss = src.step(), ds = dst.step();
        EXPECT_EQ(m.fn(nullptr, 0, dst.data(), 0, {0, 4}), zorStsNullPtr);
        EXPECT_EQ(m.fn(src.data(), 0, nullptr, -1, {5, -1}), zorStsNullPtr);
        for (int p = 0; p < 8; ++p) {
            mk::gNullPlane = p;
            if (m.planes >> p & 1) {
                EXPECT_EQ(m.fn(src.data(), 0, dst.data(), -1, {0, 4}), zorStsNullPtr) << "plane " << p;
            }
            mk::gNullPlane = -1;
        }
        for (ZoriSize bad : {ZoriSize{0, 4}, ZoriSize{5, 0}, ZoriSize{-1, 4}, ZoriSize{5, -3}})
            EXPECT_EQ(m.fn(src.data(), ss, dst.data(), ds, bad), zorStsBadSize);
        const bool stepsFirst = m.steps == Member::kStepsBeforeSize;
        EXPECT_EQ(m.fn(src.data(), 0, dst.data(), ds, {0, 4}), stepsFirst ? zorStsStepErr : zorStsBadSize);
        if (m.steps != Member::kNoStepCheck) {
            EXPECT_EQ(m.fn(src.data(), 0, dst.data(), ds, {5, 4}), zorStsStepErr);
            EXPECT_EQ(m.fn(src.data(), ss, dst.data(), -ds, {5, 4}), zorStsStepErr);
        }
        EXPECT_TRUE(dst == dst0);
        if (m.steps != Member::kNoStepCheck) continue;
        Img rows = src;
        for (int y = 1; y < 4; ++y) std::memcpy(rows.row(y), rows.row(0), std::size_t(ss));
        ASSERT_EQ(m.fn(src.data(), 0, dst.data(), ds, {5, 4}), zorStsOk);
        EXPECT_EQ(zt::firstDifference(dst.bytes(), mk::expected(m, rows, dst0).bytes()), -1);
    }
}

// A wide sample's byte step counts whole samples (rounded down)...
TEST(Members, WideStepsCountWholeSamples) {
    for (const Member& m : mk::members()) {
        if ((m.srcSize == 1 && m.dstSize == 1) || std::string(m.name).find("RGBToLUV_32f") != std::string::npos) continue;
        SCOPED_TRACE(m.name);
        Img src = mk::source(m, 6, 5, 9);
        Img a = mk::image(6, 5, m.ch, m.dstSize, 11), b = a;
        ASSERT_EQ(run(m, src, a, {6, 5}), zorStsOk);
        ASSERT_EQ(m.fn(src.data(), src.step() + m.srcSize - 1, b.data(), b.step() + m.dstSize - 1, {6, 5}), zorStsOk);
        EXPECT_TRUE(a == b);
    }
}

// ... except for the 32f LUV forward members, which take it in bytes as
// given: with a step of 4k + 2 bytes the second row lies off the float grid.
TEST(Members, FloatLuvForwardStepsInBytes) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "misaligned rows on purpose";
#endif
    for (int ch : {3, 4}) {
        const int step = 20 * ch + 2;
        std::vector<Zor8u> src(2 * step), dst(2 * step);
        std::vector<Zor32f> row(5 * ch), want(5 * ch);
        for (int i = 0; i < 5 * ch; ++i) row[i] = 0.1f * float(i % 7);
        std::memcpy(&src[0], row.data(), 20 * ch), std::memcpy(&src[step], row.data(), 20 * ch);
        const auto fn = ch == 3 ? zoriRGBToLUV_32f_C3R : zoriRGBToLUV_32f_AC4R;
        auto* d = reinterpret_cast<Zor32f*>(dst.data());
        ASSERT_EQ(fn(reinterpret_cast<const Zor32f*>(src.data()), step, d, step, {5, 2}), zorStsOk);
        ASSERT_EQ(fn(row.data(), 0, want.data(), 0, {5, 1}), zorStsOk);
        EXPECT_EQ(std::memcmp(&dst[step], want.data(), 20 * ch), 0);
    }
}

}  // namespace
