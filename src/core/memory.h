// Working memory of the library: the aligned blocks behind zorsMalloc_* and
// zorsFree, for internal callers (dithering buffers, gamma tables, generator
// states). Every allocation of working memory goes through alignedAlloc so
// that tests can make it fail.
#pragma once

#include "zorcc.h"

#include <cstddef>

namespace zor {

// Block of len elements of elemSize bytes, 32-byte aligned; null when len < 1
// or the system allocator fails.
void* alignedAlloc(int len, std::size_t elemSize);
void alignedFree(void* p);

// Test hook: when set, it is asked before each allocation (with the byte count
// passed to malloc) and the allocation fails when it returns false.
using AllocHook = bool (*)(std::size_t bytes);
void setAllocHook(AllocHook hook);

// Owns a block until the end of a scope.
template <class T>
class Block {
public:
    explicit Block(int len) : p_(static_cast<T*>(alignedAlloc(len, sizeof(T)))) {}
    ~Block() { alignedFree(p_); }
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    T* get() const { return p_; }
    explicit operator bool() const { return p_ != nullptr; }

private:
    T* p_;
};

}  // namespace zor
