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
 *  - The library runs on any processor of its platform. Vector kernels are
 *    built for several instruction sets (SSE4, AVX2, AVX-512 on x86-64; NEON
 *    on 64-bit Arm) and the best one the processor supports is chosen once,
 *    at the first call. Every instruction set gives the same results, bit for
 *    bit. The environment variable ZOR_CPU=scalar|sse4|avx2|avx512 (neon on
 *    Arm), read at that first call, caps the choice: the library uses the
 *    best supported set not above the one named (scalar: plain C++ only).
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

/* ------------------------------------------------------------------------ */
/* YCbCr and YUV 4:2:0 to packed 16-bit RGB/BGR words                       */
/* ------------------------------------------------------------------------ */
/* One 16-bit word per pixel; the name lists the fields from bit 0 upward:
 *   RGB565: R 0-4, G 5-10, B 11-15      BGR565: B 0-4, G 5-10, R 11-15
 *   RGB555: R 0-4, G 5-9,  B 10-14      BGR555: B 0-4, G 5-9,  R 10-14
 *   RGB444: R 0-3, G 4-7,  B 8-11       BGR444: B 0-3, G 4-7,  R 8-11
 * Unused high bits (bit 15 of 555, bits 12-15 of 444) are written 0.
 * The destination step is in bytes and is halved (arithmetic shift) to a
 * count of words, so an odd step loses its low bit.
 * Plain members keep the top bits of each 8-bit channel (565: R>>3, G>>2,
 * B>>3; 555: >>3; 444: >>4) of a decoder that depends on the source:
 *   C3R (4:4:4 interleaved Y,Cb,Cr): decoder set A above (truncating);
 *   C2C3R (4:2:2 packed Y0 Cb Y1 Cr): set C, unsigned Y, Cb, Cr:
 *     R = (76284 Y + 104595 Cr - 14608761) >> 16
 *     G = (76284 Y - 25690 Cb - 53281 Cr + 8887730) >> 16
 *     B = (76284 Y + 132186 Cb - 18140365) >> 16;
 *   P3C3R (planar 4:4:4, 4:2:2, 4:2:0): the fine decoder below;
 *   YCbCr411: set A with one half (32768) added before the shift in all
 *     three outputs (offset 1187776).
 * Dither members decode every source with the fine decoder (four extra
 * fraction bits, arithmetic shifts, each product shifted on its own):
 *   y' = (((Y-16)*128) * 9535) >> 16, d' = (Cb-128)*128, e' = (Cr-128)*128
 *   R = sat((y' + ((e'*13074) >> 16)) >> 4)
 *   G = sat((y' - ((d'*3211) >> 16) - ((e'*6660) >> 16)) >> 4)
 *   B = sat((y' + ((d'*16523) >> 16)) >> 4)
 * and quantise with the threshold t of a 4x4 Bayer table indexed by
 * [row & 3][column & 3] inside the region (the pattern restarts at the
 * region's top-left pixel): q = (m*v) >> 8 with m = 31, 63 or 15, then q+1
 * when 256 v - q*floor(65280/m) > t (strictly); the 6-bit green compares
 * with t >> 1. Thresholds (5/6-bit fields; 4-bit fields use the same
 * Bayer order times 289):
 *     0 1118  279 1398 / 1678  559 1957  839 /
 *   419 1538  139 1258 / 2097  978 1817  699
 * Chroma is shared by the luma samples of its group (pairs for 4:2:2, 2x2
 * blocks for 4:2:0, four pixels for 4:1:1), without interpolation. The
 * YUV420 members decode exactly like the YCbCr420 members.
 * Sizes: every member needs width and height of at least 1 (zorStsBadSize).
 *  - 4:2:2 packed, odd width: the last pixel takes Y and Cb from its
 *    incomplete group and Cr from the byte before it (the previous pair's
 *    Cr); with width 1 there is no previous pair and Cb serves as Cr too.
 *  - 4:2:2 and 4:2:0 planar: every pixel is converted and zorStsOk returned;
 *    an odd last column (row) uses the chroma sample of its incomplete group,
 *    so the chroma planes must then be ceil(width/2) wide (and, for 4:2:0,
 *    ceil(height/2) high).
 *  - 4:1:1: converts width rounded down to a multiple of 4 (the last 1-3
 *    columns stay unwritten) and returns zorStsOddSizeWarning when the width
 *    is not a multiple of 4.
 * Plain C3R and C2C3R members convert contiguous images (source step = width
 * * 3 or 2, halved destination step = width; C2C3R and BGR444 C3R also need
 * an even width) as one long row, with the same results as row by row.
 * Planar sources: 4:4:4 planes share one step; the subsampled forms take an
 * array of three steps. Check order: source pointer (array), step array and
 * destination null: zorStsNullPtr; size: zorStsBadSize; source planes 0, 1,
 * 2 null: zorStsNullPtr. Steps are not validated. Rows run serially. */
/* 4:4:4 interleaved Y, Cb, Cr */
ZORCC_API ZorStatus zoriYCbCrToRGB565_8u16u_C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToBGR565_8u16u_C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToRGB555_8u16u_C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToBGR555_8u16u_C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToRGB444_8u16u_C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToBGR444_8u16u_C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToRGB565Dither_8u16u_C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToBGR565Dither_8u16u_C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToRGB555Dither_8u16u_C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToBGR555Dither_8u16u_C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToRGB444Dither_8u16u_C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToBGR444Dither_8u16u_C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
/* 4:4:4 planar, one step */
ZORCC_API ZorStatus zoriYCbCrToRGB565_8u16u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToBGR565_8u16u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToRGB555_8u16u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToBGR555_8u16u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToRGB444_8u16u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToBGR444_8u16u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToRGB565Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToBGR565Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToRGB555Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToBGR555Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToRGB444Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCrToBGR444Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
/* 4:2:2 packed Y0 Cb Y1 Cr */
ZORCC_API ZorStatus zoriYCbCr422ToRGB565_8u16u_C2C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToBGR565_8u16u_C2C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToRGB555_8u16u_C2C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToBGR555_8u16u_C2C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToRGB444_8u16u_C2C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToBGR444_8u16u_C2C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToRGB565Dither_8u16u_C2C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToBGR565Dither_8u16u_C2C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToRGB555Dither_8u16u_C2C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToBGR555Dither_8u16u_C2C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToRGB444Dither_8u16u_C2C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToBGR444Dither_8u16u_C2C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
/* 4:2:2 planar, three steps */
ZORCC_API ZorStatus zoriYCbCr422ToRGB565_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToBGR565_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToRGB555_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToBGR555_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToRGB444_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToBGR444_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToRGB565Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToBGR565Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToRGB555Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToBGR555Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToRGB444Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToBGR444Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
/* 4:2:0 planar, three steps */
ZORCC_API ZorStatus zoriYCbCr420ToRGB565_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr420ToBGR565_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr420ToRGB555_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr420ToBGR555_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr420ToRGB444_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr420ToBGR444_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr420ToRGB565Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr420ToBGR565Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr420ToRGB555Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr420ToBGR555Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr420ToRGB444Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr420ToBGR444Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
/* YUV 4:2:0 planar, three steps (decoded like YCbCr 4:2:0) */
ZORCC_API ZorStatus zoriYUV420ToRGB565_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUV420ToBGR565_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUV420ToRGB555_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUV420ToBGR555_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUV420ToRGB444_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUV420ToBGR444_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUV420ToRGB565Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUV420ToBGR565Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUV420ToRGB555Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUV420ToBGR555Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUV420ToRGB444Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUV420ToBGR444Dither_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
/* 4:1:1 planar, three steps (BGR only, no Dither) */
ZORCC_API ZorStatus zoriYCbCr411ToBGR565_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr411ToBGR555_8u16u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor16u* pDst, int dstStep, ZoriSize roiSize);

/* ------------------------------------------------------------------------ */
/* YUV and RGB, 8-bit                                                       */
/* ------------------------------------------------------------------------ */
/* 16.16 fixed point, arithmetic shifts, clamp to 0..255:
 *   S = 19595 R + 38470 G + 7471 B;  Y = S >> 16 (truncated)
 *   dB = (65536 B - S + 32767) >> 16,  dR = (65536 R - S + 32767) >> 16
 *   U = ((dB * 32244) >> 16) + 128 (low 8 bits; never out of range)
 *   V = clamp(((dR * 57475) >> 16) + 128)
 * 4:2:2 / 4:2:0 encoders: Y per pixel; U, V per pair / 2x2 block from the
 * sums of B, R and S of its pixels with the constant 65535 / 131071 in
 * place of 32767 and a final shift of 17 / 18 in place of 16.
 *   Decoder (u = U-128, v = V-128):  R = clamp((65536 Y + 74711 v) >> 16),
 *   G = clamp((65536 Y - 25821 u - 38076 v) >> 16),
 *   B = clamp((65536 Y + 133169 u) >> 16), no rounding - except
 *   zoriYUV420ToRGB_8u_P3AC4R, which adds 32768 before each shift.
 * Subsampled decoders use each U, V pair unchanged for all pixels it covers.
 * Layouts: C3 = Y, U, V (R, G, B) per pixel; C2 = Y0 U Y1 V per pixel pair;
 * 4:2:2 U, V planes are ceil(width/2) wide, 4:2:0 planes width/2 x height/2.
 * AC4: the fourth byte is left alone, except in the P3AC4R decoders, which
 * write 0 there. zoriYUV420ToBGR_8u_P3C3R writes B, G, R.
 * Steps: C2, C3 and AC4 sides take one step; the P3 sides of
 * zoriRGBToYUV_8u_C3P3R and zoriYUVToRGB_8u_P3C3R take one step shared by the
 * planes; every other P3 side (4:4:4 P3R, and all P3 sides of the 4:2:2 and
 * 4:2:0 functions) takes an array of three steps.
 * Whole-image forms (no R, no steps): packed planes, implied steps w for
 * full-width planes, 3w for C3, and ceil(w/2) (4:2:2) or floor(w/2) (4:2:0)
 * for the chroma planes.
 * Odd sizes:
 *  - 4:2:2 encoders: a last odd pixel is converted alone with the 4:4:4 rule;
 *    the C2 form writes its Y and U only (its row has no V byte).
 *  - 4:2:2 decoders: a last odd pixel uses the chroma of its pair; in the C2
 *    form that group holds Y and U only, so V is the previous pair's (width
 *    1: U serves as V).
 *  - 4:2:0: whole 2x2 blocks only; the last column / row is left unconverted
 *    and zorStsOddSizeWarning (35) returned when width or height is odd.
 * Minimum size 1x1 (zoriYUV420ToBGR_8u_P3C3R: 2x2), else zorStsBadSize.
 * Check order: outer pointers, plane arrays and step arrays null:
 * zorStsNullPtr; size: zorStsBadSize; source then destination planes null:
 * zorStsNullPtr. Steps are not validated. Rows run serially. */
/* 4:4:4 */
ZORCC_API ZorStatus zoriRGBToYUV_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToYUV_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToYUV_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToYUV_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUVToRGB_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUVToRGB_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUVToRGB_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUVToRGB_8u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
/* 4:2:2 */
ZORCC_API ZorStatus zoriRGBToYUV422_8u_C3C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToYUV422_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToYUV422_8u_C3P3(const Zor8u* pSrc, Zor8u* const pDst[3], ZoriSize imgSize);
ZORCC_API ZorStatus zoriRGBToYUV422_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToYUV422_8u_P3(const Zor8u* const pSrc[3], Zor8u* const pDst[3], ZoriSize imgSize);
ZORCC_API ZorStatus zoriYUV422ToRGB_8u_C2C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUV422ToRGB_8u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUV422ToRGB_8u_P3C3(const Zor8u* const pSrc[3], Zor8u* pDst, ZoriSize imgSize);
ZORCC_API ZorStatus zoriYUV422ToRGB_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUV422ToRGB_8u_P3(const Zor8u* const pSrc[3], Zor8u* const pDst[3], ZoriSize imgSize);
ZORCC_API ZorStatus zoriYUV422ToRGB_8u_P3AC4R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst, int dstStep, ZoriSize roiSize);
/* 4:2:0 */
ZORCC_API ZorStatus zoriRGBToYUV420_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToYUV420_8u_C3P3(const Zor8u* pSrc, Zor8u* const pDst[3], ZoriSize imgSize);
ZORCC_API ZorStatus zoriRGBToYUV420_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToYUV420_8u_P3(const Zor8u* const pSrc[3], Zor8u* const pDst[3], ZoriSize imgSize);
ZORCC_API ZorStatus zoriYUV420ToRGB_8u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUV420ToRGB_8u_P3C3(const Zor8u* const pSrc[3], Zor8u* pDst, ZoriSize imgSize);
ZORCC_API ZorStatus zoriYUV420ToRGB_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUV420ToRGB_8u_P3(const Zor8u* const pSrc[3], Zor8u* const pDst[3], ZoriSize imgSize);
ZORCC_API ZorStatus zoriYUV420ToRGB_8u_P3AC4R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYUV420ToBGR_8u_P3C3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst, int dstStep, ZoriSize roiSize);

/* ------------------------------------------------------------------------ */
/* Chroma layout conversions (4:2:2, 4:2:0, 4:1:1)                          */
/* ------------------------------------------------------------------------ */
/* Chroma layout conversions of 8-bit 4:2:2, 4:2:0 and 4:1:1 video. These
 * only move samples: luma is copied, chroma is copied, dropped, duplicated
 * or moved; there is no averaging, rounding or saturation (except in the
 * _Filter_ members further below).
 * Layouts (w x h luma pixels after rounding):
 *   P3  planes Y, Cb, Cr (YCrCb: Y, Cr, Cb) passed as an array of three
 *       pointers and an array of three steps; chroma planes are w/2 x h
 *       (4:2:2), w/2 x h/2 (4:2:0) or w/4 x h (4:1:1).
 *   P2  a Y plane (pSrcY/pDstY) and one plane of interleaved Cb Cr pairs
 *       (pSrcCbCr/pDstCbCr): h/2 rows of w bytes (4:2:0) or h rows of w/2
 *       bytes (4:1:1).
 *   C2  4:2:2 pixel pairs: YCbCr422 Y0 Cb Y1 Cr, CbYCr422 Cb Y0 Cr Y1,
 *       YCrCb422 Y0 Cr Y1 Cb.
 * Arguments: source arguments, destination arguments, roiSize. Steps are in
 * bytes and never checked. Rows run serially on the calling thread.
 * Size: the width is rounded down to even, or to a multiple of 4 when 4:1:1
 * is the source or the destination; the height is rounded down to even when
 * 4:2:0 is either side. Pixels beyond the rounded size are neither read nor
 * written. These members return zorStsOk, never zorStsOddSizeWarning.
 * Checks: the pointers in argument order (a P3 array pointer, then its three
 * planes) give zorStsNullPtr, then a width or height below the member's
 * minimum gives zorStsBadSize. Members without a minimum height convert no
 * rows for a height of zero or less and return zorStsOk.
 * zoriYCrCb420ToYCbCr420_8u_P3P2R does not test its source array pointer
 * (only the three planes it holds). */
/* Repacking, same subsampling. Minimum width 2 (4:2:2, 4:2:0) or 4
 * (4:1:1); minimum height 1 for zoriYCbCr422_8u_P3C2R, zoriYCbCr422_8u_C2P3R,
 * the two C2R pair-order swaps between YCbCr422 and CbYCr422, 2 for 4:2:0,
 * none for the others. */
ZORCC_API ZorStatus zoriYCbCr422_8u_P3C2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCrCb422ToYCbCr422_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriCbYCr422ToYCbCr422_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToCbYCr422_8u_C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriCbYCr422ToYCbCr422_8u_C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToYCrCb422_8u_C2R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToYCrCb422_8u_P3C2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr420_8u_P3P2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDstY, int dstYStep, Zor8u* pDstCbCr, int dstCbCrStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr420_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr, int srcCbCrStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCrCb420ToYCbCr420_8u_P3P2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDstY, int dstYStep, Zor8u* pDstCbCr, int dstCbCrStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr420ToYCrCb420_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr, int srcCbCrStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr411_8u_P3P2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDstY, int dstYStep, Zor8u* pDstCbCr, int dstCbCrStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr411_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr, int srcCbCrStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
/* 4:2:2 to 4:2:0: chroma row j is the chroma of row 2j; the odd rows'
 * chroma is dropped. Minimum 2 x 2. */
ZORCC_API ZorStatus zoriYCbCr422ToYCbCr420_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToYCbCr420_8u_P3P2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDstY, int dstYStep, Zor8u* pDstCbCr, int dstCbCrStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToYCbCr420_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriCbYCr422ToYCbCr420_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCrCb422ToYCbCr420_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToYCrCb420_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriCbYCr422ToYCrCb420_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToYCbCr420_8u_C2P2R(const Zor8u* pSrc, int srcStep, Zor8u* pDstY, int dstYStep, Zor8u* pDstCbCr, int dstCbCrStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriCbYCr422ToYCbCr420_8u_C2P2R(const Zor8u* pSrc, int srcStep, Zor8u* pDstY, int dstYStep, Zor8u* pDstCbCr, int dstCbCrStep, ZoriSize roiSize);
/* 4:2:0 to 4:2:2: chroma row j goes unchanged to rows 2j and 2j+1.
 * Minimum 2 x 2. */
ZORCC_API ZorStatus zoriYCbCr420ToYCbCr422_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCrCb420ToYCbCr422_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr420ToYCbCr422_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr, int srcCbCrStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr420ToYCbCr422_8u_P2C2R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr, int srcCbCrStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr420ToCbYCr422_8u_P2C2R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr, int srcCbCrStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCrCb420ToYCbCr422_8u_P3C2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCrCb420ToCbYCr422_8u_P3C2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst, int dstStep, ZoriSize roiSize);
/* 4:2:2 to 4:1:1: of chroma samples 2k and 2k+1 the first is kept.
 * Minimum width 4, no minimum height. */
ZORCC_API ZorStatus zoriYCbCr422ToYCbCr411_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToYCbCr411_8u_P3P2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDstY, int dstYStep, Zor8u* pDstCbCr, int dstCbCrStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToYCbCr411_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriCbYCr422ToYCbCr411_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCrCb422ToYCbCr411_8u_C2P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr422ToYCbCr411_8u_C2P2R(const Zor8u* pSrc, int srcStep, Zor8u* pDstY, int dstYStep, Zor8u* pDstCbCr, int dstCbCrStep, ZoriSize roiSize);
/* 4:1:1 to 4:2:2: chroma sample k goes to positions 2k and 2k+1.
 * Minimum width 4, no minimum height. */
ZORCC_API ZorStatus zoriYCbCr411ToYCbCr422_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr411ToYCrCb422_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr411ToYCbCr422_8u_P3C2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr411ToYCrCb422_8u_P3C2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr411ToYCbCr422_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr, int srcCbCrStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr411ToYCbCr422_8u_P2C2R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr, int srcCbCrStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
/* 4:2:0 and 4:1:1, both directions, without loss: the even samples of
 * 4:2:0 chroma row j are 4:1:1 row 2j and its odd samples are 4:1:1 row
 * 2j+1, so 4:2:0 -> 4:1:1 -> 4:2:0 returns the chroma unchanged.
 * Minimum 4 x 2. */
ZORCC_API ZorStatus zoriYCbCr420ToYCbCr411_8u_P3P2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDstY, int dstYStep, Zor8u* pDstCbCr, int dstCbCrStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCrCb420ToYCbCr411_8u_P3P2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDstY, int dstYStep, Zor8u* pDstCbCr, int dstCbCrStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr420ToYCbCr411_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr, int srcCbCrStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr411ToYCbCr420_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr411ToYCbCr420_8u_P3P2R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* pDstY, int dstYStep, Zor8u* pDstCbCr, int dstCbCrStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr411ToYCbCr420_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr, int srcCbCrStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr411ToYCrCb420_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr, int srcCbCrStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);

/* Filtered 4:2:0 to 4:2:2. The width is rounded down to even and the height
 * down to a multiple of 8; luma is copied. With c the H = h/2 source chroma
 * rows of a plane and d the h destination rows:
 *   d[2j]   = c[j]
 *   d[2j+1] = (-c[j-1] + 9 c[j] + 9 c[j+1] - c[j+2] + 8) >> 4, clamped to
 *             0..255 (arithmetic shift), rows beyond 0..H-1 replaced by the
 *             nearest edge row.
 * Checks: pointers (arrays, then planes), then width < 2 or height < 8:
 * zorStsBadSize. */
ZORCC_API ZorStatus zoriYCbCr420ToYCbCr422_Filter_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCrCb420ToYCbCr422_Filter_8u_P3R(const Zor8u* const pSrc[3], const int srcStep[3], Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCbCr420ToYCbCr422_Filter_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr, int srcCbCrStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize);

/* Deinterlacing filters from semi-planar 4:2:0 (width and height rounded
 * down to even). Y are the source luma rows, C the source chroma rows (Cb
 * and Cr each on its own), a row beyond the picture's edge is replaced by
 * the edge row:
 *   P2P3R (to YCrCb420 planes Y, Cr, Cb)
 *     luma   (Y[y-1] + 2 Y[y] + Y[y+1]) >> 2
 *     chroma (C[j] + C[j+1]) >> 1
 *   P2C2R (to YCbCr422 Y0 Cb Y1 Cr), results clamped to 255
 *     luma   (Y[y-1] + 2 Y[y] + Y[y+1] + 4) >> 2
 *     chroma (C[j] + C[j+1] + 2) >> 1, for both rows 2j and 2j+1
 *   so that the top row is (3 Y[0] + Y[1] [+ 4]) >> 2, the bottom row
 *   (Y[h-2] + 3 Y[h-1] [+ 4]) >> 2 and the last chroma row C (P2P3R) or
 *   C + 1 (P2C2R). The raised constants of P2C2R are intended: a flat 128
 *   picture gives 129.
 * layout (after roiSize) selects the slice of the picture that one call
 * converts, with the pointers and roiSize describing the slice's own rows:
 *   zorSliceTop    rows 0..n-1 of the picture (n = the slice height);
 *                  writes luma rows 0..n-2 and chroma rows 0..n/2-2;
 *   zorSliceMiddle interior rows; reads the two luma rows and the one chroma
 *                  row above its source pointers and writes luma rows
 *                  -1..n-2 and chroma rows -1..n/2-2 relative to its
 *                  destination pointers;
 *   zorSliceBottom the last rows of the picture; reads above like the middle
 *                  slice and writes luma rows -1..n-1 and chroma rows
 *                  -1..n/2-1;
 *   zorSliceWhole  (any value with the bits 1, 4 and 16 set) the whole
 *                  picture: luma rows 0..n-1, chroma rows 0..n/2-1.
 * Each slice thus stops one luma row and one chroma row short of its end and
 * the next one finishes them, so a picture converted as top, middle(s) and
 * bottom slices of even heights, in any order, equals the picture converted
 * whole. In the C2 destination chroma row j is the Cb and Cr bytes of rows
 * 2j and 2j+1 and luma row y the Y bytes of row y. Any other layout value
 * returns zorStsOk and writes nothing.
 * Checks: P2P3R: pSrcY, pSrcCbCr, pDst null: zorStsNullPtr; width or height
 * < 1: zorStsBadSize; a null destination plane: zorStsNullPtr; width or
 * height < 2: zorStsBadSize. P2C2R: pointers, then width or height < 2. */
typedef enum ZorSlicePosition {
    zorSliceTop    = 1,
    zorSliceMiddle = 4,
    zorSliceBottom = 16,
    zorSliceWhole  = 21
} ZorSlicePosition;
ZORCC_API ZorStatus zoriYCbCr420ToYCrCb420_Filter_8u_P2P3R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr, int srcCbCrStep, Zor8u* const pDst[3], const int dstStep[3], ZoriSize roiSize, unsigned int layout);
ZORCC_API ZorStatus zoriYCbCr420ToYCbCr422_Filter_8u_P2C2R(const Zor8u* pSrcY, int srcYStep, const Zor8u* pSrcCbCr, int srcCbCrStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, unsigned int layout);

/* ------------------------------------------------------------------------ */
/* Colour models: CIE XYZ, LUV, Lab and PhotoYCC                            */
/* ------------------------------------------------------------------------ */
/* Colour models on the row-parallel frame (a team of threads_omp_of_n_zor).
 * Checks: null source or destination -> zorStsNullPtr, then width or height
 * below 1 -> zorStsBadSize; steps are not checked. Steps are in bytes; 16-bit
 * forms use step >> 1 words and 32f forms step >> 2 floats (low bits lost),
 * except zoriRGBToLUV_32f_*, which uses the byte step as it is. C3: three
 * channels; AC4R: four, of which the fourth is neither read nor written.
 * 16s samples are the 16u value minus 32768 on input and output.
 * "trunc(v + h)" below means v + 0.499999 truncated toward zero. */

/* RGB <-> CIE XYZ (D65, BT.709 primaries), samples on their own scale
 * (0..255, 0..65535, 0..1); X, Y, Z use the same scale as R, G, B.
 *   8u: 16.16 fixed point, floor, no rounding: white gives (242, 254, 255);
 *       Z (up to 277) and the inverse saturate to 0..255.
 *   16u/16s: float, trunc(v + h); X, Y keep 16 bits, Z and the inverse
 *       saturate to 0..65535 (16u inverse: blue row summed in double).
 *   32f: float; Z and the inverse are clamped to 0..1, X and Y are not. */
ZORCC_API ZorStatus zoriRGBToXYZ_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToXYZ_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriXYZToRGB_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriXYZToRGB_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToXYZ_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToXYZ_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriXYZToRGB_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriXYZToRGB_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToXYZ_16s_C3R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToXYZ_16s_AC4R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriXYZToRGB_16s_C3R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriXYZToRGB_16s_AC4R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToXYZ_32f_C3R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToXYZ_32f_AC4R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriXYZToRGB_32f_C3R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriXYZToRGB_32f_AC4R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize);

/* RGB <-> CIE L*u*v* (D65). Codes: L*scale/100, (u+134)*scale/354,
 * (v+140)*scale/262 with scale 255 (8u) or 65535 (16u, 16s: code - 32768).
 *   8u forward: L code from a 256-entry table of the rounded luminance, u and
 *       v from that L code with the rounding half folded into their offsets.
 *   16u/16s forward: trunc(code + h), no clamp. Inverse: trunc(v + h),
 *       saturated; an L code of 0 gives black.
 *   32f: L 0..100, u, v unscaled, RGB 0..1 (inverse clamped to 0..1). In the
 *       32f inverse a pixel with L below 9e-5 zeroes its destination pixel and
 *       stalls the row there: the rest of that destination row is untouched. */
ZORCC_API ZorStatus zoriRGBToLUV_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToLUV_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriLUVToRGB_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriLUVToRGB_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToLUV_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToLUV_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriLUVToRGB_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriLUVToRGB_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToLUV_16s_C3R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToLUV_16s_AC4R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriLUVToRGB_16s_C3R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriLUVToRGB_16s_AC4R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToLUV_32f_C3R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToLUV_32f_AC4R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriLUVToRGB_32f_C3R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriLUVToRGB_32f_AC4R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize);

/* RGB <-> PhotoYCC. With Yl = 0.299 R + 0.587 G + 0.114 B: Y = 0.7132668 Yl,
 * C1 = 0.43686*(B - Yl) + 156, C2 = 0.53192*(R - Yl) + 137 on the 8-bit
 * scale; offsets 40092/35209 for 16u (16s: minus 32768), 0.6117647/0.5372549
 * for 32f.
 *   8u: fixed point, floors, chroma kept to 8 bits; inverse 12 fraction bits,
 *       saturated to 0..255.
 *   16u/16s: float, trunc(v + h); forward unclamped, inverse 0..65535.
 *   32f: float, no rounding; inverse clamped to 0..1. */
ZORCC_API ZorStatus zoriRGBToYCC_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToYCC_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCCToRGB_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCCToRGB_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToYCC_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToYCC_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCCToRGB_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCCToRGB_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToYCC_16s_C3R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToYCC_16s_AC4R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCCToRGB_16s_C3R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCCToRGB_16s_AC4R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToYCC_32f_C3R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToYCC_32f_AC4R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCCToRGB_32f_C3R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCCToRGB_32f_AC4R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize);

/* BGR (B, G, R bytes) <-> CIE L*a*b* (D65), interleaved three channels.
 * 8u codes: L*255/100, a + 128, b + 128; forward rounds by + 0.5 and
 * truncation, inverse adds 0.5 before truncation and saturates to 0..255.
 * 16u codes: L*65535/100, (a + 128)*255, (b + 128)*255; the 8u16u forward
 * truncates them and the 16u8u inverse truncates B, G, R (then 0..255), both
 * without a rounding half. Forward codes are not clamped. The inverse uses
 * the plain cube (no linear segment). */
ZORCC_API ZorStatus zoriBGRToLab_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGRToLab_8u16u_C3R(const Zor8u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriLabToBGR_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriLabToBGR_16u8u_C3R(const Zor16u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);

/* ------------------------------------------------------------------------ */
/* RGB/BGR and HLS                                                          */
/* ------------------------------------------------------------------------ */
/* Float arithmetic on samples normalised to 0..1 (8u / 255, 16u / 65535,
 * 16s (v + 32768) / 65535, 32f as is). HLS pixels are stored H, L, S with
 * H in degrees stored as H/360 of the full scale (32f: H/360). Hue ties go
 * to red, then green, then blue. Integer pixels are achromatic only when
 * max == min; 32f pixels whenever max - min <= 1.1920929e-7. No code is
 * clamped. Rows run in parallel.
 * RGB family (C3, AC4; 8u, 16u, 16s, 32f): code = (int)(x * scale +
 * 0.499999f) evaluated in float (so 0.5 * 255 gives 128); 16s codes are
 * offset by -32768. Steps are not checked; 16-bit and float steps are
 * turned into sample counts by an arithmetic shift (an odd byte step of a
 * 16-bit image loses its low bit). AC4: the destination's fourth channel is
 * neither read nor written. Checks: pointers, size. */
ZORCC_API ZorStatus zoriRGBToHLS_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToHLS_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriHLSToRGB_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriHLSToRGB_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToHLS_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToHLS_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriHLSToRGB_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriHLSToRGB_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToHLS_16s_C3R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToHLS_16s_AC4R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriHLSToRGB_16s_C3R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriHLSToRGB_16s_AC4R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToHLS_32f_C3R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToHLS_32f_AC4R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriHLSToRGB_32f_C3R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriHLSToRGB_32f_AC4R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize);
/* BGR family, 8u (colour side B, G, R; plane 0 / channel 0 is blue). Planar
 * sides are arrays of 3 or 4 plane pointers sharing one step. Codes are
 * floored: (int)((double)(x * 255.0f) + 1e-7) (so 0.5 * 255 gives 127).
 * Layouts: AP4 four planes both sides, AP4C4 planes to BGRA/HLSA, AC4P4
 * BGRA/HLSA to planes (alpha copied in these three), P3, P3C3, C3P3.
 * Checks: pointers and every plane pointer (zorStsNullPtr), then steps
 * below 1 (zorStsStepErr), then size.
 * zoriBGRToHLS_8u_AC4R (interleaved BGRA, destination alpha untouched)
 * rounds like the RGB family and checks pointers, size, then steps. */
ZORCC_API ZorStatus zoriBGRToHLS_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGRToHLS_8u_AP4R(const Zor8u* const pSrc[4], int srcStep, Zor8u* const pDst[4], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriHLSToBGR_8u_AP4R(const Zor8u* const pSrc[4], int srcStep, Zor8u* const pDst[4], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGRToHLS_8u_AP4C4R(const Zor8u* const pSrc[4], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriHLSToBGR_8u_AP4C4R(const Zor8u* const pSrc[4], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGRToHLS_8u_AC4P4R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[4], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriHLSToBGR_8u_AC4P4R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[4], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGRToHLS_8u_P3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriHLSToBGR_8u_P3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGRToHLS_8u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriHLSToBGR_8u_P3C3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGRToHLS_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriHLSToBGR_8u_C3P3R(const Zor8u* pSrc, int srcStep, Zor8u* const pDst[3], int dstStep, ZoriSize roiSize);

/* ------------------------------------------------------------------------ */
/* RGB and HSV (8u, 16u; C3, AC4)                                           */
/* ------------------------------------------------------------------------ */
/* Pixels H, S, V. V = max(R, G, B) unchanged; S = (max - min) / max on the
 * code scale (255 or 65535); H is the hue in sextants 0..6 stored as
 * h * scale / 6, computed with priority blue, green, red. Codes are
 * (int)(x + 0.499999f), unclamped. A negative 8u hue wraps by +255 code
 * units; a negative 16u hue (below -1.1920929e-7) by +6 sextants. In the
 * inverse the top hue code (255 or 65535) means hue 0. Rows run in
 * parallel; steps are not checked (16u: byte step >> 1); AC4 leaves the
 * destination's fourth channel untouched. Checks: pointers, size. */
ZORCC_API ZorStatus zoriRGBToHSV_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriHSVToRGB_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToHSV_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriHSVToRGB_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToHSV_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriHSVToRGB_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToHSV_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriHSVToRGB_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);

/* ------------------------------------------------------------------------ */
/* Colour to gray (C3C1, AC4C1; the fourth source channel is ignored)       */
/* ------------------------------------------------------------------------ */
/* gray = w0 c0 + w1 c1 + w2 c2 over source channels 0..2. Default weights
 * 0.299, 0.587, 0.114 (8u: 1225, 2404, 467 in 1/4096 units). ColorToGray
 * takes three float weights after roiSize; a null weight pointer means the
 * default weights.
 *  8u:  unsigned 32-bit sum of 12-bit weights >> 12, low 8 bits stored (no
 *       rounding, no clamp: large sums and negative weights wrap). Caller
 *       weights become (int)((double)w * 4096 + 0.5).
 *  16u: float sum truncated toward zero, low 16 bits stored.
 *  16s: the same on (v + 32768), then 32768 subtracted (low 16 bits).
 *  32f: float sum, unclamped.
 * A truncation whose value lies outside the 32-bit integer range (or is
 * NaN) gives INT32_MIN (so 16-bit results 0 or -32768, 8u weights
 * 0x80000000). Rows run serially; steps are not checked (16-bit and float
 * byte steps shifted right by 1 or 2). Checks: pointers, size. */
ZORCC_API ZorStatus zoriRGBToGray_8u_C3C1R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToGray_8u_AC4C1R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToGray_16u_C3C1R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToGray_16u_AC4C1R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToGray_16s_C3C1R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToGray_16s_AC4C1R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToGray_32f_C3C1R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriRGBToGray_32f_AC4C1R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriColorToGray_8u_C3C1R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, const Zor32f* coeffs);
ZORCC_API ZorStatus zoriColorToGray_8u_AC4C1R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, const Zor32f* coeffs);
ZORCC_API ZorStatus zoriColorToGray_16u_C3C1R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize, const Zor32f* coeffs);
ZORCC_API ZorStatus zoriColorToGray_16u_AC4C1R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize, const Zor32f* coeffs);
ZORCC_API ZorStatus zoriColorToGray_16s_C3C1R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, const Zor32f* coeffs);
ZORCC_API ZorStatus zoriColorToGray_16s_AC4C1R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, const Zor32f* coeffs);
ZORCC_API ZorStatus zoriColorToGray_32f_C3C1R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize, const Zor32f* coeffs);
ZORCC_API ZorStatus zoriColorToGray_32f_AC4C1R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize, const Zor32f* coeffs);

/* ------------------------------------------------------------------------ */
/* Colour twist and gamma correction                                        */
/* ------------------------------------------------------------------------ */
/* Colour twist. An affine 3x4 float matrix t (row-major, caller-owned, only
 * read) applied to every pixel; output channel c, all in single precision in
 * exactly this order:
 *   y_c = ((t[c][0]*x0 + t[c][3]) + t[c][1]*x1) + t[c][2]*x2
 * Integer results (ColorTwist32f_8u/8s/16u/16s): y >= max of the type gives
 * the max, y <= min of the type and NaN give the min, anything in between is
 * rounded to nearest with ties to even (2.5 -> 2, 3.5 -> 4, -2.5 -> -2).
 * Float results (ColorTwist_32f) are stored unclamped. Layouts: C3, AC4
 * (fourth sample neither read nor written), P3 (three planes, one shared
 * step); I forms work in place with the same results. All inputs of a pixel
 * are read before its outputs are written.
 * zoriColorTwist_32f_C4R applies a linear 4x4 matrix to four-channel pixels:
 *   y_c = ((t[c][0]*x0 + t[c][1]*x1) + t[c][2]*x2) + t[c][3]*x3
 * and, when srcStep == dstStep == 4 * width (bytes), converts width x height
 * consecutive pixels starting at pSrc/pDst as one run instead of rows.
 * zoriColorTwist_32f_C3R/_C3IR take packed rows (steps of 12 * width) as one
 * run too (same result). Rows run serially.
 * Checks: null pointer, plane pointer or matrix -> zorStsNullPtr; size below
 * 1x1 -> zorStsBadSize; a step below 1 -> zorStsStepErr. */
ZORCC_API ZorStatus zoriColorTwist32f_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_8u_C3IR(Zor8u* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_8u_AC4IR(Zor8u* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_8u_P3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* const pDst[3], int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_8u_IP3R(Zor8u* const pSrcDst[3], int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_8s_C3R(const Zor8s* pSrc, int srcStep, Zor8s* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_8s_C3IR(Zor8s* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_8s_AC4R(const Zor8s* pSrc, int srcStep, Zor8s* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_8s_AC4IR(Zor8s* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_8s_P3R(const Zor8s* const pSrc[3], int srcStep, Zor8s* const pDst[3], int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_8s_IP3R(Zor8s* const pSrcDst[3], int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_16u_C3IR(Zor16u* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_16u_AC4IR(Zor16u* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_16u_P3R(const Zor16u* const pSrc[3], int srcStep, Zor16u* const pDst[3], int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_16u_IP3R(Zor16u* const pSrcDst[3], int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_16s_C3R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_16s_C3IR(Zor16s* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_16s_AC4R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_16s_AC4IR(Zor16s* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_16s_P3R(const Zor16s* const pSrc[3], int srcStep, Zor16s* const pDst[3], int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist32f_16s_IP3R(Zor16s* const pSrcDst[3], int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist_32f_C3R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist_32f_C3IR(Zor32f* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist_32f_AC4R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist_32f_AC4IR(Zor32f* pSrcDst, int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist_32f_P3R(const Zor32f* const pSrc[3], int srcStep, Zor32f* const pDst[3], int dstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist_32f_IP3R(Zor32f* const pSrcDst[3], int srcDstStep, ZoriSize roiSize, const Zor32f twist[3][4]);
ZORCC_API ZorStatus zoriColorTwist_32f_C4R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize, const Zor32f twist[4][4]);

/* Gamma correction with the video transfer curve on the three colour
 * channels (C3, AC4 with the fourth sample untouched, P3 with one shared
 * step, and the in-place forms). With x the sample normalised to the range:
 *   forward: x >= 0.018  ? 1.099 x^0.45 - 0.099 : 4.5 x
 *   inverse: x >= 0.0812 ? ((x + 0.099) / 1.099)^(1/0.45) : x / 4.5
 * (the inverse multiplies by stored reciprocals of 1.099, 0.45 and 4.5).
 * 8u: two constant 256-entry tables, the curve at range 255 rounded to
 *   nearest with ties to even (forward maps 1 to 4).
 * 16u: the curve at range 65535 in double; y + 0.5 is converted to float and
 *   truncated, and an odd result that the float sum equals exactly is lowered
 *   by one. Images of at most 65,536 samples (width * 3 * height) are computed
 *   per sample, larger ones through a 65,536-entry table allocated per call
 *   (zorStsNoMemory when that fails); both give identical results.
 * 32f: on the range [vMin, vMax] (r = vMax - vMin, d = v - vMin in float):
 *   x = d * (1/r), y = curve(x) * r + vMin in double (the linear branches as
 *   d * 4.5 + vMin and (1/4.5) * d + vMin), stored as float. Samples outside
 *   the range are not clamped; below vMin they take the linear branch.
 * Checks: 32f first of all, even before the pointers: vMax - vMin not
 * greater than 0 (or NaN) -> zorStsBadGammaRange; then null pointer or plane
 * pointer -> zorStsNullPtr; size below 1x1 -> zorStsBadSize; a step below 1
 * -> zorStsStepErr. Rows run serially. */
ZORCC_API ZorStatus zoriGammaFwd_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaFwd_8u_C3IR(Zor8u* pSrcDst, int srcDstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaFwd_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaFwd_8u_AC4IR(Zor8u* pSrcDst, int srcDstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaFwd_8u_P3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaFwd_8u_IP3R(Zor8u* const pSrcDst[3], int srcDstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaInv_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaInv_8u_C3IR(Zor8u* pSrcDst, int srcDstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaInv_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaInv_8u_AC4IR(Zor8u* pSrcDst, int srcDstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaInv_8u_P3R(const Zor8u* const pSrc[3], int srcStep, Zor8u* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaInv_8u_IP3R(Zor8u* const pSrcDst[3], int srcDstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaFwd_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaFwd_16u_C3IR(Zor16u* pSrcDst, int srcDstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaFwd_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaFwd_16u_AC4IR(Zor16u* pSrcDst, int srcDstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaFwd_16u_P3R(const Zor16u* const pSrc[3], int srcStep, Zor16u* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaFwd_16u_IP3R(Zor16u* const pSrcDst[3], int srcDstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaInv_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaInv_16u_C3IR(Zor16u* pSrcDst, int srcDstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaInv_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaInv_16u_AC4IR(Zor16u* pSrcDst, int srcDstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaInv_16u_P3R(const Zor16u* const pSrc[3], int srcStep, Zor16u* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaInv_16u_IP3R(Zor16u* const pSrcDst[3], int srcDstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriGammaFwd_32f_C3R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax);
ZORCC_API ZorStatus zoriGammaFwd_32f_C3IR(Zor32f* pSrcDst, int srcDstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax);
ZORCC_API ZorStatus zoriGammaFwd_32f_AC4R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax);
ZORCC_API ZorStatus zoriGammaFwd_32f_AC4IR(Zor32f* pSrcDst, int srcDstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax);
ZORCC_API ZorStatus zoriGammaFwd_32f_P3R(const Zor32f* const pSrc[3], int srcStep, Zor32f* const pDst[3], int dstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax);
ZORCC_API ZorStatus zoriGammaFwd_32f_IP3R(Zor32f* const pSrcDst[3], int srcDstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax);
ZORCC_API ZorStatus zoriGammaInv_32f_C3R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax);
ZORCC_API ZorStatus zoriGammaInv_32f_C3IR(Zor32f* pSrcDst, int srcDstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax);
ZORCC_API ZorStatus zoriGammaInv_32f_AC4R(const Zor32f* pSrc, int srcStep, Zor32f* pDst, int dstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax);
ZORCC_API ZorStatus zoriGammaInv_32f_AC4IR(Zor32f* pSrcDst, int srcDstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax);
ZORCC_API ZorStatus zoriGammaInv_32f_P3R(const Zor32f* const pSrc[3], int srcStep, Zor32f* const pDst[3], int dstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax);
ZORCC_API ZorStatus zoriGammaInv_32f_IP3R(Zor32f* const pSrcDst[3], int srcDstStep, ZoriSize roiSize, Zor32f vMin, Zor32f vMax);

/* ------------------------------------------------------------------------ */
/* Bit-depth reduction to `levels` evenly spaced output levels              */
/* ------------------------------------------------------------------------ */
/* Types: 8u, 16u, 16s (same type out), 16u8u, 16s8u (16-bit in, bytes out),
 * 32f8u, 32f16u, 32f16s (float 0..1 in). Layouts C1, C3, AC4 (alpha neither
 * read nor written), C4 (all four channels). Steps in bytes, not checked,
 * may be negative; the dither methods round a step that is not a multiple of
 * the element size down to one.
 * Checks in order: pointers (zorStsNullPtr), size (zorStsBadSize), noise
 * outside 0..100 (zorStsNoiseRangeErr, checked for every method), levels
 * outside 2..256, or 2..65536 for 16u and 16s (zorStsLevelsRangeErr; the
 * 32f16u and 32f16s members keep the 256 limit). A dtype other than 0..4 does
 * nothing and returns zorStsOk. The dither methods allocate working memory
 * and return zorStsNoMemory when they cannot.
 * zorDitherNone: single precision on 0..1 (16s shifted by +32768): with
 *   m = levels - 1, k = trunc(m*x), q = k/m, plus 1/m when x - q > 0.5/m,
 *   out = min(trunc(q*255 or q*65535), top). The top input gives 254 for some
 *   level counts (42, 48, 56, ...), and 16u with 65536 levels is not the
 *   identity. A 32f value below 0 wraps. Serial; noise is ignored.
 * Dither methods work on 0..255 (8u), 0..65535 (16-bit sources) or 0..1
 *   (32f): step = scale/m, k = trunc(v/step + 0.000009). 8u levels are
 *   (k*M) >> 8 with M = trunc(65280/m + 0.000009), so the top level is 254
 *   when m does not divide 65280; other types write trunc(k*step*scale +
 *   0.000009) (>> 8 for 16-bit sources into bytes).
 * zorDitherFS, zorDitherJJN, zorDitherStucki: error diffusion, left to right
 *   on every row; saturated samples (at or above the top, below 0 or, for
 *   32f, below 2^-23 or NaN) drop their error. Channels are split among the
 *   granted threads T (T = 2: channels {0,1},{2..}; T = 3: one each, or
 *   {0,1},{2},{3} for C4; T >= 4: one each), and a thread carries its error
 *   rows from one channel into the next: multi-channel results depend on T.
 * zorDitherBayer: 4x4 matrix thresholds index/15 (0..1 inclusive) times the
 *   step, phase tied to the region; row-parallel. 16-bit sources clamp to the
 *   destination range; 8u and 32f store the low bits of the level unclamped
 *   (white at 8 or 42 levels rounds up past the top at the threshold-0
 *   positions and wraps), and 32f values outside 0..1 are not clamped.
 * noise 1..100 with a dither method perturbs the rounding threshold by a
 *   repeatable table (uniform generators seeded 0); results stay identical
 *   from call to call.
 * Float-to-int conversions of 32f values out of the int range saturate; NaN
 *   converts as the most negative int. */
ZORCC_API ZorStatus zoriReduceBits_8u_C1R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_8u_C3R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_8u_AC4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_8u_C4R(const Zor8u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_16u_C1R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_16u_C3R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_16u_AC4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_16u_C4R(const Zor16u* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_16s_C1R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_16s_C3R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_16s_AC4R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_16s_C4R(const Zor16s* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_16u8u_C1R(const Zor16u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_16u8u_C3R(const Zor16u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_16u8u_AC4R(const Zor16u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_16u8u_C4R(const Zor16u* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_16s8u_C1R(const Zor16s* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_16s8u_C3R(const Zor16s* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_16s8u_AC4R(const Zor16s* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_16s8u_C4R(const Zor16s* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_32f8u_C1R(const Zor32f* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_32f8u_C3R(const Zor32f* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_32f8u_AC4R(const Zor32f* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_32f8u_C4R(const Zor32f* pSrc, int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_32f16u_C1R(const Zor32f* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_32f16u_C3R(const Zor32f* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_32f16u_AC4R(const Zor32f* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_32f16u_C4R(const Zor32f* pSrc, int srcStep, Zor16u* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_32f16s_C1R(const Zor32f* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_32f16s_C3R(const Zor32f* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_32f16s_AC4R(const Zor32f* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);
ZORCC_API ZorStatus zoriReduceBits_32f16s_C4R(const Zor32f* pSrc, int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, int noise, ZorDitherType dtype, int levels);

/* ------------------------------------------------------------------------ */
/* YCoCg transforms                                                         */
/* ------------------------------------------------------------------------ */
/* YCoCg. Interleaved B, G, R (element 0 is B; C4: B, G, R, A) of 8u (BGR)
 * or 16s (SBGR) samples to and from three planes Y, Co, Cg of 16s or 32s
 * sharing one step. >> is an arithmetic shift (rounds toward minus infinity);
 * arithmetic is 32-bit.
 * Plain forward:  Y = (R + 2G + B + 2) >> 2, Co = (R - B + 1) >> 1,
 *                 Cg = (2G - R - B + 2) >> 2; 16s planes keep the low 16 bits.
 * Plain inverse:  R = Y + Co - Cg, G = Y + Cg, B = Y - Co - Cg.
 * Reversible (_Rev) forward: Co = R - B, t = B + (Co >> 1), Cg = G - t,
 *   Y = t + (Cg >> 1); with 16s planes from 16s samples Co and Cg are cut to
 *   16 bits before they are halved, and all three are stored as 16 bits.
 * Reversible inverse: t = Y - (Cg >> 1), G = Cg + t, B = t - (Co >> 1),
 *   R = B + Co. The reversible pair gives back every source exactly.
 * Inverse results: 16s samples keep the low 16 bits (wrap-around); 8u
 * samples keep the low 16 bits as a signed value and then clamp it to 0..255
 * (a sum of 65,546 gives 10, not 255). The P3C4R inverses write aval to the
 * fourth element of every pixel; the C4P3R forwards ignore it.
 * Checks: null plane array, interleaved pointer or plane -> zorStsNullPtr.
 * Steps are not checked, and there is NO size check: a width or height below
 * 1 converts nothing and returns zorStsOk. Rows run serially. */
ZORCC_API ZorStatus zoriBGRToYCoCg_8u16s_C3P3R(const Zor8u* pSrc, int srcStep, Zor16s* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGRToYCoCg_8u16s_C4P3R(const Zor8u* pSrc, int srcStep, Zor16s* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriSBGRToYCoCg_16s_C3P3R(const Zor16s* pSrc, int srcStep, Zor16s* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriSBGRToYCoCg_16s_C4P3R(const Zor16s* pSrc, int srcStep, Zor16s* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriSBGRToYCoCg_16s32s_C3P3R(const Zor16s* pSrc, int srcStep, Zor32s* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriSBGRToYCoCg_16s32s_C4P3R(const Zor16s* pSrc, int srcStep, Zor32s* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCoCgToBGR_16s8u_P3C3R(const Zor16s* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCoCgToBGR_16s8u_P3C4R(const Zor16s* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, Zor8u aval);
ZORCC_API ZorStatus zoriYCoCgToSBGR_16s_P3C3R(const Zor16s* const pSrc[3], int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCoCgToSBGR_16s_P3C4R(const Zor16s* const pSrc[3], int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, Zor16s aval);
ZORCC_API ZorStatus zoriYCoCgToSBGR_32s16s_P3C3R(const Zor32s* const pSrc[3], int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCoCgToSBGR_32s16s_P3C4R(const Zor32s* const pSrc[3], int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, Zor16s aval);
ZORCC_API ZorStatus zoriBGRToYCoCg_Rev_8u16s_C3P3R(const Zor8u* pSrc, int srcStep, Zor16s* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriBGRToYCoCg_Rev_8u16s_C4P3R(const Zor8u* pSrc, int srcStep, Zor16s* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriSBGRToYCoCg_Rev_16s_C3P3R(const Zor16s* pSrc, int srcStep, Zor16s* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriSBGRToYCoCg_Rev_16s_C4P3R(const Zor16s* pSrc, int srcStep, Zor16s* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriSBGRToYCoCg_Rev_16s32s_C3P3R(const Zor16s* pSrc, int srcStep, Zor32s* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriSBGRToYCoCg_Rev_16s32s_C4P3R(const Zor16s* pSrc, int srcStep, Zor32s* const pDst[3], int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCoCgToBGR_Rev_16s8u_P3C3R(const Zor16s* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCoCgToBGR_Rev_16s8u_P3C4R(const Zor16s* const pSrc[3], int srcStep, Zor8u* pDst, int dstStep, ZoriSize roiSize, Zor8u aval);
ZORCC_API ZorStatus zoriYCoCgToSBGR_Rev_16s_P3C3R(const Zor16s* const pSrc[3], int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCoCgToSBGR_Rev_16s_P3C4R(const Zor16s* const pSrc[3], int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, Zor16s aval);
ZORCC_API ZorStatus zoriYCoCgToSBGR_Rev_32s16s_P3C3R(const Zor32s* const pSrc[3], int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize);
ZORCC_API ZorStatus zoriYCoCgToSBGR_Rev_32s16s_P3C4R(const Zor32s* const pSrc[3], int srcStep, Zor16s* pDst, int dstStep, ZoriSize roiSize, Zor16s aval);

#ifdef __cplusplus
}
#endif

#endif /* ZORCC_H */
