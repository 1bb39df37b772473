// Vector kernels of RGB <-> HSV, compiled once per CPU target: one pixel per
// 32-bit lane, the scalar kernel's float operations in its order, the hue
// cases and sextants chosen by selects instead of branches.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "models/hsv_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "models/hsv_kernels.h"
#include "models/samples_vec-inl.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {

#if HWY_TARGET != HWY_SCALAR

// Forward. Every case is written as (base - a / d) + b / d with 1 / d
// multiplied: blue 4 - (max - R) / d + (max - G) / d, green (2 - 0) +
// (B - R) / d, red (0 - 0) + (G - B) / d; subtracting and adding an exact
// zero leaves the other operand as it is.
template <class T, int N>
void rgbToHsv(RowC<const T, N> src, RowC<T, N> dst, int width) {
    const auto body = [](const VI* x, VI* y) {
        const VI r = x[0], g = x[1], b = x[2];
        const VI mx = hn::Max(hn::Max(r, g), b), mn = hn::Min(hn::Min(r, g), b);
        const MI chroma = hn::Not(hn::Eq(mx, mn));
        const VF delta = toFloat(hn::Sub(mx, mn));
        const VI sCode = roundCode(hn::Mul(hn::Div(delta, toFloat(mx)), f(kFullF<T>)));
        const VF inv = hn::Div(f(1.0f), delta);
        const MI blue = hn::Eq(b, mx), green = hn::AndNot(blue, hn::Eq(g, mx));
        const VI a = hn::IfThenElseZero(blue, hn::Sub(mx, r));
        const VI c = pick(blue, hn::Sub(mx, g), pick(green, hn::Sub(b, r), hn::Sub(g, b)));
        const VI base = pick(blue, i32(4), pick(green, i32(2), hn::Zero(DI())));
        VF h = hn::Add(hn::Sub(toFloat(base), hn::Mul(toFloat(a), inv)), hn::Mul(toFloat(c), inv));
        VF code;
        if constexpr (sizeof(T) == 1) {
            code = hn::Div(hn::Mul(h, f(kFullF<T>)), f(6.0f));
            code = pick(hn::Lt(code, f(0.0f)), hn::Add(code, f(255.0f)), code);
        } else {
            h = pick(hn::Lt(hn::Add(h, f(kFltEpsilon)), f(0.0f)), hn::Add(h, f(6.0f)), h);
            code = hn::Div(hn::Mul(h, f(kFullF<T>)), f(6.0f));
        }
        y[0] = hn::IfThenElseZero(chroma, roundCode(code));
        y[1] = hn::IfThenElseZero(chroma, sCode);
        y[2] = mx;
    };
    const std::size_t i = eachVector<T>(width, Interleaved<T, N>{src, dst}, body);
    ::zor::rgbToHsv<T, N>(from(src, i), from(dst, i), width - static_cast<int>(i));
}

// Inverse: the sextant k picks each output among v, p, q, t (k = 5 and
// anything above it as the scalar kernel's default case).
template <class T, int N>
void hsvToRgb(RowC<const T, N> src, RowC<T, N> dst, int width) {
    const auto body = [](const VI* x, VI* y) {
        const VI hCode = x[0], sCode = x[1], vCode = x[2];
        const VF v = toFloat(vCode);
        const VF sat = CodeRatio<kFull<T>, 1>::of(toFloat(sCode));
        const VF sext = hn::Div(CodeRatio<kFull<T>, 360>::of(toFloat(hCode)), f(60.0f));
        const VF hh = hn::IfThenZeroElse(hn::RebindMask(DF(), hn::Eq(hCode, i32(kFull<T>))), sext);
        const VI k = hn::ConvertTo(DI(), hh);
        const VF fr = hn::Sub(hh, toFloat(k));
        const VF one = f(1.0f);
        const VF p = hn::Mul(hn::Sub(one, sat), v);
        const VF q = hn::Mul(hn::Sub(one, hn::Mul(sat, fr)), v);
        const VF t = hn::Mul(hn::Sub(one, hn::Mul(sat, hn::Sub(one, fr))), v);
        const auto is = [&k](int s) { return hn::RebindMask(DF(), hn::Eq(k, i32(s))); };
        const MF k0 = is(0), k1 = is(1), k2 = is(2), k3 = is(3), k4 = is(4);
        const VF r = pick(k1, q, pick(hn::Or(k2, k3), p, pick(k4, t, v)));
        const VF g = pick(k0, t, pick(hn::Or(k1, k2), v, pick(k3, q, p)));
        const VF b = pick(hn::Or(k0, k1), p, pick(k2, t, pick(hn::Or(k3, k4), v, q)));
        const MI gray = hn::Eq(sCode, hn::Zero(DI()));
        y[0] = pick(gray, vCode, roundCode(r));
        y[1] = pick(gray, vCode, roundCode(g));
        y[2] = pick(gray, vCode, roundCode(b));
    };
    const std::size_t i = eachVector<T>(width, Interleaved<T, N>{src, dst}, body);
    ::zor::hsvToRgb<T, N>(from(src, i), from(dst, i), width - static_cast<int>(i));
}

#endif  // HWY_TARGET != HWY_SCALAR

HWY_MAYBE_UNUSED constexpr HsvKernels kHsvVector = {ZOR_HSV_KERNELS(ZOR_KERNEL_POINTER)};

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/target_tables.h"
namespace zor {
ZOR_TARGET_TABLES(HsvKernels, kHsvVector, hsvTables, kHsvScalar)
}  // namespace zor
#endif
