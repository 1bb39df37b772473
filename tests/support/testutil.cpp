#include "support/testutil.h"

#include <omp.h>

namespace zt {

void inOuterParallelRegion(const std::function<void()>& fn) {
#pragma omp parallel num_threads(2)
    {
#pragma omp single
        fn();
    }
}

std::ptrdiff_t firstDifference(const std::vector<std::uint8_t>& a, const std::vector<std::uint8_t>& b) {
    const std::size_t n = a.size() < b.size() ? a.size() : b.size();
    for (std::size_t i = 0; i < n; ++i)
        if (a[i] != b[i]) return static_cast<std::ptrdiff_t>(i);
    return a.size() == b.size() ? -1 : static_cast<std::ptrdiff_t>(n);
}

}  // namespace zt
