#!/usr/bin/env python3
"""How long each report takes as a whole process through zandolt-report, beside `wc -l` of the same
log, and how much memory it holds at its peak. Each command runs several times, the report and
`wc -l` interleaved at random so that a slow moment of a shared machine falls on both; the ratio is
taken of the medians.

usage: run_bench.py PROGRAM SITE [--reps N] [--kinds monthly,exception,...]
"""

import argparse
import os
import random
import statistics
import subprocess
import sys
import tempfile
import time

NOW = "2026-11-20T22:30:00"  # after the last test of the site's last day
# The kinds, the arguments each is run with, and the goal for its ratio (None: measured only).
KINDS = [
    ("monthly", [], 8),
    ("exception", [], 8),
    ("twice", [], 8),
    ("daily", [], 8),
    ("individual", ["--start", "10/01/2026", "--stop", "11/20/2026", "--employee", None], 8),
    ("certification", [], None),
    ("vacation", [], None),
    ("attendance", ["--employee", None], None),
]
MEMORY_GOAL_MB = 32


def run(command):
    """Runs the command with its output thrown away; returns the exit status, seconds and peak kB.
    The peak comes from GNU time, since a child's own figure would count the memory of the Python
    process it was forked from."""
    with tempfile.NamedTemporaryFile(prefix=".peak.") as peak_file:
        start = time.perf_counter()
        child = subprocess.run(["/usr/bin/time", "-f", "%M", "-o", peak_file.name] + command,
                               stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
        seconds = time.perf_counter() - start
        peak = int(open(peak_file.name).read().split()[-1])
    return child.returncode, seconds, peak, child.stderr.decode(errors="replace")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program")
    parser.add_argument("site")
    parser.add_argument("--reps", type=int, default=5)
    parser.add_argument("--kinds", default=",".join(k for k, _, _ in KINDS))
    args = parser.parse_args()

    # The employee of the individual log and the attendance table: the first of the table.
    with open(os.path.join(args.site, "NAMES.TXT"), newline="") as f:
        first = f.readlines()[2].split(",")
    employee = first[0].strip() + ", " + first[1].strip()
    log = os.path.join(args.site, "LOG.TXT")
    wc = ["wc", "-l", log]
    run(wc)  # the log into the page cache
    wanted = args.kinds.split(",")
    print("%-14s %10s %10s %7s %10s  %s" % ("report", "median s", "wc -l s", "ratio", "peak MB", "goal"))
    failed = False
    for kind, extra, goal in KINDS:
        if kind not in wanted:
            continue
        report = [args.program, kind, "--dir", args.site, "--now", NOW] + [a or employee for a in extra]
        status, _, _, err = run(report)
        if status == 2:
            print("%-14s not in this build" % kind)
            continue
        if status != 0:
            print("%-14s exit %d: %s" % (kind, status, err.strip()))
            failed = True
            continue
        times = {"report": [], "wc": []}
        peak = 0
        order = ["report", "wc"] * args.reps
        random.shuffle(order)
        for which in order:
            _, seconds, kb, _ = run(report if which == "report" else wc)
            times[which].append(seconds)
            if which == "report":
                peak = max(peak, kb)
        mr, mw = statistics.median(times["report"]), statistics.median(times["wc"])
        ratio = mr / mw
        peak_mb = peak / 1024
        verdict = []
        if goal is not None:
            verdict.append("ratio %s %d" % ("within" if ratio <= goal else "MISSES", goal))
        verdict.append("memory %s %d MB" % ("within" if peak_mb < MEMORY_GOAL_MB else "MISSES", MEMORY_GOAL_MB))
        failed = failed or (goal is not None and ratio > goal) or peak_mb >= MEMORY_GOAL_MB
        print("%-14s %10.3f %10.3f %7.2f %10.1f  %s" % (kind, mr, mw, ratio, peak_mb, ", ".join(verdict)))
        sys.stdout.flush()
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
