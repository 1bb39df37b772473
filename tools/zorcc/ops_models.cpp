// Colour models: XYZ, LUV, Lab, PhotoYCC, HLS, HSV and gray. Model values
// are written as images of codes (8 or 16 bit, three channels) so that the
// inverse op can read them back.
#include "ops.h"

#include <sstream>
#include <stdexcept>

namespace zorcc_tool {

namespace {

constexpr int kImage = static_cast<int>(Kind::Image);

using Fn8 = ZorStatus (*)(const Zor8u*, int, Zor8u*, int, ZoriSize);
using Fn16 = ZorStatus (*)(const Zor16u*, int, Zor16u*, int, ZoriSize);

// 16-bit work when the input is 16-bit or --bits 16 asks for it.
bool wants16(const Data& in, const OpOptions& o) {
    if (o.bits != 0 && o.bits != 8 && o.bits != 16) throw std::runtime_error("--bits takes 8 or 16");
    return o.bits == 16 || (o.bits == 0 && in.image.depth == 16);
}

void apply(const Data& in, Work& w, const OpOptions& o, Fn8 f8, const char* n8, Fn16 f16, const char* n16) {
    if (wants16(in, o)) {
        const Image16& src = rgb16Of(in, w);
        Image16& dst = w.outImage16(src.width, src.height, 3);
        check(f16(src.data(), src.step(), dst.data(), dst.step(), roiOf(src.width, src.height)), n16);
        return;
    }
    const Image8& src = rgb8Of(in, w);
    Image8& dst = w.outImage(src.width, src.height, 3);
    check(f8(src.data(), src.step(), dst.data(), dst.step(), roiOf(src.width, src.height)), n8);
}

struct Model {
    const char* op;
    const char* title;
    Fn8 fwd8, inv8;
    Fn16 fwd16, inv16;
    const char* names[4];
};

#define MODEL(op, title, F, I)                                                                          \
    Model {                                                                                             \
        op, title, zoriRGBTo##F##_8u_C3R, zori##I##ToRGB_8u_C3R, zoriRGBTo##F##_16u_C3R,                \
            zori##I##ToRGB_16u_C3R, {                                                                   \
            "zoriRGBTo" #F "_8u_C3R", "zori" #I "ToRGB_8u_C3R", "zoriRGBTo" #F "_16u_C3R", "zori" #I "ToRGB_16u_C3R" \
        }                                                                                               \
    }

const Model kModels[] = {
    MODEL("xyz", "CIE XYZ", XYZ, XYZ),
    MODEL("luv", "CIE L*u*v* codes", LUV, LUV),
    MODEL("ycc", "PhotoYCC", YCC, YCC),
    MODEL("hls", "HLS codes (hue as H/360 of full scale)", HLS, HLS),
    MODEL("hsv", "HSV codes", HSV, HSV),
};
#undef MODEL

void toLab(const Data& in, Work& w, const OpOptions& o) {
    if (o.bits != 0 && o.bits != 8 && o.bits != 16) throw std::runtime_error("--bits takes 8 or 16");
    const Image8& rgb = rgb8Of(in, w);
    Image8& bgr = w.image(0, rgb.width, rgb.height, 3);
    bgr.pixels = rgb.pixels;
    swapRB(bgr);
    const ZoriSize roi = roiOf(bgr.width, bgr.height);
    if (o.bits == 16) {
        Image16& lab = w.outImage16(bgr.width, bgr.height, 3);
        ZORCC_CALL(zoriBGRToLab_8u16u_C3R(bgr.data(), bgr.step(), lab.data(), lab.step(), roi));
        return;
    }
    Image8& lab = w.outImage(bgr.width, bgr.height, 3);
    ZORCC_CALL(zoriBGRToLab_8u_C3R(bgr.data(), bgr.step(), lab.data(), lab.step(), roi));
}

void fromLab(const Data& in, Work& w, const OpOptions&) {
    const Picture& p = in.image;
    Image8& bgr = w.outImage(p.width(), p.height(), 3);
    const ZoriSize roi = roiOf(bgr.width, bgr.height);
    if (p.depth == 16) {
        const Image16& codes = rgb16Of(in, w);
        ZORCC_CALL(zoriLabToBGR_16u8u_C3R(codes.data(), codes.step(), bgr.data(), bgr.step(), roi));
    } else {
        const Image8& codes = rgb8Of(in, w);
        ZORCC_CALL(zoriLabToBGR_8u_C3R(codes.data(), codes.step(), bgr.data(), bgr.step(), roi));
    }
    swapRB(bgr);
}

// "a,b,c" -> three floats.
void parseWeights(const std::string& text, Zor32f w[3]) {
    std::string s = text;
    for (char& c : s)
        if (c == ',') c = ' ';
    std::istringstream in(s);
    for (int i = 0; i < 3; ++i)
        if (!(in >> w[i])) throw std::runtime_error("--weights takes three numbers, e.g. 0.299,0.587,0.114");
    std::string rest;
    if (in >> rest) throw std::runtime_error("--weights takes three numbers, e.g. 0.299,0.587,0.114");
}

void toGray(const Data& in, Work& work, const OpOptions& o) {
    Zor32f w[3];
    const bool custom = !o.weights.empty();
    if (custom) parseWeights(o.weights, w);
    if (wants16(in, o)) {
        const Image16& src = rgb16Of(in, work);
        Image16& dst = work.outImage16(src.width, src.height, 1);
        const ZoriSize roi = roiOf(src.width, src.height);
        if (custom) ZORCC_CALL(zoriColorToGray_16u_C3C1R(src.data(), src.step(), dst.data(), dst.step(), roi, w));
        else ZORCC_CALL(zoriRGBToGray_16u_C3C1R(src.data(), src.step(), dst.data(), dst.step(), roi));
        return;
    }
    const Image8& src = rgb8Of(in, work);
    Image8& dst = work.outImage(src.width, src.height, 1);
    const ZoriSize roi = roiOf(src.width, src.height);
    if (custom) ZORCC_CALL(zoriColorToGray_8u_C3C1R(src.data(), src.step(), dst.data(), dst.step(), roi, w));
    else ZORCC_CALL(zoriRGBToGray_8u_C3C1R(src.data(), src.step(), dst.data(), dst.step(), roi));
}

}  // namespace

void addModelOps(std::vector<Op>& ops) {
    ops.push_back({"rgb-to-lab", "models",
                   "RGB image to CIE L*a*b* codes (8-bit L*255/100, a+128, b+128; --bits 16 for 16-bit codes)",
                   {"zoriBGRToLab_8u_C3R", "zoriBGRToLab_8u16u_C3R (--bits 16)"}, kImage, Kind::Image, toLab});
    ops.push_back({"lab-to-rgb", "models", "CIE L*a*b* codes (8 or 16 bit) back to an 8-bit RGB image",
                   {"zoriLabToBGR_8u_C3R", "zoriLabToBGR_16u8u_C3R (16-bit codes)"}, kImage, Kind::Image, fromLab});
    for (const Model& m : kModels) {
        const std::string op = m.op;
        ops.push_back({"rgb-to-" + op, "models",
                       std::string("RGB image to ") + m.title + " (16-bit with a 16-bit input or --bits 16)",
                       {m.names[0], m.names[2]}, kImage, Kind::Image,
                       [m](const Data& in, Work& w, const OpOptions& o) { apply(in, w, o, m.fwd8, m.names[0], m.fwd16, m.names[2]); }});
        ops.push_back({op + "-to-rgb", "models", std::string(m.title) + " back to an RGB image of the same depth",
                       {m.names[1], m.names[3]}, kImage, Kind::Image,
                       [m](const Data& in, Work& w, const OpOptions& o) { apply(in, w, o, m.inv8, m.names[1], m.inv16, m.names[3]); }});
    }
    ops.push_back({"rgb-to-gray", "models",
                   "RGB image to gray, 0.299/0.587/0.114 or the weights of --weights wr,wg,wb",
                   {"zoriRGBToGray_8u_C3C1R", "zoriRGBToGray_16u_C3C1R", "zoriColorToGray_8u_C3C1R (--weights)",
                    "zoriColorToGray_16u_C3C1R (--weights)"},
                   kImage, Kind::Image, toGray});
}

}  // namespace zorcc_tool
