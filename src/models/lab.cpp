// BGR <-> CIE L*a*b*, interleaved 8-bit BGR with 8u or 16u Lab codes, rows in
// parallel. A 16u side takes its byte step in whole samples.
#include "models/lab_kernels.h"

using namespace zor;

ZOR_EXPORT(zoriBGRToLab_8u_C3R, (ModelChecks), (Rows<Parallel, LabK<&LabKernels::bgrToLab8u>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriBGRToLab_8u16u_C3R, (ModelChecks), (Rows<Parallel, LabK<&LabKernels::bgrToLab16u>>), IN_C(Zor8u, 3), OUT_C(Zor16u, 3, StepIn::Elements), ROI)
ZOR_EXPORT(zoriLabToBGR_8u_C3R, (ModelChecks), (Rows<Parallel, LabK<&LabKernels::labToBgr8u>>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriLabToBGR_16u8u_C3R, (ModelChecks), (Rows<Parallel, LabK<&LabKernels::labToBgr16u>>), IN_C(Zor16u, 3, StepIn::Elements), OUT_C(Zor8u, 3), ROI)
