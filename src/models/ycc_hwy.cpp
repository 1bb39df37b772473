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
    const std::size_t n = hn::Lanes(DF());
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        VS<Zor8u> a, b, c;
        loadPixels(s, i, a, b, c);
        const VI r = toInt<Zor8u>(a), g = toInt<Zor8u>(b), bl = toInt<Zor8u>(c);
        const VI sum = hn::Add(hn::Add(mulC(r, 4898), mulC(g, 9617)), mulC(bl, 1867));
        const VI y = hn::ShiftRight<16>(mulC(hn::ShiftRight<10>(sum), 2921));
        const auto chroma = [&sum](VI x, std::int32_t k, std::int32_t off) {
            return hn::Add(hn::ShiftRight<16>(mulC(hn::ShiftRight<10>(hn::Sub(mulC(x, 16384), sum)), k)), i32(off));
        };
        storePixels(d, i, fromCode<Zor8u>(y), fromCode<Zor8u>(chroma(bl, 1789, 156)),
                    fromCode<Zor8u>(chroma(r, 2178, 137)));
    }
    ::zor::rgbToYcc8<N>(from(s, i), from(d, i), width - static_cast<int>(i));
}

// The saturation table's indices all lie within its range, so it is a clamp
// to 0..255.
template <int N>
void yccToRgb8(RowC<const Zor8u, N> s, RowC<Zor8u, N> d, int width) {
    const std::size_t n = hn::Lanes(DF());
    const auto clamp = [](VI v) { return fromCode<Zor8u>(hn::Min(hn::Max(v, hn::Zero(DI())), i32(255))); };
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        VS<Zor8u> a, b, c;
        loadPixels(s, i, a, b, c);
        const VI ty = mulC(toInt<Zor8u>(a), 5564);
        const VI t1 = hn::Sub(mulC(toInt<Zor8u>(b), 9084), i32(1417104));
        const VI t2 = hn::Sub(mulC(toInt<Zor8u>(c), 7460), i32(1022020));
        const VI g = hn::Sub(hn::Sub(mulC(ty, 16), mulC(hn::ShiftRight<8>(t1), 794)), mulC(hn::ShiftRight<8>(t2), 2084));
        storePixels(d, i, clamp(hn::ShiftRight<12>(hn::Add(ty, t2))), clamp(hn::ShiftRight<16>(g)),
                    clamp(hn::ShiftRight<12>(hn::Add(ty, t1))));
    }
    ::zor::yccToRgb8<N>(from(s, i), from(d, i), width - static_cast<int>(i));
}

// Row k of a matrix applied to (r, g, b): (m0 r + m1 g) + m2 b.
HWY_INLINE VF dot(const Matrix3& m, int k, VF r, VF g, VF b) {
    return hn::Add(hn::Add(hn::Mul(f(m.m[k][0]), r), hn::Mul(f(m.m[k][1]), g)), hn::Mul(f(m.m[k][2]), b));
}

template <int N>
void rgbToYcc16u(RowC<const Zor16u, N> s, RowC<Zor16u, N> d, int width) {
    const std::size_t n = hn::Lanes(DF());
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        VS<Zor16u> a, b, c;
        loadPixels(s, i, a, b, c);
        const VF r = toFloat<Zor16u>(a), g = toFloat<Zor16u>(b), bl = toFloat<Zor16u>(c);
        storePixels(d, i, roundStore<Zor16u>(hn::Add(dot(kRgbToYcc16, 0, r, g, bl), f(0.0f))),
                    roundStore<Zor16u>(hn::Add(dot(kRgbToYcc16, 1, r, g, bl), f(kYccOff1<Zor16u>))),
                    roundStore<Zor16u>(hn::Add(dot(kRgbToYcc16, 2, r, g, bl), f(kYccOff2<Zor16u>))));
    }
    ::zor::rgbToYcc16u<N>(from(s, i), from(d, i), width - static_cast<int>(i));
}

template <class T, int N>
void rgbToYccModel(RowC<const T, N> s, RowC<T, N> d, int width) {
    const std::size_t n = hn::Lanes(DF());
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        VS<T> a, b, c;
        loadPixels(s, i, a, b, c);
        const VF r = toFloat<T>(a), g = toFloat<T>(b), bl = toFloat<T>(c);
        const VF yl = hn::Add(hn::Add(hn::Mul(f(0.299f), r), hn::Mul(f(0.587f), g)), hn::Mul(f(0.114f), bl));
        storePixels(d, i, roundStore<T>(hn::Mul(f(0.7132668f), yl)),
                    roundStore<T>(hn::Add(hn::Mul(f(0.43686f), hn::Sub(bl, yl)), f(kYccOff1<T>))),
                    roundStore<T>(hn::Add(hn::Mul(f(0.53192f), hn::Sub(r, yl)), f(kYccOff2<T>))));
    }
    ::zor::rgbToYccModel<T, N>(from(s, i), from(d, i), width - static_cast<int>(i));
}

template <class T, int N>
void yccToRgb(RowC<const T, N> s, RowC<T, N> d, int width) {
    const std::size_t n = hn::Lanes(DF());
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        VS<T> a, b, c;
        loadPixels(s, i, a, b, c);
        const VF l = hn::Mul(f(1.3584f), toFloat<T>(a));
        const VF d1 = hn::Mul(f(2.2179f), hn::Sub(toFloat<T>(b), f(kYccOff1<T>)));
        const VF d2 = hn::Mul(f(1.8215f), hn::Sub(toFloat<T>(c), f(kYccOff2<T>)));
        const VF g = hn::Sub(hn::Sub(l, hn::Mul(f(0.194f), d1)), hn::Mul(f(0.509f), d2));
        storePixels(d, i, saturateStore<T>(hn::Add(l, d2)), saturateStore<T>(g), saturateStore<T>(hn::Add(l, d1)));
    }
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
