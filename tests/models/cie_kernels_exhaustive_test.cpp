// The 8u vector kernels of the CIE models (XYZ, LUV, Lab) against their scalar kernels at every CPU target, over every
// pixel of three bytes.
#include "models/lab_kernels.h"
#include "models/luv_kernels.h"
#include "models/xyz_kernels.h"
#include "support/kernel_harness.h"

#define ZOR_EXHAUSTIVE(family, tables, name) \
    TEST(family##KernelSetsExhaustive, name) { zt::expectVectorsMatchScalar(zor::tables, &zor::family##Kernels::name, true); }
ZOR_EXHAUSTIVE(Xyz, xyzTables, toXyz8C3)
ZOR_EXHAUSTIVE(Xyz, xyzTables, toXyz8AC4)
ZOR_EXHAUSTIVE(Xyz, xyzTables, toRgb8C3)
ZOR_EXHAUSTIVE(Xyz, xyzTables, toRgb8AC4)
ZOR_EXHAUSTIVE(Luv, luvTables, toLuv8C3)
ZOR_EXHAUSTIVE(Luv, luvTables, toLuv8AC4)
ZOR_EXHAUSTIVE(Luv, luvTables, toRgb8C3)
ZOR_EXHAUSTIVE(Luv, luvTables, toRgb8AC4)
ZOR_EXHAUSTIVE(Lab, labTables, bgrToLab8u)
ZOR_EXHAUSTIVE(Lab, labTables, bgrToLab16u)
ZOR_EXHAUSTIVE(Lab, labTables, labToBgr8u)
