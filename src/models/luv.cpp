// RGB <-> CIE L*u*v* for 8u, 16u, 16s and 32f, in C3 and AC4 layouts, rows in
// parallel. The 32f forward members take their steps in bytes as given; the
// other wide members in whole samples.
#include "models/luv_kernels.h"

using namespace zor;

ZOR_EXPORT(zoriRGBToLUV_8u_C3R, (ModelChecks), (ParallelRows<&rgbToLuv8<3>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriRGBToLUV_8u_AC4R, (ModelChecks), (ParallelRows<&rgbToLuv8<4>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriLUVToRGB_8u_C3R, (ModelChecks), (ParallelRows<&luvToRgbInt<Zor8u, 3>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriLUVToRGB_8u_AC4R, (ModelChecks), (ParallelRows<&luvToRgbInt<Zor8u, 4>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriRGBToLUV_16u_C3R, (ModelChecks), (ParallelRows<&rgbToLuv<Zor16u, 3>>), IN_C(Zor16u, 3, StepIn::Elements), OUT_C(Zor16u, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToLUV_16u_AC4R, (ModelChecks), (ParallelRows<&rgbToLuv<Zor16u, 4>>), IN_C(Zor16u, 4, StepIn::Elements), OUT_C(Zor16u, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriLUVToRGB_16u_C3R, (ModelChecks), (ParallelRows<&luvToRgbInt<Zor16u, 3>>), IN_C(Zor16u, 3, StepIn::Elements), OUT_C(Zor16u, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriLUVToRGB_16u_AC4R, (ModelChecks), (ParallelRows<&luvToRgbInt<Zor16u, 4>>), IN_C(Zor16u, 4, StepIn::Elements), OUT_C(Zor16u, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToLUV_16s_C3R, (ModelChecks), (ParallelRows<&rgbToLuv<Zor16s, 3>>), IN_C(Zor16s, 3, StepIn::Elements), OUT_C(Zor16s, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToLUV_16s_AC4R, (ModelChecks), (ParallelRows<&rgbToLuv<Zor16s, 4>>), IN_C(Zor16s, 4, StepIn::Elements), OUT_C(Zor16s, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriLUVToRGB_16s_C3R, (ModelChecks), (ParallelRows<&luvToRgbInt<Zor16s, 3>>), IN_C(Zor16s, 3, StepIn::Elements), OUT_C(Zor16s, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriLUVToRGB_16s_AC4R, (ModelChecks), (ParallelRows<&luvToRgbInt<Zor16s, 4>>), IN_C(Zor16s, 4, StepIn::Elements), OUT_C(Zor16s, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToLUV_32f_C3R, (ModelChecks), (ParallelRows<&rgbToLuv<Zor32f, 3>>), IN_C(Zor32f, 3), OUT_C(Zor32f, 3), ROI)
ZOR_EXPORT(zoriRGBToLUV_32f_AC4R, (ModelChecks), (ParallelRows<&rgbToLuv<Zor32f, 4>>), IN_C(Zor32f, 4), OUT_C(Zor32f, 4), ROI)
ZOR_EXPORT(zoriLUVToRGB_32f_C3R, (ModelChecks), (ParallelRows<&luvToRgb32<3>>), IN_C(Zor32f, 3, StepIn::Elements), OUT_C(Zor32f, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriLUVToRGB_32f_AC4R, (ModelChecks), (ParallelRows<&luvToRgb32<4>>), IN_C(Zor32f, 4, StepIn::Elements), OUT_C(Zor32f, 4, StepIn::Elements), ROI)
