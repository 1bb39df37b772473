// 4:4:4 YCbCr <-> RGB/BGR: results against a per-pixel model of the
// equations, the known colours, the two decoder sets, alpha and padding,
// negative steps and the check order of each member.
#include "support/testutil.h"

#include <array>
#include <functional>

namespace {

using zt::Image;
using zt::Planes3;

// ---------------------------------------------------------------------------
// Model of the equations (written from the formulas, not from the kernels).

std::array<int, 3> modelEncode(int r, int g, int b) {
    return {(16843 * r + 33030 * g + 6423 * b + 1081344) >> 16,
            (-9699 * r - 19071 * g + 28770 * b + 8421376) >> 16,
            (28770 * r - 24117 * g - 4653 * b + 8421376) >> 16};
}

int floorShift16(long long v) { return static_cast<int>(v >= 0 ? v / 65536 : -((-v + 65535) / 65536)); }
int clamp255(int v) { return v < 0 ? 0 : v > 255 ? 255 : v; }

// Set A truncates; set B uses coefficients 2/65536 smaller and adds a half.
std::array<int, 3> modelDecode(int y, int cb, int cr, bool setB) {
    const long long d = cb - 128, e = cr - 128;
    if (!setB) {
        return {clamp255(floorShift16(76284LL * y - 1220544 + 104595 * e)),
                clamp255(floorShift16(76284LL * y - 1220544 - 25690 * d - 53281 * e)),
                clamp255(floorShift16(76284LL * y - 1220544 + 132186 * d))};
    }
    return {clamp255(floorShift16(76282LL * y - 1187744 + 104593 * e)),
            clamp255(floorShift16(76282LL * y - 1220512 - 25689 * d - 53279 * e + 32768)),
            clamp255(floorShift16(76282LL * y - 1187744 + 132184 * d))};
}

std::array<int, 3> encodeOne(int r, int g, int b) {
    Zor8u s[3] = {Zor8u(r), Zor8u(g), Zor8u(b)}, d[3] = {};
    EXPECT_EQ(zoriRGBToYCbCr_8u_C3R(s, 3, d, 3, {1, 1}), zorStsOk);
    return {d[0], d[1], d[2]};
}

std::array<int, 3> decodeOne(int y, int cb, int cr, bool setB) {
    Zor8u s[3] = {Zor8u(y), Zor8u(cb), Zor8u(cr)}, d[3] = {};
    if (!setB) {
        EXPECT_EQ(zoriYCbCrToRGB_8u_C3R(s, 3, d, 3, {1, 1}), zorStsOk);
    } else {
        const Zor8u* planes[3] = {s, s + 1, s + 2};
        EXPECT_EQ(zoriYCbCrToRGB_8u_P3C3R(planes, 1, d, 3, {1, 1}), zorStsOk);
    }
    return {d[0], d[1], d[2]};
}

using A3 = std::array<int, 3>;

TEST(YCbCr444, KnownColours) {
    EXPECT_EQ(encodeOne(0, 0, 0), (A3{16, 128, 128}));
    EXPECT_EQ(encodeOne(255, 255, 255), (A3{235, 128, 128}));
    EXPECT_EQ(encodeOne(0, 0, 255), (A3{41, 240, 110}));
    EXPECT_EQ(encodeOne(255, 0, 0), (A3{82, 90, 240}));
    EXPECT_EQ(encodeOne(0, 255, 0), (A3{145, 54, 34}));
    for (bool setB : {false, true}) {
        EXPECT_EQ(decodeOne(16, 128, 128, setB), (A3{0, 0, 0}));
        EXPECT_EQ(decodeOne(126, 128, 128, setB), (A3{128, 128, 128}));
        EXPECT_EQ(decodeOne(255, 255, 255, setB), (A3{255, 125, 255}));
    }
    // The two sets are kept apart on purpose: they differ on white and black.
    EXPECT_EQ(decodeOne(235, 128, 128, false), (A3{254, 254, 254}));
    EXPECT_EQ(decodeOne(235, 128, 128, true), (A3{255, 255, 255}));
    EXPECT_EQ(decodeOne(0, 0, 0, false), (A3{0, 135, 0}));
    EXPECT_EQ(decodeOne(0, 0, 0, true), (A3{0, 136, 0}));
}

TEST(YCbCr444, EncoderRangeOverEveryColour) {
    // Every 8-bit colour lands in the studio range (so no saturation is needed).
    Image<Zor8u> src(256, 256, 3, 0), dst(256, 256, 3, 0);
    for (int b = 0; b < 256; b += 15) {
        for (int y = 0; y < 256; ++y)
            for (int x = 0; x < 256; ++x) {
                src.at(x, y, 0) = Zor8u(x);
                src.at(x, y, 1) = Zor8u(y);
                src.at(x, y, 2) = Zor8u(b);
            }
        ASSERT_EQ(zoriRGBToYCbCr_8u_C3R(src.data(), src.step(), dst.data(), dst.step(), {256, 256}), zorStsOk);
        for (int y = 0; y < 256; ++y)
            for (int x = 0; x < 256; ++x) {
                const A3 m = modelEncode(x, y, b);
                ASSERT_EQ(dst.at(x, y, 0), m[0]);
                ASSERT_EQ(dst.at(x, y, 1), m[1]);
                ASSERT_EQ(dst.at(x, y, 2), m[2]);
                ASSERT_TRUE(m[0] >= 16 && m[0] <= 235 && m[1] >= 16 && m[1] <= 240 && m[2] >= 16 && m[2] <= 240);
            }
    }
}

TEST(YCbCr444, DecodersOverEveryYCbCrTriple) {
    // All 2^24 inputs through both decoder sets, including the saturation ends.
    Image<Zor8u> src(256, 256, 3, 0), a(256, 256, 3, 0);
    Image<Zor8u> cb(256, 256, 1, 0), cr(256, 256, 1, 0), luma(256, 256, 1, 0), b(256, 256, 3, 0);
    for (int yv = 0; yv < 256; ++yv) {
        for (int r = 0; r < 256; ++r)
            for (int c = 0; c < 256; ++c) {
                src.at(c, r, 0) = luma.at(c, r) = Zor8u(yv);
                src.at(c, r, 1) = cb.at(c, r) = Zor8u(c);
                src.at(c, r, 2) = cr.at(c, r) = Zor8u(r);
            }
        ASSERT_EQ(zoriYCbCrToRGB_8u_C3R(src.data(), src.step(), a.data(), a.step(), {256, 256}), zorStsOk);
        const Zor8u* planes[3] = {luma.data(), cb.data(), cr.data()};
        ASSERT_EQ(zoriYCbCrToRGB_8u_P3C3R(planes, 256, b.data(), b.step(), {256, 256}), zorStsOk);
        for (int r = 0; r < 256; ++r)
            for (int c = 0; c < 256; ++c) {
                const A3 ma = modelDecode(yv, c, r, false), mb = modelDecode(yv, c, r, true);
                for (int k = 0; k < 3; ++k) {
                    ASSERT_EQ(a.at(c, r, k), ma[k]) << "set A y=" << yv << " cb=" << c << " cr=" << r;
                    ASSERT_EQ(b.at(c, r, k), mb[k]) << "set B y=" << yv << " cb=" << c << " cr=" << r;
                }
            }
    }
}

// ---------------------------------------------------------------------------
// Whole-buffer comparisons on random images: every member, odd sizes, padded
// rows, negative steps. The expected buffer starts as a copy of the
// destination and gets the model's values in the converted samples only.

const ZoriSize kSizes[] = {{1, 1}, {7, 3}, {33, 17}, {2, 9}};

void expectSame(const Image<Zor8u>& got, const Image<Zor8u>& want, const char* what) {
    const auto at = zt::firstDifference(got.bytes(), want.bytes());
    EXPECT_EQ(at, -1) << what << ": first differing byte " << at;
}

template <int SrcCh, int DstCh>
void checkInterleaved(ZorStatus (*fn)(const Zor8u*, int, Zor8u*, int, ZoriSize), bool encode, const char* what) {
    for (auto [w, h] : kSizes) {
        for (bool flipped : {false, true}) {
            Image<Zor8u> src(w, h, SrcCh, 3, 11), dst(w, h, DstCh, 6, 12);
            Image<Zor8u> want = dst;
            for (int y = 0; y < h; ++y)
                for (int x = 0; x < w; ++x) {
                    const A3 m = encode ? modelEncode(src.at(x, y, 0), src.at(x, y, 1), src.at(x, y, 2))
                                        : modelDecode(src.at(x, y, 0), src.at(x, y, 1), src.at(x, y, 2), false);
                    for (int k = 0; k < 3; ++k) want.at(x, y, k) = Zor8u(m[k]);
                }
            // Flipped: both images walked bottom-up give the same rows.
            const ZorStatus st = flipped ? fn(src.flippedData(), src.flippedStep(), dst.flippedData(),
                                              dst.flippedStep(), {w, h})
                                         : fn(src.data(), src.step(), dst.data(), dst.step(), {w, h});
            ASSERT_EQ(st, zorStsOk);
            expectSame(dst, want, what);
        }
    }
}

TEST(YCbCr444, InterleavedMembersKeepAlphaAndPadding) {
    checkInterleaved<3, 3>(zoriRGBToYCbCr_8u_C3R, true, "RGBToYCbCr C3");
    checkInterleaved<4, 4>(zoriRGBToYCbCr_8u_AC4R, true, "RGBToYCbCr AC4");
    checkInterleaved<3, 3>(zoriYCbCrToRGB_8u_C3R, false, "YCbCrToRGB C3");
    checkInterleaved<4, 4>(zoriYCbCrToRGB_8u_AC4R, false, "YCbCrToRGB AC4");
}

TEST(YCbCr444, PlanarToPlanarMembers) {
    for (auto [w, h] : kSizes) {
        for (bool encode : {true, false}) {
            for (bool flipped : {false, true}) {
                Planes3<Zor8u> src(w, h, 4, 21), dst(w, h, 4, 31);
                Planes3<Zor8u> want = dst;
                for (int y = 0; y < h; ++y)
                    for (int x = 0; x < w; ++x) {
                        const int a = src.p[0].at(x, y), b = src.p[1].at(x, y), c = src.p[2].at(x, y);
                        const A3 m = encode ? modelEncode(a, b, c) : modelDecode(a, b, c, false);
                        for (int k = 0; k < 3; ++k) want.p[k].at(x, y) = Zor8u(m[k]);
                    }
                const auto* s = flipped ? src.flippedCptr() : src.cptr();
                auto* d = flipped ? dst.flippedPtr() : dst.ptr();
                const int ss = flipped ? -src.step() : src.step(), ds = flipped ? -dst.step() : dst.step();
                ASSERT_EQ(encode ? zoriRGBToYCbCr_8u_P3R(s, ss, d, ds, {w, h}) : zoriYCbCrToRGB_8u_P3R(s, ss, d, ds, {w, h}),
                          zorStsOk);
                for (int k = 0; k < 3; ++k) expectSame(dst.p[k], want.p[k], encode ? "encode P3" : "decode P3");
            }
        }
    }
}

TEST(YCbCr444, PlanarToInterleavedMembers) {
    for (auto [w, h] : kSizes) {
        for (int form = 0; form < 3; ++form) {  // RGB C3, BGR C3, BGRA C4
            const int ch = form == 2 ? 4 : 3;
            Planes3<Zor8u> src(w, h, 2, 41);
            Image<Zor8u> dst(w, h, ch, 5, 42);
            Image<Zor8u> want = dst;
            for (int y = 0; y < h; ++y)
                for (int x = 0; x < w; ++x) {
                    const A3 m = modelDecode(src.p[0].at(x, y), src.p[1].at(x, y), src.p[2].at(x, y), true);
                    const bool bgr = form != 0;
                    want.at(x, y, 0) = Zor8u(m[bgr ? 2 : 0]);
                    want.at(x, y, 1) = Zor8u(m[1]);
                    want.at(x, y, 2) = Zor8u(m[bgr ? 0 : 2]);
                    if (form == 2) want.at(x, y, 3) = 0xA7;  // aval overwrites the fourth byte
                }
            ZorStatus st = zorStsOk;
            if (form == 0) st = zoriYCbCrToRGB_8u_P3C3R(src.cptr(), src.step(), dst.data(), dst.step(), {w, h});
            if (form == 1) st = zoriYCbCrToBGR_8u_P3C3R(src.cptr(), src.step(), dst.data(), dst.step(), {w, h});
            if (form == 2)
                st = zoriYCbCrToBGR_8u_P3C4R(src.flippedCptr(), -src.step(), dst.flippedData(), dst.flippedStep(),
                                             {w, h}, 0xA7);
            ASSERT_EQ(st, zorStsOk);
            expectSame(dst, want, "planar to interleaved");
        }
    }
}

// ---------------------------------------------------------------------------
// Check order. Each probe must return the status and leave the destination
// as it was.

TEST(YCbCr444, CheckOrderInterleaved) {
    Image<Zor8u> src(4, 4, 4), dst(4, 4, 4);
    const Image<Zor8u> before = dst;
    for (auto fn : {zoriRGBToYCbCr_8u_C3R, zoriRGBToYCbCr_8u_AC4R, zoriYCbCrToRGB_8u_C3R, zoriYCbCrToRGB_8u_AC4R}) {
        EXPECT_EQ(fn(nullptr, 16, dst.data(), 16, {4, 4}), zorStsNullPtr);
        EXPECT_EQ(fn(src.data(), 16, nullptr, 16, {4, 4}), zorStsNullPtr);
        EXPECT_EQ(fn(nullptr, 16, dst.data(), 16, {0, 4}), zorStsNullPtr);  // pointers before size
        EXPECT_EQ(fn(src.data(), 16, dst.data(), 16, {0, 4}), zorStsBadSize);
        EXPECT_EQ(fn(src.data(), 16, dst.data(), 16, {4, -1}), zorStsBadSize);
        // Steps are not validated: zero and negative steps are used as given.
        EXPECT_EQ(fn(src.data(), 0, dst.data(), 0, {0, 1}), zorStsBadSize);
    }
    EXPECT_TRUE(dst == before);
}

TEST(YCbCr444, CheckOrderPlanar) {
    Planes3<Zor8u> src(4, 4), dst(4, 4);
    Image<Zor8u> inter(4, 4, 4);
    const Planes3<Zor8u> dstBefore = dst;
    const Image<Zor8u> interBefore = inter;
    const Zor8u* s[3] = {src.p[0].data(), src.p[1].data(), src.p[2].data()};
    Zor8u* d[3] = {dst.p[0].data(), dst.p[1].data(), dst.p[2].data()};
    const int st = src.step();
    const ZoriSize ok{4, 4}, zero{4, 0};

    for (auto fn : {zoriRGBToYCbCr_8u_P3R, zoriYCbCrToRGB_8u_P3R}) {
        EXPECT_EQ(fn(nullptr, st, d, st, ok), zorStsNullPtr);
        EXPECT_EQ(fn(s, st, nullptr, st, zero), zorStsNullPtr);
        // A null plane is found only after the size.
        const Zor8u* s1[3] = {s[0], nullptr, s[2]};
        Zor8u* d2[3] = {d[0], d[1], nullptr};
        EXPECT_EQ(fn(s1, st, d, st, zero), zorStsBadSize);
        EXPECT_EQ(fn(s1, st, d, st, ok), zorStsNullPtr);
        EXPECT_EQ(fn(s, st, d2, st, ok), zorStsNullPtr);
    }
    EXPECT_TRUE(dst == dstBefore);

    // Planar to interleaved: set-B RGB checks planes after the size; the BGR
    // decoders check them with the outer pointers, before the size.
    const Zor8u* s0[3] = {nullptr, s[1], s[2]};
    EXPECT_EQ(zoriYCbCrToRGB_8u_P3C3R(s0, st, inter.data(), 12, {0, 4}), zorStsBadSize);
    EXPECT_EQ(zoriYCbCrToRGB_8u_P3C3R(s0, st, inter.data(), 12, ok), zorStsNullPtr);
    EXPECT_EQ(zoriYCbCrToRGB_8u_P3C3R(s, st, nullptr, 12, zero), zorStsNullPtr);
    EXPECT_EQ(zoriYCbCrToBGR_8u_P3C3R(s0, st, inter.data(), 12, {0, 4}), zorStsNullPtr);
    EXPECT_EQ(zoriYCbCrToBGR_8u_P3C4R(s0, st, inter.data(), 16, {0, 4}, 0), zorStsNullPtr);
    EXPECT_EQ(zoriYCbCrToBGR_8u_P3C3R(nullptr, st, inter.data(), 12, ok), zorStsNullPtr);
    EXPECT_EQ(zoriYCbCrToBGR_8u_P3C4R(s, st, nullptr, 16, ok, 0), zorStsNullPtr);
    EXPECT_EQ(zoriYCbCrToBGR_8u_P3C3R(s, st, inter.data(), 12, {4, 0}), zorStsBadSize);
    EXPECT_EQ(zoriYCbCrToBGR_8u_P3C4R(s, st, inter.data(), 16, {-2, 4}, 0), zorStsBadSize);
    EXPECT_TRUE(inter == interBefore);
}

}  // namespace
