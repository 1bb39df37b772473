// zorcc convert on video streams: pipes, FIFOs, links and read-only
// outputs, formats known by content, Y4M of more than 8 bits and the header
// fields a Y4M output carries over.
#include "tool_test.h"

#include <sys/stat.h>
#include <thread>

namespace {

using namespace tt;
using zorcc_tool::YuvFormat;
using zorcc_tool::YuvFrame;

constexpr int W = 16, H = 10;

// The frames of a Y4M stream after its header.
std::vector<std::uint8_t> body(const std::vector<std::uint8_t>& y4m) {
    return {std::find(y4m.begin(), y4m.end(), '\n') + 1, y4m.end()};
}
std::string header(const std::vector<std::uint8_t>& y4m) {
    return {y4m.begin(), std::find(y4m.begin(), y4m.end(), '\n')};
}

TEST(ToolStreams, PipesInAndOutAndFormatsByContent) {
    const fs::path d = scratch();
    const std::vector<YuvFrame> frames = {randomFrame(YuvFormat::I420, W, H, 1), randomFrame(YuvFormat::I420, W, H, 2)};
    const auto clip = y4mOf(frames, "420jpeg");
    spit(d / "clip.bin", clip);
    // Y4M in a pipe, to 4:2:2 on standard output, and back through a second pipe.
    const std::string tool = " '" + std::string(ZORCC_EXE) + "' ";
    ok(zorcc(d, "convert - - --op relayout --to i422 |" + tool + "convert - back.y4m --op relayout --to i411", "cat clip.bin |"));
    ok(zorcc(d, "convert clip.bin mid.y4m --op relayout --to i422 &&" + tool + "convert mid.y4m want.y4m --op relayout --to i411"));
    EXPECT_EQ(header(slurp(d / "mid.y4m")), "YUV4MPEG2 W16 H10 F30000:1001 Ip A1:1 C422");
    EXPECT_EQ(slurp(d / "back.y4m"), slurp(d / "want.y4m"));

    // PNG and raw frames in pipes; a PNG named .dat; --out-format over the extension.
    const Image8 rgb = randomImage<std::uint8_t>(W, H, 3, 3);
    zorcc_tool::writePng((d / "photo.dat").string(), rgb);
    ok(zorcc(d, "convert - a.png --op gamma-fwd", "cat photo.dat |"));
    ok(zorcc(d, "convert photo.dat b.png --op gamma-fwd"));
    EXPECT_EQ(slurp(d / "a.png"), slurp(d / "b.png"));
    spit(d / "frames.raw", rawOf(frames[0]));
    ok(zorcc(d, "convert - out.bin --out-format y4m --op relayout --to i420 --size 16x10 --format i420",
             "cat frames.raw |"));
    EXPECT_EQ(body(slurp(d / "out.bin")), body(y4mOf({frames[0]}, "420jpeg")));
    const Result cut = zorcc(d, "convert - x.yuv --op relayout --to nv12 --size 16x12 --format i420", "cat frames.raw |");
    EXPECT_NE(cut.err.find("size mismatch"), std::string::npos) << cut.err;
    EXPECT_FALSE(fs::exists(d / "x.yuv"));
}

TEST(ToolStreams, FifoLinkAndReadOnlyOutputs) {
    const fs::path d = scratch();
    spit(d / "clip.y4m", y4mOf({randomFrame(YuvFormat::I420, W, H, 4)}, "420jpeg"));
    ok(zorcc(d, "convert clip.y4m want.nv12 --op relayout --to nv12"));
    const auto want = slurp(d / "want.nv12");

    // A FIFO is written through, and its reader gets every byte (a reader
    // left waiting on a FIFO that was replaced gives up after a while).
    ASSERT_EQ(::mkfifo((d / "fifo").c_str(), 0644), 0);
    std::thread reader([&] { std::system(("cd '" + d.string() + "' && timeout 20 cat fifo > got.nv12").c_str()); });
    const Result r = zorcc(d, "convert clip.y4m fifo --op relayout --to nv12");
    reader.join();
    ok(r);
    EXPECT_EQ(slurp(d / "got.nv12"), want);
    EXPECT_TRUE(fs::is_fifo(d / "fifo"));

    // A link stays a link, its target gets the data; a dangling link makes its target.
    spit(d / "target.nv12", {1, 2, 3});
    fs::create_symlink("target.nv12", d / "link.nv12");
    fs::create_symlink("new.nv12", d / "dangling.nv12");
    ok(zorcc(d, "convert clip.y4m link.nv12 --op relayout --to nv12"));
    ok(zorcc(d, "convert clip.y4m dangling.nv12 --op relayout --to nv12"));
    EXPECT_TRUE(fs::is_symlink(d / "link.nv12") && fs::is_symlink(d / "dangling.nv12"));
    EXPECT_EQ(slurp(d / "target.nv12"), want);
    EXPECT_EQ(slurp(d / "new.nv12"), want);

    // An output is replaced with the mode it had; a read-only one is refused.
    fs::permissions(d / "target.nv12", fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    ok(zorcc(d, "convert clip.y4m target.nv12 --op relayout --to i420"));
    EXPECT_EQ(fs::status(d / "target.nv12").permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    spit(d / "ro.nv12", {7});
    fs::permissions(d / "ro.nv12", fs::perms::owner_read);
    const auto before = listing(d);
    const Result ro = zorcc(d, "convert clip.y4m ro.nv12 --op relayout --to nv12");
    EXPECT_NE(ro.code, 0);
    EXPECT_NE(ro.err.find("ro.nv12 exists and is read-only"), std::string::npos) << ro.err;
    EXPECT_EQ(slurp(d / "ro.nv12"), std::vector<std::uint8_t>{7});
    EXPECT_EQ(listing(d), before);
}

// 10-bit samples in a little-endian pair of bytes each.
std::vector<std::uint8_t> le16(const std::vector<std::uint16_t>& v) {
    std::vector<std::uint8_t> b;
    for (auto x : v) b.push_back(static_cast<std::uint8_t>(x)), b.push_back(static_cast<std::uint8_t>(x >> 8));
    return b;
}

TEST(ToolStreams, DeepY4mIsReducedByTheLibrary) {
    const fs::path d = scratch();
    // Every 10-bit value once: without dither each goes to the nearest
    // 8-bit level (ties down), so studio black 64 and white 940 land on 16
    // and 235.
    std::vector<std::uint16_t> all(3 * 32 * 32, 512);
    for (int v = 0; v < 1024; ++v) all[v] = static_cast<std::uint16_t>(v);
    spit(d / "all.y4m", y4mBytes(32, 32, "C444p10", {le16(all)}));
    ok(zorcc(d, "convert all.y4m all.yuv --op relayout --to i444 --quiet"));
    const auto got = slurp(d / "all.yuv");
    for (int v = 0; v < 1024; ++v) ASSERT_EQ(got[v], std::min(255, (v + 1) >> 2)) << v;

    // Dithered, at 10 and 16 bits (the unused high bits of 10-bit samples
    // are ignored): the library's 16u8u reduction of each plane.
    for (const int bits : {10, 16}) {
        SCOPED_TRACE(bits);
        std::vector<std::uint16_t> s(W * H * 3 / 2);
        std::mt19937 rng(bits);
        for (auto& v : s) v = static_cast<std::uint16_t>(rng());
        spit(d / "deep.y4m", y4mBytes(W, H, "F25:1 C420p" + std::to_string(bits) + " XYSCSS=420P10", {le16(s), le16(s)}));
        const Result r = zorcc(d, "convert deep.y4m out.y4m --op relayout --to i420 --in-dither fs");
        ok(r);
        EXPECT_NE(r.err.find(std::to_string(bits) + "-bit samples reduced to 8 bits (fs"), std::string::npos) << r.err;
        YuvFrame want(YuvFormat::I420, W, H);
        std::size_t at = 0;
        for (int i = 0; i < 3; ++i) {
            const int pw = want.planeWidth(i), ph = want.planeHeight(i);
            std::vector<std::uint16_t> wide(s.begin() + at, s.begin() + at + pw * ph);
            for (auto& v : wide) {
                const unsigned x = (v & ((1u << bits) - 1)) << (16 - bits);
                v = static_cast<std::uint16_t>(std::min(65535u, x + (x >> 8)));
            }
            ASSERT_EQ(zoriReduceBits_16u8u_C1R(wide.data(), 2 * pw, want.plane(i), pw, ZoriSize{pw, ph}, 0, zorDitherFS, 256), 0);
            at += wide.size();
        }
        const auto out = slurp(d / "out.y4m");
        EXPECT_EQ(header(out), "YUV4MPEG2 W16 H10 F25:1 Ip C420");
        EXPECT_EQ(body(out), body(y4mOf({want, want}, "420")));
    }
}

TEST(ToolStreams, HeaderFieldsCarriedAndFullRangeRefused) {
    const fs::path d = scratch();
    const YuvFrame f = randomFrame(YuvFormat::I420, W, H, 5);
    spit(d / "tv.y4m", y4mBytes(W, H, "F30000:1001 It A16:11 C420mpeg2 XCOLORRANGE=LIMITED XYSCSS=420MPEG2 XFOO=1",
                                {rawOf(f)}));
    const Result r = zorcc(d, "convert tv.y4m same.y4m --op relayout --to i420");
    ok(r);
    EXPECT_NE(r.err.find("interlaced (It)"), std::string::npos) << r.err;
    EXPECT_NE(r.err.find("C420mpeg2"), std::string::npos) << r.err;
    EXPECT_EQ(header(slurp(d / "same.y4m")), "YUV4MPEG2 W16 H10 F30000:1001 It A16:11 C420mpeg2 XCOLORRANGE=LIMITED XFOO=1");
    ok(zorcc(d, "convert tv.y4m prog.y4m --op deinterlace --quiet"));
    EXPECT_EQ(header(slurp(d / "prog.y4m")), "YUV4MPEG2 W16 H10 F30000:1001 Ip A16:11 C420mpeg2 XCOLORRANGE=LIMITED XFOO=1");
    // Decoded and encoded again, the frame is new studio-range 4:2:0.
    ok(zorcc(d, "convert tv.y4m enc.y4m --op decode,encode --quiet"));
    EXPECT_EQ(header(slurp(d / "enc.y4m")), "YUV4MPEG2 W16 H10 F30000:1001 It A16:11 C420jpeg XCOLORRANGE=LIMITED XFOO=1");

    spit(d / "full.y4m", y4mBytes(W, H, "C420jpeg XCOLORRANGE=FULL", {rawOf(f)}));
    ok(zorcc(d, "convert full.y4m full2.y4m --op relayout --to i422"));
    EXPECT_EQ(header(slurp(d / "full2.y4m")), "YUV4MPEG2 W16 H10 F25:1 Ip C422 XCOLORRANGE=FULL");
    fails(d, "convert full.y4m out.png --op decode", "full range (XCOLORRANGE=FULL), and decode reads studio-range");
    fails(d, "convert full.y4m out.rgb565 --op relayout,rgb565 --to i420", "rgb565 reads studio-range", "out.rgb565");
}

TEST(ToolStreams, BadTagsAndHugeDeclaredFrames) {
    const fs::path d = scratch();
    for (const char* tag : {"mono", "420p8", "422p17", "444alpha", "420jpegx"}) {
        spit(d / "bad.y4m", y4mBytes(W, H, std::string("C") + tag, {std::vector<std::uint8_t>(W * H * 4)}));
        fails(d, "convert bad.y4m out.png --op decode", std::string("colour space C") + tag + " is not supported");
    }
    // 768 MB declared in a few bytes: refused before the frame is allocated,
    // from a file and from a pipe (where memory is capped to prove it).
    spit(d / "huge.y4m", y4mBytes(16000, 16000, "C444", {{1, 2, 3}}));
    fails(d, "convert huge.y4m out.png --op decode", "a 16000x16000 C444 frame takes 768000006 bytes, the file has 9 left");
#ifndef __SANITIZE_ADDRESS__
    const Result r = zorcc(d, "convert - out.png --op decode", "ulimit -v 400000; cat huge.y4m |");
    EXPECT_NE(r.err.find("truncated Y4M: frame 0 is incomplete"), std::string::npos) << r.err;
#endif
}

TEST(ToolStreams, ProgressOnlyOnATerminal) {
    const fs::path d = scratch();
    spit(d / "clip.y4m", y4mOf({randomFrame(YuvFormat::I420, W, H, 6), randomFrame(YuvFormat::I420, W, H, 7)}, "420jpeg"));
    const Result quiet = zorcc(d, "convert clip.y4m a.yuv --op relayout --to nv12");
    ok(quiet);
    EXPECT_EQ(quiet.err, "");
    if (std::system("script --version >/dev/null 2>&1") != 0) GTEST_SKIP() << "no script(1) for a terminal";
    const Result tty = zorcc(d, "convert clip.y4m b.yuv --op relayout --to nv12\" /dev/null", "script -qec \"");
    ok(tty);
    EXPECT_NE(tty.out.find("2/2 frames"), std::string::npos) << tty.out;
    EXPECT_NE(tty.out.find("frames/s  0:00 left"), std::string::npos) << tty.out;
}

}  // namespace
