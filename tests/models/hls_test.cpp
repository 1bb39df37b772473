// RGB/BGR and HLS: every member against a per-pixel model on random images
// (padded rows, bottom-up views) and on corner colours, check orders, alpha
// handling per layout, and team-size independence.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "support/testutil.h"

namespace {

// ---------------------------------------------------------------------------
// Model

struct Hls {
    float h, l, s;  // h in degrees
};
struct Rgb {
    float r, g, b;
};

Hls modelForward(float r, float g, float b, bool floatSamples) {
    const float mx = std::max({r, g, b}), mn = std::min({r, g, b});
    const float d = mx - mn;
    const float l = (mx + mn) / 2;
    const bool achromatic = floatSamples ? !(d > 1.1920929e-7f) : d == 0;
    if (achromatic) return {0, l, 0};
    const float s = l <= 0.5f ? d / (mx + mn) : d / (2 - (mx + mn));
    float h;
    if (r == mx)
        h = (g - b) * 60 / d;
    else if (g != mx)  // blue is the maximum; a green-blue tie goes to green
        h = (r - g) * 60 / d + 240;
    else
        h = (b - r) * 60 / d + 120;
    if (h < 0) h += 360;
    return {h, l, s};
}

float ramp(float m1, float m2, float h) {
    if (h < 60) return m1 + (m2 - m1) * h / 60;
    if (h < 180) return m2;
    if (h < 240) return m1 + (m2 - m1) * (240 - h) / 60;
    return m1;
}

Rgb modelInverse(float h, float l, float s) {
    if (s == 0) return {l, l, l};
    const float m2 = l > 0.5f ? l + s - l * s : l * (1 + s);
    const float m1 = 2 * l - m2;
    const float hr = h + 120 > 360 ? h + 120 - 360 : h + 120;
    const float hb = h - 120 < 0 ? h - 120 + 360 : h - 120;
    return {ramp(m1, m2, hr), ramp(m1, m2, h), ramp(m1, m2, hb)};
}

int rounded(float x) { return static_cast<int>(x + 0.499999f); }
int floored(float x) { return static_cast<int>(static_cast<double>(x) + 1e-7); }

// Sample <-> model value for each type of the RGB family (rounding codes).
template <class T>
struct Codes {
    static constexpr float scale = sizeof(T) == 1 ? 255.0f : 65535.0f;
    static constexpr int off = std::is_signed<T>::value ? 32768 : 0;
    static float unit(T v) { return static_cast<float>(v + off) / scale; }
    static float deg(T v) { return static_cast<float>(v + off) * 360 / scale; }
    static T hue(float h) { return static_cast<T>(rounded(h * scale / 360) - off); }
    static T val(float v) { return static_cast<T>(rounded(v * scale) - off); }
};
template <>
struct Codes<Zor32f> {
    static float unit(float v) { return v; }
    static float deg(float v) { return v * 360; }
    static float hue(float h) { return h / 360; }
    static float val(float v) { return v; }
};

template <class T>
void modelRgbToHls(const T* s, T* d) {
    using C = Codes<T>;
    const Hls o = modelForward(C::unit(s[0]), C::unit(s[1]), C::unit(s[2]), std::is_same<T, Zor32f>::value);
    d[0] = C::hue(o.h);
    d[1] = C::val(o.l);
    d[2] = C::val(o.s);
}

template <class T>
void modelHlsToRgb(const T* s, T* d) {
    using C = Codes<T>;
    const Rgb o = modelInverse(C::deg(s[0]), C::unit(s[1]), C::unit(s[2]));
    d[0] = C::val(o.r);
    d[1] = C::val(o.g);
    d[2] = C::val(o.b);
}

// ---------------------------------------------------------------------------
// Sources: random samples plus a strip of corner colours.

template <class T>
std::vector<std::array<T, 3>> cornerPixels();

template <>
std::vector<std::array<Zor8u, 3>> cornerPixels<Zor8u>() {
    return {{0, 0, 0},       {255, 255, 255}, {128, 128, 128}, {255, 0, 0},   {0, 255, 0},     {0, 0, 255},
            {255, 255, 0},   {0, 255, 255},   {255, 0, 255},   {255, 0, 1},   {200, 200, 10},  {10, 200, 200},
            {200, 10, 200},  {1, 0, 0},       {127, 128, 128}, {255, 254, 0}, {170, 128, 255}, {85, 128, 255},
            {255, 128, 255}, {0, 128, 255},   {42, 200, 7},    {127, 0, 0},   {128, 0, 0},     {254, 255, 255}};
}
// 16-bit corners: the 8-bit ones times 257 (hue codes 43690 and 65535 are
// 240 and 360 degrees), 16s offset by -32768, plus neighbours of the ends.
template <class T>
std::vector<std::array<T, 3>> corners16() {
    std::vector<std::array<T, 3>> out;
    const int off = std::is_signed<T>::value ? 32768 : 0;
    for (const auto& c : cornerPixels<Zor8u>())
        out.push_back({T(c[0] * 257 - off), T(c[1] * 257 - off), T(c[2] * 257 - off)});
    out.push_back({T(65535 - off), T(0 - off), T(1 - off)});
    out.push_back({T(32767 - off), T(32768 - off), T(32768 - off)});
    return out;
}
template <>
std::vector<std::array<Zor16u, 3>> cornerPixels<Zor16u>() {
    return corners16<Zor16u>();
}
template <>
std::vector<std::array<Zor16s, 3>> cornerPixels<Zor16s>() {
    return corners16<Zor16s>();
}
template <>
std::vector<std::array<Zor32f, 3>> cornerPixels<Zor32f>() {
    const float e = 1.1920929e-7f;
    return {{0, 0, 0},
            {1, 1, 1},
            {0.5f, 0.5f, 0.5f},
            {1, 0, 0},
            {0, 1, 0},
            {0, 0, 1},
            {1, 1, 0},
            {0.5f, e, 0},
            {0.5f, 0.5f + e, 0.5f},
            {0.3f, 0.3f, 0.3f + e},
            {0.25f, 0.25f + 2 * e, 0.25f},
            {0.25f, 0.25f + 3 * e, 0.25f},
            {1, 0, 1e-9f},
            {1.0f / 6, 0.5f, 1},  // inverse: a sixth of a turn
            {0.5f, 0.5f, 1},
            {2.0f / 3, 0.5f, 1},
            {1, 0.75f, 0.5f},
            {0.75f, 0.2f, 0.9f},
            {0, 0.5f, 1}};
}

// Fills an image: the first row starts with the corner pixels, the rest random.
template <class T>
void fillSource(zt::Image<T>& img, std::uint32_t seed) {
    std::mt19937 rng(seed);
    const auto corners = cornerPixels<T>();
    std::size_t next = 0;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x) {
            for (int c = 0; c < 3; ++c) {
                if (next < corners.size())
                    img.at(x, y, c) = corners[next][c];
                else if constexpr (std::is_same<T, Zor32f>::value)
                    img.at(x, y, c) = std::uniform_real_distribution<float>(0.0f, 1.0f)(rng);
                else
                    img.at(x, y, c) = static_cast<T>(rng());
            }
            ++next;
        }
}

// ---------------------------------------------------------------------------
// RGB family

template <class T>
using Fn = ZorStatus (*)(const T*, int, T*, int, ZoriSize);

// Row padding must be a whole number of samples (steps are counted in samples).
template <class T>
constexpr int kSz = static_cast<int>(sizeof(T));

template <class T>
struct Member {
    const char* name;
    Fn<T> fn;
    void (*model)(const T*, T*);
    int channels;
};

// Expected destination: a copy of the original with channels 0..2 of each
// pixel replaced by the model's result.
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
void checkMember(const Member<T>& m) {
    SCOPED_TRACE(m.name);
    for (const ZoriSize roi : {ZoriSize{1, 1}, ZoriSize{24, 1}, ZoriSize{37, 11}, ZoriSize{5, 40}}) {
        zt::Image<T> src(roi.width, roi.height, m.channels, 3 * kSz<T>, 7);
        fillSource(src, 11 + roi.width);
        const zt::Image<T> dst0(roi.width, roi.height, m.channels, 5 * kSz<T>, 3);
        const zt::Image<T> want = expected(src, dst0, m.model);

        zt::Image<T> dst = dst0;
        ASSERT_EQ(m.fn(src.data(), src.step(), dst.data(), dst.step(), roi), zorStsOk);
        EXPECT_EQ(zt::firstDifference(dst.bytes(), want.bytes()), -1) << roi.width << "x" << roi.height;

        zt::Image<T> flipped = dst0;
        ASSERT_EQ(m.fn(src.flippedData(), src.flippedStep(), flipped.flippedData(), flipped.flippedStep(), roi),
                  zorStsOk);
        EXPECT_EQ(zt::firstDifference(flipped.bytes(), want.bytes()), -1) << "bottom-up";
    }
}

template <class T>
void checkTeams(const Member<T>& m) {
    SCOPED_TRACE(m.name);
    zt::Image<T> src(13, 29, m.channels, 2 * kSz<T>, 5);
    fillSource(src, 99);
    zt::expectTeamIndependent<zt::Image<T>>(
        [&] { return zt::Image<T>(13, 29, m.channels, kSz<T>, 6); },
        [&](zt::Image<T>& d) {
            ASSERT_EQ(m.fn(src.data(), src.step(), d.data(), d.step(), {13, 29}), zorStsOk);
        });
}

// Pointers before size, nothing written on an error, steps not validated.
template <class T>
void checkArguments(const Member<T>& m) {
    SCOPED_TRACE(m.name);
    zt::Image<T> src(4, 3, m.channels, kSz<T>, 1);
    fillSource(src, 1);
    const zt::Image<T> dst0(4, 3, m.channels, kSz<T>, 2);
    zt::Image<T> dst = dst0;
    EXPECT_EQ(m.fn(nullptr, src.step(), dst.data(), dst.step(), {0, 0}), zorStsNullPtr);
    EXPECT_EQ(m.fn(src.data(), src.step(), nullptr, dst.step(), {4, 3}), zorStsNullPtr);
    EXPECT_EQ(m.fn(src.data(), src.step(), dst.data(), dst.step(), {0, 3}), zorStsBadSize);
    EXPECT_EQ(m.fn(src.data(), src.step(), dst.data(), dst.step(), {4, -1}), zorStsBadSize);
    EXPECT_TRUE(dst == dst0);
    // A zero step converts the first row over and over.
    EXPECT_EQ(m.fn(src.data(), 0, dst.data(), 0, {4, 3}), zorStsOk);
    zt::Image<T> oneRow = dst0;
    EXPECT_EQ(m.fn(src.data(), src.step(), oneRow.data(), oneRow.step(), {4, 1}), zorStsOk);
    EXPECT_TRUE(dst == oneRow);
}

template <class T>
std::vector<Member<T>> members();

template <>
std::vector<Member<Zor8u>> members() {
    return {{"RGBToHLS_8u_C3R", zoriRGBToHLS_8u_C3R, modelRgbToHls<Zor8u>, 3},
            {"RGBToHLS_8u_AC4R", zoriRGBToHLS_8u_AC4R, modelRgbToHls<Zor8u>, 4},
            {"HLSToRGB_8u_C3R", zoriHLSToRGB_8u_C3R, modelHlsToRgb<Zor8u>, 3},
            {"HLSToRGB_8u_AC4R", zoriHLSToRGB_8u_AC4R, modelHlsToRgb<Zor8u>, 4}};
}
template <>
std::vector<Member<Zor16u>> members() {
    return {{"RGBToHLS_16u_C3R", zoriRGBToHLS_16u_C3R, modelRgbToHls<Zor16u>, 3},
            {"RGBToHLS_16u_AC4R", zoriRGBToHLS_16u_AC4R, modelRgbToHls<Zor16u>, 4},
            {"HLSToRGB_16u_C3R", zoriHLSToRGB_16u_C3R, modelHlsToRgb<Zor16u>, 3},
            {"HLSToRGB_16u_AC4R", zoriHLSToRGB_16u_AC4R, modelHlsToRgb<Zor16u>, 4}};
}
template <>
std::vector<Member<Zor16s>> members() {
    return {{"RGBToHLS_16s_C3R", zoriRGBToHLS_16s_C3R, modelRgbToHls<Zor16s>, 3},
            {"RGBToHLS_16s_AC4R", zoriRGBToHLS_16s_AC4R, modelRgbToHls<Zor16s>, 4},
            {"HLSToRGB_16s_C3R", zoriHLSToRGB_16s_C3R, modelHlsToRgb<Zor16s>, 3},
            {"HLSToRGB_16s_AC4R", zoriHLSToRGB_16s_AC4R, modelHlsToRgb<Zor16s>, 4}};
}
template <>
std::vector<Member<Zor32f>> members() {
    return {{"RGBToHLS_32f_C3R", zoriRGBToHLS_32f_C3R, modelRgbToHls<Zor32f>, 3},
            {"RGBToHLS_32f_AC4R", zoriRGBToHLS_32f_AC4R, modelRgbToHls<Zor32f>, 4},
            {"HLSToRGB_32f_C3R", zoriHLSToRGB_32f_C3R, modelHlsToRgb<Zor32f>, 3},
            {"HLSToRGB_32f_AC4R", zoriHLSToRGB_32f_AC4R, modelHlsToRgb<Zor32f>, 4}};
}

template <class T>
class RgbHls : public ::testing::Test {};
using SampleTypes = ::testing::Types<Zor8u, Zor16u, Zor16s, Zor32f>;
TYPED_TEST_SUITE(RgbHls, SampleTypes);

TYPED_TEST(RgbHls, MatchesModelOnRandomAndCornerColours) {
    for (const auto& m : members<TypeParam>()) checkMember(m);
}
TYPED_TEST(RgbHls, SameResultForEveryTeamSize) {
    for (const auto& m : members<TypeParam>()) checkTeams(m);
}
TYPED_TEST(RgbHls, ChecksPointersThenSizeAndNotSteps) {
    for (const auto& m : members<TypeParam>()) checkArguments(m);
}

// A 16-bit or float byte step that is not a multiple of the sample size is
// rounded down: the result equals that of the rounded step.
TYPED_TEST(RgbHls, OddByteStepRoundsDown) {
    if (sizeof(TypeParam) == 1) return;
    for (const auto& m : members<TypeParam>()) {
        SCOPED_TRACE(m.name);
        zt::Image<TypeParam> src(6, 5, m.channels, 4 * sizeof(TypeParam), 3);
        fillSource(src, 5);
        zt::Image<TypeParam> a(6, 5, m.channels, 4 * sizeof(TypeParam), 4), b = a;
        ASSERT_EQ(m.fn(src.data(), src.step() + 1, a.data(), a.step() + sizeof(TypeParam) - 1, {6, 5}), zorStsOk);
        ASSERT_EQ(m.fn(src.data(), src.step(), b.data(), b.step(), {6, 5}), zorStsOk);
        EXPECT_TRUE(a == b);
    }
}

// Pinned values of the rounding family.
TEST(RgbHlsValues, RoundingInFloatAndPrimaries) {
    Zor8u px[12] = {255, 0, 0, 0, 0, 255, 0, 255, 0, 255, 0, 1};
    Zor8u out[12];
    ASSERT_EQ(zoriRGBToHLS_8u_C3R(px, 12, out, 12, {4, 1}), zorStsOk);
    // 0.5 * 255 + 0.499999 rounds up to 128 in float before truncation.
    EXPECT_EQ(std::vector<int>(out, out + 3), (std::vector<int>{0, 128, 255}));
    EXPECT_EQ(out[3], 170);  // blue: 240 degrees
    EXPECT_EQ(out[6], 85);   // green: 120 degrees
    EXPECT_EQ(out[9], 255);  // a slightly negative hue wraps to just below 360
    const float e = 1.1920929e-7f;
    const float f[6] = {0.25f, 0.25f + e, 0.25f, 0.25f, 0.25f + 2 * e, 0.25f};
    float fo[6];
    ASSERT_EQ(zoriRGBToHLS_32f_C3R(f, 24, fo, 24, {2, 1}), zorStsOk);
    EXPECT_EQ(fo[2], 0.0f);  // channels within the float epsilon: achromatic
    EXPECT_EQ(fo[0], 0.0f);
    EXPECT_GT(fo[5], 0.0f);  // two epsilons apart: chromatic
}

// ---------------------------------------------------------------------------
// BGR family: one description per layout, shared checks.

// One side of a call: an interleaved image of n channels or n planes.
struct Side {
    bool planar;
    int n;
    std::vector<zt::Image<Zor8u>> img;
    Zor8u* ptrs[4] = {};
    bool nullArray = false;  // pass a null image pointer or plane array
    int nullPlane = -1;      // pass this plane pointer as null

    Side(bool planar_, int n_, int w, int h, std::uint32_t seed) : planar(planar_), n(n_) {
        for (int k = 0; k < (planar ? n : 1); ++k) img.emplace_back(w, h, planar ? 1 : n, 5, seed + k);
    }
    Zor8u& at(int x, int y, int k) { return planar ? img[k].at(x, y) : img[0].at(x, y, k); }
    int step(bool flip) const { return flip ? img[0].flippedStep() : img[0].step(); }
    Zor8u* const* planes(bool flip) {
        for (int k = 0; k < n; ++k) ptrs[k] = k == nullPlane ? nullptr : flip ? img[k].flippedData() : img[k].data();
        return nullArray ? nullptr : ptrs;
    }
    Zor8u* data(bool flip) { return nullArray ? nullptr : flip ? img[0].flippedData() : img[0].data(); }
    bool operator==(const Side& o) const { return img == o.img; }
};

template <class P>
P sideArg(Side& s, bool flip) {
    if constexpr (std::is_same<P, const Zor8u*>::value || std::is_same<P, Zor8u*>::value)
        return s.data(flip);
    else
        return reinterpret_cast<P>(s.planes(flip));
}

using BgrCall = std::function<ZorStatus(Side&, int, Side&, int, ZoriSize, bool)>;

template <class SP, class DP>
BgrCall bgrCall(ZorStatus (*fn)(SP, int, DP, int, ZoriSize)) {
    return [fn](Side& s, int ss, Side& d, int ds, ZoriSize roi, bool flip) {
        return fn(sideArg<SP>(s, flip), ss, sideArg<DP>(d, flip), ds, roi);
    };
}

struct BgrMember {
    const char* name;
    BgrCall call;
    bool forward;
    bool srcPlanar;
    int srcN;
    bool dstPlanar;
    int dstN;
    bool rounds;  // the interleaved BGRA member rounds, the others floor
    bool copiesAlpha;
};

std::vector<BgrMember> bgrMembers() {
    return {
        {"BGRToHLS_8u_AC4R", bgrCall(zoriBGRToHLS_8u_AC4R), true, false, 4, false, 4, true, false},
        {"BGRToHLS_8u_AP4R", bgrCall(zoriBGRToHLS_8u_AP4R), true, true, 4, true, 4, false, true},
        {"BGRToHLS_8u_AP4C4R", bgrCall(zoriBGRToHLS_8u_AP4C4R), true, true, 4, false, 4, false, true},
        {"BGRToHLS_8u_AC4P4R", bgrCall(zoriBGRToHLS_8u_AC4P4R), true, false, 4, true, 4, false, true},
        {"BGRToHLS_8u_P3R", bgrCall(zoriBGRToHLS_8u_P3R), true, true, 3, true, 3, false, false},
        {"BGRToHLS_8u_P3C3R", bgrCall(zoriBGRToHLS_8u_P3C3R), true, true, 3, false, 3, false, false},
        {"BGRToHLS_8u_C3P3R", bgrCall(zoriBGRToHLS_8u_C3P3R), true, false, 3, true, 3, false, false},
        {"HLSToBGR_8u_AP4R", bgrCall(zoriHLSToBGR_8u_AP4R), false, true, 4, true, 4, false, true},
        {"HLSToBGR_8u_AP4C4R", bgrCall(zoriHLSToBGR_8u_AP4C4R), false, true, 4, false, 4, false, true},
        {"HLSToBGR_8u_AC4P4R", bgrCall(zoriHLSToBGR_8u_AC4P4R), false, false, 4, true, 4, false, true},
        {"HLSToBGR_8u_P3R", bgrCall(zoriHLSToBGR_8u_P3R), false, true, 3, true, 3, false, false},
        {"HLSToBGR_8u_P3C3R", bgrCall(zoriHLSToBGR_8u_P3C3R), false, true, 3, false, 3, false, false},
        {"HLSToBGR_8u_C3P3R", bgrCall(zoriHLSToBGR_8u_C3P3R), false, false, 3, true, 3, false, false},
    };
}

Side bgrSource(const BgrMember& m, int w, int h, std::uint32_t seed) {
    Side s(m.srcPlanar, m.srcN, w, h, seed);
    const auto corners = cornerPixels<Zor8u>();
    std::size_t next = 0;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x, ++next)
            if (next < corners.size())
                for (int k = 0; k < 3; ++k) s.at(x, y, k) = corners[next][k];
    return s;
}

Side bgrExpected(const BgrMember& m, Side& src, Side dst, int w, int h) {
    auto code = [&](float x) { return static_cast<Zor8u>(m.rounds ? rounded(x) : floored(x)); };
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const float c0 = src.at(x, y, 0), c1 = src.at(x, y, 1), c2 = src.at(x, y, 2);
            if (m.forward) {
                const Hls o = modelForward(c2 / 255, c1 / 255, c0 / 255, false);
                dst.at(x, y, 0) = code(o.h * 255 / 360);
                dst.at(x, y, 1) = code(o.l * 255);
                dst.at(x, y, 2) = code(o.s * 255);
            } else {
                const Rgb o = modelInverse(c0 * 360 / 255, c1 / 255, c2 / 255);
                dst.at(x, y, 0) = code(o.b * 255);
                dst.at(x, y, 1) = code(o.g * 255);
                dst.at(x, y, 2) = code(o.r * 255);
            }
            if (m.copiesAlpha) dst.at(x, y, 3) = src.at(x, y, 3);
        }
    return dst;
}

TEST(BgrHls, EveryLayoutMatchesModelAndHandlesAlpha) {
    for (const auto& m : bgrMembers()) {
        SCOPED_TRACE(m.name);
        for (const ZoriSize roi : {ZoriSize{1, 1}, ZoriSize{31, 9}, ZoriSize{6, 33}}) {
            Side src = bgrSource(m, roi.width, roi.height, 40 + roi.height);
            const Side dst0(m.dstPlanar, m.dstN, roi.width, roi.height, 70);
            const Side want = bgrExpected(m, src, dst0, roi.width, roi.height);
            // (These members reject negative steps, so there is no bottom-up view.)
            Side dst = dst0;
            ASSERT_EQ(m.call(src, src.step(false), dst, dst.step(false), roi, false), zorStsOk);
            for (std::size_t k = 0; k < dst.img.size(); ++k)
                EXPECT_EQ(zt::firstDifference(dst.img[k].bytes(), want.img[k].bytes()), -1) << "image " << k;
        }
    }
}

TEST(BgrHls, SameResultForEveryTeamSize) {
    for (const auto& m : bgrMembers()) {
        SCOPED_TRACE(m.name);
        Side src = bgrSource(m, 11, 23, 5);
        zt::expectTeamIndependent<Side>(
            [&] { return Side(m.dstPlanar, m.dstN, 11, 23, 9); },
            [&](Side& d) {
                ASSERT_EQ(m.call(src, src.step(false), d, d.step(false), {11, 23}, false), zorStsOk);
            });
    }
}

// Planar and mixed members: pointers and every plane, then steps, then size.
// The interleaved BGRA member: pointers, size, then steps. Nothing is written
// on an error.
TEST(BgrHls, CheckOrder) {
    for (const auto& m : bgrMembers()) {
        SCOPED_TRACE(m.name);
        Side src = bgrSource(m, 4, 2, 1);
        const Side dst0(m.dstPlanar, m.dstN, 4, 2, 2);
        Side dst = dst0;
        const int ss = src.step(false), ds = dst.step(false);
        auto run = [&](int sstep, int dstep, ZoriSize roi) { return m.call(src, sstep, dst, dstep, roi, false); };
        for (Side* side : {&src, &dst}) {
            side->nullArray = true;
            EXPECT_EQ(run(0, 0, {0, 0}), zorStsNullPtr);
            side->nullArray = false;
            for (int k = 0; side->planar && k < side->n; ++k) {
                side->nullPlane = k;
                EXPECT_EQ(run(0, -1, {0, 0}), zorStsNullPtr) << "plane " << k;
                side->nullPlane = -1;
            }
        }
        const bool sizeFirst = !m.srcPlanar && !m.dstPlanar;
        EXPECT_EQ(run(0, ds, {0, 0}), sizeFirst ? zorStsBadSize : zorStsStepErr);
        EXPECT_EQ(run(ss, -ds, {4, -2}), sizeFirst ? zorStsBadSize : zorStsStepErr);
        EXPECT_EQ(run(ss, 0, {4, 2}), zorStsStepErr);
        EXPECT_EQ(run(-ss, ds, {4, 2}), zorStsStepErr);
        EXPECT_EQ(run(ss, ds, {0, 2}), zorStsBadSize);
        EXPECT_EQ(run(ss, ds, {4, 0}), zorStsBadSize);
        EXPECT_TRUE(dst == dst0);
        EXPECT_EQ(run(ss, ds, {4, 2}), zorStsOk);
        EXPECT_FALSE(dst == dst0);
    }
}

// Pinned values: the planar layouts floor (127.5 gives 127) where the
// interleaved BGRA member rounds (128), and blue is 240 degrees in both.
TEST(BgrHls, FlooringVersusRounding) {
    Zor8u b[2] = {0, 255}, g[2] = {0, 0}, r[2] = {255, 0};
    const Zor8u* src[3] = {b, g, r};
    Zor8u h[2], l[2], s[2];
    Zor8u* dst[3] = {h, l, s};
    ASSERT_EQ(zoriBGRToHLS_8u_P3R(src, 2, dst, 2, {2, 1}), zorStsOk);
    EXPECT_EQ(h[0], 0);
    EXPECT_EQ(l[0], 127);
    EXPECT_EQ(s[0], 255);
    EXPECT_EQ(h[1], 170);
    Zor8u bgra[8] = {0, 0, 255, 9, 255, 0, 0, 9}, hlsa[8] = {1, 1, 1, 77, 1, 1, 1, 78};
    ASSERT_EQ(zoriBGRToHLS_8u_AC4R(bgra, 8, hlsa, 8, {2, 1}), zorStsOk);
    EXPECT_EQ(std::vector<int>(hlsa, hlsa + 8), (std::vector<int>{0, 128, 255, 77, 170, 128, 255, 78}));
    // Inverse of H 0, L 100, S 2: red is m2 = 100.78 code units, floored to
    // 100 here but rounded to 101 by the RGB family.
    Zor8u hi[1] = {0}, li[1] = {100}, si[1] = {2};
    const Zor8u* isrc[3] = {hi, li, si};
    Zor8u ob[1], og[1], orr[1];
    Zor8u* idst[3] = {ob, og, orr};
    ASSERT_EQ(zoriHLSToBGR_8u_P3R(isrc, 1, idst, 1, {1, 1}), zorStsOk);
    Zor8u rgbIn[3] = {0, 100, 2}, rgbOut[3];
    ASSERT_EQ(zoriHLSToRGB_8u_C3R(rgbIn, 3, rgbOut, 3, {1, 1}), zorStsOk);
    EXPECT_EQ(orr[0], 100);
    EXPECT_EQ(rgbOut[0], 101);
}

}  // namespace
