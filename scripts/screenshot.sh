#!/usr/bin/env bash
# Makes the README's picture of the main window (docs/main-window.png) again, from the
# program as it is now: the station on its built-in camera line with the sample studio
# opened. It needs no display: the window is drawn on Qt's offscreen platform.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/build-gcc.sh" station-screenshot
build="$root/build/gcc"
mkdir -p "$root/docs"
# The offscreen screen is small: the window is drawn at the size a desktop would give it.
QT_QPA_PLATFORM=offscreen "$build/tools/station-screenshot" "$root/docs/main-window.png" main 1200x660
echo "screenshot.sh: wrote docs/main-window.png"
