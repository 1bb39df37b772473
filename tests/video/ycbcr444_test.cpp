// 4:4:4 YCbCr <-> RGB/BGR: every member against a model of the equations,
// over every input and on whole padded buffers (alpha, padding, negative
// steps), the two decoder sets, and the check order of each member.
#include "support/testutil.h"

#include <array>

namespace {

using zt::Image;
using zt::Planes3;
using A3 = std::array<int, 3>;

// The equations, written from the formulas (64-bit, floor division).
int floor16(long long v) { return static_cast<int>(v >= 0 ? v / 65536 : -((-v + 65535) / 65536)); }
int clamp255(int v) { return v < 0 ? 0 : v > 255 ? 255 : v; }
A3 encode(int r, int g, int b) {
    return {floor16(16843LL * r + 33030 * g + 6423 * b + 1081344),
            floor16(-9699LL * r - 19071 * g + 28770 * b + 8421376),
            floor16(28770LL * r - 24117 * g - 4653 * b + 8421376)};
}
// Set A truncates; set B has coefficients 2/65536 smaller and adds a half.
A3 decode(int y, int cb, int cr, bool setB) {
    const long long d = cb - 128, e = cr - 128, k = setB ? 76282 : 76284, h = setB ? 32768 : 0;
    const long long l = k * (y - 16) + h;
    return {clamp255(floor16(l + (setB ? 104593 : 104595) * e)),
            clamp255(floor16(l - (setB ? 25689 : 25690) * d - (setB ? 53279 : 53281) * e)),
            clamp255(floor16(l + (setB ? 132184 : 132186) * d))};
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
    Image<Zor8u> in(4096, 4096, 3, 0), a(4096, 4096, 3, 0), b(4096, 4096, 3, 0), c(4096, 4096, 3, 0);
    Planes3<Zor8u> planes(4096, 4096, 0);
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

// The images of one call, seen top-down or bottom-up.
struct Call {
    Image<Zor8u>& si;
    Planes3<Zor8u>& sp;
    Image<Zor8u>& di;
    Planes3<Zor8u>& dp;
    bool flip;
    ZoriSize z;
    int last() const { return flip ? z.height - 1 : 0; }
    const Zor8u* s() const { return si.row(last()); }
    Zor8u* d() const { return di.row(last()); }
    int ss() const { return flip ? -si.step() : si.step(); }
    int ds() const { return flip ? -di.step() : di.step(); }
    const Zor8u* const* sP() const { return flip ? sp.flippedCptr() : sp.cptr(); }
    Zor8u* const* dP() const { return flip ? dp.flippedPtr() : dp.ptr(); }
    int sps() const { return flip ? -sp.step() : sp.step(); }
    int dps() const { return flip ? -dp.step() : dp.step(); }
};

struct Member {
    const char* name;
    Side src, dst;
    int model;  // 0 encoder, 1 set A, 2 set B
    ZorStatus (*run)(const Call&);
};

const Member kMembers[] = {
    {"RGBToYCbCr C3", kC3, kC3, 0, [](const Call& c) { return zoriRGBToYCbCr_8u_C3R(c.s(), c.ss(), c.d(), c.ds(), c.z); }},
    {"RGBToYCbCr AC4", kAC4, kAC4, 0, [](const Call& c) { return zoriRGBToYCbCr_8u_AC4R(c.s(), c.ss(), c.d(), c.ds(), c.z); }},
    {"YCbCrToRGB C3", kC3, kC3, 1, [](const Call& c) { return zoriYCbCrToRGB_8u_C3R(c.s(), c.ss(), c.d(), c.ds(), c.z); }},
    {"YCbCrToRGB AC4", kAC4, kAC4, 1, [](const Call& c) { return zoriYCbCrToRGB_8u_AC4R(c.s(), c.ss(), c.d(), c.ds(), c.z); }},
    {"RGBToYCbCr P3", kP3, kP3, 0, [](const Call& c) { return zoriRGBToYCbCr_8u_P3R(c.sP(), c.sps(), c.dP(), c.dps(), c.z); }},
    {"YCbCrToRGB P3", kP3, kP3, 1, [](const Call& c) { return zoriYCbCrToRGB_8u_P3R(c.sP(), c.sps(), c.dP(), c.dps(), c.z); }},
    {"YCbCrToRGB P3C3", kP3, kC3, 2, [](const Call& c) { return zoriYCbCrToRGB_8u_P3C3R(c.sP(), c.sps(), c.d(), c.ds(), c.z); }},
    {"YCbCrToBGR P3C3", kP3, kBgrC3, 2, [](const Call& c) { return zoriYCbCrToBGR_8u_P3C3R(c.sP(), c.sps(), c.d(), c.ds(), c.z); }},
    {"YCbCrToBGR P3C4", kP3, kBgrC4, 2,
     [](const Call& c) { return zoriYCbCrToBGR_8u_P3C4R(c.sP(), c.sps(), c.d(), c.ds(), c.z, 0xA7); }},
};

TEST(YCbCr444, EveryMemberOnPaddedImagesBothWays) {
    for (const Member& m : kMembers) {
        for (ZoriSize z : {ZoriSize{1, 1}, ZoriSize{7, 3}, ZoriSize{37, 17}, ZoriSize{2, 9}}) {
            for (int flipped : {0, 1}) {
                const int sch = m.src == kAC4 ? 4 : 3, dch = m.dst == kAC4 || m.dst == kBgrC4 ? 4 : 3;
                Image<Zor8u> si(z.width, z.height, sch, 3, 11), di(z.width, z.height, dch, 6, 12);
                Planes3<Zor8u> sp(z.width, z.height, 4, 21), dp(z.width, z.height, 4, 31);
                Image<Zor8u> wantI = di;
                Planes3<Zor8u> wantP = dp;
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
                ASSERT_EQ(m.run(Call{si, sp, di, dp, flipped == 1, z}), zorStsOk) << m.name;
                EXPECT_TRUE(di == wantI && dp == wantP) << m.name << ' ' << z.width << 'x' << z.height;
            }
        }
    }
}

// Check order: each probe returns its status and leaves the destination alone.
TEST(YCbCr444, CheckOrder) {
    Image<Zor8u> src(4, 4, 4), dst(4, 4, 4);
    Planes3<Zor8u> sp(4, 4), dp(4, 4);
    const Image<Zor8u> before = dst;
    const Planes3<Zor8u> beforeP = dp;
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
