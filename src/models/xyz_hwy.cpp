// Vector kernels of RGB <-> CIE XYZ, compiled once per CPU target. Every
// kernel computes exactly what its scalar kernel (models/xyz_kernels.h)
// computes: the 16.16 sums in 32-bit lanes (they stay below 2^26 in
// magnitude), the float rows in the same order of operations.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "models/xyz_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "models/xyz_kernels.h"
#include "models/xyz-inl.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET != HWY_SCALAR

// One 16.16 row of 8-bit samples in 32-bit lanes, shifted arithmetically.
HWY_INLINE VI fixedRowV(const std::int32_t (&row)[3], VI a, VI b, VI c) {
    const DI di;
    const VI sum = hn::Add(hn::Add(hn::Mul(hn::Set(di, row[0]), a), hn::Mul(hn::Set(di, row[1]), b)),
                           hn::Mul(hn::Set(di, row[2]), c));
    return hn::ShiftRight<16>(sum);
}

// 8u: the samples in 32-bit lanes, three 16.16 rows, then X and Y as they are
// (below 255), Z to 255 at most (forward) or each row to 0..255 (inverse).
template <bool kForward, int N>
HWY_INLINE void fixed8(RowC<const Zor8u, N> s, RowC<Zor8u, N> d, int width) {
    using Pix = FloatPix<Zor8u, N>;
    const DI di;
    const std::size_t n = floatLanes();
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        hn::Vec<typename Pix::DT> x, y, z;
        Pix::loadRaw(typename Pix::DT(), s.p + N * i, x, y, z);
        const VI a = hn::PromoteTo(di, x), b = hn::PromoteTo(di, y), c = hn::PromoteTo(di, z);
        const VI top = hn::Set(di, 255);
        if constexpr (kForward) {
            Pix::storeCodes(d.p + N * i, fixedRowV(kRgbToXyz8[0], a, b, c), fixedRowV(kRgbToXyz8[1], a, b, c),
                            hn::Min(fixedRowV(kRgbToXyz8[2], a, b, c), top));
        } else {
            const auto row = [&](int k) { return hn::Min(hn::Max(fixedRowV(kXyzToRgb8[k], a, b, c), hn::Zero(di)), top); };
            Pix::storeCodes(d.p + N * i, row(0), row(1), row(2));
        }
    }
    if constexpr (kForward)
        ::zor::rgbToXyz8<N>({s.p + N * i}, {d.p + N * i}, width - static_cast<int>(i));
    else
        ::zor::xyzToRgb8<N>({s.p + N * i}, {d.p + N * i}, width - static_cast<int>(i));
}

template <int N>
void rgbToXyz8(RowC<const Zor8u, N> s, RowC<Zor8u, N> d, int width) {
    fixed8<true, N>(s, d, width);
}

template <int N>
void xyzToRgb8(RowC<const Zor8u, N> s, RowC<Zor8u, N> d, int width) {
    fixed8<false, N>(s, d, width);
}

// 16u, 16s, 32f: X and Y rounded without clamp (32f as they are), Z
// saturated (32f clamped to 0..1).
template <class T, int N>
void rgbToXyz(RowC<const T, N> s, RowC<T, N> d, int width) {
    using Pix = FloatPix<T, N>;
    const std::size_t n = floatLanes();
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        VF r, g, b;
        Pix::load(s.p + N * i, r, g, b);
        const VF x = dotRowV(kRgbToXyz, 0, r, g, b), y = dotRowV(kRgbToXyz, 1, r, g, b),
                 z = dotRowV(kRgbToXyz, 2, r, g, b);
        if constexpr (std::is_same_v<T, Zor32f>) {
            Pix::storeFloats(d.p + N * i, x, y, clampUnitV(z));
        } else {
            Pix::storeCodes(d.p + N * i, roundCodeV(x), roundCodeV(y),
                            saturateCodeV(hn::Add(z, hn::Set(DF(), kHalfLess)), kFull<T>));
        }
    }
    ::zor::rgbToXyz<T, N>({s.p + N * i}, {d.p + N * i}, width - static_cast<int>(i));
}

// 16u: the blue row's last terms in double; 16s: float throughout; 32f:
// each row clamped to 0..1.
template <class T, int N>
void xyzToRgb(RowC<const T, N> s, RowC<T, N> d, int width) {
    using Pix = FloatPix<T, N>;
    const std::size_t n = floatLanes();
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        VF x, y, z;
        Pix::load(s.p + N * i, x, y, z);
        if constexpr (std::is_same_v<T, Zor32f>) {
            Pix::storeFloats(d.p + N * i, clampUnitV(dotRowV(kXyzToRgb, 0, x, y, z)),
                             clampUnitV(dotRowV(kXyzToRgb, 1, x, y, z)), clampUnitV(dotRowV(kXyzToRgb, 2, x, y, z)));
        } else {
            VI r, g, b;
            xyzToRgbCodesV<std::is_same_v<T, Zor16u>>(x, y, z, kFull<T>, r, g, b);
            Pix::storeCodes(d.p + N * i, r, g, b);
        }
    }
    ::zor::xyzToRgb<T, N>({s.p + N * i}, {d.p + N * i}, width - static_cast<int>(i));
}

#endif  // HWY_TARGET != HWY_SCALAR

HWY_MAYBE_UNUSED constexpr XyzKernels kXyzVector = {ZOR_XYZ_KERNELS(ZOR_KERNEL_POINTER)};

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/target_tables.h"
namespace zor {
ZOR_TARGET_TABLES(XyzKernels, kXyzVector, xyzTables, kXyzScalar)
}  // namespace zor
#endif
