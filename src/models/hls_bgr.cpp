// BGR and HLS, 8u, in seven layouts. These members validate their steps and
// floor their codes (+1e-7 on the widened product) instead of rounding them;
// the interleaved BGRA forward member is the exception in both respects: it
// rounds like the RGB family and tests the size before the steps. Alpha is
// copied where both sides have it and the layout is planar on either side.
#include "models/hls.h"

namespace zor {

namespace {

using Floor8u = HlsIntCodec<Zor8u, FloorCode>;
using Round8u = HlsIntCodec<Zor8u, RoundCode>;

template <int N>
using PlanesIn = PixelRow<const Zor8u, 1, N>;
template <int N>
using PlanesOut = PixelRow<Zor8u, 1, N>;

}  // namespace

void innerBGRToHLS_8u_AC4R(const Zor8u* s, Zor8u* d, int w) {
    hlsForwardRow<Round8u, Order::Bgr, false>(interleavedRow<4, 3>(s), interleavedRow<4, 3>(d), w);
}

void ownpi_BGRToHLS_8u_AP4(const Zor8u* const s[4], Zor8u* const d[4], int w) {
    hlsForwardRow<Floor8u, Order::Bgr, true>(planarRow<4>(s), planarRow<4>(d), w);
}
void ownpi_BGRToHLS_8u_AP4C4(const Zor8u* const s[4], Zor8u* d, int w) {
    hlsForwardRow<Floor8u, Order::Bgr, true>(planarRow<4>(s), interleavedRow<4, 4>(d), w);
}
void ownpi_BGRToHLS_8u_AC4P4(const Zor8u* s, Zor8u* const d[4], int w) {
    hlsForwardRow<Floor8u, Order::Bgr, true>(interleavedRow<4, 4>(s), planarRow<4>(d), w);
}
void ownpi_BGRToHLS_8u_P3(const Zor8u* const s[3], Zor8u* const d[3], int w) {
    hlsForwardRow<Floor8u, Order::Bgr, false>(planarRow<3>(s), planarRow<3>(d), w);
}
void ownpi_BGRToHLS_8u_P3C3(const Zor8u* const s[3], Zor8u* d, int w) {
    hlsForwardRow<Floor8u, Order::Bgr, false>(planarRow<3>(s), interleavedRow<3, 3>(d), w);
}
void ownpi_BGRToHLS_8u_C3P3(const Zor8u* s, Zor8u* const d[3], int w) {
    hlsForwardRow<Floor8u, Order::Bgr, false>(interleavedRow<3, 3>(s), planarRow<3>(d), w);
}

void ownpi_HLSToBGR_8u_AP4(const Zor8u* const s[4], Zor8u* const d[4], int w) {
    hlsInverseRow<Floor8u, Order::Bgr, true>(planarRow<4>(s), planarRow<4>(d), w);
}
void ownpi_HLSToBGR_8u_AP4C4(const Zor8u* const s[4], Zor8u* d, int w) {
    hlsInverseRow<Floor8u, Order::Bgr, true>(planarRow<4>(s), interleavedRow<4, 4>(d), w);
}
void ownpi_HLSToBGR_8u_AC4P4(const Zor8u* s, Zor8u* const d[4], int w) {
    hlsInverseRow<Floor8u, Order::Bgr, true>(interleavedRow<4, 4>(s), planarRow<4>(d), w);
}
void ownpi_HLSToBGR_8u_P3(const Zor8u* const s[3], Zor8u* const d[3], int w) {
    hlsInverseRow<Floor8u, Order::Bgr, false>(planarRow<3>(s), planarRow<3>(d), w);
}
void ownpi_HLSToBGR_8u_P3C3(const Zor8u* const s[3], Zor8u* d, int w) {
    hlsInverseRow<Floor8u, Order::Bgr, false>(planarRow<3>(s), interleavedRow<3, 3>(d), w);
}
void ownpi_HLSToBGR_8u_C3P3(const Zor8u* s, Zor8u* const d[3], int w) {
    hlsInverseRow<Floor8u, Order::Bgr, false>(interleavedRow<3, 3>(s), planarRow<3>(d), w);
}

namespace {

// One side of a BGR-family image argument: an interleaved image (one
// pointer) or N planes sharing one step. row() gives what the kernel takes.
template <class T>
struct Interleaved {
    T* p;
    bool null() const { return p == nullptr; }
    T* row(std::ptrdiff_t step, int y) const { return rowAt(p, step, y); }
};

template <class T, int N>
struct Planes {
    T* const* p;
    struct Rows {
        T* c[N];
    };
    bool null() const {
        if (p == nullptr) return true;
        for (int k = 0; k < N; ++k)
            if (p[k] == nullptr) return true;
        return false;
    }
    Rows row(std::ptrdiff_t step, int y) const {
        Rows r{};
        for (int k = 0; k < N; ++k) r.c[k] = rowAt(p[k], step, y);
        return r;
    }
};

template <class T>
T* kernelArg(T* p) {
    return p;
}
template <class R>
auto kernelArg(const R& rows) -> decltype(&rows.c[0]) {
    return rows.c;
}

template <class S, class D, class Kernel>
void bgrRows(Kernel kernel, S src, int srcStep, D dst, int dstStep, ZoriSize roi) {
    const std::ptrdiff_t ss = srcStep, ds = dstStep;
    parallelRows(roi.height, [&](int y) {
        const auto s = src.row(ss, y);
        const auto d = dst.row(ds, y);
        kernel(kernelArg(s), kernelArg(d), roi.width);
    });
}

// Planar and mixed layouts: pointers and plane pointers, then steps, then size.
template <class S, class D, class Kernel>
ZorStatus bgrEntry(Kernel kernel, S src, int srcStep, D dst, int dstStep, ZoriSize roi) {
    if (src.null() || dst.null()) return zorStsNullPtr;
    if (anyBadStep(srcStep, dstStep)) return zorStsStepErr;
    if (badSize(roi)) return zorStsBadSize;
    bgrRows(kernel, src, srcStep, dst, dstStep, roi);
    return zorStsOk;
}

using In = Interleaved<const Zor8u>;
using Out = Interleaved<Zor8u>;
using In3 = Planes<const Zor8u, 3>;
using Out3 = Planes<Zor8u, 3>;
using In4 = Planes<const Zor8u, 4>;
using Out4 = Planes<Zor8u, 4>;

}  // namespace

}  // namespace zor

using namespace zor;

extern "C" {

// The interleaved BGRA member tests the size before the steps.
ZORCC_API ZorStatus zoriBGRToHLS_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    if (anyNull(pSrc, pDst)) return zorStsNullPtr;
    if (badSize(roiSize)) return zorStsBadSize;
    if (anyBadStep(srcStep, dstStep)) return zorStsStepErr;
    bgrRows(innerBGRToHLS_8u_AC4R, In{pSrc}, srcStep, Out{pDst}, dstStep, roiSize);
    return zorStsOk;
}

ZORCC_API ZorStatus zoriBGRToHLS_8u_AP4R(const Zor8u* const pSrc[4], int srcStep, Zor8u* const pDst[4], int dstStep,
                                         ZoriSize roiSize) {
    return bgrEntry(ownpi_BGRToHLS_8u_AP4, In4{pSrc}, srcStep, Out4{pDst}, dstStep, roiSize);
}
ZORCC_API ZorStatus zoriBGRToHLS_8u_AP4C4R(const Zor8u* const pSrc[4], int srcStep, Zor8u* pDst, int dstStep,
                                           ZoriSize roiSize) {
    return bgrEntry(ownpi_BGRToHLS_8u_AP4C4, In4{pSrc}, srcStep, Out{pDst}, dstStep, roiSize);
}
ZORCC_API ZorStatus zoriBGRToHLS_8u_AC4P4R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[4], int dstStep,
                                           ZoriSize roiSize) {
    return bgrEntry(ownpi_BGRToHLS_8u_AC4P4, In{pSrc}, srcStep, Out4{pDst}, dstStep, roiSize);
}
ZORCC_API ZorStatus zoriBGRToHLS_8u_P3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* const pDst[3], int dstStep,
                                        ZoriSize roiSize) {
    return bgrEntry(ownpi_BGRToHLS_8u_P3, In3{pSrc}, srcStep, Out3{pDst}, dstStep, roiSize);
}
ZORCC_API ZorStatus zoriBGRToHLS_8u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep,
                                          ZoriSize roiSize) {
    return bgrEntry(ownpi_BGRToHLS_8u_P3C3, In3{pSrc}, srcStep, Out{pDst}, dstStep, roiSize);
}
ZORCC_API ZorStatus zoriBGRToHLS_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], int dstStep,
                                          ZoriSize roiSize) {
    return bgrEntry(ownpi_BGRToHLS_8u_C3P3, In{pSrc}, srcStep, Out3{pDst}, dstStep, roiSize);
}

ZORCC_API ZorStatus zoriHLSToBGR_8u_AP4R(const Zor8u* const pSrc[4], int srcStep, Zor8u* const pDst[4], int dstStep,
                                         ZoriSize roiSize) {
    return bgrEntry(ownpi_HLSToBGR_8u_AP4, In4{pSrc}, srcStep, Out4{pDst}, dstStep, roiSize);
}
ZORCC_API ZorStatus zoriHLSToBGR_8u_AP4C4R(const Zor8u* const pSrc[4], int srcStep, Zor8u* pDst, int dstStep,
                                           ZoriSize roiSize) {
    return bgrEntry(ownpi_HLSToBGR_8u_AP4C4, In4{pSrc}, srcStep, Out{pDst}, dstStep, roiSize);
}
ZORCC_API ZorStatus zoriHLSToBGR_8u_AC4P4R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[4], int dstStep,
                                           ZoriSize roiSize) {
    return bgrEntry(ownpi_HLSToBGR_8u_AC4P4, In{pSrc}, srcStep, Out4{pDst}, dstStep, roiSize);
}
ZORCC_API ZorStatus zoriHLSToBGR_8u_P3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* const pDst[3], int dstStep,
                                        ZoriSize roiSize) {
    return bgrEntry(ownpi_HLSToBGR_8u_P3, In3{pSrc}, srcStep, Out3{pDst}, dstStep, roiSize);
}
ZORCC_API ZorStatus zoriHLSToBGR_8u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep,
                                          ZoriSize roiSize) {
    return bgrEntry(ownpi_HLSToBGR_8u_P3C3, In3{pSrc}, srcStep, Out{pDst}, dstStep, roiSize);
}
ZORCC_API ZorStatus zoriHLSToBGR_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], int dstStep,
                                          ZoriSize roiSize) {
    return bgrEntry(ownpi_HLSToBGR_8u_C3P3, In{pSrc}, srcStep, Out3{pDst}, dstStep, roiSize);
}

}  // extern "C"
