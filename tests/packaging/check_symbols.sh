#!/usr/bin/env bash
# Compares the dynamic symbol tables of the two libraries with the public
# header: every function the header declares is exported by the image
# library, the core library exports only its thread count, and nothing else
# leaves either library.
set -euo pipefail
header=$1 lib=$2 core=$3
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT

# Declared functions: identifiers followed by '(' on ZORCC_API lines.
grep -E '^ZORCC_API ' "$header" | sed -E 's/^[^(]*[^A-Za-z0-9_]([A-Za-z_][A-Za-z0-9_]*)\(.*/\1/' | sort -u > "$tmp/declared"
exported() { nm -D --defined-only "$1" | awk '$2 ~ /^[TtDdBbRrVWi]$/ {print $3}' | sed 's/@.*//' |
             grep -v -E '^(_init|_fini|_edata|_end|__bss_start)$' | sort -u; }
exported "$lib" > "$tmp/lib"
exported "$core" > "$tmp/core"

status=0
if ! diff -u "$tmp/declared" "$tmp/lib" > "$tmp/diff"; then
    echo "image library exports differ from the header (- declared only, + exported only):"
    grep -E '^[-+][^-+]' "$tmp/diff" | head -50
    status=1
fi
if [ "$(cat "$tmp/core")" != "threads_omp_of_n_zor" ]; then
    echo "core library exports: $(tr '\n' ' ' < "$tmp/core") (expected threads_omp_of_n_zor only)"
    status=1
fi
n=$(wc -l < "$tmp/declared")
[ "$n" -gt 0 ] || { echo "no declarations found in $header"; status=1; }
[ $status -eq 0 ] && echo "ok: $n functions declared and exported, nothing else"
exit $status
