// YCoCg: the export table. Serial rows. Steps are not validated and there is
// no size check: an empty region converts nothing and succeeds.
#include "core/export.h"
#include "ycocg/ycocg_kernels.h"

namespace zor {
namespace {

// The plane array and the interleaved pointer, then the planes Y, Co, Cg.
using YCoCgChecks = Checks<check::Null<kOuter>, check::Null<kPlanes>>;

// Every pixel stands alone, so contiguous images go as one long row.
template <auto Member>
using Run = Rows<Serial, YCoCgK<Member>, Fuse<1>>;
using K = YCoCgKernels;

}  // namespace
}  // namespace zor

using namespace zor;

ZOR_EXPORT(zoriBGRToYCoCg_8u16s_C3P3R, (YCoCgChecks), (Run<&K::fwdC3u8s16>), IN_C(Zor8u, 3), OUT_P3(Zor16s), ROI)
ZOR_EXPORT(zoriBGRToYCoCg_8u16s_C4P3R, (YCoCgChecks), (Run<&K::fwdC4u8s16>), IN_C(Zor8u, 4), OUT_P3(Zor16s), ROI)
ZOR_EXPORT(zoriSBGRToYCoCg_16s_C3P3R, (YCoCgChecks), (Run<&K::fwdC3s16s16>), IN_C(Zor16s, 3), OUT_P3(Zor16s), ROI)
ZOR_EXPORT(zoriSBGRToYCoCg_16s_C4P3R, (YCoCgChecks), (Run<&K::fwdC4s16s16>), IN_C(Zor16s, 4), OUT_P3(Zor16s), ROI)
ZOR_EXPORT(zoriSBGRToYCoCg_16s32s_C3P3R, (YCoCgChecks), (Run<&K::fwdC3s16s32>), IN_C(Zor16s, 3), OUT_P3(Zor32s), ROI)
ZOR_EXPORT(zoriSBGRToYCoCg_16s32s_C4P3R, (YCoCgChecks), (Run<&K::fwdC4s16s32>), IN_C(Zor16s, 4), OUT_P3(Zor32s), ROI)
ZOR_EXPORT(zoriYCoCgToBGR_16s8u_P3C3R, (YCoCgChecks), (Run<&K::invs16C3u8>), IN_P3(Zor16s), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriYCoCgToBGR_16s8u_P3C4R, (YCoCgChecks), (Run<&K::invs16C4u8>), IN_P3(Zor16s), OUT_C(Zor8u, 4), ROI, ARG(Zor8u, aval))
ZOR_EXPORT(zoriYCoCgToSBGR_16s_P3C3R, (YCoCgChecks), (Run<&K::invs16C3s16>), IN_P3(Zor16s), OUT_C(Zor16s, 3), ROI)
ZOR_EXPORT(zoriYCoCgToSBGR_16s_P3C4R, (YCoCgChecks), (Run<&K::invs16C4s16>), IN_P3(Zor16s), OUT_C(Zor16s, 4), ROI, ARG(Zor16s, aval))
ZOR_EXPORT(zoriYCoCgToSBGR_32s16s_P3C3R, (YCoCgChecks), (Run<&K::invs32C3s16>), IN_P3(Zor32s), OUT_C(Zor16s, 3), ROI)
ZOR_EXPORT(zoriYCoCgToSBGR_32s16s_P3C4R, (YCoCgChecks), (Run<&K::invs32C4s16>), IN_P3(Zor32s), OUT_C(Zor16s, 4), ROI, ARG(Zor16s, aval))
ZOR_EXPORT(zoriBGRToYCoCg_Rev_8u16s_C3P3R, (YCoCgChecks), (Run<&K::fwdRevC3u8s16>), IN_C(Zor8u, 3), OUT_P3(Zor16s), ROI)
ZOR_EXPORT(zoriBGRToYCoCg_Rev_8u16s_C4P3R, (YCoCgChecks), (Run<&K::fwdRevC4u8s16>), IN_C(Zor8u, 4), OUT_P3(Zor16s), ROI)
ZOR_EXPORT(zoriSBGRToYCoCg_Rev_16s_C3P3R, (YCoCgChecks), (Run<&K::fwdRevC3s16s16>), IN_C(Zor16s, 3), OUT_P3(Zor16s), ROI)
ZOR_EXPORT(zoriSBGRToYCoCg_Rev_16s_C4P3R, (YCoCgChecks), (Run<&K::fwdRevC4s16s16>), IN_C(Zor16s, 4), OUT_P3(Zor16s), ROI)
ZOR_EXPORT(zoriSBGRToYCoCg_Rev_16s32s_C3P3R, (YCoCgChecks), (Run<&K::fwdRevC3s16s32>), IN_C(Zor16s, 3), OUT_P3(Zor32s), ROI)
ZOR_EXPORT(zoriSBGRToYCoCg_Rev_16s32s_C4P3R, (YCoCgChecks), (Run<&K::fwdRevC4s16s32>), IN_C(Zor16s, 4), OUT_P3(Zor32s), ROI)
ZOR_EXPORT(zoriYCoCgToBGR_Rev_16s8u_P3C3R, (YCoCgChecks), (Run<&K::invRevs16C3u8>), IN_P3(Zor16s), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriYCoCgToBGR_Rev_16s8u_P3C4R, (YCoCgChecks), (Run<&K::invRevs16C4u8>), IN_P3(Zor16s), OUT_C(Zor8u, 4), ROI, ARG(Zor8u, aval))
ZOR_EXPORT(zoriYCoCgToSBGR_Rev_16s_P3C3R, (YCoCgChecks), (Run<&K::invRevs16C3s16>), IN_P3(Zor16s), OUT_C(Zor16s, 3), ROI)
ZOR_EXPORT(zoriYCoCgToSBGR_Rev_16s_P3C4R, (YCoCgChecks), (Run<&K::invRevs16C4s16>), IN_P3(Zor16s), OUT_C(Zor16s, 4), ROI, ARG(Zor16s, aval))
ZOR_EXPORT(zoriYCoCgToSBGR_Rev_32s16s_P3C3R, (YCoCgChecks), (Run<&K::invRevs32C3s16>), IN_P3(Zor32s), OUT_C(Zor16s, 3), ROI)
ZOR_EXPORT(zoriYCoCgToSBGR_Rev_32s16s_P3C4R, (YCoCgChecks), (Run<&K::invRevs32C4s16>), IN_P3(Zor32s), OUT_C(Zor16s, 4), ROI, ARG(Zor16s, aval))
