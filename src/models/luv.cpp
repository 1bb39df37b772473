// RGB <-> CIE L*u*v* for 8u, 16u, 16s and 32f, in C3 and AC4 layouts, rows in
// parallel. The 32f forward members take their steps in bytes as given; the
// other wide members in whole samples.
#include "models/luv_kernels.h"

using namespace zor;

ZOR_EXPORT(zoriRGBToLUV_8u_C3R, (ModelChecks), (Rows<Parallel, LuvK<&LuvKernels::toLuv8C3>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriRGBToLUV_8u_AC4R, (ModelChecks), (Rows<Parallel, LuvK<&LuvKernels::toLuv8AC4>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriLUVToRGB_8u_C3R, (ModelChecks), (Rows<Parallel, LuvK<&LuvKernels::toRgb8C3>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriLUVToRGB_8u_AC4R, (ModelChecks), (Rows<Parallel, LuvK<&LuvKernels::toRgb8AC4>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriRGBToLUV_16u_C3R, (ModelChecks), (Rows<Parallel, LuvK<&LuvKernels::toLuv16uC3>>), IN_C(Zor16u, 3, StepIn::Elements), OUT_C(Zor16u, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToLUV_16u_AC4R, (ModelChecks), (Rows<Parallel, LuvK<&LuvKernels::toLuv16uAC4>>), IN_C(Zor16u, 4, StepIn::Elements), OUT_C(Zor16u, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriLUVToRGB_16u_C3R, (ModelChecks), (Rows<Parallel, LuvK<&LuvKernels::toRgb16uC3>>), IN_C(Zor16u, 3, StepIn::Elements), OUT_C(Zor16u, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriLUVToRGB_16u_AC4R, (ModelChecks), (Rows<Parallel, LuvK<&LuvKernels::toRgb16uAC4>>), IN_C(Zor16u, 4, StepIn::Elements), OUT_C(Zor16u, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToLUV_16s_C3R, (ModelChecks), (Rows<Parallel, LuvK<&LuvKernels::toLuv16sC3>>), IN_C(Zor16s, 3, StepIn::Elements), OUT_C(Zor16s, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToLUV_16s_AC4R, (ModelChecks), (Rows<Parallel, LuvK<&LuvKernels::toLuv16sAC4>>), IN_C(Zor16s, 4, StepIn::Elements), OUT_C(Zor16s, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriLUVToRGB_16s_C3R, (ModelChecks), (Rows<Parallel, LuvK<&LuvKernels::toRgb16sC3>>), IN_C(Zor16s, 3, StepIn::Elements), OUT_C(Zor16s, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriLUVToRGB_16s_AC4R, (ModelChecks), (Rows<Parallel, LuvK<&LuvKernels::toRgb16sAC4>>), IN_C(Zor16s, 4, StepIn::Elements), OUT_C(Zor16s, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToLUV_32f_C3R, (ModelChecks), (Rows<Parallel, LuvK<&LuvKernels::toLuv32fC3>>), IN_C(Zor32f, 3), OUT_C(Zor32f, 3), ROI)
ZOR_EXPORT(zoriRGBToLUV_32f_AC4R, (ModelChecks), (Rows<Parallel, LuvK<&LuvKernels::toLuv32fAC4>>), IN_C(Zor32f, 4), OUT_C(Zor32f, 4), ROI)
ZOR_EXPORT(zoriLUVToRGB_32f_C3R, (ModelChecks), (Rows<Parallel, LuvK<&LuvKernels::toRgb32fC3>>), IN_C(Zor32f, 3, StepIn::Elements), OUT_C(Zor32f, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriLUVToRGB_32f_AC4R, (ModelChecks), (Rows<Parallel, LuvK<&LuvKernels::toRgb32fAC4>>), IN_C(Zor32f, 4, StepIn::Elements), OUT_C(Zor32f, 4, StepIn::Elements), ROI)
