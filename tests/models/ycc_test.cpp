// RGB <-> PhotoYCC: every member against a model of the documented fixed
// point and float arithmetic, with checks, alpha, padding, negative steps and
// team sizes.
#include "models/cie_testkit.h"

#include <algorithm>

namespace {

using ck::clamp01;
using ck::member;
using ck::RowModel;

int floorDiv(long long v, long long d) { return static_cast<int>(std::floor(static_cast<double>(v) / d)); }

const RowModel<Zor8u, Zor8u> kFwd8 = ck::perPixel<Zor8u, Zor8u>([](const Zor8u* s, Zor8u* d) {
    const long long r = s[0], g = s[1], b = s[2];
    const long long sum = 4898 * r + 9617 * g + 1867 * b;
    d[0] = static_cast<Zor8u>(floorDiv(floorDiv(sum, 1024) * 2921LL, 65536));
    d[1] = static_cast<Zor8u>(floorDiv(floorDiv(b * 16384 - sum, 1024) * 1789LL, 65536) + 156);
    d[2] = static_cast<Zor8u>(floorDiv(floorDiv(r * 16384 - sum, 1024) * 2178LL, 65536) + 137);
});

Zor8u sat(int v) { return static_cast<Zor8u>(std::clamp(v, 0, 255)); }

const RowModel<Zor8u, Zor8u> kInv8 = ck::perPixel<Zor8u, Zor8u>([](const Zor8u* s, Zor8u* d) {
    const long long ty = 5564LL * s[0], t1 = 9084LL * (s[1] - 156), t2 = 7460LL * (s[2] - 137);
    d[0] = sat(floorDiv(ty + t2, 4096));
    d[1] = sat(floorDiv(16 * ty - 794LL * floorDiv(t1, 256) - 2084LL * floorDiv(t2, 256), 65536));
    d[2] = sat(floorDiv(ty + t1, 4096));
});

struct Ycc {
    float y, c1, c2;
};

Ycc modelForm(float r, float g, float b, float o1, float o2) {
    float yl = 0.299f * r;
    yl = yl + 0.587f * g;
    yl = yl + 0.114f * b;
    return {0.7132668f * yl, 0.43686f * (b - yl) + o1, 0.53192f * (r - yl) + o2};
}

// The 16u forward's combined matrix.
Ycc combined(float r, float g, float b) {
    const float m[3][3] = {{0.213267f, 0.418688f, 0.0813124f},
                           {-0.130621f, -0.256437f, 0.387058f},
                           {0.372876f, -0.312237f, -0.0606389f}};
    float v[3];
    for (int k = 0; k < 3; ++k) {
        v[k] = m[k][0] * r;
        v[k] = v[k] + m[k][1] * g;
        v[k] = v[k] + m[k][2] * b;
    }
    return {v[0], v[1] + 40092.0f, v[2] + 35209.0f};
}

template <class T>
float in16(T s) {
    return std::is_signed<T>::value ? static_cast<float>(s + 32768) : static_cast<float>(s);
}
template <class T>
T out16(int code) {
    return static_cast<T>(std::is_signed<T>::value ? code - 32768 : code);
}

template <class T>
RowModel<T, T> fwd16(bool combinedMatrix) {
    return ck::perPixel<T, T>([combinedMatrix](const T* s, T* d) {
        const float r = in16(s[0]), g = in16(s[1]), b = in16(s[2]);
        const Ycc c = combinedMatrix ? combined(r, g, b) : modelForm(r, g, b, 40092.0f, 35209.0f);
        d[0] = out16<T>(static_cast<int>(c.y + 0.499999f));
        d[1] = out16<T>(static_cast<int>(c.c1 + 0.499999f));
        d[2] = out16<T>(static_cast<int>(c.c2 + 0.499999f));
    });
}

struct Rgb {
    float r, g, b;
};

Rgb inverse(float y, float d1raw, float d2raw) {
    const float l = 1.3584f * y, c1 = 2.2179f * d1raw, c2 = 1.8215f * d2raw;
    float g = l - 0.194f * c1;
    g = g - 0.509f * c2;
    return {l + c2, g, l + c1};
}

// 16u: chroma minus 40092 and 35209; 16s: signed chroma minus 7324 and 2441,
// luma plus 32768.
template <class T>
RowModel<T, T> inv16() {
    return ck::perPixel<T, T>([](const T* s, T* d) {
        Rgb c;
        if (std::is_signed<T>::value)
            c = inverse(static_cast<float>(s[0]) + 32768.0f, static_cast<float>(s[1]) - 7324.0f,
                        static_cast<float>(s[2]) - 2441.0f);
        else
            c = inverse(static_cast<float>(s[0]), static_cast<float>(s[1]) - 40092.0f,
                        static_cast<float>(s[2]) - 35209.0f);
        d[0] = out16<T>(ck::satTrunc(c.r + 0.499999f, 65535));
        d[1] = out16<T>(ck::satTrunc(c.g + 0.499999f, 65535));
        d[2] = out16<T>(ck::satTrunc(c.b + 0.499999f, 65535));
    });
}


const RowModel<Zor32f, Zor32f> kFwd32 = ck::perPixel<Zor32f, Zor32f>([](const Zor32f* s, Zor32f* d) {
    const Ycc c = modelForm(s[0], s[1], s[2], 0.6117647f, 0.5372549f);
    d[0] = c.y;
    d[1] = c.c1;
    d[2] = c.c2;
});

const RowModel<Zor32f, Zor32f> kInv32 = ck::perPixel<Zor32f, Zor32f>([](const Zor32f* s, Zor32f* d) {
    const Rgb c = inverse(s[0], s[1] - 0.6117647f, s[2] - 0.5372549f);
    d[0] = clamp01(c.r);
    d[1] = clamp01(c.g);
    d[2] = clamp01(c.b);
});

zt::Image<Zor8u> image8(int ch, std::uint32_t seed) {
    ck::Rng rng(seed);
    const std::vector<Zor8u> edges = {0, 1, 127, 128, 137, 156, 254, 255};
    return ck::edgeImage<Zor8u>(32, 20, ch, edges, [&] { return static_cast<Zor8u>(rng.integer(0, 255)); });
}

template <class T>
zt::Image<T> image16(int ch, std::uint32_t seed, int w = 23, int h = 17) {
    ck::Rng rng(seed);
    const int lo = std::is_signed<T>::value ? -32768 : 0;
    const std::vector<T> edges = {T(lo), T(lo + 1), T(lo + 35209), T(lo + 40092), T(lo + 65534), T(lo + 65535)};
    return ck::edgeImage<T>(w, h, ch, edges, [&] { return static_cast<T>(rng.integer(lo, lo + 65535)); });
}

zt::Image<Zor32f> image32(int ch, std::uint32_t seed) {
    ck::Rng rng(seed);
    const std::vector<Zor32f> edges = {-0.25f, 0.0f, 0.5372549f, 0.6117647f, 1.0f, 1.25f};
    return ck::edgeImage<Zor32f>(23, 13, ch, edges, [&] { return rng.real(-0.3f, 1.3f); });
}


TEST(Ycc, ChecksStatusesAndStepsOfEveryMember) {
    for (int ch : {3, 4}) {
        const bool c3 = ch == 3;
        ck::expectChecks<Zor8u, Zor8u>(c3 ? zoriRGBToYCC_8u_C3R : zoriRGBToYCC_8u_AC4R, ch, ch, kFwd8);
        ck::expectChecks<Zor8u, Zor8u>(c3 ? zoriYCCToRGB_8u_C3R : zoriYCCToRGB_8u_AC4R, ch, ch, kInv8);
        ck::expectChecks<Zor16u, Zor16u>(c3 ? zoriRGBToYCC_16u_C3R : zoriRGBToYCC_16u_AC4R, ch, ch, fwd16<Zor16u>(true));
        ck::expectChecks<Zor16u, Zor16u>(c3 ? zoriYCCToRGB_16u_C3R : zoriYCCToRGB_16u_AC4R, ch, ch, inv16<Zor16u>());
        ck::expectChecks<Zor16s, Zor16s>(c3 ? zoriRGBToYCC_16s_C3R : zoriRGBToYCC_16s_AC4R, ch, ch, fwd16<Zor16s>(false));
        ck::expectChecks<Zor16s, Zor16s>(c3 ? zoriYCCToRGB_16s_C3R : zoriYCCToRGB_16s_AC4R, ch, ch, inv16<Zor16s>());
        zt::Image<Zor32f> f = image32(ch, 1);
        ck::expectStepLowBitsIgnored<Zor32f, Zor32f>(c3 ? zoriRGBToYCC_32f_C3R : zoriRGBToYCC_32f_AC4R, ch, f);
        ck::expectStepLowBitsIgnored<Zor32f, Zor32f>(c3 ? zoriYCCToRGB_32f_C3R : zoriYCCToRGB_32f_AC4R, ch, f);
        zt::Image<Zor16u> u = image16<Zor16u>(ch, 2);
        ck::expectStepLowBitsIgnored<Zor16u, Zor16u>(c3 ? zoriRGBToYCC_16u_C3R : zoriRGBToYCC_16u_AC4R, ch, u);
    }
    ck::expectChecks<Zor32f, Zor32f>(zoriRGBToYCC_32f_AC4R, 4, 4, kFwd32);
    ck::expectChecks<Zor32f, Zor32f>(zoriYCCToRGB_32f_C3R, 3, 3, kInv32);
}

TEST(Ycc, EightBitMatchesFixedPointModel) {
    member<Zor8u, Zor8u>(zoriRGBToYCC_8u_C3R, 3, image8(3, 1), kFwd8);
    member<Zor8u, Zor8u>(zoriRGBToYCC_8u_AC4R, 4, image8(4, 2), kFwd8);
    member<Zor8u, Zor8u>(zoriYCCToRGB_8u_C3R, 3, image8(3, 3), kInv8);
    member<Zor8u, Zor8u>(zoriYCCToRGB_8u_AC4R, 4, image8(4, 4), kInv8);
}

TEST(Ycc, EightBitEdges) {
    const Zor8u px[6] = {0, 0, 0, 255, 255, 255};
    Zor8u o[6];
    ASSERT_EQ(zoriRGBToYCC_8u_C3R(px, 6, o, 6, {2, 1}), zorStsOk);
    const Zor8u want[6] = {0, 156, 137, 181, 156, 137};
    EXPECT_EQ(std::memcmp(o, want, 6), 0);
    // Black YCC: table indices -250 and -346 for R and B, G = 194.
    ASSERT_EQ(zoriYCCToRGB_8u_C3R(px, 6, o, 6, {2, 1}), zorStsOk);
    EXPECT_EQ(o[0], 0);
    EXPECT_EQ(o[1], 194);
    EXPECT_EQ(o[2], 0);
    // All chroma pairs at the luma ends and in the middle: the table indices
    // reach their extremes (-346 and 565) without leaving the table.
    for (int luma : {0, 100, 255}) {
        zt::Image<Zor8u> all(256, 256, 3, ck::kPad, 1);
        for (int y = 0; y < 256; ++y)
            for (int x = 0; x < 256; ++x) {
                all.at(x, y, 0) = static_cast<Zor8u>(luma);
                all.at(x, y, 1) = static_cast<Zor8u>(x);
                all.at(x, y, 2) = static_cast<Zor8u>(y);
            }
        ck::expectModel<Zor8u, Zor8u>(zoriYCCToRGB_8u_C3R, 3, all, kInv8);
    }
}

TEST(Ycc, SixteenBitMatchesFloatModel) {
    member<Zor16u, Zor16u>(zoriRGBToYCC_16u_C3R, 3, image16<Zor16u>(3, 5), fwd16<Zor16u>(true));
    member<Zor16u, Zor16u>(zoriRGBToYCC_16u_AC4R, 4, image16<Zor16u>(4, 6), fwd16<Zor16u>(true));
    member<Zor16u, Zor16u>(zoriYCCToRGB_16u_C3R, 3, image16<Zor16u>(3, 7), inv16<Zor16u>());
    member<Zor16u, Zor16u>(zoriYCCToRGB_16u_AC4R, 4, image16<Zor16u>(4, 8), inv16<Zor16u>());
    member<Zor16s, Zor16s>(zoriRGBToYCC_16s_C3R, 3, image16<Zor16s>(3, 9), fwd16<Zor16s>(false));
    member<Zor16s, Zor16s>(zoriRGBToYCC_16s_AC4R, 4, image16<Zor16s>(4, 10), fwd16<Zor16s>(false));
    member<Zor16s, Zor16s>(zoriYCCToRGB_16s_C3R, 3, image16<Zor16s>(3, 11), inv16<Zor16s>());
    member<Zor16s, Zor16s>(zoriYCCToRGB_16s_AC4R, 4, image16<Zor16s>(4, 12), inv16<Zor16s>());
}

// The 16u forward uses the combined matrix, the 16s forward the model form;
// on these images the two forms give different codes.
TEST(Ycc, SixteenBitForwardFormsDiffer) {
    zt::Image<Zor16u> u = image16<Zor16u>(3, 13, 64, 40);
    EXPECT_GT(ck::disagreements(u, fwd16<Zor16u>(true), fwd16<Zor16u>(false)), 0);
    ck::expectModel<Zor16u, Zor16u>(zoriRGBToYCC_16u_C3R, 3, u, fwd16<Zor16u>(true));
    zt::Image<Zor16s> s = image16<Zor16s>(3, 14, 64, 40);
    EXPECT_GT(ck::disagreements(s, fwd16<Zor16s>(true), fwd16<Zor16s>(false)), 0);
    ck::expectModel<Zor16s, Zor16s>(zoriRGBToYCC_16s_C3R, 3, s, fwd16<Zor16s>(false));
}

// Luma 0.5000004 of (0, 1, 1) truncates to 0 after + 0.499999 (one half
// would give 1).
TEST(Ycc, SixteenBitRoundingConstantIsJustBelowOneHalf) {
    const Zor16u px[3] = {0, 1, 1};
    Zor16u o[3];
    ASSERT_EQ(zoriRGBToYCC_16u_C3R(px, 6, o, 6, {1, 1}), zorStsOk);
    EXPECT_EQ(o[0], 0);
    EXPECT_EQ(static_cast<int>(combined(0, 1, 1).y + 0.5f), 1);
}

TEST(Ycc, SixteenBitInverseSaturates) {
    const Zor16u px[6] = {0, 0, 0, 65535, 65535, 65535};
    Zor16u o[6];
    ASSERT_EQ(zoriYCCToRGB_16u_C3R(px, 6, o, 6, {1, 2}), zorStsOk);
    EXPECT_EQ(o[0], 0);
    EXPECT_EQ(o[2], 0);
    EXPECT_EQ(o[3], 65535);
    EXPECT_EQ(o[5], 65535);
}

TEST(Ycc, FloatMatchesModel) {
    member<Zor32f, Zor32f>(zoriRGBToYCC_32f_C3R, 3, image32(3, 15), kFwd32);
    member<Zor32f, Zor32f>(zoriRGBToYCC_32f_AC4R, 4, image32(4, 16), kFwd32);
    member<Zor32f, Zor32f>(zoriYCCToRGB_32f_C3R, 3, image32(3, 17), kInv32);
    member<Zor32f, Zor32f>(zoriYCCToRGB_32f_AC4R, 4, image32(4, 18), kInv32);
}

}  // namespace
