#!/usr/bin/env bash
# Makes the README's picture of the main window (docs/main-window.png) again, from the
# program as it is now: the station on its built-in camera line with the sample studio
# opened. It needs no display: the window is drawn on Qt's offscreen platform.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/build-gcc.sh" station-screenshot
build="$root/build/gcc"
mkdir -p "$root/docs"
QT_QPA_PLATFORM=offscreen "$build/tools/station-screenshot" "$root/docs/main-window.png"
echo "screenshot.sh: wrote docs/main-window.png"
