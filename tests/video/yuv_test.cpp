// YUV and RGB: every member against a per-pixel model on random images of even
// and odd sizes, padded and bottom-up (whole-image forms: packed, including
// sizes that take the one-run path); statuses and check order; pinned values.
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "support/testutil.h"

namespace {

// ---------------------------------------------------------------------------
// Model

std::int64_t floorShift(std::int64_t v, int s) {
    const std::int64_t d = std::int64_t{1} << s;
    return v >= 0 ? v / d : -((-v + d - 1) / d);
}
int clamp255(std::int64_t v) { return v < 0 ? 0 : v > 255 ? 255 : static_cast<int>(v); }

std::int64_t lumaSum(int r, int g, int b) { return 19595LL * r + 38470LL * g + 7471LL * b; }

// U and V of a group of n = 1, 2, 4 pixels from its sums.
void chromaOf(std::int64_t sr, std::int64_t sb, std::int64_t ss, int n, int& u, int& v) {
    const int shift = n == 1 ? 16 : n == 2 ? 17 : 18;
    const std::int64_t round = n == 1 ? 32767 : n == 2 ? 65535 : 131071;
    const std::int64_t dB = floorShift(65536 * sb - ss + round, 16), dR = floorShift(65536 * sr - ss + round, 16);
    u = static_cast<int>((floorShift(dB * 32244, shift) + 128) & 255);
    v = clamp255(floorShift(dR * 57475, shift) + 128);
}

void rgbOf(int Y, int U, int V, bool round, int& r, int& g, int& b) {
    const std::int64_t l = 65536LL * Y + (round ? 32768 : 0), u = U - 128, v = V - 128;
    r = clamp255(floorShift(l + 74711 * v, 16));
    g = clamp255(floorShift(l - 25821 * u - 38076 * v, 16));
    b = clamp255(floorShift(l + 133169 * u, 16));
}

// ---------------------------------------------------------------------------
// Image sides: one interleaved image or three planes, with channel access by
// region pixel.

enum class Lay { C3, AC4, BGR3, C2, P3 };

struct Side {
    Lay lay;
    int hs = 0, vs = 0;  // chroma subsampling of a P3 YUV side
    bool flip = false;
    std::vector<zt::Image<Zor8u>> im;
    Zor8u* ptr[3];
    int stp[3];

    // chromaW/H: size of planes 1 and 2 of a P3 side. Shared step: all planes
    // padded alike; otherwise each plane gets its own step.
    Side(Lay l, int w, int h, int chromaW, int chromaH, int hs_, int vs_, bool flip_, int pad, bool shared,
         std::uint32_t seed)
        : lay(l), hs(hs_), vs(vs_), flip(flip_) {
        if (l == Lay::P3) {
            im.emplace_back(w, h, 1, pad, seed);
            im.emplace_back(chromaW, chromaH, 1, shared || pad == 0 ? pad : pad + 3, seed + 1);
            im.emplace_back(chromaW, chromaH, 1, shared || pad == 0 ? pad : pad + 5, seed + 2);
        } else {
            im.emplace_back(w, h, l == Lay::C3 || l == Lay::BGR3 ? 3 : l == Lay::AC4 ? 4 : 2, pad, seed);
        }
        refresh();
    }
    Side(const Side& o) : lay(o.lay), hs(o.hs), vs(o.vs), flip(o.flip), im(o.im) { refresh(); }

    void refresh() {
        for (std::size_t i = 0; i < im.size(); ++i) {
            ptr[i] = flip ? im[i].flippedData() : im[i].data();
            stp[i] = flip ? im[i].flippedStep() : im[i].step();
        }
    }
    Zor8u* row(int i, int y) { return ptr[i] + std::ptrdiff_t{stp[i]} * y; }

    // Channel c (R, G, B or Y, U, V) of region pixel (x, y).
    Zor8u& at(int c, int x, int y) {
        switch (lay) {
            case Lay::C3:
                return row(0, y)[3 * x + c];
            case Lay::AC4:
                return row(0, y)[4 * x + c];
            case Lay::BGR3:
                return row(0, y)[3 * x + 2 - c];
            case Lay::C2:
                return c == 0 ? row(0, y)[2 * x] : row(0, y)[4 * (x / 2) + (c == 1 ? 1 : 3)];
            case Lay::P3:
                return c == 0 ? row(0, y)[x] : row(c, y >> vs)[x >> hs];
        }
        return row(0, 0)[0];
    }

    const Zor8u* const* cplanes() { return const_cast<const Zor8u* const*>(ptr); }
    Zor8u* const* planes() { return ptr; }
    bool operator==(const Side& o) const {
        return im[0] == o.im[0] && (im.size() == 1 || (im[1] == o.im[1] && im[2] == o.im[2]));
    }
};

// ---------------------------------------------------------------------------
// Members

enum class Dir { Fwd, Inv };

struct YMember {
    std::string name;
    Dir dir;
    int sub;  // 444, 422, 420
    Lay src, dst;
    bool whole = false;
    bool shared = false;  // the P3 side takes one step
    std::function<ZorStatus(Side&, Side&, ZoriSize)> call;
    bool round() const { return name == "YUV420ToRGB_8u_P3AC4R"; }
    bool alpha0() const { return name.find("P3AC4R") != std::string::npos; }
    int minSize() const { return name == "YUV420ToBGR_8u_P3C3R" ? 2 : 1; }
};

#define II(F) [](Side& s, Side& d, ZoriSize r) { return F(s.ptr[0], s.stp[0], d.ptr[0], d.stp[0], r); }
#define PAPA(F) [](Side& s, Side& d, ZoriSize r) { return F(s.cplanes(), s.stp, d.planes(), d.stp, r); }
#define IP1(F) [](Side& s, Side& d, ZoriSize r) { return F(s.ptr[0], s.stp[0], d.planes(), d.stp[0], r); }
#define P1I(F) [](Side& s, Side& d, ZoriSize r) { return F(s.cplanes(), s.stp[0], d.ptr[0], d.stp[0], r); }
#define IPA(F) [](Side& s, Side& d, ZoriSize r) { return F(s.ptr[0], s.stp[0], d.planes(), d.stp, r); }
#define PAI(F) [](Side& s, Side& d, ZoriSize r) { return F(s.cplanes(), s.stp, d.ptr[0], d.stp[0], r); }
#define WIP(F) [](Side& s, Side& d, ZoriSize r) { return F(s.ptr[0], d.planes(), r); }
#define WPP(F) [](Side& s, Side& d, ZoriSize r) { return F(s.cplanes(), d.planes(), r); }
#define WPI(F) [](Side& s, Side& d, ZoriSize r) { return F(s.cplanes(), d.ptr[0], r); }

const std::vector<YMember>& members() {
    using L = Lay;
    static const std::vector<YMember> all = {
        {"RGBToYUV_8u_C3R", Dir::Fwd, 444, L::C3, L::C3, false, false, II(zoriRGBToYUV_8u_C3R)},
        {"RGBToYUV_8u_AC4R", Dir::Fwd, 444, L::AC4, L::AC4, false, false, II(zoriRGBToYUV_8u_AC4R)},
        {"RGBToYUV_8u_P3R", Dir::Fwd, 444, L::P3, L::P3, false, false, PAPA(zoriRGBToYUV_8u_P3R)},
        {"RGBToYUV_8u_C3P3R", Dir::Fwd, 444, L::C3, L::P3, false, true, IP1(zoriRGBToYUV_8u_C3P3R)},
        {"YUVToRGB_8u_C3R", Dir::Inv, 444, L::C3, L::C3, false, false, II(zoriYUVToRGB_8u_C3R)},
        {"YUVToRGB_8u_AC4R", Dir::Inv, 444, L::AC4, L::AC4, false, false, II(zoriYUVToRGB_8u_AC4R)},
        {"YUVToRGB_8u_P3R", Dir::Inv, 444, L::P3, L::P3, false, false, PAPA(zoriYUVToRGB_8u_P3R)},
        {"YUVToRGB_8u_P3C3R", Dir::Inv, 444, L::P3, L::C3, false, true, P1I(zoriYUVToRGB_8u_P3C3R)},
        {"RGBToYUV422_8u_C3C2R", Dir::Fwd, 422, L::C3, L::C2, false, false, II(zoriRGBToYUV422_8u_C3C2R)},
        {"RGBToYUV422_8u_C3P3R", Dir::Fwd, 422, L::C3, L::P3, false, false, IPA(zoriRGBToYUV422_8u_C3P3R)},
        {"RGBToYUV422_8u_C3P3", Dir::Fwd, 422, L::C3, L::P3, true, false, WIP(zoriRGBToYUV422_8u_C3P3)},
        {"RGBToYUV422_8u_P3R", Dir::Fwd, 422, L::P3, L::P3, false, false, PAPA(zoriRGBToYUV422_8u_P3R)},
        {"RGBToYUV422_8u_P3", Dir::Fwd, 422, L::P3, L::P3, true, false, WPP(zoriRGBToYUV422_8u_P3)},
        {"YUV422ToRGB_8u_C2C3R", Dir::Inv, 422, L::C2, L::C3, false, false, II(zoriYUV422ToRGB_8u_C2C3R)},
        {"YUV422ToRGB_8u_P3C3R", Dir::Inv, 422, L::P3, L::C3, false, false, PAI(zoriYUV422ToRGB_8u_P3C3R)},
        {"YUV422ToRGB_8u_P3C3", Dir::Inv, 422, L::P3, L::C3, true, false, WPI(zoriYUV422ToRGB_8u_P3C3)},
        {"YUV422ToRGB_8u_P3R", Dir::Inv, 422, L::P3, L::P3, false, false, PAPA(zoriYUV422ToRGB_8u_P3R)},
        {"YUV422ToRGB_8u_P3", Dir::Inv, 422, L::P3, L::P3, true, false, WPP(zoriYUV422ToRGB_8u_P3)},
        {"YUV422ToRGB_8u_P3AC4R", Dir::Inv, 422, L::P3, L::AC4, false, false, PAI(zoriYUV422ToRGB_8u_P3AC4R)},
        {"RGBToYUV420_8u_C3P3R", Dir::Fwd, 420, L::C3, L::P3, false, false, IPA(zoriRGBToYUV420_8u_C3P3R)},
        {"RGBToYUV420_8u_C3P3", Dir::Fwd, 420, L::C3, L::P3, true, false, WIP(zoriRGBToYUV420_8u_C3P3)},
        {"RGBToYUV420_8u_P3R", Dir::Fwd, 420, L::P3, L::P3, false, false, PAPA(zoriRGBToYUV420_8u_P3R)},
        {"RGBToYUV420_8u_P3", Dir::Fwd, 420, L::P3, L::P3, true, false, WPP(zoriRGBToYUV420_8u_P3)},
        {"YUV420ToRGB_8u_P3C3R", Dir::Inv, 420, L::P3, L::C3, false, false, PAI(zoriYUV420ToRGB_8u_P3C3R)},
        {"YUV420ToRGB_8u_P3C3", Dir::Inv, 420, L::P3, L::C3, true, false, WPI(zoriYUV420ToRGB_8u_P3C3)},
        {"YUV420ToRGB_8u_P3R", Dir::Inv, 420, L::P3, L::P3, false, false, PAPA(zoriYUV420ToRGB_8u_P3R)},
        {"YUV420ToRGB_8u_P3", Dir::Inv, 420, L::P3, L::P3, true, false, WPP(zoriYUV420ToRGB_8u_P3)},
        {"YUV420ToRGB_8u_P3AC4R", Dir::Inv, 420, L::P3, L::AC4, false, false, PAI(zoriYUV420ToRGB_8u_P3AC4R)},
        {"YUV420ToBGR_8u_P3C3R", Dir::Inv, 420, L::P3, L::BGR3, false, false, PAI(zoriYUV420ToBGR_8u_P3C3R)},
    };
    return all;
}

const YMember& member(const std::string& name) {
    for (const YMember& m : members())
        if (m.name == name) return m;
    throw std::runtime_error("no member " + name);
}

// The YUV side of a member is subsampled; the RGB side is not. Whole-image
// forms get packed planes of exactly the implied sizes.
Side makeSide(const YMember& m, bool yuvSide, Lay lay, int w, int h, bool flip, int pad, std::uint32_t seed) {
    int hs = 0, vs = 0, cw = w, ch = h;
    if (yuvSide && m.sub == 422) hs = 1, cw = (w + 1) / 2;
    if (yuvSide && m.sub == 420) hs = vs = 1, cw = w / 2, ch = h / 2;
    return Side(lay, w, h, cw, ch, hs, vs, flip, pad, m.shared, seed);
}

struct Pair {
    Side src, dst;
};
Pair makePair(const YMember& m, int w, int h, bool flip, int pad, std::uint32_t seed) {
    return {makeSide(m, m.dir == Dir::Inv, m.src, w, h, flip, pad, seed),
            makeSide(m, m.dir == Dir::Fwd, m.dst, w, h, flip, pad, seed + 10)};
}

void modelForward(const YMember& m, Side& s, Side& e, int w, int h) {
    auto px = [&](int x, int y, int& r, int& g, int& b) { r = s.at(0, x, y), g = s.at(1, x, y), b = s.at(2, x, y); };
    const int gw = m.sub == 444 ? 1 : 2, gh = m.sub == 420 ? 2 : 1;
    const int ew = m.sub == 420 ? w & ~1 : w, eh = m.sub == 420 ? h & ~1 : h;
    for (int y0 = 0; y0 < eh; y0 += gh)
        for (int x0 = 0; x0 < ew; x0 += gw) {
            std::int64_t sr = 0, sb = 0, ss = 0;
            int n = 0;
            for (int y = y0; y < y0 + gh; ++y)
                for (int x = x0; x < x0 + gw && x < ew; ++x, ++n) {
                    int r, g, b;
                    px(x, y, r, g, b);
                    const std::int64_t S = lumaSum(r, g, b);
                    e.at(0, x, y) = static_cast<Zor8u>(S >> 16);
                    sr += r, sb += b, ss += S;
                }
            int u, v;
            chromaOf(sr, sb, ss, n, u, v);  // a last odd 4:2:2 pixel: alone, the 4:4:4 rule
            e.at(1, x0, y0) = static_cast<Zor8u>(u);
            if (!(m.dst == Lay::C2 && n == 1)) e.at(2, x0, y0) = static_cast<Zor8u>(v);
        }
}

void modelInverse(const YMember& m, Side& s, Side& e, int w, int h) {
    const int ew = m.sub == 420 ? w & ~1 : w, eh = m.sub == 420 ? h & ~1 : h;
    for (int y = 0; y < eh; ++y)
        for (int x = 0; x < ew; ++x) {
            const int U = s.at(1, x, y);
            int V;
            if (m.src == Lay::C2 && x == w - 1 && w % 2 == 1)  // V of the previous pair; width 1: U
                V = w == 1 ? U : s.row(0, y)[2 * x - 1];
            else
                V = s.at(2, x, y);
            int r, g, b;
            rgbOf(s.at(0, x, y), U, V, m.round(), r, g, b);
            e.at(0, x, y) = static_cast<Zor8u>(r), e.at(1, x, y) = static_cast<Zor8u>(g);
            e.at(2, x, y) = static_cast<Zor8u>(b);
            if (m.alpha0()) e.row(0, y)[4 * x + 3] = 0;
        }
}

void checkMember(const YMember& m, int w, int h, bool flip, int pad, std::uint32_t seed) {
    SCOPED_TRACE(m.name + " " + std::to_string(w) + "x" + std::to_string(h) + (flip ? " flipped" : "") + " pad " +
                 std::to_string(pad));
    Pair p = makePair(m, w, h, flip, pad, seed);
    Side want = p.dst;
    if (m.dir == Dir::Fwd)
        modelForward(m, p.src, want, w, h);
    else
        modelInverse(m, p.src, want, w, h);
    const bool odd = m.sub == 420 && (w % 2 || h % 2);
    EXPECT_EQ(m.call(p.src, p.dst, {w, h}), odd ? zorStsOddSizeWarning : zorStsOk);
    for (std::size_t i = 0; i < want.im.size(); ++i)
        EXPECT_EQ(zt::firstDifference(p.dst.im[i].bytes(), want.im[i].bytes()), -1) << "plane " << i;
}

// ---------------------------------------------------------------------------

TEST(Yuv, AllTwentyNineMembersExist) { EXPECT_EQ(members().size(), 29u); }

TEST(Yuv, RegionMembersMatchModel) {
    const int sizes[][2] = {{1, 1}, {1, 3}, {2, 1}, {2, 2}, {3, 3}, {5, 3}, {4, 5}, {7, 6}, {10, 4}, {19, 7}};
    std::uint32_t seed = 3;
    for (const YMember& m : members()) {
        if (m.whole || m.minSize() > 1) continue;
        for (const auto& s : sizes)
            for (bool flip : {false, true}) checkMember(m, s[0], s[1], flip, flip ? 7 : 2, seed++);
        checkMember(m, 6, 3, false, 0, seed++);
    }
}

// Whole-image forms on packed planes, including images of 256 pixels or more
// with even widths (converted as one run) and odd widths.
TEST(Yuv, WholeImageMembersMatchModel) {
    const int sizes[][2] = {{1, 1}, {3, 2}, {5, 5}, {6, 3}, {16, 16}, {32, 9}, {17, 16}, {15, 17}, {2, 130}};
    std::uint32_t seed = 900;
    for (const YMember& m : members())
        if (m.whole)
            for (const auto& s : sizes) checkMember(m, s[0], s[1], false, 0, seed++);
}

TEST(Yuv, BgrFromYuv420NeedsTwoByTwo) {
    const YMember& m = member("YUV420ToBGR_8u_P3C3R");
    for (const auto& s : std::vector<std::pair<int, int>>{{2, 2}, {3, 2}, {2, 5}, {9, 7}, {12, 4}})
        for (bool flip : {false, true}) checkMember(m, s.first, s.second, flip, 3, 77);
    for (const ZoriSize bad : {ZoriSize{1, 4}, ZoriSize{4, 1}, ZoriSize{1, 1}}) {
        Pair p = makePair(m, 4, 4, false, 2, 1);
        const Side before = p.dst;
        EXPECT_EQ(m.call(p.src, p.dst, bad), zorStsBadSize);
        EXPECT_TRUE(p.dst == before);
    }
}

// Pointer arrays (and step arrays) before the size, plane pointers after it;
// nothing written on an error.
TEST(Yuv, ChecksPointersThenSizeThenPlanes) {
    for (const YMember& m : members()) {
        SCOPED_TRACE(m.name);
        Pair p = makePair(m, 4, 4, false, 2, 5);
        const Side before = p.dst;
        for (Side* side : {&p.src, &p.dst}) {
            Zor8u* saved = side->ptr[0];
            side->ptr[0] = nullptr;  // a plane in a P3 side, the image otherwise
            const bool planeOfArray = side->lay == Lay::P3;
            EXPECT_EQ(m.call(p.src, p.dst, {4, 0}), planeOfArray ? zorStsBadSize : zorStsNullPtr);
            EXPECT_EQ(m.call(p.src, p.dst, {4, 4}), zorStsNullPtr);
            side->ptr[0] = saved;
            if (planeOfArray) {
                for (int i = 1; i < 3; ++i) {
                    Zor8u* s2 = side->ptr[i];
                    side->ptr[i] = nullptr;
                    EXPECT_EQ(m.call(p.src, p.dst, {0, 4}), zorStsBadSize);
                    EXPECT_EQ(m.call(p.src, p.dst, {4, 4}), zorStsNullPtr);
                    side->ptr[i] = s2;
                }
            }
        }
        EXPECT_EQ(m.call(p.src, p.dst, {0, 4}), zorStsBadSize);
        EXPECT_EQ(m.call(p.src, p.dst, {4, -2}), zorStsBadSize);
        EXPECT_TRUE(p.dst == before);
    }
}

TEST(Yuv, NullPointerArraysComeBeforeTheSize) {
    Zor8u buf[64] = {};
    Zor8u* planes[3] = {buf, buf + 16, buf + 32};
    const Zor8u* cplanes[3] = {buf, buf + 16, buf + 32};
    const int steps[3] = {4, 2, 2};
    const ZoriSize zero{0, 0};
    EXPECT_EQ(zoriRGBToYUV422_8u_P3R(nullptr, steps, planes, steps, zero), zorStsNullPtr);
    EXPECT_EQ(zoriRGBToYUV422_8u_P3R(cplanes, steps, nullptr, steps, zero), zorStsNullPtr);
    EXPECT_EQ(zoriYUV420ToRGB_8u_P3C3R(cplanes, nullptr, buf, 12, zero), zorStsNullPtr);
    EXPECT_EQ(zoriYUV420ToRGB_8u_P3(nullptr, planes, zero), zorStsNullPtr);
    EXPECT_EQ(zoriRGBToYUV_8u_C3P3R(buf, 12, nullptr, 4, zero), zorStsNullPtr);
    EXPECT_EQ(zoriYUVToRGB_8u_P3C3R(nullptr, 4, buf, 12, zero), zorStsNullPtr);
}

// ---------------------------------------------------------------------------
// Pinned values

std::vector<int> yuvOfRgb(int r, int g, int b) {
    Zor8u src[3] = {static_cast<Zor8u>(r), static_cast<Zor8u>(g), static_cast<Zor8u>(b)}, dst[3] = {};
    EXPECT_EQ(zoriRGBToYUV_8u_C3R(src, 3, dst, 3, {1, 1}), zorStsOk);
    return {dst[0], dst[1], dst[2]};
}

TEST(YuvPinned, KnownColours) {
    EXPECT_EQ(yuvOfRgb(255, 255, 255), (std::vector<int>{255, 128, 128}));
    EXPECT_EQ(yuvOfRgb(0, 0, 255)[0], 29);
    EXPECT_EQ(yuvOfRgb(0, 0, 255)[1], 239);
    EXPECT_EQ(yuvOfRgb(255, 0, 0)[2], 255);  // 284 before the clamp
    EXPECT_EQ(yuvOfRgb(0, 255, 255)[2], 0);  // -29 before the clamp
    Zor8u yuv[3] = {255, 128, 128}, rgb[3] = {};
    EXPECT_EQ(zoriYUVToRGB_8u_C3R(yuv, 3, rgb, 3, {1, 1}), zorStsOk);
    EXPECT_EQ(rgb[0] + rgb[1] + rgb[2], 3 * 255);
}

// Only YUV420ToRGB_8u_P3AC4R rounds: V = 132 gives R = 4.56, stored as 5 there
// and 4 everywhere else; both P3AC4R members write 0 as the fourth byte.
TEST(YuvPinned, OnlyTheYuv420Ac4MemberRounds) {
    Zor8u y[4] = {0, 0, 0, 0}, u[2] = {128, 128}, v[2] = {132, 132};
    const Zor8u* planes[3] = {y, u, v};
    const int steps[3] = {2, 1, 1};
    Zor8u ac4[16], c3[12];
    std::memset(ac4, 0xAB, sizeof ac4);
    EXPECT_EQ(zoriYUV420ToRGB_8u_P3AC4R(planes, steps, ac4, 8, {2, 2}), zorStsOk);
    EXPECT_EQ(zoriYUV420ToRGB_8u_P3C3R(planes, steps, c3, 6, {2, 2}), zorStsOk);
    EXPECT_EQ(ac4[0], 5);
    EXPECT_EQ(ac4[3], 0);
    EXPECT_EQ(c3[0], 4);
    std::memset(ac4, 0xAB, sizeof ac4);
    const int steps422[3] = {2, 1, 1};
    EXPECT_EQ(zoriYUV422ToRGB_8u_P3AC4R(planes, steps422, ac4, 8, {2, 1}), zorStsOk);
    EXPECT_EQ(ac4[0], 4);
    EXPECT_EQ(ac4[3], 0);
    EXPECT_EQ(ac4[7], 0);
}

}  // namespace
