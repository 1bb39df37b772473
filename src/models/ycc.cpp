// RGB <-> PhotoYCC for 8u (fixed point), 16u, 16s and 32f (float), in C3 and
// AC4 layouts, rows in parallel.
#include "models/ycc_kernels.h"

using namespace zor;

ZOR_EXPORT(zoriRGBToYCC_8u_C3R, (ModelChecks), (Rows<Parallel, YccK<&YccKernels::toYcc8C3>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriRGBToYCC_8u_AC4R, (ModelChecks), (Rows<Parallel, YccK<&YccKernels::toYcc8AC4>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriYCCToRGB_8u_C3R, (ModelChecks), (Rows<Parallel, YccK<&YccKernels::toRgb8C3>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriYCCToRGB_8u_AC4R, (ModelChecks), (Rows<Parallel, YccK<&YccKernels::toRgb8AC4>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriRGBToYCC_16u_C3R, (ModelChecks), (Rows<Parallel, YccK<&YccKernels::toYcc16uC3>>), IN_C(Zor16u, 3, StepIn::Elements), OUT_C(Zor16u, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToYCC_16u_AC4R, (ModelChecks), (Rows<Parallel, YccK<&YccKernels::toYcc16uAC4>>), IN_C(Zor16u, 4, StepIn::Elements), OUT_C(Zor16u, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriYCCToRGB_16u_C3R, (ModelChecks), (Rows<Parallel, YccK<&YccKernels::toRgb16uC3>>), IN_C(Zor16u, 3, StepIn::Elements), OUT_C(Zor16u, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriYCCToRGB_16u_AC4R, (ModelChecks), (Rows<Parallel, YccK<&YccKernels::toRgb16uAC4>>), IN_C(Zor16u, 4, StepIn::Elements), OUT_C(Zor16u, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToYCC_16s_C3R, (ModelChecks), (Rows<Parallel, YccK<&YccKernels::toYcc16sC3>>), IN_C(Zor16s, 3, StepIn::Elements), OUT_C(Zor16s, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToYCC_16s_AC4R, (ModelChecks), (Rows<Parallel, YccK<&YccKernels::toYcc16sAC4>>), IN_C(Zor16s, 4, StepIn::Elements), OUT_C(Zor16s, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriYCCToRGB_16s_C3R, (ModelChecks), (Rows<Parallel, YccK<&YccKernels::toRgb16sC3>>), IN_C(Zor16s, 3, StepIn::Elements), OUT_C(Zor16s, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriYCCToRGB_16s_AC4R, (ModelChecks), (Rows<Parallel, YccK<&YccKernels::toRgb16sAC4>>), IN_C(Zor16s, 4, StepIn::Elements), OUT_C(Zor16s, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToYCC_32f_C3R, (ModelChecks), (Rows<Parallel, YccK<&YccKernels::toYcc32fC3>>), IN_C(Zor32f, 3, StepIn::Elements), OUT_C(Zor32f, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToYCC_32f_AC4R, (ModelChecks), (Rows<Parallel, YccK<&YccKernels::toYcc32fAC4>>), IN_C(Zor32f, 4, StepIn::Elements), OUT_C(Zor32f, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriYCCToRGB_32f_C3R, (ModelChecks), (Rows<Parallel, YccK<&YccKernels::toRgb32fC3>>), IN_C(Zor32f, 3, StepIn::Elements), OUT_C(Zor32f, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriYCCToRGB_32f_AC4R, (ModelChecks), (Rows<Parallel, YccK<&YccKernels::toRgb32fAC4>>), IN_C(Zor32f, 4, StepIn::Elements), OUT_C(Zor32f, 4, StepIn::Elements), ROI)
