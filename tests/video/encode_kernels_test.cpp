// Every encoder vector kernel against its scalar kernel at every CPU target:
// random rows of every width 1..300, row ends against a guard page.
#include "support/kernel_harness.h"
#include "video/encode_kernels.h"

namespace {

#define ZOR_SHAPE_TEST(name, fn, args) \
    TEST(EncodeKernelSets, name) { zt::expectVectorsMatchScalar(zor::encodeTables, &zor::EncodeKernels::name); }
ZOR_ENCODE_KERNELS(ZOR_SHAPE_TEST)

}  // namespace
