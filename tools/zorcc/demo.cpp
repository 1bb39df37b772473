// zorcc demo: the built-in test card through the library, with the
// round-trip error of the 4:4:4 decoders and a tour of the families, each
// step written as a PNG file and timed.
#include "commands.h"
#include "testcard.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <stdexcept>

namespace zorcc_tool {

namespace {

// Best time of a few runs, in seconds.
double timeIt(const std::function<void()>& fn, int runs) {
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

// A plot of the 8-bit gamma curves: forward (black), inverse (blue) and the
// identity (gray), 256 x 256.
Image8 gammaPlot() {
    Image8 ramp(256, 1, 3);
    for (int x = 0; x < 256; ++x) ramp.pixels[3 * x] = ramp.pixels[3 * x + 1] = ramp.pixels[3 * x + 2] = static_cast<std::uint8_t>(x);
    Image8 fwd = ramp, inv = ramp;
    ZORCC_CALL(zoriGammaFwd_8u_C3R(ramp.data(), ramp.step(), fwd.data(), fwd.step(), roiOf(256, 1)));
    ZORCC_CALL(zoriGammaInv_8u_C3R(ramp.data(), ramp.step(), inv.data(), inv.step(), roiOf(256, 1)));
    Image8 plot(256, 256, 3);
    std::fill(plot.pixels.begin(), plot.pixels.end(), 255);
    auto dot = [&](int x, int v, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
        std::uint8_t* p = plot.row(255 - v) + 3 * x;
        p[0] = r, p[1] = g, p[2] = b;
    };
    // Each curve as a connected line: the column from the previous value.
    auto line = [&](const Image8& c, int x, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
        const int v = c.pixels[3 * x], u = x > 0 ? c.pixels[3 * (x - 1)] : v;
        for (int k = std::min(u, v); k <= std::max(u, v); ++k)
            if (k == v || k != u) dot(x, k, r, g, b);
    };
    for (int x = 0; x < 256; ++x) {
        dot(x, x, 170, 170, 170);
        line(inv, x, 0, 0, 220);
        line(fwd, x, 0, 0, 0);
    }
    return plot;
}

struct TourStep {
    const char* title;
    const char* file;
    const char* chain;
    std::function<void(OpOptions&)> set;
};

void runTour(const Image8& card, const std::filesystem::path& dir) {
    const double mpix = double(card.width) * card.height / 1e6;
    const TourStep steps[] = {
        {"4:2:0 encode + decode (chroma subsampling)", "tour_420.png", "encode,decode", [](OpOptions& o) { o.to = "i420"; }},
        {"4:2:2 yuy2 encode + decode", "tour_yuy2.png", "encode,decode", [](OpOptions& o) { o.to = "yuy2"; }},
        {"4:1:1 encode + decode", "tour_411.png", "encode,decode", [](OpOptions& o) { o.to = "i411"; }},
        {"4:2:0 -> nv12 -> yuy2 -> RGB", "tour_relayout.png", "encode,relayout,decode", [](OpOptions& o) { o.to = "i420"; }},
        {"RGB565, truncated", "tour_rgb565.png", "rgb565", [](OpOptions&) {}},
        {"RGB565, ordered dither", "tour_rgb565_dither.png", "rgb565", [](OpOptions& o) { o.dither = true; }},
        {"RGB444, ordered dither", "tour_rgb444_dither.png", "rgb444", [](OpOptions& o) { o.dither = true; }},
        {"YUV 4:2:0 encode + decode", "tour_yuv420.png", "yuv-encode,yuv-decode", [](OpOptions&) {}},
        {"Lab round trip", "tour_lab.png", "rgb-to-lab,lab-to-rgb", [](OpOptions&) {}},
        {"LUV round trip", "tour_luv.png", "rgb-to-luv,luv-to-rgb", [](OpOptions&) {}},
        {"XYZ round trip", "tour_xyz.png", "rgb-to-xyz,xyz-to-rgb", [](OpOptions&) {}},
        {"PhotoYCC round trip", "tour_ycc.png", "rgb-to-ycc,ycc-to-rgb", [](OpOptions&) {}},
        {"HLS round trip", "tour_hls.png", "rgb-to-hls,hls-to-rgb", [](OpOptions&) {}},
        {"HSV round trip", "tour_hsv.png", "rgb-to-hsv,hsv-to-rgb", [](OpOptions&) {}},
        {"HSV codes", "tour_hsv_codes.png", "rgb-to-hsv", [](OpOptions&) {}},
        {"gray", "tour_gray.png", "rgb-to-gray", [](OpOptions&) {}},
        {"colour twist (sepia)", "tour_sepia.png", "twist",
         [](OpOptions& o) { o.matrix = "0.393 0.769 0.189 0; 0.349 0.686 0.168 0; 0.272 0.534 0.131 0"; }},
        {"gamma forward", "tour_gamma_fwd.png", "gamma-fwd", [](OpOptions&) {}},
        {"reduce to 4 levels, plain", "tour_reduce_none.png", "reduce", [](OpOptions& o) { o.method = "none"; }},
        {"reduce to 4 levels, Floyd-Steinberg", "tour_reduce_fs.png", "reduce", [](OpOptions& o) { o.method = "fs"; }},
        {"reduce to 4 levels, Stucki", "tour_reduce_stucki.png", "reduce", [](OpOptions& o) { o.method = "stucki"; }},
        {"reduce to 4 levels, Jarvis-Judice-Ninke", "tour_reduce_jjn.png", "reduce", [](OpOptions& o) { o.method = "jjn"; }},
        {"reduce to 4 levels, Bayer", "tour_reduce_bayer.png", "reduce", [](OpOptions& o) { o.method = "bayer"; }},
        {"reduce to 4 levels, Bayer + noise 30", "tour_reduce_bayer_noise.png", "reduce",
         [](OpOptions& o) { o.method = "bayer"; o.noise = 30; }},
        {"YCoCg reversible round trip", "tour_ycocg.png", "rgb-to-ycocg,ycocg-to-rgb", [](OpOptions& o) { o.reversible = true; }},
    };
    std::printf("\ntour of the families (files in %s/)\n", dir.string().c_str());
    std::printf("%-44s %10s %10s %8s  %s\n", "step", "ms", "Mpix/s", "max err", "file");
    const Data input{Picture(card)};
    for (const TourStep& s : steps) {
        OpOptions o;
        s.set(o);
        std::vector<const Op*> chain;
        std::string text = s.chain, missing;
        for (std::size_t pos = 0; pos <= text.size();) {
            const std::size_t end = std::min(text.find(',', pos), text.size());
            const Op* op = findOp(text.substr(pos, end - pos));
            if (op == nullptr) missing = text.substr(pos, end - pos);
            chain.push_back(op);
            pos = end + 1;
        }
        if (!missing.empty()) {
            std::printf("%-44s (op %s not built)\n", s.title, missing.c_str());
            continue;
        }
        std::vector<Work> work(chain.size());
        const Data* out = &input;
        const double sec = timeIt([&] {
            out = &input;
            for (std::size_t k = 0; k < chain.size(); ++k) {
                chain[k]->run(*out, work[k], o);
                out = &work[k].out;
            }
        }, 2);
        const Picture pic = out->kind == Kind::Packed ? Picture(unpackToRgb(out->packed)) : out->image;
        std::string err = "";
        if (pic.depth == 8 && pic.channels() == 3 && std::string(s.chain).find(',') != std::string::npos)
            err = std::to_string(compare(card, pic.i8).maxAbs);
        writePng((dir / s.file).string(), pic);
        std::printf("%-44s %10.3f %10.1f %8s  %s\n", s.title, sec * 1e3, mpix / sec, err.c_str(), s.file);
    }
    writePng((dir / "tour_gamma_curve.png").string(), gammaPlot());
    std::printf("%-44s %10s %10s %8s  %s\n", "gamma curves (fwd black, inv blue)", "", "", "", "tour_gamma_curve.png");
    std::printf("\nlossy by design (the max err column):\n"
                "  4:2:0, 4:2:2, 4:1:1 keep one chroma pair per 2x2, 2x1, 4x1 pixels: colour edges blur, flat areas\n"
                "    keep their colour; 8-bit YCbCr also rounds every colour to studio-range codes\n"
                "  RGB565/RGB444 keep 5-6 and 4 bits per channel; the dither trades banding for a fine pattern\n"
                "  XYZ: Z of white is above full scale (277 of 255 at 8 bits), and Z saturates at 8 and at 16 bits,\n"
                "    so bright blues and whites come back darker\n"
                "  Lab, LUV, HLS, HSV, PhotoYCC: codes of 8 bits round every value\n"
                "  reduce: 4 levels per channel on purpose; only the reversible YCoCg round trip is exact (0)\n");
}

}  // namespace

int runDemo(const std::string& outDir) {
    namespace fs = std::filesystem;
    fs::create_directories(outDir);
    const Image8 card = makeTestCard(1280, 720);
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
               ZORCC_CALL(zoriRGBToYCbCr_8u_C3R(card.pixels.data(), card.step(), ycc.pixels.data(), ycc.step(), roi));
           }, 5));
    report("YCbCr -> RGB 4:4:4 (interleaved, truncating)", timeIt([&] {
               ZORCC_CALL(zoriYCbCrToRGB_8u_C3R(ycc.pixels.data(), ycc.step(), back.pixels.data(), back.step(), roi));
           }, 5));

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
               ZORCC_CALL(zoriRGBToYCbCr_8u_P3R(rgbPlanes, rp.step(), yccPlanes, yp.step(), roi));
           }, 5));
    report("YCbCr planar -> RGB (rounding)", timeIt([&] {
               ZORCC_CALL(zoriYCbCrToRGB_8u_P3C3R(yccIn, yp.step(), backB.pixels.data(), backB.step(), roi));
           }, 5));

    const ErrorStats ea = compare(card, back), eb = compare(card, backB);
    std::printf("\nround-trip error        max    mean     PSNR\n");
    std::printf("  truncating decoder  %5d  %6.3f  %6.2f dB\n", ea.maxAbs, ea.meanAbs, ea.psnr);
    std::printf("  rounding decoder    %5d  %6.3f  %6.2f dB\n", eb.maxAbs, eb.meanAbs, eb.psnr);

    const fs::path dir(outDir);
    writePng((dir / "card.png").string(), card);
    writePng((dir / "luma.png").string(), yp);
    writePng((dir / "roundtrip_truncating.png").string(), back);
    writePng((dir / "roundtrip_rounding.png").string(), backB);
    writePng((dir / "error_x32.png").string(), errorMap(card, back));
    std::printf("\nwrote card.png, luma.png, roundtrip_truncating.png, roundtrip_rounding.png, error_x32.png to %s/\n",
                outDir.c_str());

    runTour(card, dir);
    return 0;
}

}  // namespace zorcc_tool
