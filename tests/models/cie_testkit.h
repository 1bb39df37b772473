// Shared harness of the XYZ, LUV, Lab and PhotoYCC tests: argument checks,
// whole-buffer comparison against a per-row model written in the test, with
// positive and negative steps, and team-size independence.
#pragma once

#include "support/testutil.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>
#include <random>
#include <type_traits>
#include <vector>

namespace ck {

template <class S, class D>
using Fn = ZorStatus (*)(const S*, int, D*, int, ZoriSize);

// A model of one row: (source row, destination row, width, channel count).
template <class S, class D>
using RowModel = std::function<void(const S*, D*, int, int)>;

inline constexpr int kPad = 12;  // row padding in bytes (a multiple of 4)

template <class T>
void expectSameImage(const zt::Image<T>& got, const zt::Image<T>& want, const char* what) {
    const std::ptrdiff_t i = zt::firstDifference(got.bytes(), want.bytes());
    if (i < 0) return;
    const std::ptrdiff_t off = i - zt::kGuard;
    ADD_FAILURE() << what << ": first differing byte " << i << " (row " << (off >= 0 ? off / got.step() : -1)
                  << ", byte " << (off >= 0 ? off % got.step() : off) << ")";
}

// The expected destination: a copy of the initial destination with the model
// applied to each row.
template <class S, class D>
zt::Image<D> expected(const zt::Image<S>& src, zt::Image<D> dst, const RowModel<S, D>& model) {
    for (int y = 0; y < src.height(); ++y) model(src.row(y), dst.row(y), src.width(), dst.channels());
    return dst;
}

// The function against the model on src, top-down and bottom-up (negative
// steps), comparing the whole destination allocation.
template <class S, class D>
void expectModel(Fn<S, D> fn, int dstChannels, zt::Image<S>& src, const RowModel<S, D>& model,
                 std::uint32_t seed = 99) {
    const ZoriSize roi{src.width(), src.height()};
    const zt::Image<D> fresh(src.width(), src.height(), dstChannels, kPad, seed);
    const zt::Image<D> want = expected(src, fresh, model);
    zt::Image<D> got = fresh;
    ASSERT_EQ(fn(src.data(), src.step(), got.data(), got.step(), roi), zorStsOk);
    expectSameImage(got, want, "top-down");
    zt::Image<D> flipped = fresh;
    ASSERT_EQ(fn(src.flippedData(), src.flippedStep(), flipped.flippedData(), flipped.flippedStep(), roi), zorStsOk);
    expectSameImage(flipped, want, "bottom-up");
}

// Same destination for teams of 1..4 threads and inside an outer region.
template <class S, class D>
void expectTeamIndependent(Fn<S, D> fn, int dstChannels, zt::Image<S>& src) {
    const ZoriSize roi{src.width(), src.height()};
    zt::expectTeamIndependent<zt::Image<D>>(
        [&] { return zt::Image<D>(src.width(), src.height(), dstChannels, kPad, 5); },
        [&](zt::Image<D>& d) { ASSERT_EQ(fn(src.data(), src.step(), d.data(), d.step(), roi), zorStsOk); });
}

// Pointers before size; nothing written on an error; steps not validated (a
// zero source step repeats the first source row).
template <class S, class D>
void expectChecks(Fn<S, D> fn, int srcChannels, int dstChannels, const RowModel<S, D>& model) {
    zt::Image<S> src(5, 4, srcChannels, kPad, 3);
    const zt::Image<D> keep(5, 4, dstChannels, kPad, 4);
    zt::Image<D> dst = keep;
    const int ss = src.step(), ds = dst.step();
    EXPECT_EQ(fn(nullptr, ss, dst.data(), ds, {5, 4}), zorStsNullPtr);
    EXPECT_EQ(fn(src.data(), ss, nullptr, ds, {5, 4}), zorStsNullPtr);
    EXPECT_EQ(fn(nullptr, ss, dst.data(), ds, {0, 4}), zorStsNullPtr);
    EXPECT_EQ(fn(src.data(), ss, nullptr, ds, {5, -1}), zorStsNullPtr);
    for (ZoriSize bad : {ZoriSize{0, 4}, ZoriSize{5, 0}, ZoriSize{-1, 4}, ZoriSize{5, -3}, ZoriSize{0, 0}})
        EXPECT_EQ(fn(src.data(), ss, dst.data(), ds, bad), zorStsBadSize);
    EXPECT_TRUE(dst == keep) << "an error status wrote to the destination";

    // A zero source step: every destination row is the conversion of row 0.
    zt::Image<D> want = keep;
    for (int y = 0; y < 4; ++y) model(src.row(0), want.row(y), 5, dstChannels);
    EXPECT_EQ(fn(src.data(), 0, dst.data(), ds, {5, 4}), zorStsOk);
    expectSameImage(dst, want, "zero source step");

    // A 1x1 region writes exactly one pixel.
    zt::Image<D> one = keep, oneWant = keep;
    model(src.row(0), oneWant.row(0), 1, dstChannels);
    EXPECT_EQ(fn(src.data(), ss, one.data(), ds, {1, 1}), zorStsOk);
    expectSameImage(one, oneWant, "1x1");
}

// 16-bit and float images take their byte step as a count of elements
// (shifted right), so the low bits of a step are ignored.
template <class S, class D>
void expectStepLowBitsIgnored(Fn<S, D> fn, int dstChannels, zt::Image<S>& src) {
    static_assert(sizeof(S) == sizeof(D) && sizeof(S) > 1, "same wide sample type");
    const ZoriSize roi{src.width(), src.height()};
    const zt::Image<D> fresh(src.width(), src.height(), dstChannels, kPad, 8);
    zt::Image<D> a = fresh, b = fresh;
    const int extra = static_cast<int>(sizeof(S)) - 1;
    ASSERT_EQ(fn(src.data(), src.step(), a.data(), a.step(), roi), zorStsOk);
    ASSERT_EQ(fn(src.data(), src.step() + extra, b.data(), b.step() + extra, roi), zorStsOk);
    expectSameImage(b, a, "step with low bits set");
}

// Random sample generators.
struct Rng {
    std::mt19937 gen;
    explicit Rng(std::uint32_t seed) : gen(seed) {}
    int integer(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(gen); }
    float real(float lo, float hi) { return std::uniform_real_distribution<float>(lo, hi)(gen); }
};

// An image whose pixels (channels 0..2) run through every combination of
// `values` first, then continue with values from gen().
template <class T, class Gen>
zt::Image<T> edgeImage(int width, int height, int channels, const std::vector<T>& values, Gen gen) {
    zt::Image<T> img(width, height, channels, kPad, 11);
    const std::size_t n = values.size();
    std::size_t k = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x, ++k) {
            if (k < n * n * n) {
                img.at(x, y, 0) = values[k % n];
                img.at(x, y, 1) = values[(k / n) % n];
                img.at(x, y, 2) = values[k / (n * n)];
            } else {
                for (int c = 0; c < 3; ++c) img.at(x, y, c) = gen();
            }
        }
    return img;
}

// Counts pixels on which two models disagree over the rows of src; used to
// show that an input discriminates a quirk from its "fixed" form.
template <class S, class D>
int disagreements(const zt::Image<S>& src, const RowModel<S, D>& a, const RowModel<S, D>& b) {
    int n = 0;
    std::vector<D> ra(static_cast<std::size_t>(src.width()) * 3), rb(ra.size());
    for (int y = 0; y < src.height(); ++y) {
        a(src.row(y), ra.data(), src.width(), 3);
        b(src.row(y), rb.data(), src.width(), 3);
        for (std::size_t i = 0; i < ra.size(); i += 3)
            if (std::memcmp(&ra[i], &rb[i], 3 * sizeof(D)) != 0) ++n;
    }
    return n;
}

// Per-pixel adaptor: a model of one pixel (3 samples in, 3 written) as a row
// model that steps by the channel count.
template <class S, class D, class Px>
RowModel<S, D> perPixel(Px px) {
    return [px](const S* s, D* d, int width, int ch) {
        const int sch = ch;  // source and destination share the channel count
        for (int i = 0; i < width; ++i) px(s + i * sch, d + i * ch);
    };
}

// Truncation toward zero with saturation: hi or more gives hi, below 1 gives 0.
inline int satTrunc(double v, int hi) {
    if (v >= hi) return hi;
    if (!(v >= 1)) return 0;  // NaN too
    return static_cast<int>(v);
}

// ---------------------------------------------------------------------------
// Model pieces shared by the tests: the RGB/XYZ matrices, a matrix row summed
// left to right in float, the float clamp and the cube root through pow.

inline const float kF[3][3] = {{0.412453f, 0.35758f, 0.180423f},
                               {0.212671f, 0.71516f, 0.072169f},
                               {0.019334f, 0.119193f, 0.950227f}};
inline const float kI[3][3] = {{3.240479f, -1.53715f, -0.498535f},
                               {-0.969256f, 1.875991f, 0.041556f},
                               {0.055648f, -0.204043f, 1.057311f}};

inline float rowSum(const float* m, float a, float b, float c) {
    float s = m[0] * a;
    s = s + m[1] * b;
    s = s + m[2] * c;
    return s;
}

inline float clamp01(float v) { return v < 0 ? 0.0f : v >= 1 ? 1.0f : v; }

inline float cubeRoot(float y) {
    return static_cast<float>(std::pow(static_cast<double>(y), static_cast<double>(1.0f / 3.0f)));
}

// 16-bit image with the ends and the middle of the range among random samples.
template <class T>
zt::Image<T> image16(int ch, std::uint32_t seed) {
    Rng rng(seed);
    const int lo = std::is_signed<T>::value ? -32768 : 0;
    const std::vector<T> edges = {T(lo), T(lo + 1), T(lo + 32767), T(lo + 32768), T(lo + 65534), T(lo + 65535)};
    return edgeImage<T>(23, 17, ch, edges, [&] { return static_cast<T>(rng.integer(lo, lo + 65535)); });
}

// One member against its model, and its results for every team size.
template <class S, class D>
void member(Fn<S, D> fn, int ch, zt::Image<S> src, const RowModel<S, D>& model) {
    SCOPED_TRACE(ch == 3 ? "C3R" : "AC4R");
    expectModel(fn, ch, src, model);
    expectTeamIndependent(fn, ch, src);
}

}  // namespace ck
