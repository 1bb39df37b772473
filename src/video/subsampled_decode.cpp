// Subsampled YCbCr (packed and planar 4:2:2) to RGB and BGR, 8-bit, serial
// rows. The chroma of a pair serves both of its pixels; a last odd pixel and
// a row of one pixel follow Packed422 (video/chroma_share.h).
#include "core/export.h"
#include "video/decode_kernels.h"

namespace zor {
namespace {

using K = DecodeKernels;

// The BGR members have no planes to test and need two pixels per row.
using BgrChecks = Checks<check::Null<kOuter>, check::Size<2>>;

// Whole pairs in every row: contiguous images go as one long row.
template <auto M>
using Run = Rows<Serial, DecodeK<M>, Fuse<2>>;

}  // namespace
}  // namespace zor

using namespace zor;

// Y0 Cb Y1 Cr with set C; Cb Y0 Cr Y1 and planar with set B.
ZOR_EXPORT(zoriYCbCr422ToRGB_8u_C2C3R, (StandardChecks), (Run<&K::ycbcr422Rgb>), IN_C(Zor8u, 2), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriYCbCr422ToRGB_8u_C2P3R, (StandardChecks), (Run<&K::ycbcr422RgbP3>), IN_C(Zor8u, 2), OUT_P3(Zor8u), ROI)
ZOR_EXPORT(zoriYCbCr422ToBGR_8u_C2C3R, (BgrChecks), (Run<&K::ycbcr422Bgr>), IN_C(Zor8u, 2), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriYCbCr422ToBGR_8u_C2C4R, (BgrChecks), (Run<&K::ycbcr422BgrC4>), IN_C(Zor8u, 2), OUT_C(Zor8u, 4), ROI, ARG(Zor8u, aval))
ZOR_EXPORT(zoriCbYCr422ToRGB_8u_C2C3R, (StandardChecks), (Run<&K::cbycr422Rgb>), IN_C(Zor8u, 2), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriCbYCr422ToBGR_8u_C2C4R, (StandardChecks), (Run<&K::cbycr422BgrC4>), IN_C(Zor8u, 2), OUT_C(Zor8u, 4), ROI, ARG(Zor8u, aval))
ZOR_EXPORT(zoriYCbCr422ToRGB_8u_P3C3R, (StandardChecks), (Run<&K::planar422Rgb>), IN_P3S(Zor8u, 0, 2), OUT_C(Zor8u, 3), ROI)
