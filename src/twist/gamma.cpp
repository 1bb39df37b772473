// Gamma correction with the video transfer curve: linear slope 4.5 near
// black, 1.099 x^0.45 - 0.099 above (the inverse undoes it). 8u through the
// two stored tables, 16u per sample or through a table built per call, 32f on
// a caller-given value range. Serial rows; steps are validated.
#include "twist/gamma.h"

#include "core/memory.h"
#include "twist/gamma_tables.h"
#include "twist/image3.h"

#include <cmath>
#include <cstdint>

namespace zor {

namespace {

// Curve constants. The inverse multiplies by stored reciprocals.
constexpr double kSlope = 4.5;
constexpr double kFwdThreshold = 0.018;
constexpr double kInvThreshold = 0.0812;
constexpr double kExponent = 0.45;
constexpr double kScale = 1.099;
constexpr double kOffset = 0.099;
constexpr double kInvScale = 0.9099181073703366;     // 1 / 1.099
constexpr double kInvExponent = 2.2222222222222223;  // 1 / 0.45
constexpr double kInvSlope = 0.2222222222222222;     // 1 / 4.5
constexpr double kInv65535 = 1.5259021896696422e-05;

// The 16u rounding: y + 0.5 goes through single precision, is truncated, and
// an odd result that the float sum hit exactly is stepped down to even.
inline Zor16u round16u(double y) {
    const float s = static_cast<float>(y + 0.5);
    std::int32_t n = static_cast<std::int32_t>(s);
    if ((n & 1) != 0 && static_cast<float>(n) == s) --n;
    return static_cast<Zor16u>(n);
}

inline Zor16u gammaFwd16u(Zor16u v) {
    const double x = v * kInv65535;
    const double y = x >= kFwdThreshold ? (std::pow(x, kExponent) * kScale - kOffset) * 65535.0 : v * kSlope;
    return round16u(y);
}

inline Zor16u gammaInv16u(Zor16u v) {
    const double x = v * kInv65535;
    const double y =
        x >= kInvThreshold ? std::pow((x + kOffset) * kInvScale, kInvExponent) * 65535.0 : v * kInvSlope;
    return round16u(y);
}

// ---------------------------------------------------------------------------
// Sample maps and the pixel operation that applies one to each channel.

template <class T>
struct TableMap {
    const T* table;
    T operator()(T v) const { return table[v]; }
};

template <bool Fwd>
struct Curve16u {
    Zor16u operator()(Zor16u v) const { return Fwd ? gammaFwd16u(v) : gammaInv16u(v); }
};

// The curve on [vMin, vMax]: r = vMax - vMin and d = v - vMin in single
// precision, the rest in double. Nothing is clamped: samples below vMin take
// the linear branch.
template <bool Fwd>
struct Curve32f {
    float vMin;
    double r;
    double invR;

    Curve32f(float lo, float hi) : vMin(lo), r(static_cast<double>(hi - lo)), invR(1.0 / r) {}

    float operator()(float v) const {
        const float d = v - vMin;
        const double x = d * invR;
        double y;
        if (Fwd)
            y = x >= kFwdThreshold ? (std::pow(x, kExponent) * kScale - kOffset) * r + vMin : d * kSlope + vMin;
        else
            y = x >= kInvThreshold ? std::pow((x + kOffset) * kInvScale, kInvExponent) * r + vMin
                                   : kInvSlope * d + vMin;
        return static_cast<float>(y);
    }
};

template <class Map>
struct EachSample {
    Map map;
    template <class T>
    void operator()(T a, T b, T c, T& o0, T& o1, T& o2) const {
        o0 = map(a);
        o1 = map(b);
        o2 = map(c);
    }
};

template <class Map>
EachSample<Map> eachSample(Map m) {
    return EachSample<Map>{m};
}

// ---------------------------------------------------------------------------
// Workers

template <bool Fwd, class Img>
ZorStatus ownGamma8u(const Img& img, ZoriSize roi) {
    const ZorStatus st = checkImage(img, roi);
    if (st != zorStsOk) return st;
    img.run(roi, eachSample(TableMap<Zor8u>{Fwd ? tableFwd8u : tableInv8u}));
    return zorStsOk;
}

// Small images (at most 65,536 samples) are computed per sample; larger ones
// through a table of all 65,536 values, which gives the same results.
template <bool Fwd, class Img>
ZorStatus ownGamma16u(const Img& img, ZoriSize roi) {
    const ZorStatus st = checkImage(img, roi);
    if (st != zorStsOk) return st;
    if (3LL * roi.width * roi.height <= kGammaTableLen16u) {
        img.run(roi, eachSample(Curve16u<Fwd>{}));
        return zorStsOk;
    }
    Block<Zor16u> table(kGammaTableLen16u);
    if (!table) return zorStsNoMemory;
    if (Fwd)
        owniGammaInitFwd16u(table.get());
    else
        owniGammaInitInv16u(table.get());
    img.run(roi, eachSample(TableMap<Zor16u>{table.get()}));
    return zorStsOk;
}

// The range is checked before anything else, the pointers included.
template <bool Fwd, class Img>
ZorStatus ownGamma32f(const Img& img, ZoriSize roi, Zor32f vMin, Zor32f vMax) {
    if (!(vMax - vMin > 0.0f)) return zorStsBadGammaRange;
    const ZorStatus st = checkImage(img, roi);
    if (st != zorStsOk) return st;
    img.run(roi, eachSample(Curve32f<Fwd>(vMin, vMax)));
    return zorStsOk;
}

}  // namespace

void owniGammaInitFwd16u(Zor16u* table) {
    for (int v = 0; v < kGammaTableLen16u; ++v) table[v] = gammaFwd16u(static_cast<Zor16u>(v));
}

void owniGammaInitInv16u(Zor16u* table) {
    for (int v = 0; v < kGammaTableLen16u; ++v) table[v] = gammaInv16u(static_cast<Zor16u>(v));
}

}  // namespace zor

using namespace zor;

extern "C" {

ZORCC_API ZorStatus zoriGammaFwd_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    return ownGamma8u<true>(Interleaved3<Zor8u, 3>{pSrc, srcStep, pDst, dstStep}, roiSize);
}

ZORCC_API ZorStatus zoriGammaFwd_8u_C3IR(Zor8u* pSrcDst, int srcDstStep, ZoriSize roiSize) {
    return ownGamma8u<true>(inPlace<Zor8u, 3>(pSrcDst, srcDstStep), roiSize);
}

ZORCC_API ZorStatus zoriGammaFwd_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    return ownGamma8u<true>(Interleaved3<Zor8u, 4>{pSrc, srcStep, pDst, dstStep}, roiSize);
}

ZORCC_API ZorStatus zoriGammaFwd_8u_AC4IR(Zor8u* pSrcDst, int srcDstStep, ZoriSize roiSize) {
    return ownGamma8u<true>(inPlace<Zor8u, 4>(pSrcDst, srcDstStep), roiSize);
}

ZORCC_API ZorStatus zoriGammaFwd_8u_P3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* const pDst[3], int dstStep, ZoriSize roiSize) {
    return ownGamma8u<true>(Planar3<Zor8u>{pSrc, srcStep, pDst, dstStep}, roiSize);
}

ZORCC_API ZorStatus zoriGammaFwd_8u_IP3R(Zor8u* const pSrcDst[3], int srcDstStep, ZoriSize roiSize) {
    return ownGamma8u<true>(inPlace<Zor8u>(pSrcDst, srcDstStep), roiSize);
}

ZORCC_API ZorStatus zoriGammaInv_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    return ownGamma8u<false>(Interleaved3<Zor8u, 3>{pSrc, srcStep, pDst, dstStep}, roiSize);
}

ZORCC_API ZorStatus zoriGammaInv_8u_C3IR(Zor8u* pSrcDst, int srcDstStep, ZoriSize roiSize) {
    return ownGamma8u<false>(inPlace<Zor8u, 3>(pSrcDst, srcDstStep), roiSize);
}

ZORCC_API ZorStatus zoriGammaInv_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    return ownGamma8u<false>(Interleaved3<Zor8u, 4>{pSrc, srcStep, pDst, dstStep}, roiSize);
}

ZORCC_API ZorStatus zoriGammaInv_8u_AC4IR(Zor8u* pSrcDst, int srcDstStep, ZoriSize roiSize) {
    return ownGamma8u<false>(inPlace<Zor8u, 4>(pSrcDst, srcDstStep), roiSize);
}

ZORCC_API ZorStatus zoriGammaInv_8u_P3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* const pDst[3], int dstStep, ZoriSize roiSize) {
    return ownGamma8u<false>(Planar3<Zor8u>{pSrc, srcStep, pDst, dstStep}, roiSize);
}

ZORCC_API ZorStatus zoriGammaInv_8u_IP3R(Zor8u* const pSrcDst[3], int srcDstStep, ZoriSize roiSize) {
    return ownGamma8u<false>(inPlace<Zor8u>(pSrcDst, srcDstStep), roiSize);
}

ZORCC_API ZorStatus zoriGammaFwd_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize) {
    return ownGamma16u<true>(Interleaved3<Zor16u, 3>{pSrc, srcStep, pDst, dstStep}, roiSize);
}

ZORCC_API ZorStatus zoriGammaFwd_16u_C3IR(Zor16u* pSrcDst, int srcDstStep, ZoriSize roiSize) {
    return ownGamma16u<true>(inPlace<Zor16u, 3>(pSrcDst, srcDstStep), roiSize);
}

ZORCC_API ZorStatus zoriGammaFwd_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize) {
    return ownGamma16u<true>(Interleaved3<Zor16u, 4>{pSrc, srcStep, pDst, dstStep}, roiSize);
}

ZORCC_API ZorStatus zoriGammaFwd_16u_AC4IR(Zor16u* pSrcDst, int srcDstStep, ZoriSize roiSize) {
    return ownGamma16u<true>(inPlace<Zor16u, 4>(pSrcDst, srcDstStep), roiSize);
}

ZORCC_API ZorStatus zoriGammaFwd_16u_P3R(const Zor16u* const pSrc[3], int srcStep, Zor16u* const pDst[3], int dstStep, ZoriSize roiSize) {
    return ownGamma16u<true>(Planar3<Zor16u>{pSrc, srcStep, pDst, dstStep}, roiSize);
}

ZORCC_API ZorStatus zoriGammaFwd_16u_IP3R(Zor16u* const pSrcDst[3], int srcDstStep, ZoriSize roiSize) {
    return ownGamma16u<true>(inPlace<Zor16u>(pSrcDst, srcDstStep), roiSize);
}

ZORCC_API ZorStatus zoriGammaInv_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize) {
    return ownGamma16u<false>(Interleaved3<Zor16u, 3>{pSrc, srcStep, pDst, dstStep}, roiSize);
}

ZORCC_API ZorStatus zoriGammaInv_16u_C3IR(Zor16u* pSrcDst, int srcDstStep, ZoriSize roiSize) {
    return ownGamma16u<false>(inPlace<Zor16u, 3>(pSrcDst, srcDstStep), roiSize);
}

ZORCC_API ZorStatus zoriGammaInv_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize) {
    return ownGamma16u<false>(Interleaved3<Zor16u, 4>{pSrc, srcStep, pDst, dstStep}, roiSize);
}

ZORCC_API ZorStatus zoriGammaInv_16u_AC4IR(Zor16u* pSrcDst, int srcDstStep, ZoriSize roiSize) {
    return ownGamma16u<false>(inPlace<Zor16u, 4>(pSrcDst, srcDstStep), roiSize);
}

ZORCC_API ZorStatus zoriGammaInv_16u_P3R(const Zor16u* const pSrc[3], int srcStep, Zor16u* const pDst[3], int dstStep, ZoriSize roiSize) {
    return ownGamma16u<false>(Planar3<Zor16u>{pSrc, srcStep, pDst, dstStep}, roiSize);
}

ZORCC_API ZorStatus zoriGammaInv_16u_IP3R(Zor16u* const pSrcDst[3], int srcDstStep, ZoriSize roiSize) {
    return ownGamma16u<false>(inPlace<Zor16u>(pSrcDst, srcDstStep), roiSize);
}

ZORCC_API ZorStatus zoriGammaFwd_32f_C3R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax) {
    return ownGamma32f<true>(Interleaved3<Zor32f, 3>{pSrc, srcStep, pDst, dstStep}, roiSize, vMin, vMax);
}

ZORCC_API ZorStatus zoriGammaFwd_32f_C3IR(Zor32f* pSrcDst, int srcDstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax) {
    return ownGamma32f<true>(inPlace<Zor32f, 3>(pSrcDst, srcDstStep), roiSize, vMin, vMax);
}

ZORCC_API ZorStatus zoriGammaFwd_32f_AC4R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax) {
    return ownGamma32f<true>(Interleaved3<Zor32f, 4>{pSrc, srcStep, pDst, dstStep}, roiSize, vMin, vMax);
}

ZORCC_API ZorStatus zoriGammaFwd_32f_AC4IR(Zor32f* pSrcDst, int srcDstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax) {
    return ownGamma32f<true>(inPlace<Zor32f, 4>(pSrcDst, srcDstStep), roiSize, vMin, vMax);
}

ZORCC_API ZorStatus zoriGammaFwd_32f_P3R(const Zor32f* const pSrc[3], int srcStep, Zor32f* const pDst[3], int dstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax) {
    return ownGamma32f<true>(Planar3<Zor32f>{pSrc, srcStep, pDst, dstStep}, roiSize, vMin, vMax);
}

ZORCC_API ZorStatus zoriGammaFwd_32f_IP3R(Zor32f* const pSrcDst[3], int srcDstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax) {
    return ownGamma32f<true>(inPlace<Zor32f>(pSrcDst, srcDstStep), roiSize, vMin, vMax);
}

ZORCC_API ZorStatus zoriGammaInv_32f_C3R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax) {
    return ownGamma32f<false>(Interleaved3<Zor32f, 3>{pSrc, srcStep, pDst, dstStep}, roiSize, vMin, vMax);
}

ZORCC_API ZorStatus zoriGammaInv_32f_C3IR(Zor32f* pSrcDst, int srcDstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax) {
    return ownGamma32f<false>(inPlace<Zor32f, 3>(pSrcDst, srcDstStep), roiSize, vMin, vMax);
}

ZORCC_API ZorStatus zoriGammaInv_32f_AC4R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax) {
    return ownGamma32f<false>(Interleaved3<Zor32f, 4>{pSrc, srcStep, pDst, dstStep}, roiSize, vMin, vMax);
}

ZORCC_API ZorStatus zoriGammaInv_32f_AC4IR(Zor32f* pSrcDst, int srcDstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax) {
    return ownGamma32f<false>(inPlace<Zor32f, 4>(pSrcDst, srcDstStep), roiSize, vMin, vMax);
}

ZORCC_API ZorStatus zoriGammaInv_32f_P3R(const Zor32f* const pSrc[3], int srcStep, Zor32f* const pDst[3], int dstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax) {
    return ownGamma32f<false>(Planar3<Zor32f>{pSrc, srcStep, pDst, dstStep}, roiSize, vMin, vMax);
}

ZORCC_API ZorStatus zoriGammaInv_32f_IP3R(Zor32f* const pSrcDst[3], int srcDstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax) {
    return ownGamma32f<false>(inPlace<Zor32f>(pSrcDst, srcDstStep), roiSize, vMin, vMax);
}

}  // extern "C"
