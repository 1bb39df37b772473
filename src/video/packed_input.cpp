// Packed 16-bit BGR565 / BGR555 to planar subsampled YCbCr, serial rows: the
// 8-bit group encoders on fields brought to the 8-bit scale by a shift only.
#include "core/export.h"
#include "video/encode_kernels.h"

namespace zor {
namespace {
using K = EncodeKernels;
}  // namespace
}  // namespace zor

using namespace zor;

// Source words: the byte step is rounded down to whole words.
#define ZOR_DECL_IN_WORDS const Zor16u *pSrc, int srcStep
#define ZOR_EXPR_IN_WORDS ::zor::C<const Zor16u, 1, ::zor::StepIn::Elements>{pSrc, srcStep}

// 4:2:2: an odd last pixel gets its Y only.
ZOR_EXPORT(zoriBGR565ToYCbCr422_16u8u_C3P3R, (PlanesFirstChecks<2, 1>), (Run422<&K::bgr565To422>), IN_WORDS, OUT_P3S(Zor8u, 0, 2), ROI)
ZOR_EXPORT(zoriBGR555ToYCbCr422_16u8u_C3P3R, (PlanesFirstChecks<2, 1>), (Run422<&K::bgr555To422>), IN_WORDS, OUT_P3S(Zor8u, 0, 2), ROI)

// 4:2:0: an odd size converts the whole blocks and, unlike the 8-bit members,
// does not warn.
ZOR_EXPORT(zoriBGR565ToYCbCr420_16u8u_C3P3R, (PlanesFirstChecks<2, 2>), (Run420<&K::bgr565To420, false>), IN_WORDS, OUT_P3S(Zor8u, 1, 2), ROI)
ZOR_EXPORT(zoriBGR555ToYCbCr420_16u8u_C3P3R, (PlanesFirstChecks<2, 2>), (Run420<&K::bgr555To420, false>), IN_WORDS, OUT_P3S(Zor8u, 1, 2), ROI)
ZOR_EXPORT(zoriBGR565ToYCrCb420_16u8u_C3P3R, (PlanesFirstChecks<2, 2>), (Run420<&K::bgr565ToYCrCb420, false>), IN_WORDS, OUT_P3S(Zor8u, 1, 2), ROI)
ZOR_EXPORT(zoriBGR555ToYCrCb420_16u8u_C3P3R, (PlanesFirstChecks<2, 2>), (Run420<&K::bgr555ToYCrCb420, false>), IN_WORDS, OUT_P3S(Zor8u, 1, 2), ROI)

// 4:1:1: warns unless the width is a multiple of 4.
ZOR_EXPORT(zoriBGR565ToYCbCr411_16u8u_C3P3R, (PlanesFirstChecks<4, 1>), (Run411<&K::bgr565To411>), IN_WORDS, OUT_P3S(Zor8u, 0, 4), ROI)
ZOR_EXPORT(zoriBGR555ToYCbCr411_16u8u_C3P3R, (PlanesFirstChecks<4, 1>), (Run411<&K::bgr555To411>), IN_WORDS, OUT_P3S(Zor8u, 0, 4), ROI)
