// The one copy routine of the chroma family for rows that are plain copies.
#include <cstdint>
#include <cstring>

#include "chroma/layout.h"

namespace zor {

void copyRow(const Zor8u* src, Zor8u* dst, int n) {
    if (n <= 0) return;
    const std::uintptr_t s = reinterpret_cast<std::uintptr_t>(src);
    const std::uintptr_t d = reinterpret_cast<std::uintptr_t>(dst);
    const std::uintptr_t len = static_cast<std::uintptr_t>(n);
    if (s + len <= d || d + len <= s) {
        std::memcpy(dst, src, len);
        return;
    }
    // Overlapping ranges: ascending bytes, so that a destination ahead of its
    // source repeats the source's leading bytes.
    for (int i = 0; i < n; ++i) dst[i] = src[i];
}

}  // namespace zor
