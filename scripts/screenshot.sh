#!/usr/bin/env bash
# Builds the screenshot tool and takes pictures of the station's windows on a fresh copy of the demo
# folder, under a virtual display (Xvfb). The pictures go to ./screenshots/, and their paths are
# printed. BUILD_DIR chooses the build directory (default: build), JOBS the parallel build jobs,
# ZANDOLT_SHOTS the pictures to take by name (e.g. "employee-editor leave-summary"; default: all).
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
build=${BUILD_DIR:-build}

for tool in cmake xvfb-run; do
  command -v "$tool" >/dev/null || { echo "$tool is missing; run scripts/install-deps.sh" >&2; exit 1; }
done

# A build directory that is already configured keeps its own settings.
if [ ! -f "$build/CMakeCache.txt" ]; then
  cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
fi
cmake --build "$build" -j "${JOBS:-$(nproc 2>/dev/null || echo 2)}" --target zandolt_screenshots

work=$(mktemp -d)
socat_pid=""
cleanup() {
  [ -n "$socat_pid" ] && kill "$socat_pid" 2>/dev/null || true
  rm -rf "$work"
}
trap cleanup EXIT

mkdir -p "$work/station"
if [ -d resources/demo ]; then
  cp -r resources/demo/. "$work/station/"
else
  echo "resources/demo is missing: the station starts in an empty folder" >&2
fi

# The tester's port is one end of a pseudo-terminal pair, so that the station opens it as it would
# a real one; the other end is there for pictures that need a tester.
if command -v socat >/dev/null; then
  socat pty,raw,echo=0,link="$work/ttyStation" pty,raw,echo=0,link="$work/ttyTester" &
  socat_pid=$!
  for _ in $(seq 50); do [ -e "$work/ttyStation" ] && break; sleep 0.1; done
  echo "1 $work/ttyStation" > "$work/station/PORTS.TXT"
  export ZANDOLT_TESTER_TTY="$work/ttyTester"
fi

mkdir -p screenshots
xvfb-run -a -s "-screen 0 1280x1024x24" "$build/tools/screenshots/zandolt_screenshots" \
  "$root/screenshots" "$work/station"
