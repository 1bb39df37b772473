// The packed 16-bit output kernels of 4:4:4 sources against their scalar kernels at every CPU target, every input.
#include "support/kernel_harness.h"
#include "video/packed16.h"

#define ZOR_SHAPE_TEST(name, fn, args)                                                      \
    TEST(Packed16KernelSetsExhaustive, name) {                                              \
        if (!zt::hasExhaustiveDomain<decltype(zor::Packed16Kernels::name)>()) GTEST_SKIP(); \
        zt::expectVectorsMatchScalar(zor::packed16Tables, &zor::Packed16Kernels::name, true); \
    }
ZOR_PACKED16_KERNELS(ZOR_SHAPE_TEST)
