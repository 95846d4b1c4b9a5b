#!/usr/bin/env bash
# Makes the README's picture of the main window (docs/main-window.png) again, from the
# program as it is now: the station on its built-in camera line with the sample studio
# opened. It needs no display: the window is drawn on Qt's offscreen platform.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/install-deps.sh"

build="$root/build/gcc"
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_CXX_COMPILER=g++ -DSTATION_UI=ON >/dev/null
cmake --build "$build" -j "$(nproc)" --target station-screenshot
mkdir -p "$root/docs"
QT_QPA_PLATFORM=offscreen "$build/tools/station-screenshot" "$root/docs/main-window.png"
echo "screenshot.sh: wrote docs/main-window.png"
