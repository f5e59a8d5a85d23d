#!/usr/bin/env bash
# Builds the Debian package of the station and zandolt-report and prints its path.
#   ./scripts/package.sh [BUILD_DIR]
# BUILD_DIR (default build-package, with the tests left out) is configured and built as needed;
# CI passes the build directory of its test run, so that nothing is compiled twice.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-deps.sh >&2

dir=${1:-build-package}
if [ ! -f "$dir/CMakeCache.txt" ]; then
  cmake -S . -B "$dir" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZANDOLT_TESTS=OFF -DZANDOLT_BENCH=OFF >&2
fi
cmake --build "$dir" -j "$(nproc 2>/dev/null || echo 2)" >&2
rm -f "$dir"/package/zandolt_*.deb
(cd "$dir" && cpack -G DEB -B package >&2)
ls "$(realpath "$dir")"/package/zandolt_*.deb
