#!/usr/bin/env bash
# Installs what is missing, configures the GCC build with the desktop program (build/gcc) and
# builds the targets named: scripts/build-gcc.sh corvane-station camera-sim
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/install-deps.sh"
export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR="$root" CCACHE_NOHASHDIR=1
cmake -S "$root" -B "$root/build/gcc" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_CXX_COMPILER=g++ -DSTATION_UI=ON >/dev/null
cmake --build "$root/build/gcc" -j "$(nproc)" --target "$@"
