// RGB and HSV: the eight members against a per-pixel model on random images
// and corner colours, the hue wraps, the top hue code, untouched alpha,
// check order and team-size independence.
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "support/testutil.h"

namespace {

int rounded(float x) { return static_cast<int>(x + 0.499999f); }

template <class T>
constexpr float kScale = sizeof(T) == 1 ? 255.0f : 65535.0f;

template <class T>
void modelRgbToHsv(const T* s, T* d) {
    const int r = s[0], g = s[1], b = s[2];
    const int mx = std::max({r, g, b}), mn = std::min({r, g, b});
    d[2] = static_cast<T>(mx);
    if (mx == 0 || mx == mn) {
        d[0] = d[1] = 0;
        return;
    }
    const float delta = static_cast<float>(mx - mn);
    d[1] = static_cast<T>(rounded(delta / mx * kScale<T>));
    const float inv = 1 / delta;
    float h;
    if (b == mx)
        h = 4 - (mx - r) * inv + (mx - g) * inv;
    else if (g == mx)
        h = 2 + (b - r) * inv;
    else
        h = (g - b) * inv;
    float x;
    if (sizeof(T) == 1) {
        x = h * 255 / 6;
        if (x < 0) x += 255;
    } else {
        if (h + 1.1920929e-7f < 0) h += 6;
        x = h * 65535 / 6;
    }
    d[0] = static_cast<T>(rounded(x));
}

template <class T>
void modelHsvToRgb(const T* s, T* d) {
    const int hc = s[0], sc = s[1];
    const float v = s[2];
    if (sc == 0) {
        d[0] = d[1] = d[2] = s[2];
        return;
    }
    const float sat = sc / kScale<T>;
    const float hh = hc == static_cast<int>(kScale<T>) ? 0 : static_cast<float>(hc) * 360 / kScale<T> / 60;
    const int i = static_cast<int>(std::floor(hh));
    const float f = hh - i;
    const float p = (1 - sat) * v, q = (1 - sat * f) * v, t = (1 - sat * (1 - f)) * v;
    const float table[6][3] = {{v, t, p}, {q, v, p}, {p, v, t}, {p, q, v}, {t, p, v}, {v, p, q}};
    for (int c = 0; c < 3; ++c) d[c] = static_cast<T>(rounded(table[i][c]));
}

template <class T>
std::vector<std::array<T, 3>> corners() {
    const T M = static_cast<T>(kScale<T>);
    const T h = static_cast<T>(M / 2 + 1);
    return {{0, 0, 0},         {M, M, M}, {h, h, h}, {M, 0, 0},   {0, M, 0}, {0, 0, M},  {M, M, 0},
            {0, M, M},         {M, 0, M}, {M, 0, 1}, {1, 0, 0},   {M, 1, 0}, {0, 1, M},  {1, M, 0},
            {M, M - 1, M - 1}, {3, 2, 1}, {M, 0, M}, {M, M, 200}, {h, M, 0}, {M, 200, 0}};
}

template <class T>
using Fn = ZorStatus (*)(const T*, int, T*, int, ZoriSize);

template <class T>
struct Member {
    const char* name;
    Fn<T> fn;
    void (*model)(const T*, T*);
    int channels;
};

template <class T>
std::vector<Member<T>> members();
template <>
std::vector<Member<Zor8u>> members() {
    return {{"RGBToHSV_8u_C3R", zoriRGBToHSV_8u_C3R, modelRgbToHsv<Zor8u>, 3},
            {"RGBToHSV_8u_AC4R", zoriRGBToHSV_8u_AC4R, modelRgbToHsv<Zor8u>, 4},
            {"HSVToRGB_8u_C3R", zoriHSVToRGB_8u_C3R, modelHsvToRgb<Zor8u>, 3},
            {"HSVToRGB_8u_AC4R", zoriHSVToRGB_8u_AC4R, modelHsvToRgb<Zor8u>, 4}};
}
template <>
std::vector<Member<Zor16u>> members() {
    return {{"RGBToHSV_16u_C3R", zoriRGBToHSV_16u_C3R, modelRgbToHsv<Zor16u>, 3},
            {"RGBToHSV_16u_AC4R", zoriRGBToHSV_16u_AC4R, modelRgbToHsv<Zor16u>, 4},
            {"HSVToRGB_16u_C3R", zoriHSVToRGB_16u_C3R, modelHsvToRgb<Zor16u>, 3},
            {"HSVToRGB_16u_AC4R", zoriHSVToRGB_16u_AC4R, modelHsvToRgb<Zor16u>, 4}};
}

// Random samples with the corner colours (and, for the inverse, top hue
// codes) at the start of the first rows.
template <class T>
zt::Image<T> source(int w, int h, int channels, std::uint32_t seed) {
    zt::Image<T> img(w, h, channels, 2 * sizeof(T), seed);
    const auto c = corners<T>();
    for (std::size_t n = 0; n < c.size() && static_cast<int>(n) < w * h; ++n)
        for (int k = 0; k < 3; ++k) img.at(static_cast<int>(n) % w, static_cast<int>(n) / w, k) = c[n][k];
    return img;
}

template <class T>
zt::Image<T> expected(const zt::Image<T>& src, zt::Image<T> dst, void (*model)(const T*, T*)) {
    for (int y = 0; y < src.height(); ++y)
        for (int x = 0; x < src.width(); ++x) {
            T out[3];
            model(&src.at(x, y), out);
            for (int c = 0; c < 3; ++c) dst.at(x, y, c) = out[c];
        }
    return dst;
}

template <class T>
class Hsv : public ::testing::Test {};
using Types = ::testing::Types<Zor8u, Zor16u>;
TYPED_TEST_SUITE(Hsv, Types);

TYPED_TEST(Hsv, MatchesModelOnRandomAndCornerColours) {
    using T = TypeParam;
    for (const auto& m : members<T>()) {
        SCOPED_TRACE(m.name);
        for (const ZoriSize roi : {ZoriSize{1, 1}, ZoriSize{41, 13}, ZoriSize{3, 40}}) {
            const zt::Image<T> src = source<T>(roi.width, roi.height, m.channels, 3 + roi.width);
            const zt::Image<T> dst0(roi.width, roi.height, m.channels, 4 * sizeof(T), 8);
            const zt::Image<T> want = expected(src, dst0, m.model);
            zt::Image<T> dst = dst0, flipped = dst0;
            ASSERT_EQ(m.fn(src.data(), src.step(), dst.data(), dst.step(), roi), zorStsOk);
            EXPECT_EQ(zt::firstDifference(dst.bytes(), want.bytes()), -1);
            zt::Image<T> s2 = src;
            ASSERT_EQ(m.fn(s2.flippedData(), s2.flippedStep(), flipped.flippedData(), flipped.flippedStep(), roi),
                      zorStsOk);
            EXPECT_EQ(zt::firstDifference(flipped.bytes(), want.bytes()), -1) << "bottom-up";
        }
    }
}

TYPED_TEST(Hsv, SameResultForEveryTeamSize) {
    using T = TypeParam;
    for (const auto& m : members<T>()) {
        SCOPED_TRACE(m.name);
        const zt::Image<T> src = source<T>(9, 31, m.channels, 4);
        zt::expectTeamIndependent<zt::Image<T>>(
            [&] { return zt::Image<T>(9, 31, m.channels, 0, 5); },
            [&](zt::Image<T>& d) {
                ASSERT_EQ(m.fn(src.data(), src.step(), d.data(), d.step(), {9, 31}), zorStsOk);
            });
    }
}

TYPED_TEST(Hsv, ChecksPointersThenSizeAndNotSteps) {
    using T = TypeParam;
    for (const auto& m : members<T>()) {
        SCOPED_TRACE(m.name);
        const zt::Image<T> src = source<T>(5, 2, m.channels, 1);
        const zt::Image<T> dst0(5, 2, m.channels, 0, 2);
        zt::Image<T> dst = dst0;
        EXPECT_EQ(m.fn(nullptr, 0, dst.data(), 0, {0, 1}), zorStsNullPtr);
        EXPECT_EQ(m.fn(src.data(), -1, nullptr, -1, {5, 2}), zorStsNullPtr);
        EXPECT_EQ(m.fn(src.data(), src.step(), dst.data(), dst.step(), {5, 0}), zorStsBadSize);
        EXPECT_EQ(m.fn(src.data(), src.step(), dst.data(), dst.step(), {-5, 2}), zorStsBadSize);
        EXPECT_TRUE(dst == dst0);
        // An odd 16-bit byte step is rounded down to whole samples.
        zt::Image<T> odd = dst0;
        EXPECT_EQ(m.fn(src.data(), src.step(), dst.data(), dst.step(), {5, 2}), zorStsOk);
        EXPECT_EQ(m.fn(src.data(), src.step() + sizeof(T) - 1, odd.data(), odd.step() + sizeof(T) - 1, {5, 2}),
                  zorStsOk);
        EXPECT_TRUE(dst == odd);
    }
}

TEST(HsvValues, Forward8u) {
    const Zor8u px[] = {0, 0, 0, 90, 90, 90, 255, 0, 0, 0, 255, 0, 0, 0, 255, 255, 0, 1};
    Zor8u out[18];
    ASSERT_EQ(zoriRGBToHSV_8u_C3R(px, sizeof px, out, sizeof out, {6, 1}), zorStsOk);
    EXPECT_EQ(std::vector<int>(out, out + 18),
              (std::vector<int>{0, 0, 0, 0, 0, 90, 0, 255, 255, 85, 255, 255, 170, 255, 255,
                                // a slightly negative hue wraps by 255 code units
                                255, 255, 255}));
}

TEST(HsvValues, TopHueCodeMeansHueZero) {
    // Hue 0, full saturation, V 200 is pure red; without the special case the
    // hue would fall into a seventh sextant.
    const Zor8u in8[3] = {255, 255, 200};
    Zor8u out8[3];
    ASSERT_EQ(zoriHSVToRGB_8u_C3R(in8, 3, out8, 3, {1, 1}), zorStsOk);
    EXPECT_EQ(std::vector<int>(out8, out8 + 3), (std::vector<int>{200, 0, 0}));
    const Zor16u in16[3] = {65535, 65535, 40000};
    Zor16u out16[3];
    ASSERT_EQ(zoriHSVToRGB_16u_C3R(in16, 6, out16, 6, {1, 1}), zorStsOk);
    EXPECT_EQ(std::vector<int>(out16, out16 + 3), (std::vector<int>{40000, 0, 0}));
}

TEST(HsvValues, Forward16uWrapsBySextants) {
    // h = -1/65535 sextant: wrapped to just below 6, that is code 65535.
    const Zor16u px[6] = {65535, 0, 1, 0, 65535, 0};
    Zor16u out[6];
    ASSERT_EQ(zoriRGBToHSV_16u_C3R(px, 12, out, 12, {2, 1}), zorStsOk);
    EXPECT_EQ(out[0], 65535);
    EXPECT_EQ(out[1], 65535);
    EXPECT_EQ(out[2], 65535);
    EXPECT_EQ(out[3], 21845);  // green: 2 * 65535 / 6 = 21845
}

}  // namespace
