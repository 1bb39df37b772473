// Chroma layout conversions of 8-bit subsampled YCbCr video: the sides a
// conversion reads and writes, the row kernels written once over them, and
// the family's checks.
//
// A side says where the samples of one row lie, whatever the memory layout:
//   PlanarSide<V, H>      Y, Cb, Cr planes (or Y, Cr, Cb), samples 1 byte
//                         apart;
//   SemiPlanarSide<V, H>  a Y plane and one plane of Cb Cr pairs, chroma
//                         samples 2 bytes apart;
//   PackedSide<Order>     one plane of 4:2:2 pixel pairs, luma samples 2 and
//                         chroma samples 4 bytes apart.
// Chroma row y >> V serves luma row y; one chroma sample serves H pixels.
// The image argument of a side (ImageOf<L, T>) carries the same V and H, so
// the row views hand the kernels rows of exactly this geometry.
#pragma once

#include "core/arith.h"
#include "core/checks.h"
#include "core/image.h"
#include "video/pixels.h"

#include <tuple>
#include <type_traits>

namespace zor {

// Y0 Cr Y1 Cb, the packed order with the chroma swapped.
struct OrderYCrCb {
    static constexpr int kY0 = 0, kCr = 1, kY1 = 2, kCb = 3;
};

template <int V, int H, bool CrFirst = false>
struct PlanarSide {
    static constexpr int kV = V, kH = H, kLumaStride = 1, kChromaStride = 1;
    template <class T>
    using Image = P3<T, Steps::Three, V, H>;
    template <class T>
    static T* luma(Row3<T, H> r) { return r.p[0]; }
    template <class T>
    static T* cb(Row3<T, H> r) { return r.p[CrFirst ? 2 : 1]; }
    template <class T>
    static T* cr(Row3<T, H> r) { return r.p[CrFirst ? 1 : 2]; }
};

template <int V, int H>
struct SemiPlanarSide {
    static constexpr int kV = V, kH = H, kLumaStride = 1, kChromaStride = 2;
    template <class T>
    using Image = P2<T, V, H>;
    template <class T>
    static T* luma(Row2<T, H> r) { return r.y; }
    template <class T>
    static T* cb(Row2<T, H> r) { return r.c; }
    template <class T>
    static T* cr(Row2<T, H> r) { return r.c + 1; }
};

template <class Order>
struct PackedSide {
    static_assert(Order::kY1 == Order::kY0 + 2, "the two luma bytes of a pair lie 2 bytes apart");
    static constexpr int kV = 0, kH = 2, kLumaStride = 2, kChromaStride = 4;
    template <class T>
    using Image = C<T, 2>;
    template <class T>
    static T* luma(RowC<T, 2> r) { return r.p + Order::kY0; }
    template <class T>
    static T* cb(RowC<T, 2> r) { return r.p + Order::kCb; }
    template <class T>
    static T* cr(RowC<T, 2> r) { return r.p + Order::kCr; }
};

using Planar422 = PlanarSide<0, 2>;
using Planar420 = PlanarSide<1, 2>;
using Planar411 = PlanarSide<0, 4>;
using PlanarCr422 = PlanarSide<0, 2, true>;  // planes Y, Cr, Cb
using PlanarCr420 = PlanarSide<1, 2, true>;
using Semi420 = SemiPlanarSide<1, 2>;
using Semi411 = SemiPlanarSide<0, 4>;
using PackedYCbCr = PackedSide<OrderYCbCr>;
using PackedCbYCr = PackedSide<OrderCbYCr>;
using PackedYCrCb = PackedSide<OrderYCrCb>;

template <class L, class T>
using ImageOf = typename L::template Image<T>;
template <class L, class T>
using RowIn = typename ImageOf<L, T>::Row;

// A run over source side S and destination side D takes exactly their images.
template <class S, class D, class Images>
inline constexpr bool kSidesMatch = std::is_same_v<Images, std::tuple<ImageOf<S, const Zor8u>, ImageOf<D, Zor8u>>>;

// Argument groups of the export tables (see core/export.h).
#define SRC_C2 IN_C(Zor8u, 2)
#define DST_C2 OUT_C(Zor8u, 2)
#define SRC_P3_422 IN_P3S(Zor8u, 0, 2)
#define SRC_P3_420 IN_P3S(Zor8u, 1, 2)
#define SRC_P3_411 IN_P3S(Zor8u, 0, 4)
#define DST_P3_422 OUT_P3S(Zor8u, 0, 2)
#define DST_P3_420 OUT_P3S(Zor8u, 1, 2)
#define DST_P3_411 OUT_P3S(Zor8u, 0, 4)
#define SRC_P2_420 IN_P2(Zor8u, 1, 2)
#define SRC_P2_411 IN_P2(Zor8u, 0, 4)
#define DST_P2_420 OUT_P2(Zor8u, 1, 2)
#define DST_P2_411 OUT_P2(Zor8u, 0, 4)

// ---------------------------------------------------------------------------
// Checks: the pointers (arrays and the planes in them), then the size.

template <int W, int H>
using LayoutChecks = Checks<check::Null<kOuter | kPlanes>, check::Size<W, H>>;
using NoMinHeight = LayoutChecks<2, check::kAnyHeight>;
using NoMinHeight411 = LayoutChecks<4, check::kAnyHeight>;

// The planes of the source array, read without a test of the array itself.
struct SourcePlanes {
    template <class S, class... A>
    static ZorStatus test(ZoriSize, const S& src, const A&...) {
        const bool none = src.planes[0] == nullptr || src.planes[1] == nullptr || src.planes[2] == nullptr;
        return none ? zorStsNullPtr : zorStsOk;
    }
};

// ---------------------------------------------------------------------------
// Row kernels

// Copies n bytes. Non-overlapping ranges are block-copied; overlapping ranges
// are copied byte by byte in ascending address order.
void copyRow(const Zor8u* src, Zor8u* dst, int n);

// Moves n samples from a run SS bytes apart to a run DS bytes apart.
template <int SS, int DS>
inline void moveSamples(const Zor8u* src, Zor8u* dst, int n) {
    if constexpr (SS == 1 && DS == 1) {
        copyRow(src, dst, n);
    } else {
        for (int i = 0; i < n; ++i) dst[i * DS] = src[i * SS];
    }
}

// Fills the n chroma pairs of a destination row: pair k takes source pair
// k * D::kH / S::kH + phase (4:2:2 -> 4:1:1 keeps the first of each two,
// 4:1:1 -> 4:2:2 writes every pair twice).
template <class S, class D>
inline void moveChroma(RowIn<S, const Zor8u> s, RowIn<D, Zor8u> d, int n, int phase = 0) {
    constexpr int SC = S::kChromaStride, DC = D::kChromaStride;
    const Zor8u *cb = S::cb(s), *cr = S::cr(s);
    Zor8u *ob = D::cb(d), *orr = D::cr(d);
    for (int k = 0; k < n; ++k) {
        const int i = (k * D::kH / S::kH + phase) * SC;
        ob[k * DC] = cb[i];
        orr[k * DC] = cr[i];
    }
}

// Rows that stand alone (neither side 4:2:0): luma copied, chroma moved.
template <class S, class D>
void moveRow(RowIn<S, const Zor8u> s, RowIn<D, Zor8u> d, int width) {
    moveSamples<S::kLumaStride, D::kLumaStride>(S::luma(s), D::luma(d), width);
    moveChroma<S, D>(s, d, width / D::kH);
}

// Row pairs (4:2:0 on a side): luma rows 2j and 2j+1 copied; a 4:2:0 source
// gives the same chroma row for both rows, a 4:2:0 destination takes the
// chroma of the even row only. 4:2:0 and 4:1:1 trade samples instead: the
// even pairs of 4:2:0 row j are 4:1:1 row 2j, the odd pairs row 2j+1.
template <class S, class D>
void movePair(RowIn<S, const Zor8u> s0, RowIn<S, const Zor8u> s1, RowIn<D, Zor8u> d0, RowIn<D, Zor8u> d1,
              int width) {
    moveSamples<S::kLumaStride, D::kLumaStride>(S::luma(s0), D::luma(d0), width);
    moveSamples<S::kLumaStride, D::kLumaStride>(S::luma(s1), D::luma(d1), width);
    const int n = width / D::kH;
    if constexpr (S::kH == D::kH) {
        moveChroma<S, D>(s0, d0, n);
        if constexpr (D::kV == 0) moveChroma<S, D>(s1, d1, n);
    } else if constexpr (S::kV == 1) {
        moveChroma<S, D>(s0, d0, n, 0);
        moveChroma<S, D>(s1, d1, n, 1);
    } else {
        constexpr int SC = S::kChromaStride, DC = D::kChromaStride;
        for (int k = 0; k < n; ++k) {
            const auto& s = k % 2 == 0 ? s0 : s1;
            D::cb(d0)[k * DC] = S::cb(s)[k / 2 * SC];
            D::cr(d0)[k * DC] = S::cr(s)[k / 2 * SC];
        }
    }
}

// Four-tap interpolation half-way between rows b and c.
inline Zor8u fourTap(int a, int b, int c, int d) { return clampByte(asr(9 * (b + c) - a - d + 8, 4)); }

// An odd 4:2:2 row between 4:2:0 chroma rows: luma copied from `cur`, chroma
// interpolated from the rows up, cur, down and down2.
template <class S, class D>
void interpolateRow(RowIn<S, const Zor8u> up, RowIn<S, const Zor8u> cur, RowIn<S, const Zor8u> down,
                    RowIn<S, const Zor8u> down2, RowIn<D, Zor8u> d, int width) {
    constexpr int SC = S::kChromaStride, DC = D::kChromaStride;
    moveSamples<S::kLumaStride, D::kLumaStride>(S::luma(cur), D::luma(d), width);
    for (int k = 0; k < width / 2; ++k) {
        const int i = k * SC;
        D::cb(d)[k * DC] = fourTap(S::cb(up)[i], S::cb(cur)[i], S::cb(down)[i], S::cb(down2)[i]);
        D::cr(d)[k * DC] = fourTap(S::cr(up)[i], S::cr(cur)[i], S::cr(down)[i], S::cr(down2)[i]);
    }
}

// Deinterlacing: luma (above + 2 cur + below + Bias) >> 2, clamped to 255.
template <int Bias, class S, class D>
void deinterlaceLuma(RowIn<S, const Zor8u> above, RowIn<S, const Zor8u> cur, RowIn<S, const Zor8u> below,
                     RowIn<D, Zor8u> d, int width) {
    const Zor8u *a = S::luma(above), *c = S::luma(cur), *b = S::luma(below);
    Zor8u* o = D::luma(d);
    for (int i = 0; i < width; ++i) o[i * D::kLumaStride] = clampByte((a[i] + 2 * c[i] + b[i] + Bias) >> 2);
}

// Deinterlacing: chroma (cur + below + Bias) >> 1, clamped to 255, into the
// chroma of destination rows 2j and 2j+1 (once where they share it).
template <int Bias, class S, class D>
void deinterlaceChroma(RowIn<S, const Zor8u> cur, RowIn<S, const Zor8u> below, RowIn<D, Zor8u> d0,
                       RowIn<D, Zor8u> d1, int width) {
    constexpr int SC = S::kChromaStride, DC = D::kChromaStride;
    for (int k = 0; k < width / 2; ++k) {
        const Zor8u b = clampByte((S::cb(cur)[k * SC] + S::cb(below)[k * SC] + Bias) >> 1);
        const Zor8u r = clampByte((S::cr(cur)[k * SC] + S::cr(below)[k * SC] + Bias) >> 1);
        D::cb(d0)[k * DC] = b;
        D::cr(d0)[k * DC] = r;
        if constexpr (D::kV == 0) {
            D::cb(d1)[k * DC] = b;
            D::cr(d1)[k * DC] = r;
        }
    }
}

}  // namespace zor
