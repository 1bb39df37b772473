// The 4:4:4 YUV vector kernels against their scalar kernels at every CPU target, over every input pixel.
#include "support/kernel_harness.h"
#include "video/yuv_kernels.h"

#define ZOR_SHAPE_TEST(name, fn, args)                                                     \
    TEST(YuvKernelSetsExhaustive, name) {                                                  \
        if (std::string(#name).find("444") == std::string::npos) GTEST_SKIP() << "pairs"; \
        zt::expectVectorsMatchScalar(zor::yuvTables, &zor::YuvKernels::name, true);        \
    }
ZOR_YUV_KERNELS(ZOR_SHAPE_TEST)
