// RGB <-> CIE XYZ for 8u (16.16 fixed point), 16u, 16s and 32f (float), in
// C3 and AC4 layouts, on the row-parallel frame.
#include "models/xyz.h"

namespace zor {

namespace {

// The matrices in 16.16 fixed point, truncated toward zero.
constexpr std::int32_t kRgbToXyz8[3][3] = {{27030, 23434, 11824}, {13937, 46868, 4729}, {1267, 7811, 62274}};
constexpr std::int32_t kXyzToRgb8[3][3] = {
    {212368, -100738, -32671}, {-63521, 122944, 2723}, {3646, -13372, 69291}};

inline std::int32_t fixedRow(const std::int32_t (&row)[3], std::int32_t a, std::int32_t b, std::int32_t c) {
    return row[0] * a + row[1] * b + row[2] * c;
}

// 16u and 16s share the float arithmetic on the unsigned scale. X and Y keep
// their low 16 bits (their rows sum to at most 1); Z saturates at 65535.
template <class T>
void rgbToXyz16(const T* src, T* dst, int width, int channels) {
    using S = Sample16<T>;
    for (int i = 0; i < width; ++i, src += channels, dst += channels) {
        const float r = S::in(src[0]), g = S::in(src[1]), b = S::in(src[2]);
        const int x = truncInt(dotRow(kRgbToXyz, 0, r, g, b) + kHalfLess);
        const int y = truncInt(dotRow(kRgbToXyz, 1, r, g, b) + kHalfLess);
        const int z = truncSat(dotRow(kRgbToXyz, 2, r, g, b) + kHalfLess, 65535);
        dst[0] = S::out(x);
        dst[1] = S::out(y);
        dst[2] = S::out(z);
    }
}

// The 16u inverse adds the blue row's rounding constant and Z term in double;
// the 16s inverse stays in float throughout.
template <class T, bool BlueInDouble>
void xyzToRgb16(const T* src, T* dst, int width, int channels) {
    using S = Sample16<T>;
    for (int i = 0; i < width; ++i, src += channels, dst += channels) {
        int c[3];
        xyzToRgbCodes<BlueInDouble>(S::in(src[0]), S::in(src[1]), S::in(src[2]), 65535, c);
        dst[0] = S::out(c[0]);
        dst[1] = S::out(c[1]);
        dst[2] = S::out(c[2]);
    }
}

}  // namespace

// X and Y are floors (their rows sum below 65536); Z reaches 277 and goes
// through the saturation table.
void innerRGBToXYZ_8u_C3R(const Zor8u* src, Zor8u* dst, int width, int channels) {
    for (int i = 0; i < width; ++i, src += channels, dst += channels) {
        const std::int32_t r = src[0], g = src[1], b = src[2];
        dst[0] = static_cast<Zor8u>(fixedRow(kRgbToXyz8[0], r, g, b) >> 16);
        dst[1] = static_cast<Zor8u>(fixedRow(kRgbToXyz8[1], r, g, b) >> 16);
        dst[2] = satByte(fixedRow(kRgbToXyz8[2], r, g, b) >> 16);
    }
}

// Floor of each row (arithmetic shift, also for negative sums), then 0..255.
void innerXYZToRGB_8u_C3R(const Zor8u* src, Zor8u* dst, int width, int channels) {
    for (int i = 0; i < width; ++i, src += channels, dst += channels) {
        const std::int32_t x = src[0], y = src[1], z = src[2];
        for (int k = 0; k < 3; ++k) {
            const std::int32_t v = asr(fixedRow(kXyzToRgb8[k], x, y, z), 16);
            dst[k] = static_cast<Zor8u>(v < 0 ? 0 : v > 255 ? 255 : v);
        }
    }
}

void innerRGBToXYZ_16u_C3R(const Zor16u* src, Zor16u* dst, int width, int channels) {
    rgbToXyz16(src, dst, width, channels);
}
void innerXYZToRGB_16u_C3R(const Zor16u* src, Zor16u* dst, int width, int channels) {
    xyzToRgb16<Zor16u, true>(src, dst, width, channels);
}
void innerRGBToXYZ_16s_C3R(const Zor16s* src, Zor16s* dst, int width, int channels) {
    rgbToXyz16(src, dst, width, channels);
}
void innerXYZToRGB_16s_C3R(const Zor16s* src, Zor16s* dst, int width, int channels) {
    xyzToRgb16<Zor16s, false>(src, dst, width, channels);
}

// X and Y unclamped, Z clamped to 0..1.
void innerRGBToXYZ_32f_C3R(const Zor32f* src, Zor32f* dst, int width, int channels) {
    for (int i = 0; i < width; ++i, src += channels, dst += channels) {
        const float r = src[0], g = src[1], b = src[2];
        dst[0] = dotRow(kRgbToXyz, 0, r, g, b);
        dst[1] = dotRow(kRgbToXyz, 1, r, g, b);
        dst[2] = clamp01(dotRow(kRgbToXyz, 2, r, g, b));
    }
}

void innerXYZToRGB_32f_C3R(const Zor32f* src, Zor32f* dst, int width, int channels) {
    for (int i = 0; i < width; ++i, src += channels, dst += channels) {
        const float x = src[0], y = src[1], z = src[2];
        dst[0] = clamp01(dotRow(kXyzToRgb, 0, x, y, z));
        dst[1] = clamp01(dotRow(kXyzToRgb, 1, x, y, z));
        dst[2] = clamp01(dotRow(kXyzToRgb, 2, x, y, z));
    }
}

ZOR_CIE_WORKER(myRGBToXYZ_8u_C3R, innerRGBToXYZ_8u_C3R, Zor8u, Zor8u)
ZOR_CIE_WORKER(myXYZToRGB_8u_C3R, innerXYZToRGB_8u_C3R, Zor8u, Zor8u)
ZOR_CIE_WORKER(myRGBToXYZ_16u_C3R, innerRGBToXYZ_16u_C3R, Zor16u, Zor16u)
ZOR_CIE_WORKER(myXYZToRGB_16u_C3R, innerXYZToRGB_16u_C3R, Zor16u, Zor16u)
ZOR_CIE_WORKER(myRGBToXYZ_16s_C3R, innerRGBToXYZ_16s_C3R, Zor16s, Zor16s)
ZOR_CIE_WORKER(myXYZToRGB_16s_C3R, innerXYZToRGB_16s_C3R, Zor16s, Zor16s)
ZOR_CIE_WORKER(myRGBToXYZ_32f_C3R, innerRGBToXYZ_32f_C3R, Zor32f, Zor32f)
ZOR_CIE_WORKER(myXYZToRGB_32f_C3R, innerXYZToRGB_32f_C3R, Zor32f, Zor32f)

}  // namespace zor

using namespace zor;

extern "C" {

ZOR_CIE_EXPORT(zoriRGBToXYZ_8u_C3R, myRGBToXYZ_8u_C3R, Zor8u, Zor8u, 3)
ZOR_CIE_EXPORT(zoriRGBToXYZ_8u_AC4R, myRGBToXYZ_8u_C3R, Zor8u, Zor8u, 4)
ZOR_CIE_EXPORT(zoriXYZToRGB_8u_C3R, myXYZToRGB_8u_C3R, Zor8u, Zor8u, 3)
ZOR_CIE_EXPORT(zoriXYZToRGB_8u_AC4R, myXYZToRGB_8u_C3R, Zor8u, Zor8u, 4)
ZOR_CIE_EXPORT(zoriRGBToXYZ_16u_C3R, myRGBToXYZ_16u_C3R, Zor16u, Zor16u, 3)
ZOR_CIE_EXPORT(zoriRGBToXYZ_16u_AC4R, myRGBToXYZ_16u_C3R, Zor16u, Zor16u, 4)
ZOR_CIE_EXPORT(zoriXYZToRGB_16u_C3R, myXYZToRGB_16u_C3R, Zor16u, Zor16u, 3)
ZOR_CIE_EXPORT(zoriXYZToRGB_16u_AC4R, myXYZToRGB_16u_C3R, Zor16u, Zor16u, 4)
ZOR_CIE_EXPORT(zoriRGBToXYZ_16s_C3R, myRGBToXYZ_16s_C3R, Zor16s, Zor16s, 3)
ZOR_CIE_EXPORT(zoriRGBToXYZ_16s_AC4R, myRGBToXYZ_16s_C3R, Zor16s, Zor16s, 4)
ZOR_CIE_EXPORT(zoriXYZToRGB_16s_C3R, myXYZToRGB_16s_C3R, Zor16s, Zor16s, 3)
ZOR_CIE_EXPORT(zoriXYZToRGB_16s_AC4R, myXYZToRGB_16s_C3R, Zor16s, Zor16s, 4)
ZOR_CIE_EXPORT(zoriRGBToXYZ_32f_C3R, myRGBToXYZ_32f_C3R, Zor32f, Zor32f, 3)
ZOR_CIE_EXPORT(zoriRGBToXYZ_32f_AC4R, myRGBToXYZ_32f_C3R, Zor32f, Zor32f, 4)
ZOR_CIE_EXPORT(zoriXYZToRGB_32f_C3R, myXYZToRGB_32f_C3R, Zor32f, Zor32f, 3)
ZOR_CIE_EXPORT(zoriXYZToRGB_32f_AC4R, myXYZToRGB_32f_C3R, Zor32f, Zor32f, 4)

}  // extern "C"
