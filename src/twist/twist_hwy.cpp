// Vector kernels of the colour twist, compiled once per CPU target. Every
// kernel computes exactly what its scalar kernel (twist/twist_kernels.h)
// computes: one float lane per pixel, the same products and sums in the same
// order (multiplies and adds, never fused), and the same conversion of the
// result.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "twist/twist_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "core/lanes-inl.h"
#include "hwy/highway.h"
#include "twist/twist_kernels.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// The scalar target of Highway keeps the scalar kernels (found in zor::).
#if HWY_TARGET != HWY_SCALAR

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

// Samples of T (as many as float lanes) to float.
template <class T, class DT>
HWY_INLINE VF toFloat(DT, hn::Vec<DT> v) {
    if constexpr (std::is_same_v<T, Zor32f>)
        return v;
    else
        return hn::ConvertTo(DF(), hn::PromoteTo(DI(), v));
}

using DU = hn::RebindToUnsigned<DF>;
using VU = hn::Vec<DU>;

// An integer result as the low bits of a lane: clamped to [lo, hi] in float
// (Max first turns NaN into lo: maxps and Arm's maxnm return the second
// operand when the first is NaN), plus 2^23 (signed T: plus 2^23 + 2^(b-1)
// for b-bit T). The sum lies where floats are one apart, so it is the nearest
// integer with ties to even (both offsets are even), as in the scalar kernel;
// the low b bits of its encoding are the sample on the unsigned scale.
template <class T>
HWY_INLINE VU lowBits(VF y) {
    const DF df;
    const VF lo = hn::Set(df, static_cast<float>(std::numeric_limits<T>::min()));
    const VF hi = hn::Set(df, static_cast<float>(std::numeric_limits<T>::max()));
    const float offset = 8388608.0f + (std::is_signed_v<T> ? -static_cast<float>(std::numeric_limits<T>::min()) : 0.0f);
    return hn::BitCast(DU(), hn::Add(hn::Min(hn::Max(y, lo), hi), hn::Set(df, offset)));
}

// Float results to samples of T (as many as float lanes): the low bits,
// signed T with the top bit flipped back. (The narrowing itself never
// saturates here: Highway's 32-to-8-bit DemoteTo on some targets passes
// through a signed 16-bit step and turns 32768..65535 into their low byte.)
template <class T, class DT>
HWY_INLINE hn::Vec<DT> fromFloat(DT dt, VF y) {
    if constexpr (std::is_same_v<T, Zor32f>) {
        return y;
    } else {
        using U = std::make_unsigned_t<T>;
        const hn::Rebind<U, DF> du;
        auto u = hn::TruncateTo(du, lowBits<T>(y));
        if constexpr (std::is_signed_v<T>) u = hn::Xor(u, hn::Set(du, static_cast<U>(U{1} << (8 * sizeof(T) - 1))));
        return hn::BitCast(dt, u);
    }
}

// One output channel: ((t0 x0 + t3) + t1 x1) + t2 x2.
HWY_INLINE VF channel(const VF* t, VF x0, VF x1, VF x2) {
    return hn::Add(hn::Add(hn::Add(hn::Mul(t[0], x0), t[3]), hn::Mul(t[1], x1)), hn::Mul(t[2], x2));
}

// 8-bit interleaved pixels, one pixel per 32-bit lane; the results of a
// pixel's channels are the low bytes of lowBits (8s: with the top bit
// flipped), packed into bytes 0..2 of the lane.
using D8 = hn::Repartition<std::uint8_t, DF>;

// Byte S j + C of every block to byte 0 of its lane j (T signed: to byte 3),
// the rest 0: sample C of the pixel at byte S j of the block.
template <class T, int S, int C>
HWY_INLINE hn::Vec<D8> samplePattern() {
    constexpr int at = std::is_signed_v<T> ? 3 : 0;
    alignas(16) static constexpr Zor8u kPattern[16] = {
        at == 0 ? C : 0x80,         0x80, 0x80, at == 3 ? C : 0x80,
        at == 0 ? S + C : 0x80,     0x80, 0x80, at == 3 ? S + C : 0x80,
        at == 0 ? 2 * S + C : 0x80, 0x80, 0x80, at == 3 ? 2 * S + C : 0x80,
        at == 0 ? 3 * S + C : 0x80, 0x80, 0x80, at == 3 ? 3 * S + C : 0x80};
    return hn::LoadDup128(D8(), kPattern);
}

template <class T, int S, int C>
HWY_INLINE VF sampleOf(VU v) {
    const VU b = hn::BitCast(DU(), hn::TableLookupBytesOr0(hn::BitCast(D8(), v), samplePattern<T, S, C>()));
    if constexpr (std::is_signed_v<T>)
        return hn::ConvertTo(DF(), hn::ShiftRight<24>(hn::BitCast(DI(), b)));
    else
        return hn::ConvertTo(DF(), hn::BitCast(DI(), b));
}

// Returns the pixels done. C3: each 128-bit block takes four pixels (twelve
// bytes) of a whole vector loaded from the row, so the loop stops while a
// vector's worth of the row remains; the lanes past the n pixels are stored
// back as they were read (the next pixels' source bytes, which the next
// vector or the scalar kernel then converts).
template <int S, class T>
std::size_t twist8(const Zor8u* s, Zor8u* d, std::size_t width, const VF (*t)[4]) {
    const DU du;
    const D8 d8;
    const std::size_t n = hn::Lanes(du);
    // The four pixels of each block of v (S bytes apart) through the matrix,
    // into bytes 0..2 of the lanes; byte 3 of the result is garbage.
    const auto twist = [&](VU v) {
        const VF x0 = sampleOf<T, S, 0>(v), x1 = sampleOf<T, S, 1>(v), x2 = sampleOf<T, S, 2>(v);
        const VU b0 = lowBits<T>(channel(t[0], x0, x1, x2)), b1 = lowBits<T>(channel(t[1], x0, x1, x2)),
                 b2 = lowBits<T>(channel(t[2], x0, x1, x2));
        const VU p = hn::Or(hn::Or(b0, hn::ShiftLeft<8>(b1)), hn::ShiftLeft<16>(b2));
        return std::is_signed_v<T> ? hn::Xor(p, hn::Set(du, 0x808080u)) : p;
    };
    std::size_t i = 0;
    if constexpr (S == 4) {
        const VU alpha = hn::Set(du, 0xFF000000u);
        for (; i + n <= width; i += n) {
            const VU v = hn::BitCast(du, hn::LoadU(d8, s + 4 * i)), old = hn::BitCast(du, hn::LoadU(d8, d + 4 * i));
            hn::StoreU(hn::BitCast(d8, hn::IfVecThenElse(alpha, old, twist(v))), d8, d + 4 * i);
        }
    } else {
        HWY_ALIGN std::int32_t spread[hn::MaxLanes(du)], gather[hn::MaxLanes(du)];
        for (std::size_t k = 0; k < n; ++k) {
            spread[k] = static_cast<std::int32_t>(3 * (k / 4) + (k % 4 < 3 ? k % 4 : 2));
            gather[k] = static_cast<std::int32_t>(k < 3 * n / 4 ? 4 * (k / 3) + k % 3 : k);
        }
        const auto toLanes = hn::SetTableIndices(du, spread), toRow = hn::SetTableIndices(du, gather);
        // Pixel j of a block (after toLanes) starts at byte 3j; toBytes packs
        // bytes 0..2 of the four lanes of a block.
        alignas(16) static constexpr Zor8u kToBytes[16] = {0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, 0x80, 0x80, 0x80, 0x80};
        const auto toBytes = hn::LoadDup128(d8, kToBytes);
        const auto mine = hn::FirstN(du, 3 * n / 4);
        for (; 3 * i + 4 * n <= 3 * width; i += n) {
            const VU raw = hn::BitCast(du, hn::LoadU(d8, s + 3 * i));
            const VU v = hn::TableLookupLanes(raw, toLanes);
            const VU p = hn::BitCast(du, hn::TableLookupBytes(hn::BitCast(d8, twist(v)), toBytes));
            hn::StoreU(hn::BitCast(d8, hn::IfThenElse(mine, hn::TableLookupLanes(p, toRow), raw)), d8, d + 3 * i);
        }
    }
    return i;
}

// 16-bit four-sample pixels as two 32-bit lanes, a = s0 | s1 << 16 and
// b = s2 | s3 << 16, two vectors (n pixels) at a time. Within each 128-bit
// block the a lanes and the b lanes are gathered by a swap of neighbours and
// an odd/even blend (pixels in the order 0 2 1 3 of the block pair), and put
// back the same way; the destination's fourth samples are blended back in.
template <class T>
std::size_t twist16x4(const T* s, T* d, std::size_t width, const VF (*t)[4]) {
    const DU du;
    const DI di;
    const DF df;
    const hn::Repartition<T, DF> dw;
    const std::size_t n = hn::Lanes(du);
    const VU low = hn::Set(du, 0xFFFFu);
    const VU keep = hn::OddEven(hn::Set(du, 0xFFFF0000u), hn::Zero(du));
    const auto sample = [&](VU v, bool high) {
        const auto w = hn::BitCast(di, v);
        if constexpr (std::is_signed_v<T>)
            return hn::ConvertTo(df, high ? hn::ShiftRight<16>(w) : hn::ShiftRight<16>(hn::ShiftLeft<16>(w)));
        else
            return hn::ConvertTo(df, high ? hn::BitCast(di, hn::ShiftRight<16>(v)) : hn::BitCast(di, hn::And(v, low)));
    };
    std::size_t i = 0;
    for (; i + n <= width; i += n) {
        const T* p = s + 4 * i;
        T* q = d + 4 * i;
        const VU v0 = hn::BitCast(du, hn::LoadU(dw, p)), v1 = hn::BitCast(du, hn::LoadU(dw, p + 2 * n));
        const VU a = hn::OddEven(hn::Shuffle2301(v1), v0), b = hn::OddEven(v1, hn::Shuffle2301(v0));
        const VF x0 = sample(a, false), x1 = sample(a, true), x2 = sample(b, false);
        VU ra = hn::Or(hn::And(lowBits<T>(channel(t[0], x0, x1, x2)), low), hn::ShiftLeft<16>(lowBits<T>(channel(t[1], x0, x1, x2))));
        VU rb = lowBits<T>(channel(t[2], x0, x1, x2));
        if constexpr (std::is_signed_v<T>) ra = hn::Xor(ra, hn::Set(du, 0x80008000u)), rb = hn::Xor(rb, hn::Set(du, 0x8000u));
        const VU out0 = hn::OddEven(hn::Shuffle2301(rb), ra), out1 = hn::OddEven(rb, hn::Shuffle2301(ra));
        const VU old0 = hn::BitCast(du, hn::LoadU(dw, q)), old1 = hn::BitCast(du, hn::LoadU(dw, q + 2 * n));
        hn::StoreU(hn::BitCast(dw, hn::IfVecThenElse(keep, old0, out0)), dw, q);
        hn::StoreU(hn::BitCast(dw, hn::IfVecThenElse(keep, old1, out1)), dw, q + 2 * n);
    }
    return i;
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
    if constexpr (sizeof(T) == 1 && !std::is_same_v<L, Planar>)
        i = twist8<L::kStride, T>(reinterpret_cast<const Zor8u*>(s.p), reinterpret_cast<Zor8u*>(d.p),
                                  static_cast<std::size_t>(width), t);
    if constexpr (sizeof(T) == 2 && std::is_same_v<L, Interleaved<4>>)
        i = twist16x4<T>(s.p, d.p, static_cast<std::size_t>(width), t);
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
