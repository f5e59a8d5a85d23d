#!/usr/bin/env bash
# Builds the fuzz targets with clang-14 (libFuzzer with AddressSanitizer and UndefinedBehaviorSanitizer)
# in build-fuzz, then runs each for SECONDS (60 when not given) on its seed corpus in
# tests/fuzz/corpus/TARGET, one target after the other; naming targets runs only those. With
# --runs N, each target runs N executions instead, however long they take (a campaign).
#
#     scripts/fuzz.sh [SECONDS | --runs N] [TARGET...]
#
# The inputs a run finds worth keeping go to build-fuzz/corpus/TARGET, which the next run starts from
# as well. A crash, a hang (one input over a second) or a sanitizer report stops the run of that
# target, leaves the input in build-fuzz/findings/, and makes the script fail once all have run.
set -euo pipefail
cd "$(dirname "$0")/.."

length=(-max_total_time=60)
span="60 s"
if [[ $# -gt 1 && $1 == --runs ]]; then
  length=(-runs="$2")
  span="$2 executions"
  shift 2
elif [[ $# -gt 0 && $1 =~ ^[0-9]+$ ]]; then
  length=(-max_total_time="$1")
  span="$1 s"
  shift
fi

./scripts/install-deps.sh

jobs=$(nproc 2>/dev/null || echo 2)
launcher=()
if command -v ccache >/dev/null; then
  launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
fi
cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_C_COMPILER=clang-14 -DCMAKE_CXX_COMPILER=clang++-14 \
  -DZANDOLT_FUZZ=ON -DZANDOLT_TESTS=OFF -DZANDOLT_BENCH=OFF "${launcher[@]}" >/dev/null
cmake --build build-fuzz -j "$jobs" --target fuzz_targets

targets=("$@")
if [[ ${#targets[@]} -eq 0 ]]; then
  for source in tests/fuzz/*_fuzz.cpp; do
    name=$(basename "$source" _fuzz.cpp)
    targets+=("$name")
  done
fi

mkdir -p build-fuzz/findings
failed=()
summary=()
for name in "${targets[@]}"; do
  mkdir -p "build-fuzz/corpus/$name"
  log="build-fuzz/findings/$name.log"
  echo "== $name for $span"
  # A card or a tester's message is a few dozen bytes; longer inputs only repeat them, at a
  # fraction of the speed, for each piece goes through a whole station.
  case $name in
    card_data) limit=(-max_len=64) ;;
    tester_message) limit=(-max_len=128) ;;
    *) limit=() ;;
  esac
  if ! "build-fuzz/tests/fuzz/${name}_fuzz" "${length[@]}" "${limit[@]}" -timeout=1 -rss_limit_mb=2560 \
    -print_final_stats=1 -artifact_prefix="build-fuzz/findings/$name-" \
    "build-fuzz/corpus/$name" "tests/fuzz/corpus/$name" >"$log" 2>&1; then
    failed+=("$name")
    grep -E '^\*\*\*|ERROR|SUMMARY|runtime error|Test unit written' "$log" || tail -20 "$log"
  fi
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  speed=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")
  kept=$(find "build-fuzz/corpus/$name" "tests/fuzz/corpus/$name" -type f | wc -l)
  summary+=("$(printf '%-16s %12s runs %8s/s %6s inputs' "$name" "${runs:-?}" "${speed:-?}" "$kept")")
done

printf '%s\n' "${summary[@]}"
if [[ ${#failed[@]} -gt 0 ]]; then
  echo "Findings in: ${failed[*]} (inputs and logs in build-fuzz/findings/)"
  exit 1
fi
echo "No findings."
