#!/usr/bin/env bash
# Builds the Debian package and installs it with apt-get into a clean Debian 12 root made with
# debootstrap, as a plant's IT would install it; there zandolt-report answers --help and makes a
# report of the demo folder, the station starts on the offscreen platform and keeps running, and
# the report server's user, directory and unit are in place. Prints how long each step took.
#   ./scripts/package-test.sh [BUILD_DIR]
# Needs root (debootstrap, chroot) and Debian's mirror (DEBIAN_MIRROR overrides it). The clean
# root is made once and kept as a tarball in build-package-root/, with the packages apt fetched,
# so that a second run needs no download.
set -euo pipefail
cd "$(dirname "$0")/.."

started=$(date +%s)
step_start=$started
step() {
  local now
  now=$(date +%s)
  echo "-- $1: $((now - step_start)) s"
  step_start=$now
}

./scripts/install-deps.sh
deb=$(./scripts/package.sh "${1:-build-package}")
step "package built: $(basename "$deb")"

cache=$(pwd)/build-package-root
mirror=${DEBIAN_MIRROR:-http://deb.debian.org/debian}
mkdir -p "$cache/debootstrap-archives" "$cache/apt-archives/partial"
if [ ! -f "$cache/bookworm.tar" ]; then
  rm -rf "$cache/bootstrap"
  debootstrap --variant=minbase --cache-dir="$cache/debootstrap-archives" bookworm "$cache/bootstrap" "$mirror" \
    >"$cache/debootstrap.log"
  cp /etc/resolv.conf "$cache/bootstrap/etc/resolv.conf"
  # Nothing starts a service inside the root.
  printf '#!/bin/sh\nexit 101\n' >"$cache/bootstrap/usr/sbin/policy-rc.d"
  chmod +x "$cache/bootstrap/usr/sbin/policy-rc.d"
  chroot "$cache/bootstrap" apt-get update -qq
  tar -C "$cache/bootstrap" -cf "$cache/bookworm.tar" .
  rm -rf "$cache/bootstrap"
  step "clean root made"
fi

root=$(mktemp -d /tmp/zandolt-root.XXXXXX)
mounts=()
cleanup() {
  if [ -n "${station_pid:-}" ]; then
    kill "$station_pid" 2>/dev/null || true
    wait "$station_pid" 2>/dev/null || true
  fi
  for m in "${mounts[@]}"; do
    umount "$m" 2>/dev/null || umount -l "$m" 2>/dev/null || true
  done
  # Never remove through a file system still mounted in the root.
  for m in "${mounts[@]}"; do
    if mountpoint -q "$m"; then
      echo "$m is still mounted: $root is left in place" >&2
      return
    fi
  done
  rm -rf "$root"
  step "root removed"
}
trap cleanup EXIT
tar -C "$root" -xf "$cache/bookworm.tar"
cp /etc/resolv.conf "$root/etc/resolv.conf"
mount -t proc proc "$root/proc"
mounts+=("$root/proc")
# The packages apt fetches are kept for the next run.
mount --bind "$cache/apt-archives" "$root/var/cache/apt/archives"
mounts+=("$root/var/cache/apt/archives")
cp "$deb" "$root/tmp/"
in_root() { chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 "$@"; }

in_root sh -c 'cd /tmp && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends ./zandolt_*.deb' \
  >"$root/tmp/install.log" 2>&1 || { cat "$root/tmp/install.log"; exit 1; }
step "installed with apt-get"

fail() {
  echo "FAILED: $*" >&2
  exit 1
}

# Every library the programs need is there.
for program in zandolt zandolt-report; do
  ! in_root ldd "/usr/bin/$program" | grep "not found" || fail "$program misses a library"
done

# The report command line answers and makes a report of the demo folder.
in_root zandolt-report --help | grep -q "KIND is one of: monthly" || fail "zandolt-report --help"
in_root sh -c 'cp -r /usr/share/zandolt/demo /tmp/demo &&
               zandolt-report certification --dir /tmp/demo --date 01/31/2028 --now 2028-01-31T08:00:00' ||
  fail "zandolt-report certification"
[ -s "$root/tmp/demo/CERTIF.TXT" ] || fail "no CERTIF.TXT"

# The station starts from its launcher, as the desktop entry starts it, on the offscreen
# platform, and is still running after five seconds.
in_root sh -c 'QT_QPA_PLATFORM=offscreen HOME=/tmp/home exec zandolt-station' >"$root/tmp/station.log" 2>&1 &
station_pid=$!
sleep 5
kill -0 "$station_pid" 2>/dev/null || { cat "$root/tmp/station.log"; fail "the station ended at its start"; }
! grep -Ei "cannot load|could not load|could not find|error while loading" "$root/tmp/station.log" ||
  fail "the station could not load a part of itself"
[ -f "$root/tmp/home/zandolt/NAMES.TXT" ] && [ -f "$root/tmp/home/zandolt/HELP.TXT" ] ||
  fail "the launcher did not make the station's folder"
kill "$station_pid"
wait "$station_pid" 2>/dev/null || true
station_pid=
cat "$root/tmp/station.log"
step "programs run"

# The report server's user, its directory, its unit and the manual.
in_root getent passwd zandolt | grep -q ":/var/lib/zandolt:" || fail "no user zandolt"
[ "$(in_root stat -c %U /var/lib/zandolt)" = zandolt ] || fail "/var/lib/zandolt is not the server's"
unit=$root/usr/lib/systemd/system/zandolt-report.service
grep -q "^ExecStart=/usr/bin/zandolt-report schedule --dir /var/lib/zandolt$" "$unit" || fail "the unit"
# The unit as the host's systemd reads it; the program it starts is only in the clean root.
if command -v systemd-analyze >/dev/null; then
  verify=$(systemd-analyze verify --man=no "$unit" 2>&1 | grep -v "Command /usr/bin/zandolt-report is not executable" || true)
  [ -z "$verify" ] || fail "systemd-analyze verify: $verify"
fi
[ -f "$root/usr/share/man/man1/zandolt-report.1.gz" ] || fail "no manual"
[ -f "$root/usr/share/applications/zandolt.desktop" ] || fail "no desktop entry"

echo "The package installs and runs in a clean root: $(($(date +%s) - started)) s in all."
