// The tool's file layer on its own: PNG and PGM/PPM round trips and the
// PNM variants it reads.
#include "tool_test.h"

namespace {

using namespace tt;

TEST(ToolFiles, PngKeepsDepthChannelsAndSamples) {
    const fs::path d = scratch();
    for (int c = 1; c <= 4; ++c) {
        SCOPED_TRACE(c);
        const Image8 a = randomImage<std::uint8_t>(7, 3, c, 10 + c);
        zorcc_tool::writePng((d / "a.png").string(), a);
        const Picture pa = zorcc_tool::readPng((d / "a.png").string());
        ASSERT_EQ(pa.depth, 8);
        EXPECT_EQ(pa.i8.channels, c);
        EXPECT_EQ(pa.i8.pixels, a.pixels);

        const Image16 b = randomImage<std::uint16_t>(5, 4, c, 20 + c);
        zorcc_tool::writePng((d / "b.png").string(), b);
        const Picture pb = zorcc_tool::readPng((d / "b.png").string());
        ASSERT_EQ(pb.depth, 16);
        EXPECT_EQ(pb.i16.channels, c);
        EXPECT_EQ(pb.i16.pixels, b.pixels);
    }
    EXPECT_EQ(listing(d), (std::vector<std::string>{"a.png", "b.png"}));
}

TEST(ToolFiles, PnmBinaryPlainAnd16Bit) {
    const fs::path d = scratch();
    const Image16 rgb16 = randomImage<std::uint16_t>(4, 3, 3, 30);
    zorcc_tool::writePnm((d / "a.ppm").string(), Picture(rgb16));
    const Picture back = zorcc_tool::readPnm((d / "a.ppm").string());
    ASSERT_EQ(back.depth, 16);
    EXPECT_EQ(back.i16.pixels, rgb16.pixels);
    // 16-bit samples are big-endian in the file.
    const auto bytes = slurp(d / "a.ppm");
    const std::string header = "P6\n4 3\n65535\n";
    ASSERT_EQ(std::string(bytes.begin(), bytes.begin() + static_cast<long>(header.size())), header);
    EXPECT_EQ(bytes[header.size()], rgb16.pixels[0] >> 8);

    // Plain PGM with comments and a maxval of 15, rescaled to 0..255.
    const std::string plain = "P2\n# a comment\n3 1\n15\n0 15\n 7\n";
    spit(d / "p.pgm", std::vector<std::uint8_t>(plain.begin(), plain.end()));
    const Picture p = zorcc_tool::readPnm((d / "p.pgm").string());
    ASSERT_EQ(p.depth, 8);
    EXPECT_EQ(p.i8.pixels, (std::vector<std::uint8_t>{0, 255, 119}));

    const std::string shortPpm = "P6\n4 4\n255\nabc";
    spit(d / "s.ppm", std::vector<std::uint8_t>(shortPpm.begin(), shortPpm.end()));
    EXPECT_THROW(zorcc_tool::readPnm((d / "s.ppm").string()), std::runtime_error);
    EXPECT_THROW(zorcc_tool::writePnm((d / "x.ppm").string(), Picture(Image8(2, 2, 4))), std::runtime_error);
    EXPECT_FALSE(fs::exists(d / "x.ppm"));
    EXPECT_FALSE(fs::exists(d / "x.ppm.part"));
}

}  // namespace
