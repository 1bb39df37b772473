// RGB and HSV, 8u and 16u, interleaved C3 and AC4, rows in parallel.
#include "models/hsv_kernels.h"

using namespace zor;

ZOR_EXPORT(zoriRGBToHSV_8u_C3R, (ModelChecks), (Rows<Parallel, HsvK<&HsvKernels::toHsv8C3>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriRGBToHSV_8u_AC4R, (ModelChecks), (Rows<Parallel, HsvK<&HsvKernels::toHsv8AC4>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriHSVToRGB_8u_C3R, (ModelChecks), (Rows<Parallel, HsvK<&HsvKernels::toRgb8C3>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriHSVToRGB_8u_AC4R, (ModelChecks), (Rows<Parallel, HsvK<&HsvKernels::toRgb8AC4>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriRGBToHSV_16u_C3R, (ModelChecks), (Rows<Parallel, HsvK<&HsvKernels::toHsv16C3>>), IN_C(Zor16u, 3, StepIn::Elements), OUT_C(Zor16u, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToHSV_16u_AC4R, (ModelChecks), (Rows<Parallel, HsvK<&HsvKernels::toHsv16AC4>>), IN_C(Zor16u, 4, StepIn::Elements), OUT_C(Zor16u, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriHSVToRGB_16u_C3R, (ModelChecks), (Rows<Parallel, HsvK<&HsvKernels::toRgb16C3>>), IN_C(Zor16u, 3, StepIn::Elements), OUT_C(Zor16u, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriHSVToRGB_16u_AC4R, (ModelChecks), (Rows<Parallel, HsvK<&HsvKernels::toRgb16AC4>>), IN_C(Zor16u, 4, StepIn::Elements), OUT_C(Zor16u, 4, StepIn::Elements), ROI)
