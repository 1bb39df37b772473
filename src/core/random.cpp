#include "core/random.h"

#include "core/memory.h"

#include <cmath>
#include <cstddef>
#include <cstring>

static_assert(offsetof(ZorRandUniState_16s, low) == 8 && offsetof(ZorRandUniState_16s, high) == 10);
static_assert(offsetof(ZorRandUniState_16s, mean) == 16 && offsetof(ZorRandUniState_16s, scale) == 24);
static_assert(offsetof(ZorRandUniState_16s, words) == 32 && sizeof(ZorRandUniState_16s) == 56);
static_assert(offsetof(ZorRandUniState_32f, high) == 12 && offsetof(ZorRandUniState_32f, words) == 32);

namespace zor {
namespace {

// 2^-32 plus 7 units in the last place (bit pattern 0x3DF0000000000007).
constexpr double kScale = 2.3283064365387e-10;

template <class State, class T>
ZorStatus initAlloc(State** ppState, T low, T high, unsigned seed, std::uint32_t id, int allocLen) {
    if (ppState == nullptr) return zorStsNullPtr;
    void* block = id == kRandUniformId16s ? static_cast<void*>(zorsMalloc_16s(allocLen))
                                          : static_cast<void*>(zorsMalloc_32f(allocLen));
    if (block == nullptr) return zorStsNoMemory;
    State* s = static_cast<State*>(block);
    std::memset(s, 0, sizeof(State));
    s->id = id;
    s->seed = seed;
    s->low = low;
    s->high = high;
    // The bounds are combined after the usual promotions (int for 16s, float
    // for 32f), then widened to double.
    s->mean = static_cast<double>(high + low) * 0.5;
    s->scale = static_cast<double>(high - low) * kScale;
    s->words.x = 1131199209u;
    s->words.w1 = seed;
    s->words.w2 = 69069u * seed + 1013904243u;
    s->words.w3 = 69069u * s->words.w2 + 1013904243u;
    s->words.carry = -1;
    *ppState = s;
    return zorStsOk;
}

template <class State, class T, class Sample>
ZorStatus fill(T* pDst, int len, State* pState, std::uint32_t id, Sample sample) {
    if (pDst == nullptr || pState == nullptr) return zorStsNullPtr;
    if (len <= 0) return zorStsBadSize;
    if (pState->id != id) return zorStsContextMatchErr;
    RandWords w = pState->words;
    const double mean = pState->mean;
    const double scale = pState->scale;
    for (int i = 0; i < len; ++i) pDst[i] = sample(mean + scale * static_cast<double>(w.next()));
    pState->words = w;
    return zorStsOk;
}

template <class State>
ZorStatus release(State* pState, std::uint32_t id) {
    if (pState == nullptr) return zorStsNullPtr;
    if (pState->id != id) return zorStsContextMatchErr;
    zorsFree(pState);
    return zorStsOk;
}

}  // namespace
}  // namespace zor

extern "C" {

ZORCC_API ZorStatus zorsRandUniformInitAlloc_16s(ZorRandUniState_16s** ppState, Zor16s low, Zor16s high,
                                                 unsigned int seed) {
    return zor::initAlloc(ppState, low, high, seed, zor::kRandUniformId16s, 48);
}

ZORCC_API ZorStatus zorsRandUniformInitAlloc_32f(ZorRandUniState_32f** ppState, Zor32f low, Zor32f high,
                                                 unsigned int seed) {
    return zor::initAlloc(ppState, low, high, seed, zor::kRandUniformId32f, 52);
}

ZORCC_API ZorStatus zorsRandUniform_16s(Zor16s* pDst, int len, ZorRandUniState_16s* pState) {
    // Truncation toward zero.
    return zor::fill(pDst, len, pState, zor::kRandUniformId16s,
                     [](double v) { return static_cast<Zor16s>(static_cast<int>(v)); });
}

ZORCC_API ZorStatus zorsRandUniform_32f(Zor32f* pDst, int len, ZorRandUniState_32f* pState) {
    return zor::fill(pDst, len, pState, zor::kRandUniformId32f, [](double v) { return static_cast<Zor32f>(v); });
}

ZORCC_API ZorStatus zorsRandUniformFree_16s(ZorRandUniState_16s* pState) {
    return zor::release(pState, zor::kRandUniformId16s);
}

ZORCC_API ZorStatus zorsRandUniformFree_32f(ZorRandUniState_32f* pState) {
    return zor::release(pState, zor::kRandUniformId32f);
}

}  // extern "C"
