// Every video vector kernel whose input pixel has at most 2^24 values,
// against its scalar kernel at every CPU target, over every input.
#include "support/kernel_harness.h"
#include "video/kernels.h"

namespace {

#define ZOR_SHAPE_TEST(name, fn, args)                                                        \
    TEST(VideoKernelSetsExhaustive, name) {                                                   \
        if (!zt::hasExhaustiveDomain<decltype(zor::VideoKernels::name)>()) GTEST_SKIP();       \
        zt::expectVectorsMatchScalar(zor::videoTables, &zor::VideoKernels::name, true);       \
    }
ZOR_VIDEO_KERNELS(ZOR_SHAPE_TEST)

}  // namespace
