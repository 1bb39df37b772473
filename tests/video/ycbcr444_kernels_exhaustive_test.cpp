// Every 4:4:4 vector kernel whose input pixel has at most 2^24 values,
// against its scalar kernel at every CPU target, over every input.
#include "support/kernel_harness.h"
#include "video/ycbcr444_kernels.h"

namespace {

#define ZOR_SHAPE_TEST(name, fn, args)                                                        \
    TEST(YCbCr444KernelSetsExhaustive, name) {                                                   \
        if (!zt::hasExhaustiveDomain<decltype(zor::YCbCr444Kernels::name)>()) GTEST_SKIP();       \
        zt::expectVectorsMatchScalar(zor::ycbcr444Tables, &zor::YCbCr444Kernels::name, true);       \
    }
ZOR_YCBCR444_KERNELS(ZOR_SHAPE_TEST)

}  // namespace
