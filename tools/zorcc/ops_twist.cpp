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
// which keeps the alpha of the destination (a copy of the source); other
// images are taken to RGB first.
template <typename C3, typename AC4>
void perPixel(const Data& in, Work& w, C3 c3, AC4 ac4) {
    const Picture& p = in.image;
    auto run = [&](const auto& src, auto& dst) {
        const ZoriSize roi = roiOf(src.width, src.height);
        if (src.channels == 4) {
            dst.pixels = src.pixels;
            ac4(src.data(), src.step(), dst.data(), dst.step(), roi);
        } else {
            c3(src.data(), src.step(), dst.data(), dst.step(), roi);
        }
    };
    const int c = p.channels() == 4 ? 4 : 3;
    if (p.depth == 16)
        run(c == 4 ? p.i16 : rgb16Of(in, w), w.outImage16(p.width(), p.height(), c));
    else
        run(c == 4 ? p.i8 : rgb8Of(in, w), w.outImage(p.width(), p.height(), c));
}

void twist(const Data& in, Work& w, const OpOptions& o) {
    Zor32f m[3][4];
    parseMatrix(o.matrix, m);
    perPixel(
        in, w,
        [&](auto* s, int ss, auto* d, int ds, ZoriSize r) {
            if constexpr (sizeof(*s) == 1) ZORCC_CALL(zoriColorTwist32f_8u_C3R(s, ss, d, ds, r, m));
            else ZORCC_CALL(zoriColorTwist32f_16u_C3R(s, ss, d, ds, r, m));
        },
        [&](auto* s, int ss, auto* d, int ds, ZoriSize r) {
            if constexpr (sizeof(*s) == 1) ZORCC_CALL(zoriColorTwist32f_8u_AC4R(s, ss, d, ds, r, m));
            else ZORCC_CALL(zoriColorTwist32f_16u_AC4R(s, ss, d, ds, r, m));
        });
}

void gammaFwd(const Data& in, Work& w, const OpOptions&) {
    perPixel(
        in, w,
        [](auto* s, int ss, auto* d, int ds, ZoriSize r) {
            if constexpr (sizeof(*s) == 1) ZORCC_CALL(zoriGammaFwd_8u_C3R(s, ss, d, ds, r));
            else ZORCC_CALL(zoriGammaFwd_16u_C3R(s, ss, d, ds, r));
        },
        [](auto* s, int ss, auto* d, int ds, ZoriSize r) {
            if constexpr (sizeof(*s) == 1) ZORCC_CALL(zoriGammaFwd_8u_AC4R(s, ss, d, ds, r));
            else ZORCC_CALL(zoriGammaFwd_16u_AC4R(s, ss, d, ds, r));
        });
}

void gammaInv(const Data& in, Work& w, const OpOptions&) {
    perPixel(
        in, w,
        [](auto* s, int ss, auto* d, int ds, ZoriSize r) {
            if constexpr (sizeof(*s) == 1) ZORCC_CALL(zoriGammaInv_8u_C3R(s, ss, d, ds, r));
            else ZORCC_CALL(zoriGammaInv_16u_C3R(s, ss, d, ds, r));
        },
        [](auto* s, int ss, auto* d, int ds, ZoriSize r) {
            if constexpr (sizeof(*s) == 1) ZORCC_CALL(zoriGammaInv_8u_AC4R(s, ss, d, ds, r));
            else ZORCC_CALL(zoriGammaInv_16u_AC4R(s, ss, d, ds, r));
        });
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
