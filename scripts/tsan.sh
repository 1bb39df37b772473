#!/usr/bin/env bash
# Builds the concurrency test with clang and ThreadSanitizer (build-tsan/) and
# runs it. The OpenMP runtime is not instrumented; its race-detection helper
# (archer, shipped with clang's libomp) tells ThreadSanitizer about the
# runtime's synchronisation; accesses made inside the uninstrumented
# runtime itself are ignored (ignore_noninstrumented_modules).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh clang libomp-dev libclang-rt-dev
archer=$(ls /usr/lib/llvm-*/lib/libarcher.so 2>/dev/null | sort -V | tail -1)
[ -n "$archer" ] || { echo "libarcher.so not found (Debian: libomp-dev)"; exit 1; }
CC=clang CXX=clang++ cmake -S . -B build-tsan -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    "-DCMAKE_CXX_FLAGS=-fsanitize=thread" "-DCMAKE_C_FLAGS=-fsanitize=thread" \
    "-DCMAKE_CXX_FLAGS_RELWITHDEBINFO=-O1 -g1" "-DCMAKE_C_FLAGS_RELWITHDEBINFO=-O1 -g1" \
    "-DCMAKE_EXE_LINKER_FLAGS=-fsanitize=thread" "-DCMAKE_SHARED_LINKER_FLAGS=-fsanitize=thread" \
    -DZORCC_BUILD_TESTS=ON -DZORCC_BUILD_BENCH=OFF -DZORCC_BUILD_TOOL=OFF >/dev/null
cmake --build build-tsan --target test_library_concurrency -j"$(nproc)"
OMP_TOOL_LIBRARIES="$archer" OMP_WAIT_POLICY=passive TSAN_OPTIONS="ignore_noninstrumented_modules=1 halt_on_error=1" \
    build-tsan/test_library_concurrency
