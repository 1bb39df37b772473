// RGB <-> LUV: every member against a model of the documented arithmetic,
// including the L table of the 8u forward direction, the two white-point
// pairs and the stalled row of the 32f inverse.
#include "models/cie_testkit.h"

#include <algorithm>

namespace {

using ck::clamp01;
using ck::cubeRoot;
using ck::image16;
using ck::kF;
using ck::kI;
using ck::member;
using ck::rowSum;
using ck::RowModel;



struct WhitePoint {
    float un, vn;
};
const WhitePoint kForwardWhite{0.197839f, 0.468342f};
const WhitePoint kIntInverseWhite{0.19783941f, 0.4683422f};

// The L code table of the 8u forward direction, from its rule.
std::vector<int> powLRule() {
    std::vector<int> t(256);
    for (int i = 0; i < 256; ++i) {
        const double y = i / 255.0;
        const double v = y > 0.008856 ? (116.0 * std::cbrt(y) - 16.0) * 255.0 / 100.0 : 903.3 * y * 255.0 / 100.0;
        t[i] = static_cast<int>(std::floor(v + 0.5));
    }
    return t;
}

struct Luv {
    float l, u, v;
};

Luv luvOf(float x, float y, float z, float yr) {
    const float l = yr > 0.008856f ? 116.0f * cubeRoot(yr) - 16.0f : 903.3f * yr;
    float up = 0, vp = 0;
    if (y != 0) {
        const float d = x + 15.0f * y + 3.0f * z;
        up = 4.0f * x / d;
        vp = 9.0f * y / d;
    }
    return {l, 13.0f * l * (up - kForwardWhite.un), 13.0f * l * (vp - kForwardWhite.vn)};
}

template <class T>
float in16(T s) {
    return std::is_signed<T>::value ? static_cast<float>(s + 32768) : static_cast<float>(s);
}
template <class T>
T out16(int code) {
    return static_cast<T>(std::is_signed<T>::value ? code - 32768 : code);
}

const RowModel<Zor8u, Zor8u> kFwd8 = ck::perPixel<Zor8u, Zor8u>([](const Zor8u* s, Zor8u* d) {
    static const std::vector<int> powL = powLRule();
    const float r = s[0], g = s[1], b = s[2];
    const float x = rowSum(kF[0], r, g, b) / 255.0f;
    const float y = rowSum(kF[1], r, g, b);
    const float z = rowSum(kF[2], r, g, b) / 255.0f;
    const int i = static_cast<int>(y + 0.499999f);
    const int lc = powL.at(static_cast<std::size_t>(i));
    float up = 0, vp = 0;
    if (i != 0) {
        const float dd = x + 15.0f * y / 255.0f + 3.0f * z;
        up = 4.0f * x / dd;
        vp = 9.0f * (y / 255.0f) / dd;
    }
    d[0] = static_cast<Zor8u>(lc);
    d[1] = static_cast<Zor8u>(static_cast<int>(3.6723163f * static_cast<float>(lc) * (up - 0.197839f) + 97.02543f));
    d[2] = static_cast<Zor8u>(static_cast<int>(4.961832f * static_cast<float>(lc) * (vp - 0.468342f) + 136.75955f));
});

template <class T>
RowModel<T, T> fwd16() {
    return ck::perPixel<T, T>([](const T* s, T* d) {
        const float r = in16(s[0]), g = in16(s[1]), b = in16(s[2]);
        const float x = rowSum(kF[0], r, g, b), y = rowSum(kF[1], r, g, b), z = rowSum(kF[2], r, g, b);
        const Luv c = luvOf(x, y, z, y / 65535.0f);
        d[0] = out16<T>(static_cast<int>(c.l * 65535.0f / 100.0f + 0.499999f));
        d[1] = out16<T>(static_cast<int>((c.u + 134.0f) * 65535.0f / 354.0f + 0.499999f));
        d[2] = out16<T>(static_cast<int>((c.v + 140.0f) * 65535.0f / 262.0f + 0.499999f));
    });
}

const RowModel<Zor32f, Zor32f> kFwd32 = ck::perPixel<Zor32f, Zor32f>([](const Zor32f* s, Zor32f* d) {
    const float x = rowSum(kF[0], s[0], s[1], s[2]), y = rowSum(kF[1], s[0], s[1], s[2]),
                z = rowSum(kF[2], s[0], s[1], s[2]);
    const Luv c = luvOf(x, y, z, y);
    d[0] = c.l;
    d[1] = c.u;
    d[2] = c.v;
});

struct Xyz {
    float x, y, z;
};

Xyz xyzOf(float l, float u, float v, float scale, WhitePoint w) {
    float y;
    if (l >= 7.9996247f) {
        const float t = (l + 16.0f) / 116.0f;
        y = t * t * t;
    } else {
        y = l / 903.3f;
    }
    y = y * scale;
    const float up = u / (13.0f * l) + w.un;
    const float vp = v / (13.0f * l) + w.vn;
    const float t = y / vp;
    const float x = 2.25f * t * up;
    return {x, y, 3.0f * t - 5.0f * y - x / 3.0f};
}

// The integer inverses: black below L 9e-5, else the rounded inverse matrix
// with the blue row's constant and Z term added in double.
// halfUp: the "fixed" variant that adds exactly one half; must not match.
template <class T>
RowModel<T, T> invInt(float scale, WhitePoint w, bool halfUp = false) {
    return ck::perPixel<T, T>([scale, w, halfUp](const T* s, T* d) {
        const float h = halfUp ? 0.5f : 0.499999f;
        const double hd = halfUp ? 0.5 : 0.4999989867210388;
        auto in = [](T c) { return sizeof(T) == 1 ? static_cast<float>(c) : in16(c); };
        auto out = [](int c) { return sizeof(T) == 1 ? static_cast<T>(c) : out16<T>(c); };
        const int hi = static_cast<int>(scale);
        const float l = in(s[0]) * 100.0f / scale;
        if (l < 9e-5f) {
            d[0] = d[1] = d[2] = out(0);
            return;
        }
        const float u = in(s[1]) * 354.0f / scale - 134.0f;
        const float v = in(s[2]) * 262.0f / scale - 140.0f;
        const Xyz p = xyzOf(l, u, v, scale, w);
        d[0] = out(ck::satTrunc(rowSum(kI[0], p.x, p.y, p.z) + h, hi));
        d[1] = out(ck::satTrunc(rowSum(kI[1], p.x, p.y, p.z) + h, hi));
        const float part = kI[2][0] * p.x + kI[2][1] * p.y;
        d[2] = out(ck::satTrunc(static_cast<double>(part) + hd + static_cast<double>(p.z) * 1.057311, hi));
    });
}

// The 32f inverse: a dark pixel zeroes the current destination pixel and
// both positions stay where they are for the rest of the row.
RowModel<Zor32f, Zor32f> inv32(WhitePoint w) {
    return [w](const Zor32f* s, Zor32f* d, int width, int ch) {
        for (int i = 0; i < width; ++i) {
            if (s[0] < 9e-5f) {
                d[0] = d[1] = d[2] = 0.0f;
                continue;
            }
            const Xyz p = xyzOf(s[0], s[1], s[2], 1.0f, w);
            for (int k = 0; k < 3; ++k) d[k] = clamp01(rowSum(kI[k], p.x, p.y, p.z));
            s += ch;
            d += ch;
        }
    };
}

zt::Image<Zor8u> image8(int ch, std::uint32_t seed, int w = 29, int h = 19) {
    ck::Rng rng(seed);
    const std::vector<Zor8u> edges = {0, 1, 2, 127, 128, 254, 255};
    return ck::edgeImage<Zor8u>(w, h, ch, edges, [&] { return static_cast<Zor8u>(rng.integer(0, 255)); });
}


zt::Image<Zor32f> rgb32(int ch, std::uint32_t seed) {
    ck::Rng rng(seed);
    const std::vector<Zor32f> edges = {-0.25f, 0.0f, 0.001f, 0.5f, 1.0f, 1.5f};
    return ck::edgeImage<Zor32f>(23, 13, ch, edges, [&] { return rng.real(-0.3f, 1.4f); });
}

// L, u, v in their ranges; about one pixel in 40 is dark.
zt::Image<Zor32f> luv32(int ch, std::uint32_t seed) {
    ck::Rng rng(seed);
    zt::Image<Zor32f> img(23, 13, ch, ck::kPad, seed);
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x) {
            img.at(x, y, 0) = rng.integer(0, 39) == 0 ? 0.0f : rng.real(0.0f, 100.0f);
            img.at(x, y, 1) = rng.real(-134.0f, 220.0f);
            img.at(x, y, 2) = rng.real(-140.0f, 122.0f);
        }
    return img;
}


TEST(Luv, ChecksStatusesAndStepsOfEveryMember) {
    ck::expectChecks<Zor8u, Zor8u>(zoriRGBToLUV_8u_C3R, 3, 3, kFwd8);
    ck::expectChecks<Zor8u, Zor8u>(zoriRGBToLUV_8u_AC4R, 4, 4, kFwd8);
    ck::expectChecks<Zor8u, Zor8u>(zoriLUVToRGB_8u_C3R, 3, 3, invInt<Zor8u>(255.0f, kIntInverseWhite));
    ck::expectChecks<Zor8u, Zor8u>(zoriLUVToRGB_8u_AC4R, 4, 4, invInt<Zor8u>(255.0f, kIntInverseWhite));
    ck::expectChecks<Zor16u, Zor16u>(zoriRGBToLUV_16u_C3R, 3, 3, fwd16<Zor16u>());
    ck::expectChecks<Zor16u, Zor16u>(zoriRGBToLUV_16u_AC4R, 4, 4, fwd16<Zor16u>());
    ck::expectChecks<Zor16u, Zor16u>(zoriLUVToRGB_16u_C3R, 3, 3, invInt<Zor16u>(65535.0f, kIntInverseWhite));
    ck::expectChecks<Zor16u, Zor16u>(zoriLUVToRGB_16u_AC4R, 4, 4, invInt<Zor16u>(65535.0f, kIntInverseWhite));
    ck::expectChecks<Zor16s, Zor16s>(zoriRGBToLUV_16s_C3R, 3, 3, fwd16<Zor16s>());
    ck::expectChecks<Zor16s, Zor16s>(zoriRGBToLUV_16s_AC4R, 4, 4, fwd16<Zor16s>());
    ck::expectChecks<Zor16s, Zor16s>(zoriLUVToRGB_16s_C3R, 3, 3, invInt<Zor16s>(65535.0f, kIntInverseWhite));
    ck::expectChecks<Zor16s, Zor16s>(zoriLUVToRGB_16s_AC4R, 4, 4, invInt<Zor16s>(65535.0f, kIntInverseWhite));
    ck::expectChecks<Zor32f, Zor32f>(zoriRGBToLUV_32f_C3R, 3, 3, kFwd32);
    ck::expectChecks<Zor32f, Zor32f>(zoriRGBToLUV_32f_AC4R, 4, 4, kFwd32);
    for (int ch : {3, 4}) {
        zt::Image<Zor16u> u = image16<Zor16u>(ch, 2);
        ck::expectStepLowBitsIgnored<Zor16u, Zor16u>(ch == 3 ? zoriRGBToLUV_16u_C3R : zoriRGBToLUV_16u_AC4R, ch, u);
        zt::Image<Zor16s> s = image16<Zor16s>(ch, 3);
        ck::expectStepLowBitsIgnored<Zor16s, Zor16s>(ch == 3 ? zoriLUVToRGB_16s_C3R : zoriLUVToRGB_16s_AC4R, ch, s);
        zt::Image<Zor32f> f = luv32(ch, 4);
        ck::expectStepLowBitsIgnored<Zor32f, Zor32f>(ch == 3 ? zoriLUVToRGB_32f_C3R : zoriLUVToRGB_32f_AC4R, ch, f);
    }
    // The 32f inverse with NaN-free sources only (random bytes may be NaN).
    zt::Image<Zor32f> src = luv32(4, 9);
    const zt::Image<Zor32f> keep(23, 13, 4, ck::kPad, 1);
    zt::Image<Zor32f> dst = keep;
    EXPECT_EQ(zoriLUVToRGB_32f_AC4R(nullptr, src.step(), dst.data(), dst.step(), {0, 1}), zorStsNullPtr);
    EXPECT_EQ(zoriLUVToRGB_32f_C3R(src.data(), src.step(), dst.data(), dst.step(), {3, 0}), zorStsBadSize);
    EXPECT_TRUE(dst == keep);
}

TEST(Luv, LightnessTableOfTheEightBitForwardDirection) {
    // Grey i has luminance i, so its L code is the table entry i.
    zt::Image<Zor8u> grey(256, 1, 3, ck::kPad, 1);
    for (int i = 0; i < 256; ++i) grey.at(i, 0, 0) = grey.at(i, 0, 1) = grey.at(i, 0, 2) = static_cast<Zor8u>(i);
    zt::Image<Zor8u> out(256, 1, 3, ck::kPad, 2);
    ASSERT_EQ(zoriRGBToLUV_8u_C3R(grey.data(), grey.step(), out.data(), out.step(), {256, 1}), zorStsOk);
    const std::vector<int> rule = powLRule();
    for (int i = 0; i < 256; ++i) EXPECT_EQ(out.at(i, 0, 0), rule[i]) << "grey " << i;
    const int head[8] = {0, 9, 18, 26, 33, 39, 44, 48};
    for (int i = 0; i < 8; ++i) EXPECT_EQ(out.at(i, 0, 0), head[i]);
    EXPECT_EQ(out.at(255, 0, 0), 255);
    // Black: the rounding half lives in the offsets of u and v.
    EXPECT_EQ(out.at(0, 0, 1), 97);
    EXPECT_EQ(out.at(0, 0, 2), 136);
}

TEST(Luv, EightBitMatchesModel) {
    member<Zor8u, Zor8u>(zoriRGBToLUV_8u_C3R, 3, image8(3, 1), kFwd8);
    member<Zor8u, Zor8u>(zoriRGBToLUV_8u_AC4R, 4, image8(4, 2), kFwd8);
    member<Zor8u, Zor8u>(zoriLUVToRGB_8u_C3R, 3, image8(3, 3), invInt<Zor8u>(255.0f, kIntInverseWhite));
    member<Zor8u, Zor8u>(zoriLUVToRGB_8u_AC4R, 4, image8(4, 4), invInt<Zor8u>(255.0f, kIntInverseWhite));
}

// The integer inverses use the longer white-point pair, the forward
// directions and the 32f inverse the shorter one; each image below holds
// pixels that tell the pairs apart.
TEST(Luv, TwoWhitePointPairs) {
    zt::Image<Zor8u> src = image8(3, 21, 64, 40);
    // Dark, saturated codes where the last digits of the pair decide a code.
    const Zor8u tell[6][3] = {{2, 0, 130}, {3, 126, 129}, {4, 146, 126}, {6, 3, 119}, {7, 90, 121}, {8, 129, 118}};
    for (int i = 0; i < 6; ++i)
        for (int c = 0; c < 3; ++c) src.at(i, 39, c) = tell[i][c];
    EXPECT_GT(ck::disagreements(src, invInt<Zor8u>(255.0f, kIntInverseWhite), invInt<Zor8u>(255.0f, kForwardWhite)), 0);
    ck::expectModel<Zor8u, Zor8u>(zoriLUVToRGB_8u_C3R, 3, src, invInt<Zor8u>(255.0f, kIntInverseWhite));
    zt::Image<Zor16u> src16 = image16<Zor16u>(3, 22);
    EXPECT_GT(ck::disagreements(src16, invInt<Zor16u>(65535.0f, kIntInverseWhite),
                                invInt<Zor16u>(65535.0f, kForwardWhite)), 0);
    ck::expectModel<Zor16u, Zor16u>(zoriLUVToRGB_16u_C3R, 3, src16, invInt<Zor16u>(65535.0f, kIntInverseWhite));
    zt::Image<Zor32f> src32 = luv32(3, 23);
    EXPECT_GT(ck::disagreements(src32, inv32(kForwardWhite), inv32(kIntInverseWhite)), 0);
    ck::expectModel<Zor32f, Zor32f>(zoriLUVToRGB_32f_C3R, 3, src32, inv32(kForwardWhite));
}

// Codes whose unrounded value is exactly k + 0.5 stay at k: the rounding
// constant is 0.499999, not one half (the last pixel's blue is such a case).
TEST(Luv, InverseRoundsWithJustBelowOneHalf) {
    const Zor8u tell[6][3] = {{3, 175, 253}, {16, 132, 8}, {22, 232, 27}, {75, 95, 72}, {79, 86, 111}, {52, 125, 42}};
    zt::Image<Zor8u> src(6, 1, 3, ck::kPad, 1);
    for (int i = 0; i < 6; ++i)
        for (int c = 0; c < 3; ++c) src.at(i, 0, c) = tell[i][c];
    EXPECT_EQ(ck::disagreements(src, invInt<Zor8u>(255.0f, kIntInverseWhite),
                                invInt<Zor8u>(255.0f, kIntInverseWhite, true)), 6);
    ck::expectModel<Zor8u, Zor8u>(zoriLUVToRGB_8u_C3R, 3, src, invInt<Zor8u>(255.0f, kIntInverseWhite));
    Zor8u o[3];
    ASSERT_EQ(zoriLUVToRGB_8u_C3R(tell[2], 3, o, 3, {1, 1}), zorStsOk);
    EXPECT_EQ(o[1], 22);  // 22.5 before rounding
}

TEST(Luv, SixteenBitMatchesModel) {
    member<Zor16u, Zor16u>(zoriRGBToLUV_16u_C3R, 3, image16<Zor16u>(3, 5), fwd16<Zor16u>());
    member<Zor16u, Zor16u>(zoriRGBToLUV_16u_AC4R, 4, image16<Zor16u>(4, 6), fwd16<Zor16u>());
    member<Zor16u, Zor16u>(zoriLUVToRGB_16u_C3R, 3, image16<Zor16u>(3, 7), invInt<Zor16u>(65535.0f, kIntInverseWhite));
    member<Zor16u, Zor16u>(zoriLUVToRGB_16u_AC4R, 4, image16<Zor16u>(4, 8), invInt<Zor16u>(65535.0f, kIntInverseWhite));
    member<Zor16s, Zor16s>(zoriRGBToLUV_16s_C3R, 3, image16<Zor16s>(3, 9), fwd16<Zor16s>());
    member<Zor16s, Zor16s>(zoriRGBToLUV_16s_AC4R, 4, image16<Zor16s>(4, 10), fwd16<Zor16s>());
    member<Zor16s, Zor16s>(zoriLUVToRGB_16s_C3R, 3, image16<Zor16s>(3, 11), invInt<Zor16s>(65535.0f, kIntInverseWhite));
    member<Zor16s, Zor16s>(zoriLUVToRGB_16s_AC4R, 4, image16<Zor16s>(4, 12), invInt<Zor16s>(65535.0f, kIntInverseWhite));
}

TEST(Luv, IntegerInversesOfZeroLightnessAreBlack) {
    const Zor8u in8[6] = {0, 17, 250, 0, 255, 0};
    Zor8u o8[6] = {9, 9, 9, 9, 9, 9};
    ASSERT_EQ(zoriLUVToRGB_8u_C3R(in8, 6, o8, 6, {2, 1}), zorStsOk);
    for (Zor8u v : o8) EXPECT_EQ(v, 0);
    const Zor16s in16s[3] = {-32768, 1234, -999};
    Zor16s o16s[3] = {1, 1, 1};
    ASSERT_EQ(zoriLUVToRGB_16s_C3R(in16s, 6, o16s, 6, {1, 1}), zorStsOk);
    for (Zor16s v : o16s) EXPECT_EQ(v, -32768);
    const Zor16u in16u[3] = {0, 65535, 65535};
    Zor16u o16u[3] = {1, 1, 1};
    ASSERT_EQ(zoriLUVToRGB_16u_C3R(in16u, 6, o16u, 6, {1, 1}), zorStsOk);
    for (Zor16u v : o16u) EXPECT_EQ(v, 0);
}

TEST(Luv, FloatMatchesModel) {
    member<Zor32f, Zor32f>(zoriRGBToLUV_32f_C3R, 3, rgb32(3, 13), kFwd32);
    member<Zor32f, Zor32f>(zoriRGBToLUV_32f_AC4R, 4, rgb32(4, 14), kFwd32);
    member<Zor32f, Zor32f>(zoriLUVToRGB_32f_C3R, 3, luv32(3, 15), inv32(kForwardWhite));
    member<Zor32f, Zor32f>(zoriLUVToRGB_32f_AC4R, 4, luv32(4, 16), inv32(kForwardWhite));
}

// A dark pixel stalls the rest of its row: it is zeroed, nothing after it in
// that destination row is written, and the next row starts afresh.
TEST(Luv, FloatInverseStallsOnADarkPixel) {
    for (int ch : {3, 4}) {
        auto fn = ch == 3 ? zoriLUVToRGB_32f_C3R : zoriLUVToRGB_32f_AC4R;
        zt::Image<Zor32f> src(5, 2, ch, ck::kPad, 1);
        for (int y = 0; y < 2; ++y)
            for (int x = 0; x < 5; ++x) {
                src.at(x, y, 0) = 50.0f;
                src.at(x, y, 1) = 10.0f;
                src.at(x, y, 2) = 5.0f;
            }
        src.at(2, 0, 0) = 0.0f;     // dark third pixel in row 0
        src.at(3, 0, 0) = 60.0f;    // never reached
        src.at(0, 1, 0) = -1.0f;    // negative lightness is dark too
        const zt::Image<Zor32f> fresh(5, 2, ch, ck::kPad, 2);
        zt::Image<Zor32f> dst = fresh;
        ASSERT_EQ(fn(src.data(), src.step(), dst.data(), dst.step(), {5, 2}), zorStsOk);
        for (int x = 0; x < 2; ++x) EXPECT_GT(dst.at(x, 0, 0), 0.0f);
        for (int c = 0; c < 3; ++c) EXPECT_EQ(dst.at(2, 0, c), 0.0f);
        for (int y = 0; y < 2; ++y)
            for (int x = (y == 0 ? 3 : 1); x < 5; ++x)
                for (int c = 0; c < ch; ++c) EXPECT_EQ(std::memcmp(&dst.at(x, y, c), &fresh.at(x, y, c), 4), 0);
        for (int c = 0; c < 3; ++c) EXPECT_EQ(dst.at(0, 1, c), 0.0f);
    }
}

}  // namespace
