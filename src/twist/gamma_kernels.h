// Gamma correction with the video transfer curve: linear slope 4.5 near
// black, 1.099 x^0.45 - 0.099 above (the inverse undoes it). The row kernel
// maps each of the three colour samples of a pixel through a sample map: the
// stored 8-bit tables, the 16u curve computed per sample or read from a
// table built per call, or the 32f curve on a caller-given range.
#pragma once

#include "core/kernel_set.h"
#include "twist/gamma_tables.h"
#include "twist/pixels3.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace zor {

// Curve constants. The inverse multiplies by stored reciprocals.
inline constexpr double kGammaSlope = 4.5;
inline constexpr double kGammaFwdThreshold = 0.018;
inline constexpr double kGammaInvThreshold = 0.0812;
inline constexpr double kGammaExponent = 0.45;
inline constexpr double kGammaScale = 1.099;
inline constexpr double kGammaOffset = 0.099;
inline constexpr double kGammaInvScale = 0.9099181073703366;     // 1 / 1.099
inline constexpr double kGammaInvExponent = 2.2222222222222223;  // 1 / 0.45
inline constexpr double kGammaInvSlope = 0.2222222222222222;     // 1 / 4.5
inline constexpr double kInv65535 = 1.5259021896696422e-05;

inline constexpr int kGammaTableLen16u = 65536;

// The 16u rounding: y + 0.5 goes through single precision, is truncated, and
// an odd result that the float sum hit exactly is stepped down to even.
inline Zor16u round16u(double y) {
    const float s = static_cast<float>(y + 0.5);
    std::int32_t n = static_cast<std::int32_t>(s);
    if ((n & 1) != 0 && static_cast<float>(n) == s) --n;
    return static_cast<Zor16u>(n);
}

// ---------------------------------------------------------------------------
// Sample maps

// The stored 8-bit curves.
template <bool Fwd>
struct Stored8u {
    Zor8u operator()(Zor8u v) const { return (Fwd ? tableFwd8u : tableInv8u)[v]; }
};

// The 16u curve computed per sample.
template <bool Fwd>
struct Curve16u {
    Zor16u operator()(Zor16u v) const {
        const double x = v * kInv65535;
        double y;
        if (Fwd)
            y = x >= kGammaFwdThreshold ? (std::pow(x, kGammaExponent) * kGammaScale - kGammaOffset) * 65535.0
                                        : v * kGammaSlope;
        else
            y = x >= kGammaInvThreshold ? std::pow((x + kGammaOffset) * kGammaInvScale, kGammaInvExponent) * 65535.0
                                        : v * kGammaInvSlope;
        return round16u(y);
    }
};

// Any curve of 16-bit samples stored as a table of all 65,536 values.
struct Table16u {
    const Zor16u* t;
    Zor16u operator()(Zor16u v) const { return t[v]; }
};

// The curve on [vMin, vMax]: r = vMax - vMin and d = v - vMin in single
// precision, the rest in double. Nothing is clamped: samples below vMin take
// the linear branch.
template <bool Fwd>
struct Curve32f {
    float vMin;
    double r;
    double invR;

    Curve32f() = default;
    Curve32f(Zor32f lo, Zor32f hi) : vMin(lo), r(static_cast<double>(hi - lo)), invR(1.0 / r) {}

    Zor32f operator()(Zor32f v) const {
        const float d = v - vMin;
        const double x = d * invR;
        double y;
        if (Fwd)
            y = x >= kGammaFwdThreshold ? (std::pow(x, kGammaExponent) * kGammaScale - kGammaOffset) * r + vMin
                                        : d * kGammaSlope + vMin;
        else
            y = x >= kGammaInvThreshold ? std::pow((x + kGammaOffset) * kGammaInvScale, kGammaInvExponent) * r + vMin
                                        : kGammaInvSlope * d + vMin;
        return static_cast<Zor32f>(y);
    }
};

// ---------------------------------------------------------------------------
// The row kernel: the three colour samples of each pixel through the map, a
// fourth sample left alone.
template <class L, class T, class Map>
void innerGamma(RowOf<L, const T> s, RowOf<L, T> d, int width, Map map) {
    for (std::ptrdiff_t i = 0; i < width; ++i)
        for (int k = 0; k < 3; ++k) L::at(d, i, k) = map(L::at(s, i, k));
}

// The 16u curve at every value [first, first + count), into table[first..].
template <bool Fwd>
void gammaTable16u(Zor16u* table, int first, int count) {
    for (int v = first; v < first + count; ++v) table[v] = Curve16u<Fwd>()(static_cast<Zor16u>(v));
}

// ---------------------------------------------------------------------------
// The shapes with vector kernels: X(member, kernel template, (template
// arguments)). The 16u maps keep their scalar kernels; the 16u table is
// filled by a kernel of its own.

#define ZOR_GAMMA_ROW_KERNELS(X)                                      \
    X(fwdC3u8, innerGamma, (Interleaved<3>, Zor8u, Stored8u<true>))   \
    X(fwdAC4u8, innerGamma, (Interleaved<4>, Zor8u, Stored8u<true>))  \
    X(fwdP3u8, innerGamma, (Planar, Zor8u, Stored8u<true>))           \
    X(invC3u8, innerGamma, (Interleaved<3>, Zor8u, Stored8u<false>))  \
    X(invAC4u8, innerGamma, (Interleaved<4>, Zor8u, Stored8u<false>)) \
    X(invP3u8, innerGamma, (Planar, Zor8u, Stored8u<false>))          \
    X(fwdC3f32, innerGamma, (Interleaved<3>, Zor32f, Curve32f<true>))  \
    X(fwdAC4f32, innerGamma, (Interleaved<4>, Zor32f, Curve32f<true>)) \
    X(fwdP3f32, innerGamma, (Planar, Zor32f, Curve32f<true>))          \
    X(invC3f32, innerGamma, (Interleaved<3>, Zor32f, Curve32f<false>)) \
    X(invAC4f32, innerGamma, (Interleaved<4>, Zor32f, Curve32f<false>)) \
    X(invP3f32, innerGamma, (Planar, Zor32f, Curve32f<false>))

#define ZOR_GAMMA_KERNELS(X)              \
    ZOR_GAMMA_ROW_KERNELS(X)              \
    X(tableFwd16u, gammaTable16u, (true)) \
    X(tableInv16u, gammaTable16u, (false))

ZOR_KERNEL_TABLE(GammaKernels, ZOR_GAMMA_KERNELS, kGammaScalar, gammaTables, GammaK)

}  // namespace zor
