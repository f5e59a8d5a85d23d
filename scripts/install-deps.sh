#!/usr/bin/env bash
# Installs the Debian packages the station needs to build, run and test, when any is missing.
set -euo pipefail

packages=(
  build-essential cmake pkg-config
  qt6-base-dev qt6-serialport-dev qt6-svg-dev libqt6svg6 qt6-qpa-plugins
  libgtest-dev libgmock-dev googletest libbenchmark-dev
  libcurl4-openssl-dev
  xvfb xauth socat xdotool imagemagick fonts-dejavu-core
  cups-daemon cups-client cups-bsd poppler-utils
  python3-aiosmtpd openssl
  python3 time
  debootstrap
  clang-14 libclang-rt-14-dev
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

echo "Installing: ${missing[*]}"
sudo=""
if [ "$(id -u)" -ne 0 ]; then
  sudo="sudo"
fi
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
