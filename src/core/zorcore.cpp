// The core library: one integer, the team size of every parallel region of the
// domain libraries. It is set once when the library is loaded.
#define ZORCORE_BUILDING_LIBRARY
#include "zorcc.h"

#include <cerrno>
#include <cstdlib>
#include <thread>

namespace {

int processorCount() {
    unsigned n = std::thread::hardware_concurrency();
    return n == 0 ? 1 : static_cast<int>(n);
}

// ZOR_NUM_THREADS overrides the processor count when it holds a positive
// integer (surrounding white space allowed); anything else is ignored.
int initialThreadCount() {
    const char* env = std::getenv("ZOR_NUM_THREADS");
    if (env != nullptr) {
        char* end = nullptr;
        errno = 0;
        long v = std::strtol(env, &end, 10);
        while (end != nullptr && (*end == ' ' || *end == '\t' || *end == '\n')) ++end;
        if (end != env && end != nullptr && *end == '\0' && errno == 0 && v > 0 && v <= 1 << 16)
            return static_cast<int>(v);
    }
    return processorCount();
}

}  // namespace

// Declared extern "C" in the public header.
int threads_omp_of_n_zor = initialThreadCount();
