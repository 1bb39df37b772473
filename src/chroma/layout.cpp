// Layout and subsampling conversions among planar, semi-planar and
// interleaved 4:2:2, 4:2:0 and 4:1:1 video. Each member is a description:
// its source and destination layouts and its minimum size; the generic mover
// of layout.h derives the chroma rule from the two subsamplings.
#include "chroma/layout.h"

using namespace zor;

extern "C" {

ZORCC_API ZorStatus zoriYCbCr422_8u_P3C2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst,
                                          int dstStep, ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k422>{pSrc, srcStep}, DstC2<PackedYCbYCr>{pDst, dstStep}, roiSize, 2, 1);
}

ZORCC_API ZorStatus zoriYCbCr422_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                          const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcC2<PackedYCbYCr>{pSrc, srcStep}, DstP3<Sub::k422>{pDst, dstStep}, roiSize, 2, 1);
}

ZORCC_API ZorStatus zoriYCrCb422ToYCbCr422_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                    const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcC2<PackedYCrYCb>{pSrc, srcStep}, DstP3<Sub::k422>{pDst, dstStep}, roiSize, 2,
                            kNoMinHeight);
}

ZORCC_API ZorStatus zoriCbYCr422ToYCbCr422_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                    const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcC2<PackedCbYCrY>{pSrc, srcStep}, DstP3<Sub::k422>{pDst, dstStep}, roiSize, 2,
                            kNoMinHeight);
}

ZORCC_API ZorStatus zoriYCbCr422ToCbYCr422_8u_C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                                  ZoriSize roiSize) {
    return ownConvertLayout(SrcC2<PackedYCbYCr>{pSrc, srcStep}, DstC2<PackedCbYCrY>{pDst, dstStep}, roiSize, 2, 1);
}

ZORCC_API ZorStatus zoriCbYCr422ToYCbCr422_8u_C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                                  ZoriSize roiSize) {
    return ownConvertLayout(SrcC2<PackedCbYCrY>{pSrc, srcStep}, DstC2<PackedYCbYCr>{pDst, dstStep}, roiSize, 2, 1);
}

ZORCC_API ZorStatus zoriYCbCr422ToYCrCb422_8u_C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep,
                                                  ZoriSize roiSize) {
    return ownConvertLayout(SrcC2<PackedYCbYCr>{pSrc, srcStep}, DstC2<PackedYCrYCb>{pDst, dstStep}, roiSize, 2,
                            kNoMinHeight);
}

ZORCC_API ZorStatus zoriYCbCr422ToYCrCb422_8u_P3C2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst,
                                                    int dstStep, ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k422>{pSrc, srcStep}, DstC2<PackedYCrYCb>{pDst, dstStep}, roiSize, 2,
                            kNoMinHeight);
}

ZORCC_API ZorStatus zoriYCbCr420_8u_P3P2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDstY,
                                          int dstYStep, Zor8u* pDstCbCr, int dstCbCrStep, ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k420>{pSrc, srcStep},
                            DstP2<Sub::k420>{pDstY, dstYStep, pDstCbCr, dstCbCrStep}, roiSize, 2, 2);
}

ZORCC_API ZorStatus zoriYCbCr420_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr, int srcCbCrStep,
                                          Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcP2<Sub::k420>{pSrcY, srcYStep, pSrcCbCr, srcCbCrStep},
                            DstP3<Sub::k420>{pDst, dstStep}, roiSize, 2, 2);
}

ZORCC_API ZorStatus zoriYCrCb420ToYCbCr420_8u_P3P2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDstY,
                                                    int dstYStep, Zor8u* pDstCbCr, int dstCbCrStep,
                                                    ZoriSize roiSize) {
    // This member reads the plane pointers out of the source array without
    // testing the array pointer itself.
    if (anyNull(pSrc[0], pSrc[1], pSrc[2])) return zorStsNullPtr;
    return ownConvertLayout(SrcP3<Sub::k420, true>{pSrc, srcStep},
                            DstP2<Sub::k420>{pDstY, dstYStep, pDstCbCr, dstCbCrStep}, roiSize, 2, 2);
}

ZORCC_API ZorStatus zoriYCbCr420ToYCrCb420_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr,
                                                    int srcCbCrStep, Zor8u* const pDst[3], const int dstStep[3],
                                                    ZoriSize roiSize) {
    // Tests the size against 1 and then against 2; both fail with zorStsBadSize.
    return ownConvertLayout(SrcP2<Sub::k420>{pSrcY, srcYStep, pSrcCbCr, srcCbCrStep},
                            DstP3<Sub::k420, true>{pDst, dstStep}, roiSize, 2, 2);
}

ZORCC_API ZorStatus zoriYCbCr411_8u_P3P2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDstY,
                                          int dstYStep, Zor8u* pDstCbCr, int dstCbCrStep, ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k411>{pSrc, srcStep},
                            DstP2<Sub::k411>{pDstY, dstYStep, pDstCbCr, dstCbCrStep}, roiSize, 4, kNoMinHeight);
}

ZORCC_API ZorStatus zoriYCbCr411_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr, int srcCbCrStep,
                                          Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcP2<Sub::k411>{pSrcY, srcYStep, pSrcCbCr, srcCbCrStep},
                            DstP3<Sub::k411>{pDst, dstStep}, roiSize, 4, kNoMinHeight);
}

ZORCC_API ZorStatus zoriYCbCr422ToYCbCr420_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3],
                                                  Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k422>{pSrc, srcStep}, DstP3<Sub::k420>{pDst, dstStep}, roiSize, 2, 2);
}

ZORCC_API ZorStatus zoriYCbCr422ToYCbCr420_8u_P3P2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDstY,
                                                    int dstYStep, Zor8u* pDstCbCr, int dstCbCrStep,
                                                    ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k422>{pSrc, srcStep},
                            DstP2<Sub::k420>{pDstY, dstYStep, pDstCbCr, dstCbCrStep}, roiSize, 2, 2);
}

ZORCC_API ZorStatus zoriYCbCr422ToYCbCr420_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                    const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcC2<PackedYCbYCr>{pSrc, srcStep}, DstP3<Sub::k420>{pDst, dstStep}, roiSize, 2, 2);
}

ZORCC_API ZorStatus zoriCbYCr422ToYCbCr420_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                    const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcC2<PackedCbYCrY>{pSrc, srcStep}, DstP3<Sub::k420>{pDst, dstStep}, roiSize, 2, 2);
}

ZORCC_API ZorStatus zoriYCrCb422ToYCbCr420_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                    const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcC2<PackedYCrYCb>{pSrc, srcStep}, DstP3<Sub::k420>{pDst, dstStep}, roiSize, 2, 2);
}

ZORCC_API ZorStatus zoriYCbCr422ToYCrCb420_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                    const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcC2<PackedYCbYCr>{pSrc, srcStep}, DstP3<Sub::k420, true>{pDst, dstStep}, roiSize, 2,
                            2);
}

ZORCC_API ZorStatus zoriCbYCr422ToYCrCb420_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                    const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcC2<PackedCbYCrY>{pSrc, srcStep}, DstP3<Sub::k420, true>{pDst, dstStep}, roiSize, 2,
                            2);
}

ZORCC_API ZorStatus zoriYCbCr422ToYCbCr420_8u_C2P2R(const Zor8u* pSrc, int srcStep, Zor8u* pDstY, int dstYStep,
                                                    Zor8u* pDstCbCr, int dstCbCrStep, ZoriSize roiSize) {
    return ownConvertLayout(SrcC2<PackedYCbYCr>{pSrc, srcStep},
                            DstP2<Sub::k420>{pDstY, dstYStep, pDstCbCr, dstCbCrStep}, roiSize, 2, 2);
}

ZORCC_API ZorStatus zoriCbYCr422ToYCbCr420_8u_C2P2R(const Zor8u* pSrc, int srcStep, Zor8u* pDstY, int dstYStep,
                                                    Zor8u* pDstCbCr, int dstCbCrStep, ZoriSize roiSize) {
    return ownConvertLayout(SrcC2<PackedCbYCrY>{pSrc, srcStep},
                            DstP2<Sub::k420>{pDstY, dstYStep, pDstCbCr, dstCbCrStep}, roiSize, 2, 2);
}

ZORCC_API ZorStatus zoriYCbCr420ToYCbCr422_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3],
                                                  Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k420>{pSrc, srcStep}, DstP3<Sub::k422>{pDst, dstStep}, roiSize, 2, 2);
}

ZORCC_API ZorStatus zoriYCrCb420ToYCbCr422_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3],
                                                  Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k420, true>{pSrc, srcStep}, DstP3<Sub::k422>{pDst, dstStep}, roiSize, 2, 2);
}

ZORCC_API ZorStatus zoriYCbCr420ToYCbCr422_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr,
                                                    int srcCbCrStep, Zor8u* const pDst[3], const int dstStep[3],
                                                    ZoriSize roiSize) {
    return ownConvertLayout(SrcP2<Sub::k420>{pSrcY, srcYStep, pSrcCbCr, srcCbCrStep},
                            DstP3<Sub::k422>{pDst, dstStep}, roiSize, 2, 2);
}

ZORCC_API ZorStatus zoriYCbCr420ToYCbCr422_8u_P2C2R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr,
                                                    int srcCbCrStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    // Tests the size against 1 and then against 2; both fail with zorStsBadSize.
    return ownConvertLayout(SrcP2<Sub::k420>{pSrcY, srcYStep, pSrcCbCr, srcCbCrStep},
                            DstC2<PackedYCbYCr>{pDst, dstStep}, roiSize, 2, 2);
}

ZORCC_API ZorStatus zoriYCbCr420ToCbYCr422_8u_P2C2R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr,
                                                    int srcCbCrStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    // Tests the size against 1 and then against 2; both fail with zorStsBadSize.
    return ownConvertLayout(SrcP2<Sub::k420>{pSrcY, srcYStep, pSrcCbCr, srcCbCrStep},
                            DstC2<PackedCbYCrY>{pDst, dstStep}, roiSize, 2, 2);
}

ZORCC_API ZorStatus zoriYCrCb420ToYCbCr422_8u_P3C2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst,
                                                    int dstStep, ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k420, true>{pSrc, srcStep}, DstC2<PackedYCbYCr>{pDst, dstStep}, roiSize, 2,
                            2);
}

ZORCC_API ZorStatus zoriYCrCb420ToCbYCr422_8u_P3C2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst,
                                                    int dstStep, ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k420, true>{pSrc, srcStep}, DstC2<PackedCbYCrY>{pDst, dstStep}, roiSize, 2,
                            2);
}

ZORCC_API ZorStatus zoriYCbCr422ToYCbCr411_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3],
                                                  Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k422>{pSrc, srcStep}, DstP3<Sub::k411>{pDst, dstStep}, roiSize, 4,
                            kNoMinHeight);
}

ZORCC_API ZorStatus zoriYCbCr422ToYCbCr411_8u_P3P2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDstY,
                                                    int dstYStep, Zor8u* pDstCbCr, int dstCbCrStep,
                                                    ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k422>{pSrc, srcStep},
                            DstP2<Sub::k411>{pDstY, dstYStep, pDstCbCr, dstCbCrStep}, roiSize, 4, kNoMinHeight);
}

ZORCC_API ZorStatus zoriYCbCr422ToYCbCr411_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                    const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcC2<PackedYCbYCr>{pSrc, srcStep}, DstP3<Sub::k411>{pDst, dstStep}, roiSize, 4,
                            kNoMinHeight);
}

ZORCC_API ZorStatus zoriCbYCr422ToYCbCr411_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                    const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcC2<PackedCbYCrY>{pSrc, srcStep}, DstP3<Sub::k411>{pDst, dstStep}, roiSize, 4,
                            kNoMinHeight);
}

ZORCC_API ZorStatus zoriYCrCb422ToYCbCr411_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3],
                                                    const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcC2<PackedYCrYCb>{pSrc, srcStep}, DstP3<Sub::k411>{pDst, dstStep}, roiSize, 4,
                            kNoMinHeight);
}

ZORCC_API ZorStatus zoriYCbCr422ToYCbCr411_8u_C2P2R(const Zor8u* pSrc, int srcStep, Zor8u* pDstY, int dstYStep,
                                                    Zor8u* pDstCbCr, int dstCbCrStep, ZoriSize roiSize) {
    return ownConvertLayout(SrcC2<PackedYCbYCr>{pSrc, srcStep},
                            DstP2<Sub::k411>{pDstY, dstYStep, pDstCbCr, dstCbCrStep}, roiSize, 4, kNoMinHeight);
}

ZORCC_API ZorStatus zoriYCbCr411ToYCbCr422_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3],
                                                  Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k411>{pSrc, srcStep}, DstP3<Sub::k422>{pDst, dstStep}, roiSize, 4,
                            kNoMinHeight);
}

ZORCC_API ZorStatus zoriYCbCr411ToYCrCb422_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3],
                                                  Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k411>{pSrc, srcStep}, DstP3<Sub::k422, true>{pDst, dstStep}, roiSize, 4,
                            kNoMinHeight);
}

ZORCC_API ZorStatus zoriYCbCr411ToYCbCr422_8u_P3C2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst,
                                                    int dstStep, ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k411>{pSrc, srcStep}, DstC2<PackedYCbYCr>{pDst, dstStep}, roiSize, 4,
                            kNoMinHeight);
}

ZORCC_API ZorStatus zoriYCbCr411ToYCrCb422_8u_P3C2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst,
                                                    int dstStep, ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k411>{pSrc, srcStep}, DstC2<PackedYCrYCb>{pDst, dstStep}, roiSize, 4,
                            kNoMinHeight);
}

ZORCC_API ZorStatus zoriYCbCr411ToYCbCr422_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr,
                                                    int srcCbCrStep, Zor8u* const pDst[3], const int dstStep[3],
                                                    ZoriSize roiSize) {
    return ownConvertLayout(SrcP2<Sub::k411>{pSrcY, srcYStep, pSrcCbCr, srcCbCrStep},
                            DstP3<Sub::k422>{pDst, dstStep}, roiSize, 4, kNoMinHeight);
}

ZORCC_API ZorStatus zoriYCbCr411ToYCbCr422_8u_P2C2R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr,
                                                    int srcCbCrStep, Zor8u* pDst, int dstStep, ZoriSize roiSize) {
    return ownConvertLayout(SrcP2<Sub::k411>{pSrcY, srcYStep, pSrcCbCr, srcCbCrStep},
                            DstC2<PackedYCbYCr>{pDst, dstStep}, roiSize, 4, kNoMinHeight);
}

ZORCC_API ZorStatus zoriYCbCr420ToYCbCr411_8u_P3P2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDstY,
                                                    int dstYStep, Zor8u* pDstCbCr, int dstCbCrStep,
                                                    ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k420>{pSrc, srcStep},
                            DstP2<Sub::k411>{pDstY, dstYStep, pDstCbCr, dstCbCrStep}, roiSize, 4, 2);
}

ZORCC_API ZorStatus zoriYCrCb420ToYCbCr411_8u_P3P2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDstY,
                                                    int dstYStep, Zor8u* pDstCbCr, int dstCbCrStep,
                                                    ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k420, true>{pSrc, srcStep},
                            DstP2<Sub::k411>{pDstY, dstYStep, pDstCbCr, dstCbCrStep}, roiSize, 4, 2);
}

ZORCC_API ZorStatus zoriYCbCr420ToYCbCr411_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr,
                                                    int srcCbCrStep, Zor8u* const pDst[3], const int dstStep[3],
                                                    ZoriSize roiSize) {
    return ownConvertLayout(SrcP2<Sub::k420>{pSrcY, srcYStep, pSrcCbCr, srcCbCrStep},
                            DstP3<Sub::k411>{pDst, dstStep}, roiSize, 4, 2);
}

ZORCC_API ZorStatus zoriYCbCr411ToYCbCr420_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3],
                                                  Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k411>{pSrc, srcStep}, DstP3<Sub::k420>{pDst, dstStep}, roiSize, 4, 2);
}

ZORCC_API ZorStatus zoriYCbCr411ToYCbCr420_8u_P3P2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDstY,
                                                    int dstYStep, Zor8u* pDstCbCr, int dstCbCrStep,
                                                    ZoriSize roiSize) {
    return ownConvertLayout(SrcP3<Sub::k411>{pSrc, srcStep},
                            DstP2<Sub::k420>{pDstY, dstYStep, pDstCbCr, dstCbCrStep}, roiSize, 4, 2);
}

ZORCC_API ZorStatus zoriYCbCr411ToYCbCr420_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr,
                                                    int srcCbCrStep, Zor8u* const pDst[3], const int dstStep[3],
                                                    ZoriSize roiSize) {
    return ownConvertLayout(SrcP2<Sub::k411>{pSrcY, srcYStep, pSrcCbCr, srcCbCrStep},
                            DstP3<Sub::k420>{pDst, dstStep}, roiSize, 4, 2);
}

ZORCC_API ZorStatus zoriYCbCr411ToYCrCb420_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr,
                                                    int srcCbCrStep, Zor8u* const pDst[3], const int dstStep[3],
                                                    ZoriSize roiSize) {
    return ownConvertLayout(SrcP2<Sub::k411>{pSrcY, srcYStep, pSrcCbCr, srcCbCrStep},
                            DstP3<Sub::k420, true>{pDst, dstStep}, roiSize, 4, 2);
}

}  // extern "C"
