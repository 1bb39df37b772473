// Vector kernels of the gamma correction, compiled once per CPU target. Every
// kernel gives exactly what its scalar kernel (twist/gamma_kernels.h) gives.
//
// 8u: the 256-byte table as sixteen 16-byte tables, each looked up by the low
// four bits of the samples (a byte shuffle); the sample's high four bits
// pick the right one in four rounds of selects.
//
// 32f: the linear branch is computed as the scalar kernel does it, in double
// lanes. On the power branch a vector pow in double (log2, exp2 as
// polynomials) is within 2^-43 of the true power, far inside the 2^-36 that
// is allowed for: whatever value in p (1 ± 2^-36) the math library returns,
// the rest of the curve (multiplies and adds, each rounded, each monotone in
// p) ends in one float when both ends of that interval do. The lanes where
// they do not, and the few outside the polynomials' range, are done by the
// scalar map, so the result is exact by construction.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "twist/gamma_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "twist/gamma_kernels.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// The scalar target of Highway keeps the scalar kernels (found in zor::).
#if HWY_TARGET != HWY_SCALAR

// ---------------------------------------------------------------------------
// 8u: a byte table in vectors.

using D8 = hn::ScalableTag<std::uint8_t>;
using V8 = hn::Vec<D8>;
using DI8 = hn::RebindToSigned<D8>;

template <bool Fwd>
struct VecMap8u {
    V8 part[16];  // part[h][l] = table[16 h + l], in every 128-bit block
    explicit VecMap8u(Stored8u<Fwd>) {
        const Zor8u* t = Fwd ? tableFwd8u : tableInv8u;
        for (int h = 0; h < 16; ++h) part[h] = hn::LoadDup128(D8(), t + 16 * h);
    }
    HWY_INLINE V8 operator()(V8 v) const {
        const D8 d8;
        const DI8 di8;
        const V8 low = hn::And(v, hn::Set(d8, 0x0F));
        V8 r[8];
        // Bit 4 of the sample (moved to the sign bit) picks part 2j + 1 or
        // 2j, then bits 5, 6 and 7 in turn.
        const auto pick = [&](int shift, V8 odd, V8 even) {
            const hn::Vec<DI8> sign = hn::BitCast(di8, hn::ShiftLeftSame(hn::BitCast(hn::Repartition<std::uint16_t, D8>(), v), shift));
            return hn::BitCast(d8, hn::IfNegativeThenElse(sign, hn::BitCast(di8, odd), hn::BitCast(di8, even)));
        };
        for (int j = 0; j < 8; ++j)
            r[j] = pick(3, hn::TableLookupBytes(part[2 * j + 1], low), hn::TableLookupBytes(part[2 * j], low));
        for (int j = 0; j < 4; ++j) r[j] = pick(2, r[2 * j + 1], r[2 * j]);
        for (int j = 0; j < 2; ++j) r[j] = pick(1, r[2 * j + 1], r[2 * j]);
        return pick(0, r[1], r[0]);
    }
};

// ---------------------------------------------------------------------------
// 32f: the curve in double lanes.

using DF = hn::ScalableTag<float>;
using VF = hn::Vec<DF>;
using DD = hn::Repartition<double, DF>;
using VD = hn::Vec<DD>;
using DI64 = hn::RebindToSigned<DD>;
using VI64 = hn::Vec<DI64>;

// Below 2^64 the power's argument keeps exp2's result in range.
inline constexpr double kPowLimit = 18446744073709551616.0;

// log2(x) for normal positive x: x = 2^k m, m in [sqrt(1/2), sqrt(2)), and
// ln m = 2 atanh(s), s = (m - 1) / (m + 1), |s| < 0.1716, as a series in s^2
// to s^19 (the next term is below 2^-52 of the sum).
HWY_INLINE VD log2Of(VD x) {
    const DD dd;
    const DI64 di;
    const VI64 bits = hn::BitCast(di, x);
    VI64 k = hn::Sub(hn::ShiftRight<52>(bits), hn::Set(di, 1023));
    VD m = hn::BitCast(dd, hn::Or(hn::And(bits, hn::Set(di, 0x000FFFFFFFFFFFFFLL)), hn::Set(di, 0x3FF0000000000000LL)));
    const auto big = hn::Gt(m, hn::Set(dd, 1.4142135623730951));
    m = hn::IfThenElse(big, hn::Mul(m, hn::Set(dd, 0.5)), m);
    k = hn::IfThenElse(hn::RebindMask(di, big), hn::Add(k, hn::Set(di, 1)), k);
    const VD one = hn::Set(dd, 1.0);
    const VD s = hn::Div(hn::Sub(m, one), hn::Add(m, one));
    const VD s2 = hn::Mul(s, s);
    VD p = hn::Set(dd, 1.0 / 19);
    for (int n = 17; n >= 1; n -= 2) p = hn::Add(hn::Mul(p, s2), hn::Set(dd, 1.0 / n));
    // 2 s p / ln 2
    const VD log2m = hn::Mul(hn::Mul(s, p), hn::Set(dd, 2.8853900817779268));
    return hn::Add(hn::ConvertTo(dd, k), log2m);
}

// 1 / n!
struct InvFactorials {
    double v[15];
    constexpr InvFactorials() : v() {
        double f = 1.0;
        for (int n = 0; n < 15; ++n) v[n] = 1.0 / f, f *= n + 1;
    }
    constexpr double operator[](int n) const { return v[n]; }
};
inline constexpr InvFactorials kInvFactorial;

// 2^t for |t| < 1000: 2^j e^(f ln 2), j = round(t), |f| <= 1/2, e^z to z^12
// (the next term is below 2^-52).
HWY_INLINE VD exp2Of(VD t) {
    const DD dd;
    const DI64 di;
    const VD j = hn::Round(t);
    const VD z = hn::Mul(hn::Sub(t, j), hn::Set(dd, 0.6931471805599453));
    VD p = hn::Set(dd, kInvFactorial[12]);
    for (int n = 11; n >= 0; --n) p = hn::Add(hn::Mul(p, z), hn::Set(dd, kInvFactorial[n]));
    return hn::BitCast(dd, hn::Add(hn::BitCast(di, p), hn::ShiftLeft<52>(hn::ConvertTo(di, j))));
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

    // Half a vector of samples as doubles; `sure` is false in lanes that the
    // scalar map must do.
    HWY_INLINE VD half(hn::Vec<hn::Rebind<float, DD>> d, hn::Mask<DD>& sure) const {
        const DD dd;
        const VD dw = hn::PromoteTo(dd, d);
        const VD x = hn::Mul(dw, hn::Set(dd, map.invR));
        const VD lo = hn::Set(dd, map.vMin);
        const VD linear = Fwd ? hn::Add(hn::Mul(dw, hn::Set(dd, kGammaSlope)), lo)
                              : hn::Add(hn::Mul(hn::Set(dd, kGammaInvSlope), dw), lo);
        const auto power = hn::Ge(x, hn::Set(dd, Fwd ? kGammaFwdThreshold : kGammaInvThreshold));
        if (hn::AllFalse(dd, power)) {
            sure = hn::FirstN(dd, hn::Lanes(dd));
            return linear;
        }
        const VD base = Fwd ? x : hn::Mul(hn::Add(x, hn::Set(dd, kGammaOffset)), hn::Set(dd, kGammaInvScale));
        const VD inRange = hn::IfThenElse(power, hn::Min(base, hn::Set(dd, kPowLimit)), hn::Set(dd, 1.0));
        const VD p = exp2Of(hn::Mul(log2Of(inRange), hn::Set(dd, Fwd ? kGammaExponent : kGammaInvExponent)));
        const VD y = fromPower(p);
        const VD eps = hn::Set(dd, 1.0 / 68719476736.0);  // 2^-36
        const hn::Rebind<float, DD> dh;
        const auto below = hn::PromoteTo(dd, hn::DemoteTo(dh, fromPower(hn::Sub(p, hn::Mul(p, eps)))));
        const auto above = hn::PromoteTo(dd, hn::DemoteTo(dh, fromPower(hn::Add(p, hn::Mul(p, eps)))));
        const auto decided = hn::And(hn::Eq(below, above), hn::Lt(base, hn::Set(dd, kPowLimit)));
        sure = hn::Or(hn::Not(power), decided);
        return hn::IfThenElse(power, y, linear);
    }

    HWY_INLINE VF operator()(VF v) const {
        const DF df;
        const DD dd;
        const hn::Half<DF> dh;
        const VF d = hn::Sub(v, hn::Set(df, map.vMin));
        hn::Mask<DD> sureLow, sureHigh;
        const VD yl = half(hn::LowerHalf(dh, d), sureLow), yh = half(hn::UpperHalf(dh, d), sureHigh);
        VF y = hn::Combine(df, hn::DemoteTo(dh, yh), hn::DemoteTo(dh, yl));
        if (HWY_UNLIKELY(!hn::AllTrue(dd, hn::And(sureLow, sureHigh)))) {
            HWY_ALIGN float in[hn::MaxLanes(df)], out[hn::MaxLanes(df)];
            hn::Store(v, df, in);
            hn::Store(y, df, out);
            for (std::size_t i = 0; i < hn::Lanes(df); ++i) out[i] = map(in[i]);
            y = hn::Load(df, out);
        }
        return y;
    }
};

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
    const hn::ScalableTag<T> dt;
    const std::size_t n = hn::Lanes(dt);
    const typename VecMapOf<T, Map>::type vmap(map);
    std::size_t i = 0;
    if constexpr (std::is_same_v<L, Planar>) {
        for (; i + n <= static_cast<std::size_t>(width); i += n)
            for (int k = 0; k < 3; ++k) hn::StoreU(vmap(hn::LoadU(dt, s.p[k] + i)), dt, d.p[k] + i);
    } else {
        constexpr int kS = L::kStride;
        const hn::RebindToUnsigned<decltype(dt)> du;
        const auto alpha = hn::RebindMask(dt, hn::Eq(hn::And(hn::Iota(du, 0), hn::Set(du, 3)), hn::Set(du, 3)));
        for (; i + n <= static_cast<std::size_t>(width); i += n)
            for (int k = 0; k < kS; ++k) {
                const std::size_t at = kS * i + k * n;
                auto y = vmap(hn::LoadU(dt, s.p + at));
                if constexpr (kS == 4) y = hn::IfThenElse(alpha, hn::LoadU(dt, d.p + at), y);
                hn::StoreU(y, dt, d.p + at);
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
