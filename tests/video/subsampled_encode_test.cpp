// RGB/BGR to subsampled YCbCr: every member against one per-pixel model on
// many sizes (odd ones, vector widths and tails), top-down and bottom-up,
// padded and contiguous; check orders; colours on which each member's own
// bias or rounding decides the byte.
#include "subsampled_ref.h"

namespace {

using ref::In, ref::Out;
constexpr int kR = ref::kRounded, kT = ref::kTruncated;

const std::vector<ref::Encoder> kEncoders = {
    {"RGBToYCbCr422_C3C2R", ZT_FN(zoriRGBToYCbCr422_8u_C3C2R), In::Rgb, Out::YCbCr, 2, 1, 65536, 65536, kT, 1, 1, false, false, false},
    {"RGBToYCbCr422_P3C2R", ZT_FN(zoriRGBToYCbCr422_8u_P3C2R), In::RgbPlanes, Out::YCbCr, 2, 1, 65536, 65536, kT, 1, 1, false, false, false},
    {"BGRToCbYCr422_AC4C2R", ZT_FN(zoriBGRToCbYCr422_8u_AC4C2R), In::Bgra, Out::CbYCr, 2, 1, 65536, 65534, kR, 1, 1, false, false, false},
    {"RGBToCbYCr422_C3C2R", ZT_FN(zoriRGBToCbYCr422_8u_C3C2R), In::Rgb, Out::CbYCr, 0, 1, 0, 0, kR, 1, 1, false, false, false},
    {"RGBToCbYCr422Gamma_C3C2R", ZT_FN(zoriRGBToCbYCr422Gamma_8u_C3C2R), In::Rgb, Out::CbYCr, 0, 1, 0, 0, kR, 1, 1, false, false, true},
    {"BGRToYCbCr422_C3C2R", ZT_FN(zoriBGRToYCbCr422_8u_C3C2R), In::Bgr, Out::YCbCr, 2, 1, 16384, 16384, kR, 2, 1, false, true, false},
    {"BGRToYCbCr422_AC4C2R", ZT_FN(zoriBGRToYCbCr422_8u_AC4C2R), In::Bgra, Out::YCbCr, 2, 1, 16384, 16384, kR, 2, 1, false, true, false},
    {"BGRToYCbCr422_C3P3R", ZT_FN(zoriBGRToYCbCr422_8u_C3P3R), In::Bgr, Out::Planes, 2, 1, 16384, 16384, kR, 2, 1, false, true, false},
    {"BGRToYCbCr422_AC4P3R", ZT_FN(zoriBGRToYCbCr422_8u_AC4P3R), In::Bgra, Out::Planes, 2, 1, 16384, 16384, kR, 2, 1, false, true, false},
    {"RGBToYCbCr420_C3P3R", ZT_FN(zoriRGBToYCbCr420_8u_C3P3R), In::Rgb, Out::Planes, 2, 2, 32768, 32768, kR, 1, 1, true, false, false},
    {"BGRToYCbCr420_C3P3R", ZT_FN(zoriBGRToYCbCr420_8u_C3P3R), In::Bgr, Out::Planes, 2, 2, 32768, 32768, kR, 2, 2, true, true, false},
    {"BGRToYCbCr420_AC4P3R", ZT_FN(zoriBGRToYCbCr420_8u_AC4P3R), In::Bgra, Out::Planes, 2, 2, 32768, 32768, kR, 2, 2, true, true, false},
    {"BGRToYCrCb420_C3P3R", ZT_FN(zoriBGRToYCrCb420_8u_C3P3R), In::Bgr, Out::PlanesSwapped, 2, 2, 32768, 32768, kR, 2, 2, true, true, false},
    {"BGRToYCrCb420_AC4P3R", ZT_FN(zoriBGRToYCrCb420_8u_AC4P3R), In::Bgra, Out::PlanesSwapped, 2, 2, 32768, 32768, kR, 2, 2, true, true, false},
    {"BGRToYCbCr411_C3P3R", ZT_FN(zoriBGRToYCbCr411_8u_C3P3R), In::Bgr, Out::Planes, 4, 1, 32768, 32768, kR, 4, 1, true, true, false},
    {"BGRToYCbCr411_AC4P3R", ZT_FN(zoriBGRToYCbCr411_8u_AC4P3R), In::Bgra, Out::Planes, 4, 1, 32768, 32768, kR, 4, 1, true, true, false},
};

TEST(SubsampledEncoders, MatchModelOnAllSizes) {
    std::uint32_t seed = 1;
    for (const ref::Encoder& e : kEncoders)
        for (int w : {1, 2, 3, 4, 5, 7, 8, 9, 23, 130})
            for (int h : {1, 2, 3, 4, 5})
                for (int pad : {0, 7})
                    for (bool flip : {false, true}) ref::expectEncoderMatchesModel(e, w, h, flip, pad, ++seed);
}

TEST(SubsampledEncoders, CheckOrder) {
    for (const ref::Encoder& e : kEncoders) {
        SCOPED_TRACE(e.name);
        ref::EncodeImages im(e, 8, 4, false, 3, 5), before(e, 8, 4, false, 3, 5);
        EXPECT_EQ(im.call(0, 0, 1), zorStsNullPtr);
        EXPECT_EQ(im.call(8, 4, 2), zorStsNullPtr);
        EXPECT_EQ(e.packed() ? zorStsNullPtr : im.call(8, 4, 3), zorStsNullPtr);
        EXPECT_EQ(im.call(e.minW - 1, 4), zorStsBadSize);
        EXPECT_EQ(im.call(8, e.minH - 1), zorStsBadSize);
        for (int plane = 0; plane < 3 && (!e.packed() || e.in == In::RgbPlanes); ++plane) {
            // The RGB members look at the planes after the size, the BGR members before it.
            EXPECT_EQ(im.call(0, 4, 4 + plane), e.planesFirst ? zorStsNullPtr : zorStsBadSize);
            EXPECT_EQ(im.call(8, 4, 4 + plane), zorStsNullPtr);
        }
        // Only the gamma member validates steps, after the size.
        const int zero = -ref::View{&im.src, false}.step();
        EXPECT_EQ(im.call(0, 4, 0, zero), zorStsBadSize);
        EXPECT_TRUE(im.sameDst(before));
        EXPECT_EQ(im.call(8, 4, 0, zero), e.gamma ? zorStsStepErr : im.expected(8, 4));
    }
}

// Whole groups of one colour each, colours chosen so that each member's own
// chroma bias, the truncated Y1, the filter's bias one unit below a half and
// the full half of a last odd pixel decide a byte.
TEST(SubsampledEncoders, OwnBiasesDecideBytes) {
    using ref::chroma;
    const auto cb = [](ref::Rgb c) { return ref::pcb(c.r, c.g, c.b); };
    const auto cr = [](ref::Rgb c) { return ref::pcr(c.r, c.g, c.b); };
    const std::function<bool(ref::Rgb)> wanted[] = {
        [&](ref::Rgb c) { return chroma(2 * cb(c), 17, 65536) != chroma(2 * cb(c), 17, 16384); },
        [&](ref::Rgb c) { return chroma(2 * cr(c), 17, 65536) != chroma(2 * cr(c), 17, 65534); },
        [&](ref::Rgb c) { return chroma(4 * cr(c), 18, 131072) != chroma(4 * cr(c), 18, 32768); },
        [&](ref::Rgb c) { return ref::yOf(c, kR) != ref::yOf(c, kT); },
        [&](ref::Rgb c) { return ((ref::floorShift(cb(c), 1) + 2 * ref::floorShift(cb(c), 2)) & 0xFFFF) == 32768; },
        [&](ref::Rgb c) { return (cb(c) & 0xFFFF) == 32767; },  // the last, odd pixel
    };
    std::vector<ref::Rgb> colours;
    for (const auto& want : wanted) {
        int v = 0;
        while (v < (1 << 24) && !want({v >> 16, (v >> 8) & 255, v & 255})) ++v;
        ASSERT_LT(v, 1 << 24);
        colours.push_back({v >> 16, (v >> 8) & 255, v & 255});
    }
    const int w = 4 * static_cast<int>(colours.size()) + 1;  // 4 x 2 blocks, and a last odd pixel
    for (const ref::Encoder& e : kEncoders) {
        ref::EncodeImages got(e, w, 2, false, 0, 1), want(e, w, 2, false, 0, 1);
        for (ref::EncodeImages* im : {&got, &want})
            for (int i = 0; i < 6 * w; ++i) {  // sample k of pixel x of both rows
                const int y = i / 3 / w, x = i / 3 % w, k = i % 3, at = e.in == In::Rgb ? k : 2 - k;
                const ref::Rgb c = colours[std::min(x / 4, 5)];
                (e.in == In::RgbPlanes ? im->srcPlanes.p[k].row(y)[x] : im->src.row(y)[x * ref::EncodeImages::bytesIn(e.in) + at]) =
                    Zor8u(k == 0 ? c.r : k == 1 ? c.g : c.b);
            }
        want.model(w, 2);
        EXPECT_GE(got.call(w, 2), 0) << e.name;
        EXPECT_TRUE(got.sameDst(want)) << e.name;
    }
}

}  // namespace
