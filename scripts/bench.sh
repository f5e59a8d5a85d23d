#!/usr/bin/env bash
# Installs what is missing, builds the benchmarks optimised (without Qt, which they do not use)
# and runs them. Extra arguments go to the benchmark, e.g. --benchmark_min_time=2.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-deps.sh

jobs=$(nproc 2>/dev/null || echo 2)
cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DZANDOLT_QT=OFF -DZANDOLT_TESTS=OFF -DZANDOLT_BENCH=ON >/dev/null
cmake --build build-bench -j "$jobs" --target names_read_bench
./build-bench/bench/names_read_bench "$@"
