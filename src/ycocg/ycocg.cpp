// YCoCg: the export table. Serial rows. Steps are not validated and there is
// no size check: an empty region converts nothing and succeeds.
#include "core/export.h"
#include "ycocg/ycocg_kernels.h"

namespace zor {
namespace {

// The plane array and the interleaved pointer, then the planes Y, Co, Cg.
using YCoCgChecks = Checks<check::Null<kOuter>, check::Null<kPlanes>>;

// Every pixel stands alone, so contiguous images go as one long row.
template <bool Rev, int N, class S, class P>
using Forward = Rows<Serial, ScalarKernel<&innerBGRToYCoCg<Rev, N, S, P>>, Fuse<1>>;
template <bool Rev, int N, class P, class D, class... Fill>
using Inverse = Rows<Serial, ScalarKernel<&innerYCoCgToBGR<Rev, N, P, D, Fill...>>, Fuse<1>>;

}  // namespace
}  // namespace zor

using namespace zor;

ZOR_EXPORT(zoriBGRToYCoCg_8u16s_C3P3R, (YCoCgChecks), (Forward<false, 3, Zor8u, Zor16s>), IN_C(Zor8u, 3), OUT_P3(Zor16s), ROI)
ZOR_EXPORT(zoriBGRToYCoCg_8u16s_C4P3R, (YCoCgChecks), (Forward<false, 4, Zor8u, Zor16s>), IN_C(Zor8u, 4), OUT_P3(Zor16s), ROI)
ZOR_EXPORT(zoriSBGRToYCoCg_16s_C3P3R, (YCoCgChecks), (Forward<false, 3, Zor16s, Zor16s>), IN_C(Zor16s, 3), OUT_P3(Zor16s), ROI)
ZOR_EXPORT(zoriSBGRToYCoCg_16s_C4P3R, (YCoCgChecks), (Forward<false, 4, Zor16s, Zor16s>), IN_C(Zor16s, 4), OUT_P3(Zor16s), ROI)
ZOR_EXPORT(zoriSBGRToYCoCg_16s32s_C3P3R, (YCoCgChecks), (Forward<false, 3, Zor16s, Zor32s>), IN_C(Zor16s, 3), OUT_P3(Zor32s), ROI)
ZOR_EXPORT(zoriSBGRToYCoCg_16s32s_C4P3R, (YCoCgChecks), (Forward<false, 4, Zor16s, Zor32s>), IN_C(Zor16s, 4), OUT_P3(Zor32s), ROI)
ZOR_EXPORT(zoriYCoCgToBGR_16s8u_P3C3R, (YCoCgChecks), (Inverse<false, 3, Zor16s, Zor8u>), IN_P3(Zor16s), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriYCoCgToBGR_16s8u_P3C4R, (YCoCgChecks), (Inverse<false, 4, Zor16s, Zor8u, Zor8u>), IN_P3(Zor16s), OUT_C(Zor8u, 4), ROI, ARG(Zor8u, aval))
ZOR_EXPORT(zoriYCoCgToSBGR_16s_P3C3R, (YCoCgChecks), (Inverse<false, 3, Zor16s, Zor16s>), IN_P3(Zor16s), OUT_C(Zor16s, 3), ROI)
ZOR_EXPORT(zoriYCoCgToSBGR_16s_P3C4R, (YCoCgChecks), (Inverse<false, 4, Zor16s, Zor16s, Zor16s>), IN_P3(Zor16s), OUT_C(Zor16s, 4), ROI, ARG(Zor16s, aval))
ZOR_EXPORT(zoriYCoCgToSBGR_32s16s_P3C3R, (YCoCgChecks), (Inverse<false, 3, Zor32s, Zor16s>), IN_P3(Zor32s), OUT_C(Zor16s, 3), ROI)
ZOR_EXPORT(zoriYCoCgToSBGR_32s16s_P3C4R, (YCoCgChecks), (Inverse<false, 4, Zor32s, Zor16s, Zor16s>), IN_P3(Zor32s), OUT_C(Zor16s, 4), ROI, ARG(Zor16s, aval))
ZOR_EXPORT(zoriBGRToYCoCg_Rev_8u16s_C3P3R, (YCoCgChecks), (Forward<true, 3, Zor8u, Zor16s>), IN_C(Zor8u, 3), OUT_P3(Zor16s), ROI)
ZOR_EXPORT(zoriBGRToYCoCg_Rev_8u16s_C4P3R, (YCoCgChecks), (Forward<true, 4, Zor8u, Zor16s>), IN_C(Zor8u, 4), OUT_P3(Zor16s), ROI)
ZOR_EXPORT(zoriSBGRToYCoCg_Rev_16s_C3P3R, (YCoCgChecks), (Forward<true, 3, Zor16s, Zor16s>), IN_C(Zor16s, 3), OUT_P3(Zor16s), ROI)
ZOR_EXPORT(zoriSBGRToYCoCg_Rev_16s_C4P3R, (YCoCgChecks), (Forward<true, 4, Zor16s, Zor16s>), IN_C(Zor16s, 4), OUT_P3(Zor16s), ROI)
ZOR_EXPORT(zoriSBGRToYCoCg_Rev_16s32s_C3P3R, (YCoCgChecks), (Forward<true, 3, Zor16s, Zor32s>), IN_C(Zor16s, 3), OUT_P3(Zor32s), ROI)
ZOR_EXPORT(zoriSBGRToYCoCg_Rev_16s32s_C4P3R, (YCoCgChecks), (Forward<true, 4, Zor16s, Zor32s>), IN_C(Zor16s, 4), OUT_P3(Zor32s), ROI)
ZOR_EXPORT(zoriYCoCgToBGR_Rev_16s8u_P3C3R, (YCoCgChecks), (Inverse<true, 3, Zor16s, Zor8u>), IN_P3(Zor16s), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriYCoCgToBGR_Rev_16s8u_P3C4R, (YCoCgChecks), (Inverse<true, 4, Zor16s, Zor8u, Zor8u>), IN_P3(Zor16s), OUT_C(Zor8u, 4), ROI, ARG(Zor8u, aval))
ZOR_EXPORT(zoriYCoCgToSBGR_Rev_16s_P3C3R, (YCoCgChecks), (Inverse<true, 3, Zor16s, Zor16s>), IN_P3(Zor16s), OUT_C(Zor16s, 3), ROI)
ZOR_EXPORT(zoriYCoCgToSBGR_Rev_16s_P3C4R, (YCoCgChecks), (Inverse<true, 4, Zor16s, Zor16s, Zor16s>), IN_P3(Zor16s), OUT_C(Zor16s, 4), ROI, ARG(Zor16s, aval))
ZOR_EXPORT(zoriYCoCgToSBGR_Rev_32s16s_P3C3R, (YCoCgChecks), (Inverse<true, 3, Zor32s, Zor16s>), IN_P3(Zor32s), OUT_C(Zor16s, 3), ROI)
ZOR_EXPORT(zoriYCoCgToSBGR_Rev_32s16s_P3C4R, (YCoCgChecks), (Inverse<true, 4, Zor32s, Zor16s, Zor16s>), IN_P3(Zor32s), OUT_C(Zor16s, 4), ROI, ARG(Zor16s, aval))
