// Layout and subsampling conversions: every member against a per-sample
// model of its chroma rule on random pictures of even and odd sizes, with
// padded and negative steps, comparing whole buffers; statuses and the order
// of the checks.
#include "chroma/picture.h"

#include <gtest/gtest.h>

namespace {

using ct::c2;
using ct::p2;
using ct::p3;
using ct::Picture;

struct Member {
    const char* name;
    ct::Layout src, dst;
    int minW, minH;  // minH 0: no minimum height
    int rule;
    ct::Call call;
};

#define M(n, s, d, mw, mh, r) Member{#n, s, d, mw, mh, r, ct::bind(zori##n)}

const std::vector<Member>& members() {
    static const std::vector<Member> all = {
    M(YCbCr422_8u_P3C2R, p3(422), c2("YbYr"), 2, 1, 1),
    M(YCbCr422_8u_C2P3R, c2("YbYr"), p3(422), 2, 1, 1),
    M(YCrCb422ToYCbCr422_8u_C2P3R, c2("YrYb"), p3(422), 2, 0, 1),
    M(CbYCr422ToYCbCr422_8u_C2P3R, c2("bYrY"), p3(422), 2, 0, 1),
    M(YCbCr422ToCbYCr422_8u_C2R, c2("YbYr"), c2("bYrY"), 2, 1, 1),
    M(CbYCr422ToYCbCr422_8u_C2R, c2("bYrY"), c2("YbYr"), 2, 1, 1),
    M(YCbCr422ToYCrCb422_8u_C2R, c2("YbYr"), c2("YrYb"), 2, 0, 1),
    M(YCbCr422ToYCrCb422_8u_P3C2R, p3(422), c2("YrYb"), 2, 0, 1),
    M(YCbCr420_8u_P3P2R, p3(420), p2(420), 2, 2, 1),
    M(YCbCr420_8u_P2P3R, p2(420), p3(420), 2, 2, 1),
    M(YCrCb420ToYCbCr420_8u_P3P2R, p3(420, true), p2(420), 2, 2, 1),
    M(YCbCr420ToYCrCb420_8u_P2P3R, p2(420), p3(420, true), 2, 2, 1),
    M(YCbCr411_8u_P3P2R, p3(411), p2(411), 4, 0, 1),
    M(YCbCr411_8u_P2P3R, p2(411), p3(411), 4, 0, 1),
    M(YCbCr422ToYCbCr420_8u_P3R, p3(422), p3(420), 2, 2, 2),
    M(YCbCr422ToYCbCr420_8u_P3P2R, p3(422), p2(420), 2, 2, 2),
    M(YCbCr422ToYCbCr420_8u_C2P3R, c2("YbYr"), p3(420), 2, 2, 2),
    M(CbYCr422ToYCbCr420_8u_C2P3R, c2("bYrY"), p3(420), 2, 2, 2),
    M(YCrCb422ToYCbCr420_8u_C2P3R, c2("YrYb"), p3(420), 2, 2, 2),
    M(YCbCr422ToYCrCb420_8u_C2P3R, c2("YbYr"), p3(420, true), 2, 2, 2),
    M(CbYCr422ToYCrCb420_8u_C2P3R, c2("bYrY"), p3(420, true), 2, 2, 2),
    M(YCbCr422ToYCbCr420_8u_C2P2R, c2("YbYr"), p2(420), 2, 2, 2),
    M(CbYCr422ToYCbCr420_8u_C2P2R, c2("bYrY"), p2(420), 2, 2, 2),
    M(YCbCr420ToYCbCr422_8u_P3R, p3(420), p3(422), 2, 2, 3),
    M(YCrCb420ToYCbCr422_8u_P3R, p3(420, true), p3(422), 2, 2, 3),
    M(YCbCr420ToYCbCr422_8u_P2P3R, p2(420), p3(422), 2, 2, 3),
    M(YCbCr420ToYCbCr422_8u_P2C2R, p2(420), c2("YbYr"), 2, 2, 3),
    M(YCbCr420ToCbYCr422_8u_P2C2R, p2(420), c2("bYrY"), 2, 2, 3),
    M(YCrCb420ToYCbCr422_8u_P3C2R, p3(420, true), c2("YbYr"), 2, 2, 3),
    M(YCrCb420ToCbYCr422_8u_P3C2R, p3(420, true), c2("bYrY"), 2, 2, 3),
    M(YCbCr422ToYCbCr411_8u_P3R, p3(422), p3(411), 4, 0, 4),
    M(YCbCr422ToYCbCr411_8u_P3P2R, p3(422), p2(411), 4, 0, 4),
    M(YCbCr422ToYCbCr411_8u_C2P3R, c2("YbYr"), p3(411), 4, 0, 4),
    M(CbYCr422ToYCbCr411_8u_C2P3R, c2("bYrY"), p3(411), 4, 0, 4),
    M(YCrCb422ToYCbCr411_8u_C2P3R, c2("YrYb"), p3(411), 4, 0, 4),
    M(YCbCr422ToYCbCr411_8u_C2P2R, c2("YbYr"), p2(411), 4, 0, 4),
    M(YCbCr411ToYCbCr422_8u_P3R, p3(411), p3(422), 4, 0, 5),
    M(YCbCr411ToYCrCb422_8u_P3R, p3(411), p3(422, true), 4, 0, 5),
    M(YCbCr411ToYCbCr422_8u_P3C2R, p3(411), c2("YbYr"), 4, 0, 5),
    M(YCbCr411ToYCrCb422_8u_P3C2R, p3(411), c2("YrYb"), 4, 0, 5),
    M(YCbCr411ToYCbCr422_8u_P2P3R, p2(411), p3(422), 4, 0, 5),
    M(YCbCr411ToYCbCr422_8u_P2C2R, p2(411), c2("YbYr"), 4, 0, 5),
    M(YCbCr420ToYCbCr411_8u_P3P2R, p3(420), p2(411), 4, 2, 6),
    M(YCrCb420ToYCbCr411_8u_P3P2R, p3(420, true), p2(411), 4, 2, 6),
    M(YCbCr420ToYCbCr411_8u_P2P3R, p2(420), p3(411), 4, 2, 6),
    M(YCbCr411ToYCbCr420_8u_P3R, p3(411), p3(420), 4, 2, 6),
    M(YCbCr411ToYCbCr420_8u_P3P2R, p3(411), p2(420), 4, 2, 6),
    M(YCbCr411ToYCbCr420_8u_P2P3R, p2(411), p3(420), 4, 2, 6),
    M(YCbCr411ToYCrCb420_8u_P2P3R, p2(411), p3(420, true), 4, 2, 6),
    };
    return all;
}

#undef M

bool has(const Member& m, int sub) { return m.src.sub == sub || m.dst.sub == sub; }

// The size a member converts.
ZoriSize rounded(const Member& m, ZoriSize roi) {
    const int wq = has(m, 411) ? 4 : 2;
    return {roi.width / wq * wq, has(m, 420) ? roi.height / 2 * 2 : roi.height};
}

// Expected destination: the destination's bytes before the call with the
// converted region written in. Chroma is pulled, per destination sample, from
// the source sample the member's rule names.
void model(const Member& m, Picture& s, Picture& d, ZoriSize roi) {
    const ZoriSize r = rounded(m, roi);
    for (int y = 0; y < r.height; ++y)
        for (int x = 0; x < r.width; ++x) d.Y(x, y) = s.Y(x, y);
    const int rows = m.dst.sub == 420 ? r.height / 2 : r.height;
    const int cols = m.dst.sub == 411 ? r.width / 4 : r.width / 2;
    for (int c = 0; c < 2; ++c)
        for (int j = 0; j < rows; ++j)
            for (int k = 0; k < cols; ++k) {
                Zor8u v = 0;
                switch (m.rule) {
                    case 1: v = s.C(c, k, j); break;
                    case 2: v = s.C(c, k, 2 * j); break;
                    case 3: v = s.C(c, k, j / 2); break;
                    case 4: v = s.C(c, 2 * k, j); break;
                    case 5: v = s.C(c, k / 2, j); break;
                    case 6:
                        v = m.src.sub == 420 ? s.C(c, 2 * k + j % 2, j / 2) : s.C(c, k / 2, 2 * j + k % 2);
                        break;
                }
                d.C(c, k, j) = v;
            }
}

std::string label(const Member& m, ZoriSize roi, bool flipped) {
    return std::string(m.name) + " " + std::to_string(roi.width) + "x" + std::to_string(roi.height) +
           (flipped ? " bottom-up" : "");
}

void expectConverts(const Member& m, ZoriSize roi, bool flipped, std::uint32_t seed) {
    Picture src(m.src, roi.width, roi.height, seed);
    Picture dst(m.dst, roi.width, roi.height, seed + 100, 5);
    Picture want(m.dst, roi.width, roi.height, seed + 100, 5);
    const auto before = src.bytes();
    for (Picture* p : {&src, &dst, &want}) p->setFlipped(flipped);
    model(m, src, want, roi);
    ASSERT_EQ(m.call(src, dst, roi), zorStsOk) << label(m, roi, flipped);
    EXPECT_TRUE(dst.bytes() == want.bytes()) << label(m, roi, flipped);
    EXPECT_TRUE(src.bytes() == before) << label(m, roi, flipped);
}

TEST(ChromaLayout, EveryMemberMatchesItsRuleAtAndAroundTheMinimum) {
    std::uint32_t seed = 1;
    for (const Member& m : members()) {
        const int minH = m.minH > 0 ? m.minH : 1;
        for (int dw : {0, 1, 2, 3, 5, 8, 15})
            for (int dh : {0, 1, 2, 3, 6}) expectConverts(m, {m.minW + dw, minH + dh}, false, seed++);
    }
}

TEST(ChromaLayout, EveryMemberWalksNegativeSteps) {
    std::uint32_t seed = 5000;
    for (const Member& m : members())
        for (ZoriSize roi : {ZoriSize{13, 7}, ZoriSize{8, 4}}) expectConverts(m, roi, true, seed++);
}

// The three members that test the size twice (against 1, then against 2)
// and the rest alike: below the minimum nothing is written.
TEST(ChromaLayout, SizesBelowTheMinimumAreRejected) {
    for (const Member& m : members()) {
        std::vector<ZoriSize> bad = {{m.minW - 1, 4}, {0, 4}, {-3, 4}};
        if (m.minH > 0) {
            bad.push_back({m.minW, m.minH - 1});
            bad.push_back({m.minW, 0});
        }
        for (ZoriSize roi : bad) {
            Picture src(m.src, 16, 4, 1), dst(m.dst, 16, 4, 2);
            const auto before = dst.bytes();
            EXPECT_EQ(m.call(src, dst, roi), zorStsBadSize) << label(m, roi, false);
            EXPECT_TRUE(dst.bytes() == before) << label(m, roi, false);
        }
    }
}

TEST(ChromaLayout, MembersWithoutMinimumHeightConvertNoRowsForHeightZeroOrLess) {
    for (const Member& m : members()) {
        if (m.minH > 0) continue;
        for (int h : {0, -1, -4}) {
            Picture src(m.src, 8, 2, 1), dst(m.dst, 8, 2, 2);
            const auto before = dst.bytes();
            EXPECT_EQ(m.call(src, dst, {8, h}), zorStsOk) << m.name << " height " << h;
            EXPECT_TRUE(dst.bytes() == before) << m.name << " height " << h;
        }
    }
}

// Pointers are tested before the size, in argument order: a null pointer
// with a bad size is zorStsNullPtr.
TEST(ChromaLayout, NullPointersComeFirst) {
    for (const Member& m : members()) {
        const bool arrayUnchecked = std::string(m.name) == "YCrCb420ToYCbCr420_8u_P3P2R";
        for (int side = 0; side < 2; ++side) {
            Picture src(m.src, 8, 4, 1), dst(m.dst, 8, 4, 2);
            Picture& p = side == 0 ? src : dst;
            for (int i = 0; i < p.pointerCount(); ++i) {
                if (arrayUnchecked && side == 0 && i == 0) continue;
                p.setNullPointer(i);
                const auto before = dst.bytes();
                for (ZoriSize roi : {ZoriSize{8, 4}, ZoriSize{0, 0}})
                    EXPECT_EQ(m.call(src, dst, roi), zorStsNullPtr) << m.name << " side " << side << " arg " << i;
                p.setNullPointer(-1);
                EXPECT_TRUE(dst.bytes() == before) << m.name;
            }
        }
    }
}

// This member reads the plane pointers out of its source array before any
// test of the array itself, so a null array is not reported as a status.
TEST(ChromaLayoutDeathTest, YCrCb420ToYCbCr420P3P2ReadsTheSourceArrayUntested) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    Picture dst(p2(420), 8, 4, 2);
    const int steps[3] = {8, 4, 4};
    EXPECT_DEATH(zoriYCrCb420ToYCbCr420_8u_P3P2R(nullptr, steps, dst.base(0), dst.step(0), dst.base(1), dst.step(1),
                                                 ZoriSize{8, 4}),
                 "");
}

// Pinned examples of the rules, spelled out by hand.
TEST(ChromaLayout, DecimationKeepsTheEvenRowAndTheFirstSampleWithoutAveraging) {
    // Y0 Cb Y1 Cr pairs; row 1 carries other chroma that must be dropped.
    const Zor8u c2row0[8] = {10, 100, 11, 200, 12, 101, 13, 201};
    const Zor8u c2row1[8] = {20, 150, 21, 250, 22, 151, 23, 251};
    Zor8u src[16];
    std::copy(c2row0, c2row0 + 8, src);
    std::copy(c2row1, c2row1 + 8, src + 8);
    Zor8u y[8], cb[2], cr[2], y411[4], c411[2];
    Zor8u* planes[3] = {y, cb, cr};
    const int steps[3] = {4, 2, 2};
    ASSERT_EQ(zoriYCbCr422ToYCbCr420_8u_C2P3R(src, 8, planes, steps, {4, 2}), zorStsOk);
    EXPECT_EQ(std::vector<Zor8u>(y, y + 8), (std::vector<Zor8u>{10, 11, 12, 13, 20, 21, 22, 23}));
    EXPECT_EQ(std::vector<Zor8u>(cb, cb + 2), (std::vector<Zor8u>{100, 101}));
    EXPECT_EQ(std::vector<Zor8u>(cr, cr + 2), (std::vector<Zor8u>{200, 201}));
    ASSERT_EQ(zoriYCbCr422ToYCbCr411_8u_C2P2R(src, 8, y411, 4, c411, 2, {4, 1}), zorStsOk);
    EXPECT_EQ(std::vector<Zor8u>(c411, c411 + 2), (std::vector<Zor8u>{100, 200}));
}

TEST(ChromaLayout, FourTwoZeroToFourOneOneAndBackReturnsTheChroma) {
    for (ZoriSize roi : {ZoriSize{16, 8}, ZoriSize{23, 11}, ZoriSize{4, 2}}) {
        Picture a(p3(420), roi.width, roi.height, 11), mid(p2(411), roi.width, roi.height, 12);
        Picture back(p3(420), roi.width, roi.height, 13);
        ASSERT_EQ(zoriYCbCr420ToYCbCr411_8u_P3P2R(a.cplanes(), a.steps(), mid.base(0), mid.step(0), mid.base(1),
                                                  mid.step(1), roi),
                  zorStsOk);
        ASSERT_EQ(zoriYCbCr411ToYCbCr420_8u_P2P3R(mid.base(0), mid.step(0), mid.base(1), mid.step(1),
                                                  back.planes(), back.steps(), roi),
                  zorStsOk);
        const int w = roi.width / 4 * 4, h = roi.height / 2 * 2;
        for (int c = 0; c < 2; ++c)
            for (int j = 0; j < h / 2; ++j)
                for (int k = 0; k < w / 2; ++k) ASSERT_EQ(back.C(c, k, j), a.C(c, k, j)) << roi.width;
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) ASSERT_EQ(back.Y(x, y), a.Y(x, y));
    }
}

}  // namespace
