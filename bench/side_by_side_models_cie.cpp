// Side-by-side cases of the CIE models (XYZ, LUV, Lab): every member, with
// OpenCV's cvtColor as the peer where it does the same conversion.
#include "side_by_side.h"

namespace sbs {
namespace {

#define ZOR_CIE(T, fn) ZOR(fn(s.as<const T>(), s.st(), d.as<T>(), d.st(), kRoi))
#define ZOR_CIE2(S, D, fn) ZOR(fn(s.as<const S>(), s.st(), d.as<D>(), d.st(), kRoi))
#define ZOR_CASE(label, T, ch, fn, peer) {label, #fn, packedOf<T>(ch), packedOf<T>(ch), ZOR_CIE(T, fn), NONE, peer, nullptr}

const Case kCieCases[] = {
    {"BGR 8u to Lab", "zoriBGRToLab_8u_C3R", kC3, kC3, ZOR_CIE(Zor8u, zoriBGRToLab_8u_C3R), NONE, OCV(COLOR_BGR2Lab), nullptr},
    {"Lab 8u to BGR", "zoriLabToBGR_8u_C3R", kC3, kC3, ZOR_CIE(Zor8u, zoriLabToBGR_8u_C3R), NONE, OCV(COLOR_Lab2BGR), nullptr},
    {"BGR 8u to Lab 16u", "zoriBGRToLab_8u16u_C3R", kC3, packedOf<Zor16u>(3), ZOR_CIE2(Zor8u, Zor16u, zoriBGRToLab_8u16u_C3R), NONE, NONE, nullptr},
    {"Lab 16u to BGR 8u", "zoriLabToBGR_16u8u_C3R", packedOf<Zor16u>(3), kC3, ZOR_CIE2(Zor16u, Zor8u, zoriLabToBGR_16u8u_C3R), NONE, NONE, nullptr},
    ZOR_CASE("RGB 8u to XYZ", Zor8u, 3, zoriRGBToXYZ_8u_C3R, OCV(COLOR_RGB2XYZ)),
    ZOR_CASE("XYZ 8u to RGB", Zor8u, 3, zoriXYZToRGB_8u_C3R, OCV(COLOR_XYZ2RGB)),
    ZOR_CASE("RGBA 8u to XYZ", Zor8u, 4, zoriRGBToXYZ_8u_AC4R, NONE),
    ZOR_CASE("XYZ 8u to RGBA", Zor8u, 4, zoriXYZToRGB_8u_AC4R, NONE),
    ZOR_CASE("RGB 16u to XYZ", Zor16u, 3, zoriRGBToXYZ_16u_C3R, OCV(COLOR_RGB2XYZ)),
    ZOR_CASE("XYZ 16u to RGB", Zor16u, 3, zoriXYZToRGB_16u_C3R, OCV(COLOR_XYZ2RGB)),
    ZOR_CASE("RGBA 16u to XYZ", Zor16u, 4, zoriRGBToXYZ_16u_AC4R, NONE),
    ZOR_CASE("XYZ 16u to RGBA", Zor16u, 4, zoriXYZToRGB_16u_AC4R, NONE),
    ZOR_CASE("RGB 16s to XYZ", Zor16s, 3, zoriRGBToXYZ_16s_C3R, NONE),
    ZOR_CASE("XYZ 16s to RGB", Zor16s, 3, zoriXYZToRGB_16s_C3R, NONE),
    ZOR_CASE("RGB 32f to XYZ", Zor32f, 3, zoriRGBToXYZ_32f_C3R, OCV(COLOR_RGB2XYZ)),
    ZOR_CASE("XYZ 32f to RGB", Zor32f, 3, zoriXYZToRGB_32f_C3R, OCV(COLOR_XYZ2RGB)),
    ZOR_CASE("RGBA 32f to XYZ", Zor32f, 4, zoriRGBToXYZ_32f_AC4R, NONE),
    ZOR_CASE("RGB 8u to LUV", Zor8u, 3, zoriRGBToLUV_8u_C3R, OCV(COLOR_RGB2Luv)),
    ZOR_CASE("LUV 8u to RGB", Zor8u, 3, zoriLUVToRGB_8u_C3R, OCV(COLOR_Luv2RGB)),
    ZOR_CASE("RGBA 8u to LUV", Zor8u, 4, zoriRGBToLUV_8u_AC4R, NONE),
    ZOR_CASE("LUV 8u to RGBA", Zor8u, 4, zoriLUVToRGB_8u_AC4R, NONE),
    ZOR_CASE("RGB 16u to LUV", Zor16u, 3, zoriRGBToLUV_16u_C3R, NONE),
    ZOR_CASE("LUV 16u to RGB", Zor16u, 3, zoriLUVToRGB_16u_C3R, NONE),
    ZOR_CASE("RGB 16s to LUV", Zor16s, 3, zoriRGBToLUV_16s_C3R, NONE),
    ZOR_CASE("LUV 16s to RGB", Zor16s, 3, zoriLUVToRGB_16s_C3R, NONE),
    ZOR_CASE("RGB 32f to LUV", Zor32f, 3, zoriRGBToLUV_32f_C3R, OCV(COLOR_RGB2Luv)),
    ZOR_CASE("LUV 32f to RGB", Zor32f, 3, zoriLUVToRGB_32f_C3R, OCV(COLOR_Luv2RGB)),
    ZOR_CASE("RGBA 32f to LUV", Zor32f, 4, zoriRGBToLUV_32f_AC4R, NONE),
};
const CaseGroup kCieGroup(50, "XYZ/LUV/Lab", std::begin(kCieCases), std::end(kCieCases));

}  // namespace
}  // namespace sbs
