// Chroma layout conversions of 8-bit subsampled YCbCr video.
//
// Every picture, whatever its memory layout, is seen as three components
// (Y, Cb, Cr). Its layout says where row r of each component starts and how
// many bytes apart the component's samples lie:
//   P3 (planar)        Y, Cb, Cr each a plane of their own, stride 1;
//   P2 (semi-planar)   Y plane; Cb at byte 0 and Cr at byte 1 of the
//                      interleaved chroma plane, stride 2;
//   C2 (interleaved)   one plane; Y at the first luma byte of the pair with
//                      stride 2, Cb and Cr at their byte of the pair with
//                      stride 4 (4:2:2 only).
// A member of the family is then a pair of such descriptions plus its
// minimum size; the generic movers below do all the work.
#pragma once

#include <climits>
#include <cstddef>

#include "core/frame.h"

namespace zor {

enum class Sub { k422, k420, k411 };

// The planes of one picture: P3 Y, Cb, Cr (always in this order here);
// P2 Y and the interleaved chroma plane; C2 the one plane.
template <class T>
struct Planes {
    Plane<T> p[3];
};

template <class T>
struct CbCr {
    T* cb;
    T* cr;
};

// Layouts: subsampling, sample strides and where row y of each component
// starts. Cr of a P2 or C2 row is addressed from the same row pointer as Cb,
// so that the compiler sees the samples of one row as one group.
template <Sub S>
struct PlanarLayout {
    static constexpr Sub kSub = S;
    static constexpr int kYStride = 1, kCStride = 1;
    static constexpr bool kPacked = false;
    template <class T>
    static T* luma(const Planes<T>& p, int y) {
        return p.p[0].row(y);
    }
    template <class T>
    static CbCr<T> chroma(const Planes<T>& p, int r) {
        return {p.p[1].row(r), p.p[2].row(r)};
    }
};

template <Sub S>
struct SemiPlanarLayout {
    static constexpr Sub kSub = S;
    static constexpr int kYStride = 1, kCStride = 2;
    static constexpr bool kPacked = false;
    template <class T>
    static T* luma(const Planes<T>& p, int y) {
        return p.p[0].row(y);
    }
    template <class T>
    static CbCr<T> chroma(const Planes<T>& p, int r) {
        T* c = p.p[1].row(r);
        return {c, c + 1};
    }
};

// Byte positions of Y0, Cb and Cr in a C2 pixel pair (Y1 follows Y0 by 2).
template <int Y0, int Cb, int Cr>
struct PackedLayout {
    static constexpr Sub kSub = Sub::k422;
    static constexpr int kYStride = 2, kCStride = 4;
    static constexpr bool kPacked = true;
    static constexpr int kY = Y0, kCb = Cb, kCr = Cr;
    template <class T>
    static T* luma(const Planes<T>& p, int y) {
        return p.p[0].row(y) + kY;
    }
    template <class T>
    static CbCr<T> chroma(const Planes<T>& p, int r) {
        T* row = p.p[0].row(r);
        return {row + kCb, row + kCr};
    }
};
using PackedYCbYCr = PackedLayout<0, 1, 3>;  // Y0 Cb Y1 Cr
using PackedCbYCrY = PackedLayout<1, 0, 2>;  // Cb Y0 Cr Y1
using PackedYCrYCb = PackedLayout<0, 3, 1>;  // Y0 Cr Y1 Cb

// ---------------------------------------------------------------------------
// Arguments of the exported functions, by layout. Each knows how to test its
// pointers (in argument order) and hands its planes to its layout.

// Planar: array of three plane pointers in the layout's order and an array of
// three steps. CrFirst: planes Y, Cr, Cb.
template <class T, Sub S, bool CrFirst = false>
struct LayoutP3 {
    using Layout = PlanarLayout<S>;
    T* const* planes;
    const int* steps;
    bool isNull() const { return planes == nullptr || anyNull(planes[0], planes[1], planes[2]); }
    Planes<T> get() const {
        const int b = CrFirst ? 2 : 1, r = CrFirst ? 1 : 2;
        return {{plane(planes[0], steps[0]), plane(planes[b], steps[b]), plane(planes[r], steps[r])}};
    }
};

// Semi-planar: a luma plane and one plane of interleaved Cb Cr pairs.
template <class T, Sub S>
struct LayoutP2 {
    using Layout = SemiPlanarLayout<S>;
    T* y;
    int yStep;
    T* c;
    int cStep;
    bool isNull() const { return anyNull(y, c); }
    Planes<T> get() const { return {{plane(y, yStep), plane(c, cStep), plane(c, cStep)}}; }
};

// Interleaved 4:2:2: one pointer and one step.
template <class T, class L>
struct LayoutC2 {
    using Layout = L;
    T* p;
    int step;
    bool isNull() const { return p == nullptr; }
    Planes<T> get() const { return {{plane(p, step), plane(p, step), plane(p, step)}}; }
};

template <Sub S, bool CrFirst = false>
using SrcP3 = LayoutP3<const Zor8u, S, CrFirst>;
template <Sub S, bool CrFirst = false>
using DstP3 = LayoutP3<Zor8u, S, CrFirst>;
template <Sub S>
using SrcP2 = LayoutP2<const Zor8u, S>;
template <Sub S>
using DstP2 = LayoutP2<Zor8u, S>;
template <class L>
using SrcC2 = LayoutC2<const Zor8u, L>;
template <class L>
using DstC2 = LayoutC2<Zor8u, L>;

// Minimum height of the members that have none: any height is accepted and a
// height of zero or less converts no rows.
constexpr int kNoMinHeight = INT_MIN;

// ---------------------------------------------------------------------------
// Row movers

// Copies n bytes. Non-overlapping ranges are block-copied; overlapping ranges
// are copied byte by byte in ascending address order.
void copyRow(const Zor8u* src, Zor8u* dst, int n);

// Moves n samples between two strided runs: dst[i*DS] = src[i*SS].
template <int SS, int DS>
inline void innerMoveSamples(const Zor8u* src, Zor8u* dst, int n) {
    if constexpr (SS == 1 && DS == 1) {
        copyRow(src, dst, n);
    } else {
        for (int i = 0; i < n; ++i) dst[i * DS] = src[i * SS];
    }
}

// Moves n chroma pairs. Source sample k of each component is taken at index
// SM*k (stride SC bytes) and written to indexes DM*k .. DM*k + Rep - 1
// (stride DC bytes). The four horizontal rules:
//   same count      SM 1, DM 1, Rep 1
//   decimation      SM 2, DM 1, Rep 1  (keep every other sample; a phase
//                                       is applied by offsetting the source)
//   replication     SM 1, DM 2, Rep 2  (write every sample twice)
template <int SC, int DC, int SM, int DM, int Rep>
inline void innerMoveChroma(CbCr<const Zor8u> s, CbCr<Zor8u> d, int n) {
    for (int k = 0; k < n; ++k) {
        const Zor8u b = s.cb[SM * k * SC];
        const Zor8u r = s.cr[SM * k * SC];
        for (int i = 0; i < Rep; ++i) {
            d.cb[(DM * k + i) * DC] = b;
            d.cr[(DM * k + i) * DC] = r;
        }
    }
}

// Fills n chroma pairs of a row from two rows: even positions from the first,
// odd positions from the second (4:1:1 rows 2j and 2j+1 into 4:2:0 row j).
template <int SC, int DC>
inline void innerMergeChroma(CbCr<const Zor8u> even, CbCr<const Zor8u> odd, CbCr<Zor8u> d, int n) {
    for (int k = 0; k < n; ++k) {
        d.cb[2 * k * DC] = even.cb[k * SC];
        d.cr[2 * k * DC] = even.cr[k * SC];
        d.cb[(2 * k + 1) * DC] = odd.cb[k * SC];
        d.cr[(2 * k + 1) * DC] = odd.cr[k * SC];
    }
}

// Writes one row of a C2 picture, n chroma samples each spread over Rep pixel
// pairs (Rep 2: 4:1:1 chroma written twice), luma and chroma in one pass.
template <class D, int SY, int SC, int Rep>
inline void innerPackRow(const Zor8u* y, CbCr<const Zor8u> c, Zor8u* dst, int n) {
    for (int k = 0; k < n; ++k) {
        const Zor8u b = c.cb[k * SC];
        const Zor8u r = c.cr[k * SC];
        for (int i = 0; i < Rep; ++i) {
            const int pair = Rep * k + i;
            Zor8u* o = dst + 4 * pair;
            o[D::kY] = y[2 * pair * SY];
            o[D::kY + 2] = y[(2 * pair + 1) * SY];
            o[D::kCb] = b;
            o[D::kCr] = r;
        }
    }
}

// Converts a picture from one layout and subsampling to another by moving
// samples only. The width is rounded down to a multiple of 4 when 4:1:1 is on
// either side (else to even), the height to even when 4:2:0 is on either side.
//
// Luma row y is moved as it is. Chroma, per luma row y:
//   the source chroma row is y/2 for 4:2:0 and y otherwise, likewise the
//   destination row; a 4:2:0 destination fed from 4:2:2 or 4:2:0 takes the
//   chroma of the even rows only; 4:2:2 -> 4:1:1 keeps the even samples;
//   4:1:1 -> 4:2:2 writes every sample twice; 4:2:0 row j holds 4:1:1 rows
//   2j (even positions) and 2j+1 (odd positions) in both directions.
template <class S, class D>
void ownMoveLayout(const Planes<const Zor8u>& src, const Planes<Zor8u>& dst, ZoriSize roi) {
    constexpr Sub A = S::kSub, B = D::kSub;
    constexpr bool any411 = A == Sub::k411 || B == Sub::k411;
    constexpr bool any420 = A == Sub::k420 || B == Sub::k420;
    constexpr int SY = S::kYStride, DY = D::kYStride;
    constexpr int SC = S::kCStride, DC = D::kCStride;

    const int w = roi.width & (any411 ? ~3 : ~1);
    const int h = any420 ? roi.height & ~1 : roi.height;
    const int n = any411 ? w / 4 : w / 2;

    serialRows(h, [&](int y) {
        const int sr = A == Sub::k420 ? y >> 1 : y;
        const int dr = B == Sub::k420 ? y >> 1 : y;
        const Zor8u* sy = S::luma(src, y);
        const CbCr<const Zor8u> sc = S::chroma(src, sr);
        if constexpr (D::kPacked) {
            // 4:2:2 destination: every row gets luma and chroma.
            innerPackRow<D, SY, SC, A == Sub::k411 ? 2 : 1>(sy, sc, dst.p[0].row(y), n);
            return;
        }
        innerMoveSamples<SY, DY>(sy, D::luma(dst, y), w);
        if constexpr (B == Sub::k420) {
            // One destination chroma row per row pair: from the even row
            // (4:2:2, 4:2:0) or from both rows (4:1:1).
            if (A == Sub::k411 ? (y & 1) == 0 : (y & 1) != 0) return;
        }
        const int phase = y & 1;
        const CbCr<Zor8u> dc = D::chroma(dst, dr);
        if constexpr (A == B || !any411) {
            innerMoveChroma<SC, DC, 1, 1, 1>(sc, dc, n);
        } else if constexpr (B == Sub::k411) {
            const int p = A == Sub::k420 ? phase * SC : 0;
            innerMoveChroma<SC, DC, 2, 1, 1>({sc.cb + p, sc.cr + p}, dc, n);
        } else if constexpr (B == Sub::k422) {
            innerMoveChroma<SC, DC, 1, 2, 2>(sc, dc, n);
        } else {
            innerMergeChroma<SC, DC>(S::chroma(src, y - 1), sc, dc, n);
        }
    });
}

// Exported-function body of the plain members: pointers (source arguments,
// then destination arguments), then the size, then the move.
template <class Src, class Dst>
ZorStatus ownConvertLayout(const Src& src, const Dst& dst, ZoriSize roi, int minWidth, int minHeight) {
    if (src.isNull() || dst.isNull()) return zorStsNullPtr;
    if (badSize(roi, minWidth, minHeight)) return zorStsBadSize;
    ownMoveLayout<typename Src::Layout, typename Dst::Layout>(src.get(), dst.get(), roi);
    return zorStsOk;
}

}  // namespace zor
