// Colour twist and gamma correction: every form of a function (C3, AC4, P3,
// each also in place) on padded and on contiguous images against a per-pixel
// model, comparing whole buffers (alpha, padding, guard bytes); the shared
// check order; the 4x4 float twist; the 16u gamma table and its allocation.
#include "core/memory.h"
#include "support/testutil.h"
#include "twist/gamma_tables.h"

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <utility>

namespace {

// Interleaved with 3 or 4 channels (layout 3, 4) or three planes sharing one
// step (layout 0); arg() is what a function takes.
template <class T>
struct Buf {
    std::vector<zt::Image<T>> im;
    T* planes[3];
    Buf(int layout, int w, int h, int pad, std::uint32_t seed) {
        for (int k = 0; k < (layout ? 1 : 3); ++k) im.emplace_back(w, h, layout ? layout : 1, pad, seed + k);
    }
    T& at(int x, int y, int k) { return im.size() == 1 ? im[0].at(x, y, k) : im[k].at(x, y); }
    void* arg() {
        for (std::size_t k = 0; k < im.size(); ++k) planes[k] = im[k].data();
        return im.size() == 1 ? static_cast<void*>(planes[0]) : planes;
    }
    int step() const { return im[0].step(); }
    bool operator==(const Buf& o) const { return im == o.im; }
};

// One exported form: run(src, srcStep, dst, dstStep, roi); the in-place
// forms take dst and dstStep only.
template <class T>
struct Form {
    std::string name;
    int layout;
    bool inPlace;
    std::function<ZorStatus(void*, int, void*, int, ZoriSize)> run;
};

template <class T, int Layout, bool InPlace, class F, class... V>
Form<T> form(std::string name, F fn, V... v) {
    using P = std::conditional_t<Layout == 0, T* const*, T*>;
    return {name, Layout, InPlace, [=](void* s, int ss, void* d, int ds, ZoriSize r) {
                if constexpr (InPlace)
                    return fn(static_cast<P>(d), ds, r, v...);
                else
                    return fn(static_cast<P>(s), ss, static_cast<P>(d), ds, r, v...);
            }};
}

template <class T, class F1, class F2, class F3, class F4, class F5, class F6, class... V>
std::vector<Form<T>> forms(std::string p, F1 c3, F2 c3i, F3 ac4, F4 ac4i, F5 p3, F6 p3i, V... v) {
    return {form<T, 3, false>(p + "C3R", c3, v...),   form<T, 3, true>(p + "C3IR", c3i, v...),
            form<T, 4, false>(p + "AC4R", ac4, v...), form<T, 4, true>(p + "AC4IR", ac4i, v...),
            form<T, 0, false>(p + "P3R", p3, v...),   form<T, 0, true>(p + "IP3R", p3i, v...)};
}
// The six forms p##C3R ... p##IP3R, with the arguments after the size.
#define FORMS(T, p, ...) forms<T>(#p, p##C3R, p##C3IR, p##AC4R, p##AC4IR, p##P3R, p##IP3R, ##__VA_ARGS__)

// model(in, out): a pixel's output samples from its input samples (three, or
// four in the interleaved four-channel forms); `out` starts as it was.
template <class T>
using PixelModel = std::function<void(const T*, T*)>;

// One form on a source filled by gen, against the model.
template <class T>
void expectForm(const Form<T>& f, ZoriSize roi, int pad, const PixelModel<T>& model, const std::function<T()>& gen) {
    SCOPED_TRACE(testing::Message() << f.name << " " << roi.width << "x" << roi.height << " pad " << pad);
    Buf<T> src(f.layout, roi.width, roi.height, pad, 1), dst(f.layout, roi.width, roi.height, pad, 5);
    for (auto& i : src.im) i.fillSamples(gen);
    Buf<T>& out = f.inPlace ? src : dst;
    Buf<T> want = out;
    const int n = f.layout ? f.layout : 3;
    for (int y = 0; y < roi.height; ++y)
        for (int x = 0; x < roi.width; ++x) {
            T in[4], o[4];
            for (int k = 0; k < n; ++k) in[k] = src.at(x, y, k), o[k] = want.at(x, y, k);
            model(in, o);
            for (int k = 0; k < n; ++k) want.at(x, y, k) = o[k];
        }
    ASSERT_EQ(f.run(src.arg(), src.step(), out.arg(), out.step(), roi), zorStsOk);
    EXPECT_TRUE(out == want);
}

// Null pointers (a plane pointer too), then the size, then the steps (below
// 1, negative ones included); nothing is written on failure.
template <class T>
void checkStatuses(const std::vector<Form<T>>& fs) {
    for (const Form<T>& f : fs) {
        SCOPED_TRACE(f.name);
        Buf<T> a(f.layout, 4, 2, 0, 1), b(f.layout, 4, 2, 0, 5);
        const Buf<T> aWas = a, bWas = b;
        Buf<T>& d = f.inPlace ? a : b;
        void *sa = a.arg(), *sd = d.arg();
        const int s = a.step();
        const ZoriSize roi{4, 2}, none{0, 2};
        EXPECT_EQ(f.run(sa, s, nullptr, s, none), zorStsNullPtr);
        EXPECT_EQ(f.run(nullptr, s, f.inPlace ? nullptr : sd, s, roi), zorStsNullPtr);
        EXPECT_EQ(f.run(sa, 0, sd, 0, none), zorStsBadSize);
        EXPECT_EQ(f.run(sa, s, sd, s, {4, -1}), zorStsBadSize);
        EXPECT_EQ(f.run(sa, s, sd, -s, roi), zorStsStepErr);
        EXPECT_EQ(f.run(sa, f.inPlace ? s : 0, sd, f.inPlace ? 0 : s, roi), zorStsStepErr);
        for (T** p : {a.planes, d.planes})
            for (int k = 0; f.layout == 0 && k < 3; ++k) {
                T* keep = std::exchange(p[k], nullptr);
                EXPECT_EQ(f.run(sa, s, sd, s, none), zorStsNullPtr) << "plane " << k;
                p[k] = keep;
            }
        EXPECT_TRUE(a == aWas && b == bWas);
    }
}

// Every form on rows with padding and on contiguous rows (one long row), and
// its check order.
template <class T>
void checkForms(const std::vector<Form<T>>& fs, const PixelModel<T>& model, const std::function<T()>& gen) {
    for (const Form<T>& f : fs)
        for (const ZoriSize roi : {ZoriSize{1, 1}, ZoriSize{7, 3}, ZoriSize{33, 5}})
            for (int pad : {0, 3 * static_cast<int>(sizeof(T))}) expectForm(f, roi, pad, model, gen);
    checkStatuses(fs);
}

// Colour twist ---------------------------------------------------------------

using Mat = float[3][4];

template <class T>
std::vector<Form<T>> twistForms(const Zor32f (*m)[4]) {
    if constexpr (std::is_same_v<T, Zor8u>) return FORMS(T, zoriColorTwist32f_8u_, m);
    if constexpr (std::is_same_v<T, Zor8s>) return FORMS(T, zoriColorTwist32f_8s_, m);
    if constexpr (std::is_same_v<T, Zor16u>) return FORMS(T, zoriColorTwist32f_16u_, m);
    if constexpr (std::is_same_v<T, Zor16s>) return FORMS(T, zoriColorTwist32f_16s_, m);
    if constexpr (std::is_same_v<T, Zor32f>) return FORMS(T, zoriColorTwist_32f_, m);
}

// The conversion as written: at or above the top gives the top; above the
// bottom, add (or subtract) one half, truncate, and step an odd result of an
// exact tie toward zero; the rest, NaN included, gives the bottom.
template <class T>
T convert(float y) {
    using L = std::numeric_limits<T>;
    if (std::is_same_v<T, float>) return static_cast<T>(y);
    if (!(y > L::min() && y < L::max())) return y >= L::max() ? L::max() : L::min();
    const float s = y < 0 ? y - 0.5f : y + 0.5f;
    long n = static_cast<long>(std::trunc(s));
    if (n % 2 != 0 && static_cast<float>(n) == s) n += n > 0 ? -1 : 1;
    return static_cast<T>(n);
}

template <class T>
PixelModel<T> twistModel(const Mat& m) {
    return [&m](const T* in, T* out) {
        const float x0 = in[0], x1 = in[1], x2 = in[2];
        for (int c = 0; c < 3; ++c) out[c] = convert<T>(((m[c][0] * x0 + m[c][3]) + m[c][1] * x1) + m[c][2] * x2);
    };
}

template <class T>
class ColorTwist : public testing::Test {};
using Types = testing::Types<Zor8u, Zor8s, Zor16u, Zor16s, Zor32f>;
TYPED_TEST_SUITE(ColorTwist, Types);

// A random matrix and one with many results on .5, on samples with the ends
// of the type (floats: NaN, -0); every value plus fractions at and next to
// one half (fraction 0: channel 0 is the identity). The constant is added
// right after the first product: ((1 + 2^24) + 1) - 2^24 = 0 in single
// precision, any other order gives 2. NaN gives the bottom of the range. The
// matrix counts among the pointers, before the size.
TYPED_TEST(ColorTwist, AllForms) {
    using T = TypeParam;
    using L = std::numeric_limits<T>;
    std::mt19937 rng(11);
    const float span = std::is_same_v<T, float> ? 1000.0f : float(L::max()) * 0.6f;
    std::uniform_real_distribution<float> weight(-1.25f, 1.25f), constant(-span, span), any(-1000.0f, 70000.0f);
    Mat random, halves = {{0.5f, 1.5f, -0.5f, 0.5f}, {-1.0f, 0.5f, 0.0f, -0.5f}, {0.25f, -0.75f, 0.5f, 1.5f}};
    for (auto& row : random) row[0] = weight(rng), row[1] = weight(rng), row[2] = weight(rng), row[3] = constant(rng);
    auto gen = [&]() -> T {
        const unsigned k = rng() % 32;
        if constexpr (std::is_same_v<T, float>) return k == 0 ? NAN : k == 1 ? -0.0f : any(rng);
        return k == 0 ? L::min() : k == 1 ? L::max() : T(rng());
    };
    for (const Mat* m : {&random, &halves}) checkForms<T>(twistForms<T>(*m), twistModel<T>(*m), gen);
    for (float f : {0.0f, 0.5f, -0.5f, 0.5f - 1.0f / 512, 0.5f + 1.0f / 512, -0.5f - 1.0f / 512, 0.49999997f, 1.5f}) {
        const Mat m = {{1, 0, 0, f}, {0, -1, 0, f}, {0, 0, 0.5f, f}};
        int v = 0;
        expectForm<T>(twistForms<T>(m)[0], {256, 256}, 0, twistModel<T>(m), [&] { return static_cast<T>(v++ / 3); });
    }
    const Mat order = {{1, 1, -262144.0f, 16777216.0f}, {1, 1, -262144.0f, 16777216.0f}, {0, 0, 0, NAN}};
    T px[3] = {1, 1, 64};
    ASSERT_EQ(twistForms<T>(order)[1].run(nullptr, 0, px, sizeof(px), {1, 1}), zorStsOk);
    EXPECT_TRUE(px[0] == T(0) && px[1] == T(0) && (px[2] == L::min() || px[2] != px[2]));
    for (const auto& f : twistForms<T>(nullptr)) {
        Buf<T> a(f.layout, 2, 1, 0, 1);
        EXPECT_EQ(f.run(a.arg(), a.step(), a.arg(), a.step(), {0, 1}), zorStsNullPtr) << f.name;
    }
}

// The model gives the documented results.
TEST(ColorTwist, ConversionModel) {
    for (auto [y, want] : {std::pair{2.5f, 2}, {3.5f, 4}, {254.5f, 254}, {254.6f, 255}, {-0.3f, 0}, {1e9f, 255}})
        EXPECT_EQ(convert<Zor8u>(y), want) << y;
    for (auto [y, want] : {std::pair{-2.5f, -2}, {-127.5f, -128}, {127.0f, 127}, {126.5f, 126}, {NAN, -128}})
        EXPECT_EQ(convert<Zor8s>(y), want) << y;
}

// Four float channels through a 4x4 matrix without constants. Steps of four
// times the width (one float per pixel, not four) take width x height pixels
// as one run from the first pixel.
TEST(ColorTwist, FourChannels) {
    const float t[4][4] = {{0.5f, -1.25f, 2.0f, 0.125f}, {1, 1, 1, 1}, {-3, 0.75f, 0.1f, 0.2f}, {0, 0, 0, 1}};
    const auto model = [&](const float* x, float* y) {
        for (int c = 0; c < 4; ++c) y[c] = ((t[c][0] * x[0] + t[c][1] * x[1]) + t[c][2] * x[2]) + t[c][3] * x[3];
    };
    const auto run = [&](const float* s, int, float* d, int, ZoriSize) {
        return zoriColorTwist_32f_C4R(s, 36, d, 36, {9, 4}, t);
    };
    std::mt19937 rng(5);
    std::uniform_real_distribution<float> d(-1e4f, 1e4f);
    const auto c4 = form<float, 4, false>("C4R", zoriColorTwist_32f_C4R, t);
    checkForms<float>({c4}, model, [&] { return d(rng); });
    expectForm<float>(form<float, 4, false>("C4R one run", run), {36, 1}, 0, model, [&] { return d(rng); });
    float px[4];
    EXPECT_EQ(zoriColorTwist_32f_C4R(px, 16, px, 16, {0, 1}, nullptr), zorStsNullPtr);
}

// Gamma correction -----------------------------------------------------------

double curve(bool fwd, double x, double v, double range) {
    if (fwd) return x >= 0.018 ? (std::pow(x, 0.45) * 1.099 - 0.099) * range : v * 4.5;
    return x >= 0.0812 ? std::pow((x + 0.099) * 0.9099181073703366, 2.2222222222222223) * range
                       : v * 0.2222222222222222;
}

// 16u: y + 0.5 through single precision, truncated; an odd value that the
// float sum equals exactly is lowered by one.
Zor16u model16u(bool fwd, int v) {
    const float s = static_cast<float>(curve(fwd, v * 1.5259021896696422e-05, v, 65535.0) + 0.5);
    const int n = static_cast<int>(std::trunc(s));
    return static_cast<Zor16u>(n % 2 == 1 && static_cast<float>(n) == s ? n - 1 : n);
}

// 32f: r = hi - lo and d = v - lo in single precision, the rest in double.
float model32f(bool fwd, float v, float lo, float hi) {
    const double r = static_cast<double>(hi - lo), d = v - lo, x = d * (1.0 / r);
    const double y = x >= (fwd ? 0.018 : 0.0812) ? curve(fwd, x, 0, r) : fwd ? d * 4.5 : 0.2222222222222222 * d;
    return static_cast<float>(y + lo);
}

template <class T>
PixelModel<T> perSample(std::function<T(T)> m) {
    return [m](const T* in, T* out) { out[0] = m(in[0]), out[1] = m(in[1]), out[2] = m(in[2]); };
}
auto forms8u(bool fwd) { return fwd ? FORMS(Zor8u, zoriGammaFwd_8u_) : FORMS(Zor8u, zoriGammaInv_8u_); }
auto forms16u(bool fwd) { return fwd ? FORMS(Zor16u, zoriGammaFwd_16u_) : FORMS(Zor16u, zoriGammaInv_16u_); }
auto forms32f(bool fwd, float lo, float hi) {
    return fwd ? FORMS(Zor32f, zoriGammaFwd_32f_, lo, hi) : FORMS(Zor32f, zoriGammaInv_32f_, lo, hi);
}
auto curve16u(bool fwd) {
    return perSample<Zor16u>([fwd](Zor16u v) { return model16u(fwd, v); });
}

// The tables hold the curve at range 255, nearest with ties to even (1 gives
// 4.5, stored as 4: the table starts 0, 4, 9, 14).
TEST(Gamma, Stored8uTablesAndAllForms) {
    for (int v = 0; v < 256; ++v) {
        EXPECT_EQ(zor::tableFwd8u[v], std::nearbyint(curve(true, v / 255.0, v, 255.0))) << v;
        EXPECT_EQ(zor::tableInv8u[v], std::nearbyint(curve(false, v / 255.0, v, 255.0))) << v;
    }
    std::mt19937 rng(1);
    for (bool fwd : {true, false}) {
        const Zor8u* t = fwd ? zor::tableFwd8u : zor::tableInv8u;
        checkForms<Zor8u>(forms8u(fwd), perSample<Zor8u>([t](Zor8u v) { return t[v]; }), [&] { return rng(); });
    }
}

struct Allocs {  // requests that reach the library's allocator; `refuse` fails them
    static inline std::vector<std::size_t> seen;
    static inline bool refuse;
    static bool hook(std::size_t n) { return seen.push_back(n), !refuse; }
    explicit Allocs(bool r) { seen.clear(), refuse = r, zor::setAllocHook(hook); }
    ~Allocs() { zor::setAllocHook(nullptr); }
};

// Rounding through single precision: y = 14163.4997 (v = 4082) gives 14164,
// 19952.5008 (v = 7069) 19952. 21,845 pixels (65,535 samples) are computed
// per sample, 21,846 (65,538) through a table of 65,536 words from the
// allocator (together: every value), three samples per pixel in every
// layout; without the table nothing is written; argument errors come first.
TEST(Gamma, Paths16u) {
    Zor16u px[3] = {4082, 7069, 1};
    ASSERT_EQ(zoriGammaFwd_16u_C3IR(px, 6, {1, 1}), zorStsOk);
    EXPECT_TRUE(px[0] == 14164 && px[1] == 19952 && px[2] == 4);
    std::mt19937 rng(2);
    for (bool fwd : {true, false}) {
        checkForms<Zor16u>(forms16u(fwd), curve16u(fwd), [&] { return rng(); });
        for (int w : {21845, 21846}) {
            int next = w == 21845 ? 1 : 0;
            Allocs allocs(false);
            expectForm<Zor16u>(forms16u(fwd)[0], {w, 1}, 0, curve16u(fwd), [&] { return Zor16u(next++); });
            EXPECT_EQ(Allocs::seen, std::vector<std::size_t>(w - 21845, 65536 * 2 + 36));
        }
        for (const auto& f : forms16u(fwd)) {
            Buf<Zor16u> a(f.layout, 21846, 1, 0, 1), b(f.layout, 21846, 1, 0, 5);
            const Buf<Zor16u> aWas = a, bWas = b;
            Buf<Zor16u>& d = f.inPlace ? a : b;
            Allocs allocs(true);
            EXPECT_EQ(f.run(a.arg(), a.step(), d.arg(), 0, {21846, 1}), zorStsStepErr) << f.name;
            EXPECT_EQ(f.run(a.arg(), a.step(), d.arg(), d.step(), {21846, 1}), zorStsNoMemory) << f.name;
            EXPECT_TRUE(a == aWas && b == bWas) << f.name;
            EXPECT_EQ(f.run(a.arg(), a.step(), d.arg(), d.step(), {21845, 1}), zorStsOk) << f.name;
            EXPECT_EQ(Allocs::seen.size(), 1u) << f.name;
        }
    }
}

// Mostly inside the range, some below and above it, some NaN. Below vMin the
// linear branch goes on: vMin + 4.5 (v - vMin). The range is tested before
// everything, the pointers included.
TEST(Gamma, AllForms32fOnTheRange) {
    std::mt19937 rng(3);
    for (bool fwd : {true, false})
        for (const auto& [lo, hi] : {std::pair{1.0f, 1.0f}, {2.0f, 1.0f}, {NAN, 1.0f}, {0.0f, NAN}})
            for (const auto& f : forms32f(fwd, lo, hi))
                EXPECT_EQ(f.run(nullptr, 0, nullptr, 0, {0, 0}), zorStsBadGammaRange) << f.name << lo << hi;
    EXPECT_EQ(forms32f(false, 0.0f, 1.0f)[1].run(nullptr, 0, nullptr, 0, {0, 0}), zorStsNullPtr);
    for (const auto& [lo, hi] : {std::pair{0.0f, 1.0f}, {-3.5f, 250.25f}, {1000.0f, 1000.5f}}) {
        std::uniform_real_distribution<float> d(lo - 0.25f * (hi - lo), hi + 0.25f * (hi - lo));
        for (bool fwd : {true, false}) {
            auto m = [fwd, lo = lo, hi = hi](float v) { return model32f(fwd, v, lo, hi); };
            checkForms<Zor32f>(forms32f(fwd, lo, hi), perSample<Zor32f>(m), [&] { return rng() % 50 ? d(rng) : NAN; });
        }
    }
}

}  // namespace
