// YUV and RGB: every member's check order, and its results against a per-pixel
// model on random padded images, top-down and bottom-up; pinned values.
#include "core/image.h"
#include "support/testutil.h"

#include <array>
#include <string>

namespace {

std::int64_t fl(std::int64_t v, int s) { return v >= 0 ? v >> s : -((-v + (std::int64_t{1} << s) - 1) >> s); }
Zor8u sat(std::int64_t v) { return static_cast<Zor8u>(v < 0 ? 0 : v > 255 ? 255 : v); }

// An interleaved image or three planes (chroma planes subsampled by hs, vs),
// top-down or bottom-up; a plane, or the plane and step arrays, may be null.
enum Lay { C3, AC4, BGR, C2, P3 };
constexpr int kSamples[] = {3, 4, 3, 2, 1};
struct Side {
    Lay lay;
    int hs, vs, nullPlane = -1, st[3] = {};
    bool flip, nullArrays = false;
    Zor8u* pl[3];
    std::vector<zt::Image<Zor8u>> im;
    Side(Lay l, int w, int h, int hs_, int vs_, int pad, bool f, std::uint32_t seed) : lay(l), hs(hs_), vs(vs_), flip(f) {
        for (int i = 0; i < (l == P3 ? 3 : 1); ++i, st[i - 1] = flip ? im.back().flippedStep() : im.back().step())
            im.emplace_back(i ? (vs ? w >> 1 : (w + hs) >> hs) : w, i ? h >> vs : h, kSamples[l], pad && hs ? pad + 3 * i : pad, seed + i);
    }
    Zor8u* ptr(int i) { return i == nullPlane ? nullptr : flip ? im[i].flippedData() : im[i].data(); }
    Zor8u* const* planes() { return nullArrays ? nullptr : (pl[0] = ptr(0), pl[1] = ptr(1), pl[2] = ptr(2), pl); }
    Zor8u& at(int c, int x, int y) {  // channel c of pixel (x, y)
        const int p = lay == P3 && c < 3 ? c : 0, i[] = {3 * x + c, 4 * x + c, 3 * x + 2 - c, c ? 4 * (x / 2) + 2 * c - 1 : 2 * x, c ? x >> hs : x};
        return (ptr(p) + std::ptrdiff_t{st[p]} * (p ? y >> vs : y))[i[lay]];
    }
};

struct Member {
    std::string name;
    Lay src, dst;
    std::function<ZorStatus(Side&, Side&, ZoriSize)> call;
    bool fwd() const { return name.rfind("RGB", 0) == 0; }
    int sub() const { return name.find("422") != std::string::npos ? 422 : name.find("420") != std::string::npos ? 420 : 444; }
    std::array<Side, 2> sides(int w, int h, int pad, bool flip, std::uint32_t seed) const {  // the YUV side subsampled
        const auto side = [&](Lay l, bool yuv, int k) { return Side(l, w, h, yuv && sub() != 444, yuv && sub() == 420, pad, flip, seed + k); };
        return {side(src, !fwd(), 0), side(dst, fwd(), 9)};
    }
};
// How a side is passed: interleaved, planes with a step array or one step, a
// packed whole image or packed planes.
#define I(x) x.ptr(0), x.st[0]
#define P(x) x.planes(), (x.nullArrays ? nullptr : x.st)
#define P1(x) x.planes(), x.st[0]
#define W(x) x.ptr(0)
#define WP(x) x.planes()
#define M(F, src, dst, a, b) {#F, src, dst, [](Side& s, Side& d, ZoriSize r) { return zori##F(a(s), b(d), r); }}
const std::vector<Member> kMembers = {
    M(RGBToYUV_8u_C3R, C3, C3, I, I), M(RGBToYUV_8u_AC4R, AC4, AC4, I, I), M(RGBToYUV_8u_P3R, P3, P3, P, P),
    M(RGBToYUV_8u_C3P3R, C3, P3, I, P1), M(YUVToRGB_8u_C3R, C3, C3, I, I), M(YUVToRGB_8u_AC4R, AC4, AC4, I, I),
    M(YUVToRGB_8u_P3R, P3, P3, P, P), M(YUVToRGB_8u_P3C3R, P3, C3, P1, I), M(RGBToYUV422_8u_C3C2R, C3, C2, I, I),
    M(RGBToYUV422_8u_C3P3R, C3, P3, I, P), M(RGBToYUV422_8u_C3P3, C3, P3, W, WP), M(RGBToYUV422_8u_P3R, P3, P3, P, P),
    M(RGBToYUV422_8u_P3, P3, P3, WP, WP), M(YUV422ToRGB_8u_C2C3R, C2, C3, I, I), M(YUV422ToRGB_8u_P3C3R, P3, C3, P, I),
    M(YUV422ToRGB_8u_P3C3, P3, C3, WP, W), M(YUV422ToRGB_8u_P3R, P3, P3, P, P), M(YUV422ToRGB_8u_P3, P3, P3, WP, WP),
    M(YUV422ToRGB_8u_P3AC4R, P3, AC4, P, I), M(RGBToYUV420_8u_C3P3R, C3, P3, I, P), M(RGBToYUV420_8u_C3P3, C3, P3, W, WP),
    M(RGBToYUV420_8u_P3R, P3, P3, P, P), M(RGBToYUV420_8u_P3, P3, P3, WP, WP), M(YUV420ToRGB_8u_P3C3R, P3, C3, P, I),
    M(YUV420ToRGB_8u_P3C3, P3, C3, WP, W), M(YUV420ToRGB_8u_P3R, P3, P3, P, P), M(YUV420ToRGB_8u_P3, P3, P3, WP, WP),
    M(YUV420ToRGB_8u_P3AC4R, P3, AC4, P, I), M(YUV420ToBGR_8u_P3C3R, P3, BGR, P, I)};

// Y = S >> 16, S = 19595 R + 38470 G + 7471 B; a group of 2^k pixels (a last
// odd 4:2:2 pixel alone): d = (65536 sum - sum S + 2^(15+k) - 1) >> 16 of B, R,
// U = ((dB 32244) >> (16+k)) + 128 (low 8 bits), V with 57475, clamped.
void expectModel(const Member& m, int w, int h, bool flip, std::uint32_t seed) {
    SCOPED_TRACE(m.name + " " + std::to_string(w) + "x" + std::to_string(h) + (flip ? " bottom-up" : ""));
    auto [s, d] = m.sides(w, h, m.name.back() == 'R' ? 2 + 5 * flip : 0, flip, seed);
    Side want = d;
    const int gw = m.sub() == 444 ? 1 : 2, gh = m.sub() == 420 ? 2 : 1, ew = w - w % gh, eh = h - h % gh;  // 4:2:0: whole blocks
    for (int y0 = 0; y0 < eh; y0 += gh)
        for (int x0 = 0; x0 < ew; x0 += gw) {
            std::int64_t sr = 0, sb = 0, ss = 0, n = 0;
            for (int y = y0; y < y0 + gh; ++y)
                for (int x = x0; x < x0 + gw && x < ew; ++x, ++n) {
                    const int c0 = s.at(0, x, y), c1 = s.at(1, x, y), lastOdd = m.src == C2 && x == w - 1 && w % 2;
                    const int c2 = lastOdd ? (w == 1 ? c1 : s.at(2, x - 1, y)) : s.at(2, x, y);  // C2: V of the previous pair
                    const std::int64_t sum = 19595LL * c0 + 38470LL * c1 + 7471LL * c2, u = c1 - 128, v = c2 - 128;
                    const std::int64_t l = 65536LL * c0 + (m.name == "YUV420ToRGB_8u_P3AC4R" ? 32768 : 0);  // rounds
                    const Zor8u rgb[] = {sat(fl(l + 74711 * v, 16)), sat(fl(l - 25821 * u - 38076 * v, 16)), sat(fl(l + 133169 * u, 16)), 0};
                    for (int k = 0; !m.fwd() && k < (m.dst == AC4 && m.src == P3 ? 4 : 3); ++k) want.at(k, x, y) = rgb[k];
                    if (m.fwd()) want.at(0, x, y) = static_cast<Zor8u>(sum >> 16), sr += c0, sb += c2, ss += sum;
                }
            const int k = n == 4 ? 2 : static_cast<int>(n) - 1;
            const std::int64_t dB = fl(65536 * sb - ss + (32768 << k) - 1, 16), dR = fl(65536 * sr - ss + (32768 << k) - 1, 16);
            if (m.fwd()) want.at(1, x0, y0) = static_cast<Zor8u>(fl(dB * 32244, 16 + k) + 128);
            if (m.fwd() && (m.dst != C2 || n == 2)) want.at(2, x0, y0) = sat(fl(dR * 57475, 16 + k) + 128);  // C2: no V byte
        }
    EXPECT_EQ(m.call(s, d, {w, h}), m.dst == BGR && (w < 2 || h < 2) ? zorStsBadSize : ew < w || eh < h ? zorStsOddSizeWarning : zorStsOk);
    EXPECT_TRUE(d.im == want.im);
}

// Per member: plane and step arrays before the size, plane pointers after it,
// nothing written on an error; then the model (4:2:0 sizes of 1: nothing
// converted and a warning, but the BGR decoder needs 2 x 2; only the 4:2:0 AC4
// member rounds).
TEST(Yuv, EveryMemberChecksInOrderAndMatchesTheModel) {
    std::uint32_t seed = 1;
    for (const Member& m : kMembers) {
        auto [s, d] = m.sides(4, 4, 2, false, 5);
        const Side before = d;
        const auto calls = [&, &s = s, &d = d](std::vector<ZoriSize> sizes) {
            std::vector<int> st;
            for (ZoriSize z : sizes) st.push_back(m.call(s, d, z));
            return st;
        };
        for (Side* side : {&s, &d}) {
            const bool p3 = side->lay == P3;
            side->nullArrays = p3;
            EXPECT_EQ(calls({{0, 0}}), std::vector<int>({p3 ? zorStsNullPtr : zorStsBadSize})) << m.name;
            for (side->nullArrays = false; ++side->nullPlane < static_cast<int>(side->im.size());)
                EXPECT_EQ(calls({{4, 0}, {4, 4}}), std::vector<int>({p3 ? zorStsBadSize : zorStsNullPtr, zorStsNullPtr})) << m.name;
            side->nullPlane = -1;
        }
        EXPECT_EQ(calls({{0, 4}, {4, -1}}), std::vector<int>({zorStsBadSize, zorStsBadSize})) << m.name;
        EXPECT_TRUE(d.im == before.im) << m.name;
        for (const auto& z : std::vector<std::array<int, 2>>{{1, 1}, {2, 2}, {3, 3}, {5, 1}, {1, 4}, {4, 5}, {19, 7}, {70, 3}, {130, 2}})
            for (int flip = 0; flip < (m.name.back() == 'R' ? 2 : 1); ++flip) expectModel(m, z[0], z[1], flip, seed++);
    }
}

// White, blue, red and cyan (both ends of the V clamp), and a pixel whose
// colour differences lie exactly on a rounding tie (S = 32768 mod 65536).
TEST(Yuv, PinnedValues) {
    const Zor8u rgb[15] = {255, 255, 255, 0, 0, 255, 255, 0, 0, 0, 255, 255, 2, 54, 186};
    Zor8u yuv[15];
    ASSERT_EQ(zoriRGBToYUV_8u_C3R(rgb, 15, yuv, 15, {5, 1}), zorStsOk);
    EXPECT_EQ(std::vector<int>(yuv, yuv + 15), std::vector<int>({255, 128, 128, 29, 239, 102, 76, 90, 255, 178, 165, 0, 53, 192, 82}));
}

// Whole-image steps are pointer-sized: rows of 715,827,883 RGB pixels are
// 2^31 + 1 bytes apart (such an image takes 4 GB).
TEST(Yuv, WholeImageStepsBeyondTheIntRange) {
    const auto v = zor::C<const Zor8u, 3>::whole(nullptr, {715827883, 2}).view();
    EXPECT_EQ(reinterpret_cast<const char*>(v.row(1).p) - reinterpret_cast<const char*>(v.row(0).p), 2147483649);
}

}  // namespace
