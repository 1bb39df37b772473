// Noise tables of the noise-added dither variants.
#include "reducebits/reducebits.h"

namespace zor {

NoiseTables::~NoiseTables() {
    zorsFree(index_);
    zorsFree(thresh_);
}

// Threshold table first, then the index table; the generator states live only
// while their table is filled. Any failure leaves nothing allocated for the
// caller to release beyond what the destructor frees.
ZorStatus NoiseTables::init(float low, float high) {
    thresh_ = zorsMalloc_32f(1024);
    if (thresh_ == nullptr) return zorStsNoMemory;
    index_ = zorsMalloc_16s(1024);
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
