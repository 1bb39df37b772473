// Every YCoCg vector kernel against its scalar kernel at every CPU target:
// random rows of every width 1..300 (any 16- and 32-bit values, so sums wrap
// and 8u results clamp at both ends), row ends against a guard page.
#include "support/kernel_harness.h"
#include "ycocg/ycocg_kernels.h"

#define ZOR_SHAPE_TEST(name, fn, args) \
    TEST(YCoCgKernelSets, name) { zt::expectVectorsMatchScalar(zor::ycocgTables, &zor::YCoCgKernels::name); }
ZOR_YCOCG_KERNELS(ZOR_SHAPE_TEST)
