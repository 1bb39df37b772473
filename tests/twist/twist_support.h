// Helpers shared by the colour twist and gamma tests: the three image layouts
// of these families, filled with chosen values, and a whole-buffer comparison
// that lets two NaN floats with different payloads count as equal.
#pragma once

#include "support/testutil.h"

#include <cmath>
#include <cstring>
#include <string>
#include <type_traits>

namespace tw {

// Whole allocations equal; for float images a word where both sides hold a
// NaN counts as equal (which NaN comes out of an operation on two NaNs is not
// part of the contract).
template <class T>
::testing::AssertionResult sameBytes(const std::vector<std::uint8_t>& got, const std::vector<std::uint8_t>& want) {
    if (got.size() != want.size()) return ::testing::AssertionFailure() << "sizes differ";
    for (std::size_t i = 0; i < got.size(); ++i) {
        if (got[i] == want[i]) continue;
        if constexpr (std::is_same_v<T, float>) {
            const std::size_t w = i & ~std::size_t{3};
            float a, b;
            std::memcpy(&a, &got[w], 4);
            std::memcpy(&b, &want[w], 4);
            if (std::isnan(a) && std::isnan(b)) {
                i = w + 3;
                continue;
            }
            return ::testing::AssertionFailure() << "byte " << i << ": got " << a << ", want " << b;
        } else {
            return ::testing::AssertionFailure() << "byte " << i << ": got " << int(got[i]) << ", want "
                                                 << int(want[i]);
        }
    }
    return ::testing::AssertionSuccess();
}

template <class T>
::testing::AssertionResult same(const zt::Image<T>& got, const zt::Image<T>& want) {
    return sameBytes<T>(got.bytes(), want.bytes());
}

template <class T>
::testing::AssertionResult same(const zt::Planes3<T>& got, const zt::Planes3<T>& want) {
    for (int i = 0; i < 3; ++i) {
        auto r = sameBytes<T>(got.p[i].bytes(), want.p[i].bytes());
        if (!r) return r << " (plane " << i << ")";
    }
    return ::testing::AssertionSuccess();
}

// Row padding in bytes that keeps every sample aligned.
template <class T>
constexpr int padFor(int samples) {
    return samples * static_cast<int>(sizeof(T));
}

// Applies a per-pixel model op(in[3], out[3]) to the region of `dst` from
// `src` (same layout), leaving the fourth sample of AC4 and all padding.
template <class T, class Op>
void modelInterleaved(const zt::Image<T>& src, zt::Image<T>& dst, const Op& op) {
    for (int y = 0; y < src.height(); ++y)
        for (int x = 0; x < src.width(); ++x) {
            const T in[3] = {src.at(x, y, 0), src.at(x, y, 1), src.at(x, y, 2)};
            T out[3];
            op(in, out);
            for (int c = 0; c < 3; ++c) dst.at(x, y, c) = out[c];
        }
}

template <class T, class Op>
void modelPlanar(const zt::Planes3<T>& src, zt::Planes3<T>& dst, const Op& op) {
    for (int y = 0; y < src.p[0].height(); ++y)
        for (int x = 0; x < src.p[0].width(); ++x) {
            const T in[3] = {src.p[0].at(x, y), src.p[1].at(x, y), src.p[2].at(x, y)};
            T out[3];
            op(in, out);
            for (int c = 0; c < 3; ++c) dst.p[c].at(x, y) = out[c];
        }
}

template <class T, class Gen>
void fill(zt::Image<T>& img, Gen&& gen) {
    img.fillSamples(gen);
}

template <class T, class Gen>
void fill(zt::Planes3<T>& img, Gen&& gen) {
    for (auto& p : img.p) p.fillSamples(gen);
}

}  // namespace tw
