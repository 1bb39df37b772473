// Vector kernels of the YCoCg transforms, compiled once per CPU target. Each
// computes exactly what its scalar kernel (ycocg/ycocg_kernels.h) computes.
//
// Lane widths: the sums only ever reach a plane or an interleaved sample
// through their low 16 bits, or fit in 16 bits, except where the plain
// transform divides a sum of 16-bit samples; so
//   - 8u to 16s planes (every value fits), the reversible 16s to 16s lifting
//     (each step keeps the low 16 bits, and the low 16 bits of a sum or
//     difference depend only on the low 16 bits of its operands) and every
//     inverse from 16s planes work in wrapping 16-bit lanes;
//   - the plain 16s to 16s forward transform (sums of 18 bits divided before
//     they are cut) works in 16-bit lanes as sums of halves;
//   - everything with a 32s side works in 32-bit lanes, cut to the low 16
//     bits where a 16-bit side takes them.
// 8u results come from the 16-bit value by a saturating narrowing, which is
// the clamp to 0..255.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "ycocg/ycocg_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "ycocg/ycocg_kernels.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET != HWY_SCALAR

// Y, Co, Cg of B, G, R, in the lanes' own (wrapping) arithmetic.
template <bool Rev, class V>
HWY_INLINE void forwardOf(V b, V g, V r, V& y, V& co, V& cg) {
    const hn::DFromV<V> d;
    if constexpr (Rev) {
        co = hn::Sub(r, b);
        const V t = hn::Add(b, hn::ShiftRight<1>(co));
        cg = hn::Sub(g, t);
        y = hn::Add(t, hn::ShiftRight<1>(cg));
    } else {
        const V two = hn::Set(d, 2);
        y = hn::ShiftRight<2>(hn::Add(hn::Add(hn::Add(r, hn::Add(g, g)), b), two));
        co = hn::ShiftRight<1>(hn::Add(hn::Sub(r, b), hn::Set(d, 1)));
        cg = hn::ShiftRight<2>(hn::Add(hn::Sub(hn::Sub(hn::Add(g, g), r), b), two));
    }
}

// The plain forward transform of 16-bit samples in 16-bit lanes: its sums
// need 18 bits, but each quotient is a sum of halves that does not. With
// floor((x + y) / 2) = (x >> 1) + (y >> 1) + (x & y & 1) (in range for any
// two 16-bit values), -v - 1 = ~v, and floor((x + 2z + 2k) / 4) =
// floor((floor(x / 2) + z + k) / 2):
//   Y  = floor((h + G + 1) / 2), h = floor((R + B) / 2), in range;
//   Co = floor((R + ~B) / 2) + 1;
//   Cg = floor((floor((~R + ~B) / 2) + G) / 2) + 1;
// Co and Cg reach 32768 only, which the wrapping sum turns into its low 16
// bits as the planes keep them.
template <class V>
HWY_INLINE void forwardPlain16(V b, V g, V r, V& y, V& co, V& cg) {
    const hn::DFromV<V> d;
    const V one = hn::Set(d, 1);
    const auto half = [one](V p, V q) {
        return hn::Add(hn::Add(hn::ShiftRight<1>(p), hn::ShiftRight<1>(q)), hn::And(hn::And(p, q), one));
    };
    const V h = half(r, b), nb = hn::Not(b);
    y = hn::Add(hn::Add(hn::ShiftRight<1>(h), hn::ShiftRight<1>(g)), hn::And(hn::Or(h, g), one));
    co = hn::Add(half(r, nb), one);
    cg = hn::Add(half(half(hn::Not(r), nb), g), one);
}

// B, G, R of Y, Co, Cg, in the lanes' own (wrapping) arithmetic.
template <bool Rev, class V>
HWY_INLINE void inverseOf(V y, V co, V cg, V& b, V& g, V& r) {
    if constexpr (Rev) {
        const V t = hn::Sub(y, hn::ShiftRight<1>(cg));
        g = hn::Add(cg, t);
        b = hn::Sub(t, hn::ShiftRight<1>(co));
        r = hn::Add(b, co);
    } else {
        r = hn::Sub(hn::Add(y, co), cg);
        g = hn::Add(y, cg);
        b = hn::Sub(hn::Sub(y, co), cg);
    }
}

// N interleaved samples of Lanes(d) pixels: channels 0..2 (the fourth, if
// any, ignored), and their store (the fourth from `fill`).
template <int N, class D, class T, class V = hn::Vec<D>>
HWY_INLINE void loadBGR(D d, const T* p, V& b, V& g, V& r) {
    if constexpr (N == 3) {
        hn::LoadInterleaved3(d, p, b, g, r);
    } else {
        V a;
        hn::LoadInterleaved4(d, p, b, g, r, a);
    }
}
template <int N, class D, class T, class V = hn::Vec<D>>
HWY_INLINE void storeBGR(D d, V b, V g, V r, V fill, T* p) {
    if constexpr (N == 3)
        hn::StoreInterleaved3(b, g, r, d, p);
    else
        hn::StoreInterleaved4(b, g, r, fill, d, p);
}

// The low 16 bits of 32-bit lanes.
template <class D32>
HWY_INLINE auto low16(D32, hn::Vec<D32> v) {
    const hn::RebindToUnsigned<D32> du32;
    const hn::Rebind<std::uint16_t, D32> du16;
    return hn::BitCast(hn::Rebind<std::int16_t, D32>(), hn::TruncateTo(du16, hn::BitCast(du32, v)));
}

template <bool Rev, int N, class S, class P>
void innerBGRToYCoCg(RowC<const S, N> s, Row3<P> d, int width) {
    // Pixels per step: the lanes of the computing type, as wide as P.
    using DC = hn::ScalableTag<std::conditional_t<sizeof(P) == 4, std::int32_t, std::int16_t>>;
    const DC dc;
    const hn::Rebind<S, DC> ds;
    const hn::Rebind<P, DC> dp;
    const std::size_t n = hn::Lanes(dc);
    std::size_t i = 0;
    for (; width > 0 && i + n <= static_cast<std::size_t>(width); i += n) {
        hn::Vec<hn::Rebind<S, DC>> sb, sg, sr;
        loadBGR<N>(ds, s.p + N * i, sb, sg, sr);
        hn::Vec<DC> y, co, cg;
        if constexpr (!Rev && std::is_same_v<S, Zor16s> && std::is_same_v<P, Zor16s>)
            forwardPlain16(sb, sg, sr, y, co, cg);
        else if constexpr (sizeof(S) == sizeof(hn::TFromD<DC>))
            forwardOf<Rev>(sb, sg, sr, y, co, cg);
        else
            forwardOf<Rev>(hn::PromoteTo(dc, sb), hn::PromoteTo(dc, sg), hn::PromoteTo(dc, sr), y, co, cg);
        if constexpr (sizeof(P) == sizeof(hn::TFromD<DC>)) {
            hn::StoreU(y, dp, d.p[0] + i);
            hn::StoreU(co, dp, d.p[1] + i);
            hn::StoreU(cg, dp, d.p[2] + i);
        } else {
            hn::StoreU(low16(dc, y), dp, d.p[0] + i);
            hn::StoreU(low16(dc, co), dp, d.p[1] + i);
            hn::StoreU(low16(dc, cg), dp, d.p[2] + i);
        }
    }
    const int k = static_cast<int>(i);
    ::zor::innerBGRToYCoCg<Rev, N, S, P>({s.p + N * i}, {{d.p[0] + k, d.p[1] + k, d.p[2] + k}}, width - k);
}

template <bool Rev, int N, class P, class D, class... Fill>
void innerYCoCgToBGR(Row3<const P> s, RowC<D, N> d, int width, Fill... fill) {
    using DC = hn::ScalableTag<std::conditional_t<sizeof(P) == 4, std::int32_t, std::int16_t>>;  // computing lanes
    const DC dc;
    const hn::Rebind<D, DC> dd;
    const hn::Rebind<std::int16_t, DC> d16;
    const std::size_t n = hn::Lanes(dc);
    D fourth{};
    ((fourth = fill), ...);
    const auto vfill = hn::Set(dd, fourth);
    // The 16-bit value of a result, then the sample.
    const auto sample = [&](hn::Vec<DC> v) {
        hn::Vec<decltype(d16)> w;
        if constexpr (sizeof(P) == 4)
            w = low16(dc, v);
        else
            w = v;
        if constexpr (std::is_same_v<D, Zor8u>)
            return hn::DemoteTo(dd, w);
        else
            return w;
    };
    std::size_t i = 0;
    for (; width > 0 && i + n <= static_cast<std::size_t>(width); i += n) {
        hn::Vec<DC> b, g, r;
        inverseOf<Rev>(hn::LoadU(dc, s.p[0] + i), hn::LoadU(dc, s.p[1] + i), hn::LoadU(dc, s.p[2] + i), b, g, r);
        storeBGR<N>(dd, sample(b), sample(g), sample(r), vfill, d.p + N * i);
    }
    const int k = static_cast<int>(i);
    ::zor::innerYCoCgToBGR<Rev, N, P, D>({{s.p[0] + k, s.p[1] + k, s.p[2] + k}}, {d.p + N * i}, width - k, fill...);
}

#endif  // HWY_TARGET != HWY_SCALAR

// ---------------------------------------------------------------------------

HWY_MAYBE_UNUSED constexpr YCoCgKernels kYCoCgVector = {ZOR_YCOCG_KERNELS(ZOR_KERNEL_POINTER)};

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/target_tables.h"
namespace zor {
ZOR_TARGET_TABLES(YCoCgKernels, kYCoCgVector, ycocgTables, kYCoCgScalar)
}  // namespace zor
#endif
