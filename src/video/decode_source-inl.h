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
#include "video/vec-inl.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET != HWY_SCALAR

using DU16 = hn::Repartition<std::uint16_t, D8>;
using DU32 = hn::Repartition<std::uint32_t, D8>;
using DU64 = hn::Repartition<std::uint64_t, D8>;

// Lanes(D16) chroma lanes from the samples at p, each repeated H times.
template <int H>
HWY_INLINE V16 upsample(const std::uint8_t* p) {
    if constexpr (H == 1) {
        return hn::PromoteTo(D16(), hn::LoadU(hn::Rebind<std::uint8_t, D16>(), p));
    } else if constexpr (H == 2) {
        const auto c = hn::PromoteTo(DU32(), hn::LoadU(hn::Rebind<std::uint8_t, DU32>(), p));
        return hn::BitCast(D16(), hn::Or(c, hn::ShiftLeft<16>(c)));
    } else {
        static_assert(H == 4, "chroma groups of 1, 2 or 4 pixels");
        const hn::Rebind<std::uint32_t, DU64> d32;
        auto c = hn::PromoteTo(DU64(), hn::PromoteTo(d32, hn::LoadU(hn::Rebind<std::uint8_t, DU64>(), p)));
        c = hn::Or(c, hn::ShiftLeft<16>(c));
        return hn::BitCast(D16(), hn::Or(c, hn::ShiftLeft<32>(c)));
    }
}

// load(row, i, y, u, v): pixels i .. i + Lanes(D8) - 1 as two halves.
// limit(width): where the vector part of a row ends.
template <class S>
struct VecSource;

template <class L>
struct VecSource<Full<L>> {
    static HWY_INLINE int limit(int width) { return width; }
    static HWY_INLINE void load(RowOf<L, const std::uint8_t> r, std::size_t i, V16 y[2], V16 u[2], V16 v[2]) {
        V8 a, b, c;
        VecPix<L>::load(D8(), r, i, a, b, c);
        y[0] = lowerTo16(a), u[0] = lowerTo16(b), v[0] = lowerTo16(c);
        y[1] = upperTo16(a), u[1] = upperTo16(b), v[1] = upperTo16(c);
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

template <int H>
struct VecSource<Shared<H>> {
    static HWY_INLINE int limit(int width) { return width; }
    static HWY_INLINE void load(Row3<const std::uint8_t, H> r, std::size_t i, V16 y[2], V16 u[2], V16 v[2]) {
        const V8 luma = hn::LoadU(D8(), r.p[0] + i);
        y[0] = lowerTo16(luma), y[1] = upperTo16(luma);
        const std::size_t half = hn::Lanes(D16());
        for (std::size_t h = 0; h < 2; ++h) {
            u[h] = upsample<H>(r.p[1] + (i + h * half) / H);
            v[h] = upsample<H>(r.p[2] + (i + h * half) / H);
        }
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

#endif  // HWY_TARGET != HWY_SCALAR

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#endif  // include guard
