// zorcc: command-line front end of the colour-conversion library.
//   zorcc version          the library's version record and thread count
//   zorcc demo [--out DIR] the built-in test card through the library, with
//                          round-trip error and timings, written as PNG files
#include "image_io.h"
#include "testcard.h"

#include "zorcc.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>

namespace {

using zorcc_tool::Image8;

void printVersion() {
    const ZorLibraryVersion* v = zorccGetLibVersion();
    std::printf("library      %s\n", v->libraryName);
    std::printf("version      %s (%d.%d, build series %d, build %d)\n", v->versionText, v->majorVersion,
                v->minorVersion, v->buildSeries, v->buildNumber);
    std::printf("target cpu   %.4s\n", v->targetCpu);
    std::printf("build date   %s\n", v->buildDate);
    std::printf("threads      %d\n", threads_omp_of_n_zor);
}

// Fails with the library's status in the message.
void check(ZorStatus st, const char* what) {
    if (st < 0) throw std::runtime_error(std::string(what) + " failed with status " + std::to_string(st));
}

// Best time of a few runs, in seconds.
double timeIt(const std::function<void()>& fn, int runs = 5) {
    double best = 1e30;
    for (int i = 0; i < runs; ++i) {
        const auto t0 = std::chrono::steady_clock::now();
        fn();
        const auto t1 = std::chrono::steady_clock::now();
        best = std::min(best, std::chrono::duration<double>(t1 - t0).count());
    }
    return best;
}

struct ErrorStats {
    int maxAbs = 0;
    double meanAbs = 0;
    double psnr = 0;
};

ErrorStats compare(const Image8& a, const Image8& b) {
    ErrorStats s;
    double sum = 0, sq = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i) {
        const int d = std::abs(int(a.pixels[i]) - int(b.pixels[i]));
        s.maxAbs = std::max(s.maxAbs, d);
        sum += d;
        sq += double(d) * d;
    }
    const double n = double(a.pixels.size());
    s.meanAbs = sum / n;
    s.psnr = sq == 0 ? INFINITY : 10 * std::log10(255.0 * 255.0 / (sq / n));
    return s;
}

// The error of a round trip made visible: |a - b| times 32, per channel.
Image8 errorMap(const Image8& a, const Image8& b) {
    Image8 m(a.width, a.height, a.channels);
    for (std::size_t i = 0; i < a.pixels.size(); ++i)
        m.pixels[i] = static_cast<std::uint8_t>(std::min(255, 32 * std::abs(int(a.pixels[i]) - int(b.pixels[i]))));
    return m;
}

int runDemo(const std::string& outDir) {
    namespace fs = std::filesystem;
    fs::create_directories(outDir);
    const Image8 card = zorcc_tool::makeTestCard(1280, 720);
    const ZoriSize roi{card.width, card.height};
    const double mpix = double(card.width) * card.height / 1e6;

    std::printf("zorcc demo: %dx%d test card, library %s, %d threads\n\n", card.width, card.height,
                zorccGetLibVersion()->versionText, threads_omp_of_n_zor);
    std::printf("%-44s %10s %10s\n", "step", "ms", "Mpix/s");
    auto report = [&](const char* step, double sec) {
        std::printf("%-44s %10.3f %10.1f\n", step, sec * 1e3, mpix / sec);
    };

    // Interleaved: RGB -> YCbCr -> RGB with the truncating decoder.
    Image8 ycc(card.width, card.height, 3), back(card.width, card.height, 3);
    report("RGB -> YCbCr 4:4:4 (interleaved)", timeIt([&] {
               check(zoriRGBToYCbCr_8u_C3R(card.pixels.data(), card.step(), ycc.pixels.data(), ycc.step(), roi),
                     "zoriRGBToYCbCr_8u_C3R");
           }));
    report("YCbCr -> RGB 4:4:4 (interleaved, truncating)", timeIt([&] {
               check(zoriYCbCrToRGB_8u_C3R(ycc.pixels.data(), ycc.step(), back.pixels.data(), back.step(), roi),
                     "zoriYCbCrToRGB_8u_C3R");
           }));

    // Planar: the same card through planes and the rounding decoder.
    Image8 rp(card.width, card.height, 1), gp = rp, bp = rp, yp = rp, cbp = rp, crp = rp;
    for (std::size_t i = 0, n = rp.pixels.size(); i < n; ++i) {
        rp.pixels[i] = card.pixels[3 * i];
        gp.pixels[i] = card.pixels[3 * i + 1];
        bp.pixels[i] = card.pixels[3 * i + 2];
    }
    const Zor8u* rgbPlanes[3] = {rp.pixels.data(), gp.pixels.data(), bp.pixels.data()};
    Zor8u* yccPlanes[3] = {yp.pixels.data(), cbp.pixels.data(), crp.pixels.data()};
    const Zor8u* yccIn[3] = {yp.pixels.data(), cbp.pixels.data(), crp.pixels.data()};
    Image8 backB(card.width, card.height, 3);
    report("RGB -> YCbCr 4:4:4 (planar)", timeIt([&] {
               check(zoriRGBToYCbCr_8u_P3R(rgbPlanes, rp.step(), yccPlanes, yp.step(), roi), "zoriRGBToYCbCr_8u_P3R");
           }));
    report("YCbCr planar -> RGB (rounding)", timeIt([&] {
               check(zoriYCbCrToRGB_8u_P3C3R(yccIn, yp.step(), backB.pixels.data(), backB.step(), roi),
                     "zoriYCbCrToRGB_8u_P3C3R");
           }));

    const ErrorStats ea = compare(card, back), eb = compare(card, backB);
    std::printf("\nround-trip error        max    mean     PSNR\n");
    std::printf("  truncating decoder  %5d  %6.3f  %6.2f dB\n", ea.maxAbs, ea.meanAbs, ea.psnr);
    std::printf("  rounding decoder    %5d  %6.3f  %6.2f dB\n", eb.maxAbs, eb.meanAbs, eb.psnr);

    const fs::path dir(outDir);
    zorcc_tool::writePng((dir / "card.png").string(), card);
    zorcc_tool::writePng((dir / "luma.png").string(), yp);
    zorcc_tool::writePng((dir / "roundtrip_truncating.png").string(), back);
    zorcc_tool::writePng((dir / "roundtrip_rounding.png").string(), backB);
    zorcc_tool::writePng((dir / "error_x32.png").string(), errorMap(card, back));
    std::printf("\nwrote card.png, luma.png, roundtrip_truncating.png, roundtrip_rounding.png, error_x32.png to %s/\n",
                outDir.c_str());
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app{"zorcc: colour conversions of images with the zorcc library"};
    app.require_subcommand(1);
    auto* version = app.add_subcommand("version", "print the library's version record and thread count");
    auto* demo = app.add_subcommand("demo", "convert the built-in test card and write the results as PNG files");
    std::string outDir = "zorcc-demo";
    demo->add_option("--out", outDir, "folder for the PNG files (created if missing)")->capture_default_str();
    int threads = 0;
    app.add_option("--threads", threads, "team size of the parallel conversions (default: all processors)")
        ->check(CLI::PositiveNumber);

    CLI11_PARSE(app, argc, argv);
    if (threads > 0) threads_omp_of_n_zor = threads;
    try {
        if (*version) printVersion();
        if (*demo) return runDemo(outDir);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "zorcc: %s\n", e.what());
        return 1;
    }
    return 0;
}
