// The 8u forward YCoCg vector kernels against their scalar kernels at every
// CPU target, over every BGR triple (BGRA: the fourth byte ignored).
#include "support/kernel_harness.h"
#include "ycocg/ycocg_kernels.h"

TEST(YCoCgKernelSetsExhaustive, EightBitForward) {
    using K = zor::YCoCgKernels;
    for (auto member : {&K::fwdC3u8s16, &K::fwdRevC3u8s16}) zt::expectVectorsMatchScalar(zor::ycocgTables, member, true);
    for (auto member : {&K::fwdC4u8s16, &K::fwdRevC4u8s16}) zt::expectVectorsMatchScalar(zor::ycocgTables, member, true);
}
