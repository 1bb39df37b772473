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
#include "core/kernel_set.h"
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
    static constexpr bool kPacked = false;
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
    static constexpr bool kPacked = false;
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
    static constexpr bool kPacked = true;
    static constexpr int kY0 = Order::kY0, kCb = Order::kCb, kCr = Order::kCr;
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
        const bool missing = src.planes[0] == nullptr || src.planes[1] == nullptr || src.planes[2] == nullptr;
        return missing ? zorStsNullPtr : zorStsOk;
    }
};

// ---------------------------------------------------------------------------
// Row kernels. Each is written once over the passes it makes (Ops: the
// scalar passes here, the vector passes in chroma/layout_hwy.cpp, which do
// whole vectors and leave the rest to these).

// Copies n bytes. Non-overlapping ranges are block-copied; overlapping ranges
// are copied byte by byte in ascending address order.
void copyRow(const Zor8u* src, Zor8u* dst, int n);

struct ScalarPasses {
    // Moves n samples from a run SS bytes apart to a run DS bytes apart.
    template <int SS, int DS>
    static void samples(const Zor8u* src, Zor8u* dst, int n) {
        if constexpr (SS == 1 && DS == 1) {
            copyRow(src, dst, n);
        } else {
            for (int i = 0; i < n; ++i) dst[i * DS] = src[i * SS];
        }
    }

    // The n chroma pairs of a destination row from source pairs phase, phase
    // + Step, ..., each written Rep times (4:2:2 -> 4:1:1 keeps the first of
    // each two, 4:1:1 -> 4:2:2 writes every pair twice). Cb and Cr go in one
    // loop, so that an interleaved destination is written in whole groups.
    template <class S, class D>
    static void chroma(RowIn<S, const Zor8u> s, RowIn<D, Zor8u> d, int n, int phase = 0) {
        constexpr int SC = S::kChromaStride, DC = D::kChromaStride;
        constexpr int Step = D::kH > S::kH ? D::kH / S::kH : 1, Rep = S::kH > D::kH ? S::kH / D::kH : 1;
        const Zor8u *cb = S::cb(s) + phase * SC, *cr = S::cr(s) + phase * SC;
        Zor8u *ob = D::cb(d), *orr = D::cr(d);
        for (int k = 0; k < n / Rep; ++k) {
            const Zor8u b = cb[Step * k * SC], r = cr[Step * k * SC];
            for (int i = 0; i < Rep; ++i) {
                ob[(Rep * k + i) * DC] = b;
                orr[(Rep * k + i) * DC] = r;
            }
        }
    }

    // The n chroma pairs of a 4:2:0 row from two 4:1:1 rows: pair 2k from
    // pair k of row 0, pair 2k + 1 from pair k of row 1.
    template <class S, class D>
    static void alternate(RowIn<S, const Zor8u> s0, RowIn<S, const Zor8u> s1, RowIn<D, Zor8u> d, int n) {
        constexpr int SC = S::kChromaStride, DC = D::kChromaStride;
        const Zor8u *b0 = S::cb(s0), *r0 = S::cr(s0), *b1 = S::cb(s1), *r1 = S::cr(s1);
        Zor8u *ob = D::cb(d), *orr = D::cr(d);
        for (int k = 0; k < n / 2; ++k) {
            ob[2 * k * DC] = b0[k * SC];
            orr[2 * k * DC] = r0[k * SC];
            ob[(2 * k + 1) * DC] = b1[k * SC];
            orr[(2 * k + 1) * DC] = r1[k * SC];
        }
    }

    // A packed 4:2:2 row written in one pass: pixel pairs 2p and 2p+1 get
    // their luma and the chroma of their pair (4:1:1 chroma serves two pairs).
    template <class S, class D>
    static void pack(RowIn<S, const Zor8u> s, RowIn<D, Zor8u> d, int width) {
        constexpr int SY = S::kLumaStride, SC = S::kChromaStride, Rep = S::kH / 2;
        const Zor8u *y = S::luma(s), *cb = S::cb(s), *cr = S::cr(s);
        for (int k = 0; k < width / S::kH; ++k) {
            const Zor8u b = cb[k * SC], r = cr[k * SC];
            for (int i = 0; i < Rep; ++i) {
                const int p = Rep * k + i;
                Zor8u* o = d.p + 4 * p;
                o[D::kY0] = y[2 * p * SY];
                o[D::kY0 + 2] = y[(2 * p + 1) * SY];
                o[D::kCb] = b;
                o[D::kCr] = r;
            }
        }
    }

    // The first n chroma pairs of a row interpolated from the chroma of rows
    // up, cur, down and down2 (Cb, then Cr).
    template <class S, class D>
    static void fourTaps(RowIn<S, const Zor8u> up, RowIn<S, const Zor8u> cur, RowIn<S, const Zor8u> down,
                         RowIn<S, const Zor8u> down2, RowIn<D, Zor8u> d, int n) {
        constexpr int SC = S::kChromaStride, DC = D::kChromaStride;
        const auto taps = [n](const Zor8u* a, const Zor8u* b, const Zor8u* c, const Zor8u* e, Zor8u* o) {
            for (int k = 0; k < n; ++k) o[k * DC] = fourTap(a[k * SC], b[k * SC], c[k * SC], e[k * SC]);
        };
        taps(S::cb(up), S::cb(cur), S::cb(down), S::cb(down2), D::cb(d));
        taps(S::cr(up), S::cr(cur), S::cr(down), S::cr(down2), D::cr(d));
    }

    // Deinterlacing taps: luma (above + 2 cur + below + Bias) >> 2 and
    // chroma (cur + below + Bias) >> 1, clamped to 255.
    template <int Bias>
    static Zor8u lumaTap(int above, int cur, int below) { return clampByte((above + 2 * cur + below + Bias) >> 2); }
    template <int Bias>
    static Zor8u chromaTap(int cur, int below) { return clampByte((cur + below + Bias) >> 1); }

    template <int Bias, int DS>
    static void lumaTaps(const Zor8u* a, const Zor8u* c, const Zor8u* b, Zor8u* o, int n) {
        for (int i = 0; i < n; ++i) o[i * DS] = lumaTap<Bias>(a[i], c[i], b[i]);
    }
    // The first n chroma pairs of a row from the chroma of rows cur and
    // below (Cb, then Cr).
    template <int Bias, class S, class D>
    static void chromaTaps(RowIn<S, const Zor8u> cur, RowIn<S, const Zor8u> below, RowIn<D, Zor8u> d, int n) {
        constexpr int SC = S::kChromaStride, DC = D::kChromaStride;
        const auto taps = [n](const Zor8u* c, const Zor8u* b, Zor8u* o) {
            for (int k = 0; k < n; ++k) o[k * DC] = chromaTap<Bias>(c[k * SC], b[k * SC]);
        };
        taps(S::cb(cur), S::cb(below), D::cb(d));
        taps(S::cr(cur), S::cr(below), D::cr(d));
    }
};

// Rows that stand alone (neither side 4:2:0): luma copied, chroma moved.
template <class Ops, class S, class D>
void moveRowWith(RowIn<S, const Zor8u> s, RowIn<D, Zor8u> d, int width) {
    if constexpr (D::kPacked) {
        Ops::template pack<S, D>(s, d, width);
    } else {
        Ops::template samples<S::kLumaStride, D::kLumaStride>(S::luma(s), D::luma(d), width);
        Ops::template chroma<S, D>(s, d, width / D::kH);
    }
}

// Row pairs (4:2:0 on a side): luma rows 2j and 2j+1 copied; a 4:2:0 source
// gives the same chroma row for both rows, a 4:2:0 destination takes the
// chroma of the even row only. 4:2:0 and 4:1:1 trade samples instead: the
// even pairs of 4:2:0 row j are 4:1:1 row 2j, the odd pairs row 2j+1.
template <class Ops, class S, class D>
void movePairWith(RowIn<S, const Zor8u> s0, RowIn<S, const Zor8u> s1, RowIn<D, Zor8u> d0, RowIn<D, Zor8u> d1,
                  int width) {
    if constexpr (D::kPacked) {
        Ops::template pack<S, D>(s0, d0, width);
        Ops::template pack<S, D>(s1, d1, width);
        return;
    }
    Ops::template samples<S::kLumaStride, D::kLumaStride>(S::luma(s0), D::luma(d0), width);
    Ops::template samples<S::kLumaStride, D::kLumaStride>(S::luma(s1), D::luma(d1), width);
    const int n = width / D::kH;
    if constexpr (S::kH == D::kH) {
        Ops::template chroma<S, D>(s0, d0, n);
        if constexpr (D::kV == 0) Ops::template chroma<S, D>(s1, d1, n);
    } else if constexpr (S::kV == 1) {
        Ops::template chroma<S, D>(s0, d0, n, 0);
        Ops::template chroma<S, D>(s1, d1, n, 1);
    } else {
        Ops::template alternate<S, D>(s0, s1, d0, n);
    }
}

// An odd 4:2:2 row between 4:2:0 chroma rows: luma copied from `cur`, chroma
// interpolated from the rows up, cur, down and down2.
template <class Ops, class S, class D>
void interpolateRowWith(RowIn<S, const Zor8u> up, RowIn<S, const Zor8u> cur, RowIn<S, const Zor8u> down,
                        RowIn<S, const Zor8u> down2, RowIn<D, Zor8u> d, int width) {
    Ops::template samples<S::kLumaStride, D::kLumaStride>(S::luma(cur), D::luma(d), width);
    Ops::template fourTaps<S, D>(up, cur, down, down2, d, width / 2);
}

// The luma of one destination row from source rows above, cur and below.
template <class Ops, int Bias, class S, class D>
void deinterlaceLumaWith(RowIn<S, const Zor8u> above, RowIn<S, const Zor8u> cur, RowIn<S, const Zor8u> below,
                         RowIn<D, Zor8u> d, int width) {
    static_assert(S::kLumaStride == 1, "from a luma plane");
    Ops::template lumaTaps<Bias, D::kLumaStride>(S::luma(above), S::luma(cur), S::luma(below), D::luma(d), width);
}

// The chroma of one destination row from the chroma of source rows cur and
// below.
template <class Ops, int Bias, class S, class D>
void deinterlaceChromaWith(RowIn<S, const Zor8u> cur, RowIn<S, const Zor8u> below, RowIn<D, Zor8u> d, int width) {
    Ops::template chromaTaps<Bias, S, D>(cur, below, d, width / 2);
}

// The scalar kernels.
template <class S, class D>
void moveRow(RowIn<S, const Zor8u> s, RowIn<D, Zor8u> d, int width) {
    moveRowWith<ScalarPasses, S, D>(s, d, width);
}
template <class S, class D>
void movePair(RowIn<S, const Zor8u> s0, RowIn<S, const Zor8u> s1, RowIn<D, Zor8u> d0, RowIn<D, Zor8u> d1,
              int width) {
    movePairWith<ScalarPasses, S, D>(s0, s1, d0, d1, width);
}
template <class S, class D>
void interpolateRow(RowIn<S, const Zor8u> up, RowIn<S, const Zor8u> cur, RowIn<S, const Zor8u> down,
                    RowIn<S, const Zor8u> down2, RowIn<D, Zor8u> d, int width) {
    interpolateRowWith<ScalarPasses, S, D>(up, cur, down, down2, d, width);
}
template <int Bias, class S, class D>
void deinterlaceLuma(RowIn<S, const Zor8u> above, RowIn<S, const Zor8u> cur, RowIn<S, const Zor8u> below,
                     RowIn<D, Zor8u> d, int width) {
    deinterlaceLumaWith<ScalarPasses, Bias, S, D>(above, cur, below, d, width);
}
template <int Bias, class S, class D>
void deinterlaceChroma(RowIn<S, const Zor8u> cur, RowIn<S, const Zor8u> below, RowIn<D, Zor8u> d, int width) {
    deinterlaceChromaWith<ScalarPasses, Bias, S, D>(cur, below, d, width);
}

// Both at once into a packed row, written in one pass.
template <int LumaBias, int ChromaBias, class S, class D>
void deinterlacePacked(RowIn<S, const Zor8u> above, RowIn<S, const Zor8u> cur, RowIn<S, const Zor8u> below,
                       RowIn<S, const Zor8u> chromaBelow, RowIn<D, Zor8u> d, int width) {
    using P = ScalarPasses;
    constexpr int SC = S::kChromaStride;
    const Zor8u *a = S::luma(above), *c = S::luma(cur), *b = S::luma(below);
    for (int p = 0; p < width / 2; ++p) {
        Zor8u* o = d.p + 4 * p;
        o[D::kY0] = P::lumaTap<LumaBias>(a[2 * p], c[2 * p], b[2 * p]);
        o[D::kY0 + 2] = P::lumaTap<LumaBias>(a[2 * p + 1], c[2 * p + 1], b[2 * p + 1]);
        o[D::kCb] = P::chromaTap<ChromaBias>(S::cb(cur)[p * SC], S::cb(chromaBelow)[p * SC]);
        o[D::kCr] = P::chromaTap<ChromaBias>(S::cr(cur)[p * SC], S::cr(chromaBelow)[p * SC]);
    }
}

// ---------------------------------------------------------------------------
// The shapes: X(member, kernel template, (template arguments)); a relayout's
// member is named after its function, the filters' after their rows.

#define ZOR_CHROMA_MOVES(X) \
    X(YCbCr422_P3C2R, moveRow, (Planar422, PackedYCbCr)) \
    X(YCbCr422_C2P3R, moveRow, (PackedYCbCr, Planar422)) \
    X(YCrCb422ToYCbCr422_C2P3R, moveRow, (PackedYCrCb, Planar422)) \
    X(CbYCr422ToYCbCr422_C2P3R, moveRow, (PackedCbYCr, Planar422)) \
    X(YCbCr422ToCbYCr422_C2R, moveRow, (PackedYCbCr, PackedCbYCr)) \
    X(CbYCr422ToYCbCr422_C2R, moveRow, (PackedCbYCr, PackedYCbCr)) \
    X(YCbCr422ToYCrCb422_C2R, moveRow, (PackedYCbCr, PackedYCrCb)) \
    X(YCbCr422ToYCrCb422_P3C2R, moveRow, (Planar422, PackedYCrCb)) \
    X(YCbCr420_P3P2R, movePair, (Planar420, Semi420)) \
    X(YCbCr420_P2P3R, movePair, (Semi420, Planar420)) \
    X(YCrCb420ToYCbCr420_P3P2R, movePair, (PlanarCr420, Semi420)) \
    X(YCbCr420ToYCrCb420_P2P3R, movePair, (Semi420, PlanarCr420)) \
    X(YCbCr411_P3P2R, moveRow, (Planar411, Semi411)) \
    X(YCbCr411_P2P3R, moveRow, (Semi411, Planar411)) \
    X(YCbCr422ToYCbCr420_P3R, movePair, (Planar422, Planar420)) \
    X(YCbCr422ToYCbCr420_P3P2R, movePair, (Planar422, Semi420)) \
    X(YCbCr422ToYCbCr420_C2P3R, movePair, (PackedYCbCr, Planar420)) \
    X(CbYCr422ToYCbCr420_C2P3R, movePair, (PackedCbYCr, Planar420)) \
    X(YCrCb422ToYCbCr420_C2P3R, movePair, (PackedYCrCb, Planar420)) \
    X(YCbCr422ToYCrCb420_C2P3R, movePair, (PackedYCbCr, PlanarCr420)) \
    X(CbYCr422ToYCrCb420_C2P3R, movePair, (PackedCbYCr, PlanarCr420)) \
    X(YCbCr422ToYCbCr420_C2P2R, movePair, (PackedYCbCr, Semi420)) \
    X(CbYCr422ToYCbCr420_C2P2R, movePair, (PackedCbYCr, Semi420)) \
    X(YCbCr420ToYCbCr422_P3R, movePair, (Planar420, Planar422)) \
    X(YCrCb420ToYCbCr422_P3R, movePair, (PlanarCr420, Planar422)) \
    X(YCbCr420ToYCbCr422_P2P3R, movePair, (Semi420, Planar422)) \
    X(YCbCr420ToYCbCr422_P2C2R, movePair, (Semi420, PackedYCbCr)) \
    X(YCbCr420ToCbYCr422_P2C2R, movePair, (Semi420, PackedCbYCr)) \
    X(YCrCb420ToYCbCr422_P3C2R, movePair, (PlanarCr420, PackedYCbCr)) \
    X(YCrCb420ToCbYCr422_P3C2R, movePair, (PlanarCr420, PackedCbYCr)) \
    X(YCbCr422ToYCbCr411_P3R, moveRow, (Planar422, Planar411)) \
    X(YCbCr422ToYCbCr411_P3P2R, moveRow, (Planar422, Semi411)) \
    X(YCbCr422ToYCbCr411_C2P3R, moveRow, (PackedYCbCr, Planar411)) \
    X(CbYCr422ToYCbCr411_C2P3R, moveRow, (PackedCbYCr, Planar411)) \
    X(YCrCb422ToYCbCr411_C2P3R, moveRow, (PackedYCrCb, Planar411)) \
    X(YCbCr422ToYCbCr411_C2P2R, moveRow, (PackedYCbCr, Semi411)) \
    X(YCbCr411ToYCbCr422_P3R, moveRow, (Planar411, Planar422)) \
    X(YCbCr411ToYCrCb422_P3R, moveRow, (Planar411, PlanarCr422)) \
    X(YCbCr411ToYCbCr422_P3C2R, moveRow, (Planar411, PackedYCbCr)) \
    X(YCbCr411ToYCrCb422_P3C2R, moveRow, (Planar411, PackedYCrCb)) \
    X(YCbCr411ToYCbCr422_P2P3R, moveRow, (Semi411, Planar422)) \
    X(YCbCr411ToYCbCr422_P2C2R, moveRow, (Semi411, PackedYCbCr)) \
    X(YCbCr420ToYCbCr411_P3P2R, movePair, (Planar420, Semi411)) \
    X(YCrCb420ToYCbCr411_P3P2R, movePair, (PlanarCr420, Semi411)) \
    X(YCbCr420ToYCbCr411_P2P3R, movePair, (Semi420, Planar411)) \
    X(YCbCr411ToYCbCr420_P3R, movePair, (Planar411, Planar420)) \
    X(YCbCr411ToYCbCr420_P3P2R, movePair, (Planar411, Semi420)) \
    X(YCbCr411ToYCbCr420_P2P3R, movePair, (Semi411, Planar420)) \
    X(YCbCr411ToYCrCb420_P2P3R, movePair, (Semi411, PlanarCr420))

#define ZOR_CHROMA_FILTERS(X) \
    X(interpolateYCbCr, interpolateRow, (Planar420, Planar422)) \
    X(interpolateYCrCb, interpolateRow, (PlanarCr420, Planar422)) \
    X(interpolateSemi, interpolateRow, (Semi420, Planar422)) \
    X(evenRowYCbCr, moveRow, (Planar420, Planar422)) \
    X(evenRowYCrCb, moveRow, (PlanarCr420, Planar422)) \
    X(evenRowSemi, moveRow, (Semi420, Planar422)) \
    X(deinterlaceLumaPlanar, deinterlaceLuma, (0, Semi420, PlanarCr420)) \
    X(deinterlaceChromaPlanar, deinterlaceChroma, (0, Semi420, PlanarCr420)) \
    X(deinterlaceLumaPacked, deinterlaceLuma, (4, Semi420, PackedYCbCr)) \
    X(deinterlaceChromaPacked, deinterlaceChroma, (2, Semi420, PackedYCbCr)) \
    X(deinterlacePacked, deinterlacePacked, (4, 2, Semi420, PackedYCbCr))
#define ZOR_CHROMA_KERNELS(X) ZOR_CHROMA_MOVES(X) ZOR_CHROMA_FILTERS(X)

ZOR_KERNEL_TABLE(ChromaKernels, ZOR_CHROMA_KERNELS, kChromaScalar, chromaTables, ChromaK)

}  // namespace zor
