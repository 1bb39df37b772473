// RGB <-> PhotoYCC for 8u (fixed point), 16u, 16s and 32f (float), in C3 and
// AC4 layouts, rows in parallel.
#include "models/ycc_kernels.h"

using namespace zor;

ZOR_EXPORT(zoriRGBToYCC_8u_C3R, (ModelChecks), (ParallelRows<&rgbToYcc8<3>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriRGBToYCC_8u_AC4R, (ModelChecks), (ParallelRows<&rgbToYcc8<4>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriYCCToRGB_8u_C3R, (ModelChecks), (ParallelRows<&yccToRgb8<3>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriYCCToRGB_8u_AC4R, (ModelChecks), (ParallelRows<&yccToRgb8<4>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriRGBToYCC_16u_C3R, (ModelChecks), (ParallelRows<&rgbToYcc16u<3>>), IN_C(Zor16u, 3, StepIn::Elements), OUT_C(Zor16u, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToYCC_16u_AC4R, (ModelChecks), (ParallelRows<&rgbToYcc16u<4>>), IN_C(Zor16u, 4, StepIn::Elements), OUT_C(Zor16u, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriYCCToRGB_16u_C3R, (ModelChecks), (ParallelRows<&yccToRgb<Zor16u, 3>>), IN_C(Zor16u, 3, StepIn::Elements), OUT_C(Zor16u, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriYCCToRGB_16u_AC4R, (ModelChecks), (ParallelRows<&yccToRgb<Zor16u, 4>>), IN_C(Zor16u, 4, StepIn::Elements), OUT_C(Zor16u, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToYCC_16s_C3R, (ModelChecks), (ParallelRows<&rgbToYccModel<Zor16s, 3>>), IN_C(Zor16s, 3, StepIn::Elements), OUT_C(Zor16s, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToYCC_16s_AC4R, (ModelChecks), (ParallelRows<&rgbToYccModel<Zor16s, 4>>), IN_C(Zor16s, 4, StepIn::Elements), OUT_C(Zor16s, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriYCCToRGB_16s_C3R, (ModelChecks), (ParallelRows<&yccToRgb<Zor16s, 3>>), IN_C(Zor16s, 3, StepIn::Elements), OUT_C(Zor16s, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriYCCToRGB_16s_AC4R, (ModelChecks), (ParallelRows<&yccToRgb<Zor16s, 4>>), IN_C(Zor16s, 4, StepIn::Elements), OUT_C(Zor16s, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToYCC_32f_C3R, (ModelChecks), (ParallelRows<&rgbToYccModel<Zor32f, 3>>), IN_C(Zor32f, 3, StepIn::Elements), OUT_C(Zor32f, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToYCC_32f_AC4R, (ModelChecks), (ParallelRows<&rgbToYccModel<Zor32f, 4>>), IN_C(Zor32f, 4, StepIn::Elements), OUT_C(Zor32f, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriYCCToRGB_32f_C3R, (ModelChecks), (ParallelRows<&yccToRgb<Zor32f, 3>>), IN_C(Zor32f, 3, StepIn::Elements), OUT_C(Zor32f, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriYCCToRGB_32f_AC4R, (ModelChecks), (ParallelRows<&yccToRgb<Zor32f, 4>>), IN_C(Zor32f, 4, StepIn::Elements), OUT_C(Zor32f, 4, StepIn::Elements), ROI)
