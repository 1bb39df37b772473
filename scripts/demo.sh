#!/usr/bin/env bash
# Builds the library and the zorcc tool, then runs the demo on the built-in
# test card. The PNG files go to ./zorcc-demo (or the folder given).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
# Every option is given, so that whatever configured build/ before (a
# sanitizer build by hand) cannot change what the demo runs; scripts/test.sh
# gives every option too, and turns the tests back on.
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release -DZORCC_SANITIZE=OFF \
    -DZORCC_BUILD_TESTS=OFF -DZORCC_BUILD_BENCH=OFF -DZORCC_BUILD_TOOL=ON >/dev/null
cmake --build build --target zorcc -j"$(nproc)"
./build/zorcc demo --out "${1:-zorcc-demo}"
