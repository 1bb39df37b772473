#include "core/cpu.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "hwy/targets.h"

namespace zor {
namespace cpu {
namespace {

// Highway's target bit of each of ours (0: none).
std::int64_t hwyBit(Target t) {
    switch (t) {
#if HWY_ARCH_X86
        case kSse4: return HWY_SSE4;
        case kAvx2: return HWY_AVX2;
        case kAvx512: return HWY_AVX3;
#endif
#if HWY_ARCH_ARM && defined(HWY_NEON)
        case kNeon: return HWY_NEON;
#endif
        default: return 0;
    }
}

bool runs(Target t) {
    if (t == kScalar) return true;
    const std::int64_t bit = hwyBit(t);
    return bit != 0 && (hwy::SupportedTargets() & bit) != 0;
}

Target fromName(const char* s) {
    for (int t = 0; t < kTargetCount; ++t)
        if (std::strcmp(s, name(static_cast<Target>(t))) == 0) return static_cast<Target>(t);
    return kTargetCount;
}

}  // namespace

Target choose(const char* zorCpu) {
    const Target limit = zorCpu != nullptr ? fromName(zorCpu) : kTargetCount;
    Target best = kScalar;
    for (int t = 0; t < kTargetCount; ++t) {
        const Target c = static_cast<Target>(t);
        if (t <= static_cast<int>(limit) && runs(c)) best = c;
    }
    return best;
}

namespace {
std::atomic<int> g_active{-1};
}  // namespace

Target active() {
    int t = g_active.load(std::memory_order_relaxed);
    if (t < 0) {
        t = choose(std::getenv("ZOR_CPU"));
        g_active.store(t, std::memory_order_relaxed);
    }
    return static_cast<Target>(t);
}

const char* name(Target t) {
    static const char* const kNames[kTargetCount] = {"scalar", "sse4", "avx2", "avx512", "neon"};
    return t >= 0 && t < kTargetCount ? kNames[t] : "unknown";
}

std::vector<Target> available() {
    std::vector<Target> out;
    for (int t = 0; t < kTargetCount; ++t)
        if (runs(static_cast<Target>(t))) out.push_back(static_cast<Target>(t));
    return out;
}

void force(Target t) { g_active.store(t, std::memory_order_relaxed); }

}  // namespace cpu
}  // namespace zor
