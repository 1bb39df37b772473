// The 8u gray vector kernels against their scalar kernels at every CPU
// target, over every RGB triple, with the default weights, weights whose sums
// wrap, and negative weights.
#include "models/gray_kernels.h"
#include "support/kernel_harness.h"

namespace {

using zor::GrayWeights;

TEST(GrayKernelSetsExhaustive, EightBit) {
    const GrayWeights<Zor8u> sets[] = {{{1225, 2404, 467}}, {{2048, 2048, 2048}}, {{0xFFFFFC01u, 4096, 1}}};
    for (const GrayWeights<Zor8u>& k : sets) {
        const auto weights = [k](std::mt19937&) { return std::make_tuple(k); };
        zt::expectVectorsMatchScalar(zor::grayTables, &zor::GrayKernels::c3u8, true, weights);
        zt::expectVectorsMatchScalar(zor::grayTables, &zor::GrayKernels::ac4u8, true, weights);
    }
}

}  // namespace
