#!/usr/bin/env bash
# Builds everything and runs the whole test suite twice: a plain release
# build (build/) and a build with the address and undefined-behaviour
# sanitizers (build-sanitize/).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
jobs=$(nproc)
# Idle OpenMP workers sleep instead of spinning: with tests running side by
# side on few cores, spinning teams only steal each other's time.
export OMP_WAIT_POLICY=passive

# Every option is given explicitly, so that whatever configured these
# folders before (scripts/demo.sh, a build by hand) cannot leave tests out.
echo "== release build and tests (the exhaustive sweeps at every CPU target)"
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release -DZORCC_SANITIZE=OFF \
    -DZORCC_BUILD_TESTS=ON -DZORCC_BUILD_BENCH=ON -DZORCC_BUILD_TOOL=ON >/dev/null
cmake --build build -j"$jobs"
ctest --test-dir build --output-on-failure -j"$jobs"

echo "== sanitizer build (address, undefined) and tests (the exhaustive sweeps at the best target only)"
# -O1 with line tables only: half the build time of -O2 -g, and the
# sanitizers' reports still name files and lines.
cmake -S . -B build-sanitize -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZORCC_SANITIZE=ON \
    "-DCMAKE_CXX_FLAGS_RELWITHDEBINFO=-O1 -g1" "-DCMAKE_C_FLAGS_RELWITHDEBINFO=-O1 -g1" \
    -DZORCC_BUILD_TESTS=ON -DZORCC_BUILD_BENCH=OFF -DZORCC_BUILD_TOOL=ON >/dev/null
cmake --build build-sanitize -j"$jobs"
ZORCC_TEST_TARGETS=best ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
    ctest --test-dir build-sanitize --output-on-failure -j"$jobs"
