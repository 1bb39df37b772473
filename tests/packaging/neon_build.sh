#!/usr/bin/env bash
# Compiles every vector-kernel unit for 64-bit Arm (NEON) with a cross
# compiler: the kernels are written once for every target, and this keeps
# them building where they cannot run here.
set -euo pipefail
cxx=$1 src=$2
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
mkdir -p "$tmp/inc" && ln -s /usr/include/hwy "$tmp/inc/hwy"  # Highway's headers only, not the host's
n=0
for f in $(find "$src/src" -name '*_hwy.cpp' | sort); do
    "$cxx" -std=c++17 -O1 -Wall -Wextra -ffp-contract=off -fopenmp -c -o "$tmp/k.o" -I"$src/include" -I"$src/src" -I"$tmp/inc" \
        -DZORCC_BUILDING_LIBRARY "-DHWY_DISABLED_TARGETS=(HWY_SVE|HWY_SVE2|HWY_SVE_256|HWY_SVE2_128)" "$f"
    syms=$("${cxx%g++}nm" -C "$tmp/k.o")
    case "$syms" in *N_NEON*) ;; *) echo "no NEON code in $f"; exit 1 ;; esac
    n=$((n + 1))
done
echo "ok: $n vector-kernel units build for NEON"
