// zorcc convert on bad input: one clear line on standard error, a non-zero
// exit, and no output file (nor a temporary) left behind; an existing output
// file is left as it was.
#include "tool_test.h"

namespace {

using namespace tt;
using zorcc_tool::YuvFormat;

TEST(ToolErrors, TruncatedY4m) {
    const fs::path d = scratch();
    std::vector<zorcc_tool::YuvFrame> frames = {randomFrame(YuvFormat::I420, 8, 4, 1), randomFrame(YuvFormat::I420, 8, 4, 2)};
    auto bytes = y4mOf(frames, "420jpeg");
    bytes.resize(bytes.size() - 5);  // the second frame loses its last bytes
    spit(d / "cut.y4m", bytes);
    fails(d, "convert cut.y4m out.y4m --op relayout --to i422", "truncated", "out.y4m");
    fails(d, "convert cut.y4m out%d.png --op decode", "truncated", "out0000.png");
    // The first frame alone is whole.
    EXPECT_EQ(zorcc(d, "convert cut.y4m first.png --op decode --frame 0").code, 0);

    spit(d / "head.y4m", std::vector<std::uint8_t>{'Y', 'U', 'V', '4', 'M', 'P', 'E', 'G', '2', ' ', 'W', '8'});
    fails(d, "convert head.y4m out.png --op decode", "truncated");
    const std::string odd = "YUV4MPEG2 W7 H4 C420jpeg\n";
    spit(d / "odd.y4m", std::vector<std::uint8_t>(odd.begin(), odd.end()));
    fails(d, "convert odd.y4m out.png --op decode", "even width");
}

TEST(ToolErrors, PngWithACorruptChunk) {
    const fs::path d = scratch();
    zorcc_tool::writePng((d / "good.png").string(), randomImage<std::uint8_t>(8, 8, 3, 3));
    auto bytes = slurp(d / "good.png");
    // The IDAT chunk's data: flip a byte so that its CRC no longer matches.
    const std::string idat = "IDAT";
    auto at = std::search(bytes.begin(), bytes.end(), idat.begin(), idat.end());
    ASSERT_NE(at, bytes.end());
    at[6] ^= 0x55;
    spit(d / "bad.png", bytes);
    fails(d, "convert bad.png out.png --op gamma-fwd", "bad.png");
    bytes = slurp(d / "good.png");
    bytes.resize(bytes.size() / 2);
    spit(d / "short.png", bytes);
    fails(d, "convert short.png out.png --op gamma-fwd", "short.png");
    spit(d / "text.png", std::vector<std::uint8_t>{'h', 'e', 'l', 'l', 'o'});
    fails(d, "convert text.png out.png --op gamma-fwd", "not a PNG");
}

TEST(ToolErrors, RawSizeAndFormatMismatch) {
    const fs::path d = scratch();
    spit(d / "in.yuv", std::vector<std::uint8_t>(16 * 10 * 3 / 2 + 1, 128));
    fails(d, "convert in.yuv out.png --op decode --size 16x10 --format i420", "size mismatch");
    fails(d, "convert in.yuv out.png --op decode --size 16x10", "--format");
    fails(d, "convert in.yuv out.png --op decode --format i420", "--size");
    fails(d, "convert in.yuv out.png --op decode --size 16x10 --format yv13", "unknown format");
    fails(d, "convert in.yuv out.png --op decode --size 16 --format i420", "bad size");
    fails(d, "convert in.yuv out.png --op decode --size 15x10 --format i420", "even width");
}

TEST(ToolErrors, UnknownOpOptionOrFileAndWrongKind) {
    const fs::path d = scratch();
    zorcc_tool::writePng((d / "in.png").string(), randomImage<std::uint8_t>(9, 5, 3, 4));
    fails(d, "convert in.png out.png --op frobnicate", "unknown op 'frobnicate'");
    fails(d, "convert in.png out.png --op decode,frob", "unknown op 'frob'");
    fails(d, "convert in.png out.png --op gamma-fwd --frobnicate", "frobnicate");
    fails(d, "convert in.png out.png --op reduce --method floyd", "floyd");
    fails(d, "convert missing.png out.png --op gamma-fwd", "missing.png");
    fails(d, "convert in.png out.png --op decode", "YUV frame");
    fails(d, "convert in.png out.yuv --op encode --to i420", "even width", "out.yuv");
    fails(d, "convert in.png out.yuv --op gamma-fwd", "raw file", "out.yuv");
    zorcc_tool::writePng((d / "even.png").string(), randomImage<std::uint8_t>(8, 4, 3, 5));
    fails(d, "convert even.png out.y4m --op encode --to nv12", "Y4M", "out.y4m");
    fails(d, "convert in.png out.png --op rgb-to-gray --weights 1,2", "--weights");
    fails(d, "convert in.png nodir/out.png --op gamma-fwd", "nodir");
}

TEST(ToolErrors, AFailedConversionLeavesAnExistingOutputAlone) {
    const fs::path d = scratch();
    spit(d / "out.png", std::vector<std::uint8_t>{'o', 'l', 'd'});
    spit(d / "in.yuv", std::vector<std::uint8_t>(100, 1));
    const Result r = zorcc(d, "convert in.yuv out.png --op decode --size 8x8 --format i420");
    EXPECT_NE(r.code, 0);
    EXPECT_EQ(slurp(d / "out.png"), (std::vector<std::uint8_t>{'o', 'l', 'd'}));
    EXPECT_EQ(listing(d), (std::vector<std::string>{"in.yuv", "out.png"}));
}

}  // namespace
