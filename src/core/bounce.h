// Rows whose samples are not aligned to their type. A 16- or 32-bit image
// whose byte step is not a multiple of the sample size puts every other row
// at an address where a typed access is undefined. The row driver then runs
// the kernel on aligned copies of such rows instead: piece by piece through
// buffers on the stack, copying each piece in with memcpy before the kernel
// and copying the written images back out after it. The kernels only ever
// see aligned pointers, and the result is the same because every kernel with
// wider samples converts each pixel on its own (pieces start at a multiple
// of 64 pixels, which keeps any pattern that repeats every 4 or 8 pixels in
// phase).
#pragma once

#include "core/image.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <tuple>
#include <type_traits>

namespace zor {
namespace bounce {

// Calls f(pointer, samples per pixel, pixels per sample) for every pointer of
// a row: a plane with one sample per h pixels has (1, h).
template <class T, int N, class F>
void eachPtr(RowC<T, N>& r, const F& f) {
    f(r.p, N, 1);
}
template <class T, int H, class F>
void eachPtr(Row3<T, H>& r, const F& f) {
    f(r.p[0], 1, 1), f(r.p[1], 1, H), f(r.p[2], 1, H);
}
template <class T, int H, class F>
void eachPtr(Row2<T, H>& r, const F& f) {
    f(r.y, 1, 1), f(r.c, 2, H);
}
template <class T, class F>
void eachPtr(Row4<T>& r, const F& f) {
    for (auto& p : r.p) f(p, 1, 1);
}

template <class Row>
struct Pointers;
template <class T, int N>
struct Pointers<RowC<T, N>> {
    static constexpr int value = 1;
};
template <class T, int H>
struct Pointers<Row3<T, H>> {
    static constexpr int value = 3;
};
template <class T, int H>
struct Pointers<Row2<T, H>> {
    static constexpr int value = 2;
};
template <class T>
struct Pointers<Row4<T>> {
    static constexpr int value = 4;
};
template <class... R>
inline constexpr int kPointers = (Pointers<R>::value + ...);

template <class T>
bool misaligned(const T* p) {
    return alignof(T) > 1 && reinterpret_cast<std::uintptr_t>(p) % alignof(T) != 0;
}

template <class Rows>
bool anyMisaligned(Rows rows) {
    bool any = false;
    std::apply([&](auto&... r) { (eachPtr(r, [&](auto* p, int, int) { any = any || misaligned(p); }), ...); }, rows);
    return any;
}

inline constexpr int kBytes = 4096;  // per pointer and piece

// Runs call(rows, width) on pieces of the row with every misaligned pointer
// replaced by an aligned buffer. The pointers of one call are distinct rows
// (no 4:2:0 pairs, which repeat a chroma row).
template <class... R, class Call>
void run(const std::tuple<R...>& rows, int width, const Call& call) {
    using Rows = std::tuple<R...>;
    alignas(64) unsigned char buf[kPointers<R...>][kBytes];
    // The widest pixel of any pointer sets the piece width.
    int widest = 1;
    Rows probe = rows;
    std::apply([&](auto&... r) {
        (eachPtr(r, [&](auto* p, int n, int) {
             widest = std::max<int>(widest, n * static_cast<int>(sizeof(*p)));
         }), ...);
    }, probe);
    const int piece = kBytes / widest / 64 * 64;
    for (int x0 = 0; x0 < width; x0 += piece) {
        const int w = std::min(piece, width - x0);
        Rows part = rows;
        int slot = 0;
        // Samples of this piece at each pointer: the piece starts at a
        // multiple of 64 pixels, so a subsampled plane starts at x0 / h.
        std::apply([&](auto&... r) {
            (eachPtr(r, [&](auto*& p, int n, int h) {
                 const std::ptrdiff_t count = static_cast<std::ptrdiff_t>(n) * ((w + h - 1) / h);
                 p += static_cast<std::ptrdiff_t>(n) * (x0 / h);
                 if (misaligned(p)) {
                     using T = std::remove_pointer_t<std::remove_reference_t<decltype(p)>>;
                     std::memcpy(buf[slot], p, count * sizeof(T));
                     p = reinterpret_cast<T*>(buf[slot]);
                 }
                 ++slot;
             }), ...);
        }, part);
        call(part, w);
        // Copy the written pointers back.
        Rows at = rows;
        slot = 0;
        std::apply([&](auto&... r) {
            (eachPtr(r, [&](auto*& p, int n, int h) {
                 using T = std::remove_pointer_t<std::remove_reference_t<decltype(p)>>;
                 const std::ptrdiff_t count = static_cast<std::ptrdiff_t>(n) * ((w + h - 1) / h);
                 p += static_cast<std::ptrdiff_t>(n) * (x0 / h);
                 if constexpr (!std::is_const_v<T>) {
                     if (misaligned(p)) std::memcpy(static_cast<void*>(p), buf[slot], count * sizeof(T));
                 }
                 ++slot;
             }), ...);
        }, at);
    }
}

}  // namespace bounce
}  // namespace zor
