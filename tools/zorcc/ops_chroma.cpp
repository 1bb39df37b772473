// Chroma layouts: moving YCbCr frames between planar, semi-planar and packed
// layouts and between 4:2:2, 4:2:0 and 4:1:1; filtered and deinterlacing
// conversions.
#include "ops.h"

#include <array>
#include <stdexcept>

namespace zorcc_tool {

namespace {

constexpr int kYuv = static_cast<int>(Kind::Yuv);

using F = YuvFormat;

// One library call that converts a frame of layout `from` into `to`.
struct Edge {
    F from, to;
    const char* function;
    void (*run)(const YuvFrame& s, YuvFrame& d, ZoriSize roi);
};

// Source and destination views: P3 arrays, or the planes of P2/C2 frames.
#define SP3 planesOf(s).src.data(), planesOf(s).step.data()
#define DP3 planesOf(d).dst.data(), planesOf(d).step.data()
#define SP2 s.plane(0), s.step(0), s.plane(1), s.step(1)
#define DP2 d.plane(0), d.step(0), d.plane(1), d.step(1)
#define SC2 s.plane(0), s.step(0)
#define DC2 d.plane(0), d.step(0)

// i420 planes in the Y, Cr, Cb order of the YCrCb420 sources.
struct Swapped {
    const Zor8u* p[3];
    int step[3];
    explicit Swapped(const YuvFrame& s) : p{s.plane(0), s.plane(2), s.plane(1)}, step{s.step(0), s.step(2), s.step(1)} {}
};

const Edge kEdges[] = {
    {F::I420, F::NV12, "zoriYCbCr420_8u_P3P2R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr420_8u_P3P2R(SP3, DP2, r)); }},
    {F::NV12, F::I420, "zoriYCbCr420_8u_P2P3R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr420_8u_P2P3R(SP2, DP3, r)); }},
    {F::I420, F::I422, "zoriYCbCr420ToYCbCr422_8u_P3R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr420ToYCbCr422_8u_P3R(SP3, DP3, r)); }},
    {F::I420, F::YUY2, "zoriYCrCb420ToYCbCr422_8u_P3C2R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { Swapped w(s); ZORCC_CALL(zoriYCrCb420ToYCbCr422_8u_P3C2R(w.p, w.step, DC2, r)); }},
    {F::I420, F::UYVY, "zoriYCrCb420ToCbYCr422_8u_P3C2R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { Swapped w(s); ZORCC_CALL(zoriYCrCb420ToCbYCr422_8u_P3C2R(w.p, w.step, DC2, r)); }},
    {F::NV12, F::I422, "zoriYCbCr420ToYCbCr422_8u_P2P3R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr420ToYCbCr422_8u_P2P3R(SP2, DP3, r)); }},
    {F::NV12, F::YUY2, "zoriYCbCr420ToYCbCr422_8u_P2C2R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr420ToYCbCr422_8u_P2C2R(SP2, DC2, r)); }},
    {F::NV12, F::UYVY, "zoriYCbCr420ToCbYCr422_8u_P2C2R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr420ToCbYCr422_8u_P2C2R(SP2, DC2, r)); }},
    {F::NV12, F::I411, "zoriYCbCr420ToYCbCr411_8u_P2P3R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr420ToYCbCr411_8u_P2P3R(SP2, DP3, r)); }},
    {F::I422, F::I420, "zoriYCbCr422ToYCbCr420_8u_P3R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr422ToYCbCr420_8u_P3R(SP3, DP3, r)); }},
    {F::I422, F::NV12, "zoriYCbCr422ToYCbCr420_8u_P3P2R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr422ToYCbCr420_8u_P3P2R(SP3, DP2, r)); }},
    {F::I422, F::YUY2, "zoriYCbCr422_8u_P3C2R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr422_8u_P3C2R(SP3, DC2, r)); }},
    {F::I422, F::I411, "zoriYCbCr422ToYCbCr411_8u_P3R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr422ToYCbCr411_8u_P3R(SP3, DP3, r)); }},
    {F::YUY2, F::I422, "zoriYCbCr422_8u_C2P3R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr422_8u_C2P3R(SC2, DP3, r)); }},
    {F::YUY2, F::I420, "zoriYCbCr422ToYCbCr420_8u_C2P3R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr422ToYCbCr420_8u_C2P3R(SC2, DP3, r)); }},
    {F::YUY2, F::NV12, "zoriYCbCr422ToYCbCr420_8u_C2P2R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr422ToYCbCr420_8u_C2P2R(SC2, DP2, r)); }},
    {F::YUY2, F::UYVY, "zoriYCbCr422ToCbYCr422_8u_C2R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr422ToCbYCr422_8u_C2R(SC2, DC2, r)); }},
    {F::YUY2, F::I411, "zoriYCbCr422ToYCbCr411_8u_C2P3R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr422ToYCbCr411_8u_C2P3R(SC2, DP3, r)); }},
    {F::UYVY, F::YUY2, "zoriCbYCr422ToYCbCr422_8u_C2R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriCbYCr422ToYCbCr422_8u_C2R(SC2, DC2, r)); }},
    {F::UYVY, F::I422, "zoriCbYCr422ToYCbCr422_8u_C2P3R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriCbYCr422ToYCbCr422_8u_C2P3R(SC2, DP3, r)); }},
    {F::UYVY, F::I420, "zoriCbYCr422ToYCbCr420_8u_C2P3R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriCbYCr422ToYCbCr420_8u_C2P3R(SC2, DP3, r)); }},
    {F::UYVY, F::NV12, "zoriCbYCr422ToYCbCr420_8u_C2P2R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriCbYCr422ToYCbCr420_8u_C2P2R(SC2, DP2, r)); }},
    {F::UYVY, F::I411, "zoriCbYCr422ToYCbCr411_8u_C2P3R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriCbYCr422ToYCbCr411_8u_C2P3R(SC2, DP3, r)); }},
    {F::I411, F::I422, "zoriYCbCr411ToYCbCr422_8u_P3R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr411ToYCbCr422_8u_P3R(SP3, DP3, r)); }},
    {F::I411, F::YUY2, "zoriYCbCr411ToYCbCr422_8u_P3C2R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr411ToYCbCr422_8u_P3C2R(SP3, DC2, r)); }},
    {F::I411, F::I420, "zoriYCbCr411ToYCbCr420_8u_P3R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr411ToYCbCr420_8u_P3R(SP3, DP3, r)); }},
    {F::I411, F::NV12, "zoriYCbCr411ToYCbCr420_8u_P3P2R", [](const YuvFrame& s, YuvFrame& d, ZoriSize r) { ZORCC_CALL(zoriYCbCr411ToYCbCr420_8u_P3P2R(SP3, DP2, r)); }},
};

#undef SP3
#undef DP3
#undef SP2
#undef DP2
#undef SC2
#undef DC2

// Chroma samples per pixel of a layout, times 4.
int chromaDensity(F f) {
    switch (f) {
        case F::I444: return 8;
        case F::I422:
        case F::YUY2:
        case F::UYVY: return 4;
        default: return 2;
    }
}

// Cheapest chain of edges from one layout to another (none if there is
// none). An edge that drops chroma samples costs ten moves, so that a chain
// never drops chroma it could keep (i422 -> uyvy goes through yuy2, not
// i420).
struct Route {
    std::array<const Edge*, 8> edges{};
    int count = 0;
};

Route route(F from, F to) {
    constexpr int kLayouts = 7, kNone = 1 << 20;
    std::array<int, kLayouts> cost;
    std::array<const Edge*, kLayouts> via{};
    cost.fill(kNone);
    cost[static_cast<int>(from)] = 0;
    for (bool changed = true; changed;) {  // Bellman-Ford over a handful of nodes
        changed = false;
        for (const Edge& e : kEdges) {
            const int a = static_cast<int>(e.from), b = static_cast<int>(e.to);
            if (cost[a] == kNone) continue;
            const int c = cost[a] + (chromaDensity(e.to) < chromaDensity(e.from) ? 10 : 1);
            if (c < cost[b]) {
                cost[b] = c, via[b] = &e;
                changed = true;
            }
        }
    }
    Route r;
    for (F at = to; at != from && via[static_cast<int>(at)] != nullptr; at = via[static_cast<int>(at)]->from)
        ++r.count;
    if (cost[static_cast<int>(to)] == kNone) r.count = 0;
    int i = r.count;
    for (F at = to; i > 0; at = via[static_cast<int>(at)]->from) r.edges[--i] = via[static_cast<int>(at)];
    return r;
}

void relayout(const Data& in, Work& w, const OpOptions& o) {
    if (o.to.empty()) throw std::runtime_error("relayout needs --to (" + yuvFormatList() + ")");
    const F to = targetFormat(o, F::I420);
    const YuvFrame& s = in.yuv;
    if (s.format == to) {
        w.out = in;
        return;
    }
    const Route r = route(s.format, to);
    if (r.count == 0)
        throw std::runtime_error(std::string("no chroma relayout from ") + formatName(s.format) + " to " + formatName(to) +
                                 " (i444 is reached only by decode/encode)");
    const YuvFrame* cur = &s;
    for (int i = 0; i < r.count; ++i) {
        const Edge* e = r.edges[i];
        YuvFrame& next = i + 1 == r.count ? w.outFrame(e->to, s.width, s.height) : w.frame(i % 2, e->to, s.width, s.height);
        e->run(*cur, next, roiOf(s.width, s.height));
        cur = &next;
    }
}

void upsampleFiltered(const Data& in, Work& w, const OpOptions&) {
    const YuvFrame& s = in.yuv;
    if (s.height % 8 != 0)
        throw std::runtime_error("upsample-filtered needs a height that is a multiple of 8, not " + std::to_string(s.height));
    if (s.format != F::I420 && s.format != F::NV12)
        throw std::runtime_error(std::string("upsample-filtered takes i420 or nv12 frames, not ") + formatName(s.format));
    YuvFrame& d = w.outFrame(F::I422, s.width, s.height);
    Planes dp = planesOf(d);
    const ZoriSize roi = roiOf(s.width, s.height);
    if (s.format == F::I420) {
        const Planes sp = planesOf(s);
        ZORCC_CALL(zoriYCbCr420ToYCbCr422_Filter_8u_P3R(sp.src.data(), sp.step.data(), dp.dst.data(), dp.step.data(), roi));
    } else {
        ZORCC_CALL(zoriYCbCr420ToYCbCr422_Filter_8u_P2P3R(s.plane(0), s.step(0), s.plane(1), s.step(1), dp.dst.data(),
                                                           dp.step.data(), roi));
    }
}

void deinterlace(const Data& in, Work& w, const OpOptions& o) {
    const YuvFrame* s = &in.yuv;
    const ZoriSize roi = roiOf(s->width, s->height);
    const F to = targetFormat(o, F::I420);
    if (to != F::I420 && to != F::YUY2) throw std::runtime_error("deinterlace writes i420 or yuy2 (--to), not " + o.to);
    if (s->format == F::I420) {
        YuvFrame& nv = w.frame(0, F::NV12, s->width, s->height);
        const Planes sp = planesOf(*s);
        ZORCC_CALL(zoriYCbCr420_8u_P3P2R(sp.src.data(), sp.step.data(), nv.plane(0), nv.step(0), nv.plane(1), nv.step(1), roi));
        s = &nv;
    } else if (s->format != F::NV12) {
        throw std::runtime_error(std::string("deinterlace takes i420 or nv12 frames, not ") + formatName(s->format));
    }
    YuvFrame& d = w.outFrame(to, s->width, s->height);
    if (to == F::I420) {
        // The filter writes planes Y, Cr, Cb.
        Zor8u* planes[3] = {d.plane(0), d.plane(2), d.plane(1)};
        const int steps[3] = {d.step(0), d.step(2), d.step(1)};
        ZORCC_CALL(zoriYCbCr420ToYCrCb420_Filter_8u_P2P3R(s->plane(0), s->step(0), s->plane(1), s->step(1), planes, steps,
                                                           roi, zorSliceWhole));
    } else {
        ZORCC_CALL(zoriYCbCr420ToYCbCr422_Filter_8u_P2C2R(s->plane(0), s->step(0), s->plane(1), s->step(1), d.plane(0),
                                                           d.step(0), roi, zorSliceWhole));
    }
}

}  // namespace

void addChromaOps(std::vector<Op>& ops) {
    std::vector<std::string> fns;
    for (const Edge& e : kEdges)
        fns.push_back(std::string(e.function) + " (" + formatName(e.from) + " -> " + formatName(e.to) + ")");
    ops.push_back({"relayout", "chroma",
                   "YCbCr frame to another layout or subsampling (--to; samples moved, dropped or repeated, never "
                   "averaged); chains calls where no single one fits",
                   fns, kYuv, Kind::Yuv, relayout, RangeUse::Keeps});
    ops.push_back({"upsample-filtered", "chroma",
                   "i420 or nv12 frame to i422 with chroma rows interpolated by the -1,9,9,-1 filter (height a "
                   "multiple of 8)",
                   {"zoriYCbCr420ToYCbCr422_Filter_8u_P3R (i420)", "zoriYCbCr420ToYCbCr422_Filter_8u_P2P3R (nv12)"},
                   kYuv, Kind::Yuv, upsampleFiltered, RangeUse::Keeps});
    ops.push_back({"deinterlace", "chroma",
                   "i420 or nv12 frame through the vertical deinterlacing filter, to i420 or yuy2 (--to, default i420)",
                   {"zoriYCbCr420_8u_P3P2R (i420 input)", "zoriYCbCr420ToYCrCb420_Filter_8u_P2P3R (to i420)",
                    "zoriYCbCr420ToYCbCr422_Filter_8u_P2C2R (to yuy2)"},
                   kYuv, Kind::Yuv, deinterlace, RangeUse::Keeps, true});
}

}  // namespace zorcc_tool
