// Subsampled YCbCr (packed and planar 4:2:2) to RGB and BGR, 8-bit, serial
// rows. The chroma of a pair serves both of its pixels.
#include "video/chroma_share.h"

namespace zor {
namespace {

// Packed 4:2:2 to an interleaved destination built from the row pointer.
template <class Set, class Order, class Out>
ZorStatus packedToInterleaved(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roi, int minWidth,
                              Zor8u aval = 0) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roi, minWidth, 1)) return zorStsBadSize;
    const Plane<const Zor8u> s = plane(pSrc, srcStep);
    const Plane<Zor8u> d = plane(pDst, dstStep);
    serialRows(roi.height, [&](int y) { decodePacked422Row<Set, Order>(s.row(y), Out{d.row(y), aval}, roi.width); });
    return zorStsOk;
}

}  // namespace
}  // namespace zor

using namespace zor;

extern "C" {

// --- Y0 Cb Y1 Cr with set C -------------------------------------------------

// With width 1 the column is decoded from Y and Cb alone, Cb standing in for
// Cr (see forEachPacked422).
ZORCC_API ZorStatus zoriYCbCr422ToRGB_8u_C2C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                               ZoriSize roiSize) {
    return packedToInterleaved<SetC, OrderYCbCr, RgbOutC3>(pSrc, srcStep, pDst, dstStep, roiSize, 1);
}

ZORCC_API ZorStatus zoriYCbCr422ToRGB_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], int dstStep,
                                               ZoriSize roiSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (anyNull(pDst[0], pDst[1], pDst[2])) return zorStsNullPtr;
    const Plane<const Zor8u> s = plane(pSrc, srcStep);
    const std::ptrdiff_t ds = dstStep;
    serialRows(roiSize.height, [&](int y) {
        decodePacked422Row<SetC, OrderYCbCr>(
            s.row(y), PlanarRgbOut{rowAt(pDst[0], ds, y), rowAt(pDst[1], ds, y), rowAt(pDst[2], ds, y)},
            roiSize.width);
    });
    return zorStsOk;
}

ZORCC_API ZorStatus zoriYCbCr422ToBGR_8u_C2C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                               ZoriSize roiSize) {
    return packedToInterleaved<SetC, OrderYCbCr, BgrOutC3>(pSrc, srcStep, pDst, dstStep, roiSize, 2);
}

ZORCC_API ZorStatus zoriYCbCr422ToBGR_8u_C2C4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                               ZoriSize roiSize, Zor8u aval) {
    return packedToInterleaved<SetC, OrderYCbCr, BgrOutC4>(pSrc, srcStep, pDst, dstStep, roiSize, 2, aval);
}

// --- Cb Y0 Cr Y1 with set B -------------------------------------------------

ZORCC_API ZorStatus zoriCbYCr422ToRGB_8u_C2C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                               ZoriSize roiSize) {
    return packedToInterleaved<SetB, OrderCbYCr, RgbOutC3>(pSrc, srcStep, pDst, dstStep, roiSize, 1);
}

ZORCC_API ZorStatus zoriCbYCr422ToBGR_8u_C2C4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                               ZoriSize roiSize, Zor8u aval) {
    return packedToInterleaved<SetB, OrderCbYCr, BgrOutC4>(pSrc, srcStep, pDst, dstStep, roiSize, 1, aval);
}

// --- planar 4:2:2 with set B ------------------------------------------------

ZORCC_API ZorStatus zoriYCbCr422ToRGB_8u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst,
                                               int dstStep, ZoriSize roiSize) {
    if (anyNull(pSrc, srcStep, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (anyNull(pSrc[0], pSrc[1], pSrc[2])) return zorStsNullPtr;
    const Plane<Zor8u> d = plane(pDst, dstStep);
    serialRows(roiSize.height, [&](int y) {
        const RgbOutC3 out{d.row(y), 0};
        forEachPlanarShared<2>(rowAt(pSrc[0], srcStep[0], y), rowAt(pSrc[1], srcStep[1], y),
                               rowAt(pSrc[2], srcStep[2], y), roiSize.width,
                               [&](int x, int yv, int cb, int cr) { out(x, SetB::decode(yv, cb, cr)); });
    });
    return zorStsOk;
}

}  // extern "C"
