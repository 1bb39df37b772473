// Vector kernels of the gray conversions, compiled once per CPU target. Every
// kernel computes exactly what its scalar kernel (models/gray_kernels.h)
// computes: the same products and sums in the same order, the same
// wrap-around and the same truncation.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "models/gray_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "models/gray_kernels.h"

#include <array>

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// The scalar target of Highway keeps the scalar kernels (found in zor::).
#if HWY_TARGET != HWY_SCALAR

// The first three channels of whole vectors of N-sample pixels.
template <int N, class D, class T>
HWY_INLINE void loadPixels(D d, const T* p, hn::Vec<D>& c0, hn::Vec<D>& c1, hn::Vec<D>& c2) {
    if constexpr (N == 3) {
        hn::LoadInterleaved3(d, p, c0, c1, c2);
    } else {
        hn::Vec<D> ignored;
        hn::LoadInterleaved4(d, p, c0, c1, c2, ignored);
    }
}

using D8 = hn::ScalableTag<std::uint8_t>;
using V8 = hn::Vec<D8>;
using D16 = hn::Repartition<std::int16_t, D8>;
using DU16 = hn::Repartition<std::uint16_t, D8>;
using V16 = hn::Vec<D16>;
using VU16 = hn::Vec<DU16>;
using D32 = hn::Repartition<std::int32_t, D8>;
using DU32 = hn::Repartition<std::uint32_t, D8>;
using VU32 = hn::Vec<DU32>;

// 8u. Only bits 12..19 of the unsigned product sum are kept, so the weights
// count modulo 2^20: up to 32767 they are 16-bit coefficients as they stand
// (the defaults, and caller weights from 0 to 8), others are split into
// 4096 high + low with both parts below 4096, and low + 4096 high is summed
// modulo 2^32. The sums of 16-bit products stay below 2^31.
struct GrayCoefficients {
    V16 k01, k2Low, k2High;  // (w0, w1) pairs; w2 in the lower or upper half
    V16 k02, k1;             // (w0, w2) pairs; w1 in the lower half
    explicit GrayCoefficients(std::uint32_t w0, std::uint32_t w1, std::uint32_t w2) {
        const DU32 du32;
        k01 = hn::BitCast(D16(), hn::Set(du32, w0 | (w1 << 16)));
        k2Low = hn::BitCast(D16(), hn::Set(du32, w2));
        k2High = hn::BitCast(D16(), hn::Set(du32, w2 << 16));
        k02 = hn::BitCast(D16(), hn::Set(du32, w0 | (w2 << 16)));
        k1 = hn::BitCast(D16(), hn::Set(du32, w1));
    }
};

// Each 32-bit lane k works on pixels 4k .. 4k + 3: the even and odd bytes of
// the channel vectors hold pixels 4k + {0, 2} and 4k + {1, 3} in 16-bit
// halves, so the sums of the four pixels come without moving lanes, and bits
// 12..19 of each sum go straight into the pixel's byte of the lane.
template <bool kSplit>
HWY_INLINE V8 gray8Vector(V8 a, V8 b, V8 c, const GrayCoefficients& low, const GrayCoefficients& high) {
    const DU16 du16;
    const DU32 du32;
    const D32 d32;
    const auto dot = [d32, du32](VU16 x, V16 k) {
        auto odd = hn::Zero(d32);
        const auto even = hn::ReorderWidenMulAccumulate(d32, hn::BitCast(D16(), x), k, hn::Zero(d32), odd);
        return hn::BitCast(du32, hn::RearrangeToOddPlusEven(even, odd));
    };
    const auto asU32 = [du32](VU16 v) { return hn::BitCast(du32, v); };
    const auto even = [du16](V8 v) { return hn::And(hn::BitCast(du16, v), hn::Set(du16, 0xFF)); };
    const auto odd = [du16](V8 v) { return hn::ShiftRight<8>(hn::BitCast(du16, v)); };
    // Pixels 4k + h (lower halves) and 4k + 2 + h (upper halves) of the
    // channels of parity h.
    const auto sums = [&](VU16 xa, VU16 xb, VU16 xc, VU32& lower, VU32& upper) {
        const VU16 abLower = hn::OddEven(hn::BitCast(du16, hn::ShiftLeft<16>(asU32(xb))), xa);
        const VU16 abUpper = hn::OddEven(xb, hn::BitCast(du16, hn::ShiftRight<16>(asU32(xa))));
        lower = dot(abLower, low.k01) + dot(xc, low.k2Low);
        upper = dot(abUpper, low.k01) + dot(xc, low.k2High);
        if constexpr (kSplit) {
            lower = lower + hn::ShiftLeft<12>(dot(abLower, high.k01) + dot(xc, high.k2Low));
            upper = upper + hn::ShiftLeft<12>(dot(abUpper, high.k01) + dot(xc, high.k2High));
        }
    };
    VU32 s0, s1, s2, s3;
    sums(even(a), even(b), even(c), s0, s2);
    sums(odd(a), odd(b), odd(c), s1, s3);
    const auto bytes = [](VU32 hi, VU32 lo) { return hn::OddEven(hn::BitCast(D8(), hi), hn::BitCast(D8(), lo)); };
    const V8 b01 = bytes(hn::ShiftRight<4>(s1), hn::ShiftRight<12>(s0));
    const V8 b23 = bytes(hn::ShiftLeft<12>(s3), hn::ShiftLeft<4>(s2));
    return hn::BitCast(D8(), hn::OddEven(hn::BitCast(du16, b23), hn::BitCast(du16, b01)));
}

// Four-byte pixels, one per 32-bit lane: channels 0 and 2 are the lane's
// 16-bit halves with the high bytes masked off, channel 1 (and the ignored
// fourth) the high bytes moved down, so the sum of a pixel is two pairwise
// products. Its bits 12..19 are the low byte of the sum shifted right by 12.
template <bool kSplit>
HWY_INLINE VU32 gray8Sums(VU32 x, const GrayCoefficients& low, const GrayCoefficients& high) {
    const D8 d8;
    const DU32 du32;
    const D32 d32;
    alignas(16) static constexpr std::uint8_t kOdd[16] = {1, 0x80, 3, 0x80, 5, 0x80, 7, 0x80,
                                                          9, 0x80, 11, 0x80, 13, 0x80, 15, 0x80};
    const V16 even = hn::BitCast(D16(), hn::And(x, hn::Set(du32, 0x00FF00FFu)));
    const V16 odd = hn::BitCast(D16(), hn::TableLookupBytes(hn::BitCast(d8, x), hn::LoadDup128(d8, kOdd)));
    const auto dot = [d32, du32](V16 a, V16 k) {
        auto o = hn::Zero(d32);
        const auto e = hn::ReorderWidenMulAccumulate(d32, a, k, hn::Zero(d32), o);
        return hn::BitCast(du32, hn::RearrangeToOddPlusEven(e, o));
    };
    VU32 sum = dot(even, low.k02) + dot(odd, low.k1);
    if constexpr (kSplit) sum = sum + hn::ShiftLeft<12>(dot(even, high.k02) + dot(odd, high.k1));
    return hn::ShiftRight<12>(sum);
}

// The low bytes of the lanes of four vectors of sums (pixels n/4 apart) in
// pixel order: within each block, the four low bytes of vector v go to
// 32-bit lane v (byte shuffles; with AVX-512 merged under masks), then the
// 32-bit lanes are transposed across the blocks.
HWY_INLINE V8 lowBytesInOrder(const VU32 (&t)[4]) {
    const D8 d8;
    const DU32 du32;
    alignas(16) static constexpr std::uint8_t kTo[4][16] = {
        {0, 4, 8, 12, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80},
        {0x80, 0x80, 0x80, 0x80, 0, 4, 8, 12, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80},
        {0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0, 4, 8, 12, 0x80, 0x80, 0x80, 0x80},
        {0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0, 4, 8, 12}};
    const auto part = [&](int v) { return hn::TableLookupBytes(hn::BitCast(d8, t[v]), hn::LoadDup128(d8, kTo[v])); };
    V8 m = part(0);
    for (int v = 1; v < 4; ++v) {
#if HWY_TARGET == HWY_AVX3 || HWY_TARGET == HWY_AVX3_DL
        const auto lane = hn::Ne(hn::LoadDup128(d8, kTo[v]), hn::Set(d8, 0x80));
        m = hn::IfThenElse(lane, part(v), m);
#else
        m = hn::Or(m, part(v));
#endif
    }
    constexpr std::size_t kLanes = hn::MaxLanes(du32), kBlocks = kLanes / 4;
    if constexpr (kBlocks == 1) {
        return m;
    } else {
        // Output lane D holds pixels 4D..4D+3: lane v of block D % blocks.
        alignas(64) static constexpr auto kIdx = [] {
            std::array<std::uint32_t, kLanes> idx{};
            for (std::size_t lane = 0; lane < kLanes; ++lane) idx[lane] = 4 * (lane % kBlocks) + lane / kBlocks;
            return idx;
        }();
        return hn::BitCast(d8, hn::TableLookupLanes(hn::BitCast(du32, m), hn::SetTableIndices(du32, kIdx.data())));
    }
}

template <int N, bool kSplit>
HWY_INLINE std::size_t gray8Rows(RowC<const Zor8u, N> s, RowC<Zor8u, 1> d, std::size_t width,
                                 const GrayWeights<Zor8u>& k) {
    const D8 d8;
    const std::size_t n = hn::Lanes(d8);
    const auto part = [&k](int shift, std::uint32_t mask) {
        return GrayCoefficients((k.w[0] >> shift) & mask, (k.w[1] >> shift) & mask, (k.w[2] >> shift) & mask);
    };
    const GrayCoefficients low = kSplit ? part(0, 0xFFF) : part(0, 0xFFFF), high = part(12, kSplit ? 0xFF : 0);
    std::size_t i = 0;
    for (; i + n <= width; i += n) {
        if constexpr (N == 4) {
            const DU32 du32;
            const std::size_t q = hn::Lanes(du32);
            VU32 t[4];
            for (std::size_t v = 0; v < 4; ++v)
                t[v] = gray8Sums<kSplit>(hn::BitCast(du32, hn::LoadU(d8, s.p + 4 * (i + v * q))), low, high);
            hn::StoreU(lowBytesInOrder(t), d8, d.p + i);
        } else {
            V8 c0, c1, c2;
            loadPixels<N>(d8, s.p + N * i, c0, c1, c2);
            hn::StoreU(gray8Vector<kSplit>(c0, c1, c2, low, high), d8, d.p + i);
        }
    }
    return i;
}

template <int N>
void gray8(RowC<const Zor8u, N> s, RowC<Zor8u, 1> d, int width, const GrayWeights<Zor8u>& k) {
    const bool small = k.w[0] <= 32767 && k.w[1] <= 32767 && k.w[2] <= 32767;
    const std::size_t w = static_cast<std::size_t>(width);
    const std::size_t i = small ? gray8Rows<N, false>(s, d, w, k) : gray8Rows<N, true>(s, d, w, k);
    ::zor::gray<Zor8u, N>({s.p + N * i}, {d.p + i}, width - static_cast<int>(i), k);
}

// 16u and 16s: the samples on the unsigned scale (16s: the sign bit
// flipped, which adds 32768), the float sum in 32-bit lanes, truncated, with
// INT32_MIN where the truncation is out of range or NaN (the conversion gives
// it below the range; the comparison catches the rest), and the low 16 bits
// (16s: the sign bit flipped back, which subtracts 32768).
template <class T, int N>
void gray16(RowC<const T, N> s, RowC<T, 1> d, int width, const GrayWeights<T>& k) {
    using DT = hn::ScalableTag<T>;
    using DU = hn::RebindToUnsigned<DT>;
    using DI = hn::Repartition<std::int32_t, DT>;
    using DF = hn::Repartition<float, DT>;
    const DT dt;
    const DU du;
    const DI di;
    const DF df;
    const std::size_t n = hn::Lanes(dt);
    const auto flip = hn::Set(du, static_cast<std::uint16_t>(Offset16<T>::kOffset));
    const hn::Vec<DF> w0 = hn::Set(df, k.w[0]), w1 = hn::Set(df, k.w[1]), w2 = hn::Set(df, k.w[2]);
    const hn::Vec<DF> limit = hn::Set(df, 2147483648.0f);
    const hn::Vec<DI> outside = hn::Set(di, INT32_MIN);
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        hn::Vec<DT> c0, c1, c2;
        loadPixels<N>(dt, s.p + N * i, c0, c1, c2);
        const hn::Vec<DU> u0 = hn::Xor(hn::BitCast(du, c0), flip), u1 = hn::Xor(hn::BitCast(du, c1), flip),
                          u2 = hn::Xor(hn::BitCast(du, c2), flip);
        hn::Vec<DI> code[2];
        for (int h = 0; h < 2; ++h) {
            const auto f = [&](hn::Vec<DU> v) {
                return hn::ConvertTo(df, hn::PromoteTo(di, h ? hn::UpperHalf(hn::Half<DU>(), v) : hn::LowerHalf(v)));
            };
            const hn::Vec<DF> sum = w0 * f(u0) + w1 * f(u1) + w2 * f(u2);
            code[h] = hn::IfThenElse(hn::RebindMask(di, hn::Lt(sum, limit)), hn::ConvertTo(di, sum), outside);
        }
        const hn::Vec<DU> low = hn::ConcatEven(du, hn::BitCast(du, code[1]), hn::BitCast(du, code[0]));
        hn::StoreU(hn::BitCast(dt, hn::Xor(low, flip)), dt, d.p + i);
    }
    ::zor::gray<T, N>({s.p + N * i}, {d.p + i}, width - static_cast<int>(i), k);
}

template <int N>
void gray32f(RowC<const Zor32f, N> s, RowC<Zor32f, 1> d, int width, const GrayWeights<Zor32f>& k) {
    const hn::ScalableTag<float> df;
    const std::size_t n = hn::Lanes(df);
    const auto w0 = hn::Set(df, k.w[0]), w1 = hn::Set(df, k.w[1]), w2 = hn::Set(df, k.w[2]);
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        hn::Vec<decltype(df)> c0, c1, c2;
        loadPixels<N>(df, s.p + N * i, c0, c1, c2);
        hn::StoreU(w0 * c0 + w1 * c1 + w2 * c2, df, d.p + i);
    }
    ::zor::gray<Zor32f, N>({s.p + N * i}, {d.p + i}, width - static_cast<int>(i), k);
}

template <class T, int N>
void gray(RowC<const T, N> s, RowC<T, 1> d, int width, GrayWeights<T> k) {
    if constexpr (std::is_same_v<T, Zor8u>)
        gray8<N>(s, d, width, k);
    else if constexpr (std::is_same_v<T, Zor32f>)
        gray32f<N>(s, d, width, k);
    else
        gray16<T, N>(s, d, width, k);
}

#endif  // HWY_TARGET != HWY_SCALAR

// ---------------------------------------------------------------------------

HWY_MAYBE_UNUSED constexpr GrayKernels kGrayVector = {ZOR_GRAY_KERNELS(ZOR_KERNEL_POINTER)};

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/target_tables.h"
namespace zor {
ZOR_TARGET_TABLES(GrayKernels, kGrayVector, grayTables, kGrayScalar)
}  // namespace zor
#endif
