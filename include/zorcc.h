/*
 * zorcc.h - colour-conversion primitives for images (libzorccpx-5.1).
 *
 * Every image function converts the region of interest of one image into
 * another colour representation, sample type or memory layout and returns a
 * ZorStatus: 0 on success, a negative error (nothing was written) or a
 * positive warning (the work was done, with a remark).
 *
 * Conventions shared by all image functions
 *  - Arguments: source, source step, destination, destination step, any
 *    function-specific arguments, then roiSize (a ZoriSize passed by value),
 *    then the few arguments some functions place after it.
 *  - An image is a pointer to the first sample of the region plus a signed row
 *    step in BYTES (also for 16-bit and float images). Row y starts at
 *    pointer + y * step; a negative step walks the image bottom-up and is
 *    accepted by every function that does not validate steps.
 *  - Planar images (P3, P4) are arrays of plane pointers in the order of the
 *    model's name (Y, Cb, Cr; R, G, B) with either one shared step or an array
 *    of steps, as stated per function. roiSize counts full-resolution pixels.
 *  - Layout codes: C1..C4 interleaved channels; AC4 = four channels whose
 *    fourth (alpha) is neither read nor written; P2/P3/P4 planes; C2 = packed
 *    4:2:2 video; I = in place; R = region of interest.
 *  - Arguments are checked in a fixed order (pointers, steps where validated,
 *    size, plane pointers, function parameters); the first failure decides the
 *    status and nothing is written.
 *  - Parallel families use a team of threads_omp_of_n_zor threads (OpenMP);
 *    results never depend on the team size unless a family says so.
 *  - No function keeps state between calls; any number of threads may call
 *    the library at once on distinct images.
 */
#ifndef ZORCC_H
#define ZORCC_H

#include <stddef.h>
#include <stdint.h>

#if defined(_WIN32)
#  define ZORCC_API_EXPORT __declspec(dllexport)
#  define ZORCC_API_IMPORT __declspec(dllimport)
#else
#  define ZORCC_API_EXPORT __attribute__((visibility("default")))
#  define ZORCC_API_IMPORT
#endif

#if defined(ZORCC_BUILDING_LIBRARY)
#  define ZORCC_API ZORCC_API_EXPORT
#else
#  define ZORCC_API ZORCC_API_IMPORT
#endif
#if defined(ZORCORE_BUILDING_LIBRARY)
#  define ZORCORE_API ZORCC_API_EXPORT
#else
#  define ZORCORE_API ZORCC_API_IMPORT
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ------------------------------------------------------------------------ */
/* Types                                                                    */
/* ------------------------------------------------------------------------ */

typedef uint8_t  Zor8u;
typedef int8_t   Zor8s;
typedef uint16_t Zor16u;
typedef int16_t  Zor16s;
typedef int32_t  Zor32s;
typedef float    Zor32f;

/* Size of a region of interest in pixels (full-resolution/luma pixels). */
typedef struct ZoriSize {
    int width;
    int height;
} ZoriSize;

/* Result of every function: 0 success, < 0 error, > 0 warning. */
typedef enum ZorStatus {
    zorStsNoiseRangeErr    = -55, /* noise amount outside 0..100                  */
    zorStsLevelsRangeErr   = -54, /* output levels outside the allowed range      */
    zorStsBadGammaRange    = -49, /* float gamma: vMax - vMin not greater than 0   */
    zorStsContextMatchErr  = -17, /* state record of the wrong kind               */
    zorStsStepErr          = -14, /* a row step below 1 (where steps are checked) */
    zorStsNoMemory         = -9,  /* working memory could not be obtained         */
    zorStsNullPtr          = -8,  /* a required pointer is null                   */
    zorStsBadSize          = -6,  /* width or height below the minimum            */
    zorStsOk               = 0,   /* success                                      */
    zorStsOddSizeWarning   = 35   /* done on the largest even/multiple-of-4 part  */
} ZorStatus;

/* Method of the bit-depth reduction (zoriReduceBits_*). Other values are
 * accepted and do nothing. */
typedef enum ZorDitherType {
    zorDitherNone   = 0, /* plain quantisation          */
    zorDitherFS     = 1, /* Floyd-Steinberg             */
    zorDitherJJN    = 2, /* Jarvis-Judice-Ninke         */
    zorDitherStucki = 3, /* Stucki                      */
    zorDitherBayer  = 4  /* 4x4 Bayer ordered dither    */
} ZorDitherType;

/* Version record returned by zorccGetLibVersion: constant data of the
 * library, never to be freed or written. */
typedef struct ZorLibraryVersion {
    int         majorVersion;  /* 5                         */
    int         minorVersion;  /* 1                         */
    int         buildSeries;   /* 133                       */
    int         buildNumber;   /* 181                       */
    char        targetCpu[4];  /* "px": the generic variant */
    const char* libraryName;   /* "libzorccpx-5.1.dylib"    */
    const char* versionText;   /* "5.1.1"                   */
    const char* buildDate;     /* "Jun 17 2006"             */
} ZorLibraryVersion;

/* States of the uniform random generators (opaque; obtain with
 * zorsRandUniformInitAlloc_*, release with zorsRandUniformFree_*). */
typedef struct ZorRandUniState_16s ZorRandUniState_16s;
typedef struct ZorRandUniState_32f ZorRandUniState_32f;

/* ------------------------------------------------------------------------ */
/* Core library (libzorcore-5.1)                                            */
/* ------------------------------------------------------------------------ */

/* Team size of every parallel region of the library. Set when libzorcore is
 * loaded to the number of processors, or to the value of the environment
 * variable ZOR_NUM_THREADS when that holds a positive integer. Callers may
 * change it between calls; the library only reads it. */
ZORCORE_API extern int threads_omp_of_n_zor;

/* ------------------------------------------------------------------------ */
/* Library version                                                          */
/* ------------------------------------------------------------------------ */

/* Pointer to the constant version record; never null, always the same. */
ZORCC_API const ZorLibraryVersion* zorccGetLibVersion(void);

/* ------------------------------------------------------------------------ */
/* Memory blocks and the uniform random generator                           */
/* ------------------------------------------------------------------------ */

/* 32-byte aligned blocks of len elements (2-byte elements for 16s/16u,
 * 4-byte for 32f). Null when len < 1 or the system allocator fails.
 * Release with zorsFree; zorsFree(NULL) does nothing. */
ZORCC_API Zor16s* zorsMalloc_16s(int len);
ZORCC_API Zor16u* zorsMalloc_16u(int len);
ZORCC_API Zor32f* zorsMalloc_32f(int len);
ZORCC_API void    zorsFree(void* ptr);

/* Uniform generator: a lagged subtract-with-borrow sequence combined with a
 * congruential one. Samples lie in [low, high) up to rounding (16s samples are
 * truncated toward zero). Equal bounds and seed give equal sequences;
 * consecutive calls continue one sequence. A state must not be used by two
 * threads at once.
 * InitAlloc: zorStsNullPtr (ppState null), zorStsNoMemory, zorStsOk.
 * RandUniform: zorStsNullPtr, zorStsBadSize (len <= 0),
 *              zorStsContextMatchErr (a state of the other kind), zorStsOk.
 * Free: zorStsNullPtr, zorStsContextMatchErr, zorStsOk. */
ZORCC_API ZorStatus zorsRandUniformInitAlloc_16s(ZorRandUniState_16s** ppState, Zor16s low, Zor16s high, unsigned int seed);
ZORCC_API ZorStatus zorsRandUniformInitAlloc_32f(ZorRandUniState_32f** ppState, Zor32f low, Zor32f high, unsigned int seed);
ZORCC_API ZorStatus zorsRandUniform_16s(Zor16s* pDst, int len, ZorRandUniState_16s* pState);
ZORCC_API ZorStatus zorsRandUniform_32f(Zor32f* pDst, int len, ZorRandUniState_32f* pState);
ZORCC_API ZorStatus zorsRandUniformFree_16s(ZorRandUniState_16s* pState);
ZORCC_API ZorStatus zorsRandUniformFree_32f(ZorRandUniState_32f* pState);

/* ------------------------------------------------------------------------ */
/* YCbCr and RGB at full chroma resolution (4:4:4), 8-bit                   */
/* ------------------------------------------------------------------------ */
/* Studio-range BT.601 in 16.16 fixed point: Y 16..235, Cb/Cr 16..240.
 *   Y  = ( 16843 R + 33030 G +  6423 B + 1081344) >> 16
 *   Cb = ( -9699 R - 19071 G + 28770 B + 8421376) >> 16
 *   Cr = ( 28770 R - 24117 G -  4653 B + 8421376) >> 16
 * Two decoder constant sets (d = Cb - 128, e = Cr - 128), results clamped to
 * 0..255, arithmetic right shift:
 *   set A (C3, AC4, P3 forms), truncating:
 *     R = (76284 y - 1220544 + 104595 e) >> 16
 *     G = (76284 y - 1220544 - 25690 d - 53281 e) >> 16
 *     B = (76284 y - 1220544 + 132186 d) >> 16
 *   set B (planar source to interleaved destination), rounding:
 *     the same with 76282, 104593, 25689, 53279, 132184 and one half
 *     (32768) added before the shift.
 * Interleaved YCbCr is stored Y, Cb, Cr. Rows run serially; steps are not
 * checked. Planar images share one step. In AC4 forms the fourth byte is
 * neither read nor written. Size below 1x1: zorStsBadSize.
 * Check order: pointers, size, then plane pointers - except the BGR decoders,
 * which check the planes with the pointers, before the size, and
 * zoriYCbCrToRGB_8u_P3R, which checks destination planes before source
 * planes. */
ZORCC_API ZorStatus zoriRGBToYCbCr_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToYCbCr_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToYCbCr_8u_P3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToRGB_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToRGB_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToRGB_8u_P3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* const pDst[3], int dstStep, ZoriSize roiSize);
/* Planar YCbCr to interleaved RGB / BGR / BGRA with decoder set B; the BGRA
 * form writes aval as the fourth byte of every pixel. */
ZORCC_API ZorStatus zoriYCbCrToRGB_8u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToBGR_8u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToBGR_8u_P3C4R(const Zor8u* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, Zor8u aval);

/* @@SECTION video-subsampled@@ (4:2:2, 4:2:0, 4:1:1 YCbCr and packed BGR input) */
/* ------------------------------------------------------------------------ */
/* Subsampled YCbCr (4:2:2, 4:2:0, 4:1:1) and RGB/BGR, 8-bit                */
/* ------------------------------------------------------------------------ */
/* Layouts: packed 4:2:2 (C2) holds per pixel pair the bytes Y0 Cb Y1 Cr
 * (YCbCr422) or Cb Y0 Cr Y1 (CbYCr422). Planar subsampled images take an
 * array of three plane pointers and an ARRAY OF THREE STEPS: 4:2:2 chroma
 * planes are ceil(w/2) x h, 4:2:0 are w/2 x h/2, 4:1:1 are w/4 x h. YCrCb420
 * has Cr in plane 1 and Cb in plane 2. Full-resolution planar RGB (P3C2R
 * source, C2P3R destination) shares one step. Rows run serially; steps are
 * not checked (except the Gamma member).
 *
 * Encoders: luma as in 4:4:4, (16843 R + 33030 G + 6423 B + 1081344) >> 16.
 * Chroma from the channel sums of the group, with the 4:4:4 Cb/Cr
 * coefficients, offset 128 and a bias b, shifted by 17 (pairs) or 18 (2x2
 * blocks, four pixels of a row):
 *   E422  (RGBToYCbCr422 C3C2R, P3C2R): b = one half; Y1 of each pair is
 *         TRUNCATED (offset 1048576), Y0 rounded.
 *   ECbY  (BGRToCbYCr422 AC4C2R): b = one half for Cb, 65534 (/2^17) for Cr.
 *   EB422 (BGRToYCbCr422 members): b = one eighth.
 *   E420  (RGB/BGR to 4:2:0, YCrCb420), E411: b = one eighth.
 *   EF422 (RGBToCbYCr422, RGBToCbYCr422Gamma): Cb/Cr of pair k filtered
 *         1/4, 1/2, 1/4 over pixels 2k-1, 2k, 2k+1 (each product floored on
 *         its own, 0 left of the row, offset 128 plus half minus 1/65536).
 *         The Gamma member maps R, G, B through the forward video gamma
 *         curve first and returns zorStsStepErr (after the size check) for
 *         a step below 1.
 * Odd width: a packed 4:2:2 encoder writes the last pixel's rounded Y and a
 * Cb of that pixel alone (4:4:4 equation); its Cr byte is not written. A
 * planar 4:2:2 encoder writes the last pixel's Y only. 4:2:0 converts whole
 * 2x2 blocks and 4:1:1 whole groups of four; the columns and rows beyond are
 * not written.
 *
 * Decoders share the group's chroma among its pixels (no interpolation):
 *   set B (as 4:4:4 planar to interleaved, rounding): YCbCr422ToRGB P3C3R,
 *         CbYCr422ToRGB C2C3R, CbYCr422ToBGR C2C4R;
 *   set C (YCbCr422ToRGB C2C3R/C2P3R, YCbCr422ToBGR C2C3R/C2C4R), on
 *         unsigned Y, Cb, Cr, clamped to 0..255:
 *     R = (76284 Y + 104595 Cr - 14608761) >> 16
 *     G = (76284 Y - 25690 Cb - 53281 Cr + 8887730) >> 16
 *     B = (76284 Y + 132186 Cb - 18140365) >> 16
 * Odd width of a packed decoder: the last pixel takes Y and Cb from the two
 * bytes of its incomplete group and the Cr of the previous pair; with width 1
 * there is no previous pair and Cb is used in place of Cr (in every packed
 * decoder, both sample orders). The C4 forms write aval (after roiSize) as
 * the fourth byte of every pixel.
 *
 * Checks: pointers (a null array of steps counts as a null pointer), size,
 * then plane pointers; the BGR members test the plane pointers with the
 * other pointers, before the size. Minimum sizes: 1x1, except BGRToYCbCr422
 * and YCbCr422ToBGR (width 2), BGRToYCbCr420/YCrCb420 (2x2) and
 * BGRToYCbCr411 (width 4). zorStsOddSizeWarning after the conversion: 4:2:0
 * encoders when the width or height is odd, 4:1:1 encoders when the width is
 * not a multiple of 4; 4:2:2 never. */
ZORCC_API ZorStatus zoriRGBToYCbCr422_8u_C3C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToYCbCr422_8u_P3C2R(const Zor8u* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToRGB_8u_C2C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToRGB_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToRGB_8u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToYCbCr420_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriCbYCr422ToRGB_8u_C2C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriCbYCr422ToBGR_8u_C2C4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, Zor8u aval);
ZORCC_API ZorStatus zoriBGRToCbYCr422_8u_AC4C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToCbYCr422_8u_C3C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToCbYCr422Gamma_8u_C3C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGRToYCbCr422_8u_C3C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGRToYCbCr422_8u_AC4C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGRToYCbCr422_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGRToYCbCr422_8u_AC4P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGRToYCbCr420_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGRToYCbCr420_8u_AC4P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGRToYCrCb420_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGRToYCrCb420_8u_AC4P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGRToYCbCr411_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGRToYCbCr411_8u_AC4P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToBGR_8u_C2C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToBGR_8u_C2C4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, Zor8u aval);

/* Planar YCrCb 4:2:0 (planes Y, Cr, Cb; array of three steps) to BGRA with
 * vertically interpolated chroma: the width is rounded down to even and the
 * height to a multiple of 8 (minimum 2 x 8, else zorStsBadSize). Even rows j
 * of full-height chroma are chroma row j/2; odd rows 2j+1 are
 * (-c[j-1] + 9 c[j] + 9 c[j+1] - c[j+2] + 8) >> 4 clamped to 0..255, rows
 * outside the plane replaced by the nearest edge row. Each chroma sample
 * serves a horizontal pixel pair; decoded with set B; writes B, G, R, aval.
 * All pointers and planes are tested before the size; returns
 * zorStsOddSizeWarning when the width is odd or the height not a multiple of
 * 8 (the columns and rows beyond are not written). */
ZORCC_API ZorStatus zoriYCrCb420ToBGR_Filter_8u_P3C4R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst, int dstStep, ZoriSize roiSize, Zor8u aval);

/* ------------------------------------------------------------------------ */
/* Packed 16-bit BGR565 / BGR555 to subsampled YCbCr                        */
/* ------------------------------------------------------------------------ */
/* Source words (step in bytes, halved to words by an arithmetic shift): BGR565
 * B bits 0-4, G 5-10, R 11-15; BGR555 B 0-4, G 5-9, R 10-14, bit 15 ignored.
 * Fields are scaled to 8 bits by a left shift alone (5-bit x 8, 6-bit x 4:
 * white is (248, 252, 248), Y 231), then encoded like the 8-bit BGR members:
 * 4:2:2 with EB422 (width >= 2; an odd last pixel gets its Y only), 4:2:0 and
 * YCrCb420 with E420 (>= 2 x 2; an odd size returns zorStsOk, the last column
 * or row is not written), 4:1:1 with E411 (width >= 4; zorStsOddSizeWarning
 * unless the width is a multiple of 4). Destination: three planes, array of
 * three steps. Checks: source, destination array, steps array, planes
 * (zorStsNullPtr), then the size. */
ZORCC_API ZorStatus zoriBGR565ToYCbCr422_16u8u_C3P3R(const Zor16u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGR555ToYCbCr422_16u8u_C3P3R(const Zor16u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGR565ToYCbCr420_16u8u_C3P3R(const Zor16u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGR555ToYCbCr420_16u8u_C3P3R(const Zor16u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGR565ToYCrCb420_16u8u_C3P3R(const Zor16u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGR555ToYCrCb420_16u8u_C3P3R(const Zor16u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGR565ToYCbCr411_16u8u_C3P3R(const Zor16u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGR555ToYCbCr411_16u8u_C3P3R(const Zor16u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
/* @@END video-subsampled@@ */

/* @@SECTION video-packed@@ (packed 565/555/444 output, YUV) */
/* @@END video-packed@@ */

/* @@SECTION chroma@@ (chroma layout conversions) */
/* @@END chroma@@ */

/* @@SECTION models-cie@@ (XYZ, LUV, Lab, PhotoYCC) */
/* @@END models-cie@@ */

/* @@SECTION models-hls@@ (HLS, HSV, gray) */
/* @@END models-hls@@ */

/* @@SECTION twist@@ (colour twist, gamma) */
/* @@END twist@@ */

/* @@SECTION reducebits@@ (bit-depth reduction) */
/* @@END reducebits@@ */

/* @@SECTION ycocg@@ (YCoCg) */
/* @@END ycocg@@ */

#ifdef __cplusplus
}
#endif

#endif /* ZORCC_H */
