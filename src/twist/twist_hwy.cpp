// Vector kernels of the colour twist, compiled once per CPU target. Every
// kernel computes exactly what its scalar kernel (twist/twist_kernels.h)
// computes: one float lane per pixel, the same products and sums in the same
// order (multiplies and adds, never fused), and the same conversion of the
// result.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "twist/twist_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "twist/twist_kernels.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// The scalar target of Highway keeps the scalar kernels (found in zor::).
#if HWY_TARGET != HWY_SCALAR

using DF = hn::ScalableTag<float>;
using VF = hn::Vec<DF>;
using DI = hn::RebindToSigned<DF>;

// The three colour samples of pixels i .. i + Lanes(dt) - 1 (d: the
// destination's own fourth sample, kept).
template <class L>
struct Lanes3;

template <>
struct Lanes3<Interleaved<3>> {
    template <class D, class T>
    static void load(D dt, RowC<T, 3> r, std::size_t i, hn::Vec<D>& a, hn::Vec<D>& b, hn::Vec<D>& c) {
        hn::LoadInterleaved3(dt, r.p + 3 * i, a, b, c);
    }
    template <class D, class T>
    static void store(D dt, RowC<T, 3> r, std::size_t i, hn::Vec<D> a, hn::Vec<D> b, hn::Vec<D> c) {
        hn::StoreInterleaved3(a, b, c, dt, r.p + 3 * i);
    }
};

template <>
struct Lanes3<Interleaved<4>> {
    template <class D, class T>
    static void load(D dt, RowC<T, 4> r, std::size_t i, hn::Vec<D>& a, hn::Vec<D>& b, hn::Vec<D>& c) {
        hn::Vec<D> ignored;
        hn::LoadInterleaved4(dt, r.p + 4 * i, a, b, c, ignored);
    }
    template <class D, class T>
    static void store(D dt, RowC<T, 4> r, std::size_t i, hn::Vec<D> a, hn::Vec<D> b, hn::Vec<D> c) {
        hn::Vec<D> x, y, z, alpha;
        hn::LoadInterleaved4(dt, r.p + 4 * i, x, y, z, alpha);
        hn::StoreInterleaved4(a, b, c, alpha, dt, r.p + 4 * i);
    }
};

template <>
struct Lanes3<Planar> {
    template <class D, class T>
    static void load(D dt, Row3<T> r, std::size_t i, hn::Vec<D>& a, hn::Vec<D>& b, hn::Vec<D>& c) {
        a = hn::LoadU(dt, r.p[0] + i);
        b = hn::LoadU(dt, r.p[1] + i);
        c = hn::LoadU(dt, r.p[2] + i);
    }
    template <class D, class T>
    static void store(D dt, Row3<T> r, std::size_t i, hn::Vec<D> a, hn::Vec<D> b, hn::Vec<D> c) {
        hn::StoreU(a, dt, r.p[0] + i);
        hn::StoreU(b, dt, r.p[1] + i);
        hn::StoreU(c, dt, r.p[2] + i);
    }
};

// Samples of T (as many as float lanes) to float and back. An integer result
// is the nearest integer with ties to even (the processor's conversion in its
// default rounding mode, as the scalar kernel's 1.5 * 2^23 does), saturated
// to T by the narrowing; Max first turns NaN into the bottom of the range
// (maxps and Arm's maxnm return the second operand when the first is NaN),
// where the conversion would give INT_MAX for a positive NaN.
template <class T, class DT>
HWY_INLINE VF toFloat(DT, hn::Vec<DT> v) {
    if constexpr (std::is_same_v<T, Zor32f>)
        return v;
    else
        return hn::ConvertTo(DF(), hn::PromoteTo(DI(), v));
}

template <class T, class DT>
HWY_INLINE hn::Vec<DT> fromFloat(DT dt, VF y) {
    if constexpr (std::is_same_v<T, Zor32f>) {
        return y;
    } else {
        const VF lo = hn::Set(DF(), static_cast<float>(std::numeric_limits<T>::min()));
        return hn::DemoteTo(dt, hn::NearestInt(hn::Max(y, lo)));
    }
}

// One output channel: ((t0 x0 + t3) + t1 x1) + t2 x2.
HWY_INLINE VF channel(const VF* t, VF x0, VF x1, VF x2) {
    return hn::Add(hn::Add(hn::Add(hn::Mul(t[0], x0), t[3]), hn::Mul(t[1], x1)), hn::Mul(t[2], x2));
}

template <class L, class T>
void innerColorTwist(RowOf<L, const T> s, RowOf<L, T> d, int width, Matrix<3> m) {
    const DF df;
    const hn::Rebind<T, DF> dt;
    const std::size_t n = hn::Lanes(df);
    VF t[3][4];
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 4; ++c) t[r][c] = hn::Set(df, m.t[r][c]);
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        hn::Vec<decltype(dt)> a, b, c;
        Lanes3<L>::load(dt, s, i, a, b, c);
        const VF x0 = toFloat<T>(dt, a), x1 = toFloat<T>(dt, b), x2 = toFloat<T>(dt, c);
        const VF y0 = channel(t[0], x0, x1, x2), y1 = channel(t[1], x0, x1, x2), y2 = channel(t[2], x0, x1, x2);
        Lanes3<L>::store(dt, d, i, fromFloat<T>(dt, y0), fromFloat<T>(dt, y1), fromFloat<T>(dt, y2));
    }
    ::zor::innerColorTwist<L, T>(L::advance(s, i), L::advance(d, i), width - static_cast<int>(i), m);
}

// Four float channels: ((t0 x0 + t1 x1) + t2 x2) + t3 x3.
template <class T>
void innerColorTwist4(RowC<const T, 4> s, RowC<T, 4> d, int width, Matrix<4> m) {
    const DF df;
    const std::size_t n = hn::Lanes(df);
    VF t[4][4];
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) t[r][c] = hn::Set(df, m.t[r][c]);
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        VF x[4], y[4];
        hn::LoadInterleaved4(df, s.p + 4 * i, x[0], x[1], x[2], x[3]);
        for (int c = 0; c < 4; ++c)
            y[c] = hn::Add(hn::Add(hn::Add(hn::Mul(t[c][0], x[0]), hn::Mul(t[c][1], x[1])), hn::Mul(t[c][2], x[2])),
                           hn::Mul(t[c][3], x[3]));
        hn::StoreInterleaved4(y[0], y[1], y[2], y[3], df, d.p + 4 * i);
    }
    ::zor::innerColorTwist4<T>({s.p + 4 * i}, {d.p + 4 * i}, width - static_cast<int>(i), m);
}

#endif  // HWY_TARGET != HWY_SCALAR

// ---------------------------------------------------------------------------

HWY_MAYBE_UNUSED constexpr TwistKernels kTwistVector = {ZOR_TWIST_KERNELS(ZOR_KERNEL_POINTER)};

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/target_tables.h"
namespace zor {
ZOR_TARGET_TABLES(TwistKernels, kTwistVector, twistTables, kTwistScalar)
}  // namespace zor
#endif
