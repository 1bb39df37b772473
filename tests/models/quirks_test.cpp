// Known values of the colour models and their deliberate quirks, one by one:
// each pixel below tells the required arithmetic from the obvious "fix".
#include "models/model_kit.h"

namespace {

// The codes a C3 function gives for the pixels listed one after another.
template <class S, class D>
std::vector<double> conv(ZorStatus (*f)(const S*, int, D*, int, ZoriSize), std::vector<double> in) {
    const std::vector<S> s(in.begin(), in.end());
    std::vector<D> d(s.size());
    EXPECT_EQ(f(s.data(), int(3 * sizeof(S)), d.data(), int(3 * sizeof(D)), {int(s.size() / 3), 1}), zorStsOk);
    return std::vector<double>(d.begin(), d.end());
}
using V = std::vector<double>;

TEST(Xyz, KnownValues) {
    // White: the Y row sums to 65534, so Y floors to 254; Z (277) saturates.
    EXPECT_EQ(conv(zoriRGBToXYZ_8u_C3R, {255, 255, 255, 0, 0, 0}), V({242, 254, 255, 0, 0, 0}));
    // (0, 255, 0): R and B negative, clamped to 0; G saturates.
    EXPECT_EQ(conv(zoriXYZToRGB_8u_C3R, {0, 255, 0, 0, 0, 0}), V({0, 255, 0, 0, 0, 0}));
    EXPECT_EQ(conv(zoriRGBToXYZ_16u_C3R, {65535, 65535, 65535}), V({62288, 65535, 65535}));
    // 32f: X and Y above 1 stay, Z is clamped.
    const V f = conv(zoriRGBToXYZ_32f_C3R, {2, 2, 2});
    EXPECT_TRUE(f[0] > 1.5 && f[1] > 1.5 && f[2] == 1.0);
}

// The 16u inverse adds the blue row's half and Z term in double (float
// would give 29541 and 46808); the 16s inverse stays in float.
TEST(Xyz, SixteenBitInverseBlueRowInDouble) {
    EXPECT_EQ(conv(zoriXYZToRGB_16u_C3R, {46807, 60359, 37124, 2125, 26005, 49177})[5], 46807);
    EXPECT_EQ(conv(zoriXYZToRGB_16u_C3R, {46807, 60359, 37124})[2], 29540);
    EXPECT_EQ(conv(zoriXYZToRGB_16s_C3R, {2125 - 32768, 26005 - 32768, 49177 - 32768})[2], 46808 - 32768);
}

TEST(Luv, LightnessTableBlackAndWhite) {
    std::vector<double> grey;
    for (int i = 0; i < 256; ++i) grey.insert(grey.end(), {double(i), double(i), double(i)});
    const V out = conv(zoriRGBToLUV_8u_C3R, grey);
    for (int i = 0; i < 256; ++i) EXPECT_EQ(out[3 * i], mk::powL(i)) << "grey " << i;
    EXPECT_EQ(V(out.begin(), out.begin() + 24), V({0, 97, 136, 9, 97, 136, 18, 97, 136, 26, 97, 136, 33, 97, 136,
                                                   39, 97, 136, 44, 97, 136, 48, 97, 136}));
    EXPECT_EQ(V(out.end() - 3, out.end()), V({255, 97, 136}));  // the rounding half lives in the u, v offsets
}

TEST(Luv, IntegerInverses) {
    // The long white-point pair (the short one gives 137 and 82).
    EXPECT_EQ(conv(zoriLUVToRGB_8u_C3R, {2, 0, 130, 7, 90, 121}), V({138, 0, 0, 0, 8, 81}));
    // 22.5 before rounding: + 0.499999 keeps 22.
    EXPECT_EQ(conv(zoriLUVToRGB_8u_C3R, {22, 232, 27}), V({0, 22, 0}));
    // Zero lightness is black: code 0 on the unsigned scale.
    EXPECT_EQ(conv(zoriLUVToRGB_8u_C3R, {0, 17, 250, 0, 255, 0}), V(6, 0));
    EXPECT_EQ(conv(zoriLUVToRGB_16u_C3R, {0, 65535, 65535}), V(3, 0));
    EXPECT_EQ(conv(zoriLUVToRGB_16s_C3R, {-32768, 1234, -999}), V(3, -32768));
}

// A dark pixel stalls the rest of its row: it is zeroed, nothing after it in
// that row is written, and the next row starts afresh.
TEST(Luv, FloatInverseStallsOnADarkPixel) {
    zt::Image<Zor32f> src(5, 2, 3, 4, 1);
    for (int i = 0; i < 30; ++i) src.row(i / 15)[i % 15] = i % 3 ? 5.0f : 50.0f;
    src.at(2, 0, 0) = 0.0f;   // dark third pixel in row 0
    src.at(0, 1, 0) = -1.0f;  // negative lightness is dark too
    const zt::Image<Zor32f> fresh(5, 2, 3, 4, 2);
    zt::Image<Zor32f> dst = fresh;
    ASSERT_EQ(zoriLUVToRGB_32f_C3R(src.data(), src.step(), dst.data(), dst.step(), {5, 2}), zorStsOk);
    EXPECT_GT(dst.at(0, 0, 0) * dst.at(1, 0, 0), 0.0f);
    EXPECT_EQ(std::vector<float>(&dst.at(2, 0), &dst.at(3, 0)), std::vector<float>(3, 0.0f));
    EXPECT_EQ(std::vector<float>(&dst.at(0, 1), &dst.at(1, 1)), std::vector<float>(3, 0.0f));
    EXPECT_EQ(std::memcmp(&dst.at(3, 0), &fresh.at(3, 0), 2 * 12), 0);
    EXPECT_EQ(std::memcmp(&dst.at(1, 1), &fresh.at(1, 1), 4 * 12), 0);
}

TEST(Lab, KnownValues) {
    EXPECT_EQ(conv(zoriBGRToLab_8u_C3R, {0, 0, 0, 255, 255, 255}), V({0, 128, 128, 255, 128, 128}));
    EXPECT_EQ(conv(zoriBGRToLab_8u16u_C3R, {0, 0, 0}), V({0, 32640, 32640}));
    // Out of gamut: each channel saturates on its own (stored B, G, R).
    EXPECT_EQ(conv(zoriLabToBGR_8u_C3R, {128, 255, 0, 128, 0, 255}), V({255, 0, 122, 0, 82, 0}));
}

// The 16u lightness is 116 * (double cube root) - 16 in double (float gives
// 22061); the 16u-code inverse truncates without the half the 8u one adds
// (with it: 16, 19, 220).
TEST(Lab, SixteenBitCodesQuirks) {
    EXPECT_EQ(conv(zoriBGRToLab_8u16u_C3R, {198, 8, 0})[0], 22060);
    EXPECT_EQ(conv(zoriLabToBGR_16u8u_C3R, {36732, 48373, 42628}), V({15, 18, 219}));
}

TEST(Ycc, KnownValues) {
    EXPECT_EQ(conv(zoriRGBToYCC_8u_C3R, {0, 0, 0, 255, 255, 255}), V({0, 156, 137, 181, 156, 137}));
    // Table indices -250 and -346 for R and B.
    EXPECT_EQ(conv(zoriYCCToRGB_8u_C3R, {0, 0, 0}), V({0, 194, 0}));
    EXPECT_EQ(conv(zoriYCCToRGB_16u_C3R, {0, 0, 0, 65535, 65535, 65535}), V({0, 49894, 0, 65535, 49959, 65535}));
    // Luma 0.5000004: + 0.499999 truncates to 0 where a half would give 1.
    EXPECT_EQ(conv(zoriRGBToYCC_16u_C3R, {0, 1, 1}), V({0, 40092, 35209}));
}

// The 16u forward uses the combined matrix, the 16s forward the model form.
TEST(Ycc, SixteenBitForwardForms) {
    EXPECT_EQ(conv(zoriRGBToYCC_16u_C3R, {16962, 58734, 61145}), V({33181, 46481, 19487}));
    EXPECT_EQ(conv(zoriRGBToYCC_16s_C3R, {16962 - 32768, 58734 - 32768, 61145 - 32768}),
              V({33180 - 32768, 46482 - 32768, 19487 - 32768}));
}

TEST(Hls, ForwardValues) {
    // Red: L 0.5 * 255 + 0.499999 rounds up in float; blue 240 and green
    // 120 degrees; a slightly negative hue wraps to just below 360; grey has
    // no hue and no saturation.
    EXPECT_EQ(conv(zoriRGBToHLS_8u_C3R, {255, 0, 0, 0, 0, 255, 0, 255, 0, 255, 0, 1, 90, 90, 90}),
              V({0, 128, 255, 170, 128, 255, 85, 128, 255, 255, 128, 255, 0, 90, 0}));
    // The planar BGR layouts floor: 127.5 gives 127. The BGRA member rounds.
    const Zor8u b[2] = {0, 255}, g[2] = {0, 0}, r[2] = {255, 0};
    const Zor8u* planes[3] = {b, g, r};
    Zor8u h[2], l[2], s[2];
    Zor8u* out[3] = {h, l, s};
    ASSERT_EQ(zoriBGRToHLS_8u_P3R(planes, 2, out, 2, {2, 1}), zorStsOk);
    EXPECT_EQ(V({double(h[0]), double(l[0]), double(s[0]), double(h[1])}), V({0, 127, 255, 170}));
    Zor8u bgra[4] = {0, 0, 255, 9}, hlsa[4] = {1, 1, 1, 77};
    ASSERT_EQ(zoriBGRToHLS_8u_AC4R(bgra, 4, hlsa, 4, {1, 1}), zorStsOk);
    EXPECT_EQ(V(hlsa, hlsa + 4), V({0, 128, 255, 77}));
    // 32f: channels within the float epsilon are achromatic, two apart not.
    const float e = 1.1920929e-7f;
    const V f = conv(zoriRGBToHLS_32f_C3R, {0.25, 0.25 + e, 0.25, 0.25, 0.25 + 2 * e, 0.25});
    EXPECT_EQ(f[2], 0.0);
    EXPECT_GT(f[5], 0.0);
}

TEST(Hls, InverseValues) {
    // Fully saturated hues around the circle: the red and blue ramps wrap.
    EXPECT_EQ(conv(zoriHLSToRGB_8u_C3R, {0, 128, 255, 42, 128, 255, 85, 128, 255, 128, 128, 255, 170, 128, 255,
                                         213, 128, 255, 255, 128, 255}),
              V({255, 1, 1, 255, 252, 1, 1, 255, 1, 1, 252, 255, 1, 1, 255, 255, 1, 252, 255, 1, 1}));
    // Red m2 = 100.78 code units: floored by the planar BGR layouts, rounded
    // by the RGB family.
    const Zor8u h[1] = {0}, l[1] = {100}, s[1] = {2};
    const Zor8u* in[3] = {h, l, s};
    Zor8u b[1], g[1], r[1];
    Zor8u* out[3] = {b, g, r};
    ASSERT_EQ(zoriHLSToBGR_8u_P3R(in, 1, out, 1, {1, 1}), zorStsOk);
    EXPECT_EQ(V({double(b[0]), double(g[0]), double(r[0])}), V({99, 99, 100}));
    EXPECT_EQ(conv(zoriHLSToRGB_8u_C3R, {0, 100, 2}), V({101, 99, 99}));
}

TEST(Hsv, KnownValues) {
    // Black, grey, red, green, blue, and (255, 0, 1): a negative hue wraps by
    // 255 code units.
    EXPECT_EQ(conv(zoriRGBToHSV_8u_C3R, {0, 0, 0, 90, 90, 90, 255, 0, 0, 0, 255, 0, 0, 0, 255, 255, 0, 1}),
              V({0, 0, 0, 0, 0, 90, 0, 255, 255, 85, 255, 255, 170, 255, 255, 255, 255, 255}));
    // 16u wraps in sextants: h = -1/65535 becomes just below 6.
    EXPECT_EQ(conv(zoriRGBToHSV_16u_C3R, {65535, 0, 1, 0, 65535, 0}), V({65535, 65535, 65535, 21845, 65535, 65535}));
    // The top hue code is hue 0 (not a seventh sextant).
    EXPECT_EQ(conv(zoriHSVToRGB_8u_C3R, {255, 255, 200}), V({200, 0, 0}));
    EXPECT_EQ(conv(zoriHSVToRGB_16u_C3R, {65535, 65535, 40000}), V({40000, 0, 0}));
}

}  // namespace
