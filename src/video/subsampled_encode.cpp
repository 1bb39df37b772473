// RGB and BGR to subsampled YCbCr (4:2:2 packed and planar, 4:2:0, 4:1:1),
// 8-bit, serial rows.
#include "twist/gamma_tables.h"
#include "video/group_encoder.h"

namespace zor {
namespace {

// R, G, B bytes through the forward gamma curve, read from an RGB row.
struct GammaRgbC3 {
    const Zor8u* p;
    Rgb8 operator()(int x) const {
        const Zor8u* q = p + static_cast<std::ptrdiff_t>(x) * 3;
        return {tableFwd8u[q[0]], tableFwd8u[q[1]], tableFwd8u[q[2]]};
    }
};

// Filtered 4:2:2 encoder into Cb Y0 Cr Y1: the chroma of pair k weighs the
// pixels 2k - 1, 2k, 2k + 1 by 1/4, 1/2, 1/4, each product floor-shifted on
// its own; the left term of the first pair is 0 (no edge repetition), and the
// sum takes 8421375, one unit less than offset and half. Lumas are rounded. A
// last odd pixel writes its Y and a Cb of its own with a full half, no Cr.
template <class Reader>
void innerRGBToCbYCr422Filtered(const Reader& src, Zor8u* d, int width) {
    constexpr std::int32_t kChromaBias = 128 * 65536 + 32767;
    std::int32_t leftCb = 0, leftCr = 0;
    const int pairs = width / 2;
    for (int k = 0; k < pairs; ++k, d += 4) {
        const Rgb8 p0 = src(2 * k), p1 = src(2 * k + 1);
        const std::int32_t rightCb = asr(cbProduct(p1.r, p1.g, p1.b), 2);
        const std::int32_t rightCr = asr(crProduct(p1.r, p1.g, p1.b), 2);
        const std::int32_t cb = asr(cbProduct(p0.r, p0.g, p0.b), 1) + leftCb + rightCb + kChromaBias;
        const std::int32_t cr = asr(crProduct(p0.r, p0.g, p0.b), 1) + leftCr + rightCr + kChromaBias;
        d[0] = static_cast<Zor8u>(cb >> 16);
        d[1] = lumaOf(p0, kLumaRounded);
        d[2] = static_cast<Zor8u>(cr >> 16);
        d[3] = lumaOf(p1, kLumaRounded);
        leftCb = rightCb;
        leftCr = rightCr;
    }
    if (width & 1) {
        const YCbCr8 c = [&] {
            const Rgb8 p = src(width - 1);
            return encodeYCbCr(p.r, p.g, p.b);
        }();
        d[0] = c.cb;
        d[1] = c.y;
    }
}

template <class Reader>
void rowsRGBToCbYCr422Filtered(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roi) {
    const Plane<const Zor8u> s = plane(pSrc, srcStep);
    const Plane<Zor8u> d = plane(pDst, dstStep);
    serialRows(roi.height, [&](int y) { innerRGBToCbYCr422Filtered(Reader{s.row(y)}, d.row(y), roi.width); });
}

// Interleaved source to packed 4:2:2: pointers, then the minimum width.
template <class Rule, class Order, class Reader>
ZorStatus packedEntry(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roi, int minWidth) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roi, minWidth, 1)) return zorStsBadSize;
    encodePacked422Rows<Rule, Order, Reader>(pSrc, srcStep, pDst, dstStep, roi);
    return zorStsOk;
}

// BGR / BGRA to planar: the planes (and the array of steps) are tested with
// the outer pointers, before the size.
template <class Rule, class Reader>
ZorStatus bgrPlanarEntry(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roi,
                         bool swapChroma) {
    if (anyNull(pSrc, pDst, dstStep) || anyNull(pDst[0], pDst[1], pDst[2])) return zorStsNullPtr;
    // Minimum: one whole group (2 x 1, 2 x 2, 4 x 1).
    if (badSize(roi, Rule::kCols, Rule::kRows)) return zorStsBadSize;
    encodePlanarRows<Rule, Reader>(pSrc, srcStep, pDst, dstStep, swapChroma, roi);
    if (Rule::kCols * Rule::kRows == 2) return zorStsOk;  // 4:2:2 never warns
    return roundedSizeStatus(roi, Rule::kCols, Rule::kRows);
}

}  // namespace
}  // namespace zor

using namespace zor;

extern "C" {

// --- RGB to 4:2:2 packed Y0 Cb Y1 Cr (Y1 truncated) -------------------------

ZORCC_API ZorStatus zoriRGBToYCbCr422_8u_C3C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                               ZoriSize roiSize) {
    return packedEntry<RuleE422, OrderYCbCr, RgbC3>(pSrc, srcStep, pDst, dstStep, roiSize, 1);
}

ZORCC_API ZorStatus zoriRGBToYCbCr422_8u_P3C2R(const Zor8u* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep,
                                               ZoriSize roiSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (anyNull(pSrc[0], pSrc[1], pSrc[2])) return zorStsNullPtr;
    const std::ptrdiff_t ss = srcStep;
    const Plane<Zor8u> d = plane(pDst, dstStep);
    serialRows(roiSize.height, [&](int y) {
        Packed422Sink<OrderYCbCr> sink{d.row(y)};
        encode422Row<RuleE422>(PlanarRgb{rowAt(pSrc[0], ss, y), rowAt(pSrc[1], ss, y), rowAt(pSrc[2], ss, y)},
                               sink, roiSize.width);
    });
    return zorStsOk;
}

// --- RGB to 4:2:0 planar ----------------------------------------------------

ZORCC_API ZorStatus zoriRGBToYCbCr420_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                               const int dstStep[3], ZoriSize roiSize) {
    if (anyNull(pSrc, pDst, dstStep)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (anyNull(pDst[0], pDst[1], pDst[2])) return zorStsNullPtr;
    encodePlanarRows<RuleE420, RgbC3>(pSrc, srcStep, pDst, dstStep, false, roiSize);
    return roundedSizeStatus(roiSize, 2, 2);
}

// --- Cb Y0 Cr Y1 ------------------------------------------------------------

ZORCC_API ZorStatus zoriBGRToCbYCr422_8u_AC4C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                                ZoriSize roiSize) {
    return packedEntry<RuleECbY, OrderCbYCr, BgrAC4>(pSrc, srcStep, pDst, dstStep, roiSize, 1);
}

ZORCC_API ZorStatus zoriRGBToCbYCr422_8u_C3C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                               ZoriSize roiSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    rowsRGBToCbYCr422Filtered<RgbC3>(pSrc, srcStep, pDst, dstStep, roiSize);
    return zorStsOk;
}

ZORCC_API ZorStatus zoriRGBToCbYCr422Gamma_8u_C3C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                                    ZoriSize roiSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (anyBadStep(srcStep, dstStep)) return zorStsStepErr;
    rowsRGBToCbYCr422Filtered<GammaRgbC3>(pSrc, srcStep, pDst, dstStep, roiSize);
    return zorStsOk;
}

// --- BGR to 4:2:2 (chroma bias one eighth, minimum width 2) -----------------

ZORCC_API ZorStatus zoriBGRToYCbCr422_8u_C3C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                               ZoriSize roiSize) {
    return packedEntry<RuleEB422, OrderYCbCr, BgrC3>(pSrc, srcStep, pDst, dstStep, roiSize, 2);
}

ZORCC_API ZorStatus zoriBGRToYCbCr422_8u_AC4C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                                ZoriSize roiSize) {
    return packedEntry<RuleEB422, OrderYCbCr, BgrAC4>(pSrc, srcStep, pDst, dstStep, roiSize, 2);
}

ZORCC_API ZorStatus zoriBGRToYCbCr422_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                               const int dstStep[3], ZoriSize roiSize) {
    return bgrPlanarEntry<RuleEB422, BgrC3>(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

ZORCC_API ZorStatus zoriBGRToYCbCr422_8u_AC4P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                const int dstStep[3], ZoriSize roiSize) {
    return bgrPlanarEntry<RuleEB422, BgrAC4>(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

// --- BGR to 4:2:0 and 4:1:1 ---------------------------------------------------

ZORCC_API ZorStatus zoriBGRToYCbCr420_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                               const int dstStep[3], ZoriSize roiSize) {
    return bgrPlanarEntry<RuleE420, BgrC3>(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

ZORCC_API ZorStatus zoriBGRToYCbCr420_8u_AC4P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                const int dstStep[3], ZoriSize roiSize) {
    return bgrPlanarEntry<RuleE420, BgrAC4>(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

ZORCC_API ZorStatus zoriBGRToYCrCb420_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                               const int dstStep[3], ZoriSize roiSize) {
    return bgrPlanarEntry<RuleE420, BgrC3>(pSrc, srcStep, pDst, dstStep, roiSize, true);
}

ZORCC_API ZorStatus zoriBGRToYCrCb420_8u_AC4P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                const int dstStep[3], ZoriSize roiSize) {
    return bgrPlanarEntry<RuleE420, BgrAC4>(pSrc, srcStep, pDst, dstStep, roiSize, true);
}

ZORCC_API ZorStatus zoriBGRToYCbCr411_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                               const int dstStep[3], ZoriSize roiSize) {
    return bgrPlanarEntry<RuleE411, BgrC3>(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

ZORCC_API ZorStatus zoriBGRToYCbCr411_8u_AC4P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                const int dstStep[3], ZoriSize roiSize) {
    return bgrPlanarEntry<RuleE411, BgrAC4>(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

}  // extern "C"
