// Aligned memory blocks. A block is obtained from malloc with 36 extra bytes;
// the caller gets the raw address plus 35 rounded down to a multiple of 32,
// which leaves 4 to 35 bytes in front of it. Those 4 bytes right before the
// returned address hold the distance back to the raw address, which zorsFree
// hands to free.
#include "core/memory.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace zor {

namespace {
AllocHook gHook = nullptr;
}

void setAllocHook(AllocHook hook) { gHook = hook; }

void* alignedAlloc(int len, std::size_t elemSize) {
    if (len < 1) return nullptr;
    const std::size_t bytes = static_cast<std::size_t>(len) * elemSize + 36;
    void* raw = (gHook != nullptr && !gHook(bytes)) ? nullptr : std::malloc(bytes);
    if (raw == nullptr) return nullptr;
    const std::uintptr_t r = reinterpret_cast<std::uintptr_t>(raw);
    const std::uintptr_t a = (r + 35) & ~static_cast<std::uintptr_t>(31);
    const std::uint32_t offset = static_cast<std::uint32_t>(a - r);
    char* p = static_cast<char*>(raw) + offset;
    std::memcpy(p - 4, &offset, 4);
    return p;
}

void alignedFree(void* p) {
    if (p == nullptr) return;
    std::uint32_t offset;
    std::memcpy(&offset, static_cast<char*>(p) - 4, 4);
    std::free(static_cast<char*>(p) - offset);
}

}  // namespace zor

extern "C" {

ZORCC_API Zor16s* zorsMalloc_16s(int len) { return static_cast<Zor16s*>(zor::alignedAlloc(len, 2)); }
ZORCC_API Zor16u* zorsMalloc_16u(int len) { return static_cast<Zor16u*>(zor::alignedAlloc(len, 2)); }
ZORCC_API Zor32f* zorsMalloc_32f(int len) { return static_cast<Zor32f*>(zor::alignedAlloc(len, 4)); }
ZORCC_API void zorsFree(void* ptr) { zor::alignedFree(ptr); }

}  // extern "C"
