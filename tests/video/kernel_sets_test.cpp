// Every video vector kernel against its scalar kernel at every CPU target:
// random rows of every width 1..300, row ends against a guard page.
#include "support/kernel_harness.h"
#include "video/kernels.h"

namespace {

#define ZOR_SHAPE_TEST(name, fn, args) \
    TEST(VideoKernelSets, name) { zt::expectVectorsMatchScalar(zor::videoTables, &zor::VideoKernels::name); }
ZOR_VIDEO_KERNELS(ZOR_SHAPE_TEST)

}  // namespace
