// YCbCr (4:4:4, 4:2:2, 4:2:0, 4:1:1) and YUV 4:2:0 to packed 16-bit RGB/BGR
// words, plain and dithered. Serial rows; the destination step is halved to
// whole words.
#include "core/export.h"
#include "video/packed16.h"

#define ZOR_DECL_OUT_WORDS Zor16u *pDst, int dstStep
#define ZOR_EXPR_OUT_WORDS ::zor::C<Zor16u, 1, ::zor::StepIn::Elements>{pDst, dstStep}

namespace zor {
namespace {

using K = Packed16Kernels;

template <auto M>
using Rowwise = Rows<Serial, Packed16K<M>>;
// The dither phase is the position inside the region: never fused.
template <auto M>
using Dithered = Rows<Serial, Packed16K<M>, RowIndex>;
// Plain interleaved and packed sources: contiguous images as one long row.
// The BGR444 4:4:4 member alone asks for an even width there as well (the
// result is the same); 4:2:2 needs whole pairs in every row.
template <int G, auto M>
using Fused = Rows<Serial, Packed16K<M>, Fuse<G>>;
// 4:1:1 converts whole groups of four and warns about the rest.
template <auto M>
using Groups411 = Rows<Serial, Packed16K<M>, WholeGroups<4, 1, true>>;

}  // namespace
}  // namespace zor

using namespace zor;

// 4:4:4 interleaved
ZOR_EXPORT(zoriYCbCrToRGB565_8u16u_C3R, (StandardChecks), (Fused<1, &K::c3RGB565>), IN_C(Zor8u, 3), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToRGB565Dither_8u16u_C3R, (StandardChecks), (Dithered<&K::c3RGB565Dither>), IN_C(Zor8u, 3), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToBGR565_8u16u_C3R, (StandardChecks), (Fused<1, &K::c3BGR565>), IN_C(Zor8u, 3), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToBGR565Dither_8u16u_C3R, (StandardChecks), (Dithered<&K::c3BGR565Dither>), IN_C(Zor8u, 3), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToRGB555_8u16u_C3R, (StandardChecks), (Fused<1, &K::c3RGB555>), IN_C(Zor8u, 3), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToRGB555Dither_8u16u_C3R, (StandardChecks), (Dithered<&K::c3RGB555Dither>), IN_C(Zor8u, 3), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToBGR555_8u16u_C3R, (StandardChecks), (Fused<1, &K::c3BGR555>), IN_C(Zor8u, 3), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToBGR555Dither_8u16u_C3R, (StandardChecks), (Dithered<&K::c3BGR555Dither>), IN_C(Zor8u, 3), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToRGB444_8u16u_C3R, (StandardChecks), (Fused<1, &K::c3RGB444>), IN_C(Zor8u, 3), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToRGB444Dither_8u16u_C3R, (StandardChecks), (Dithered<&K::c3RGB444Dither>), IN_C(Zor8u, 3), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToBGR444_8u16u_C3R, (StandardChecks), (Fused<2, &K::c3BGR444>), IN_C(Zor8u, 3), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToBGR444Dither_8u16u_C3R, (StandardChecks), (Dithered<&K::c3BGR444Dither>), IN_C(Zor8u, 3), OUT_WORDS, ROI)

// 4:4:4 planar, one step
ZOR_EXPORT(zoriYCbCrToRGB565_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::p3RGB565>), IN_P3(Zor8u), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToRGB565Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::p3RGB565Dither>), IN_P3(Zor8u), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToBGR565_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::p3BGR565>), IN_P3(Zor8u), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToBGR565Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::p3BGR565Dither>), IN_P3(Zor8u), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToRGB555_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::p3RGB555>), IN_P3(Zor8u), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToRGB555Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::p3RGB555Dither>), IN_P3(Zor8u), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToBGR555_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::p3BGR555>), IN_P3(Zor8u), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToBGR555Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::p3BGR555Dither>), IN_P3(Zor8u), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToRGB444_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::p3RGB444>), IN_P3(Zor8u), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToRGB444Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::p3RGB444Dither>), IN_P3(Zor8u), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToBGR444_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::p3BGR444>), IN_P3(Zor8u), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCrToBGR444Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::p3BGR444Dither>), IN_P3(Zor8u), OUT_WORDS, ROI)

// 4:2:2 packed Y0 Cb Y1 Cr
ZOR_EXPORT(zoriYCbCr422ToRGB565_8u16u_C2C3R, (StandardChecks), (Fused<2, &K::c2RGB565>), IN_C(Zor8u, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToRGB565Dither_8u16u_C2C3R, (StandardChecks), (Dithered<&K::c2RGB565Dither>), IN_C(Zor8u, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToBGR565_8u16u_C2C3R, (StandardChecks), (Fused<2, &K::c2BGR565>), IN_C(Zor8u, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToBGR565Dither_8u16u_C2C3R, (StandardChecks), (Dithered<&K::c2BGR565Dither>), IN_C(Zor8u, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToRGB555_8u16u_C2C3R, (StandardChecks), (Fused<2, &K::c2RGB555>), IN_C(Zor8u, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToRGB555Dither_8u16u_C2C3R, (StandardChecks), (Dithered<&K::c2RGB555Dither>), IN_C(Zor8u, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToBGR555_8u16u_C2C3R, (StandardChecks), (Fused<2, &K::c2BGR555>), IN_C(Zor8u, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToBGR555Dither_8u16u_C2C3R, (StandardChecks), (Dithered<&K::c2BGR555Dither>), IN_C(Zor8u, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToRGB444_8u16u_C2C3R, (StandardChecks), (Fused<2, &K::c2RGB444>), IN_C(Zor8u, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToRGB444Dither_8u16u_C2C3R, (StandardChecks), (Dithered<&K::c2RGB444Dither>), IN_C(Zor8u, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToBGR444_8u16u_C2C3R, (StandardChecks), (Fused<2, &K::c2BGR444>), IN_C(Zor8u, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToBGR444Dither_8u16u_C2C3R, (StandardChecks), (Dithered<&K::c2BGR444Dither>), IN_C(Zor8u, 2), OUT_WORDS, ROI)

// 4:2:2 planar
ZOR_EXPORT(zoriYCbCr422ToRGB565_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::subRGB565>), IN_P3S(Zor8u, 0, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToRGB565Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::subRGB565Dither>), IN_P3S(Zor8u, 0, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToBGR565_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::subBGR565>), IN_P3S(Zor8u, 0, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToBGR565Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::subBGR565Dither>), IN_P3S(Zor8u, 0, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToRGB555_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::subRGB555>), IN_P3S(Zor8u, 0, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToRGB555Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::subRGB555Dither>), IN_P3S(Zor8u, 0, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToBGR555_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::subBGR555>), IN_P3S(Zor8u, 0, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToBGR555Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::subBGR555Dither>), IN_P3S(Zor8u, 0, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToRGB444_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::subRGB444>), IN_P3S(Zor8u, 0, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToRGB444Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::subRGB444Dither>), IN_P3S(Zor8u, 0, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToBGR444_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::subBGR444>), IN_P3S(Zor8u, 0, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr422ToBGR444Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::subBGR444Dither>), IN_P3S(Zor8u, 0, 2), OUT_WORDS, ROI)

// 4:2:0 planar
ZOR_EXPORT(zoriYCbCr420ToRGB565_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::subRGB565>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr420ToRGB565Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::subRGB565Dither>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr420ToBGR565_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::subBGR565>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr420ToBGR565Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::subBGR565Dither>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr420ToRGB555_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::subRGB555>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr420ToRGB555Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::subRGB555Dither>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr420ToBGR555_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::subBGR555>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr420ToBGR555Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::subBGR555Dither>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr420ToRGB444_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::subRGB444>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr420ToRGB444Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::subRGB444Dither>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr420ToBGR444_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::subBGR444>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr420ToBGR444Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::subBGR444Dither>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)

// YUV 4:2:0 planar: decoded exactly like the YCbCr 4:2:0 members
ZOR_EXPORT(zoriYUV420ToRGB565_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::subRGB565>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYUV420ToRGB565Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::subRGB565Dither>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYUV420ToBGR565_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::subBGR565>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYUV420ToBGR565Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::subBGR565Dither>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYUV420ToRGB555_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::subRGB555>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYUV420ToRGB555Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::subRGB555Dither>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYUV420ToBGR555_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::subBGR555>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYUV420ToBGR555Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::subBGR555Dither>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYUV420ToRGB444_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::subRGB444>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYUV420ToRGB444Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::subRGB444Dither>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYUV420ToBGR444_8u16u_P3C3R, (StandardChecks), (Rowwise<&K::subBGR444>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYUV420ToBGR444Dither_8u16u_P3C3R, (StandardChecks), (Dithered<&K::subBGR444Dither>), IN_P3S(Zor8u, 1, 2), OUT_WORDS, ROI)

// 4:1:1 planar
ZOR_EXPORT(zoriYCbCr411ToBGR565_8u16u_P3C3R, (StandardChecks), (Groups411<&K::p411BGR565>), IN_P3S(Zor8u, 0, 4), OUT_WORDS, ROI)
ZOR_EXPORT(zoriYCbCr411ToBGR555_8u16u_P3C3R, (StandardChecks), (Groups411<&K::p411BGR555>), IN_P3S(Zor8u, 0, 4), OUT_WORDS, ROI)
