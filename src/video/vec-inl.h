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
// Encoder

// One half: Y, Cb, Cr of 16-bit R, G, B. 33030 G does not fit a 16-bit
// coefficient, so luma takes G twice at 16515; the chroma offsets ride on
// B paired with 512 (512 * 16448 = 128 * 65536 + 32768).
HWY_INLINE void encodeHalf(V16 r, V16 g, V16 b, V16& y, V16& cb, V16& cr) {
    const D16 d16;
    const V16 k512 = hn::Set(d16, 512);
    const V16 rgL = hn::InterleaveLower(d16, r, g), rgU = hn::InterleaveUpper(d16, r, g);
    const V16 gbL = hn::InterleaveLower(d16, g, b), gbU = hn::InterleaveUpper(d16, g, b);
    const V16 bkL = hn::InterleaveLower(d16, b, k512), bkU = hn::InterleaveUpper(d16, b, k512);
    const V32 lumaBias = hn::Set(D32(), kLumaRounded);
    const V16 yRG = pair(16843, 16515), yGB = pair(16515, 6423);
    y = narrow(hn::ShiftRight<16>(dot(rgL, yRG) + dot(gbL, yGB) + lumaBias),
               hn::ShiftRight<16>(dot(rgU, yRG) + dot(gbU, yGB) + lumaBias));
    const V16 cbRG = pair(-9699, -19071), cbBK = pair(28770, 16448);
    cb = narrow(hn::ShiftRight<16>(dot(rgL, cbRG) + dot(bkL, cbBK)),
                hn::ShiftRight<16>(dot(rgU, cbRG) + dot(bkU, cbBK)));
    const V16 crRG = pair(28770, -24117), crBK = pair(-4653, 16448);
    cr = narrow(hn::ShiftRight<16>(dot(rgL, crRG) + dot(bkL, crBK)),
                hn::ShiftRight<16>(dot(rgU, crRG) + dot(bkU, crBK)));
}
static_assert(16515 * 2 == 33030 && 512 * 16448 == kChromaRounded, "encoder coefficient split");

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

#endif  // HWY_TARGET != HWY_SCALAR

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#endif  // include guard
