// Every 4:4:4 vector kernel against its scalar kernel at every CPU target:
// random rows of every width 1..300, row ends against a guard page.
#include "support/kernel_harness.h"
#include "video/ycbcr444_kernels.h"

namespace {

#define ZOR_SHAPE_TEST(name, fn, args) \
    TEST(YCbCr444KernelSets, name) { zt::expectVectorsMatchScalar(zor::ycbcr444Tables, &zor::YCbCr444Kernels::name); }
ZOR_YCBCR444_KERNELS(ZOR_SHAPE_TEST)

}  // namespace
