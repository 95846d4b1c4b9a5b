#!/usr/bin/env bash
# Builds the station and starts the desktop program. Without arguments it runs on its
# built-in simulated camera line (the sample studio's cameras); arguments are passed on,
# e.g. scripts/run.sh --port /dev/ttyUSB0, or the terminal path that camera-sim prints.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/install-deps.sh"

build="$root/build/gcc"
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_CXX_COMPILER=g++ -DSTATION_UI=ON >/dev/null
cmake --build "$build" -j "$(nproc)" --target corvane-station
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
  echo "run.sh: no display to show the station on (DISPLAY is not set); on a machine without" >&2
  echo "one, start it under Xvfb: xvfb-run -a $build/ui/corvane-station" >&2
  exit 1
fi
exec "$build/ui/corvane-station" "$@"
