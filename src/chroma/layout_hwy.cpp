// Vector kernels of the chroma layout family, compiled once per CPU target:
// the row kernels of chroma/layout.h over vector passes. A pass gathers the
// samples of whole vectors with interleaved loads, writes them with
// interleaved stores, and leaves the rest of its run to the scalar pass.
// Loads stay within the bytes the scalar pass reads: a pass whose last load
// would reach beyond the last sample it needs leaves that block to the
// scalar pass. The four-tap filter works in 16-bit lanes (no sum can
// overflow them) and narrows with saturation, which is the clamp to 0..255;
// the deinterlacing taps are exact in bytes.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "chroma/layout_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "chroma/layout.h"
#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET != HWY_SCALAR

using D8 = hn::ScalableTag<std::uint8_t>;
using V8 = hn::Vec<D8>;
using DH8 = hn::Half<D8>;
using D16 = hn::Repartition<std::int16_t, D8>;
using V16 = hn::Vec<D16>;
using DU16 = hn::RebindToUnsigned<D16>;

// Every byte of a half vector twice.
HWY_INLINE V8 twice(hn::Vec<DH8> h) {
    const auto w = hn::PromoteTo(DU16(), h);
    return hn::BitCast(D8(), hn::Or(hn::ShiftLeft<8>(w), w));
}

// f applied to the bytes of u8 vectors in 16-bit lanes, clamped to 0..255:
// the even and the odd bytes in turn, each widened where it lies, so that no
// byte crosses a block of the vector.
template <class F, class... V>
HWY_INLINE V8 widened(const F& f, V... v) {
    const D16 d16;
    const DU16 du16;
    const auto even = [&](V8 x) { return hn::BitCast(d16, hn::And(hn::BitCast(du16, x), hn::Set(du16, 0xFF))); };
    const auto odd = [&](V8 x) { return hn::BitCast(d16, hn::ShiftRight<8>(hn::BitCast(du16, x))); };
    const auto clamp = [&](V16 x) { return hn::BitCast(du16, hn::Min(hn::Max(x, hn::Zero(d16)), hn::Set(d16, 255))); };
    return hn::BitCast(D8(), hn::Or(clamp(f(even(v)...)), hn::ShiftLeft<8>(clamp(f(odd(v)...)))));
}

// The samples of a whole vector from a run of samples SC bytes apart.
template <int SC>
HWY_INLINE V8 loadRun(const Zor8u* p) {
    const D8 d;
    if constexpr (SC == 1) {
        return hn::LoadU(d, p);
    } else {
        static_assert(SC == 2, "runs of 1 or 2 bytes");
        V8 v, other;
        hn::LoadInterleaved2(d, p, v, other);
        return v;
    }
}

// The row of side L from pixel x on, x a multiple of the side's chroma group.
template <class L, class R>
HWY_INLINE R advance(R r, std::ptrdiff_t x) {
    if constexpr (L::kPacked) {
        return {r.p + 2 * x};
    } else if constexpr (L::kChromaStride == 2) {
        return {r.y + x, r.c + 2 * (x / L::kH)};
    } else {
        return {{r.p[0] + x, r.p[1] + x / L::kH, r.p[2] + x / L::kH}};
    }
}

struct VectorPasses {
    template <int SS, int DS>
    static void samples(const Zor8u* src, Zor8u* dst, int n) {
        if constexpr (SS == 2 && DS == 1) {
            const D8 d;
            const int L = static_cast<int>(hn::Lanes(d));
            int i = 0;
            for (; i + L < n; i += L) hn::StoreU(loadRun<2>(src + 2 * i), d, dst + i);
            ScalarPasses::samples<SS, DS>(src + SS * i, dst + DS * i, n - i);
        } else {
            ScalarPasses::samples<SS, DS>(src, dst, n);
        }
    }

    template <class S, class D>
    static void chroma(RowIn<S, const Zor8u> s, RowIn<D, Zor8u> d, int n, int phase = 0) {
        constexpr int SC = S::kChromaStride, DC = D::kChromaStride;
        constexpr int Step = D::kH > S::kH ? D::kH / S::kH : 1, Rep = S::kH > D::kH ? S::kH / D::kH : 1;
        static_assert(Rep == 1 || DC == 1, "repeated chroma goes to planes");
        const D8 d8;
        const int L = static_cast<int>(hn::Lanes(d8)), m = n / Rep;
        const Zor8u *cb = S::cb(s) + phase * SC, *cr = S::cr(s) + phase * SC;
        Zor8u *ob = D::cb(d), *orr = D::cr(d);
        int k = 0;
        for (; k + L < m; k += L) {
            V8 b, r;
            if constexpr (SC == 4) {
                // Pixel pairs: the bytes of the pair in the side's order.
                const Zor8u* p = S::cb(s) - S::kCb;
                V8 v[4], w[4];
                hn::LoadInterleaved4(d8, p + 4 * Step * k, v[0], v[1], v[2], v[3]);
                b = v[S::kCb], r = v[S::kCr];
                if constexpr (Step == 2) {
                    hn::LoadInterleaved4(d8, p + 4 * Step * k + 4 * L, w[0], w[1], w[2], w[3]);
                    b = hn::ConcatEven(d8, w[S::kCb], b), r = hn::ConcatEven(d8, w[S::kCr], r);
                }
            } else if constexpr (SC == 2 && Step == 1) {
                hn::LoadInterleaved2(d8, cb + 2 * k, b, r);
            } else if constexpr (SC == 2) {
                V8 b1, r1;
                hn::LoadInterleaved4(d8, cb + 4 * k, b, r, b1, r1);
            } else {
                b = loadRun<Step>(cb + Step * k), r = loadRun<Step>(cr + Step * k);
            }
            if constexpr (Rep == 2) {
                hn::StoreInterleaved2(b, b, d8, ob + 2 * k);
                hn::StoreInterleaved2(r, r, d8, orr + 2 * k);
            } else if constexpr (DC == 2) {
                hn::StoreInterleaved2(b, r, d8, ob + 2 * k);
            } else {
                hn::StoreU(b, d8, ob + k);
                hn::StoreU(r, d8, orr + k);
            }
        }
        const std::ptrdiff_t x = Step * k * S::kH;
        ScalarPasses::chroma<S, D>(advance<S>(s, x), advance<D>(d, x), n - Rep * k, phase);
    }

    template <class S, class D>
    static void alternate(RowIn<S, const Zor8u> s0, RowIn<S, const Zor8u> s1, RowIn<D, Zor8u> d, int n) {
        constexpr int SC = S::kChromaStride, DC = D::kChromaStride;
        const D8 d8;
        const int L = static_cast<int>(hn::Lanes(d8)), m = n / 2;
        Zor8u *ob = D::cb(d), *orr = D::cr(d);
        int k = 0;
        for (; k + L < m; k += L) {
            V8 b0, r0, b1, r1;
            if constexpr (SC == 2) {
                hn::LoadInterleaved2(d8, S::cb(s0) + 2 * k, b0, r0);
                hn::LoadInterleaved2(d8, S::cb(s1) + 2 * k, b1, r1);
            } else {
                b0 = hn::LoadU(d8, S::cb(s0) + k), r0 = hn::LoadU(d8, S::cr(s0) + k);
                b1 = hn::LoadU(d8, S::cb(s1) + k), r1 = hn::LoadU(d8, S::cr(s1) + k);
            }
            if constexpr (DC == 2) {
                hn::StoreInterleaved4(b0, r0, b1, r1, d8, ob + 4 * k);
            } else {
                hn::StoreInterleaved2(b0, b1, d8, ob + 2 * k);
                hn::StoreInterleaved2(r0, r1, d8, orr + 2 * k);
            }
        }
        const std::ptrdiff_t x = k * S::kH;
        ScalarPasses::alternate<S, D>(advance<S>(s0, x), advance<S>(s1, x), advance<D>(d, x), n - 2 * k);
    }

    template <class S, class D>
    static void pack(RowIn<S, const Zor8u> s, RowIn<D, Zor8u> d, int width) {
        constexpr int Rep = S::kH / 2;
        const D8 d8;
        const DH8 dh;
        const int L = static_cast<int>(hn::Lanes(d8)), pairs = Rep * (width / S::kH);
        int p = 0;
        for (; p + L <= pairs; p += L) {
            V8 v[4];  // Y0 Cb Y1 Cr of L pairs
            if constexpr (S::kPacked) {
                V8 m[4];
                hn::LoadInterleaved4(d8, s.p + 4 * p, m[0], m[1], m[2], m[3]);
                v[0] = m[S::kY0], v[1] = m[S::kCb], v[2] = m[S::kY0 + 2], v[3] = m[S::kCr];
            } else {
                hn::LoadInterleaved2(d8, S::luma(s) + 2 * p, v[0], v[2]);
                if constexpr (Rep == 1 && S::kChromaStride == 1) {
                    v[1] = hn::LoadU(d8, S::cb(s) + p), v[3] = hn::LoadU(d8, S::cr(s) + p);
                } else if constexpr (Rep == 1) {
                    hn::LoadInterleaved2(d8, S::cb(s) + 2 * p, v[1], v[3]);
                } else if constexpr (S::kChromaStride == 1) {
                    v[1] = twice(hn::LoadU(dh, S::cb(s) + p / 2)), v[3] = twice(hn::LoadU(dh, S::cr(s) + p / 2));
                } else {
                    hn::Vec<DH8> b, r;
                    hn::LoadInterleaved2(dh, S::cb(s) + p, b, r);
                    v[1] = twice(b), v[3] = twice(r);
                }
            }
            V8 o[4];
            o[D::kY0] = v[0], o[D::kCb] = v[1], o[D::kY0 + 2] = v[2], o[D::kCr] = v[3];
            hn::StoreInterleaved4(o[0], o[1], o[2], o[3], d8, d.p + 4 * p);
        }
        ScalarPasses::pack<S, D>(advance<S>(s, 2 * p), advance<D>(d, 2 * p), width - 2 * p);
    }

    template <class S, class D>
    static void fourTaps(RowIn<S, const Zor8u> up, RowIn<S, const Zor8u> cur, RowIn<S, const Zor8u> down,
                         RowIn<S, const Zor8u> down2, RowIn<D, Zor8u> d, int n) {
        constexpr int SC = S::kChromaStride;
        static_assert(D::kChromaStride == 1 && SC <= 2, "from planes or pairs into planes");
        const D8 d8;
        const int L = static_cast<int>(hn::Lanes(d8));
        const auto tap = [](V16 x, V16 y, V16 z, V16 w) {
            const D16 d16;
            const V16 sum = hn::Sub(hn::Sub(hn::Mul(hn::Add(y, z), hn::Set(d16, 9)), x), w);
            return hn::ShiftRight<4>(hn::Add(sum, hn::Set(d16, 8)));
        };
        // Cb and Cr of L pairs of a row: from pairs with one interleaved load.
        const auto load = [](RowIn<S, const Zor8u> r, std::ptrdiff_t k, V8& b, V8& c) {
            if constexpr (SC == 2) {
                hn::LoadInterleaved2(D8(), S::cb(r) + 2 * k, b, c);
            } else {
                b = hn::LoadU(D8(), S::cb(r) + k), c = hn::LoadU(D8(), S::cr(r) + k);
            }
        };
        int k = 0;
        for (; k + L <= n; k += L) {
            V8 b[4], r[4];
            load(up, k, b[0], r[0]), load(cur, k, b[1], r[1]), load(down, k, b[2], r[2]), load(down2, k, b[3], r[3]);
            hn::StoreU(widened(tap, b[0], b[1], b[2], b[3]), d8, D::cb(d) + k);
            hn::StoreU(widened(tap, r[0], r[1], r[2], r[3]), d8, D::cr(d) + k);
        }
        const std::ptrdiff_t x = k * S::kH;
        ScalarPasses::fourTaps<S, D>(advance<S>(up, x), advance<S>(cur, x), advance<S>(down, x), advance<S>(down2, x),
                                     advance<D>(d, x), n - k);
    }

    // The deinterlacing taps in bytes: floor((x + y) / 2) is the rounding
    // average less the odd bit of x ^ y, and floor((a + b + 2c) / 4) is
    // floor((floor((a + b) / 2) + c) / 2); a bias of half the divisor adds
    // one to the quotient, saturated where it would pass 255.
    static V8 floorAverage(V8 x, V8 y) {
        return hn::Sub(hn::AverageRound(x, y), hn::And(hn::Xor(x, y), hn::Set(D8(), 1)));
    }
    template <int Bias>
    static V8 lumaTaps(V8 a, V8 c, V8 b) {
        static_assert(Bias == 0 || Bias == 4, "no bias or half the divisor");
        const V8 q = floorAverage(floorAverage(a, b), c);
        return Bias ? hn::SaturatedAdd(q, hn::Set(D8(), 1)) : q;
    }
    template <int Bias>
    static V8 chromaTaps(V8 c, V8 b) {
        static_assert(Bias == 0 || Bias == 2, "no bias or half the divisor");
        const V8 q = floorAverage(c, b);
        return Bias ? hn::SaturatedAdd(q, hn::Set(D8(), 1)) : q;
    }

    // Into a luma plane; the rows of packed pictures that get no chroma are
    // left to the scalar pass.
    template <int Bias, int DS>
    static void lumaTaps(const Zor8u* a, const Zor8u* c, const Zor8u* b, Zor8u* o, int n) {
        const D8 d8;
        const int L = static_cast<int>(hn::Lanes(d8));
        int i = 0;
        for (; DS == 1 && i + L <= n; i += L)
            hn::StoreU(lumaTaps<Bias>(hn::LoadU(d8, a + i), hn::LoadU(d8, c + i), hn::LoadU(d8, b + i)), d8, o + i);
        ScalarPasses::lumaTaps<Bias, DS>(a + i, c + i, b + i, o + DS * i, n - i);
    }
    // Into chroma planes, Cb and Cr together; the chroma of packed rows
    // that get no luma is left to the scalar pass.
    template <int Bias, class S, class D>
    static void chromaTaps(RowIn<S, const Zor8u> cur, RowIn<S, const Zor8u> below, RowIn<D, Zor8u> d, int n) {
        static_assert(S::kChromaStride == 2, "from pairs");
        const D8 d8;
        const int L = static_cast<int>(hn::Lanes(d8));
        int k = 0;
        for (; D::kChromaStride == 1 && k + L <= n; k += L) {
            V8 b0, r0, b1, r1;
            hn::LoadInterleaved2(d8, S::cb(cur) + 2 * k, b0, r0);
            hn::LoadInterleaved2(d8, S::cb(below) + 2 * k, b1, r1);
            hn::StoreU(chromaTaps<Bias>(b0, b1), d8, D::cb(d) + k);
            hn::StoreU(chromaTaps<Bias>(r0, r1), d8, D::cr(d) + k);
        }
        const std::ptrdiff_t x = k * S::kH;
        ScalarPasses::chromaTaps<Bias, S, D>(advance<S>(cur, x), advance<S>(below, x), advance<D>(d, x), n - k);
    }
};

template <class S, class D>
void moveRow(RowIn<S, const Zor8u> s, RowIn<D, Zor8u> d, int width) {
    moveRowWith<VectorPasses, S, D>(s, d, width);
}
template <class S, class D>
void movePair(RowIn<S, const Zor8u> s0, RowIn<S, const Zor8u> s1, RowIn<D, Zor8u> d0, RowIn<D, Zor8u> d1,
              int width) {
    movePairWith<VectorPasses, S, D>(s0, s1, d0, d1, width);
}
template <class S, class D>
void interpolateRow(RowIn<S, const Zor8u> up, RowIn<S, const Zor8u> cur, RowIn<S, const Zor8u> down,
                    RowIn<S, const Zor8u> down2, RowIn<D, Zor8u> d, int width) {
    interpolateRowWith<VectorPasses, S, D>(up, cur, down, down2, d, width);
}
template <int Bias, class S, class D>
void deinterlaceLuma(RowIn<S, const Zor8u> above, RowIn<S, const Zor8u> cur, RowIn<S, const Zor8u> below,
                     RowIn<D, Zor8u> d, int width) {
    deinterlaceLumaWith<VectorPasses, Bias, S, D>(above, cur, below, d, width);
}
template <int Bias, class S, class D>
void deinterlaceChroma(RowIn<S, const Zor8u> cur, RowIn<S, const Zor8u> below, RowIn<D, Zor8u> d, int width) {
    deinterlaceChromaWith<VectorPasses, Bias, S, D>(cur, below, d, width);
}

template <int LumaBias, int ChromaBias, class S, class D>
void deinterlacePacked(RowIn<S, const Zor8u> above, RowIn<S, const Zor8u> cur, RowIn<S, const Zor8u> below,
                       RowIn<S, const Zor8u> chromaBelow, RowIn<D, Zor8u> d, int width) {
    static_assert(S::kLumaStride == 1 && S::kChromaStride == 2, "from a semi-planar picture");
    using P = VectorPasses;
    const D8 d8;
    const int L = static_cast<int>(hn::Lanes(d8));
    int p = 0;
    for (; p + L <= width / 2; p += L) {
        V8 a0, a1, c0, c1, b0, b1, cb, cr, cbBelow, crBelow, v[4];
        hn::LoadInterleaved2(d8, S::luma(above) + 2 * p, a0, a1);
        hn::LoadInterleaved2(d8, S::luma(cur) + 2 * p, c0, c1);
        hn::LoadInterleaved2(d8, S::luma(below) + 2 * p, b0, b1);
        hn::LoadInterleaved2(d8, S::cb(cur) + 2 * p, cb, cr);
        hn::LoadInterleaved2(d8, S::cb(chromaBelow) + 2 * p, cbBelow, crBelow);
        v[D::kY0] = P::lumaTaps<LumaBias>(a0, c0, b0);
        v[D::kY0 + 2] = P::lumaTaps<LumaBias>(a1, c1, b1);
        v[D::kCb] = P::chromaTaps<ChromaBias>(cb, cbBelow);
        v[D::kCr] = P::chromaTaps<ChromaBias>(cr, crBelow);
        hn::StoreInterleaved4(v[0], v[1], v[2], v[3], d8, d.p + 4 * p);
    }
    const std::ptrdiff_t x = 2 * p;
    ::zor::deinterlacePacked<LumaBias, ChromaBias, S, D>(advance<S>(above, x), advance<S>(cur, x), advance<S>(below, x),
                                                         advance<S>(chromaBelow, x), advance<D>(d, x), width - 2 * p);
}

#endif  // HWY_TARGET != HWY_SCALAR

// ---------------------------------------------------------------------------

HWY_MAYBE_UNUSED constexpr ChromaKernels kChromaVector = {ZOR_CHROMA_KERNELS(ZOR_KERNEL_POINTER)};

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/target_tables.h"
namespace zor {
ZOR_TARGET_TABLES(ChromaKernels, kChromaVector, chromaTables, kChromaScalar)
}  // namespace zor
#endif
