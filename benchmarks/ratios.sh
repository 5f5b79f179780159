#!/usr/bin/env bash
# Builds and runs the benchmarks, each in one run with its floor, and prints the ratios with their goals.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

need_packages "${linux_packages[@]}" "${test_packages[@]}" "${benchmark_packages[@]}" python3
build_preset linux -DQUILLON_BENCHMARKS=ON >/dev/null
results=$(mktemp)
trap 'rm -f "$results"' EXIT
build/linux/bin/quillon-benchmarks --benchmark_repetitions="${REPETITIONS:-5}" --benchmark_min_time=0.05 \
  --benchmark_enable_random_interleaving=true --benchmark_out="$results" --benchmark_out_format=json >/dev/null
python3 benchmarks/ratios.py "$results"
