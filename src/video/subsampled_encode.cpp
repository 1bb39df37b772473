// RGB and BGR to subsampled YCbCr (4:2:2 packed and planar, 4:2:0, 4:1:1),
// 8-bit, serial rows.
#include "core/export.h"
#include "video/encode_kernels.h"

namespace zor {
namespace {

// The gamma member validates the steps, after the size.
using StepsLast = Checks<check::Null<kOuter>, check::Size<>, check::Steps>;

using K = EncodeKernels;

}  // namespace
}  // namespace zor

using namespace zor;

// RGB to Y0 Cb Y1 Cr with Y1 truncated; BGRA to Cb Y0 Cr Y1 (Cr bias 65534).
ZOR_EXPORT(zoriRGBToYCbCr422_8u_C3C2R, (StandardChecks), (Run422<&K::rgbTo422C2>), IN_C(Zor8u, 3), OUT_C(Zor8u, 2), ROI)
ZOR_EXPORT(zoriRGBToYCbCr422_8u_P3C2R, (StandardChecks), (Run422<&K::rgbP3To422C2>), IN_P3(Zor8u), OUT_C(Zor8u, 2), ROI)
ZOR_EXPORT(zoriBGRToCbYCr422_8u_AC4C2R, (StandardChecks), (Run422<&K::bgraToCbYCr>), IN_C(Zor8u, 4), OUT_C(Zor8u, 2), ROI)

// The filtered encoder carries its left terms along the row: rows stay rows.
ZOR_EXPORT(zoriRGBToCbYCr422_8u_C3C2R, (StandardChecks), (Run<&K::rgbFiltered>), IN_C(Zor8u, 3), OUT_C(Zor8u, 2), ROI)
ZOR_EXPORT(zoriRGBToCbYCr422Gamma_8u_C3C2R, (StepsLast), (Run<&K::rgbGammaFiltered>), IN_C(Zor8u, 3), OUT_C(Zor8u, 2), ROI)

// BGR to 4:2:2 with chroma bias one eighth.
ZOR_EXPORT(zoriBGRToYCbCr422_8u_C3C2R, (PlanesFirstChecks<2, 1>), (Run422<&K::bgrTo422C2>), IN_C(Zor8u, 3), OUT_C(Zor8u, 2), ROI)
ZOR_EXPORT(zoriBGRToYCbCr422_8u_AC4C2R, (PlanesFirstChecks<2, 1>), (Run422<&K::bgraTo422C2>), IN_C(Zor8u, 4), OUT_C(Zor8u, 2), ROI)
ZOR_EXPORT(zoriBGRToYCbCr422_8u_C3P3R, (PlanesFirstChecks<2, 1>), (Run422<&K::bgrTo422P3>), IN_C(Zor8u, 3), OUT_P3S(Zor8u, 0, 2), ROI)
ZOR_EXPORT(zoriBGRToYCbCr422_8u_AC4P3R, (PlanesFirstChecks<2, 1>), (Run422<&K::bgraTo422P3>), IN_C(Zor8u, 4), OUT_P3S(Zor8u, 0, 2), ROI)

// 4:2:0: the RGB member tests its planes after the size and accepts any
// size of at least 1 x 1; every member warns when a column or row is left.
ZOR_EXPORT(zoriRGBToYCbCr420_8u_C3P3R, (StandardChecks), (Run420<&K::rgbTo420, true>), IN_C(Zor8u, 3), OUT_P3S(Zor8u, 1, 2), ROI)
ZOR_EXPORT(zoriBGRToYCbCr420_8u_C3P3R, (PlanesFirstChecks<2, 2>), (Run420<&K::bgrTo420, true>), IN_C(Zor8u, 3), OUT_P3S(Zor8u, 1, 2), ROI)
ZOR_EXPORT(zoriBGRToYCbCr420_8u_AC4P3R, (PlanesFirstChecks<2, 2>), (Run420<&K::bgraTo420, true>), IN_C(Zor8u, 4), OUT_P3S(Zor8u, 1, 2), ROI)
ZOR_EXPORT(zoriBGRToYCrCb420_8u_C3P3R, (PlanesFirstChecks<2, 2>), (Run420<&K::bgrToYCrCb420, true>), IN_C(Zor8u, 3), OUT_P3S(Zor8u, 1, 2), ROI)
ZOR_EXPORT(zoriBGRToYCrCb420_8u_AC4P3R, (PlanesFirstChecks<2, 2>), (Run420<&K::bgraToYCrCb420, true>), IN_C(Zor8u, 4), OUT_P3S(Zor8u, 1, 2), ROI)

ZOR_EXPORT(zoriBGRToYCbCr411_8u_C3P3R, (PlanesFirstChecks<4, 1>), (Run411<&K::bgrTo411>), IN_C(Zor8u, 3), OUT_P3S(Zor8u, 0, 4), ROI)
ZOR_EXPORT(zoriBGRToYCbCr411_8u_AC4P3R, (PlanesFirstChecks<4, 1>), (Run411<&K::bgraTo411>), IN_C(Zor8u, 4), OUT_P3S(Zor8u, 0, 4), ROI)
