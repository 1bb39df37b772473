// The 8u gray vector kernels against their scalar kernels at every CPU target, over every RGB triple, three weight sets.
#include "models/gray_kernels.h"
#include "support/kernel_harness.h"

TEST(GrayKernelSetsExhaustive, EightBit) {
    for (const zor::GrayWeights<Zor8u> k : {zor::GrayWeights<Zor8u>{{1225, 2404, 467}}, {{2048, 2048, 2048}}, {{0xFFFFFC01u, 4096, 1}}}) {
        zt::expectVectorsMatchScalar(zor::grayTables, &zor::GrayKernels::c3u8, true, [k](std::mt19937&) { return std::make_tuple(k); });
        zt::expectVectorsMatchScalar(zor::grayTables, &zor::GrayKernels::ac4u8, true, [k](std::mt19937&) { return std::make_tuple(k); });
    }
}
