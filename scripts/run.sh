#!/usr/bin/env bash
# Builds the station and the standalone camera line (camera-sim), then starts the desktop
# program. Without arguments it runs on its built-in simulated camera line (the sample
# studio's cameras); arguments are passed on, e.g. scripts/run.sh --port /dev/ttyUSB0, or
# the terminal path that camera-sim prints.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/build-gcc.sh" corvane-station camera-sim
build="$root/build/gcc"
# The station is a desktop program: without a screen to draw on, a virtual one (Xvfb) would
# show its window to nobody, so none is installed.
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
  echo "run.sh: the station is built, but it needs a desktop session to show its window," >&2
  echo "and this shell has none (neither DISPLAY nor WAYLAND_DISPLAY is set)." >&2
  echo "Run scripts/run.sh from a terminal inside your desktop, or over 'ssh -X'." >&2
  echo "The program is $build/ui/corvane-station; camera-sim is $build/sim/camera-sim." >&2
  exit 1
fi
exec "$build/ui/corvane-station" "$@"
