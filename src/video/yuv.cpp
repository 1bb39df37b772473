// YUV and RGB at 4:4:4, 4:2:2 and 4:2:0, 8-bit, serial rows.
#include "core/export.h"
#include "video/yuv_kernels.h"

namespace zor {
namespace {

template <auto M, class... Opt>
using Run = Rows<Serial, YuvK<M>, Opt...>;

// Every pixel (4:4:4) or every pair (4:2:2, whose chroma rows are then
// (width + 1) / 2 = width / 2 wide) stands alone, so contiguous images of an
// even width go as one long row.
template <auto M>
using Run444 = Run<M, Fuse<1>>;
template <auto M>
using Run422 = Run<M, Fuse<2>>;

// 4:2:0 converts whole 2 x 2 blocks, a pair of rows at a time, and warns when
// a column or row is left.
using Blocks = WholeGroups<2, 2, true>;
template <auto M>
using Encode420 = Run<M, Pairs, Blocks>;
template <auto M>
using Decode420 = Run<M, Pairs, Blocks>;

// The BGR decoder needs one whole block.
using BgrChecks = Checks<check::Null<kOuter | kStepArray>, check::Size<2, 2>, check::Null<kPlanes>>;

using K = YuvKernels;

// The full-width RGB planes of the whole-image forms.
inline std::ptrdiff_t fullWidth(ZoriSize s) { return s.width; }

}  // namespace
}  // namespace zor

using namespace zor;

// 4:4:4. The AC4 members leave the fourth byte alone.
// The AC4 outputs of the P3 decoders write 0 into every fourth byte. The
// group's name tells the table of descriptions (core/describe.h) that their
// alpha is written.
#define ZOR_DECL_OUT_AC4_FILLED(T) ZOR_DECL_OUT_C(T, 4)
#define ZOR_EXPR_OUT_AC4_FILLED(T) ZOR_EXPR_OUT_C(T, 4)

ZOR_EXPORT(zoriRGBToYUV_8u_C3R, (StandardChecks), (Run444<&K::encode444C3>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriRGBToYUV_8u_AC4R, (StandardChecks), (Run444<&K::encode444AC4>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriRGBToYUV_8u_P3R, (StandardChecks), (Run444<&K::encode444P3>), IN_P3S(Zor8u), OUT_P3S(Zor8u), ROI)
ZOR_EXPORT(zoriRGBToYUV_8u_C3P3R, (StandardChecks), (Run444<&K::encode444C3P3>), IN_C(Zor8u, 3), OUT_P3(Zor8u), ROI)
ZOR_EXPORT(zoriYUVToRGB_8u_C3R, (StandardChecks), (Run444<&K::decode444C3>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriYUVToRGB_8u_AC4R, (StandardChecks), (Run444<&K::decode444AC4>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI)
ZOR_EXPORT(zoriYUVToRGB_8u_P3R, (StandardChecks), (Run444<&K::decode444P3>), IN_P3S(Zor8u), OUT_P3S(Zor8u), ROI)
ZOR_EXPORT(zoriYUVToRGB_8u_P3C3R, (StandardChecks), (Run444<&K::decode444P3C3>), IN_P3(Zor8u), OUT_C(Zor8u, 3), ROI)

// 4:2:2. The whole-image forms take packed planes, chroma (width + 1) / 2 wide.
ZOR_EXPORT(zoriRGBToYUV422_8u_C3C2R, (StandardChecks), (Run422<&K::encode422C3C2>), IN_C(Zor8u, 3), OUT_C(Zor8u, 2), ROI)
ZOR_EXPORT(zoriRGBToYUV422_8u_C3P3R, (StandardChecks), (Run422<&K::encode422C3P3>), IN_C(Zor8u, 3), OUT_P3S(Zor8u, 0, 2), ROI)
ZOR_EXPORT(zoriRGBToYUV422_8u_C3P3, (StandardChecks), (Run422<&K::encode422C3P3>), IN_WHOLE_C(Zor8u, 3), OUT_WHOLE_P3(Zor8u, ::zor::halfUp, 0, 2), ROI)
ZOR_EXPORT(zoriRGBToYUV422_8u_P3R, (StandardChecks), (Run422<&K::encode422P3>), IN_P3S(Zor8u), OUT_P3S(Zor8u, 0, 2), ROI)
ZOR_EXPORT(zoriRGBToYUV422_8u_P3, (StandardChecks), (Run422<&K::encode422P3>), IN_WHOLE_P3(Zor8u, ::zor::fullWidth), OUT_WHOLE_P3(Zor8u, ::zor::halfUp, 0, 2), ROI)
ZOR_EXPORT(zoriYUV422ToRGB_8u_C2C3R, (StandardChecks), (Run422<&K::decode422C2C3>), IN_C(Zor8u, 2), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriYUV422ToRGB_8u_P3C3R, (StandardChecks), (Run422<&K::decode422P3C3>), IN_P3S(Zor8u, 0, 2), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriYUV422ToRGB_8u_P3C3, (StandardChecks), (Run422<&K::decode422P3C3>), IN_WHOLE_P3(Zor8u, ::zor::halfUp, 0, 2), OUT_WHOLE_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriYUV422ToRGB_8u_P3R, (StandardChecks), (Run422<&K::decode422P3>), IN_P3S(Zor8u, 0, 2), OUT_P3S(Zor8u), ROI)
ZOR_EXPORT(zoriYUV422ToRGB_8u_P3, (StandardChecks), (Run422<&K::decode422P3>), IN_WHOLE_P3(Zor8u, ::zor::halfUp, 0, 2), OUT_WHOLE_P3(Zor8u, ::zor::fullWidth), ROI)
// Truncating like the rest; the fourth byte of every pixel is written 0.
ZOR_EXPORT(zoriYUV422ToRGB_8u_P3AC4R, (StandardChecks), (Run422<&K::decode422P3C4>), IN_P3S(Zor8u, 0, 2), OUT_AC4_FILLED(Zor8u), ROI)

// 4:2:0. The whole-image forms take packed planes, chroma width / 2 wide.
ZOR_EXPORT(zoriRGBToYUV420_8u_C3P3R, (StandardChecks), (Encode420<&K::encode420C3>), IN_C(Zor8u, 3), OUT_P3S(Zor8u, 1, 2), ROI)
ZOR_EXPORT(zoriRGBToYUV420_8u_C3P3, (StandardChecks), (Encode420<&K::encode420C3>), IN_WHOLE_C(Zor8u, 3), OUT_WHOLE_P3(Zor8u, ::zor::halfDown, 1, 2), ROI)
ZOR_EXPORT(zoriRGBToYUV420_8u_P3R, (StandardChecks), (Encode420<&K::encode420P3>), IN_P3S(Zor8u), OUT_P3S(Zor8u, 1, 2), ROI)
ZOR_EXPORT(zoriRGBToYUV420_8u_P3, (StandardChecks), (Encode420<&K::encode420P3>), IN_WHOLE_P3(Zor8u, ::zor::fullWidth), OUT_WHOLE_P3(Zor8u, ::zor::halfDown, 1, 2), ROI)
ZOR_EXPORT(zoriYUV420ToRGB_8u_P3C3R, (StandardChecks), (Decode420<&K::decode420P3C3>), IN_P3S(Zor8u, 1, 2), OUT_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriYUV420ToRGB_8u_P3C3, (StandardChecks), (Decode420<&K::decode420P3C3>), IN_WHOLE_P3(Zor8u, ::zor::halfDown, 1, 2), OUT_WHOLE_C(Zor8u, 3), ROI)
ZOR_EXPORT(zoriYUV420ToRGB_8u_P3R, (StandardChecks), (Decode420<&K::decode420P3>), IN_P3S(Zor8u, 1, 2), OUT_P3S(Zor8u), ROI)
ZOR_EXPORT(zoriYUV420ToRGB_8u_P3, (StandardChecks), (Decode420<&K::decode420P3>), IN_WHOLE_P3(Zor8u, ::zor::halfDown, 1, 2), OUT_WHOLE_P3(Zor8u, ::zor::fullWidth), ROI)
// The one rounding member (one half before every shift); the fourth byte of
// every pixel is written 0.
ZOR_EXPORT(zoriYUV420ToRGB_8u_P3AC4R, (StandardChecks), (Decode420<&K::decode420P3C4Rounded>), IN_P3S(Zor8u, 1, 2), OUT_AC4_FILLED(Zor8u), ROI)
ZOR_EXPORT(zoriYUV420ToBGR_8u_P3C3R, (BgrChecks), (Decode420<&K::decode420P3Bgr>), IN_P3S(Zor8u, 1, 2), OUT_C(Zor8u, 3), ROI)
