#!/usr/bin/env python3
"""A synthetic site for the report benchmark: 5,000 employees in NAMES.TXT and a LOG.TXT of
1,000,000 tests (about 100 MB) over the ten years that end on the given day, in date order, as
stations write them. The same seed gives the same site.

usage: make_site.py DIR [--lines N] [--employees N] [--end YYYY-MM-DD]
"""

import argparse
import datetime
import os
import random
import shutil

HERE = os.path.dirname(os.path.abspath(__file__))
DEMO_INI = os.path.join(HERE, "..", "..", "resources", "demo", "ZANDOLT.INI")

GROUPS = ["ASM", "PCB", "QA", "SMT", "TST", "WH", "RND", "MNT"]
LAST = ["Abernathy", "Baptiste", "Castillo", "Dubois", "Eriksen", "Fontaine", "Gallagher", "Hoffmann",
        "Ivanova", "Jablonski", "Kowalczyk", "Lindqvist", "Moreau", "Nakamura", "Okafor", "Petrov",
        "Quintero", "Rasmussen", "Sandoval", "Takahashi", "Underwood", "Valdez", "Whitaker", "Yamamoto"]
FIRST = ["Grace", "Louis", "Ana", "Marc", "Ingrid", "Paul", "Siobhan", "Kurt", "Olga", "Piotr",
         "Ewa", "Nils", "Claire", "Kenji", "Ngozi", "Dmitri", "Rosa", "Lars", "Miguel", "Yui"]
LEAVE = "STPV"


def employees(count, rng):
    rows = []
    for i in range(count):
        last = "%s%d" % (LAST[i % len(LAST)], i // len(LAST))
        first = FIRST[(i * 7) % len(FIRST)]
        ident = "%s-%05d" % (GROUPS[i % len(GROUPS)], 10000 + i)
        # Mostly available, with a few days of leave scattered over the year.
        days = ["A"] * 372
        for _ in range(rng.randrange(0, 12)):
            days[rng.randrange(0, 365)] = rng.choice(LEAVE)
        wrist_only = i % 10 == 3
        rows.append((last, first, ident, "".join(days), wrist_only))
    return rows


def names_file(rows):
    out = ["# The employees of the report benchmark's site\r\n", "# Last, First, ID, limits, enables, leave, "
           "certification, attendance, warning, password, update\r\n"]
    for last, first, ident, days, wrist_only in rows:
        out.append("%s, %s, %s, -1.00, -1.00, -1.00, -1.00, -1, %d, A, 01/05/2026, 01/05/2026, 1, %s, %s, 0, , 0\r\n"
                   % (last, first, ident, 0 if wrist_only else -1, "12/31/2027", days))
    return "".join(out)


def log_lines(rows, lines, end, rng):
    """Yields the log's lines: the same number of tests each day, at times that grow through the day."""
    start = end - datetime.timedelta(days=3652)
    days = (end - start).days + 1
    per_day = lines / days
    made = 0
    for d in range(days):
        date = (start + datetime.timedelta(days=d)).strftime("%m-%d-%Y")
        today = int(per_day * (d + 1)) - made
        made += today
        seconds = sorted(rng.randrange(6 * 3600, 22 * 3600) for _ in range(today))
        for s in seconds:
            if rng.random() < 0.002:
                name, ident = "Former%d, Worker" % rng.randrange(50), "OLD-%05d" % rng.randrange(100)
                wrist_only = False
            else:
                last, first, ident, _, wrist_only = rows[rng.randrange(len(rows))]
                name = "%s, %s" % (last, first)
            stamp = "%s, %02d:%02d:%02d" % (date, s // 3600, s // 60 % 60, s % 60)
            head = "%-20s, %-19s, %s" % (name, ident, stamp)
            r = rng.random()
            if r < 0.003:
                yield head + ", ComFail,  *,  *,  *,  *,  *,  *\r\n"
                continue
            wrist = rng.uniform(0.8, 9.5) if r > 0.03 else rng.uniform(10.5, 40.0)
            if wrist_only:
                yield "%s, %s, L- , R- , %05.2f, -, -\r\n" % (head, "Wok" if r > 0.03 else "Whi", wrist)
            else:
                left, right = rng.uniform(1.0, 60.0), rng.uniform(1.0, 60.0)
                yield "%s, %s, Lok, Rok, %05.2f, %05.2f, %05.2f\r\n" % (head, "Wok" if r > 0.03 else "Whi", wrist,
                                                                        left, right)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("dir")
    parser.add_argument("--lines", type=int, default=1_000_000)
    parser.add_argument("--employees", type=int, default=5000)
    parser.add_argument("--end", default="2026-11-20", help="the last day of the log")
    args = parser.parse_args()

    rng = random.Random(20261120)
    os.makedirs(args.dir, exist_ok=True)
    shutil.copyfile(DEMO_INI, os.path.join(args.dir, "ZANDOLT.INI"))
    rows = employees(args.employees, rng)
    with open(os.path.join(args.dir, "NAMES.TXT"), "w", newline="") as f:
        f.write(names_file(rows))
    end = datetime.date.fromisoformat(args.end)
    with open(os.path.join(args.dir, "LOG.TXT"), "w", newline="", buffering=1 << 20) as f:
        f.writelines(log_lines(rows, args.lines, end, rng))
    for name in ("NAMES.TXT", "LOG.TXT"):
        print("%s: %.1f MB" % (os.path.join(args.dir, name), os.path.getsize(os.path.join(args.dir, name)) / 1e6))


if __name__ == "__main__":
    main()
