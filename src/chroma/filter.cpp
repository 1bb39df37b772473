// Filtered chroma layout conversions: four-tap interpolation of the missing
// 4:2:2 chroma rows, and the vertical deinterlacing filters from semi-planar
// 4:2:0 that can convert a picture in slices.
#include <algorithm>
#include <array>

#include "chroma/layout.h"

namespace zor {

namespace {

inline Zor8u clamp8(int v) { return static_cast<Zor8u>(v < 0 ? 0 : (v > 255 ? 255 : v)); }

}  // namespace

// ---------------------------------------------------------------------------
// Four-tap interpolation half-way between rows b and c:
// (-a + 9b + 9c - d + 8) >> 4, arithmetic shift, clamped to 0..255.
template <int SC>
void innerInterpolate4Tap(const Zor8u* a, const Zor8u* b, const Zor8u* c, const Zor8u* d, Zor8u* dst, int n) {
    for (int k = 0; k < n; ++k) {
        const int i = k * SC;
        const int v = 9 * (b[i] + c[i]) - a[i] - d[i] + 8;
        dst[k] = clamp8(asr(v, 4));
    }
}

// 4:2:0 to 4:2:2 with interpolated odd chroma rows. Width rounded down to
// even, height to a multiple of 8. Source chroma rows outside the picture are
// replaced by the nearest edge row.
template <class S, class D>
void ownInterpolate420To422(const Planes<const Zor8u>& src, const Planes<Zor8u>& dst, ZoriSize roi) {
    constexpr int SC = S::kCStride, DC = D::kCStride;
    const int w = roi.width & ~1;
    const int h = roi.height & ~7;
    const int n = w / 2;
    const int last = h / 2 - 1;
    serialRows(h, [&](int y) {
        copyRow(S::luma(src, y), D::luma(dst, y), w);
        const int j = y >> 1;
        const CbCr<Zor8u> out = D::chroma(dst, y);
        if ((y & 1) == 0) {
            innerMoveChroma<SC, DC, 1, 1, 1>(S::chroma(src, j), out, n);
            return;
        }
        const CbCr<const Zor8u> c0 = S::chroma(src, std::max(j - 1, 0)), c1 = S::chroma(src, j);
        const CbCr<const Zor8u> c2 = S::chroma(src, std::min(j + 1, last)),
                                c3 = S::chroma(src, std::min(j + 2, last));
        innerInterpolate4Tap<SC>(c0.cb, c1.cb, c2.cb, c3.cb, out.cb, n);
        innerInterpolate4Tap<SC>(c0.cr, c1.cr, c2.cr, c3.cr, out.cr, n);
    });
}

template <class Src, class Dst>
ZorStatus ownInterpolateEntry(const Src& src, const Dst& dst, ZoriSize roi) {
    if (src.isNull() || dst.isNull()) return zorStsNullPtr;
    if (badSize(roi, 2, 8)) return zorStsBadSize;
    ownInterpolate420To422<typename Src::Layout, typename Dst::Layout>(src.get(), dst.get(), roi);
    return zorStsOk;
}

// ---------------------------------------------------------------------------
// Deinterlacing filters. Luma: (above + 2 cur + below + LumaBias) >> 2,
// chroma: (cur + below + ChromaBias) >> 1, both clamped to 255. The source is
// semi-planar, so chroma samples are 2 bytes apart.

struct DeinterlaceTruncating {  // to planar 4:2:0
    static constexpr int kLumaBias = 0, kChromaBias = 0;
};
struct DeinterlaceRaised {  // to interleaved 4:2:2: one above the exact mean
    static constexpr int kLumaBias = 4, kChromaBias = 2;
};

template <class F>
inline Zor8u lumaTap(int above, int cur, int below) {
    const int v = (above + 2 * cur + below + F::kLumaBias) >> 2;
    return static_cast<Zor8u>(v > 255 ? 255 : v);
}

template <class F>
inline Zor8u chromaTap(int cur, int below) {
    const int v = (cur + below + F::kChromaBias) >> 1;
    return static_cast<Zor8u>(v > 255 ? 255 : v);
}

template <class F, int DY>
void innerDeinterlaceLuma(const Zor8u* above, const Zor8u* cur, const Zor8u* below, Zor8u* dst, int w) {
    for (int i = 0; i < w; ++i) dst[i * DY] = lumaTap<F>(above[i], cur[i], below[i]);
}

template <class F, int SC, int DC>
void innerDeinterlaceChroma(const Zor8u* cur, const Zor8u* below, Zor8u* dst, int n) {
    for (int k = 0; k < n; ++k) dst[k * DC] = chromaTap<F>(cur[k * SC], below[k * SC]);
}

// One C2 row whose luma and chroma are both written, in one pass.
template <class F, class D, int SC>
void innerDeinterlacePackRow(const Zor8u* above, const Zor8u* cur, const Zor8u* below, CbCr<const Zor8u> c0,
                             CbCr<const Zor8u> c1, Zor8u* dst, int n) {
    for (int k = 0; k < n; ++k) {
        Zor8u* o = dst + 4 * k;
        o[D::kY] = lumaTap<F>(above[2 * k], cur[2 * k], below[2 * k]);
        o[D::kY + 2] = lumaTap<F>(above[2 * k + 1], cur[2 * k + 1], below[2 * k + 1]);
        o[D::kCb] = chromaTap<F>(c0.cb[k * SC], c1.cb[k * SC]);
        o[D::kCr] = chromaTap<F>(c0.cr[k * SC], c1.cr[k * SC]);
    }
}

// Rows that one call converts, relative to the pointers it is given. Each
// slice but the bottom one stops one luma row and one chroma row short of
// its end (their filter needs the next slice's first row); each slice but the
// top one starts one row above its pointers to finish the previous slice.
struct SliceRows {
    int lumaBegin, lumaEnd;
    int chromaBegin, chromaEnd;
    bool topEdge, bottomEdge;
};

inline bool sliceRows(unsigned int layout, int h, SliceRows& r) {
    constexpr unsigned kTop = zorSliceTop, kMiddle = zorSliceMiddle, kBottom = zorSliceBottom;
    constexpr unsigned kWhole = zorSliceWhole;
    const bool top = layout == kTop, middle = layout == kMiddle, bottom = layout == kBottom;
    const bool whole = (layout & kWhole) == kWhole;
    if (!(top || middle || bottom || whole)) return false;
    const bool first = top || whole, lastSlice = bottom || whole;
    r.lumaBegin = first ? 0 : -1;
    r.chromaBegin = first ? 0 : -1;
    r.lumaEnd = lastSlice ? h : h - 1;
    r.chromaEnd = lastSlice ? h / 2 : h / 2 - 1;
    r.topEdge = first;
    r.bottomEdge = lastSlice;
    return true;
}

template <class F, class S, class D>
void ownDeinterlace(const Planes<const Zor8u>& src, const Planes<Zor8u>& dst, ZoriSize roi, const SliceRows& r) {
    constexpr int SC = S::kCStride, DY = D::kYStride, DC = D::kCStride;
    const int w = roi.width & ~1;
    const int h = roi.height & ~1;
    const int n = w / 2;
    const auto lumaRows = [&](int y) {
        const int above = (r.topEdge && y == 0) ? y : y - 1;
        const int below = (r.bottomEdge && y == h - 1) ? y : y + 1;
        return std::array<const Zor8u*, 3>{S::luma(src, above), S::luma(src, y), S::luma(src, below)};
    };
    const auto chromaRows = [&](int j) {
        const int below = (r.bottomEdge && j == h / 2 - 1) ? j : j + 1;
        return std::array<CbCr<const Zor8u>, 2>{S::chroma(src, j), S::chroma(src, below)};
    };
    const auto writeLuma = [&](int y) {
        const auto l = lumaRows(y);
        innerDeinterlaceLuma<F, DY>(l[0], l[1], l[2], D::luma(dst, y), w);
    };
    const auto writeChroma = [&](int j, int destRow) {
        const auto c = chromaRows(j);
        const CbCr<Zor8u> out = D::chroma(dst, destRow);
        innerDeinterlaceChroma<F, SC, DC>(c[0].cb, c[1].cb, out.cb, n);
        innerDeinterlaceChroma<F, SC, DC>(c[0].cr, c[1].cr, out.cr, n);
    };

    if constexpr (!D::kPacked) {
        for (int y = r.lumaBegin; y < r.lumaEnd; ++y) writeLuma(y);
        for (int j = r.chromaBegin; j < r.chromaEnd; ++j) writeChroma(j, j);
    } else {
        // Chroma row j is the chroma of rows 2j and 2j+1; rows that get both
        // luma and chroma are written in one pass.
        const int first = std::min(r.lumaBegin, 2 * r.chromaBegin);
        const int end = std::max(r.lumaEnd, 2 * r.chromaEnd);
        for (int y = first; y < end; ++y) {
            const int j = (y - (y < 0 ? 1 : 0)) / 2;  // floor(y / 2)
            const bool hasLuma = y >= r.lumaBegin && y < r.lumaEnd;
            const bool hasChroma = j >= r.chromaBegin && j < r.chromaEnd;
            if (hasLuma && hasChroma) {
                const auto l = lumaRows(y);
                const auto c = chromaRows(j);
                innerDeinterlacePackRow<F, D, SC>(l[0], l[1], l[2], c[0], c[1], dst.p[0].row(y), n);
            } else if (hasLuma) {
                writeLuma(y);
            } else if (hasChroma) {
                writeChroma(j, y);
            }
        }
    }
}

}  // namespace zor

using namespace zor;

extern "C" {

ZORCC_API ZorStatus zoriYCbCr420ToYCbCr422_Filter_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3],
                                                         Zor8u* const pDst[3], const int dstStep[3],
                                                         ZoriSize roiSize) {
    return ownInterpolateEntry(SrcP3<Sub::k420>{pSrc, srcStep}, DstP3<Sub::k422>{pDst, dstStep}, roiSize);
}

ZORCC_API ZorStatus zoriYCrCb420ToYCbCr422_Filter_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3],
                                                         Zor8u* const pDst[3], const int dstStep[3],
                                                         ZoriSize roiSize) {
    return ownInterpolateEntry(SrcP3<Sub::k420, true>{pSrc, srcStep}, DstP3<Sub::k422>{pDst, dstStep}, roiSize);
}

ZORCC_API ZorStatus zoriYCbCr420ToYCbCr422_Filter_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr,
                                                           int srcCbCrStep, Zor8u* const pDst[3],
                                                           const int dstStep[3], ZoriSize roiSize) {
    return ownInterpolateEntry(SrcP2<Sub::k420>{pSrcY, srcYStep, pSrcCbCr, srcCbCrStep},
                               DstP3<Sub::k422>{pDst, dstStep}, roiSize);
}

ZORCC_API ZorStatus zoriYCbCr420ToYCrCb420_Filter_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr,
                                                           int srcCbCrStep, Zor8u* const pDst[3],
                                                           const int dstStep[3], ZoriSize roiSize,
                                                           unsigned int layout) {
    // The outer pointers, a size below 1, the destination planes, then a size
    // below 2: this interleaving is the member's order of checks.
    if (anyNull(pSrcY, pSrcCbCr, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (anyNull(pDst[0], pDst[1], pDst[2])) return zorStsNullPtr;
    if (badSize(roiSize, 2, 2)) return zorStsBadSize;
    SliceRows rows;
    if (!sliceRows(layout, roiSize.height & ~1, rows)) return zorStsOk;
    const SrcP2<Sub::k420> src{pSrcY, srcYStep, pSrcCbCr, srcCbCrStep};
    const DstP3<Sub::k420, true> dst{pDst, dstStep};
    ownDeinterlace<DeinterlaceTruncating, decltype(src)::Layout, decltype(dst)::Layout>(src.get(), dst.get(),
                                                                                        roiSize, rows);
    return zorStsOk;
}

ZORCC_API ZorStatus zoriYCbCr420ToYCbCr422_Filter_8u_P2C2R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr,
                                                           int srcCbCrStep, Zor8u* pDst, int dstStep,
                                                           ZoriSize roiSize, unsigned int layout) {
    if (anyNull(pSrcY, pSrcCbCr, pDst)) return zorStsNullPtr;
    if (badSize(roiSize, 2, 2)) return zorStsBadSize;
    SliceRows rows;
    if (!sliceRows(layout, roiSize.height & ~1, rows)) return zorStsOk;
    const SrcP2<Sub::k420> src{pSrcY, srcYStep, pSrcCbCr, srcCbCrStep};
    const DstC2<PackedYCbYCr> dst{pDst, dstStep};
    ownDeinterlace<DeinterlaceRaised, decltype(src)::Layout, decltype(dst)::Layout>(src.get(), dst.get(), roiSize,
                                                                                    rows);
    return zorStsOk;
}

}  // extern "C"
