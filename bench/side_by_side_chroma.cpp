// The chroma layout family side by side: every relayout, the four-tap
// interpolation and the deinterlacing filters, with libyuv where it moves the
// same bytes (its 4:2:2 to 4:2:0 conversions average the two chroma rows,
// its 4:2:0 to 4:2:2 conversions scale them; this library copies them).
// A semi-planar 4:2:0 (4:1:1) picture lies in the frame of a planar one: the
// luma plane, then the chroma pairs where the two chroma planes lie.
#include "side_by_side.h"

namespace sbs {
namespace {

// Argument groups of each layout: planar (array of planes and of steps),
// semi-planar 4:2:0 and 4:1:1 (the pair plane is as wide as the two chroma
// planes together), interleaved.
#define P3_(i) i.pl(), i.sts()
#define P2_420(i) i.p(0), i.st(0), i.p(1), i.st(0)
#define P2_411(i) i.p(0), i.st(0), i.p(1), 2 * i.st(1)
#define C2_(i) i.p(), i.st()
#define LAYOUT(name, sl, sf, dl, df, ...) \
    {#name, "zori" #name, sl, dl, ZOR(zori##name(sf(s), df(d), kRoi __VA_ARGS__)),
// Source and destination frames: the 4:2:0 and 4:1:1 layouts of P3 and P2 use the same frame.
#define P3_420 k420, P3_
#define P3_422 k422, P3_
#define P3_411 k411, P3_
#define P2_420_ k420, P2_420
#define P2_411_ k411, P2_411
#define C2_422 kC2, C2_
#define CASE(name, src, dst) LAYOUT(name, src, dst, )
#define SLICE(name, src, dst) LAYOUT(name, src, dst, , zorSliceWhole)
#define I3(i) i.p(0), i.st(0), i.p(1), i.st(1), i.p(2), i.st(2)     // libyuv planes Y, U, V
#define I3R(i) i.p(0), i.st(0), i.p(2), i.st(2), i.p(1), i.st(1)    // the chroma planes swapped
#define NV(i) i.p(0), i.st(0), i.p(1), i.st(0)

const Case kChromaCases[] = {
    CASE(YCbCr422_8u_P3C2R, P3_422, C2_422) YUV(I422ToYUY2(I3(s), C2_(d), kW, kH)), NONE, nullptr},
    CASE(YCbCr422_8u_C2P3R, C2_422, P3_422) YUV(YUY2ToI422(C2_(s), I3(d), kW, kH)), NONE, nullptr},
    CASE(YCrCb422ToYCbCr422_8u_C2P3R, C2_422, P3_422) NONE, NONE, nullptr},
    CASE(CbYCr422ToYCbCr422_8u_C2P3R, C2_422, P3_422) YUV(UYVYToI422(C2_(s), I3(d), kW, kH)), NONE, nullptr},
    CASE(YCbCr422ToCbYCr422_8u_C2R, C2_422, C2_422) NONE, NONE, nullptr},
    CASE(CbYCr422ToYCbCr422_8u_C2R, C2_422, C2_422) NONE, NONE, nullptr},
    CASE(YCbCr422ToYCrCb422_8u_C2R, C2_422, C2_422) NONE, NONE, nullptr},
    CASE(YCbCr422ToYCrCb422_8u_P3C2R, P3_422, C2_422) YUV(I422ToYUY2(I3R(s), C2_(d), kW, kH)), NONE, nullptr},
    CASE(YCbCr420_8u_P3P2R, P3_420, P2_420_) YUV(I420ToNV12(I3(s), NV(d), kW, kH)), NONE, nullptr},
    CASE(YCbCr420_8u_P2P3R, P2_420_, P3_420) YUV(NV12ToI420(NV(s), I3(d), kW, kH)), NONE, nullptr},
    CASE(YCrCb420ToYCbCr420_8u_P3P2R, P3_420, P2_420_) YUV(I420ToNV12(I3R(s), NV(d), kW, kH)), NONE, nullptr},
    CASE(YCbCr420ToYCrCb420_8u_P2P3R, P2_420_, P3_420) YUV(NV12ToI420(NV(s), I3R(d), kW, kH)), NONE, nullptr},
    CASE(YCbCr411_8u_P3P2R, P3_411, P2_411_) NONE, NONE, nullptr},
    CASE(YCbCr411_8u_P2P3R, P2_411_, P3_411) NONE, NONE, nullptr},
    CASE(YCbCr422ToYCbCr420_8u_P3R, P3_422, P3_420) YUV(I422ToI420(I3(s), I3(d), kW, kH)), NONE, nullptr},
    CASE(YCbCr422ToYCbCr420_8u_P3P2R, P3_422, P2_420_) NONE, NONE, nullptr},
    CASE(YCbCr422ToYCbCr420_8u_C2P3R, C2_422, P3_420) YUV(YUY2ToI420(C2_(s), I3(d), kW, kH)), NONE, nullptr},
    CASE(CbYCr422ToYCbCr420_8u_C2P3R, C2_422, P3_420) YUV(UYVYToI420(C2_(s), I3(d), kW, kH)), NONE, nullptr},
    CASE(YCrCb422ToYCbCr420_8u_C2P3R, C2_422, P3_420) NONE, NONE, nullptr},
    CASE(YCbCr422ToYCrCb420_8u_C2P3R, C2_422, P3_420) YUV(YUY2ToI420(C2_(s), I3R(d), kW, kH)), NONE, nullptr},
    CASE(CbYCr422ToYCrCb420_8u_C2P3R, C2_422, P3_420) YUV(UYVYToI420(C2_(s), I3R(d), kW, kH)), NONE, nullptr},
    CASE(YCbCr422ToYCbCr420_8u_C2P2R, C2_422, P2_420_) YUV(YUY2ToNV12(C2_(s), NV(d), kW, kH)), NONE, nullptr},
    CASE(CbYCr422ToYCbCr420_8u_C2P2R, C2_422, P2_420_) YUV(UYVYToNV12(C2_(s), NV(d), kW, kH)), NONE, nullptr},
    CASE(YCbCr420ToYCbCr422_8u_P3R, P3_420, P3_422) YUV(I420ToI422(I3(s), I3(d), kW, kH)), NONE, nullptr},
    CASE(YCrCb420ToYCbCr422_8u_P3R, P3_420, P3_422) YUV(I420ToI422(I3R(s), I3(d), kW, kH)), NONE, nullptr},
    CASE(YCbCr420ToYCbCr422_8u_P2P3R, P2_420_, P3_422) NONE, NONE, nullptr},
    CASE(YCbCr420ToYCbCr422_8u_P2C2R, P2_420_, C2_422) NONE, NONE, nullptr},
    CASE(YCbCr420ToCbYCr422_8u_P2C2R, P2_420_, C2_422) NONE, NONE, nullptr},
    CASE(YCrCb420ToYCbCr422_8u_P3C2R, P3_420, C2_422) YUV(I420ToYUY2(I3R(s), C2_(d), kW, kH)), NONE, nullptr},
    CASE(YCrCb420ToCbYCr422_8u_P3C2R, P3_420, C2_422) YUV(I420ToUYVY(I3R(s), C2_(d), kW, kH)), NONE, nullptr},
    CASE(YCbCr422ToYCbCr411_8u_P3R, P3_422, P3_411) NONE, NONE, nullptr},
    CASE(YCbCr422ToYCbCr411_8u_P3P2R, P3_422, P2_411_) NONE, NONE, nullptr},
    CASE(YCbCr422ToYCbCr411_8u_C2P3R, C2_422, P3_411) NONE, NONE, nullptr},
    CASE(CbYCr422ToYCbCr411_8u_C2P3R, C2_422, P3_411) NONE, NONE, nullptr},
    CASE(YCrCb422ToYCbCr411_8u_C2P3R, C2_422, P3_411) NONE, NONE, nullptr},
    CASE(YCbCr422ToYCbCr411_8u_C2P2R, C2_422, P2_411_) NONE, NONE, nullptr},
    CASE(YCbCr411ToYCbCr422_8u_P3R, P3_411, P3_422) NONE, NONE, nullptr},
    CASE(YCbCr411ToYCrCb422_8u_P3R, P3_411, P3_422) NONE, NONE, nullptr},
    CASE(YCbCr411ToYCbCr422_8u_P3C2R, P3_411, C2_422) NONE, NONE, nullptr},
    CASE(YCbCr411ToYCrCb422_8u_P3C2R, P3_411, C2_422) NONE, NONE, nullptr},
    CASE(YCbCr411ToYCbCr422_8u_P2P3R, P2_411_, P3_422) NONE, NONE, nullptr},
    CASE(YCbCr411ToYCbCr422_8u_P2C2R, P2_411_, C2_422) NONE, NONE, nullptr},
    CASE(YCbCr420ToYCbCr411_8u_P3P2R, P3_420, P2_411_) NONE, NONE, nullptr},
    CASE(YCrCb420ToYCbCr411_8u_P3P2R, P3_420, P2_411_) NONE, NONE, nullptr},
    CASE(YCbCr420ToYCbCr411_8u_P2P3R, P2_420_, P3_411) NONE, NONE, nullptr},
    CASE(YCbCr411ToYCbCr420_8u_P3R, P3_411, P3_420) NONE, NONE, nullptr},
    CASE(YCbCr411ToYCbCr420_8u_P3P2R, P3_411, P2_420_) NONE, NONE, nullptr},
    CASE(YCbCr411ToYCbCr420_8u_P2P3R, P2_411_, P3_420) NONE, NONE, nullptr},
    CASE(YCbCr411ToYCrCb420_8u_P2P3R, P2_411_, P3_420) NONE, NONE, nullptr},
    // Filters: libyuv's I420ToI422 scales the chroma rows up (bilinear), a two-tap filter.
    CASE(YCbCr420ToYCbCr422_Filter_8u_P3R, P3_420, P3_422) YUV(I420ToI422(I3(s), I3(d), kW, kH)), NONE, nullptr},
    CASE(YCrCb420ToYCbCr422_Filter_8u_P3R, P3_420, P3_422) YUV(I420ToI422(I3R(s), I3(d), kW, kH)), NONE, nullptr},
    CASE(YCbCr420ToYCbCr422_Filter_8u_P2P3R, P2_420_, P3_422) NONE, NONE, nullptr},
    SLICE(YCbCr420ToYCrCb420_Filter_8u_P2P3R, P2_420_, P3_420) NONE, NONE, nullptr},
    SLICE(YCbCr420ToYCbCr422_Filter_8u_P2C2R, P2_420_, C2_422) NONE, NONE, nullptr},
};
const CaseGroup kGroup(10, "chroma layouts", std::begin(kChromaCases), std::end(kChromaCases));

}  // namespace
}  // namespace sbs
