// YCbCr and RGB at full chroma resolution (4:4:4), 8-bit, serial rows.
#include "video/ycbcr444.h"

namespace zor {

// ---------------------------------------------------------------------------
// Row kernels

template <int SrcStride, int DstStride>
void innerRGBToYCbCr(const Zor8u* src, Zor8u* dst, int width) {
    for (int i = 0; i < width; ++i, src += SrcStride, dst += DstStride) {
        const YCbCrEncoded c = encodeYCbCr(src[0], src[1], src[2]);
        dst[0] = c.y;
        dst[1] = c.cb;
        dst[2] = c.cr;
    }
}

void innerRGBToYCbCr_C3_C3R(const Zor8u* src, Zor8u* dst, int width) { innerRGBToYCbCr<3, 3>(src, dst, width); }
void innerRGBToYCbCr_AC4R(const Zor8u* src, Zor8u* dst, int width) { innerRGBToYCbCr<4, 4>(src, dst, width); }

void innerRGBToYCbCr_C3P2_C3P2R(const Zor8u* r, const Zor8u* g, const Zor8u* b, Zor8u* y, Zor8u* cb, Zor8u* cr,
                                int width) {
    for (int i = 0; i < width; ++i) {
        const YCbCrEncoded c = encodeYCbCr(r[i], g[i], b[i]);
        y[i] = c.y;
        cb[i] = c.cb;
        cr[i] = c.cr;
    }
}

template <int SrcStride, int DstStride>
void innerYCbCrToRGB(const Zor8u* src, Zor8u* dst, int width) {
    for (int i = 0; i < width; ++i, src += SrcStride, dst += DstStride) {
        const Rgb32 c = decodeYCbCr<DecoderSetA>(src[0], src[1], src[2]);
        dst[0] = sat8(c.r);
        dst[1] = sat8(c.g);
        dst[2] = sat8(c.b);
    }
}

void innerYCbCrToRGB_C3_C3R(const Zor8u* src, Zor8u* dst, int width) { innerYCbCrToRGB<3, 3>(src, dst, width); }
void innerYCbCrToRGB_AC4R(const Zor8u* src, Zor8u* dst, int width) { innerYCbCrToRGB<4, 4>(src, dst, width); }

void innerYCbCrToRGB_C3P2_C3P2R(const Zor8u* y, const Zor8u* cb, const Zor8u* cr, Zor8u* r, Zor8u* g, Zor8u* b,
                                int width) {
    for (int i = 0; i < width; ++i) {
        const Rgb32 c = decodeYCbCr<DecoderSetA>(y[i], cb[i], cr[i]);
        r[i] = sat8(c.r);
        g[i] = sat8(c.g);
        b[i] = sat8(c.b);
    }
}

template <int DstStride, int ROff, int BOff>
void innerYCbCrP3ToInterleaved(const Zor8u* y, const Zor8u* cb, const Zor8u* cr, Zor8u* dst, int width,
                               Zor8u aval) {
    for (int i = 0; i < width; ++i, dst += DstStride) {
        const Rgb32 c = decodeYCbCr<DecoderSetB>(y[i], cb[i], cr[i]);
        dst[ROff] = sat8(c.r);
        dst[1] = sat8(c.g);
        dst[BOff] = sat8(c.b);
        if constexpr (DstStride == 4) dst[3] = aval;
    }
}

void innerYCbCrToRGB_8u_P3C3R(const Zor8u* y, const Zor8u* cb, const Zor8u* cr, Zor8u* dst, int width) {
    innerYCbCrP3ToInterleaved<3, 0, 2>(y, cb, cr, dst, width, 0);
}

namespace {

// Frame shapes of this family: interleaved to interleaved, planar to planar,
// planar to interleaved.
using RowFn = void (*)(const Zor8u*, Zor8u*, int);
using PlanarRowFn = void (*)(const Zor8u*, const Zor8u*, const Zor8u*, Zor8u*, Zor8u*, Zor8u*, int);

void rowsInterleaved(RowFn kernel, const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roi) {
    const Plane<const Zor8u> s = plane(pSrc, srcStep);
    const Plane<Zor8u> d = plane(pDst, dstStep);
    serialRows(roi.height, [&](int y) { kernel(s.row(y), d.row(y), roi.width); });
}

void rowsPlanar(PlanarRowFn kernel, const Zor8u* const pSrc[3], int srcStep, Zor8u* const pDst[3], int dstStep,
                ZoriSize roi) {
    const std::ptrdiff_t ss = srcStep, ds = dstStep;
    serialRows(roi.height, [&](int y) {
        kernel(rowAt(pSrc[0], ss, y), rowAt(pSrc[1], ss, y), rowAt(pSrc[2], ss, y), rowAt(pDst[0], ds, y),
               rowAt(pDst[1], ds, y), rowAt(pDst[2], ds, y), roi.width);
    });
}

// The BGR decoders walk their rows themselves.
template <int DstStride>
void ownYCbCrToBGR(const Zor8u* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roi, Zor8u aval) {
    const std::ptrdiff_t ss = srcStep;
    const Plane<Zor8u> d = plane(pDst, dstStep);
    serialRows(roi.height, [&](int y) {
        innerYCbCrP3ToInterleaved<DstStride, 2, 0>(rowAt(pSrc[0], ss, y), rowAt(pSrc[1], ss, y),
                                                   rowAt(pSrc[2], ss, y), d.row(y), roi.width, aval);
    });
}

ZorStatus interleavedEntry(RowFn kernel, const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roi) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roi)) return zorStsBadSize;
    rowsInterleaved(kernel, pSrc, srcStep, pDst, dstStep, roi);
    return zorStsOk;
}

}  // namespace

void ownYCbCrToBGR_8u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roi) {
    ownYCbCrToBGR<3>(pSrc, srcStep, pDst, dstStep, roi, 0);
}

void ownYCbCrToBGR_8u_P3C4R(const Zor8u* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roi,
                            Zor8u aval) {
    ownYCbCrToBGR<4>(pSrc, srcStep, pDst, dstStep, roi, aval);
}

}  // namespace zor

using namespace zor;

extern "C" {

ZORCC_API ZorStatus zoriRGBToYCbCr_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                          ZoriSize roiSize) {
    return interleavedEntry(innerRGBToYCbCr_C3_C3R, pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriRGBToYCbCr_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                           ZoriSize roiSize) {
    return interleavedEntry(innerRGBToYCbCr_AC4R, pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriYCbCrToRGB_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                          ZoriSize roiSize) {
    return interleavedEntry(innerYCbCrToRGB_C3_C3R, pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriYCbCrToRGB_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                           ZoriSize roiSize) {
    return interleavedEntry(innerYCbCrToRGB_AC4R, pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriRGBToYCbCr_8u_P3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* const pDst[3],
                                          int dstStep, ZoriSize roiSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (anyNull(pSrc[0], pSrc[1], pSrc[2], pDst[0], pDst[1], pDst[2])) return zorStsNullPtr;
    rowsPlanar(innerRGBToYCbCr_C3P2_C3P2R, pSrc, srcStep, pDst, dstStep, roiSize);
    return zorStsOk;
}

ZORCC_API ZorStatus zoriYCbCrToRGB_8u_P3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* const pDst[3],
                                          int dstStep, ZoriSize roiSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    // This member looks at the destination planes before the source planes.
    if (anyNull(pDst[0], pDst[1], pDst[2], pSrc[0], pSrc[1], pSrc[2])) return zorStsNullPtr;
    rowsPlanar(innerYCbCrToRGB_C3P2_C3P2R, pSrc, srcStep, pDst, dstStep, roiSize);
    return zorStsOk;
}

ZORCC_API ZorStatus zoriYCbCrToRGB_8u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep,
                                            ZoriSize roiSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (anyNull(pSrc[0], pSrc[1], pSrc[2])) return zorStsNullPtr;
    const std::ptrdiff_t ss = srcStep;
    const Plane<Zor8u> d = plane(pDst, dstStep);
    serialRows(roiSize.height, [&](int y) {
        innerYCbCrToRGB_8u_P3C3R(rowAt(pSrc[0], ss, y), rowAt(pSrc[1], ss, y), rowAt(pSrc[2], ss, y), d.row(y),
                                 roiSize.width);
    });
    return zorStsOk;
}

// The BGR decoders test their planes with the outer pointers, before the size.
ZORCC_API ZorStatus zoriYCbCrToBGR_8u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep,
                                            ZoriSize roiSize) {
    if (anyNull(pSrc, pDst) || anyNull(pSrc[0], pSrc[1], pSrc[2])) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    ownYCbCrToBGR_8u_P3C3R(pSrc, srcStep, pDst, dstStep, roiSize);
    return zorStsOk;
}

ZORCC_API ZorStatus zoriYCbCrToBGR_8u_P3C4R(const Zor8u* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep,
                                            ZoriSize roiSize, Zor8u aval) {
    if (anyNull(pSrc, pDst) || anyNull(pSrc[0], pSrc[1], pSrc[2])) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    ownYCbCrToBGR_8u_P3C4R(pSrc, srcStep, pDst, dstStep, roiSize, aval);
    return zorStsOk;
}

}  // extern "C"
