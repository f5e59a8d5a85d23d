#!/usr/bin/env bash
# Installs what is missing, builds, and starts the station on a writable copy of the demo folder
# (./demo). The copy is made the first time; `./scripts/run-demo.sh --reset` makes it anew.
# The station's tester port is one end of a pseudo-terminal pair; the other end, ./demo/ttyTester,
# is there for the tester emulator:  build/tools/tester_emulator/zandolt_tester_emulator demo/ttyTester
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-deps.sh

cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j "$(nproc 2>/dev/null || echo 2)" --target zandolt zandolt_tester_emulator
cmake --build build -j "$(nproc 2>/dev/null || echo 2)" --target zandolt-report

if [ "${1:-}" = "--reset" ] || [ ! -d demo ]; then
  rm -rf demo
  cp -r resources/demo demo
  echo "A fresh copy of the demo folder is in ./demo"
fi

socat_pid=""
if command -v socat >/dev/null; then
  rm -f demo/ttyStation demo/ttyTester
  socat pty,raw,echo=0,link=demo/ttyStation pty,raw,echo=0,link=demo/ttyTester &
  socat_pid=$!
  for _ in $(seq 50); do [ -e demo/ttyStation ] && break; sleep 0.1; done
  echo "1 $(pwd)/demo/ttyStation" > demo/PORTS.TXT
  echo "Tester port 1 is $(pwd)/demo/ttyStation; drive it with:"
  echo "  build/tools/tester_emulator/zandolt_tester_emulator demo/ttyTester"
fi
trap '[ -n "$socat_pid" ] && kill "$socat_pid" 2>/dev/null || true' EXIT

cd demo
../build/zandolt
