#!/usr/bin/env bash
# Builds the library and the zorcc tool, then runs the demo on the built-in
# test card. The PNG files go to ./zorcc-demo (or the folder given).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release -DZORCC_BUILD_TESTS=OFF -DZORCC_BUILD_BENCH=OFF >/dev/null
cmake --build build --target zorcc -j"$(nproc)"
./build/zorcc demo --out "${1:-zorcc-demo}"
