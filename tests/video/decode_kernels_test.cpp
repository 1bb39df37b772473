// Every vector kernel of the subsampled decoders and the packed 16-bit
// outputs against its scalar kernel at every CPU target: random rows of every
// width 1..300, row ends against a guard page, random row indices.
#include "support/kernel_harness.h"
#include "video/decode_kernels.h"
#include "video/packed16.h"

namespace {

#define ZOR_DECODE_TEST(name, fn, args) \
    TEST(DecodeKernelSets, name) { zt::expectVectorsMatchScalar(zor::decodeTables, &zor::DecodeKernels::name); }
ZOR_DECODE_KERNELS(ZOR_DECODE_TEST)

#define ZOR_PACKED16_TEST(name, fn, args) \
    TEST(Packed16KernelSets, name) { zt::expectVectorsMatchScalar(zor::packed16Tables, &zor::Packed16Kernels::name); }
ZOR_PACKED16_KERNELS(ZOR_PACKED16_TEST)

}  // namespace
