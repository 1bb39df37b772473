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

// labF: the root above the threshold, the linear segment up to it.
HWY_INLINE VF labFV(VF t, MF cube, VF root) {
    const DF df;
    return hn::IfThenElse(cube, root, hn::Add(hn::Mul(hn::Set(df, kLabSlope), t), hn::Set(df, kLabOffset)));
}

// The 8u codes before truncation: L*255/100 + 0.5, a + 128.5, b + 128.5.
HWY_INLINE void labValues8(VF y, MF cubeY, VF fx, VF fy, VF fz, VF& l, VF& a, VF& b) {
    const DF df;
    const VF lin = hn::Mul(hn::Set(df, kLabLinearL), y);
    const VF ll = hn::IfThenElse(cubeY, hn::Sub(hn::Mul(hn::Set(df, 116.0f), fy), hn::Set(df, 16.0f)), lin);
    l = hn::Add(hn::Div(hn::Mul(ll, hn::Set(df, 255.0f)), hn::Set(df, 100.0f)), hn::Set(df, 0.5f));
    a = hn::Add(hn::Mul(hn::Set(df, 500.0f), hn::Sub(fx, fy)), hn::Set(df, 128.5f));
    b = hn::Add(hn::Mul(hn::Set(df, 200.0f), hn::Sub(fy, fz)), hn::Set(df, 128.5f));
}

// Whether a value lies within `margin` of an integer (its truncation
// boundary).
HWY_INLINE MF nearInteger(VF v, float margin) {
    return hn::Le(hn::Abs(hn::Sub(v, hn::Round(v))), hn::Set(DF(), margin));
}

// Float cube roots of the 8u ratios (below 2; those below 2^-7 take the
// linear segment): t^(-1/3) from a table of 128 steps per octave (within
// 1.3e-3), one second-order step y (1 + r/3 + 2r^2/9) with r = 1 - t y^3,
// and g = t y^2. Within kRootFloatTol of the exact powers, as the general
// float root (3.0e-7 at most over every float from 2^-7 to 2).
struct RootSeeds {
    float v[8 * 128];
    RootSeeds() {
        for (int i = 0; i < 8 * 128; ++i)
            v[i] = static_cast<float>(std::pow(std::ldexp(1.0 + (i % 128 + 0.5) / 128.0, i / 128 - 7), -1.0 / 3.0));
    }
};

HWY_INLINE VF labRootF(VF t) {
    static const RootSeeds seeds;
    const DF df;
    const DI di;
    const VI idx = hn::Sub(hn::ShiftRight<16>(hn::BitCast(di, t)), hn::Set(di, (127 - 7) << 7));
    const VF y0 = hn::GatherIndex(df, seeds.v, hn::Min(hn::Max(idx, hn::Zero(di)), hn::Set(di, 8 * 128 - 1)));
    const VF r = hn::Sub(hn::Set(df, 1.0f), hn::Mul(t, hn::Mul(hn::Mul(y0, y0), y0)));
    const VF y = hn::Add(y0, hn::Mul(y0, hn::Mul(r, hn::Add(hn::Set(df, 1.0f / 3.0f), hn::Mul(r, hn::Set(df, 2.0f / 9.0f))))));
    return hn::Mul(hn::Mul(t, y), y);
}

// 8u codes first in float without a division: X, Y, Z by reciprocals
// (within 1.2e-7 of the quotients), L * 2.55, and the float roots, each
// within kRootFloatTol of its exact float (at most 1.0001 here). With that
// L, a and b lie within 2.2e-4, 7.7e-4 and 3.5e-4 of the exact values (the
// roots' error times 116 * 2.55, 1000 and 400, plus the differing roundings);
// a ratio beside the threshold that lands on the other side of it adds 3.2e-7
// to its root (the two branches differ by that at the threshold), and
// 8.7e-5, 1.6e-4 and 6.4e-5 to L, a and b. A vector with every value farther than
// 4e-4, 1.2e-3 and 6e-4 from an integer has its codes. The rest
// (about one vector in 15), and the 16u codes, take the true quotients and
// the double roots.
HWY_INLINE bool labFast8(VF b, VF g, VF r, VI& l, VI& a, VI& bb) {
    const DF df;
    const DI di;
    const VF eps = hn::Set(df, kCieEpsilon);
    const VF x = hn::Mul(dotBgrV(0, b, g, r), hn::Set(df, 1.0f / kLabXn));
    const VF y = hn::Mul(dotBgrV(1, b, g, r), hn::Set(df, 1.0f / kLabYn));
    const VF z = hn::Mul(dotBgrV(2, b, g, r), hn::Set(df, 1.0f / kLabZn));
    const MF cubeY = hn::Gt(y, eps);
    const VF fy = labFV(y, cubeY, labRootF(y));
    const VF ll = hn::IfThenElse(cubeY, hn::Sub(hn::Mul(hn::Set(df, 116.0f), fy), hn::Set(df, 16.0f)),
                                 hn::Mul(hn::Set(df, kLabLinearL), y));
    const VF lv = hn::Add(hn::Mul(ll, hn::Set(df, 2.55f)), hn::Set(df, 0.5f));
    const VF av = hn::Add(hn::Mul(hn::Set(df, 500.0f), hn::Sub(labFV(x, hn::Gt(x, eps), labRootF(x)), fy)),
                          hn::Set(df, 128.5f));
    const VF bv = hn::Add(hn::Mul(hn::Set(df, 200.0f), hn::Sub(fy, labFV(z, hn::Gt(z, eps), labRootF(z)))),
                          hn::Set(df, 128.5f));
    const MF near = hn::Or(hn::Or(nearInteger(lv, 4e-4f), nearInteger(av, 1.2e-3f)), nearInteger(bv, 6e-4f));
    if (!hn::AllFalse(df, near)) return false;
    l = hn::ConvertTo(di, lv);
    a = hn::ConvertTo(di, av);
    bb = hn::ConvertTo(di, bv);
    return true;
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
        if constexpr (sizeof(D) == 1) {
            VI l, a, bb;
            if (labFast8(b, g, r, l, a, bb)) {
                FloatPix<D, 3>::storeCodes(d.p + 3 * i, l, a, bb);
                continue;
            }
        }
        const VF x = hn::Div(dotBgrV(0, b, g, r), hn::Set(df, kLabXn));
        const VF y = hn::Div(dotBgrV(1, b, g, r), hn::Set(df, kLabYn));
        const VF z = hn::Div(dotBgrV(2, b, g, r), hn::Set(df, kLabZn));
        const MF cubeX = hn::Gt(x, eps), cubeY = hn::Gt(y, eps), cubeZ = hn::Gt(z, eps);
        const RootF rx = cubeRootF(x), ry = cubeRootF(y), rz = cubeRootF(z);
        MF sure = hn::FirstN(df, n);
        const RootV rootY = cubeRootV(ry);
        const VF fx = labFV(x, cubeX, rootToFloat(cubeRootV(rx), cubeX, sure));
        const VF fy = labFV(y, cubeY, rootToFloat(rootY, cubeY, sure));
        const VF fz = labFV(z, cubeZ, rootToFloat(cubeRootV(rz), cubeZ, sure));
        if constexpr (sizeof(D) == 1) {
            VF lv, av, bv;
            labValues8(y, cubeY, fx, fy, fz, lv, av, bv);
            FloatPix<D, 3>::storeCodes(d.p + 3 * i, hn::ConvertTo(di, lv), hn::ConvertTo(di, av), hn::ConvertTo(di, bv));
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
            const VF linL = hn::Mul(hn::Set(df, kLabLinearL), y);
            const VI lcLin = hn::Combine(di, lcode(upperD(linL)), lcode(lowerD(linL)));
            const VI lcLow = codes(1.0 - kRootTol), lcHigh = codes(1.0 + kRootTol);
            const hn::Mask<DI> cubeI = hn::RebindMask(di, cubeY);
            sure = hn::AndNot(hn::RebindMask(df, hn::AndNot(hn::Eq(lcLow, lcHigh), cubeI)), sure);
            const VF k = hn::Set(df, 255.0f), off = hn::Set(df, 128.0f);
            const VF a = hn::Mul(hn::Set(df, 500.0f), hn::Sub(fx, fy));
            const VF bb = hn::Mul(hn::Set(df, 200.0f), hn::Sub(fy, fz));
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
