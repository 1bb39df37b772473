// Vector kernels of RGB <-> CIE L*u*v*, compiled once per CPU target. Every
// kernel computes exactly what its scalar kernel (models/luv_kernels.h)
// computes: the same float operations in the same order (true divisions,
// branches as selects), the lightness cube root checked against its
// narrowing (models/xyz-inl.h) with the scalar kernel for the pixels too
// close to call.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "models/luv_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "models/luv_kernels.h"
#include "models/xyz-inl.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET != HWY_SCALAR

// kPowL widened to 32-bit entries for the gather.
struct PowL32 {
    std::int32_t v[256];
    PowL32() {
        for (int i = 0; i < 256; ++i) v[i] = kPowL[i];
    }
};

// 8u forward: the L code gathered at the rounded luminance, u and v from it.
template <int N>
void rgbToLuv8(RowC<const Zor8u, N> s, RowC<Zor8u, N> d, int width) {
    static const PowL32 powL;
    using Pix = FloatPix<Zor8u, N>;
    const DF df;
    const DI di;
    const std::size_t n = floatLanes();
    const VF k255 = hn::Set(df, 255.0f);
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        VF r, g, b;
        Pix::load(s.p + N * i, r, g, b);
        const VF x = hn::Div(dotRowV(kRgbToXyz, 0, r, g, b), k255);
        const VF y = dotRowV(kRgbToXyz, 1, r, g, b);
        const VF z = hn::Div(dotRowV(kRgbToXyz, 2, r, g, b), k255);
        const VI yi = roundCodeV(y);
        const VI lc = hn::GatherIndex(di, powL.v, hn::Min(hn::Max(yi, hn::Zero(di)), hn::Set(di, 255)));
        const VF lf = hn::ConvertTo(df, lc);
        const MF lit = hn::RebindMask(df, hn::Ne(yi, hn::Zero(di)));
        const VF dd = hn::Add(hn::Add(x, hn::Div(hn::Mul(hn::Set(df, 15.0f), y), k255)), hn::Mul(hn::Set(df, 3.0f), z));
        const VF up = hn::IfThenElseZero(lit, hn::Div(hn::Mul(hn::Set(df, 4.0f), x), dd));
        const VF vp = hn::IfThenElseZero(lit, hn::Div(hn::Mul(hn::Set(df, 9.0f), hn::Div(y, k255)), dd));
        const VF uc = hn::Add(hn::Mul(hn::Mul(hn::Set(df, 3.6723163f), lf), hn::Sub(up, hn::Set(df, kLuvUn))),
                              hn::Set(df, 97.02543f));
        const VF vc = hn::Add(hn::Mul(hn::Mul(hn::Set(df, 4.961832f), lf), hn::Sub(vp, hn::Set(df, kLuvVn))),
                              hn::Set(df, 136.75955f));
        Pix::storeCodes(d.p + N * i, lc, hn::ConvertTo(di, uc), hn::ConvertTo(di, vc));
    }
    ::zor::rgbToLuv8<N>({s.p + N * i}, {d.p + N * i}, width - static_cast<int>(i));
}

// xyzToLuv on lanes: L, u, v of X, Y, Z with luminance ratio yr. `sure`
// loses the lanes whose cube root is not settled (or lies beyond the range
// of the vector root).
HWY_INLINE void xyzToLuvV(VF x, VF y, VF z, VF yr, VF& l, VF& u, VF& v, MF& sure) {
    const DF df;
    const MF cube = hn::Gt(yr, hn::Set(df, kCieEpsilon));
    sure = hn::AndNot(hn::AndNot(hn::Le(yr, hn::Set(df, kRootMax)), cube), sure);
    const VF root = rootToFloat(cubeRootV(yr), cube, sure);
    l = hn::IfThenElse(cube, hn::Sub(hn::Mul(hn::Set(df, 116.0f), root), hn::Set(df, 16.0f)),
                       hn::Mul(hn::Set(df, kLuvLinear), yr));
    const MF lit = hn::Ne(y, hn::Zero(df));
    const VF dd = hn::Add(hn::Add(x, hn::Mul(hn::Set(df, 15.0f), y)), hn::Mul(hn::Set(df, 3.0f), z));
    const VF up = hn::IfThenElseZero(lit, hn::Div(hn::Mul(hn::Set(df, 4.0f), x), dd));
    const VF vp = hn::IfThenElseZero(lit, hn::Div(hn::Mul(hn::Set(df, 9.0f), y), dd));
    const VF l13 = hn::Mul(hn::Set(df, 13.0f), l);
    u = hn::Mul(l13, hn::Sub(up, hn::Set(df, kLuvUn)));
    v = hn::Mul(l13, hn::Sub(vp, hn::Set(df, kLuvVn)));
}

// 16u, 16s: rounded codes without clamp; 32f: L, u, v as they are.
template <class T, int N>
void rgbToLuv(RowC<const T, N> s, RowC<T, N> d, int width) {
    using Pix = FloatPix<T, N>;
    const DF df;
    const std::size_t n = floatLanes();
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        VF r, g, b;
        Pix::load(s.p + N * i, r, g, b);
        const VF x = dotRowV(kRgbToXyz, 0, r, g, b), y = dotRowV(kRgbToXyz, 1, r, g, b),
                 z = dotRowV(kRgbToXyz, 2, r, g, b);
        MF sure = hn::FirstN(df, n);
        VF l, u, v;
        if constexpr (std::is_same_v<T, Zor32f>) {
            xyzToLuvV(x, y, z, y, l, u, v, sure);
            Pix::storeFloats(d.p + N * i, l, u, v);
        } else {
            const VF k = hn::Set(df, 65535.0f);
            xyzToLuvV(x, y, z, hn::Div(y, k), l, u, v, sure);
            const auto code = [&](VF value, float offset, float range) {
                return roundCodeV(hn::Div(hn::Mul(hn::Add(value, hn::Set(df, offset)), k), hn::Set(df, range)));
            };
            Pix::storeCodes(d.p + N * i, roundCodeV(hn::Div(hn::Mul(l, k), hn::Set(df, 100.0f))), code(u, 134.0f, 354.0f),
                            code(v, 140.0f, 262.0f));
        }
        if (!hn::AllTrue(df, sure)) {
            const std::uint64_t redo = maskBits(hn::Not(sure));
            for (std::size_t k = 0; k < n; ++k)
                if (redo >> k & 1) ::zor::rgbToLuv<T, N>({s.p + N * (i + k)}, {d.p + N * (i + k)}, 1);
        }
    }
    ::zor::rgbToLuv<T, N>({s.p + N * i}, {d.p + N * i}, width - static_cast<int>(i));
}

// luvToXyz on lanes.
HWY_INLINE void luvToXyzV(VF l, VF u, VF v, float scale, float un, float vn, VF& x, VF& y, VF& z) {
    const DF df;
    const VF t = hn::Div(hn::Add(l, hn::Set(df, 16.0f)), hn::Set(df, 116.0f));
    y = hn::IfThenElse(hn::Ge(l, hn::Set(df, kLuvLinearLimit)), hn::Mul(hn::Mul(t, t), t),
                       hn::Div(l, hn::Set(df, kLuvLinear)));
    y = hn::Mul(y, hn::Set(df, scale));
    const VF l13 = hn::Mul(hn::Set(df, 13.0f), l);
    const VF up = hn::Add(hn::Div(u, l13), hn::Set(df, un));
    const VF vp = hn::Add(hn::Div(v, l13), hn::Set(df, vn));
    const VF q = hn::Div(y, vp);
    x = hn::Mul(hn::Mul(hn::Set(df, 2.25f), q), up);
    z = hn::Sub(hn::Sub(hn::Mul(hn::Set(df, 3.0f), q), hn::Mul(hn::Set(df, 5.0f), y)), hn::Div(x, hn::Set(df, 3.0f)));
}

// Integer inverses: black (code 0) where L is below 9e-5.
template <class T, int N>
void luvToRgbInt(RowC<const T, N> s, RowC<T, N> d, int width) {
    using Pix = FloatPix<T, N>;
    constexpr float scale = kFullF<T>;
    const DF df;
    const DI di;
    const std::size_t n = floatLanes();
    const VF sc = hn::Set(df, scale);
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        VF lc, uc, vc;
        Pix::load(s.p + N * i, lc, uc, vc);
        const VF l = hn::Div(hn::Mul(lc, hn::Set(df, 100.0f)), sc);
        const VF u = hn::Sub(hn::Div(hn::Mul(uc, hn::Set(df, 354.0f)), sc), hn::Set(df, 134.0f));
        const VF v = hn::Sub(hn::Div(hn::Mul(vc, hn::Set(df, 262.0f)), sc), hn::Set(df, 140.0f));
        VF x, y, z;
        luvToXyzV(l, u, v, scale, kLuvUnInt, kLuvVnInt, x, y, z);
        VI r, g, b;
        xyzToRgbCodesV<true>(x, y, z, kFull<T>, r, g, b);
        const hn::Mask<DI> dark = hn::RebindMask(di, hn::Lt(l, hn::Set(df, kLuvDark)));
        Pix::storeCodes(d.p + N * i, hn::IfThenZeroElse(dark, r), hn::IfThenZeroElse(dark, g),
                        hn::IfThenZeroElse(dark, b));
    }
    ::zor::luvToRgbInt<T, N>({s.p + N * i}, {d.p + N * i}, width - static_cast<int>(i));
}

// 32f inverse: whole vectors up to the first dark pixel; from its vector on,
// the scalar kernel (which stalls there) does the rest of the row.
template <int N>
void luvToRgb32(RowC<const Zor32f, N> s, RowC<Zor32f, N> d, int width) {
    using Pix = FloatPix<Zor32f, N>;
    const DF df;
    const std::size_t n = floatLanes();
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        VF l, u, v;
        Pix::load(s.p + N * i, l, u, v);
        if (!hn::AllFalse(df, hn::Lt(l, hn::Set(df, kLuvDark)))) break;
        VF x, y, z;
        luvToXyzV(l, u, v, 1.0f, kLuvUn, kLuvVn, x, y, z);
        Pix::storeFloats(d.p + N * i, clampUnitV(dotRowV(kXyzToRgb, 0, x, y, z)),
                         clampUnitV(dotRowV(kXyzToRgb, 1, x, y, z)), clampUnitV(dotRowV(kXyzToRgb, 2, x, y, z)));
    }
    ::zor::luvToRgb32<N>({s.p + N * i}, {d.p + N * i}, width - static_cast<int>(i));
}

#endif  // HWY_TARGET != HWY_SCALAR

HWY_MAYBE_UNUSED constexpr LuvKernels kLuvVector = {ZOR_LUV_KERNELS(ZOR_KERNEL_POINTER)};

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/target_tables.h"
namespace zor {
ZOR_TARGET_TABLES(LuvKernels, kLuvVector, luvTables, kLuvScalar)
}  // namespace zor
#endif
