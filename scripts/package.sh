#!/usr/bin/env bash
# Builds the Debian package of the station (CPack DEB) in build/package, checks it with
# lintian (no errors allowed) and unpacks it to run each program's --version from there.
#   scripts/package.sh            prints the path of the .deb at the end
#   BUILD=dir scripts/package.sh  packs an existing build with the desktop program instead
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build="${BUILD:-$root/build/package}"

if [ ! -f "$build/CPackConfig.cmake" ]; then
  cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DSTATION_UI=ON \
    -DSTATION_TESTS=OFF -DSTATION_BENCH=OFF >/dev/null
fi
cmake --build "$build" -j 2
rm -f "$build"/corvane-station_*.deb
(cd "$build" && cpack -G DEB >/dev/null)
deb=$(ls "$build"/corvane-station_*.deb)

command -v lintian >/dev/null || { echo "package.sh: lintian is missing (apt-get install lintian)" >&2; exit 1; }
# Errors fail the package; warnings are shown.
lintian --fail-on error --tag-display-limit 0 "$deb"
version=$(sed -n 's/^project(corvane_station VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
bash "$root/tests/ui/package_test.sh" "$build" "$version" "$deb"
echo "$deb"
