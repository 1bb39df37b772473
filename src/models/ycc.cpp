// RGB <-> PhotoYCC for 8u (fixed point), 16u, 16s and 32f (float), in C3 and
// AC4 layouts, on the row-parallel frame.
#include "models/ycc.h"

namespace zor {

namespace {

// Chroma offsets on the 16-bit scale (156 * 257, 137 * 257) and on 0..1.
constexpr float kC1Off16 = 40092.0f, kC2Off16 = 35209.0f;
constexpr float kC1Off32 = 0.6117647f, kC2Off32 = 0.5372549f;

// The 16u forward matrix: the model's products combined into one matrix.
constexpr Matrix3 kRgbToYcc16 = {{{0.213267f, 0.418688f, 0.0813124f},
                                  {-0.130621f, -0.256437f, 0.387058f},
                                  {0.372876f, -0.312237f, -0.0606389f}}};

struct Ycc {
    float y, c1, c2;
};

// The model form: luma first, then the scaled luma and chroma differences.
inline Ycc yccModel(float r, float g, float b, float off1, float off2) {
    const float yl = 0.299f * r + 0.587f * g + 0.114f * b;
    return {0.7132668f * yl, 0.43686f * (b - yl) + off1, 0.53192f * (r - yl) + off2};
}

struct Rgbf {
    float r, g, b;
};

inline Rgbf yccInverse(float y, float c1, float c2, float off1, float off2) {
    const float l = 1.3584f * y;
    const float d1 = 2.2179f * (c1 - off1);
    const float d2 = 1.8215f * (c2 - off2);
    return {l + d2, l - 0.194f * d1 - 0.509f * d2, l + d1};
}

// 16s forward: the model form on the unsigned scale, + 0.499999, truncated.
// (The 16u forward uses the combined matrix instead.)
template <class T>
void rgbToYccModel16(const T* src, T* dst, int width, int channels) {
    using S = Sample16<T>;
    for (int i = 0; i < width; ++i, src += channels, dst += channels) {
        const Ycc c = yccModel(S::in(src[0]), S::in(src[1]), S::in(src[2]), kC1Off16, kC2Off16);
        dst[0] = S::out(truncInt(c.y + kHalfLess));
        dst[1] = S::out(truncInt(c.c1 + kHalfLess));
        dst[2] = S::out(truncInt(c.c2 + kHalfLess));
    }
}

// 16u and 16s inverse on the unsigned scale. For 16s, sample + 32768 minus
// 40092 (35209) equals the signed sample minus 7324 (2441) exactly.
template <class T>
void yccToRgb16(const T* src, T* dst, int width, int channels) {
    using S = Sample16<T>;
    for (int i = 0; i < width; ++i, src += channels, dst += channels) {
        const Rgbf c = yccInverse(S::in(src[0]), S::in(src[1]), S::in(src[2]), kC1Off16, kC2Off16);
        dst[0] = S::out(truncSat(c.r + kHalfLess, 65535));
        dst[1] = S::out(truncSat(c.g + kHalfLess, 65535));
        dst[2] = S::out(truncSat(c.b + kHalfLess, 65535));
    }
}

}  // namespace

// Weights 0.299, 0.587, 0.114 in units of 1/16384; every shift floors and
// nothing is rounded or clamped (the chroma keeps its low 8 bits).
void innerRGBToYCC_8u_C3R(const Zor8u* src, Zor8u* dst, int width, int channels) {
    for (int i = 0; i < width; ++i, src += channels, dst += channels) {
        const std::int32_t r = src[0], g = src[1], b = src[2];
        const std::int32_t sum = 4898 * r + 9617 * g + 1867 * b;
        dst[0] = static_cast<Zor8u>(((sum >> 10) * 2921) >> 16);
        dst[1] = static_cast<Zor8u>(asr(asr(b * 16384 - sum, 10) * 1789, 16) + 156);
        dst[2] = static_cast<Zor8u>(asr(asr(r * 16384 - sum, 10) * 2178, 16) + 137);
    }
}

// 12 fraction bits; the table saturates indices from -346 to 565.
void innerYCCToRGB_8u_C3R(const Zor8u* src, Zor8u* dst, int width, int channels) {
    for (int i = 0; i < width; ++i, src += channels, dst += channels) {
        const std::int32_t ty = 5564 * static_cast<std::int32_t>(src[0]);
        const std::int32_t t1 = 9084 * static_cast<std::int32_t>(src[1]) - 1417104;
        const std::int32_t t2 = 7460 * static_cast<std::int32_t>(src[2]) - 1022020;
        dst[0] = satByte(asr(ty + t2, 12));
        dst[1] = satByte(asr(16 * ty - 794 * asr(t1, 8) - 2084 * asr(t2, 8), 16));
        dst[2] = satByte(asr(ty + t1, 12));
    }
}

void innerRGBToYCC_16u_C3R(const Zor16u* src, Zor16u* dst, int width, int channels) {
    using S = Sample16<Zor16u>;
    const float off[3] = {0.0f, kC1Off16, kC2Off16};
    for (int i = 0; i < width; ++i, src += channels, dst += channels) {
        const float r = src[0], g = src[1], b = src[2];
        for (int k = 0; k < 3; ++k) dst[k] = S::out(truncInt(dotRow(kRgbToYcc16, k, r, g, b) + off[k] + kHalfLess));
    }
}

void innerYCCToRGB_16u_C3R(const Zor16u* src, Zor16u* dst, int width, int channels) {
    yccToRgb16(src, dst, width, channels);
}
void innerRGBToYCC_16s_C3R(const Zor16s* src, Zor16s* dst, int width, int channels) {
    rgbToYccModel16(src, dst, width, channels);
}
void innerYCCToRGB_16s_C3R(const Zor16s* src, Zor16s* dst, int width, int channels) {
    yccToRgb16(src, dst, width, channels);
}

void innerRGBToYCC_32f_C3R(const Zor32f* src, Zor32f* dst, int width, int channels) {
    for (int i = 0; i < width; ++i, src += channels, dst += channels) {
        const Ycc c = yccModel(src[0], src[1], src[2], kC1Off32, kC2Off32);
        dst[0] = c.y;
        dst[1] = c.c1;
        dst[2] = c.c2;
    }
}

void innerYCCToRGB_32f_C3R(const Zor32f* src, Zor32f* dst, int width, int channels) {
    for (int i = 0; i < width; ++i, src += channels, dst += channels) {
        const Rgbf c = yccInverse(src[0], src[1], src[2], kC1Off32, kC2Off32);
        dst[0] = clamp01(c.r);
        dst[1] = clamp01(c.g);
        dst[2] = clamp01(c.b);
    }
}

ZOR_CIE_WORKER(myRGBToYCC_8u_C3R, innerRGBToYCC_8u_C3R, Zor8u, Zor8u)
ZOR_CIE_WORKER(myYCCToRGB_8u_C3R, innerYCCToRGB_8u_C3R, Zor8u, Zor8u)
ZOR_CIE_WORKER(myRGBToYCC_16u_C3R, innerRGBToYCC_16u_C3R, Zor16u, Zor16u)
ZOR_CIE_WORKER(myYCCToRGB_16u_C3R, innerYCCToRGB_16u_C3R, Zor16u, Zor16u)
ZOR_CIE_WORKER(myRGBToYCC_16s_C3R, innerRGBToYCC_16s_C3R, Zor16s, Zor16s)
ZOR_CIE_WORKER(myYCCToRGB_16s_C3R, innerYCCToRGB_16s_C3R, Zor16s, Zor16s)
ZOR_CIE_WORKER(myRGBToYCC_32f_C3R, innerRGBToYCC_32f_C3R, Zor32f, Zor32f)
ZOR_CIE_WORKER(myYCCToRGB_32f_C3R, innerYCCToRGB_32f_C3R, Zor32f, Zor32f)

}  // namespace zor

using namespace zor;

extern "C" {

ZOR_CIE_EXPORT(zoriRGBToYCC_8u_C3R, myRGBToYCC_8u_C3R, Zor8u, Zor8u, 3)
ZOR_CIE_EXPORT(zoriRGBToYCC_8u_AC4R, myRGBToYCC_8u_C3R, Zor8u, Zor8u, 4)
ZOR_CIE_EXPORT(zoriYCCToRGB_8u_C3R, myYCCToRGB_8u_C3R, Zor8u, Zor8u, 3)
ZOR_CIE_EXPORT(zoriYCCToRGB_8u_AC4R, myYCCToRGB_8u_C3R, Zor8u, Zor8u, 4)
ZOR_CIE_EXPORT(zoriRGBToYCC_16u_C3R, myRGBToYCC_16u_C3R, Zor16u, Zor16u, 3)
ZOR_CIE_EXPORT(zoriRGBToYCC_16u_AC4R, myRGBToYCC_16u_C3R, Zor16u, Zor16u, 4)
ZOR_CIE_EXPORT(zoriYCCToRGB_16u_C3R, myYCCToRGB_16u_C3R, Zor16u, Zor16u, 3)
ZOR_CIE_EXPORT(zoriYCCToRGB_16u_AC4R, myYCCToRGB_16u_C3R, Zor16u, Zor16u, 4)
ZOR_CIE_EXPORT(zoriRGBToYCC_16s_C3R, myRGBToYCC_16s_C3R, Zor16s, Zor16s, 3)
ZOR_CIE_EXPORT(zoriRGBToYCC_16s_AC4R, myRGBToYCC_16s_C3R, Zor16s, Zor16s, 4)
ZOR_CIE_EXPORT(zoriYCCToRGB_16s_C3R, myYCCToRGB_16s_C3R, Zor16s, Zor16s, 3)
ZOR_CIE_EXPORT(zoriYCCToRGB_16s_AC4R, myYCCToRGB_16s_C3R, Zor16s, Zor16s, 4)
ZOR_CIE_EXPORT(zoriRGBToYCC_32f_C3R, myRGBToYCC_32f_C3R, Zor32f, Zor32f, 3)
ZOR_CIE_EXPORT(zoriRGBToYCC_32f_AC4R, myRGBToYCC_32f_C3R, Zor32f, Zor32f, 4)
ZOR_CIE_EXPORT(zoriYCCToRGB_32f_C3R, myYCCToRGB_32f_C3R, Zor32f, Zor32f, 3)
ZOR_CIE_EXPORT(zoriYCCToRGB_32f_AC4R, myYCCToRGB_32f_C3R, Zor32f, Zor32f, 4)

}  // extern "C"
