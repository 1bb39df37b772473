// zoriReduceBits_*: argument checks and dispatch to the method workers.
#include "core/frame.h"
#include "reducebits/reducebits.h"

#include <cstring>

namespace zor {

namespace {

template <class Tr>
ZorStatus reduceBits(const typename Tr::Src* pSrc, int srcStep, typename Tr::Dst* pDst, int dstStep, ZoriSize roi,
                     int noise, ZorDitherType dtype, int levels, int channelCode) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roi)) return zorStsBadSize;
    if (noise < 0 || noise > 100) return zorStsNoiseRangeErr;
    if (levels < 2 || levels > Tr::kMaxLevels) return zorStsLevelsRangeErr;
    const int m = levels - 1;

    // Callers may pass any int as the method; read it without assuming it is
    // one of the enumerators.
    int method;
    static_assert(sizeof(method) == sizeof(dtype), "ZorDitherType is an int");
    std::memcpy(&method, &dtype, sizeof(method));

    const int w = roi.width;
    const int h = roi.height;
    const int ss = elementStep<typename Tr::Src>(srcStep);
    const int ds = elementStep<typename Tr::Dst>(dstStep);
    switch (method) {
        case 0:
            ownNo_PX<Tr>(pSrc, srcStep, pDst, dstStep, w, h, m, channelCode);
            return zorStsOk;
        case 1:
            return ownReduceBits_fs<Tr>(pSrc, ss, pDst, ds, w, h, m, noise, channelCode);
        case 2:
        case 3:
            return ownReduceBits_st_jj<Tr>(pSrc, ss, pDst, ds, w, h, m, noise, channelCode, method);
        case 4:
            return ownReduceBits_bayer<Tr>(pSrc, ss, pDst, ds, w, h, m, noise, channelCode);
        default:
            return zorStsOk;
    }
}

}  // namespace

}  // namespace zor

#define ZOR_RB_ENTRY(types, Tr, layout, code)                                                                   \
    ZORCC_API ZorStatus zoriReduceBits_##types##_##layout(const zor::Tr::Src* pSrc, int srcStep,               \
                                                          zor::Tr::Dst* pDst, int dstStep, ZoriSize roiSize,   \
                                                          int noise, ZorDitherType dtype, int levels) {        \
        return zor::reduceBits<zor::Tr>(pSrc, srcStep, pDst, dstStep, roiSize, noise, dtype, levels, code);     \
    }

#define ZOR_RB_ENTRIES(types, Tr)       \
    ZOR_RB_ENTRY(types, Tr, C1R, 1)     \
    ZOR_RB_ENTRY(types, Tr, C3R, 3)     \
    ZOR_RB_ENTRY(types, Tr, AC4R, 4)    \
    ZOR_RB_ENTRY(types, Tr, C4R, 5)

extern "C" {

ZOR_RB_ENTRIES(8u, Rb8u)
ZOR_RB_ENTRIES(16u, Rb16u)
ZOR_RB_ENTRIES(16s, Rb16s)
ZOR_RB_ENTRIES(16u8u, Rb16u8u)
ZOR_RB_ENTRIES(16s8u, Rb16s8u)
ZOR_RB_ENTRIES(32f8u, Rb32f8u)
ZOR_RB_ENTRIES(32f16u, Rb32f16u)
ZOR_RB_ENTRIES(32f16s, Rb32f16s)

}  // extern "C"
