// Vector building blocks of the subsampled encoders (included once per
// target, after hwy/foreach_target.h), on top of the 16.16 pairwise products
// of video/vec-inl.h. Two forms of the source pixels:
//   chunks  16-bit R, G, B in pixel order, Lanes(D16) pixels each (every
//           source); lane k of dot(r, c) is c (r[2k] + r[2k+1]), so the
//           products of a pair's channel sums come without a shuffle;
//   units   Lanes(D32) pixels of an interleaved byte row, each pixel's R,G
//           and B,G pairs in one 32-bit lane (one lane move and two byte
//           shuffles per unit): luma per lane, and pair sums of two units by
//           gathering their even and odd lanes.
// Channel sums of up to four pixels are at most 1020 and every chroma sum
// stays below 2^26, far inside 32-bit lanes.
#if defined(ZOR_VIDEO_ENCODE_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef ZOR_VIDEO_ENCODE_INL_H_
#undef ZOR_VIDEO_ENCODE_INL_H_
#else
#define ZOR_VIDEO_ENCODE_INL_H_
#endif

#include "hwy/highway.h"
#include "video/group_encoder.h"
#include "video/vec-inl.h"

#include <array>

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET != HWY_SCALAR

using DU16 = hn::Repartition<std::uint16_t, D8>;
using D8Q = hn::Rebind<std::uint8_t, D32>;  // one byte per 32-bit lane

// 16-bit R, G, B of Lanes(D16) pixels in pixel order.
// (Constructors of its own, so that they are compiled for the target: the
// implicit ones would not be, where the baseline is not every target's.)
struct Rgb16 {
    HWY_INLINE Rgb16() {}
    HWY_INLINE Rgb16(V16 r0, V16 g0, V16 b0) : r(r0), g(g0), b(b0) {}
    V16 r, g, b;
};

// ---------------------------------------------------------------------------
// Sources: load(row, i, c) gives pixels i .. i + Lanes(D8) - 1 as c[0], c[1].

template <class S>
struct VecSrc {
    static HWY_INLINE void load(SrcRow<S> row, std::size_t i, Rgb16 (&c)[2]) {
        V8 r, g, b;
        VecPix<S>::load(D8(), row, i, r, g, b);
        c[0] = {lowerTo16(r), lowerTo16(g), lowerTo16(b)};
        c[1] = {upperTo16(r), upperTo16(g), upperTo16(b)};
    }
};

// Words: the fields masked in place and shifted to the 8-bit scale.
template <int GreenBits>
struct VecSrc<PackedBgr16<GreenBits>> {
    static HWY_INLINE void load(SrcRow<PackedBgr16<GreenBits>> row, std::size_t i, Rgb16 (&c)[2]) {
        const DU16 du;
        const auto high5 = hn::Set(du, 0xF8);
        const auto green = hn::Set(du, GreenBits == 6 ? 0xFC : 0xF8);
        for (int h = 0; h < 2; ++h) {
            const auto w = hn::LoadU(du, row.p + i + h * hn::Lanes(du));
            c[h].r = hn::BitCast(D16(), hn::And(hn::ShiftRight<GreenBits + 2>(w), high5));
            c[h].g = hn::BitCast(D16(), hn::And(hn::ShiftRight<GreenBits - 3>(w), green));
            c[h].b = hn::BitCast(D16(), hn::And(hn::ShiftLeft<3>(w), high5));
        }
    }
};

// tableFwd8u as 32-bit entries, for gathers.
inline constexpr std::array<std::int32_t, 256> kGammaFwd32 = [] {
    std::array<std::int32_t, 256> t{};
    for (int i = 0; i < 256; ++i) t[static_cast<std::size_t>(i)] = tableFwd8u[i];
    return t;
}();

// The forward gamma of 16-bit samples 0..255: pixels 4 at a time per block
// widened to 32-bit lanes, gathered, and narrowed back in pixel order.
HWY_INLINE V16 gammaFwd(V16 v) {
    const D16 d16;
    const D32 d32;
    const V16 zero = hn::Zero(d16);
    const V32 lo = hn::GatherIndex(d32, kGammaFwd32.data(), hn::BitCast(d32, hn::InterleaveLower(d16, v, zero)));
    const V32 hi = hn::GatherIndex(d32, kGammaFwd32.data(), hn::BitCast(d32, hn::InterleaveUpper(d16, v, zero)));
    return narrow(lo, hi);
}

template <>
struct VecSrc<PixGammaC3> {
    static HWY_INLINE void load(SrcRow<PixGammaC3> row, std::size_t i, Rgb16 (&c)[2]) {
        VecSrc<PixC3>::load(row, i, c);
        for (Rgb16& x : c) x = {gammaFwd(x.r), gammaFwd(x.g), gammaFwd(x.b)};
    }
};

// ---------------------------------------------------------------------------
// Units: Lanes(D32) pixels of an interleaved byte row as 32-bit lanes that
// hold the pixel's R and G, or B and G, as a pair of 16-bit samples, ready
// for the pairwise products. Four pixels of a row go to each 128-bit block:
// 3-byte pixels are first moved there by 32-bit lanes, from a vector that
// ends with the unit (or starts with it at the row start, so that no load
// leaves the row).

using Idx32 = decltype(hn::IndicesFromVec(D32(), hn::Zero(D32())));

template <class S>
struct Units;

template <int Stride, int C0, int C1, int C2, bool Fill>
struct Units<Interleaved<Stride, C0, C1, C2, Fill>> {
    Idx32 front, back;
    V8 rg, bg;
    Units() {
        const std::size_t n32 = hn::Lanes(D32());
        alignas(64) std::int32_t f[64 / 4], b[64 / 4];
        alignas(64) std::uint8_t kRG[64], kBG[64];
        for (std::size_t k = 0; k < n32; ++k) {
            f[k] = static_cast<std::int32_t>(3 * (k / 4) + (k % 4 == 3 ? 2 : k % 4));
            b[k] = f[k] + static_cast<std::int32_t>(n32 / 4);
        }
        for (std::size_t i = 0; i < 4 * n32; ++i) {  // byte i % 4 of pixel i % 16 / 4 of a block
            const int at = Stride * static_cast<int>(i % 16 / 4);
            kRG[i] = static_cast<std::uint8_t>(i % 2 ? 0x80 : at + (i % 4 ? C1 : C0));
            kBG[i] = static_cast<std::uint8_t>(i % 2 ? 0x80 : at + (i % 4 ? C1 : C2));
        }
        front = hn::SetTableIndices(D32(), f);
        back = hn::SetTableIndices(D32(), b);
        rg = hn::Load(D8(), kRG);
        bg = hn::Load(D8(), kBG);
    }
    HWY_INLINE void load(const std::uint8_t* row, std::size_t x, V16& outRG, V16& outBG) const {
        V8 v;
        if constexpr (Stride == 4) {
            v = hn::LoadU(D8(), row + 4 * x);
        } else if (x == 0) {
            v = hn::BitCast(D8(), hn::TableLookupLanes(hn::BitCast(D32(), hn::LoadU(D8(), row)), front));
        } else {
            const V32 w = hn::BitCast(D32(), hn::LoadU(D8(), row + 3 * x - hn::Lanes(D32())));
            v = hn::BitCast(D8(), hn::TableLookupLanes(w, back));
        }
        outRG = hn::BitCast(D16(), hn::TableLookupBytesOr0(v, rg));
        outBG = hn::BitCast(D16(), hn::TableLookupBytesOr0(v, bg));
    }
};

template <class S>
inline constexpr bool kHasUnits = false;
template <int Stride, int C0, int C1, int C2, bool Fill>
inline constexpr bool kHasUnits<Interleaved<Stride, C0, C1, C2, Fill>> = true;

// Y of each pixel of a unit, in 32-bit lanes.
HWY_INLINE V32 lumaUnit(V16 rg, V16 bg, V32 bias) {
    return hn::ShiftRight<16>(dot(rg, pair(16843, 16515)) + dot(bg, pair(6423, 16515)) + bias);
}

// Four vectors of 32-bit lanes (values 0..255) as the bytes of a, b, c, d in
// order. The signed narrowing works per 128-bit block on x86 (one block on
// NEON); the last step puts the blocks back in order.
struct Pack4 {
    Idx32 fix;
    Pack4() {
        const std::size_t nb = hn::Lanes(D32()) / 4;
        alignas(64) std::int32_t idx[64 / 4];
        for (std::size_t m = 0; m < 4 * nb; ++m) {
            const std::size_t u = m / nb, j = m % nb;
            idx[m] = static_cast<std::int32_t>(u / 2 * 2 * nb + 2 * j + u % 2);
        }
        fix = hn::SetTableIndices(D32(), idx);
    }
    HWY_INLINE V8 operator()(V32 a, V32 b, V32 c, V32 d) const {
        const D16 d16;
        const V8 bytes = hn::ConcatEven(D8(), hn::BitCast(D8(), hn::ReorderDemote2To(d16, c, d)),
                                        hn::BitCast(D8(), hn::ReorderDemote2To(d16, a, b)));
        return hn::BitCast(D8(), hn::TableLookupLanes(hn::BitCast(D32(), bytes), fix));
    }
};

// Two vectors of 32-bit lanes (values 0..65535) as the 16-bit words of a
// then b: narrowed with signed saturation around 32768 (exact), per 128-bit
// block on x86, and the blocks put back in order by 64-bit lanes.
struct PackWords {
    using D64 = hn::Repartition<std::uint64_t, D8>;
    decltype(hn::IndicesFromVec(D64(), hn::Zero(D64()))) fix;
    PackWords() {
        const std::size_t nb = hn::Lanes(D64()) / 2;
        alignas(64) std::uint64_t idx[64 / 8];
        for (std::size_t m = 0; m < 2 * nb; ++m) idx[m] = m < nb ? 2 * m : 2 * (m - nb) + 1;
        fix = hn::SetTableIndices(D64(), idx);
    }
    HWY_INLINE void store(V32 a, V32 b, std::uint8_t* p) const {
        const V32 half = hn::Set(D32(), 32768);
        const V16 w = hn::Xor(hn::ReorderDemote2To(D16(), a - half, b - half), hn::Set(D16(), -32768));
        hn::StoreU(hn::BitCast(D8(), hn::TableLookupLanes(hn::BitCast(D64(), w), fix)), D8(), p);
    }
};

// The pair sums of the 16-bit samples of two units (pixels 2k and 2k + 1 of
// a then b), in pair order.
HWY_INLINE V16 pairSums(V16 a, V16 b) {
    const D32 d32;
    const V32 a32 = hn::BitCast(d32, a), b32 = hn::BitCast(d32, b);
    return hn::BitCast(D16(), hn::ConcatEven(d32, b32, a32) + hn::ConcatOdd(d32, b32, a32));
}

// ---------------------------------------------------------------------------
// Luma and chroma

// Y of each pixel: 33030 G does not fit a 16-bit coefficient, so G goes
// twice at 16515, paired with R and with B. bias: the luma bias of each
// 32-bit lane, whose parity is the pixel's.
HWY_INLINE V16 luma(const Rgb16& c, V32 bias) {
    const D16 d16;
    const V16 kRG = pair(16843, 16515), kBG = pair(6423, 16515);
    const V16 rgL = hn::InterleaveLower(d16, c.r, c.g), rgU = hn::InterleaveUpper(d16, c.r, c.g);
    const V16 bgL = hn::InterleaveLower(d16, c.b, c.g), bgU = hn::InterleaveUpper(d16, c.b, c.g);
    return narrow(hn::ShiftRight<16>(dot(rgL, kRG) + dot(bgL, kBG) + bias),
                  hn::ShiftRight<16>(dot(rgU, kRG) + dot(bgU, kBG) + bias));
}
static_assert(16515 * 2 == 33030, "luma coefficient split");

HWY_INLINE V32 lumaBias(std::int32_t even, std::int32_t odd) {
    return hn::OddEven(hn::Set(D32(), odd), hn::Set(D32(), even));
}

// The Cb or Cr product of the channel sums of each pair, in pair order.
template <std::int32_t KR, std::int32_t KG, std::int32_t KB>
HWY_INLINE V32 pairProduct(const Rgb16& c) {
    const D16 d16;
    return dot(c.r, hn::Set(d16, KR)) + dot(c.g, hn::Set(d16, KG)) + dot(c.b, hn::Set(d16, KB));
}
HWY_INLINE V32 cbPairs(const Rgb16& c) { return pairProduct<-9699, -19071, 28770>(c); }
HWY_INLINE V32 crPairs(const Rgb16& c) { return pairProduct<28770, -24117, -4653>(c); }
static_assert(cbProduct(1, 0, 0) == -9699 && cbProduct(0, 1, 0) == -19071 && cbProduct(0, 0, 1) == 28770, "Cb");
static_assert(crProduct(1, 0, 0) == 28770 && crProduct(0, 1, 0) == -24117 && crProduct(0, 0, 1) == -4653, "Cr");

HWY_INLINE Rgb16 operator+(const Rgb16& a, const Rgb16& b) { return {a.r + b.r, a.g + b.g, a.b + b.b}; }

// Stores: 16-bit luma (16..235) as bytes; 32-bit chroma (16..240) as bytes.
HWY_INLINE void storeLuma(V16 y, std::uint8_t* p) {
    const hn::Rebind<std::uint8_t, D16> d;
    hn::StoreU(hn::DemoteTo(d, y), d, p);
}
HWY_INLINE void storeChroma(V32 v, std::uint8_t* p) { hn::StoreU(hn::DemoteTo(D8Q(), v), D8Q(), p); }

#endif  // HWY_TARGET != HWY_SCALAR

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#endif  // include guard
