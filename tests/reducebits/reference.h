// A per-sample model of bit-depth reduction for the tests, written from the
// documented formulas: plain quantisation, error diffusion with its channel
// split and error carry-over, ordered dither, noise thresholds.
#pragma once

#include "support/testutil.h"

#include <algorithm>
#include <cstdint>
#include <deque>
#include <type_traits>
#include <vector>

namespace rbref {

template <class S, class D>
using ReduceFn = ZorStatus (*)(const S*, int, D*, int, ZoriSize, int, ZorDitherType, int);

// Truncation with saturation; NaN gives the most negative int.
inline int sat(double v) {
    if (v >= 2147483647.0) return INT32_MAX;
    if (v > -2147483648.0) return static_cast<int>(v);
    return INT32_MIN;
}

constexpr double kBias = 0.000009;

template <class S, class D>
struct Model {
    static constexpr bool kSrc8 = std::is_same_v<S, Zor8u>;
    static constexpr bool kSrcS16 = std::is_same_v<S, Zor16s>;
    static constexpr bool kSrc16 = std::is_same_v<S, Zor16u> || kSrcS16;
    static constexpr bool kSrcF = std::is_same_v<S, Zor32f>;
    static constexpr bool kDst8 = std::is_same_v<D, Zor8u>;
    static constexpr bool kDstS16 = std::is_same_v<D, Zor16s>;
    static constexpr int kMaxLevels = (!kDst8 && !kSrcF) ? 65536 : 256;
    static constexpr int kTop = kDst8 ? 255 : 65535;  // on the unsigned destination scale

    // A value on the unsigned destination scale, low bits kept.
    static D store(long long a) {
        if (kDstS16) a -= 32768;
        return static_cast<D>(static_cast<std::uint32_t>(a) & (kDst8 ? 0xffu : 0xffffu));
    }

    // ---- plain
    static D plain(S s, int m) {
        float x;
        if constexpr (kSrc8)
            x = static_cast<float>(s) / 255.0f;
        else if constexpr (kSrcS16)
            x = static_cast<float>(static_cast<int>(s) + 32768) / 65535.0f;
        else if constexpr (kSrc16)
            x = static_cast<float>(s) / 65535.0f;
        else
            x = s;
        const float inv = 1.0f / static_cast<float>(m);
        const float half = 0.5f * inv;
        const int k = sat(static_cast<float>(m) * x);
        float q = static_cast<float>(k) * inv;
        if (x - q > half) q += inv;
        int out = sat(q * (kDst8 ? 255.0f : 65535.0f));
        if (out >= kTop) out = kTop;
        return store(out);
    }

    // ---- dither
    static float work(S s) {
        if constexpr (kSrcS16)
            return static_cast<float>(static_cast<int>(s) + 32768);
        else
            return static_cast<float>(s);
    }

    struct Consts {
        float step, inv;
        int M;
    };
    static Consts consts(int m) {
        const float mf = static_cast<float>(m);
        if constexpr (kSrc8)
            return {(65280.0f / mf) * 0.00390625f, mf / 255.0f, static_cast<int>(65280.0 / m + kBias)};
        const float step = (kSrc16 ? 65535.0f : 1.0f) / mf;
        return {step, 1.0f / step, 0};
    }
    static long long level(int k, const Consts& c) {
        if constexpr (kSrc8) return (static_cast<long long>(k) * c.M) >> 8;
        if constexpr (kSrc16) {
            const int a = static_cast<int>(static_cast<double>(static_cast<float>(k) * c.step) + kBias);
            return kDst8 ? (a >> 8) : a;
        }
        return sat(static_cast<double>(static_cast<float>(k) * c.step * (kDst8 ? 255.0f : 65535.0f)) + kBias);
    }
    static float top() { return kSrc8 ? 255.0f : kSrc16 ? 65535.0f : 1.0f; }
    static float bottom() { return kSrcF ? 1.1920929e-7f : 0.0f; }

    // Error-diffusion decision for one accumulated value; err receives the
    // error to pass on.
    static D diffuse(float v, const Consts& c, float thr, float& err) {
        err = 0.0f;
        if (v >= top()) return store(kTop);
        if (!(v >= bottom())) return store(0);  // below the bottom, or NaN
        int k = static_cast<int>(static_cast<double>(v * c.inv) + kBias);
        float r = v - static_cast<float>(k) * c.step;
        if (r > thr) {
            r = v - (static_cast<float>(k) * c.step + c.step);
            ++k;
        }
        err = r;
        return store(level(k, c));
    }

    static D ordered(S s, const Consts& c, float thr) {
        const float v = work(s);
        long long k = sat(static_cast<double>(v * c.inv) + kBias);
        const float r = v - static_cast<float>(k) * c.step;
        if (r > thr) k = static_cast<int>(static_cast<std::uint32_t>(k) + 1u);
        long long a = level(static_cast<int>(k), c);
        if (kSrc16) a = std::clamp<long long>(a, 0, kTop);
        return store(a);
    }
};

// The repeatable noise: 1024 thresholds over [low, high) and 1024 indices.
struct Noise {
    std::vector<Zor32f> thr = std::vector<Zor32f>(1024);
    std::vector<Zor16s> idx = std::vector<Zor16s>(1024);
    Noise(float low, float high) {
        ZorRandUniState_16s* s16 = nullptr;
        zorsRandUniformInitAlloc_16s(&s16, 0, 1024, 0);
        zorsRandUniform_16s(idx.data(), 1024, s16);
        zorsRandUniformFree_16s(s16);
        ZorRandUniState_32f* s32 = nullptr;
        zorsRandUniformInitAlloc_32f(&s32, low, high, 0);
        zorsRandUniform_32f(thr.data(), 1024, s32);
        zorsRandUniformFree_32f(s32);
    }
    float at(int x, int y) const { return thr[(idx[x % 1024] + 2 * y + x) % 1024]; }
};

struct Layout {
    int channels;  // processed
    int stride;    // elements per pixel
};

// Channel ranges per section for a team of T threads.
inline std::vector<std::pair<int, int>> sections(int T, int n) {
    if (n == 1) return {{0, 1}};
    T = std::min(T, n);
    if (T == 1) return {{0, n}};
    if (T == 2) return {{0, 2}, {2, n}};
    if (T == 3 && n == 4) return {{0, 2}, {2, 3}, {3, 4}};
    std::vector<std::pair<int, int>> r;
    for (int c = 0; c < n; ++c) r.push_back({c, c + 1});
    return r;
}

// Views of an image for the function under test: top-down, or bottom-up
// (row 0 is the image's last row).
template <class T>
struct View {
    T* base;
    std::ptrdiff_t step;  // elements
    T* row(int y) const { return base + step * y; }
};

template <class T>
View<T> view(zt::Image<T>& img, bool flip) {
    const std::ptrdiff_t e = img.step() / static_cast<int>(sizeof(T));
    return flip ? View<T>{img.flippedData(), -e} : View<T>{img.data(), e};
}

// Expected destination: dst (a copy of the destination before the call) with
// the region rewritten.
template <class S, class D>
void expected(View<const S> src, View<D> dst, Layout lay, int w, int h, int method, int levels, int noise,
              int team) {
    using M = Model<S, D>;
    const int m = levels - 1;
    if (method == 0) {
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                for (int c = 0; c < lay.channels; ++c)
                    dst.row(y)[x * lay.stride + c] = M::plain(src.row(y)[x * lay.stride + c], m);
        return;
    }
    if (method > 4) return;
    const typename M::Consts k = M::consts(m);
    if (method == 4) {
        Noise nz(-static_cast<float>(noise) / 100.0f, static_cast<float>(noise) / 100.0f);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                static constexpr int kIndex[16] = {0, 8, 2, 10, 12, 4, 14, 6, 3, 11, 1, 9, 15, 7, 13, 5};
                const float b = static_cast<float>(kIndex[(y % 4) * 4 + x % 4]) / 15.0f;
                const float thr = noise > 0 ? (b + nz.at(x, y)) * k.step : b * k.step;
                for (int c = 0; c < lay.channels; ++c)
                    dst.row(y)[x * lay.stride + c] = M::ordered(src.row(y)[x * lay.stride + c], k, thr);
            }
        return;
    }
    Noise nz(static_cast<float>(50 - noise) * k.step / 100.0f, static_cast<float>(50 + noise) * k.step / 100.0f);
    for (auto [first, end] : sections(team, lay.channels)) {
        // Error rows in processing order; rows before the first are zero.
        std::deque<std::vector<float>> hist(2, std::vector<float>(static_cast<std::size_t>(w), 0.0f));
        for (int c = first; c < end; ++c)
            for (int y = 0; y < h; ++y) {
                const std::vector<float>& p1 = hist[1];
                const std::vector<float>& p2 = hist[0];
                std::vector<float> cur(static_cast<std::size_t>(w), 0.0f);
                auto at = [w](const std::vector<float>& r, int x) { return x < 0 || x >= w ? 0.0f : r[x]; };
                for (int x = 0; x < w; ++x) {
                    float v = M::work(src.row(y)[x * lay.stride + c]);
                    if (method == 1) {
                        const float e = 3.0f * at(p1, x + 1) + 5.0f * at(p1, x) + at(p1, x - 1) + 7.0f * at(cur, x - 1);
                        v = v + e * 0.0625f;
                    } else {
                        const bool st = method == 3;
                        const float a = st ? 2.0f : 3.0f, b = st ? 4.0f : 5.0f, cc = st ? 8.0f : 7.0f;
                        const float e = at(p2, x - 2) + a * at(p2, x - 1) + b * at(p2, x) + a * at(p2, x + 1) +
                                        at(p2, x + 2) + a * at(p1, x - 2) + b * at(p1, x - 1) + cc * at(p1, x) +
                                        b * at(p1, x + 1) + a * at(p1, x + 2) + b * at(cur, x - 2) +
                                        cc * at(cur, x - 1);
                        v = v + e * (st ? 1.0f / 42.0f : 1.0f / 48.0f);
                    }
                    const float thr = noise > 0 ? nz.at(x, y) : 0.5f * k.step;
                    dst.row(y)[x * lay.stride + c] = M::diffuse(v, k, thr, cur[x]);
                }
                hist.pop_front();
                hist.push_back(cur);
            }
    }
}

}  // namespace rbref
