// Every chroma vector kernel (relayouts, four-tap interpolation, deinterlacing)
// against its scalar kernel at every CPU target: random rows of every width
// 1..300, row ends against a guard page.
#include "chroma/layout.h"
#include "support/kernel_harness.h"

#define ZOR_SHAPE_TEST(name, fn, args) \
    TEST(ChromaKernelSets, name) { zt::expectVectorsMatchScalar(zor::chromaTables, &zor::ChromaKernels::name); }
ZOR_CHROMA_KERNELS(ZOR_SHAPE_TEST)
