// Packed 16-bit outputs: all 74 members against a per-pixel model on random images of many sizes, contiguous
// (one long row), bottom-up and padded with an odd destination step; check order; pinned quirks; every vector
// kernel against its scalar kernel at every CPU target.
#include "subsampled_ref.h"
#include "support/kernel_harness.h"
#include "video/packed16.h"

#include <vector>

namespace {

enum class Form { C3, P3, C2, P422, P420, P411 };
using FnC = ZorStatus (*)(const Zor8u*, int, Zor16u*, int, ZoriSize);
using FnP1 = ZorStatus (*)(const Zor8u* const[3], int, Zor16u*, int, ZoriSize);
using FnP3 = ZorStatus (*)(const Zor8u* const[3], const int[3], Zor16u*, int, ZoriSize);
struct Member {  // fmt: RGB565, BGR565, RGB555, BGR555, RGB444, BGR444; one of c, p1, p3 is set
    const char* name;
    Form form;
    int fmt;
    bool dither;
    FnC c;
    FnP1 p1;
    FnP3 p3;
};
#define ZT_C(K, D, FORM, NAME) Member{#NAME, Form::FORM, K, D, NAME, nullptr, nullptr}
#define ZT_P1(K, D, NAME) Member{#NAME, Form::P3, K, D, nullptr, NAME, nullptr}
#define ZT_P3(K, D, FORM, NAME) Member{#NAME, Form::FORM, K, D, nullptr, nullptr, NAME}
#define ZT_PLAIN_AND_DITHER(M, K, FORM, MODEL, F, LAYOUT) \
    M(K, false, FORM, zori##MODEL##To##F##_8u16u_##LAYOUT), M(K, true, FORM, zori##MODEL##To##F##Dither_8u16u_##LAYOUT)
#define ZT_FORMAT(F, K)                                                                                       \
    ZT_PLAIN_AND_DITHER(ZT_C, K, C3, YCbCr, F, C3R), ZT_PLAIN_AND_DITHER(ZT_C, K, C2, YCbCr422, F, C2C3R),   \
        ZT_P1(K, false, zoriYCbCrTo##F##_8u16u_P3C3R), ZT_P1(K, true, zoriYCbCrTo##F##Dither_8u16u_P3C3R),  \
        ZT_PLAIN_AND_DITHER(ZT_P3, K, P422, YCbCr422, F, P3C3R),                                             \
        ZT_PLAIN_AND_DITHER(ZT_P3, K, P420, YCbCr420, F, P3C3R), ZT_PLAIN_AND_DITHER(ZT_P3, K, P420, YUV420, F, P3C3R)
const Member kMembers[] = {ZT_FORMAT(RGB565, 0), ZT_FORMAT(BGR565, 1), ZT_FORMAT(RGB555, 2),
                           ZT_FORMAT(BGR555, 3), ZT_FORMAT(RGB444, 4), ZT_FORMAT(BGR444, 5),
                           ZT_P3(1, false, P411, zoriYCbCr411ToBGR565_8u16u_P3C3R),
                           ZT_P3(3, false, P411, zoriYCbCr411ToBGR555_8u16u_P3C3R)};

int field(int v, int bits, bool dither, int x, int y) {
    static const int kT[2][4][4] = {
        {{0, 1118, 279, 1398}, {1678, 559, 1957, 839}, {419, 1538, 139, 1258}, {2097, 978, 1817, 699}},
        {{0, 2312, 578, 2890}, {3468, 1156, 4046, 1734}, {867, 3179, 289, 2601}, {4335, 2023, 3757, 1445}}};
    if (!dither) return v >> (8 - bits);
    const int unit = bits == 5 ? 2105 : bits == 6 ? 1036 : 4352, q = (((1 << bits) - 1) * v) >> 8;
    const int t = bits == 4 ? kT[1][y & 3][x & 3] : bits == 6 ? kT[0][y & 3][x & 3] >> 1 : kT[0][y & 3][x & 3];
    return 256 * v - unit * q > t ? q + 1 : q;
}

Zor16u pack(int fmt, ref::Rgb c, bool dither, int x, int y) {
    const int rb = fmt >= 4 ? 4 : 5, gb = fmt < 2 ? 6 : rb;
    const int lo = fmt & 1 ? c.b : c.r, hi = fmt & 1 ? c.r : c.b;
    return static_cast<Zor16u>(field(lo, rb, dither, x, y) | field(c.g, gb, dither, x, y) << rb |
                               field(hi, rb, dither, x, y) << (rb + gb));
}

// Set A (4:4:4 interleaved), set C (packed), set A plus one half (4:1:1); else, and when dithered, the fine one.
ref::Rgb decode(const Member& m, ref::Ycc s) {
    if (m.dither || (m.form != Form::C3 && m.form != Form::C2 && m.form != Form::P411)) return ref::fine(s.y, s.cb, s.cr);
    if (m.form != Form::P411) return m.form == Form::C2 ? ref::setC(s.y, s.cb, s.cr) : ref::setA_B(s.y, s.cb, s.cr, 0);
    const std::int64_t l = 76284 * (s.y - 16) + 32768, d = s.cb - 128, e = s.cr - 128;
    const auto sat = [](std::int64_t v) { return ref::clamp255(ref::floorShift(v, 16)); };
    return {sat(l + 104595 * e), sat(l - 25690 * d - 53281 * e), sat(l + 132186 * d)};
}

// The source of one member (one interleaved image or three planes; 4:4:4 planes share one step).
struct Source {
    Form form;
    int w;
    std::vector<ref::Img> im;
    bool flip;
    const Zor8u* ptrs[3] = {};
    int steps[3] = {};
    Source(Form f, int width, int h, bool flipped, int pad, std::uint32_t seed) : form(f), w(width), flip(flipped) {
        const int cw = f == Form::P3 ? w : f == Form::P411 ? (w + 3) / 4 : (w + 1) / 2;
        const int bytes = f == Form::C3 ? 3 : f == Form::C2 ? 2 : 1, ch = f == Form::P420 ? (h + 1) / 2 : h;
        for (int k = 0; k < (bytes > 1 ? 1 : 3); ++k)  // interleaved: one plane of 3w or 2w bytes
            im.emplace_back(k ? cw : w * bytes, k ? ch : h, 1, pad + (f == Form::P3 ? 0 : k), seed + k);
        for (std::size_t k = 0; k < im.size(); ++k) ptrs[k] = view(k).ptr(), steps[k] = view(k).step();
    }
    ref::View view(std::size_t k) { return {&im[k], flip}; }
    ref::Ycc sample(int x, int y) {
        if (form == Form::C3) return {view(0).row(y)[3 * x], view(0).row(y)[3 * x + 1], view(0).row(y)[3 * x + 2]};
        if (form == Form::C2) return ref::packedSamples(view(0).row(y), x, w, false);
        const int cx = form == Form::P3 ? x : form == Form::P411 ? x / 4 : x / 2, cy = form == Form::P420 ? y / 2 : y;
        return {view(0).row(y)[x], view(1).row(cy)[cx], view(2).row(cy)[cx]};
    }
    ZorStatus call(const Member& m, Zor16u* dst, int dstStep, ZoriSize roi) const {
        return m.c ? m.c(ptrs[0], steps[0], dst, dstStep, roi)
                   : m.p1 ? m.p1(ptrs, steps[0], dst, dstStep, roi) : m.p3(ptrs, steps, dst, dstStep, roi);
    }
};

TEST(Packed16, EveryMemberMatchesModel) {
    const int sizes[][2] = {{1, 1}, {1, 4}, {2, 3}, {3, 2}, {5, 3}, {6, 5}, {9, 9}, {13, 6}, {22, 7}, {67, 2}, {80, 3}};
    for (const Member& m : kMembers)
        for (int i = 0; i < 33; ++i) {  // every size: contiguous, flipped, padded with an odd step
            const int w = sizes[i % 11][0], h = sizes[i % 11][1], variant = i / 11, pad = 2 * variant;
            SCOPED_TRACE(testing::Message() << m.name << " " << w << "x" << h << " #" << variant);
            Source src(m.form, w, h, variant == 1, pad, 8 * i);
            zt::Image<Zor16u> dst(w, h, 1, 2 * pad, 8 * i + 7), want = dst;
            for (int y = 0; y < h; ++y)
                for (int x = 0; x < (m.form == Form::P411 ? w & ~3 : w); ++x)
                    want.row(variant == 1 ? h - 1 - y : y)[x] = pack(m.fmt, decode(m, src.sample(x, y)), m.dither, x, y);
            const ZorStatus st = variant == 1 ? src.call(m, dst.flippedData(), dst.flippedStep(), {w, h})
                                              : src.call(m, dst.data(), dst.step() + (variant == 2), {w, h});
            EXPECT_EQ(st, m.form == Form::P411 && w % 4 ? zorStsOddSizeWarning : zorStsOk);
            EXPECT_EQ(zt::firstDifference(dst.bytes(), want.bytes()), -1);
        }
}

// Pointers (and the step array) first, then the size, then the planes.
TEST(Packed16, CheckOrder) {
    for (const Member& m : kMembers) {
        Source src(m.form, 4, 2, false, 2, 3);
        zt::Image<Zor16u> dst(4, 2, 1);
        const zt::Image<Zor16u> before = dst;
        EXPECT_EQ(src.call(m, nullptr, 8, {0, 0}), zorStsNullPtr) << m.name;
        EXPECT_EQ(src.call(m, dst.data(), 8, {4, -1}), zorStsBadSize) << m.name;
        for (int p = 0; p < (m.c ? 1 : 3); ++p) {  // the image, or a plane inside the array
            Source broken = src;
            broken.ptrs[p] = nullptr;
            EXPECT_EQ(broken.call(m, dst.data(), 8, {4, 0}), m.c ? zorStsNullPtr : zorStsBadSize) << m.name << p;
            EXPECT_EQ(broken.call(m, dst.data(), 8, {4, 2}), zorStsNullPtr) << m.name << p;
        }
        const Zor8u* const* none = nullptr;  // a null array of planes or of steps, even with a bad size
        const ZorStatus noPlanes = m.p1   ? m.p1(none, 8, dst.data(), 8, {0, 2})
                                   : m.p3 ? m.p3(none, src.steps, dst.data(), 8, {0, 2}) : zorStsNullPtr;
        EXPECT_EQ(noPlanes, zorStsNullPtr) << m.name;
        EXPECT_EQ(m.p3 ? m.p3(src.ptrs, nullptr, dst.data(), 8, {0, 2}) : zorStsNullPtr, zorStsNullPtr) << m.name;
        EXPECT_TRUE(dst == before) << m.name;
    }
}

// Dithered 255 gives the top field value but in the 6-bit green at threshold 2097 (column 0, row 3): 1048 is not
// greater than 2097 >> 1. (36, 144, 144) gives green 4 by set A, 3 by set C (packed; one column: Cb for Cr).
TEST(Packed16, PinnedValues) {
    ref::Img white(4, 4, 3, 0);
    white.fillSamples([i = 0]() mutable { return static_cast<Zor8u>(i++ % 3 ? 128 : 255); });
    zt::Image<Zor16u> d(4, 4, 1, 0);
    ASSERT_EQ(zoriYCbCrToRGB565Dither_8u16u_C3R(white.data(), white.step(), d.data(), d.step(), {4, 4}), zorStsOk);
    for (int i = 0; i < 16; ++i) EXPECT_EQ(d.row(i / 4)[i % 4], i == 12 ? 0xFFDF : 0xFFFF) << i;
    const Zor8u px[3] = {36, 144, 144};
    Zor16u out[2];
    ASSERT_EQ(zoriYCbCrToRGB565_8u16u_C3R(px, 3, out, 2, {1, 1}), zorStsOk);
    ASSERT_EQ(zoriYCbCr422ToRGB565_8u16u_C2C3R(px, 2, out + 1, 2, {1, 1}), zorStsOk);
    EXPECT_EQ((std::vector<int>{out[0], out[1]}), (std::vector<int>{0x3026, 0x3006}));
}

#define ZOR_PACKED16_TEST(name, fn, args) \
    TEST(Packed16KernelSets, name) { zt::expectVectorsMatchScalar(zor::packed16Tables, &zor::Packed16Kernels::name); }
ZOR_PACKED16_KERNELS(ZOR_PACKED16_TEST)

}  // namespace
