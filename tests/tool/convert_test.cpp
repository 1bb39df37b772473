// zorcc convert end to end: fixtures written here, converted by the binary,
// and the results compared with the library called directly.
#include "tool_test.h"

#include <array>
#include <cstdlib>

namespace {

using namespace tt;
using zorcc_tool::YuvFormat;
using zorcc_tool::YuvFrame;

constexpr int W = 16, H = 10;

Image8 readPng8(const fs::path& p) {
    Picture pic = zorcc_tool::readPng(p.string());
    EXPECT_EQ(pic.depth, 8);
    return pic.i8;
}

Image16 readPng16(const fs::path& p) {
    Picture pic = zorcc_tool::readPng(p.string());
    EXPECT_EQ(pic.depth, 16);
    return pic.i16;
}

// Planes of a frame as the library takes them.
struct P3 {
    std::array<Zor8u*, 3> p{};
    std::array<int, 3> s{};
    explicit P3(YuvFrame& f) {
        for (int i = 0; i < f.planeCount(); ++i) p[i] = f.plane(i), s[i] = f.step(i);
    }
    const Zor8u* const* c() const { return reinterpret_cast<const Zor8u* const*>(p.data()); }
};

// --------------------------------------------------------------------------
// Video: encode and decode at every subsampling.

TEST(ToolVideo, EncodeEveryLayoutMatchesTheLibrary) {
    const fs::path d = scratch();
    const Image8 rgb = randomImage<std::uint8_t>(W, H, 3, 1);
    zorcc_tool::writePng((d / "in.png").string(), rgb);
    const ZoriSize roi{W, H};
    Image8 bgr = swapped(rgb);

    struct Case {
        const char* to;
        YuvFormat f;
    };
    for (const Case c : {Case{"i420", YuvFormat::I420}, Case{"nv12", YuvFormat::NV12}, Case{"yuy2", YuvFormat::YUY2},
                         Case{"uyvy", YuvFormat::UYVY}, Case{"i422", YuvFormat::I422}, Case{"i444", YuvFormat::I444},
                         Case{"i411", YuvFormat::I411}}) {
        SCOPED_TRACE(c.to);
        ok(zorcc(d, std::string("convert in.png out.yuv --op encode --to ") + c.to));
        YuvFrame want(c.f, W, H);
        P3 p(want);
        switch (c.f) {
            case YuvFormat::I420: ASSERT_EQ(zoriRGBToYCbCr420_8u_C3P3R(rgb.data(), rgb.step(), p.p.data(), p.s.data(), roi), 0); break;
            case YuvFormat::NV12: {
                YuvFrame planar(YuvFormat::I420, W, H);
                P3 q(planar);
                ASSERT_EQ(zoriRGBToYCbCr420_8u_C3P3R(rgb.data(), rgb.step(), q.p.data(), q.s.data(), roi), 0);
                ASSERT_EQ(zoriYCbCr420_8u_P3P2R(q.c(), q.s.data(), want.plane(0), W, want.plane(1), W, roi), 0);
                break;
            }
            case YuvFormat::YUY2: ASSERT_EQ(zoriRGBToYCbCr422_8u_C3C2R(rgb.data(), rgb.step(), want.plane(0), 2 * W, roi), 0); break;
            case YuvFormat::UYVY: ASSERT_EQ(zoriRGBToCbYCr422_8u_C3C2R(rgb.data(), rgb.step(), want.plane(0), 2 * W, roi), 0); break;
            case YuvFormat::I422: ASSERT_EQ(zoriBGRToYCbCr422_8u_C3P3R(bgr.data(), bgr.step(), p.p.data(), p.s.data(), roi), 0); break;
            case YuvFormat::I411: ASSERT_EQ(zoriBGRToYCbCr411_8u_C3P3R(bgr.data(), bgr.step(), p.p.data(), p.s.data(), roi), 0); break;
            case YuvFormat::I444: {
                YuvFrame rgbPlanes(YuvFormat::I444, W, H);
                for (int i = 0; i < W * H; ++i)
                    for (int k = 0; k < 3; ++k) rgbPlanes.planes[k][i] = rgb.pixels[3 * i + k];
                P3 q(rgbPlanes);
                ASSERT_EQ(zoriRGBToYCbCr_8u_P3R(q.c(), W, p.p.data(), W, roi), 0);
                break;
            }
        }
        EXPECT_EQ(slurp(d / "out.yuv"), rawOf(want));
    }
}

TEST(ToolVideo, DecodeEveryLayoutMatchesTheLibrary) {
    const fs::path d = scratch();
    const ZoriSize roi{W, H};
    for (YuvFormat f : {YuvFormat::I420, YuvFormat::NV12, YuvFormat::YUY2, YuvFormat::UYVY, YuvFormat::I422,
                        YuvFormat::I444, YuvFormat::I411}) {
        const std::string name = zorcc_tool::formatName(f);
        SCOPED_TRACE(name);
        YuvFrame in = randomFrame(f, W, H, 7);
        spit(d / "in.raw", rawOf(in));
        ok(zorcc(d, "convert in.raw out.png --op decode --size 16x10 --format " + name));
        Image8 want(W, H, 3);
        P3 p(in);
        YuvFrame mid(YuvFormat::I422, W, H);
        P3 m(mid);
        switch (f) {
            case YuvFormat::I444: ASSERT_EQ(zoriYCbCrToRGB_8u_P3C3R(p.c(), W, want.data(), want.step(), roi), 0); break;
            case YuvFormat::I422: ASSERT_EQ(zoriYCbCr422ToRGB_8u_P3C3R(p.c(), p.s.data(), want.data(), want.step(), roi), 0); break;
            case YuvFormat::YUY2: ASSERT_EQ(zoriYCbCr422ToRGB_8u_C2C3R(in.plane(0), 2 * W, want.data(), want.step(), roi), 0); break;
            case YuvFormat::UYVY: ASSERT_EQ(zoriCbYCr422ToRGB_8u_C2C3R(in.plane(0), 2 * W, want.data(), want.step(), roi), 0); break;
            case YuvFormat::I420:
                ASSERT_EQ(zoriYCbCr420ToYCbCr422_8u_P3R(p.c(), p.s.data(), m.p.data(), m.s.data(), roi), 0);
                ASSERT_EQ(zoriYCbCr422ToRGB_8u_P3C3R(m.c(), m.s.data(), want.data(), want.step(), roi), 0);
                break;
            case YuvFormat::NV12:
                ASSERT_EQ(zoriYCbCr420ToYCbCr422_8u_P2P3R(in.plane(0), W, in.plane(1), W, m.p.data(), m.s.data(), roi), 0);
                ASSERT_EQ(zoriYCbCr422ToRGB_8u_P3C3R(m.c(), m.s.data(), want.data(), want.step(), roi), 0);
                break;
            case YuvFormat::I411:
                ASSERT_EQ(zoriYCbCr411ToYCbCr422_8u_P3R(p.c(), p.s.data(), m.p.data(), m.s.data(), roi), 0);
                ASSERT_EQ(zoriYCbCr422ToRGB_8u_P3C3R(m.c(), m.s.data(), want.data(), want.step(), roi), 0);
                break;
        }
        EXPECT_EQ(readPng8(d / "out.png").pixels, want.pixels);
    }
}

TEST(ToolVideo, FilteredDecodeAndGammaEncodeMatchTheLibrary) {
    const fs::path d = scratch();
    YuvFrame in = randomFrame(YuvFormat::I420, W, 16, 9);
    spit(d / "in.yuv", rawOf(in));
    ok(zorcc(d, "convert in.yuv out.png --op decode-filtered --size 16x16 --format i420"));
    const Zor8u* yvu[3] = {in.plane(0), in.plane(2), in.plane(1)};
    const int steps[3] = {W, W / 2, W / 2};
    Image8 bgra(W, 16, 4);
    ASSERT_EQ(zoriYCrCb420ToBGR_Filter_8u_P3C4R(yvu, steps, bgra.data(), bgra.step(), ZoriSize{W, 16}, 255), 0);
    const Image8 got = readPng8(d / "out.png");
    for (int i = 0; i < W * 16; ++i)
        for (int c = 0; c < 3; ++c) ASSERT_EQ(got.pixels[3 * i + c], bgra.pixels[4 * i + 2 - c]) << i;

    const Image8 rgb = randomImage<std::uint8_t>(W, H, 3, 4);
    zorcc_tool::writePng((d / "rgb.png").string(), rgb);
    ok(zorcc(d, "convert rgb.png out.uyvy --op encode-gamma"));
    std::vector<std::uint8_t> want(2 * W * H);
    ASSERT_EQ(zoriRGBToCbYCr422Gamma_8u_C3C2R(rgb.data(), rgb.step(), want.data(), 2 * W, ZoriSize{W, H}), 0);
    EXPECT_EQ(slurp(d / "out.uyvy"), want);
}

TEST(ToolVideo, PackedBgrInputEncodes) {
    const fs::path d = scratch();
    std::vector<std::uint16_t> px(W * H);
    std::mt19937 rng(5);
    for (auto& v : px) v = static_cast<std::uint16_t>(rng());
    std::vector<std::uint8_t> le;
    for (auto v : px) le.push_back(static_cast<std::uint8_t>(v)), le.push_back(static_cast<std::uint8_t>(v >> 8));
    spit(d / "in.bgr565", le);
    ok(zorcc(d, "convert in.bgr565 out.yuv --op packed-encode --size 16x10 --format bgr565 --to i420"));
    YuvFrame want(YuvFormat::I420, W, H);
    P3 p(want);
    ASSERT_EQ(zoriBGR565ToYCbCr420_16u8u_C3P3R(px.data(), 2 * W, p.p.data(), p.s.data(), ZoriSize{W, H}), 0);
    EXPECT_EQ(slurp(d / "out.yuv"), rawOf(want));
}

// --------------------------------------------------------------------------
// Packed 16-bit output and YUV.

TEST(ToolPacked, DitheredRgb565FromPngAndFromI420) {
    const fs::path d = scratch();
    const Image8 rgb = randomImage<std::uint8_t>(W, H, 3, 11);
    zorcc_tool::writePng((d / "in.png").string(), rgb);
    ok(zorcc(d, "convert in.png out.rgb565 --op rgb565 --dither"));
    Image8 ycc(W, H, 3);
    ASSERT_EQ(zoriRGBToYCbCr_8u_C3R(rgb.data(), rgb.step(), ycc.data(), ycc.step(), ZoriSize{W, H}), 0);
    std::vector<std::uint16_t> want(W * H);
    ASSERT_EQ(zoriYCbCrToRGB565Dither_8u16u_C3R(ycc.data(), ycc.step(), want.data(), 2 * W, ZoriSize{W, H}), 0);
    EXPECT_EQ(words(slurp(d / "out.rgb565")), want);

    // The same words as a picture: 5/6/5-bit fields widened by replication.
    ok(zorcc(d, "convert in.png view.png --op rgb565 --dither"));
    const Image8 view = readPng8(d / "view.png");
    for (int i = 0; i < W * H; ++i) {
        const int r = want[i] & 31, g = (want[i] >> 5) & 63, b = want[i] >> 11;
        ASSERT_EQ(view.pixels[3 * i], (r << 3) | (r >> 2));
        ASSERT_EQ(view.pixels[3 * i + 1], (g << 2) | (g >> 4));
        ASSERT_EQ(view.pixels[3 * i + 2], (b << 3) | (b >> 2));
    }

    YuvFrame in = randomFrame(YuvFormat::I420, W, H, 12);
    spit(d / "in.yuv", rawOf(in));
    ok(zorcc(d, "convert in.yuv out2.bgr444 --op bgr444 --dither --size 16x10 --format i420"));
    P3 p(in);
    ASSERT_EQ(zoriYCbCr420ToBGR444Dither_8u16u_P3C3R(p.c(), p.s.data(), want.data(), 2 * W, ZoriSize{W, H}), 0);
    EXPECT_EQ(words(slurp(d / "out2.bgr444")), want);

}

TEST(ToolPacked, YuvEncodeAndDecodeMatchTheLibrary) {
    const fs::path d = scratch();
    const Image8 rgb = randomImage<std::uint8_t>(W, H, 3, 13);
    zorcc_tool::writePng((d / "in.png").string(), rgb);
    ok(zorcc(d, "convert in.png out.yuv --op yuv-encode --to i420"));
    YuvFrame want(YuvFormat::I420, W, H);
    P3 p(want);
    ASSERT_EQ(zoriRGBToYUV420_8u_C3P3R(rgb.data(), rgb.step(), p.p.data(), p.s.data(), ZoriSize{W, H}), 0);
    EXPECT_EQ(slurp(d / "out.yuv"), rawOf(want));

    ok(zorcc(d, "convert out.yuv back.png --op yuv-decode --size 16x10 --format i420"));
    Image8 back(W, H, 3);
    ASSERT_EQ(zoriYUV420ToRGB_8u_P3C3R(p.c(), p.s.data(), back.data(), back.step(), ZoriSize{W, H}), 0);
    EXPECT_EQ(readPng8(d / "back.png").pixels, back.pixels);
}

// --------------------------------------------------------------------------
// Chroma layouts.

TEST(ToolChroma, RelayoutSingleCallsAndChains) {
    const fs::path d = scratch();
    const ZoriSize roi{W, H};
    YuvFrame yuy2 = randomFrame(YuvFormat::YUY2, W, H, 21);
    spit(d / "in.yuy2", rawOf(yuy2));
    ok(zorcc(d, "convert in.yuy2 out.yuv --op relayout --to i420 --size 16x10 --format yuy2"));
    YuvFrame want(YuvFormat::I420, W, H);
    P3 p(want);
    ASSERT_EQ(zoriYCbCr422ToYCbCr420_8u_C2P3R(yuy2.plane(0), 2 * W, p.p.data(), p.s.data(), roi), 0);
    EXPECT_EQ(slurp(d / "out.yuv"), rawOf(want));

    // i422 -> uyvy has no single call: i422 -> yuy2 -> uyvy.
    YuvFrame i422 = randomFrame(YuvFormat::I422, W, H, 22);
    spit(d / "in.i422", rawOf(i422));
    ok(zorcc(d, "convert in.i422 out.uyvy --op relayout --to uyvy --size 16x10 --format i422"));
    P3 q(i422);
    std::vector<std::uint8_t> mid(2 * W * H), fin(2 * W * H);
    ASSERT_EQ(zoriYCbCr422_8u_P3C2R(q.c(), q.s.data(), mid.data(), 2 * W, roi), 0);
    ASSERT_EQ(zoriYCbCr422ToCbYCr422_8u_C2R(mid.data(), 2 * W, fin.data(), 2 * W, roi), 0);
    EXPECT_EQ(slurp(d / "out.uyvy"), fin);

    // 4:2:0 -> 4:1:1 -> 4:2:0 moves samples without loss.
    YuvFrame i420 = randomFrame(YuvFormat::I420, W, H, 23);
    spit(d / "in.i420", rawOf(i420));
    ok(zorcc(d, "convert in.i420 mid.i411 --op relayout --to i411 --size 16x10 --format i420"));
    ok(zorcc(d, "convert mid.i411 back.i420 --op relayout --to i420 --size 16x10 --format i411"));
    EXPECT_EQ(slurp(d / "back.i420"), rawOf(i420));

    const Result r = zorcc(d, "convert in.i420 x.yuv --op relayout --to i444 --size 16x10 --format i420");
    EXPECT_NE(r.code, 0);
    EXPECT_NE(r.err.find("no chroma relayout"), std::string::npos) << r.err;
}

TEST(ToolChroma, FilteredUpsampleAndDeinterlace) {
    const fs::path d = scratch();
    const ZoriSize roi{W, 16};
    YuvFrame nv12 = randomFrame(YuvFormat::NV12, W, 16, 31);
    spit(d / "in.nv12", rawOf(nv12));
    ok(zorcc(d, "convert in.nv12 up.yuv --op upsample-filtered --size 16x16 --format nv12"));
    YuvFrame up(YuvFormat::I422, W, 16);
    P3 u(up);
    ASSERT_EQ(zoriYCbCr420ToYCbCr422_Filter_8u_P2P3R(nv12.plane(0), W, nv12.plane(1), W, u.p.data(), u.s.data(), roi), 0);
    EXPECT_EQ(slurp(d / "up.yuv"), rawOf(up));

    ok(zorcc(d, "convert in.nv12 di.yuv --op deinterlace --to yuy2 --size 16x16 --format nv12"));
    std::vector<std::uint8_t> di(2 * W * 16);
    ASSERT_EQ(zoriYCbCr420ToYCbCr422_Filter_8u_P2C2R(nv12.plane(0), W, nv12.plane(1), W, di.data(), 2 * W, roi,
                                                      zorSliceWhole), 0);
    EXPECT_EQ(slurp(d / "di.yuv"), di);

    ok(zorcc(d, "convert in.nv12 di2.yuv --op deinterlace --size 16x16 --format nv12"));
    YuvFrame want(YuvFormat::I420, W, 16);
    Zor8u* yvu[3] = {want.plane(0), want.plane(2), want.plane(1)};
    const int steps[3] = {W, W / 2, W / 2};
    ASSERT_EQ(zoriYCbCr420ToYCrCb420_Filter_8u_P2P3R(nv12.plane(0), W, nv12.plane(1), W, yvu, steps, roi, zorSliceWhole), 0);
    EXPECT_EQ(slurp(d / "di2.yuv"), rawOf(want));
}

// --------------------------------------------------------------------------
// Y4M video, frame by frame.

TEST(ToolY4m, FramesDecodeOneByOneAndStreamsStayVideo) {
    const fs::path d = scratch();
    std::vector<YuvFrame> frames;
    for (std::uint32_t i = 0; i < 3; ++i) frames.push_back(randomFrame(YuvFormat::I420, W, H, 40 + i));
    spit(d / "clip.y4m", y4mOf(frames, "420mpeg2"));

    // One frame to PNG.
    ok(zorcc(d, "convert clip.y4m frame.png --op decode --frame 1"));
    Image8 want(W, H, 3);
    {
        P3 p(frames[1]);
        YuvFrame mid(YuvFormat::I422, W, H);
        P3 m(mid);
        ASSERT_EQ(zoriYCbCr420ToYCbCr422_8u_P3R(p.c(), p.s.data(), m.p.data(), m.s.data(), ZoriSize{W, H}), 0);
        ASSERT_EQ(zoriYCbCr422ToRGB_8u_P3C3R(m.c(), m.s.data(), want.data(), want.step(), ZoriSize{W, H}), 0);
    }
    EXPECT_EQ(readPng8(d / "frame.png").pixels, want.pixels);

    // Every frame to numbered PNGs.
    ok(zorcc(d, "convert clip.y4m f%d.png --op decode --quiet"));
    EXPECT_TRUE(fs::exists(d / "f0000.png") && fs::exists(d / "f0002.png") && !fs::exists(d / "f0003.png"));
    EXPECT_EQ(readPng8(d / "f0001.png").pixels, want.pixels);

    // Y4M to Y4M: 4:2:0 relaid out as 4:2:2, header and frame rate kept.
    ok(zorcc(d, "convert clip.y4m out.y4m --op relayout --to i422 --frames 2 --quiet"));
    std::vector<std::vector<std::uint8_t>> wantFrames;
    for (int i = 0; i < 2; ++i) {
        P3 p(frames[i]);
        YuvFrame o(YuvFormat::I422, W, H);
        P3 q(o);
        ASSERT_EQ(zoriYCbCr420ToYCbCr422_8u_P3R(p.c(), p.s.data(), q.p.data(), q.s.data(), ZoriSize{W, H}), 0);
        wantFrames.push_back(rawOf(o));
    }
    EXPECT_EQ(slurp(d / "out.y4m"), y4mBytes(W, H, "F30000:1001 Ip A1:1 C422", wantFrames));
}

// --------------------------------------------------------------------------
// Colour models, written as images of codes.

TEST(ToolModels, LabCodesAndRoundTrip) {
    const fs::path d = scratch();
    const Image8 rgb = randomImage<std::uint8_t>(W, H, 3, 61);
    zorcc_tool::writePng((d / "in.png").string(), rgb);
    const Image8 bgr = swapped(rgb);
    const ZoriSize roi{W, H};

    ok(zorcc(d, "convert in.png lab.png --op rgb-to-lab"));
    Image8 lab(W, H, 3);
    ASSERT_EQ(zoriBGRToLab_8u_C3R(bgr.data(), bgr.step(), lab.data(), lab.step(), roi), 0);
    EXPECT_EQ(readPng8(d / "lab.png").pixels, lab.pixels);
    ok(zorcc(d, "convert lab.png back.png --op lab-to-rgb"));
    Image8 back(W, H, 3);
    ASSERT_EQ(zoriLabToBGR_8u_C3R(lab.data(), lab.step(), back.data(), back.step(), roi), 0);
    EXPECT_EQ(readPng8(d / "back.png").pixels, swapped(back).pixels);

    ok(zorcc(d, "convert in.png lab16.png --op rgb-to-lab --bits 16"));
    Image16 lab16(W, H, 3);
    ASSERT_EQ(zoriBGRToLab_8u16u_C3R(bgr.data(), bgr.step(), lab16.data(), lab16.step(), roi), 0);
    EXPECT_EQ(readPng16(d / "lab16.png").pixels, lab16.pixels);
    ok(zorcc(d, "convert lab16.png back16.png --op lab-to-rgb"));
    ASSERT_EQ(zoriLabToBGR_16u8u_C3R(lab16.data(), lab16.step(), back.data(), back.step(), roi), 0);
    const Image8 got16 = readPng8(d / "back16.png");
    EXPECT_EQ(got16.pixels, swapped(back).pixels);
}

template <typename T>
using Fn = ZorStatus (*)(const T*, int, T*, int, ZoriSize);

struct ModelCase {
    const char* name;
    Fn<Zor8u> f8, i8;
    Fn<Zor16u> f16, i16;
};

TEST(ToolModels, EveryModelBothDepthsMatchesTheLibrary) {
    const fs::path d = scratch();
    const Image8 rgb = randomImage<std::uint8_t>(W, H, 3, 62);
    const Image16 rgb16 = randomImage<std::uint16_t>(W, H, 3, 63);
    zorcc_tool::writePng((d / "in.png").string(), rgb);
    zorcc_tool::writePng((d / "in16.png").string(), rgb16);
    const ZoriSize roi{W, H};
    const ModelCase cases[] = {
        {"xyz", zoriRGBToXYZ_8u_C3R, zoriXYZToRGB_8u_C3R, zoriRGBToXYZ_16u_C3R, zoriXYZToRGB_16u_C3R},
        {"luv", zoriRGBToLUV_8u_C3R, zoriLUVToRGB_8u_C3R, zoriRGBToLUV_16u_C3R, zoriLUVToRGB_16u_C3R},
        {"ycc", zoriRGBToYCC_8u_C3R, zoriYCCToRGB_8u_C3R, zoriRGBToYCC_16u_C3R, zoriYCCToRGB_16u_C3R},
        {"hls", zoriRGBToHLS_8u_C3R, zoriHLSToRGB_8u_C3R, zoriRGBToHLS_16u_C3R, zoriHLSToRGB_16u_C3R},
        {"hsv", zoriRGBToHSV_8u_C3R, zoriHSVToRGB_8u_C3R, zoriRGBToHSV_16u_C3R, zoriHSVToRGB_16u_C3R},
    };
    for (const ModelCase& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string m = c.name;
        ok(zorcc(d, "convert in.png codes.png --op rgb-to-" + m));
        ok(zorcc(d, "convert codes.png back.png --op " + m + "-to-rgb"));
        Image8 codes(W, H, 3), back(W, H, 3);
        ASSERT_EQ(c.f8(rgb.data(), rgb.step(), codes.data(), codes.step(), roi), 0);
        ASSERT_EQ(c.i8(codes.data(), codes.step(), back.data(), back.step(), roi), 0);
        EXPECT_EQ(readPng8(d / "codes.png").pixels, codes.pixels);
        EXPECT_EQ(readPng8(d / "back.png").pixels, back.pixels);

        ok(zorcc(d, "convert in16.png codes16.png --op rgb-to-" + m));
        ok(zorcc(d, "convert codes16.png back16.png --op " + m + "-to-rgb"));
        Image16 codes16(W, H, 3), back16(W, H, 3);
        ASSERT_EQ(c.f16(rgb16.data(), rgb16.step(), codes16.data(), codes16.step(), roi), 0);
        ASSERT_EQ(c.i16(codes16.data(), codes16.step(), back16.data(), back16.step(), roi), 0);
        EXPECT_EQ(readPng16(d / "codes16.png").pixels, codes16.pixels);
        EXPECT_EQ(readPng16(d / "back16.png").pixels, back16.pixels);
    }
}

TEST(ToolModels, GrayFromPpmWithDefaultAndOwnWeights) {
    const fs::path d = scratch();
    const Image8 rgb = randomImage<std::uint8_t>(W, H, 3, 64);
    zorcc_tool::writePnm((d / "in.ppm").string(), Picture(rgb));
    ok(zorcc(d, "convert in.ppm out.pgm --op rgb-to-gray"));
    Image8 gray(W, H, 1);
    ASSERT_EQ(zoriRGBToGray_8u_C3C1R(rgb.data(), rgb.step(), gray.data(), gray.step(), ZoriSize{W, H}), 0);
    Picture got = zorcc_tool::readPnm((d / "out.pgm").string());
    EXPECT_EQ(got.channels(), 1);
    EXPECT_EQ(got.i8.pixels, gray.pixels);

    ok(zorcc(d, "convert in.ppm out2.png --op rgb-to-gray --weights 0.5,0.25,0.25"));
    const Zor32f w[3] = {0.5f, 0.25f, 0.25f};
    ASSERT_EQ(zoriColorToGray_8u_C3C1R(rgb.data(), rgb.step(), gray.data(), gray.step(), ZoriSize{W, H}, w), 0);
    EXPECT_EQ(readPng8(d / "out2.png").pixels, gray.pixels);
}

// --------------------------------------------------------------------------
// Twist, gamma, bit reduction, YCoCg.

TEST(ToolTwist, MatrixFromTheCommandLineAndAlphaKept) {
    const fs::path d = scratch();
    const Image16 rgb16 = randomImage<std::uint16_t>(W, H, 3, 71);
    zorcc_tool::writePng((d / "in16.png").string(), rgb16);
    ok(zorcc(d, "convert in16.png out16.png --op twist --matrix '0.5 0.25 0.25 100; 0 1 0 0; -1 0 1.5 -7.5'"));
    const Zor32f m[3][4] = {{0.5f, 0.25f, 0.25f, 100}, {0, 1, 0, 0}, {-1, 0, 1.5f, -7.5f}};
    Image16 want(W, H, 3);
    ASSERT_EQ(zoriColorTwist32f_16u_C3R(rgb16.data(), rgb16.step(), want.data(), want.step(), ZoriSize{W, H}, m), 0);
    EXPECT_EQ(readPng16(d / "out16.png").pixels, want.pixels);

    const Image8 rgba = randomImage<std::uint8_t>(W, H, 4, 72);
    zorcc_tool::writePng((d / "in.png").string(), rgba);
    ok(zorcc(d, "convert in.png out.png --op twist --matrix 0,1,0,0,1,0,0,0,0,0,1,0"));
    const Image8 got = readPng8(d / "out.png");
    ASSERT_EQ(got.channels, 4);
    for (int i = 0; i < W * H; ++i) {
        ASSERT_EQ(got.pixels[4 * i], rgba.pixels[4 * i + 1]);
        ASSERT_EQ(got.pixels[4 * i + 1], rgba.pixels[4 * i]);
        ASSERT_EQ(got.pixels[4 * i + 3], rgba.pixels[4 * i + 3]);
    }
    const Result bad = zorcc(d, "convert in.png bad.png --op twist --matrix '1 2 3'");
    EXPECT_NE(bad.code, 0);
    EXPECT_NE(bad.err.find("12 numbers"), std::string::npos) << bad.err;
}

TEST(ToolTwist, GammaBothDirectionsBothDepths) {
    const fs::path d = scratch();
    const Image8 rgb = randomImage<std::uint8_t>(W, H, 3, 73);
    const Image16 rgb16 = randomImage<std::uint16_t>(W, H, 3, 74);
    zorcc_tool::writePng((d / "in.png").string(), rgb);
    zorcc_tool::writePng((d / "in16.png").string(), rgb16);
    const ZoriSize roi{W, H};
    ok(zorcc(d, "convert in.png fwd.png --op gamma-fwd"));
    ok(zorcc(d, "convert in16.png inv16.png --op gamma-inv"));
    Image8 fwd(W, H, 3);
    Image16 inv16(W, H, 3);
    ASSERT_EQ(zoriGammaFwd_8u_C3R(rgb.data(), rgb.step(), fwd.data(), fwd.step(), roi), 0);
    ASSERT_EQ(zoriGammaInv_16u_C3R(rgb16.data(), rgb16.step(), inv16.data(), inv16.step(), roi), 0);
    EXPECT_EQ(readPng8(d / "fwd.png").pixels, fwd.pixels);
    EXPECT_EQ(readPng16(d / "inv16.png").pixels, inv16.pixels);
}

TEST(ToolReduce, MethodsLevelsNoiseAndDepths) {
    const fs::path d = scratch();
    threads_omp_of_n_zor = 1;  // error diffusion splits channels by team size
    const Image8 rgb = randomImage<std::uint8_t>(W, H, 3, 81);
    const Image16 gray16 = randomImage<std::uint16_t>(W, H, 1, 82);
    zorcc_tool::writePng((d / "in.png").string(), rgb);
    zorcc_tool::writePng((d / "g16.png").string(), gray16);
    const ZoriSize roi{W, H};
    struct Case {
        const char* method;
        ZorDitherType type;
        int levels, noise;
    };
    for (const Case c : {Case{"none", zorDitherNone, 4, 0}, Case{"fs", zorDitherFS, 2, 0}, Case{"jjn", zorDitherJJN, 5, 0},
                         Case{"stucki", zorDitherStucki, 8, 20}, Case{"bayer", zorDitherBayer, 3, 50}}) {
        SCOPED_TRACE(c.method);
        const std::string args = std::string(" --method ") + c.method + " --levels " + std::to_string(c.levels) +
                                 " --noise " + std::to_string(c.noise) + " --threads 1";
        ok(zorcc(d, "convert in.png out.png --op reduce" + args));
        Image8 want(W, H, 3);
        ASSERT_EQ(zoriReduceBits_8u_C3R(rgb.data(), rgb.step(), want.data(), want.step(), roi, c.noise, c.type, c.levels), 0);
        EXPECT_EQ(readPng8(d / "out.png").pixels, want.pixels);

        ok(zorcc(d, "convert g16.png out8.png --op reduce --bits 8" + args));
        Image8 want8(W, H, 1);
        ASSERT_EQ(zoriReduceBits_16u8u_C1R(gray16.data(), gray16.step(), want8.data(), want8.step(), roi, c.noise, c.type,
                                           c.levels), 0);
        EXPECT_EQ(readPng8(d / "out8.png").pixels, want8.pixels);
    }
    const Result bad = zorcc(d, "convert in.png x.png --op reduce --levels 1");
    EXPECT_NE(bad.code, 0);
    EXPECT_NE(bad.err.find("levels out of range"), std::string::npos) << bad.err;
    EXPECT_FALSE(fs::exists(d / "x.png"));
}

TEST(ToolYCoCg, ReversibleRoundTripIsExactAndPlainMatchesTheLibrary) {
    const fs::path d = scratch();
    const Image8 rgb = randomImage<std::uint8_t>(W, H, 3, 91);
    zorcc_tool::writePng((d / "in.png").string(), rgb);
    ok(zorcc(d, "convert in.png codes.png --op rgb-to-ycocg --reversible"));
    ok(zorcc(d, "convert codes.png back.png --op ycocg-to-rgb --reversible"));
    EXPECT_EQ(readPng8(d / "back.png").pixels, rgb.pixels);

    ok(zorcc(d, "convert in.png plain.png --op rgb-to-ycocg"));
    const Image8 bgr = swapped(rgb);
    std::vector<Zor16s> planes(3 * W * H);
    Zor16s* p[3] = {planes.data(), planes.data() + W * H, planes.data() + 2 * W * H};
    ASSERT_EQ(zoriBGRToYCoCg_8u16s_C3P3R(bgr.data(), bgr.step(), p, 2 * W, ZoriSize{W, H}), 0);
    const Image16 codes = readPng16(d / "plain.png");
    for (int i = 0; i < W * H; ++i)
        for (int c = 0; c < 3; ++c) ASSERT_EQ(codes.pixels[3 * i + c], p[c][i] + 32768) << i;
    ok(zorcc(d, "convert plain.png plainback.png --op ycocg-to-rgb"));
    Image8 back(W, H, 3);
    const Zor16s* cp[3] = {p[0], p[1], p[2]};
    ASSERT_EQ(zoriYCoCgToBGR_16s8u_P3C3R(cp, 2 * W, back.data(), back.step(), ZoriSize{W, H}), 0);
    EXPECT_EQ(readPng8(d / "plainback.png").pixels, swapped(back).pixels);
}

}  // namespace
