// Noise tables of the noise-added dither variants.
#include "core/memory.h"
#include "reducebits/reducebits.h"

namespace zor {

NoiseTables::~NoiseTables() {
    alignedFree(index_);
    alignedFree(thresh_);
}

// Threshold table first, then the index table; the generator states live only
// while their table is filled. On a failure the destructor releases what was
// allocated.
ZorStatus NoiseTables::init(float low, float high) {
    thresh_ = static_cast<Zor32f*>(alignedAlloc(1024, sizeof(Zor32f)));
    if (thresh_ == nullptr) return zorStsNoMemory;
    index_ = static_cast<Zor16s*>(alignedAlloc(1024, sizeof(Zor16s)));
    if (index_ == nullptr) return zorStsNoMemory;

    ZorRandUniState_16s* s16 = nullptr;
    if (zorsRandUniformInitAlloc_16s(&s16, 0, 1024, 0) != zorStsOk) return zorStsNoMemory;
    zorsRandUniform_16s(index_, 1024, s16);
    zorsRandUniformFree_16s(s16);

    ZorRandUniState_32f* s32 = nullptr;
    if (zorsRandUniformInitAlloc_32f(&s32, low, high, 0) != zorStsOk) return zorStsNoMemory;
    zorsRandUniform_32f(thresh_, 1024, s32);
    zorsRandUniformFree_32f(s32);
    return zorStsOk;
}

}  // namespace zor
