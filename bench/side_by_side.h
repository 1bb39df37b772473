// Shared frame of the side-by-side benchmark (bench/side_by_side*.cpp): the
// frame layouts, the buffers, a case, and the registry that each family's
// file adds its cases to.
#pragma once

#include "zorcc.h"

#include <time.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#ifdef ZORCC_BENCH_HAVE_LIBYUV
#include <libyuv.h>
#endif
#ifdef ZORCC_BENCH_HAVE_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#endif

namespace sbs {

constexpr int kW = 1920, kH = 1080;
constexpr ZoriSize kRoi{kW, kH};

// A frame layout: packed pixels of `bpp` bytes, or (bpp 0) three planes of
// which the two chroma planes are W/cw x H/ch. The planes of a frame lie one
// after the other in one block, as in I420, so that OpenCV sees the same
// bytes as one image of 1.5 H rows. Samples are `sample` bytes wide, of kind
// 'u' (unsigned), 's' (signed) or 'f' (float).
struct Layout {
    int bpp, cw, ch, sample;
    char kind;
};
constexpr Layout packed(int bpp) { return {bpp, 0, 0, 1, 'u'}; }
constexpr Layout planar(int cw, int ch) { return {0, cw, ch, 1, 'u'}; }
// Packed pixels of `channels` samples of type T.
template <class T>
constexpr Layout packedOf(int channels) {
    return {channels * static_cast<int>(sizeof(T)), 0, 0, static_cast<int>(sizeof(T)),
            T(0.5) != T(0) ? 'f' : T(-1) < T(0) ? 's' : 'u'};
}
// Three full-size planes of samples of type T.
template <class T>
constexpr Layout planesOf() {
    Layout l = packedOf<T>(1);
    return {0, 1, 1, l.sample, l.kind};
}

// A 64-byte aligned buffer that starts `skew` bytes into its allocation.
// Large allocations all start at the same offset in a 4 KiB page; a source
// and a destination of the same layout would then share the address bits
// below 4 KiB at every pixel, and the processor stalls loads that look like
// reloads of pending stores to the other buffer (4K aliasing). The buffers
// of a case get different skews to keep that accident out of the comparison.
class Block {
public:
    Block(std::size_t n, std::size_t skew)
        : n_(n), base_(static_cast<Zor8u*>(std::aligned_alloc(64, (n + skew + 63) / 64 * 64))), p_(base_ + skew) {
        if (!base_) {
            std::fprintf(stderr, "out of memory\n");
            std::exit(1);
        }
    }
    ~Block() { std::free(base_); }
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    Zor8u* data() const { return p_; }
    std::size_t size() const { return n_; }

    // Deterministic noise: every library reads the same bytes. Float
    // samples are noise in [0, 1).
    void fill(std::uint32_t seed, bool floats = false) {
        std::uint32_t x = seed * 2654435761u + 1u;
        auto next = [&x] {
            x ^= x << 13;
            x ^= x >> 17;
            x ^= x << 5;
            return x;
        };
        if (floats) {
            for (std::size_t i = 0; i + 4 <= n_; i += 4) {
                const float v = static_cast<float>(next() >> 8) * (1.0f / 16777216.0f);
                std::memcpy(p_ + i, &v, 4);
            }
            return;
        }
        for (std::size_t i = 0; i < n_; ++i) p_[i] = static_cast<Zor8u>(next() >> 24);
    }

private:
    std::size_t n_;
    Zor8u* base_;
    Zor8u* p_;
};

inline std::size_t frameBytes(Layout l) {
    const std::size_t luma = static_cast<std::size_t>(kW) * kH;
    if (l.bpp) return luma * l.bpp;
    return (luma + 2 * static_cast<std::size_t>(kW / l.cw) * (kH / l.ch)) * l.sample;
}

class Image {
public:
    Image(Layout l, std::size_t skew) : layout_(l), block_(frameBytes(l), skew) {
        plane_[0] = plane_[1] = plane_[2] = block_.data();
        step_[0] = step_[1] = step_[2] = l.bpp ? kW * l.bpp : kW * l.sample;
        if (!l.bpp) {
            const int cw = kW / l.cw, ch = kH / l.ch;
            plane_[1] = block_.data() + static_cast<std::size_t>(kW) * kH * l.sample;
            plane_[2] = plane_[1] + static_cast<std::size_t>(cw) * ch * l.sample;
            step_[1] = step_[2] = cw * l.sample;
        }
    }
    void fill(std::uint32_t seed) { block_.fill(seed, layout_.kind == 'f'); }
    Zor8u* p(int i = 0) { return plane_[i]; }
    Zor16u* w() { return reinterpret_cast<Zor16u*>(plane_[0]); }
    // The first plane, or all three, as samples of type T.
    template <class T>
    T* as(int i = 0) {
        return reinterpret_cast<T*>(plane_[i]);
    }
    template <class T>
    T* const* planesAs() {
        return reinterpret_cast<T* const*>(plane_);
    }
    int st(int i = 0) const { return step_[i]; }
    Zor8u* const* pl() { return plane_; }
    const int* sts() const { return step_; }
    std::size_t bytes() const { return block_.size(); }
    Block& block() { return block_; }
    Layout layout() const { return layout_; }

private:
    Layout layout_;
    Block block_;
    Zor8u* plane_[3];
    int step_[3];
};

using Job = int (*)(Image& s, Image& d);

struct Case {
    const char* label;
    const char* function;
    Layout src, dst;
    Job zorcc, libyuv, opencv;
    const char* note;
};

#define ZOR(...) [](Image& s, Image& d) -> int { return __VA_ARGS__; }
#ifdef ZORCC_BENCH_HAVE_LIBYUV
#define YUV(...) [](Image& s, Image& d) -> int { return libyuv::__VA_ARGS__; }
// libyuv's dither matrix: a 4x4 Bayer order of 0..7.
const std::uint8_t kDither4x4[16] = {0, 4, 1, 5, 6, 2, 7, 3, 1, 5, 0, 4, 7, 3, 6, 2};
#else
#define YUV(...) nullptr
#endif
#ifdef ZORCC_BENCH_HAVE_OPENCV
inline cv::Mat matOf(Image& img) {
    const Layout l = img.layout();
    const int depth = l.kind == 'f' ? CV_32F
                      : l.sample == 1 ? (l.kind == 's' ? CV_8S : CV_8U)
                      : l.sample == 2 ? (l.kind == 's' ? CV_16S : CV_16U)
                                      : CV_32S;
    if (l.bpp) return cv::Mat(kH, kW, CV_MAKETYPE(depth, l.bpp / l.sample), img.p(), static_cast<std::size_t>(img.st()));
    return cv::Mat(static_cast<int>(img.bytes() / (kW * l.sample)), kW, CV_MAKETYPE(depth, 1), img.p());
}
// Converts into the destination frame; -1 if OpenCV would not write there.
inline int cvConvert(Image& s, Image& d, int code) {
    cv::Mat out = matOf(d);
    const Zor8u* before = out.data;
    cv::cvtColor(matOf(s), out, code);
    return out.data == before ? 0 : -1;
}
#define OCV(code) [](Image& s, Image& d) -> int { return cvConvert(s, d, cv::code); }
#else
#define OCV(code) nullptr
#endif
#define NONE nullptr

// Layouts by name.
constexpr Layout kC1 = packed(1), kC2 = packed(2), kC3 = packed(3), kC4 = packed(4);
constexpr Layout k444 = planar(1, 1), k422 = planar(2, 1), k420 = planar(2, 2), k411 = planar(4, 1);

// Each file registers its table of cases under a family name (the column
// "family" of the CSV); they run in rank order, and in table order within a
// rank (the video family is rank 0).
struct CaseGroup {
    CaseGroup(int rank, const char* family, const Case* begin, const Case* end);
};
std::vector<const Case*> registeredCases();
const char* familyOf(const Case* c);

}  // namespace sbs
