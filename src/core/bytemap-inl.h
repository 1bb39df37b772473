// A 256-entry byte table looked up in vectors (included once per target,
// after hwy/foreach_target.h): the table as sixteen 16-byte tables, each
// looked up by the low four bits of the samples (a byte shuffle); the
// sample's high four bits pick the right one in four rounds of selects.
#if defined(ZOR_CORE_BYTEMAP_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef ZOR_CORE_BYTEMAP_INL_H_
#undef ZOR_CORE_BYTEMAP_INL_H_
#else
#define ZOR_CORE_BYTEMAP_INL_H_
#endif

#include "hwy/highway.h"

#include <cstdint>

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET != HWY_SCALAR
using D8 = hn::ScalableTag<std::uint8_t>;
using V8 = hn::Vec<D8>;

// With 128- and 256-bit vectors on x86 the sixteen shuffles and fifteen
// selects cost more than a scalar table lookup per byte: there only AVX-512
// maps bytes in vectors.
inline constexpr bool kByteTableInVectors = !HWY_ARCH_X86 || HWY_TARGET == HWY_AVX3;

struct ByteMap {
    V8 part[16];  // part[h][l] = table[16 h + l], in every 128-bit block
    explicit ByteMap(const std::uint8_t* table) {
        for (int h = 0; h < 16; ++h) part[h] = hn::LoadDup128(D8(), table + 16 * h);
    }
    HWY_INLINE V8 operator()(V8 v) const {
        const D8 d8;
        const hn::RebindToSigned<D8> di8;
        const V8 low = hn::And(v, hn::Set(d8, 0x0F));
        V8 r[8];
        // Bit 4 of the sample (moved to the sign bit) picks part 2j + 1 or
        // 2j, then bits 5, 6 and 7 in turn.
        const auto pick = [&](int shift, V8 odd, V8 even) {
            const auto sign = hn::BitCast(di8, hn::ShiftLeftSame(hn::BitCast(hn::Repartition<std::uint16_t, D8>(), v), shift));
            return hn::BitCast(d8, hn::IfNegativeThenElse(sign, hn::BitCast(di8, odd), hn::BitCast(di8, even)));
        };
        for (int j = 0; j < 8; ++j)
            r[j] = pick(3, hn::TableLookupBytes(part[2 * j + 1], low), hn::TableLookupBytes(part[2 * j], low));
        for (int j = 0; j < 4; ++j) r[j] = pick(2, r[2 * j + 1], r[2 * j]);
        for (int j = 0; j < 2; ++j) r[j] = pick(1, r[2 * j + 1], r[2 * j]);
        return pick(0, r[1], r[0]);
    }
};
#endif

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#endif  // per-target include guard
