#!/usr/bin/env bash
# Installs what is missing, builds with warnings as errors and runs every test; then builds again
# with AddressSanitizer and UndefinedBehaviorSanitizer and runs the tests once more.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-deps.sh

jobs=$(nproc 2>/dev/null || echo 2)

run_suite() {
  local dir=$1
  shift
  cmake -S . -B "$dir" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZANDOLT_WERROR=ON -DZANDOLT_BENCH=OFF "$@" >/dev/null
  cmake --build "$dir" -j "$jobs"
  ctest --test-dir "$dir" --output-on-failure -j "$jobs" --timeout 300
}

echo "== Build and test"
run_suite build

echo "== Build and test under AddressSanitizer and UndefinedBehaviorSanitizer"
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export LSAN_OPTIONS="suppressions=$(pwd)/tests/lsan.supp:print_suppressions=0"
# Qt's own libraries are not built with the sanitizers; the core, the backends and every test are.
run_suite build-sanitize -DZANDOLT_SANITIZE=ON -DCMAKE_BUILD_TYPE=Debug

echo "All tests passed."
