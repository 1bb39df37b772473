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

template <class T>
using Round = std::conditional_t<std::is_same_v<T, Zor32f>, HlsFloatCodec, HlsIntCodec<T, RoundCode>>;
using Floor8u = HlsIntCodec<Zor8u, FloorCode>;

// Layouts of the BGR family: interleaved (C3, C4 with alpha, AC4 with an
// untouched fourth byte) or planar, on the BGR and on the HLS side.
using BgrC3 = HlsChans<3, 2, 1, 0>;
using BgrC4 = HlsChans<4, 2, 1, 0, true>;
using BgrAC4 = HlsChans<4, 2, 1, 0>;
using BgrP3 = HlsPlanes<3, 2, 1, 0>;
using BgrP4 = HlsPlanes<4, 2, 1, 0>;
using HlsC3 = HlsChans<3>;
using HlsC4 = HlsChans<4, 0, 1, 2, true>;
using HlsAC4 = HlsChans<4>;
using HlsP3 = HlsPlanes<3>;
using HlsP4 = HlsPlanes<4>;

}  // namespace
}  // namespace zor

using namespace zor;

ZOR_EXPORT(zoriRGBToHLS_8u_C3R, (ModelChecks), (ParallelRows<&rgbToHls<Round<Zor8u>, HlsChans<3>, HlsChans<3>>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriRGBToHLS_8u_AC4R, (ModelChecks), (ParallelRows<&rgbToHls<Round<Zor8u>, HlsChans<4>, HlsChans<4>>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriHLSToRGB_8u_C3R, (ModelChecks), (ParallelRows<&hlsToRgb<Round<Zor8u>, HlsChans<3>, HlsChans<3>>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriHLSToRGB_8u_AC4R, (ModelChecks), (ParallelRows<&hlsToRgb<Round<Zor8u>, HlsChans<4>, HlsChans<4>>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriRGBToHLS_16u_C3R, (ModelChecks), (ParallelRows<&rgbToHls<Round<Zor16u>, HlsChans<3>, HlsChans<3>>>), IN_C(Zor16u, 3, StepIn::Elements), OUT_C(Zor16u, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToHLS_16u_AC4R, (ModelChecks), (ParallelRows<&rgbToHls<Round<Zor16u>, HlsChans<4>, HlsChans<4>>>), IN_C(Zor16u, 4, StepIn::Elements), OUT_C(Zor16u, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriHLSToRGB_16u_C3R, (ModelChecks), (ParallelRows<&hlsToRgb<Round<Zor16u>, HlsChans<3>, HlsChans<3>>>), IN_C(Zor16u, 3, StepIn::Elements), OUT_C(Zor16u, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriHLSToRGB_16u_AC4R, (ModelChecks), (ParallelRows<&hlsToRgb<Round<Zor16u>, HlsChans<4>, HlsChans<4>>>), IN_C(Zor16u, 4, StepIn::Elements), OUT_C(Zor16u, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToHLS_16s_C3R, (ModelChecks), (ParallelRows<&rgbToHls<Round<Zor16s>, HlsChans<3>, HlsChans<3>>>), IN_C(Zor16s, 3, StepIn::Elements), OUT_C(Zor16s, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToHLS_16s_AC4R, (ModelChecks), (ParallelRows<&rgbToHls<Round<Zor16s>, HlsChans<4>, HlsChans<4>>>), IN_C(Zor16s, 4, StepIn::Elements), OUT_C(Zor16s, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriHLSToRGB_16s_C3R, (ModelChecks), (ParallelRows<&hlsToRgb<Round<Zor16s>, HlsChans<3>, HlsChans<3>>>), IN_C(Zor16s, 3, StepIn::Elements), OUT_C(Zor16s, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriHLSToRGB_16s_AC4R, (ModelChecks), (ParallelRows<&hlsToRgb<Round<Zor16s>, HlsChans<4>, HlsChans<4>>>), IN_C(Zor16s, 4, StepIn::Elements), OUT_C(Zor16s, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToHLS_32f_C3R, (ModelChecks), (ParallelRows<&rgbToHls<Round<Zor32f>, HlsChans<3>, HlsChans<3>>>), IN_C(Zor32f, 3, StepIn::Elements), OUT_C(Zor32f, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToHLS_32f_AC4R, (ModelChecks), (ParallelRows<&rgbToHls<Round<Zor32f>, HlsChans<4>, HlsChans<4>>>), IN_C(Zor32f, 4, StepIn::Elements), OUT_C(Zor32f, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriHLSToRGB_32f_C3R, (ModelChecks), (ParallelRows<&hlsToRgb<Round<Zor32f>, HlsChans<3>, HlsChans<3>>>), IN_C(Zor32f, 3, StepIn::Elements), OUT_C(Zor32f, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriHLSToRGB_32f_AC4R, (ModelChecks), (ParallelRows<&hlsToRgb<Round<Zor32f>, HlsChans<4>, HlsChans<4>>>), IN_C(Zor32f, 4, StepIn::Elements), OUT_C(Zor32f, 4, StepIn::Elements), ROI)

ZOR_EXPORT(zoriBGRToHLS_8u_AC4R, (BgraChecks), (ParallelRows<&rgbToHls<Round<Zor8u>, BgrAC4, HlsAC4>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriBGRToHLS_8u_AP4R, (BgrPlanarChecks), (ParallelRows<&rgbToHls<Floor8u, BgrP4, HlsP4>>), IN_P4(Zor8u), OUT_P4(Zor8u), ROI)
ZOR_EXPORT(zoriBGRToHLS_8u_AP4C4R, (BgrPlanarChecks), (ParallelRows<&rgbToHls<Floor8u, BgrP4, HlsC4>>), IN_P4(Zor8u), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriBGRToHLS_8u_AC4P4R, (BgrPlanarChecks), (ParallelRows<&rgbToHls<Floor8u, BgrC4, HlsP4>>), IN_C(Zor8u, 4), OUT_P4(Zor8u), ROI)
ZOR_EXPORT(zoriBGRToHLS_8u_P3R, (BgrPlanarChecks), (ParallelRows<&rgbToHls<Floor8u, BgrP3, HlsP3>>), IN_P3(Zor8u), OUT_P3(Zor8u), ROI)
ZOR_EXPORT(zoriBGRToHLS_8u_P3C3R, (BgrPlanarChecks), (ParallelRows<&rgbToHls<Floor8u, BgrP3, HlsC3>>), IN_P3(Zor8u), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriBGRToHLS_8u_C3P3R, (BgrPlanarChecks), (ParallelRows<&rgbToHls<Floor8u, BgrC3, HlsP3>>), IN_C(Zor8u, 3), OUT_P3(Zor8u), ROI)
ZOR_EXPORT(zoriHLSToBGR_8u_AP4R, (BgrPlanarChecks), (ParallelRows<&hlsToRgb<Floor8u, HlsP4, BgrP4>>), IN_P4(Zor8u), OUT_P4(Zor8u), ROI)
ZOR_EXPORT(zoriHLSToBGR_8u_AP4C4R, (BgrPlanarChecks), (ParallelRows<&hlsToRgb<Floor8u, HlsP4, BgrC4>>), IN_P4(Zor8u), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriHLSToBGR_8u_AC4P4R, (BgrPlanarChecks), (ParallelRows<&hlsToRgb<Floor8u, HlsC4, BgrP4>>), IN_C(Zor8u, 4), OUT_P4(Zor8u), ROI)
ZOR_EXPORT(zoriHLSToBGR_8u_P3R, (BgrPlanarChecks), (ParallelRows<&hlsToRgb<Floor8u, HlsP3, BgrP3>>), IN_P3(Zor8u), OUT_P3(Zor8u), ROI)
ZOR_EXPORT(zoriHLSToBGR_8u_P3C3R, (BgrPlanarChecks), (ParallelRows<&hlsToRgb<Floor8u, HlsP3, BgrC3>>), IN_P3(Zor8u), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriHLSToBGR_8u_C3P3R, (BgrPlanarChecks), (ParallelRows<&hlsToRgb<Floor8u, HlsC3, BgrP3>>), IN_C(Zor8u, 3), OUT_P3(Zor8u), ROI)
