// Kernel-set tests of the colour models beyond random bytes: a family's tables with every kernel wrapped so that it
// first turns its random source pixels into chosen ones (all-edge pixels, ties and near ties between channels, for
// 32f in-range values, NaN, infinities, negatives, values above 1, hue and achromatic boundaries) and makes every NaN
// it writes one NaN (which NaN a sum of two NaNs keeps is up to the compiler's operand order). The rewrite depends
// only on the source bytes, so the scalar and vector kernels of one harness run see the same pixels. Also: the
// geometry of four-plane rows.
#pragma once

#include "support/kernel_harness.h"

#include <cmath>
#include <limits>

namespace zt::detail {
template <class T>
struct RowGeometry<zor::Row4<T>> {
    using Sample = std::remove_const_t<T>;
    static constexpr bool kInput = std::is_const_v<T>;
    static constexpr int kSamplesPerPixel = 0;
    static std::vector<std::size_t> bytes(std::size_t w) { return std::vector<std::size_t>(4, w * sizeof(T)); }
    static zor::Row4<T> make(const std::vector<std::uint8_t*>& p) {
        return {{reinterpret_cast<T*>(p[0]), reinterpret_cast<T*>(p[1]), reinterpret_cast<T*>(p[2]), reinterpret_cast<T*>(p[3])}};
    }
};
template <class T> struct IsRow<zor::Row4<T>> : std::true_type {};
}  // namespace zt::detail

namespace mt {

inline const float kSpecial[] = {NAN, -NAN, INFINITY, -INFINITY, -0.0f, 0.0f, 1.0f, -1.0f, 2.0f, 1e-40f, 1.1920929e-7f,
                                 2.4e-7f, 0.99999994f, 1.0000001f, 0.5f, 1.0f / 6, 1.0f / 3, 2.0f / 3, 5.0f / 6,
                                 0.49999997f, 0.50000006f, -1e-7f, 1e30f, -3.0f};

// Kinds: 0 an edge, 1 a tie with channel 0, 2 a near tie, 3 a special float, 4..6 floats in [0, 1) and [-0.5, 1.5).
template <class T>
T chosen(std::uint32_t u, int kind, T raw, T first) {
    if constexpr (std::is_same_v<T, Zor32f>) {
        const float unit = float(u >> 8) * 0x1p-24f;
        const float pick[] = {u & 1 ? 1.0f : 0.0f, u & 1 ? first : raw,
                              std::nextafter(first, u & 1 ? 2.0f : -1.0f) + (u & 2 ? 1e-7f : 0.0f),
                              kSpecial[(u >> 1) % std::size(kSpecial)], unit, unit, unit * 2.0f - 0.5f, raw};
        return pick[kind];
    } else {
        const T pick[] = {u & 1 ? std::numeric_limits<T>::max() : std::numeric_limits<T>::min(), u & 1 ? first : raw,
                          T(first + int(u % 5) - 2)};
        return kind < 3 ? pick[kind] : raw;
    }
}

template <class T, int N>
void rewrite(T* p, int width) {
    for (int i = 0; i < width; ++i) {
        T* px = p + N * i;
        std::uint32_t u = 0;
        std::memcpy(&u, px, std::min(sizeof u, sizeof(T)));
        u = (u ^ std::uint32_t(i)) * 2654435761u;
        const int kind = int(u >> 29);
        for (int c = 1; c < 3; ++c) px[c] = chosen(u >> (4 * c), kind, px[c], px[0]);
        px[0] = chosen(u >> 12, kind == 1 || kind == 2 ? 7 : kind, px[0], px[0]);
    }
}

template <class R> void oneNan(R, int) {}
template <int N>
void oneNan(zor::RowC<Zor32f, N> d, int width) {
    for (float v, *p = d.p; p < d.p + N * width; ++p) std::memcpy(&v, p, 4), v = std::isnan(v) ? NAN : v, std::memcpy(p, &v, 4);
}

template <class R> constexpr int kInterleaved = 0;  // samples per pixel of an interleaved 16-bit or float source
template <class T, int N>
constexpr int kInterleaved<zor::RowC<const T, N>> = sizeof(T) > 1 ? N : 0;

template <bool kRewrite, auto Tables, int Target, auto Member, class Fn>
struct Chosen;
template <bool kRewrite, auto Tables, int Target, auto Member, class In, class Out>
struct Chosen<kRewrite, Tables, Target, Member, void (*)(In, Out, int)> {
    static void run(In s, Out d, int width) {
        const auto kernel = (Tables()[Target] ? Tables()[Target] : Tables()[0])->*Member;
        if constexpr (kRewrite && kInterleaved<In>) {
            std::vector<std::remove_const_t<std::remove_reference_t<decltype(s.p[0])>>> in(s.p, s.p + kInterleaved<In> * width);
            rewrite<typename decltype(in)::value_type, kInterleaved<In>>(in.data(), width);
            kernel(In{in.data()}, d, width);
        } else {
            kernel(s, d, width);
        }
        oneNan(d, width);
    }
};

}  // namespace mt

// The tables `fn<kRewrite>()` of a family's shape list: with chosen inputs, or with the random ones; NaN made one NaN.
#define MT_WRAP_MEMBER(name, fn, args) t.name = &::mt::Chosen<kRewrite, kTab, kT, &Tb::name, decltype(t.name)>::run;
#define MT_CHOSEN_TABLES(Table, LIST, tables, fn)                                                                      \
    template <bool kRewrite, int kT>                                                                                   \
    Table fn##At() {                                                                                                   \
        using Tb = Table;                                                                                              \
        constexpr auto kTab = &tables;                                                                                 \
        Table t{};                                                                                                     \
        LIST(MT_WRAP_MEMBER) return t;                                                                                 \
    }                                                                                                                  \
    template <bool kRewrite>                                                                                           \
    const Table* const* fn() {                                                                                         \
        static const Table t[] = {fn##At<kRewrite, 0>(), fn##At<kRewrite, 1>(), fn##At<kRewrite, 2>(),                 \
                                  fn##At<kRewrite, 3>(), fn##At<kRewrite, 4>()};                                       \
        static const Table* const p[zor::cpu::kTargetCount] = {t, t + 1, t + 2, t + 3, t + 4};                        \
        return p;                                                                                                      \
    }
