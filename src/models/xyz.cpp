// RGB <-> CIE XYZ for 8u (16.16 fixed point), 16u, 16s and 32f (float), in
// C3 and AC4 layouts, rows in parallel.
#include "models/xyz_kernels.h"

using namespace zor;

ZOR_EXPORT(zoriRGBToXYZ_8u_C3R, (ModelChecks), (Rows<Parallel, XyzK<&XyzKernels::toXyz8C3>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriRGBToXYZ_8u_AC4R, (ModelChecks), (Rows<Parallel, XyzK<&XyzKernels::toXyz8AC4>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriXYZToRGB_8u_C3R, (ModelChecks), (Rows<Parallel, XyzK<&XyzKernels::toRgb8C3>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriXYZToRGB_8u_AC4R, (ModelChecks), (Rows<Parallel, XyzK<&XyzKernels::toRgb8AC4>>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriRGBToXYZ_16u_C3R, (ModelChecks), (Rows<Parallel, XyzK<&XyzKernels::toXyz16uC3>>), IN_C(Zor16u, 3, StepIn::Elements), OUT_C(Zor16u, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToXYZ_16u_AC4R, (ModelChecks), (Rows<Parallel, XyzK<&XyzKernels::toXyz16uAC4>>), IN_C(Zor16u, 4, StepIn::Elements), OUT_C(Zor16u, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriXYZToRGB_16u_C3R, (ModelChecks), (Rows<Parallel, XyzK<&XyzKernels::toRgb16uC3>>), IN_C(Zor16u, 3, StepIn::Elements), OUT_C(Zor16u, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriXYZToRGB_16u_AC4R, (ModelChecks), (Rows<Parallel, XyzK<&XyzKernels::toRgb16uAC4>>), IN_C(Zor16u, 4, StepIn::Elements), OUT_C(Zor16u, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToXYZ_16s_C3R, (ModelChecks), (Rows<Parallel, XyzK<&XyzKernels::toXyz16sC3>>), IN_C(Zor16s, 3, StepIn::Elements), OUT_C(Zor16s, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToXYZ_16s_AC4R, (ModelChecks), (Rows<Parallel, XyzK<&XyzKernels::toXyz16sAC4>>), IN_C(Zor16s, 4, StepIn::Elements), OUT_C(Zor16s, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriXYZToRGB_16s_C3R, (ModelChecks), (Rows<Parallel, XyzK<&XyzKernels::toRgb16sC3>>), IN_C(Zor16s, 3, StepIn::Elements), OUT_C(Zor16s, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriXYZToRGB_16s_AC4R, (ModelChecks), (Rows<Parallel, XyzK<&XyzKernels::toRgb16sAC4>>), IN_C(Zor16s, 4, StepIn::Elements), OUT_C(Zor16s, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToXYZ_32f_C3R, (ModelChecks), (Rows<Parallel, XyzK<&XyzKernels::toXyz32fC3>>), IN_C(Zor32f, 3, StepIn::Elements), OUT_C(Zor32f, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriRGBToXYZ_32f_AC4R, (ModelChecks), (Rows<Parallel, XyzK<&XyzKernels::toXyz32fAC4>>), IN_C(Zor32f, 4, StepIn::Elements), OUT_C(Zor32f, 4, StepIn::Elements), ROI)
ZOR_EXPORT(zoriXYZToRGB_32f_C3R, (ModelChecks), (Rows<Parallel, XyzK<&XyzKernels::toRgb32fC3>>), IN_C(Zor32f, 3, StepIn::Elements), OUT_C(Zor32f, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriXYZToRGB_32f_AC4R, (ModelChecks), (Rows<Parallel, XyzK<&XyzKernels::toRgb32fAC4>>), IN_C(Zor32f, 4, StepIn::Elements), OUT_C(Zor32f, 4, StepIn::Elements), ROI)
