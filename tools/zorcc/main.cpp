// zorcc: command-line front end of the colour-conversion library.
//   zorcc version, zorcc --version    the library's version record and thread count
//   zorcc list                        every op of `convert` and the functions it calls
//   zorcc convert IN OUT --op OP ...  one conversion (or a chain) of an image or video
//   zorcc demo [--out DIR]            the built-in test card through the library
//   zorcc bench [--size WxH]          times of the main conversions
#include "commands.h"

#include "zorcc.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <stdexcept>
#include <string>

namespace {

const char* const kExamples = R"(
Examples:
  zorcc convert clip.y4m frame10.png --op decode --frame 10
  zorcc convert photo.png photo.nv12 --op encode --to nv12
  ffmpeg -i in.mp4 -f yuv4mpegpipe - | zorcc convert - - --op relayout --to i422 | ffmpeg -i - out.mkv
  zorcc list                       every op of convert and the library functions it calls
  zorcc convert --help             the options of convert, with more examples
)";

const char* const kConvertExamples = R"(
Examples:
  # One frame of a Y4M video (8 bits, or 9 to 16 bits reduced to 8) to PNG
  zorcc convert clip.y4m frame10.png --op decode --frame 10
  # 10-bit video to 8-bit 4:2:0 with Floyd-Steinberg dither, through pipes
  ffmpeg -i in.mkv -pix_fmt yuv420p10le -strict -1 -f yuv4mpegpipe - | zorcc convert - out.y4m --op relayout --to i420 --in-dither fs
  # PNG to raw NV12, and back to look at it
  zorcc convert photo.png photo.nv12 --op encode --to nv12
  zorcc convert photo.nv12 check.png --op decode --size 1280x720 --format nv12
  # Dithered RGB565 words (R in bits 0-4, B in 11-15: ffmpeg reads them as -pix_fmt bgr565le)
  zorcc convert photo.png photo.rgb565 --op rgb565 --dither
  # Lab round trip through 16-bit codes
  zorcc convert photo.png lab.png --op rgb-to-lab --bits 16
  zorcc convert lab.png back.png --op lab-to-rgb
Y4M outputs keep the input's frame rate, interlacing, aspect ratio, colour range and chroma siting;
full-range input (XCOLORRANGE=FULL) is refused by the ops that read studio-range YCbCr.
)";

void printVersion() {
    const ZorLibraryVersion* v = zorccGetLibVersion();
    std::printf("library      %s\n", v->libraryName);
    std::printf("version      %s (%d.%d, build series %d, build %d)\n", v->versionText, v->majorVersion,
                v->minorVersion, v->buildSeries, v->buildNumber);
    std::printf("target cpu   %.4s\n", v->targetCpu);
    std::printf("build date   %s\n", v->buildDate);
    std::printf("threads      %d\n", threads_omp_of_n_zor);
}

}  // namespace

int main(int argc, char** argv) {
    using namespace zorcc_tool;
    CLI::App app{"zorcc: colour conversions of images and video with the zorcc library"};
    app.require_subcommand(1);
    app.set_version_flag("--version", [] {
        printVersion();
        return std::string();
    }, "print the library's version record and thread count");
    app.footer(kExamples);
    int threads = 0;
    app.add_option("--threads", threads, "team size of the parallel conversions (default: all processors)")
        ->check(CLI::PositiveNumber);

    app.add_subcommand("version", "print the library's version record and thread count");

    auto* list = app.add_subcommand("list", "list every op of convert with the library functions it calls");
    bool verbose = false;
    list->add_flag("-v,--verbose", verbose, "one line per library function");

    auto* convert = app.add_subcommand("convert", "convert an image or video file with one op or a chain of ops");
    ConvertArgs ca;
    convert->add_option("IN", ca.in,
                        "input, - for standard input: PNG, PPM/PGM, Y4M (known by their first bytes), or raw frames "
                        "(with --size and --format)")
        ->required();
    convert->add_option("OUT", ca.out,
                        "output, - for standard output: .png, .ppm/.pgm (a %d in the name numbers several frames), .y4m, "
                        "or raw (.yuv, .rgb565, ...); a FIFO or device is written as it is")
        ->required();
    convert->add_option("--in-format", ca.inFormat, "png|pnm|y4m|raw: the input's format, whatever it looks like")
        ->check(CLI::IsMember({"png", "pnm", "y4m", "raw"}));
    convert->add_option("--out-format", ca.outFormat,
                        "png|pnm|y4m|raw: the output's format (default: by extension; standard output takes the input's)")
        ->check(CLI::IsMember({"png", "pnm", "y4m", "raw"}));
    convert->add_option("--in-dither", ca.inDither,
                        "none|fs|jjn|stucki|bayer: how Y4M samples of 9 to 16 bits are reduced to 8 bits")
        ->check(CLI::IsMember({"none", "fs", "jjn", "stucki", "bayer"}))
        ->capture_default_str();
    convert->add_option("--op", ca.ops, "op, or ops separated by commas and applied in order (zorcc list)")->required();
    convert->add_option("--size", ca.size, "WxH of a raw input");
    convert->add_option("--format", ca.format,
                        "layout of a raw input: i420|nv12|yuy2|uyvy|i422|i444|i411|bgr565|bgr555 (16-bit words, "
                        "little-endian, named from bit 0 up: bgr565 has B in bits 0-4, ffmpeg's rgb565le)");
    convert->footer(kConvertExamples);
    convert->add_option("--to", ca.options.to, "YUV layout written by encode, relayout, deinterlace: " + yuvFormatList());
    convert->add_option("--frame", ca.frame, "convert only this frame (counted from 0)")->check(CLI::NonNegativeNumber);
    convert->add_option("--frames", ca.frames, "convert at most this many frames")->check(CLI::PositiveNumber);
    convert->add_option("--matrix", ca.options.matrix, "twist: 12 numbers, 'r0 g0 b0 o0; r1 g1 b1 o1; r2 g2 b2 o2'");
    convert->add_option("--weights", ca.options.weights, "rgb-to-gray: three weights 'wr,wg,wb'");
    convert->add_option("--method", ca.options.method, "reduce: none|fs|jjn|stucki|bayer")
        ->check(CLI::IsMember({"none", "fs", "jjn", "stucki", "bayer"}))
        ->capture_default_str();
    convert->add_option("--levels", ca.options.levels, "reduce: output levels per channel (2..256, 16-bit: 2..65536)")
        ->capture_default_str();
    convert->add_option("--noise", ca.options.noise, "reduce: noise added to the dither threshold, 0..100")
        ->check(CLI::Range(0, 100));
    convert->add_flag("--dither", ca.options.dither, "rgb565/rgb555/rgb444 ops: 4x4 ordered dither");
    convert->add_option("--bits", ca.options.bits, "8 or 16: sample depth where an op offers both")
        ->check(CLI::IsMember({8, 16}));
    convert->add_flag("--reversible", ca.options.reversible, "YCoCg ops: the lossless lifting form");
    convert->add_flag("-q,--quiet", ca.quiet, "no progress bar (drawn only on a terminal) and no notes");

    auto* demo = app.add_subcommand("demo", "convert the built-in test card and write the results as PNG files");
    std::string outDir = "zorcc-demo";
    demo->add_option("--out", outDir, "folder for the PNG files (created if missing)")->capture_default_str();

    auto* bench = app.add_subcommand("bench", "time the main conversions on random images");
    std::string benchSize = "1920x1080";
    int runs = 5;
    bench->add_option("--size", benchSize, "image size WxH")->capture_default_str();
    bench->add_option("--runs", runs, "runs per conversion (the best is shown)")->check(CLI::PositiveNumber)->capture_default_str();
    // --threads may also follow the subcommand.
    bench->add_option("--threads", threads, "team size of the parallel conversions")->check(CLI::PositiveNumber);
    convert->add_option("--threads", threads, "team size of the parallel conversions")->check(CLI::PositiveNumber);

    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& e) {
        return app.exit(e);
    } catch (const CLI::CallForAllHelp& e) {
        return app.exit(e);
    } catch (const CLI::CallForVersion&) {
        return 0;
    } catch (const CLI::ParseError& e) {
        std::fprintf(stderr, "zorcc: %s (zorcc --help)\n", e.what());
        return 2;
    }
    if (threads > 0) threads_omp_of_n_zor = threads;
    try {
        if (app.got_subcommand("version")) printVersion();
        if (*list) return runList(verbose);
        if (*convert) return runConvert(ca);
        if (*demo) return runDemo(outDir);
        if (*bench) return runBench(benchSize, runs);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "zorcc: %s\n", e.what());
        return 1;
    }
    return 0;
}
