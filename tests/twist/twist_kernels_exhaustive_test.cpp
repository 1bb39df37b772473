// The 8-bit colour twist vector kernels against their scalar kernels at every CPU target, over every triple of samples:
// a matrix of general weights, and one whose results fall on halves (ties to even) and beyond both ends of the range.
#include "support/kernel_harness.h"
#include "twist/twist_kernels.h"

TEST(TwistKernelSetsExhaustive, EightBit) {
    const float general[3][4] = {{0.299f, 0.587f, 0.114f, 0.3f}, {-0.169f, -0.331f, 0.5f, 128.0f}, {0.5f, -0.419f, -0.081f, 127.7f}};
    const float halves[3][4] = {{0.5f, 1.5f, -0.5f, 0.5f}, {-1.0f, 0.5f, 0.0f, -0.5f}, {0.25f, -0.75f, 0.5f, 1.5f}};
    for (const auto* m : {general, halves}) {
        const auto extras = [m](std::mt19937&) { return std::make_tuple(zor::Matrix<3>(m)); };
        zt::expectVectorsMatchScalar(zor::twistTables, &zor::TwistKernels::c3u8, true, extras);
        zt::expectVectorsMatchScalar(zor::twistTables, &zor::TwistKernels::ac4u8, true, extras);
        zt::expectVectorsMatchScalar(zor::twistTables, &zor::TwistKernels::p3u8, true, extras);
        zt::expectVectorsMatchScalar(zor::twistTables, &zor::TwistKernels::c3s8, true, extras);
        zt::expectVectorsMatchScalar(zor::twistTables, &zor::TwistKernels::ac4s8, true, extras);
        zt::expectVectorsMatchScalar(zor::twistTables, &zor::TwistKernels::p3s8, true, extras);
    }
}
