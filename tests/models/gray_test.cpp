// Colour to gray: all sixteen members against a per-pixel model with default
// and caller weights (including weights that wrap), null weights, check
// order and row addressing.
#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>
#include <vector>

#include "support/testutil.h"

namespace {

const float kDefault[3] = {0.299f, 0.587f, 0.114f};

std::int32_t toInt(double v) {  // truncation; INT32_MIN outside the int32 range
    return (v > -2147483649.0 && v < 2147483648.0) ? static_cast<std::int32_t>(v) : INT32_MIN;
}

template <class T>
T modelGray(const T* s, const float* w) {
    if constexpr (std::is_same<T, Zor8u>::value) {
        std::uint32_t iw[3] = {1225, 2404, 467};
        if (w)
            for (int k = 0; k < 3; ++k) iw[k] = static_cast<std::uint32_t>(toInt(double(w[k]) * 4096 + 0.5));
        return static_cast<Zor8u>((iw[0] * s[0] + iw[1] * s[1] + iw[2] * s[2]) >> 12);
    } else {
        if (!w) w = kDefault;
        if constexpr (std::is_same<T, Zor32f>::value) {
            return w[0] * s[0] + w[1] * s[1] + w[2] * s[2];
        } else {
            const int off = std::is_signed<T>::value ? 32768 : 0;
            const float sum = w[0] * float(s[0] + off) + w[1] * float(s[1] + off) + w[2] * float(s[2] + off);
            return static_cast<T>((static_cast<std::uint32_t>(toInt(sum)) - static_cast<std::uint32_t>(off)) & 0xFFFFu);
        }
    }
}

template <class T>
using FixedFn = ZorStatus (*)(const T*, int, T*, int, ZoriSize);
template <class T>
using CallerFn = ZorStatus (*)(const T*, int, T*, int, ZoriSize, const Zor32f*);

template <class T>
struct Members {
    FixedFn<T> fixed[2];    // C3C1, AC4C1
    CallerFn<T> caller[2];  // C3C1, AC4C1
};

Members<Zor8u> members(Zor8u) {
    return {{zoriRGBToGray_8u_C3C1R, zoriRGBToGray_8u_AC4C1R}, {zoriColorToGray_8u_C3C1R, zoriColorToGray_8u_AC4C1R}};
}
Members<Zor16u> members(Zor16u) {
    return {{zoriRGBToGray_16u_C3C1R, zoriRGBToGray_16u_AC4C1R},
            {zoriColorToGray_16u_C3C1R, zoriColorToGray_16u_AC4C1R}};
}
Members<Zor16s> members(Zor16s) {
    return {{zoriRGBToGray_16s_C3C1R, zoriRGBToGray_16s_AC4C1R},
            {zoriColorToGray_16s_C3C1R, zoriColorToGray_16s_AC4C1R}};
}
Members<Zor32f> members(Zor32f) {
    return {{zoriRGBToGray_32f_C3C1R, zoriRGBToGray_32f_AC4C1R},
            {zoriColorToGray_32f_C3C1R, zoriColorToGray_32f_AC4C1R}};
}

template <class T>
zt::Image<T> source(int w, int h, int ch, std::uint32_t seed) {
    zt::Image<T> img(w, h, ch, 3 * sizeof(T), seed);
    if constexpr (std::is_same<T, Zor32f>::value) {
        std::mt19937 rng(seed);
        std::uniform_real_distribution<float> u(-0.25f, 1.25f);
        img.fillSamples([&] { return u(rng); });
    }
    // Extremes first.
    const T hi = std::numeric_limits<T>::max(),
            lo = std::is_same<T, Zor32f>::value ? T(0) : std::numeric_limits<T>::lowest();
    const T ext[4][3] = {{hi, hi, hi}, {lo, lo, lo}, {hi, lo, hi}, {lo, hi, lo}};
    for (int n = 0; n < 4 && n < w * h; ++n)
        for (int k = 0; k < 3; ++k) img.at(n % w, n / w, k) = std::is_same<T, Zor32f>::value ? T(n & 1) : ext[n][k];
    return img;
}

template <class T>
class Gray : public ::testing::Test {};
using Types = ::testing::Types<Zor8u, Zor16u, Zor16s, Zor32f>;
TYPED_TEST_SUITE(Gray, Types);

// Weight sets: none (defaults), the defaults spelled out, a sum above one,
// negative weights, and a half (which rounds differently from a floor).
const std::vector<std::vector<float>> kWeightSets = {{},
                                                     {0.299f, 0.587f, 0.114f},
                                                     {0.5f, 0.5f, 0.5f},
                                                     {-0.25f, 1.0f, 0.5f},
                                                     {-0.5f, 0.0f, 1.7f},
                                                     {1.0f / 3, 0.2f, 0.0001f}};

TYPED_TEST(Gray, MatchesModelForEveryMemberAndWeightSet) {
    using T = TypeParam;
    const Members<T> m = members(T{});
    for (int layout = 0; layout < 2; ++layout) {
        const int ch = layout == 0 ? 3 : 4;
        for (const ZoriSize roi : {ZoriSize{1, 1}, ZoriSize{33, 7}, ZoriSize{4, 21}}) {
            const zt::Image<T> src = source<T>(roi.width, roi.height, ch, roi.width + ch);
            const zt::Image<T> dst0(roi.width, roi.height, 1, 5 * sizeof(T), 9);
            for (const auto& ws : kWeightSets) {
                SCOPED_TRACE(::testing::Message()
                             << "channels " << ch << " weights " << ws.size() << " " << (ws.empty() ? 0.f : ws[0])
                             << " size " << roi.width << "x" << roi.height);
                const float* w = ws.empty() ? nullptr : ws.data();
                zt::Image<T> want = dst0;
                for (int y = 0; y < roi.height; ++y)
                    for (int x = 0; x < roi.width; ++x) want.at(x, y) = modelGray(&src.at(x, y), w);
                zt::Image<T> dst = dst0, flipped = dst0;
                zt::Image<T> s2 = src;
                ASSERT_EQ(m.caller[layout](src.data(), src.step(), dst.data(), dst.step(), roi, w), zorStsOk);
                EXPECT_EQ(zt::firstDifference(dst.bytes(), want.bytes()), -1);
                ASSERT_EQ(m.caller[layout](s2.flippedData(), s2.flippedStep(), flipped.flippedData(),
                                           flipped.flippedStep(), roi, w),
                          zorStsOk);
                EXPECT_EQ(zt::firstDifference(flipped.bytes(), want.bytes()), -1) << "bottom-up";
                if (!w) {  // the fixed-weight member gives the same as null weights
                    zt::Image<T> fixed = dst0;
                    ASSERT_EQ(m.fixed[layout](src.data(), src.step(), fixed.data(), fixed.step(), roi), zorStsOk);
                    EXPECT_TRUE(fixed == want);
                }
            }
        }
    }
}

TYPED_TEST(Gray, ChecksPointersThenSizeAndLeavesWeightsUnchecked) {
    using T = TypeParam;
    const Members<T> m = members(T{});
    const zt::Image<T> src = source<T>(3, 2, 4, 1);
    const zt::Image<T> dst0(3, 2, 1, 0, 2);
    zt::Image<T> dst = dst0;
    for (int layout = 0; layout < 2; ++layout) {
        EXPECT_EQ(m.fixed[layout](nullptr, src.step(), dst.data(), dst.step(), {0, 0}), zorStsNullPtr);
        EXPECT_EQ(m.fixed[layout](src.data(), src.step(), nullptr, dst.step(), {3, 2}), zorStsNullPtr);
        EXPECT_EQ(m.fixed[layout](src.data(), src.step(), dst.data(), dst.step(), {0, 2}), zorStsBadSize);
        EXPECT_EQ(m.caller[layout](nullptr, src.step(), dst.data(), dst.step(), {0, 0}, kDefault), zorStsNullPtr);
        EXPECT_EQ(m.caller[layout](src.data(), src.step(), nullptr, dst.step(), {3, 2}, nullptr), zorStsNullPtr);
        EXPECT_EQ(m.caller[layout](src.data(), src.step(), dst.data(), dst.step(), {3, -1}, nullptr), zorStsBadSize);
    }
    EXPECT_TRUE(dst == dst0);
    // Steps are not validated; a 16-bit or float byte step is rounded down to whole samples.
    zt::Image<T> a = dst0, b = dst0;
    EXPECT_EQ(m.fixed[1](src.data(), src.step(), a.data(), a.step(), {3, 2}), zorStsOk);
    EXPECT_EQ(m.fixed[1](src.data(), src.step() + sizeof(T) - 1, b.data(), b.step() + sizeof(T) - 1, {3, 2}), zorStsOk);
    EXPECT_TRUE(a == b);
}

TEST(GrayValues, FixedPointFloorsAndWraps) {
    const Zor8u px[9] = {255, 255, 255, 1, 1, 1, 0, 0, 1};
    Zor8u out[3];
    ASSERT_EQ(zoriRGBToGray_8u_C3C1R(px, 9, out, 3, {3, 1}), zorStsOk);
    EXPECT_EQ(std::vector<int>(out, out + 3), (std::vector<int>{255, 1, 0}));
    const float half[3] = {0.5f, 0.5f, 0.5f};
    ASSERT_EQ(zoriColorToGray_8u_C3C1R(px, 9, out, 3, {1, 1}, half), zorStsOk);
    EXPECT_EQ(out[0], 126);  // 382 keeps its low 8 bits
    // Weight -0.5 becomes -2047 (truncated toward zero, not -2048), so with
    // 4094/4096 on the second channel the sum is exactly 0, not -2 (255).
    const float neg[3] = {-0.5f, 4094.0f / 4096, 0.0f};
    const Zor8u px2[3] = {2, 1, 0};
    ASSERT_EQ(zoriColorToGray_8u_C3C1R(px2, 3, out, 1, {1, 1}, neg), zorStsOk);
    EXPECT_EQ(out[0], 0);
    const Zor8u px3[3] = {3, 1, 0};  // -6141 + 4094 = -2047 shifts to -1: 255
    ASSERT_EQ(zoriColorToGray_8u_C3C1R(px3, 3, out, 1, {1, 1}, neg), zorStsOk);
    EXPECT_EQ(out[0], 255);
}

TEST(GrayValues, SixteenBitTruncatesAndWraps) {
    const Zor16u px[6] = {1, 1, 1, 65535, 65535, 65535};
    Zor16u out[2];
    ASSERT_EQ(zoriRGBToGray_16u_C3C1R(px, 12, out, 4, {2, 1}), zorStsOk);
    EXPECT_EQ(out[0], 1);
    EXPECT_EQ(out[1], 65535);
    const float neg[3] = {-0.5f, 0.0f, 0.0f};
    const Zor16u three[3] = {3, 0, 0};  // -1.5 truncates to -1: 65535
    ASSERT_EQ(zoriColorToGray_16u_C3C1R(three, 6, out, 2, {1, 1}, neg), zorStsOk);
    EXPECT_EQ(out[0], 65535);
    const float twice[3] = {2.0f, 0.0f, 0.0f};
    const Zor16u big[3] = {40000, 0, 0};  // 80000 keeps its low 16 bits
    ASSERT_EQ(zoriColorToGray_16u_C3C1R(big, 6, out, 2, {1, 1}, twice), zorStsOk);
    EXPECT_EQ(out[0], 80000 - 65536);
    const Zor16s s[3] = {-32768, -32768, -32768};
    Zor16s so[1];
    ASSERT_EQ(zoriRGBToGray_16s_C3C1R(s, 6, so, 2, {1, 1}), zorStsOk);
    EXPECT_EQ(so[0], -32768);
}

}  // namespace
