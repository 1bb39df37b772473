#!/usr/bin/env bash
# Side-by-side benchmark of the conversions: zorcc at every CPU target
# this machine runs, and the library as it was before its vector kernels,
# beside memcpy, libyuv and OpenCV. Writes docs/bench.csv, docs/bench.png and
# docs/bench.md (the table for the README).
#
# Environment:
#   ZORCC_BENCH_BUILD   build folder (default build-bench/)
#   ZORCC_BENCH_BEFORE  commit of the "before" series (default d4250a9;
#                       empty to skip it)
#   ZORCC_BENCH_BEFORE_DIR  its source and build folder (default
#                       build-bench-before/)
#   ZORCC_BENCH_RUNS    timed runs per case (default 15, at least 9)
#   ZORCC_BENCH_OUT     output folder (default docs/)
#   ZORCC_BENCH_README  file whose bench markers get the short table
#                       (default README.md; empty to leave it)
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
start=$SECONDS

build=${ZORCC_BENCH_BUILD:-$root/build-bench}
before=${ZORCC_BENCH_BEFORE-d4250a9}
before_dir=${ZORCC_BENCH_BEFORE_DIR:-$root/build-bench-before}
runs=${ZORCC_BENCH_RUNS:-15}
out=${ZORCC_BENCH_OUT:-$root/docs}
export ZORCC_BENCH_README=${ZORCC_BENCH_README-$root/README.md}
jobs=$(nproc)
export OMP_WAIT_POLICY=passive

# What the benchmark needs beyond the build itself.
scripts/deps.sh libyuv-dev libopencv-dev python3-matplotlib

echo "== release build in $build"
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DZORCC_SANITIZE=OFF \
    -DZORCC_BUILD_TESTS=OFF -DZORCC_BUILD_BENCH=ON -DZORCC_BUILD_TOOL=OFF >/dev/null
cmake --build "$build" --target bench_side_by_side -j"$jobs" >/dev/null
bin=$build/bench_side_by_side

# The library of the earlier commit, built from an archive of that commit
# (once; the build is kept for the next run). The same program runs against
# it: it has the same soname, so LD_LIBRARY_PATH swaps it in.
if [ -n "$before" ]; then
    rev=$(git rev-parse --verify "$before^{commit}")
    if [ ! -f "$before_dir/build/libzorccpx-5.1.so" ] || [ "$(cat "$before_dir/commit" 2>/dev/null)" != "$rev" ]; then
        echo "== release build of $before in $before_dir"
        rm -rf "$before_dir"
        mkdir -p "$before_dir/src"
        git archive "$rev" | tar -x -C "$before_dir/src"
        cmake -S "$before_dir/src" -B "$before_dir/build" -DCMAKE_BUILD_TYPE=Release \
            -DZORCC_BUILD_TESTS=OFF -DZORCC_BUILD_BENCH=OFF -DZORCC_BUILD_TOOL=OFF >/dev/null
        cmake --build "$before_dir/build" --target zorccpx -j"$jobs" >/dev/null
        echo "$rev" >"$before_dir/commit"
    fi
fi

tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
series=()
if [ -n "$before" ]; then
    echo "== before ($before)"
    LD_LIBRARY_PATH="$before_dir/build${LD_LIBRARY_PATH:+:$LD_LIBRARY_PATH}" \
        "$bin" --runs "$runs" --label before --csv "$tmp/before.csv" | tee "$tmp/before.txt"
    if ! grep -q "^library: $before_dir/build/" "$tmp/before.txt"; then
        echo "the before series did not load $before_dir/build/libzorccpx" >&2
        exit 1
    fi
    series+=(before)
fi
for t in $("$bin" --list-targets); do
    echo "== target $t"
    ZOR_CPU=$t "$bin" --runs "$runs" --csv "$tmp/$t.csv" | tee "$tmp/$t.txt"
    series+=("$t")
done

mkdir -p "$out"
{
    head -n 1 "$tmp/${series[0]}.csv"
    for s in "${series[@]}"; do tail -n +2 "$tmp/$s.csv"; done
} >"$out/bench.csv"
commit=$(git rev-parse --short HEAD)
git diff --quiet HEAD -- src include CMakeLists.txt || commit="$commit (with local changes)"
# The Debian matplotlib belongs to the system's python3, which another python3
# earlier on the PATH may hide.
py=python3
python3 -c 'import matplotlib' 2>/dev/null || py=/usr/bin/python3
"$py" bench/chart.py --csv "$out/bench.csv" --png "$out/bench.png" --md "$out/bench.md" \
    --notes "$tmp/${series[-1]}.txt" --commit "$commit" --before "$before" --runs "$runs" \
    ${ZORCC_BENCH_README:+--readme "$ZORCC_BENCH_README"}
echo "== wrote $out/bench.csv, $out/bench.png, $out/bench.md in $((SECONDS - start)) s"
