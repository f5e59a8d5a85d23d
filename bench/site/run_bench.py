#!/usr/bin/env python3
"""The site server's jobs through zandolt-report, timed as whole processes:

- the merge of two station logs of 500,000 lines each (about 50 MB each), beside `sort -m` of the
  same two files (byte order, LC_ALL=C) and beside `cat` of them: the ratio of the medians, and the
  peak memory of each;
- the consolidation of 20 stations' Names.txt of about 5,000 rows each into the server's.

Each command runs several times, interleaved at random with the one it is compared with, so that a
slow moment of a shared machine falls on both. The data are made once in DIR (same seed, same data).

usage: run_bench.py PROGRAM DIR [--reps N] [--lines N]
"""

import argparse
import datetime
import os
import random
import shutil
import statistics
import subprocess
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "reports"))
import make_site  # noqa: E402  the report benchmark's employees and log lines

MERGE_GOAL = 1.5  # times sort -m
NAMES_GOAL_S = 1.0
STATIONS = 20
SERVER_ROWS = 4800  # the stations add 10 each: the table stays within its 5,001 rows


def run(command, env=None, stdout=os.devnull):
    """Runs the command with its standard output to a file; returns the exit status, seconds and peak
    kB. The peak comes from GNU time, since a child's own figure would count the memory of the
    Python process it was forked from."""
    peak_file = os.path.join(os.path.dirname(os.path.abspath(stdout)) if stdout != os.devnull else "/tmp",
                             ".peak.%d" % os.getpid())
    with open(stdout, "w") as out:
        start = time.perf_counter()
        child = subprocess.run(["/usr/bin/time", "-f", "%M", "-o", peak_file] + command, stdout=out,
                               stderr=subprocess.PIPE, env=env)
        seconds = time.perf_counter() - start
    with open(peak_file) as f:
        peak = int(f.read().split()[-1])
    os.remove(peak_file)
    return child.returncode, seconds, peak, child.stderr.decode(errors="replace")


def make_logs(work, lines):
    """Two stations' logs of the same ten years, each in the order its station wrote it."""
    paths = [os.path.join(work, "station%d.txt" % i) for i in (1, 2)]
    if all(os.path.exists(p) for p in paths):
        return paths
    rng = random.Random(20261125)
    rows = make_site.employees(2500, rng)
    for i, path in enumerate(paths):
        with open(path + ".part", "w", newline="", buffering=1 << 20) as f:
            f.writelines(make_site.log_lines(rows[i::2], lines, datetime.date(2026, 11, 20), rng))
        os.replace(path + ".part", path)
    return paths


def name_row(last, first, ident, flag, wrist="-1.00"):
    return "%s, %s, %s, %s, -1.00, -1.00, -1.00, -1, -1, A, 01/05/2026, 01/05/2026, 1, 12/31/2027, %s, 0, , %d\r\n" % (
        last, first, ident, wrist, "A" * 372, flag)


def make_names(work):
    """A server and 20 stations, each holding the server's employees, a few of them changed there, and
    ten new ones."""
    site = os.path.join(work, "names")
    server = os.path.join(site, "server")
    pristine = os.path.join(site, "Names.pristine")
    if os.path.exists(pristine):
        return server, pristine
    rng = random.Random(5000)
    header = "# Names of the consolidation benchmark\r\n# Last, First, ID, ...\r\n"
    people = [("Worker%04d" % i, "First%d" % (i % 50), "G%d-%05d" % (i % 8, i)) for i in range(SERVER_ROWS)]
    os.makedirs(server, exist_ok=True)
    shutil.copyfile(make_site.DEMO_INI, os.path.join(server, "ZANDOLT.INI"))
    net = []
    for s in range(STATIONS):
        station = os.path.join(site, "station%02d" % s)
        os.makedirs(station, exist_ok=True)
        rows = [name_row(last, first, ident, 1, "02.00") if rng.random() < 0.01 else name_row(last, first, ident, 0)
                for last, first, ident in people]
        rows += [name_row("New%02d%02d" % (s, k), "Hire", "N%02d-%02d" % (s, k), 1) for k in range(10)]
        with open(os.path.join(station, "Names.txt"), "w", newline="") as f:
            f.write(header + "".join(rows))
        os.utime(os.path.join(station, "Names.txt"), (time.time() - 3600, time.time() - 3600))
        net.append(station)
    with open(os.path.join(server, "NetList.txt"), "w", newline="") as f:
        f.write("".join(n + "\r\n" for n in net))
    with open(pristine, "w", newline="") as f:
        f.write(header + "".join(name_row(last, first, ident, 0) for last, first, ident in people))
    return server, pristine


def compare(label, mine, theirs, reps, env=None, theirs_out=os.devnull):
    """Runs the two commands interleaved; prints the medians, their ratio and peak memory, and returns
    the ratio."""
    times = {"mine": [], "theirs": []}
    peak = {"mine": 0, "theirs": 0}
    order = ["mine", "theirs"] * reps
    random.shuffle(order)
    for which in order:
        status, seconds, kb, err = (run(mine, env) if which == "mine" else run(theirs, env, theirs_out))
        if status != 0:
            sys.exit("%s exited %d: %s" % (" ".join(mine if which == "mine" else theirs), status, err.strip()))
        times[which].append(seconds)
        peak[which] = max(peak[which], kb)
    m, t = statistics.median(times["mine"]), statistics.median(times["theirs"])
    print("%-28s %8.3f s %8.1f MB   %-10s %8.3f s %8.1f MB   ratio %5.2f" % (
        label, m, peak["mine"] / 1024, theirs[0], t, peak["theirs"] / 1024, m / t))
    sys.stdout.flush()
    return m / t


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program")
    parser.add_argument("dir")
    parser.add_argument("--reps", type=int, default=7)
    parser.add_argument("--lines", type=int, default=500_000)
    args = parser.parse_args()
    work = os.path.abspath(args.dir)  # the stations' directories are named whole in NetList.txt
    os.makedirs(work, exist_ok=True)
    program = os.path.abspath(args.program)

    one, two = make_logs(work, args.lines)
    out = os.path.join(work, "merged.txt")
    print("%s, %s: %.1f MB and %.1f MB" % (one, two, os.path.getsize(one) / 1e6, os.path.getsize(two) / 1e6))
    env = dict(os.environ, LC_ALL="C")
    run(["cat", one, two], env)  # the logs into the page cache
    ratio = compare("zandolt-report merge", [program, "merge", one, two, out],
                    ["sort", "-m", one, two, "-o", out + ".sort"], args.reps, env)
    # cat writes its copy to a file too: to /dev/null it would not even read the files.
    compare("zandolt-report merge", [program, "merge", one, two, out], ["cat", one, two], args.reps, env,
            out + ".cat")

    server, pristine = make_names(work)

    def fresh_server():
        shutil.copyfile(pristine, os.path.join(server, "Names.txt"))

    seconds = []
    for _ in range(args.reps):
        fresh_server()
        status, s, kb, err = run([program, "getnames", "--dir", server], env)
        if status != 0:
            sys.exit("getnames exited %d: %s" % (status, err.strip()))
        seconds.append(s)
    names = statistics.median(seconds)
    print("zandolt-report getnames, %d stations of %d rows: %.3f s (median), peak %.1f MB" % (
        STATIONS, SERVER_ROWS + 10, names, kb / 1024))

    verdict = [("merge within %.1f times sort -m" % MERGE_GOAL, ratio <= MERGE_GOAL),
               ("consolidation under %.0f s" % NAMES_GOAL_S, names < NAMES_GOAL_S)]
    for what, met in verdict:
        print("%s: %s" % (what, "met" if met else "MISSED"))
    return 0 if all(met for _, met in verdict) else 1


if __name__ == "__main__":
    sys.exit(main())
