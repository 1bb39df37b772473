// Vector kernels of RGB/BGR <-> HLS, compiled once per CPU target: one pixel
// per 32-bit lane, the scalar kernel's float operations in its order (true
// division where it divides), its branches (maximum and minimum, hue case,
// wraps, ramp segments) as selects, and its quantisers done exactly.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "models/hls_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "models/hls_kernels.h"
#include "models/samples_vec-inl.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {

#if HWY_TARGET != HWY_SCALAR

// ---------------------------------------------------------------------------
// Layouts: logical channels 0..2 (and alpha, 3) of whole vectors of pixels.

template <class L>
struct VecLayout;

template <int Stride, int C0, int C1, int C2, bool Alpha>
struct VecLayout<HlsChans<Stride, C0, C1, C2, Alpha>> {
    template <class T>
    static HWY_INLINE void load(RowC<const T, Stride> r, std::size_t i, VW<T> c[4]) {
        VW<T> v[4];
        loadRaw<Stride>(r.p + Stride * i, v);
        c[0] = v[C0], c[1] = v[C1], c[2] = v[C2];
        if constexpr (Stride == 4) c[3] = v[3];
    }
    // kCopyAlpha: c[3] is the fourth sample; otherwise it stays as it is.
    template <bool kCopyAlpha, class T>
    static HWY_INLINE void store(RowC<T, Stride> r, std::size_t i, const VW<T> c[4]) {
        VW<T> v[4];
        if constexpr (Stride == 4 && !kCopyAlpha) loadRaw<4>(r.p + 4 * i, v);
        if constexpr (Stride == 4 && kCopyAlpha) v[3] = c[3];
        v[C0] = c[0], v[C1] = c[1], v[C2] = c[2];
        storeRaw<Stride>(v, r.p + Stride * i);
    }
};

template <int N, int C0, int C1, int C2>
struct VecLayout<HlsPlanes<N, C0, C1, C2>> {
    static constexpr int kAt[4] = {C0, C1, C2, 3};
    template <class T, class R>
    static HWY_INLINE void load(R r, std::size_t i, VW<T> c[4]) {
        for (int k = 0; k < N; ++k) c[k] = hn::LoadU(DW<T>(), r.p[kAt[k]] + i);
    }
    template <bool kCopyAlpha, class T, class R>
    static HWY_INLINE void store(R r, std::size_t i, const VW<T> c[4]) {
        for (int k = 0; k < (kCopyAlpha ? 4 : 3); ++k) hn::StoreU(c[k], DW<T>(), r.p[kAt[k]] + i);
    }
};

// The source and destination rows of a kernel in their layouts; alpha is
// copied where both carry it.
template <class T, class SL, class DL>
struct LayoutIo {
    typename SL::template Row<const T> s;
    typename DL::template Row<T> d;
    HWY_INLINE void load(std::size_t i, VW<T> c[4]) const { VecLayout<SL>::template load<T>(s, i, c); }
    HWY_INLINE void store(std::size_t i, const VW<T> c[4]) const {
        VecLayout<DL>::template store<SL::kAlpha && DL::kAlpha, T>(d, i, c);
    }
};

// ---------------------------------------------------------------------------
// Codecs: samples <-> normalised values (degrees for the hue), as the scalar
// codecs compute them (the 8u tables hold the very quotients of CodeRatio).

template <class C>
struct VecCodec;

template <class T, class Q>
struct VecCodec<HlsIntCodec<T, Q>> {
    static constexpr float kScale = kFullF<T>;
    static HWY_INLINE VF unit(VI v) { return CodeRatio<kFull<T>, 1>::of(toFloat(v)); }
    static HWY_INLINE VF degrees(VI v) { return CodeRatio<kFull<T>, 360>::of(toFloat(v)); }
    static HWY_INLINE VI code(VF v) {
        if constexpr (std::is_same_v<Q, RoundCode>)
            return roundCode(v);
        else
            return floorCode(v);
    }
    static HWY_INLINE VI hue(VF h) { return code(hn::Div(hn::Mul(h, f(kScale)), f(360.0f))); }
    static HWY_INLINE VI level(VF v) { return code(hn::Mul(v, f(kScale))); }
};

template <>
struct VecCodec<HlsFloatCodec> {
    static HWY_INLINE VF unit(VF v) { return v; }
    static HWY_INLINE VF degrees(VF v) { return hn::Mul(v, f(360.0f)); }
    static HWY_INLINE VF hue(VF h) { return hn::Div(h, f(360.0f)); }
    static HWY_INLINE VF level(VF v) { return v; }
};

// ---------------------------------------------------------------------------
// Kernels

template <class Codec, class SL, class DL>
void rgbToHls(typename SL::template Row<const typename Codec::Sample> s,
              typename DL::template Row<typename Codec::Sample> d, int width) {
    using T = typename Codec::Sample;
    using C = VecCodec<Codec>;
    const auto body = [](const Lane<T>* x, Lane<T>* y) {
        const VF r = C::unit(x[0]), g = C::unit(x[1]), b = C::unit(x[2]);
        VF mx = r, mn = r;
        mx = pick(hn::Gt(g, mx), g, mx);
        mx = pick(hn::Gt(b, mx), b, mx);
        mn = pick(hn::Lt(g, mn), g, mn);
        mn = pick(hn::Lt(b, mn), b, mn);
        const VF dd = hn::Sub(mx, mn), sum = hn::Add(mx, mn);
        const VF l = hn::Mul(sum, f(0.5f));  // sum / 2, exactly
        // != is true for NaN: Not(Eq), not Ne (ordered on some targets).
        const MF chromatic = Codec::kFloat ? hn::Gt(dd, f(kFltEpsilon)) : hn::Not(hn::Eq(dd, f(0.0f)));
        const VF sat = hn::Div(dd, pick(hn::Le(l, f(0.5f)), sum, hn::Sub(f(2.0f), sum)));
        const MF red = hn::Eq(r, mx), blue = hn::Not(hn::Eq(g, mx));
        const VF p = pick(red, g, pick(blue, r, b)), q = pick(red, b, pick(blue, g, r));
        VF h = hn::Div(hn::Mul(hn::Sub(p, q), f(60.0f)), dd);
        h = pick(red, h, hn::Add(h, pick(blue, f(240.0f), f(120.0f))));
        h = pick(hn::Lt(h, f(0.0f)), hn::Add(h, f(360.0f)), h);
        y[0] = C::hue(hn::IfThenElseZero(chromatic, h));
        y[1] = C::level(l);
        y[2] = C::level(hn::IfThenElseZero(chromatic, sat));
    };
    const std::size_t i = eachVector<T>(width, LayoutIo<T, SL, DL>{s, d}, body);
    ::zor::rgbToHls<Codec, SL, DL>(from(s, i), from(d, i), width - static_cast<int>(i));
}

// The ramp of one channel at hue x: both slopes are m1 + (m2 - m1) * t / 60,
// with t = x below 60 and t = 240 - x from 180 to 240.
HWY_INLINE VF ramp(VF m1, VF m2, VF x) {
    const MF rising = hn::Lt(x, f(60.0f));
    const VF t = pick(rising, x, hn::Sub(f(240.0f), x));
    const VF slope = hn::Add(m1, hn::Div(hn::Mul(hn::Sub(m2, m1), t), f(60.0f)));
    return pick(rising, slope, pick(hn::Lt(x, f(180.0f)), m2, pick(hn::Lt(x, f(240.0f)), slope, m1)));
}

template <class Codec, class SL, class DL>
void hlsToRgb(typename SL::template Row<const typename Codec::Sample> s,
              typename DL::template Row<typename Codec::Sample> d, int width) {
    using T = typename Codec::Sample;
    using C = VecCodec<Codec>;
    const auto body = [](const Lane<T>* x, Lane<T>* y) {
        const VF h = C::degrees(x[0]), l = C::unit(x[1]), sat = C::unit(x[2]);
        const VF m2 = pick(hn::Gt(l, f(0.5f)), hn::Sub(hn::Add(l, sat), hn::Mul(l, sat)),
                           hn::Mul(l, hn::Add(f(1.0f), sat)));
        const VF m1 = hn::Sub(hn::Mul(f(2.0f), l), m2);
        VF hr = hn::Add(h, f(120.0f));
        hr = pick(hn::Gt(hr, f(360.0f)), hn::Sub(hr, f(360.0f)), hr);
        VF hb = hn::Sub(h, f(120.0f));
        hb = pick(hn::Lt(hb, f(0.0f)), hn::Add(hb, f(360.0f)), hb);
        const MF gray = hn::Eq(sat, f(0.0f));
        y[0] = C::level(pick(gray, l, ramp(m1, m2, hr)));
        y[1] = C::level(pick(gray, l, ramp(m1, m2, h)));
        y[2] = C::level(pick(gray, l, ramp(m1, m2, hb)));
    };
    const std::size_t i = eachVector<T>(width, LayoutIo<T, SL, DL>{s, d}, body);
    ::zor::hlsToRgb<Codec, SL, DL>(from(s, i), from(d, i), width - static_cast<int>(i));
}

#endif  // HWY_TARGET != HWY_SCALAR

HWY_MAYBE_UNUSED constexpr HlsKernels kHlsVector = {ZOR_HLS_KERNELS(ZOR_KERNEL_POINTER)};

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/target_tables.h"
namespace zor {
ZOR_TARGET_TABLES(HlsKernels, kHlsVector, hlsTables, kHlsScalar)
}  // namespace zor
#endif
