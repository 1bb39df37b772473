// Vector building blocks of the video kernels, shared by the Highway
// translation units of the family (included once per target, after
// hwy/foreach_target.h).
//
// The 16.16 fixed point is done on 16-bit samples with 32-bit pairwise
// products (multiply pairs of 16-bit lanes and add: one instruction on x86):
// a coefficient c is split as 65536 a + b with |b| < 32768, so that
//   (c1 x1 + c2 x2 + off) >> 16 = a1 x1 + a2 x2 + ao + ((b1 x1 + b2 x2 + bo) >> 16)
// holds exactly (the terms in a are whole multiples of 65536, ao = floor(off
// / 65536), bo = off - 65536 ao). Saturating narrowing does the byte clamp.
// The interleave and narrowing steps work per 128-bit block on x86 and on
// the one block of NEON, so that pairs return to pixel order.
#if defined(ZOR_VIDEO_VEC_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef ZOR_VIDEO_VEC_INL_H_
#undef ZOR_VIDEO_VEC_INL_H_
#else
#define ZOR_VIDEO_VEC_INL_H_
#endif

#include "hwy/highway.h"
#include "video/pixels.h"
#include "video/ycbcr.h"

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
using D32 = hn::Repartition<std::int32_t, D8>;
using V32 = hn::Vec<D32>;

// ---------------------------------------------------------------------------
// Loading and storing the three samples of whole vectors of pixels.

template <class L>
struct VecPix;

template <int Stride, int C0, int C1, int C2, bool Fill>
struct VecPix<Interleaved<Stride, C0, C1, C2, Fill>> {
    static HWY_INLINE void load(D8 d, RowC<const std::uint8_t, Stride> r, std::size_t i, V8& a, V8& b, V8& c) {
        V8 v0, v1, v2, v3;
        if constexpr (Stride == 3) {
            hn::LoadInterleaved3(d, r.p + 3 * i, v0, v1, v2);
        } else {
            hn::LoadInterleaved4(d, r.p + 4 * i, v0, v1, v2, v3);
        }
        const V8 v[3] = {v0, v1, v2};
        a = v[C0];
        b = v[C1];
        c = v[C2];
    }
    // The fourth byte: the fill value, or the byte already there.
    static HWY_INLINE void store(D8 d, RowC<std::uint8_t, Stride> row, std::size_t i, V8 a, V8 b, V8 c, V8 fill) {
        std::uint8_t* r = row.p;
        V8 v[3];
        v[C0] = a;
        v[C1] = b;
        v[C2] = c;
        if constexpr (Stride == 3) {
            hn::StoreInterleaved3(v[0], v[1], v[2], d, r + 3 * i);
        } else {
            V8 alpha = fill;
            if constexpr (!Fill) {
                V8 t0, t1, t2;
                hn::LoadInterleaved4(d, r + 4 * i, t0, t1, t2, alpha);
            }
            hn::StoreInterleaved4(v[0], v[1], v[2], alpha, d, r + 4 * i);
        }
    }
};

template <>
struct VecPix<Planar> {
    static HWY_INLINE void load(D8 d, Row3<const std::uint8_t> r, std::size_t i, V8& a, V8& b, V8& c) {
        a = hn::LoadU(d, r.p[0] + i);
        b = hn::LoadU(d, r.p[1] + i);
        c = hn::LoadU(d, r.p[2] + i);
    }
    static HWY_INLINE void store(D8 d, Row3<std::uint8_t> r, std::size_t i, V8 a, V8 b, V8 c, V8) {
        hn::StoreU(a, d, r.p[0] + i);
        hn::StoreU(b, d, r.p[1] + i);
        hn::StoreU(c, d, r.p[2] + i);
    }
};

// ---------------------------------------------------------------------------
// 16-bit halves and pairwise products

HWY_INLINE V16 lowerTo16(V8 v) { return hn::PromoteTo(D16(), hn::LowerHalf(DH8(), v)); }
HWY_INLINE V16 upperTo16(V8 v) { return hn::PromoteTo(D16(), hn::UpperHalf(DH8(), v)); }
HWY_INLINE V8 to8(V16 lo, V16 hi) { return hn::Combine(D8(), hn::DemoteTo(DH8(), hi), hn::DemoteTo(DH8(), lo)); }

// A vector of 16-bit pairs (c0, c1).
HWY_INLINE V16 pair(std::int32_t c0, std::int32_t c1) {
    const std::uint32_t bits = (static_cast<std::uint32_t>(c1) << 16) | (static_cast<std::uint32_t>(c0) & 0xFFFFu);
    return hn::BitCast(D16(), hn::Set(D32(), static_cast<std::int32_t>(bits)));
}

// x0 c0 + x1 c1 of each pair of lanes, as 32-bit lanes.
HWY_INLINE V32 dot(V16 pairs, V16 coef) {
    const D32 d32;
    V32 odd = hn::Zero(d32);
    const V32 even = hn::ReorderWidenMulAccumulate(d32, pairs, coef, hn::Zero(d32), odd);
    return hn::RearrangeToOddPlusEven(even, odd);
}

// The 32-bit results of the lower and upper interleaved pairs back into one
// vector of 16-bit lanes in pixel order.
HWY_INLINE V16 narrow(V32 lo, V32 hi) { return hn::ReorderDemote2To(D16(), lo, hi); }

// ---------------------------------------------------------------------------
// Decoders

// c = 65536 a + b with b in -32768..32767.
struct Split {
    std::int32_t a, b;
};
constexpr Split split(std::int32_t c) {
    const std::int32_t a = (c + 32768) >= 0 ? (c + 32768) / 65536 : -((-(c + 32768) + 65535) / 65536);
    return {a, c - 65536 * a};
}
// off = 65536 a + b with b in 0..65535.
constexpr Split splitOffset(std::int32_t off) {
    const std::int32_t a = off >= 0 ? off / 65536 : -((-off + 65535) / 65536);
    return {a, off - 65536 * a};
}

template <const Decoder& K>
struct DecoderSplit {
    static constexpr Split y = split(K.kY), rv = split(K.kRV), gu = split(K.kGU), gv = split(K.kGV),
                           bu = split(K.kBU);
    static constexpr Split offR = splitOffset(K.offR), offG = splitOffset(K.offG), offB = splitOffset(K.offB);
    static_assert(-32768 <= y.b && y.b < 32768 && -32768 <= rv.b && rv.b < 32768, "16-bit coefficients");
    static_assert(-32768 < gu.b && gu.b < 32768 && -32768 < gv.b && gv.b < 32768, "16-bit coefficients");
    static_assert(-32768 <= bu.b && bu.b < 32768, "16-bit coefficients");
};

// One half: clamped R, G, B (as 16-bit lanes) of 16-bit Y, U, V.
template <const Decoder& K>
HWY_INLINE void decodeHalf(V16 y, V16 u, V16 v, V16& r, V16& g, V16& b) {
    using S = DecoderSplit<K>;
    const D16 d16;
    const D32 d32;
    const V16 yvL = hn::InterleaveLower(d16, y, v), yvU = hn::InterleaveUpper(d16, y, v);
    const V16 yuL = hn::InterleaveLower(d16, y, u), yuU = hn::InterleaveUpper(d16, y, u);
    const V16 cR = pair(S::y.b, S::rv.b), cGu = pair(S::y.b, -S::gu.b), cGv = pair(0, -S::gv.b),
              cB = pair(S::y.b, S::bu.b);
    const V32 oR = hn::Set(d32, S::offR.b), oG = hn::Set(d32, S::offG.b), oB = hn::Set(d32, S::offB.b);
    const V16 fracR = narrow(hn::ShiftRight<16>(dot(yvL, cR) + oR), hn::ShiftRight<16>(dot(yvU, cR) + oR));
    const V16 fracG = narrow(hn::ShiftRight<16>(dot(yuL, cGu) + dot(yvL, cGv) + oG),
                             hn::ShiftRight<16>(dot(yuU, cGu) + dot(yvU, cGv) + oG));
    const V16 fracB = narrow(hn::ShiftRight<16>(dot(yuL, cB) + oB), hn::ShiftRight<16>(dot(yuU, cB) + oB));
    const V16 luma = hn::Mul(y, hn::Set(d16, static_cast<std::int16_t>(S::y.a)));
    r = fracR + luma + hn::Mul(v, hn::Set(d16, static_cast<std::int16_t>(S::rv.a))) +
        hn::Set(d16, static_cast<std::int16_t>(S::offR.a));
    g = fracG + luma - hn::Mul(u, hn::Set(d16, static_cast<std::int16_t>(S::gu.a))) -
        hn::Mul(v, hn::Set(d16, static_cast<std::int16_t>(S::gv.a))) +
        hn::Set(d16, static_cast<std::int16_t>(S::offG.a));
    b = fracB + luma + hn::Mul(u, hn::Set(d16, static_cast<std::int16_t>(S::bu.a))) +
        hn::Set(d16, static_cast<std::int16_t>(S::offB.a));
}

// ---------------------------------------------------------------------------
// Decoders on whole 16-bit vectors
//
// A set written around centred chroma (centred() in video/ycbcr.h) is, per
// output c,
//   T = kY y + ku (u - 128) + kv (v - 128) + h,   out = T >> 16,
// with h the same for R, G and B. Every product of T is needed exactly, and
// the coefficients do not fit 16 bits, so each output comes from two 16-bit
// computations that are cheap on whole vectors:
//   - the low word of T, exact: products and sums modulo 65536 (Mul of
//     16-bit lanes keeps exactly the low halves);
//   - an estimate A of T / 2048 from high-half products (MulHigh) of the
//     samples shifted up by 8, off by a few units at most.
// With t = (low word) >> 11, A - t = 32 out + m where m, the estimate's
// error plus the 11 low bits of T over 2048, lies in 0..31 for a bias that
// the bounds below fix at compile time; so out = (A - t) >> 5 exactly.
// Luma enters as y * 257 (a byte next to itself): its low word is y times
// kY / 257 modulo 65536 (257 is odd, so it has an inverse), and its high half
// product scales by 257 / 65536.

template <const Decoder& K>
struct Exact16 {
    static constexpr std::int32_t h = K.offR + 128 * K.kRV;
    static_assert(K.offG - 128 * K.kGU - 128 * K.kGV == h && K.offB + 128 * K.kBU == h,
                  "one offset for the three outputs around centred chroma");

    // x such that 257 x = 1 modulo 65536.
    static constexpr std::uint32_t kInv257 = [] {
        std::uint32_t x = 1;
        for (int i = 0; i < 5; ++i) x = (x * (2u - 257u * x)) & 0xFFFFu;
        return x;
    }();
    static_assert(((257u * kInv257) & 0xFFFFu) == 1u, "inverse of 257");

    // Low words of the coefficients (as 16-bit lanes).
    static constexpr std::int16_t lo(std::int64_t c) {
        return static_cast<std::int16_t>(static_cast<std::uint16_t>(static_cast<std::uint64_t>(c) & 0xFFFFu));
    }
    static constexpr std::int16_t kYLow = lo(static_cast<std::int64_t>(K.kY) * kInv257);
    static constexpr std::int16_t kRVLow = lo(K.kRV), kGULow = lo(-K.kGU), kGVLow = lo(-K.kGV), kBULow = lo(K.kBU);
    static constexpr std::int16_t kHLow = lo(h);

    // Estimate coefficients: T / 2048 from (x' << 8) c / 65536, c = k / 8
    // rounded; luma from (257 y) cY / 65536, cY = 32 kY / 257 rounded.
    static constexpr std::int32_t roundDiv(std::int64_t a, std::int64_t b) {
        return static_cast<std::int32_t>(a >= 0 ? (2 * a + b) / (2 * b) : -((-2 * a + b) / (2 * b)));
    }
    static constexpr std::int32_t cY = roundDiv(32LL * K.kY, 257), cRV = roundDiv(K.kRV, 8),
                                  cGU = roundDiv(-K.kGU, 8), cGV = roundDiv(-K.kGV, 8), cBU = roundDiv(K.kBU, 8);
    static_assert(0 < cY && cY < 65536, "luma estimate coefficient fits 16 bits");

    // Floor division (MulHigh and arithmetic shifts round down).
    static constexpr std::int64_t floorDiv(std::int64_t a, std::int64_t b) { return a >= 0 ? a / b : -((-a + b - 1) / b); }

    // Range of 2048 * estimate - exact of one term over its samples.
    struct Range {
        std::int64_t min, max;
    };
    static constexpr Range lumaError() {
        Range r{0, 0};
        for (std::int64_t y = 0; y < 256; ++y) {
            const std::int64_t e = 2048 * floorDiv(257 * y * cY, 65536) - K.kY * y;
            r.min = e < r.min ? e : r.min;
            r.max = e > r.max ? e : r.max;
        }
        return r;
    }
    static constexpr Range chromaError(std::int64_t k, std::int64_t c) {
        Range r{0, 0};
        for (std::int64_t x = -128; x < 128; ++x) {
            const std::int64_t e = 2048 * floorDiv(256 * x * c, 65536) - k * x;
            r.min = e < r.min ? e : r.min;
            r.max = e > r.max ? e : r.max;
        }
        return r;
    }
    static constexpr Range add(Range a, Range b) { return {a.min + b.min, a.max + b.max}; }

    static constexpr std::int64_t hA = floorDiv(h, 2048);  // 2048 hA - h in -2047..0
    static constexpr Range kR = add(add(lumaError(), chromaError(K.kRV, cRV)), Range{2048 * hA - h, 0});
    static constexpr Range kG =
        add(add(add(lumaError(), chromaError(-K.kGU, cGU)), chromaError(-K.kGV, cGV)), Range{2048 * hA - h, 0});
    static constexpr Range kB = add(add(lumaError(), chromaError(K.kBU, cBU)), Range{2048 * hA - h, 0});
    static constexpr std::int64_t kMin = kR.min < kG.min ? (kR.min < kB.min ? kR.min : kB.min) : (kG.min < kB.min ? kG.min : kB.min);
    static constexpr std::int64_t kMax = kR.max > kG.max ? (kR.max > kB.max ? kR.max : kB.max) : (kG.max > kB.max ? kG.max : kB.max);
    static constexpr std::int64_t beta = (-kMin + 2047) / 2048;
    static_assert(kMin + 2048 * beta >= 0 && 2047 + kMax + 2048 * beta <= 32 * 2048 - 1, "estimate within the window");
    static constexpr std::int16_t kA = static_cast<std::int16_t>(hA + beta);
};

// A vector of c whose value the compiler does not look into, made once
// before a loop: a product with it stays one multiply (compilers turn some
// constant factors into longer chains of shifts and adds).
HWY_INLINE V16 opaque16(std::int32_t c) {
    volatile std::int16_t x = static_cast<std::int16_t>(c);
    return hn::Set(D16(), x);
}

// The decoder of set K on 16-bit vectors, its constants made once per row:
// 32 out + m (m in 0..31) of each output, from luma as y * 257 and centred
// chroma shifted up by 8 ((x - 128) << 8).
template <const Decoder& K>
struct ExactDecoder {
    using E = Exact16<K>;
    V16 yLow, rvLow, guLow, gvLow, buLow, cY, cRV, cGU, cGV, cBU;

    HWY_INLINE ExactDecoder()
        : yLow(opaque16(E::kYLow)),
          rvLow(opaque16(E::kRVLow)),
          guLow(opaque16(E::kGULow)),
          gvLow(opaque16(E::kGVLow)),
          buLow(opaque16(E::kBULow)),
          cY(opaque16(E::cY)),
          cRV(opaque16(E::cRV)),
          cGU(opaque16(E::cGU)),
          cGV(opaque16(E::cGV)),
          cBU(opaque16(E::cBU)) {}

    HWY_INLINE void operator()(V16 y257, V16 uh, V16 vh, V16& r, V16& g, V16& b) const {
        const D16 d16;
        const hn::RebindToUnsigned<D16> du16;
        const V16 u = hn::ShiftRight<8>(uh), v = hn::ShiftRight<8>(vh);
        const V16 lowY = hn::Mul(y257, yLow) + hn::Set(d16, E::kHLow);
        const V16 estY = hn::BitCast(d16, hn::MulHigh(hn::BitCast(du16, y257), hn::BitCast(du16, cY))) + hn::Set(d16, E::kA);
        const auto fin = [&](V16 est, V16 low) {
            return est - hn::BitCast(d16, hn::ShiftRight<11>(hn::BitCast(du16, low)));
        };
        r = fin(estY + hn::MulHigh(vh, cRV), lowY + hn::Mul(v, rvLow));
        b = fin(estY + hn::MulHigh(uh, cBU), lowY + hn::Mul(u, buLow));
        g = fin(estY + hn::MulHigh(uh, cGU) + hn::MulHigh(vh, cGV), lowY + hn::Mul(u, guLow) + hn::Mul(v, gvLow));
    }
};

// Clamped output bytes from 32 out + m: in the low byte, and in the high
// byte of each 16-bit lane.
HWY_INLINE V16 clampLow(V16 x) {
    const D16 d16;
    return hn::ShiftRight<5>(hn::Min(hn::Max(x, hn::Zero(d16)), hn::Set(d16, 8191)));
}
HWY_INLINE V16 clampHigh(V16 x) {
    const D16 d16;
    return hn::ShiftLeft<3>(hn::Min(hn::Max(x, hn::Zero(d16)), hn::Set(d16, 8191)));
}

#endif  // HWY_TARGET != HWY_SCALAR

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#endif  // include guard
