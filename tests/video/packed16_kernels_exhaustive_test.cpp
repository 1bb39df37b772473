// The packed 16-bit output kernels of 4:4:4 sources against their scalar
// kernels at every CPU target, over every input pixel.
#include "support/kernel_harness.h"
#include "video/packed16.h"

#define ZOR_SWEEP(name, fn, args)                                                              \
    if (zt::hasExhaustiveDomain<decltype(zor::Packed16Kernels::name)>()) {                     \
        SCOPED_TRACE(#name);                                                                   \
        zt::expectVectorsMatchScalar(zor::packed16Tables, &zor::Packed16Kernels::name, true); \
    }
TEST(Packed16KernelSetsExhaustive, EveryShapeWithOnePixelPerInput) { ZOR_PACKED16_KERNELS(ZOR_SWEEP) }
