// Exported functions as one-line table entries.
//
//   ZOR_EXPORT(zoriRGBToYCbCr_8u_C3R, (VideoChecks), (Rows<Serial, K>), IN_C(Zor8u, 3), OUT_C(Zor8u, 3), ROI)
//
// expands into the C function with the parameters that the groups name, in
// their order, whose body runs the checks and then the row driver:
//
//   IN_C(T, N[, policy])     const T* pSrc, int srcStep         (interleaved)
//   OUT_C(T, N[, policy])    T* pDst, int dstStep
//   IO_C(T, N[, policy])     T* pSrcDst, int srcDstStep         (in place)
//   IN_P3(T[, V, H, policy]) const T* const pSrc[3], int srcStep   (one step)
//   OUT_P3(...)              T* const pDst[3], int dstStep
//   IO_P3(...)               T* const pSrcDst[3], int srcDstStep
//   IN_P3S(...), OUT_P3S(...)  the same with const int step[3]
//   IN_P4(T), OUT_P4(T)      four planes (colour and alpha), one step
//   IN_P2(T[, V]), OUT_P2(T[, V])   luma pointer and step, chroma pointer and step
//   IN_WHOLE_C(T, N), OUT_WHOLE_C(T, N)        packed images: no steps
//   IN_WHOLE_P3(T, chromaWidth), OUT_WHOLE_P3(T, chromaWidth)
//   ROI                      ZoriSize roiSize (also the size of a whole image)
//   ARG(T, name)             a value after the size, passed to the kernel
//   PTR(T, name)             a pointer after the size, covered by the null test
//
// The family's header declares the C prototype (zorcc.h), so a group that
// does not match the declared parameter types fails to compile.
//
// The same line registers a description of the function (core/describe.h):
// per parameter its kind, direction, sample type, channels, subsampling and
// step policy, taken from the wrappers that the groups build, and for values
// and pointers their C declaration (a 3 x 4 matrix declared as [3][4]). A
// family's own group needs nothing more than its ZOR_DECL_ and ZOR_EXPR_
// macros; a pointer argument declares its extent in ZOR_DECL_ (`const Zor32f
// coeffs[3]`) so that the table knows it. zor::describe::all() gives the
// table to a test or tool linked with the object code, and the internal
// program zorcc-describe prints it as JSON (`cmake --build <dir> --target
// zorcc-describe && <dir>/zorcc-describe > exports.json`). The invoker of an
// entry calls the function from an array of C arguments.
#pragma once

#include "core/describe.h"
#include "core/kernel_set.h"
#include "core/rows.h"

#include <cstddef>
#include <tuple>
#include <utility>

namespace zor {

namespace detail {

template <class... A>
constexpr std::size_t roiIndex() {
    constexpr bool isRoi[] = {std::is_same_v<A, Roi>...};
    for (std::size_t i = 0; i < sizeof...(A); ++i)
        if (isRoi[i]) return i;
    return sizeof...(A);
}

template <std::size_t Offset, class Tuple, std::size_t... I>
auto slice(const Tuple& t, std::index_sequence<I...>) {
    return std::make_tuple(std::get<Offset + I>(t)...);
}

}  // namespace detail

// Body of every exported image function: the checks in the family's order
// over all arguments but the size, then the run (the row driver with its
// kernel set) with the images before the size and the extras after it.
template <class Checks, class Run, class... A>
ZorStatus call(const A&... a) {
    constexpr std::size_t r = detail::roiIndex<A...>();
    static_assert(r < sizeof...(A), "an exported image function has a region size");
    const auto all = std::forward_as_tuple(a...);
    const ZoriSize roi = std::get<r>(all).v;
    const auto images = detail::slice<0>(all, std::make_index_sequence<r>());
    const auto extras = detail::slice<r + 1>(all, std::make_index_sequence<sizeof...(A) - r - 1>());
    const ZorStatus st = std::apply(
        [&](const auto&... x) {
            return std::apply([&](const auto&... y) { return Checks::run(roi, x..., y...); }, extras);
        },
        images);
    if (st != zorStsOk) return st;
    return Run::run(roi, images, extras);
}

// Half a width rounded down or up: the chroma width of packed whole images.
inline std::ptrdiff_t halfDown(ZoriSize s) { return s.width / 2; }
inline std::ptrdiff_t halfUp(ZoriSize s) { return s.width - s.width / 2; }

}  // namespace zor

// Parameter declarations and argument expressions of each group.
#define ZOR_DECL_IN_C(T, ...) const T *pSrc, int srcStep
#define ZOR_EXPR_IN_C(T, ...) ::zor::C<const T, __VA_ARGS__>{pSrc, srcStep}
#define ZOR_DECL_OUT_C(T, ...) T *pDst, int dstStep
#define ZOR_EXPR_OUT_C(T, ...) ::zor::C<T, __VA_ARGS__>{pDst, dstStep}
#define ZOR_DECL_IO_C(T, ...) T *pSrcDst, int srcDstStep
#define ZOR_EXPR_IO_C(T, ...) \
    ::zor::C<const T, __VA_ARGS__>{pSrcDst, srcDstStep}, ::zor::C<T, __VA_ARGS__>{pSrcDst, srcDstStep}

#define ZOR_DECL_IN_P3(T, ...) const T *const pSrc[3], int srcStep
#define ZOR_EXPR_IN_P3(T, ...) ::zor::P3<const T, ::zor::Steps::One, ##__VA_ARGS__>{pSrc, nullptr, srcStep}
#define ZOR_DECL_OUT_P3(T, ...) T *const pDst[3], int dstStep
#define ZOR_EXPR_OUT_P3(T, ...) ::zor::P3<T, ::zor::Steps::One, ##__VA_ARGS__>{pDst, nullptr, dstStep}
#define ZOR_DECL_IO_P3(T, ...) T *const pSrcDst[3], int srcDstStep
#define ZOR_EXPR_IO_P3(T, ...)                                                             \
    ::zor::P3<const T, ::zor::Steps::One, ##__VA_ARGS__>{pSrcDst, nullptr, srcDstStep},    \
        ::zor::P3<T, ::zor::Steps::One, ##__VA_ARGS__>{pSrcDst, nullptr, srcDstStep}
#define ZOR_DECL_IN_P3S(T, ...) const T *const pSrc[3], const int srcStep[3]
#define ZOR_EXPR_IN_P3S(T, ...) ::zor::P3<const T, ::zor::Steps::Three, ##__VA_ARGS__>{pSrc, srcStep}
#define ZOR_DECL_OUT_P3S(T, ...) T *const pDst[3], const int dstStep[3]
#define ZOR_EXPR_OUT_P3S(T, ...) ::zor::P3<T, ::zor::Steps::Three, ##__VA_ARGS__>{pDst, dstStep}

#define ZOR_DECL_IN_P4(T) const T *const pSrc[4], int srcStep
#define ZOR_EXPR_IN_P4(T) ::zor::P4<const T>{pSrc, srcStep}
#define ZOR_DECL_OUT_P4(T) T *const pDst[4], int dstStep
#define ZOR_EXPR_OUT_P4(T) ::zor::P4<T>{pDst, dstStep}

#define ZOR_DECL_IN_P2(T, ...) const T *pSrcY, int srcYStep, const T *pSrcCbCr, int srcCbCrStep
#define ZOR_EXPR_IN_P2(T, ...) ::zor::P2<const T, ##__VA_ARGS__>{pSrcY, srcYStep, pSrcCbCr, srcCbCrStep}
#define ZOR_DECL_OUT_P2(T, ...) T *pDstY, int dstYStep, T *pDstCbCr, int dstCbCrStep
#define ZOR_EXPR_OUT_P2(T, ...) ::zor::P2<T, ##__VA_ARGS__>{pDstY, dstYStep, pDstCbCr, dstCbCrStep}

#define ZOR_DECL_IN_WHOLE_C(T, N) const T *pSrc
#define ZOR_EXPR_IN_WHOLE_C(T, N) ::zor::C<const T, N>::whole(pSrc, roiSize)
#define ZOR_DECL_OUT_WHOLE_C(T, N) T *pDst
#define ZOR_EXPR_OUT_WHOLE_C(T, N) ::zor::C<T, N>::whole(pDst, roiSize)
#define ZOR_DECL_IN_WHOLE_P3(T, ...) const T *const pSrc[3]
#define ZOR_EXPR_IN_WHOLE_P3(T, chroma, ...) \
    ::zor::P3<const T, ::zor::Steps::Three, ##__VA_ARGS__>::whole(pSrc, roiSize.width, chroma(roiSize))
#define ZOR_DECL_OUT_WHOLE_P3(T, ...) T *const pDst[3]
#define ZOR_EXPR_OUT_WHOLE_P3(T, chroma, ...) \
    ::zor::P3<T, ::zor::Steps::Three, ##__VA_ARGS__>::whole(pDst, roiSize.width, chroma(roiSize))

#define ZOR_DECL_ROI ZoriSize roiSize
#define ZOR_EXPR_ROI ::zor::Roi{roiSize}
#define ZOR_DECL_ARG(T, name) T name
#define ZOR_EXPR_ARG(T, name) ::zor::Value<T>{name}
#define ZOR_DECL_PTR(T, name) const T *name
#define ZOR_EXPR_PTR(T, name) ::zor::Ptr<const T>{name}

// ZOR_MAP(P, a, b, ...) -> P##a, P##b, ... (up to eight groups).
#define ZOR_MAP(P, ...) ZOR_MAP_N(__VA_ARGS__, 8, 7, 6, 5, 4, 3, 2, 1)(P, __VA_ARGS__)
#define ZOR_MAP_N(_1, _2, _3, _4, _5, _6, _7, _8, N, ...) ZOR_MAP_##N
#define ZOR_MAP_1(P, a) P##a
#define ZOR_MAP_2(P, a, ...) P##a, ZOR_MAP_1(P, __VA_ARGS__)
#define ZOR_MAP_3(P, a, ...) P##a, ZOR_MAP_2(P, __VA_ARGS__)
#define ZOR_MAP_4(P, a, ...) P##a, ZOR_MAP_3(P, __VA_ARGS__)
#define ZOR_MAP_5(P, a, ...) P##a, ZOR_MAP_4(P, __VA_ARGS__)
#define ZOR_MAP_6(P, a, ...) P##a, ZOR_MAP_5(P, __VA_ARGS__)
#define ZOR_MAP_7(P, a, ...) P##a, ZOR_MAP_6(P, __VA_ARGS__)
#define ZOR_MAP_8(P, a, ...) P##a, ZOR_MAP_7(P, __VA_ARGS__)

// ZOR_MAPF(F, a, b, ...) -> F(a), F(b), ... (up to eight groups).
#define ZOR_MAPF(F, ...) ZOR_MAPF_N(__VA_ARGS__, 8, 7, 6, 5, 4, 3, 2, 1)(F, __VA_ARGS__)
#define ZOR_MAPF_N(_1, _2, _3, _4, _5, _6, _7, _8, N, ...) ZOR_MAPF_##N
#define ZOR_MAPF_1(F, a) F(a)
#define ZOR_MAPF_2(F, a, ...) F(a), ZOR_MAPF_1(F, __VA_ARGS__)
#define ZOR_MAPF_3(F, a, ...) F(a), ZOR_MAPF_2(F, __VA_ARGS__)
#define ZOR_MAPF_4(F, a, ...) F(a), ZOR_MAPF_3(F, __VA_ARGS__)
#define ZOR_MAPF_5(F, a, ...) F(a), ZOR_MAPF_4(F, __VA_ARGS__)
#define ZOR_MAPF_6(F, a, ...) F(a), ZOR_MAPF_5(F, __VA_ARGS__)
#define ZOR_MAPF_7(F, a, ...) F(a), ZOR_MAPF_6(F, __VA_ARGS__)
#define ZOR_MAPF_8(F, a, ...) F(a), ZOR_MAPF_7(F, __VA_ARGS__)

#define ZOR_TEXT(...) ZOR_TEXT_(__VA_ARGS__)
#define ZOR_TEXT_(...) #__VA_ARGS__
#define ZOR_DESCRIBE_GROUP(g) ::zor::describe::group(#g, ZOR_TEXT(ZOR_DECL_##g), ZOR_EXPR_##g)

// One exported image function. checks and run are parenthesized types.
#define ZOR_EXPORT(name, checks, run, ...)                                                              \
    extern "C" ZORCC_API ZorStatus name(ZOR_MAP(ZOR_DECL_, __VA_ARGS__)) {                              \
        return ::zor::call<ZOR_STRIP checks, ZOR_STRIP run>(ZOR_MAP(ZOR_EXPR_, __VA_ARGS__));           \
    }                                                                                                   \
    static const ::zor::describe::Entry zorDescribe_##name{#name, &::zor::describe::invoke<&name>, [] { \
        return ::zor::describe::params(&name, [](ZOR_MAP(ZOR_DECL_, __VA_ARGS__)) {                     \
            return ::zor::describe::join({ZOR_MAPF(ZOR_DESCRIBE_GROUP, __VA_ARGS__)});                  \
        });                                                                                             \
    }};
