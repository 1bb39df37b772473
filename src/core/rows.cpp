#include "core/rows.h"

namespace zor {

int teamSize() {
    const int n = threads_omp_of_n_zor;
    return n < 1 ? 1 : n;
}

}  // namespace zor
