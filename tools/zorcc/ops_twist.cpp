// Colour twist (a 3x4 matrix on every pixel) and video gamma correction.
#include "ops.h"

#include <sstream>
#include <stdexcept>

namespace zorcc_tool {

namespace {

constexpr int kImage = static_cast<int>(Kind::Image);

// "a b c d; e f g h; i j k l" (commas, semicolons or spaces) -> 3x4 matrix.
void parseMatrix(const std::string& text, Zor32f m[3][4]) {
    if (text.empty()) throw std::runtime_error("twist needs --matrix with 12 numbers: three rows of r g b offset");
    std::string s = text;
    for (char& c : s)
        if (c == ',' || c == ';') c = ' ';
    std::istringstream in(s);
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 4; ++c)
            if (!(in >> m[r][c])) throw std::runtime_error("--matrix takes 12 numbers (three rows of r g b offset), got fewer");
    std::string rest;
    if (in >> rest) throw std::runtime_error("--matrix takes 12 numbers (three rows of r g b offset), got more");
}

// RGB images are converted in three channels; RGBA through the AC4 form,
// which keeps the alpha of the (copied) destination.
template <typename T, typename C3, typename AC4>
Raster<T> perPixel(const Raster<T>& src, C3 c3, AC4 ac4) {
    Raster<T> dst = src;
    const ZoriSize roi = roiOf(src.width, src.height);
    if (src.channels == 4) ac4(src.data(), src.step(), dst.data(), dst.step(), roi);
    else c3(src.data(), src.step(), dst.data(), dst.step(), roi);
    return dst;
}

// The input as RGB or RGBA of its own depth.
Picture colourOf(const Data& in) {
    const Picture& p = in.image;
    return p.channels() == 3 || p.channels() == 4 ? p : toRgb(p);
}

Data twist(const Data& in, const OpOptions& o) {
    Zor32f m[3][4];
    parseMatrix(o.matrix, m);
    const Picture p = colourOf(in);
    if (p.depth == 16)
        return Data(Picture(perPixel(
            p.i16, [&](auto... a) { ZORCC_CALL(zoriColorTwist32f_16u_C3R(a..., m)); },
            [&](auto... a) { ZORCC_CALL(zoriColorTwist32f_16u_AC4R(a..., m)); })));
    return Data(Picture(perPixel(
        p.i8, [&](auto... a) { ZORCC_CALL(zoriColorTwist32f_8u_C3R(a..., m)); },
        [&](auto... a) { ZORCC_CALL(zoriColorTwist32f_8u_AC4R(a..., m)); })));
}

Data gammaFwd(const Data& in, const OpOptions&) {
    const Picture p = colourOf(in);
    if (p.depth == 16)
        return Data(Picture(perPixel(
            p.i16, [](auto... a) { ZORCC_CALL(zoriGammaFwd_16u_C3R(a...)); },
            [](auto... a) { ZORCC_CALL(zoriGammaFwd_16u_AC4R(a...)); })));
    return Data(Picture(perPixel(
        p.i8, [](auto... a) { ZORCC_CALL(zoriGammaFwd_8u_C3R(a...)); },
        [](auto... a) { ZORCC_CALL(zoriGammaFwd_8u_AC4R(a...)); })));
}

Data gammaInv(const Data& in, const OpOptions&) {
    const Picture p = colourOf(in);
    if (p.depth == 16)
        return Data(Picture(perPixel(
            p.i16, [](auto... a) { ZORCC_CALL(zoriGammaInv_16u_C3R(a...)); },
            [](auto... a) { ZORCC_CALL(zoriGammaInv_16u_AC4R(a...)); })));
    return Data(Picture(perPixel(
        p.i8, [](auto... a) { ZORCC_CALL(zoriGammaInv_8u_C3R(a...)); },
        [](auto... a) { ZORCC_CALL(zoriGammaInv_8u_AC4R(a...)); })));
}

}  // namespace

void addTwistOps(std::vector<Op>& ops) {
    ops.push_back({"twist", "twist",
                   "colour matrix on every pixel: --matrix 'r0 g0 b0 o0; r1 g1 b1 o1; r2 g2 b2 o2' (rounded, saturated; "
                   "alpha kept)",
                   {"zoriColorTwist32f_8u_C3R", "zoriColorTwist32f_8u_AC4R", "zoriColorTwist32f_16u_C3R",
                    "zoriColorTwist32f_16u_AC4R"},
                   kImage, Kind::Image, twist});
    ops.push_back({"gamma-fwd", "twist", "video gamma curve (linear light to gamma-corrected), 8 or 16 bit, alpha kept",
                   {"zoriGammaFwd_8u_C3R", "zoriGammaFwd_8u_AC4R", "zoriGammaFwd_16u_C3R", "zoriGammaFwd_16u_AC4R"},
                   kImage, Kind::Image, gammaFwd});
    ops.push_back({"gamma-inv", "twist", "inverse video gamma curve (gamma-corrected to linear light), alpha kept",
                   {"zoriGammaInv_8u_C3R", "zoriGammaInv_8u_AC4R", "zoriGammaInv_16u_C3R", "zoriGammaInv_16u_AC4R"},
                   kImage, Kind::Image, gammaInv});
}

}  // namespace zorcc_tool
