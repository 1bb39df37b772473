#!/usr/bin/env bash
# Builds the library with clang's address and undefined-behaviour sanitizers
# (build-fuzz/), runs the whole-library tests in it, then the libFuzzer target
# over every exported image function for the given number of seconds (default
# 120), starting from the committed seed corpus tests/fuzz/corpus. New inputs collect in build-fuzz/corpus; a
# failing input is written to build-fuzz/crash-* and the run fails.
#   scripts/fuzz.sh            the CI smoke run (2 minutes)
#   scripts/fuzz.sh 36000 -jobs=2 -workers=2    a long run (README)
set -euo pipefail
cd "$(dirname "$0")/.."
secs=${1:-120}
shift || true
scripts/deps.sh clang libomp-dev libclang-rt-dev
export OMP_WAIT_POLICY=passive
CC=clang CXX=clang++ cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    "-DCMAKE_CXX_FLAGS_RELWITHDEBINFO=-O1 -g1" "-DCMAKE_C_FLAGS_RELWITHDEBINFO=-O1 -g1" \
    -DZORCC_BUILD_FUZZ=ON -DZORCC_BUILD_TESTS=ON -DZORCC_BUILD_BENCH=OFF -DZORCC_BUILD_TOOL=OFF >/dev/null
cmake --build build-fuzz --target zorcc-fuzz test_library_describe test_library_robust test_library_concurrency -j"$(nproc)"
# Every report is fatal; leaks are looked for at the end of each run.
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
echo "== whole-library tests, clang ASan + UBSan"
ctest --test-dir build-fuzz -L library --output-on-failure -j"$(nproc)"
echo "== fuzzing for $secs s"
mkdir -p build-fuzz/corpus
build-fuzz/zorcc-fuzz -max_total_time="$secs" -print_final_stats=1 -artifact_prefix=build-fuzz/ \
    -rss_limit_mb=4096 "$@" build-fuzz/corpus tests/fuzz/corpus
