// Vector side of the chroma sharing (video/chroma_share.h): the Y, Cb and Cr
// of whole vectors of pixels of each source, as 16-bit lanes in pixel order,
// and the decoders as types. Shared by the decoder and packed-output units.
//
// Every step keeps the lanes in pixel order across the whole vector: chroma
// is replicated by widening (one sample per 32- or 64-bit lane, then copied
// into its 16-bit halves), never by block-wise interleaving.
#if defined(ZOR_VIDEO_DECODE_SOURCE_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef ZOR_VIDEO_DECODE_SOURCE_INL_H_
#undef ZOR_VIDEO_DECODE_SOURCE_INL_H_
#else
#define ZOR_VIDEO_DECODE_SOURCE_INL_H_
#endif

#include "hwy/highway.h"
#include "video/chroma_share.h"

#include <array>
#include "video/vec-inl.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET != HWY_SCALAR

using DU16 = hn::Repartition<std::uint16_t, D8>;
using DU32 = hn::Repartition<std::uint32_t, D8>;
using DU64 = hn::Repartition<std::uint64_t, D8>;

// Chunks of 64 bits reordered so that the per-block InterleaveLower and
// InterleaveUpper (which work per 128-bit block) take lanes in order: chunk p
// of the result is chunk p / 2 of v for even p and chunk n / 2 + p / 2 for
// odd p (n chunks). Then the interleaves of a vector of 16-bit lanes with
// itself give every lane twice, in order; and those of two vectors give the
// first half, then the second half, of their lanes paired.
template <std::size_t N>
constexpr std::array<std::uint64_t, N> blockOrder() {
    std::array<std::uint64_t, N> idx{};
    for (std::size_t p = 0; p < N; ++p) idx[p] = (p % 2) * (N / 2) + p / 2;
    return idx;
}
template <class V>
HWY_INLINE V byBlocks(V v) {
    constexpr std::size_t n = hn::MaxLanes(DU64());
    if constexpr (n <= 2) {
        return v;
    } else {
        static constexpr std::array<std::uint64_t, n> kOrder = blockOrder<n>();
        const DU64 d64;
        const hn::DFromV<V> d;
        return hn::BitCast(d, hn::TableLookupLanes(hn::BitCast(d64, v), hn::SetTableIndices(d64, kOrder.data())));
    }
}

// load(row, i, y, u, v): pixels i .. i + Lanes(D8) - 1 as two halves.
// limit(width): where the vector part of a row ends.
template <class S>
struct VecSource;

// Three samples per pixel, of layout L.
template <class L>
HWY_INLINE void loadHalves(RowOf<L, const std::uint8_t> r, std::size_t i, V16 y[2], V16 u[2], V16 v[2]) {
    V8 a, b, c;
    VecPix<L>::load(D8(), r, i, a, b, c);
    y[0] = lowerTo16(a), u[0] = lowerTo16(b), v[0] = lowerTo16(c);
    y[1] = upperTo16(a), u[1] = upperTo16(b), v[1] = upperTo16(c);
}

template <class L>
struct VecSource<Full<L>> {
    static HWY_INLINE int limit(int width) { return width; }
    static HWY_INLINE void load(RowOf<L, const std::uint8_t> r, std::size_t i, V16 y[2], V16 u[2], V16 v[2]) {
        loadHalves<L>(r, i, y, u, v);
    }
};

// Two bytes per pixel: seen as 16-bit lanes, each holds the pixel's Y and
// one chroma byte; seen as 32-bit lanes, each holds a pair.
template <class Order>
struct VecSource<Packed422<Order>> {
    static_assert(Order::kY1 == Order::kY0 + 2, "Y0 and Y1 in the same byte of their halves");
    // A last odd pixel needs the Cr of the pair before it: leave it a pair.
    static HWY_INLINE int limit(int width) { return (width & 1) ? width - 2 : width; }
    template <int Byte>
    static HWY_INLINE V16 chroma(hn::Vec<DU32> pairs) {
        const auto c = hn::And(hn::ShiftRight<8 * Byte>(pairs), hn::Set(DU32(), 0xFF));
        return hn::BitCast(D16(), hn::Or(c, hn::ShiftLeft<16>(c)));
    }
    static HWY_INLINE void load(RowC<const std::uint8_t, 2> r, std::size_t i, V16 y[2], V16 u[2], V16 v[2]) {
        const D8 d8;
        for (std::size_t h = 0; h < 2; ++h) {
            const V8 bytes = hn::LoadU(d8, r.p + 2 * i + h * hn::Lanes(d8));
            const auto w = hn::BitCast(DU16(), bytes);
            const auto luma = Order::kY0 == 0 ? hn::And(w, hn::Set(DU16(), 0xFF)) : hn::ShiftRight<8>(w);
            y[h] = hn::BitCast(D16(), luma);
            u[h] = chroma<Order::kCb>(hn::BitCast(DU32(), bytes));
            v[h] = chroma<Order::kCr>(hn::BitCast(DU32(), bytes));
        }
    }
};

// Planes: 4:4:4 loads here; subsampled planes are decoded by pairs or with
// doubled chroma terms (below).
template <int H>
struct VecSource<Shared<H>> {
    static HWY_INLINE int limit(int width) { return width; }
    static HWY_INLINE void load(Row3<const std::uint8_t, H> r, std::size_t i, V16 y[2], V16 u[2], V16 v[2]) {
        static_assert(H == 1, "one chroma sample per pixel");
        loadHalves<Planar>(r, i, y, u, v);
    }
};

// ---------------------------------------------------------------------------
// Decoders: unclamped R, G, B of 16-bit Y, U, V.
template <class Dec>
struct VecDecode;

template <const Decoder& K>
struct VecDecode<DecodeSet<K>> {
    static HWY_INLINE void half(V16 y, V16 u, V16 v, V16& r, V16& g, V16& b) { decodeHalf<K>(y, u, v, r, g, b); }
};

// The fine decoder in 16-bit lanes, exactly: each product of the scalar code
// is a 16-bit sample times a 16-bit constant shifted right by 16, which is
// the high half of the signed product (MulHigh). No sum overflows:
// (Y - 16) << 7 lies in -2048..30592 and y' in -298..4450; d', e' in
// -16384..16256; the outputs before the last shift stay within -4430..8550.
template <>
struct VecDecode<DecodeFine> {
    static HWY_INLINE void half(V16 y, V16 u, V16 v, V16& r, V16& g, V16& b) {
        const D16 d;
        const V16 luma = hn::MulHigh(hn::ShiftLeft<7>(hn::Sub(y, hn::Set(d, 16))), hn::Set(d, 9535));
        const V16 cb = hn::ShiftLeft<7>(hn::Sub(u, hn::Set(d, 128)));
        const V16 cr = hn::ShiftLeft<7>(hn::Sub(v, hn::Set(d, 128)));
        r = hn::ShiftRight<4>(hn::Add(luma, hn::MulHigh(cr, hn::Set(d, 13074))));
        g = hn::ShiftRight<4>(
            hn::Sub(hn::Sub(luma, hn::MulHigh(cb, hn::Set(d, 3211))), hn::MulHigh(cr, hn::Set(d, 6660))));
        b = hn::ShiftRight<4>(hn::Add(luma, hn::MulHigh(cb, hn::Set(d, 16523))));
    }
};

// ---------------------------------------------------------------------------
// R, G, B (unclamped, 16-bit lanes in pixel order) of pixels i .. i +
// Lanes(D8) - 1 of source S decoded with Dec, as two halves.
template <class Dec, class S>
struct VecDecoded {
    static HWY_INLINE void at(RowOf<S, const std::uint8_t> s, std::size_t i, V16 r[2], V16 g[2], V16 b[2]) {
        V16 y[2], u[2], v[2];
        VecSource<S>::load(s, i, y, u, v);
        for (int h = 0; h < 2; ++h) VecDecode<Dec>::half(y[h], u[h], v[h], r[h], g[h], b[h]);
    }
};

// Sources whose chroma serves pixel pairs, one pair per 32-bit lane: Y0 and
// Y1, Cb and Cr as the lane's 16-bit halves. Blocked: the pairs in the chunk
// order of byBlocks. YBias is added to both Y lanes.
template <class S>
struct VecPairs;

// A byte of each 16-bit lane as a 16-bit value: the odd byte by a shift, the
// even byte by a mask (which takes the bias along in one logic operation).
template <int Byte>
HWY_INLINE hn::Vec<DU16> byteOfHalves(hn::Vec<DU16> x, std::uint16_t bias) {
    const DU16 du;
    if constexpr (Byte == 1) {
        return bias == 0 ? hn::ShiftRight<8>(x) : hn::Or(hn::ShiftRight<8>(x), hn::Set(du, bias));
    } else {
        static_assert(Byte == 0, "byte of a 16-bit lane");
        return hn::Or(hn::And(x, hn::Set(du, 0xFF)), hn::Set(du, bias));
    }
}

template <class Order>
struct VecPairs<Packed422<Order>> {
    static_assert(Order::kY1 == Order::kY0 + 2 && Order::kCr == Order::kCb + 2, "pair layout");
    template <bool Blocked, std::uint16_t YBias>
    static HWY_INLINE void load(RowC<const std::uint8_t, 2> r, std::size_t i, std::size_t h, V32& yy, V32& cc) {
        V8 bytes = hn::LoadU(D8(), r.p + 2 * i + h * hn::Lanes(D8()));
        if constexpr (Blocked) bytes = byBlocks(bytes);
        const auto x = hn::BitCast(DU16(), bytes);
        yy = hn::BitCast(D32(), byteOfHalves<Order::kY0>(x, YBias));
        cc = hn::BitCast(D32(), byteOfHalves<Order::kCb>(x, 0));
    }
};

template <>
struct VecPairs<Shared<2>> {
    template <bool Blocked, std::uint16_t YBias>
    static HWY_INLINE void load(Row3<const std::uint8_t, 2> r, std::size_t i, std::size_t h, V32& yy, V32& cc) {
        const DU32 du;
        const hn::Rebind<std::uint8_t, DU32> quarter;
        const std::size_t at = i + h * hn::Lanes(D16());
        auto y = hn::PromoteTo(DU16(), hn::LoadU(hn::Rebind<std::uint8_t, DU16>(), r.p[0] + at));
        if constexpr (YBias != 0) y = hn::Or(y, hn::Set(DU16(), YBias));
        yy = hn::BitCast(D32(), y);
        const auto cb = hn::PromoteTo(du, hn::LoadU(quarter, r.p[1] + at / 2));
        const auto cr = hn::PromoteTo(du, hn::LoadU(quarter, r.p[2] + at / 2));
        cc = hn::BitCast(D32(), hn::Or(cb, hn::ShiftLeft<16>(cr)));
        if constexpr (Blocked) yy = byBlocks(yy), cc = byBlocks(cc);
    }
};

// Four pixels per chroma sample: each sample serves two pair lanes.
template <>
struct VecPairs<Shared<4>> {
    template <bool Blocked, std::uint16_t YBias>
    static HWY_INLINE void load(Row3<const std::uint8_t, 4> r, std::size_t i, std::size_t h, V32& yy, V32& cc) {
        static_assert(!Blocked && YBias == 0, "pixels in order, plain luma");
        const hn::Rebind<std::uint8_t, DU64> eighth;
        const hn::Rebind<std::uint32_t, DU64> d32;
        const std::size_t at = i + h * hn::Lanes(D16());
        yy = hn::BitCast(D32(), hn::PromoteTo(DU16(), hn::LoadU(hn::Rebind<std::uint8_t, DU16>(), r.p[0] + at)));
        const auto cb = hn::PromoteTo(DU64(), hn::PromoteTo(d32, hn::LoadU(eighth, r.p[1] + at / 4)));
        const auto cr = hn::PromoteTo(DU64(), hn::PromoteTo(d32, hn::LoadU(eighth, r.p[2] + at / 4)));
        const auto both = hn::Or(cb, hn::ShiftLeft<16>(cr));
        cc = hn::BitCast(D32(), hn::Or(both, hn::ShiftLeft<32>(both)));
    }
};

// ---------------------------------------------------------------------------
// A 16.16 set on pixel pairs. With kY = 65536 + b (0 <= b < 32768),
//   (kY y + t) >> 16 = y + ((b y + t) >> 16)
// exactly, so each pixel's 32-bit sum is b y (one pairwise product of the
// pair's Y lanes) plus the pair's chroma term t, and Y itself is added to
// the high half afterwards, in 16-bit lanes.
//
// The chroma term of a channel, cu Cb + cv Cr + offset, is formed once per
// pair from the lane x = Cb + 65536 Cr: cu = p + m + 65536 n and cv = q +
// 65536 m with p and q 16-bit coefficients of one pairwise product, so
//   t = (p Cb + q Cr) + m x + n (x << 16) + offset
// with whole multiples m and n of at most 2 (adds and shifts).
struct ChromaTerm {
    std::int32_t p, q, m, n;
};
constexpr ChromaTerm chromaTerm(std::int32_t cu, std::int32_t cv) {
    const Split v = split(cv), u = split(cu - v.a);
    return {u.b, v.b, v.a, u.a};
}

// acc + M x, for |M| <= 2.
template <std::int32_t M>
HWY_INLINE V32 addTimes(V32 acc, V32 x) {
    static_assert(M >= -2 && M <= 2, "whole part of a split coefficient");
    if constexpr (M == 0) return acc;
    else if constexpr (M == 1) return hn::Add(acc, x);
    else if constexpr (M == -1) return hn::Sub(acc, x);
    else if constexpr (M == 2) return hn::Add(acc, hn::Add(x, x));
    else return hn::Sub(acc, hn::Add(x, x));
}

// acc + N (x << 16), for |N| <= 2.
template <std::int32_t N>
HWY_INLINE V32 addTimesShifted(V32 acc, V32 x) {
    if constexpr (N == 2 || N == -2) return addTimes<N / 2>(acc, hn::ShiftLeft<17>(x));
    else return addTimes<N>(acc, hn::ShiftLeft<16>(x));
}

template <std::int32_t Cu, std::int32_t Cv, std::int32_t Offset>
HWY_INLINE V32 chromaSum(V16 cc16, V32 x) {
    constexpr ChromaTerm t = chromaTerm(Cu, Cv);
    static_assert(-32768 <= t.p && t.p < 32768 && -32768 <= t.q && t.q < 32768, "16-bit coefficients");
    const V32 whole = addTimesShifted<t.n>(addTimes<t.m>(hn::Set(D32(), Offset), x), x);
    return hn::Add(dot(cc16, pair(t.p, t.q)), whole);
}

// The high halves of the even and the odd pixels' sums as the pair's two
// 16-bit lanes. With AVX-512 a byte shuffle merged under a mask does it in
// one instruction.
HWY_INLINE V16 highHalves(V32 even, V32 odd) {
#if HWY_TARGET == HWY_AVX3 || HWY_TARGET == HWY_AVX3_DL
    const D8 d8;
    alignas(16) static constexpr std::uint8_t kUp[16] = {2, 3, 2, 3, 6, 7, 6, 7, 10, 11, 10, 11, 14, 15, 14, 15};
    const auto low = hn::MaskFromVec(hn::BitCast(d8, hn::Set(DU32(), 0x0000FFFFu)));
    const V8 up = hn::TableLookupBytes(hn::BitCast(d8, even), hn::LoadDup128(d8, kUp));
    return hn::BitCast(D16(), hn::IfThenElse(low, up, hn::BitCast(d8, odd)));
#else
    return hn::OddEven(hn::BitCast(D16(), odd), hn::BitCast(D16(), hn::ShiftRight<16>(hn::BitCast(DU32(), even))));
#endif
}

// Clamped: each channel clamped to 0..255 in a 16-bit lane; the sums then
// carry a bias of 32256 in their high halves and Y one of 256, so that the
// saturating addition of the two gives the channel plus 32512 capped at
// 32767, and the unsigned saturating subtraction of 32512 the lower bound.
// Otherwise the exact channel, unclamped.
template <const Decoder& K, class S>
struct VecPairDecoded {
    static constexpr std::int32_t kYb = K.kY - 65536;
    static_assert(0 <= kYb && kYb < 32768, "luma coefficient 65536 + a 16-bit part");
    static constexpr std::uint16_t kYBias = 256;
    static constexpr std::int32_t kHighBias = 32512 - kYBias;

    // The high half (b y + cu Cb + cv Cr + offset) >> 16 at its lowest or
    // highest over all samples, and the proof that the biased high halves
    // are 16-bit values (the sums themselves may wrap: only their high
    // halves are used).
    static constexpr std::int64_t extreme(std::int64_t cu, std::int64_t cv, std::int64_t off, bool top) {
        const auto pick = [top](std::int64_t c) { return (c > 0) == top ? 255 * c : 0; };
        const std::int64_t sum = off + (top ? 255 * kYb : 0) + pick(cu) + pick(cv);
        return sum >= 0 ? sum / 65536 : -((-sum + 65535) / 65536);
    }
    static constexpr bool biasedFits(std::int64_t cu, std::int64_t cv, std::int64_t off) {
        return kHighBias + extreme(cu, cv, off, false) >= -32768 && kHighBias + extreme(cu, cv, off, true) <= 32767;
    }
    static_assert(biasedFits(0, K.kRV, K.offR) && biasedFits(-K.kGU, -K.kGV, K.offG) && biasedFits(K.kBU, 0, K.offB),
                  "biased high halves in 16 bits");

    template <bool Clamped>
    static constexpr std::int32_t offset(std::int32_t off) {
        if constexpr (!Clamped) return off;
        else return static_cast<std::int32_t>(static_cast<std::uint32_t>(off - kYb * kYBias) +
                                              (static_cast<std::uint32_t>(kHighBias) << 16));
    }
    template <bool Clamped>
    static HWY_INLINE V16 channel(V32 even, V32 odd, V32 chroma, V16 y) {
        const V16 high = highHalves(hn::Add(even, chroma), hn::Add(odd, chroma));
        if constexpr (!Clamped) {
            return hn::Add(high, y);
        } else {
            const DU16 du;
            const auto capped = hn::BitCast(du, hn::SaturatedAdd(high, y));
            return hn::BitCast(D16(), hn::SaturatedSub(capped, hn::Set(du, static_cast<std::uint16_t>(kHighBias + kYBias))));
        }
    }
    template <bool Blocked = false, bool Clamped = false>
    static HWY_INLINE void at(RowOf<S, const std::uint8_t> row, std::size_t i, V16 r[2], V16 g[2], V16 b[2]) {
        for (std::size_t h = 0; h < 2; ++h) {
            V32 yy, cc;
            VecPairs<S>::template load<Blocked, Clamped ? kYBias : 0>(row, i, h, yy, cc);
            const V16 y = hn::BitCast(D16(), yy), c = hn::BitCast(D16(), cc);
            const V32 even = dot(y, pair(kYb, 0)), odd = dot(y, pair(0, kYb));
            r[h] = channel<Clamped>(even, odd, chromaSum<0, K.kRV, offset<Clamped>(K.offR)>(c, cc), y);
            g[h] = channel<Clamped>(even, odd, chromaSum<-K.kGU, -K.kGV, offset<Clamped>(K.offG)>(c, cc), y);
            b[h] = channel<Clamped>(even, odd, chromaSum<K.kBU, 0, offset<Clamped>(K.offB)>(c, cc), y);
        }
    }
};

template <const Decoder& K, class Order>
struct VecDecoded<DecodeSet<K>, Packed422<Order>> : VecPairDecoded<K, Packed422<Order>> {};
template <const Decoder& K, int H>
struct VecDecoded<DecodeSet<K>, Shared<H>> : VecPairDecoded<K, Shared<H>> {};

// The fine decoder on 4:2:2 and 4:2:0 planes: the chroma terms are formed
// once per chroma sample and then doubled.
template <>
struct VecDecoded<DecodeFine, Shared<2>> {
    static HWY_INLINE void at(Row3<const std::uint8_t, 2> r, std::size_t i, V16 red[2], V16 green[2], V16 blue[2]) {
        const D16 d;
        const hn::Rebind<std::uint8_t, D16> half;
        const auto centred = [&](const std::uint8_t* p) {
            return byBlocks(hn::ShiftLeft<7>(hn::Sub(hn::PromoteTo(d, hn::LoadU(half, p + i / 2)), hn::Set(d, 128))));
        };
        const V16 cb = centred(r.p[1]), cr = centred(r.p[2]);
        const V16 tR = hn::MulHigh(cr, hn::Set(d, 13074)), tB = hn::MulHigh(cb, hn::Set(d, 16523));
        const V16 tG = hn::Add(hn::MulHigh(cb, hn::Set(d, 3211)), hn::MulHigh(cr, hn::Set(d, 6660)));
        const V8 y = hn::LoadU(D8(), r.p[0] + i);
        for (int h = 0; h < 2; ++h) {
            const V16 luma =
                hn::MulHigh(hn::ShiftLeft<7>(hn::Sub(h == 0 ? lowerTo16(y) : upperTo16(y), hn::Set(d, 16))), hn::Set(d, 9535));
            const auto twice = [&](V16 t) { return h == 0 ? hn::InterleaveLower(d, t, t) : hn::InterleaveUpper(d, t, t); };
            red[h] = hn::ShiftRight<4>(hn::Add(luma, twice(tR)));
            green[h] = hn::ShiftRight<4>(hn::Sub(luma, twice(tG)));
            blue[h] = hn::ShiftRight<4>(hn::Add(luma, twice(tB)));
        }
    }
};

#endif  // HWY_TARGET != HWY_SCALAR

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#endif  // include guard
