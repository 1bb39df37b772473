// PhotoYCC, HLS and HSV side by side with OpenCV's cvtColor where it does the
// same job: the _FULL codes, whose 8u hue uses the whole 0..255 range as
// ours does (channel order H, L, S and H, S, V on both sides); 32f hue in
// degrees there, in turns here.
#include "side_by_side.h"

namespace sbs {
namespace {

const auto kF3 = packedOf<Zor32f>(3);
const auto kW3 = packedOf<Zor16u>(3);
const auto kS3 = packedOf<Zor16s>(3);
const auto kP3 = planesOf<Zor8u>();

#define PAIR(T, name) ZOR(name(s.as<T>(), s.st(), d.as<T>(), d.st(), kRoi))
#define PLANES(name) ZOR(name(s.pl(), s.st(), d.pl(), d.st(), kRoi))

const Case kHueCases[] = {
    {"RGB to HLS 8u", "zoriRGBToHLS_8u_C3R", kC3, kC3, PAIR(Zor8u, zoriRGBToHLS_8u_C3R), NONE, OCV(COLOR_RGB2HLS_FULL), nullptr},
    {"HLS to RGB 8u", "zoriHLSToRGB_8u_C3R", kC3, kC3, PAIR(Zor8u, zoriHLSToRGB_8u_C3R), NONE, OCV(COLOR_HLS2RGB_FULL), nullptr},
    {"RGB to HSV 8u", "zoriRGBToHSV_8u_C3R", kC3, kC3, PAIR(Zor8u, zoriRGBToHSV_8u_C3R), NONE, OCV(COLOR_RGB2HSV_FULL), nullptr},
    {"HSV to RGB 8u", "zoriHSVToRGB_8u_C3R", kC3, kC3, PAIR(Zor8u, zoriHSVToRGB_8u_C3R), NONE, OCV(COLOR_HSV2RGB_FULL), nullptr},
    {"RGB to HLS 32f", "zoriRGBToHLS_32f_C3R", kF3, kF3, PAIR(Zor32f, zoriRGBToHLS_32f_C3R), NONE, OCV(COLOR_RGB2HLS_FULL), nullptr},
    {"HLS to RGB 32f", "zoriHLSToRGB_32f_C3R", kF3, kF3, PAIR(Zor32f, zoriHLSToRGB_32f_C3R), NONE, OCV(COLOR_HLS2RGB_FULL), nullptr},
    {"RGBA to HLS 8u AC4", "zoriRGBToHLS_8u_AC4R", kC4, kC4, PAIR(Zor8u, zoriRGBToHLS_8u_AC4R), NONE, NONE, nullptr},
    {"RGB to HLS 16u", "zoriRGBToHLS_16u_C3R", kW3, kW3, PAIR(Zor16u, zoriRGBToHLS_16u_C3R), NONE, NONE, nullptr},
    {"HLS to RGB 16s", "zoriHLSToRGB_16s_C3R", kS3, kS3, PAIR(Zor16s, zoriHLSToRGB_16s_C3R), NONE, NONE, nullptr},
    {"BGR to HLS 8u planar", "zoriBGRToHLS_8u_P3R", kP3, kP3, PLANES(zoriBGRToHLS_8u_P3R), NONE, NONE, nullptr},
    {"HLS to BGR 8u planar", "zoriHLSToBGR_8u_P3R", kP3, kP3, PLANES(zoriHLSToBGR_8u_P3R), NONE, NONE, nullptr},
    {"RGB to HSV 16u", "zoriRGBToHSV_16u_C3R", kW3, kW3, PAIR(Zor16u, zoriRGBToHSV_16u_C3R), NONE, NONE, nullptr},
    {"HSV to RGB 16u", "zoriHSVToRGB_16u_C3R", kW3, kW3, PAIR(Zor16u, zoriHSVToRGB_16u_C3R), NONE, NONE, nullptr},
    {"RGB to YCC 8u", "zoriRGBToYCC_8u_C3R", kC3, kC3, PAIR(Zor8u, zoriRGBToYCC_8u_C3R), NONE, NONE, nullptr},
    {"YCC to RGB 8u", "zoriYCCToRGB_8u_C3R", kC3, kC3, PAIR(Zor8u, zoriYCCToRGB_8u_C3R), NONE, NONE, nullptr},
    {"RGB to YCC 16u", "zoriRGBToYCC_16u_C3R", kW3, kW3, PAIR(Zor16u, zoriRGBToYCC_16u_C3R), NONE, NONE, nullptr},
    {"YCC to RGB 16s", "zoriYCCToRGB_16s_C3R", kS3, kS3, PAIR(Zor16s, zoriYCCToRGB_16s_C3R), NONE, NONE, nullptr},
    {"RGB to YCC 32f", "zoriRGBToYCC_32f_C3R", kF3, kF3, PAIR(Zor32f, zoriRGBToYCC_32f_C3R), NONE, NONE, nullptr},
    {"YCC to RGB 32f", "zoriYCCToRGB_32f_C3R", kF3, kF3, PAIR(Zor32f, zoriYCCToRGB_32f_C3R), NONE, NONE, nullptr},
};
const CaseGroup kGroup(60, "HLS/HSV/YCC", std::begin(kHueCases), std::end(kHueCases));

}  // namespace
}  // namespace sbs
