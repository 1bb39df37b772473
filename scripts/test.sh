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

echo "== release build and tests"
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build -j"$jobs"
ctest --test-dir build --output-on-failure -j"$jobs"

echo "== sanitizer build (address, undefined) and tests"
cmake -S . -B build-sanitize -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZORCC_SANITIZE=ON -DZORCC_BUILD_BENCH=OFF >/dev/null
cmake --build build-sanitize -j"$jobs"
ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
    ctest --test-dir build-sanitize --output-on-failure -j"$jobs"
