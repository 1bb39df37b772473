#!/usr/bin/env bash
# Installs what a fresh Debian machine lacks to build and test zorcc, and the
# further Debian packages named as arguments (scripts/bench.sh: the peers).
set -euo pipefail
pkgs=(cmake g++ make pkg-config libgtest-dev libbenchmark-dev libpng-dev libcli11-dev libhwy-dev g++-aarch64-linux-gnu
      python3-dev python3-numpy python3-pybind11 python3-pytest python3-dask python3-distributed "$@")
missing=()
for p in "${pkgs[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "installing: ${missing[*]}"
    sudo_cmd=""
    [ "$(id -u)" -ne 0 ] && sudo_cmd="sudo"
    $sudo_cmd apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y -qq "${missing[@]}" >/dev/null
fi
