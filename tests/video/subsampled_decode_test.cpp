// Subsampled YCbCr to RGB/BGR: whole buffers against a per-pixel model on
// random images of many sizes, top-down and bottom-up; statuses and check
// order; the last-odd-pixel and single-column rules; the interpolating 4:2:0
// decoder.
#include "subsampled_ref.h"

#include <functional>
#include <string>
#include <vector>

namespace {

using ref::Img;
using ref::PlaneSet;
using ref::Rgb;
using ref::View;

constexpr Zor8u kAval = 0xA5;

const std::vector<int> kWidths = {1, 2, 3, 4, 5, 6, 7, 8, 9, 16, 23};
const std::vector<int> kHeights = {1, 2, 3, 5};

enum class Out { RGB3, BGR3, BGRA4 };
int channels(Out o) { return o == Out::BGRA4 ? 4 : 3; }
void put(Out o, Zor8u* row, int x, Rgb c) {
    Zor8u* q = row + x * channels(o);
    q[0] = static_cast<Zor8u>(o == Out::RGB3 ? c.r : c.b);
    q[1] = static_cast<Zor8u>(c.g);
    q[2] = static_cast<Zor8u>(o == Out::RGB3 ? c.b : c.r);
    if (o == Out::BGRA4) q[3] = kAval;
}

enum class Set { B, C };
Rgb decode(Set s, int y, int cb, int cr) { return s == Set::C ? ref::setC(y, cb, cr) : ref::setA_B(y, cb, cr, true); }

// Samples of pixel x of a packed 4:2:2 row: a last odd pixel reads Y and Cb
// from its incomplete group and Cr from the previous pair, or its Cb again
// when there is no previous pair.
struct Samples {
    int y, cb, cr;
};
Samples packedSamples(const Zor8u* s, int x, int w, bool cbYCr) {
    const int oY0 = cbYCr ? 1 : 0, oCb = cbYCr ? 0 : 1, oY1 = cbYCr ? 3 : 2, oCr = cbYCr ? 2 : 3;
    if (x < 2 * (w / 2)) {
        const Zor8u* p = s + 4 * (x / 2);
        return {p[(x & 1) ? oY1 : oY0], p[oCb], p[oCr]};
    }
    const Zor8u* p = s + 2 * x;
    return {p[oY0], p[oCb], w > 1 ? p[oCr - 4] : p[oCb]};
}

using PackedFn = std::function<ZorStatus(const Zor8u*, int, Zor8u*, int, ZoriSize)>;

struct PackedCase {
    std::string name;
    PackedFn fn;
    Set set;
    bool cbYCr;
    Out out;
    int minW;
};

const std::vector<PackedCase>& packedCases() {
    static const std::vector<PackedCase> cases = {
        {"YCbCr422ToRGB_C2C3R", zoriYCbCr422ToRGB_8u_C2C3R, Set::C, false, Out::RGB3, 1},
        {"YCbCr422ToBGR_C2C3R", zoriYCbCr422ToBGR_8u_C2C3R, Set::C, false, Out::BGR3, 2},
        {"YCbCr422ToBGR_C2C4R",
         [](const Zor8u* s, int ss, Zor8u* d, int ds, ZoriSize r) { return zoriYCbCr422ToBGR_8u_C2C4R(s, ss, d, ds, r, kAval); },
         Set::C, false, Out::BGRA4, 2},
        {"CbYCr422ToRGB_C2C3R", zoriCbYCr422ToRGB_8u_C2C3R, Set::B, true, Out::RGB3, 1},
        {"CbYCr422ToBGR_C2C4R",
         [](const Zor8u* s, int ss, Zor8u* d, int ds, ZoriSize r) { return zoriCbYCr422ToBGR_8u_C2C4R(s, ss, d, ds, r, kAval); },
         Set::B, true, Out::BGRA4, 1},
    };
    return cases;
}

TEST(SubsampledDecoders, PackedMatchModelOnAllSizes) {
    std::uint32_t seed = 1;
    for (const PackedCase& c : packedCases())
        for (int w : kWidths)
            for (int h : kHeights)
                for (bool flip : {false, true}) {
                    SCOPED_TRACE(c.name + " " + std::to_string(w) + "x" + std::to_string(h) + (flip ? " flipped" : ""));
                    Img src(w, h, 2, 5, ++seed);
                    Img dst(w, h, channels(c.out), 7, ++seed);
                    View sv{&src, flip}, dv{&dst, flip};
                    Img want = dst;
                    ZorStatus expected = zorStsBadSize;
                    if (w >= c.minW) {
                        for (int y = 0; y < h; ++y)
                            for (int x = 0; x < w; ++x) {
                                const Samples s = packedSamples(sv.row(y), x, w, c.cbYCr);
                                put(c.out, View{&want, flip}.row(y), x, decode(c.set, s.y, s.cb, s.cr));
                            }
                        expected = zorStsOk;
                    }
                    EXPECT_EQ(c.fn(sv.ptr(), sv.step(), dv.ptr(), dv.step(), {w, h}), expected);
                    EXPECT_TRUE(dst == want) << "first difference at byte " << zt::firstDifference(dst.bytes(), want.bytes());
                }
}

TEST(SubsampledDecoders, PackedToPlanarAndPlanarToPacked) {
    std::uint32_t seed = 300;
    for (int w : kWidths)
        for (int h : kHeights)
            for (bool flip : {false, true}) {
                SCOPED_TRACE(std::to_string(w) + "x" + std::to_string(h) + (flip ? " flipped" : ""));
                // Packed Y0 Cb Y1 Cr to planar RGB sharing one step, set C.
                Img src(w, h, 2, 5, ++seed);
                View sv{&src, flip};
                zt::Planes3<Zor8u> dst(w, h, 3, ++seed);
                zt::Planes3<Zor8u> want = dst;
                for (int y = 0; y < h; ++y)
                    for (int x = 0; x < w; ++x) {
                        const Samples s = packedSamples(sv.row(y), x, w, false);
                        const Rgb c = ref::setC(s.y, s.cb, s.cr);
                        View{&want.p[0], flip}.row(y)[x] = static_cast<Zor8u>(c.r);
                        View{&want.p[1], flip}.row(y)[x] = static_cast<Zor8u>(c.g);
                        View{&want.p[2], flip}.row(y)[x] = static_cast<Zor8u>(c.b);
                    }
                EXPECT_EQ(zoriYCbCr422ToRGB_8u_C2P3R(sv.ptr(), sv.step(), flip ? dst.flippedPtr() : dst.ptr(),
                                                     flip ? -dst.step() : dst.step(), {w, h}),
                          zorStsOk);
                EXPECT_TRUE(dst == want);

                // Planar 4:2:2 (three steps) to RGB, set B, chroma x / 2.
                PlaneSet p3(w, h, (w + 1) / 2, h, flip, ++seed);
                Img rgb(w, h, 3, 4, ++seed);
                Img rgbWant = rgb;
                for (int y = 0; y < h; ++y)
                    for (int x = 0; x < w; ++x) {
                        const Rgb c = ref::setA_B(p3.view(0).row(y)[x], p3.view(1).row(y)[x / 2],
                                                  p3.view(2).row(y)[x / 2], true);
                        put(Out::RGB3, View{&rgbWant, flip}.row(y), x, c);
                    }
                View rv{&rgb, flip};
                EXPECT_EQ(zoriYCbCr422ToRGB_8u_P3C3R(p3.cptrs, p3.steps, rv.ptr(), rv.step(), {w, h}), zorStsOk);
                EXPECT_TRUE(rgb == rgbWant);
            }
}

TEST(SubsampledDecoders, SingleColumnUsesCbForCr) {
    // (Y, Cb) = (128, 200) decodes as if Cr were 200 as well, in every row.
    const Zor8u col[3][2] = {{128, 200}, {128, 200}, {16, 128}};
    Zor8u rgb[3][3];
    ASSERT_EQ(zoriYCbCr422ToRGB_8u_C2C3R(&col[0][0], 2, &rgb[0][0], 3, {1, 3}), zorStsOk);
    const Rgb want = ref::setC(128, 200, 200);
    EXPECT_EQ(rgb[0][0], want.r);
    EXPECT_EQ(rgb[1][1], want.g);
    EXPECT_EQ(rgb[1][2], want.b);
    EXPECT_EQ(rgb[0][0], 245);  // with Cr = 128 red would be 130
    EXPECT_EQ(rgb[2][0], 0);
}

TEST(SubsampledDecoders, SetCDiffersFromSetsAAndB) {
    // Set C is set A lowered by 57, 14 and 13 (/65536): find pixels where that
    // decides R, G and B, and where sets B and C disagree.
    bool seen[3] = {false, false, false};
    for (int y = 16; y < 236; ++y)
        for (int c = 16; c < 241; c += 3) {
            const Rgb a = ref::setA_B(y, c, c, false), k = ref::setC(y, c, c);
            const bool diff[3] = {a.r != k.r, a.g != k.g, a.b != k.b};
            for (int i = 0; i < 3; ++i) {
                if (!diff[i] || seen[i]) continue;
                const Zor8u src[4] = {Zor8u(y), Zor8u(c), Zor8u(y), Zor8u(c)};
                Zor8u out[6];
                ASSERT_EQ(zoriYCbCr422ToRGB_8u_C2C3R(src, 4, out, 6, {2, 1}), zorStsOk);
                const int got[3] = {out[0], out[1], out[2]}, lower[3] = {k.r, k.g, k.b}, higher[3] = {a.r, a.g, a.b};
                EXPECT_EQ(got[i], lower[i]);
                EXPECT_EQ(got[i] + 1, higher[i]);
                seen[i] = true;
            }
        }
    EXPECT_TRUE(seen[0] && seen[1] && seen[2]);
    // White through set B rounds up to 255, through set C it stays at 254.
    const Zor8u white[4] = {128, 235, 128, 235};
    Zor8u b[6], c[6];
    ASSERT_EQ(zoriCbYCr422ToRGB_8u_C2C3R(white, 4, b, 6, {2, 1}), zorStsOk);
    ASSERT_EQ(zoriYCbCr422ToRGB_8u_C2C3R(white + 1, 4, c, 6, {1, 1}), zorStsOk);  // Y=235, Cb=128
    EXPECT_EQ(b[0], 255);
    EXPECT_EQ(c[0], 254);
}

TEST(SubsampledDecoders, CheckOrder) {
    Img src(6, 2, 2), dst(6, 2, 4);
    const Img before = dst;
    for (const PackedCase& c : packedCases()) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.fn(nullptr, src.step(), dst.data(), dst.step(), {0, 0}), zorStsNullPtr);
        EXPECT_EQ(c.fn(src.data(), src.step(), nullptr, dst.step(), {6, 2}), zorStsNullPtr);
        EXPECT_EQ(c.fn(src.data(), src.step(), dst.data(), dst.step(), {c.minW - 1, 2}), zorStsBadSize);
        EXPECT_EQ(c.fn(src.data(), src.step(), dst.data(), dst.step(), {6, 0}), zorStsBadSize);
    }
    // The planar members test their planes after the size.
    Zor8u* dplanes[3] = {dst.data(), nullptr, dst.data()};
    EXPECT_EQ(zoriYCbCr422ToRGB_8u_C2P3R(src.data(), src.step(), dplanes, dst.step(), {0, 2}), zorStsBadSize);
    EXPECT_EQ(zoriYCbCr422ToRGB_8u_C2P3R(src.data(), src.step(), dplanes, dst.step(), {6, 2}), zorStsNullPtr);
    EXPECT_EQ(zoriYCbCr422ToRGB_8u_C2P3R(src.data(), src.step(), nullptr, dst.step(), {0, 2}), zorStsNullPtr);
    const Zor8u* splanes[3] = {src.data(), src.data(), nullptr};
    const int steps[3] = {src.step(), src.step(), src.step()};
    EXPECT_EQ(zoriYCbCr422ToRGB_8u_P3C3R(splanes, steps, dst.data(), dst.step(), {6, 0}), zorStsBadSize);
    EXPECT_EQ(zoriYCbCr422ToRGB_8u_P3C3R(splanes, steps, dst.data(), dst.step(), {6, 2}), zorStsNullPtr);
    EXPECT_EQ(zoriYCbCr422ToRGB_8u_P3C3R(splanes, nullptr, dst.data(), dst.step(), {0, 2}), zorStsNullPtr);
    EXPECT_TRUE(dst == before);
}

// --- planar YCrCb 4:2:0 to BGRA with interpolated chroma --------------------

int interpolated(View v, int rows, int y, int k) {
    const int j = y / 2;
    if ((y & 1) == 0) return v.row(j)[k];
    auto c = [&](int r) { return static_cast<int>(v.row(r < 0 ? 0 : r >= rows ? rows - 1 : r)[k]); };
    return ref::clamp255(ref::floorShift(-c(j - 1) + 9 * c(j) + 9 * c(j + 1) - c(j + 2) + 8, 4));
}

TEST(YCrCb420FilterToBGR, MatchesModelOnAllSizes) {
    std::uint32_t seed = 700;
    for (int w : {2, 3, 4, 5, 8, 17})
        for (int h : {8, 9, 15, 16, 17, 24})
            for (bool flip : {false, true}) {
                SCOPED_TRACE(std::to_string(w) + "x" + std::to_string(h) + (flip ? " flipped" : ""));
                PlaneSet src(w, h, w / 2, h / 2, flip, ++seed);
                Img dst(w, h, 4, 6, ++seed);
                View dv{&dst, flip};
                Img want = dst;
                const int w2 = w & ~1, h8 = h & ~7;
                for (int y = 0; y < h8; ++y)
                    for (int x = 0; x < w2; ++x) {
                        const int cr = interpolated(src.view(1), h8 / 2, y, x / 2);
                        const int cb = interpolated(src.view(2), h8 / 2, y, x / 2);
                        put(Out::BGRA4, View{&want, flip}.row(y), x,
                            ref::setA_B(src.view(0).row(y)[x], cb, cr, true));
                    }
                const ZorStatus expected = (w & 1) || (h & 7) ? zorStsOddSizeWarning : zorStsOk;
                EXPECT_EQ(zoriYCrCb420ToBGR_Filter_8u_P3C4R(src.cptrs, src.steps, dv.ptr(), dv.step(), {w, h}, kAval),
                          expected);
                EXPECT_TRUE(dst == want) << "first difference at byte " << zt::firstDifference(dst.bytes(), want.bytes());
            }
}

TEST(YCrCb420FilterToBGR, BrightChromaRowAndChecks) {
    // Grey luma, Cr = 128, Cb zero but one bright row: the interpolated rows
    // next to it get (9 * 255 + 8) >> 4 = 143, the ones beyond clamp to 0.
    const int w = 2, h = 16;
    std::vector<Zor8u> y(w * h, 126), cr(h / 2, 128), cb(h / 2, 0), out(w * h * 4, 0);
    cb[3] = 255;
    const Zor8u* planes[3] = {y.data(), cr.data(), cb.data()};
    const int steps[3] = {w, 1, 1};
    ASSERT_EQ(zoriYCrCb420ToBGR_Filter_8u_P3C4R(planes, steps, out.data(), w * 4, {w, h}, 7), zorStsOk);
    auto blue = [&](int row) { return static_cast<int>(out[row * w * 4]); };
    EXPECT_EQ(blue(5), ref::setA_B(126, 143, 128, true).b);  // d[2j-1]
    EXPECT_EQ(blue(7), ref::setA_B(126, 143, 128, true).b);  // d[2j+1]
    EXPECT_EQ(blue(3), ref::setA_B(126, 0, 128, true).b);    // d[2j-3]: -16 clamped
    EXPECT_EQ(blue(6), ref::setA_B(126, 255, 128, true).b);  // the row itself
    EXPECT_EQ(out[3], 7);

    std::vector<Zor8u> before = out;
    const Zor8u* nullPlane[3] = {y.data(), nullptr, cb.data()};
    EXPECT_EQ(zoriYCrCb420ToBGR_Filter_8u_P3C4R(nullPlane, steps, out.data(), w * 4, {0, 0}, 7), zorStsNullPtr);
    EXPECT_EQ(zoriYCrCb420ToBGR_Filter_8u_P3C4R(planes, nullptr, out.data(), w * 4, {w, h}, 7), zorStsNullPtr);
    EXPECT_EQ(zoriYCrCb420ToBGR_Filter_8u_P3C4R(planes, steps, nullptr, w * 4, {w, h}, 7), zorStsNullPtr);
    EXPECT_EQ(zoriYCrCb420ToBGR_Filter_8u_P3C4R(planes, steps, out.data(), w * 4, {1, 8}, 7), zorStsBadSize);
    EXPECT_EQ(zoriYCrCb420ToBGR_Filter_8u_P3C4R(planes, steps, out.data(), w * 4, {2, 7}, 7), zorStsBadSize);
    EXPECT_EQ(out, before);
}

}  // namespace
