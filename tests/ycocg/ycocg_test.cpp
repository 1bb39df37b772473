// YCoCg: all 24 functions against a model written with 64-bit arithmetic and
// floor division, on random images with padded rows and bottom-up (negative)
// steps; pinned values; exact round trips of the reversible pairs (every
// 8-bit colour, random and extreme 16-bit ones); null checks and the missing
// size check.
#include "support/testutil.h"

#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

namespace {

// ---------------------------------------------------------------------------
// Model

std::int64_t floorDiv(std::int64_t a, std::int64_t d) {
    std::int64_t q = a / d;
    if (a % d != 0 && a < 0) --q;
    return q;
}

std::int64_t low16(std::int64_t v) {
    std::int64_t w = ((v % 65536) + 65536) % 65536;
    return w >= 32768 ? w - 65536 : w;
}

template <class P>
std::int64_t asPlane(std::int64_t v) {
    return sizeof(P) == 2 ? low16(v) : v;
}

template <class D>
D asSample(std::int64_t v) {
    const std::int64_t w = low16(v);
    if constexpr (std::is_same_v<D, Zor8u>)
        return static_cast<Zor8u>(w < 0 ? 0 : w > 255 ? 255 : w);
    else
        return static_cast<Zor16s>(w);
}

template <class P>
void modelForward(bool rev, std::int64_t b, std::int64_t g, std::int64_t r, P out[3]) {
    std::int64_t y, co, cg;
    if (rev) {
        co = asPlane<P>(r - b);
        const std::int64_t t = b + floorDiv(co, 2);
        cg = asPlane<P>(g - t);
        y = t + floorDiv(cg, 2);
    } else {
        y = floorDiv(r + 2 * g + b + 2, 4);
        co = floorDiv(r - b + 1, 2);
        cg = floorDiv(2 * g - r - b + 2, 4);
    }
    out[0] = static_cast<P>(asPlane<P>(y));
    out[1] = static_cast<P>(asPlane<P>(co));
    out[2] = static_cast<P>(asPlane<P>(cg));
}

template <class D>
void modelInverse(bool rev, std::int64_t y, std::int64_t co, std::int64_t cg, D bgr[3]) {
    std::int64_t r, g, b;
    if (rev) {
        const std::int64_t t = y - floorDiv(cg, 2);
        g = cg + t;
        b = t - floorDiv(co, 2);
        r = b + co;
    } else {
        r = y + co - cg;
        g = y + cg;
        b = y - co - cg;
    }
    bgr[0] = asSample<D>(b);
    bgr[1] = asSample<D>(g);
    bgr[2] = asSample<D>(r);
}

// ---------------------------------------------------------------------------
// The functions, in pairs of C3 and C4 forms.

template <class S, class P>
struct Forward {
    const char* name;
    bool rev;
    ZorStatus (*c3)(const S*, int, P* const[3], int, ZoriSize);
    ZorStatus (*c4)(const S*, int, P* const[3], int, ZoriSize);
};

template <class P, class D>
struct Inverse {
    const char* name;
    bool rev;
    ZorStatus (*c3)(const P* const[3], int, D*, int, ZoriSize);
    ZorStatus (*c4)(const P* const[3], int, D*, int, ZoriSize, D);
};

const Forward<Zor8u, Zor16s> kFwd8u[] = {
    {"BGRToYCoCg_8u16s", false, zoriBGRToYCoCg_8u16s_C3P3R, zoriBGRToYCoCg_8u16s_C4P3R},
    {"BGRToYCoCg_Rev_8u16s", true, zoriBGRToYCoCg_Rev_8u16s_C3P3R, zoriBGRToYCoCg_Rev_8u16s_C4P3R}};
const Forward<Zor16s, Zor16s> kFwd16s[] = {
    {"SBGRToYCoCg_16s", false, zoriSBGRToYCoCg_16s_C3P3R, zoriSBGRToYCoCg_16s_C4P3R},
    {"SBGRToYCoCg_Rev_16s", true, zoriSBGRToYCoCg_Rev_16s_C3P3R, zoriSBGRToYCoCg_Rev_16s_C4P3R}};
const Forward<Zor16s, Zor32s> kFwd32s[] = {
    {"SBGRToYCoCg_16s32s", false, zoriSBGRToYCoCg_16s32s_C3P3R, zoriSBGRToYCoCg_16s32s_C4P3R},
    {"SBGRToYCoCg_Rev_16s32s", true, zoriSBGRToYCoCg_Rev_16s32s_C3P3R, zoriSBGRToYCoCg_Rev_16s32s_C4P3R}};
const Inverse<Zor16s, Zor8u> kInv8u[] = {
    {"YCoCgToBGR_16s8u", false, zoriYCoCgToBGR_16s8u_P3C3R, zoriYCoCgToBGR_16s8u_P3C4R},
    {"YCoCgToBGR_Rev_16s8u", true, zoriYCoCgToBGR_Rev_16s8u_P3C3R, zoriYCoCgToBGR_Rev_16s8u_P3C4R}};
const Inverse<Zor16s, Zor16s> kInv16s[] = {
    {"YCoCgToSBGR_16s", false, zoriYCoCgToSBGR_16s_P3C3R, zoriYCoCgToSBGR_16s_P3C4R},
    {"YCoCgToSBGR_Rev_16s", true, zoriYCoCgToSBGR_Rev_16s_P3C3R, zoriYCoCgToSBGR_Rev_16s_P3C4R}};
const Inverse<Zor32s, Zor16s> kInv32s[] = {
    {"YCoCgToSBGR_32s16s", false, zoriYCoCgToSBGR_32s16s_P3C3R, zoriYCoCgToSBGR_32s16s_P3C4R},
    {"YCoCgToSBGR_Rev_32s16s", true, zoriYCoCgToSBGR_Rev_32s16s_P3C3R, zoriYCoCgToSBGR_Rev_32s16s_P3C4R}};

// Image sizes and which side is walked bottom-up (negative step).
struct Shape {
    ZoriSize roi;
    bool flipInterleaved, flipPlanes;
};
const Shape kShapes[] = {{{1, 1}, false, false}, {{7, 3}, true, false}, {{64, 40}, false, false},
                         {{33, 17}, false, true}, {{20, 9}, true, true}};

template <class T>
std::function<T()> randomSamples(std::mt19937& rng, int spread) {
    // spread 0: any value of the type; otherwise uniform in [-spread, spread].
    return [&rng, spread] {
        if (spread == 0) return static_cast<T>(rng());
        return static_cast<T>(std::uniform_int_distribution<int>(-spread, spread)(rng));
    };
}

template <class S, class P>
void checkForward(const Forward<S, P>& f, std::uint32_t seed) {
    SCOPED_TRACE(f.name);
    std::mt19937 rng(seed);
    for (const Shape& sh : kShapes) {
        const int w = sh.roi.width, h = sh.roi.height;
        for (int ch : {3, 4}) {
            zt::Image<S> src(w, h, ch, 3 * sizeof(S), seed + ch);
            src.fillSamples(randomSamples<S>(rng, 0));
            zt::Planes3<P> dst(w, h, 2 * sizeof(P), seed + 9);
            zt::Planes3<P> want = dst;
            for (int y = 0; y < h; ++y) {
                const int sy = sh.flipInterleaved ? h - 1 - y : y, dy = sh.flipPlanes ? h - 1 - y : y;
                for (int x = 0; x < w; ++x) {
                    P out[3];
                    modelForward<P>(f.rev, src.at(x, sy, 0), src.at(x, sy, 1), src.at(x, sy, 2), out);
                    for (int c = 0; c < 3; ++c) want.p[c].at(x, dy) = out[c];
                }
            }
            const S* s = sh.flipInterleaved ? src.flippedData() : src.data();
            const int ss = sh.flipInterleaved ? src.flippedStep() : src.step();
            P* const* d = sh.flipPlanes ? dst.flippedPtr() : dst.ptr();
            const int ds = sh.flipPlanes ? -dst.step() : dst.step();
            ASSERT_EQ((ch == 3 ? f.c3 : f.c4)(s, ss, d, ds, sh.roi), zorStsOk);
            EXPECT_TRUE(dst == want) << w << "x" << h << ", " << ch << " channels";
        }
    }
}

template <class P, class D>
void checkInverse(const Inverse<P, D>& f, int spread, std::uint32_t seed) {
    SCOPED_TRACE(f.name);
    std::mt19937 rng(seed);
    for (const Shape& sh : kShapes) {
        const int w = sh.roi.width, h = sh.roi.height;
        zt::Planes3<P> src(w, h, 2 * sizeof(P), seed + 1);
        for (auto& p : src.p) p.fillSamples(randomSamples<P>(rng, spread));
        for (int ch : {3, 4}) {
            const D alpha = static_cast<D>(rng());
            zt::Image<D> dst(w, h, ch, 3 * sizeof(D), seed + ch);
            zt::Image<D> want = dst;
            for (int y = 0; y < h; ++y) {
                const int sy = sh.flipPlanes ? h - 1 - y : y, dy = sh.flipInterleaved ? h - 1 - y : y;
                for (int x = 0; x < w; ++x) {
                    modelInverse<D>(f.rev, src.p[0].at(x, sy), src.p[1].at(x, sy), src.p[2].at(x, sy),
                                    &want.at(x, dy));
                    if (ch == 4) want.at(x, dy, 3) = alpha;
                }
            }
            const P* const* s = sh.flipPlanes ? src.flippedCptr() : src.cptr();
            const int ss = sh.flipPlanes ? -src.step() : src.step();
            D* d = sh.flipInterleaved ? dst.flippedData() : dst.data();
            const int ds = sh.flipInterleaved ? dst.flippedStep() : dst.step();
            ASSERT_EQ(ch == 3 ? f.c3(s, ss, d, ds, sh.roi) : f.c4(s, ss, d, ds, sh.roi, alpha), zorStsOk);
            EXPECT_TRUE(dst == want) << w << "x" << h << ", " << ch << " channels, spread " << spread;
        }
    }
}

TEST(YCoCg, ForwardMatchesModel) {
    for (const auto& f : kFwd8u) checkForward(f, 1);
    for (const auto& f : kFwd16s) checkForward(f, 2);
    for (const auto& f : kFwd32s) checkForward(f, 3);
}

TEST(YCoCg, InverseMatchesModel) {
    // Small planes keep most results in 0..255; any 16- or 32-bit value makes
    // the sums wrap.
    for (int spread : {300, 0}) {
        for (const auto& f : kInv8u) checkInverse(f, spread, 4);
        for (const auto& f : kInv16s) checkInverse(f, spread, 5);
        for (const auto& f : kInv32s) checkInverse(f, spread, 6);
    }
}

// ---------------------------------------------------------------------------
// Pinned values

TEST(YCoCg, PureRed) {
    const Zor8u px[4] = {0, 0, 255, 99};  // B, G, R, A
    Zor16s y = 0, co = 0, cg = 0;
    Zor16s* planes[3] = {&y, &co, &cg};
    ASSERT_EQ(zoriBGRToYCoCg_8u16s_C4P3R(px, 4, planes, 2, {1, 1}), zorStsOk);
    EXPECT_EQ(y, 64);
    EXPECT_EQ(co, 128);
    EXPECT_EQ(cg, -64);
    ASSERT_EQ(zoriBGRToYCoCg_Rev_8u16s_C3P3R(px, 3, planes, 2, {1, 1}), zorStsOk);
    EXPECT_EQ(y, 63);
    EXPECT_EQ(co, 255);
    EXPECT_EQ(cg, -127);
}

// Sums are cut to 16 bits before the clamp: R = 32767 + 32767 + 12 = 65,546
// comes out as 10, not 255.
TEST(YCoCg, Inverse8uWrapsBeforeClamping) {
    const Zor16s y = 32767, co = 32767, cg = -12;
    const Zor16s* planes[3] = {&y, &co, &cg};
    Zor8u bgr[3];
    ASSERT_EQ(zoriYCoCgToBGR_16s8u_P3C3R(planes, 2, bgr, 3, {1, 1}), zorStsOk);
    EXPECT_EQ(bgr[2], 10);
    EXPECT_EQ(bgr[1], 255);
    EXPECT_EQ(bgr[0], 12);
    const Zor16s y2 = 200, co2 = 100, cg2 = 0;
    const Zor16s* planes2[3] = {&y2, &co2, &cg2};
    Zor8u bgra[4] = {1, 2, 3, 4};
    ASSERT_EQ(zoriYCoCgToBGR_16s8u_P3C4R(planes2, 2, bgra, 4, {1, 1}, 77), zorStsOk);
    EXPECT_EQ(bgra[0], 100);
    EXPECT_EQ(bgra[1], 200);
    EXPECT_EQ(bgra[2], 255);  // 300 clamped
    EXPECT_EQ(bgra[3], 77);
}

// The 16-bit reversible forward cuts Co and Cg to 16 bits before halving
// them; the 32-bit one keeps them whole.
TEST(YCoCg, Rev16sHalvesWrappedDifferences) {
    const Zor16s px[3] = {-32768, 0, 32767};  // B, G, R
    Zor16s p16[3];
    Zor16s* d16[3] = {&p16[0], &p16[1], &p16[2]};
    ASSERT_EQ(zoriSBGRToYCoCg_Rev_16s_C3P3R(px, 6, d16, 2, {1, 1}), zorStsOk);
    EXPECT_EQ(p16[0], 16383);
    EXPECT_EQ(p16[1], -1);
    EXPECT_EQ(p16[2], -32767);
    Zor32s p32[3];
    Zor32s* d32[3] = {&p32[0], &p32[1], &p32[2]};
    ASSERT_EQ(zoriSBGRToYCoCg_Rev_16s32s_C3P3R(px, 6, d32, 4, {1, 1}), zorStsOk);
    EXPECT_EQ(p32[0], -1);
    EXPECT_EQ(p32[1], 65535);
    EXPECT_EQ(p32[2], 1);
}

// ---------------------------------------------------------------------------
// Round trips of the reversible pairs

// Every 8-bit BGR colour, in 16 slices of 4096 x 256 pixels.
TEST(YCoCgRoundTrip, Every8BitColour) {
    const int w = 4096, h = 256;
    std::vector<Zor8u> src(static_cast<std::size_t>(w) * h * 3), back(src.size());
    std::vector<Zor16s> planes(static_cast<std::size_t>(w) * h * 3);
    Zor16s* p[3] = {planes.data(), planes.data() + w * h, planes.data() + 2 * w * h};
    for (std::uint32_t slice = 0; slice < 16; ++slice) {
        for (std::uint32_t i = 0; i < static_cast<std::uint32_t>(w * h); ++i) {
            const std::uint32_t c = slice << 20 | i;
            src[3 * i] = static_cast<Zor8u>(c);
            src[3 * i + 1] = static_cast<Zor8u>(c >> 8);
            src[3 * i + 2] = static_cast<Zor8u>(c >> 16);
        }
        ASSERT_EQ(zoriBGRToYCoCg_Rev_8u16s_C3P3R(src.data(), 3 * w, p, 2 * w, {w, h}), zorStsOk);
        ASSERT_EQ(zoriYCoCgToBGR_Rev_16s8u_P3C3R(p, 2 * w, back.data(), 3 * w, {w, h}), zorStsOk);
        ASSERT_EQ(std::memcmp(src.data(), back.data(), src.size()), 0) << "slice " << slice;
    }
}

// Random 16-bit images plus every combination of extreme values, through
// both plane types and the C4 forms.
TEST(YCoCgRoundTrip, SixteenBit) {
    const Zor16s ends[] = {-32768, -32767, -2, -1, 0, 1, 2, 32766, 32767};
    const int n = 9;
    zt::Image<Zor16s> src(n * n, n + 40, 4, 4, 1);
    for (int y = 0; y < n; ++y)
        for (int x = 0; x < n * n; ++x) {
            src.at(x, y, 0) = ends[y];
            src.at(x, y, 1) = ends[x / n];
            src.at(x, y, 2) = ends[x % n];
        }
    const ZoriSize roi{n * n, n + 40};
    zt::Planes3<Zor16s> p16(roi.width, roi.height, 6, 2);
    zt::Planes3<Zor32s> p32(roi.width, roi.height, 4, 3);
    for (int ch : {3, 4}) {
        zt::Image<Zor16s> in = src;
        if (ch == 3) in = zt::Image<Zor16s>(roi.width, roi.height, 3, 4, 1);
        for (int y = 0; y < roi.height; ++y)
            for (int x = 0; x < roi.width; ++x)
                for (int c = 0; c < 3; ++c) in.at(x, y, c) = src.at(x, y, c);
        zt::Image<Zor16s> back16(roi.width, roi.height, ch, 2, 5), back32(roi.width, roi.height, ch, 2, 6);
        if (ch == 3) {
            ASSERT_EQ(zoriSBGRToYCoCg_Rev_16s_C3P3R(in.data(), in.step(), p16.ptr(), p16.step(), roi), zorStsOk);
            ASSERT_EQ(zoriYCoCgToSBGR_Rev_16s_P3C3R(p16.cptr(), p16.step(), back16.data(), back16.step(), roi),
                      zorStsOk);
            ASSERT_EQ(zoriSBGRToYCoCg_Rev_16s32s_C3P3R(in.data(), in.step(), p32.ptr(), p32.step(), roi), zorStsOk);
            ASSERT_EQ(zoriYCoCgToSBGR_Rev_32s16s_P3C3R(p32.cptr(), p32.step(), back32.data(), back32.step(), roi),
                      zorStsOk);
        } else {
            ASSERT_EQ(zoriSBGRToYCoCg_Rev_16s_C4P3R(in.data(), in.step(), p16.ptr(), p16.step(), roi), zorStsOk);
            ASSERT_EQ(zoriYCoCgToSBGR_Rev_16s_P3C4R(p16.cptr(), p16.step(), back16.data(), back16.step(), roi, -5),
                      zorStsOk);
            ASSERT_EQ(zoriSBGRToYCoCg_Rev_16s32s_C4P3R(in.data(), in.step(), p32.ptr(), p32.step(), roi), zorStsOk);
            ASSERT_EQ(zoriYCoCgToSBGR_Rev_32s16s_P3C4R(p32.cptr(), p32.step(), back32.data(), back32.step(), roi, 9),
                      zorStsOk);
        }
        for (int y = 0; y < roi.height; ++y)
            for (int x = 0; x < roi.width; ++x) {
                for (int c = 0; c < 3; ++c) {
                    ASSERT_EQ(back16.at(x, y, c), in.at(x, y, c)) << x << "," << y << "," << c;
                    ASSERT_EQ(back32.at(x, y, c), in.at(x, y, c)) << x << "," << y << "," << c;
                }
                if (ch == 4) {
                    ASSERT_EQ(back16.at(x, y, 3), -5);
                    ASSERT_EQ(back32.at(x, y, 3), 9);
                }
            }
    }
}

// ---------------------------------------------------------------------------
// Checks

TEST(YCoCg, NullPointersAndNoSizeCheck) {
    zt::Image<Zor8u> bgr(4, 2, 4, 0, 1);
    zt::Planes3<Zor16s> planes(4, 2, 0, 2);
    const zt::Image<Zor8u> bgrCopy = bgr;
    const zt::Planes3<Zor16s> planesCopy = planes;
    for (const auto& f : kFwd8u) {
        for (auto fn : {f.c3, f.c4}) {
            EXPECT_EQ(fn(nullptr, 16, planes.ptr(), 8, {4, 2}), zorStsNullPtr);
            EXPECT_EQ(fn(bgr.data(), 16, nullptr, 8, {0, 0}), zorStsNullPtr);
            for (int i = 0; i < 3; ++i) {
                Zor16s* p[3] = {planes.p[0].data(), planes.p[1].data(), planes.p[2].data()};
                p[i] = nullptr;
                EXPECT_EQ(fn(bgr.data(), 16, p, 8, {-1, 2}), zorStsNullPtr);
            }
            // Empty regions succeed and convert nothing.
            for (ZoriSize roi : {ZoriSize{0, 2}, ZoriSize{4, 0}, ZoriSize{-3, -3}})
                EXPECT_EQ(fn(bgr.data(), 0, planes.ptr(), -8, roi), zorStsOk);
        }
    }
    for (const auto& f : kInv8u) {
        EXPECT_EQ(f.c3(nullptr, 8, bgr.data(), 16, {4, 2}), zorStsNullPtr);
        EXPECT_EQ(f.c4(planes.cptr(), 8, nullptr, 16, {4, 2}, 0), zorStsNullPtr);
        for (int i = 0; i < 3; ++i) {
            const Zor16s* p[3] = {planes.p[0].data(), planes.p[1].data(), planes.p[2].data()};
            p[i] = nullptr;
            EXPECT_EQ(f.c3(p, 8, bgr.data(), 16, {0, 0}), zorStsNullPtr);
            EXPECT_EQ(f.c4(p, 8, bgr.data(), 16, {4, 2}, 0), zorStsNullPtr);
        }
        for (ZoriSize roi : {ZoriSize{0, 2}, ZoriSize{4, 0}, ZoriSize{-1, 5}}) {
            EXPECT_EQ(f.c3(planes.cptr(), 8, bgr.data(), 16, roi), zorStsOk);
            EXPECT_EQ(f.c4(planes.cptr(), 8, bgr.data(), 16, roi, 1), zorStsOk);
        }
    }
    EXPECT_TRUE(bgr == bgrCopy);
    EXPECT_TRUE(planes == planesCopy);
}

}  // namespace
