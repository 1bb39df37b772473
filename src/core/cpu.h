// CPU targets of the vector kernels and the choice among them.
//
// The library is built for the baseline instruction set of its platform;
// the vector kernels are compiled once per target (Highway's dynamic
// dispatch) and the best target that the processor supports is chosen once
// per process, at first use. ZOR_CPU=scalar|sse4|avx2|avx512 (neon on Arm)
// pins a target: the best supported target not above the one named. The
// scalar target runs the reference kernels.
#pragma once

#include <vector>

namespace zor {
namespace cpu {

enum Target : int { kScalar = 0, kSse4, kAvx2, kAvx512, kNeon, kTargetCount };

// The target that kernel sets use now.
Target active();

// The target chosen for a value of ZOR_CPU (null: not set): the best
// available target not above the one named; an unknown name is ignored.
Target choose(const char* zorCpu);

// Name as ZOR_CPU spells it.
const char* name(Target t);

// Targets this build has kernels for and this processor runs, scalar first.
std::vector<Target> available();

// Test and benchmark hook: makes `t` the active target (it must be one of
// available()). Not for use while other threads convert.
void force(Target t);

}  // namespace cpu
}  // namespace zor
