#!/usr/bin/env bash
# Builds zandolt-report optimised in build-bench-reports, for the benchmarks that time it.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-deps.sh

jobs=$(nproc 2>/dev/null || echo 2)
cmake -S . -B build-bench-reports -DCMAKE_BUILD_TYPE=Release -DZANDOLT_TESTS=OFF -DZANDOLT_BENCH=OFF >/dev/null
cmake --build build-bench-reports -j "$jobs" --target zandolt-report
