// Vector kernels of the gamma correction, compiled once per CPU target. Every
// kernel gives exactly what its scalar kernel (twist/gamma_kernels.h) gives.
//
// 8u: the 256-byte table as a byte map in vectors (core/bytemap-inl.h), at
// the targets where that beats the scalar table.
//
// 32f: the linear branch is computed as the scalar kernel does it, in double
// lanes. On the power branch a vector pow in double (log2, exp2 as
// polynomials) is within 2^-44 of the true power (2^-45.7 at worst against the
// math library over the whole range of arguments), far inside the 2^-36 that
// is allowed for: whatever value in p (1 ± 2^-36) the math library returns,
// the rest of the curve (multiplies and adds, each rounded, each monotone in
// p) ends in one float when both ends of that interval do. The lanes where
// they do not, and the few outside the polynomials' range, are done by the
// scalar map, so the result is exact by construction.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "twist/gamma_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "core/bytemap-inl.h"
#include "core/lanes-inl.h"
#include "hwy/highway.h"
#include "twist/gamma_kernels.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// The scalar target of Highway keeps the scalar kernels (found in zor::).
#if HWY_TARGET != HWY_SCALAR

// ---------------------------------------------------------------------------
// 8u: the stored table as a byte map in vectors.

template <bool Fwd>
struct VecMap8u : ByteMap {
    explicit VecMap8u(Stored8u<Fwd>) : ByteMap(Fwd ? tableFwd8u : tableInv8u) {}
    template <int J>
    HWY_INLINE void apply(V8 (&v)[J]) const {
        for (V8& x : v) x = (*this)(x);
    }
};

// ---------------------------------------------------------------------------
// 32f: the curve in double lanes.

using DD = hn::Repartition<double, DF>;
using VD = hn::Vec<DD>;
using DI64 = hn::RebindToSigned<DD>;
using VI64 = hn::Vec<DI64>;

// Below 2^64 the power's argument keeps exp2's result in range.
inline constexpr double kPowLimit = 18446744073709551616.0;

// The polynomials below work on K independent vectors at once, step by step,
// so that their long chains of dependent operations overlap.

// log2(x) for normal positive x: x = 2^k m, m in [sqrt(1/2), sqrt(2)) (k and
// m straight from the bits: those of x less those of sqrt(1/2) are k 2^52
// plus those of m less those of sqrt(1/2)), and ln m = 2 atanh(s),
// s = (m - 1) / (m + 1), |s| < 0.1716, as a series in s^2 to s^17 (the next
// term is below 2^-49 of the sum).
template <int K>
HWY_INLINE void log2Of(VD (&x)[K]) {
    const DD dd;
    const DI64 di;
    const VD one = hn::Set(dd, 1.0);
    constexpr std::int64_t kHalfRoot = 0x3FE6A09E667F3BCDLL;  // sqrt(1/2)
    constexpr std::int64_t kExponentOne = 1023LL << 52, k2p52 = 0x4330000000000000LL;  // 1.0, 2^52
    VD s[K], s2[K], p[K], k[K];
    for (int j = 0; j < K; ++j) {
        const VI64 u = hn::Sub(hn::BitCast(di, x[j]), hn::Set(di, kHalfRoot - kExponentOne));  // (k + 1023) 2^52 + ...
        // k + 1023 in the low bits of 2^52, as a double, less 2^52 + 1023
        k[j] = hn::Sub(hn::BitCast(dd, hn::Or(hn::ShiftRight<52>(hn::BitCast(hn::RebindToUnsigned<DI64>(), u)), hn::BitCast(hn::RebindToUnsigned<DI64>(), hn::Set(di, k2p52)))),
                       hn::Set(dd, 4503599627371519.0));
        const VD m = hn::BitCast(dd, hn::Add(hn::And(u, hn::Set(di, 0x000FFFFFFFFFFFFFLL)), hn::Set(di, kHalfRoot)));
        s[j] = hn::Div(hn::Sub(m, one), hn::Add(m, one));
        s2[j] = hn::Mul(s[j], s[j]);
        p[j] = hn::Set(dd, 1.0 / 17);
    }
    for (int n = 15; n >= 1; n -= 2)
        for (int j = 0; j < K; ++j) p[j] = hn::Add(hn::Mul(p[j], s2[j]), hn::Set(dd, 1.0 / n));
    // k + 2 s p / ln 2
    for (int j = 0; j < K; ++j) x[j] = hn::Add(k[j], hn::Mul(hn::Mul(s[j], p[j]), hn::Set(dd, 2.8853900817779268)));
}

// 1 / n!
struct InvFactorials {
    double v[13];
    constexpr InvFactorials() : v() {
        double f = 1.0;
        for (int n = 0; n < 13; ++n) v[n] = 1.0 / f, f *= n + 1;
    }
    constexpr double operator[](int n) const { return v[n]; }
};
inline constexpr InvFactorials kInvFactorial;

// 2^t for |t| < 1000: 2^j e^(f ln 2), j = t rounded (adding and removing
// 1.5 * 2^52, which leaves j in the low bits), |f| <= 1/2, e^z to z^11 (the
// next term is below 2^-47).
template <int K>
HWY_INLINE void exp2Of(VD (&t)[K]) {
    const DD dd;
    const DI64 di;
    const VD shifter = hn::Set(dd, 6755399441055744.0);
    VD jj[K], z[K], p[K];
    for (int i = 0; i < K; ++i) {
        jj[i] = hn::Add(t[i], shifter);
        z[i] = hn::Mul(hn::Sub(t[i], hn::Sub(jj[i], shifter)), hn::Set(dd, 0.6931471805599453));
        p[i] = hn::Set(dd, kInvFactorial[11]);
    }
    for (int n = 10; n >= 0; --n)
        for (int i = 0; i < K; ++i) p[i] = hn::Add(hn::Mul(p[i], z[i]), hn::Set(dd, kInvFactorial[n]));
    for (int i = 0; i < K; ++i)
        t[i] = hn::BitCast(dd, hn::Add(hn::BitCast(di, p[i]), hn::ShiftLeft<52>(hn::BitCast(di, jj[i]))));
}

template <bool Fwd>
struct VecCurve32f {
    Curve32f<Fwd> map;
    VecCurve32f(const Curve32f<Fwd>& m) : map(m) {}

    // The power branch's result from power p, as the scalar map computes it.
    HWY_INLINE VD fromPower(VD p) const {
        const DD dd;
        const VD r = hn::Set(dd, map.r), lo = hn::Set(dd, map.vMin);
        if (Fwd) return hn::Add(hn::Mul(hn::Sub(hn::Mul(p, hn::Set(dd, kGammaScale)), hn::Set(dd, kGammaOffset)), r), lo);
        return hn::Add(hn::Mul(p, r), lo);
    }

    // J vectors of samples, in place.
    template <int J>
    HWY_INLINE void apply(VF (&v)[J]) const {
        constexpr int K = 2 * J;  // halves, in double lanes
        const DF df;
        const DD dd;
        const hn::Half<DF> dh;
        VD linear[K], base[K], t[K];
        hn::Mask<DD> power[K];
        for (int j = 0; j < K; ++j) {
            const auto d = hn::Sub(v[j / 2], hn::Set(df, map.vMin));
            const VD dw = hn::PromoteTo(dd, j % 2 ? hn::UpperHalf(dh, d) : hn::LowerHalf(dh, d));
            const VD x = hn::Mul(dw, hn::Set(dd, map.invR));
            const VD lo = hn::Set(dd, map.vMin);
            linear[j] = Fwd ? hn::Add(hn::Mul(dw, hn::Set(dd, kGammaSlope)), lo)
                            : hn::Add(hn::Mul(hn::Set(dd, kGammaInvSlope), dw), lo);
            power[j] = hn::Ge(x, hn::Set(dd, Fwd ? kGammaFwdThreshold : kGammaInvThreshold));
            base[j] = Fwd ? x : hn::Mul(hn::Add(x, hn::Set(dd, kGammaOffset)), hn::Set(dd, kGammaInvScale));
            t[j] = hn::IfThenElse(power[j], hn::Min(base[j], hn::Set(dd, kPowLimit)), hn::Set(dd, 1.0));
        }
        log2Of<K>(t);
        for (VD& e : t) e = hn::Mul(e, hn::Set(dd, Fwd ? kGammaExponent : kGammaInvExponent));
        exp2Of<K>(t);
        // Where both ends of p (1 ± 2^-36) give one float, that float is the
        // result (the ends are rounded inwards by at most an ulp of p, far
        // less than the margin).
        auto sure = hn::FirstN(dd, hn::Lanes(dd));
        const VD down = hn::Set(dd, 1.0 - 1.0 / 68719476736.0), up = hn::Set(dd, 1.0 + 1.0 / 68719476736.0);
        hn::Vec<decltype(dh)> f[K];
        for (int j = 0; j < K; ++j) {
            f[j] = hn::DemoteTo(dh, hn::IfThenElse(power[j], fromPower(hn::Mul(t[j], down)), linear[j]));
            const VD above = hn::PromoteTo(dd, hn::DemoteTo(dh, fromPower(hn::Mul(t[j], up))));
            const auto decided = hn::And(hn::Eq(hn::PromoteTo(dd, f[j]), above), hn::Lt(base[j], hn::Set(dd, kPowLimit)));
            sure = hn::And(sure, hn::Or(hn::Not(power[j]), decided));
        }
        VF in[J];
        for (int j = 0; j < J; ++j) in[j] = v[j], v[j] = hn::Combine(df, f[2 * j + 1], f[2 * j]);
        if (HWY_UNLIKELY(!hn::AllTrue(dd, sure))) {
            HWY_ALIGN float x[hn::MaxLanes(df)];
            for (int j = 0; j < J; ++j) {
                hn::Store(in[j], df, x);
                for (std::size_t i = 0; i < hn::Lanes(df); ++i) x[i] = map(x[i]);
                v[j] = hn::Load(df, x);
            }
        }
    }
};

// The 16u table: the curve of Curve16u at K vectors of values at once, with
// the same check as the 32f curve. Rounding (y + 0.5 to float, truncated, an
// odd tie made even) is monotone in y, so equal results at both ends of the
// interval of powers decide the value.
template <bool Fwd>
void gammaTable16u(Zor16u* table, int first, int count) {
    constexpr int K = 4;
    const DD dd;
    const hn::Rebind<float, DD> dh;
    const hn::Rebind<std::int32_t, DD> di;
    const std::size_t n = hn::Lanes(dd);
    const auto rounded = [&](VD y) {
        const auto s = hn::DemoteTo(dh, hn::Add(y, hn::Set(dd, 0.5)));
        const auto t = hn::ConvertTo(di, s);
        const auto tie = hn::And(hn::RebindMask(di, hn::Eq(hn::ConvertTo(dh, t), s)),
                                 hn::Eq(hn::And(t, hn::Set(di, 1)), hn::Set(di, 1)));
        return hn::IfThenElse(tie, hn::Sub(t, hn::Set(di, 1)), t);
    };
    const auto fromPower = [&](VD p) {
        return Fwd ? hn::Mul(hn::Sub(hn::Mul(p, hn::Set(dd, kGammaScale)), hn::Set(dd, kGammaOffset)), hn::Set(dd, 65535.0))
                   : hn::Mul(p, hn::Set(dd, 65535.0));
    };
    const VD eps = hn::Set(dd, 1.0 / 68719476736.0);  // 2^-36
    int v0 = first;
    for (; v0 + static_cast<int>(K * n) <= first + count; v0 += K * static_cast<int>(n)) {
        VD v[K], t[K];
        hn::Mask<DD> power[K];
        for (int j = 0; j < K; ++j) {
            v[j] = hn::Iota(dd, static_cast<double>(v0 + j * static_cast<int>(n)));
            const VD x = hn::Mul(v[j], hn::Set(dd, kInv65535));
            power[j] = hn::Ge(x, hn::Set(dd, Fwd ? kGammaFwdThreshold : kGammaInvThreshold));
            t[j] = hn::IfThenElse(power[j], Fwd ? x : hn::Mul(hn::Add(x, hn::Set(dd, kGammaOffset)), hn::Set(dd, kGammaInvScale)),
                                  hn::Set(dd, 1.0));
        }
        log2Of<K>(t);
        for (VD& e : t) e = hn::Mul(e, hn::Set(dd, Fwd ? kGammaExponent : kGammaInvExponent));
        exp2Of<K>(t);
        for (int j = 0; j < K; ++j) {
            const VD linear = hn::Mul(v[j], hn::Set(dd, Fwd ? kGammaSlope : kGammaInvSlope));
            const auto r = rounded(hn::IfThenElse(power[j], fromPower(t[j]), linear));
            const auto below = rounded(fromPower(hn::Sub(t[j], hn::Mul(t[j], eps))));
            const auto above = rounded(fromPower(hn::Add(t[j], hn::Mul(t[j], eps))));
            HWY_ALIGN std::int32_t out[hn::MaxLanes(di)];
            hn::Store(r, di, out);
            const bool sure = hn::AllTrue(dd, hn::Or(hn::Not(power[j]), hn::Eq(hn::PromoteTo(dd, below), hn::PromoteTo(dd, above))));
            for (std::size_t i = 0; i < n; ++i) {
                const int at = v0 + j * static_cast<int>(n) + static_cast<int>(i);
                table[at] = sure ? static_cast<Zor16u>(out[i]) : Curve16u<Fwd>()(static_cast<Zor16u>(at));
            }
        }
    }
    ::zor::gammaTable16u<Fwd>(table, v0, first + count - v0);
}

// ---------------------------------------------------------------------------
// The row kernel: whole vectors of pixels, as one run of samples (C3), one
// run whose every fourth sample keeps the destination's value (AC4), or three
// planes; the scalar kernel does the rest.

template <class T, class Map>
struct VecMapOf;
template <bool Fwd>
struct VecMapOf<Zor8u, Stored8u<Fwd>> {
    using type = VecMap8u<Fwd>;
};
template <bool Fwd>
struct VecMapOf<Zor32f, Curve32f<Fwd>> {
    using type = VecCurve32f<Fwd>;
};

template <class L, class T, class Map>
void innerGamma(RowOf<L, const T> s, RowOf<L, T> d, int width, Map map) {
    if constexpr (std::is_same_v<T, Zor8u> && !kByteTableInVectors) {
        ::zor::innerGamma<L, T, Map>(s, d, width, map);
        return;
    }
    const hn::ScalableTag<T> dt;
    const std::size_t n = hn::Lanes(dt);
    const typename VecMapOf<T, Map>::type vmap(map);
    constexpr int kS = std::is_same_v<L, Planar> ? 3 : L::kStride;
    const hn::RebindToUnsigned<decltype(dt)> du;
    const auto alpha = hn::RebindMask(dt, hn::Eq(hn::And(hn::Iota(du, 0), hn::Set(du, 3)), hn::Set(du, 3)));
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        // The vectors of n pixels: three planes, or kS runs of n samples.
        const auto at = [&](auto row, int k) {
            if constexpr (std::is_same_v<L, Planar>)
                return row.p[k] + i;
            else
                return row.p + kS * i + k * n;
        };
        // 8u maps one vector at a time (its tables take most registers),
        // 32f all kS at once.
        constexpr int kJ = std::is_same_v<T, Zor8u> ? 1 : kS;
        for (int k0 = 0; k0 < kS; k0 += kJ) {
            hn::Vec<decltype(dt)> v[kJ];
            for (int k = 0; k < kJ; ++k) v[k] = hn::LoadU(dt, at(s, k0 + k));
            // 32f AC4: the fourth samples, whatever they hold, are not sent
            // to the scalar map (their results are dropped).
            if constexpr (kS == 4 && std::is_same_v<T, Zor32f>)
                for (auto& x : v) x = hn::IfThenElse(alpha, hn::Set(dt, map.vMin), x);
            vmap.apply(v);
            for (int k = 0; k < kJ; ++k) {
                if constexpr (kS == 4) v[k] = hn::IfThenElse(alpha, hn::LoadU(dt, at(d, k0 + k)), v[k]);
                hn::StoreU(v[k], dt, at(d, k0 + k));
            }
        }
    }
    ::zor::innerGamma<L, T, Map>(L::advance(s, i), L::advance(d, i), width - static_cast<int>(i), map);
}

#endif  // HWY_TARGET != HWY_SCALAR

// ---------------------------------------------------------------------------

HWY_MAYBE_UNUSED constexpr GammaKernels kGammaVector = {ZOR_GAMMA_KERNELS(ZOR_KERNEL_POINTER)};

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/target_tables.h"
namespace zor {
ZOR_TARGET_TABLES(GammaKernels, kGammaVector, gammaTables, kGammaScalar)
}  // namespace zor
#endif
