// YUV and RGB at 4:4:4, 4:2:2 and 4:2:0, 8-bit, serial rows.
#include "video/yuv.h"

#include <cstdint>

namespace zor {
namespace {

// Three channels of one image side: the address of each channel in the first
// row and each channel's row step in bytes. Interleaved images give three
// addresses inside one pixel with one step; planar images one plane each.
template <class T>
struct Side3 {
    T* p[3];
    std::ptrdiff_t s[3];
    T* at(int c, int y) const { return rowAt(p[c], s[c], y); }
};

template <class T>
Side3<T> interleaved(T* p, int step, int c0 = 0, int c1 = 1, int c2 = 2) {
    return {{p + c0, p + c1, p + c2}, {step, step, step}};
}
template <class T>
Side3<T> planar(T* const p[3], int step) {
    return {{p[0], p[1], p[2]}, {step, step, step}};
}
template <class T>
Side3<T> planar(T* const p[3], const int step[3]) {
    return {{p[0], p[1], p[2]}, {step[0], step[1], step[2]}};
}

using Src3 = Side3<const Zor8u>;
using Dst3 = Side3<Zor8u>;

// ---------------------------------------------------------------------------
// Workers: the row loops of each kernel shape.

template <int SS, int DS>
void own444Fwd(const Src3& s, const Dst3& d, ZoriSize roi) {
    serialRows(roi.height, [&](int y) {
        innerRGBToYUV<SS, DS>(s.at(0, y), s.at(1, y), s.at(2, y), d.at(0, y), d.at(1, y), d.at(2, y), roi.width);
    });
}

template <int SS, int DS>
void own444Inv(const Src3& s, const Dst3& d, ZoriSize roi) {
    serialRows(roi.height, [&](int y) {
        innerYUVToRGB<SS, DS>(s.at(0, y), s.at(1, y), s.at(2, y), d.at(0, y), d.at(1, y), d.at(2, y), roi.width);
    });
}

template <int SS, int DY, int DC, bool WriteOddV>
void own422Fwd(const Src3& s, const Dst3& d, ZoriSize roi) {
    serialRows(roi.height, [&](int y) {
        innerRGBToYUV422<SS, DY, DC, WriteOddV>(s.at(0, y), s.at(1, y), s.at(2, y), d.at(0, y), d.at(1, y), d.at(2, y),
                                                roi.width);
    });
}

// Chroma row y >> VShift (1 for 4:2:0).
template <int SY, int SC, int DS, bool PackedOdd, bool Round, bool Alpha0, int VShift>
void ownSubInv(const Src3& s, const Dst3& d, ZoriSize roi) {
    serialRows(roi.height, [&](int y) {
        innerYUV422ToRGB<SY, SC, DS, PackedOdd, Round, Alpha0>(s.at(0, y), s.at(1, y >> VShift), s.at(2, y >> VShift),
                                                               d.at(0, y), d.at(1, y), d.at(2, y), roi.width);
    });
}

// Row pairs; roi already even.
template <int SS>
void own420Fwd(const Src3& s, const Dst3& d, ZoriSize roi) {
    serialRows(roi.height / 2, [&](int k) {
        const int y = 2 * k;
        innerRGBToYUV420<SS>(s.at(0, y), s.at(1, y), s.at(2, y), s.at(0, y + 1), s.at(1, y + 1), s.at(2, y + 1),
                             d.at(0, y), d.at(0, y + 1), d.at(1, k), d.at(2, k), roi.width);
    });
}

// ---------------------------------------------------------------------------
// Checks: outer pointers (and step arrays), size, then the plane pointers.

template <class T>
inline bool planesNull(T* const p[3]) {
    return anyNull(p[0], p[1], p[2]);
}

// 4:2:0 converts whole 2x2 blocks and warns about a dropped column or row.
inline ZoriSize evenPart(ZoriSize roi) { return {roi.width & ~1, roi.height & ~1}; }
inline ZorStatus oddWarning(ZoriSize roi) { return (roi.width | roi.height) & 1 ? zorStsOddSizeWarning : zorStsOk; }

// Whole-image forms: packed planes with implied steps.
inline int half(int w, bool up) { return up ? w - w / 2 : w / 2; }

// The whole-image 4:2:2 forms treat the planes as one run when the width is
// even and the image holds at least 256 pixels.
inline ZoriSize run422(ZoriSize img) {
    const std::int64_t n = static_cast<std::int64_t>(img.width) * img.height;
    if (img.width % 2 == 0 && n >= 256 && n <= INT32_MAX) return {static_cast<int>(n), 1};
    return img;
}

}  // namespace
}  // namespace zor

using namespace zor;

extern "C" {

// ---------------------------------------------------------------------------
// 4:4:4

ZORCC_API ZorStatus zoriRGBToYUV_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    own444Fwd<3, 3>(interleaved(pSrc, srcStep), interleaved(pDst, dstStep), roiSize);
    return zorStsOk;
}

// The fourth byte of the destination is left alone.
ZORCC_API ZorStatus zoriRGBToYUV_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    own444Fwd<4, 4>(interleaved(pSrc, srcStep), interleaved(pDst, dstStep), roiSize);
    return zorStsOk;
}

ZORCC_API ZorStatus zoriRGBToYUV_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3],
                                        const int dstStep[3], ZoriSize roiSize) {
    if (anyNull(pSrc, srcStep, pDst, dstStep)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (planesNull(pSrc) || planesNull(pDst)) return zorStsNullPtr;
    own444Fwd<1, 1>(planar(pSrc, srcStep), planar(pDst, dstStep), roiSize);
    return zorStsOk;
}

ZORCC_API ZorStatus zoriRGBToYUV_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], int dstStep,
                                          ZoriSize roiSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (planesNull(pDst)) return zorStsNullPtr;
    own444Fwd<3, 1>(interleaved(pSrc, srcStep), planar(pDst, dstStep), roiSize);
    return zorStsOk;
}

ZORCC_API ZorStatus zoriYUVToRGB_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    own444Inv<3, 3>(interleaved(pSrc, srcStep), interleaved(pDst, dstStep), roiSize);
    return zorStsOk;
}

// The fourth byte of the destination is left alone.
ZORCC_API ZorStatus zoriYUVToRGB_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    own444Inv<4, 4>(interleaved(pSrc, srcStep), interleaved(pDst, dstStep), roiSize);
    return zorStsOk;
}

ZORCC_API ZorStatus zoriYUVToRGB_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3],
                                        const int dstStep[3], ZoriSize roiSize) {
    if (anyNull(pSrc, srcStep, pDst, dstStep)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (planesNull(pSrc) || planesNull(pDst)) return zorStsNullPtr;
    own444Inv<1, 1>(planar(pSrc, srcStep), planar(pDst, dstStep), roiSize);
    return zorStsOk;
}

ZORCC_API ZorStatus zoriYUVToRGB_8u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep,
                                          ZoriSize roiSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (planesNull(pSrc)) return zorStsNullPtr;
    own444Inv<1, 3>(planar(pSrc, srcStep), interleaved(pDst, dstStep), roiSize);
    return zorStsOk;
}

// ---------------------------------------------------------------------------
// 4:2:2 (chroma planes ceil(width / 2) wide)

ZORCC_API ZorStatus zoriRGBToYUV422_8u_C3C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                             ZoriSize roiSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    own422Fwd<3, 2, 4, false>(interleaved(pSrc, srcStep), interleaved(pDst, dstStep, 0, 1, 3), roiSize);
    return zorStsOk;
}

ZORCC_API ZorStatus zoriRGBToYUV422_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3],
                                             ZoriSize roiSize) {
    if (anyNull(pSrc, pDst, dstStep)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (planesNull(pDst)) return zorStsNullPtr;
    own422Fwd<3, 1, 1, true>(interleaved(pSrc, srcStep), planar(pDst, dstStep), roiSize);
    return zorStsOk;
}

ZORCC_API ZorStatus zoriRGBToYUV422_8u_C3P3(const Zor8u* pSrc, Zor8u* const pDst[3], ZoriSize imgSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(imgSize)) return zorStsBadSize;
    if (planesNull(pDst)) return zorStsNullPtr;
    const int w = imgSize.width, c = half(w, true);
    const int dstStep[3] = {w, c, c};
    own422Fwd<3, 1, 1, true>(interleaved(pSrc, 3 * w), planar(pDst, dstStep), run422(imgSize));
    return zorStsOk;
}

ZORCC_API ZorStatus zoriRGBToYUV422_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3],
                                           const int dstStep[3], ZoriSize roiSize) {
    if (anyNull(pSrc, srcStep, pDst, dstStep)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (planesNull(pSrc) || planesNull(pDst)) return zorStsNullPtr;
    own422Fwd<1, 1, 1, true>(planar(pSrc, srcStep), planar(pDst, dstStep), roiSize);
    return zorStsOk;
}

ZORCC_API ZorStatus zoriRGBToYUV422_8u_P3(const Zor8u* const pSrc[3], Zor8u* const pDst[3], ZoriSize imgSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(imgSize)) return zorStsBadSize;
    if (planesNull(pSrc) || planesNull(pDst)) return zorStsNullPtr;
    const int w = imgSize.width, c = half(w, true);
    const int dstStep[3] = {w, c, c};
    own422Fwd<1, 1, 1, true>(planar(pSrc, w), planar(pDst, dstStep), run422(imgSize));
    return zorStsOk;
}

ZORCC_API ZorStatus zoriYUV422ToRGB_8u_C2C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                             ZoriSize roiSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    ownSubInv<2, 4, 3, true, false, false, 0>(interleaved(pSrc, srcStep, 0, 1, 3), interleaved(pDst, dstStep), roiSize);
    return zorStsOk;
}

ZORCC_API ZorStatus zoriYUV422ToRGB_8u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst, int dstStep,
                                             ZoriSize roiSize) {
    if (anyNull(pSrc, srcStep, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (planesNull(pSrc)) return zorStsNullPtr;
    ownSubInv<1, 1, 3, false, false, false, 0>(planar(pSrc, srcStep), interleaved(pDst, dstStep), roiSize);
    return zorStsOk;
}

ZORCC_API ZorStatus zoriYUV422ToRGB_8u_P3C3(const Zor8u* const pSrc[3], Zor8u* pDst, ZoriSize imgSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(imgSize)) return zorStsBadSize;
    if (planesNull(pSrc)) return zorStsNullPtr;
    const int w = imgSize.width, c = half(w, true);
    const int srcStep[3] = {w, c, c};
    ownSubInv<1, 1, 3, false, false, false, 0>(planar(pSrc, srcStep), interleaved(pDst, 3 * w), run422(imgSize));
    return zorStsOk;
}

ZORCC_API ZorStatus zoriYUV422ToRGB_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3],
                                           const int dstStep[3], ZoriSize roiSize) {
    if (anyNull(pSrc, srcStep, pDst, dstStep)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (planesNull(pSrc) || planesNull(pDst)) return zorStsNullPtr;
    ownSubInv<1, 1, 1, false, false, false, 0>(planar(pSrc, srcStep), planar(pDst, dstStep), roiSize);
    return zorStsOk;
}

ZORCC_API ZorStatus zoriYUV422ToRGB_8u_P3(const Zor8u* const pSrc[3], Zor8u* const pDst[3], ZoriSize imgSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(imgSize)) return zorStsBadSize;
    if (planesNull(pSrc) || planesNull(pDst)) return zorStsNullPtr;
    const int w = imgSize.width, c = half(w, true);
    const int srcStep[3] = {w, c, c};
    ownSubInv<1, 1, 1, false, false, false, 0>(planar(pSrc, srcStep), planar(pDst, w), run422(imgSize));
    return zorStsOk;
}

// Truncating like the rest; the fourth byte of every pixel is written 0.
ZORCC_API ZorStatus zoriYUV422ToRGB_8u_P3AC4R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst,
                                              int dstStep, ZoriSize roiSize) {
    if (anyNull(pSrc, srcStep, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (planesNull(pSrc)) return zorStsNullPtr;
    ownSubInv<1, 1, 4, false, false, true, 0>(planar(pSrc, srcStep), interleaved(pDst, dstStep), roiSize);
    return zorStsOk;
}

// ---------------------------------------------------------------------------
// 4:2:0 (chroma planes width / 2 x height / 2): whole 2x2 blocks only, with
// zorStsOddSizeWarning when a column or row is left out.

ZORCC_API ZorStatus zoriRGBToYUV420_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3],
                                             ZoriSize roiSize) {
    if (anyNull(pSrc, pDst, dstStep)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (planesNull(pDst)) return zorStsNullPtr;
    own420Fwd<3>(interleaved(pSrc, srcStep), planar(pDst, dstStep), evenPart(roiSize));
    return oddWarning(roiSize);
}

ZORCC_API ZorStatus zoriRGBToYUV420_8u_C3P3(const Zor8u* pSrc, Zor8u* const pDst[3], ZoriSize imgSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(imgSize)) return zorStsBadSize;
    if (planesNull(pDst)) return zorStsNullPtr;
    const int w = imgSize.width, c = half(w, false);
    const int dstStep[3] = {w, c, c};
    own420Fwd<3>(interleaved(pSrc, 3 * w), planar(pDst, dstStep), evenPart(imgSize));
    return oddWarning(imgSize);
}

ZORCC_API ZorStatus zoriRGBToYUV420_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3],
                                           const int dstStep[3], ZoriSize roiSize) {
    if (anyNull(pSrc, srcStep, pDst, dstStep)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (planesNull(pSrc) || planesNull(pDst)) return zorStsNullPtr;
    own420Fwd<1>(planar(pSrc, srcStep), planar(pDst, dstStep), evenPart(roiSize));
    return oddWarning(roiSize);
}

ZORCC_API ZorStatus zoriRGBToYUV420_8u_P3(const Zor8u* const pSrc[3], Zor8u* const pDst[3], ZoriSize imgSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(imgSize)) return zorStsBadSize;
    if (planesNull(pSrc) || planesNull(pDst)) return zorStsNullPtr;
    const int w = imgSize.width, c = half(w, false);
    const int dstStep[3] = {w, c, c};
    own420Fwd<1>(planar(pSrc, w), planar(pDst, dstStep), evenPart(imgSize));
    return oddWarning(imgSize);
}

ZORCC_API ZorStatus zoriYUV420ToRGB_8u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst, int dstStep,
                                             ZoriSize roiSize) {
    if (anyNull(pSrc, srcStep, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (planesNull(pSrc)) return zorStsNullPtr;
    ownSubInv<1, 1, 3, false, false, false, 1>(planar(pSrc, srcStep), interleaved(pDst, dstStep), evenPart(roiSize));
    return oddWarning(roiSize);
}

ZORCC_API ZorStatus zoriYUV420ToRGB_8u_P3C3(const Zor8u* const pSrc[3], Zor8u* pDst, ZoriSize imgSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(imgSize)) return zorStsBadSize;
    if (planesNull(pSrc)) return zorStsNullPtr;
    const int w = imgSize.width, c = half(w, false);
    const int srcStep[3] = {w, c, c};
    ownSubInv<1, 1, 3, false, false, false, 1>(planar(pSrc, srcStep), interleaved(pDst, 3 * w), evenPart(imgSize));
    return oddWarning(imgSize);
}

ZORCC_API ZorStatus zoriYUV420ToRGB_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3],
                                           const int dstStep[3], ZoriSize roiSize) {
    if (anyNull(pSrc, srcStep, pDst, dstStep)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (planesNull(pSrc) || planesNull(pDst)) return zorStsNullPtr;
    ownSubInv<1, 1, 1, false, false, false, 1>(planar(pSrc, srcStep), planar(pDst, dstStep), evenPart(roiSize));
    return oddWarning(roiSize);
}

ZORCC_API ZorStatus zoriYUV420ToRGB_8u_P3(const Zor8u* const pSrc[3], Zor8u* const pDst[3], ZoriSize imgSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(imgSize)) return zorStsBadSize;
    if (planesNull(pSrc) || planesNull(pDst)) return zorStsNullPtr;
    const int w = imgSize.width, c = half(w, false);
    const int srcStep[3] = {w, c, c};
    ownSubInv<1, 1, 1, false, false, false, 1>(planar(pSrc, srcStep), planar(pDst, w), evenPart(imgSize));
    return oddWarning(imgSize);
}

// The one rounding member: one half before every shift; the fourth byte of
// every pixel is written 0.
ZORCC_API ZorStatus zoriYUV420ToRGB_8u_P3AC4R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst,
                                              int dstStep, ZoriSize roiSize) {
    if (anyNull(pSrc, srcStep, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (planesNull(pSrc)) return zorStsNullPtr;
    ownSubInv<1, 1, 4, false, true, true, 1>(planar(pSrc, srcStep), interleaved(pDst, dstStep), evenPart(roiSize));
    return oddWarning(roiSize);
}

// Minimum 2 x 2.
ZORCC_API ZorStatus zoriYUV420ToBGR_8u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst, int dstStep,
                                             ZoriSize roiSize) {
    if (anyNull(pSrc, srcStep, pDst)) return zorStsNullPtr;
    if (badSize(roiSize, 2, 2)) return zorStsBadSize;
    if (planesNull(pSrc)) return zorStsNullPtr;
    ownSubInv<1, 1, 3, false, false, false, 1>(planar(pSrc, srcStep), interleaved(pDst, dstStep, 2, 1, 0),
                                               evenPart(roiSize));
    return oddWarning(roiSize);
}

}  // extern "C"
