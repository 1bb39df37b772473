// The row driver: the only loop over the rows of an image in the library.
//
// Two forms, fixed per family:
//   Serial    rows in ascending order on the calling thread;
//   Parallel  an OpenMP region of threads_omp_of_n_zor threads (read once per
//             call) with a statically scheduled loop, so the rows are split
//             into contiguous blocks in thread order. Inside an active region
//             with nesting off the runtime gives the region a team of one,
//             which takes every row.
//
// Rows<Form, Kernels, Options...> is what an exported function runs after its
// checks: it resolves the kernel set once per call and hands each row of
// each image to the row kernel as kernel(rows..., width, extras...). Options:
//   Pairs          4:2:0 row pairs: the kernel gets rows y and y + 1 of every
//                  image (a subsampled plane gives the same chroma row twice);
//   WholeGroups<>  the region rounded down to whole groups, with the odd-size
//                  warning where the family gives one;
//   Fuse<G>        contiguous images (rows following each other without
//                  padding) are converted as one long row when the width is a
//                  multiple of G: only for kernels whose result cannot differ;
//   RowIndex       the kernel also gets the row index y inside the region
//                  (ordered dither), after the width.
#pragma once

#include "core/bounce.h"
#include "core/checks.h"

#include <climits>
#include <tuple>
#include <type_traits>
#include <utility>

namespace zor {

struct Serial {};
struct Parallel {};

// Team size of the next parallel region, read once per call.
int teamSize();

// Calls body(i) for i in [0, count).
template <class Form, class Body>
inline void forRows(int count, const Body& body) {
    if constexpr (std::is_same_v<Form, Parallel>) {
        const int team = teamSize();
#pragma omp parallel num_threads(team) shared(body, count) default(none)
        {
            if (count >= 1) {
#pragma omp for schedule(static)
                for (int i = 0; i < count; ++i) body(i);
            }
        }
    } else {
        for (int i = 0; i < count; ++i) body(i);
    }
}

struct Pairs {};
struct RowIndex {};
template <int G>
struct Fuse {};

namespace detail {

template <class T, class... Opt>
inline constexpr bool has = (std::is_same_v<T, Opt> || ...);

template <class... Opt>
struct SizeRule {
    using type = EveryPixel;
};
template <int GW, int GH, bool W, class... Rest>
struct SizeRule<WholeGroups<GW, GH, W>, Rest...> {
    using type = WholeGroups<GW, GH, W>;
};
template <class First, class... Rest>
struct SizeRule<First, Rest...> : SizeRule<Rest...> {};

template <class... Opt>
struct FuseWidth {
    static constexpr int value = 0;
};
template <int G, class... Rest>
struct FuseWidth<Fuse<G>, Rest...> {
    static constexpr int value = G;
};
template <class First, class... Rest>
struct FuseWidth<First, Rest...> : FuseWidth<Rest...> {};

}  // namespace detail

// Whether any image of a tuple of image arguments has samples wider than a
// byte.
template <class Images>
inline constexpr bool kWide = false;
template <class... I>
inline constexpr bool kWide<std::tuple<I...>> = ((sizeof(typename I::Sample) > 1) || ...);

template <class Form, class K, class... Opt>
struct Rows {
    using Size = typename detail::SizeRule<Opt...>::type;
    static constexpr bool kPairs = detail::has<Pairs, Opt...>;
    static constexpr bool kRowIndex = detail::has<RowIndex, Opt...>;
    static constexpr int kFuse = detail::FuseWidth<Opt...>::value;

    // images: the image arguments in argument order; extras: the
    // function-specific arguments after the region size.
    template <class Images, class Extras>
    static ZorStatus run(ZoriSize roi, const Images& images, const Extras& extras) {
        const ZoriSize done = Size::done(roi);
        const auto fn = K::resolve();
        const auto views = std::apply([](const auto&... a) { return std::make_tuple(a.view()...); }, images);
        const auto values = std::apply([](const auto&... e) { return std::make_tuple(e.value()...); }, extras);
        const auto convert = [&](std::ptrdiff_t y, int width) {
            const auto rows = std::apply(
                [y](const auto&... v) {
                    if constexpr (kPairs)
                        return std::tuple_cat(std::make_tuple(v.row(y), v.row(y + 1))...);
                    else
                        return std::make_tuple(v.row(y)...);
                },
                views);
            const auto call = [&](const auto& r, int w) {
                if constexpr (kRowIndex)
                    std::apply(fn, std::tuple_cat(r, std::make_tuple(w, static_cast<int>(y)), values));
                else
                    std::apply(fn, std::tuple_cat(r, std::make_tuple(w), values));
            };
            // A 16- or 32-bit image with a byte step that is not a multiple
            // of its sample size: misaligned rows go through aligned copies.
            if constexpr (!kPairs && kWide<Images>) {
                if (bounce::anyMisaligned(rows)) return bounce::run(rows, width, call);
            }
            call(rows, width);
        };
        if constexpr (kFuse > 0) {
            const std::ptrdiff_t w = done.width, n = w * done.height;
            const bool contiguous = std::apply([w](const auto&... v) { return (v.contiguous(w) && ...); }, views);
            if (done.width % kFuse == 0 && done.height > 1 && contiguous && n <= INT_MAX) {
                convert(0, static_cast<int>(n));
                return Size::status(roi);
            }
        }
        const int count = kPairs ? done.height / 2 : done.height;
        forRows<Form>(count, [&](int i) { convert(kPairs ? 2 * static_cast<std::ptrdiff_t>(i) : i, done.width); });
        return Size::status(roi);
    }
};

// A run whose kernel gets one value made once per call from the arguments
// after the size (a matrix in the kernel's form, a table, a range): Prep is
// built from their values and passed, by value, as the kernel's one extra.
template <class Prep, class Run>
struct Prepared {
    template <class Images, class Extras>
    static ZorStatus run(ZoriSize roi, const Images& images, const Extras& extras) {
        const Prep p = std::apply([](const auto&... e) { return Prep(e.value()...); }, extras);
        return Run::run(roi, images, std::make_tuple(Value<Prep>{p}));
    }
};

}  // namespace zor
