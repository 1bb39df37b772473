// RGB <-> CIE XYZ for 8u (16.16 fixed point), 16u, 16s and 32f (float), in
// C3 and AC4 layouts, rows in parallel.
#include "models/xyz_kernels.h"

using namespace zor;

ZOR_EXPORT(zoriRGBToXYZ_8u_C3R, (ModelChecks), (ParallelRows<&rgbToXyz8<3>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriRGBToXYZ_8u_AC4R, (ModelChecks), (ParallelRows<&rgbToXyz8<4>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriXYZToRGB_8u_C3R, (ModelChecks), (ParallelRows<&xyzToRgb8<3>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriXYZToRGB_8u_AC4R, (ModelChecks), (ParallelRows<&xyzToRgb8<4>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriRGBToXYZ_16u_C3R, (ModelChecks), (ParallelRows<&rgbToXyz<Zor16u, 3>>), IN_C(Zor16u, 3, StepIn::Elements), OUT_C(Zor16u, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToXYZ_16u_AC4R, (ModelChecks), (ParallelRows<&rgbToXyz<Zor16u, 4>>), IN_C(Zor16u, 4, StepIn::Elements), OUT_C(Zor16u, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriXYZToRGB_16u_C3R, (ModelChecks), (ParallelRows<&xyzToRgb<Zor16u, 3>>), IN_C(Zor16u, 3, StepIn::Elements), OUT_C(Zor16u, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriXYZToRGB_16u_AC4R, (ModelChecks), (ParallelRows<&xyzToRgb<Zor16u, 4>>), IN_C(Zor16u, 4, StepIn::Elements), OUT_C(Zor16u, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToXYZ_16s_C3R, (ModelChecks), (ParallelRows<&rgbToXyz<Zor16s, 3>>), IN_C(Zor16s, 3, StepIn::Elements), OUT_C(Zor16s, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToXYZ_16s_AC4R, (ModelChecks), (ParallelRows<&rgbToXyz<Zor16s, 4>>), IN_C(Zor16s, 4, StepIn::Elements), OUT_C(Zor16s, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriXYZToRGB_16s_C3R, (ModelChecks), (ParallelRows<&xyzToRgb<Zor16s, 3>>), IN_C(Zor16s, 3, StepIn::Elements), OUT_C(Zor16s, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriXYZToRGB_16s_AC4R, (ModelChecks), (ParallelRows<&xyzToRgb<Zor16s, 4>>), IN_C(Zor16s, 4, StepIn::Elements), OUT_C(Zor16s, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToXYZ_32f_C3R, (ModelChecks), (ParallelRows<&rgbToXyz<Zor32f, 3>>), IN_C(Zor32f, 3, StepIn::Elements), OUT_C(Zor32f, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToXYZ_32f_AC4R, (ModelChecks), (ParallelRows<&rgbToXyz<Zor32f, 4>>), IN_C(Zor32f, 4, StepIn::Elements), OUT_C(Zor32f, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriXYZToRGB_32f_C3R, (ModelChecks), (ParallelRows<&xyzToRgb<Zor32f, 3>>), IN_C(Zor32f, 3, StepIn::Elements), OUT_C(Zor32f, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriXYZToRGB_32f_AC4R, (ModelChecks), (ParallelRows<&xyzToRgb<Zor32f, 4>>), IN_C(Zor32f, 4, StepIn::Elements), OUT_C(Zor32f, 4, StepIn::Elements), ROI)
