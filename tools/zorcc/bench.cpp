// zorcc bench: times the main conversions of the library on random images.
#include "commands.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <random>

namespace zorcc_tool {

namespace {

template <typename T>
std::vector<T> randomBuffer(std::size_t n, std::uint32_t seed) {
    std::mt19937 gen(seed);
    std::vector<T> v(n);
    for (T& x : v) x = static_cast<T>(gen());
    return v;
}

struct Case {
    const char* name;
    std::function<ZorStatus()> run;
};

}  // namespace

int runBench(const std::string& size, int runs) {
    int w = 1920, h = 1080;
    if (!size.empty()) parseSize(size, w, h);
    const std::size_t n = static_cast<std::size_t>(w) * h;
    const ZoriSize roi{w, h};
    const int w2 = (w + 1) / 2, h2 = (h + 1) / 2;

    auto rgb = randomBuffer<Zor8u>(3 * n, 1), rgba = randomBuffer<Zor8u>(4 * n, 2);
    auto out = randomBuffer<Zor8u>(4 * n, 3);
    auto y = randomBuffer<Zor8u>(n, 4), cb = randomBuffer<Zor8u>(n, 5), cr = randomBuffer<Zor8u>(n, 6);
    auto rgb16 = randomBuffer<Zor16u>(3 * n, 7), out16 = randomBuffer<Zor16u>(3 * n, 8);
    std::vector<Zor16s> s16(3 * n);
    Zor8u* outP[3] = {out.data(), out.data() + n, out.data() + 2 * n};
    const Zor8u* in420[3] = {y.data(), cb.data(), cr.data()};
    const Zor8u* in422[3] = {y.data(), cb.data(), cr.data()};
    const int steps420[3] = {w, w2, w2}, steps422[3] = {w, w2, w2};
    Zor16s* ycocg[3] = {s16.data(), s16.data() + n, s16.data() + 2 * n};
    const Zor32f sepia[3][4] = {{0.393f, 0.769f, 0.189f, 0}, {0.349f, 0.686f, 0.168f, 0}, {0.272f, 0.534f, 0.131f, 0}};
    (void)h2;

    const Case cases[] = {
        {"RGB -> YCbCr 4:4:4 C3", [&] { return zoriRGBToYCbCr_8u_C3R(rgb.data(), 3 * w, out.data(), 3 * w, roi); }},
        {"YCbCr -> RGB 4:4:4 C3", [&] { return zoriYCbCrToRGB_8u_C3R(rgb.data(), 3 * w, out.data(), 3 * w, roi); }},
        {"RGB -> YCbCr 4:2:0 P3", [&] { return zoriRGBToYCbCr420_8u_C3P3R(rgb.data(), 3 * w, outP, steps420, roi); }},
        {"RGB -> YCbCr 4:2:2 C2 (yuy2)", [&] { return zoriRGBToYCbCr422_8u_C3C2R(rgb.data(), 3 * w, out.data(), 2 * w, roi); }},
        {"YCbCr 4:2:2 P3 -> RGB", [&] { return zoriYCbCr422ToRGB_8u_P3C3R(in422, steps422, out.data(), 3 * w, roi); }},
        {"YCbCr 4:2:2 C2 -> RGB", [&] { return zoriYCbCr422ToRGB_8u_C2C3R(rgb.data(), 2 * w, out.data(), 3 * w, roi); }},
        {"4:2:0 P3 -> 4:2:2 P3", [&] { return zoriYCbCr420ToYCbCr422_8u_P3R(in420, steps420, outP, steps422, roi); }},
        {"4:2:0 P3 -> nv12", [&] { return zoriYCbCr420_8u_P3P2R(in420, steps420, out.data(), w, out.data() + n, w, roi); }},
        {"YCbCr 4:2:0 -> RGB565", [&] { return zoriYCbCr420ToRGB565_8u16u_P3C3R(in420, steps420, out16.data(), 2 * w, roi); }},
        {"YCbCr 4:2:0 -> RGB565 dither", [&] { return zoriYCbCr420ToRGB565Dither_8u16u_P3C3R(in420, steps420, out16.data(), 2 * w, roi); }},
        {"RGB -> YUV 4:2:0", [&] { return zoriRGBToYUV420_8u_C3P3R(rgb.data(), 3 * w, outP, steps420, roi); }},
        {"BGR -> Lab 8u", [&] { return zoriBGRToLab_8u_C3R(rgb.data(), 3 * w, out.data(), 3 * w, roi); }},
        {"Lab -> BGR 8u", [&] { return zoriLabToBGR_8u_C3R(rgb.data(), 3 * w, out.data(), 3 * w, roi); }},
        {"RGB -> XYZ 8u", [&] { return zoriRGBToXYZ_8u_C3R(rgb.data(), 3 * w, out.data(), 3 * w, roi); }},
        {"RGB -> LUV 8u", [&] { return zoriRGBToLUV_8u_C3R(rgb.data(), 3 * w, out.data(), 3 * w, roi); }},
        {"RGB -> HLS 8u", [&] { return zoriRGBToHLS_8u_C3R(rgb.data(), 3 * w, out.data(), 3 * w, roi); }},
        {"RGB -> HSV 8u", [&] { return zoriRGBToHSV_8u_C3R(rgb.data(), 3 * w, out.data(), 3 * w, roi); }},
        {"RGB -> gray 8u", [&] { return zoriRGBToGray_8u_C3C1R(rgb.data(), 3 * w, out.data(), w, roi); }},
        {"colour twist 8u C3", [&] { return zoriColorTwist32f_8u_C3R(rgb.data(), 3 * w, out.data(), 3 * w, roi, sepia); }},
        {"gamma forward 8u C3", [&] { return zoriGammaFwd_8u_C3R(rgb.data(), 3 * w, out.data(), 3 * w, roi); }},
        {"gamma forward 16u C3", [&] { return zoriGammaFwd_16u_C3R(rgb16.data(), 6 * w, out16.data(), 6 * w, roi); }},
        {"reduce 8u C3, 4 levels, none", [&] { return zoriReduceBits_8u_C3R(rgb.data(), 3 * w, out.data(), 3 * w, roi, 0, zorDitherNone, 4); }},
        {"reduce 8u C3, 4 levels, Floyd-Steinberg", [&] { return zoriReduceBits_8u_C3R(rgb.data(), 3 * w, out.data(), 3 * w, roi, 0, zorDitherFS, 4); }},
        {"reduce 8u C3, 4 levels, Bayer", [&] { return zoriReduceBits_8u_C3R(rgb.data(), 3 * w, out.data(), 3 * w, roi, 0, zorDitherBayer, 4); }},
        {"BGR -> YCoCg reversible", [&] { return zoriBGRToYCoCg_Rev_8u16s_C3P3R(rgb.data(), 3 * w, ycocg, 2 * w, roi); }},
        {"RGBA -> RGBA twist AC4", [&] { return zoriColorTwist32f_8u_AC4R(rgba.data(), 4 * w, out.data(), 4 * w, roi, sepia); }},
    };

    std::printf("zorcc bench: %dx%d, %d threads, best of %d runs\n\n", w, h, threads_omp_of_n_zor, runs);
    std::printf("%-42s %10s %10s\n", "conversion", "ms", "Mpix/s");
    for (const Case& c : cases) {
        double best = 1e30;
        for (int i = 0; i < runs; ++i) {
            const auto t0 = std::chrono::steady_clock::now();
            check(c.run(), c.name);
            best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count());
        }
        std::printf("%-42s %10.3f %10.1f\n", c.name, best * 1e3, double(n) / 1e6 / best);
    }
    return 0;
}

}  // namespace zorcc_tool
