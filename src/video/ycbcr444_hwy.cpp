// Vector kernels of the 4:4:4 conversions, compiled once per CPU target.
// Every kernel computes exactly what its scalar kernel
// (video/ycbcr444_kernels.h) computes.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "video/ycbcr444_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "video/vec-inl.h"
#include "video/ycbcr444_kernels.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// The scalar target of Highway keeps the scalar kernels (found in zor::).
#if HWY_TARGET != HWY_SCALAR

template <class S, class D>
void encode444(RowOf<S, const Zor8u> s, RowOf<D, Zor8u> d, int width) {
    const D8 d8;
    const std::size_t n = hn::Lanes(d8);
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        V8 r, g, b;
        VecPix<S>::load(d8, s, i, r, g, b);
        V16 yL, cbL, crL, yU, cbU, crU;
        encodeHalf(lowerTo16(r), lowerTo16(g), lowerTo16(b), yL, cbL, crL);
        encodeHalf(upperTo16(r), upperTo16(g), upperTo16(b), yU, cbU, crU);
        VecPix<D>::store(d8, d, i, to8(yL, yU), to8(cbL, cbU), to8(crL, crU), hn::Zero(d8));
    }
    ::zor::encode444<S, D>(S::advance(s, i), D::advance(d, i), width - static_cast<int>(i));
}

constexpr std::size_t kBlocks = hn::MaxLanes(D8()) / 16;

// Planar bytes reordered so that the lower and upper 16-bit halves of each
// block (ZipLower, ZipUpper) hold the even and the odd pixels of the block.
HWY_INLINE V8 evenOddInBlocks(V8 x) {
    alignas(16) static constexpr std::uint8_t kIdx[64] = {0, 2, 4, 6, 8, 10, 12, 14, 1, 3, 5, 7, 9, 11, 13, 15,
                                                          0, 2, 4, 6, 8, 10, 12, 14, 1, 3, 5, 7, 9, 11, 13, 15,
                                                          0, 2, 4, 6, 8, 10, 12, 14, 1, 3, 5, 7, 9, 11, 13, 15,
                                                          0, 2, 4, 6, 8, 10, 12, 14, 1, 3, 5, 7, 9, 11, 13, 15};
    return hn::TableLookupBytes(x, hn::LoadU(D8(), kIdx));
}

// Planar bytes reordered by groups of four pixels so that group m of block
// b holds pixels 4 (kBlocks m + b) ..: the four-pixel groups that the 32-bit
// interleave of each block's quarters puts in vector m land in order.
HWY_INLINE V8 quartersAcrossBlocks(V8 x) {
    if constexpr (kBlocks == 1) {
        return x;
    } else {
        using DU32 = hn::Repartition<std::uint32_t, D8>;
        const DU32 d32;
        alignas(64) static constexpr std::uint32_t kIdx[16] = {
            0 * kBlocks + 0, 1 * kBlocks + 0, 2 * kBlocks + 0, 3 * kBlocks + 0,
            0 * kBlocks + 1, 1 * kBlocks + 1, 2 * kBlocks + 1, 3 * kBlocks + 1,
            0 * kBlocks + 2, 1 * kBlocks + 2, 2 * kBlocks + 2, 3 * kBlocks + 2,
            0 * kBlocks + 3, 1 * kBlocks + 3, 2 * kBlocks + 3, 3 * kBlocks + 3};
        return hn::BitCast(D8(), hn::TableLookupLanes(hn::BitCast(d32, x), hn::SetTableIndices(d32, kIdx)));
    }
}

using DU32 = hn::Repartition<std::uint32_t, D8>;

// The clamped output bytes of each pixel of one half as two 16-bit words
// (bytes 0, 1 and 2, 3 of a pixel; bytes C0, C1, C2 take outputs 0, 1, 2),
// the fourth byte from the odd bytes of `fourth` if Fourth, else 0.
template <int C0, int C1, int C2, bool Fourth>
HWY_INLINE void pixelWords(const V16 (&o)[3], V8 fourth, V16& w0, V16& w1) {
    const D8 d8;
    const D16 d16;
    constexpr int kAt[3] = {C0 == 0 ? 0 : C1 == 0 ? 1 : 2, C0 == 1 ? 0 : C1 == 1 ? 1 : 2, C0 == 2 ? 0 : C1 == 2 ? 1 : 2};
    static_assert(C0 + C1 + C2 == 3 && C0 != C1 && C0 != C2, "a permutation of three bytes");
    w0 = hn::BitCast(d16, hn::OddEven(hn::BitCast(d8, clampHigh(o[kAt[1]])), hn::BitCast(d8, clampLow(o[kAt[0]]))));
    w1 = clampLow(o[kAt[2]]);
    if constexpr (Fourth) w1 = hn::BitCast(d16, hn::OddEven(fourth, hn::BitCast(d8, w1)));
}

// The 32-bit pixels of half h of a vector of pixels (16-bit words w0, w1):
// pixels 16 m .. 16 m + 15 for m = 2 h, 2 h + 1, in order when the planes
// went through quartersAcrossBlocks.
HWY_INLINE void pixels32(V16 w0, V16 w1, V8& q0, V8& q1) {
    const D8 d8;
    const D16 d16;
    q0 = hn::BitCast(d8, hn::InterleaveLower(d16, w0, w1));
    q1 = hn::BitCast(d8, hn::InterleaveUpper(d16, w0, w1));
}

template <class D>
struct DecodeOut;

// Planes: the clamped bytes of even pixels from lo, odd pixels from hi.
template <>
struct DecodeOut<Planar> {
    static HWY_INLINE V8 order(V8 x) { return evenOddInBlocks(x); }
    static HWY_INLINE void store(Row3<Zor8u> d, std::size_t i, const V16 (&lo)[3], const V16 (&hi)[3], V8) {
        const D8 d8;
        for (int k = 0; k < 3; ++k) {
            hn::StoreU(hn::OddEven(hn::BitCast(d8, clampHigh(hi[k])), hn::BitCast(d8, clampLow(lo[k]))), d8, d.p[k] + i);
        }
    }
};

// Four bytes: the pixels' 32-bit words; the fourth byte is the fill value
// or the byte already there.
template <int C0, int C1, int C2, bool Fill>
struct DecodeOut<Interleaved<4, C0, C1, C2, Fill>> {
    static HWY_INLINE V8 order(V8 x) { return quartersAcrossBlocks(x); }
    static HWY_INLINE void store(RowC<Zor8u, 4> d, std::size_t i, const V16 (&lo)[3], const V16 (&hi)[3], V8 alpha) {
        const D8 d8;
        const std::size_t n = hn::Lanes(d8);
        const V16 (*half[2])[3] = {&lo, &hi};
        for (int h = 0; h < 2; ++h) {
            V16 w0, w1;
            pixelWords<C0, C1, C2, Fill>(*half[h], alpha, w0, w1);
            V8 q[2];
            pixels32(w0, w1, q[0], q[1]);
            for (int k = 0; k < 2; ++k) {
                Zor8u* p = d.p + 4 * i + (2 * h + k) * n;
                if constexpr (!Fill) {
                    const auto keep = hn::MaskFromVec(hn::BitCast(d8, hn::Set(DU32(), 0xFF000000u)));
                    q[k] = hn::IfThenElse(keep, hn::LoadU(d8, p), q[k]);
                }
                hn::StoreU(q[k], d8, p);
            }
        }
    }
};

// Three bytes: the 32-bit pixels with their fourth bytes squeezed out of
// each block, and the four vectors' 3 n / 4 words placed across the three
// stores.
template <int C0, int C1, int C2>
struct DecodeOut<Interleaved<3, C0, C1, C2, false>> {
    static HWY_INLINE V8 order(V8 x) { return quartersAcrossBlocks(x); }
    static HWY_INLINE void store(RowC<Zor8u, 3> d, std::size_t i, const V16 (&lo)[3], const V16 (&hi)[3], V8) {
        const D8 d8;
        const DU32 d32;
        constexpr std::size_t kWords = hn::MaxLanes(DU32()), kKept = 3 * kWords / 4;
        alignas(16) static constexpr std::uint8_t kSqueeze[64] = {
            0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, 0x80, 0x80, 0x80, 0x80,
            0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, 0x80, 0x80, 0x80, 0x80,
            0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, 0x80, 0x80, 0x80, 0x80,
            0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, 0x80, 0x80, 0x80, 0x80};
        // Vector m's kept word k (3 per block) goes to word (m kKept + k) mod kWords.
        struct Places {
            std::uint32_t idx[4][16];
        };
        static constexpr Places kPlaces = [] {
            Places p{};
            for (std::size_t m = 0; m < 4; ++m) {
                for (std::size_t w = 0; w < kWords; ++w) p.idx[m][w] = 3;
                for (std::size_t k = 0; k < kKept; ++k) {
                    p.idx[m][(m * kKept + k) % kWords] = static_cast<std::uint32_t>(4 * (k / 3) + k % 3);
                }
            }
            return p;
        }();
        V8 q[4];
        const V16 (*half[2])[3] = {&lo, &hi};
        for (int h = 0; h < 2; ++h) {
            V16 w0, w1;
            pixelWords<C0, C1, C2, false>(*half[h], hn::Zero(d8), w0, w1);
            pixels32(w0, w1, q[2 * h], q[2 * h + 1]);
        }
        hn::Vec<DU32> p[4];
        for (int m = 0; m < 4; ++m) {
            const V8 squeezed = hn::TableLookupBytes(q[m], hn::LoadU(d8, kSqueeze));
            p[m] = hn::TableLookupLanes(hn::BitCast(d32, squeezed), hn::SetTableIndices(d32, kPlaces.idx[m]));
        }
        // Store o holds global words o kWords ..: vector m's from m kKept.
        Zor8u* out = d.p + 3 * i;
        const std::size_t n = hn::Lanes(d8);
        for (std::size_t o = 0; o < 3; ++o) {
            const std::size_t first = (o * kWords) / kKept;  // the vector holding the store's first word
            const std::size_t split = (first + 1) * kKept - o * kWords;  // its words in this store
            const auto fromFirst = hn::FirstN(d32, split);
            hn::StoreU(hn::BitCast(d8, hn::IfThenElse(fromFirst, p[first], p[first + 1])), d8, out + o * n);
        }
    }
};

template <const Decoder& K, class S, class D, class... Fill>
void decode444(RowOf<S, const Zor8u> s, RowOf<D, Zor8u> d, int width, Fill... fill) {
    const D8 d8;
    const std::size_t n = hn::Lanes(d8);
    V8 alpha = hn::Zero(d8);
    ((alpha = hn::Set(d8, fill)), ...);
    const V8 k80 = hn::Set(d8, 0x80), zero = hn::Zero(d8);
    const ExactDecoder<K> decode;
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        V8 y, u, v;
        VecPix<S>::load(d8, s, i, y, u, v);
        y = DecodeOut<D>::order(y);
        u = DecodeOut<D>::order(u) ^ k80;
        v = DecodeOut<D>::order(v) ^ k80;
        const D16 d16;
        V16 lo[3], hi[3];
        decode(hn::BitCast(d16, hn::InterleaveLower(d8, y, y)), hn::BitCast(d16, hn::InterleaveLower(d8, zero, u)),
                       hn::BitCast(d16, hn::InterleaveLower(d8, zero, v)), lo[0], lo[1], lo[2]);
        decode(hn::BitCast(d16, hn::InterleaveUpper(d8, y, y)), hn::BitCast(d16, hn::InterleaveUpper(d8, zero, u)),
                       hn::BitCast(d16, hn::InterleaveUpper(d8, zero, v)), hi[0], hi[1], hi[2]);
        DecodeOut<D>::store(d, i, lo, hi, alpha);
    }
    ::zor::decode444<K, S, D>(S::advance(s, i), D::advance(d, i), width - static_cast<int>(i), fill...);
}

#endif  // HWY_TARGET != HWY_SCALAR

// ---------------------------------------------------------------------------

HWY_MAYBE_UNUSED constexpr YCbCr444Kernels kYCbCr444Vector = {ZOR_YCBCR444_KERNELS(ZOR_KERNEL_POINTER)};

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/target_tables.h"
namespace zor {
ZOR_TARGET_TABLES(YCbCr444Kernels, kYCbCr444Vector, ycbcr444Tables, kYCbCr444Scalar)
}  // namespace zor
#endif
