#!/usr/bin/env python3
"""Fails when a file of src/ includes a folder above its own in the order of the layers.

The order, bottom up: platform (with its backends), data (with App and the interface of the
station's windows in src/ itself), admin, reports, automation, station. A file may include its own
layer and those below it; app/ and tools/ stand above them all and are not read.

usage: check-layers.py [ROOT]    ROOT is the repository; by default the one holding this script.
"""
import pathlib
import re
import sys

LAYERS = ["platform", "data", "admin", "reports", "automation", "station"]
ROOT_LAYER = "data"
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"')


def layer_of_file(path, src):
    parts = path.relative_to(src).parts
    return parts[0] if len(parts) > 1 else ROOT_LAYER


def layer_of_include(name, src):
    """The layer an include names; None for a header beside the including file or a generated one."""
    if "/" in name:
        first = name.split("/", 1)[0]
        return first if first in LAYERS else None
    return ROOT_LAYER if (src / name).exists() else None


def violations(root):
    src = root / "src"
    found = []
    for path in sorted(src.rglob("*")):
        if path.suffix not in (".h", ".cpp") or not path.is_file():
            continue
        own = layer_of_file(path, src)
        with open(path, encoding="utf-8", errors="replace") as f:
            for number, line in enumerate(f, 1):
                match = INCLUDE.match(line)
                if not match:
                    continue
                included = layer_of_include(match.group(1), src)
                if included and LAYERS.index(included) > LAYERS.index(own):
                    found.append(f"{path.relative_to(root)}:{number}: {own} includes {match.group(1)}, "
                                 f"which is in {included}, above it")
    return found


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).resolve().parent.parent)
    found = violations(root.resolve())
    for v in found:
        print(v)
    if found:
        print(f"{len(found)} includes go up the layers ({' < '.join(LAYERS)} < app, tools)")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
