// The 8u vector kernels of the CIE models (XYZ, LUV, Lab) against their scalar kernels at every CPU target, over every
// pixel of three bytes.
#include "models/lab_kernels.h"
#include "models/xyz_kernels.h"
#include "support/kernel_harness.h"

#define ZOR_EXHAUSTIVE(table, tables, name) \
    TEST(CieKernelSetsExhaustive, name) { zt::expectVectorsMatchScalar(tables, &zor::table::name, true); }
ZOR_EXHAUSTIVE(XyzKernels, zor::xyzTables, toXyz8C3)
ZOR_EXHAUSTIVE(XyzKernels, zor::xyzTables, toXyz8AC4)
ZOR_EXHAUSTIVE(XyzKernels, zor::xyzTables, toRgb8C3)
ZOR_EXHAUSTIVE(XyzKernels, zor::xyzTables, toRgb8AC4)
ZOR_EXHAUSTIVE(LabKernels, zor::labTables, bgrToLab8u)
ZOR_EXHAUSTIVE(LabKernels, zor::labTables, bgrToLab16u)
ZOR_EXHAUSTIVE(LabKernels, zor::labTables, labToBgr8u)
