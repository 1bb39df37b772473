// YCoCg: interleaved B, G, R (8u or 16s) to and from three planes Y, Co, Cg
// (16s or 32s) sharing one step, plain (dividing) or reversible (lifting).
// Serial rows. Steps are not validated and there is no size check: an empty
// region converts nothing and succeeds.
#include "core/frame.h"

#include <cstdint>
#include <type_traits>

namespace zor {

namespace {

// Low 16 bits of a 32-bit value, sign-extended.
inline std::int32_t wrap16(std::uint32_t v) {
    return static_cast<std::int32_t>((v & 0xFFFFu) ^ 0x8000u) - 0x8000;
}

// A value as a plane of type P holds it: 16s planes keep the low 16 bits,
// 32s planes the whole value.
template <class P>
inline std::int32_t narrow(std::int32_t v) {
    if constexpr (std::is_same_v<P, Zor16s>)
        return wrap16(static_cast<std::uint32_t>(v));
    else
        return v;
}

// A 32-bit (wrapping) result as an interleaved sample: 16s keeps the low 16
// bits; 8u keeps the low 16 bits and then clamps them to 0..255, so 65,546
// comes out as 10.
template <class D>
inline D toSample(std::uint32_t v) {
    const std::int32_t w = wrap16(v);
    if constexpr (std::is_same_v<D, Zor8u>)
        return static_cast<Zor8u>(w < 0 ? 0 : w > 255 ? 255 : w);
    else
        return static_cast<Zor16s>(w);
}

inline std::uint32_t u32(std::int32_t v) { return static_cast<std::uint32_t>(v); }

// ---------------------------------------------------------------------------
// Row kernels

// Stride 3 (BGR) or 4 (BGRA, the fourth element ignored) to planes.
template <bool Rev, int Stride, class S, class P>
void innerBGRToYCoCg(const S* src, P* py, P* pco, P* pcg, int width) {
    for (int i = 0; i < width; ++i, src += Stride) {
        const std::int32_t b = src[0], g = src[1], r = src[2];
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
        py[i] = static_cast<P>(narrow<P>(y));
        pco[i] = static_cast<P>(narrow<P>(co));
        pcg[i] = static_cast<P>(narrow<P>(cg));
    }
}

// Planes to stride 3 (BGR) or 4 (BGRA with `alpha` in every fourth element).
// Sums wrap in 32 bits; only their low 16 bits reach the destination.
template <bool Rev, int Stride, class P, class D>
void innerYCoCgToBGR(const P* py, const P* pco, const P* pcg, D* dst, int width, D alpha) {
    for (int i = 0; i < width; ++i, dst += Stride) {
        const std::int32_t y = py[i], co = pco[i], cg = pcg[i];
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
        dst[0] = toSample<D>(b);
        dst[1] = toSample<D>(g);
        dst[2] = toSample<D>(r);
        if constexpr (Stride == 4) dst[3] = alpha;
    }
}

// ---------------------------------------------------------------------------
// Workers. Null tests: the plane array, the interleaved pointer, then the
// planes Y, Co, Cg.

inline bool emptyRegion(ZoriSize roi) { return roi.width < 1 || roi.height < 1; }

template <bool Rev, int Stride, class S, class P>
ZorStatus ownBGRToYCoCg(const S* pSrc, int srcStep, P* const pDst[3], int dstStep, ZoriSize roi) {
    if (pDst == nullptr || pSrc == nullptr || anyNull(pDst[0], pDst[1], pDst[2])) return zorStsNullPtr;
    if (emptyRegion(roi)) return zorStsOk;
    const Plane<const S> s = plane(pSrc, srcStep);
    const std::ptrdiff_t ds = dstStep;
    serialRows(roi.height, [&](int y) {
        innerBGRToYCoCg<Rev, Stride>(s.row(y), rowAt(pDst[0], ds, y), rowAt(pDst[1], ds, y), rowAt(pDst[2], ds, y),
                                     roi.width);
    });
    return zorStsOk;
}

template <bool Rev, int Stride, class P, class D>
ZorStatus ownYCoCgToBGR(const P* const pSrc[3], int srcStep, D* pDst, int dstStep, ZoriSize roi, D alpha = 0) {
    if (pSrc == nullptr || pDst == nullptr || anyNull(pSrc[0], pSrc[1], pSrc[2])) return zorStsNullPtr;
    if (emptyRegion(roi)) return zorStsOk;
    const std::ptrdiff_t ss = srcStep;
    const Plane<D> d = plane(pDst, dstStep);
    serialRows(roi.height, [&](int y) {
        innerYCoCgToBGR<Rev, Stride>(rowAt(pSrc[0], ss, y), rowAt(pSrc[1], ss, y), rowAt(pSrc[2], ss, y), d.row(y),
                                     roi.width, alpha);
    });
    return zorStsOk;
}

}  // namespace

}  // namespace zor

using namespace zor;

extern "C" {

ZORCC_API ZorStatus zoriBGRToYCoCg_8u16s_C3P3R(const Zor8u* pSrc, int srcStep, Zor16s* const pDst[3], int dstStep, ZoriSize roiSize) {
    return ownBGRToYCoCg<false, 3>(pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriBGRToYCoCg_8u16s_C4P3R(const Zor8u* pSrc, int srcStep, Zor16s* const pDst[3], int dstStep, ZoriSize roiSize) {
    return ownBGRToYCoCg<false, 4>(pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriSBGRToYCoCg_16s_C3P3R(const Zor16s* pSrc, int srcStep, Zor16s* const pDst[3], int dstStep, ZoriSize roiSize) {
    return ownBGRToYCoCg<false, 3>(pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriSBGRToYCoCg_16s_C4P3R(const Zor16s* pSrc, int srcStep, Zor16s* const pDst[3], int dstStep, ZoriSize roiSize) {
    return ownBGRToYCoCg<false, 4>(pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriSBGRToYCoCg_16s32s_C3P3R(const Zor16s* pSrc, int srcStep, Zor32s* const pDst[3], int dstStep, ZoriSize roiSize) {
    return ownBGRToYCoCg<false, 3>(pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriSBGRToYCoCg_16s32s_C4P3R(const Zor16s* pSrc, int srcStep, Zor32s* const pDst[3], int dstStep, ZoriSize roiSize) {
    return ownBGRToYCoCg<false, 4>(pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriYCoCgToBGR_16s8u_P3C3R(const Zor16s* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    return ownYCoCgToBGR<false, 3>(pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriYCoCgToBGR_16s8u_P3C4R(const Zor16s* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, Zor8u aval) {
    return ownYCoCgToBGR<false, 4>(pSrc, srcStep, pDst, dstStep, roiSize, aval);
}

ZORCC_API ZorStatus zoriYCoCgToSBGR_16s_P3C3R(const Zor16s* const pSrc[3], int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize) {
    return ownYCoCgToBGR<false, 3>(pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriYCoCgToSBGR_16s_P3C4R(const Zor16s* const pSrc[3], int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, Zor16s aval) {
    return ownYCoCgToBGR<false, 4>(pSrc, srcStep, pDst, dstStep, roiSize, aval);
}

ZORCC_API ZorStatus zoriYCoCgToSBGR_32s16s_P3C3R(const Zor32s* const pSrc[3], int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize) {
    return ownYCoCgToBGR<false, 3>(pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriYCoCgToSBGR_32s16s_P3C4R(const Zor32s* const pSrc[3], int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, Zor16s aval) {
    return ownYCoCgToBGR<false, 4>(pSrc, srcStep, pDst, dstStep, roiSize, aval);
}

ZORCC_API ZorStatus zoriBGRToYCoCg_Rev_8u16s_C3P3R(const Zor8u* pSrc, int srcStep, Zor16s* const pDst[3], int dstStep, ZoriSize roiSize) {
    return ownBGRToYCoCg<true, 3>(pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriBGRToYCoCg_Rev_8u16s_C4P3R(const Zor8u* pSrc, int srcStep, Zor16s* const pDst[3], int dstStep, ZoriSize roiSize) {
    return ownBGRToYCoCg<true, 4>(pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriSBGRToYCoCg_Rev_16s_C3P3R(const Zor16s* pSrc, int srcStep, Zor16s* const pDst[3], int dstStep, ZoriSize roiSize) {
    return ownBGRToYCoCg<true, 3>(pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriSBGRToYCoCg_Rev_16s_C4P3R(const Zor16s* pSrc, int srcStep, Zor16s* const pDst[3], int dstStep, ZoriSize roiSize) {
    return ownBGRToYCoCg<true, 4>(pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriSBGRToYCoCg_Rev_16s32s_C3P3R(const Zor16s* pSrc, int srcStep, Zor32s* const pDst[3], int dstStep, ZoriSize roiSize) {
    return ownBGRToYCoCg<true, 3>(pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriSBGRToYCoCg_Rev_16s32s_C4P3R(const Zor16s* pSrc, int srcStep, Zor32s* const pDst[3], int dstStep, ZoriSize roiSize) {
    return ownBGRToYCoCg<true, 4>(pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriYCoCgToBGR_Rev_16s8u_P3C3R(const Zor16s* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    return ownYCoCgToBGR<true, 3>(pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriYCoCgToBGR_Rev_16s8u_P3C4R(const Zor16s* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, Zor8u aval) {
    return ownYCoCgToBGR<true, 4>(pSrc, srcStep, pDst, dstStep, roiSize, aval);
}

ZORCC_API ZorStatus zoriYCoCgToSBGR_Rev_16s_P3C3R(const Zor16s* const pSrc[3], int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize) {
    return ownYCoCgToBGR<true, 3>(pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriYCoCgToSBGR_Rev_16s_P3C4R(const Zor16s* const pSrc[3], int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, Zor16s aval) {
    return ownYCoCgToBGR<true, 4>(pSrc, srcStep, pDst, dstStep, roiSize, aval);
}

ZORCC_API ZorStatus zoriYCoCgToSBGR_Rev_32s16s_P3C3R(const Zor32s* const pSrc[3], int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize) {
    return ownYCoCgToBGR<true, 3>(pSrc, srcStep, pDst, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriYCoCgToSBGR_Rev_32s16s_P3C4R(const Zor32s* const pSrc[3], int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, Zor16s aval) {
    return ownYCoCgToBGR<true, 4>(pSrc, srcStep, pDst, dstStep, roiSize, aval);
}

}  // extern "C"
