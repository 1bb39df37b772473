// Vector kernels of the subsampled decoders to 8-bit RGB and BGR, compiled
// once per CPU target. Every kernel computes exactly what its scalar kernel
// (video/decode_kernels.h) computes.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "video/decode_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "video/decode_kernels.h"
#include "video/decode_source-inl.h"

#include <type_traits>

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// The scalar target of Highway keeps the scalar kernels (found in zor::).
#if HWY_TARGET != HWY_SCALAR

template <class S>
inline constexpr bool kPairs = false;
template <class Order>
inline constexpr bool kPairs<Packed422<Order>> = true;
template <>
inline constexpr bool kPairs<Shared<2>> = true;

// b | g << 8 of bytes b and g in 16-bit lanes.
HWY_INLINE hn::Vec<DU16> lowBytes(V16 b, V16 g) {
    const DU16 du;
#if HWY_TARGET == HWY_AVX3 || HWY_TARGET == HWY_AVX3_DL
    // A byte shuffle merged under a mask: one instruction.
    const D8 d8;
    alignas(16) static constexpr std::uint8_t kDown[16] = {0, 0, 2, 2, 4, 4, 6, 6, 8, 8, 10, 10, 12, 12, 14, 14};
    const auto high = hn::MaskFromVec(hn::BitCast(d8, hn::Set(du, 0xFF00)));
    const V8 up = hn::TableLookupBytes(hn::BitCast(d8, g), hn::LoadDup128(d8, kDown));
    return hn::BitCast(du, hn::IfThenElse(high, up, hn::BitCast(d8, b)));
#else
    return hn::Or(hn::BitCast(du, b), hn::ShiftLeft<8>(hn::BitCast(du, g)));
#endif
}

// Pixel pairs to B, G, R and a fill byte: each pixel is built as two 16-bit
// halves (B | G << 8, R | fill << 8) from the clamped channels, and the
// per-block interleaves of the halves give the pixels in order because the
// pairs are read in block order.
template <const Decoder& K, class S>
HWY_INLINE void pairsToBgra(RowOf<S, const Zor8u> s, RowC<Zor8u, 4> d, std::size_t i, hn::Vec<DU16> fill) {
    const D16 d16;
    const DU16 du;
    V16 r[2], g[2], b[2];
    VecDecoded<DecodeSet<K>, S>::template at<true, true>(s, i, r, g, b);
    for (std::size_t h = 0; h < 2; ++h) {
        const auto bg = lowBytes(b[h], g[h]), ra = hn::Or(hn::BitCast(du, r[h]), fill);
        Zor8u* out = d.p + 4 * (i + h * hn::Lanes(d16));
        hn::StoreU(hn::BitCast(D8(), hn::InterleaveLower(du, bg, ra)), D8(), out);
        hn::StoreU(hn::BitCast(D8(), hn::InterleaveUpper(du, bg, ra)), D8(), out + hn::Lanes(D8()));
    }
}

template <const Decoder& K, class S, class D, class... Fill>
void decodeShared(RowOf<S, const Zor8u> s, RowOf<D, Zor8u> d, int width, Fill... fill) {
    const D8 d8;
    const int n = static_cast<int>(hn::Lanes(d8));
    const int limit = VecSource<S>::limit(width);
    int i = 0;
    if constexpr (std::is_same_v<D, PixBgrC4> && kPairs<S>) {
        const hn::Vec<DU16> high = hn::Set(DU16(), static_cast<std::uint16_t>((0 + ... + fill) << 8));
        for (; i + n <= limit; i += n) pairsToBgra<K, S>(s, d, static_cast<std::size_t>(i), high);
    } else {
        V8 alpha = hn::Zero(d8);
        ((alpha = hn::Set(d8, fill)), ...);
        for (; i + n <= limit; i += n) {
            V16 r[2], g[2], b[2];
            VecDecoded<DecodeSet<K>, S>::at(s, static_cast<std::size_t>(i), r, g, b);
            VecPix<D>::store(d8, d, static_cast<std::size_t>(i), to8(r[0], r[1]), to8(g[0], g[1]), to8(b[0], b[1]),
                             alpha);
        }
    }
    ::zor::decodeShared<K, S, D>(S::advance(s, i), D::advance(d, i), width - i, fill...);
}

// In 16-bit lanes: 9 (r1 + r2) - (r0 + r3) + 8 lies in -510..4598; the
// narrowing to bytes saturates, which is the clamp.
HWY_INLINE V16 halfway16(V16 r0, V16 r1, V16 r2, V16 r3) {
    const D16 d16;
    const V16 inner = hn::Mul(hn::Add(r1, r2), hn::Set(d16, 9));
    return hn::ShiftRight<4>(hn::Add(hn::Sub(inner, hn::Add(r0, r3)), hn::Set(d16, 8)));
}

template <class T>
void halfwayRow(RowC<const T, 1> r0, RowC<const T, 1> r1, RowC<const T, 1> r2, RowC<const T, 1> r3, RowC<T, 1> out,
                int width) {
    const D8 d8;
    const int n = static_cast<int>(hn::Lanes(d8));
    int i = 0;
    for (; i + n <= width; i += n) {
        const V8 a = hn::LoadU(d8, r0.p + i), b = hn::LoadU(d8, r1.p + i), c = hn::LoadU(d8, r2.p + i),
                 e = hn::LoadU(d8, r3.p + i);
        const V16 lo = halfway16(lowerTo16(a), lowerTo16(b), lowerTo16(c), lowerTo16(e));
        const V16 hi = halfway16(upperTo16(a), upperTo16(b), upperTo16(c), upperTo16(e));
        hn::StoreU(to8(lo, hi), d8, out.p + i);
    }
    ::zor::halfwayRow<T>({r0.p + i}, {r1.p + i}, {r2.p + i}, {r3.p + i}, {out.p + i}, width - i);
}

#endif  // HWY_TARGET != HWY_SCALAR

// ---------------------------------------------------------------------------

HWY_MAYBE_UNUSED constexpr DecodeKernels kDecodeVector = {ZOR_DECODE_KERNELS(ZOR_KERNEL_POINTER)};

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/target_tables.h"
namespace zor {
ZOR_TARGET_TABLES(DecodeKernels, kDecodeVector, decodeTables, kDecodeScalar)
}  // namespace zor
#endif
