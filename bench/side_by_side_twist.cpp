// Side-by-side cases of the colour twist (rank 20) and of gamma correction
// (rank 21). OpenCV's cv::transform applies the same 3x4 matrix; cv::LUT maps
// bytes through the same 256-entry table.
#include "side_by_side.h"

namespace sbs {
namespace {

// A colour matrix with constants (RGB to an offset YUV).
const Zor32f kTwist[3][4] = {{0.299f, 0.587f, 0.114f, 0.0f}, {-0.147f, -0.289f, 0.436f, 128.0f}, {0.615f, -0.515f, -0.100f, 128.0f}};
const Zor32f kTwist4[4][4] = {{0.299f, 0.587f, 0.114f, 0.0f}, {-0.147f, -0.289f, 0.436f, 0.0f}, {0.615f, -0.515f, -0.100f, 0.0f}, {0, 0, 0, 1}};

#ifdef ZORCC_BENCH_HAVE_OPENCV
int cvTransform(Image& s, Image& d) {
    cv::Mat out = matOf(d);
    const Zor8u* before = out.data;
    cv::transform(matOf(s), out, cv::Mat(3, 4, CV_32F, const_cast<Zor32f*>(&kTwist[0][0])));
    return out.data == before ? 0 : -1;
}
int cvGammaLut(Image& s, Image& d) {
    Zor8u ramp[3 * 256], table[3 * 256];
    for (int i = 0; i < 3 * 256; ++i) ramp[i] = static_cast<Zor8u>(i / 3);
    zoriGammaFwd_8u_C3R(ramp, 3 * 256, table, 3 * 256, {256, 1});
    for (int v = 0; v < 256; ++v) table[v] = table[3 * v];
    cv::Mat out = matOf(d);
    const Zor8u* before = out.data;
    cv::LUT(matOf(s), cv::Mat(1, 256, CV_8U, table), out);
    return out.data == before ? 0 : -1;
}
#define TRANSFORM cvTransform
#define LUT8 cvGammaLut
#else
#define TRANSFORM nullptr
#define LUT8 nullptr
#endif

const Case kTwistCases[] = {
    {"RGB 8u twist", "zoriColorTwist32f_8u_C3R", kC3, kC3, ZOR(zoriColorTwist32f_8u_C3R(s.p(), s.st(), d.p(), d.st(), kRoi, kTwist)), NONE, TRANSFORM, nullptr},
    {"RGBA 8u twist", "zoriColorTwist32f_8u_AC4R", kC4, kC4, ZOR(zoriColorTwist32f_8u_AC4R(s.p(), s.st(), d.p(), d.st(), kRoi, kTwist)), NONE, NONE, nullptr},
    {"planar 8u twist", "zoriColorTwist32f_8u_P3R", planesOf<Zor8u>(), planesOf<Zor8u>(), ZOR(zoriColorTwist32f_8u_P3R(s.pl(), s.st(), d.planesAs<Zor8u>(), d.st(), kRoi, kTwist)), NONE, NONE, nullptr},
    {"RGB 8s twist", "zoriColorTwist32f_8s_C3R", packedOf<Zor8s>(3), packedOf<Zor8s>(3), ZOR(zoriColorTwist32f_8s_C3R(s.as<Zor8s>(), s.st(), d.as<Zor8s>(), d.st(), kRoi, kTwist)), NONE, NONE, nullptr},
    {"RGB 16u twist", "zoriColorTwist32f_16u_C3R", packedOf<Zor16u>(3), packedOf<Zor16u>(3), ZOR(zoriColorTwist32f_16u_C3R(s.as<Zor16u>(), s.st(), d.as<Zor16u>(), d.st(), kRoi, kTwist)), NONE, TRANSFORM, nullptr},
    {"RGBA 16u twist", "zoriColorTwist32f_16u_AC4R", packedOf<Zor16u>(4), packedOf<Zor16u>(4), ZOR(zoriColorTwist32f_16u_AC4R(s.as<Zor16u>(), s.st(), d.as<Zor16u>(), d.st(), kRoi, kTwist)), NONE, NONE, nullptr},
    {"planar 16u twist", "zoriColorTwist32f_16u_P3R", planesOf<Zor16u>(), planesOf<Zor16u>(), ZOR(zoriColorTwist32f_16u_P3R(s.planesAs<Zor16u>(), s.st(), d.planesAs<Zor16u>(), d.st(), kRoi, kTwist)), NONE, NONE, nullptr},
    {"RGB 16s twist", "zoriColorTwist32f_16s_C3R", packedOf<Zor16s>(3), packedOf<Zor16s>(3), ZOR(zoriColorTwist32f_16s_C3R(s.as<Zor16s>(), s.st(), d.as<Zor16s>(), d.st(), kRoi, kTwist)), NONE, TRANSFORM, nullptr},
    {"RGB 32f twist", "zoriColorTwist_32f_C3R", packedOf<Zor32f>(3), packedOf<Zor32f>(3), ZOR(zoriColorTwist_32f_C3R(s.as<Zor32f>(), s.st(), d.as<Zor32f>(), d.st(), kRoi, kTwist)), NONE, TRANSFORM, nullptr},
    {"RGBA 32f twist", "zoriColorTwist_32f_AC4R", packedOf<Zor32f>(4), packedOf<Zor32f>(4), ZOR(zoriColorTwist_32f_AC4R(s.as<Zor32f>(), s.st(), d.as<Zor32f>(), d.st(), kRoi, kTwist)), NONE, NONE, nullptr},
    {"planar 32f twist", "zoriColorTwist_32f_P3R", planesOf<Zor32f>(), planesOf<Zor32f>(), ZOR(zoriColorTwist_32f_P3R(s.planesAs<Zor32f>(), s.st(), d.planesAs<Zor32f>(), d.st(), kRoi, kTwist)), NONE, NONE, nullptr},
    {"4-channel 32f twist", "zoriColorTwist_32f_C4R", packedOf<Zor32f>(4), packedOf<Zor32f>(4), ZOR(zoriColorTwist_32f_C4R(s.as<Zor32f>(), s.st(), d.as<Zor32f>(), d.st(), kRoi, kTwist4)), NONE, NONE, nullptr},
};
const CaseGroup kTwistGroup(20, "twist", std::begin(kTwistCases), std::end(kTwistCases));

const Case kGammaCases[] = {
    {"RGB 8u gamma", "zoriGammaFwd_8u_C3R", kC3, kC3, ZOR(zoriGammaFwd_8u_C3R(s.p(), s.st(), d.p(), d.st(), kRoi)), NONE, LUT8, nullptr},
    {"RGB 8u inverse gamma", "zoriGammaInv_8u_C3R", kC3, kC3, ZOR(zoriGammaInv_8u_C3R(s.p(), s.st(), d.p(), d.st(), kRoi)), NONE, NONE, nullptr},
    {"RGBA 8u gamma", "zoriGammaFwd_8u_AC4R", kC4, kC4, ZOR(zoriGammaFwd_8u_AC4R(s.p(), s.st(), d.p(), d.st(), kRoi)), NONE, NONE, nullptr},
    {"planar 8u gamma", "zoriGammaFwd_8u_P3R", planesOf<Zor8u>(), planesOf<Zor8u>(), ZOR(zoriGammaFwd_8u_P3R(s.pl(), s.st(), d.planesAs<Zor8u>(), d.st(), kRoi)), NONE, NONE, nullptr},
    {"RGB 16u gamma", "zoriGammaFwd_16u_C3R", packedOf<Zor16u>(3), packedOf<Zor16u>(3), ZOR(zoriGammaFwd_16u_C3R(s.as<Zor16u>(), s.st(), d.as<Zor16u>(), d.st(), kRoi)), NONE, NONE, nullptr},
    {"RGB 32f gamma", "zoriGammaFwd_32f_C3R", packedOf<Zor32f>(3), packedOf<Zor32f>(3), ZOR(zoriGammaFwd_32f_C3R(s.as<Zor32f>(), s.st(), d.as<Zor32f>(), d.st(), kRoi, 0.0f, 1.0f)), NONE, NONE, nullptr},
    {"RGB 32f inverse gamma", "zoriGammaInv_32f_C3R", packedOf<Zor32f>(3), packedOf<Zor32f>(3), ZOR(zoriGammaInv_32f_C3R(s.as<Zor32f>(), s.st(), d.as<Zor32f>(), d.st(), kRoi, 0.0f, 1.0f)), NONE, NONE, nullptr},
    {"planar 32f gamma", "zoriGammaFwd_32f_P3R", planesOf<Zor32f>(), planesOf<Zor32f>(), ZOR(zoriGammaFwd_32f_P3R(s.planesAs<Zor32f>(), s.st(), d.planesAs<Zor32f>(), d.st(), kRoi, 0.0f, 1.0f)), NONE, NONE, nullptr},
};
const CaseGroup kGammaGroup(21, "gamma", std::begin(kGammaCases), std::end(kGammaCases));

}  // namespace
}  // namespace sbs
