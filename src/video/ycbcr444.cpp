// YCbCr and RGB at full chroma resolution (4:4:4), 8-bit, serial rows.
#include "core/export.h"
#include "video/ycbcr444_kernels.h"

namespace zor {
namespace {

// Every pixel stands alone, so contiguous images go as one long row.
template <auto M, class... Opt>
using Run = Rows<Serial, YCbCr444K<M>, Fuse<1>, Opt...>;

}  // namespace
}  // namespace zor

using namespace zor;

// The BGR decoders test their planes with the outer pointers, before the size.
ZOR_EXPORT(zoriRGBToYCbCr_8u_C3R, (StandardChecks), (Run<&YCbCr444Kernels::encodeC3>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriRGBToYCbCr_8u_AC4R, (StandardChecks), (Run<&YCbCr444Kernels::encodeAC4>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriRGBToYCbCr_8u_P3R, (StandardChecks), (Run<&YCbCr444Kernels::encodeP3>), IN_P3(Zor8u), OUT_P3(Zor8u), ROI)
ZOR_EXPORT(zoriYCbCrToRGB_8u_C3R, (StandardChecks), (Run<&YCbCr444Kernels::decodeAC3>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriYCbCrToRGB_8u_AC4R, (StandardChecks), (Run<&YCbCr444Kernels::decodeAAC4>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriYCbCrToRGB_8u_P3R, (StandardChecks), (Run<&YCbCr444Kernels::decodeAP3>), IN_P3(Zor8u), OUT_P3(Zor8u), ROI)
ZOR_EXPORT(zoriYCbCrToRGB_8u_P3C3R, (StandardChecks), (Run<&YCbCr444Kernels::decodeBP3C3>), IN_P3(Zor8u), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriYCbCrToBGR_8u_P3C3R, (PlanesFirstChecks<>), (Run<&YCbCr444Kernels::decodeBP3Bgr>), IN_P3(Zor8u), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriYCbCrToBGR_8u_P3C4R, (PlanesFirstChecks<>), (Run<&YCbCr444Kernels::decodeBP3BgrC4>), IN_P3(Zor8u), OUT_C(Zor8u, 4), ROI, ARG(Zor8u, aval))
