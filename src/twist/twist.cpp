// Colour twist: the export table. Serial rows; steps are validated after
// the size; the matrix counts among the pointers of the null test.
#include "core/export.h"
#include "twist/twist_kernels.h"

namespace zor {
namespace {

template <auto Member>
using Twist = PreparedRows<Matrix<3>, TwistK<Member>>;

// Four float channels. When both steps equal four times the width in bytes
// (one float per pixel, not four) the image is taken as width x height
// consecutive pixels from the first pixel: rows of sixteen bytes per pixel.
struct TwistC4 {
    using R = PreparedRows<Matrix<4>, TwistK<&TwistKernels::c4f32>>;
    template <class Images, class Extras>
    static ZorStatus run(ZoriSize roi, Images images, const Extras& extras) {
        auto& [src, dst] = images;
        if (src.step == dst.step && src.step == 4 * static_cast<std::ptrdiff_t>(roi.width))
            src.step = dst.step = 16 * static_cast<std::ptrdiff_t>(roi.width);
        return R::run(roi, images, extras);
    }
};

}  // namespace
}  // namespace zor

#define ZOR_DECL_TWIST34 const Zor32f twist[3][4]
#define ZOR_EXPR_TWIST34 ::zor::Ptr<const Zor32f[4]>{twist}
#define ZOR_DECL_TWIST44 const Zor32f twist[4][4]
#define ZOR_EXPR_TWIST44 ::zor::Ptr<const Zor32f[4]>{twist}

using namespace zor;

ZOR_EXPORT(zoriColorTwist32f_8u_C3R, (ChecksWithSteps), (Twist<&TwistKernels::c3u8>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_8u_C3IR, (ChecksWithSteps), (Twist<&TwistKernels::c3u8>), IO_C(Zor8u, 3), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_8u_AC4R, (ChecksWithSteps), (Twist<&TwistKernels::ac4u8>), IN_C(Zor8u, 4), OUT_C(Zor8u, 4), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_8u_AC4IR, (ChecksWithSteps), (Twist<&TwistKernels::ac4u8>), IO_C(Zor8u, 4), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_8u_P3R, (ChecksWithSteps), (Twist<&TwistKernels::p3u8>), IN_P3(Zor8u), OUT_P3(Zor8u), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_8u_IP3R, (ChecksWithSteps), (Twist<&TwistKernels::p3u8>), IO_P3(Zor8u), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_8s_C3R, (ChecksWithSteps), (Twist<&TwistKernels::c3s8>), IN_C(Zor8s, 3), OUT_C(Zor8s, 3), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_8s_C3IR, (ChecksWithSteps), (Twist<&TwistKernels::c3s8>), IO_C(Zor8s, 3), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_8s_AC4R, (ChecksWithSteps), (Twist<&TwistKernels::ac4s8>), IN_C(Zor8s, 4), OUT_C(Zor8s, 4), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_8s_AC4IR, (ChecksWithSteps), (Twist<&TwistKernels::ac4s8>), IO_C(Zor8s, 4), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_8s_P3R, (ChecksWithSteps), (Twist<&TwistKernels::p3s8>), IN_P3(Zor8s), OUT_P3(Zor8s), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_8s_IP3R, (ChecksWithSteps), (Twist<&TwistKernels::p3s8>), IO_P3(Zor8s), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_16u_C3R, (ChecksWithSteps), (Twist<&TwistKernels::c3u16>), IN_C(Zor16u, 3), OUT_C(Zor16u, 3), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_16u_C3IR, (ChecksWithSteps), (Twist<&TwistKernels::c3u16>), IO_C(Zor16u, 3), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_16u_AC4R, (ChecksWithSteps), (Twist<&TwistKernels::ac4u16>), IN_C(Zor16u, 4), OUT_C(Zor16u, 4), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_16u_AC4IR, (ChecksWithSteps), (Twist<&TwistKernels::ac4u16>), IO_C(Zor16u, 4), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_16u_P3R, (ChecksWithSteps), (Twist<&TwistKernels::p3u16>), IN_P3(Zor16u), OUT_P3(Zor16u), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_16u_IP3R, (ChecksWithSteps), (Twist<&TwistKernels::p3u16>), IO_P3(Zor16u), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_16s_C3R, (ChecksWithSteps), (Twist<&TwistKernels::c3s16>), IN_C(Zor16s, 3), OUT_C(Zor16s, 3), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_16s_C3IR, (ChecksWithSteps), (Twist<&TwistKernels::c3s16>), IO_C(Zor16s, 3), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_16s_AC4R, (ChecksWithSteps), (Twist<&TwistKernels::ac4s16>), IN_C(Zor16s, 4), OUT_C(Zor16s, 4), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_16s_AC4IR, (ChecksWithSteps), (Twist<&TwistKernels::ac4s16>), IO_C(Zor16s, 4), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_16s_P3R, (ChecksWithSteps), (Twist<&TwistKernels::p3s16>), IN_P3(Zor16s), OUT_P3(Zor16s), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist32f_16s_IP3R, (ChecksWithSteps), (Twist<&TwistKernels::p3s16>), IO_P3(Zor16s), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist_32f_C3R, (ChecksWithSteps), (Twist<&TwistKernels::c3f32>), IN_C(Zor32f, 3), OUT_C(Zor32f, 3), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist_32f_C3IR, (ChecksWithSteps), (Twist<&TwistKernels::c3f32>), IO_C(Zor32f, 3), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist_32f_AC4R, (ChecksWithSteps), (Twist<&TwistKernels::ac4f32>), IN_C(Zor32f, 4), OUT_C(Zor32f, 4), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist_32f_AC4IR, (ChecksWithSteps), (Twist<&TwistKernels::ac4f32>), IO_C(Zor32f, 4), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist_32f_P3R, (ChecksWithSteps), (Twist<&TwistKernels::p3f32>), IN_P3(Zor32f), OUT_P3(Zor32f), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist_32f_IP3R, (ChecksWithSteps), (Twist<&TwistKernels::p3f32>), IO_P3(Zor32f), ROI, TWIST34)
ZOR_EXPORT(zoriColorTwist_32f_C4R, (ChecksWithSteps), (TwistC4), IN_C(Zor32f, 4), OUT_C(Zor32f, 4), ROI, TWIST44)
