// BGR565 / BGR555 words to planar subsampled YCbCr: every member against the
// per-pixel model on many sizes and on every word; the word step rounded down.
#include "subsampled_ref.h"

namespace {

using ref::In, ref::Out;
constexpr int kR = ref::kRounded;

const std::vector<ref::Encoder> kEncoders = {
    {"565To422", ZT_FN(zoriBGR565ToYCbCr422_16u8u_C3P3R), In::W565, Out::Planes, 2, 1, 16384, 16384, kR, 2, 1, false, true, false},
    {"555To422", ZT_FN(zoriBGR555ToYCbCr422_16u8u_C3P3R), In::W555, Out::Planes, 2, 1, 16384, 16384, kR, 2, 1, false, true, false},
    {"565To420", ZT_FN(zoriBGR565ToYCbCr420_16u8u_C3P3R), In::W565, Out::Planes, 2, 2, 32768, 32768, kR, 2, 2, false, true, false},
    {"555To420", ZT_FN(zoriBGR555ToYCbCr420_16u8u_C3P3R), In::W555, Out::Planes, 2, 2, 32768, 32768, kR, 2, 2, false, true, false},
    {"565ToYCrCb420", ZT_FN(zoriBGR565ToYCrCb420_16u8u_C3P3R), In::W565, Out::PlanesSwapped, 2, 2, 32768, 32768, kR, 2, 2, false, true, false},
    {"555ToYCrCb420", ZT_FN(zoriBGR555ToYCrCb420_16u8u_C3P3R), In::W555, Out::PlanesSwapped, 2, 2, 32768, 32768, kR, 2, 2, false, true, false},
    {"565To411", ZT_FN(zoriBGR565ToYCbCr411_16u8u_C3P3R), In::W565, Out::Planes, 4, 1, 32768, 32768, kR, 4, 1, true, true, false},
    {"555To411", ZT_FN(zoriBGR555ToYCbCr411_16u8u_C3P3R), In::W555, Out::Planes, 4, 1, 32768, 32768, kR, 4, 1, true, true, false},
};

TEST(PackedInput, MatchModelOnAllSizes) {
    std::uint32_t seed = 1;
    for (const ref::Encoder& e : kEncoders)
        for (int w : {1, 2, 3, 4, 5, 7, 8, 9, 23, 130})
            for (int h : {1, 2, 3, 5})
                for (int pad : {0, 6})
                    for (bool flip : {false, true}) ref::expectEncoderMatchesModel(e, w, h, flip, pad, ++seed);
}

// Every word (bit 15 of 555 included) in a 256 x 256 image; an odd byte step
// is rounded down to whole words.
TEST(PackedInput, EveryWordAndOddByteStep) {
    for (const ref::Encoder& e : kEncoders) {
        SCOPED_TRACE(e.name);
        ref::EncodeImages got(e, 256, 256, false, 2, 1), want(e, 256, 256, false, 2, 1);
        for (ref::EncodeImages* im : {&got, &want})
            for (int y = 0; y < 256; ++y)
                for (int x = 0; x < 256; ++x) im->src.row(y)[2 * x] = Zor8u(x), im->src.row(y)[2 * x + 1] = Zor8u(y);
        want.model(256, 256);
        EXPECT_EQ(got.call(256, 256), zorStsOk);
        EXPECT_TRUE(got.sameDst(want));
        EXPECT_EQ(got.call(256, 256, 0, 1), zorStsOk);  // the same words again
        EXPECT_TRUE(got.sameDst(want));
    }
}

TEST(PackedInput, CheckOrder) {
    for (const ref::Encoder& e : kEncoders) {
        SCOPED_TRACE(e.name);
        ref::EncodeImages im(e, 8, 4, false, 2, 3), before(e, 8, 4, false, 2, 3);
        for (int broken = 1; broken <= 6; ++broken) EXPECT_EQ(im.call(0, 0, broken), zorStsNullPtr);
        EXPECT_EQ(im.call(e.minW - 1, 4), zorStsBadSize);
        EXPECT_EQ(im.call(8, e.minH - 1), zorStsBadSize);
        EXPECT_TRUE(im.sameDst(before));
    }
}

}  // namespace
