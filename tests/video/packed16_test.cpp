// YCbCr / YUV 4:2:0 to packed 16-bit words: every member against a per-pixel
// model on random images of even and odd sizes, contiguous and padded, top-down
// and bottom-up; statuses and check order; the pinned quirks of the decoders
// and the quantisers.
#include <cstring>
#include <memory>
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

struct Rgb {
    int r, g, b;
};

enum class Dec { SetA, SetA411, SetC, Fine };

Rgb decode(Dec dec, int Y, int Cb, int Cr) {
    const std::int64_t d = Cb - 128, e = Cr - 128;
    switch (dec) {
        case Dec::SetA:
        case Dec::SetA411: {
            const std::int64_t l = 76284 * std::int64_t{Y} - (dec == Dec::SetA ? 1220544 : 1187776);
            return {clamp255(floorShift(l + 104595 * e, 16)), clamp255(floorShift(l - 25690 * d - 53281 * e, 16)),
                    clamp255(floorShift(l + 132186 * d, 16))};
        }
        case Dec::SetC: {
            const std::int64_t l = 76284 * std::int64_t{Y};
            return {clamp255(floorShift(l + 104595 * Cr - 14608761, 16)),
                    clamp255(floorShift(l - 25690 * Cb - 53281 * Cr + 8887730, 16)),
                    clamp255(floorShift(l + 132186 * Cb - 18140365, 16))};
        }
        case Dec::Fine: {
            const std::int64_t yy = floorShift((Y - 16) * 128 * 9535, 16), dd = d * 128, ee = e * 128;
            return {clamp255(floorShift(yy + floorShift(ee * 13074, 16), 4)),
                    clamp255(floorShift(yy - floorShift(dd * 3211, 16) - floorShift(ee * 6660, 16), 4)),
                    clamp255(floorShift(yy + floorShift(dd * 16523, 16), 4))};
        }
    }
    return {};
}

const int kT5[4][4] = {{0, 1118, 279, 1398}, {1678, 559, 1957, 839}, {419, 1538, 139, 1258}, {2097, 978, 1817, 699}};
const int kT4[4][4] = {
    {0, 2312, 578, 2890}, {3468, 1156, 4046, 1734}, {867, 3179, 289, 2601}, {4335, 2023, 3757, 1445}};

int field(int v, int bits, bool dither, int x, int y) {
    if (!dither) return v >> (8 - bits);
    if (bits == 5) {
        const int q = (31 * v) >> 8;
        return 256 * v - 2105 * q > kT5[y & 3][x & 3] ? q + 1 : q;
    }
    if (bits == 6) {
        const int q = (63 * v) >> 8;
        return 256 * v - 1036 * q > (kT5[y & 3][x & 3] >> 1) ? q + 1 : q;
    }
    const int q = (15 * v) >> 8;
    return 256 * v - 4352 * q > kT4[y & 3][x & 3] ? q + 1 : q;
}

enum class Fmt { RGB565, BGR565, RGB555, BGR555, RGB444, BGR444 };

Zor16u pack(Fmt f, Rgb c, bool dither, int x, int y) {
    const int rb = f == Fmt::RGB444 || f == Fmt::BGR444 ? 4 : 5;
    const int gb = f == Fmt::RGB565 || f == Fmt::BGR565 ? 6 : rb;
    const bool bgr = f == Fmt::BGR565 || f == Fmt::BGR555 || f == Fmt::BGR444;
    const int lo = field(bgr ? c.b : c.r, rb, dither, x, y), hi = field(bgr ? c.r : c.b, rb, dither, x, y);
    return static_cast<Zor16u>(lo | field(c.g, gb, dither, x, y) << rb | hi << (rb + gb));
}

// ---------------------------------------------------------------------------
// Members

enum class Form { C3, P3, C2, P422, P420, YUV420, P411 };

using FnI = ZorStatus (*)(const Zor8u*, int, Zor16u*, int, ZoriSize);
using FnP1 = ZorStatus (*)(const Zor8u* const[3], int, Zor16u*, int, ZoriSize);
using FnP3 = ZorStatus (*)(const Zor8u* const[3], const int[3], Zor16u*, int, ZoriSize);

struct Member {
    std::string name;
    Form form;
    Fmt fmt;
    FnI fi;
    FnP1 fp1;
    FnP3 fp3;
    bool dither() const { return name.find("Dither") != std::string::npos; }
    Dec decoder() const {
        if (dither()) return Dec::Fine;
        return form == Form::C3     ? Dec::SetA
               : form == Form::C2   ? Dec::SetC
               : form == Form::P411 ? Dec::SetA411
                                    : Dec::Fine;
    }
};

#define ZT_I(FORM, MODEL, F, D, LAY) \
    Member { #MODEL "To" #F #D "_" #LAY, Form::FORM, Fmt::F, zori##MODEL##To##F##D##_8u16u_##LAY, nullptr, nullptr }
#define ZT_P1(F, D) \
    Member { "YCbCrTo" #F #D "_P3C3R", Form::P3, Fmt::F, nullptr, zoriYCbCrTo##F##D##_8u16u_P3C3R, nullptr }
#define ZT_P3(FORM, MODEL, F, D) \
    Member { #MODEL "To" #F #D "_P3C3R", Form::FORM, Fmt::F, nullptr, nullptr, zori##MODEL##To##F##D##_8u16u_P3C3R }
#define ZT_SIX(M, ...)                                                                              \
    M(__VA_ARGS__, RGB565), M(__VA_ARGS__, BGR565), M(__VA_ARGS__, RGB555), M(__VA_ARGS__, BGR555), \
        M(__VA_ARGS__, RGB444), M(__VA_ARGS__, BGR444)
#define ZT_C3(D, F) ZT_I(C3, YCbCr, F, D, C3R)
#define ZT_C2(D, F) ZT_I(C2, YCbCr422, F, D, C2C3R)
#define ZT_P1F(D, F) ZT_P1(F, D)
#define ZT_422(D, F) ZT_P3(P422, YCbCr422, F, D)
#define ZT_420(D, F) ZT_P3(P420, YCbCr420, F, D)
#define ZT_YUV(D, F) ZT_P3(YUV420, YUV420, F, D)

const std::vector<Member>& members() {
    static const std::vector<Member> all = {
        ZT_SIX(ZT_C3, ),
        ZT_SIX(ZT_C3, Dither),
        ZT_SIX(ZT_P1F, ),
        ZT_SIX(ZT_P1F, Dither),
        ZT_SIX(ZT_C2, ),
        ZT_SIX(ZT_C2, Dither),
        ZT_SIX(ZT_422, ),
        ZT_SIX(ZT_422, Dither),
        ZT_SIX(ZT_420, ),
        ZT_SIX(ZT_420, Dither),
        ZT_SIX(ZT_YUV, ),
        ZT_SIX(ZT_YUV, Dither),
        ZT_P3(P411, YCbCr411, BGR565, ),
        ZT_P3(P411, YCbCr411, BGR555, ),
    };
    return all;
}

const Member& member(const std::string& name) {
    for (const Member& m : members())
        if (m.name == name) return m;
    throw std::runtime_error("no member " + name);
}

// ---------------------------------------------------------------------------
// Images: the source of one member (one interleaved image or three planes),
// seen top-down or bottom-up.

template <class T>
struct View {
    T* base;
    int step;
    T* row(int y) const {
        return reinterpret_cast<T*>(reinterpret_cast<std::uintptr_t>(base) + std::ptrdiff_t{step} * y);
    }
};
template <class T>
View<T> viewOf(zt::Image<T>& im, bool flip) {
    return flip ? View<T>{im.flippedData(), im.flippedStep()} : View<T>{im.data(), im.step()};
}

struct Source {
    Form form;
    int w, h;
    std::vector<std::unique_ptr<zt::Image<Zor8u>>> im;  // 1 interleaved or 3 planes
    View<Zor8u> v[3];
    const Zor8u* planes[3];
    int steps[3];

    Source(Form f, int w_, int h_, bool flip, int pad, std::uint32_t seed) : form(f), w(w_), h(h_) {
        if (f == Form::C3 || f == Form::C2) {
            im.emplace_back(new zt::Image<Zor8u>(w, h, f == Form::C3 ? 3 : 2, pad, seed));
        } else {
            const bool sub2 = f == Form::P422 || f == Form::P420 || f == Form::YUV420;
            const int cw = f == Form::P3 ? w : sub2 ? (w + 1) / 2 : w / 4;
            const int ch = f == Form::P420 || f == Form::YUV420 ? (h + 1) / 2 : h;
            im.emplace_back(new zt::Image<Zor8u>(w, h, 1, pad, seed));
            // 4:4:4 planes share one step; the others get steps of their own.
            const int more = f == Form::P3 ? 0 : 1;
            im.emplace_back(new zt::Image<Zor8u>(cw, ch, 1, pad + more, seed + 1));
            im.emplace_back(new zt::Image<Zor8u>(cw, ch, 1, pad + 2 * more, seed + 2));
        }
        for (std::size_t i = 0; i < im.size(); ++i) {
            v[i] = viewOf(*im[i], flip);
            planes[i] = v[i].base;
            steps[i] = v[i].step;
        }
    }

    // Y, Cb, Cr of pixel (x, y) of the region as the member reads them.
    void sample(int x, int y, int& Y, int& Cb, int& Cr) const {
        switch (form) {
            case Form::C3: {
                const Zor8u* p = v[0].row(y) + 3 * x;
                Y = p[0], Cb = p[1], Cr = p[2];
                return;
            }
            case Form::C2: {
                const Zor8u* r = v[0].row(y);
                Y = r[2 * x];
                if (x < (w & ~1)) {
                    Cb = r[4 * (x / 2) + 1], Cr = r[4 * (x / 2) + 3];
                } else {  // last odd pixel: previous pair's Cr, or its own Cb in a one-pixel row
                    Cb = r[2 * x + 1], Cr = w == 1 ? Cb : r[2 * x - 1];
                }
                return;
            }
            default: {
                const int cx = form == Form::P3 ? x : form == Form::P411 ? x / 4 : x / 2;
                const int cy = form == Form::P420 || form == Form::YUV420 ? y / 2 : y;
                Y = v[0].row(y)[x], Cb = v[1].row(cy)[cx], Cr = v[2].row(cy)[cx];
            }
        }
    }
};

ZorStatus call(const Member& m, const Source& s, Zor16u* dst, int dstStep, ZoriSize roi) {
    if (m.fi) return m.fi(s.planes[0], s.steps[0], dst, dstStep, roi);
    if (m.fp1) return m.fp1(s.planes, s.steps[0], dst, dstStep, roi);
    return m.fp3(s.planes, s.steps, dst, dstStep, roi);
}

// Runs one member on one random image and compares the whole destination
// allocation with the model. `oddStep` passes the destination step plus one
// byte, which the member must drop.
void checkMember(const Member& m, int w, int h, bool flip, int pad, bool oddStep, std::uint32_t seed) {
    SCOPED_TRACE(m.name + " " + std::to_string(w) + "x" + std::to_string(h) + (flip ? " flipped" : "") + " pad " +
                 std::to_string(pad) + (oddStep ? " odd step" : ""));
    Source src(m.form, w, h, flip, pad, seed);
    zt::Image<Zor16u> dst(w, h, 1, 2 * pad, seed + 7);
    zt::Image<Zor16u> want = dst;
    View<Zor16u> wv = viewOf(want, flip);
    const int convW = m.form == Form::P411 ? w & ~3 : w;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < convW; ++x) {
            int Y, Cb, Cr;
            src.sample(x, y, Y, Cb, Cr);
            wv.row(y)[x] = pack(m.fmt, decode(m.decoder(), Y, Cb, Cr), m.dither(), x, y);
        }
    View<Zor16u> dv = viewOf(dst, flip);
    const ZorStatus st = call(m, src, dv.base, dv.step + (oddStep ? 1 : 0), {w, h});
    EXPECT_EQ(st, m.form == Form::P411 && w % 4 ? zorStsOddSizeWarning : zorStsOk);
    const std::ptrdiff_t at = zt::firstDifference(dst.bytes(), want.bytes());
    EXPECT_EQ(at, -1) << "first differing byte " << at;
}

// ---------------------------------------------------------------------------
// Whole-buffer comparisons

TEST(Packed16, AllSeventyFourMembersExist) { EXPECT_EQ(members().size(), 74u); }

TEST(Packed16, EveryMemberMatchesModelOnRandomImages) {
    const int sizes[][2] = {{1, 1}, {1, 4}, {2, 3}, {3, 2}, {5, 3}, {6, 5}, {7, 4}, {9, 9}, {13, 6}, {22, 7}};
    std::uint32_t seed = 11;
    for (const Member& m : members())
        for (const auto& s : sizes)
            for (int variant = 0; variant < 3; ++variant)
                checkMember(m, s[0], s[1], variant == 1, variant == 2 ? 6 : 2, variant != 0, seed++);
}

// Contiguous images (no padding) take the one-long-row path of the plain
// interleaved and packed members; results equal the row-by-row model, also
// for pixel counts that are not multiples of 8 and for odd widths.
TEST(Packed16, ContiguousImagesMatchModel) {
    const int sizes[][2] = {{1, 1}, {3, 1}, {4, 3}, {5, 5}, {8, 2}, {10, 3}, {6, 7}, {16, 4}};
    std::uint32_t seed = 500;
    for (const Member& m : members())
        for (const auto& s : sizes) checkMember(m, s[0], s[1], false, 0, false, seed++);
}

// ---------------------------------------------------------------------------
// Statuses and check order

TEST(Packed16, ChecksPointersThenSizeThenPlanes) {
    for (const Member& m : members()) {
        SCOPED_TRACE(m.name);
        Source src(m.form, 4, 2, false, 2, 3);
        zt::Image<Zor16u> dst(4, 2, 1);
        const zt::Image<Zor16u> before = dst;
        if (m.fi) {
            EXPECT_EQ(m.fi(nullptr, 12, dst.data(), dst.step(), {4, 2}), zorStsNullPtr);
            EXPECT_EQ(m.fi(src.planes[0], 12, nullptr, dst.step(), {0, 2}), zorStsNullPtr);
        } else {
            EXPECT_EQ(call(m, src, nullptr, dst.step(), {0, 0}), zorStsNullPtr);
            const Zor8u* const* none = nullptr;
            if (m.fp1) {
                EXPECT_EQ(m.fp1(none, 8, dst.data(), dst.step(), {0, 2}), zorStsNullPtr);
            }
            if (m.fp3) {
                EXPECT_EQ(m.fp3(none, src.steps, dst.data(), dst.step(), {0, 2}), zorStsNullPtr);
                EXPECT_EQ(m.fp3(src.planes, nullptr, dst.data(), dst.step(), {0, 2}), zorStsNullPtr);
            }
            // A null plane is found only after the size.
            for (int p = 0; p < 3; ++p) {
                const Zor8u* saved = src.planes[p];
                src.planes[p] = nullptr;
                EXPECT_EQ(call(m, src, dst.data(), dst.step(), {4, 0}), zorStsBadSize);
                EXPECT_EQ(call(m, src, dst.data(), dst.step(), {4, 2}), zorStsNullPtr);
                src.planes[p] = saved;
            }
        }
        EXPECT_EQ(call(m, src, dst.data(), dst.step(), {0, 2}), zorStsBadSize);
        EXPECT_EQ(call(m, src, dst.data(), dst.step(), {4, -1}), zorStsBadSize);
        EXPECT_TRUE(dst == before);
    }
}

// ---------------------------------------------------------------------------
// Pinned values and quirks

// One pixel through a member; chroma planes hold the same Cb and Cr.
Zor16u one(const std::string& name, int Y, int Cb, int Cr, int w = 1, int h = 1, int x = 0, int y = 0) {
    const Member& m = member(name);
    Source src(m.form, w, h, false, 1, 1);
    for (int yy = 0; yy < h; ++yy)
        for (int xx = 0; xx < w; ++xx) {
            if (m.form == Form::C3) {
                Zor8u* p = src.v[0].row(yy) + 3 * xx;
                p[0] = static_cast<Zor8u>(Y), p[1] = static_cast<Zor8u>(Cb), p[2] = static_cast<Zor8u>(Cr);
            } else if (m.form == Form::C2) {
                src.v[0].row(yy)[2 * xx] = static_cast<Zor8u>(Y);
                src.v[0].row(yy)[2 * xx + 1] = static_cast<Zor8u>(xx % 2 ? Cr : Cb);
            } else {
                src.v[0].row(yy)[xx] = static_cast<Zor8u>(Y);
            }
        }
    if (m.form != Form::C3 && m.form != Form::C2)
        for (int p = 1; p < 3; ++p)
            for (int yy = 0; yy < src.im[p]->height(); ++yy)
                std::memset(src.v[p].row(yy), p == 1 ? Cb : Cr, static_cast<std::size_t>(src.im[p]->width()));
    zt::Image<Zor16u> dst(w, h, 1);
    call(m, src, dst.data(), dst.step(), {w, h});
    return dst.row(y)[x];
}

TEST(Packed16Pinned, StudioWhiteIsAllOnes) {
    EXPECT_EQ(one("YCbCrToRGB565_C3R", 235, 128, 128), 0xFFFF);
    EXPECT_EQ(one("YCbCrToBGR555_C3R", 235, 128, 128), 0x7FFF);
    EXPECT_EQ(one("YCbCrToRGB444_C3R", 235, 128, 128), 0x0FFF);
}

// Dithering: 0 stays 0 everywhere, 255 gives the top field value everywhere
// except the 6-bit green where the threshold is 2097 (column 0, row 3): 1048
// is not greater than 2097 >> 1.
TEST(Packed16Pinned, DitherEndsAndTheGreenExceptionAt2097) {
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x) {
            const bool exception = x == 0 && y == 3;
            EXPECT_EQ(one("YCbCrToRGB565Dither_C3R", 255, 128, 128, 4, 4, x, y), exception ? 0xFFDF : 0xFFFF);
            EXPECT_EQ(one("YCbCrToRGB555Dither_C3R", 255, 128, 128, 4, 4, x, y), 0x7FFF);
            EXPECT_EQ(one("YCbCrToBGR444Dither_C3R", 255, 128, 128, 4, 4, x, y), 0x0FFF);
            EXPECT_EQ(one("YCbCrToRGB565Dither_C3R", 0, 128, 128, 4, 4, x, y), 0);
        }
}

// Each source form keeps its own decoder: (16, 26, 128) gives G = 39 with set
// A (interleaved) but 40 with the planar decoder; (36, 144, 144) gives G = 4
// with set A but 3 with set C (packed 4:2:2, biased down).
TEST(Packed16Pinned, EachSourceFormKeepsItsDecoder) {
    EXPECT_EQ(one("YCbCrToRGB565_C3R", 16, 26, 128), 0x0120);
    EXPECT_EQ(one("YCbCrToRGB565_P3C3R", 16, 26, 128), 0x0140);
    EXPECT_EQ(one("YCbCrToRGB565_C3R", 36, 144, 144), 0x3026);
    EXPECT_EQ(one("YCbCr422ToRGB565_C2C3R", 36, 144, 144, 2, 1), 0x3006);
}

// A one-pixel row of packed 4:2:2 has no previous pair: its Cb stands in for Cr.
TEST(Packed16Pinned, PackedWidthOneUsesCbAsCr) {
    const Member& m = member("YCbCr422ToRGB565_C2C3R");
    Source src(m.form, 1, 1, false, 4, 1);
    src.v[0].row(0)[0] = 128, src.v[0].row(0)[1] = 200, src.v[0].row(0)[2] = 16;  // byte 2 is padding
    zt::Image<Zor16u> dst(1, 1, 1);
    ASSERT_EQ(call(m, src, dst.data(), dst.step(), {1, 1}), zorStsOk);
    EXPECT_EQ(dst.row(0)[0], pack(Fmt::RGB565, decode(Dec::SetC, 128, 200, 200), false, 0, 0));
}

// 4:1:1 adds one half in all three outputs: Y = 26 gives 12 where set A
// gives 11, which moves the 6-bit green from 2 to 3.
TEST(Packed16Pinned, YCbCr411RoundsAllThreeOutputs) {
    EXPECT_EQ(one("YCbCr411ToBGR565_P3C3R", 26, 128, 128, 4, 1), 0x0861);
    EXPECT_EQ(one("YCbCrToBGR565_C3R", 26, 128, 128), 0x0841);
}

// The YUV 4:2:0 members decode exactly like the YCbCr 4:2:0 members.
TEST(Packed16Pinned, YUV420MembersEqualYCbCr420Members) {
    for (const char* f : {"RGB565", "BGR555Dither", "RGB444"}) {
        const Member& a = member(std::string("YCbCr420To") + f + "_P3C3R");
        const Member& b = member(std::string("YUV420To") + f + "_P3C3R");
        Source src(a.form, 9, 5, false, 3, 77);
        zt::Image<Zor16u> da(9, 5, 1), db(9, 5, 1);
        EXPECT_EQ(call(a, src, da.data(), da.step(), {9, 5}), zorStsOk);
        EXPECT_EQ(call(b, src, db.data(), db.step(), {9, 5}), zorStsOk);
        EXPECT_TRUE(da == db) << f;
    }
}

}  // namespace
