#!/usr/bin/env bash
# The eight-station test at a larger size: STATIONS processes (1 to 9, default 8) append LINES test
# lines each (up to 99999, default 99999) to one LOG.TXT through the station's log writer while the
# monthly report is made of it again and again, ROUNDS times (default 3). Prints each round's figures.
set -euo pipefail
cd "$(dirname "$0")/.."

stations=${1:-8}
lines=${2:-99999}
rounds=${3:-3}

./scripts/install-deps.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZANDOLT_BENCH=OFF >/dev/null
cmake --build build -j "$(nproc 2>/dev/null || echo 2)" --target zandolt_eight_stations_tests >/dev/null

out=$(mktemp)
trap 'rm -f "$out"' EXIT
for round in $(seq 1 "$rounds"); do
  echo "== Round $round"
  if ! ZANDOLT_STATIONS=$stations ZANDOLT_STATION_LINES=$lines build/tests/real/zandolt_eight_stations_tests \
      --gtest_brief=1 >"$out" 2>&1; then
    cat "$out"
    exit 1
  fi
  grep "stations appended" "$out"
done
