// Video colour: RGB to and from YCbCr at every subsampling, packed 16-bit
// BGR input.
#include "ops.h"

#include <stdexcept>

namespace zorcc_tool {

namespace {

constexpr int kImage = static_cast<int>(Kind::Image);
constexpr int kYuv = static_cast<int>(Kind::Yuv);
constexpr int kPacked = static_cast<int>(Kind::Packed);

void encode(const Data& in, Work& w, const OpOptions& o) {
    const Image8& rgb = rgb8Of(in, w);
    const YuvFormat f = targetFormat(o, YuvFormat::I420);
    YuvFrame& out = w.outFrame(f, rgb.width, rgb.height);
    Planes p = planesOf(out);
    // The BGR encoders read a copy with R and B exchanged.
    auto bgr = [&]() -> const Image8& {
        Image8& c = w.image(0, rgb.width, rgb.height, 3);
        c.pixels = rgb.pixels;
        swapRB(c);
        return c;
    };
    const ZoriSize roi = roiOf(rgb.width, rgb.height);
    switch (f) {
        case YuvFormat::I444: {
            // Planar RGB in, planar YCbCr out, one shared step.
            YuvFrame& planar = w.frame(0, YuvFormat::I444, rgb.width, rgb.height);
            for (std::size_t i = 0, n = planar.planes[0].size(); i < n; ++i)
                for (int c = 0; c < 3; ++c) planar.planes[c][i] = rgb.pixels[3 * i + c];
            const Planes s = planesOf(planar);
            ZORCC_CALL(zoriRGBToYCbCr_8u_P3R(s.src.data(), rgb.width, p.dst.data(), rgb.width, roi));
            break;
        }
        case YuvFormat::I422: {
            const Image8& b = bgr();
            ZORCC_CALL(zoriBGRToYCbCr422_8u_C3P3R(b.data(), b.step(), p.dst.data(), p.step.data(), roi));
            break;
        }
        case YuvFormat::YUY2:
            ZORCC_CALL(zoriRGBToYCbCr422_8u_C3C2R(rgb.data(), rgb.step(), out.plane(0), out.step(0), roi));
            break;
        case YuvFormat::UYVY:
            ZORCC_CALL(zoriRGBToCbYCr422_8u_C3C2R(rgb.data(), rgb.step(), out.plane(0), out.step(0), roi));
            break;
        case YuvFormat::I420:
            ZORCC_CALL(zoriRGBToYCbCr420_8u_C3P3R(rgb.data(), rgb.step(), p.dst.data(), p.step.data(), roi));
            break;
        case YuvFormat::NV12: {
            YuvFrame& planar = w.frame(0, YuvFormat::I420, rgb.width, rgb.height);
            Planes q = planesOf(planar);
            ZORCC_CALL(zoriRGBToYCbCr420_8u_C3P3R(rgb.data(), rgb.step(), q.dst.data(), q.step.data(), roi));
            ZORCC_CALL(zoriYCbCr420_8u_P3P2R(q.src.data(), q.step.data(), out.plane(0), out.step(0), out.plane(1),
                                             out.step(1), roi));
            break;
        }
        case YuvFormat::I411: {
            const Image8& b = bgr();
            ZORCC_CALL(zoriBGRToYCbCr411_8u_C3P3R(b.data(), b.step(), p.dst.data(), p.step.data(), roi));
            break;
        }
    }
}

void decode(const Data& in, Work& w, const OpOptions&) {
    const YuvFrame& f = in.yuv;
    Image8& rgb = w.outImage(f.width, f.height, 3);
    const Planes p = planesOf(f);
    const ZoriSize roi = roiOf(f.width, f.height);
    // 4:2:0 and 4:1:1 are decoded through planar 4:2:2 (chroma replicated).
    auto via422 = [&](auto&& toI422) {
        YuvFrame& mid = w.frame(0, YuvFormat::I422, f.width, f.height);
        Planes m = planesOf(mid);
        toI422(m);
        ZORCC_CALL(zoriYCbCr422ToRGB_8u_P3C3R(m.src.data(), m.step.data(), rgb.data(), rgb.step(), roi));
    };
    switch (f.format) {
        case YuvFormat::I444:
            ZORCC_CALL(zoriYCbCrToRGB_8u_P3C3R(p.src.data(), f.width, rgb.data(), rgb.step(), roi));
            break;
        case YuvFormat::I422:
            ZORCC_CALL(zoriYCbCr422ToRGB_8u_P3C3R(p.src.data(), p.step.data(), rgb.data(), rgb.step(), roi));
            break;
        case YuvFormat::YUY2:
            ZORCC_CALL(zoriYCbCr422ToRGB_8u_C2C3R(f.plane(0), f.step(0), rgb.data(), rgb.step(), roi));
            break;
        case YuvFormat::UYVY:
            ZORCC_CALL(zoriCbYCr422ToRGB_8u_C2C3R(f.plane(0), f.step(0), rgb.data(), rgb.step(), roi));
            break;
        case YuvFormat::I420:
            via422([&](Planes& m) {
                ZORCC_CALL(zoriYCbCr420ToYCbCr422_8u_P3R(p.src.data(), p.step.data(), m.dst.data(), m.step.data(), roi));
            });
            break;
        case YuvFormat::NV12:
            via422([&](Planes& m) {
                ZORCC_CALL(zoriYCbCr420ToYCbCr422_8u_P2P3R(f.plane(0), f.step(0), f.plane(1), f.step(1), m.dst.data(),
                                                           m.step.data(), roi));
            });
            break;
        case YuvFormat::I411:
            via422([&](Planes& m) {
                ZORCC_CALL(zoriYCbCr411ToYCbCr422_8u_P3R(p.src.data(), p.step.data(), m.dst.data(), m.step.data(), roi));
            });
            break;
    }
}

// 4:2:0 with the chroma rows interpolated by the four-tap filter.
void decodeFiltered(const Data& in, Work& w, const OpOptions&) {
    const YuvFrame& f = in.yuv;
    if (f.format != YuvFormat::I420) throw std::runtime_error("decode-filtered takes i420 frames");
    if (f.height % 8 != 0)
        throw std::runtime_error("decode-filtered needs a height that is a multiple of 8, not " + std::to_string(f.height));
    // The filter decoder takes planes Y, Cr, Cb and writes B, G, R, A.
    const Zor8u* planes[3] = {f.plane(0), f.plane(2), f.plane(1)};
    const int steps[3] = {f.step(0), f.step(2), f.step(1)};
    Image8& bgra = w.image(0, f.width, f.height, 4);
    ZORCC_CALL(zoriYCrCb420ToBGR_Filter_8u_P3C4R(planes, steps, bgra.data(), bgra.step(), roiOf(f.width, f.height), 255));
    Image8& rgb = w.outImage(f.width, f.height, 3);
    for (std::size_t i = 0, n = static_cast<std::size_t>(f.width) * f.height; i < n; ++i)
        for (int c = 0; c < 3; ++c) rgb.pixels[3 * i + c] = bgra.pixels[4 * i + 2 - c];
}

void encodeGamma(const Data& in, Work& w, const OpOptions&) {
    const Image8& rgb = rgb8Of(in, w);
    YuvFrame& out = w.outFrame(YuvFormat::UYVY, rgb.width, rgb.height);
    ZORCC_CALL(zoriRGBToCbYCr422Gamma_8u_C3C2R(rgb.data(), rgb.step(), out.plane(0), out.step(0),
                                               roiOf(rgb.width, rgb.height)));
}

void packedEncode(const Data& in, Work& w, const OpOptions& o) {
    const Packed16& src = in.packed;
    const bool is565 = src.format == "bgr565";
    if (!is565 && src.format != "bgr555")
        throw std::runtime_error("packed-encode reads bgr565 or bgr555 words, not " + src.format);
    const YuvFormat f = targetFormat(o, YuvFormat::I420);
    YuvFrame& out = w.outFrame(f, src.width, src.height);
    Planes p = planesOf(out);
    const ZoriSize roi = roiOf(src.width, src.height);
    const Zor16u* s = src.words.data();
    switch (f) {
        case YuvFormat::I422:
            ZORCC_CALL(is565 ? zoriBGR565ToYCbCr422_16u8u_C3P3R(s, src.step(), p.dst.data(), p.step.data(), roi)
                             : zoriBGR555ToYCbCr422_16u8u_C3P3R(s, src.step(), p.dst.data(), p.step.data(), roi));
            break;
        case YuvFormat::I420:
            ZORCC_CALL(is565 ? zoriBGR565ToYCbCr420_16u8u_C3P3R(s, src.step(), p.dst.data(), p.step.data(), roi)
                             : zoriBGR555ToYCbCr420_16u8u_C3P3R(s, src.step(), p.dst.data(), p.step.data(), roi));
            break;
        case YuvFormat::I411:
            ZORCC_CALL(is565 ? zoriBGR565ToYCbCr411_16u8u_C3P3R(s, src.step(), p.dst.data(), p.step.data(), roi)
                             : zoriBGR555ToYCbCr411_16u8u_C3P3R(s, src.step(), p.dst.data(), p.step.data(), roi));
            break;
        default: throw std::runtime_error("packed-encode writes i422, i420 or i411, not " + std::string(formatName(f)));
    }
}

}  // namespace

void addVideoOps(std::vector<Op>& ops) {
    ops.push_back({"encode", "video", "RGB image to YCbCr (BT.601 studio range) in the layout of --to (default i420)",
                   {"zoriRGBToYCbCr_8u_P3R (i444)", "zoriBGRToYCbCr422_8u_C3P3R (i422)",
                    "zoriRGBToYCbCr422_8u_C3C2R (yuy2)", "zoriRGBToCbYCr422_8u_C3C2R (uyvy)",
                    "zoriRGBToYCbCr420_8u_C3P3R (i420)", "zoriRGBToYCbCr420_8u_C3P3R + zoriYCbCr420_8u_P3P2R (nv12)",
                    "zoriBGRToYCbCr411_8u_C3P3R (i411)"},
                   kImage, Kind::Yuv, encode, RangeUse::WritesStudio});
    ops.push_back({"decode", "video", "YCbCr frame of any layout to an RGB image (chroma replicated)",
                   {"zoriYCbCrToRGB_8u_P3C3R (i444)", "zoriYCbCr422ToRGB_8u_P3C3R (i422, and after relayout)",
                    "zoriYCbCr422ToRGB_8u_C2C3R (yuy2)", "zoriCbYCr422ToRGB_8u_C2C3R (uyvy)",
                    "zoriYCbCr420ToYCbCr422_8u_P3R (i420)", "zoriYCbCr420ToYCbCr422_8u_P2P3R (nv12)",
                    "zoriYCbCr411ToYCbCr422_8u_P3R (i411)"},
                   kYuv, Kind::Image, decode, RangeUse::ReadsStudio});
    ops.push_back({"decode-filtered", "video",
                   "i420 frame to RGB with chroma rows interpolated by the -1,9,9,-1 filter (height a multiple of 8)",
                   {"zoriYCrCb420ToBGR_Filter_8u_P3C4R"}, kYuv, Kind::Image, decodeFiltered,
                   RangeUse::ReadsStudio});
    ops.push_back({"encode-gamma", "video",
                   "RGB image through the video gamma curve, then to uyvy with filtered chroma",
                   {"zoriRGBToCbYCr422Gamma_8u_C3C2R"}, kImage, Kind::Yuv, encodeGamma, RangeUse::WritesStudio});
    ops.push_back({"packed-encode", "video",
                   "raw bgr565/bgr555 words (--format) to YCbCr i422, i420 or i411 (--to, default i420)",
                   {"zoriBGR565ToYCbCr422_16u8u_C3P3R", "zoriBGR555ToYCbCr422_16u8u_C3P3R",
                    "zoriBGR565ToYCbCr420_16u8u_C3P3R", "zoriBGR555ToYCbCr420_16u8u_C3P3R",
                    "zoriBGR565ToYCbCr411_16u8u_C3P3R", "zoriBGR555ToYCbCr411_16u8u_C3P3R"},
                   kPacked, Kind::Yuv, packedEncode, RangeUse::WritesStudio});
}

}  // namespace zorcc_tool
