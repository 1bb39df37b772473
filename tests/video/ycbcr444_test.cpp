// 4:4:4 YCbCr <-> RGB/BGR: every member against the per-pixel models, over
// every input and on whole padded buffers (alpha, padding, negative steps),
// the two decoder sets, and the check order of each member.
#include "subsampled_ref.h"

#include <array>

namespace {

using A3 = std::array<int, 3>;
using ref::Img;

A3 encode(int r, int g, int b) {
    return {ref::yOf({r, g, b}, ref::kRounded), ref::chroma(ref::pcb(r, g, b), 16, 32768),
            ref::chroma(ref::pcr(r, g, b), 16, 32768)};
}
A3 decode(int y, int cb, int cr, bool setB) {
    const ref::Rgb c = ref::setA_B(y, cb, cr, setB);
    return {c.r, c.g, c.b};
}

TEST(YCbCr444, KnownColoursAndTheTwoDecoderSets) {
    EXPECT_EQ(encode(0, 0, 0), (A3{16, 128, 128}));
    EXPECT_EQ(encode(255, 255, 255), (A3{235, 128, 128}));
    EXPECT_EQ(encode(0, 0, 255), (A3{41, 240, 110}));
    EXPECT_EQ(encode(255, 0, 0), (A3{82, 90, 240}));
    EXPECT_EQ(encode(0, 255, 0), (A3{145, 54, 34}));
    for (bool setB : {false, true}) {
        EXPECT_EQ(decode(16, 128, 128, setB), (A3{0, 0, 0}));
        EXPECT_EQ(decode(126, 128, 128, setB), (A3{128, 128, 128}));
        EXPECT_EQ(decode(255, 255, 255, setB), (A3{255, 125, 255}));
    }
    // The sets are kept apart on purpose: they differ on white and black.
    EXPECT_EQ(decode(235, 128, 128, false), (A3{254, 254, 254}));
    EXPECT_EQ(decode(235, 128, 128, true), (A3{255, 255, 255}));
    EXPECT_EQ(decode(0, 0, 0, false), (A3{0, 135, 0}));
    EXPECT_EQ(decode(0, 0, 0, true), (A3{0, 136, 0}));
}

TEST(YCbCr444, EveryInputThroughTheEncoderAndBothDecoderSets) {
    Img in(4096, 4096, 3, 0), a(4096, 4096, 3, 0), b(4096, 4096, 3, 0), c(4096, 4096, 3, 0);
    zt::Planes3<Zor8u> planes(4096, 4096, 0);
    for (int i = 0; i < (1 << 24); ++i)
        for (int k = 0; k < 3; ++k) in.data()[3 * i + k] = planes.p[k].data()[i] = Zor8u(i >> (16 - 8 * k));
    const ZoriSize all{4096, 4096};
    ASSERT_EQ(zoriRGBToYCbCr_8u_C3R(in.data(), in.step(), a.data(), a.step(), all), zorStsOk);
    ASSERT_EQ(zoriYCbCrToRGB_8u_C3R(in.data(), in.step(), b.data(), b.step(), all), zorStsOk);
    ASSERT_EQ(zoriYCbCrToRGB_8u_P3C3R(planes.cptr(), planes.step(), c.data(), c.step(), all), zorStsOk);
    for (int i = 0; i < (1 << 24); ++i) {
        const int p = i >> 16, q = (i >> 8) & 255, r = i & 255;
        const A3 e = encode(p, q, r), da = decode(p, q, r, false), db = decode(p, q, r, true);
        for (int k = 0; k < 3; ++k) {
            ASSERT_EQ(a.data()[3 * i + k], e[k]) << "encoder, input " << i;
            ASSERT_EQ(b.data()[3 * i + k], da[k]) << "set A, input " << i;
            ASSERT_EQ(c.data()[3 * i + k], db[k]) << "set B, input " << i;
        }
    }
}

// Every member on random padded images, walked top-down and bottom-up. The
// expected buffer is a copy of the destination with the model's values in the
// converted samples only (alpha and padding keep theirs; aval fills BGRA).
enum Side { kC3, kAC4, kP3, kBgrC3, kBgrC4 };
struct Member {
    const char* name;
    Side src, dst;
    int model;  // 0 encoder, 1 set A, 2 set B
    ZorStatus (*run)(ref::View s, zt::Planes3<Zor8u>& sp, ref::View d, zt::Planes3<Zor8u>& dp, ZoriSize z);
};

// Planes with one step, seen the way the view v is.
#define ZT_S(v, p) (v.flip ? p.flippedCptr() : p.cptr()), (v.flip ? -p.step() : p.step())
#define ZT_D(v, p) (v.flip ? p.flippedPtr() : p.ptr()), (v.flip ? -p.step() : p.step())
#define ZT_ARGS ref::View s, zt::Planes3<Zor8u>&sp, ref::View d, zt::Planes3<Zor8u>&dp, ZoriSize z
#define ZT_II(f) [](ZT_ARGS) { return (void)sp, (void)dp, f(s.ptr(), s.step(), d.ptr(), d.step(), z); }
#define ZT_PP(f) [](ZT_ARGS) { return f(ZT_S(s, sp), ZT_D(d, dp), z); }
#define ZT_PI(f, ...) [](ZT_ARGS) { return (void)dp, f(ZT_S(s, sp), d.ptr(), d.step(), z __VA_ARGS__); }
const Member kMembers[] = {
    {"RGBToYCbCr C3", kC3, kC3, 0, ZT_II(zoriRGBToYCbCr_8u_C3R)},
    {"RGBToYCbCr AC4", kAC4, kAC4, 0, ZT_II(zoriRGBToYCbCr_8u_AC4R)},
    {"YCbCrToRGB C3", kC3, kC3, 1, ZT_II(zoriYCbCrToRGB_8u_C3R)},
    {"YCbCrToRGB AC4", kAC4, kAC4, 1, ZT_II(zoriYCbCrToRGB_8u_AC4R)},
    {"RGBToYCbCr P3", kP3, kP3, 0, ZT_PP(zoriRGBToYCbCr_8u_P3R)},
    {"YCbCrToRGB P3", kP3, kP3, 1, ZT_PP(zoriYCbCrToRGB_8u_P3R)},
    {"YCbCrToRGB P3C3", kP3, kC3, 2, ZT_PI(zoriYCbCrToRGB_8u_P3C3R)},
    {"YCbCrToBGR P3C3", kP3, kBgrC3, 2, ZT_PI(zoriYCbCrToBGR_8u_P3C3R)},
    {"YCbCrToBGR P3C4", kP3, kBgrC4, 2, ZT_PI(zoriYCbCrToBGR_8u_P3C4R, , 0xA7)},
};

TEST(YCbCr444, EveryMemberOnPaddedImagesBothWays) {
    for (const Member& m : kMembers) {
        for (ZoriSize z : {ZoriSize{1, 1}, ZoriSize{7, 3}, ZoriSize{37, 17}, ZoriSize{2, 9}}) {
            for (bool flip : {false, true}) {
                const int sch = m.src == kAC4 ? 4 : 3, dch = m.dst == kAC4 || m.dst == kBgrC4 ? 4 : 3;
                Img si(z.width, z.height, sch, 3, 11), di(z.width, z.height, dch, 6, 12);
                zt::Planes3<Zor8u> sp(z.width, z.height, 4, 21), dp(z.width, z.height, 4, 31), wantP = dp;
                Img wantI = di;
                for (int y = 0; y < z.height; ++y)
                    for (int x = 0; x < z.width; ++x) {
                        A3 v;
                        for (int k = 0; k < 3; ++k) v[k] = m.src == kP3 ? sp.p[k].at(x, y) : si.at(x, y, k);
                        A3 o = m.model == 0 ? encode(v[0], v[1], v[2]) : decode(v[0], v[1], v[2], m.model == 2);
                        if (m.dst == kBgrC3 || m.dst == kBgrC4) std::swap(o[0], o[2]);
                        for (int k = 0; k < 3; ++k)
                            (m.dst == kP3 ? wantP.p[k].at(x, y) : wantI.at(x, y, k)) = Zor8u(o[k]);
                        if (m.dst == kBgrC4) wantI.at(x, y, 3) = 0xA7;
                    }
                ASSERT_EQ(m.run(ref::View{&si, flip}, sp, ref::View{&di, flip}, dp, z), zorStsOk) << m.name;
                EXPECT_TRUE(di == wantI && dp == wantP) << m.name << ' ' << z.width << 'x' << z.height;
            }
        }
    }
}

// Check order: each probe returns its status and leaves the destination alone.
TEST(YCbCr444, CheckOrder) {
    Img src(4, 4, 4), dst(4, 4, 4);
    zt::Planes3<Zor8u> sp(4, 4), dp(4, 4);
    const Img before = dst;
    const zt::Planes3<Zor8u> beforeP = dp;
    for (auto fn : {zoriRGBToYCbCr_8u_C3R, zoriRGBToYCbCr_8u_AC4R, zoriYCbCrToRGB_8u_C3R, zoriYCbCrToRGB_8u_AC4R}) {
        EXPECT_EQ(fn(nullptr, 16, dst.data(), 16, {4, 4}), zorStsNullPtr);
        EXPECT_EQ(fn(src.data(), 16, nullptr, 16, {0, 4}), zorStsNullPtr);  // pointers before size
        EXPECT_EQ(fn(src.data(), 16, dst.data(), 16, {4, -1}), zorStsBadSize);
        EXPECT_EQ(fn(src.data(), 0, dst.data(), 0, {0, 1}), zorStsBadSize);  // steps are not validated
    }
    const Zor8u* const* s = sp.cptr();
    Zor8u* const* d = dp.ptr();
    const Zor8u* s1[3] = {s[0], nullptr, s[2]};
    Zor8u* d2[3] = {d[0], d[1], nullptr};
    const int st = sp.step();
    for (auto fn : {zoriRGBToYCbCr_8u_P3R, zoriYCbCrToRGB_8u_P3R}) {
        EXPECT_EQ(fn(nullptr, st, d, st, {4, 4}), zorStsNullPtr);
        EXPECT_EQ(fn(s, st, nullptr, st, {4, 0}), zorStsNullPtr);
        EXPECT_EQ(fn(s1, st, d, st, {4, 0}), zorStsBadSize);  // a null plane is found after the size
        EXPECT_EQ(fn(s1, st, d, st, {4, 4}), zorStsNullPtr);
        EXPECT_EQ(fn(s, st, d2, st, {4, 4}), zorStsNullPtr);
    }
    // Set-B RGB tests its planes after the size; the BGR decoders with the pointers.
    EXPECT_EQ(zoriYCbCrToRGB_8u_P3C3R(s1, st, dst.data(), 12, {0, 4}), zorStsBadSize);
    EXPECT_EQ(zoriYCbCrToRGB_8u_P3C3R(s1, st, dst.data(), 12, {4, 4}), zorStsNullPtr);
    EXPECT_EQ(zoriYCbCrToBGR_8u_P3C3R(s1, st, dst.data(), 12, {0, 4}), zorStsNullPtr);
    EXPECT_EQ(zoriYCbCrToBGR_8u_P3C4R(s1, st, dst.data(), 16, {0, 4}, 0), zorStsNullPtr);
    EXPECT_EQ(zoriYCbCrToBGR_8u_P3C4R(s, st, nullptr, 16, {4, 4}, 0), zorStsNullPtr);
    EXPECT_EQ(zoriYCbCrToBGR_8u_P3C3R(s, st, dst.data(), 12, {4, 0}), zorStsBadSize);
    EXPECT_TRUE(dst == before && dp == beforeP);
}

}  // namespace
