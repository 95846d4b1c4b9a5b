#!/usr/bin/env bash
# Works the main window for 5,000 operator actions on the built-in camera line (offscreen)
# and prints the resident memory every 500; after the first 500 it must grow by less than
# 1 MB. Usage: scripts/soak-view.sh [actions]   (exit status 1 when it grew more)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build="${BUILD:-$root/build/gcc}"
cmake --build "$build" --target view-soak >/dev/null
QT_QPA_PLATFORM=offscreen "$build/tools/view-soak" "${1:-5000}" | tee /dev/stderr |
  awk '/actions:/ { kb[$1] = $3; if ($1 == 500) first = $3; last = $3 }
       END { if (first == "") exit 0
             grow = last - first
             printf "growth after the first 500 actions: %d kB\n", grow
             exit grow >= 1024 }'
