// Vector kernels of BGR <-> CIE L*a*b*, compiled once per CPU target. Every
// kernel computes exactly what its scalar kernel (models/lab_kernels.h)
// computes: the same float operations in the same order, the cube roots
// checked against their narrowing (models/xyz-inl.h) with the scalar kernel
// for the pixels too close to call.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "models/lab_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "models/lab_kernels.h"
#include "models/xyz-inl.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET != HWY_SCALAR

// Row r of a matrix on a BGR pixel, summed from blue to red.
HWY_INLINE VF dotBgrV(int r, VF b, VF g, VF rr) {
    const DF df;
    return hn::Add(hn::Add(hn::Mul(hn::Set(df, kRgbToXyz.m[r][2]), b), hn::Mul(hn::Set(df, kRgbToXyz.m[r][1]), g)),
                   hn::Mul(hn::Set(df, kRgbToXyz.m[r][0]), rr));
}

// labF: the float cube root above the threshold, the linear segment up to it.
HWY_INLINE VF labFV(VF t, MF cube, const RootV& root, MF& sure) {
    const DF df;
    const VF lin = hn::Add(hn::Mul(hn::Set(df, kLabSlope), t), hn::Set(df, kLabOffset));
    return hn::IfThenElse(cube, rootToFloat(root, cube, sure), lin);
}

template <class D>
void bgrToLab(RowC<const Zor8u, 3> s, RowC<D, 3> d, int width) {
    const DF df;
    const DI di;
    const std::size_t n = floatLanes();
    const VF eps = hn::Set(df, kCieEpsilon);
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        VF b, g, r;
        FloatPix<Zor8u, 3>::load(s.p + 3 * i, b, g, r);
        const VF x = hn::Div(dotBgrV(0, b, g, r), hn::Set(df, kLabXn));
        const VF y = hn::Div(dotBgrV(1, b, g, r), hn::Set(df, kLabYn));
        const VF z = hn::Div(dotBgrV(2, b, g, r), hn::Set(df, kLabZn));
        const MF cubeY = hn::Gt(y, eps);
        MF sure = hn::FirstN(df, n);
        const RootV rootY = cubeRootV(y);
        const VF fx = labFV(x, hn::Gt(x, eps), cubeRootV(x), sure);
        const VF fy = labFV(y, cubeY, rootY, sure);
        const VF fz = labFV(z, hn::Gt(z, eps), cubeRootV(z), sure);
        const VF a = hn::Mul(hn::Set(df, 500.0f), hn::Sub(fx, fy));
        const VF bb = hn::Mul(hn::Set(df, 200.0f), hn::Sub(fy, fz));
        const VF linL = hn::Mul(hn::Set(df, kLabLinearL), y);
        if constexpr (sizeof(D) == 1) {
            const VF l = hn::IfThenElse(cubeY, hn::Sub(hn::Mul(hn::Set(df, 116.0f), fy), hn::Set(df, 16.0f)), linL);
            const VF lc = hn::Add(hn::Div(hn::Mul(l, hn::Set(df, 255.0f)), hn::Set(df, 100.0f)), hn::Set(df, 0.5f));
            FloatPix<D, 3>::storeCodes(d.p + 3 * i, hn::ConvertTo(di, lc),
                                       hn::ConvertTo(di, hn::Add(a, hn::Set(df, 128.5f))),
                                       hn::ConvertTo(di, hn::Add(bb, hn::Set(df, 128.5f))));
        } else {
            // L in double from the double root: both ends of its interval
            // must give the same code.
            const DD dd;
            const hn::Rebind<std::int32_t, DD> di32;
            const auto lcode = [&](VD l) {
                return hn::DemoteTo(di32, hn::Div(hn::Mul(l, hn::Set(dd, 65535.0)), hn::Set(dd, 100.0)));
            };
            const auto codes = [&](double scale) {
                const auto l = [&](VD root) {
                    return hn::Sub(hn::Mul(hn::Set(dd, 116.0), hn::Mul(root, hn::Set(dd, scale))), hn::Set(dd, 16.0));
                };
                return hn::Combine(di, lcode(l(rootY.hi)), lcode(l(rootY.lo)));
            };
            const VI lcLin = hn::Combine(di, lcode(upperD(linL)), lcode(lowerD(linL)));
            const VI lcLow = codes(1.0 - kRootTol), lcHigh = codes(1.0 + kRootTol);
            const hn::Mask<DI> cubeI = hn::RebindMask(di, cubeY);
            sure = hn::AndNot(hn::RebindMask(df, hn::AndNot(hn::Eq(lcLow, lcHigh), cubeI)), sure);
            const VF k = hn::Set(df, 255.0f), off = hn::Set(df, 128.0f);
            FloatPix<D, 3>::storeCodes(d.p + 3 * i, hn::IfThenElse(cubeI, codes(1.0), lcLin),
                                       hn::ConvertTo(di, hn::Mul(hn::Add(a, off), k)),
                                       hn::ConvertTo(di, hn::Mul(hn::Add(bb, off), k)));
        }
        if (!hn::AllTrue(df, sure)) {
            const std::uint64_t redo = maskBits(hn::Not(sure));
            for (std::size_t k = 0; k < n; ++k)
                if (redo >> k & 1) ::zor::bgrToLab<D>({s.p + 3 * (i + k)}, {d.p + 3 * (i + k)}, 1);
        }
    }
    ::zor::bgrToLab<D>({s.p + 3 * i}, {d.p + 3 * i}, width - static_cast<int>(i));
}

// Inverse. The 8u rounding, float widened to double + 0.5 and truncated, is
// done exactly in float: the integer part plus one where the fraction is at
// least one half (both exact). Values are first held to -1..256, which the
// byte clamp cannot tell from the values beyond.
template <class S>
void labToBgr(RowC<const S, 3> s, RowC<Zor8u, 3> d, int width) {
    const DF df;
    const DI di;
    const std::size_t n = floatLanes();
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        VF lc, ac, bc;
        FloatPix<S, 3>::load(s.p + 3 * i, lc, ac, bc);
        VF fy, fx, fz;
        const VF k16 = hn::Set(df, 16.0f), k116 = hn::Set(df, 116.0f), k500 = hn::Set(df, 500.0f),
                 k200 = hn::Set(df, 200.0f), k128 = hn::Set(df, 128.0f), k100 = hn::Set(df, 100.0f);
        if constexpr (sizeof(S) == 1) {
            fy = hn::Div(hn::Add(hn::Div(hn::Mul(lc, k100), hn::Set(df, 255.0f)), k16), k116);
            fx = hn::Add(hn::Div(hn::Sub(ac, k128), k500), fy);
            fz = hn::Sub(fy, hn::Div(hn::Sub(bc, k128), k200));
        } else {
            const VF k255 = hn::Set(df, 255.0f);
            fy = hn::Div(hn::Add(hn::Div(hn::Mul(lc, k100), hn::Set(df, 65535.0f)), k16), k116);
            fx = hn::Add(hn::Div(hn::Sub(hn::Div(ac, k255), k128), k500), fy);
            fz = hn::Sub(fy, hn::Div(hn::Sub(hn::Div(bc, k255), k128), k200));
        }
        const VF x = hn::Mul(hn::Set(df, kLabXn), hn::Mul(hn::Mul(fx, fx), fx));
        const VF y = hn::Mul(hn::Set(df, kLabYn), hn::Mul(hn::Mul(fy, fy), fy));
        const VF z = hn::Mul(hn::Set(df, kLabZn), hn::Mul(hn::Mul(fz, fz), fz));
        VI c[3];
        for (int k = 0; k < 3; ++k) {
            const VF v = hn::Min(hn::Max(dotRowV(kXyzToRgb, k, x, y, z), hn::Set(df, -1.0f)), hn::Set(df, 256.0f));
            VI t = hn::ConvertTo(di, v);
            if constexpr (sizeof(S) == 1) {
                const VF frac = hn::Sub(v, hn::ConvertTo(df, t));
                t = hn::Sub(t, hn::VecFromMask(di, hn::RebindMask(di, hn::Ge(frac, hn::Set(df, 0.5f)))));
            }
            c[k] = hn::Min(hn::Max(t, hn::Zero(di)), hn::Set(di, 255));
        }
        FloatPix<Zor8u, 3>::storeCodes(d.p + 3 * i, c[2], c[1], c[0]);
    }
    ::zor::labToBgr<S>({s.p + 3 * i}, {d.p + 3 * i}, width - static_cast<int>(i));
}

#endif  // HWY_TARGET != HWY_SCALAR

HWY_MAYBE_UNUSED constexpr LabKernels kLabVector = {ZOR_LAB_KERNELS(ZOR_KERNEL_POINTER)};

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/target_tables.h"
namespace zor {
ZOR_TARGET_TABLES(LabKernels, kLabVector, labTables, kLabScalar)
}  // namespace zor
#endif
