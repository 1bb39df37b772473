#!/usr/bin/env bash
# Times a whole-video job of the zorcc tool beside ffmpeg on this machine, in
# one run: a 300-frame 1080p 4:2:0 Y4M file relaid out as raw NV12, by
#   zorcc convert clip.y4m out.nv12 --op relayout --to nv12 --quiet
#   ffmpeg -i clip.y4m -pix_fmt nv12 -f rawvideo out.nv12
# several times each, taking turns at going first; prints the median wall and
# CPU (user + system) times and checks that the two outputs are identical.
# The files live in memory (/dev/shm) where there is room: on a disk, the
# kernel's throttling of writers behind the other program's gigabyte of
# dirty pages decides the times, not the programs.
#
# Environment:
#   ZORCC_BENCH_BUILD   build folder (default build-bench-tool/)
#   ZORCC_BENCH_EXE     a zorcc already built (then nothing is built)
#   ZORCC_BENCH_RUNS    runs of each program (default 7)
#   ZORCC_BENCH_FRAMES  frames of the clip (default 300)
#   ZORCC_BENCH_DIR     folder for the clip and outputs (default a temporary
#                       one in /dev/shm, or in /tmp)
set -euo pipefail
cd "$(dirname "$0")/.."
build=${ZORCC_BENCH_BUILD:-$(pwd)/build-bench-tool}
runs=${ZORCC_BENCH_RUNS:-7}
frames=${ZORCC_BENCH_FRAMES:-300}

scripts/deps.sh
if ! command -v ffmpeg >/dev/null; then
    sudo_cmd=""
    [ "$(id -u)" -ne 0 ] && sudo_cmd="sudo"
    $sudo_cmd apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y -qq ffmpeg >/dev/null
fi
[ -x /usr/bin/time ] || { echo "needs GNU time (/usr/bin/time)"; exit 1; }

zorcc=${ZORCC_BENCH_EXE:-}
if [ -z "$zorcc" ]; then
    cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DZORCC_SANITIZE=OFF \
        -DZORCC_BUILD_TESTS=OFF -DZORCC_BUILD_BENCH=OFF -DZORCC_BUILD_TOOL=ON >/dev/null
    cmake --build "$build" --target zorcc -j"$(nproc)" >/dev/null
    zorcc=$build/zorcc
fi

shm=/dev/shm
[ -w $shm ] && [ "$(df -Pk $shm | awk 'NR == 2 { print $4 }')" -gt $((4 * frames * 3200)) ] || shm=/tmp
dir=${ZORCC_BENCH_DIR:-$(mktemp -d -p $shm)}
[ -n "${ZORCC_BENCH_DIR:-}" ] || trap 'rm -rf "$dir"' EXIT
clip=$dir/clip.y4m
if [ ! -s "$clip" ]; then
    echo "making $frames frames of 1920x1080 4:2:0 in $clip"
    ffmpeg -loglevel error -y -f lavfi -i "testsrc2=size=1920x1080:rate=25" -frames:v "$frames" \
        -pix_fmt yuv420p "$clip"
fi
cat "$clip" >/dev/null  # into the page cache for both programs
# Memory the guest never touched costs a virtual machine far more to hand
# out: the outputs' pages are touched once beforehand, so that neither
# program gets them first.
dd if=/dev/zero of="$dir/warm" bs=1M count=$((frames * 12)) status=none
rm -f "$dir/warm"

# One run: "wall cpu" in seconds.
timed() {
    /usr/bin/time -f "%e %U %S" -o "$dir/time.txt" "$@" >/dev/null 2>"$dir/err.txt" || { cat "$dir/err.txt"; exit 1; }
    awk '{ printf "%.3f %.3f\n", $1, $2 + $3 }' "$dir/time.txt"
}
median() { sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }

: >"$dir/zorcc.txt"
: >"$dir/ffmpeg.txt"
run_zorcc() { timed "$zorcc" convert "$clip" "$dir/zorcc.nv12" --op relayout --to nv12 --quiet >>"$dir/zorcc.txt"; }
run_ffmpeg() { timed ffmpeg -loglevel error -y -i "$clip" -pix_fmt nv12 -f rawvideo "$dir/ffmpeg.nv12" >>"$dir/ffmpeg.txt"; }
for ((i = 1; i <= runs; i++)); do
    if ((i % 2)); then run_zorcc; run_ffmpeg; else run_ffmpeg; run_zorcc; fi
done
cmp -s "$dir/zorcc.nv12" "$dir/ffmpeg.nv12" && same=identical || same=DIFFERENT

echo "nv12 relayout of $frames frames 1920x1080 in $dir, median of $runs runs ($(nproc) processors):"
printf "  %-8s wall %6.3f s   cpu %6.3f s\n" \
    zorcc "$(cut -d' ' -f1 "$dir/zorcc.txt" | median)" "$(cut -d' ' -f2 "$dir/zorcc.txt" | median)" \
    ffmpeg "$(cut -d' ' -f1 "$dir/ffmpeg.txt" | median)" "$(cut -d' ' -f2 "$dir/ffmpeg.txt" | median)"
echo "  outputs $same"
