// Conversions side by side with a memcpy of the same traffic and
// with the same job done by libyuv and OpenCV, where the build found them.
//
// Every case converts one 1920x1080 frame on the calling thread (team size
// 1, OpenCV pinned to one thread; libyuv is single-threaded). The time is the
// CPU time of the calling thread, the median of the timed runs (15 unless
// told, never fewer than 9) after one warm-up run; the contenders of a case
// take turns run by run, so that a noisy neighbour slows them alike. The
// memcpy copies (bytes read + bytes written) / 2 between two buffers of that
// size. The peers use their own
// coefficients: the bytes and the shape of the job are the same, the
// arithmetic is not.
//
//   bench_side_by_side [--runs N] [--filter TEXT] [--csv FILE] [--label NAME]
//   bench_side_by_side --list | --list-targets
//
// The target column is the CPU target that the library runs (ZOR_CPU pins
// it) unless --label names the run (for a library without targets).
#include "side_by_side.h"

#include "core/cpu.h"

#include <dlfcn.h>

namespace sbs {

namespace {

struct Group {
    int rank, order;
    const char* family;
    const Case *begin, *end;
};
std::vector<Group>& groups() {
    static std::vector<Group> g;
    return g;
}

// Conversions that a peer also does. libyuv names pixel formats by the
// little-endian word: its ARGB is B, G, R, A in memory, ABGR is R, G, B, A,
// RGB24 is B, G, R, RAW is R, G, B, and RGB565 holds blue in the low bits,
// which is this library's BGR565.
const Case kPeerCases[] = {
    {"I420 to RGB24", "zoriYUV420ToRGB_8u_P3C3R", k420, kC3,
     ZOR(zoriYUV420ToRGB_8u_P3C3R(s.pl(), s.sts(), d.p(), d.st(), kRoi)),
     YUV(I420ToRAW(s.p(0), s.st(0), s.p(1), s.st(1), s.p(2), s.st(2), d.p(), d.st(), kW, kH)),
     OCV(COLOR_YUV2RGB_I420), nullptr},
    {"I420 to BGR24", "zoriYUV420ToBGR_8u_P3C3R", k420, kC3,
     ZOR(zoriYUV420ToBGR_8u_P3C3R(s.pl(), s.sts(), d.p(), d.st(), kRoi)),
     YUV(I420ToRGB24(s.p(0), s.st(0), s.p(1), s.st(1), s.p(2), s.st(2), d.p(), d.st(), kW, kH)),
     OCV(COLOR_YUV2BGR_I420), nullptr},
    {"I420 to RGBA", "zoriYUV420ToRGB_8u_P3AC4R", k420, kC4,
     ZOR(zoriYUV420ToRGB_8u_P3AC4R(s.pl(), s.sts(), d.p(), d.st(), kRoi)),
     YUV(I420ToABGR(s.p(0), s.st(0), s.p(1), s.st(1), s.p(2), s.st(2), d.p(), d.st(), kW, kH)),
     OCV(COLOR_YUV2RGBA_I420), nullptr},
    {"I420 to RGB565", "zoriYCbCr420ToBGR565_8u16u_P3C3R", k420, kC2,
     ZOR(zoriYCbCr420ToBGR565_8u16u_P3C3R(s.pl(), s.sts(), d.w(), d.st(), kRoi)),
     YUV(I420ToRGB565(s.p(0), s.st(0), s.p(1), s.st(1), s.p(2), s.st(2), d.p(), d.st(), kW, kH)), NONE,
     "OpenCV has no 4:2:0 to 565 conversion"},
    {"I420 to RGB565 dithered", "zoriYCbCr420ToBGR565Dither_8u16u_P3C3R", k420, kC2,
     ZOR(zoriYCbCr420ToBGR565Dither_8u16u_P3C3R(s.pl(), s.sts(), d.w(), d.st(), kRoi)),
     YUV(I420ToRGB565Dither(s.p(0), s.st(0), s.p(1), s.st(1), s.p(2), s.st(2), d.p(), d.st(), kDither4x4, kW,
                            kH)),
     NONE, nullptr},
    {"I420 to ARGB1555", "zoriYCbCr420ToBGR555_8u16u_P3C3R", k420, kC2,
     ZOR(zoriYCbCr420ToBGR555_8u16u_P3C3R(s.pl(), s.sts(), d.w(), d.st(), kRoi)),
     YUV(I420ToARGB1555(s.p(0), s.st(0), s.p(1), s.st(1), s.p(2), s.st(2), d.p(), d.st(), kW, kH)), NONE,
     nullptr},
    {"I420 to ARGB4444", "zoriYCbCr420ToBGR444_8u16u_P3C3R", k420, kC2,
     ZOR(zoriYCbCr420ToBGR444_8u16u_P3C3R(s.pl(), s.sts(), d.w(), d.st(), kRoi)),
     YUV(I420ToARGB4444(s.p(0), s.st(0), s.p(1), s.st(1), s.p(2), s.st(2), d.p(), d.st(), kW, kH)), NONE,
     nullptr},
    {"I420 (YUV) to RGB565", "zoriYUV420ToBGR565_8u16u_P3C3R", k420, kC2,
     ZOR(zoriYUV420ToBGR565_8u16u_P3C3R(s.pl(), s.sts(), d.w(), d.st(), kRoi)),
     YUV(I420ToRGB565(s.p(0), s.st(0), s.p(1), s.st(1), s.p(2), s.st(2), d.p(), d.st(), kW, kH)), NONE, nullptr},
    {"I422 to RGB565", "zoriYCbCr422ToBGR565_8u16u_P3C3R", k422, kC2,
     ZOR(zoriYCbCr422ToBGR565_8u16u_P3C3R(s.pl(), s.sts(), d.w(), d.st(), kRoi)),
     YUV(I422ToRGB565(s.p(0), s.st(0), s.p(1), s.st(1), s.p(2), s.st(2), d.p(), d.st(), kW, kH)), NONE, nullptr},
    {"I422 to RGB24", "zoriYCbCr422ToRGB_8u_P3C3R", k422, kC3,
     ZOR(zoriYCbCr422ToRGB_8u_P3C3R(s.pl(), s.sts(), d.p(), d.st(), kRoi)),
     YUV(I422ToRAW(s.p(0), s.st(0), s.p(1), s.st(1), s.p(2), s.st(2), d.p(), d.st(), kW, kH)), NONE,
     "OpenCV has no planar 4:2:2 input"},
    {"I422 (YUV) to RGB24", "zoriYUV422ToRGB_8u_P3C3R", k422, kC3,
     ZOR(zoriYUV422ToRGB_8u_P3C3R(s.pl(), s.sts(), d.p(), d.st(), kRoi)),
     YUV(I422ToRAW(s.p(0), s.st(0), s.p(1), s.st(1), s.p(2), s.st(2), d.p(), d.st(), kW, kH)), NONE, nullptr},
    {"I422 (YUV) to RGBA", "zoriYUV422ToRGB_8u_P3AC4R", k422, kC4,
     ZOR(zoriYUV422ToRGB_8u_P3AC4R(s.pl(), s.sts(), d.p(), d.st(), kRoi)),
     YUV(I422ToABGR(s.p(0), s.st(0), s.p(1), s.st(1), s.p(2), s.st(2), d.p(), d.st(), kW, kH)), NONE, nullptr},
    {"I444 to RGB24", "zoriYCbCrToRGB_8u_P3C3R", k444, kC3,
     ZOR(zoriYCbCrToRGB_8u_P3C3R(s.pl(), s.st(), d.p(), d.st(), kRoi)),
     YUV(I444ToRAW(s.p(0), s.st(0), s.p(1), s.st(1), s.p(2), s.st(2), d.p(), d.st(), kW, kH)), NONE,
     "OpenCV has no planar 4:4:4 input"},
    {"I444 to BGR24", "zoriYCbCrToBGR_8u_P3C3R", k444, kC3,
     ZOR(zoriYCbCrToBGR_8u_P3C3R(s.pl(), s.st(), d.p(), d.st(), kRoi)),
     YUV(I444ToRGB24(s.p(0), s.st(0), s.p(1), s.st(1), s.p(2), s.st(2), d.p(), d.st(), kW, kH)), NONE, nullptr},
    {"I444 to ARGB", "zoriYCbCrToBGR_8u_P3C4R", k444, kC4,
     ZOR(zoriYCbCrToBGR_8u_P3C4R(s.pl(), s.st(), d.p(), d.st(), kRoi, 255)),
     YUV(I444ToARGB(s.p(0), s.st(0), s.p(1), s.st(1), s.p(2), s.st(2), d.p(), d.st(), kW, kH)), NONE, nullptr},
    {"I444 (YUV) to RGB24", "zoriYUVToRGB_8u_P3C3R", k444, kC3,
     ZOR(zoriYUVToRGB_8u_P3C3R(s.pl(), s.st(), d.p(), d.st(), kRoi)),
     YUV(I444ToRAW(s.p(0), s.st(0), s.p(1), s.st(1), s.p(2), s.st(2), d.p(), d.st(), kW, kH)), NONE, nullptr},
    {"YUY2 to RGB24", "zoriYCbCr422ToRGB_8u_C2C3R", kC2, kC3,
     ZOR(zoriYCbCr422ToRGB_8u_C2C3R(s.p(), s.st(), d.p(), d.st(), kRoi)), NONE, OCV(COLOR_YUV2RGB_YUY2),
     "libyuv has no YUY2 to RGB24"},
    {"YUY2 to BGR24", "zoriYCbCr422ToBGR_8u_C2C3R", kC2, kC3,
     ZOR(zoriYCbCr422ToBGR_8u_C2C3R(s.p(), s.st(), d.p(), d.st(), kRoi)), NONE, OCV(COLOR_YUV2BGR_YUY2),
     "libyuv has no YUY2 to BGR24"},
    {"YUY2 to ARGB", "zoriYCbCr422ToBGR_8u_C2C4R", kC2, kC4,
     ZOR(zoriYCbCr422ToBGR_8u_C2C4R(s.p(), s.st(), d.p(), d.st(), kRoi, 255)),
     YUV(YUY2ToARGB(s.p(), s.st(), d.p(), d.st(), kW, kH)), OCV(COLOR_YUV2BGRA_YUY2), nullptr},
    {"YUY2 (YUV) to RGB24", "zoriYUV422ToRGB_8u_C2C3R", kC2, kC3,
     ZOR(zoriYUV422ToRGB_8u_C2C3R(s.p(), s.st(), d.p(), d.st(), kRoi)), NONE, OCV(COLOR_YUV2RGB_YUY2), nullptr},
    {"UYVY to RGB24", "zoriCbYCr422ToRGB_8u_C2C3R", kC2, kC3,
     ZOR(zoriCbYCr422ToRGB_8u_C2C3R(s.p(), s.st(), d.p(), d.st(), kRoi)), NONE, OCV(COLOR_YUV2RGB_UYVY),
     "libyuv has no UYVY to RGB24"},
    {"UYVY to ARGB", "zoriCbYCr422ToBGR_8u_C2C4R", kC2, kC4,
     ZOR(zoriCbYCr422ToBGR_8u_C2C4R(s.p(), s.st(), d.p(), d.st(), kRoi, 255)),
     YUV(UYVYToARGB(s.p(), s.st(), d.p(), d.st(), kW, kH)), OCV(COLOR_YUV2BGRA_UYVY), nullptr},
    {"RGB24 to I420", "zoriBGRToYCbCr420_8u_C3P3R", kC3, k420,
     ZOR(zoriBGRToYCbCr420_8u_C3P3R(s.p(), s.st(), d.pl(), d.sts(), kRoi)),
     YUV(RGB24ToI420(s.p(), s.st(), d.p(0), d.st(0), d.p(1), d.st(1), d.p(2), d.st(2), kW, kH)),
     OCV(COLOR_BGR2YUV_I420), nullptr},
    {"RGB24 to YV12", "zoriBGRToYCrCb420_8u_C3P3R", kC3, k420,
     ZOR(zoriBGRToYCrCb420_8u_C3P3R(s.p(), s.st(), d.pl(), d.sts(), kRoi)),
     YUV(RGB24ToI420(s.p(), s.st(), d.p(0), d.st(0), d.p(2), d.st(2), d.p(1), d.st(1), kW, kH)),
     OCV(COLOR_BGR2YUV_YV12), nullptr},
    {"ARGB to I420", "zoriBGRToYCbCr420_8u_AC4P3R", kC4, k420,
     ZOR(zoriBGRToYCbCr420_8u_AC4P3R(s.p(), s.st(), d.pl(), d.sts(), kRoi)),
     YUV(ARGBToI420(s.p(), s.st(), d.p(0), d.st(0), d.p(1), d.st(1), d.p(2), d.st(2), kW, kH)),
     OCV(COLOR_BGRA2YUV_I420), nullptr},
    {"RAW to I420", "zoriRGBToYCbCr420_8u_C3P3R", kC3, k420,
     ZOR(zoriRGBToYCbCr420_8u_C3P3R(s.p(), s.st(), d.pl(), d.sts(), kRoi)),
     YUV(RAWToI420(s.p(), s.st(), d.p(0), d.st(0), d.p(1), d.st(1), d.p(2), d.st(2), kW, kH)),
     OCV(COLOR_RGB2YUV_I420), nullptr},
    {"RAW to I420 (YUV)", "zoriRGBToYUV420_8u_C3P3R", kC3, k420,
     ZOR(zoriRGBToYUV420_8u_C3P3R(s.p(), s.st(), d.pl(), d.sts(), kRoi)),
     YUV(RAWToI420(s.p(), s.st(), d.p(0), d.st(0), d.p(1), d.st(1), d.p(2), d.st(2), kW, kH)),
     OCV(COLOR_RGB2YUV_I420), nullptr},
    {"ARGB to YUY2", "zoriBGRToYCbCr422_8u_AC4C2R", kC4, kC2,
     ZOR(zoriBGRToYCbCr422_8u_AC4C2R(s.p(), s.st(), d.p(), d.st(), kRoi)),
     YUV(ARGBToYUY2(s.p(), s.st(), d.p(), d.st(), kW, kH)), NONE, "OpenCV has no RGB to 4:2:2 conversion"},
    {"ARGB to UYVY", "zoriBGRToCbYCr422_8u_AC4C2R", kC4, kC2,
     ZOR(zoriBGRToCbYCr422_8u_AC4C2R(s.p(), s.st(), d.p(), d.st(), kRoi)),
     YUV(ARGBToUYVY(s.p(), s.st(), d.p(), d.st(), kW, kH)), NONE, nullptr},
    {"ARGB to I422", "zoriBGRToYCbCr422_8u_AC4P3R", kC4, k422,
     ZOR(zoriBGRToYCbCr422_8u_AC4P3R(s.p(), s.st(), d.pl(), d.sts(), kRoi)),
     YUV(ARGBToI422(s.p(), s.st(), d.p(0), d.st(0), d.p(1), d.st(1), d.p(2), d.st(2), kW, kH)), NONE, nullptr},
    {"RGB565 to I420", "zoriBGR565ToYCbCr420_16u8u_C3P3R", kC2, k420,
     ZOR(zoriBGR565ToYCbCr420_16u8u_C3P3R(s.w(), s.st(), d.pl(), d.sts(), kRoi)),
     YUV(RGB565ToI420(s.p(), s.st(), d.p(0), d.st(0), d.p(1), d.st(1), d.p(2), d.st(2), kW, kH)), NONE,
     "OpenCV has no 565 to 4:2:0 conversion"},
    {"ARGB1555 to I420", "zoriBGR555ToYCbCr420_16u8u_C3P3R", kC2, k420,
     ZOR(zoriBGR555ToYCbCr420_16u8u_C3P3R(s.w(), s.st(), d.pl(), d.sts(), kRoi)),
     YUV(ARGB1555ToI420(s.p(), s.st(), d.p(0), d.st(0), d.p(1), d.st(1), d.p(2), d.st(2), kW, kH)), NONE,
     nullptr},
    {"RGB to gray", "zoriRGBToGray_8u_C3C1R", kC3, kC1,
     ZOR(zoriRGBToGray_8u_C3C1R(s.p(), s.st(), d.p(), d.st(), kRoi)),
     YUV(RAWToJ400(s.p(), s.st(), d.p(), d.st(), kW, kH)), OCV(COLOR_RGB2GRAY), nullptr},
    {"RGBA to gray", "zoriRGBToGray_8u_AC4C1R", kC4, kC1,
     ZOR(zoriRGBToGray_8u_AC4C1R(s.p(), s.st(), d.p(), d.st(), kRoi)),
     YUV(ABGRToJ400(s.p(), s.st(), d.p(), d.st(), kW, kH)), OCV(COLOR_RGBA2GRAY), nullptr},
    {"RGB to YCbCr 4:4:4", "zoriRGBToYCbCr_8u_C3R", kC3, kC3,
     ZOR(zoriRGBToYCbCr_8u_C3R(s.p(), s.st(), d.p(), d.st(), kRoi)), NONE, OCV(COLOR_RGB2YCrCb),
     "libyuv has no packed 4:4:4 YUV"},
    {"YCbCr 4:4:4 to RGB", "zoriYCbCrToRGB_8u_C3R", kC3, kC3,
     ZOR(zoriYCbCrToRGB_8u_C3R(s.p(), s.st(), d.p(), d.st(), kRoi)), NONE, OCV(COLOR_YCrCb2RGB), nullptr},
    {"RGB to YUV 4:4:4", "zoriRGBToYUV_8u_C3R", kC3, kC3,
     ZOR(zoriRGBToYUV_8u_C3R(s.p(), s.st(), d.p(), d.st(), kRoi)), NONE, OCV(COLOR_RGB2YUV), nullptr},
    {"YUV 4:4:4 to RGB", "zoriYUVToRGB_8u_C3R", kC3, kC3,
     ZOR(zoriYUVToRGB_8u_C3R(s.p(), s.st(), d.p(), d.st(), kRoi)), NONE, OCV(COLOR_YUV2RGB), nullptr},
};

// One member of every other conversion shape of the video family.
#define ALONE(fn, src, dst, ...) {&(#fn)[4], #fn, src, dst, ZOR(fn(__VA_ARGS__)), NONE, NONE, nullptr}
const Case kOtherCases[] = {
    // 4:4:4 with alpha or planes
    ALONE(zoriRGBToYCbCr_8u_AC4R, kC4, kC4, s.p(), s.st(), d.p(), d.st(), kRoi),
    ALONE(zoriYCbCrToRGB_8u_AC4R, kC4, kC4, s.p(), s.st(), d.p(), d.st(), kRoi),
    ALONE(zoriRGBToYCbCr_8u_P3R, k444, k444, s.pl(), s.st(), d.pl(), d.st(), kRoi),
    ALONE(zoriYCbCrToRGB_8u_P3R, k444, k444, s.pl(), s.st(), d.pl(), d.st(), kRoi),
    ALONE(zoriRGBToYUV_8u_AC4R, kC4, kC4, s.p(), s.st(), d.p(), d.st(), kRoi),
    ALONE(zoriYUVToRGB_8u_AC4R, kC4, kC4, s.p(), s.st(), d.p(), d.st(), kRoi),
    ALONE(zoriRGBToYUV_8u_P3R, k444, k444, s.pl(), s.sts(), d.pl(), d.sts(), kRoi),
    ALONE(zoriYUVToRGB_8u_P3R, k444, k444, s.pl(), s.sts(), d.pl(), d.sts(), kRoi),
    ALONE(zoriRGBToYUV_8u_C3P3R, kC3, k444, s.p(), s.st(), d.pl(), d.st(), kRoi),
    // 4:2:2 encoders and decoders, packed and planar
    ALONE(zoriRGBToYCbCr422_8u_C3C2R, kC3, kC2, s.p(), s.st(), d.p(), d.st(), kRoi),
    ALONE(zoriRGBToYCbCr422_8u_P3C2R, k444, kC2, s.pl(), s.st(), d.p(), d.st(), kRoi),
    ALONE(zoriBGRToYCbCr422_8u_C3C2R, kC3, kC2, s.p(), s.st(), d.p(), d.st(), kRoi),
    ALONE(zoriBGRToYCbCr422_8u_C3P3R, kC3, k422, s.p(), s.st(), d.pl(), d.sts(), kRoi),
    ALONE(zoriYCbCr422ToRGB_8u_C2P3R, kC2, k444, s.p(), s.st(), d.pl(), d.st(), kRoi),
    ALONE(zoriRGBToCbYCr422_8u_C3C2R, kC3, kC2, s.p(), s.st(), d.p(), d.st(), kRoi),
    ALONE(zoriRGBToCbYCr422Gamma_8u_C3C2R, kC3, kC2, s.p(), s.st(), d.p(), d.st(), kRoi),
    // 4:1:1 encoder, filtered 4:2:0 decoder
    ALONE(zoriBGRToYCbCr411_8u_C3P3R, kC3, k411, s.p(), s.st(), d.pl(), d.sts(), kRoi),
    ALONE(zoriYCrCb420ToBGR_Filter_8u_P3C4R, k420, kC4, s.pl(), s.sts(), d.p(), d.st(), kRoi, 255),
    // packed 16-bit output, every source form, plain and dithered
    ALONE(zoriYCbCrToBGR565_8u16u_C3R, kC3, kC2, s.p(), s.st(), d.w(), d.st(), kRoi),
    ALONE(zoriYCbCrToBGR565Dither_8u16u_C3R, kC3, kC2, s.p(), s.st(), d.w(), d.st(), kRoi),
    ALONE(zoriYCbCrToBGR565_8u16u_P3C3R, k444, kC2, s.pl(), s.st(), d.w(), d.st(), kRoi),
    ALONE(zoriYCbCrToBGR565Dither_8u16u_P3C3R, k444, kC2, s.pl(), s.st(), d.w(), d.st(), kRoi),
    ALONE(zoriYCbCr422ToBGR565_8u16u_C2C3R, kC2, kC2, s.p(), s.st(), d.w(), d.st(), kRoi),
    ALONE(zoriYCbCr422ToBGR565Dither_8u16u_C2C3R, kC2, kC2, s.p(), s.st(), d.w(), d.st(), kRoi),
    ALONE(zoriYCbCr422ToBGR565Dither_8u16u_P3C3R, k422, kC2, s.pl(), s.sts(), d.w(), d.st(), kRoi),
    ALONE(zoriYCbCr420ToBGR444Dither_8u16u_P3C3R, k420, kC2, s.pl(), s.sts(), d.w(), d.st(), kRoi),
    ALONE(zoriYUV420ToBGR565Dither_8u16u_P3C3R, k420, kC2, s.pl(), s.sts(), d.w(), d.st(), kRoi),
    ALONE(zoriYCbCr411ToBGR565_8u16u_P3C3R, k411, kC2, s.pl(), s.sts(), d.w(), d.st(), kRoi),
    // packed 16-bit input
    ALONE(zoriBGR565ToYCbCr422_16u8u_C3P3R, kC2, k422, s.w(), s.st(), d.pl(), d.sts(), kRoi),
    ALONE(zoriBGR565ToYCrCb420_16u8u_C3P3R, kC2, k420, s.w(), s.st(), d.pl(), d.sts(), kRoi),
    ALONE(zoriBGR555ToYCbCr411_16u8u_C3P3R, kC2, k411, s.w(), s.st(), d.pl(), d.sts(), kRoi),
    // YUV 4:2:2 and 4:2:0, both ways, with steps and whole images
    ALONE(zoriRGBToYUV422_8u_C3C2R, kC3, kC2, s.p(), s.st(), d.p(), d.st(), kRoi),
    ALONE(zoriRGBToYUV422_8u_C3P3R, kC3, k422, s.p(), s.st(), d.pl(), d.sts(), kRoi),
    ALONE(zoriRGBToYUV422_8u_P3R, k444, k422, s.pl(), s.sts(), d.pl(), d.sts(), kRoi),
    ALONE(zoriRGBToYUV422_8u_P3, k444, k422, s.pl(), d.pl(), kRoi),
    ALONE(zoriYUV422ToRGB_8u_P3R, k422, k444, s.pl(), s.sts(), d.pl(), d.sts(), kRoi),
    ALONE(zoriYUV422ToRGB_8u_P3C3, k422, kC3, s.pl(), d.p(), kRoi),
    ALONE(zoriRGBToYUV420_8u_P3R, k444, k420, s.pl(), s.sts(), d.pl(), d.sts(), kRoi),
    ALONE(zoriRGBToYUV420_8u_C3P3, kC3, k420, s.p(), d.pl(), kRoi),
    ALONE(zoriYUV420ToRGB_8u_P3R, k420, k444, s.pl(), s.sts(), d.pl(), d.sts(), kRoi),
    ALONE(zoriYUV420ToRGB_8u_P3C3, k420, kC3, s.pl(), d.p(), kRoi),
};

const CaseGroup kVideoPeers(0, "video", std::begin(kPeerCases), std::end(kPeerCases));
const CaseGroup kVideoOthers(0, "video", std::begin(kOtherCases), std::end(kOtherCases));

const char* const kNotes[] = {
    "NV12 to RGB24 / ARGB: zorcc has no semi-planar 4:2:0 to RGB conversion (its P2 forms only change the chroma "
    "layout); not measured",
};

double cpuMs() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return t.tv_sec * 1e3 + t.tv_nsec * 1e-6;
}

double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    const std::size_t n = v.size();
    return n % 2 ? v[n / 2] : 0.5 * (v[n / 2 - 1] + v[n / 2]);
}

struct Options {
    int runs = 15;
    std::string filter, csv, label;
    bool list = false, listTargets = false;
};

Options parse(int argc, char** argv) {
    Options o;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        const bool more = i + 1 < argc;
        if (a == "--runs" && more) {
            o.runs = std::max(9, std::atoi(argv[++i]));
        } else if (a == "--filter" && more) {
            o.filter = argv[++i];
        } else if (a == "--csv" && more) {
            o.csv = argv[++i];
        } else if (a == "--label" && more) {
            o.label = argv[++i];
        } else if (a == "--list") {
            o.list = true;
        } else if (a == "--list-targets") {
            o.listTargets = true;
        } else {
            std::fprintf(stderr,
                         "usage: %s [--runs N (>= 9)] [--filter TEXT] [--csv FILE] [--label NAME] | --list | "
                         "--list-targets\n",
                         argv[0]);
            std::exit(2);
        }
    }
    return o;
}

// Medians of one case; a negative time marks a contender that is absent or
// failed.
struct Result {
    double zorcc = -1, memcpy = -1, libyuv = -1, opencv = -1;
    std::string problem;
};

Result measure(const Case& c, int runs) {
    Result r;
    Image src(c.src, 0), dst(c.dst, 1088);
    src.fill(1);
    std::memset(dst.p(), 0, dst.bytes());
    const std::size_t copyBytes = (src.bytes() + dst.bytes()) / 2;
    Block from(copyBytes, 2176), to(copyBytes, 3264);
    from.fill(2);
    std::memset(to.data(), 0, copyBytes);

    // Warm-up run, which also checks that each contender works.
    Job jobs[3] = {c.zorcc, c.libyuv, c.opencv};
    for (int j = 0; j < 3; ++j) {
        if (!jobs[j]) continue;
        int status = 0;
#ifdef ZORCC_BENCH_HAVE_OPENCV
        try {
            status = jobs[j](src, dst);
        } catch (const cv::Exception&) {
            status = -1;
        }
#else
        status = jobs[j](src, dst);
#endif
        if (status < 0) {
            static const char* const kWho[3] = {"zorcc", "libyuv", "OpenCV"};
            r.problem += std::string(r.problem.empty() ? "" : "; ") + kWho[j] + " failed (status " +
                         std::to_string(status) + ")";
            jobs[j] = nullptr;
        }
    }
    std::memcpy(to.data(), from.data(), copyBytes);

    std::vector<double> t[4];
    for (int run = 0; run < runs; ++run) {
        double t0 = cpuMs();
        std::memcpy(to.data(), from.data(), copyBytes);
        t[0].push_back(cpuMs() - t0);
        for (int j = 0; j < 3; ++j) {
            if (!jobs[j]) continue;
            t0 = cpuMs();
            jobs[j](src, dst);
            t[j + 1].push_back(cpuMs() - t0);
        }
    }
    r.memcpy = median(t[0]);
    double* out[3] = {&r.zorcc, &r.libyuv, &r.opencv};
    for (int j = 0; j < 3; ++j)
        if (jobs[j]) *out[j] = median(t[j + 1]);
    return r;
}

std::string ms(double v) {
    if (v < 0) return "-";
    char b[32];
    std::snprintf(b, sizeof b, "%.2f", v);
    return b;
}

std::string ratio(double a, double b) {
    if (a < 0 || b <= 0) return "-";
    char s[32];
    std::snprintf(s, sizeof s, "%.2f", a / b);
    return s;
}

std::string libraryFile() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&zoriYUV420ToRGB_8u_P3C3R), &info) && info.dli_fname) return info.dli_fname;
    return "?";
}

}  // namespace

CaseGroup::CaseGroup(int rank, const char* family, const Case* begin, const Case* end) {
    groups().push_back({rank, static_cast<int>(groups().size()), family, begin, end});
}

const char* familyOf(const Case* c) {
    for (const Group& g : groups())
        if (c >= g.begin && c < g.end) return g.family;
    return "";
}

std::vector<const Case*> registeredCases() {
    std::vector<Group> g = groups();
    std::sort(g.begin(), g.end(),
              [](const Group& a, const Group& b) { return a.rank != b.rank ? a.rank < b.rank : a.order < b.order; });
    std::vector<const Case*> out;
    for (const Group& x : g)
        for (const Case* c = x.begin; c != x.end; ++c) out.push_back(c);
    return out;
}

}  // namespace sbs

int main(int argc, char** argv) {
    using namespace sbs;
    const Options o = parse(argc, argv);
    if (o.listTargets) {
        for (zor::cpu::Target t : zor::cpu::available()) std::printf("%s\n", zor::cpu::name(t));
        return 0;
    }
    std::vector<const Case*> cases = registeredCases();
    if (!o.filter.empty()) {
        cases.erase(std::remove_if(cases.begin(), cases.end(),
                                   [&](const Case* c) {
                                       return std::string(c->label).find(o.filter) == std::string::npos &&
                                              std::string(c->function).find(o.filter) == std::string::npos;
                                   }),
                    cases.end());
    }
    int width = 4;
    for (const Case* c : cases) width = std::max(width, static_cast<int>(std::strlen(c->label)));
    if (o.list) {
        for (const Case* c : cases)
            std::printf("%-*s %s%s%s\n", width, c->label, c->function, c->libyuv ? " libyuv" : "",
                        c->opencv ? " opencv" : "");
        return 0;
    }

    threads_omp_of_n_zor = 1;
#ifdef ZORCC_BENCH_HAVE_OPENCV
    cv::setNumThreads(1);
#endif
    const std::string target = o.label.empty() ? zor::cpu::name(zor::cpu::active()) : o.label;
    std::printf("target: %s\nlibrary: %s (%s)\n", target.c_str(), libraryFile().c_str(),
                zorccGetLibVersion()->versionText);
    std::printf("peers:");
#ifdef ZORCC_BENCH_HAVE_LIBYUV
    std::printf(" libyuv %d", LIBYUV_VERSION);
#else
    std::printf(" libyuv not built in;");
#endif
#ifdef ZORCC_BENCH_HAVE_OPENCV
    std::printf(" OpenCV %s", CV_VERSION);
#else
    std::printf(" OpenCV not built in");
#endif
    std::printf("\nframe %dx%d, one thread, CPU time of the thread, median of %d runs after a warm-up\n\n", kW, kH,
                o.runs);
    std::printf("%-*s %9s %9s %9s %9s %8s %8s\n", width, "case", "zorcc ms", "memcpy ms", "libyuv ms", "opencv ms",
                "x memcpy", "x peer");

    std::FILE* csv = nullptr;
    if (!o.csv.empty()) {
        csv = std::fopen(o.csv.c_str(), "w");
        if (!csv) {
            std::perror(o.csv.c_str());
            return 1;
        }
        std::fprintf(csv, "case,target,zorcc_ms,memcpy_ms,libyuv_ms,opencv_ms,function,family\n");
    }
    std::vector<std::string> notes(std::begin(kNotes), std::end(kNotes));
    for (const Case* c : cases) {
        const Result r = measure(*c, o.runs);
        double best = -1;
        for (double p : {r.libyuv, r.opencv})
            if (p > 0 && (best < 0 || p < best)) best = p;
        std::printf("%-*s %9s %9s %9s %9s %8s %8s\n", width, c->label, ms(r.zorcc).c_str(), ms(r.memcpy).c_str(),
                    ms(r.libyuv).c_str(), ms(r.opencv).c_str(), ratio(r.zorcc, r.memcpy).c_str(),
                    ratio(r.zorcc, best).c_str());
        std::fflush(stdout);
        if (c->note) notes.push_back(std::string(c->label) + ": " + c->note);
        if (!r.problem.empty()) notes.push_back(std::string(c->label) + ": " + r.problem);
        if (csv) {
            // Three decimals: the chart divides these.
            auto fine = [](double v) {
                if (v < 0) return std::string();
                char b[32];
                std::snprintf(b, sizeof b, "%.3f", v);
                return std::string(b);
            };
            std::fprintf(csv, "%s,%s,%s,%s,%s,%s,%s,%s\n", c->label, target.c_str(), fine(r.zorcc).c_str(),
                         fine(r.memcpy).c_str(), fine(r.libyuv).c_str(), fine(r.opencv).c_str(), c->function,
                         familyOf(c));
        }
    }
    if (csv) std::fclose(csv);
    std::printf("\n");
    for (const std::string& n : notes) std::printf("note: %s\n", n.c_str());
    return 0;
}
