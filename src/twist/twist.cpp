// Colour twist: an affine 3x4 float matrix applied to every three-channel
// pixel (a linear 4x4 one to four-channel float pixels). Single-precision
// arithmetic in a fixed order; integer results are rounded to nearest with
// ties to even and saturated. Serial rows; steps are validated.
#include "twist/image3.h"

#include <cstdint>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif
#include <limits>
#include <type_traits>

namespace zor {

namespace {

// ---------------------------------------------------------------------------
// Arithmetic

// y limited to [lo, hi]: NaN gives lo. Without branches (the data decides
// which end is taken, so branches would be mispredicted).
inline float clampToRange(float y, float lo, float hi) {
#if defined(__SSE2__)
    // maxss returns its second operand when the first is NaN.
    return _mm_cvtss_f32(_mm_min_ss(_mm_max_ss(_mm_set_ss(y), _mm_set_ss(lo)), _mm_set_ss(hi)));
#else
    const float above = y > lo ? y : lo;
    return above < hi ? above : hi;
#endif
}

// A result y in the destination type: float stores y as it is; an integer
// type [lo, hi] takes hi from y >= hi, lo from y <= lo and from NaN, and the
// nearest integer, ties to even, in between.
template <class T>
T twistResult(float y) {
    if constexpr (std::is_same_v<T, float>) {
        return y;
    } else {
        constexpr float lo = std::numeric_limits<T>::min();
        constexpr float hi = std::numeric_limits<T>::max();
        const float c = clampToRange(y, lo, hi);
        // Nearest integer, ties to even: the result of adding 0.5 (or
        // subtracting it below 0), truncating, and stepping an odd result of
        // an exact tie back toward zero. Adding and removing 1.5 * 2^23 gives
        // the same for every |c| <= 65535 without branches: the sum lies where
        // floats are spaced by 1, so the addition rounds c to an integer with
        // ties to even and the subtraction is exact.
        const float r = (c + 12582912.0f) - 12582912.0f;
        const std::int32_t n = static_cast<std::int32_t>(r);
        return static_cast<T>(n);
    }
}

// One output channel: the constant is added right after the first product.
inline float twistChannel(const float* t, float x0, float x1, float x2) {
    return ((t[0] * x0 + t[3]) + t[1] * x1) + t[2] * x2;
}

// The pixel operation of the 3x4 twists, on a private copy of the matrix.
template <class T>
struct Twist3 {
    float t[3][4];

    explicit Twist3(const Zor32f m[3][4]) {
        for (int r = 0; r < 3; ++r)
            for (int c = 0; c < 4; ++c) t[r][c] = m[r][c];
    }

    void operator()(T a, T b, T c, T& o0, T& o1, T& o2) const {
        const float x0 = static_cast<float>(a), x1 = static_cast<float>(b), x2 = static_cast<float>(c);
        const float y0 = twistChannel(t[0], x0, x1, x2);
        const float y1 = twistChannel(t[1], x0, x1, x2);
        const float y2 = twistChannel(t[2], x0, x1, x2);
        o0 = twistResult<T>(y0);
        o1 = twistResult<T>(y1);
        o2 = twistResult<T>(y2);
    }
};

template <class Img>
ZorStatus ownColorTwist(const Img& img, ZoriSize roi, const Zor32f twist[3][4]) {
    const ZorStatus st = checkImage(img, roi, twist == nullptr);
    if (st != zorStsOk) return st;
    using T = typename Img::Sample;
    const Twist3<T> op(twist);
    // Packed float C3 images go as one run of width x height pixels.
    if constexpr (std::is_same_v<Img, Interleaved3<Zor32f, 3>>) {
        if (img.packed(roi)) {
            img.runOnce(roi, op);
            return zorStsOk;
        }
    }
    img.run(roi, op);
    return zorStsOk;
}

// Four-channel float pixels through a 4x4 matrix without constants.
void innerColorTwist_32f_C4R(const Zor32f* src, Zor32f* dst, std::ptrdiff_t n, const float (&m)[4][4]) {
    float t[4][4];  // a local copy the stores cannot alias
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) t[r][c] = m[r][c];
    for (std::ptrdiff_t i = 0; i < n; ++i, src += 4, dst += 4) {
        const float x0 = src[0], x1 = src[1], x2 = src[2], x3 = src[3];
        float y[4];
        for (int c = 0; c < 4; ++c) y[c] = ((t[c][0] * x0 + t[c][1] * x1) + t[c][2] * x2) + t[c][3] * x3;
        dst[0] = y[0];
        dst[1] = y[1];
        dst[2] = y[2];
        dst[3] = y[3];
    }
}

}  // namespace

}  // namespace zor

using namespace zor;

extern "C" {

ZORCC_API ZorStatus zoriColorTwist32f_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(Interleaved3<Zor8u, 3>{pSrc, srcStep, pDst, dstStep}, roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_8u_C3IR(Zor8u* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(inPlace<Zor8u, 3>(pSrcDst, srcDstStep), roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(Interleaved3<Zor8u, 4>{pSrc, srcStep, pDst, dstStep}, roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_8u_AC4IR(Zor8u* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(inPlace<Zor8u, 4>(pSrcDst, srcDstStep), roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_8u_P3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* const pDst[3], int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(Planar3<Zor8u>{pSrc, srcStep, pDst, dstStep}, roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_8u_IP3R(Zor8u* const pSrcDst[3], int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(inPlace<Zor8u>(pSrcDst, srcDstStep), roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_8s_C3R(const Zor8s* pSrc, int srcStep, Zor8s* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(Interleaved3<Zor8s, 3>{pSrc, srcStep, pDst, dstStep}, roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_8s_C3IR(Zor8s* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(inPlace<Zor8s, 3>(pSrcDst, srcDstStep), roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_8s_AC4R(const Zor8s* pSrc, int srcStep, Zor8s* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(Interleaved3<Zor8s, 4>{pSrc, srcStep, pDst, dstStep}, roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_8s_AC4IR(Zor8s* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(inPlace<Zor8s, 4>(pSrcDst, srcDstStep), roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_8s_P3R(const Zor8s* const pSrc[3], int srcStep, Zor8s* const pDst[3], int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(Planar3<Zor8s>{pSrc, srcStep, pDst, dstStep}, roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_8s_IP3R(Zor8s* const pSrcDst[3], int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(inPlace<Zor8s>(pSrcDst, srcDstStep), roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(Interleaved3<Zor16u, 3>{pSrc, srcStep, pDst, dstStep}, roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_16u_C3IR(Zor16u* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(inPlace<Zor16u, 3>(pSrcDst, srcDstStep), roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(Interleaved3<Zor16u, 4>{pSrc, srcStep, pDst, dstStep}, roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_16u_AC4IR(Zor16u* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(inPlace<Zor16u, 4>(pSrcDst, srcDstStep), roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_16u_P3R(const Zor16u* const pSrc[3], int srcStep, Zor16u* const pDst[3], int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(Planar3<Zor16u>{pSrc, srcStep, pDst, dstStep}, roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_16u_IP3R(Zor16u* const pSrcDst[3], int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(inPlace<Zor16u>(pSrcDst, srcDstStep), roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_16s_C3R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(Interleaved3<Zor16s, 3>{pSrc, srcStep, pDst, dstStep}, roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_16s_C3IR(Zor16s* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(inPlace<Zor16s, 3>(pSrcDst, srcDstStep), roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_16s_AC4R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(Interleaved3<Zor16s, 4>{pSrc, srcStep, pDst, dstStep}, roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_16s_AC4IR(Zor16s* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(inPlace<Zor16s, 4>(pSrcDst, srcDstStep), roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_16s_P3R(const Zor16s* const pSrc[3], int srcStep, Zor16s* const pDst[3], int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(Planar3<Zor16s>{pSrc, srcStep, pDst, dstStep}, roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist32f_16s_IP3R(Zor16s* const pSrcDst[3], int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(inPlace<Zor16s>(pSrcDst, srcDstStep), roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist_32f_C3R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(Interleaved3<Zor32f, 3>{pSrc, srcStep, pDst, dstStep}, roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist_32f_C3IR(Zor32f* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(inPlace<Zor32f, 3>(pSrcDst, srcDstStep), roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist_32f_AC4R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(Interleaved3<Zor32f, 4>{pSrc, srcStep, pDst, dstStep}, roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist_32f_AC4IR(Zor32f* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(inPlace<Zor32f, 4>(pSrcDst, srcDstStep), roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist_32f_P3R(const Zor32f* const pSrc[3], int srcStep, Zor32f* const pDst[3], int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(Planar3<Zor32f>{pSrc, srcStep, pDst, dstStep}, roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist_32f_IP3R(Zor32f* const pSrcDst[3], int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]) {
    return ownColorTwist(inPlace<Zor32f>(pSrcDst, srcDstStep), roiSize, twist);
}

ZORCC_API ZorStatus zoriColorTwist_32f_C4R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[4][4]) {
    if (anyNull(pSrc, pDst, twist)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (anyBadStep(srcStep, dstStep)) return zorStsStepErr;
    float t[4][4];
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) t[r][c] = twist[r][c];
    // One run of width x height pixels when both steps equal four times the
    // width in bytes: one float per pixel, not four. Callers with packed rows
    // (sixteen bytes per pixel) go row by row.
    if (srcStep == dstStep && static_cast<long long>(srcStep) == 4LL * roiSize.width) {
        innerColorTwist_32f_C4R(pSrc, pDst, static_cast<std::ptrdiff_t>(roiSize.width) * roiSize.height, t);
        return zorStsOk;
    }
    const Plane<const Zor32f> s = plane(pSrc, srcStep);
    const Plane<Zor32f> d = plane(pDst, dstStep);
    serialRows(roiSize.height, [&](int y) { innerColorTwist_32f_C4R(s.row(y), d.row(y), roiSize.width, t); });
    return zorStsOk;
}

}  // extern "C"
