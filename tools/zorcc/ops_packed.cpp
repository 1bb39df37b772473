// Packed 16-bit RGB output (565, 555, 444, plain or with ordered dither)
// and the YUV (analogue television) model.
#include "ops.h"

#include <cctype>
#include <stdexcept>

namespace zorcc_tool {

namespace {

constexpr int kImage = static_cast<int>(Kind::Image);
constexpr int kYuv = static_cast<int>(Kind::Yuv);

using C3Fn = ZorStatus (*)(const Zor8u*, int, Zor16u*, int, ZoriSize);
using P3Fn = ZorStatus (*)(const Zor8u* const[3], int, Zor16u*, int, ZoriSize);
using S3Fn = ZorStatus (*)(const Zor8u* const[3], const int[3], Zor16u*, int, ZoriSize);

// The members of one word format; index 0 plain, 1 dithered.
struct PackedSet {
    const char* format;
    C3Fn c3[2];    // 4:4:4 interleaved
    P3Fn p3[2];    // 4:4:4 planar
    C3Fn c2[2];    // 4:2:2 packed Y0 Cb Y1 Cr
    S3Fn p422[2];  // 4:2:2 planar
    S3Fn p420[2];  // 4:2:0 planar
    S3Fn p411;     // 4:1:1 planar (BGR565 and BGR555 only)
    const char* base;  // name stem, e.g. "RGB565"
};

#define SET(lower, F, f411)                                                                                     \
    PackedSet {                                                                                                 \
        lower, {zoriYCbCrTo##F##_8u16u_C3R, zoriYCbCrTo##F##Dither_8u16u_C3R},                                   \
            {zoriYCbCrTo##F##_8u16u_P3C3R, zoriYCbCrTo##F##Dither_8u16u_P3C3R},                                  \
            {zoriYCbCr422To##F##_8u16u_C2C3R, zoriYCbCr422To##F##Dither_8u16u_C2C3R},                            \
            {zoriYCbCr422To##F##_8u16u_P3C3R, zoriYCbCr422To##F##Dither_8u16u_P3C3R},                            \
            {zoriYCbCr420To##F##_8u16u_P3C3R, zoriYCbCr420To##F##Dither_8u16u_P3C3R}, f411, #F                   \
    }

const PackedSet kSets[] = {
    SET("rgb565", RGB565, nullptr), SET("bgr565", BGR565, zoriYCbCr411ToBGR565_8u16u_P3C3R),
    SET("rgb555", RGB555, nullptr), SET("bgr555", BGR555, zoriYCbCr411ToBGR555_8u16u_P3C3R),
    SET("rgb444", RGB444, nullptr), SET("bgr444", BGR444, nullptr),
};
#undef SET

void toPacked(const PackedSet& s, const Data& in, Work& w, const OpOptions& o) {
    const int d = o.dither ? 1 : 0;
    const std::string stem = std::string(s.base) + (o.dither ? "Dither" : "");
    auto fn = [&](const char* prefix, const char* suffix) { return std::string("zori") + prefix + "To" + stem + suffix; };
    if (in.kind == Kind::Image) {
        // RGB goes to interleaved 4:4:4 YCbCr first.
        const Image8& rgb = rgb8Of(in, w);
        Image8& ycc = w.image(0, rgb.width, rgb.height, 3);
        const ZoriSize roi = roiOf(rgb.width, rgb.height);
        ZORCC_CALL(zoriRGBToYCbCr_8u_C3R(rgb.data(), rgb.step(), ycc.data(), ycc.step(), roi));
        Packed16& out = w.outPacked(s.format, rgb.width, rgb.height);
        check(s.c3[d](ycc.data(), ycc.step(), out.words.data(), out.step(), roi), fn("YCbCr", "_8u16u_C3R").c_str());
        return;
    }
    const YuvFrame* src = &in.yuv;
    const ZoriSize roi = roiOf(src->width, src->height);
    // Layouts without a member of their own are moved into one that has.
    if (src->format == YuvFormat::NV12) {
        YuvFrame& m = w.frame(0, YuvFormat::I420, src->width, src->height);
        Planes q = planesOf(m);
        ZORCC_CALL(zoriYCbCr420_8u_P2P3R(src->plane(0), src->step(0), src->plane(1), src->step(1), q.dst.data(),
                                         q.step.data(), roi));
        src = &m;
    } else if (src->format == YuvFormat::UYVY) {
        YuvFrame& m = w.frame(0, YuvFormat::YUY2, src->width, src->height);
        ZORCC_CALL(zoriCbYCr422ToYCbCr422_8u_C2R(src->plane(0), src->step(0), m.plane(0), m.step(0), roi));
        src = &m;
    } else if (src->format == YuvFormat::I411 && (d == 1 || s.p411 == nullptr)) {
        YuvFrame& m = w.frame(0, YuvFormat::I422, src->width, src->height);
        const Planes a = planesOf(*src);
        Planes b = planesOf(m);
        ZORCC_CALL(zoriYCbCr411ToYCbCr422_8u_P3R(a.src.data(), a.step.data(), b.dst.data(), b.step.data(), roi));
        src = &m;
    }
    const YuvFrame& f = *src;
    Packed16& out = w.outPacked(s.format, f.width, f.height);
    const Planes p = planesOf(f);
    Zor16u* words = out.words.data();
    switch (f.format) {
        case YuvFormat::I444: check(s.p3[d](p.src.data(), f.width, words, out.step(), roi), fn("YCbCr", "_8u16u_P3C3R").c_str()); break;
        case YuvFormat::YUY2: check(s.c2[d](f.plane(0), f.step(0), words, out.step(), roi), fn("YCbCr422", "_8u16u_C2C3R").c_str()); break;
        case YuvFormat::I422: check(s.p422[d](p.src.data(), p.step.data(), words, out.step(), roi), fn("YCbCr422", "_8u16u_P3C3R").c_str()); break;
        case YuvFormat::I420: check(s.p420[d](p.src.data(), p.step.data(), words, out.step(), roi), fn("YCbCr420", "_8u16u_P3C3R").c_str()); break;
        case YuvFormat::I411: check(s.p411(p.src.data(), p.step.data(), words, out.step(), roi), fn("YCbCr411", "_8u16u_P3C3R").c_str()); break;
        default: throw std::logic_error("unexpected layout");
    }
}

void yuvEncode(const Data& in, Work& w, const OpOptions& o) {
    const Image8& rgb = rgb8Of(in, w);
    const YuvFormat f = targetFormat(o, YuvFormat::I420);
    const ZoriSize roi = roiOf(rgb.width, rgb.height);
    if (f != YuvFormat::I444 && f != YuvFormat::I422 && f != YuvFormat::YUY2 && f != YuvFormat::I420)
        throw std::runtime_error(std::string("yuv-encode writes i444, i422, yuy2 or i420, not ") + formatName(f) +
                                 " (relayout afterwards)");
    YuvFrame& out = w.outFrame(f, rgb.width, rgb.height);
    Planes p = planesOf(out);
    switch (f) {
        case YuvFormat::I444: ZORCC_CALL(zoriRGBToYUV_8u_C3P3R(rgb.data(), rgb.step(), p.dst.data(), rgb.width, roi)); break;
        case YuvFormat::I422: ZORCC_CALL(zoriRGBToYUV422_8u_C3P3R(rgb.data(), rgb.step(), p.dst.data(), p.step.data(), roi)); break;
        case YuvFormat::YUY2: ZORCC_CALL(zoriRGBToYUV422_8u_C3C2R(rgb.data(), rgb.step(), out.plane(0), out.step(0), roi)); break;
        case YuvFormat::I420: ZORCC_CALL(zoriRGBToYUV420_8u_C3P3R(rgb.data(), rgb.step(), p.dst.data(), p.step.data(), roi)); break;
        default: break;
    }
}

void yuvDecode(const Data& in, Work& w, const OpOptions&) {
    const YuvFrame* src = &in.yuv;
    const ZoriSize roi = roiOf(src->width, src->height);
    if (src->format == YuvFormat::NV12) {
        YuvFrame& m = w.frame(0, YuvFormat::I420, src->width, src->height);
        Planes q = planesOf(m);
        ZORCC_CALL(zoriYCbCr420_8u_P2P3R(src->plane(0), src->step(0), src->plane(1), src->step(1), q.dst.data(),
                                         q.step.data(), roi));
        src = &m;
    }
    const YuvFrame& f = *src;
    if (f.format != YuvFormat::I444 && f.format != YuvFormat::I422 && f.format != YuvFormat::YUY2 &&
        f.format != YuvFormat::I420)
        throw std::runtime_error(std::string("yuv-decode reads i444, i422, yuy2, i420 or nv12, not ") + formatName(f.format));
    Image8& rgb = w.outImage(f.width, f.height, 3);
    const Planes p = planesOf(f);
    switch (f.format) {
        case YuvFormat::I444: ZORCC_CALL(zoriYUVToRGB_8u_P3C3R(p.src.data(), f.width, rgb.data(), rgb.step(), roi)); break;
        case YuvFormat::I422: ZORCC_CALL(zoriYUV422ToRGB_8u_P3C3R(p.src.data(), p.step.data(), rgb.data(), rgb.step(), roi)); break;
        case YuvFormat::YUY2: ZORCC_CALL(zoriYUV422ToRGB_8u_C2C3R(f.plane(0), f.step(0), rgb.data(), rgb.step(), roi)); break;
        case YuvFormat::I420: ZORCC_CALL(zoriYUV420ToRGB_8u_P3C3R(p.src.data(), p.step.data(), rgb.data(), rgb.step(), roi)); break;
        default: break;
    }
}

// Where the fields sit in the word, from bit 0 up; ffmpeg names these
// layouts after the byte order instead (rgb565 here is its bgr565le).
std::string bitOrder(const std::string& f) {
    const int a = f[3] - '0', b = f[4] - '0';
    const char lo = static_cast<char>(std::toupper(f[0])), hi = static_cast<char>(std::toupper(f[2]));
    return " (" + std::string(1, lo) + " in bits 0-" + std::to_string(a - 1) + ", G " + std::to_string(a) + "-" +
           std::to_string(a + b - 1) + ", " + std::string(1, hi) + " " + std::to_string(a + b) + "-" +
           std::to_string(a + b + f[5] - '0' - 1) + ")";
}

}  // namespace

void addPackedOps(std::vector<Op>& ops) {
    for (const PackedSet& s : kSets) {
        const std::string b = s.base;
        std::vector<std::string> fns = {"zoriRGBToYCbCr_8u_C3R + zoriYCbCrTo" + b + "[Dither]_8u16u_C3R (image)",
                                        "zoriYCbCrTo" + b + "[Dither]_8u16u_P3C3R (i444)",
                                        "zoriYCbCr422To" + b + "[Dither]_8u16u_C2C3R (yuy2, uyvy)",
                                        "zoriYCbCr422To" + b + "[Dither]_8u16u_P3C3R (i422)",
                                        "zoriYCbCr420To" + b + "[Dither]_8u16u_P3C3R (i420, nv12)"};
        if (s.p411) fns.push_back("zoriYCbCr411To" + b + "_8u16u_P3C3R (i411)");
        ops.push_back({s.format, "video",
                       "RGB image or YCbCr frame to packed " + b + " words" + bitOrder(s.format) +
                           " (--dither: 4x4 ordered dither); .png/.ppm output shows them expanded",
                       fns, kImage | kYuv, Kind::Packed,
                       [&s](const Data& in, Work& w, const OpOptions& o) { toPacked(s, in, w, o); },
                       RangeUse::ReadsStudio});
    }
    ops.push_back({"yuv-encode", "video",
                   "RGB image to YUV (Y, 0.492(B-Y), 0.877(R-Y)) as i444, i422, yuy2 or i420 (--to, default i420)",
                   {"zoriRGBToYUV_8u_C3P3R (i444)", "zoriRGBToYUV422_8u_C3P3R (i422)", "zoriRGBToYUV422_8u_C3C2R (yuy2)",
                    "zoriRGBToYUV420_8u_C3P3R (i420)"},
                   kImage, Kind::Yuv, yuvEncode});
    ops.push_back({"yuv-decode", "video", "YUV frame (i444, i422, yuy2, i420, nv12) to an RGB image",
                   {"zoriYUVToRGB_8u_P3C3R (i444)", "zoriYUV422ToRGB_8u_P3C3R (i422)", "zoriYUV422ToRGB_8u_C2C3R (yuy2)",
                    "zoriYUV420ToRGB_8u_P3C3R (i420)", "zoriYCbCr420_8u_P2P3R (nv12 first)"},
                   kYuv, Kind::Image, yuvDecode});
}

}  // namespace zorcc_tool
