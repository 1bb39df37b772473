// Vector kernels of the YUV conversions, compiled once per CPU target. Every
// kernel computes exactly what its scalar kernel (video/yuv_kernels.h)
// computes.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "video/yuv_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "video/vec-inl.h"
#include "video/yuv_kernels.h"

#include <array>

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// The scalar target of Highway keeps the scalar kernels (found in zor::).
#if HWY_TARGET != HWY_SCALAR

using DQ8 = hn::Rebind<std::uint8_t, D32>;  // one byte per 32-bit lane

// ---------------------------------------------------------------------------
// Encoder

// The luma sums S of 16-bit R, G, B as 32-bit lanes of the lower and upper
// interleaves; 38470 G does not fit a 16-bit coefficient, so G goes in twice
// at 19235.
HWY_INLINE void lumaSums(V16 r, V16 g, V16 b, V32& lo, V32& hi) {
    const D16 d16;
    const V16 kRG = pair(19595, 19235), kGB = pair(19235, 7471);
    lo = dot(hn::InterleaveLower(d16, r, g), kRG) + dot(hn::InterleaveLower(d16, g, b), kGB);
    hi = dot(hn::InterleaveUpper(d16, r, g), kRG) + dot(hn::InterleaveUpper(d16, g, b), kGB);
}
static_assert(2 * 19235 == 38470, "luma coefficient split");

// (S + bias) >> 16, back in pixel order.
HWY_INLINE V16 lumaShift(V32 lo, V32 hi, std::int32_t bias) {
    const V32 k = hn::Set(D32(), bias);
    return narrow(hn::ShiftRight<16>(lo + k), hn::ShiftRight<16>(hi + k));
}

HWY_INLINE V16 luma(V16 r, V16 g, V16 b) {
    V32 lo, hi;
    lumaSums(r, g, b, lo, hi);
    return lumaShift(lo, hi, 0);
}

// A group of 2^LogN pixels: d = (65536 sum - sumS + 2^(15 + LogN) - 1) >> 16
// is sum - ((sumS + kDiffBias) >> 16).
template <int LogN>
inline constexpr std::int32_t kDiffBias = 65536 - (32768 << LogN);

// U and V of groups from their differences (16-bit lanes): (d c) >> (16 +
// LogN) as the high half of the product shifted further (floor shifts
// compose), with 57475 d = 65536 d - 8061 d for V. U is in range; V
// saturates when it is narrowed.
template <int LogN>
HWY_INLINE void chroma(V16 dB, V16 dR, V16& u, V16& v) {
    const D16 d16;
    const V16 k128 = hn::Set(d16, 128);
    u = hn::ShiftRight<LogN>(hn::MulHigh(dB, hn::Set(d16, 32244))) + k128;
    v = hn::ShiftRight<LogN>(dR + hn::MulHigh(dR, hn::Set(d16, -8061))) + k128;
}
static_assert(65536 - 8061 == 57475, "V coefficient split");

// Groups of two lanes (a pair of pixels, or a column pair of the sums of two
// rows): the differences dB and dR in 32-bit lanes, pixel order.
template <int LogN>
HWY_INLINE void groupDiffs(V16 r, V16 g, V16 b, V32& dB, V32& dR) {
    const V32 s = dot(r, pair(19595, 19595)) + hn::ShiftLeft<1>(dot(g, pair(19235, 19235))) + dot(b, pair(7471, 7471));
    const V32 t = hn::ShiftRight<16>(s + hn::Set(D32(), kDiffBias<LogN>));
    const V16 ones = pair(1, 1);
    dB = dot(b, ones) - t;
    dR = dot(r, ones) - t;
}

// Two vectors of 32-bit lanes holding 16-bit values as one vector, in order.
HWY_INLINE V16 pack16(V32 lo, V32 hi) {
    const D16 d16;
    return hn::ConcatEven(d16, hn::BitCast(d16, hi), hn::BitCast(d16, lo));
}

// The subsampled YUV side in vectors: n pixels (one vector of bytes) of luma
// and the 16-bit U and V of their n / 2 pairs.
template <class L>
struct VecSub;

template <>
struct VecSub<Planes422> {
    static HWY_INLINE void store(Row3<std::uint8_t, 2> r, std::size_t i, V8 y, V16 u, V16 v) {
        const DH8 dh8;
        hn::StoreU(y, D8(), r.p[0] + i);
        hn::StoreU(hn::DemoteTo(dh8, u), dh8, r.p[1] + i / 2);
        hn::StoreU(hn::DemoteTo(dh8, v), dh8, r.p[2] + i / 2);
    }
    // Half a vector of pixels from pixel i: 16-bit Y, and U, V once per pair
    // as 32-bit lanes.
    static HWY_INLINE void load(Row3<const std::uint8_t, 2> r, std::size_t i, V16& y, V32& u, V32& v) {
        const D32 d32;
        y = hn::PromoteTo(D16(), hn::LoadU(DH8(), r.p[0] + i));
        u = hn::PromoteTo(d32, hn::LoadU(DQ8(), r.p[1] + i / 2));
        v = hn::PromoteTo(d32, hn::LoadU(DQ8(), r.p[2] + i / 2));
    }
};

template <>
struct VecSub<Packed422> {
    using O = OrderYCbCr;
    static_assert(O::kY0 == 0 && O::kCb == 1 && O::kY1 == 2 && O::kCr == 3, "Y0 U Y1 V");
    // Y0 U Y1 V: the lumas interleaved with the bytes U, V of each pair.
    static HWY_INLINE void store(RowC<std::uint8_t, 2> r, std::size_t i, V8 y, V16 u, V16 v) {
        const D16 d16;
        const V16 clamped = hn::Min(hn::Max(v, hn::Zero(d16)), hn::Set(d16, 255));
        const V16 uv = hn::Or(u, hn::ShiftLeft<8>(clamped));
        hn::StoreInterleaved2(y, hn::BitCast(D8(), uv), D8(), r.p + 2 * i);
    }
    // One vector of bytes holds half a vector of pixels, a pair per 32-bit lane.
    static HWY_INLINE void load(RowC<const std::uint8_t, 2> r, std::size_t i, V16& y, V32& u, V32& v) {
        const D32 d32;
        const V32 x = hn::BitCast(d32, hn::LoadU(D8(), r.p + 2 * i));
        const V32 byte = hn::Set(d32, 255);
        y = hn::BitCast(D16(), hn::And(x, hn::Set(d32, 0x00FF00FF)));
        u = hn::And(hn::ShiftRight<8 * O::kCb>(x), byte);
        v = hn::And(hn::ShiftRight<8 * O::kCr>(x), byte);
    }
};

template <class S, class D>
void yuvEncode444(RowOf<S, const Zor8u> s, RowOf<D, Zor8u> d, int width) {
    const D8 d8;
    const std::size_t n = hn::Lanes(d8);
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        V8 r, g, b;
        VecPix<S>::load(d8, s, i, r, g, b);
        V16 y[2], u[2], v[2];
        for (int h = 0; h < 2; ++h) {
            const V16 r16 = h ? upperTo16(r) : lowerTo16(r), b16 = h ? upperTo16(b) : lowerTo16(b);
            V32 lo, hi;
            lumaSums(r16, h ? upperTo16(g) : lowerTo16(g), b16, lo, hi);
            y[h] = lumaShift(lo, hi, 0);
            const V16 t = lumaShift(lo, hi, kDiffBias<0>);
            chroma<0>(b16 - t, r16 - t, u[h], v[h]);
        }
        VecPix<D>::store(d8, d, i, to8(y[0], y[1]), to8(u[0], u[1]), to8(v[0], v[1]), hn::Zero(d8));
    }
    ::zor::yuvEncode444<S, D>(S::advance(s, i), D::advance(d, i), width - static_cast<int>(i));
}

template <class S, class D>
void yuvEncode422(RowOf<S, const Zor8u> s, RowOf<D, Zor8u> d, int width) {
    const D8 d8;
    const std::size_t n = hn::Lanes(d8);
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        V8 r, g, b;
        VecPix<S>::load(d8, s, i, r, g, b);
        V16 y[2];
        V32 dB[2], dR[2];
        for (int h = 0; h < 2; ++h) {
            const V16 r16 = h ? upperTo16(r) : lowerTo16(r), g16 = h ? upperTo16(g) : lowerTo16(g),
                      b16 = h ? upperTo16(b) : lowerTo16(b);
            y[h] = luma(r16, g16, b16);
            groupDiffs<1>(r16, g16, b16, dB[h], dR[h]);
        }
        V16 u, v;
        chroma<1>(pack16(dB[0], dB[1]), pack16(dR[0], dR[1]), u, v);
        VecSub<D>::store(d, i, to8(y[0], y[1]), u, v);
    }
    ::zor::yuvEncode422<S, D>(S::advance(s, i), D::advance(d, i), width - static_cast<int>(i));
}

// 4:2:0 from three-byte pixels, one pixel per 32-bit lane. The whole row
// segment is read as groups of four pixels (12 bytes), one group per 128-bit
// block (a 32-bit lane permutation), and byte shuffles spread each group into
// the lanes (R, G) and (G, B) of its pixels: two pairwise products give the
// luma sum S, whose third byte is Y. A 2x2 block takes the sums of the rows'
// (R, B) lanes and S over its two neighbouring lanes (even and odd lanes of
// two vectors), then d = sum - ((sumS - 65536) >> 16) for B and R in 16-bit
// lanes, U and V from them in one pass with a multiplier per lane.

// Byte shuffles and lane permutations of the 4:2:0 encoder, per layout.
template <class L>
struct Rgb3Lanes {
    static constexpr int kR = L::kC[0], kG = L::kC[1], kB = L::kC[2];
    // Bytes a, b of pixel p (0..3) of a group as the 16-bit halves of lane p.
    static constexpr std::array<std::uint8_t, 16> spread(int a, int b) {
        std::array<std::uint8_t, 16> t{};
        for (int p = 0; p < 4; ++p) {
            t[4 * p] = static_cast<std::uint8_t>(3 * p + a);
            t[4 * p + 1] = 0x80;
            t[4 * p + 2] = static_cast<std::uint8_t>(3 * p + b);
            t[4 * p + 3] = 0x80;
        }
        return t;
    }
    alignas(16) static constexpr std::array<std::uint8_t, 16> kRG = spread(kR, kG), kGB = spread(kG, kB);
};

constexpr std::size_t kLanes32 = hn::MaxLanes(D32());
constexpr std::size_t kBlocks = kLanes32 / 4;

// Lane permutations: a table of kLanes32 indices from a rule.
template <class F>
constexpr std::array<std::uint32_t, kLanes32> laneTable(F rule) {
    std::array<std::uint32_t, kLanes32> t{};
    for (std::size_t j = 0; j < kLanes32; ++j) t[j] = static_cast<std::uint32_t>(rule(j));
    return t;
}
// Block b takes the 32-bit lanes 3b .. 3b + 3 (a group of four pixels).
alignas(64) constexpr auto kGroups = laneTable([](std::size_t j) { return 3 * (j / 4) + j % 4; });
// Lane 4b + v of a gather (byte v of lane v of each block) back to pixel order.
alignas(64) constexpr auto kGathered = laneTable([](std::size_t j) { return 4 * (j % kBlocks) + j / kBlocks; });
// Lanes (V, U) of blocks a and b of a chroma gather: V of a, V of b, U of a, U of b.
alignas(64) constexpr auto kPlanes = laneTable([](std::size_t j) {
    const std::size_t part = j / kBlocks, b = j % kBlocks;
    return 4 * b + (part == 0 ? 0 : part == 1 ? 2 : part == 2 ? 1 : 3);
});

template <const std::array<std::uint32_t, kLanes32>& Table>
HWY_INLINE V8 permute32(V8 v) {
    constexpr bool kIdentity = [] {
        for (std::size_t j = 0; j < kLanes32; ++j)
            if (Table[j] != j) return false;
        return true;
    }();
    if constexpr (kIdentity) {
        return v;
    } else {
        const hn::Repartition<std::uint32_t, D8> du;
        return hn::BitCast(D8(), hn::TableLookupLanes(hn::BitCast(du, v), hn::SetTableIndices(du, Table.data())));
    }
}

// Byte `Byte` of the four lanes of block b of x into lane v of block b of
// acc (x's other lanes are dropped); with AVX-512 one byte shuffle merged
// under a mask.
template <int Byte>
HWY_INLINE V8 gatherInto(V8 acc, V8 x, int v) {
    const D8 d8;
    alignas(16) static constexpr auto kTo = [] {
        std::array<std::array<std::uint8_t, 16>, 4> t{};
        for (int lane = 0; lane < 4; ++lane)
            for (int k = 0; k < 16; ++k) t[lane][k] = k / 4 == lane ? static_cast<std::uint8_t>(4 * (k % 4) + Byte) : 0x80;
        return t;
    }();
    const V8 moved = hn::TableLookupBytes(x, hn::LoadDup128(d8, kTo[v].data()));
    if (v == 0) return moved;
#if HWY_TARGET == HWY_AVX3 || HWY_TARGET == HWY_AVX3_DL
    return hn::IfThenElse(hn::Ne(hn::LoadDup128(d8, kTo[v].data()), hn::Set(d8, 0x80)), moved, acc);
#else
    return hn::Or(acc, moved);
#endif
}

template <class S>
void yuvEncode420(RowOf<S, const Zor8u> s0, RowOf<S, const Zor8u> s1, Row3<Zor8u, 2> d0, Row3<Zor8u, 2> d1,
                  int width) {
    const D8 d8;
    const D16 d16;
    const D32 d32;
    const std::size_t n = hn::Lanes(d8), q = hn::Lanes(d32);
    std::size_t i = 0;
    if constexpr (std::is_same_v<S, PixP3>) {
        for (; i + n <= static_cast<std::size_t>(width); i += n) {
            V8 r0, g0, b0, r1, g1, b1;
            VecPix<S>::load(d8, s0, i, r0, g0, b0);
            VecPix<S>::load(d8, s1, i, r1, g1, b1);
            V16 y0[2], y1[2];
            V32 dB[2], dR[2];
            for (int h = 0; h < 2; ++h) {
                const auto half = [h](V8 x) { return h ? upperTo16(x) : lowerTo16(x); };
                const V16 r0h = half(r0), g0h = half(g0), b0h = half(b0), r1h = half(r1), g1h = half(g1),
                          b1h = half(b1);
                y0[h] = luma(r0h, g0h, b0h);
                y1[h] = luma(r1h, g1h, b1h);
                groupDiffs<2>(r0h + r1h, g0h + g1h, b0h + b1h, dB[h], dR[h]);
            }
            V16 u, v;
            chroma<2>(pack16(dB[0], dB[1]), pack16(dR[0], dR[1]), u, v);
            VecSub<Planes422>::store(d0, i, to8(y0[0], y0[1]), u, v);
            hn::StoreU(to8(y1[0], y1[1]), d8, d1.p[0] + i);
        }
    } else {
        static_assert(S::kStride == 3, "three-byte pixels");
        using T = Rgb3Lanes<S>;
        const V8 rg = hn::LoadDup128(d8, T::kRG.data()), gb = hn::LoadDup128(d8, T::kGB.data());
        const V16 kLuma0 = pair(19595, 19235), kLuma1 = pair(19235, 7471);
        const V32 kBias = hn::Set(d32, kDiffBias<2>);
        const V16 kMul = pair(-8061, 32244), k128 = hn::Set(d16, 128), k255 = hn::Set(d16, 255);
        alignas(16) static constexpr std::uint8_t kHigh16[16] = {2, 3, 2, 3, 6, 7, 6, 7, 10, 11, 10, 11, 14, 15, 14, 15};
        const V8 high16 = hn::LoadDup128(d8, kHigh16);
        // Each load reads a whole vector from the pixel's first byte: a
        // quarter of it lies beyond the four groups it serves.
        const std::size_t reach = (n / 4 + 2) / 3;
        for (; i + n + reach <= static_cast<std::size_t>(width); i += n) {
            V8 y[2] = {hn::Zero(d8), hn::Zero(d8)};
            V32 rbSum[4], sSum[4];
            for (std::size_t v = 0; v < 4; ++v) {
                V16 rb[2];
                V32 sum[2];
                for (int r = 0; r < 2; ++r) {
                    const V8 pixels = permute32<kGroups>(hn::LoadU(d8, (r ? s1.p : s0.p) + 3 * (i + v * q)));
                    const V16 a = hn::BitCast(d16, hn::TableLookupBytes(pixels, rg));
                    const V16 b = hn::BitCast(d16, hn::TableLookupBytes(pixels, gb));
                    sum[r] = dot(a, kLuma0) + dot(b, kLuma1);
                    y[r] = gatherInto<2>(y[r], hn::BitCast(d8, sum[r]), static_cast<int>(v));
                    rb[r] = hn::OddEven(b, a);  // (R, B)
                }
                rbSum[v] = hn::BitCast(d32, rb[0] + rb[1]);
                sSum[v] = sum[0] + sum[1];
            }
            hn::StoreU(permute32<kGathered>(y[0]), d8, d0.p[0] + i);
            hn::StoreU(permute32<kGathered>(y[1]), d8, d1.p[0] + i);
            V8 planes = hn::Zero(d8);
            for (int k = 0; k < 2; ++k) {
                const V32 a = rbSum[2 * k], b = rbSum[2 * k + 1], c = sSum[2 * k], e = sSum[2 * k + 1];
                const V16 rbBlock = hn::BitCast(d16, hn::ConcatEven(d32, b, a) + hn::ConcatOdd(d32, b, a));
                const V32 sBlock = hn::ConcatEven(d32, e, c) + hn::ConcatOdd(d32, e, c);
                const V16 t = hn::BitCast(d16, hn::TableLookupBytes(hn::BitCast(d8, sBlock + kBias), high16));
                const V16 diff = rbBlock - t;  // (dR, dB)
                const V16 m = hn::MulHigh(diff, kMul);
                const V16 x = hn::OddEven(m, diff + m);
                const V16 vu = hn::Min(hn::Max(hn::ShiftRight<2>(x) + k128, hn::Zero(d16)), k255);  // (V, U)
                planes = gatherInto<0>(planes, hn::BitCast(d8, vu), 2 * k);
                planes = gatherInto<2>(planes, hn::BitCast(d8, vu), 2 * k + 1);
            }
            planes = permute32<kPlanes>(planes);
            hn::StoreU(hn::LowerHalf(DH8(), planes), DH8(), d0.p[2] + i / 2);
            hn::StoreU(hn::UpperHalf(DH8(), planes), DH8(), d0.p[1] + i / 2);
        }
    }
    ::zor::yuvEncode420<S>(S::advance(s0, i), S::advance(s1, i), Planes422::advance(d0, i),
                           Planes422::advance(d1, i), width - static_cast<int>(i));
}

// ---------------------------------------------------------------------------
// Decoders

// The YUV sets take luma at full weight (kY = 65536), so each output is Y
// plus a term of the chroma alone (video/yuv_kernels.h). The subsampled
// decoders compute the terms once per pair in 32-bit lanes and give both
// pixels of the pair the term as a 16-bit lane each.
template <const Decoder& K>
HWY_INLINE void chromaTerms(V32 u, V32 v, V16& r, V16& g, V16& b) {
    static_assert(K.kY == 65536, "luma at full weight");
    const D32 d32;
    const D16 d16;
    const auto c = [d32](std::int32_t k) { return hn::Set(d32, k); };
    // Both 16-bit halves of x >> 16: the upper one is there already.
    const auto dup = [d16](V32 x) {
        return hn::OddEven(hn::BitCast(d16, x), hn::BitCast(d16, hn::ShiftRight<16>(x)));
    };
    r = dup(v * c(K.kRV) + c(K.offR));
    g = dup(c(K.offG) - u * c(K.kGU) - v * c(K.kGV));
    b = dup(u * c(K.kBU) + c(K.offB));
}

// 4:4:4: the terms of 16-bit U, V lanes, without the luma products that the
// general decoder (decodeHalf) spends on sets of any kY. With c = 65536 a + b
// and the offset o = 65536 oa + ob (video/vec-inl.h), a term of one product
// is a x + oa + floor((b x + ob) / 65536), and that floor is the high half of
// b x plus the carry of its low half and ob: (low + ob) >> 16 =
// AverageRound(low, ob - 1) >> 15. G, with two products, takes pairwise
// products of (U, V) in 32-bit lanes.
template <const Decoder& K>
HWY_INLINE void chromaTerms16(V16 u, V16 v, V16& r, V16& g, V16& b) {
    static_assert(K.kY == 65536, "luma at full weight");
    using S = DecoderSplit<K>;
    const D16 d16;
    const hn::RebindToUnsigned<D16> du16;
    const auto k = [d16](std::int32_t c) { return hn::Set(d16, static_cast<std::int16_t>(c)); };
    const auto single = [&](V16 x, Split c, Split off) {
        V16 t = hn::MulHigh(x, k(c.b)) + hn::Mul(x, k(c.a)) + k(off.a);
        if (off.b != 0) {
            const auto low = hn::BitCast(du16, hn::Mul(x, k(c.b)));
            const auto carry = hn::ShiftRight<15>(hn::AverageRound(low, hn::Set(du16, static_cast<std::uint16_t>(off.b - 1))));
            t = t + hn::BitCast(d16, carry);
        }
        return t;
    };
    r = single(v, S::rv, S::offR);
    b = single(u, S::bu, S::offB);
    const D32 d32;
    const V32 oG = hn::Set(d32, S::offG.b);
    const V16 cG = pair(-S::gu.b, -S::gv.b);
    const V32 lo = dot(hn::InterleaveLower(d16, u, v), cG) + oG, hi = dot(hn::InterleaveUpper(d16, u, v), cG) + oG;
    g = narrow(hn::ShiftRight<16>(lo), hn::ShiftRight<16>(hi)) - hn::Mul(u, k(S::gu.a)) - hn::Mul(v, k(S::gv.a)) +
        k(S::offG.a);
}

// Whole vectors of decoded pixels, as 16-bit R, G, B halves in pixel order,
// into layout D.
template <class D>
HWY_INLINE void storeRgb(RowOf<D, Zor8u> d, std::size_t i, const V16 (&r)[2], const V16 (&g)[2], const V16 (&b)[2]) {
    const D8 d8;
    if constexpr (!std::is_same_v<D, PixC4Zero>) {
        VecPix<D>::store(d8, d, i, to8(r[0], r[1]), to8(g[0], g[1]), to8(b[0], b[1]), hn::Zero(d8));
    } else {
        // Each pixel's 32-bit lane R | G << 8 | B << 16 (the fourth byte 0)
        // from the lower and upper interleaves, whose blocks are then put
        // back in pixel order.
        using D64 = hn::Repartition<std::uint64_t, D8>;
        const D64 d64;
        const D16 d16;
        constexpr std::size_t kBlocks = hn::MaxLanes(d8) / 16;
        static_assert(kBlocks == 1 || kBlocks == 2 || kBlocks == 4, "blocks of 128 bits");
        alignas(64) static constexpr std::uint64_t kInOrder[8] = {0, 1, 4, 5, 2, 3, 6, 7};
        const auto byte = [d16](V16 x) { return hn::Min(hn::Max(x, hn::Zero(d16)), hn::Set(d16, 255)); };
        const std::size_t n = hn::Lanes(d8);
        for (int h = 0; h < 2; ++h) {
            const V16 rg = hn::Or(byte(r[h]), hn::ShiftLeft<8>(byte(g[h]))), b0 = byte(b[h]);
            const auto lo = hn::BitCast(d64, hn::InterleaveLower(d16, rg, b0));
            const auto hi = hn::BitCast(d64, hn::InterleaveUpper(d16, rg, b0));
            hn::Vec<D64> out[2] = {lo, hi};
            if constexpr (kBlocks > 1) {
                out[0] = hn::ConcatLowerLower(d64, hi, lo);
                out[1] = hn::ConcatUpperUpper(d64, hi, lo);
            }
            if constexpr (kBlocks == 4) {
                for (auto& o : out) o = hn::TableLookupLanes(o, hn::SetTableIndices(d64, kInOrder));
            }
            hn::StoreU(hn::BitCast(d8, out[0]), d8, d.p + 4 * i + 2 * n * h);
            hn::StoreU(hn::BitCast(d8, out[1]), d8, d.p + 4 * i + 2 * n * h + n);
        }
    }
}

template <const Decoder& K, class S, class D>
void yuvDecode(RowOf<S, const Zor8u> s, RowOf<D, Zor8u> d, int width) {
    const D8 d8;
    const std::size_t n = hn::Lanes(d8);
    // A packed row of odd width leaves its last pair to the scalar kernel
    // with the odd pixel, which takes that pair's V.
    std::size_t end = static_cast<std::size_t>(width);
    if (std::is_same_v<S, Packed422> && (width & 1)) end = width >= 3 ? end - 3 : 0;
    std::size_t i = 0;
    for (; i + n <= end; i += n) {
        V16 r[2], g[2], b[2];
        if constexpr (kSubsampled<S>) {
            for (int h = 0; h < 2; ++h) {
                V16 y, tR, tG, tB;
                V32 u, v;
                VecSub<S>::load(s, i + h * n / 2, y, u, v);
                chromaTerms<K>(u, v, tR, tG, tB);
                r[h] = y + tR;
                g[h] = y + tG;
                b[h] = y + tB;
            }
        } else {
            V8 y, u, v;
            VecPix<S>::load(d8, s, i, y, u, v);
            for (int h = 0; h < 2; ++h) {
                const V16 y16 = h ? upperTo16(y) : lowerTo16(y);
                V16 tR, tG, tB;
                chromaTerms16<K>(h ? upperTo16(u) : lowerTo16(u), h ? upperTo16(v) : lowerTo16(v), tR, tG, tB);
                r[h] = y16 + tR;
                g[h] = y16 + tG;
                b[h] = y16 + tB;
            }
        }
        storeRgb<D>(d, i, r, g, b);
    }
    ::zor::yuvDecode<K, S, D>(S::advance(s, i), D::advance(d, i), width - static_cast<int>(i));
}

// Both rows take the terms of their one chroma row.
template <const Decoder& K, class D>
void yuvDecode420(Row3<const Zor8u, 2> s0, Row3<const Zor8u, 2> s1, RowOf<D, Zor8u> d0, RowOf<D, Zor8u> d1,
                  int width) {
    const D8 d8;
    const std::size_t n = hn::Lanes(d8);
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        V16 r[2][2], g[2][2], b[2][2];
        for (int h = 0; h < 2; ++h) {
            V16 y0, tR, tG, tB;
            V32 u, v;
            VecSub<Planes422>::load(s0, i + h * n / 2, y0, u, v);
            chromaTerms<K>(u, v, tR, tG, tB);
            const V16 y1 = hn::PromoteTo(D16(), hn::LoadU(DH8(), s1.p[0] + i + h * n / 2));
            r[0][h] = y0 + tR;
            g[0][h] = y0 + tG;
            b[0][h] = y0 + tB;
            r[1][h] = y1 + tR;
            g[1][h] = y1 + tG;
            b[1][h] = y1 + tB;
        }
        storeRgb<D>(d0, i, r[0], g[0], b[0]);
        storeRgb<D>(d1, i, r[1], g[1], b[1]);
    }
    ::zor::yuvDecode420<K, D>(Planes422::advance(s0, i), Planes422::advance(s1, i), D::advance(d0, i),
                              D::advance(d1, i), width - static_cast<int>(i));
}

#endif  // HWY_TARGET != HWY_SCALAR

// ---------------------------------------------------------------------------

HWY_MAYBE_UNUSED constexpr YuvKernels kYuvVector = {ZOR_YUV_KERNELS(ZOR_KERNEL_POINTER)};

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/target_tables.h"
namespace zor {
ZOR_TARGET_TABLES(YuvKernels, kYuvVector, yuvTables, kYuvScalar)
}  // namespace zor
#endif
