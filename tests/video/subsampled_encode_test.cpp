// RGB/BGR to subsampled YCbCr: whole buffers against a per-pixel model on
// random images of many sizes, top-down and bottom-up; statuses and check
// order per member; the deliberate differences between the encoders.
#include "subsampled_ref.h"
#include "twist/gamma_tables.h"

#include <functional>
#include <string>
#include <vector>

namespace {

using ref::Img;
using ref::PlaneSet;
using ref::Rgb;
using ref::View;

constexpr int kRounded = 1081344, kTruncated = 1048576;

const std::vector<int> kWidths = {1, 2, 3, 4, 5, 6, 7, 8, 9, 16, 23};
const std::vector<int> kHeights = {1, 2, 3, 4, 5, 8, 9};

enum class Src { RGB3, BGR3, BGRA4 };
int channels(Src s) { return s == Src::BGRA4 ? 4 : 3; }
Rgb pixelAt(Src s, const Zor8u* row, int x) {
    const Zor8u* q = row + x * channels(s);
    return s == Src::RGB3 ? Rgb{q[0], q[1], q[2]} : Rgb{q[2], q[1], q[0]};
}

// --- planar destinations (4:2:2, 4:2:0, 4:1:1) ------------------------------

using PlanarFn = ZorStatus (*)(const Zor8u*, int, Zor8u* const[3], const int[3], ZoriSize);

struct PlanarCase {
    std::string name;
    PlanarFn fn;
    Src src;
    int cols, rows, bias;
    bool swap, warns, planesFirst;
    int minW, minH;
};

const std::vector<PlanarCase>& planarCases() {
    static const std::vector<PlanarCase> cases = {
        {"RGBToYCbCr420_C3P3R", zoriRGBToYCbCr420_8u_C3P3R, Src::RGB3, 2, 2, 32768, false, true, false, 1, 1},
        {"BGRToYCbCr420_C3P3R", zoriBGRToYCbCr420_8u_C3P3R, Src::BGR3, 2, 2, 32768, false, true, true, 2, 2},
        {"BGRToYCbCr420_AC4P3R", zoriBGRToYCbCr420_8u_AC4P3R, Src::BGRA4, 2, 2, 32768, false, true, true, 2, 2},
        {"BGRToYCrCb420_C3P3R", zoriBGRToYCrCb420_8u_C3P3R, Src::BGR3, 2, 2, 32768, true, true, true, 2, 2},
        {"BGRToYCrCb420_AC4P3R", zoriBGRToYCrCb420_8u_AC4P3R, Src::BGRA4, 2, 2, 32768, true, true, true, 2, 2},
        {"BGRToYCbCr422_C3P3R", zoriBGRToYCbCr422_8u_C3P3R, Src::BGR3, 2, 1, 16384, false, false, true, 2, 1},
        {"BGRToYCbCr422_AC4P3R", zoriBGRToYCbCr422_8u_AC4P3R, Src::BGRA4, 2, 1, 16384, false, false, true, 2, 1},
        {"BGRToYCbCr411_C3P3R", zoriBGRToYCbCr411_8u_C3P3R, Src::BGR3, 4, 1, 32768, false, true, true, 4, 1},
        {"BGRToYCbCr411_AC4P3R", zoriBGRToYCbCr411_8u_AC4P3R, Src::BGRA4, 4, 1, 32768, false, true, true, 4, 1},
    };
    return cases;
}

PlaneSet makePlanes(const PlanarCase& c, int w, int h, bool flip, std::uint32_t seed) {
    const int cw = c.rows == 1 && c.cols == 2 ? (w + 1) / 2 : w / c.cols;
    return PlaneSet(w, h, cw, h / c.rows, flip, seed);
}

void modelPlanar(const PlanarCase& c, View src, PlaneSet& dst, int w, int h) {
    const int shift = c.cols * c.rows == 4 ? 18 : 17;
    for (int k = 0; k < h / c.rows; ++k) {
        for (int g = 0; g < w / c.cols; ++g) {
            std::int64_t sr = 0, sg = 0, sb = 0;
            for (int r = 0; r < c.rows; ++r)
                for (int i = 0; i < c.cols; ++i) {
                    const int x = g * c.cols + i, y = k * c.rows + r;
                    const Rgb p = pixelAt(c.src, src.row(y), x);
                    dst.view(0).row(y)[x] = static_cast<Zor8u>(ref::yOf(p, kRounded));
                    sr += p.r, sg += p.g, sb += p.b;
                }
            dst.view(c.swap ? 2 : 1).row(k)[g] = static_cast<Zor8u>(ref::chroma(ref::pcb(sr, sg, sb), shift, c.bias));
            dst.view(c.swap ? 1 : 2).row(k)[g] = static_cast<Zor8u>(ref::chroma(ref::pcr(sr, sg, sb), shift, c.bias));
        }
    }
    if (c.cols == 2 && c.rows == 1 && (w & 1))  // 4:2:2: the last odd pixel gets its Y only
        for (int y = 0; y < h; ++y)
            dst.view(0).row(y)[w - 1] = static_cast<Zor8u>(ref::yOf(pixelAt(c.src, src.row(y), w - 1), kRounded));
}

TEST(SubsampledEncoders, PlanarMatchModelOnAllSizes) {
    std::uint32_t seed = 1;
    for (const PlanarCase& c : planarCases()) {
        for (int w : kWidths)
            for (int h : kHeights)
                for (bool flip : {false, true}) {
                    SCOPED_TRACE(c.name + " " + std::to_string(w) + "x" + std::to_string(h) + (flip ? " flipped" : ""));
                    Img src(w, h, channels(c.src), 7, ++seed);
                    View sv{&src, flip};
                    PlaneSet dst = makePlanes(c, w, h, flip, ++seed);
                    PlaneSet want = dst;
                    ZorStatus expected = zorStsBadSize;
                    if (w >= c.minW && h >= c.minH) {
                        modelPlanar(c, sv, want, w, h);
                        const bool rounded = w % c.cols != 0 || h % c.rows != 0;
                        expected = c.warns && rounded ? zorStsOddSizeWarning : zorStsOk;
                    }
                    EXPECT_EQ(c.fn(sv.ptr(), sv.step(), dst.ptrs, dst.steps, {w, h}), expected);
                    EXPECT_TRUE(dst == want);
                }
    }
}

TEST(SubsampledEncoders, PlanarCheckOrder) {
    for (const PlanarCase& c : planarCases()) {
        SCOPED_TRACE(c.name);
        Img src(8, 4, 4);
        PlaneSet dst = makePlanes(c, 8, 4, false, 3);
        const PlaneSet before = dst;
        EXPECT_EQ(c.fn(nullptr, src.step(), dst.ptrs, dst.steps, {0, 0}), zorStsNullPtr);
        EXPECT_EQ(c.fn(src.data(), src.step(), nullptr, dst.steps, {8, 4}), zorStsNullPtr);
        EXPECT_EQ(c.fn(src.data(), src.step(), dst.ptrs, nullptr, {8, 4}), zorStsNullPtr);
        EXPECT_EQ(c.fn(src.data(), src.step(), dst.ptrs, dst.steps, {c.minW - 1, 4}), zorStsBadSize);
        EXPECT_EQ(c.fn(src.data(), src.step(), dst.ptrs, dst.steps, {8, c.minH - 1}), zorStsBadSize);
        for (int i = 0; i < 3; ++i) {
            Zor8u* planes[3] = {dst.ptrs[0], dst.ptrs[1], dst.ptrs[2]};
            planes[i] = nullptr;
            // The RGB member looks at the planes after the size, the BGR members before it.
            EXPECT_EQ(c.fn(src.data(), src.step(), planes, dst.steps, {0, 4}),
                      c.planesFirst ? zorStsNullPtr : zorStsBadSize);
            EXPECT_EQ(c.fn(src.data(), src.step(), planes, dst.steps, {8, 4}), zorStsNullPtr);
        }
        EXPECT_TRUE(dst == before);
    }
}

TEST(SubsampledEncoders, FourTwoZeroOddSizeEdgeCases) {
    // 5 x 3 converts a 4 x 2 luma region and 2 x 1 chroma and warns.
    Img src(5, 3, 3, 0, 9);
    PlaneSet dst(5, 3, 3, 2, false, 4);
    const PlaneSet before = dst;
    EXPECT_EQ(zoriRGBToYCbCr420_8u_C3P3R(src.data(), src.step(), dst.ptrs, dst.steps, {5, 3}), zorStsOddSizeWarning);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 5; ++x)
            if (x == 4 || y == 2) {
                EXPECT_EQ(dst.p[0].at(x, y), before.p[0].at(x, y)) << x << "," << y;
            }
    EXPECT_TRUE(dst.p[1].at(2, 0) == before.p[1].at(2, 0) && dst.p[1].row(1)[0] == before.p[1].row(1)[0]);
    EXPECT_NE(dst.p[1].bytes(), before.p[1].bytes());
    // Width 1: the RGB member converts nothing and warns; the BGR members refuse.
    PlaneSet one(1, 1, 1, 1, false, 5);
    const PlaneSet oneBefore = one;
    EXPECT_EQ(zoriRGBToYCbCr420_8u_C3P3R(src.data(), src.step(), one.ptrs, one.steps, {1, 1}), zorStsOddSizeWarning);
    EXPECT_EQ(zoriBGRToYCbCr420_8u_C3P3R(src.data(), src.step(), one.ptrs, one.steps, {1, 2}), zorStsBadSize);
    EXPECT_TRUE(one == oneBefore);
}

// --- packed destinations --------------------------------------------------------

using PackedFn = ZorStatus (*)(const Zor8u*, int, Zor8u*, int, ZoriSize);
using PixelFn = std::function<Rgb(int x, int y)>;

struct PackedRule {
    bool cbYCr;  // byte order Cb Y0 Cr Y1 instead of Y0 Cb Y1 Cr
    int y1Bias, biasCb, biasCr;
};

void modelPacked(const PackedRule& r, const PixelFn& px, View dst, int w, int h) {
    const int oY0 = r.cbYCr ? 1 : 0, oCb = r.cbYCr ? 0 : 1, oY1 = r.cbYCr ? 3 : 2, oCr = r.cbYCr ? 2 : 3;
    for (int y = 0; y < h; ++y) {
        Zor8u* d = dst.row(y);
        for (int k = 0; k < w / 2; ++k) {
            const Rgb a = px(2 * k, y), b = px(2 * k + 1, y);
            d[4 * k + oY0] = static_cast<Zor8u>(ref::yOf(a, kRounded));
            d[4 * k + oY1] = static_cast<Zor8u>(ref::yOf(b, r.y1Bias));
            d[4 * k + oCb] = static_cast<Zor8u>(ref::chroma(ref::pcb(a.r + b.r, a.g + b.g, a.b + b.b), 17, r.biasCb));
            d[4 * k + oCr] = static_cast<Zor8u>(ref::chroma(ref::pcr(a.r + b.r, a.g + b.g, a.b + b.b), 17, r.biasCr));
        }
        if (w & 1) {  // last odd pixel: rounded Y and its own Cb, no Cr
            const Rgb a = px(w - 1, y);
            d[2 * (w - 1) + oY0] = static_cast<Zor8u>(ref::yOf(a, kRounded));
            d[2 * (w - 1) + oCb] = static_cast<Zor8u>(ref::chroma(ref::pcb(a.r, a.g, a.b), 16, 32768));
        }
    }
}

// The filtered encoder: 1/4, 1/2, 1/4 over pixels 2k-1, 2k, 2k+1, nothing left
// of the row, each term floored on its own, 8421375.
void modelFiltered(const PixelFn& px, View dst, int w, int h) {
    for (int y = 0; y < h; ++y) {
        Zor8u* d = dst.row(y);
        auto filt = [&](int k, auto prod) {
            auto p = [&](int x) {
                const Rgb q = px(x, y);
                return prod(q.r, q.g, q.b);
            };
            std::int64_t s = ref::floorShift(p(2 * k), 1) + ref::floorShift(p(2 * k + 1), 2) + 8421375;
            if (k > 0) s += ref::floorShift(p(2 * k - 1), 2);
            return static_cast<Zor8u>(ref::floorShift(s, 16) & 0xFF);
        };
        for (int k = 0; k < w / 2; ++k) {
            d[4 * k + 0] = filt(k, ref::pcb);
            d[4 * k + 1] = static_cast<Zor8u>(ref::yOf(px(2 * k, y), kRounded));
            d[4 * k + 2] = filt(k, ref::pcr);
            d[4 * k + 3] = static_cast<Zor8u>(ref::yOf(px(2 * k + 1, y), kRounded));
        }
        if (w & 1) {
            const Rgb a = px(w - 1, y);
            d[2 * (w - 1) + 0] = static_cast<Zor8u>(ref::chroma(ref::pcb(a.r, a.g, a.b), 16, 32768));
            d[2 * (w - 1) + 1] = static_cast<Zor8u>(ref::yOf(a, kRounded));
        }
    }
}

struct PackedCase {
    std::string name;
    PackedFn fn;
    Src src;
    bool filtered, gamma;
    PackedRule rule;
    int minW;
};

const std::vector<PackedCase>& packedCases() {
    static const std::vector<PackedCase> cases = {
        {"RGBToYCbCr422_C3C2R", zoriRGBToYCbCr422_8u_C3C2R, Src::RGB3, false, false, {false, kTruncated, 65536, 65536}, 1},
        {"BGRToCbYCr422_AC4C2R", zoriBGRToCbYCr422_8u_AC4C2R, Src::BGRA4, false, false, {true, kRounded, 65536, 65534}, 1},
        {"BGRToYCbCr422_C3C2R", zoriBGRToYCbCr422_8u_C3C2R, Src::BGR3, false, false, {false, kRounded, 16384, 16384}, 2},
        {"BGRToYCbCr422_AC4C2R", zoriBGRToYCbCr422_8u_AC4C2R, Src::BGRA4, false, false, {false, kRounded, 16384, 16384}, 2},
        {"RGBToCbYCr422_C3C2R", zoriRGBToCbYCr422_8u_C3C2R, Src::RGB3, true, false, {}, 1},
        {"RGBToCbYCr422Gamma_C3C2R", zoriRGBToCbYCr422Gamma_8u_C3C2R, Src::RGB3, true, true, {}, 1},
    };
    return cases;
}

TEST(SubsampledEncoders, PackedMatchModelOnAllSizes) {
    std::uint32_t seed = 100;
    for (const PackedCase& c : packedCases()) {
        for (int w : kWidths)
            for (int h : kHeights)
                for (bool flip : {false, true}) {
                    SCOPED_TRACE(c.name + " " + std::to_string(w) + "x" + std::to_string(h) + (flip ? " flipped" : ""));
                    Img src(w, h, channels(c.src), 6, ++seed);
                    Img dst(w, h, 2, 5, ++seed);
                    View sv{&src, flip}, dv{&dst, flip};
                    Img want = dst;
                    ZorStatus expected = zorStsBadSize;
                    if (w >= c.minW) {
                        const PixelFn px = [&](int x, int y) {
                            Rgb p = pixelAt(c.src, sv.row(y), x);
                            if (c.gamma) p = {zor::tableFwd8u[p.r], zor::tableFwd8u[p.g], zor::tableFwd8u[p.b]};
                            return p;
                        };
                        if (c.filtered)
                            modelFiltered(px, View{&want, flip}, w, h);
                        else
                            modelPacked(c.rule, px, View{&want, flip}, w, h);
                        expected = zorStsOk;
                    }
                    if (c.gamma && flip) expected = w >= c.minW ? zorStsStepErr : zorStsBadSize;
                    if (expected == zorStsStepErr) want = dst;
                    EXPECT_EQ(c.fn(sv.ptr(), sv.step(), dv.ptr(), dv.step(), {w, h}), expected);
                    EXPECT_TRUE(dst == want) << "first difference at byte " << zt::firstDifference(dst.bytes(), want.bytes());
                }
    }
}

TEST(SubsampledEncoders, PackedFromPlanarRgb) {
    std::uint32_t seed = 500;
    for (int w : kWidths)
        for (int h : {1, 3, 4})
            for (bool flip : {false, true}) {
                SCOPED_TRACE(std::to_string(w) + "x" + std::to_string(h) + (flip ? " flipped" : ""));
                zt::Planes3<Zor8u> src(w, h, 3, ++seed);  // one step serves the three planes
                Img dst(w, h, 2, 3, ++seed);
                View dv{&dst, flip};
                Img want = dst;
                const PixelFn px = [&](int x, int y) {
                    auto at = [&](int i) { return View{&src.p[i], flip}.row(y)[x]; };
                    return Rgb{at(0), at(1), at(2)};
                };
                modelPacked({false, kTruncated, 65536, 65536}, px, View{&want, flip}, w, h);
                const int step = flip ? -src.step() : src.step();
                EXPECT_EQ(zoriRGBToYCbCr422_8u_P3C2R(flip ? src.flippedCptr() : src.cptr(), step, dv.ptr(), dv.step(),
                                                     {w, h}),
                          zorStsOk);
                EXPECT_TRUE(dst == want);
            }
}

TEST(SubsampledEncoders, PackedCheckOrder) {
    Img src(6, 2, 4), dst(6, 2, 2);
    const Img before = dst;
    for (const PackedCase& c : packedCases()) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.fn(nullptr, src.step(), dst.data(), dst.step(), {0, 0}), zorStsNullPtr);
        EXPECT_EQ(c.fn(src.data(), src.step(), nullptr, dst.step(), {6, 2}), zorStsNullPtr);
        EXPECT_EQ(c.fn(src.data(), src.step(), dst.data(), dst.step(), {c.minW - 1, 2}), zorStsBadSize);
        EXPECT_EQ(c.fn(src.data(), src.step(), dst.data(), dst.step(), {6, 0}), zorStsBadSize);
    }
    // Only the gamma member validates steps, and only after the size.
    EXPECT_EQ(zoriRGBToCbYCr422Gamma_8u_C3C2R(src.data(), 0, dst.data(), dst.step(), {0, 2}), zorStsBadSize);
    EXPECT_EQ(zoriRGBToCbYCr422Gamma_8u_C3C2R(src.data(), 0, dst.data(), dst.step(), {6, 2}), zorStsStepErr);
    EXPECT_EQ(zoriRGBToCbYCr422Gamma_8u_C3C2R(src.data(), src.step(), dst.data(), -dst.step(), {6, 2}), zorStsStepErr);
    const Zor8u* planes[3] = {src.data(), nullptr, src.data()};
    EXPECT_EQ(zoriRGBToYCbCr422_8u_P3C2R(planes, src.step(), dst.data(), dst.step(), {0, 2}), zorStsBadSize);
    EXPECT_EQ(zoriRGBToYCbCr422_8u_P3C2R(planes, src.step(), dst.data(), dst.step(), {6, 2}), zorStsNullPtr);
    EXPECT_EQ(zoriRGBToYCbCr422_8u_P3C2R(nullptr, src.step(), dst.data(), dst.step(), {0, 2}), zorStsNullPtr);
    EXPECT_TRUE(dst == before);
    // The plain filtered member accepts a zero step: every row is row 0.
    Img one(4, 1, 3, 0, 3);
    Img d3(4, 3, 2, 0, 4);
    EXPECT_EQ(zoriRGBToCbYCr422_8u_C3C2R(one.data(), 0, d3.data(), d3.step(), {4, 3}), zorStsOk);
    EXPECT_TRUE(std::equal(d3.row(0), d3.row(0) + 8, d3.row(2)));
}

// --- the deliberate differences, one uniform pair at a time ----------------

// Encodes a 2 x 1 image of two equal BGR pixels through a packed member.
std::vector<Zor8u> pairOf(PackedFn fn, bool alpha, int r, int g, int b) {
    const int ch = alpha ? 4 : 3;
    std::vector<Zor8u> src(2 * ch, 0), dst(4, 0);
    for (int i = 0; i < 2; ++i) {
        src[i * ch + 0] = static_cast<Zor8u>(b);
        src[i * ch + 1] = static_cast<Zor8u>(g);
        src[i * ch + 2] = static_cast<Zor8u>(r);
    }
    EXPECT_EQ(fn(src.data(), 2 * ch, dst.data(), 4, {2, 1}), zorStsOk);
    return dst;
}

TEST(SubsampledEncoders, BiasesDifferBetweenMembers) {
    // Searches the colours for pairs where each bias decides the byte and
    // checks that the member keeps its own bias.
    bool cbEighthSeen = false, crEcbySeen = false, y1Seen = false;
    for (int r = 0; r < 256 && !(cbEighthSeen && crEcbySeen && y1Seen); r += 5)
        for (int g = 0; g < 256; g += 7)
            for (int b = 0; b < 256; b += 11) {
                const std::int64_t cbp = 2 * ref::pcb(r, g, b);
                if (!cbEighthSeen && ref::chroma(cbp, 17, 65536) != ref::chroma(cbp, 17, 16384)) {
                    // EB422 (one eighth) gives one less than the half of E422 here.
                    const auto eb = pairOf(zoriBGRToYCbCr422_8u_C3C2R, false, r, g, b);
                    EXPECT_EQ(eb[1], ref::chroma(cbp, 17, 16384));
                    EXPECT_EQ(eb[1] + 1, ref::chroma(cbp, 17, 65536));
                    cbEighthSeen = true;
                }
                if (!y1Seen && ref::yOf({r, g, b}, kRounded) != ref::yOf({r, g, b}, kTruncated)) {
                    // RGB to Y0 Cb Y1 Cr: the second Y of a pair is truncated.
                    const Zor8u px[6] = {Zor8u(r), Zor8u(g), Zor8u(b), Zor8u(r), Zor8u(g), Zor8u(b)};
                    Zor8u d[4];
                    ASSERT_EQ(zoriRGBToYCbCr422_8u_C3C2R(px, 6, d, 4, {2, 1}), zorStsOk);
                    EXPECT_EQ(d[0], d[2] + 1);
                    y1Seen = true;
                }
            }
    // Cb Y Cr Y from BGRA: Cr takes 65534, not a full half. That decides the
    // byte only where the pair's Cr product is 32768 above a multiple of 65536.
    for (int r = 0; r < 256 && !crEcbySeen; ++r)
        for (int g = 0; g < 256 && !crEcbySeen; ++g)
            for (int b = 0; b < 256 && !crEcbySeen; ++b) {
                const std::int64_t crp = 2 * ref::pcr(r, g, b);
                if (ref::chroma(crp, 17, 65534) == ref::chroma(crp, 17, 65536)) continue;
                const auto e = pairOf(zoriBGRToCbYCr422_8u_AC4C2R, true, r, g, b);
                EXPECT_EQ(e[2] + 1, ref::chroma(crp, 17, 65536)) << r << "," << g << "," << b;
                crEcbySeen = true;
            }
    EXPECT_TRUE(cbEighthSeen && crEcbySeen && y1Seen);
}

TEST(SubsampledEncoders, FilteredFirstPairHasThreeQuartersWeight) {
    // A row of pure blue: the interior pairs get the full Cb of blue (240),
    // the first pair lacks its left quarter.
    std::vector<Zor8u> src(8 * 3, 0), dst(16, 0);
    for (int x = 0; x < 8; ++x) src[3 * x + 2] = 255;
    ASSERT_EQ(zoriRGBToCbYCr422_8u_C3C2R(src.data(), 24, dst.data(), 16, {8, 1}), zorStsOk);
    // Blue's Cb product is 7336350: halves and quarters floor to 3668175 and 1834087.
    EXPECT_EQ(dst[4], (3668175 + 2 * 1834087 + 8421375) >> 16);  // 240
    EXPECT_EQ(dst[0], (3668175 + 1834087 + 8421375) >> 16);      // 212
    EXPECT_EQ(dst[1], 41);
}

}  // namespace
