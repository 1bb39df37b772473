#include "ops.h"

#include <stdexcept>

namespace zorcc_tool {

const std::vector<Op>& allOps() {
    static const std::vector<Op> ops = [] {
        std::vector<Op> v;
        addVideoOps(v);
        addPackedOps(v);
        addChromaOps(v);
        addModelOps(v);
        addTwistOps(v);
        addReduceOps(v);
        addYCoCgOps(v);
        return v;
    }();
    return ops;
}

const Op* findOp(const std::string& name) {
    for (const Op& op : allOps())
        if (op.name == name) return &op;
    return nullptr;
}

void check(ZorStatus st, const char* function) {
    if (st >= 0) return;
    std::string name(function);
    name = name.substr(0, name.find('('));
    const char* what = "";
    switch (st) {
        case zorStsBadSize: what = " (image size not accepted)"; break;
        case zorStsNullPtr: what = " (null pointer)"; break;
        case zorStsNoMemory: what = " (out of memory)"; break;
        case zorStsStepErr: what = " (bad row step)"; break;
        case zorStsLevelsRangeErr: what = " (levels out of range)"; break;
        case zorStsNoiseRangeErr: what = " (noise out of range 0..100)"; break;
        default: break;
    }
    throw std::runtime_error(name + " failed with status " + std::to_string(static_cast<int>(st)) + what);
}

const Image8& rgb8Of(const Data& in, Work& w) {
    const Picture& p = in.image;
    if (p.depth == 8 && p.channels() == 3) return p.i8;
    if (p.depth == 8) rgbInto(p.i8, w.images[1]);
    else rgbInto(p.i16, w.images[1]);
    return w.images[1];
}

const Image16& rgb16Of(const Data& in, Work& w) {
    const Picture& p = in.image;
    if (p.depth == 16 && p.channels() == 3) return p.i16;
    if (p.depth == 8) rgbInto(p.i8, w.image16);
    else rgbInto(p.i16, w.image16);
    return w.image16;
}

YuvFormat targetFormat(const OpOptions& o, YuvFormat fallback) {
    if (o.to.empty()) return fallback;
    YuvFormat f;
    if (!parseYuvFormat(o.to, f)) throw std::runtime_error("unknown --to format '" + o.to + "' (use " + yuvFormatList() + ")");
    return f;
}

Planes planesOf(YuvFrame& f) {
    Planes p;
    for (int i = 0; i < f.planeCount() && i < 3; ++i) {
        p.src[i] = p.dst[i] = f.plane(i);
        p.step[i] = f.step(i);
    }
    return p;
}

Planes planesOf(const YuvFrame& f) { return planesOf(const_cast<YuvFrame&>(f)); }

}  // namespace zorcc_tool
