// BGR565 / BGR555 words to planar subsampled YCbCr: whole buffers against a
// model with the field scaling folded into the coefficients, on random images
// of many sizes, top-down and bottom-up; statuses per member.
#include "subsampled_ref.h"

#include <string>
#include <vector>

namespace {

using ref::PlaneSet;
using Words = zt::Image<Zor16u>;

using Fn = ZorStatus (*)(const Zor16u*, int, Zor8u* const[3], const int[3], ZoriSize);

struct Case {
    std::string name;
    Fn fn;
    bool is565;
    int cols, rows, bias;
    bool swap, warns;
};

const std::vector<Case>& cases() {
    static const std::vector<Case> c = {
        {"565To422", zoriBGR565ToYCbCr422_16u8u_C3P3R, true, 2, 1, 16384, false, false},
        {"555To422", zoriBGR555ToYCbCr422_16u8u_C3P3R, false, 2, 1, 16384, false, false},
        {"565To420", zoriBGR565ToYCbCr420_16u8u_C3P3R, true, 2, 2, 32768, false, false},
        {"555To420", zoriBGR555ToYCbCr420_16u8u_C3P3R, false, 2, 2, 32768, false, false},
        {"565ToYCrCb420", zoriBGR565ToYCrCb420_16u8u_C3P3R, true, 2, 2, 32768, true, false},
        {"555ToYCrCb420", zoriBGR555ToYCrCb420_16u8u_C3P3R, false, 2, 2, 32768, true, false},
        {"565To411", zoriBGR565ToYCbCr411_16u8u_C3P3R, true, 4, 1, 32768, false, true},
        {"555To411", zoriBGR555ToYCbCr411_16u8u_C3P3R, false, 4, 1, 32768, false, true},
    };
    return c;
}

// Raw fields of a word: 5-bit R and B, 6-bit (565) or 5-bit (555) G.
struct Fields {
    std::int64_t r, g, b;
};
Fields fieldsOf(Zor16u w, bool is565) {
    if (is565) return {w >> 11, (w >> 5) & 63, w & 31};
    return {(w >> 10) & 31, (w >> 5) & 31, w & 31};
}

// Coefficients on the raw fields: the 8-bit ones times 8 (5-bit fields) or 4
// (6-bit green).
struct Coefs {
    std::int64_t yr, yg, yb, cbr, cbg, cbb, crr, crg, crb;
};
Coefs coefs(bool is565) {
    if (is565) return {134744, 132120, 51384, -77592, -76284, 230160, 230160, -96468, -37224};
    return {134744, 264240, 51384, -77592, -152568, 230160, 230160, -192936, -37224};
}

PlaneSet makePlanes(const Case& c, int w, int h, bool flip, std::uint32_t seed) {
    const int cw = c.cols == 2 && c.rows == 1 ? (w + 1) / 2 : w / c.cols;
    return PlaneSet(w, h, cw, h / c.rows, flip, seed);
}

void model(const Case& c, Words& src, bool flip, PlaneSet& dst, int w, int h) {
    const Coefs k = coefs(c.is565);
    auto word = [&](int x, int y) { return (flip ? src.row(h - 1 - y) : src.row(y))[x]; };
    auto luma = [&](Fields f) { return static_cast<Zor8u>((k.yr * f.r + k.yg * f.g + k.yb * f.b + 1081344) >> 16); };
    const int shift = c.cols * c.rows == 4 ? 18 : 17;
    for (int kk = 0; kk < h / c.rows; ++kk)
        for (int g = 0; g < w / c.cols; ++g) {
            Fields s{0, 0, 0};
            for (int r = 0; r < c.rows; ++r)
                for (int i = 0; i < c.cols; ++i) {
                    const int x = g * c.cols + i, y = kk * c.rows + r;
                    const Fields f = fieldsOf(word(x, y), c.is565);
                    dst.view(0).row(y)[x] = luma(f);
                    s.r += f.r, s.g += f.g, s.b += f.b;
                }
            const std::int64_t off = (std::int64_t{128} << shift) + c.bias;
            dst.view(c.swap ? 2 : 1).row(kk)[g] = static_cast<Zor8u>((k.cbr * s.r + k.cbg * s.g + k.cbb * s.b + off) >> shift);
            dst.view(c.swap ? 1 : 2).row(kk)[g] = static_cast<Zor8u>((k.crr * s.r + k.crg * s.g + k.crb * s.b + off) >> shift);
        }
    if (c.cols == 2 && c.rows == 1 && (w & 1))  // the last odd pixel of 4:2:2 gets its Y only
        for (int y = 0; y < h; ++y) dst.view(0).row(y)[w - 1] = luma(fieldsOf(word(w - 1, y), c.is565));
}

TEST(PackedInput, MatchesModelOnAllSizes) {
    std::uint32_t seed = 1;
    for (const Case& c : cases())
        for (int w : {1, 2, 3, 4, 5, 6, 7, 8, 9, 16, 23})
            for (int h : {1, 2, 3, 4, 5, 9})
                for (bool flip : {false, true}) {
                    SCOPED_TRACE(c.name + " " + std::to_string(w) + "x" + std::to_string(h) + (flip ? " flipped" : ""));
                    Words src(w, h, 1, 6, ++seed);
                    PlaneSet dst = makePlanes(c, w, h, flip, ++seed);
                    PlaneSet want = dst;
                    ZorStatus expected = zorStsBadSize;
                    if (w >= c.cols && h >= c.rows) {
                        model(c, src, flip, want, w, h);
                        expected = c.warns && (w % 4) ? zorStsOddSizeWarning : zorStsOk;
                    }
                    const Zor16u* p = flip ? src.flippedData() : src.data();
                    EXPECT_EQ(c.fn(p, flip ? src.flippedStep() : src.step(), dst.ptrs, dst.steps, {w, h}), expected);
                    EXPECT_TRUE(dst == want);
                }
}

TEST(PackedInput, OddByteStepLosesItsLowBit) {
    for (const Case& c : cases()) {
        SCOPED_TRACE(c.name);
        Words src(8, 4, 1, 4, 5);
        PlaneSet a = makePlanes(c, 8, 4, false, 9), b = a;
        EXPECT_EQ(c.fn(src.data(), src.step(), a.ptrs, a.steps, {8, 4}), zorStsOk);
        EXPECT_EQ(c.fn(src.data(), src.step() + 1, b.ptrs, b.steps, {8, 4}), zorStsOk);
        EXPECT_TRUE(a == b);
    }
}

TEST(PackedInput, WhiteIsNotFullScaleAndBit15IsIgnored) {
    const Zor16u white[2] = {0xFFFF, 0x7FFF};
    Zor8u y[2], cb[1], cr[1];
    Zor8u* planes[3] = {y, cb, cr};
    const int steps[3] = {2, 1, 1};
    ASSERT_EQ(zoriBGR565ToYCbCr422_16u8u_C3P3R(white, 4, planes, steps, {2, 1}), zorStsOk);
    EXPECT_EQ(y[0], 231);  // (248, 252, 248), not 255
    EXPECT_EQ(y[1], (134744 * 15 + 132120 * 63 + 51384 * 31 + 1081344) >> 16);
    ASSERT_EQ(zoriBGR555ToYCbCr422_16u8u_C3P3R(white, 4, planes, steps, {2, 1}), zorStsOk);
    EXPECT_EQ(y[0], y[1]);
}

TEST(PackedInput, CheckOrderAndSizes) {
    Words src(8, 4, 1);
    for (const Case& c : cases()) {
        SCOPED_TRACE(c.name);
        PlaneSet dst = makePlanes(c, 8, 4, false, 3);
        const PlaneSet before = dst;
        EXPECT_EQ(c.fn(nullptr, src.step(), dst.ptrs, dst.steps, {0, 0}), zorStsNullPtr);
        EXPECT_EQ(c.fn(src.data(), src.step(), nullptr, dst.steps, {8, 4}), zorStsNullPtr);
        EXPECT_EQ(c.fn(src.data(), src.step(), dst.ptrs, nullptr, {8, 4}), zorStsNullPtr);
        for (int i = 0; i < 3; ++i) {
            Zor8u* planes[3] = {dst.ptrs[0], dst.ptrs[1], dst.ptrs[2]};
            planes[i] = nullptr;
            EXPECT_EQ(c.fn(src.data(), src.step(), planes, dst.steps, {0, 0}), zorStsNullPtr);  // before the size
        }
        EXPECT_EQ(c.fn(src.data(), src.step(), dst.ptrs, dst.steps, {c.cols - 1, 4}), zorStsBadSize);
        EXPECT_EQ(c.fn(src.data(), src.step(), dst.ptrs, dst.steps, {8, c.rows - 1}), zorStsBadSize);
        EXPECT_TRUE(dst == before);
    }
    // 4:2:0 with an odd size converts the whole blocks without a warning;
    // 4:1:1 warns.
    PlaneSet p420(5, 3, 2, 1, false, 4);
    EXPECT_EQ(zoriBGR565ToYCbCr420_16u8u_C3P3R(src.data(), src.step(), p420.ptrs, p420.steps, {5, 3}), zorStsOk);
    PlaneSet p411(7, 1, 1, 1, false, 4);
    EXPECT_EQ(zoriBGR555ToYCbCr411_16u8u_C3P3R(src.data(), src.step(), p411.ptrs, p411.steps, {7, 1}),
              zorStsOddSizeWarning);
}

}  // namespace
