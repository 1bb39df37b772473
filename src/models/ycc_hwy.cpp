// Vector kernels of RGB <-> PhotoYCC, compiled once per CPU target: one
// pixel per 32-bit lane; the 8u fixed point in 32-bit lanes (no product
// leaves the int32 range: the largest is 16 * 5564 * 255), the other types
// with the scalar kernel's float operations in its order.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "models/ycc_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "models/samples_vec-inl.h"
#include "models/ycc_kernels.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {

#if HWY_TARGET != HWY_SCALAR

HWY_INLINE VI mulC(VI v, std::int32_t c) { return hn::Mul(v, i32(c)); }

template <int N>
void rgbToYcc8(RowC<const Zor8u, N> s, RowC<Zor8u, N> d, int width) {
    const auto body = [](const VI* x, VI* y) {
        const VI sum = hn::Add(hn::Add(mulC(x[0], 4898), mulC(x[1], 9617)), mulC(x[2], 1867));
        const auto chroma = [&sum](VI c, std::int32_t k, std::int32_t off) {
            return hn::Add(hn::ShiftRight<16>(mulC(hn::ShiftRight<10>(hn::Sub(mulC(c, 16384), sum)), k)), i32(off));
        };
        y[0] = hn::ShiftRight<16>(mulC(hn::ShiftRight<10>(sum), 2921));
        y[1] = chroma(x[2], 1789, 156);
        y[2] = chroma(x[0], 2178, 137);
    };
    const std::size_t i = eachVector<Zor8u>(width, Interleaved<Zor8u, N>{s, d}, body);
    ::zor::rgbToYcc8<N>(from(s, i), from(d, i), width - static_cast<int>(i));
}

// The saturation table's indices all lie within its range, so it is a clamp
// to 0..255.
template <int N>
void yccToRgb8(RowC<const Zor8u, N> s, RowC<Zor8u, N> d, int width) {
    const auto body = [](const VI* x, VI* y) {
        const auto clamp = [](VI v) { return hn::Min(hn::Max(v, hn::Zero(DI())), i32(255)); };
        const VI ty = mulC(x[0], 5564);
        const VI t1 = hn::Sub(mulC(x[1], 9084), i32(1417104));
        const VI t2 = hn::Sub(mulC(x[2], 7460), i32(1022020));
        const VI g = hn::Sub(hn::Sub(mulC(ty, 16), mulC(hn::ShiftRight<8>(t1), 794)), mulC(hn::ShiftRight<8>(t2), 2084));
        y[0] = clamp(hn::ShiftRight<12>(hn::Add(ty, t2)));
        y[1] = clamp(hn::ShiftRight<16>(g));
        y[2] = clamp(hn::ShiftRight<12>(hn::Add(ty, t1)));
    };
    const std::size_t i = eachVector<Zor8u>(width, Interleaved<Zor8u, N>{s, d}, body);
    ::zor::yccToRgb8<N>(from(s, i), from(d, i), width - static_cast<int>(i));
}

// Row k of a matrix applied to (r, g, b): (m0 r + m1 g) + m2 b.
HWY_INLINE VF dot(const Matrix3& m, int k, VF r, VF g, VF b) {
    return hn::Add(hn::Add(hn::Mul(f(m.m[k][0]), r), hn::Mul(f(m.m[k][1]), g)), hn::Mul(f(m.m[k][2]), b));
}

template <int N>
void rgbToYcc16u(RowC<const Zor16u, N> s, RowC<Zor16u, N> d, int width) {
    const auto body = [](const VI* x, VI* y) {
        const VF r = toFloat(x[0]), g = toFloat(x[1]), b = toFloat(x[2]);
        y[0] = roundCode(hn::Add(dot(kRgbToYcc16, 0, r, g, b), f(0.0f)));
        y[1] = roundCode(hn::Add(dot(kRgbToYcc16, 1, r, g, b), f(kYccOff1<Zor16u>)));
        y[2] = roundCode(hn::Add(dot(kRgbToYcc16, 2, r, g, b), f(kYccOff2<Zor16u>)));
    };
    const std::size_t i = eachVector<Zor16u>(width, Interleaved<Zor16u, N>{s, d}, body);
    ::zor::rgbToYcc16u<N>(from(s, i), from(d, i), width - static_cast<int>(i));
}

template <class T, int N>
void rgbToYccModel(RowC<const T, N> s, RowC<T, N> d, int width) {
    const auto body = [](const Lane<T>* x, Lane<T>* y) {
        const VF r = toFloat(x[0]), g = toFloat(x[1]), b = toFloat(x[2]);
        const VF yl = hn::Add(hn::Add(hn::Mul(f(0.299f), r), hn::Mul(f(0.587f), g)), hn::Mul(f(0.114f), b));
        y[0] = roundStore<T>(hn::Mul(f(0.7132668f), yl));
        y[1] = roundStore<T>(hn::Add(hn::Mul(f(0.43686f), hn::Sub(b, yl)), f(kYccOff1<T>)));
        y[2] = roundStore<T>(hn::Add(hn::Mul(f(0.53192f), hn::Sub(r, yl)), f(kYccOff2<T>)));
    };
    const std::size_t i = eachVector<T>(width, Interleaved<T, N>{s, d}, body);
    ::zor::rgbToYccModel<T, N>(from(s, i), from(d, i), width - static_cast<int>(i));
}

template <class T, int N>
void yccToRgb(RowC<const T, N> s, RowC<T, N> d, int width) {
    const auto body = [](const Lane<T>* x, Lane<T>* y) {
        const VF l = hn::Mul(f(1.3584f), toFloat(x[0]));
        const VF d1 = hn::Mul(f(2.2179f), hn::Sub(toFloat(x[1]), f(kYccOff1<T>)));
        const VF d2 = hn::Mul(f(1.8215f), hn::Sub(toFloat(x[2]), f(kYccOff2<T>)));
        y[0] = saturateStore<T>(hn::Add(l, d2));
        y[1] = saturateStore<T>(hn::Sub(hn::Sub(l, hn::Mul(f(0.194f), d1)), hn::Mul(f(0.509f), d2)));
        y[2] = saturateStore<T>(hn::Add(l, d1));
    };
    const std::size_t i = eachVector<T>(width, Interleaved<T, N>{s, d}, body);
    ::zor::yccToRgb<T, N>(from(s, i), from(d, i), width - static_cast<int>(i));
}

#endif  // HWY_TARGET != HWY_SCALAR

HWY_MAYBE_UNUSED constexpr YccKernels kYccVector = {ZOR_YCC_KERNELS(ZOR_KERNEL_POINTER)};

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/target_tables.h"
namespace zor {
ZOR_TARGET_TABLES(YccKernels, kYccVector, yccTables, kYccScalar)
}  // namespace zor
#endif
