// Vector kernels of the 4:4:4 conversions, compiled once per CPU target.
// Every kernel computes exactly what its scalar kernel
// (video/ycbcr444_kernels.h) computes.
//
// Pixels need not stay in order inside a kernel: every step is per pixel.
// Each kernel picks the order in which its lanes hold the pixels so that the
// layouts' byte shuffles are the cheapest ones; planes are reordered when
// loaded, interleaved rows are read and written as groups of four pixels.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "video/ycbcr444_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/cache_control.h"
#include "hwy/highway.h"
#include "video/vec-inl.h"
#include "video/ycbcr444_kernels.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// The scalar target of Highway keeps the scalar kernels (found in zor::).
#if HWY_TARGET != HWY_SCALAR

using DU32 = hn::Repartition<std::uint32_t, D8>;
using VU32 = hn::Vec<DU32>;

// 128-bit blocks per vector (in-block byte shuffles are the cheap ones).
constexpr std::size_t kBlocks = hn::MaxLanes(D8()) / 16;

// A byte table for TableLookupBytes, the same in every block: entry j of a
// block from f(j) (0x80: a zero byte).
template <class F>
struct BlockTable {
    alignas(64) std::uint8_t bytes[64];
    constexpr explicit BlockTable(F f) : bytes{} {
        for (int j = 0; j < 64; ++j) bytes[j] = f(j % 16);
    }
};
template <class F>
HWY_INLINE V8 lookupInBlocks(V8 v, const BlockTable<F>& t) {
    return hn::TableLookupBytes(v, hn::LoadU(D8(), t.bytes));
}

// Source rows are fetched ahead of the loads (whole frames do not fit the
// caches; the hardware prefetchers alone leave the loads waiting): the
// bytes of kAhead pixels further on, one request per 64-byte line. The
// address is never dereferenced and may lie past the row.
constexpr std::size_t kAhead = 512;
template <int Bytes>
HWY_INLINE void fetchAhead(const Zor8u* p) {
    const std::uintptr_t at = reinterpret_cast<std::uintptr_t>(p) + Bytes * kAhead;
    for (int k = 0; k < Bytes * static_cast<int>(hn::MaxLanes(D8())); k += 64) {
        hwy::Prefetch(reinterpret_cast<const Zor8u*>(at + static_cast<std::uintptr_t>(k)));
    }
}

HWY_INLINE void fetchAhead(Row3<const Zor8u> s, std::size_t i) {
    for (const Zor8u* p : s.p) fetchAhead<1>(p + i);
}
template <int Stride>
HWY_INLINE void fetchAhead(RowC<const Zor8u, Stride> s, std::size_t i) {
    fetchAhead<Stride>(s.p + Stride * i);
}

// ---------------------------------------------------------------------------
// Pixel orders of planes

// Bytes of a plane reordered in each block: even pixels, then odd pixels.
// The lower and upper 16-bit halves of a block (InterleaveLower, Upper) then
// hold even and odd pixels, and OddEven of bytes puts them back in order.
HWY_INLINE V8 evenOddInBlocks(V8 x) {
    static constexpr auto kIdx = BlockTable([](int j) { return j < 8 ? 2 * j : 2 * j - 15; });
    return lookupInBlocks(x, kIdx);
}

// Bytes of a plane reordered by four-pixel groups: group m of block b takes
// pixels 4 (kBlocks m + b) ... The 32-bit interleave of 16-bit halves of
// each block (InterleaveLower, Upper twice) then gives vector m the pixels
// m n / 4 .. in order.
HWY_INLINE V8 quartersAcrossBlocks(V8 x) {
    if constexpr (kBlocks == 1) {
        return x;
    } else {
        const DU32 d32;
        struct Idx {
            std::uint32_t i[16];
        };
        static constexpr Idx kIdx = [] {
            Idx t{};
            for (std::uint32_t b = 0; b < kBlocks; ++b) {
                for (std::uint32_t m = 0; m < 4; ++m) t.i[4 * b + m] = static_cast<std::uint32_t>(kBlocks) * m + b;
            }
            return t;
        }();
        return hn::BitCast(D8(), hn::TableLookupLanes(hn::BitCast(d32, x), hn::SetTableIndices(d32, kIdx.i)));
    }
}

// ---------------------------------------------------------------------------
// Interleaved rows as groups of four pixels
//
// load: n pixels as four vectors; block q of vector m holds the bytes of
// pixels m n / 4 + 4 q .. + 3 from its first byte (a three-byte row leaves
// the block's last four bytes undefined).
// store: four vectors of 32-bit pixels (lane j of vector m: pixel
// m n / 4 + j, bytes in the row's order) to the row. A three-byte row drops
// each pixel's fourth byte; a four-byte row keeps the bytes already there
// unless the layout fills them (then the pixels carry the fill value).

template <class L>
struct Groups;

template <int C0, int C1, int C2, bool Fill>
struct Groups<Interleaved<4, C0, C1, C2, Fill>> {
    static HWY_INLINE void load(const Zor8u* p, V8 (&w)[4]) {
        const D8 d8;
        for (int m = 0; m < 4; ++m) w[m] = hn::LoadU(d8, p + m * hn::Lanes(d8));
    }
    static HWY_INLINE void storeGroup(Zor8u* p, int m, V8 q) {
        const D8 d8;
        Zor8u* at = p + m * hn::Lanes(d8);
        if constexpr (Fill) {
            hn::StoreU(q, d8, at);
        } else {
            const auto kept = hn::MaskFromVec(hn::BitCast(d8, hn::Set(DU32(), 0xFF000000u)));
            hn::StoreU(hn::IfThenElse(kept, hn::LoadU(d8, at), q), d8, at);
        }
    }
    static HWY_INLINE void store(Zor8u* p, const V8 (&q)[4]) {
        for (int m = 0; m < 4; ++m) storeGroup(p, m, q[m]);
    }
};

template <int C0, int C1, int C2>
struct Groups<Interleaved<3, C0, C1, C2, false>> {
    static constexpr std::size_t kWords = hn::MaxLanes(DU32());  // 32-bit words per vector
    static constexpr std::size_t kKept = 3 * kWords / 4;         // words of one group's pixels

    struct Idx {
        std::uint32_t i[4][16];
    };

    // Group m's bytes start at word kKept m of the row; the last group is
    // loaded from word 2 kWords (no byte past the n pixels is read), the
    // others from their first word. Word k of block q: the group's word
    // 3 q + k.
    static HWY_INLINE void load(const Zor8u* p, V8 (&w)[4]) {
        const D8 d8;
        const DU32 d32;
        static constexpr Idx kIdx = [] {
            Idx t{};
            for (std::size_t m = 0; m < 4; ++m) {
                const std::size_t from = m < 3 ? 0 : 3 * kKept - 2 * kWords;
                for (std::size_t q = 0; q < kBlocks; ++q) {
                    for (std::size_t k = 0; k < 4; ++k) {
                        t.i[m][4 * q + k] = static_cast<std::uint32_t>(from + 3 * q + (k < 3 ? k : 2));
                    }
                }
            }
            return t;
        }();
        for (std::size_t m = 0; m < 4; ++m) {
            const std::size_t at = 4 * (m < 3 ? kKept * m : 2 * kWords);
            const VU32 v = hn::BitCast(d32, hn::LoadU(d8, p + at));
            w[m] = hn::BitCast(d8, hn::TableLookupLanes(v, hn::SetTableIndices(d32, kIdx.i[m])));
        }
    }

    // Each block's three pixel words squeezed together, group m's kKept
    // words placed at their words of the three stores (word kKept m + k of
    // the row, modulo the vector), and the stores blended from two groups.
    static HWY_INLINE void store(Zor8u* p, const V8 (&q)[4]) {
        const D8 d8;
        const DU32 d32;
        static constexpr auto kSqueeze = BlockTable([](int j) { return j < 12 ? j + j / 3 : 0x80; });
        static constexpr Idx kPlaces = [] {
            Idx t{};
            for (std::size_t m = 0; m < 4; ++m) {
                for (std::size_t k = 0; k < kKept; ++k) {
                    t.i[m][(m * kKept + k) % kWords] = static_cast<std::uint32_t>(k + k / 3);
                }
            }
            return t;
        }();
        VU32 placed[4];
        for (std::size_t m = 0; m < 4; ++m) {
            const VU32 v = hn::BitCast(d32, lookupInBlocks(q[m], kSqueeze));
            placed[m] = hn::TableLookupLanes(v, hn::SetTableIndices(d32, kPlaces.i[m]));
        }
        for (std::size_t o = 0; o < 3; ++o) {
            const std::size_t first = o * kWords / kKept;                // group of the store's first word
            const std::size_t split = (first + 1) * kKept - o * kWords;  // its words in this store
            const VU32 v = hn::IfThenElse(hn::FirstN(d32, split), placed[first], placed[first + 1]);
            hn::StoreU(hn::BitCast(d8, v), d8, p + o * hn::Lanes(d8));
        }
    }
};

// ---------------------------------------------------------------------------
// Encoders

// Coefficients of the encoder (video/ycbcr.h) as pairs for 16-bit pairwise
// products. 33030 G does not fit a 16-bit coefficient, so luma takes G
// twice; the chroma offsets ride on B paired with 512.
struct EncodeCoefficients {
    static constexpr std::int32_t kYR = lumaProduct(1, 0, 0), kYG = lumaProduct(0, 1, 0) / 2,
                                  kYB = lumaProduct(0, 0, 1);
    static constexpr std::int32_t kCbR = cbProduct(1, 0, 0), kCbG = cbProduct(0, 1, 0), kCbB = cbProduct(0, 0, 1);
    static constexpr std::int32_t kCrR = crProduct(1, 0, 0), kCrG = crProduct(0, 1, 0), kCrB = crProduct(0, 0, 1);
    static constexpr std::int32_t kChroma = kChromaRounded / 512;
    static_assert(2 * kYG == lumaProduct(0, 1, 0) && kYG < 32768 && 512 * kChroma == kChromaRounded,
                  "encoder coefficient split");
};

// One half of a vector of pixels: Y, Cb, Cr of 16-bit R, G, B.
HWY_INLINE void encodeHalf(V16 r, V16 g, V16 b, V16& y, V16& cb, V16& cr) {
    using C = EncodeCoefficients;
    const D16 d16;
    const V16 k512 = hn::Set(d16, 512);
    const V16 rgL = hn::InterleaveLower(d16, r, g), rgU = hn::InterleaveUpper(d16, r, g);
    const V16 gbL = hn::InterleaveLower(d16, g, b), gbU = hn::InterleaveUpper(d16, g, b);
    const V16 bkL = hn::InterleaveLower(d16, b, k512), bkU = hn::InterleaveUpper(d16, b, k512);
    const V32 lumaBias = hn::Set(D32(), kLumaRounded);
    const V16 yRG = pair(C::kYR, C::kYG), yGB = pair(C::kYG, C::kYB);
    y = narrow(hn::ShiftRight<16>(dot(rgL, yRG) + dot(gbL, yGB) + lumaBias),
               hn::ShiftRight<16>(dot(rgU, yRG) + dot(gbU, yGB) + lumaBias));
    const V16 cbRG = pair(C::kCbR, C::kCbG), cbBK = pair(C::kCbB, C::kChroma);
    cb = narrow(hn::ShiftRight<16>(dot(rgL, cbRG) + dot(bkL, cbBK)), hn::ShiftRight<16>(dot(rgU, cbRG) + dot(bkU, cbBK)));
    const V16 crRG = pair(C::kCrR, C::kCrG), crBK = pair(C::kCrB, C::kChroma);
    cr = narrow(hn::ShiftRight<16>(dot(rgL, crRG) + dot(bkL, crBK)), hn::ShiftRight<16>(dot(rgU, crRG) + dot(bkU, crBK)));
}

// Planes: 16-bit halves of each block (in block order after
// ReorderDemote2To), bytes back in order through evenOddInBlocks.
template <class S, class D>
HWY_INLINE void encodePlanes(RowOf<S, const Zor8u> s, RowOf<D, Zor8u> d, std::size_t i) {
    const D8 d8;
    const V8 zero = hn::Zero(d8);
    V8 c[3];
    fetchAhead(s, i);
    VecPix<S>::load(d8, s, i, c[0], c[1], c[2]);
    V16 lo[3], hi[3];
    for (int k = 0; k < 3; ++k) {
        c[k] = evenOddInBlocks(c[k]);
        lo[k] = hn::BitCast(D16(), hn::InterleaveLower(d8, c[k], zero));
        hi[k] = hn::BitCast(D16(), hn::InterleaveUpper(d8, c[k], zero));
    }
    V16 y[2], cb[2], cr[2];
    encodeHalf(lo[0], lo[1], lo[2], y[0], cb[0], cr[0]);
    encodeHalf(hi[0], hi[1], hi[2], y[1], cb[1], cr[1]);
    // Every output is a byte: odd pixels into the upper bytes.
    const auto bytes = [d8](const V16(&h)[2]) {
        return hn::OddEven(hn::BitCast(d8, hn::ShiftLeft<8>(h[1])), hn::BitCast(d8, h[0]));
    };
    VecPix<D>::store(d8, d, i, bytes(y), bytes(cb), bytes(cr), zero);
}

// Four pixels of a group as 32-bit pairs (x, y) of samples a, b of layout
// L (0x80: the sample 0).
template <class L, int A, int B>
HWY_INLINE V32 samplePairs(V8 w) {
    static constexpr auto kIdx = BlockTable([](int j) {
        const int k = j / 4, at = j % 4;
        const int sample = at == 0 ? A : at == 2 ? B : -1;
        return sample < 0 ? 0x80 : L::kStride * k + L::kC[sample];
    });
    return hn::BitCast(D32(), lookupInBlocks(w, kIdx));
}

// One group of pixels of layout S to 32-bit pixels of layout D: the sums
// of the products (65536 times the output plus a fraction below 65536; all
// outputs are bytes), each shifted so that its byte lands at its place in
// the pixel, and blended.
template <class S, class D>
HWY_INLINE V8 encodeGroup(V8 w) {
    using C = EncodeCoefficients;
    const D8 d8;
    const V32 rg = samplePairs<S, 0, 1>(w), gb = samplePairs<S, 1, 2>(w);
    const V32 bk = samplePairs<S, 2, -1>(w) | hn::Set(D32(), 512 << 16);
    const V32 sum[3] = {dot(hn::BitCast(D16(), rg), pair(C::kYR, C::kYG)) +
                            dot(hn::BitCast(D16(), gb), pair(C::kYG, C::kYB)) + hn::Set(D32(), kLumaRounded),
                        dot(hn::BitCast(D16(), rg), pair(C::kCbR, C::kCbG)) + dot(hn::BitCast(D16(), bk), pair(C::kCbB, C::kChroma)),
                        dot(hn::BitCast(D16(), rg), pair(C::kCrR, C::kCrG)) + dot(hn::BitCast(D16(), bk), pair(C::kCrB, C::kChroma))};
    // The output at byte p: sum >> (16 - 8 p), zero above the byte.
    const auto at = [&](int p) {
        const int k = D::kC[0] == p ? 0 : D::kC[1] == p ? 1 : 2;
        return p == 0 ? hn::BitCast(d8, hn::ShiftRight<16>(sum[k]))
                      : p == 1 ? hn::BitCast(d8, hn::ShiftRight<8>(sum[k])) : hn::BitCast(d8, sum[k]);
    };
    const auto byte0 = hn::MaskFromVec(hn::BitCast(d8, hn::Set(DU32(), 0x000000FFu)));
    const auto byte1 = hn::MaskFromVec(hn::BitCast(d8, hn::Set(DU32(), 0x0000FF00u)));
    return hn::IfThenElse(byte0, at(0), hn::IfThenElse(byte1, at(1), at(2)));
}

template <class S, class D>
void encode444(RowOf<S, const Zor8u> s, RowOf<D, Zor8u> d, int width) {
    const std::size_t n = hn::Lanes(D8());
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        if constexpr (S::kStride == 1 || D::kStride == 1) {
            encodePlanes<S, D>(s, d, i);
        } else {
            V8 w[4];
            fetchAhead(s, i);
            Groups<S>::load(s.p + S::kStride * i, w);
            for (V8& x : w) x = encodeGroup<S, D>(x);
            Groups<D>::store(d.p + D::kStride * i, w);
        }
    }
    ::zor::encode444<S, D>(S::advance(s, i), D::advance(d, i), width - static_cast<int>(i));
}

// ---------------------------------------------------------------------------
// Decoders
//
// The exact decoder (ExactDecoder, video/vec-inl.h) takes luma as y * 257
// and centred chroma shifted up by 8, each a vector of 16-bit lanes, and
// gives 32 out + m per output (m in 0..31), which clampLow and clampHigh
// turn into clamped bytes.

// The clamped bytes of one half as two 16-bit words of each pixel (bytes 0,
// 1 and 2, 3 of layout D), the fourth byte from the odd bytes of `fourth`.
template <class D>
HWY_INLINE void pixelWords(const V16 (&o)[3], V8 fourth, V16& w0, V16& w1) {
    const D8 d8;
    const D16 d16;
    constexpr int kAt[3] = {D::kC[0] == 0 ? 0 : D::kC[1] == 0 ? 1 : 2, D::kC[0] == 1 ? 0 : D::kC[1] == 1 ? 1 : 2,
                            D::kC[0] == 2 ? 0 : D::kC[1] == 2 ? 1 : 2};
    w0 = hn::BitCast(d16, hn::OddEven(hn::BitCast(d8, clampHigh(o[kAt[1]])), hn::BitCast(d8, clampLow(o[kAt[0]]))));
    w1 = clampLow(o[kAt[2]]);
    if constexpr (D::kFill) w1 = hn::BitCast(d16, hn::OddEven(fourth, hn::BitCast(d8, w1)));
}

// Planes to layout D, one 16-bit half of the decoded vector at a time
// (each consumed before the next is decoded). Planes: even and odd pixels
// of each block in the two halves.
template <class D>
struct PlanesOut;

template <>
struct PlanesOut<Planar> {
    V16 even[3];
    // Written out, so that the vectors are built in code of this target.
    HWY_INLINE PlanesOut() {}
    static HWY_INLINE V8 order(V8 x) { return evenOddInBlocks(x); }
    HWY_INLINE void put(Row3<Zor8u> d, std::size_t i, int h, const V16 (&o)[3], V8) {
        const D8 d8;
        for (int k = 0; k < 3; ++k) {
            if (h == 0) {
                even[k] = clampLow(o[k]);
            } else {
                hn::StoreU(hn::OddEven(hn::BitCast(d8, clampHigh(o[k])), hn::BitCast(d8, even[k])), d8, d.p[k] + i);
            }
        }
    }
};

// Interleaved pixels: quarters of the blocks, whose 32-bit interleave puts
// the pixels in order.
template <int Stride, int C0, int C1, int C2, bool Fill>
struct PlanesOut<Interleaved<Stride, C0, C1, C2, Fill>> {
    using D = Interleaved<Stride, C0, C1, C2, Fill>;
    V8 q[4];
    HWY_INLINE PlanesOut() {}
    static HWY_INLINE V8 order(V8 x) { return quartersAcrossBlocks(x); }
    HWY_INLINE void put(RowC<Zor8u, Stride> d, std::size_t i, int h, const V16 (&o)[3], V8 alpha) {
        const D8 d8;
        const D16 d16;
        V16 w0, w1;
        pixelWords<D>(o, alpha, w0, w1);
        q[2 * h] = hn::BitCast(d8, hn::InterleaveLower(d16, w0, w1));
        q[2 * h + 1] = hn::BitCast(d8, hn::InterleaveUpper(d16, w0, w1));
        if constexpr (Stride == 4) {
            Groups<D>::storeGroup(d.p + Stride * i, 2 * h, q[2 * h]);
            Groups<D>::storeGroup(d.p + Stride * i, 2 * h + 1, q[2 * h + 1]);
        } else if (h == 1) {
            Groups<D>::store(d.p + Stride * i, q);
        }
    }
};

template <const Decoder& K, class D>
HWY_INLINE void decodePlanes(Row3<const Zor8u> s, RowOf<D, Zor8u> d, std::size_t i, const ExactDecoder<K>& decode,
                             V8 alpha) {
    const D8 d8;
    const D16 d16;
    const V8 k80 = hn::Set(d8, 0x80), zero = hn::Zero(d8);
    using Out = PlanesOut<D>;
    fetchAhead(s, i);
    const V8 y = Out::order(hn::LoadU(d8, s.p[0] + i));
    const V8 u = Out::order(hn::LoadU(d8, s.p[1] + i)) ^ k80;
    const V8 v = Out::order(hn::LoadU(d8, s.p[2] + i)) ^ k80;
    Out out;
    V16 o[3];
    decode(hn::BitCast(d16, hn::InterleaveLower(d8, y, y)), hn::BitCast(d16, hn::InterleaveLower(d8, zero, u)),
           hn::BitCast(d16, hn::InterleaveLower(d8, zero, v)), o[0], o[1], o[2]);
    out.put(d, i, 0, o, alpha);
    decode(hn::BitCast(d16, hn::InterleaveUpper(d8, y, y)), hn::BitCast(d16, hn::InterleaveUpper(d8, zero, u)),
           hn::BitCast(d16, hn::InterleaveUpper(d8, zero, v)), o[0], o[1], o[2]);
    out.put(d, i, 1, o, alpha);
}

// Interleaved pixels to interleaved pixels: groups of four pixels, two
// groups a, b per vector of 16-bit lanes (pixel j of group a in lane 2 j,
// of group b in lane 2 j + 1), so that 32-bit shifts and OddEven move
// words between the groups' pixels and the lanes.
template <const Decoder& K, class S, class D>
HWY_INLINE void decodePixels(RowOf<S, const Zor8u> s, RowOf<D, Zor8u> d, std::size_t i,
                             const ExactDecoder<K>& decode, V8 alpha) {
    const D8 d8;
    const D16 d16;
    const DU32 d32;
    // The words of a decoder input (y * 257, or (x - 128) << 8 for chroma
    // sample c) in word `half` of each pixel's 32-bit lane.
    struct Form {
        int c, half;
    };
    const auto table = [](Form f) {
        return BlockTable([f](int j) {
            const int k = j / 4, at = j % 4 - 2 * f.half;
            const int byte = S::kStride * k + S::kC[f.c];
            return at == 1 || (at == 0 && f.c == 0) ? byte : 0x80;
        });
    };
    static constexpr auto kYA = table({0, 0}), kUA = table({1, 0}), kVA = table({2, 0});
    static constexpr auto kYB = table({0, 1}), kUB = table({1, 1}), kVB = table({2, 1});
    static constexpr auto kCentre = BlockTable([](int j) {
        const int at = j % S::kStride;
        return j < 4 * S::kStride && (at == S::kC[1] || at == S::kC[2]) ? 0x80 : 0;
    });
    V8 w[4];
    fetchAhead(s, i);
    Groups<S>::load(s.p + S::kStride * i, w);
    V8 q[4];
    for (int h = 0; h < 2; ++h) {
        const V8 a = w[2 * h] ^ hn::LoadU(d8, kCentre.bytes), b = w[2 * h + 1] ^ hn::LoadU(d8, kCentre.bytes);
        const auto form = [&](const auto& ta, const auto& tb) {
            return hn::OddEven(hn::BitCast(d16, lookupInBlocks(b, tb)), hn::BitCast(d16, lookupInBlocks(a, ta)));
        };
        V16 o[3];
        decode(form(kYA, kYB), form(kUA, kUB), form(kVA, kVB), o[0], o[1], o[2]);
        V16 w0, w1;
        pixelWords<D>(o, alpha, w0, w1);
        q[2 * h] = hn::BitCast(d8, hn::OddEven(hn::BitCast(d16, hn::ShiftLeft<16>(hn::BitCast(d32, w1))), w0));
        q[2 * h + 1] = hn::BitCast(d8, hn::OddEven(w1, hn::BitCast(d16, hn::ShiftRight<16>(hn::BitCast(d32, w0)))));
    }
    Groups<D>::store(d.p + D::kStride * i, q);
}

template <const Decoder& K, class S, class D, class... Fill>
void decode444(RowOf<S, const Zor8u> s, RowOf<D, Zor8u> d, int width, Fill... fill) {
    const D8 d8;
    const std::size_t n = hn::Lanes(d8);
    V8 alpha = hn::Zero(d8);
    ((alpha = hn::Set(d8, fill)), ...);
    const ExactDecoder<K> decode;
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        if constexpr (S::kStride == 1) {
            decodePlanes<K, D>(s, d, i, decode, alpha);
        } else {
            decodePixels<K, S, D>(s, d, i, decode, alpha);
        }
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
