// Vector kernels of the subsampled encoders, compiled once per CPU target.
// Every kernel computes exactly what its scalar kernel
// (video/encode_kernels.h) computes: it converts whole vectors of pixels
// (whole groups, since a vector holds a multiple of four pixels) and leaves
// the rest of the row to the scalar kernel.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "video/encode_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "video/encode-inl.h"
#include "video/encode_kernels.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// The scalar target of Highway keeps the scalar kernels (found in zor::).
#if HWY_TARGET != HWY_SCALAR

// A pixel's luma and chroma bytes as one 16-bit word, in the order's bytes.
template <class Order>
HWY_INLINE V32 packedWord(V32 y, V32 c) {
    static_assert(Order::kY0 + Order::kCb == 1 && Order::kY1 == Order::kY0 + 2 && Order::kCr == Order::kCb + 2,
                  "each pixel's Y and chroma share one 16-bit word");
    return Order::kY0 == 0 ? hn::Or(y, hn::ShiftLeft<8>(c)) : hn::Or(c, hn::ShiftLeft<8>(y));
}

// Packed 16-bit words of a chunk: luma in one byte, the pair's chroma (Cb
// for the first pixel, Cr for the second) in the other.
template <class Order>
HWY_INLINE void storePacked(V16 y, V32 cb, V32 cr, std::uint8_t* p) {
    const V16 c = hn::BitCast(D16(), hn::Or(cb, hn::ShiftLeft<16>(cr)));
    const V16 words = Order::kY0 == 0 ? hn::Or(y, hn::ShiftLeft<8>(c)) : hn::Or(c, hn::ShiftLeft<8>(y));
    hn::StoreU(hn::BitCast(D8(), words), D8(), p);
}

template <class Rule, class S, class Order>
void encode422Packed(SrcRow<S> s, RowC<Zor8u, 2> d, int width) {
    const D32 d32;
    const std::size_t n = hn::Lanes(D8()), half = n / 2;
    const V32 bias = lumaBias(kLumaRounded, Rule::kLumaBias1);
    const V32 offCb = hn::Set(d32, Rule::kOffsetCb), offCr = hn::Set(d32, Rule::kOffsetCr);
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        Rgb16 c[2];
        VecSrc<S>::load(s, i, c);
        for (std::size_t h = 0; h < 2; ++h) {
            storePacked<Order>(luma(c[h], bias), hn::ShiftRight<Rule::kShift>(cbPairs(c[h]) + offCb),
                               hn::ShiftRight<Rule::kShift>(crPairs(c[h]) + offCr), d.p + 2 * (i + h * half));
        }
    }
    ::zor::encode422Packed<Rule, S, Order>(S::advance(s, i), advance(d, i), width - static_cast<int>(i));
}

// Whole vectors of units: luma bytes, and the chroma of the pairs (Group 2)
// or of the four-pixel groups (Group 4) of every unit's R,G and B,G sums.
template <class Rule, class S, int Group, class Store>
HWY_INLINE std::size_t planarUnits(SrcRow<S> s, Zor8u* y, int width, const Store& store) {
    const D32 d32;
    const Units<S> units;
    const Pack4 pack;
    const std::size_t n = hn::Lanes(D8()), n32 = hn::Lanes(d32);
    const V32 bias = lumaBias(kLumaRounded, kLumaRounded);
    const V32 offCb = hn::Set(d32, Rule::kOffsetCb), offCr = hn::Set(d32, Rule::kOffsetCr);
    const V16 cbRG = pair(-9699, -19071), cbB = pair(28770, 0), crRG = pair(28770, -24117), crB = pair(-4653, 0);
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        V16 rg[4], bg[4];
        V32 l[4];
        for (std::size_t k = 0; k < 4; ++k) {
            units.load(s.p, i + k * n32, rg[k], bg[k]);
            l[k] = lumaUnit(rg[k], bg[k], bias);
        }
        hn::StoreU(pack(l[0], l[1], l[2], l[3]), D8(), y + i);
        V16 prg[2] = {pairSums(rg[0], rg[1]), pairSums(rg[2], rg[3])};
        V16 pbg[2] = {pairSums(bg[0], bg[1]), pairSums(bg[2], bg[3])};
        if constexpr (Group == 4) prg[0] = pairSums(prg[0], prg[1]), pbg[0] = pairSums(pbg[0], pbg[1]);
        V32 c[4];
        for (int h = 0; h < 4 / Group; ++h) {
            c[h] = hn::ShiftRight<Rule::kShift>(dot(prg[h], cbRG) + dot(pbg[h], cbB) + offCb);
            c[2 + h] = hn::ShiftRight<Rule::kShift>(dot(prg[h], crRG) + dot(pbg[h], crB) + offCr);
        }
        store(i, c);
    }
    return i;
}

template <class S>
void encode422Planar(SrcRow<S> s, Row3<Zor8u, 2> d, int width) {
    using Rule = RuleEB422;
    const std::size_t n = hn::Lanes(D8()), half = n / 2;
    const V32 bias = lumaBias(kLumaRounded, kLumaRounded);
    const V32 offCb = hn::Set(D32(), Rule::kOffsetCb), offCr = hn::Set(D32(), Rule::kOffsetCr);
    std::size_t i = 0;
    if constexpr (kHasUnits<S>) {
        const Pack4 pack;
        i = planarUnits<Rule, S, 2>(s, d.p[0], width, [&](std::size_t x, const V32(&c)[4]) {
            const hn::Half<D8> dh;
            const V8 chroma = pack(c[0], c[1], c[2], c[3]);
            hn::StoreU(hn::LowerHalf(dh, chroma), dh, d.p[1] + x / 2);
            hn::StoreU(hn::UpperHalf(dh, chroma), dh, d.p[2] + x / 2);
        });
    } else {
        for (; i + n <= static_cast<std::size_t>(width); i += n) {
            Rgb16 c[2];
            VecSrc<S>::load(s, i, c);
            for (std::size_t h = 0; h < 2; ++h) {
                const std::size_t x = i + h * half;
                storeLuma(luma(c[h], bias), d.p[0] + x);
                storeChroma(hn::ShiftRight<Rule::kShift>(cbPairs(c[h]) + offCb), d.p[1] + x / 2);
                storeChroma(hn::ShiftRight<Rule::kShift>(crPairs(c[h]) + offCr), d.p[2] + x / 2);
            }
        }
    }
    ::zor::encode422Planar<S>(S::advance(s, i), advance(d, i), width - static_cast<int>(i));
}

// Even lanes shifted right by 1, odd lanes by 2 (arithmetic shifts).
HWY_INLINE V32 halvesAndQuarters(V32 p, V32 shifts) {
#if HWY_TARGET == HWY_SSE4  // no shifts by lane
    (void)shifts;
    return hn::OddEven(hn::ShiftRight<2>(p), hn::ShiftRight<1>(p));
#else
    return p >> shifts;
#endif
}

// The filtered encoder. Each pixel's products are floor-shifted on their own
// (by 1 for the even pixel of a pair, by 2 for the odd one); a pair adds its
// two and the odd quarter of the pair before it (0 at the row start); the
// scalar kernel goes on from the last ones.
template <class S>
void encodeFiltered422(SrcRow<S> s, RowC<Zor8u, 2> d, int width) {
    const D16 d16;
    const D32 d32;
    const std::size_t n = hn::Lanes(D8()), half = n / 2;
    const std::int32_t last = static_cast<std::int32_t>(hn::Lanes(d32)) - 1;
    const V32 bias = lumaBias(kLumaRounded, kLumaRounded), chromaBias = hn::Set(d32, kFilteredChromaBias);
    const V16 cbRG = pair(-9699, -19071), cbB0 = pair(28770, 0), cbB1 = pair(0, 28770);
    const V16 crRG = pair(28770, -24117), crB0 = pair(-4653, 0), crB1 = pair(0, -4653);
    std::int32_t carryCb = 0, carryCr = 0;
    std::size_t i = 0;
    if constexpr (kHasUnits<S>) {
        // Pixel lanes, Cb summed on the even lane of each pair and Cr on the
        // odd one. x and y hold the quarters and halves of both; the left
        // terms come one lane up (Cb) and two lanes up (Cr), and lanes 0 and
        // 1 take them from the unit before.
        const Units<S> units;
        const PackWords words;
        const std::size_t n32 = hn::Lanes(d32);
        const auto up1 = hn::IndicesFromVec(d32, hn::And(hn::Iota(d32, last), hn::Set(d32, last)));
        const auto up2 = hn::IndicesFromVec(d32, hn::And(hn::Iota(d32, last - 1), hn::Set(d32, last)));
        const auto first2 = hn::FirstN(d32, 2);
        const V32 shifts = hn::OddEven(hn::Set(d32, 2), hn::Set(d32, 1));
        V32 carry = hn::Zero(d32);
        for (; i + n <= static_cast<std::size_t>(width); i += n) {
            V32 w[4];
            for (std::size_t k = 0; k < 4; ++k) {
                V16 rg, bg;
                units.load(s.p, i + k * n32, rg, bg);
                const V32 qcb = halvesAndQuarters(dot(rg, cbRG) + dot(bg, cbB0), shifts);
                const V32 qcr = halvesAndQuarters(dot(rg, crRG) + dot(bg, crB0), shifts);
                const V32 x = hn::OddEven(qcr, qcb), y = hn::OddEven(qcb, qcr);
                const V32 left = hn::OddEven(hn::TableLookupLanes(x, up2), hn::TableLookupLanes(y, up1));
                const V32 c = hn::ShiftRight<16>(x + hn::Shuffle2301(y) + hn::IfThenElse(first2, carry, left) + chromaBias);
                carry = left;
                w[k] = packedWord<OrderCbYCr>(lumaUnit(rg, bg, bias), c);
            }
            words.store(w[0], w[1], d.p + 2 * i);
            words.store(w[2], w[3], d.p + 2 * i + n);
        }
        carryCb = hn::GetLane(carry);
        carryCr = hn::ExtractLane(carry, 1);
    } else {
        // Pair lanes: the products of the even and of the odd pixel of each
        // pair formed apart (R and G of one pixel paired in a 32-bit lane, B
        // against a zero coefficient for the other pixel).
        const auto up = hn::IndicesFromVec(d32, hn::And(hn::Iota(d32, last), hn::Set(d32, last)));
        const auto first = hn::FirstN(d32, 1);
        V32 leftCb = hn::Zero(d32), leftCr = hn::Zero(d32);
        const auto chroma = [&](V32 even, V32 odd, V32& left) {
            const V32 right = hn::ShiftRight<2>(odd);
            const V32 moved = hn::TableLookupLanes(right, up);
            const V32 sum = hn::ShiftRight<1>(even) + right + hn::IfThenElse(first, left, moved) + chromaBias;
            left = moved;
            return hn::ShiftRight<16>(sum);
        };
        for (; i + n <= static_cast<std::size_t>(width); i += n) {
            Rgb16 c[2];
            VecSrc<S>::load(s, i, c);
            for (std::size_t h = 0; h < 2; ++h) {
                const Rgb16& x = c[h];
                const V32 r32 = hn::BitCast(d32, x.r), g32 = hn::BitCast(d32, x.g);
                const V16 rg0 = hn::OddEven(hn::BitCast(d16, hn::ShiftLeft<16>(g32)), x.r);
                const V16 rg1 = hn::OddEven(x.g, hn::BitCast(d16, hn::ShiftRight<16>(r32)));
                const V32 cb = chroma(dot(rg0, cbRG) + dot(x.b, cbB0), dot(rg1, cbRG) + dot(x.b, cbB1), leftCb);
                const V32 cr = chroma(dot(rg0, crRG) + dot(x.b, crB0), dot(rg1, crRG) + dot(x.b, crB1), leftCr);
                storePacked<OrderCbYCr>(luma(x, bias), cb, cr, d.p + 2 * (i + h * half));
            }
        }
        carryCb = hn::GetLane(leftCb);
        carryCr = hn::GetLane(leftCr);
    }
    ::zor::encodeFilteredFrom<S>(S::advance(s, i), advance(d, i), width - static_cast<int>(i), carryCb, carryCr);
}

template <class S, bool Swap>
void encode420(SrcRow<S> s0, SrcRow<S> s1, Row3<Zor8u, 2> d0, Row3<Zor8u, 2> d1, int width) {
    using Rule = RuleE420;
    const D32 d32;
    const std::size_t n = hn::Lanes(D8()), half = n / 2;
    const V32 bias = lumaBias(kLumaRounded, kLumaRounded);
    const V32 offCb = hn::Set(d32, Rule::kOffsetCb), offCr = hn::Set(d32, Rule::kOffsetCr);
    std::size_t i = 0;
    if constexpr (kHasUnits<S>) {
        // Units of both rows: luma per pixel; the rows' samples added, then
        // the pairs' (the sums of 2 x 2 blocks), then the chroma products.
        const Units<S> units;
        const Pack4 pack;
        const std::size_t n32 = hn::Lanes(d32);
        const V16 cbRG = pair(-9699, -19071), cbB = pair(28770, 0), crRG = pair(28770, -24117), crB = pair(-4653, 0);
        for (; i + n <= static_cast<std::size_t>(width); i += n) {
            V16 rg[2][4], bg[2][4];
            for (int r = 0; r < 2; ++r) {
                V32 y[4];
                for (std::size_t k = 0; k < 4; ++k) {
                    units.load(r ? s1.p : s0.p, i + k * n32, rg[r][k], bg[r][k]);
                    y[k] = lumaUnit(rg[r][k], bg[r][k], bias);
                }
                hn::StoreU(pack(y[0], y[1], y[2], y[3]), D8(), (r ? d1 : d0).p[0] + i);
            }
            V32 c[4];
            for (int h = 0; h < 2; ++h) {
                const V16 prg = pairSums(rg[0][2 * h] + rg[1][2 * h], rg[0][2 * h + 1] + rg[1][2 * h + 1]);
                const V16 pbg = pairSums(bg[0][2 * h] + bg[1][2 * h], bg[0][2 * h + 1] + bg[1][2 * h + 1]);
                c[h] = hn::ShiftRight<Rule::kShift>(dot(prg, cbRG) + dot(pbg, cbB) + offCb);
                c[2 + h] = hn::ShiftRight<Rule::kShift>(dot(prg, crRG) + dot(pbg, crB) + offCr);
            }
            const V8 chroma = pack(c[0], c[1], c[2], c[3]);
            const hn::Half<D8> dh;
            hn::StoreU(hn::LowerHalf(dh, chroma), dh, d0.p[Swap ? 2 : 1] + i / 2);
            hn::StoreU(hn::UpperHalf(dh, chroma), dh, d0.p[Swap ? 1 : 2] + i / 2);
        }
    } else {
        for (; i + n <= static_cast<std::size_t>(width); i += n) {
            Rgb16 a[2], b[2];
            VecSrc<S>::load(s0, i, a);
            VecSrc<S>::load(s1, i, b);
            for (std::size_t h = 0; h < 2; ++h) {
                const std::size_t x = i + h * half;
                storeLuma(luma(a[h], bias), d0.p[0] + x);
                storeLuma(luma(b[h], bias), d1.p[0] + x);
                const Rgb16 sum = a[h] + b[h];
                storeChroma(hn::ShiftRight<Rule::kShift>(cbPairs(sum) + offCb), d0.p[Swap ? 2 : 1] + x / 2);
                storeChroma(hn::ShiftRight<Rule::kShift>(crPairs(sum) + offCr), d0.p[Swap ? 1 : 2] + x / 2);
            }
        }
    }
    ::zor::encode420<S, Swap>(S::advance(s0, i), S::advance(s1, i), advance(d0, i), advance(d1, i),
                              width - static_cast<int>(i));
}

template <class S>
void encode411(SrcRow<S> s, Row3<Zor8u, 4> d, int width) {
    using Rule = RuleE411;
    const D32 d32;
    const std::size_t n = hn::Lanes(D8()), half = n / 2;
    std::size_t i = 0;
    if constexpr (kHasUnits<S>) {
        i = planarUnits<Rule, S, 4>(s, d.p[0], width, [&](std::size_t x, const V32(&c)[4]) {
            storeChroma(c[0], d.p[1] + x / 4);
            storeChroma(c[2], d.p[2] + x / 4);
        });
    } else {
        // Four pixels are two pairs: the pair products of both chunks,
        // gathered and added.
        const V32 bias = lumaBias(kLumaRounded, kLumaRounded);
        const V32 offCb = hn::Set(d32, Rule::kOffsetCb), offCr = hn::Set(d32, Rule::kOffsetCr);
        const auto groups = [&](V32 lo, V32 hi, V32 off) {
            return hn::ShiftRight<Rule::kShift>(hn::ConcatEven(d32, hi, lo) + hn::ConcatOdd(d32, hi, lo) + off);
        };
        for (; i + n <= static_cast<std::size_t>(width); i += n) {
            Rgb16 c[2];
            VecSrc<S>::load(s, i, c);
            storeLuma(luma(c[0], bias), d.p[0] + i);
            storeLuma(luma(c[1], bias), d.p[0] + i + half);
            storeChroma(groups(cbPairs(c[0]), cbPairs(c[1]), offCb), d.p[1] + i / 4);
            storeChroma(groups(crPairs(c[0]), crPairs(c[1]), offCr), d.p[2] + i / 4);
        }
    }
    ::zor::encode411<S>(S::advance(s, i), advance(d, i), width - static_cast<int>(i));
}

#endif  // HWY_TARGET != HWY_SCALAR

// ---------------------------------------------------------------------------

HWY_MAYBE_UNUSED constexpr EncodeKernels kEncodeVector = {ZOR_ENCODE_KERNELS(ZOR_KERNEL_POINTER)};

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/target_tables.h"
namespace zor {
ZOR_TARGET_TABLES(EncodeKernels, kEncodeVector, encodeTables, kEncodeScalar)
}  // namespace zor
#endif
