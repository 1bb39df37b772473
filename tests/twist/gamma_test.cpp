// Gamma correction: the stored 8-bit tables against the curve, every layout
// of 8u, 16u and 32f against per-sample models of the curve, the two 16u
// paths (per sample and per-call table) over all 65,536 values, the
// allocation of the 16u table and the check order.
#include "core/memory.h"
#include "support/testutil.h"
#include "twist/gamma_tables.h"
#include "twist/twist_support.h"

#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <vector>

namespace {

// ---------------------------------------------------------------------------
// Models of the curve

double curveFwd(double x, double v, double range) {
    return x >= 0.018 ? (std::pow(x, 0.45) * 1.099 - 0.099) * range : v * 4.5;
}

double curveInv(double x, double v, double range) {
    return x >= 0.0812 ? std::pow((x + 0.099) * 0.9099181073703366, 2.2222222222222223) * range
                       : v * 0.2222222222222222;
}

// 8-bit tables: the curve at range 255, nearest with ties to even.
std::vector<int> table8u(bool fwd) {
    std::vector<int> t(256);
    for (int v = 0; v < 256; ++v) {
        const double x = v / 255.0;
        t[v] = static_cast<int>(std::nearbyint(fwd ? curveFwd(x, v, 255.0) : curveInv(x, v, 255.0)));
    }
    return t;
}

// 16u: y + 0.5 through single precision, truncated; an odd value that the
// float sum equals exactly is lowered by one.
Zor16u model16u(bool fwd, int v) {
    const double x = v * 1.5259021896696422e-05;
    const double y = fwd ? curveFwd(x, v, 65535.0) : curveInv(x, v, 65535.0);
    const float s = static_cast<float>(y + 0.5);
    int n = static_cast<int>(std::trunc(s));
    if (n % 2 == 1 && static_cast<float>(n) == s) n -= 1;
    return static_cast<Zor16u>(n);
}

float model32f(bool fwd, float v, float vMin, float vMax) {
    const double r = static_cast<double>(vMax - vMin);
    const float d = v - vMin;
    const double x = static_cast<double>(d) * (1.0 / r);
    double y;
    if (fwd)
        y = x >= 0.018 ? (std::pow(x, 0.45) * 1.099 - 0.099) * r + vMin : static_cast<double>(d) * 4.5 + vMin;
    else
        y = x >= 0.0812 ? std::pow((x + 0.099) * 0.9099181073703366, 2.2222222222222223) * r + vMin
                        : 0.2222222222222222 * static_cast<double>(d) + vMin;
    return static_cast<float>(y);
}

// ---------------------------------------------------------------------------
// The six layouts of one type and direction as callables.

template <class T>
struct Calls {
    std::function<ZorStatus(const T*, int, T*, int, ZoriSize)> c3, ac4;
    std::function<ZorStatus(T*, int, ZoriSize)> c3i, ac4i;
    std::function<ZorStatus(const T* const*, int, T* const*, int, ZoriSize)> p3;
    std::function<ZorStatus(T* const*, int, ZoriSize)> p3i;
};

Calls<Zor8u> calls8u(bool fwd) {
    if (fwd)
        return {zoriGammaFwd_8u_C3R,  zoriGammaFwd_8u_AC4R, zoriGammaFwd_8u_C3IR,
                zoriGammaFwd_8u_AC4IR, zoriGammaFwd_8u_P3R,  zoriGammaFwd_8u_IP3R};
    return {zoriGammaInv_8u_C3R,  zoriGammaInv_8u_AC4R, zoriGammaInv_8u_C3IR,
            zoriGammaInv_8u_AC4IR, zoriGammaInv_8u_P3R,  zoriGammaInv_8u_IP3R};
}

Calls<Zor16u> calls16u(bool fwd) {
    if (fwd)
        return {zoriGammaFwd_16u_C3R,  zoriGammaFwd_16u_AC4R, zoriGammaFwd_16u_C3IR,
                zoriGammaFwd_16u_AC4IR, zoriGammaFwd_16u_P3R,  zoriGammaFwd_16u_IP3R};
    return {zoriGammaInv_16u_C3R,  zoriGammaInv_16u_AC4R, zoriGammaInv_16u_C3IR,
            zoriGammaInv_16u_AC4IR, zoriGammaInv_16u_P3R,  zoriGammaInv_16u_IP3R};
}

Calls<Zor32f> calls32f(bool fwd, float lo, float hi) {
    using namespace std::placeholders;
    auto c3 = fwd ? zoriGammaFwd_32f_C3R : zoriGammaInv_32f_C3R;
    auto ac4 = fwd ? zoriGammaFwd_32f_AC4R : zoriGammaInv_32f_AC4R;
    auto c3i = fwd ? zoriGammaFwd_32f_C3IR : zoriGammaInv_32f_C3IR;
    auto ac4i = fwd ? zoriGammaFwd_32f_AC4IR : zoriGammaInv_32f_AC4IR;
    auto p3 = fwd ? zoriGammaFwd_32f_P3R : zoriGammaInv_32f_P3R;
    auto p3i = fwd ? zoriGammaFwd_32f_IP3R : zoriGammaInv_32f_IP3R;
    return {std::bind(c3, _1, _2, _3, _4, _5, lo, hi),    std::bind(ac4, _1, _2, _3, _4, _5, lo, hi),
            std::bind(c3i, _1, _2, _3, lo, hi),           std::bind(ac4i, _1, _2, _3, lo, hi),
            std::bind(p3, _1, _2, _3, _4, _5, lo, hi),    std::bind(p3i, _1, _2, _3, lo, hi)};
}

// Runs every layout on random images and compares whole buffers with the
// per-sample model.
template <class T>
void checkLayouts(const Calls<T>& f, const std::function<T(T)>& model, const std::function<T()>& gen,
                  std::uint32_t seed) {
    auto pixel = [&](const T in[3], T out[3]) {
        for (int c = 0; c < 3; ++c) out[c] = model(in[c]);
    };
    for (const ZoriSize roi : {ZoriSize{1, 1}, ZoriSize{5, 3}, ZoriSize{64, 40}}) {
        SCOPED_TRACE(testing::Message() << roi.width << "x" << roi.height);
        for (int ch : {3, 4}) {
            zt::Image<T> src(roi.width, roi.height, ch, tw::padFor<T>(1), seed);
            src.fillSamples(gen);
            zt::Image<T> dst(roi.width, roi.height, ch, tw::padFor<T>(3), seed + 1);
            zt::Image<T> want = dst;
            tw::modelInterleaved(src, want, pixel);
            ASSERT_EQ((ch == 3 ? f.c3 : f.ac4)(src.data(), src.step(), dst.data(), dst.step(), roi), zorStsOk);
            EXPECT_TRUE(tw::same(dst, want)) << ch << " channels";
            want = src;
            tw::modelInterleaved(src, want, pixel);
            ASSERT_EQ((ch == 3 ? f.c3i : f.ac4i)(src.data(), src.step(), roi), zorStsOk);
            EXPECT_TRUE(tw::same(src, want)) << ch << " channels in place";
        }
        zt::Planes3<T> src(roi.width, roi.height, tw::padFor<T>(2), seed + 2);
        tw::fill(src, gen);
        zt::Planes3<T> dst(roi.width, roi.height, tw::padFor<T>(1), seed + 3);
        zt::Planes3<T> want = dst;
        tw::modelPlanar(src, want, pixel);
        ASSERT_EQ(f.p3(src.cptr(), src.step(), dst.ptr(), dst.step(), roi), zorStsOk);
        EXPECT_TRUE(tw::same(dst, want)) << "planar";
        want = src;
        tw::modelPlanar(src, want, pixel);
        ASSERT_EQ(f.p3i(src.ptr(), src.step(), roi), zorStsOk);
        EXPECT_TRUE(tw::same(src, want)) << "planar in place";
    }
}

// Null pointers, then size, then steps; nothing written on failure.
template <class T>
void checkStatuses(const Calls<T>& f) {
    zt::Image<T> a(4, 2, 4, 0, 1), b(4, 2, 4, 0, 2);
    const zt::Image<T> aCopy = a, bCopy = b;
    const ZoriSize roi{4, 2};
    for (const auto& run : {f.c3, f.ac4}) {
        EXPECT_EQ(run(nullptr, a.step(), b.data(), b.step(), roi), zorStsNullPtr);
        EXPECT_EQ(run(a.data(), a.step(), nullptr, b.step(), {0, 0}), zorStsNullPtr);
        EXPECT_EQ(run(a.data(), 0, b.data(), 0, {0, 2}), zorStsBadSize);
        EXPECT_EQ(run(a.data(), a.step(), b.data(), b.step(), {4, 0}), zorStsBadSize);
        EXPECT_EQ(run(a.data(), -a.step(), b.data(), b.step(), roi), zorStsStepErr);
        EXPECT_EQ(run(a.data(), a.step(), b.data(), 0, roi), zorStsStepErr);
    }
    for (const auto& run : {f.c3i, f.ac4i}) {
        EXPECT_EQ(run(nullptr, b.step(), roi), zorStsNullPtr);
        EXPECT_EQ(run(b.data(), 0, {-1, 2}), zorStsBadSize);
        EXPECT_EQ(run(b.data(), 0, roi), zorStsStepErr);
    }
    zt::Planes3<T> ps(4, 2, 0, 3), pd(4, 2, 0, 6);
    const zt::Planes3<T> pdCopy = pd;
    for (int i = 0; i < 3; ++i) {
        const T* s[3] = {ps.p[0].data(), ps.p[1].data(), ps.p[2].data()};
        T* d[3] = {pd.p[0].data(), pd.p[1].data(), pd.p[2].data()};
        s[i] = nullptr;
        EXPECT_EQ(f.p3(s, ps.step(), pd.ptr(), pd.step(), {0, 0}), zorStsNullPtr);
        d[i] = nullptr;
        EXPECT_EQ(f.p3(ps.cptr(), ps.step(), d, pd.step(), roi), zorStsNullPtr);
        EXPECT_EQ(f.p3i(d, pd.step(), {0, 0}), zorStsNullPtr);
    }
    EXPECT_EQ(f.p3(nullptr, ps.step(), pd.ptr(), pd.step(), roi), zorStsNullPtr);
    EXPECT_EQ(f.p3(ps.cptr(), 0, pd.ptr(), pd.step(), {4, 0}), zorStsBadSize);
    EXPECT_EQ(f.p3(ps.cptr(), 0, pd.ptr(), pd.step(), roi), zorStsStepErr);
    EXPECT_EQ(f.p3i(pd.ptr(), -1, roi), zorStsStepErr);
    EXPECT_TRUE(a == aCopy);
    EXPECT_TRUE(b == bCopy);
    EXPECT_TRUE(pd == pdCopy);
}

// ---------------------------------------------------------------------------
// 8u

TEST(Gamma8u, StoredTablesEqualTheCurve) {
    const std::vector<int> fwd = table8u(true), inv = table8u(false);
    for (int v = 0; v < 256; ++v) {
        EXPECT_EQ(zor::tableFwd8u[v], fwd[v]) << "forward " << v;
        EXPECT_EQ(zor::tableInv8u[v], inv[v]) << "inverse " << v;
    }
    // The beginnings, with 1 -> 4 (4.5 to even) and 3 -> 14 (13.5 to even).
    const int fwdStart[] = {0, 4, 9, 14, 18, 23, 27, 30, 34, 37, 40};
    const int invStart[] = {0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2, 2, 3};
    for (int v = 0; v < 11; ++v) EXPECT_EQ(zor::tableFwd8u[v], fwdStart[v]);
    for (int v = 0; v < 13; ++v) EXPECT_EQ(zor::tableInv8u[v], invStart[v]);
    EXPECT_EQ(zor::tableFwd8u[255], 255);
    EXPECT_EQ(zor::tableInv8u[255], 255);
}

TEST(Gamma8u, AllLayoutsMatchTables) {
    std::mt19937 rng(1);
    for (bool fwd : {true, false}) {
        const std::vector<int> t = table8u(fwd);
        checkLayouts<Zor8u>(calls8u(fwd), [&](Zor8u v) { return static_cast<Zor8u>(t[v]); },
                            [&] { return static_cast<Zor8u>(rng()); }, fwd ? 10 : 20);
    }
}

TEST(Gamma8u, Statuses) {
    checkStatuses(calls8u(true));
    checkStatuses(calls8u(false));
}

// ---------------------------------------------------------------------------
// 16u

// The float step of the rounding decides some values against plain rounding
// to nearest: y = 14163.4997 (v = 4082) becomes 14164, y = 19952.5008
// (v = 7069) becomes 19952.
TEST(Gamma16u, RoundingThroughSinglePrecision) {
    EXPECT_EQ(model16u(true, 4082), 14164);
    EXPECT_EQ(model16u(true, 7069), 19952);
    EXPECT_EQ(model16u(false, 12009), 3196);
    for (bool fwd : {true, false}) {
        Zor16u px[3] = {4082, 7069, 12009};
        ASSERT_EQ((fwd ? zoriGammaFwd_16u_C3IR : zoriGammaInv_16u_C3IR)(px, 6, {1, 1}), zorStsOk);
        EXPECT_EQ(px[0], model16u(fwd, 4082));
        EXPECT_EQ(px[1], model16u(fwd, 7069));
        EXPECT_EQ(px[2], model16u(fwd, 12009));
    }
    Zor16u ends[3] = {0, 65535, 1};
    ASSERT_EQ(zoriGammaFwd_16u_C3IR(ends, 6, {1, 1}), zorStsOk);
    EXPECT_EQ(ends[0], 0);
    EXPECT_EQ(ends[1], 65535);
    EXPECT_EQ(ends[2], 4);  // 4.5 to even
}

// Allocation requests seen by the hook; `fail` makes them fail.
struct AllocLog {
    static inline std::vector<std::size_t> requests;
    static inline bool fail = false;
    static bool hook(std::size_t bytes) {
        requests.push_back(bytes);
        return !fail;
    }
};

class HookScope {
public:
    explicit HookScope(bool fail) {
        AllocLog::requests.clear();
        AllocLog::fail = fail;
        zor::setAllocHook(AllocLog::hook);
    }
    ~HookScope() { zor::setAllocHook(nullptr); }
};

// All 65,536 values through both paths: 21,845 pixels (65,535 samples) are
// computed per sample without allocating; 21,846 pixels (65,538 samples) go
// through a table of 65,536 words from the library's allocator.
TEST(Gamma16u, BothPathsGiveTheCurveForEveryValue) {
    for (bool fwd : {true, false}) {
        const Calls<Zor16u> f = calls16u(fwd);
        for (int w : {21845, 21846}) {
            zt::Image<Zor16u> src(w, 1, 3, 0, 1), dst(w, 1, 3, 0, 2);
            int next = w == 21845 ? 1 : 0;  // the direct run covers 1..65535
            src.fillSamples([&] { return static_cast<Zor16u>(next++ & 0xFFFF); });
            zt::Image<Zor16u> want = dst;
            tw::modelInterleaved(src, want, [&](const Zor16u in[3], Zor16u out[3]) {
                for (int c = 0; c < 3; ++c) out[c] = model16u(fwd, in[c]);
            });
            HookScope hook(false);
            ASSERT_EQ(f.c3(src.data(), src.step(), dst.data(), dst.step(), {w, 1}), zorStsOk);
            EXPECT_TRUE(tw::same(dst, want)) << (fwd ? "forward " : "inverse ") << w;
            if (w == 21845) {
                EXPECT_TRUE(AllocLog::requests.empty());
            } else {
                ASSERT_EQ(AllocLog::requests.size(), 1u);
                EXPECT_EQ(AllocLog::requests[0], 65536u * 2u + 36u);
            }
        }
        Zor16u zero[3] = {0, 0, 0};
        ASSERT_EQ(f.c3i(zero, 6, {1, 1}), zorStsOk);
        EXPECT_EQ(zero[0], model16u(fwd, 0));
    }
}

// The sample count that chooses the table counts three samples per pixel in
// every layout; a failed table allocation writes nothing.
TEST(Gamma16u, NoMemoryWhenTheTableCannotBeAllocated) {
    for (bool fwd : {true, false}) {
        const Calls<Zor16u> f = calls16u(fwd);
        const ZoriSize small{21845, 1}, large{4201, 26};  // 65,535 and 327,678 samples
        zt::Image<Zor16u> src(4201, 26, 4, 0, 1), dst(4201, 26, 4, 0, 2);
        const zt::Image<Zor16u> srcCopy = src, dstCopy = dst;
        zt::Planes3<Zor16u> ps(21846, 1, 0, 3), pd(21846, 1, 0, 4);
        const zt::Planes3<Zor16u> psCopy = ps, pdCopy = pd;
        HookScope hook(true);
        EXPECT_EQ(f.c3(src.data(), src.step(), dst.data(), dst.step(), large), zorStsNoMemory);
        EXPECT_EQ(f.ac4(src.data(), src.step(), dst.data(), dst.step(), large), zorStsNoMemory);
        EXPECT_EQ(f.c3i(src.data(), src.step(), large), zorStsNoMemory);
        EXPECT_EQ(f.ac4i(src.data(), src.step(), large), zorStsNoMemory);
        EXPECT_EQ(f.p3(ps.cptr(), ps.step(), pd.ptr(), pd.step(), {21846, 1}), zorStsNoMemory);
        EXPECT_EQ(f.p3i(ps.ptr(), ps.step(), {21846, 1}), zorStsNoMemory);
        EXPECT_TRUE(src == srcCopy);
        EXPECT_TRUE(dst == dstCopy);
        EXPECT_TRUE(ps == psCopy);
        EXPECT_TRUE(pd == pdCopy);
        // The per-sample path needs no memory.
        EXPECT_EQ(f.ac4(src.data(), src.step(), dst.data(), dst.step(), small), zorStsOk);
        EXPECT_EQ(f.p3(ps.cptr(), ps.step(), pd.ptr(), pd.step(), small), zorStsOk);
        EXPECT_TRUE(AllocLog::requests.size() == 6u);
        // Argument errors come before the allocation.
        EXPECT_EQ(f.c3(src.data(), 0, dst.data(), dst.step(), large), zorStsStepErr);
    }
}

TEST(Gamma16u, AllLayoutsMatchCurve) {
    std::mt19937 rng(2);
    for (bool fwd : {true, false})
        checkLayouts<Zor16u>(calls16u(fwd), [&](Zor16u v) { return model16u(fwd, v); },
                             [&] { return static_cast<Zor16u>(rng()); }, fwd ? 30 : 40);
}

TEST(Gamma16u, Statuses) {
    checkStatuses(calls16u(true));
    checkStatuses(calls16u(false));
}

// ---------------------------------------------------------------------------
// 32f

TEST(Gamma32f, AllLayoutsMatchCurveOnTheRange) {
    std::mt19937 rng(3);
    const std::pair<float, float> ranges[] = {{0.0f, 1.0f}, {-3.5f, 250.25f}, {1000.0f, 1000.5f}};
    for (const auto& [lo, hi] : ranges) {
        // Mostly inside the range, some below and above, some NaN.
        std::uniform_real_distribution<float> d(lo - 0.25f * (hi - lo), hi + 0.25f * (hi - lo));
        auto gen = [&] {
            return rng() % 50 == 0 ? std::numeric_limits<float>::quiet_NaN() : d(rng);
        };
        for (bool fwd : {true, false})
            checkLayouts<Zor32f>(calls32f(fwd, lo, hi), [&](float v) { return model32f(fwd, v, lo, hi); }, gen,
                                 fwd ? 50 : 60);
    }
}

TEST(Gamma32f, NoClampingOutsideTheRange) {
    float px[3] = {0.0f, 2.0f, 3.0f};
    ASSERT_EQ(zoriGammaFwd_32f_C3IR(px, 12, {1, 1}, 0.25f, 2.0f), zorStsOk);
    EXPECT_EQ(px[0], -0.875f);  // below vMin: vMin + 4.5 (v - vMin)
    EXPECT_EQ(px[1], 2.0f);
    EXPECT_GT(px[2], 2.0f);
    float q[3] = {-1.0f, 0.0f, 1.0f};
    ASSERT_EQ(zoriGammaInv_32f_C3IR(q, 12, {1, 1}, 0.0f, 1.0f), zorStsOk);
    EXPECT_EQ(q[0], static_cast<float>(0.2222222222222222 * -1.0));
    EXPECT_EQ(q[1], 0.0f);
}

// The range is tested first of all, before the pointers and the size.
TEST(Gamma32f, BadRangeBeforeEverything) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    using Fn = ZorStatus (*)(const Zor32f*, int, Zor32f*, int, ZoriSize, Zor32f, Zor32f);
    for (Fn fn : {zoriGammaFwd_32f_C3R, zoriGammaInv_32f_C3R, zoriGammaFwd_32f_AC4R, zoriGammaInv_32f_AC4R}) {
        EXPECT_EQ(fn(nullptr, 0, nullptr, 0, {0, 0}, 1.0f, 1.0f), zorStsBadGammaRange);
        EXPECT_EQ(fn(nullptr, 0, nullptr, 0, {0, 0}, 2.0f, 1.0f), zorStsBadGammaRange);
        EXPECT_EQ(fn(nullptr, 0, nullptr, 0, {0, 0}, nan, 1.0f), zorStsBadGammaRange);
        EXPECT_EQ(fn(nullptr, 0, nullptr, 0, {0, 0}, 0.0f, nan), zorStsBadGammaRange);
        EXPECT_EQ(fn(nullptr, 0, nullptr, 0, {0, 0}, 0.0f, 1.0f), zorStsNullPtr);
    }
    EXPECT_EQ(zoriGammaFwd_32f_P3R(nullptr, 0, nullptr, 0, {0, 0}, 5.0f, 5.0f), zorStsBadGammaRange);
    EXPECT_EQ(zoriGammaInv_32f_IP3R(nullptr, 0, {0, 0}, 5.0f, -5.0f), zorStsBadGammaRange);
    EXPECT_EQ(zoriGammaFwd_32f_C3IR(nullptr, 0, {0, 0}, 5.0f, 5.0f), zorStsBadGammaRange);
    EXPECT_EQ(zoriGammaInv_32f_AC4IR(nullptr, 0, {0, 0}, 0.0f, 0.0f), zorStsBadGammaRange);
    checkStatuses(calls32f(true, 0.0f, 1.0f));
    checkStatuses(calls32f(false, -1.0f, 1.0f));
}

}  // namespace
