#!/usr/bin/env bash
# Builds corvane-ctl and camera-sim as a machine without Qt and without liblo would: the
# desktop program, OSC and the tests left out, and neither library allowed to be found.
# Fails when corvane-ctl links either of them.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build="$root/build/min"
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=g++ \
  -DSTATION_UI=OFF -DSTATION_OSC=OFF -DSTATION_TESTS=OFF -DSTATION_BENCH=OFF \
  -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON -DCMAKE_DISABLE_FIND_PACKAGE_PkgConfig=ON >/dev/null
cmake --build "$build" -j "$(nproc)" --target corvane-ctl camera-sim
if ldd "$build/ctl/corvane-ctl" | grep -E -i 'libQt|liblo'; then
  echo "build-minimal.sh: corvane-ctl links Qt or liblo" >&2
  exit 1
fi
"$build/ctl/corvane-ctl" --version
echo "build-minimal.sh: corvane-ctl built without Qt and liblo"
