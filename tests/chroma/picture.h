// Test pictures of subsampled YCbCr video in planar (P3), semi-planar (P2)
// and interleaved (C2) layouts, with sample access by component for the
// reference models, and uniform callers for the exported functions.
#pragma once

#include "support/testutil.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace ct {

enum class Kind { P3, P2, C2 };

// A layout: kind, subsampling (422, 420 or 411), and for P3 whether the
// planes are Y, Cr, Cb; for C2 the pair's byte order as a string of
// Y (luma), b (Cb) and r (Cr), e.g. "YbYr".
struct Layout {
    Kind kind;
    int sub;
    bool crFirst = false;
    const char* order = "YbYr";
};

inline Layout p3(int sub, bool crFirst = false) { return {Kind::P3, sub, crFirst, ""}; }
inline Layout p2(int sub) { return {Kind::P2, sub, false, ""}; }
inline Layout c2(const char* order) { return {Kind::C2, 422, false, order}; }

// Number of chroma rows and samples per row of a w x h picture (rounded up,
// so that buffers also hold the parts a conversion must leave alone).
inline int chromaRows(int sub, int h) { return sub == 420 ? (h + 1) / 2 : h; }
inline int chromaCols(int sub, int w) { return sub == 411 ? (w + 3) / 4 : (w + 1) / 2; }

// The images of one picture: P3 Y, first chroma, second chroma; P2 Y, CbCr;
// C2 one image. Each image has padded rows and guard bytes and starts random.
class Picture {
public:
    Picture(Layout l, int w, int h, std::uint32_t seed, int pad = 3) : lay_(l), w_(w), h_(h) {
        const int ch = chromaRows(l.sub, h), cw = chromaCols(l.sub, w);
        const int hh = h > 0 ? h : 0, chh = ch > 0 ? ch : 0;
        auto add = [&](int iw, int ih) {
            imgs_.emplace_back(iw, ih, 1, pad + static_cast<int>(imgs_.size()), seed + 7 * imgs_.size());
        };
        switch (l.kind) {
            case Kind::P3:
                add(w, hh);
                add(cw, chh);
                add(cw, chh);
                break;
            case Kind::P2:
                add(w, hh);
                add(2 * cw, chh);
                break;
            case Kind::C2:
                add(4 * ((w + 1) / 2), hh);
                break;
        }
    }

    // Views the images bottom-up (last row first, negative steps).
    void setFlipped(bool f) { flipped_ = f; }

    Zor8u* row(int img, int y) {
        zt::Image<Zor8u>& im = imgs_[img];
        return flipped_ ? im.row(im.height() - 1 - y) : im.row(y);
    }
    Zor8u* base(int img) {
        zt::Image<Zor8u>& im = imgs_[img];
        return flipped_ ? im.flippedData() : im.data();
    }
    int step(int img) const { return flipped_ ? imgs_[img].flippedStep() : imgs_[img].step(); }

    // Sample access by component.
    Zor8u& Y(int x, int y) {
        if (lay_.kind != Kind::C2) return row(0, y)[x];
        return row(0, y)[4 * (x / 2) + nth('Y', x % 2)];
    }
    Zor8u& C(int which /* 0 Cb, 1 Cr */, int k, int r) {
        switch (lay_.kind) {
            case Kind::P3:
                return row(1 + (which ^ (lay_.crFirst ? 1 : 0)), r)[k];
            case Kind::P2:
                return row(1, r)[2 * k + which];
            default:
                return row(0, r)[4 * k + nth(which == 0 ? 'b' : 'r', 0)];
        }
    }

    // Pointer arguments in the order the functions test them: P3 the array,
    // then planes 0, 1, 2; P2 the luma, then the chroma plane; C2 the image.
    int pointerCount() const { return lay_.kind == Kind::P3 ? 4 : lay_.kind == Kind::P2 ? 2 : 1; }
    // Makes pointer argument i null in the next calls (-1: none).
    void setNullPointer(int i) { null_ = i; }

    // Arguments of the exported functions.
    Zor8u* arg(int img) { return null_ == img ? nullptr : base(img); }
    const Zor8u* const* cplanes() {
        for (int i = 0; i < 3; ++i) cptr_[i] = null_ == i + 1 ? nullptr : base(i);
        return null_ == 0 ? nullptr : cptr_;
    }
    Zor8u* const* planes() {
        for (int i = 0; i < 3; ++i) ptr_[i] = null_ == i + 1 ? nullptr : base(i);
        return null_ == 0 ? nullptr : ptr_;
    }
    const int* steps() {
        for (int i = 0; i < 3; ++i) step_[i] = step(i);
        return step_;
    }

    std::vector<std::vector<std::uint8_t>> bytes() const {
        std::vector<std::vector<std::uint8_t>> b;
        for (const auto& im : imgs_) b.push_back(im.bytes());
        return b;
    }
    Layout layout() const { return lay_; }
    int images() const { return static_cast<int>(imgs_.size()); }

private:
    int nth(char c, int n) const {
        int seen = 0;
        for (int i = 0; i < 4; ++i)
            if (lay_.order[i] == c && seen++ == n) return i;
        return -1;
    }

    Layout lay_;
    int w_, h_;
    bool flipped_ = false;
    int null_ = -1;
    std::vector<zt::Image<Zor8u>> imgs_;
    const Zor8u* cptr_[3] = {};
    Zor8u* ptr_[3] = {};
    int step_[3] = {};
};

using Call = std::function<ZorStatus(Picture& src, Picture& dst, ZoriSize roi)>;

// Uniform callers, one per signature shape (source layout, destination
// layout).
using FnP3C2 = ZorStatus (*)(const Zor8u* const*, const int*, Zor8u*, int, ZoriSize);
using FnC2P3 = ZorStatus (*)(const Zor8u*, int, Zor8u* const*, const int*, ZoriSize);
using FnC2C2 = ZorStatus (*)(const Zor8u*, int, Zor8u*, int, ZoriSize);
using FnP3P2 = ZorStatus (*)(const Zor8u* const*, const int*, Zor8u*, int, Zor8u*, int, ZoriSize);
using FnP2P3 = ZorStatus (*)(const Zor8u*, int, const Zor8u*, int, Zor8u* const*, const int*, ZoriSize);
using FnP3P3 = ZorStatus (*)(const Zor8u* const*, const int*, Zor8u* const*, const int*, ZoriSize);
using FnC2P2 = ZorStatus (*)(const Zor8u*, int, Zor8u*, int, Zor8u*, int, ZoriSize);
using FnP2C2 = ZorStatus (*)(const Zor8u*, int, const Zor8u*, int, Zor8u*, int, ZoriSize);

inline Call bind(FnP3C2 f) {
    return [f](Picture& s, Picture& d, ZoriSize r) { return f(s.cplanes(), s.steps(), d.arg(0), d.step(0), r); };
}
inline Call bind(FnC2P3 f) {
    return [f](Picture& s, Picture& d, ZoriSize r) { return f(s.arg(0), s.step(0), d.planes(), d.steps(), r); };
}
inline Call bind(FnC2C2 f) {
    return [f](Picture& s, Picture& d, ZoriSize r) { return f(s.arg(0), s.step(0), d.arg(0), d.step(0), r); };
}
inline Call bind(FnP3P2 f) {
    return [f](Picture& s, Picture& d, ZoriSize r) {
        return f(s.cplanes(), s.steps(), d.arg(0), d.step(0), d.arg(1), d.step(1), r);
    };
}
inline Call bind(FnP2P3 f) {
    return [f](Picture& s, Picture& d, ZoriSize r) {
        return f(s.arg(0), s.step(0), s.arg(1), s.step(1), d.planes(), d.steps(), r);
    };
}
inline Call bind(FnP3P3 f) {
    return [f](Picture& s, Picture& d, ZoriSize r) { return f(s.cplanes(), s.steps(), d.planes(), d.steps(), r); };
}
inline Call bind(FnC2P2 f) {
    return [f](Picture& s, Picture& d, ZoriSize r) {
        return f(s.arg(0), s.step(0), d.arg(0), d.step(0), d.arg(1), d.step(1), r);
    };
}
inline Call bind(FnP2C2 f) {
    return [f](Picture& s, Picture& d, ZoriSize r) {
        return f(s.arg(0), s.step(0), s.arg(1), s.step(1), d.arg(0), d.step(0), r);
    };
}

}  // namespace ct
