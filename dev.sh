#!/usr/bin/env bash
# Set-up, build and run on a Debian machine.
#   ./dev.sh run    installs what is missing, builds, lays out an installation and starts the desktop program
#   ./dev.sh test   installs what is missing, builds and runs every test
#   ./dev.sh data   rebuilds the generated installation data (install/) from the tables in data/
set -euo pipefail
cd "$(dirname "$0")"

mode=${1:-}
case "$mode" in run|test|data) ;; *) echo "usage: $0 run|test|data" >&2; exit 2 ;; esac

as_root() { if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi; }

packages=(g++ cmake ninja-build libgtest-dev libgmock-dev qt6-base-dev qt6-svg-dev locales parallel poppler-utils)
missing=()
for p in "${packages[@]}"; do dpkg -s "$p" >/dev/null 2>&1 || missing+=("$p"); done
if [ ${#missing[@]} -gt 0 ]; then
  echo "installing: ${missing[*]}"
  as_root apt-get update -qq
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}"
fi

build=build
cmake -G Ninja -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
if [ "$mode" = data ]; then
  cmake --build "$build" --target marloven-datagen
  exec "$build/tools/datagen/marloven-datagen" data install
fi
cmake --build "$build"

if [ "$mode" = test ]; then
  # The core and the command line must build without the toolkit.
  cmake -G Ninja -S . -B build-core -DMARLOVEN_GUI=OFF -DMARLOVEN_TESTS=OFF >/dev/null
  cmake --build build-core
  # One test writes project files under a comma-decimal locale; make one if we may.
  if ! locale -a 2>/dev/null | grep -qi '^de_DE\.utf-\?8$'; then
    as_root localedef -i de_DE -f UTF-8 de_DE.UTF-8 2>/dev/null || echo "note: no de_DE.UTF-8 locale; that test is skipped"
  fi
  QT_QPA_PLATFORM=offscreen ctest --test-dir "$build" --output-on-failure -j 2
else
  cmake --install "$build" --prefix "$build/installed" >/dev/null
  exec "$build/installed/marloven"
fi
