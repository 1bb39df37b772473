// The encoder vector kernels against their scalar kernels at every CPU
// target over every input pixel: all 2^24 byte triples or all 2^16 words in
// the first source row (the second row of the 4:2:0 kernels is random).
#include "support/kernel_harness.h"
#include "video/encode_kernels.h"

namespace {

#define ZOR_SHAPE_TEST(name, fn, args) \
    TEST(EncodeKernelSetsExhaustive, name) { zt::expectVectorsMatchScalar(zor::encodeTables, &zor::EncodeKernels::name, true); }
ZOR_ENCODE_KERNELS(ZOR_SHAPE_TEST)

}  // namespace
