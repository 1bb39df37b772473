// BGR <-> Lab: the four members against a model of the documented float
// arithmetic, with the double-precision lightness of the 16u codes and the
// missing rounding half of the 16u inverse pinned.
#include "models/cie_testkit.h"

#include <algorithm>

namespace {

using ck::RowModel;

float labF(float t) {
    return t > 0.008856f ? static_cast<float>(std::pow(static_cast<double>(t), static_cast<double>(1.0f / 3.0f)))
                         : 7.787f * t + 0.13793103f;
}

struct Lab {
    float y, fy, a, b;
    double rootY;
};

// Steps shared by both forward members: ratios summed from blue to red, the
// cube root through double pow, a and b from the function values.
Lab labOf(const Zor8u* s) {
    const float b = s[0], g = s[1], r = s[2];
    const float x = (0.180423f * b + 0.35758f * g + 0.412453f * r) / 242.366f;
    const float y = (0.072169f * b + 0.71516f * g + 0.212671f * r) / 255.0f;
    const float z = (0.950227f * b + 0.119193f * g + 0.019334f * r) / 277.632f;
    Lab o{};
    o.y = y;
    o.fy = labF(y);
    o.rootY = std::pow(static_cast<double>(y), static_cast<double>(1.0f / 3.0f));
    o.a = 500.0f * (labF(x) - o.fy);
    o.b = 200.0f * (o.fy - labF(z));
    return o;
}

const RowModel<Zor8u, Zor8u> kFwd8 = ck::perPixel<Zor8u, Zor8u>([](const Zor8u* s, Zor8u* d) {
    const Lab c = labOf(s);
    const float l = c.y > 0.008856f ? 116.0f * c.fy - 16.0f : 903.3f * c.y;
    d[0] = static_cast<Zor8u>(static_cast<int>(l * 255.0f / 100.0f + 0.5f));
    d[1] = static_cast<Zor8u>(static_cast<int>(c.a + 128.5f));
    d[2] = static_cast<Zor8u>(static_cast<int>(c.b + 128.5f));
});

// How the 16u lightness code is computed: as required (116 * double cube
// root - 16 in double), or two float forms that must not match.
enum class Light { Double, FloatWidened, Float };

RowModel<Zor8u, Zor16u> fwd16(Light mode) {
    return ck::perPixel<Zor8u, Zor16u>([mode](const Zor8u* s, Zor16u* d) {
        const Lab c = labOf(s);
        int lc;
        if (c.y > 0.008856f && mode != Light::Double) {
            const float l = 116.0f * c.fy - 16.0f;
            lc = mode == Light::Float ? static_cast<int>(l * 65535.0f / 100.0f)
                                      : static_cast<int>(static_cast<double>(l) * 65535.0 / 100.0);
        } else {
            const double l = c.y > 0.008856f ? 116.0 * c.rootY - 16.0 : static_cast<double>(903.3f * c.y);
            lc = static_cast<int>(l * 65535.0 / 100.0);
        }
        d[0] = static_cast<Zor16u>(lc);
        d[1] = static_cast<Zor16u>(static_cast<int>((c.a + 128.0f) * 255.0f));
        d[2] = static_cast<Zor16u>(static_cast<int>((c.b + 128.0f) * 255.0f));
    });
}

using ck::kI;

// Plain cube (no linear segment), inverse matrix in float; `half` is added in
// double before truncation, then 0..255; stored B, G, R.
void bgrOf(float fy, float fx, float fz, double half, Zor8u* d) {
    const float x = 242.366f * (fx * fx * fx), y = 255.0f * (fy * fy * fy), z = 277.632f * (fz * fz * fz);
    for (int k = 0; k < 3; ++k) {
        float v = kI[k][0] * x;
        v = v + kI[k][1] * y;
        v = v + kI[k][2] * z;
        const int t = half != 0 ? static_cast<int>(static_cast<double>(v) + half) : static_cast<int>(v);
        d[2 - k] = static_cast<Zor8u>(std::clamp(t, 0, 255));
    }
}

const RowModel<Zor8u, Zor8u> kInv8 = ck::perPixel<Zor8u, Zor8u>([](const Zor8u* s, Zor8u* d) {
    const float fy = (static_cast<float>(s[0]) * 100.0f / 255.0f + 16.0f) / 116.0f;
    const float fx = static_cast<float>(s[1] - 128) / 500.0f + fy;
    const float fz = fy - static_cast<float>(s[2] - 128) / 200.0f;
    bgrOf(fy, fx, fz, 0.5, d);
});

RowModel<Zor16u, Zor8u> inv16(double half) {
    return ck::perPixel<Zor16u, Zor8u>([half](const Zor16u* s, Zor8u* d) {
        const float fy = (static_cast<float>(s[0]) * 100.0f / 65535.0f + 16.0f) / 116.0f;
        const float fx = (static_cast<float>(s[1]) / 255.0f - 128.0f) / 500.0f + fy;
        const float fz = fy - (static_cast<float>(s[2]) / 255.0f - 128.0f) / 200.0f;
        bgrOf(fy, fx, fz, half, d);
    });
}

zt::Image<Zor8u> image8(std::uint32_t seed, int w = 29, int h = 19) {
    ck::Rng rng(seed);
    const std::vector<Zor8u> edges = {0, 1, 2, 3, 127, 128, 254, 255};
    return ck::edgeImage<Zor8u>(w, h, 3, edges, [&] { return static_cast<Zor8u>(rng.integer(0, 255)); });
}

zt::Image<Zor16u> image16(std::uint32_t seed) {
    ck::Rng rng(seed);
    const std::vector<Zor16u> edges = {0, 1, 255, 32640, 32767, 65534, 65535};
    return ck::edgeImage<Zor16u>(23, 17, 3, edges, [&] { return static_cast<Zor16u>(rng.integer(0, 65535)); });
}

template <class S, class D>
void member(ck::Fn<S, D> fn, zt::Image<S> src, const RowModel<S, D>& model) {
    ck::expectModel(fn, 3, src, model);
    ck::expectTeamIndependent(fn, 3, src);
}

TEST(Lab, ChecksStatusesAndSteps) {
    ck::expectChecks<Zor8u, Zor8u>(zoriBGRToLab_8u_C3R, 3, 3, kFwd8);
    ck::expectChecks<Zor8u, Zor16u>(zoriBGRToLab_8u16u_C3R, 3, 3, fwd16(Light::Double));
    ck::expectChecks<Zor8u, Zor8u>(zoriLabToBGR_8u_C3R, 3, 3, kInv8);
    ck::expectChecks<Zor16u, Zor8u>(zoriLabToBGR_16u8u_C3R, 3, 3, inv16(0.0));
    // The 16-bit side takes its byte step as a count of words.
    zt::Image<Zor8u> src = image8(1);
    const zt::Image<Zor16u> fresh(29, 19, 3, ck::kPad, 2);
    zt::Image<Zor16u> a = fresh, b = fresh;
    ASSERT_EQ(zoriBGRToLab_8u16u_C3R(src.data(), src.step(), a.data(), a.step(), {29, 19}), zorStsOk);
    ASSERT_EQ(zoriBGRToLab_8u16u_C3R(src.data(), src.step(), b.data(), b.step() + 1, {29, 19}), zorStsOk);
    ck::expectSameImage(b, a, "odd 16-bit destination step");
    zt::Image<Zor16u> lab = image16(3);
    const zt::Image<Zor8u> fresh8(23, 17, 3, ck::kPad, 4);
    zt::Image<Zor8u> c = fresh8, d = fresh8;
    ASSERT_EQ(zoriLabToBGR_16u8u_C3R(lab.data(), lab.step(), c.data(), c.step(), {23, 17}), zorStsOk);
    ASSERT_EQ(zoriLabToBGR_16u8u_C3R(lab.data(), lab.step() + 1, d.data(), d.step(), {23, 17}), zorStsOk);
    ck::expectSameImage(d, c, "odd 16-bit source step");
}

TEST(Lab, ForwardMatchesModel) {
    member<Zor8u, Zor8u>(zoriBGRToLab_8u_C3R, image8(5), kFwd8);
    member<Zor8u, Zor16u>(zoriBGRToLab_8u16u_C3R, image8(6), fwd16(Light::Double));
}

// The 16u lightness comes from the double cube root in double; these pixels
// give another code when it is computed in float.
TEST(Lab, SixteenBitLightnessIsComputedInDouble) {
    zt::Image<Zor8u> src = image8(7, 16, 4);
    const Zor8u tell[8][3] = {{198, 8, 0},  {186, 9, 0},   {122, 10, 0}, {199, 10, 0},
                              {54, 14, 0},  {103, 20, 0},  {24, 24, 0},  {217, 30, 0}};
    for (int i = 0; i < 8; ++i)
        for (int c = 0; c < 3; ++c) src.at(i, 3, c) = tell[i][c];
    EXPECT_GE(ck::disagreements(src, fwd16(Light::Double), fwd16(Light::FloatWidened)), 6);
    EXPECT_GE(ck::disagreements(src, fwd16(Light::Double), fwd16(Light::Float)), 6);
    ck::expectModel<Zor8u, Zor16u>(zoriBGRToLab_8u16u_C3R, 3, src, fwd16(Light::Double));
}

TEST(Lab, ForwardBlackAndWhite) {
    const Zor8u px[6] = {0, 0, 0, 255, 255, 255};
    Zor8u o8[6];
    Zor16u o16[6];
    ASSERT_EQ(zoriBGRToLab_8u_C3R(px, 6, o8, 6, {2, 1}), zorStsOk);
    ASSERT_EQ(zoriBGRToLab_8u16u_C3R(px, 6, o16, 12, {2, 1}), zorStsOk);
    EXPECT_EQ(o8[0], 0);
    EXPECT_EQ(o8[1], 128);
    EXPECT_EQ(o8[2], 128);
    EXPECT_EQ(o16[0], 0);
    EXPECT_EQ(o16[1], 32640);
    EXPECT_EQ(o16[2], 32640);
    EXPECT_EQ(o8[3], 255);
    EXPECT_NEAR(o8[4], 128, 1);
    EXPECT_NEAR(o8[5], 128, 1);
}

TEST(Lab, InverseMatchesModel) {
    member<Zor8u, Zor8u>(zoriLabToBGR_8u_C3R, image8(8), kInv8);
    member<Zor16u, Zor8u>(zoriLabToBGR_16u8u_C3R, image16(9), inv16(0.0));
}

// The 16u-code inverse truncates without the half that the 8u inverse adds.
TEST(Lab, SixteenBitInverseHasNoRoundingHalf) {
    zt::Image<Zor16u> src = image16(10);
    EXPECT_GT(ck::disagreements(src, inv16(0.0), inv16(0.5)), 10);
    ck::expectModel<Zor16u, Zor8u>(zoriLabToBGR_16u8u_C3R, 3, src, inv16(0.0));
    // Mid grey: L 53.39 -> code 34989 with neutral a, b.
    const Zor16u grey[3] = {34989, 32640, 32640};
    const Zor8u greyCodes[3] = {136, 128, 128};
    Zor8u fromWide[3], fromNarrow[3];
    ASSERT_EQ(zoriLabToBGR_16u8u_C3R(grey, 6, fromWide, 3, {1, 1}), zorStsOk);
    ASSERT_EQ(zoriLabToBGR_8u_C3R(greyCodes, 3, fromNarrow, 3, {1, 1}), zorStsOk);
    Zor8u want[3];
    inv16(0.0)(grey, want, 1, 3);
    EXPECT_EQ(std::memcmp(fromWide, want, 3), 0);
}

TEST(Lab, InverseSaturatesEachChannel) {
    // Strong a, b codes outside the gamut: each channel clamps on its own.
    const Zor8u px[9] = {128, 255, 0, 128, 0, 255, 255, 255, 255};
    Zor8u o[9];
    ASSERT_EQ(zoriLabToBGR_8u_C3R(px, 9, o, 9, {3, 1}), zorStsOk);
    EXPECT_NE(std::find(o, o + 9, 0), o + 9);
    EXPECT_NE(std::find(o, o + 9, 255), o + 9);
    Zor8u want[9];
    kInv8(px, want, 3, 3);
    EXPECT_EQ(std::memcmp(o, want, 9), 0);
}

}  // namespace
