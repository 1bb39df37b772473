// Planar YCrCb 4:2:0 to BGRA with vertically interpolated chroma, serial rows.
#include "video/chroma_share.h"
#include "video/group_encoder.h"

namespace zor {
namespace {

// Chroma of one full-height row at column k: for an even row the chroma row
// itself (rows[1]); for an odd row the four-tap half-way interpolation
// (-1, 9, 9, -1) / 16 of rows[0..3], rounded by +8, floored, clamped.
template <bool Interpolate>
inline int chromaAt(const Zor8u* const rows[4], int k) {
    if constexpr (!Interpolate) {
        return rows[1][k];
    } else {
        const std::int32_t v = asr(-rows[0][k] + 9 * rows[1][k] + 9 * rows[2][k] - rows[3][k] + 8, 4);
        return v < 0 ? 0 : v > 255 ? 255 : v;
    }
}

// One output row of an even width: each chroma sample serves a pixel pair,
// decoded with set B, written B, G, R, aval.
template <bool Interpolate>
void innerYCrCb420ToBGR_Filter(const Zor8u* y, const Zor8u* const cr[4], const Zor8u* const cb[4], Zor8u* dst,
                               int width, Zor8u aval) {
    const BgrOutC4 out{dst, aval};
    for (int k = 0; k < width / 2; ++k) {
        const int vcr = chromaAt<Interpolate>(cr, k), vcb = chromaAt<Interpolate>(cb, k);
        out(2 * k, SetB::decode(y[2 * k], vcb, vcr));
        out(2 * k + 1, SetB::decode(y[2 * k + 1], vcb, vcr));
    }
}

void ownYCrCb420ToBGR_Filter(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst, int dstStep,
                             ZoriSize roi, Zor8u aval) {
    const int width = roi.width & ~1;
    const int height = roi.height & ~7;
    const int chromaRows = height / 2;
    const Plane<Zor8u> d = plane(pDst, dstStep);
    auto clampRow = [&](int j) { return j < 0 ? 0 : j >= chromaRows ? chromaRows - 1 : j; };
    serialRows(height, [&](int yy) {
        const int j = yy / 2;
        const Zor8u* cr[4];
        const Zor8u* cb[4];
        for (int t = 0; t < 4; ++t) {
            const int r = clampRow(j - 1 + t);
            cr[t] = rowAt(pSrc[1], srcStep[1], r);
            cb[t] = rowAt(pSrc[2], srcStep[2], r);
        }
        const Zor8u* y = rowAt(pSrc[0], srcStep[0], yy);
        if (yy & 1)
            innerYCrCb420ToBGR_Filter<true>(y, cr, cb, d.row(yy), width, aval);
        else
            innerYCrCb420ToBGR_Filter<false>(y, cr, cb, d.row(yy), width, aval);
    });
}

}  // namespace
}  // namespace zor

using namespace zor;

extern "C" {

ZORCC_API ZorStatus zoriYCrCb420ToBGR_Filter_8u_P3C4R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst,
                                                      int dstStep, ZoriSize roiSize, Zor8u aval) {
    if (anyNull(pSrc, srcStep, pDst) || anyNull(pSrc[0], pSrc[1], pSrc[2])) return zorStsNullPtr;
    if (badSize(roiSize, 2, 8)) return zorStsBadSize;
    ownYCrCb420ToBGR_Filter(pSrc, srcStep, pDst, dstStep, roiSize, aval);
    return roundedSizeStatus(roiSize, 2, 8);
}

}  // extern "C"
