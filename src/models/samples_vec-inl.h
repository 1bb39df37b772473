// Vector building blocks of the PhotoYCC, HLS and HSV kernels (included once
// per target, after hwy/foreach_target.h): whole vectors of pixels as 32-bit
// lanes (one lane per pixel), their samples as integers on the unsigned scale
// or as floats, and the float-to-code rules of models/common.h done exactly.
#if defined(ZOR_MODELS_SAMPLES_VEC_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef ZOR_MODELS_SAMPLES_VEC_INL_H_
#undef ZOR_MODELS_SAMPLES_VEC_INL_H_
#else
#define ZOR_MODELS_SAMPLES_VEC_INL_H_
#endif

#include "hwy/highway.h"
#include "models/common.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET != HWY_SCALAR

using DF = hn::ScalableTag<float>;
using VF = hn::Vec<DF>;
using MF = hn::Mask<DF>;
using DI = hn::RebindToSigned<DF>;
using VI = hn::Vec<DI>;
using MI = hn::Mask<DI>;

// One lane of samples T per float lane.
template <class T>
using DS = hn::Rebind<T, DF>;
template <class T>
using VS = hn::Vec<DS<T>>;

HWY_INLINE VF f(float v) { return hn::Set(DF(), v); }
HWY_INLINE VI i32(std::int32_t v) { return hn::Set(DI(), v); }

// Branch-free choice: a where m, else b.
HWY_INLINE VF pick(MF m, VF a, VF b) { return hn::IfThenElse(m, a, b); }
HWY_INLINE VI pick(MI m, VI a, VI b) { return hn::IfThenElse(m, a, b); }

// ---------------------------------------------------------------------------
// Samples <-> lanes

// An integer sample on the unsigned scale (16s: + 32768).
template <class T>
HWY_INLINE VI toInt(VS<T> v) {
    const VI w = hn::PromoteTo(DI(), v);
    return Offset16<T>::kOffset ? hn::Add(w, i32(Offset16<T>::kOffset)) : w;
}

// A sample as a float: toScale.
template <class T>
HWY_INLINE VF toFloat(VS<T> v) {
    if constexpr (std::is_floating_point_v<T>)
        return v;
    else
        return hn::ConvertTo(DF(), toInt<T>(v));
}

// A code on the unsigned scale as a sample: its low bits, 16s offset back.
template <class T>
HWY_INLINE VS<T> fromCode(VI code) {
    using DU = hn::RebindToUnsigned<DI>;
    if constexpr (std::is_same_v<T, Zor8u>) {
        return hn::TruncateTo(DS<T>(), hn::BitCast(DU(), code));
    } else {
        const VI c = Offset16<T>::kOffset ? hn::Sub(code, i32(Offset16<T>::kOffset)) : code;
        return hn::BitCast(DS<T>(), hn::TruncateTo(DS<std::uint16_t>(), hn::BitCast(DU(), c)));
    }
}

// RoundCode: + 0.499999 in float, truncated toward zero.
HWY_INLINE VI roundCode(VF v) { return hn::ConvertTo(DI(), hn::Add(v, f(kHalfLess))); }

// FloorCode: the float widened to double, + 1e-7, truncated toward zero.
HWY_INLINE VI floorCode(VF v) {
    const hn::Half<DF> dh;
    const hn::Repartition<double, DF> dd;
    const hn::Rebind<std::int32_t, decltype(dd)> di;
    const auto code = [&](hn::Vec<decltype(dh)> h) {
        return hn::DemoteTo(di, hn::Add(hn::PromoteTo(dd, h), hn::Set(dd, 1e-7)));
    };
    return hn::Combine(DI(), code(hn::UpperHalf(dh, v)), code(hn::LowerHalf(dh, v)));
}

// saturateCode(v, hi) on floats.
HWY_INLINE VI saturateCode(VF v, int hi) {
    const VI code = hn::IfThenElseZero(hn::RebindMask(DI(), hn::Ge(v, f(1.0f))), hn::ConvertTo(DI(), v));
    return pick(hn::RebindMask(DI(), hn::Ge(v, f(static_cast<float>(hi)))), i32(hi), code);
}

// saturateStore: integer types rounded and saturated to 0..kFull, 32f
// clamped to 0..1 (NaN stays).
template <class T>
HWY_INLINE VS<T> saturateStore(VF v) {
    if constexpr (std::is_floating_point_v<T>)
        return pick(hn::Lt(v, f(0.0f)), f(0.0f), pick(hn::Ge(v, f(1.0f)), f(1.0f), v));
    else
        return fromCode<T>(saturateCode(hn::Add(v, f(kHalfLess)), kFull<T>));
}

// roundStore: integer types rounded without a clamp, 32f as it is.
template <class T>
HWY_INLINE VS<T> roundStore(VF v) {
    if constexpr (std::is_floating_point_v<T>)
        return v;
    else
        return fromCode<T>(roundCode(v));
}

// The float quotient (v * Num) / Scale of an integer code v in 0..Scale
// without a division: v times Num / Scale split into a high part short
// enough that v * kHi is exact (16 significant bits for 8-bit codes, 8 for
// 16-bit ones) and a low part, summed with one rounding. For every code the
// sum is the quotient the division gives (the kernel tests run every code
// through it).
template <int Scale, int Num>
struct CodeRatio {
    static constexpr double kC = static_cast<double>(Num) / Scale;
    static constexpr double high(int bits) {
        double m = kC, s = 1;
        int e = 0;
        for (; m < 1; m *= 2) ++e;
        for (; m >= 2; m /= 2) --e;
        for (int k = 0; k < bits - 1 + e; ++k) s *= 2;
        return static_cast<double>(static_cast<long long>(kC * s)) / s;
    }
    static constexpr float kHi = static_cast<float>(high(Scale <= 255 ? 16 : 8));
    static constexpr float kLo = static_cast<float>(kC - static_cast<double>(kHi));
    static HWY_INLINE VF of(VF v) { return hn::Add(hn::Mul(v, f(kHi)), hn::Mul(v, f(kLo))); }
};

// ---------------------------------------------------------------------------
// Rows: pixel i onwards, and channels 0..2 of whole vectors of pixels (the
// fourth sample of an N = 4 row is neither read nor changed: it is stored
// back as loaded).

template <class T, int N>
HWY_INLINE RowC<T, N> from(RowC<T, N> r, std::size_t i) {
    return {r.p + N * i};
}
template <class T>
HWY_INLINE Row3<T> from(Row3<T> r, std::size_t i) {
    return {{r.p[0] + i, r.p[1] + i, r.p[2] + i}};
}
template <class T>
HWY_INLINE Row4<T> from(Row4<T> r, std::size_t i) {
    return {{r.p[0] + i, r.p[1] + i, r.p[2] + i, r.p[3] + i}};
}

// Samples 0..N-1 of the pixels at p.
template <int N, class T>
HWY_INLINE void loadRaw(const T* p, VS<T> v[4]) {
    if constexpr (N == 3)
        hn::LoadInterleaved3(DS<T>(), p, v[0], v[1], v[2]);
    else
        hn::LoadInterleaved4(DS<T>(), p, v[0], v[1], v[2], v[3]);
}
template <int N, class T>
HWY_INLINE void storeRaw(const VS<T> v[4], T* p) {
    if constexpr (N == 3)
        hn::StoreInterleaved3(v[0], v[1], v[2], DS<T>(), p);
    else
        hn::StoreInterleaved4(v[0], v[1], v[2], v[3], DS<T>(), p);
}

template <class T, int N>
HWY_INLINE void loadPixels(RowC<const T, N> r, std::size_t i, VS<T>& a, VS<T>& b, VS<T>& c) {
    VS<T> v[4];
    loadRaw<N>(r.p + N * i, v);
    a = v[0], b = v[1], c = v[2];
}
template <class T, int N>
HWY_INLINE void storePixels(RowC<T, N> r, std::size_t i, VS<T> a, VS<T> b, VS<T> c) {
    VS<T> v[4];
    if constexpr (N == 4) loadRaw<4>(r.p + 4 * i, v);
    v[0] = a, v[1] = b, v[2] = c;
    storeRaw<N>(v, r.p + N * i);
}

#endif  // HWY_TARGET != HWY_SCALAR

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#endif  // include guard
