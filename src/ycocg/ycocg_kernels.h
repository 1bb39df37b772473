// Row kernels of the YCoCg transforms: interleaved B, G, R (8u or 16s; a
// fourth element ignored on the way in, filled with the caller's value on
// the way out) to and from three planes Y, Co, Cg (16s or 32s), plain
// (dividing) or reversible (lifting). Arithmetic is 32-bit; shifts are
// arithmetic. These are the reference kernels; ycocg/ycocg_hwy.cpp has the
// vector kernels of the shapes listed at the end.
#pragma once

#include "core/arith.h"
#include "core/image.h"
#include "core/kernel_set.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace zor {

// Low 16 bits of a 32-bit value, sign-extended.
inline std::int32_t wrap16(std::uint32_t v) { return static_cast<std::int32_t>((v & 0xFFFFu) ^ 0x8000u) - 0x8000; }

// A value as a plane of type P holds it: 16s planes keep the low 16 bits,
// 32s planes the whole value.
template <class P>
inline std::int32_t narrow(std::int32_t v) {
    if constexpr (std::is_same_v<P, Zor16s>)
        return wrap16(static_cast<std::uint32_t>(v));
    else
        return v;
}

// A 32-bit (wrapping) sum as an interleaved sample: 16s keeps the low 16
// bits; 8u keeps the low 16 bits and then clamps them, so 65,546 gives 10.
template <class D>
inline D toSample(std::uint32_t v) {
    if constexpr (std::is_same_v<D, Zor8u>)
        return clampByte(wrap16(v));
    else
        return static_cast<Zor16s>(wrap16(v));
}

inline std::uint32_t u32(std::int32_t v) { return static_cast<std::uint32_t>(v); }

// N = 3 (BGR) or 4 (BGRA, the fourth element ignored) to planes.
template <bool Rev, int N, class S, class P>
void innerBGRToYCoCg(RowC<const S, N> s, Row3<P> d, int width) {
    for (std::ptrdiff_t i = 0; i < width; ++i) {
        const S* px = s.p + i * N;
        const std::int32_t b = px[0], g = px[1], r = px[2];
        std::int32_t y, co, cg;
        if constexpr (Rev) {
            // Co and Cg are halved as the planes hold them.
            co = narrow<P>(r - b);
            const std::int32_t t = b + asr(co, 1);
            cg = narrow<P>(g - t);
            y = t + asr(cg, 1);
        } else {
            y = asr(r + 2 * g + b + 2, 2);
            co = asr(r - b + 1, 1);
            cg = asr(2 * g - r - b + 2, 2);
        }
        d.p[0][i] = static_cast<P>(narrow<P>(y));
        d.p[1][i] = static_cast<P>(narrow<P>(co));
        d.p[2][i] = static_cast<P>(narrow<P>(cg));
    }
}

// Planes to N = 3 (BGR) or 4 (BGRA, `fill` in every fourth element). Sums
// wrap in 32 bits; only their low 16 bits reach the destination.
template <bool Rev, int N, class P, class D, class... Fill>
void innerYCoCgToBGR(Row3<const P> s, RowC<D, N> d, int width, Fill... fill) {
    static_assert(sizeof...(Fill) == (N == 4 ? 1 : 0), "a fourth element takes the fill value");
    for (std::ptrdiff_t i = 0; i < width; ++i) {
        const std::int32_t y = s.p[0][i], co = s.p[1][i], cg = s.p[2][i];
        std::uint32_t r, g, b;
        if constexpr (Rev) {
            const std::uint32_t t = u32(y) - u32(asr(cg, 1));
            g = u32(cg) + t;
            b = t - u32(asr(co, 1));
            r = b + u32(co);
        } else {
            r = u32(y) + u32(co) - u32(cg);
            g = u32(y) + u32(cg);
            b = u32(y) - u32(co) - u32(cg);
        }
        D* px = d.p + i * N;
        px[0] = toSample<D>(b);
        px[1] = toSample<D>(g);
        px[2] = toSample<D>(r);
        ((px[3] = fill), ...);
    }
}

// ---------------------------------------------------------------------------
// The shapes: X(member, kernel template, (template arguments)); members are
// direction, flavour, interleaved samples per pixel and the two types.

#define ZOR_YCOCG_SIDE(X, rev, Rev)                                                      \
    X(fwd##rev##C3u8s16, innerBGRToYCoCg, (Rev, 3, Zor8u, Zor16s))                         \
    X(fwd##rev##C4u8s16, innerBGRToYCoCg, (Rev, 4, Zor8u, Zor16s))                         \
    X(fwd##rev##C3s16s16, innerBGRToYCoCg, (Rev, 3, Zor16s, Zor16s))                       \
    X(fwd##rev##C4s16s16, innerBGRToYCoCg, (Rev, 4, Zor16s, Zor16s))                       \
    X(fwd##rev##C3s16s32, innerBGRToYCoCg, (Rev, 3, Zor16s, Zor32s))                       \
    X(fwd##rev##C4s16s32, innerBGRToYCoCg, (Rev, 4, Zor16s, Zor32s))                       \
    X(inv##rev##s16C3u8, innerYCoCgToBGR, (Rev, 3, Zor16s, Zor8u))                         \
    X(inv##rev##s16C4u8, innerYCoCgToBGR, (Rev, 4, Zor16s, Zor8u, Zor8u))                  \
    X(inv##rev##s16C3s16, innerYCoCgToBGR, (Rev, 3, Zor16s, Zor16s))                       \
    X(inv##rev##s16C4s16, innerYCoCgToBGR, (Rev, 4, Zor16s, Zor16s, Zor16s))               \
    X(inv##rev##s32C3s16, innerYCoCgToBGR, (Rev, 3, Zor32s, Zor16s))                       \
    X(inv##rev##s32C4s16, innerYCoCgToBGR, (Rev, 4, Zor32s, Zor16s, Zor16s))
#define ZOR_YCOCG_KERNELS(X) ZOR_YCOCG_SIDE(X, , false) ZOR_YCOCG_SIDE(X, Rev, true)

ZOR_KERNEL_TABLE(YCoCgKernels, ZOR_YCOCG_KERNELS, kYCoCgScalar, ycocgTables, YCoCgK)

}  // namespace zor
