// Subsampled YCbCr to RGB/BGR: whole buffers against the per-pixel models on random images of many sizes,
// padded, bottom-up and contiguous; the set C biases, the single-column quirk, check order; the filtered 4:2:0
// decoder; every vector kernel against its scalar kernel at every CPU target.
#include "subsampled_ref.h"
#include "support/kernel_harness.h"
#include "video/decode_kernels.h"

#include <vector>

namespace {

using ref::Img;
using ref::PlaneSet;
using ref::View;

constexpr Zor8u kAval = 0xA5;

// Pixel (x, y): R G B, B G R or B G R aval interleaved, or three planes of h rows stacked in one image (channels 0).
void put(View d, int h, int channels, bool bgr, int x, int y, ref::Rgb c) {
    const int v[4] = {bgr ? c.b : c.r, c.g, bgr ? c.r : c.b, kAval};
    for (int k = 0; k < (channels ? channels : 3); ++k)
        (channels ? d.row(y)[x * channels + k] : d.row(k * h + y)[x]) = static_cast<Zor8u>(v[k]);
}

template <ZorStatus (*F)(const Zor8u*, int, Zor8u*, int, ZoriSize, Zor8u)>
ZorStatus aval(const Zor8u* s, int ss, Zor8u* d, int ds, ZoriSize r) { return F(s, ss, d, ds, r, kAval); }
ZorStatus c2p3(const Zor8u* s, int ss, Zor8u* d, int ds, ZoriSize r) {
    Zor8u* const planes[3] = {d, d + r.height * ds, d + 2 * r.height * ds};
    return zoriYCbCr422ToRGB_8u_C2P3R(s, ss, planes, ds, r);
}
struct Member {
    ZorStatus (*fn)(const Zor8u*, int, Zor8u*, int, ZoriSize);  // null: planar 4:2:2 with three steps
    bool cbYCr, setB, bgr;
    int channels, minW;
} const kMembers[] = {{zoriYCbCr422ToRGB_8u_C2C3R, false, false, false, 3, 1}, {c2p3, false, false, false, 0, 1},
                      {zoriYCbCr422ToBGR_8u_C2C3R, false, false, true, 3, 2},
                      {aval<zoriYCbCr422ToBGR_8u_C2C4R>, false, false, true, 4, 2},
                      {zoriCbYCr422ToRGB_8u_C2C3R, true, true, false, 3, 1},
                      {aval<zoriCbYCr422ToBGR_8u_C2C4R>, true, true, true, 4, 1}, {nullptr, false, true, false, 3, 1}};

TEST(SubsampledDecoders, EveryMemberMatchesModel) {
    const int widths[11] = {1, 2, 3, 4, 5, 7, 8, 9, 23, 70, 129};
    for (const Member& m : kMembers)
        for (int i = 0; i < 99; ++i) {  // every width at heights 1..3: padded, flipped, contiguous
            const int w = widths[i % 11], h = 1 + i / 11 % 3, variant = i / 33, pad = variant == 2 ? 0 : 5;
            const bool flip = variant == 1;
            SCOPED_TRACE(testing::Message() << (&m - kMembers) << ": " << w << "x" << h << " #" << variant);
            Img packed(w, h, 2, pad, 3 * i), dst(w, m.channels ? h : 3 * h, std::max(m.channels, 1), pad, 3 * i + 1);
            Img want = dst;
            PlaneSet planes(w, h, (w + 1) / 2, h, flip, 3 * i + 2);
            const View sv{&packed, flip}, dv{&dst, flip};
            for (int y = 0; y < h; ++y)
                for (int x = 0; x < w && w >= m.minW; ++x) {
                    const auto at = [&](int k, int j) { return planes.view(k).row(y)[j]; };
                    const ref::Ycc s = m.fn ? ref::packedSamples(sv.row(y), x, w, m.cbYCr)
                                            : ref::Ycc{at(0, x), at(1, x / 2), at(2, x / 2)};
                    put(View{&want, flip}, h, m.channels, m.bgr, x, y,
                        m.setB ? ref::setA_B(s.y, s.cb, s.cr, true) : ref::setC(s.y, s.cb, s.cr));
                }
            const ZorStatus st = m.fn ? m.fn(sv.ptr(), sv.step(), dv.ptr(), dv.step(), {w, h})
                                      : zoriYCbCr422ToRGB_8u_P3C3R(planes.cptrs, planes.steps, dv.ptr(), dv.step(), {w, h});
            EXPECT_EQ(st, w >= m.minW ? zorStsOk : zorStsBadSize);
            EXPECT_EQ(zt::firstDifference(dst.bytes(), want.bytes()), -1);
        }
}

TEST(SubsampledDecoders, SetCBiasesAndTheSingleColumn) {
    // Set C's biases (57, 14, 13 below set A) lower R 15 -> 14, G 2 -> 1, B 81 -> 80 in these pairs.
    const Zor8u src[12] = {33, 125, 33, 125, 26, 136, 26, 136, 44, 152, 44, 152}, column[4] = {128, 200, 128, 200};
    Zor8u rgb[18];
    ASSERT_EQ(zoriYCbCr422ToRGB_8u_C2C3R(src, 12, rgb, 18, {6, 1}), zorStsOk);
    EXPECT_EQ((std::vector<int>{rgb[0], rgb[7], rgb[14]}), (std::vector<int>{14, 1, 80}));
    // Width 1: (Y, Cb) = (128, 200) decodes as if Cr were 200 (red 245, not 130), in every row.
    ASSERT_EQ(zoriYCbCr422ToRGB_8u_C2C3R(column, 2, rgb, 3, {1, 2}), zorStsOk);
    EXPECT_EQ((std::vector<int>{rgb[0], rgb[3]}), (std::vector<int>{245, 245}));
}

// Pointers (with the step array) first, then the size, then the planes inside the arrays.
TEST(SubsampledDecoders, CheckOrder) {
    Img src(6, 2, 2), dst(6, 2, 4);
    const Img before = dst;
    for (const Member& m : kMembers) {
        if (!m.fn || !m.channels) continue;
        EXPECT_EQ(m.fn(src.data(), src.step(), nullptr, dst.step(), {0, 0}), zorStsNullPtr);
        EXPECT_EQ(m.fn(src.data(), src.step(), dst.data(), dst.step(), {6, 0}), zorStsBadSize);
    }
    Zor8u* dplanes[3] = {dst.data(), nullptr, dst.data()};
    const Zor8u* splanes[3] = {src.data(), src.data(), nullptr};
    const int steps[3] = {src.step(), src.step(), src.step()};
    EXPECT_EQ(zoriYCbCr422ToRGB_8u_C2P3R(src.data(), src.step(), dplanes, dst.step(), {0, 2}), zorStsBadSize);
    EXPECT_EQ(zoriYCbCr422ToRGB_8u_C2P3R(src.data(), src.step(), dplanes, dst.step(), {6, 2}), zorStsNullPtr);
    EXPECT_EQ(zoriYCbCr422ToRGB_8u_P3C3R(splanes, nullptr, dst.data(), dst.step(), {0, 2}), zorStsNullPtr);
    EXPECT_EQ(zoriYCbCr422ToRGB_8u_P3C3R(splanes, steps, dst.data(), dst.step(), {6, 0}), zorStsBadSize);
    EXPECT_EQ(zoriYCbCr422ToRGB_8u_P3C3R(splanes, steps, dst.data(), dst.step(), {6, 2}), zorStsNullPtr);
    EXPECT_TRUE(dst == before);
}

// Planar YCrCb 4:2:0 to BGRA: odd rows interpolate four chroma rows of the converted region (edges repeated).
int interpolated(View v, int rows, int y, int k) {
    const auto c = [&](int r) { return static_cast<int>(v.row(r < 0 ? 0 : r >= rows ? rows - 1 : r)[k]); };
    const int j = y / 2;
    return y & 1 ? ref::clamp255(ref::floorShift(9 * (c(j) + c(j + 1)) - c(j - 1) - c(j + 2) + 8, 4)) : c(j);
}

TEST(YCrCb420FilterToBGR, MatchesModelAndChecks) {
    const int widths[7] = {2, 3, 5, 8, 17, 130, 2051}, heights[5] = {8, 9, 15, 16, 24};  // 2051: chunked rows
    for (int i = 0; i < 70; ++i) {
        const int w = widths[i % 7], h = heights[i / 7 % 5];
        const bool flip = i >= 35;
        SCOPED_TRACE(testing::Message() << w << "x" << h << (flip ? " flipped" : ""));
        PlaneSet src(w, h, w / 2, h / 2, flip, 2 * i);
        Img dst(w, h, 4, 6, 2 * i + 1), want = dst;
        const View dv{&dst, flip};
        for (int y = 0; y < (h & ~7); ++y)
            for (int x = 0; x < (w & ~1); ++x) {
                const int cr = interpolated(src.view(1), h / 8 * 4, y, x / 2);
                const int cb = interpolated(src.view(2), h / 8 * 4, y, x / 2);
                put(View{&want, flip}, h, 4, true, x, y, ref::setA_B(src.view(0).row(y)[x], cb, cr, true));
            }
        EXPECT_EQ(zoriYCrCb420ToBGR_Filter_8u_P3C4R(src.cptrs, src.steps, dv.ptr(), dv.step(), {w, h}, kAval),
                  (w & 1) || (h & 7) ? zorStsOddSizeWarning : zorStsOk);
        EXPECT_EQ(zt::firstDifference(dst.bytes(), want.bytes()), -1);
    }
    // Every pointer and plane before the size; at least 2 x 8.
    PlaneSet src(2, 16, 1, 8, false, 1);
    const Zor8u* nullPlane[3] = {src.cptrs[0], nullptr, src.cptrs[2]};
    Zor8u out[128] = {};
    EXPECT_EQ(zoriYCrCb420ToBGR_Filter_8u_P3C4R(nullPlane, src.steps, out, 8, {0, 0}, 7), zorStsNullPtr);
    EXPECT_EQ(zoriYCrCb420ToBGR_Filter_8u_P3C4R(src.cptrs, src.steps, out, 8, {1, 8}, 7), zorStsBadSize);
    EXPECT_EQ(zoriYCrCb420ToBGR_Filter_8u_P3C4R(src.cptrs, src.steps, out, 8, {2, 7}, 7), zorStsBadSize);
    EXPECT_EQ(std::vector<Zor8u>(out, out + 128), std::vector<Zor8u>(128, 0));
}

#define ZOR_DECODE_TEST(name, fn, args) \
    TEST(DecodeKernelSets, name) { zt::expectVectorsMatchScalar(zor::decodeTables, &zor::DecodeKernels::name); }
ZOR_DECODE_KERNELS(ZOR_DECODE_TEST)

}  // namespace
