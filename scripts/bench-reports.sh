#!/usr/bin/env bash
# Builds zandolt-report optimised, makes the synthetic site of 5,000 employees and 1,000,000 log
# lines once (in build-bench-reports/site), and prints for each report its whole-process time
# beside `wc -l` of the same log, the ratio of the medians and the peak memory. Extra arguments go
# to the benchmark, e.g. --reps 9 or --kinds monthly,daily.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/build-report-optimised.sh
site=build-bench-reports/site
if [ ! -s "$site/LOG.TXT" ]; then
    python3 bench/reports/make_site.py "$site"
fi
python3 bench/reports/run_bench.py build-bench-reports/tools/report/zandolt-report "$site" "$@"
