// The 4:4:4 YUV vector kernels against their scalar kernels at every CPU
// target, over every input pixel (the subsampled ones work on pairs and are
// covered by the random rows).
#include "support/kernel_harness.h"
#include "video/yuv_kernels.h"

#include <string>

#define ZOR_SWEEP(name, fn, args)                                                   \
    if (std::string(#name).find("444") != std::string::npos) {                      \
        SCOPED_TRACE(#name);                                                        \
        zt::expectVectorsMatchScalar(zor::yuvTables, &zor::YuvKernels::name, true); \
    }
TEST(YuvKernelSetsExhaustive, EveryFullResolutionShape) { ZOR_YUV_KERNELS(ZOR_SWEEP) }
