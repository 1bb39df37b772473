// RGB/BGR and HLS, rows in parallel.
//   RGB family: 8u, 16u, 16s and 32f, interleaved C3 and AC4, rounding codes;
//   pointers, then size, no step checks.
//   BGR family: 8u in seven layouts. The planar and mixed layouts floor their
//   codes and test the pointers with every plane, then the steps, then the
//   size; the interleaved BGRA forward member rounds like the RGB family and
//   tests the size before the steps. Alpha is copied where both sides carry
//   it as a channel of its own (a plane, or the fourth sample of a side
//   facing planes); AC4 sides leave the fourth sample alone.
#include "models/hls_kernels.h"

namespace zor {
namespace {

using BgraChecks = Checks<check::Null<kOuter>, check::Size<>, check::Steps>;
using BgrPlanarChecks = Checks<check::Null<kOuter | kPlanes>, check::Steps, check::Size<>>;

}  // namespace
}  // namespace zor

using namespace zor;

ZOR_EXPORT(zoriRGBToHLS_8u_C3R, (ModelChecks), (Rows<Parallel, HlsK<&HlsKernels::toHls8C3>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriRGBToHLS_8u_AC4R, (ModelChecks), (Rows<Parallel, HlsK<&HlsKernels::toHls8AC4>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriHLSToRGB_8u_C3R, (ModelChecks), (Rows<Parallel, HlsK<&HlsKernels::toRgb8C3>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriHLSToRGB_8u_AC4R, (ModelChecks), (Rows<Parallel, HlsK<&HlsKernels::toRgb8AC4>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriRGBToHLS_16u_C3R, (ModelChecks), (Rows<Parallel, HlsK<&HlsKernels::toHls16uC3>>), IN_C(Zor16u, 3, StepIn::Elements), OUT_C(Zor16u, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToHLS_16u_AC4R, (ModelChecks), (Rows<Parallel, HlsK<&HlsKernels::toHls16uAC4>>), IN_C(Zor16u, 4, StepIn::Elements), OUT_C(Zor16u, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriHLSToRGB_16u_C3R, (ModelChecks), (Rows<Parallel, HlsK<&HlsKernels::toRgb16uC3>>), IN_C(Zor16u, 3, StepIn::Elements), OUT_C(Zor16u, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriHLSToRGB_16u_AC4R, (ModelChecks), (Rows<Parallel, HlsK<&HlsKernels::toRgb16uAC4>>), IN_C(Zor16u, 4, StepIn::Elements), OUT_C(Zor16u, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToHLS_16s_C3R, (ModelChecks), (Rows<Parallel, HlsK<&HlsKernels::toHls16sC3>>), IN_C(Zor16s, 3, StepIn::Elements), OUT_C(Zor16s, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToHLS_16s_AC4R, (ModelChecks), (Rows<Parallel, HlsK<&HlsKernels::toHls16sAC4>>), IN_C(Zor16s, 4, StepIn::Elements), OUT_C(Zor16s, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriHLSToRGB_16s_C3R, (ModelChecks), (Rows<Parallel, HlsK<&HlsKernels::toRgb16sC3>>), IN_C(Zor16s, 3, StepIn::Elements), OUT_C(Zor16s, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriHLSToRGB_16s_AC4R, (ModelChecks), (Rows<Parallel, HlsK<&HlsKernels::toRgb16sAC4>>), IN_C(Zor16s, 4, StepIn::Elements), OUT_C(Zor16s, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToHLS_32f_C3R, (ModelChecks), (Rows<Parallel, HlsK<&HlsKernels::toHls32fC3>>), IN_C(Zor32f, 3, StepIn::Elements), OUT_C(Zor32f, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToHLS_32f_AC4R, (ModelChecks), (Rows<Parallel, HlsK<&HlsKernels::toHls32fAC4>>), IN_C(Zor32f, 4, StepIn::Elements), OUT_C(Zor32f, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriHLSToRGB_32f_C3R, (ModelChecks), (Rows<Parallel, HlsK<&HlsKernels::toRgb32fC3>>), IN_C(Zor32f, 3, StepIn::Elements), OUT_C(Zor32f, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriHLSToRGB_32f_AC4R, (ModelChecks), (Rows<Parallel, HlsK<&HlsKernels::toRgb32fAC4>>), IN_C(Zor32f, 4, StepIn::Elements), OUT_C(Zor32f, 4, StepIn::Elements), ROI)

ZOR_EXPORT(zoriBGRToHLS_8u_AC4R, (BgraChecks), (Rows<Parallel, HlsK<&HlsKernels::bgrToHlsAC4>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriBGRToHLS_8u_AP4R, (BgrPlanarChecks), (Rows<Parallel, HlsK<&HlsKernels::bgrToHlsAP4>>), IN_P4(Zor8u), OUT_P4(Zor8u), ROI)
ZOR_EXPORT(zoriBGRToHLS_8u_AP4C4R, (BgrPlanarChecks), (Rows<Parallel, HlsK<&HlsKernels::bgrToHlsAP4C4>>), IN_P4(Zor8u), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriBGRToHLS_8u_AC4P4R, (BgrPlanarChecks), (Rows<Parallel, HlsK<&HlsKernels::bgrToHlsAC4P4>>), IN_C(Zor8u, 4), OUT_P4(Zor8u), ROI)
ZOR_EXPORT(zoriBGRToHLS_8u_P3R, (BgrPlanarChecks), (Rows<Parallel, HlsK<&HlsKernels::bgrToHlsP3>>), IN_P3(Zor8u), OUT_P3(Zor8u), ROI)
ZOR_EXPORT(zoriBGRToHLS_8u_P3C3R, (BgrPlanarChecks), (Rows<Parallel, HlsK<&HlsKernels::bgrToHlsP3C3>>), IN_P3(Zor8u), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriBGRToHLS_8u_C3P3R, (BgrPlanarChecks), (Rows<Parallel, HlsK<&HlsKernels::bgrToHlsC3P3>>), IN_C(Zor8u, 3), OUT_P3(Zor8u), ROI)
ZOR_EXPORT(zoriHLSToBGR_8u_AP4R, (BgrPlanarChecks), (Rows<Parallel, HlsK<&HlsKernels::hlsToBgrAP4>>), IN_P4(Zor8u), OUT_P4(Zor8u), ROI)
ZOR_EXPORT(zoriHLSToBGR_8u_AP4C4R, (BgrPlanarChecks), (Rows<Parallel, HlsK<&HlsKernels::hlsToBgrAP4C4>>), IN_P4(Zor8u), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriHLSToBGR_8u_AC4P4R, (BgrPlanarChecks), (Rows<Parallel, HlsK<&HlsKernels::hlsToBgrAC4P4>>), IN_C(Zor8u, 4), OUT_P4(Zor8u), ROI)
ZOR_EXPORT(zoriHLSToBGR_8u_P3R, (BgrPlanarChecks), (Rows<Parallel, HlsK<&HlsKernels::hlsToBgrP3>>), IN_P3(Zor8u), OUT_P3(Zor8u), ROI)
ZOR_EXPORT(zoriHLSToBGR_8u_P3C3R, (BgrPlanarChecks), (Rows<Parallel, HlsK<&HlsKernels::hlsToBgrP3C3>>), IN_P3(Zor8u), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriHLSToBGR_8u_C3P3R, (BgrPlanarChecks), (Rows<Parallel, HlsK<&HlsKernels::hlsToBgrC3P3>>), IN_C(Zor8u, 3), OUT_P3(Zor8u), ROI)
