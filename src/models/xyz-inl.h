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

#include "hwy/highway.h"
#include "models/common.h"
#include "core/lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET != HWY_SCALAR

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
// In float, y = t^(-1/3) from the exponent bits (a third of them subtracted
// from a constant) and three Newton steps, which need no division; g = t y^2
// is the float cube root (kRootFloatTol below). One Newton step in double, g - (g^3 - t) y^2 / 3,
// then the factor t^(e - 1/3) = 1 + (e - 1/3) ln t (e the exponent; the
// square term is below 1e-14; ln t from the exponent and a polynomial of the
// mantissa, within 2e-6). The result is within kRootTol (relative) of the
// exact power, and so of the double pow, which is within one unit of it;
// callers compare the float (or code) that the two ends of that interval
// give and take the scalar pow for lanes where they differ. That makes the
// lanes they keep exact by construction.
inline constexpr float kRootMax = 4096.0f;
inline constexpr double kRootTol = 1e-11;
// The exponent minus 1/3: the float value of 1/3 lies above it.
inline constexpr double kThirdExcess = 0.3333333432674408 - 1.0 / 3.0;

struct RootV {
    VD lo, hi;  // the halves of the lanes
};

// ln t for t > 0 normal: the exponent times ln 2 plus ln m of the mantissa
// m in [1, 2), a least-squares polynomial in 2m - 3.
HWY_INLINE VF logApprox(VF t) {
    const DF df;
    const DI di;
    const VI bits = hn::BitCast(di, t);
    const VF e = hn::ConvertTo(df, hn::Sub(hn::ShiftRight<23>(bits), hn::Set(di, 127)));
    const VF m = hn::BitCast(df, hn::Or(hn::And(bits, hn::Set(di, 0x7FFFFF)), hn::Set(di, 0x3F800000)));
    const VF u = hn::Sub(hn::Add(m, m), hn::Set(df, 3.0f));
    static constexpr float c[7] = {0.4054652915f,   0.3333418363f,  -0.05556134935f, 0.01227894278f,
                                   -0.003058064665f, 0.0009515313917f, -0.0002720949623f};
    VF p = hn::Set(df, c[6]);
    for (int k = 5; k >= 0; --k) p = hn::Add(hn::Mul(p, u), hn::Set(df, c[k]));
    return hn::Add(hn::Mul(e, hn::Set(df, 0.6931471806f)), p);
}

HWY_INLINE VD rootHalf(VF g, VF inv3g2, VF corr, VF t, bool upper) {
    const VD gd = upper ? upperD(g) : lowerD(g);
    const VD td = upper ? upperD(t) : lowerD(t);
    const VD res = hn::Sub(hn::Mul(hn::Mul(gd, gd), gd), td);
    const VD r = hn::Sub(gd, hn::Mul(res, upper ? upperD(inv3g2) : lowerD(inv3g2)));
    return hn::Add(r, hn::Mul(r, upper ? upperD(corr) : lowerD(corr)));
}

// The float part: t clamped to where the root works (others give 1), y =
// t^(-1/3) and g = t y^2, the float root, within kRootFloatTol of pow
// (relative) for t in (0.008856, kRootMax]: 4.96e-7 at most over every
// float up to 1.01 and 20 million random ones beyond.
struct RootF {
    VF t, y, g;
};
inline constexpr float kRootFloatTol = 6e-7f;

HWY_INLINE RootF cubeRootF(VF t) {
    const DF df;
    const DI di;
    const VF safe = hn::IfThenElse(hn::And(hn::Gt(t, hn::Set(df, 1e-30f)), hn::Le(t, hn::Set(df, kRootMax))), t,
                                   hn::Set(df, 1.0f));
    const VF third = hn::Set(df, 1.0f / 3.0f);
    const VF bits = hn::ConvertTo(df, hn::BitCast(di, safe));
    VF y = hn::BitCast(df, hn::Sub(hn::Set(di, 0x54A2FA8C), hn::ConvertTo(di, hn::Mul(bits, third))));
    for (int k = 0; k < 3; ++k) {
        const VF ty3 = hn::Mul(safe, hn::Mul(hn::Mul(y, y), y));
        y = hn::Mul(hn::Mul(y, hn::Sub(hn::Set(df, 4.0f), ty3)), third);
    }
    return {safe, y, hn::Mul(hn::Mul(safe, y), y)};
}

// Lanes with t outside (0, kRootMax] (NaN too) give garbage; callers select.
HWY_INLINE RootV cubeRootV(const RootF& f) {
    const DF df;
    const VF inv3g2 = hn::Mul(hn::Mul(f.y, f.y), hn::Set(df, 1.0f / 3.0f));
    const VF corr = hn::Mul(hn::Set(df, static_cast<float>(kThirdExcess)), logApprox(f.t));
    return {rootHalf(f.g, inv3g2, corr, f.t, false), rootHalf(f.g, inv3g2, corr, f.t, true)};
}
HWY_INLINE RootV cubeRootV(VF t) { return cubeRootV(cubeRootF(t)); }

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
