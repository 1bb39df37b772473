// YCoCg: RGB images to and from images of Y, Co, Cg codes. The codes are
// signed, so they are written as 16-bit samples offset by 32768.
#include "ops.h"

#include <stdexcept>

namespace zorcc_tool {

namespace {

constexpr int kImage = static_cast<int>(Kind::Image);

void toYCoCg(const Data& in, Work& work, const OpOptions& o) {
    const Image8& rgb = rgb8Of(in, work);
    Image8& bgr = work.image(0, rgb.width, rgb.height, 3);
    bgr.pixels = rgb.pixels;
    swapRB(bgr);
    const int w = bgr.width, h = bgr.height;
    std::vector<Zor16s>& planes = work.codes;
    planes.resize(static_cast<std::size_t>(w) * h * 3);
    Zor16s* p[3] = {planes.data(), planes.data() + static_cast<std::size_t>(w) * h,
                    planes.data() + 2 * static_cast<std::size_t>(w) * h};
    const int step = w * 2;
    if (o.reversible) ZORCC_CALL(zoriBGRToYCoCg_Rev_8u16s_C3P3R(bgr.data(), bgr.step(), p, step, roiOf(w, h)));
    else ZORCC_CALL(zoriBGRToYCoCg_8u16s_C3P3R(bgr.data(), bgr.step(), p, step, roiOf(w, h)));
    Image16& codes = work.outImage16(w, h, 3);
    for (std::size_t i = 0, n = static_cast<std::size_t>(w) * h; i < n; ++i)
        for (int c = 0; c < 3; ++c) codes.pixels[3 * i + c] = static_cast<std::uint16_t>(p[c][i] + 32768);
}

void fromYCoCg(const Data& in, Work& work, const OpOptions& o) {
    if (in.image.depth != 16 || in.image.channels() != 3)
        throw std::runtime_error("ycocg-to-rgb reads the 16-bit three-channel code images that rgb-to-ycocg writes");
    const Image16& codes = in.image.i16;
    const int w = codes.width, h = codes.height;
    std::vector<Zor16s>& planes = work.codes;
    planes.resize(static_cast<std::size_t>(w) * h * 3);
    Zor16s* p[3] = {planes.data(), planes.data() + static_cast<std::size_t>(w) * h,
                    planes.data() + 2 * static_cast<std::size_t>(w) * h};
    for (std::size_t i = 0, n = static_cast<std::size_t>(w) * h; i < n; ++i)
        for (int c = 0; c < 3; ++c) p[c][i] = static_cast<Zor16s>(static_cast<int>(codes.pixels[3 * i + c]) - 32768);
    const Zor16s* src[3] = {p[0], p[1], p[2]};
    Image8& bgr = work.outImage(w, h, 3);
    if (o.reversible) ZORCC_CALL(zoriYCoCgToBGR_Rev_16s8u_P3C3R(src, w * 2, bgr.data(), bgr.step(), roiOf(w, h)));
    else ZORCC_CALL(zoriYCoCgToBGR_16s8u_P3C3R(src, w * 2, bgr.data(), bgr.step(), roiOf(w, h)));
    swapRB(bgr);
}

}  // namespace

void addYCoCgOps(std::vector<Op>& ops) {
    ops.push_back({"rgb-to-ycocg", "ycocg",
                   "RGB image to Y, Co, Cg codes (16-bit, offset 32768); --reversible for the lossless lifting form",
                   {"zoriBGRToYCoCg_8u16s_C3P3R", "zoriBGRToYCoCg_Rev_8u16s_C3P3R (--reversible)"}, kImage, Kind::Image,
                   toYCoCg});
    ops.push_back({"ycocg-to-rgb", "ycocg",
                   "Y, Co, Cg codes back to RGB; with --reversible the exact inverse of rgb-to-ycocg --reversible",
                   {"zoriYCoCgToBGR_16s8u_P3C3R", "zoriYCoCgToBGR_Rev_16s8u_P3C3R (--reversible)"}, kImage, Kind::Image,
                   fromYCoCg});
}

}  // namespace zorcc_tool
