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
#include "core/lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET != HWY_SCALAR

HWY_INLINE VF f(float v) { return hn::Set(DF(), v); }
HWY_INLINE VI i32(std::int32_t v) { return hn::Set(DI(), v); }

// Branch-free choice: a where m, else b.
HWY_INLINE VF pick(MF m, VF a, VF b) { return hn::IfThenElse(m, a, b); }
HWY_INLINE VI pick(MI m, VI a, VI b) { return hn::IfThenElse(m, a, b); }

// A sample in a lane: integers as int32 codes on the unsigned scale (16s
// offset by 32768), floats as they are.
template <class T>
using Lane = std::conditional_t<std::is_floating_point_v<T>, VF, VI>;

// A sample as a float: toScale.
HWY_INLINE VF toFloat(VI v) { return hn::ConvertTo(DF(), v); }
HWY_INLINE VF toFloat(VF v) { return v; }

// Full vectors of samples, and their blocks of one pixel per 32-bit lane:
// seen as 32-bit lanes, a vector of integer samples holds kBlocks samples
// per lane, and block q takes sample q of every lane (pixel kBlocks * j + q
// in lane j). Taking them apart and back needs no lane crossing.
template <class T>
using DW = hn::ScalableTag<T>;
template <class T>
using VW = hn::Vec<DW<T>>;
template <class T>
inline constexpr int kBlocks = std::is_floating_point_v<T> ? 1 : 4 / static_cast<int>(sizeof(T));

template <class T>
HWY_INLINE Lane<T> block(VW<T> v, int q) {
    if constexpr (std::is_floating_point_v<T>) {
        return v;
    } else {
        using DU = hn::RebindToUnsigned<DI>;
        const auto u = hn::ShiftRightSame(hn::BitCast(DU(), v), 8 * static_cast<int>(sizeof(T)) * q);
        const VI x = hn::BitCast(DI(), hn::And(u, hn::Set(DU(), (1u << (8 * sizeof(T))) - 1)));
        return Offset16<T>::kOffset ? hn::Xor(x, i32(Offset16<T>::kOffset)) : x;
    }
}

// The samples of codes on the unsigned scale: their low bits, 16s offset
// back (- 32768 and + 32768 agree modulo 2^16).
template <class T>
HWY_INLINE VW<T> unblock(const Lane<T>* b) {
    if constexpr (std::is_floating_point_v<T>) {
        return b[0];
    } else {
        using DU = hn::RebindToUnsigned<DI>;
        auto u = hn::Zero(DU());
        for (int q = 0; q < kBlocks<T>; ++q) {
            const VI c = Offset16<T>::kOffset ? hn::Xor(b[q], i32(Offset16<T>::kOffset)) : b[q];
            const auto low = hn::And(hn::BitCast(DU(), c), hn::Set(DU(), (1u << (8 * sizeof(T))) - 1));
            u = hn::Or(u, hn::ShiftLeftSame(low, 8 * static_cast<int>(sizeof(T)) * q));
        }
        return hn::BitCast(DW<T>(), u);
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

// saturateStore: integer codes rounded and saturated to 0..kFull, 32f
// clamped to 0..1 (NaN stays).
template <class T>
HWY_INLINE Lane<T> saturateStore(VF v) {
    if constexpr (std::is_floating_point_v<T>)
        return pick(hn::Lt(v, f(0.0f)), f(0.0f), pick(hn::Ge(v, f(1.0f)), f(1.0f), v));
    else
        return saturateCode(hn::Add(v, f(kHalfLess)), kFull<T>);
}

// roundStore: integer codes rounded without a clamp, 32f as it is.
template <class T>
HWY_INLINE Lane<T> roundStore(VF v) {
    if constexpr (std::is_floating_point_v<T>)
        return v;
    else
        return roundCode(v);
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
// Rows: pixel i onwards, the samples of whole vectors of pixels, and the loop
// over them.

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
HWY_INLINE void loadRaw(const T* p, VW<T> v[4]) {
    if constexpr (N == 3)
        hn::LoadInterleaved3(DW<T>(), p, v[0], v[1], v[2]);
    else
        hn::LoadInterleaved4(DW<T>(), p, v[0], v[1], v[2], v[3]);
}
template <int N, class T>
HWY_INLINE void storeRaw(const VW<T> v[4], T* p) {
    if constexpr (N == 3)
        hn::StoreInterleaved3(v[0], v[1], v[2], DW<T>(), p);
    else
        hn::StoreInterleaved4(v[0], v[1], v[2], v[3], DW<T>(), p);
}

// Channels 0..2 of interleaved rows; the fourth sample of an N = 4 row is
// neither read nor changed (stored back as loaded).
template <class T, int N>
struct Interleaved {
    RowC<const T, N> s;
    RowC<T, N> d;
    HWY_INLINE void load(std::size_t i, VW<T> v[4]) const { loadRaw<N>(s.p + N * i, v); }
    HWY_INLINE void store(std::size_t i, const VW<T> c[4]) const {
        VW<T> v[4];
        if constexpr (N == 4) loadRaw<4>(d.p + 4 * i, v);
        v[0] = c[0], v[1] = c[1], v[2] = c[2];
        storeRaw<N>(v, d.p + N * i);
    }
};

// body(in, out) on every block of the whole vectors of a row from pixel 0:
// io.load(i, samples) and io.store(i, samples) move the vectors at pixel i;
// out[3] starts as in[3]. Returns the pixels done.
template <class T, class Io, class Body>
HWY_INLINE std::size_t eachVector(int width, const Io& io, const Body& body) {
    const std::size_t n = hn::Lanes(DW<T>());
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        VW<T> in[4], out[4];
        for (auto& v : in) v = hn::Zero(DW<T>());
        io.load(i, in);
        Lane<T> res[4][kBlocks<T>];
        for (int q = 0; q < kBlocks<T>; ++q) {
            const Lane<T> x[4] = {block<T>(in[0], q), block<T>(in[1], q), block<T>(in[2], q), block<T>(in[3], q)};
            Lane<T> y[4] = {x[0], x[1], x[2], x[3]};
            body(x, y);
            for (int k = 0; k < 4; ++k) res[k][q] = y[k];
        }
        for (int k = 0; k < 4; ++k) out[k] = unblock<T>(res[k]);
        io.store(i, out);
    }
    return i;
}

#endif  // HWY_TARGET != HWY_SCALAR

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#endif  // include guard
