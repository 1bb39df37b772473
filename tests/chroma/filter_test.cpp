// Filtered conversions: the four-tap interpolation of 4:2:2 chroma rows and
// the deinterlacing filters with their slices, against per-sample models.
#include "chroma/picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

using ct::c2;
using ct::p2;
using ct::p3;
using ct::Picture;

int clamp255(int v) { return std::min(255, std::max(0, v)); }

// ---------------------------------------------------------------------------
// Four-tap interpolation

struct Interp {
    const char* name;
    ct::Layout src;
    ct::Call call;
};

const std::vector<Interp>& interpolators() {
    static const std::vector<Interp> all = {
        {"YCbCr420ToYCbCr422_Filter_8u_P3R", p3(420), ct::bind(zoriYCbCr420ToYCbCr422_Filter_8u_P3R)},
        {"YCrCb420ToYCbCr422_Filter_8u_P3R", p3(420, true), ct::bind(zoriYCrCb420ToYCbCr422_Filter_8u_P3R)},
        {"YCbCr420ToYCbCr422_Filter_8u_P2P3R", p2(420), ct::bind(zoriYCbCr420ToYCbCr422_Filter_8u_P2P3R)},
    };
    return all;
}

void interpModel(Picture& s, Picture& d, ZoriSize roi) {
    const int w = roi.width / 2 * 2, h = roi.height / 8 * 8, last = h / 2 - 1;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) d.Y(x, y) = s.Y(x, y);
    auto c = [&](int comp, int k, int j) { return static_cast<int>(s.C(comp, k, std::min(std::max(j, 0), last))); };
    for (int comp = 0; comp < 2; ++comp)
        for (int y = 0; y < h; ++y)
            for (int k = 0; k < w / 2; ++k) {
                const int j = y / 2;
                if (y % 2 == 0) {
                    d.C(comp, k, y) = s.C(comp, k, j);
                } else {
                    const int v = -c(comp, k, j - 1) + 9 * c(comp, k, j) + 9 * c(comp, k, j + 1) - c(comp, k, j + 2);
                    d.C(comp, k, y) = static_cast<Zor8u>(clamp255(static_cast<int>(std::floor((v + 8) / 16.0))));
                }
            }
}

TEST(ChromaInterpolate, MatchesTheFourTapModelOnRandomPictures) {
    std::uint32_t seed = 1;
    for (const Interp& m : interpolators())
        for (bool flipped : {false, true})
            for (ZoriSize roi : {ZoriSize{2, 8}, ZoriSize{3, 9}, ZoriSize{8, 15}, ZoriSize{13, 16}, ZoriSize{22, 23}}) {
                Picture src(m.src, roi.width, roi.height, seed++);
                Picture dst(p3(422), roi.width, roi.height, seed + 50), want(p3(422), roi.width, roi.height, seed + 50);
                for (Picture* p : {&src, &dst, &want}) p->setFlipped(flipped);
                interpModel(src, want, roi);
                ASSERT_EQ(m.call(src, dst, roi), zorStsOk) << m.name;
                EXPECT_TRUE(dst.bytes() == want.bytes()) << m.name << " " << roi.width << "x" << roi.height;
            }
}

TEST(ChromaInterpolate, OneBrightRowRingsWithTheNegativeTaps) {
    // Source chroma rows 0..7 (16 luma rows), all 0 but row 3 = 255.
    Picture src(p3(420), 4, 16, 1), dst(p3(422), 4, 16, 2);
    for (int c = 0; c < 2; ++c)
        for (int j = 0; j < 8; ++j)
            for (int k = 0; k < 2; ++k) src.C(c, k, j) = j == 3 ? 255 : 0;
    ASSERT_EQ(zoriYCbCr420ToYCbCr422_Filter_8u_P3R(src.cplanes(), src.steps(), dst.planes(), dst.steps(), {4, 16}),
              zorStsOk);
    const int want[16] = {0, 0, 0, 0, 0, 143, 255, 143, 0, 0, 0, 0, 0, 0, 0, 0};
    for (int c = 0; c < 2; ++c)
        for (int y = 0; y < 16; ++y) EXPECT_EQ(dst.C(c, 1, y), want[y]) << "row " << y;
}

TEST(ChromaInterpolate, ChecksPointersThenSize) {
    for (const Interp& m : interpolators()) {
        for (ZoriSize roi : {ZoriSize{1, 8}, ZoriSize{2, 7}, ZoriSize{8, 0}}) {
            Picture src(m.src, 8, 8, 1), dst(p3(422), 8, 8, 2);
            const auto before = dst.bytes();
            EXPECT_EQ(m.call(src, dst, roi), zorStsBadSize) << m.name;
            EXPECT_TRUE(dst.bytes() == before);
        }
        for (int side = 0; side < 2; ++side) {
            Picture src(m.src, 8, 8, 1), dst(p3(422), 8, 8, 2);
            Picture& p = side == 0 ? src : dst;
            for (int i = 0; i < p.pointerCount(); ++i) {
                p.setNullPointer(i);
                EXPECT_EQ(m.call(src, dst, {0, 0}), zorStsNullPtr) << m.name << " " << side << " " << i;
                p.setNullPointer(-1);
            }
        }
    }
}

// ---------------------------------------------------------------------------
// Deinterlacing

struct Deint {
    const char* name;
    ct::Layout dst;
    bool raised;  // +4 / +2 constants and C2 output
    ZorStatus (*fnP3)(const Zor8u*, int, const Zor8u*, int, Zor8u* const*, const int*, ZoriSize, unsigned);
    ZorStatus (*fnC2)(const Zor8u*, int, const Zor8u*, int, Zor8u*, int, ZoriSize, unsigned);
};

const Deint kToPlanar{"YCbCr420ToYCrCb420_Filter_8u_P2P3R", p3(420, true), false,
                      zoriYCbCr420ToYCrCb420_Filter_8u_P2P3R, nullptr};
const Deint kToPacked{"YCbCr420ToYCbCr422_Filter_8u_P2C2R", c2("YbYr"), true, nullptr,
                      zoriYCbCr420ToYCbCr422_Filter_8u_P2C2R};

// Calls on the slice that starts at luma row `first` of both pictures.
ZorStatus callSlice(const Deint& m, Picture& s, Picture& d, int first, ZoriSize roi, unsigned layout) {
    const Zor8u* sy = s.row(0, first);
    const Zor8u* sc = s.row(1, first / 2);
    if (m.fnC2) return m.fnC2(sy, s.step(0), sc, s.step(1), d.row(0, first), d.step(0), roi, layout);
    Zor8u* planes[3] = {d.row(0, first), d.row(1, first / 2), d.row(2, first / 2)};
    const int steps[3] = {d.step(0), d.step(1), d.step(2)};
    return m.fnP3(sy, s.step(0), sc, s.step(1), planes, steps, roi, layout);
}

ZorStatus callWhole(const Deint& m, Picture& s, Picture& d, ZoriSize roi, unsigned layout = zorSliceWhole) {
    if (m.fnC2) return m.fnC2(s.arg(0), s.step(0), s.arg(1), s.step(1), d.arg(0), d.step(0), roi, layout);
    return m.fnP3(s.arg(0), s.step(0), s.arg(1), s.step(1), d.planes(), d.steps(), roi, layout);
}

// Writes luma rows [y0, y1) and chroma rows [j0, j1) of the whole-picture
// result into d (in C2, chroma row j is the chroma of rows 2j and 2j+1).
void deintModel(const Deint& m, Picture& s, Picture& d, ZoriSize roi, int y0, int y1, int j0, int j1) {
    const int w = roi.width / 2 * 2, h = roi.height / 2 * 2;
    const int lb = m.raised ? 4 : 0, cb = m.raised ? 2 : 0;
    for (int y = std::max(y0, 0); y < std::min(y1, h); ++y)
        for (int x = 0; x < w; ++x) {
            const int v = s.Y(x, std::max(y - 1, 0)) + 2 * s.Y(x, y) + s.Y(x, std::min(y + 1, h - 1)) + lb;
            d.Y(x, y) = static_cast<Zor8u>(std::min(v / 4, 255));
        }
    for (int j = std::max(j0, 0); j < std::min(j1, h / 2); ++j)
        for (int c = 0; c < 2; ++c)
            for (int k = 0; k < w / 2; ++k) {
                const int v = std::min((s.C(c, k, j) + s.C(c, k, std::min(j + 1, h / 2 - 1)) + cb) / 2, 255);
                if (m.raised) {
                    d.C(c, k, 2 * j) = static_cast<Zor8u>(v);
                    d.C(c, k, 2 * j + 1) = static_cast<Zor8u>(v);
                } else {
                    d.C(c, k, j) = static_cast<Zor8u>(v);
                }
            }
}

TEST(ChromaDeinterlace, WholePictureMatchesTheModel) {
    std::uint32_t seed = 10;
    for (const Deint* m : {&kToPlanar, &kToPacked})
        for (bool flipped : {false, true})
            for (ZoriSize roi : {ZoriSize{2, 2}, ZoriSize{3, 3}, ZoriSize{8, 4}, ZoriSize{13, 11}, ZoriSize{24, 20}}) {
                Picture src(p2(420), roi.width, roi.height, seed++);
                Picture dst(m->dst, roi.width, roi.height, seed + 9), want(m->dst, roi.width, roi.height, seed + 9);
                for (Picture* p : {&src, &dst, &want}) p->setFlipped(flipped);
                deintModel(*m, src, want, roi, 0, roi.height, 0, roi.height);
                ASSERT_EQ(callWhole(*m, src, dst, roi), zorStsOk);
                EXPECT_TRUE(dst.bytes() == want.bytes()) << m->name << " " << roi.width << "x" << roi.height;
            }
}

// Slices of even heights converted one by one, in any order, give the same
// picture as one call on the whole.
TEST(ChromaDeinterlace, SlicesTogetherEqualTheWholePicture) {
    struct Split {
        int h, a, b;  // top [0,a), middle [a,b), bottom [b,h)
    };
    for (const Deint* m : {&kToPlanar, &kToPacked})
        for (Split sp : {Split{12, 4, 8}, Split{16, 2, 14}, Split{7, 2, 4}, Split{10, 6, 8}})
            for (int order = 0; order < 3; ++order) {
                const int w = 11;
                Picture src(p2(420), w, sp.h, 3);
                Picture whole(m->dst, w, sp.h, 4), sliced(m->dst, w, sp.h, 4);
                ASSERT_EQ(callWhole(*m, src, whole, {w, sp.h}), zorStsOk);
                const int hEven = sp.h / 2 * 2;
                auto top = [&] { return callSlice(*m, src, sliced, 0, {w, sp.a}, zorSliceTop); };
                auto mid = [&] { return callSlice(*m, src, sliced, sp.a, {w, sp.b - sp.a}, zorSliceMiddle); };
                auto bot = [&] { return callSlice(*m, src, sliced, sp.b, {w, hEven - sp.b}, zorSliceBottom); };
                if (order == 0) {
                    EXPECT_EQ(top(), zorStsOk);
                    EXPECT_EQ(mid(), zorStsOk);
                    EXPECT_EQ(bot(), zorStsOk);
                } else if (order == 1) {
                    EXPECT_EQ(bot(), zorStsOk);
                    EXPECT_EQ(top(), zorStsOk);
                    EXPECT_EQ(mid(), zorStsOk);
                } else {
                    EXPECT_EQ(mid(), zorStsOk);
                    EXPECT_EQ(bot(), zorStsOk);
                    EXPECT_EQ(top(), zorStsOk);
                }
                EXPECT_TRUE(sliced.bytes() == whole.bytes()) << m->name << " h " << sp.h << " order " << order;
            }
}

// Each slice writes exactly the rows it documents: from one luma row and one
// chroma row above its pointers (but the top slice), up to one luma row and
// one chroma row short of its end (but the bottom slice).
TEST(ChromaDeinterlace, EachSliceWritesItsDocumentedRows) {
    const int w = 6, h = 16, a = 6, n = 6;  // slice rows a..a+n-1
    for (const Deint* m : {&kToPlanar, &kToPacked}) {
        struct Case {
            unsigned layout;
            int first, rows, y0, y1, j0, j1;
        };
        for (Case c : {Case{zorSliceTop, 0, n, 0, n - 1, 0, n / 2 - 1},
                       Case{zorSliceMiddle, a, n, a - 1, a + n - 1, a / 2 - 1, (a + n) / 2 - 1},
                       Case{zorSliceBottom, h - n, n, h - n - 1, h, (h - n) / 2 - 1, h / 2}}) {
            Picture src(p2(420), w, h, 21);
            Picture dst(m->dst, w, h, 22), want(m->dst, w, h, 22);
            deintModel(*m, src, want, {w, h}, c.y0, c.y1, c.j0, c.j1);
            ASSERT_EQ(callSlice(*m, src, dst, c.first, {w, c.rows}, c.layout), zorStsOk);
            EXPECT_TRUE(dst.bytes() == want.bytes()) << m->name << " slice " << c.layout;
        }
    }
}

TEST(ChromaDeinterlace, UnknownSlicePositionsWriteNothing) {
    for (const Deint* m : {&kToPlanar, &kToPacked}) {
        for (unsigned layout : {0u, 2u, 3u, 5u, 8u, 17u, 20u, 64u}) {
            Picture src(p2(420), 8, 6, 1), dst(m->dst, 8, 6, 2);
            const auto before = dst.bytes();
            EXPECT_EQ(callWhole(*m, src, dst, {8, 6}, layout), zorStsOk) << layout;
            EXPECT_TRUE(dst.bytes() == before) << m->name << " layout " << layout;
        }
        // Any value holding the three bits is the whole picture.
        for (unsigned layout : {23u, 0xFFFFFFFFu}) {
            Picture src(p2(420), 8, 6, 1), dst(m->dst, 8, 6, 2), want(m->dst, 8, 6, 2);
            ASSERT_EQ(callWhole(*m, src, want, {8, 6}), zorStsOk);
            EXPECT_EQ(callWhole(*m, src, dst, {8, 6}, layout), zorStsOk);
            EXPECT_TRUE(dst.bytes() == want.bytes()) << m->name << " layout " << layout;
        }
    }
}

Picture flat(int w, int h, Zor8u v) {
    Picture p(p2(420), w, h, 1);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) p.Y(x, y) = v;
    for (int j = 0; j < h / 2; ++j)
        for (int k = 0; k < w / 2; ++k) p.C(0, k, j) = p.C(1, k, j) = v;
    return p;
}

// The packed member's +4 and +2 raise a flat picture by one everywhere, edges
// included; the planar member truncates and keeps it.
TEST(ChromaDeinterlace, FlatGreyIsRaisedByThePackedMemberOnly) {
    for (const Deint* m : {&kToPlanar, &kToPacked}) {
        Picture src = flat(8, 6, 128), dst(m->dst, 8, 6, 2);
        ASSERT_EQ(callWhole(*m, src, dst, {8, 6}), zorStsOk);
        const int want = m->raised ? 129 : 128;
        for (int y = 0; y < 6; ++y)
            for (int x = 0; x < 8; ++x) ASSERT_EQ(dst.Y(x, y), want) << m->name << " y " << y;
        const int rows = m->raised ? 6 : 3;
        for (int r = 0; r < rows; ++r)
            for (int k = 0; k < 4; ++k) {
                ASSERT_EQ(dst.C(0, k, r), want) << m->name << " row " << r;
                ASSERT_EQ(dst.C(1, k, r), want) << m->name << " row " << r;
            }
    }
}

TEST(ChromaDeinterlace, PackedMemberClampsTheRaisedMaximum) {
    Picture src = flat(4, 4, 255), dst(c2("YbYr"), 4, 4, 2);
    ASSERT_EQ(callWhole(kToPacked, src, dst, {4, 4}), zorStsOk);
    for (int y = 0; y < 4; ++y)
        for (int b = 0; b < 8; ++b) ASSERT_EQ(dst.row(0, y)[b], 255);
}

TEST(ChromaDeinterlace, PlanarMemberInterleavesSizeAndPlaneChecks) {
    Picture src(p2(420), 4, 4, 1), dst(p3(420, true), 4, 4, 2);
    const auto before = dst.bytes();
    dst.setNullPointer(0);  // the array
    EXPECT_EQ(callWhole(kToPlanar, src, dst, {0, 0}), zorStsNullPtr);
    for (int plane = 1; plane <= 3; ++plane) {
        dst.setNullPointer(plane);
        EXPECT_EQ(callWhole(kToPlanar, src, dst, {0, 4}), zorStsBadSize);
        EXPECT_EQ(callWhole(kToPlanar, src, dst, {4, 0}), zorStsBadSize);
        EXPECT_EQ(callWhole(kToPlanar, src, dst, {1, 1}), zorStsNullPtr);
        EXPECT_EQ(callWhole(kToPlanar, src, dst, {4, 4}), zorStsNullPtr);
    }
    dst.setNullPointer(-1);
    for (int i = 0; i < 2; ++i) {
        src.setNullPointer(i);
        EXPECT_EQ(callWhole(kToPlanar, src, dst, {0, 0}), zorStsNullPtr);
    }
    src.setNullPointer(-1);
    EXPECT_EQ(callWhole(kToPlanar, src, dst, {1, 4}), zorStsBadSize);
    EXPECT_EQ(callWhole(kToPlanar, src, dst, {4, 1}), zorStsBadSize);
    EXPECT_TRUE(dst.bytes() == before);
}

TEST(ChromaDeinterlace, PackedMemberChecksPointersThenSize) {
    Picture src(p2(420), 4, 4, 1), dst(c2("YbYr"), 4, 4, 2);
    const auto before = dst.bytes();
    for (int i = 0; i < 2; ++i) {
        src.setNullPointer(i);
        EXPECT_EQ(callWhole(kToPacked, src, dst, {0, 0}), zorStsNullPtr);
    }
    src.setNullPointer(-1);
    dst.setNullPointer(0);
    EXPECT_EQ(callWhole(kToPacked, src, dst, {0, 0}), zorStsNullPtr);
    dst.setNullPointer(-1);
    EXPECT_EQ(callWhole(kToPacked, src, dst, {1, 4}), zorStsBadSize);
    EXPECT_EQ(callWhole(kToPacked, src, dst, {4, 1}), zorStsBadSize);
    EXPECT_TRUE(dst.bytes() == before);
}

}  // namespace
