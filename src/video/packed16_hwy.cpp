// Vector kernels of the packed 16-bit outputs, compiled once per CPU target.
// Every kernel computes exactly what its scalar kernel (video/packed16.h)
// computes.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "video/packed16_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "video/decode_source-inl.h"
#include "video/packed16.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// The scalar target of Highway keeps the scalar kernels (found in zor::).
#if HWY_TARGET != HWY_SCALAR

using VU16 = hn::Vec<DU16>;

// The four thresholds of row y for a field of Bits bits, repeated along the
// vector: lane j is column j & 3 (vectors start at multiples of 4 pixels).
template <int Bits>
HWY_INLINE VU16 thresholds(int y) {
    std::uint64_t bits = 0;
    for (int x = 0; x < 4; ++x)
        bits |= static_cast<std::uint64_t>(static_cast<std::uint16_t>(ditherThreshold<Bits>(y, x))) << (16 * x);
    return hn::BitCast(DU16(), hn::Set(DU64(), bits));
}

// The fields of one format from unclamped channels. Dithered in 16-bit lanes,
// exactly: q is the high half of the unsigned product (256 v) max, which is
// (max v) >> 8; 256 v - unit q is taken modulo 2^16, and its true value lies
// in 0..4607 (q <= max v / 256 makes it non-negative; q > max v / 256 - 1
// bounds it by 256 v - 255 v + unit), so the signed comparison with a
// threshold below 4336 is the scalar one.
// The multipliers 256 * 255 / max (2105, 1036, 4352), read once per row from
// memory the compiler may not assume constant: with them in view it turns
// the multiplications into longer chains of shifts and adds.
template <int Bits>
inline volatile std::uint16_t kUnit = 256 * 255 / ((1 << Bits) - 1);

template <class Fmt, bool Dither>
struct VecFields {
    VU16 tRB = hn::Zero(DU16()), tG = hn::Zero(DU16()), uRB = tRB, uG = tG;
    explicit VecFields(int y) {
        if constexpr (Dither) {
            tRB = thresholds<Fmt::kRBBits>(y), tG = thresholds<Fmt::kGBits>(y);
            uRB = hn::Set(DU16(), kUnit<Fmt::kRBBits>), uG = hn::Set(DU16(), kUnit<Fmt::kGBits>);
        }
    }
    template <int Bits>
    static HWY_INLINE VU16 field(V16 c, VU16 t, VU16 unit) {
        const DU16 du;
        const VU16 v = hn::BitCast(du, hn::Min(hn::Max(c, hn::Zero(D16())), hn::Set(D16(), 255)));
        if constexpr (!Dither) {
            return hn::ShiftRight<8 - Bits>(v);
        } else {
            const VU16 v256 = hn::ShiftLeft<8>(v);
            const VU16 q = hn::MulHigh(v256, hn::Set(du, (1 << Bits) - 1));
            const VU16 rem = hn::Sub(v256, hn::Mul(q, unit));
            const auto above = hn::RebindMask(du, hn::Gt(hn::BitCast(D16(), rem), hn::BitCast(D16(), t)));
            return hn::IfThenElse(above, hn::Add(q, hn::Set(du, 1)), q);
        }
    }
    HWY_INLINE VU16 pack(V16 r, V16 g, V16 b) const {
        return hn::Or(hn::Or(hn::ShiftLeft<Fmt::kRShift>(field<Fmt::kRBBits>(r, tRB, uRB)),
                             hn::ShiftLeft<Fmt::kGShift>(field<Fmt::kGBits>(g, tG, uG))),
                      hn::ShiftLeft<Fmt::kBShift>(field<Fmt::kRBBits>(b, tRB, uRB)));
    }
};

template <class Dec, class S, class Fmt, class... Phase>
void toPacked16(RowOf<S, const Zor8u> s, RowC<Zor16u, 1> d, int width, Phase... y) {
    const D8 d8;
    const int n = static_cast<int>(hn::Lanes(d8));
    const std::size_t half = hn::Lanes(DU16());
    const VecFields<Fmt, sizeof...(Phase) == 1> fields((0 + ... + y));
    const int limit = VecSource<S>::limit(width);
    int i = 0;
    for (; i + n <= limit; i += n) {
        V16 r[2], g[2], b[2];
        VecDecoded<Dec, S>::at(s, static_cast<std::size_t>(i), r, g, b);
        for (std::size_t h = 0; h < 2; ++h) hn::StoreU(fields.pack(r[h], g[h], b[h]), DU16(), d.p + i + h * half);
    }
    // i is a multiple of 4: the tail keeps the dither phase.
    ::zor::toPacked16<Dec, S, Fmt>(S::advance(s, i), {d.p + i}, width - i, y...);
}

#endif  // HWY_TARGET != HWY_SCALAR

// ---------------------------------------------------------------------------

HWY_MAYBE_UNUSED constexpr Packed16Kernels kPacked16Vector = {ZOR_PACKED16_KERNELS(ZOR_KERNEL_POINTER)};

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/target_tables.h"
namespace zor {
ZOR_TARGET_TABLES(Packed16Kernels, kPacked16Vector, packed16Tables, kPacked16Scalar)
}  // namespace zor
#endif
