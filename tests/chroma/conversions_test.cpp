// The chroma layout family against per-sample models (every member's rule, the
// four-tap interpolation, the deinterlacing filters and their slices) on random
// pictures of odd sizes with negative steps, over whole buffers; the checks.
#include "chroma/layout.h"
#include "support/testutil.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <string>
#include <tuple>

namespace {

// Images (3 planar, 2 semi-planar, 1 packed), subsampling (422, 420, 411) and
// sample order: planes "Ybr" or "Yrb", packed pair bytes "YbYr", "bYrY", "YrYb".
struct Layout { int images, sub; std::string order; };

// The layout of a model ("YCrCb420") stored as a code ("P3").
Layout layoutOf(const std::string& model, const std::string& code) {
    const std::string m = model.substr(0, 5);
    const int sub = std::stoi(model.substr(5));
    if (code != "C2") return {code == "P3" ? 3 : 2, sub, code == "P3" && m == "YCrCb" ? "Yrb" : "Ybr"};
    return {1, sub, m == "YCbCr" ? "YbYr" : m == "CbYCr" ? "bYrY" : "YrYb"};
}

// One argument of an exported function in each type a parameter may have.
using Arg = std::tuple<Zor8u*, const Zor8u*, Zor8u* const*, const Zor8u* const*, const int*, int, ZoriSize, unsigned>;
Arg arg(Zor8u* p, Zor8u* const* planes, const int* steps, int step, ZoriSize roi = {}, unsigned layout = 0) {
    return {p, p, planes, planes, steps, step, roi, layout};
}

// A w x h picture of random bytes with guard bytes; rows padded by pad + image index (pad 0: none).
class Picture {
public:
    Picture(Layout lay, int w, int h, std::uint32_t seed, int pad = 3) : l(std::move(lay)) {
        const int rows = l.sub == 420 ? (h + 1) / 2 : h, cols = l.sub == 411 ? (w + 3) / 4 : (w + 1) / 2;
        const int widths[3] = {l.images == 1 ? 4 * ((w + 1) / 2) : w, l.images == 2 ? 2 * cols : cols, cols};
        for (int i = 0; i < l.images; ++i)
            imgs_.emplace_back(widths[i], i == 0 ? h : rows, 1, pad ? pad + i : 0, seed + 7 * i);
    }
    const Layout l;
    bool flipped = false;  // rows seen bottom-up, with negative steps
    int null = -1;         // the pointer passed as null: P3 0 the array, 1..3 the planes

    Zor8u* row(int i, int y) { return imgs_[i].row(flipped ? imgs_[i].height() - 1 - y : y); }
    Zor8u& Y(int x, int y) {
        return l.images > 1 ? row(0, y)[x] : row(0, y)[4 * (x / 2) + (x % 2 ? l.order.rfind('Y') : l.order.find('Y'))];
    }
    Zor8u& C(int c /* 0 Cb, 1 Cr */, int k, int r) {
        const int at = static_cast<int>(l.order.find("br"[c]));
        return l.images == 3 ? row(at, r)[k] : l.images == 2 ? row(1, r)[2 * k + c] : row(0, r)[4 * k + at];
    }
    // The arguments, the images starting at luma row `first`.
    std::vector<Arg> args(int first) {
        for (int i = 0; i < l.images; ++i) {
            ptr_[i] = null == i + (l.images == 3) ? nullptr : row(i, i == 0 ? first : first >> (l.sub == 420));
            step_[i] = flipped ? -imgs_[i].step() : imgs_[i].step();
        }
        if (l.images == 3) return {2, arg(nullptr, null == 0 ? nullptr : ptr_, step_, 0)};
        std::vector<Arg> a;
        for (int i = 0; i < l.images; ++i) a.insert(a.end(), 2, arg(ptr_[i], nullptr, nullptr, step_[i]));
        return a;
    }
    void fill(Zor8u v) { for (auto& im : imgs_) im.fillSamples([v] { return v; }); }
    bool operator==(const Picture& o) const { return imgs_ == o.imgs_; }  // every byte, padding and guards too

private:
    std::vector<zt::Image<Zor8u>> imgs_;
    Zor8u* ptr_[3] = {};
    int step_[3] = {};
};

struct Member {
    std::string name;
    Layout src, dst;
    int minW, minH;  // minH 0: no minimum height
    // Source, destination, size, slice position (deinterlacing) and the slice's first row.
    std::function<ZorStatus(Picture&, Picture&, ZoriSize, unsigned, int)> fn;
    ZorStatus operator()(Picture& s, Picture& d, ZoriSize roi, unsigned layout = zorSliceWhole, int first = 0) const {
        return fn(s, d, roi, layout, first);
    }
};

template <class... P, std::size_t... I>
ZorStatus invoke(ZorStatus (*f)(P...), const std::vector<Arg>& a, std::index_sequence<I...>) {
    return f(std::get<P>(a[I])...);
}

// Names: models "YCbCr422ToYCrCb420" (or one for both sides), codes "C2P3R" (or one).
template <class... P>
Member member(const std::string& name, ZorStatus (*f)(P...)) {
    const std::string models = name.substr(0, name.find('_')), codes = name.substr(name.rfind('_') + 1);
    const auto to = models.find("To");
    const std::string s = models.substr(0, to), d = to == std::string::npos ? s : models.substr(to + 2);
    const auto has = [&](const std::string& x, const std::string& in) { return in.find(x) != std::string::npos; };
    const std::string one = "YCbCr422_8u_P3C2R YCbCr422_8u_C2P3R YCbCr422ToCbYCr422_8u_C2R CbYCr422ToYCbCr422_8u_C2R";
    const int minH = has("422_Filter", name) && has("P3R", name) ? 8 : has("420", name) ? 2 : has(name, one);
    return {name, layoutOf(s, codes.substr(0, 2)), layoutOf(d, codes.substr(codes.size() - 3, 2)),
            has("411", name) ? 4 : 2, minH, [f](Picture& s, Picture& d, ZoriSize roi, unsigned layout, int first) {
                std::vector<Arg> a = s.args(first), b = d.args(first);
                a.insert(a.end(), b.begin(), b.end());
                a.push_back(arg(nullptr, nullptr, nullptr, 0, roi, layout));
                a.push_back(a.back());
                return invoke(f, a, std::index_sequence_for<P...>());
            }};
}
#define M(n) member(#n, zori##n)
const std::vector<Member>& members() {
    static const std::vector<Member> all = {
        M(YCbCr422_8u_P3C2R), M(YCbCr422_8u_C2P3R), M(YCrCb422ToYCbCr422_8u_C2P3R), M(CbYCr422ToYCbCr422_8u_C2P3R),
        M(YCbCr422ToCbYCr422_8u_C2R), M(CbYCr422ToYCbCr422_8u_C2R), M(YCbCr422ToYCrCb422_8u_C2R),
        M(YCbCr422ToYCrCb422_8u_P3C2R), M(YCbCr420_8u_P3P2R), M(YCbCr420_8u_P2P3R), M(YCrCb420ToYCbCr420_8u_P3P2R),
        M(YCbCr420ToYCrCb420_8u_P2P3R), M(YCbCr411_8u_P3P2R), M(YCbCr411_8u_P2P3R), M(YCbCr422ToYCbCr420_8u_P3R),
        M(YCbCr422ToYCbCr420_8u_P3P2R), M(YCbCr422ToYCbCr420_8u_C2P3R), M(CbYCr422ToYCbCr420_8u_C2P3R),
        M(YCrCb422ToYCbCr420_8u_C2P3R), M(YCbCr422ToYCrCb420_8u_C2P3R), M(CbYCr422ToYCrCb420_8u_C2P3R),
        M(YCbCr422ToYCbCr420_8u_C2P2R), M(CbYCr422ToYCbCr420_8u_C2P2R), M(YCbCr420ToYCbCr422_8u_P3R),
        M(YCrCb420ToYCbCr422_8u_P3R), M(YCbCr420ToYCbCr422_8u_P2P3R), M(YCbCr420ToYCbCr422_8u_P2C2R),
        M(YCbCr420ToCbYCr422_8u_P2C2R), M(YCrCb420ToYCbCr422_8u_P3C2R), M(YCrCb420ToCbYCr422_8u_P3C2R),
        M(YCbCr422ToYCbCr411_8u_P3R), M(YCbCr422ToYCbCr411_8u_P3P2R), M(YCbCr422ToYCbCr411_8u_C2P3R),
        M(CbYCr422ToYCbCr411_8u_C2P3R), M(YCrCb422ToYCbCr411_8u_C2P3R), M(YCbCr422ToYCbCr411_8u_C2P2R),
        M(YCbCr411ToYCbCr422_8u_P3R), M(YCbCr411ToYCrCb422_8u_P3R), M(YCbCr411ToYCbCr422_8u_P3C2R),
        M(YCbCr411ToYCrCb422_8u_P3C2R), M(YCbCr411ToYCbCr422_8u_P2P3R), M(YCbCr411ToYCbCr422_8u_P2C2R),
        M(YCbCr420ToYCbCr411_8u_P3P2R), M(YCrCb420ToYCbCr411_8u_P3P2R), M(YCbCr420ToYCbCr411_8u_P2P3R),
        M(YCbCr411ToYCbCr420_8u_P3R), M(YCbCr411ToYCbCr420_8u_P3P2R), M(YCbCr411ToYCbCr420_8u_P2P3R),
        M(YCbCr411ToYCrCb420_8u_P2P3R), M(YCbCr420ToYCbCr422_Filter_8u_P3R), M(YCrCb420ToYCbCr422_Filter_8u_P3R),
        M(YCbCr420ToYCbCr422_Filter_8u_P2P3R), M(YCbCr420ToYCrCb420_Filter_8u_P2P3R),
        M(YCbCr420ToYCbCr422_Filter_8u_P2C2R)};
    return all;
}

const Member& find(const std::string& name) {
    return *std::find_if(members().begin(), members().end(), [&](const Member& m) { return m.name == name; });
}

// The member against a model writing the expected result into a copy of the
// destination (whole buffers compared, the source unchanged) on a random or flat
// (fill 0..255) source; top-down pictures are unpadded: contiguous rows may fuse.
template <class Model>
void expectModel(const Member& m, ZoriSize roi, bool flipped, std::uint32_t seed, const Model& model, int fill = -1) {
    const int pad = flipped ? 3 : 0;
    Picture s(m.src, roi.width, roi.height, seed, pad), d(m.dst, roi.width, roi.height, seed + 1, pad);
    s.flipped = d.flipped = flipped;
    if (fill >= 0) s.fill(static_cast<Zor8u>(fill));
    const Picture before = s;
    Picture want = d;
    model(s, want);
    ASSERT_EQ(m(s, d, roi), zorStsOk) << m.name;
    EXPECT_TRUE(d == want && s == before)
        << m.name << " " << roi.width << "x" << roi.height << (flipped ? " bottom-up" : "");
}

// Luma copied; each chroma sample pulled from the source sample that the two
// subsamplings name, over the region rounded down to whole groups.
void moved(const Member& m, Picture& s, Picture& d, ZoriSize roi) {
    const int S = m.src.sub, D = m.dst.sub, gw = S == 411 || D == 411 ? 4 : 2;
    const int w = roi.width / gw * gw, h = S == 420 || D == 420 ? roi.height / 2 * 2 : roi.height;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) d.Y(x, y) = s.Y(x, y);
    for (int c = 0; c < 2; ++c)
        for (int j = 0; j < (D == 420 ? h / 2 : h); ++j)
            for (int k = 0; k < (D == 411 ? w / 4 : w / 2); ++k) {
                const int r = (D == 420 && S != 420 ? 2 * j : S == 420 && D != 420 ? j / 2 : j) +
                              (S == 411 && D == 420 ? k % 2 : 0);
                const int i = S == 411 && D != 411 ? k / 2 : D == 411 && S != 411 ? 2 * k + (S == 420 ? j % 2 : 0) : k;
                d.C(c, k, j) = s.C(c, i, r);
            }
}

TEST(ChromaLayout, EveryMemberFollowsItsRuleAtOddSizesAndNegativeSteps) {
    std::uint32_t seed = 1;
    for (const Member& m : members())
        for (int dw = 0; dw < 7 && m.name.find("Filter") == std::string::npos; ++dw)
            for (int dh : {0, 1, 2, 5}) {
                const ZoriSize roi{m.minW + dw, std::max(m.minH, 1) + dh};
                expectModel(m, roi, dw % 2, seed += 2, [&](Picture& s, Picture& d) { moved(m, s, d, roi); });
            }
}

// Pointers before the size, each in turn (but the source array one member reads
// untested, and the planes one deinterlacing member tests after a size test);
// sizes below the minimum; heights <= 0 where there is none. Nothing written.
TEST(ChromaChecks, PointersThenSizeAndNothingWritten) {
    for (const Member& m : members()) {
        const bool arrayUnread = m.name == "YCrCb420ToYCbCr420_8u_P3P2R";
        const bool planesLate = m.name == "YCbCr420ToYCrCb420_Filter_8u_P2P3R";
        Picture s(m.src, 8, 8, 1), d(m.dst, 8, 8, 2);
        const Picture before = d;
        for (Picture* p : {&s, &d})
            for (int i = arrayUnread && p == &s; i < p->l.images + (p->l.images == 3); ++i) {
                p->null = i;
                EXPECT_EQ(m(s, d, {1, 1}), zorStsNullPtr) << m.name << " pointer " << i;
                EXPECT_EQ(m(s, d, {0, 0}), planesLate && p == &d && i > 0 ? zorStsBadSize : zorStsNullPtr) << m.name;
                p->null = -1;
            }
        for (ZoriSize roi : {ZoriSize{m.minW - 1, 8}, ZoriSize{-1, 8}, ZoriSize{m.minW, std::max(m.minH - 1, 0)}})
            EXPECT_EQ(m(s, d, roi), m.minH || roi.height ? zorStsBadSize : zorStsOk) << m.name << " h " << roi.height;
        EXPECT_EQ(m(s, d, {8, -3}), m.minH ? zorStsBadSize : zorStsOk) << m.name;
        EXPECT_TRUE(d == before) << m.name;
    }
}

TEST(ChromaChecksDeathTest, YCrCb420ToYCbCr420P3P2ReadsTheSourceArrayUntested) {
    const Member& m = find("YCrCb420ToYCbCr420_8u_P3P2R");
    Picture s(m.src, 8, 4, 1), d(m.dst, 8, 4, 2);
    s.null = 0;
    EXPECT_DEATH(m(s, d, {8, 4}), "");
}

// Overlapping rows of a plain copy go byte by byte in ascending order: a
// destination ahead of its source repeats the source's first bytes.
TEST(ChromaCopyRow, OverlapIsCopiedInAscendingOrder) {
    for (int n : {5, 40, 3300})
        for (int shift : {-3, 0, 3, 16}) {
            std::vector<Zor8u> buf(4000), want;
            std::iota(buf.begin(), buf.end(), Zor8u{1});
            want = buf;
            for (int i = 0; i < n; ++i) want[100 + shift + i] = want[100 + i];
            zor::copyRow(buf.data() + 100, buf.data() + 100 + shift, n);
            ASSERT_EQ(buf, want) << n << " " << shift;
        }
}

void interpolated(Picture& s, Picture& d, ZoriSize roi) {
    const int w = roi.width / 2 * 2, h = roi.height / 8 * 8;
    const auto c = [&](int comp, int k, int j) { return int{s.C(comp, k, std::clamp(j, 0, h / 2 - 1))}; };
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) d.Y(x, y) = s.Y(x, y);
        for (int q = 0, j = y / 2; q < 2; ++q)
            for (int k = 0; k < w / 2; ++k) {
                const int v = -c(q, k, j - 1) + 9 * c(q, k, j) + 9 * c(q, k, j + 1) - c(q, k, j + 2) + 8;
                d.C(q, k, y) = y % 2 ? std::clamp(static_cast<int>(std::floor(v / 16.0)), 0, 255) : c(q, k, j);
            }
    }
}

TEST(ChromaInterpolate, MatchesTheFourTapModel) {
    std::uint32_t seed = 1;
    for (const char* name : {"YCbCr420ToYCbCr422_Filter_8u_P3R", "YCrCb420ToYCbCr422_Filter_8u_P3R",
                             "YCbCr420ToYCbCr422_Filter_8u_P2P3R"})
        for (ZoriSize roi : {ZoriSize{2, 8}, ZoriSize{3, 9}, ZoriSize{8, 15}, ZoriSize{13, 16}, ZoriSize{22, 23}, ZoriSize{151, 8}})
            for (bool flipped : {false, true})
                expectModel(find(name), roi, flipped, seed += 2,
                            [&](Picture& s, Picture& d) { interpolated(s, d, roi); });
}

const Member& toPlanar = find("YCbCr420ToYCrCb420_Filter_8u_P2P3R");
const Member& toPacked = find("YCbCr420ToYCbCr422_Filter_8u_P2C2R");

// Luma rows [y0, y1) and chroma rows [j0, j1) of the whole picture's result
// (in the packed layout chroma row j is the chroma of rows 2j and 2j+1).
void deinterlaced(const Member& m, Picture& s, Picture& d, ZoriSize roi, int y0, int y1, int j0, int j1) {
    const int w = roi.width / 2 * 2, h = roi.height / 2 * 2, raised = &m == &toPacked;
    for (int y = std::max(y0, 0); y < std::min(y1, h); ++y)
        for (int x = 0; x < w; ++x) {
            const int v = s.Y(x, std::max(y - 1, 0)) + 2 * s.Y(x, y) + s.Y(x, std::min(y + 1, h - 1)) + 4 * raised;
            d.Y(x, y) = static_cast<Zor8u>(std::min(v / 4, 255));
        }
    for (int j = std::max(j0, 0); j < std::min(j1, h / 2); ++j)
        for (int c = 0; c < 2; ++c)
            for (int k = 0; k < w / 2; ++k) {
                const int v = std::min((s.C(c, k, j) + s.C(c, k, std::min(j + 1, h / 2 - 1)) + 2 * raised) / 2, 255);
                d.C(c, k, raised ? 2 * j : j) = d.C(c, k, raised ? 2 * j + 1 : j) = static_cast<Zor8u>(v);
            }
}

// Whole pictures, random and flat (the packed member's constants raise a flat 128 to 129 and
// clamp at 255), some wide enough for whole vectors; then slices, each writing from one luma and one chroma row above its pointers
// (but the top slice) to one luma and one chroma row short of its end (but the bottom slice),
// so that slices in any order add up to the whole. Other slice positions write nothing.
TEST(ChromaDeinterlace, WholePicturesAndSlicesMatchTheModel) {
    for (const Member* m : {&toPlanar, &toPacked})
        for (bool flipped : {false, true})
            for (ZoriSize roi : {ZoriSize{2, 2}, ZoriSize{3, 3}, ZoriSize{11, 12}, ZoriSize{13, 17}, ZoriSize{151, 10}}) {
                for (int fill : {-1, 128, 255})
                    expectModel(*m, roi, flipped, 7, [&](Picture& s, Picture& d) {
                        deinterlaced(*m, s, d, roi, 0, roi.height, 0, roi.height);
                    }, fill);
                const int h = roi.height / 2 * 2, a = h / 4 * 2, b = h - 2;  // slices [0, a), [a, b), [b, h)
                Picture s(m->src, roi.width, h, 3), d(m->dst, roi.width, h, 4);
                s.flipped = d.flipped = flipped;
                Picture want = d;
                for (auto [layout, y0, y1] : {std::array{16, b, h}, {1, 0, a}, {4, a, b}}) {
                    if (h < 8) break;
                    const int up = y0 > 0, early = y1 < h;
                    deinterlaced(*m, s, want, {roi.width, h}, y0 - up, y1 - early, y0 / 2 - up, y1 / 2 - early);
                    ASSERT_EQ((*m)(s, d, {roi.width, y1 - y0}, layout, y0), zorStsOk);
                    EXPECT_TRUE(d == want) << m->name << " slice " << layout << " of " << h << " rows";
                }
                for (unsigned layout : {0u, 2u, 3u, 5u, 8u, 17u, 20u, 23u, 0xFFFFFFFFu}) {
                    Picture u = d, want = d;
                    if ((layout & 21) == 21) deinterlaced(*m, s, want, {roi.width, h}, 0, h, 0, h);
                    EXPECT_EQ((*m)(s, u, {roi.width, h}, layout), zorStsOk);
                    EXPECT_TRUE(u == want) << m->name << " position " << layout;
                }
            }
}

}  // namespace
