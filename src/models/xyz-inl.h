// Vector building blocks of the CIE models (XYZ, LUV, Lab), shared by their
// Highway translation units (included once per target, after
// hwy/foreach_target.h and the scalar kernels): pixels of every sample type
// as float lanes and codes back, the float matrix rows, the quantisers, and
// the double-precision cube root checked against the narrowing to float.
//
// One vector step converts Lanes(DF) pixels: integer samples are widened to
// 32-bit lanes and made float, codes are 32-bit lanes narrowed to their low
// 8 or 16 bits. Every float expression keeps the operation order of its
// scalar kernel.
#if defined(ZOR_MODELS_XYZ_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef ZOR_MODELS_XYZ_INL_H_
#undef ZOR_MODELS_XYZ_INL_H_
#else
#define ZOR_MODELS_XYZ_INL_H_
#endif

#include "hwy/contrib/math/math-inl.h"
#include "hwy/highway.h"
#include "models/common.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET != HWY_SCALAR

using DF = hn::ScalableTag<float>;
using VF = hn::Vec<DF>;
using DI = hn::RebindToSigned<DF>;
using VI = hn::Vec<DI>;
using MF = hn::Mask<DF>;
using DFH = hn::Half<DF>;
using DD = hn::Rebind<double, DFH>;
using VD = hn::Vec<DD>;

HWY_INLINE std::size_t floatLanes() { return hn::Lanes(DF()); }

// ---------------------------------------------------------------------------
// Pixels: channels 0..2 of Lanes(DF) pixels of N samples as floats (16s on
// the unsigned scale), and codes (32-bit lanes on the unsigned scale) or
// floats stored back; a fourth sample is kept as it is in the destination.

template <class T, int N>
struct FloatPix {
    using DT = hn::Rebind<T, DF>;

    static HWY_INLINE void loadRaw(DT dt, const T* p, hn::Vec<DT>& a, hn::Vec<DT>& b, hn::Vec<DT>& c) {
        if constexpr (N == 3) {
            hn::LoadInterleaved3(dt, p, a, b, c);
        } else {
            hn::Vec<DT> ignored;
            hn::LoadInterleaved4(dt, p, a, b, c, ignored);
        }
    }

    static HWY_INLINE VF toFloat(hn::Vec<DT> v) {
        if constexpr (std::is_same_v<T, Zor32f>) {
            return v;
        } else {
            const VI i = hn::PromoteTo(DI(), v);
            return hn::ConvertTo(DF(), Offset16<T>::kOffset ? hn::Add(i, hn::Set(DI(), 32768)) : i);
        }
    }

    static HWY_INLINE void load(const T* p, VF& a, VF& b, VF& c) {
        hn::Vec<DT> x, y, z;
        loadRaw(DT(), p, x, y, z);
        a = toFloat(x);
        b = toFloat(y);
        c = toFloat(z);
    }

    static HWY_INLINE void storeRaw(T* p, hn::Vec<DT> a, hn::Vec<DT> b, hn::Vec<DT> c) {
        const DT dt;
        if constexpr (N == 3) {
            hn::StoreInterleaved3(a, b, c, dt, p);
        } else {
            hn::Vec<DT> t0, t1, t2, alpha;
            hn::LoadInterleaved4(dt, p, t0, t1, t2, alpha);
            hn::StoreInterleaved4(a, b, c, alpha, dt, p);
        }
    }

    // Integer types: the low bits of each code, 16s offset back.
    static HWY_INLINE hn::Vec<DT> fromCode(VI v) {
        static_assert(!std::is_same_v<T, Zor32f>, "codes are integer samples");
        using DU = hn::RebindToUnsigned<DT>;
        const auto low = hn::DemoteTo(DU(), hn::And(v, hn::Set(DI(), sizeof(T) == 1 ? 0xFF : 0xFFFF)));
        if constexpr (Offset16<T>::kOffset != 0)
            return hn::BitCast(DT(), hn::Xor(low, hn::Set(DU(), 0x8000)));
        else
            return hn::BitCast(DT(), low);
    }

    static HWY_INLINE void storeCodes(T* p, VI a, VI b, VI c) { storeRaw(p, fromCode(a), fromCode(b), fromCode(c)); }
    static HWY_INLINE void storeFloats(T* p, VF a, VF b, VF c) { storeRaw(p, a, b, c); }
};

// ---------------------------------------------------------------------------
// Arithmetic as the scalar helpers do it

// (m0 a + m1 b) + m2 c
HWY_INLINE VF dotRowV(const Matrix3& m, int r, VF a, VF b, VF c) {
    const DF df;
    return hn::Add(hn::Add(hn::Mul(hn::Set(df, m.m[r][0]), a), hn::Mul(hn::Set(df, m.m[r][1]), b)),
                   hn::Mul(hn::Set(df, m.m[r][2]), c));
}

// int(v + 0.499999f), low bits kept by the store.
HWY_INLINE VI roundCodeV(VF v) { return hn::ConvertTo(DI(), hn::Add(v, hn::Set(DF(), kHalfLess))); }

// saturateCode: hi or more gives hi, below 1 (NaN too) gives 0, else
// truncation. The value is settled in its own type, then truncated.
template <class D, class V = hn::Vec<D>>
HWY_INLINE V saturateValue(D d, V v, int hi) {
    const V top = hn::Set(d, static_cast<hn::TFromD<D>>(hi));
    return hn::IfThenElse(hn::Ge(v, top), top, hn::IfThenElseZero(hn::Ge(v, hn::Set(d, 1)), v));
}
HWY_INLINE VI saturateCodeV(VF v, int hi) { return hn::ConvertTo(DI(), saturateValue(DF(), v, hi)); }

// The same on two double halves, joined.
HWY_INLINE VI saturateCodeV(VD lo, VD hi, int top) {
    const hn::Rebind<std::int32_t, DD> di32;
    return hn::Combine(DI(), hn::DemoteTo(di32, saturateValue(DD(), hi, top)),
                       hn::DemoteTo(di32, saturateValue(DD(), lo, top)));
}

// clampUnit: negative gives 0, 1 or more gives 1, NaN stays.
HWY_INLINE VF clampUnitV(VF v) {
    const DF df;
    return hn::IfThenZeroElse(hn::Lt(v, hn::Zero(df)),
                              hn::IfThenElse(hn::Ge(v, hn::Set(df, 1.0f)), hn::Set(df, 1.0f), v));
}

HWY_INLINE VD lowerD(VF v) { return hn::PromoteTo(DD(), hn::LowerHalf(DFH(), v)); }
HWY_INLINE VD upperD(VF v) { return hn::PromoteTo(DD(), hn::UpperHalf(DFH(), v)); }
HWY_INLINE VF toFloat(VD lo, VD hi) { return hn::Combine(DF(), hn::DemoteTo(DFH(), hi), hn::DemoteTo(DFH(), lo)); }

// xyzToRgbCodes: rows 0 and 1 rounded in float, the blue row with its
// rounding constant and Z term added in double (BlueInDouble) or in float;
// each saturated to 0..hi.
template <bool BlueInDouble>
HWY_INLINE void xyzToRgbCodesV(VF x, VF y, VF z, int hi, VI& r, VI& g, VI& b) {
    const DF df;
    const VF half = hn::Set(df, kHalfLess);
    r = saturateCodeV(hn::Add(dotRowV(kXyzToRgb, 0, x, y, z), half), hi);
    g = saturateCodeV(hn::Add(dotRowV(kXyzToRgb, 1, x, y, z), half), hi);
    if constexpr (BlueInDouble) {
        const DD dd;
        const VF part = hn::Add(hn::Mul(hn::Set(df, kXyzToRgb.m[2][0]), x), hn::Mul(hn::Set(df, kXyzToRgb.m[2][1]), y));
        const auto blue = [&](VD p, VD zz) {
            return hn::Add(hn::Add(p, hn::Set(dd, kHalfLessD)), hn::Mul(zz, hn::Set(dd, 1.057311)));
        };
        b = saturateCodeV(blue(lowerD(part), lowerD(z)), blue(upperD(part), upperD(z)), hi);
    } else {
        b = saturateCodeV(hn::Add(dotRowV(kXyzToRgb, 2, x, y, z), half), hi);
    }
}

// ---------------------------------------------------------------------------
// Cube root: pow(t, 0.3333333432674408) in double, for t in (0, kRootMax].
//
// A float start (exponent bits divided by three, two Halley steps), one
// Newton step in double with the derivative from float, then the factor
// t^(e - 1/3) = 1 + (e - 1/3) ln t (e the exponent; its square term is below
// 1e-14). The result is within kRootTol (relative) of the exact power, and so
// of the double pow, which is within one unit of it; callers compare the
// float (or code) that the two ends of that interval give and take the
// scalar pow for lanes where they differ. That makes the lanes they keep
// exact by construction.
inline constexpr float kRootMax = 4096.0f;
inline constexpr double kRootTol = 1e-11;
// The exponent minus 1/3: the float value of 1/3 lies above it.
inline constexpr double kThirdExcess = 0.3333333432674408 - 1.0 / 3.0;

struct RootV {
    VD lo, hi;  // the halves of the lanes
};

HWY_INLINE VD rootHalf(VF g, VF inv3g2, VF corr, VF t, bool upper) {
    const VD gd = upper ? upperD(g) : lowerD(g);
    const VD td = upper ? upperD(t) : lowerD(t);
    const VD res = hn::Sub(hn::Mul(hn::Mul(gd, gd), gd), td);
    const VD r = hn::Sub(gd, hn::Mul(res, upper ? upperD(inv3g2) : lowerD(inv3g2)));
    return hn::Add(r, hn::Mul(r, upper ? upperD(corr) : lowerD(corr)));
}

// Lanes with t outside (0, kRootMax] (NaN too) give garbage; callers select.
HWY_INLINE RootV cubeRootV(VF t) {
    const DF df;
    const DI di;
    const VF safe = hn::IfThenElse(hn::And(hn::Gt(t, hn::Zero(df)), hn::Le(t, hn::Set(df, kRootMax))), t,
                                   hn::Set(df, 1.0f));
    const VF bits = hn::ConvertTo(df, hn::BitCast(di, safe));
    VF g = hn::BitCast(df, hn::Add(hn::ConvertTo(di, hn::Mul(bits, hn::Set(df, 1.0f / 3.0f))),
                                   hn::Set(di, 709921077)));
    const VF two = hn::Set(df, 2.0f);
    for (int k = 0; k < 2; ++k) {
        const VF g3 = hn::Mul(hn::Mul(g, g), g);
        g = hn::Div(hn::Mul(g, hn::Add(g3, hn::Mul(two, safe))), hn::Add(hn::Mul(two, g3), safe));
    }
    const VF inv3g2 = hn::Div(hn::Set(df, 1.0f), hn::Mul(hn::Set(df, 3.0f), hn::Mul(g, g)));
    const VF corr = hn::Mul(hn::Set(df, static_cast<float>(kThirdExcess)), hn::Log(df, safe));
    return {rootHalf(g, inv3g2, corr, safe, false), rootHalf(g, inv3g2, corr, safe, true)};
}

// The float narrowing of a root; `sure` keeps the lanes of `used` only
// where both ends of the interval narrow to the same float.
HWY_INLINE VF rootToFloat(const RootV& r, MF used, MF& sure) {
    const DD dd;
    const VD down = hn::Set(dd, 1.0 - kRootTol), up = hn::Set(dd, 1.0 + kRootTol);
    const VF lo = toFloat(hn::Mul(r.lo, down), hn::Mul(r.hi, down));
    const VF hi = toFloat(hn::Mul(r.lo, up), hn::Mul(r.hi, up));
    sure = hn::AndNot(hn::AndNot(hn::Eq(lo, hi), used), sure);
    return toFloat(r.lo, r.hi);
}

// The lanes of a mask as bits, lane 0 lowest.
HWY_INLINE std::uint64_t maskBits(MF m) {
    std::uint8_t bytes[8] = {};
    hn::StoreMaskBits(DF(), m, bytes);
    std::uint64_t v = 0;
    for (int k = 7; k >= 0; --k) v = (v << 8) | bytes[k];
    return v;
}

#endif  // HWY_TARGET != HWY_SCALAR

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#endif  // ZOR_MODELS_XYZ_INL_H_
