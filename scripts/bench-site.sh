#!/usr/bin/env bash
# Builds zandolt-report optimised (in the build directory of the report benchmark) and times the
# site server's jobs: the merge of two logs of 500,000 lines each beside `sort -m` and `cat` of the
# same files, and the consolidation of 20 stations' employee files. The data are made once in
# build-bench-reports/site-jobs. Extra arguments go to the benchmark, e.g. --reps 9.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/build-report-optimised.sh
python3 bench/site/run_bench.py build-bench-reports/tools/report/zandolt-report build-bench-reports/site-jobs "$@"
