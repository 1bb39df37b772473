// The exactness harness of the kernel sets: every vector kernel against its
// scalar kernel, at every CPU target this build has and this processor runs.
//
// A family's test walks its list of shapes (the same X-list that makes the
// kernel tables) and hands each member to expectVectorsMatchScalar. The row
// types of a kernel's parameters carry their geometry (RowC<T, N>,
// Row3<T, H>, Row2<T, H>), so the harness builds rows of exactly the extent a
// kernel may touch:
//   - random rows of every width 1..300, each twice: ending right before an
//     inaccessible page (a read one byte too far faults), and at a start
//     offset 0..63 from a 64-byte boundary (rounded down to a whole sample)
//     in an allocation of exactly that
//     size (the address sanitizer catches a stray byte there);
//   - exhaustively, where one input row holds at most 2^24 distinct pixels
//     (three 8-bit samples, or one 16-bit word): one row holding every input.
// Destination rows start out random and identical for both runs; the whole
// destination, including bytes a kernel must leave alone, must match.
#pragma once

#include "core/cpu.h"
#include "core/image.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

namespace zt {

// A byte range placed for the harness: either ending right before a page
// that may not be touched, or starting `offset` bytes into an exactly sized
// heap block.
class PlacedBytes {
public:
    enum Placement { kAgainstGuardPage, kAtOffset };
    PlacedBytes(std::size_t n, Placement where, int offset);
    ~PlacedBytes();
    PlacedBytes(const PlacedBytes&) = delete;
    PlacedBytes& operator=(const PlacedBytes&) = delete;
    std::uint8_t* data() const { return data_; }
    std::size_t size() const { return n_; }

private:
    std::size_t n_;
    std::uint8_t* data_ = nullptr;
    void* map_ = nullptr;
    std::size_t mapBytes_ = 0;
    std::uint8_t* heap_ = nullptr;
};

// The targets a kernel-set test runs at: all available ones but scalar, or
// only the best one when ZORCC_TEST_TARGETS=best (the sanitizer build runs
// the exhaustive sweeps once).
std::vector<zor::cpu::Target> vectorTargets();

// Makes a target active for the lifetime of the object.
class ForceTarget {
public:
    explicit ForceTarget(zor::cpu::Target t) : saved_(zor::cpu::active()) { zor::cpu::force(t); }
    ~ForceTarget() { zor::cpu::force(saved_); }
    ForceTarget(const ForceTarget&) = delete;
    ForceTarget& operator=(const ForceTarget&) = delete;

private:
    zor::cpu::Target saved_;
};

namespace detail {

inline std::size_t ceilDiv(std::size_t a, std::size_t b) { return (a + b - 1) / b; }

// The planes (byte extents) of one row argument at a width.
template <class R>
struct RowGeometry;

template <class T, int N>
struct RowGeometry<zor::RowC<T, N>> {
    using Sample = std::remove_const_t<T>;
    static constexpr bool kInput = std::is_const_v<T>;
    static std::vector<std::size_t> bytes(std::size_t w) { return {w * N * sizeof(T)}; }
    static zor::RowC<T, N> make(const std::vector<std::uint8_t*>& p) { return {reinterpret_cast<T*>(p[0])}; }
    static constexpr int kSamplesPerPixel = N;
};

template <class T, int H>
struct RowGeometry<zor::Row3<T, H>> {
    using Sample = std::remove_const_t<T>;
    static constexpr bool kInput = std::is_const_v<T>;
    static std::vector<std::size_t> bytes(std::size_t w) {
        return {w * sizeof(T), ceilDiv(w, H) * sizeof(T), ceilDiv(w, H) * sizeof(T)};
    }
    static zor::Row3<T, H> make(const std::vector<std::uint8_t*>& p) {
        return {{reinterpret_cast<T*>(p[0]), reinterpret_cast<T*>(p[1]), reinterpret_cast<T*>(p[2])}};
    }
    static constexpr int kSamplesPerPixel = H == 1 ? 3 : 0;
};

template <class T, int H>
struct RowGeometry<zor::Row2<T, H>> {
    using Sample = std::remove_const_t<T>;
    static constexpr bool kInput = std::is_const_v<T>;
    static std::vector<std::size_t> bytes(std::size_t w) { return {w * sizeof(T), 2 * ceilDiv(w, H) * sizeof(T)}; }
    static zor::Row2<T, H> make(const std::vector<std::uint8_t*>& p) {
        return {reinterpret_cast<T*>(p[0]), reinterpret_cast<T*>(p[1])};
    }
    static constexpr int kSamplesPerPixel = 0;
};

template <class P>
struct IsRow : std::false_type {};
template <class T, int N>
struct IsRow<zor::RowC<T, N>> : std::true_type {};
template <class T, int H>
struct IsRow<zor::Row3<T, H>> : std::true_type {};
template <class T, int H>
struct IsRow<zor::Row2<T, H>> : std::true_type {};

// The parameters of a kernel split into its rows and the extras after the
// width.
template <class Fn>
struct Signature;
template <class... P>
struct Signature<void (*)(P...)> {
    static constexpr std::size_t kRows = (std::size_t{0} + ... + (IsRow<P>::value ? 1 : 0));
    using All = std::tuple<P...>;
    template <std::size_t... I>
    static auto rowsOf(std::index_sequence<I...>) -> std::tuple<std::tuple_element_t<I, All>...>;
    template <std::size_t... I>
    static auto extrasOf(std::index_sequence<I...>) -> std::tuple<std::tuple_element_t<kRows + 1 + I, All>...>;
    using Rows = decltype(rowsOf(std::make_index_sequence<kRows>()));
    using Extras = decltype(extrasOf(std::make_index_sequence<sizeof...(P) - kRows - 1>()));
};

// The bytes of one run: every plane of every row argument.
struct RunBuffers {
    std::vector<std::unique_ptr<PlacedBytes>> planes;
    std::vector<std::size_t> firstPlaneOfRow;
    std::vector<bool> input;
};

template <class Rows, std::size_t... I>
RunBuffers allocate(std::size_t w, PlacedBytes::Placement where, int offset, std::index_sequence<I...>) {
    RunBuffers b;
    const auto add = [&](auto geometry, std::vector<std::size_t> sizes) {
        // Rows of wider samples start on a whole sample, as callers' rows do.
        constexpr int kSample = static_cast<int>(sizeof(typename decltype(geometry)::Sample));
        b.firstPlaneOfRow.push_back(b.planes.size());
        for (std::size_t s : sizes) {
            b.planes.push_back(std::make_unique<PlacedBytes>(s, where, offset - offset % kSample));
            b.input.push_back(decltype(geometry)::kInput);
        }
    };
    (add(RowGeometry<std::tuple_element_t<I, Rows>>{}, RowGeometry<std::tuple_element_t<I, Rows>>::bytes(w)), ...);
    return b;
}

template <class Rows, std::size_t... I>
Rows rowsOf(const RunBuffers& b, std::index_sequence<I...>) {
    const auto planesOf = [&](std::size_t row, std::size_t count) {
        std::vector<std::uint8_t*> p;
        for (std::size_t k = 0; k < count; ++k) p.push_back(b.planes[b.firstPlaneOfRow[row] + k]->data());
        return p;
    };
    return Rows{RowGeometry<std::tuple_element_t<I, Rows>>::make(
        planesOf(I, RowGeometry<std::tuple_element_t<I, Rows>>::bytes(1).size()))...};
}

// Random extras: any value of an arithmetic type.
template <class X>
X randomExtra(std::mt19937& rng) {
    static_assert(std::is_arithmetic_v<X>, "give the harness a generator for this extra argument");
    if constexpr (std::is_floating_point_v<X>)
        return static_cast<X>(std::uniform_real_distribution<double>(-2.0, 2.0)(rng));
    else
        return static_cast<X>(rng() & 7);
}

std::string describe(zor::cpu::Target t, std::size_t width, PlacedBytes::Placement where, int offset);

}  // namespace detail

// Whether a kernel's inputs can be swept exhaustively: one input row of three
// (or four, the fourth ignored) byte samples, or one 16-bit word, per pixel.
template <class Fn>
constexpr bool hasExhaustiveDomain() {
    using Rows = typename detail::Signature<Fn>::Rows;
    if constexpr (std::tuple_size_v<Rows> == 0) {
        return false;
    } else {
        using First = detail::RowGeometry<std::tuple_element_t<0, Rows>>;
        std::size_t inputs = 0;
        std::apply([&](auto... r) { ((inputs += detail::RowGeometry<decltype(r)>::kInput ? 1 : 0), ...); }, Rows{});
        const std::size_t bytes = sizeof(typename First::Sample);
        return First::kInput && inputs == 1 &&
               ((bytes == 1 && (First::kSamplesPerPixel == 3 || First::kSamplesPerPixel == 4)) ||
                (bytes == 2 && First::kSamplesPerPixel == 1));
    }
}

// Fills inputs of the exhaustive run: pixel i of the first input row holds
// the i-th combination of its samples.
void fillExhaustive(std::uint8_t* const planes[], int planeCount, int samplesPerPixel, int sampleBytes,
                    std::size_t pixels);

// Compares the kernel of `member` at each vector target with the scalar one.
// exhaustive: one row with every input instead of the random rows (only for
// kernels whose one input row has 3 byte samples or one 16-bit sample per
// pixel); makeExtras: the arguments after the width, when not plain numbers.
template <class Table, class Member, class MakeExtras = std::nullptr_t>
void expectVectorsMatchScalar(const Table* const* (*tables)(), Member Table::*member, bool exhaustive = false,
                              MakeExtras makeExtras = nullptr) {
    using Fn = Member;
    using Sig = detail::Signature<Fn>;
    using Rows = typename Sig::Rows;
    using Extras = typename Sig::Extras;
    constexpr auto kRowIdx = std::make_index_sequence<std::tuple_size_v<Rows>>();
    const Fn scalar = tables()[zor::cpu::kScalar]->*member;
    std::mt19937 rng(12345);

    const auto runCase = [&](std::size_t width, PlacedBytes::Placement where, int offset, bool fillAll) {
        detail::RunBuffers ref = detail::allocate<Rows>(width, where, offset, kRowIdx);
        for (auto& p : ref.planes)
            for (std::size_t i = 0; i < p->size(); ++i) p->data()[i] = static_cast<std::uint8_t>(rng());
        if (fillAll) {
            using First = detail::RowGeometry<std::tuple_element_t<0, Rows>>;
            std::vector<std::uint8_t*> in;
            for (std::size_t k = 0; k < First::bytes(1).size(); ++k) in.push_back(ref.planes[k]->data());
            fillExhaustive(in.data(), static_cast<int>(in.size()), First::kSamplesPerPixel,
                           static_cast<int>(sizeof(typename First::Sample)), width);
        }
        Extras extras;
        if constexpr (std::is_same_v<MakeExtras, std::nullptr_t>) {
            std::apply([&](auto&... x) { ((x = detail::randomExtra<std::decay_t<decltype(x)>>(rng)), ...); }, extras);
        } else {
            extras = makeExtras(rng);
        }
        std::vector<std::vector<std::uint8_t>> start;
        for (auto& p : ref.planes) start.emplace_back(p->data(), p->data() + p->size());
        const auto call = [&](Fn fn, const detail::RunBuffers& b) {
            const Rows rows = detail::rowsOf<Rows>(b, kRowIdx);
            std::apply(fn, std::tuple_cat(rows, std::make_tuple(static_cast<int>(width)), extras));
        };
        call(scalar, ref);
        for (zor::cpu::Target t : vectorTargets()) {
            detail::RunBuffers got = detail::allocate<Rows>(width, where, offset, kRowIdx);
            for (std::size_t k = 0; k < got.planes.size(); ++k)
                std::memcpy(got.planes[k]->data(), start[k].data(), start[k].size());
            Fn vec;
            {
                ForceTarget force(t);
                vec = tables()[zor::cpu::active()] ? tables()[zor::cpu::active()]->*member : scalar;
            }
            call(vec, got);
            for (std::size_t k = 0; k < got.planes.size(); ++k) {
                if (std::memcmp(got.planes[k]->data(), ref.planes[k]->data(), ref.planes[k]->size()) != 0) {
                    std::size_t at = 0;
                    while (got.planes[k]->data()[at] == ref.planes[k]->data()[at]) ++at;
                    ADD_FAILURE() << detail::describe(t, width, where, offset) << ": plane " << k << " byte " << at
                                  << " is " << int(got.planes[k]->data()[at]) << ", scalar gives "
                                  << int(ref.planes[k]->data()[at]);
                    return false;
                }
            }
        }
        return true;
    };

    if (exhaustive) {
        using First = detail::RowGeometry<std::tuple_element_t<0, Rows>>;
        static_assert(First::kInput, "the first row is an input");
        const int samples = First::kSamplesPerPixel;
        const int bits = samples * 8 * static_cast<int>(sizeof(typename First::Sample));
        ASSERT_TRUE((samples == 3 || samples == 4 || samples == 1) && bits <= 32) << "no exhaustive domain";
        const int domainBits = samples == 4 ? 24 : bits;
        ASSERT_LE(domainBits, 24);
        runCase(std::size_t{1} << (domainBits & 31), PlacedBytes::kAtOffset, 0, true);
        return;
    }
    for (std::size_t w = 1; w <= 300; ++w) {
        if (!runCase(w, PlacedBytes::kAgainstGuardPage, 0, false)) return;
        if (!runCase(w, PlacedBytes::kAtOffset, static_cast<int>(w % 64), false)) return;
    }
}

}  // namespace zt
