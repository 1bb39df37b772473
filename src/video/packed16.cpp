// YCbCr (4:4:4, 4:2:2, 4:2:0, 4:1:1) and YUV 4:2:0 to packed 16-bit RGB/BGR
// words, plain and dithered. Serial rows.
#include "video/packed16.h"

#include <cstdint>
#include <type_traits>

namespace zor {
namespace {

// Destination rows: the byte step halved (arithmetic shift) to whole words.
inline Plane<Zor16u> wordPlane(Zor16u* p, int dstStep) {
    return Plane<Zor16u>{p, wholeElementBytes<Zor16u>(dstStep)};
}

// Contiguous images are converted as one long row: the kernel is called for
// the largest multiple of 8 pixels and once more for the 1 to 7 left over.
// Returns false (nothing done) when the images are not contiguous.
template <int SrcBytes, class Kernel>
bool oneLongRow(Kernel kernel, const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roi) {
    const std::int64_t w = roi.width;
    const std::int64_t n = w * roi.height;
    if (srcStep != w * SrcBytes || elementStep<Zor16u>(dstStep) != w || n > INT32_MAX) return false;
    const int all = static_cast<int>(n);
    const int head = all & ~7;
    if (head > 0) kernel(pSrc, pDst, head, 0);
    if (all > head) kernel(pSrc + static_cast<std::ptrdiff_t>(head) * SrcBytes, pDst + head, all - head, 0);
    return true;
}

template <int SrcBytes, class Kernel>
void interleavedRows(Kernel kernel, const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roi) {
    const Plane<const Zor8u> s = plane(pSrc, srcStep);
    const Plane<Zor16u> d = wordPlane(pDst, dstStep);
    serialRows(roi.height, [&](int y) { kernel(s.row(y), d.row(y), roi.width, y); });
}

// 4:4:4 interleaved. The plain members take the one-long-row path; the BGR444
// member alone also asks for an even width there (the result is the same).
template <class Fmt, bool Dither>
ZorStatus packedFromC3(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roi) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roi)) return zorStsBadSize;
    using Dec = std::conditional_t<Dither, DecodeFine, DecodeSetA>;
    const auto kernel = innerYCbCrToPacked16_C3R<Dec, Fmt, Dither>;
    if constexpr (!Dither) {
        const bool evenOnly = std::is_same_v<Fmt, BGR444>;
        if ((!evenOnly || roi.width % 2 == 0) && oneLongRow<3>(kernel, pSrc, srcStep, pDst, dstStep, roi))
            return zorStsOk;
    }
    interleavedRows<3>(kernel, pSrc, srcStep, pDst, dstStep, roi);
    return zorStsOk;
}

// 4:2:2 packed Y0 Cb Y1 Cr. The plain members take the one-long-row path when
// the width is even.
template <class Fmt, bool Dither>
ZorStatus packedFromC2(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roi) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roi)) return zorStsBadSize;
    using Dec = std::conditional_t<Dither, DecodeFine, SetC>;
    const auto kernel = innerYCbCr422ToPacked16_C2R<Dec, Fmt, Dither>;
    if constexpr (!Dither) {
        if (roi.width % 2 == 0 && oneLongRow<2>(kernel, pSrc, srcStep, pDst, dstStep, roi)) return zorStsOk;
    }
    interleavedRows<2>(kernel, pSrc, srcStep, pDst, dstStep, roi);
    return zorStsOk;
}

// Planar sources: luma row y, chroma row y >> VShift, one chroma sample per
// Group luma samples.
template <int Group, int VShift, class Dec, class Fmt, bool Dither>
void ownYCbCrToPacked16_P3(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, int width,
                           int height) {
    const Plane<const Zor8u> py = plane(pSrc[0], srcStep[0]), pcb = plane(pSrc[1], srcStep[1]),
                             pcr = plane(pSrc[2], srcStep[2]);
    const Plane<Zor16u> d = wordPlane(pDst, dstStep);
    serialRows(height, [&](int y) {
        innerYCbCrToPacked16_P3R<Group, Dec, Fmt, Dither>(py.row(y), pcb.row(y >> VShift), pcr.row(y >> VShift),
                                                          d.row(y), width, y);
    });
}

// Pointers (and the step array), size, then the planes.
inline ZorStatus checkPlanar(const Zor8u* const pSrc[3], const void* steps, const Zor16u* pDst, ZoriSize roi) {
    if (anyNull(pSrc, steps, pDst)) return zorStsNullPtr;
    if (badSize(roi)) return zorStsBadSize;
    if (anyNull(pSrc[0], pSrc[1], pSrc[2])) return zorStsNullPtr;
    return zorStsOk;
}

template <class Fmt, bool Dither>
ZorStatus packedFromP3(const Zor8u* const pSrc[3], int srcStep, Zor16u* pDst, int dstStep, ZoriSize roi) {
    const int steps[3] = {srcStep, srcStep, srcStep};
    const ZorStatus st = checkPlanar(pSrc, steps, pDst, roi);
    if (st != zorStsOk) return st;
    ownYCbCrToPacked16_P3<1, 0, DecodeFine, Fmt, Dither>(pSrc, steps, pDst, dstStep, roi.width, roi.height);
    return zorStsOk;
}

// 4:2:2 (VShift 0) and 4:2:0 (VShift 1) planar. Every pixel is converted; an
// odd last column or row uses the chroma of its incomplete group.
template <int VShift, class Fmt, bool Dither>
ZorStatus packedFromSubsampledP3(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep,
                                 ZoriSize roi) {
    const ZorStatus st = checkPlanar(pSrc, srcStep, pDst, roi);
    if (st != zorStsOk) return st;
    ownYCbCrToPacked16_P3<2, VShift, DecodeFine, Fmt, Dither>(pSrc, srcStep, pDst, dstStep, roi.width, roi.height);
    return zorStsOk;
}

// 4:1:1 planar: whole groups of four only.
template <class Fmt>
ZorStatus packedFrom411(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roi) {
    const ZorStatus st = checkPlanar(pSrc, srcStep, pDst, roi);
    if (st != zorStsOk) return st;
    ownYCbCrToPacked16_P3<4, 0, DecodeSet411, Fmt, false>(pSrc, srcStep, pDst, dstStep, roi.width & ~3, roi.height);
    return roi.width % 4 == 0 ? zorStsOk : zorStsOddSizeWarning;
}

}  // namespace
}  // namespace zor

using namespace zor;

// Twelve members (six formats, plain and Dither) per source form.
#define ZOR_PACKED_FORMATS(X) X(RGB565) X(BGR565) X(RGB555) X(BGR555) X(RGB444) X(BGR444)

#define ZOR_PACKED_C3(F)                                                                                            \
    ZORCC_API ZorStatus zoriYCbCrTo##F##_8u16u_C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep,       \
                                                   ZoriSize roiSize) {                                              \
        return packedFromC3<F, false>(pSrc, srcStep, pDst, dstStep, roiSize);                                       \
    }                                                                                                               \
    ZORCC_API ZorStatus zoriYCbCrTo##F##Dither_8u16u_C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, \
                                                         ZoriSize roiSize) {                                        \
        return packedFromC3<F, true>(pSrc, srcStep, pDst, dstStep, roiSize);                                        \
    }

#define ZOR_PACKED_P3(F)                                                                                          \
    ZORCC_API ZorStatus zoriYCbCrTo##F##_8u16u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor16u* pDst,       \
                                                     int dstStep, ZoriSize roiSize) {                             \
        return packedFromP3<F, false>(pSrc, srcStep, pDst, dstStep, roiSize);                                     \
    }                                                                                                             \
    ZORCC_API ZorStatus zoriYCbCrTo##F##Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor16u* pDst, \
                                                           int dstStep, ZoriSize roiSize) {                       \
        return packedFromP3<F, true>(pSrc, srcStep, pDst, dstStep, roiSize);                                      \
    }

#define ZOR_PACKED_C2(F)                                                                                           \
    ZORCC_API ZorStatus zoriYCbCr422To##F##_8u16u_C2C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, \
                                                        ZoriSize roiSize) {                                        \
        return packedFromC2<F, false>(pSrc, srcStep, pDst, dstStep, roiSize);                                      \
    }                                                                                                              \
    ZORCC_API ZorStatus zoriYCbCr422To##F##Dither_8u16u_C2C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst,        \
                                                              int dstStep, ZoriSize roiSize) {                     \
        return packedFromC2<F, true>(pSrc, srcStep, pDst, dstStep, roiSize);                                       \
    }

// Subsampled planar forms: MODEL is YCbCr422, YCbCr420 or YUV420.
#define ZOR_PACKED_SUB(MODEL, VSHIFT, F)                                                                         \
    ZORCC_API ZorStatus zori##MODEL##To##F##_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3],       \
                                                         Zor16u* pDst, int dstStep, ZoriSize roiSize) {          \
        return packedFromSubsampledP3<VSHIFT, F, false>(pSrc, srcStep, pDst, dstStep, roiSize);                  \
    }                                                                                                            \
    ZORCC_API ZorStatus zori##MODEL##To##F##Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], \
                                                               Zor16u* pDst, int dstStep, ZoriSize roiSize) {    \
        return packedFromSubsampledP3<VSHIFT, F, true>(pSrc, srcStep, pDst, dstStep, roiSize);                   \
    }
#define ZOR_PACKED_422P3(F) ZOR_PACKED_SUB(YCbCr422, 0, F)
#define ZOR_PACKED_420P3(F) ZOR_PACKED_SUB(YCbCr420, 1, F)
// The YUV 4:2:0 members decode exactly like the YCbCr 4:2:0 members.
#define ZOR_PACKED_YUV420P3(F) ZOR_PACKED_SUB(YUV420, 1, F)

extern "C" {

ZOR_PACKED_FORMATS(ZOR_PACKED_C3)
ZOR_PACKED_FORMATS(ZOR_PACKED_P3)
ZOR_PACKED_FORMATS(ZOR_PACKED_C2)
ZOR_PACKED_FORMATS(ZOR_PACKED_422P3)
ZOR_PACKED_FORMATS(ZOR_PACKED_420P3)
ZOR_PACKED_FORMATS(ZOR_PACKED_YUV420P3)

ZORCC_API ZorStatus zoriYCbCr411ToBGR565_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst,
                                                     int dstStep, ZoriSize roiSize) {
    return packedFrom411<BGR565>(pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriYCbCr411ToBGR555_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst,
                                                     int dstStep, ZoriSize roiSize) {
    return packedFrom411<BGR555>(pSrc, srcStep, pDst, dstStep, roiSize);
}

}  // extern "C"
