// YCoCg: every function against a model in 64-bit arithmetic with floor
// division, on padded, contiguous, bottom-up (negative steps) and empty
// images, and its null checks; the model's documented values; a round trip.
#include "support/testutil.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

std::int64_t half(std::int64_t v) { return v >= 0 ? v / 2 : -((1 - v) / 2); }  // floor
std::int64_t low16(std::int64_t v) { return ((v % 65536) + 65536 + 32768) % 65536 - 32768; }

// Y, Co, Cg of B, G, R in 16-bit (lifting halves wrapped values) or 32-bit planes.
void forward(bool rev, bool p16, std::int64_t b, std::int64_t g, std::int64_t r, std::int64_t* o) {
    const auto keep = [p16](std::int64_t v) { return p16 ? low16(v) : v; };
    const std::int64_t co = keep(r - b), cg = keep(g - b - half(co)), lifted[3] = {b + half(co) + half(cg), co, cg};
    const std::int64_t plain[3] = {half(half(r + 2 * g + b + 2)), half(r - b + 1), half(half(2 * g - r - b + 2))};
    for (int k = 0; k < 3; ++k) o[k] = keep(rev ? lifted[k] : plain[k]);
}

// B, G, R of Y, Co, Cg: the low 16 bits, then for 8u clamped to 0..255.
template <class D>
void inverse(bool rev, std::int64_t y, std::int64_t co, std::int64_t cg, D* bgr) {
    const std::int64_t t = y - half(cg), b = rev ? t - half(co) : y - co - cg;
    const std::int64_t v[3] = {b, rev ? cg + t : y + cg, rev ? b + co : y + co - cg};
    for (int k = 0; k < 3; ++k) bgr[k] = D(sizeof(D) > 1 ? low16(v[k]) : std::clamp<std::int64_t>(low16(v[k]), 0, 255));
}

template <class T>
T sample(std::mt19937& rng) {  // the ends of the type, values near 0, any value
    const unsigned k = rng() % 16;
    if (k < 2) return k ? std::numeric_limits<T>::max() : std::numeric_limits<T>::min();
    return static_cast<T>(k < 9 ? std::int64_t(rng() % 601) - 300 : std::int64_t(rng()));
}

// Width, height, row padding in samples, both sides walked bottom-up.
const int kShapes[][4] = {{1, 1, 4, 0}, {16, 4, 0, 0}, {7, 3, 4, 1}, {33, 17, 8, 1}, {0, 3, 4, 0}, {5, 0, 4, 0}};

// Interleaved I (3 or 4 per pixel, the C4 inverse fills the fourth) to planes P (Fwd) or back;
// null pointers (interleaved, plane array, a plane); a negative region: nothing written.
template <bool Fwd, class I, class P, class F3, class F4>
void check(bool rev, F3 c3, F4 c4) {
    std::mt19937 rng(1);
    for (const auto& [w, h, pad, flip] : kShapes)
        for (int ch : {3, 4}) {
            zt::Image<I> im(w, h, ch, pad * sizeof(I), 2);
            zt::Planes3<P> pl(w, h, pad * sizeof(P), 3);
            im.fillSamples([&] { return sample<I>(rng); });
            for (auto& p : pl.p) p.fillSamples([&] { return sample<P>(rng); });
            auto [imWant, plWant] = std::pair{im, pl};
            for (int y = 0; y < h; ++y)
                for (int x = 0; x < w; ++x) {
                    std::int64_t o[3];
                    forward(rev, sizeof(P) == 2, im.at(x, y, 0), im.at(x, y, 1), im.at(x, y, 2), o);
                    for (int k = 0; k < 3; ++k) plWant.p[k].at(x, y) = static_cast<P>(o[k]);
                    inverse<I>(rev, pl.p[0].at(x, y), pl.p[1].at(x, y), pl.p[2].at(x, y), &imWant.at(x, y));
                    if (ch == 4) imWant.at(x, y, 3) = I(77);
                }
            I* i = flip ? im.flippedData() : im.data();
            P* const* p = flip ? pl.flippedPtr() : pl.ptr();
            const int is = flip ? im.flippedStep() : im.step(), ps = flip ? -pl.step() : pl.step();
            const auto call = [&](I* ip, P* const* pp, ZoriSize roi) {
                if constexpr (Fwd)
                    return (ch == 3 ? c3 : c4)(ip, is, pp, ps, roi);
                else
                    return ch == 3 ? c3(pp, ps, ip, is, roi) : c4(pp, ps, ip, is, roi, I(77));
            };
            ASSERT_EQ(call(i, p, {w, h}), zorStsOk);
            P* planes[3] = {p[0], p[1], p[2]};
            planes[w % 3] = nullptr;
            for (const auto& [ni, np] : {std::pair<I*, P* const*>{nullptr, p}, {i, nullptr}, {i, planes}})
                EXPECT_EQ(call(ni, np, {-1, 2}), zorStsNullPtr);
            EXPECT_EQ(call(i, p, {-w, h + 1}), zorStsOk);
            EXPECT_TRUE(Fwd ? pl == plWant : im == imWant) << w << "x" << h << " " << ch << " channels, rev " << rev;
        }
}

#define CHECK(Fwd, I, P, op, types, c3, c4) /* both members, plain and _Rev */     \
    check<Fwd, I, P>(false, zori##op##_##types##_##c3, zori##op##_##types##_##c4); \
    check<Fwd, I, P>(true, zori##op##_Rev_##types##_##c3, zori##op##_Rev_##types##_##c4)

TEST(YCoCg, AllFunctionsMatchModel) {
    CHECK(true, Zor8u, Zor16s, BGRToYCoCg, 8u16s, C3P3R, C4P3R);
    CHECK(true, Zor16s, Zor16s, SBGRToYCoCg, 16s, C3P3R, C4P3R);
    CHECK(true, Zor16s, Zor32s, SBGRToYCoCg, 16s32s, C3P3R, C4P3R);
    CHECK(false, Zor8u, Zor16s, YCoCgToBGR, 16s8u, P3C3R, P3C4R);
    CHECK(false, Zor16s, Zor16s, YCoCgToSBGR, 16s, P3C3R, P3C4R);
    CHECK(false, Zor16s, Zor32s, YCoCgToSBGR, 32s16s, P3C3R, P3C4R);
}

// Pure red, plain and lifted; the 16-bit lifting halves Co = 65535 as -1;
// 300 clamps to 255; a sum of 65,546 is cut to 16 bits (10) before the clamp.
TEST(YCoCg, ModelGivesTheDocumentedValues) {
    std::int64_t o[4][3];
    forward(false, true, 0, 0, 255, o[0]), forward(true, true, 0, 0, 255, o[1]);
    forward(true, true, -32768, 0, 32767, o[2]), forward(true, false, -32768, 0, 32767, o[3]);
    EXPECT_EQ(std::vector<std::int64_t>(o[0], o[4]),
              (std::vector<std::int64_t>{64, 128, -64, 63, 255, -127, 16383, -1, -32767, -1, 65535, 1}));
    Zor8u a[6];
    inverse<Zor8u>(false, 200, 100, 0, a), inverse<Zor8u>(false, 32767, 32767, -12, a + 3);
    EXPECT_EQ(std::vector<int>(a, a + 6), (std::vector<int>{100, 200, 255, 12, 255, 10}));
}

// Every 8-bit colour (16 slices of 2^20) through the reversible pair.
TEST(YCoCg, ReversiblePairGivesBackEveryColour) {
    zt::Image<Zor8u> bgr(4096, 256, 3, 0), back = bgr;
    zt::Planes3<Zor16s> p(4096, 256, 0);
    for (std::uint32_t slice = 0; slice < 16; ++slice) {
        for (std::uint32_t y = 0; y < 256; ++y)
            for (std::uint32_t x = 0; x < 4096; ++x)
                for (int k = 0; k < 3; ++k) bgr.at(x, y, k) = Zor8u((slice << 20 | y << 12 | x) >> 8 * k);
        ASSERT_EQ(zoriBGRToYCoCg_Rev_8u16s_C3P3R(bgr.data(), bgr.step(), p.ptr(), p.step(), {4096, 256}), zorStsOk);
        ASSERT_EQ(zoriYCoCgToBGR_Rev_16s8u_P3C3R(p.cptr(), p.step(), back.data(), back.step(), {4096, 256}), zorStsOk);
        ASSERT_TRUE(back == bgr) << slice;
    }
}

}  // namespace
