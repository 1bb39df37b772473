#include "support/call_harness.h"

#include <climits>
#include <cstdlib>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include <sys/mman.h>

namespace zt {

using zor::describe::Arg;
using zor::describe::Dir;
using zor::describe::Function;
using zor::describe::Kind;
using zor::describe::Param;

std::uint32_t Choices::take(std::uint32_t range) {
    if (range <= 1) return 0;
    std::uint32_t v = 0;
    for (std::uint32_t r = range - 1; r != 0; r >>= 8) {
        v = (v << 8) | (n_ > 0 ? *p_ : 0);
        if (n_ > 0) ++p_, --n_;
    }
    return v % range;
}

std::uint32_t Choices::word() {
    return take(0xFFFFFFFFu) ^ (take(2) << 31);
}

namespace {

bool isImage(Kind k) { return k != Kind::Roi && k != Kind::Value && k != Kind::Pointer; }
bool hasSteps(Kind k) { return k != Kind::WholeC && k != Kind::WholeP3; }

// Row bytes and row count of each plane of an image parameter.
std::vector<std::pair<std::ptrdiff_t, int>> planeShapes(const Param& p, ZoriSize roi) {
    const std::ptrdiff_t w = roi.width > 0 ? roi.width : 0, b = p.bytes;
    const int h = roi.height > 0 ? roi.height : 0;
    const int chromaRows = (h + (1 << p.v) - 1) >> p.v;
    const std::ptrdiff_t cw = p.kind == Kind::WholeP3 && !p.chromaUp ? w / p.h : (w + p.h - 1) / p.h;
    switch (p.kind) {
        case Kind::C: case Kind::WholeC: return {{p.channels * b * w, h}};
        case Kind::P4: return {{b * w, h}, {b * w, h}, {b * w, h}, {b * w, h}};
        case Kind::P2: return {{b * w, h}, {2 * b * cw, chromaRows}};
        default: return {{b * w, h}, {b * cw, chromaRows}, {b * cw, chromaRows}};
    }
}

const int kInts[] = {0, 1, 2, 3, 4, 5, 7, 8, 15, 16, 17, 100, 101, 255, 256, 257, 65535, 65536, 65537, -1, INT_MIN, INT_MAX};

float pickFloat(Choices& c) {
    const float inf = std::numeric_limits<float>::infinity();
    const float set[] = {0.f, 1.f, -1.f, 0.5f, 0.25f, 2.2f, 255.f, 65535.f, 1e30f, -1e30f, 1e-40f,
                         std::numeric_limits<float>::quiet_NaN(), inf, -inf};
    const std::uint32_t k = c.take(sizeof(set) / sizeof(set[0]) + 2);
    if (k < sizeof(set) / sizeof(set[0])) return set[k];
    if (k == sizeof(set) / sizeof(set[0])) return static_cast<float>(c.take(2001)) / 1000.f - 1.f;
    const std::uint32_t bits = c.word();
    float f;
    std::memcpy(&f, &bits, 4);
    return f;
}

}  // namespace

Call::Call(const Function& f, ZoriSize roi, std::uint32_t seed) : fn_(&f), roi_(roi) { build(seed, nullptr); }

Call::Call(const Function& f, ZoriSize roi, Choices& c) : fn_(&f), roi_(roi) { build(c.word(), &c); }

void Call::layout(Image& im, StepMode mode, int pad) {
    const Param& p = fn_->params[im.param];
    im.mode = mode, im.pad = pad;
    const auto shapes = planeShapes(p, roi_);
    // Kinds with one step for all planes get the widest plane's step.
    const bool shared = p.kind == Kind::C || p.kind == Kind::P3 || p.kind == Kind::P4;
    std::ptrdiff_t widest = 0;
    for (const auto& s : shapes) widest = std::max(widest, s.first);
    for (int k = 0; k < im.planeCount; ++k) {
        Plane& pl = planes_[im.firstPlane + k];
        pl.rowBytes = shapes[k].first;
        pl.rows = shapes[k].second;
        const std::ptrdiff_t base = shared ? widest : pl.rowBytes;
        switch (hasSteps(p.kind) ? mode : StepMode::Exact) {
            case StepMode::Exact: pl.step = base; break;
            case StepMode::Padded: pl.step = base + pad; break;
            case StepMode::Negative: pl.step = -(base + pad); break;
            case StepMode::Zero: pl.step = 0; break;
        }
        // A step in whole samples is rounded down (towards minus infinity).
        const std::ptrdiff_t b = p.bytes;
        pl.eff = p.elements || wholeSamples_ ? (pl.step >= 0 ? pl.step / b : -((-pl.step + b - 1) / b)) * b : pl.step;
        const std::ptrdiff_t a = pl.eff < 0 ? -pl.eff : pl.eff;
        const bool empty = pl.rows < 1 || pl.rowBytes < 1;
        const std::size_t size = empty ? 1 : static_cast<std::size_t>((pl.rows - 1) * a + pl.rowBytes);
        pl.first = empty || pl.eff >= 0 ? 0 : (pl.rows - 1) * a;
        pl.written = p.dir != Dir::In;
        pl.floats = p.type == "32f";
        if (size > Plane::kBig) {
            void* m = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
            if (m == MAP_FAILED) std::abort();
            pl.big.reset(static_cast<std::uint8_t*>(m), [size](std::uint8_t* q) { munmap(q, size); });
            pl.bytes.clear();
            pl.mask.clear();
            continue;
        }
        pl.big.reset();
        std::vector<std::uint8_t> old = std::move(pl.bytes);
        pl.bytes.assign(size, 0);
        for (std::size_t i = 0; i < size; ++i) pl.bytes[i] = old.empty() ? 0 : old[i % old.size()];
        if (!pl.written) continue;
        pl.mask.assign(size, 0);
        for (int r = 0; r < pl.rows && !empty; ++r)
            for (std::ptrdiff_t i = 0; i < pl.rowBytes; ++i) {
                const bool alpha = p.keepsAlpha && p.kind == Kind::C && (i / p.bytes) % 4 == 3;
                if (!alpha) pl.mask[pl.first + r * pl.eff + i] = 1;
            }
    }
}

void Call::build(std::uint32_t seed, Choices* c) {
    std::mt19937 rng(seed);
    const auto& ps = fn_->params;
    values_.assign(ps.size(), Arg{});
    pointees_.assign(ps.size(), {});
    nullPointer_.assign(ps.size(), false);
    for (std::size_t i = 0; i < ps.size(); ++i) {
        const Param& p = ps[i];
        if (isImage(p.kind)) {
            Image im{i, static_cast<int>(planes_.size()), static_cast<int>(planeShapes(p, roi_).size())};
            planes_.resize(planes_.size() + im.planeCount);
            StepMode mode = StepMode::Exact;
            int pad = 0;
            if (c != nullptr) {
                mode = static_cast<StepMode>(c->take(4));
                pad = 1 + static_cast<int>(c->take(17));
            }
            layout(im, mode, pad);
            for (int k = 0; k < im.planeCount; ++k)
                for (auto& byte : planes_[im.firstPlane + k].bytes) byte = static_cast<std::uint8_t>(rng());
            images_.push_back(im);
        } else if (p.kind == Kind::Roi) {
            values_[i].size = roi_;
        } else if (p.kind == Kind::Value && p.type == "32f") {
            values_[i].f = c != nullptr ? pickFloat(*c) : p.name == "vMax" ? 1.0 : 0.0;
        } else if (p.kind == Kind::Value) {
            const long long ordinary = p.name == "levels" ? 16 : p.name == "noise" ? 10 : rng() % 5;
            values_[i].i = c == nullptr                 ? ordinary
                           : c->take(4) == 0            ? static_cast<int>(c->word())
                           : c->take(3) == 0            ? ordinary
                                                        : kInts[c->take(sizeof(kInts) / sizeof(kInts[0]))];
        } else {  // pointer
            std::size_t count = 1;
            for (int d : p.shape) count *= static_cast<std::size_t>(d);
            pointees_[i].resize(count * static_cast<std::size_t>(p.bytes));
            for (std::size_t k = 0; k < count; ++k) {
                float f = static_cast<float>(rng() % 2001) / 1000.f - 1.f;
                if (c != nullptr && c->take(4) == 0) f = pickFloat(*c);
                if (p.type == "32f") std::memcpy(&pointees_[i][k * 4], &f, 4);
            }
            if (c != nullptr && p.nullable && c->take(8) == 0) nullPointer_[i] = true;
        }
    }
    // A slice layout of the deinterlacing filters (top 1, middle 4, bottom
    // 16) reads and writes rows beyond its region by design: the whole
    // picture (21) instead.
    for (std::size_t i = 0; i < ps.size(); ++i)
        if (ps[i].name == "layout" && (values_[i].i == 1 || values_[i].i == 4 || values_[i].i == 16)) values_[i].i = 21;
    // The dither methods of ReduceBits (1 to 4) take steps in whole samples,
    // plain quantisation in bytes.
    for (std::size_t i = 0; i < ps.size(); ++i)
        if (ps[i].name == "dtype" && values_[i].i >= 1 && values_[i].i <= 4) wholeSamples_ = true;
    if (wholeSamples_)
        for (Image& im : images_) layout(im, im.mode, im.pad);
    // Now and then one null pointer: an image's own pointer or a plane
    // pointer, or a pointer argument.
    if (c != nullptr && c->take(16) == 0) {
        const std::uint32_t pick = c->take(static_cast<std::uint32_t>(images_.size() + 1));
        if (pick < images_.size()) {
            Image& im = images_[pick];
            const Kind k = fn_->params[im.param].kind;
            // A plane array gets a null plane, not a null array or array of
            // steps: some chroma layout functions read the source planes
            // before they test the array, and take the steps as given.
            im.nullWhat = k == Kind::C || k == Kind::WholeC || k == Kind::P2 ? 1 : 2;
        } else {
            for (std::size_t i = 0; i < ps.size(); ++i)
                if (ps[i].kind == Kind::Pointer) nullPointer_[i] = true;
        }
    }
}

void Call::setSteps(StepMode mode, int pad) {
    for (Image& im : images_) im.mode = mode, im.pad = pad;
    relayout();
}

void Call::relayout() {
    const std::vector<Plane> old = planes_;
    for (Image& im : images_) layout(im, im.mode, im.pad);
    for (std::size_t k = 0; k < planes_.size(); ++k)
        for (int r = 0; r < planes_[k].rows; ++r)
            std::memcpy(planes_[k].data() + planes_[k].first + r * planes_[k].eff,
                        old[k].data() + old[k].first + r * old[k].eff, planes_[k].rowBytes);
}

void Call::setValue(const std::string& name, long long v) {
    for (std::size_t i = 0; i < fn_->params.size(); ++i)
        if (fn_->params[i].kind == Kind::Value && fn_->params[i].name == name) values_[i].i = v, values_[i].f = v;
    if (name == "dtype" && wholeSamples_ != (v >= 1 && v <= 4)) {
        wholeSamples_ = !wholeSamples_;
        relayout();
    }
}

void Call::setRoi(ZoriSize roi) {
    roi_ = roi;
    for (std::size_t i = 0; i < fn_->params.size(); ++i)
        if (fn_->params[i].kind == Kind::Roi) values_[i].size = roi;
}

bool Call::nullPlanes() {
    bool any = false;
    for (Image& im : images_)
        if (im.planeCount > 2) im.nullWhat = 2, any = true;
    return any;
}

bool Call::sameRows(const Call& o) const {
    for (std::size_t k = 0; k < planes_.size(); ++k) {
        const Plane &a = planes_[k], &b = o.planes_[k];
        for (int r = 0; r < a.rows && a.written; ++r)
            if (std::memcmp(a.data() + a.first + r * a.eff, b.data() + b.first + r * b.eff, a.rowBytes) != 0) return false;
    }
    return true;
}

ZorStatus Call::run() {
    std::vector<Arg> a;
    for (std::size_t i = 0; i < fn_->params.size(); ++i) {
        const Param& p = fn_->params[i];
        if (!isImage(p.kind)) {
            a.push_back(values_[i]);
            if (p.kind == Kind::Pointer) a.back().p = nullPointer_[i] ? nullptr : pointees_[i].data();
            continue;
        }
        Image* im = nullptr;
        for (Image& m : images_)
            if (m.param == i) im = &m;
        Plane* pl = &planes_[im->firstPlane];
        for (int k = 0; k < im->planeCount; ++k) im->planePtrs[k] = pl[k].data() + pl[k].first;
        if (im->nullWhat == 2) im->planePtrs[im->planeCount - 1] = nullptr;
        const bool nullOuter = im->nullWhat == 1;
        Arg ptr, step;
        switch (p.kind) {
            case Kind::C: case Kind::WholeC:
                ptr.p = nullOuter ? nullptr : im->planePtrs[0];
                step.i = pl[0].step;
                a.push_back(ptr);
                if (p.kind == Kind::C) a.push_back(step);
                break;
            case Kind::P2: {
                Arg y, ys, cc, cs;
                y.p = nullOuter ? nullptr : im->planePtrs[0];
                ys.i = pl[0].step;
                cc.p = im->planePtrs[1];
                cs.i = pl[1].step;
                a.insert(a.end(), {y, ys, cc, cs});
                break;
            }
            default:  // plane arrays
                ptr.p = nullOuter ? nullptr : static_cast<void*>(im->planePtrs);
                a.push_back(ptr);
                if (p.kind == Kind::P3S) {
                    for (int k = 0; k < 3; ++k) im->stepArray[k] = static_cast<int>(pl[k].step);
                    step.p = static_cast<void*>(im->stepArray);
                    a.push_back(step);
                } else if (p.kind != Kind::WholeP3) {
                    step.i = pl[0].step;
                    a.push_back(step);
                }
        }
    }
    return fn_->invoke(a.data());
}

std::string Call::verify(const Call& before, ZorStatus st) const {
    for (std::size_t k = 0; k < planes_.size(); ++k) {
        const Plane &now = planes_[k], &old = before.planes_[k];
        if (now.big || old.big) continue;
        for (std::size_t i = 0; i < now.bytes.size(); ++i) {
            if (now.bytes[i] == old.bytes[i]) continue;
            const std::string where = "plane " + std::to_string(k) + " byte " + std::to_string(i) + ": ";
            if (!now.written) return where + "a source changed";
            if (st < 0) return where + "written although the status is " + std::to_string(st);
            if (!now.mask[i]) return where + "written outside the region (padding or alpha)";
        }
    }
    if (pointees_ != before.pointees_) return "a pointer argument's values changed";
    return {};
}

namespace {
bool isNan(const std::uint8_t* p) {
    std::uint32_t w;
    std::memcpy(&w, p, 4);
    return (w & 0x7F800000u) == 0x7F800000u && (w & 0x007FFFFFu) != 0;
}
}  // namespace

int Call::firstDifferentPlane(const Call& o) const {
    for (std::size_t k = 0; k < planes_.size(); ++k) {
        const auto &a = planes_[k].bytes, &b = o.planes_[k].bytes;
        if (a == b) continue;
        if (!planes_[k].floats || a.size() != b.size()) return static_cast<int>(k);
        // Float planes: compare the samples where the rows put them (the
        // plane starts at a sample, steps may be odd), NaN equal to NaN.
        for (std::size_t i = 0; i < a.size(); ++i) {
            if (a[i] == b[i]) continue;
            bool nan = false;
            for (std::size_t s = i >= 3 ? i - 3 : 0; s <= i && !nan; ++s)
                nan = s + 4 <= a.size() && isNan(&a[s]) && isNan(&b[s]);
            if (!nan) return static_cast<int>(k);
        }
    }
    return -1;
}

std::string Call::describeArgs() const {
    std::string s = fn_->name + " " + std::to_string(roi_.width) + "x" + std::to_string(roi_.height) + " steps";
    for (const Plane& p : planes_) s += " " + std::to_string(p.step);
    for (std::size_t i = 0; i < fn_->params.size(); ++i) {
        const Param& p = fn_->params[i];
        if (p.kind == Kind::Value)
            s += " " + p.name + "=" + (p.type == "32f" ? std::to_string(values_[i].f) : std::to_string(values_[i].i));
        if (p.kind == Kind::Pointer && nullPointer_[i]) s += " " + p.name + "=null";
    }
    for (const Image& im : images_)
        if (im.nullWhat) s += " null" + std::to_string(im.nullWhat) + "@param" + std::to_string(im.param);
    return s;
}

}  // namespace zt
