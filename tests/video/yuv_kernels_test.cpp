// Every YUV vector kernel against its scalar kernel at every CPU target:
// random rows of every width 1..300, row ends against a guard page.
#include "support/kernel_harness.h"
#include "video/yuv_kernels.h"

#define ZOR_SHAPE_TEST(name, fn, args) \
    TEST(YuvKernelSets, name) { zt::expectVectorsMatchScalar(zor::yuvTables, &zor::YuvKernels::name); }
ZOR_YUV_KERNELS(ZOR_SHAPE_TEST)
