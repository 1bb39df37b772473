// Packed 16-bit BGR565 / BGR555 to planar subsampled YCbCr, serial rows. The
// fields are brought to the 8-bit scale by a left shift only (no bit
// replication: 5-bit white is 248, 6-bit white 252) and then go through the
// 8-bit encoders.
#include "video/group_encoder.h"

namespace zor {
namespace {

// Reads pixel x of a BGR565 (GreenBits 6) or BGR555 (GreenBits 5) row.
template <int GreenBits>
struct PackedBgr {
    const Zor16u* p;
    Rgb8 operator()(int x) const {
        const unsigned w = p[x];
        constexpr unsigned kGreenMask = (1u << GreenBits) - 1;
        return {static_cast<int>(((w >> (5 + GreenBits)) & 31u) << 3),
                static_cast<int>(((w >> 5) & kGreenMask) << (8 - GreenBits)), static_cast<int>((w & 31u) << 3)};
    }
};
using Bgr565 = PackedBgr<6>;
using Bgr555 = PackedBgr<5>;

enum class Warn { Never, OnRounding };

template <class Rule, class Reader, Warn W>
ZorStatus packedEntry(const Zor16u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roi,
                      bool swapChroma) {
    if (anyNull(pSrc, pDst, dstStep) || anyNull(pDst[0], pDst[1], pDst[2])) return zorStsNullPtr;
    constexpr int kMinWidth = Rule::kCols;
    constexpr int kMinHeight = Rule::kRows;
    if (badSize(roi, kMinWidth, kMinHeight)) return zorStsBadSize;
    // The byte step becomes a count of words: an odd step loses its low bit.
    const std::ptrdiff_t wordStepBytes = wholeElementBytes<Zor16u>(srcStep);
    encodePlanarRows<Rule, Reader>(pSrc, wordStepBytes, pDst, dstStep, swapChroma, roi);
    if constexpr (W == Warn::OnRounding) return roundedSizeStatus(roi, Rule::kCols, Rule::kRows);
    return zorStsOk;
}

}  // namespace
}  // namespace zor

using namespace zor;

extern "C" {

// 4:2:2: minimum width 2; an odd last pixel gets its Y only.
ZORCC_API ZorStatus zoriBGR565ToYCbCr422_16u8u_C3P3R(const Zor16u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                     const int dstStep[3], ZoriSize roiSize) {
    return packedEntry<RuleEB422, Bgr565, Warn::Never>(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

ZORCC_API ZorStatus zoriBGR555ToYCbCr422_16u8u_C3P3R(const Zor16u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                     const int dstStep[3], ZoriSize roiSize) {
    return packedEntry<RuleEB422, Bgr555, Warn::Never>(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

// 4:2:0: minimum 2 x 2; an odd size converts the whole blocks and, unlike the
// 8-bit members, returns zorStsOk.
ZORCC_API ZorStatus zoriBGR565ToYCbCr420_16u8u_C3P3R(const Zor16u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                     const int dstStep[3], ZoriSize roiSize) {
    return packedEntry<RuleE420, Bgr565, Warn::Never>(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

ZORCC_API ZorStatus zoriBGR555ToYCbCr420_16u8u_C3P3R(const Zor16u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                     const int dstStep[3], ZoriSize roiSize) {
    return packedEntry<RuleE420, Bgr555, Warn::Never>(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

ZORCC_API ZorStatus zoriBGR565ToYCrCb420_16u8u_C3P3R(const Zor16u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                     const int dstStep[3], ZoriSize roiSize) {
    return packedEntry<RuleE420, Bgr565, Warn::Never>(pSrc, srcStep, pDst, dstStep, roiSize, true);
}

ZORCC_API ZorStatus zoriBGR555ToYCrCb420_16u8u_C3P3R(const Zor16u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                     const int dstStep[3], ZoriSize roiSize) {
    return packedEntry<RuleE420, Bgr555, Warn::Never>(pSrc, srcStep, pDst, dstStep, roiSize, true);
}

// 4:1:1: minimum width 4; zorStsOddSizeWarning unless the width is a multiple of 4.
ZORCC_API ZorStatus zoriBGR565ToYCbCr411_16u8u_C3P3R(const Zor16u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                     const int dstStep[3], ZoriSize roiSize) {
    return packedEntry<RuleE411, Bgr565, Warn::OnRounding>(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

ZORCC_API ZorStatus zoriBGR555ToYCbCr411_16u8u_C3P3R(const Zor16u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                     const int dstStep[3], ZoriSize roiSize) {
    return packedEntry<RuleE411, Bgr555, Warn::OnRounding>(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

}  // extern "C"
