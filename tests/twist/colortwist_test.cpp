// Colour twist: every layout and type against a per-pixel model of the
// matrix product (single precision, constant added right after the first
// product) and of the conversion (saturate, nearest with ties to even, NaN
// to the bottom of the range), on random images and chosen edge values.
#include "support/testutil.h"
#include "twist/twist_support.h"

#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace {

using Mat = float[3][4];

// ---------------------------------------------------------------------------
// The functions of one sample type.

template <class T>
struct Fns {
    ZorStatus (*c3)(const T*, int, T*, int, ZoriSize, const Zor32f[3][4]);
    ZorStatus (*c3i)(T*, int, ZoriSize, const Zor32f[3][4]);
    ZorStatus (*ac4)(const T*, int, T*, int, ZoriSize, const Zor32f[3][4]);
    ZorStatus (*ac4i)(T*, int, ZoriSize, const Zor32f[3][4]);
    ZorStatus (*p3)(const T* const[3], int, T* const[3], int, ZoriSize, const Zor32f[3][4]);
    ZorStatus (*p3i)(T* const[3], int, ZoriSize, const Zor32f[3][4]);
};

template <class T>
Fns<T> fns();
template <>
Fns<Zor8u> fns() {
    return {zoriColorTwist32f_8u_C3R,  zoriColorTwist32f_8u_C3IR, zoriColorTwist32f_8u_AC4R,
            zoriColorTwist32f_8u_AC4IR, zoriColorTwist32f_8u_P3R,  zoriColorTwist32f_8u_IP3R};
}
template <>
Fns<Zor8s> fns() {
    return {zoriColorTwist32f_8s_C3R,  zoriColorTwist32f_8s_C3IR, zoriColorTwist32f_8s_AC4R,
            zoriColorTwist32f_8s_AC4IR, zoriColorTwist32f_8s_P3R,  zoriColorTwist32f_8s_IP3R};
}
template <>
Fns<Zor16u> fns() {
    return {zoriColorTwist32f_16u_C3R,  zoriColorTwist32f_16u_C3IR, zoriColorTwist32f_16u_AC4R,
            zoriColorTwist32f_16u_AC4IR, zoriColorTwist32f_16u_P3R,  zoriColorTwist32f_16u_IP3R};
}
template <>
Fns<Zor16s> fns() {
    return {zoriColorTwist32f_16s_C3R,  zoriColorTwist32f_16s_C3IR, zoriColorTwist32f_16s_AC4R,
            zoriColorTwist32f_16s_AC4IR, zoriColorTwist32f_16s_P3R,  zoriColorTwist32f_16s_IP3R};
}
template <>
Fns<Zor32f> fns() {
    return {zoriColorTwist_32f_C3R,  zoriColorTwist_32f_C3IR, zoriColorTwist_32f_AC4R,
            zoriColorTwist_32f_AC4IR, zoriColorTwist_32f_P3R,  zoriColorTwist_32f_IP3R};
}

// ---------------------------------------------------------------------------
// Model

template <class T>
T convert(float y) {
    if constexpr (std::is_same_v<T, float>) {
        return y;
    } else {
        const float lo = std::numeric_limits<T>::min(), hi = std::numeric_limits<T>::max();
        if (y >= hi) return std::numeric_limits<T>::max();
        if (!(y > lo)) return std::numeric_limits<T>::min();
        // Add (or subtract) one half, truncate, and step an odd result of an
        // exact tie toward zero.
        const float s = y < 0 ? y - 0.5f : y + 0.5f;
        long n = static_cast<long>(std::trunc(s));
        if (n % 2 != 0 && static_cast<float>(n) == s) n += n > 0 ? -1 : 1;
        return static_cast<T>(n);
    }
}

template <class T>
struct TwistModel {
    const Mat& m;
    void operator()(const T in[3], T out[3]) const {
        const float x0 = in[0], x1 = in[1], x2 = in[2];
        for (int c = 0; c < 3; ++c) {
            float y = m[c][0] * x0;
            y = y + m[c][3];
            y = y + m[c][1] * x1;
            y = y + m[c][2] * x2;
            out[c] = convert<T>(y);
        }
    }
};

// Random samples: the whole range of integer types with extra weight on the
// ends; floats over a wide range with infinities, NaN and negative zero.
template <class T>
std::function<T()> sampleGen(std::mt19937& rng) {
    if constexpr (std::is_same_v<T, float>) {
        return [&rng] {
            const float specials[] = {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
                                      -std::numeric_limits<float>::infinity(), -0.0f, 1e30f, 0.5f};
            const unsigned k = rng() % 64;
            if (k < 6) return specials[k];
            return std::uniform_real_distribution<float>(-1000.0f, 70000.0f)(rng);
        };
    } else {
        return [&rng] {
            const unsigned k = rng() % 16;
            if (k == 0) return std::numeric_limits<T>::min();
            if (k == 1) return std::numeric_limits<T>::max();
            return static_cast<T>(std::uniform_int_distribution<int>(std::numeric_limits<T>::min(),
                                                                     std::numeric_limits<T>::max())(rng));
        };
    }
}

// Span of the type's values for scaling the random constants.
template <class T>
float span() {
    if constexpr (std::is_same_v<T, float>) return 1000.0f;
    else return static_cast<float>(std::numeric_limits<T>::max()) - static_cast<float>(std::numeric_limits<T>::min());
}

// Runs all six layouts of type T with matrix m on random images of several
// sizes and compares whole buffers with the model.
template <class T>
void checkAllLayouts(const Mat& m, std::uint32_t seed) {
    const Fns<T> f = fns<T>();
    const TwistModel<T> model{m};
    std::mt19937 rng(seed);
    auto gen = sampleGen<T>(rng);
    const ZoriSize sizes[] = {{1, 1}, {7, 3}, {33, 5}, {64, 40}};
    for (const ZoriSize roi : sizes) {
        SCOPED_TRACE(testing::Message() << roi.width << "x" << roi.height);
        for (int ch : {3, 4}) {
            auto run = ch == 3 ? f.c3 : f.ac4;
            auto runI = ch == 3 ? f.c3i : f.ac4i;
            zt::Image<T> src(roi.width, roi.height, ch, tw::padFor<T>(3), seed + 1);
            tw::fill(src, gen);
            const zt::Image<T> srcCopy = src;
            zt::Image<T> dst(roi.width, roi.height, ch, tw::padFor<T>(5), seed + 2);
            zt::Image<T> want = dst;
            tw::modelInterleaved(src, want, model);
            ASSERT_EQ(run(src.data(), src.step(), dst.data(), dst.step(), roi, m), zorStsOk);
            EXPECT_TRUE(tw::same(dst, want)) << ch << " channels";
            EXPECT_TRUE(src == srcCopy);

            zt::Image<T> inPlace = src;
            want = src;
            tw::modelInterleaved(src, want, model);
            ASSERT_EQ(runI(inPlace.data(), inPlace.step(), roi, m), zorStsOk);
            EXPECT_TRUE(tw::same(inPlace, want)) << ch << " channels in place";
        }
        zt::Planes3<T> src(roi.width, roi.height, tw::padFor<T>(2), seed + 3);
        tw::fill(src, gen);
        zt::Planes3<T> dst(roi.width, roi.height, tw::padFor<T>(4), seed + 4);
        zt::Planes3<T> want = dst;
        tw::modelPlanar(src, want, model);
        ASSERT_EQ(f.p3(src.cptr(), src.step(), dst.ptr(), dst.step(), roi, m), zorStsOk);
        EXPECT_TRUE(tw::same(dst, want)) << "planar";

        zt::Planes3<T> inPlace = src;
        want = src;
        tw::modelPlanar(src, want, model);
        ASSERT_EQ(f.p3i(inPlace.ptr(), inPlace.step(), roi, m), zorStsOk);
        EXPECT_TRUE(tw::same(inPlace, want)) << "planar in place";
    }
}

template <class T>
class ColorTwist : public testing::Test {};
using Types = testing::Types<Zor8u, Zor8s, Zor16u, Zor16s, Zor32f>;
TYPED_TEST_SUITE(ColorTwist, Types);

TYPED_TEST(ColorTwist, RandomMatricesMatchModel) {
    using T = TypeParam;
    std::mt19937 rng(11);
    std::uniform_real_distribution<float> weight(-1.25f, 1.25f), constant(-0.3f * span<T>(), 0.3f * span<T>());
    for (int k = 0; k < 3; ++k) {
        Mat m;
        for (auto& row : m) {
            for (int c = 0; c < 3; ++c) row[c] = weight(rng);
            row[3] = constant(rng);
        }
        checkAllLayouts<T>(m, 100 + k);
    }
}

// Weights and constants that put many results exactly on .5.
TYPED_TEST(ColorTwist, HalfwayResultsRoundToEven) {
    using T = TypeParam;
    const Mat m = {{0.5f, 1.5f, -0.5f, 0.5f}, {-1.0f, 0.5f, 0.0f, -0.5f}, {0.25f, -0.75f, 0.5f, 1.5f}};
    checkAllLayouts<T>(m, 7);
}

TYPED_TEST(ColorTwist, IdentityKeepsIntegerImages) {
    using T = TypeParam;
    if constexpr (!std::is_same_v<T, float>) {
        const Mat id = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}};
        zt::Image<T> src(19, 7, 3, 0, 3);
        zt::Image<T> dst = src;
        dst.fillSamples([] { return T(0); });
        ASSERT_EQ(fns<T>().c3(src.data(), src.step(), dst.data(), dst.step(), {19, 7}, id), zorStsOk);
        EXPECT_TRUE(dst == src);
    }
}

// The constant is added right after the first product: with x = (1, 1, 64)
// and t = (1, 1, -2^18, 2^24) the sum is ((1 + 2^24) + 1) - 2^24 = 0 in
// single precision, where any other order gives 2.
TYPED_TEST(ColorTwist, EvaluationOrder) {
    using T = TypeParam;
    const Mat m = {{1, 1, -262144.0f, 16777216.0f}, {1, 1, -262144.0f, 16777216.0f}, {0, 0, 0, 7}};
    zt::Image<T> src(1, 1, 3, 0, 1), dst(1, 1, 3, 0, 2);
    src.at(0, 0, 0) = 1;
    src.at(0, 0, 1) = 1;
    src.at(0, 0, 2) = 64;
    ASSERT_EQ(fns<T>().c3(src.data(), src.step(), dst.data(), dst.step(), {1, 1}, m), zorStsOk);
    EXPECT_EQ(dst.at(0, 0, 0), T(0));
    EXPECT_EQ(dst.at(0, 0, 1), T(0));
    EXPECT_EQ(dst.at(0, 0, 2), T(7));
}

// Every value of the integer types plus fractions at, just below and just
// above one half (and other fractions).
TYPED_TEST(ColorTwist, EveryValuePlusFractions) {
    using T = TypeParam;
    if constexpr (!std::is_same_v<T, float>) {
        zt::Image<T> src(256, 256, 3, 0, 1);
        int v = 0;
        for (int y = 0; y < 256; ++y)
            for (int x = 0; x < 256; ++x, ++v) {
                src.at(x, y, 0) = static_cast<T>(v);  // 8-bit types: each value 256 times
                src.at(x, y, 1) = static_cast<T>(v);
                src.at(x, y, 2) = static_cast<T>(v);
            }
        const float fractions[] = {0.5f, -0.5f, 0.5f - 1.0f / 512, 0.5f + 1.0f / 512, -0.5f - 1.0f / 512,
                                   0.49999997f, 0.25f, -0.75f, 1.5f};
        for (float f : fractions) {
            const Mat m = {{1, 0, 0, f}, {0, -1, 0, f}, {0, 0, 0.5f, f}};
            zt::Image<T> dst(256, 256, 3, 0, 2);
            zt::Image<T> want = dst;
            tw::modelInterleaved(src, want, TwistModel<T>{m});
            ASSERT_EQ(fns<T>().c3(src.data(), src.step(), dst.data(), dst.step(), {256, 256}, m), zorStsOk);
            EXPECT_TRUE(tw::same(dst, want)) << "fraction " << f;
        }
    }
}

// Results given by the constant column alone, one per channel.
template <class T>
void expectResults(std::initializer_list<std::pair<float, double>> cases) {
    for (const auto& [y, want] : cases) {
        const Mat m = {{0, 0, 0, y}, {0, 0, 0, y}, {0, 0, 0, y}};
        zt::Image<T> img(1, 1, 3, 0, 5);
        const zt::Image<T> src = img;
        zt::Image<T> dst(1, 1, 3, 0, 6);
        ASSERT_EQ(fns<T>().c3(src.data(), src.step(), dst.data(), dst.step(), {1, 1}, m), zorStsOk);
        for (int c = 0; c < 3; ++c) EXPECT_EQ(double(dst.at(0, 0, c)), want) << "y = " << y;
    }
}

TEST(ColorTwistConversion, EdgeValues) {
    const float nan = std::numeric_limits<float>::quiet_NaN(), inf = std::numeric_limits<float>::infinity();
    expectResults<Zor8u>({{2.5f, 2}, {3.5f, 4}, {254.5f, 254}, {254.6f, 255}, {-0.3f, 0}, {0.5f, 0}, {1.5f, 2},
                          {0.49999997f, 0}, {255.0f, 255}, {1e9f, 255}, {nan, 0}, {inf, 255}, {-inf, 0}});
    expectResults<Zor8s>({{-2.5f, -2}, {-127.5f, -128}, {127.0f, 127}, {126.5f, 126}, {-0.5f, 0}, {-1.5f, -2},
                          {127.5f, 127}, {-128.5f, -128}, {nan, -128}, {-1e9f, -128}});
    expectResults<Zor16u>({{65534.5f, 65534}, {65533.5f, 65534}, {65535.5f, 65535}, {0.5f, 0}, {nan, 0}});
    expectResults<Zor16s>({{-32767.5f, -32768}, {-32766.5f, -32766}, {32766.5f, 32766}, {32767.9f, 32767},
                           {nan, -32768}, {inf, 32767}});
    expectResults<Zor32f>({{2.5f, 2.5}, {-1e9f, -1e9f}, {1e30f, 1e30f}});
    const Mat m = {{0, 0, 0, nan}, {0, 0, 0, inf}, {0, 0, 0, -inf}};
    Zor32f px[3] = {1, 2, 3}, out[3];
    ASSERT_EQ(zoriColorTwist_32f_C3R(px, 12, out, 12, {1, 1}, m), zorStsOk);
    EXPECT_TRUE(std::isnan(out[0]));
    EXPECT_EQ(out[1], inf);
    EXPECT_EQ(out[2], -inf);
}

// ---------------------------------------------------------------------------
// Checks: pointers, then size, then steps; nothing written on failure.

TYPED_TEST(ColorTwist, CheckOrderAndNothingWritten) {
    using T = TypeParam;
    const Fns<T> f = fns<T>();
    const Mat m = {{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}};
    const Zor32f(*noMat)[4] = nullptr;
    zt::Image<T> src(4, 3, 4, 0, 1), dst(4, 3, 4, 0, 2);
    const zt::Image<T> srcCopy = src, dstCopy = dst;
    const int ss = src.step(), ds = dst.step();
    const ZoriSize roi{4, 3}, noWidth{0, 3}, noHeight{4, -1};
    for (auto run : {f.c3, f.ac4}) {
        EXPECT_EQ(run(nullptr, ss, dst.data(), ds, roi, m), zorStsNullPtr);
        EXPECT_EQ(run(src.data(), ss, nullptr, ds, noWidth, m), zorStsNullPtr);
        EXPECT_EQ(run(src.data(), ss, dst.data(), ds, roi, noMat), zorStsNullPtr);
        EXPECT_EQ(run(src.data(), 0, dst.data(), 0, noWidth, m), zorStsBadSize);
        EXPECT_EQ(run(src.data(), ss, dst.data(), ds, noHeight, m), zorStsBadSize);
        EXPECT_EQ(run(src.data(), 0, dst.data(), ds, roi, m), zorStsStepErr);
        EXPECT_EQ(run(src.data(), ss, dst.data(), -ds, roi, m), zorStsStepErr);
    }
    for (auto run : {f.c3i, f.ac4i}) {
        EXPECT_EQ(run(nullptr, ds, roi, m), zorStsNullPtr);
        EXPECT_EQ(run(dst.data(), ds, roi, noMat), zorStsNullPtr);
        EXPECT_EQ(run(dst.data(), 0, noWidth, m), zorStsBadSize);
        EXPECT_EQ(run(dst.data(), 0, roi, m), zorStsStepErr);
        EXPECT_EQ(run(dst.data(), -ds, roi, m), zorStsStepErr);
    }
    zt::Planes3<T> ps(4, 3, 0, 3), pd(4, 3, 0, 6);
    const zt::Planes3<T> pdCopy = pd;
    for (int i = 0; i < 3; ++i) {
        const T* s[3] = {ps.p[0].data(), ps.p[1].data(), ps.p[2].data()};
        T* d[3] = {pd.p[0].data(), pd.p[1].data(), pd.p[2].data()};
        s[i] = nullptr;
        EXPECT_EQ(f.p3(s, ps.step(), pd.ptr(), pd.step(), noWidth, m), zorStsNullPtr);
        d[i] = nullptr;
        EXPECT_EQ(f.p3(ps.cptr(), ps.step(), d, pd.step(), noWidth, m), zorStsNullPtr);
        EXPECT_EQ(f.p3i(d, pd.step(), noWidth, m), zorStsNullPtr);
    }
    EXPECT_EQ(f.p3(nullptr, ps.step(), pd.ptr(), pd.step(), roi, m), zorStsNullPtr);
    EXPECT_EQ(f.p3(ps.cptr(), ps.step(), pd.ptr(), pd.step(), roi, noMat), zorStsNullPtr);
    EXPECT_EQ(f.p3(ps.cptr(), 0, pd.ptr(), 0, noHeight, m), zorStsBadSize);
    EXPECT_EQ(f.p3(ps.cptr(), ps.step(), pd.ptr(), 0, roi, m), zorStsStepErr);
    EXPECT_EQ(f.p3i(pd.ptr(), -pd.step(), roi, m), zorStsStepErr);
    EXPECT_EQ(f.p3i(nullptr, pd.step(), roi, m), zorStsNullPtr);
    EXPECT_TRUE(src == srcCopy);
    EXPECT_TRUE(dst == dstCopy);
    EXPECT_TRUE(pd == pdCopy);
}

// ---------------------------------------------------------------------------
// Packed float C3 images are converted as one run; same result as rows.

TEST(ColorTwist32f, PackedC3RowsGiveTheSameResult) {
    const Mat m = {{0.25f, -1.5f, 2.0f, 3.0f}, {1.0f, 1.0f, 1.0f, -7.5f}, {0.1f, 0.2f, 0.3f, 0.4f}};
    for (int pad : {0, 4}) {
        zt::Image<float> src(13, 6, 3, pad, 1), dst(13, 6, 3, pad, 2);
        std::mt19937 rng(3);
        std::uniform_real_distribution<float> d(-500.0f, 500.0f);
        src.fillSamples([&] { return d(rng); });
        zt::Image<float> want = dst;
        tw::modelInterleaved(src, want, TwistModel<float>{m});
        ASSERT_EQ(zoriColorTwist_32f_C3R(src.data(), src.step(), dst.data(), dst.step(), {13, 6}, m), zorStsOk);
        EXPECT_TRUE(tw::same(dst, want)) << "pad " << pad;
        zt::Image<float> wantInPlace = src;
        tw::modelInterleaved(src, wantInPlace, TwistModel<float>{m});
        ASSERT_EQ(zoriColorTwist_32f_C3IR(src.data(), src.step(), {13, 6}, m), zorStsOk);
        EXPECT_TRUE(tw::same(src, wantInPlace)) << "in place, pad " << pad;
    }
}

// ---------------------------------------------------------------------------
// Four-channel float twist with a 4x4 matrix.

using Mat4 = float[4][4];

void modelC4(const Mat4& t, const float* in, float* out) {
    for (int c = 0; c < 4; ++c) {
        float y = t[c][0] * in[0];
        y = y + t[c][1] * in[1];
        y = y + t[c][2] * in[2];
        y = y + t[c][3] * in[3];
        out[c] = y;
    }
}

const Mat4 kMat4 = {{0.5f, -1.25f, 2.0f, 0.125f}, {1, 1, 1, 1}, {-3, 0.75f, 0.1f, 0.2f}, {0, 0, 0, 1}};

TEST(ColorTwist32fC4, RowsMatchModel) {
    std::mt19937 rng(5);
    std::uniform_real_distribution<float> d(-1e4f, 1e4f);
    for (const ZoriSize roi : {ZoriSize{1, 1}, ZoriSize{9, 4}, ZoriSize{40, 23}}) {
        for (int pad : {0, 8}) {
            zt::Image<float> src(roi.width, roi.height, 4, pad, 1), dst(roi.width, roi.height, 4, pad + 4, 2);
            src.fillSamples([&] { return d(rng); });
            zt::Image<float> want = dst;
            for (int y = 0; y < roi.height; ++y)
                for (int x = 0; x < roi.width; ++x) modelC4(kMat4, &src.at(x, y), &want.at(x, y));
            ASSERT_EQ(zoriColorTwist_32f_C4R(src.data(), src.step(), dst.data(), dst.step(), roi, kMat4), zorStsOk);
            EXPECT_TRUE(tw::same(dst, want));
        }
    }
}

// Steps of four times the width (one float per pixel, not four) turn the call
// into one run of width x height consecutive pixels from the first pixel.
TEST(ColorTwist32fC4, StepOfFourTimesWidthConvertsOneRun) {
    const int w = 5, h = 3;
    zt::Image<float> src(w * h, 1, 4, 0, 1), dst(w * h, 1, 4, 0, 2);
    std::mt19937 rng(9);
    std::uniform_real_distribution<float> d(-100.0f, 100.0f);
    src.fillSamples([&] { return d(rng); });
    zt::Image<float> want = dst;
    for (int i = 0; i < w * h; ++i) modelC4(kMat4, &src.at(i, 0), &want.at(i, 0));
    ASSERT_EQ(zoriColorTwist_32f_C4R(src.data(), 4 * w, dst.data(), 4 * w, {w, h}, kMat4), zorStsOk);
    EXPECT_TRUE(tw::same(dst, want));
}

TEST(ColorTwist32fC4, Checks) {
    zt::Image<float> src(3, 2, 4, 0, 1), dst(3, 2, 4, 0, 2);
    const zt::Image<float> dstCopy = dst;
    const Zor32f(*noMat)[4] = nullptr;
    EXPECT_EQ(zoriColorTwist_32f_C4R(nullptr, 48, dst.data(), 48, {3, 2}, kMat4), zorStsNullPtr);
    EXPECT_EQ(zoriColorTwist_32f_C4R(src.data(), 48, dst.data(), 48, {0, 2}, noMat), zorStsNullPtr);
    EXPECT_EQ(zoriColorTwist_32f_C4R(src.data(), 0, dst.data(), 0, {0, 2}, kMat4), zorStsBadSize);
    EXPECT_EQ(zoriColorTwist_32f_C4R(src.data(), 48, dst.data(), -48, {3, 2}, kMat4), zorStsStepErr);
    EXPECT_TRUE(dst == dstCopy);
}

}  // namespace
