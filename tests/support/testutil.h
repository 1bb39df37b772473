// Test support: image buffers with row padding and guard bytes around the
// region, so that a test compares whole allocations (including the bytes a
// function must leave alone), plus control of the library's team size.
#pragma once

#include "zorcc.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <random>
#include <vector>

namespace zt {

constexpr int kGuard = 64;  // bytes before the first and after the last row

// An image of width x height pixels of `channels` samples of T. Every row has
// `padBytes` of padding after its samples; the allocation has guard bytes on
// both sides. The whole allocation starts out random.
template <class T>
class Image {
public:
    Image(int width, int height, int channels, int padBytes = 5 * static_cast<int>(sizeof(T)),
          std::uint32_t seed = 1)
        : width_(width), height_(height), channels_(channels) {
        step_ = width * channels * static_cast<int>(sizeof(T)) + padBytes;
        bytes_.resize(static_cast<std::size_t>(kGuard) * 2 + static_cast<std::size_t>(step_) * (height > 0 ? height : 0));
        randomize(seed);
    }

    void randomize(std::uint32_t seed) {
        std::mt19937 rng(seed);
        for (auto& b : bytes_) b = static_cast<std::uint8_t>(rng());
    }

    // Fills the region's samples (not the padding) from a generator.
    template <class Gen>
    void fillSamples(Gen&& gen) {
        for (int y = 0; y < height_; ++y)
            for (int i = 0; i < width_ * channels_; ++i) row(y)[i] = gen();
    }

    T* data() { return reinterpret_cast<T*>(bytes_.data() + kGuard); }
    const T* data() const { return reinterpret_cast<const T*>(bytes_.data() + kGuard); }
    int step() const { return step_; }
    T* row(int y) { return reinterpret_cast<T*>(bytes_.data() + kGuard + static_cast<std::ptrdiff_t>(y) * step_); }
    const T* row(int y) const {
        return reinterpret_cast<const T*>(bytes_.data() + kGuard + static_cast<std::ptrdiff_t>(y) * step_);
    }
    T& at(int x, int y, int c = 0) { return row(y)[x * channels_ + c]; }
    const T& at(int x, int y, int c = 0) const { return row(y)[x * channels_ + c]; }

    // The same rows seen bottom-up: the last row first, negative step.
    T* flippedData() { return row(height_ - 1); }
    int flippedStep() const { return -step_; }

    int width() const { return width_; }
    int height() const { return height_; }
    int channels() const { return channels_; }
    const std::vector<std::uint8_t>& bytes() const { return bytes_; }
    bool operator==(const Image& o) const { return bytes_ == o.bytes_; }
    bool operator!=(const Image& o) const { return !(*this == o); }

private:
    int width_, height_, channels_;
    int step_;
    std::vector<std::uint8_t> bytes_;
};

// Three planes of one size sharing one step (separate allocations).
template <class T>
struct Planes3 {
    Planes3(int w, int h, int padBytes = 3, std::uint32_t seed = 1)
        : p{Image<T>(w, h, 1, padBytes, seed), Image<T>(w, h, 1, padBytes, seed + 1),
            Image<T>(w, h, 1, padBytes, seed + 2)} {}
    Image<T> p[3];
    T* ptrs[3];
    const T* cptrs[3];
    T* const* ptr() {
        for (int i = 0; i < 3; ++i) ptrs[i] = p[i].data();
        return ptrs;
    }
    const T* const* cptr() {
        for (int i = 0; i < 3; ++i) cptrs[i] = p[i].data();
        return cptrs;
    }
    T* const* flippedPtr() {
        for (int i = 0; i < 3; ++i) ptrs[i] = p[i].flippedData();
        return ptrs;
    }
    const T* const* flippedCptr() {
        for (int i = 0; i < 3; ++i) cptrs[i] = p[i].flippedData();
        return cptrs;
    }
    int step() const { return p[0].step(); }
    bool operator==(const Planes3& o) const { return p[0] == o.p[0] && p[1] == o.p[1] && p[2] == o.p[2]; }
};

// Sets the library's team size for the lifetime of the object.
class TeamSize {
public:
    explicit TeamSize(int n) : saved_(threads_omp_of_n_zor) { threads_omp_of_n_zor = n; }
    ~TeamSize() { threads_omp_of_n_zor = saved_; }
    TeamSize(const TeamSize&) = delete;
    TeamSize& operator=(const TeamSize&) = delete;

private:
    int saved_;
};

// Runs fn on one thread of an active outer parallel region of two threads.
void inOuterParallelRegion(const std::function<void()>& fn);

// Calls run() with team sizes 1, 2, 3, 4 and once inside an outer parallel
// region; each call gets a fresh destination from make() and the destinations
// must all be identical to the first.
template <class Dst>
void expectTeamIndependent(const std::function<Dst()>& make, const std::function<void(Dst&)>& run) {
    Dst ref = make();
    {
        TeamSize t(1);
        run(ref);
    }
    for (int n : {2, 3, 4}) {
        TeamSize t(n);
        Dst d = make();
        run(d);
        EXPECT_TRUE(d == ref) << "result differs with a team of " << n;
    }
    Dst d = make();
    {
        TeamSize t(4);
        inOuterParallelRegion([&] { run(d); });
    }
    EXPECT_TRUE(d == ref) << "result differs inside an outer parallel region";
}

// Index of the first differing byte of two equally long buffers, or -1.
std::ptrdiff_t firstDifference(const std::vector<std::uint8_t>& a, const std::vector<std::uint8_t>& b);

}  // namespace zt
