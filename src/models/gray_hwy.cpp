// Vector kernels of the gray conversions, compiled once per CPU target. Every
// kernel computes exactly what its scalar kernel (models/gray_kernels.h)
// computes: the same products and sums in the same order, the same
// wrap-around and the same truncation.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "models/gray_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "models/gray_kernels.h"

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
using DH8 = hn::Half<D8>;
using V8 = hn::Vec<D8>;
using D16 = hn::Repartition<std::int16_t, D8>;
using DU16 = hn::Repartition<std::uint16_t, D8>;
using V16 = hn::Vec<D16>;
using D32 = hn::Repartition<std::int32_t, D8>;
using DU32 = hn::Repartition<std::uint32_t, D8>;
using V32 = hn::Vec<D32>;

HWY_INLINE V16 half16(V8 v, int h) { return hn::PromoteTo(D16(), h ? hn::UpperHalf(DH8(), v) : hn::LowerHalf(DH8(), v)); }

// 8u weights up to 32767 (the defaults, and caller weights from 0 to 8):
// pairwise products of 16-bit lanes, (c0, c1) and (c2, 0), whose sums stay
// below 2^31. The sums come in the order of the interleaves, which the
// narrowing undoes.
HWY_INLINE V16 grayPairwise(V16 a, V16 b, V16 c, V16 k01, V16 k2) {
    const D16 d16;
    const D32 d32;
    const auto dot = [d32](V16 x, V16 k) {
        V32 odd = hn::Zero(d32);
        const V32 even = hn::ReorderWidenMulAccumulate(d32, x, k, hn::Zero(d32), odd);
        return hn::RearrangeToOddPlusEven(even, odd);
    };
    const V16 zero = hn::Zero(d16);
    const V32 lo = dot(hn::InterleaveLower(d16, a, b), k01) + dot(hn::InterleaveLower(d16, c, zero), k2);
    const V32 hi = dot(hn::InterleaveUpper(d16, a, b), k01) + dot(hn::InterleaveUpper(d16, c, zero), k2);
    const V32 low8 = hn::Set(d32, 255);
    return hn::ReorderDemote2To(d16, hn::And(hn::ShiftRight<12>(lo), low8), hn::And(hn::ShiftRight<12>(hi), low8));
}

// 8u, any weights: unsigned 32-bit products that wrap as the scalar sum does.
HWY_INLINE V16 grayWrapping(V16 a, V16 b, V16 c, const GrayWeights<Zor8u>& k) {
    const D16 d16;
    const DU32 du32;
    V16 part[2];
    for (int q = 0; q < 2; ++q) {
        const auto wide = [&](V16 v) {
            const auto u = hn::BitCast(DU16(), v);
            return hn::PromoteTo(du32, q ? hn::UpperHalf(hn::Half<DU16>(), u) : hn::LowerHalf(u));
        };
        const auto sum = wide(a) * hn::Set(du32, k.w[0]) + wide(b) * hn::Set(du32, k.w[1]) + wide(c) * hn::Set(du32, k.w[2]);
        part[q] = hn::BitCast(d16, hn::And(hn::ShiftRight<12>(sum), hn::Set(du32, 255)));
    }
    return hn::ConcatEven(d16, part[1], part[0]);
}

template <int N>
void gray8(RowC<const Zor8u, N> s, RowC<Zor8u, 1> d, int width, const GrayWeights<Zor8u>& k) {
    const D8 d8;
    const DU32 du32;
    const std::size_t n = hn::Lanes(d8);
    const bool pairwise = k.w[0] <= 32767 && k.w[1] <= 32767 && k.w[2] <= 32767;
    const V16 k01 = hn::BitCast(D16(), hn::Set(du32, k.w[0] | (k.w[1] << 16)));
    const V16 k2 = hn::BitCast(D16(), hn::Set(du32, k.w[2]));
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        V8 c0, c1, c2;
        loadPixels<N>(d8, s.p + N * i, c0, c1, c2);
        V16 g[2];
        for (int h = 0; h < 2; ++h)
            g[h] = pairwise ? grayPairwise(half16(c0, h), half16(c1, h), half16(c2, h), k01, k2)
                            : grayWrapping(half16(c0, h), half16(c1, h), half16(c2, h), k);
        hn::StoreU(hn::Combine(d8, hn::DemoteTo(DH8(), g[1]), hn::DemoteTo(DH8(), g[0])), d8, d.p + i);
    }
    ::zor::gray<Zor8u, N>({s.p + N * i}, {d.p + i}, width - static_cast<int>(i), k);
}

// 16u and 16s: the float sum of 32-bit lanes, truncated, INT32_MIN where the
// truncation is out of range or NaN, then the low 16 bits.
template <class T, int N>
void gray16(RowC<const T, N> s, RowC<T, 1> d, int width, const GrayWeights<T>& k) {
    using DT = hn::ScalableTag<T>;
    using DH = hn::Half<DT>;
    using DF = hn::Repartition<float, DT>;
    using DHU16 = hn::Rebind<std::uint16_t, D32>;
    const DT dt;
    const D32 d32;
    const DF df;
    const std::size_t n = hn::Lanes(dt);
    const hn::Vec<D32> offset = hn::Set(d32, Offset16<T>::kOffset);
    const hn::Vec<DF> w0 = hn::Set(df, k.w[0]), w1 = hn::Set(df, k.w[1]), w2 = hn::Set(df, k.w[2]);
    const hn::Vec<DF> lowest = hn::Set(df, -2147483648.0f), limit = hn::Set(df, 2147483648.0f);
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        hn::Vec<DT> c0, c1, c2;
        loadPixels<N>(dt, s.p + N * i, c0, c1, c2);
        hn::Vec<DHU16> out[2];
        for (int h = 0; h < 2; ++h) {
            const auto f = [&](hn::Vec<DT> v) {
                return hn::ConvertTo(df, hn::PromoteTo(d32, h ? hn::UpperHalf(DH(), v) : hn::LowerHalf(DH(), v)) + offset);
            };
            const hn::Vec<DF> sum = w0 * f(c0) + w1 * f(c1) + w2 * f(c2);
            const auto inRange = hn::RebindMask(d32, hn::And(hn::Ge(sum, lowest), hn::Lt(sum, limit)));
            const hn::Vec<D32> code = hn::IfThenElse(inRange, hn::ConvertTo(d32, sum), hn::Set(d32, INT32_MIN));
            out[h] = hn::DemoteTo(DHU16(), hn::And(code - offset, hn::Set(d32, 0xFFFF)));
        }
        hn::StoreU(hn::BitCast(dt, hn::Combine(DU16(), out[1], out[0])), dt, d.p + i);
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
