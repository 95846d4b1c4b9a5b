#!/usr/bin/env bash
# Builds the Debian package of the station (CPack DEB) in build/package, checks it with
# lintian (no errors allowed) and unpacks it to run each program's --version from there.
#   scripts/package.sh            prints the path of the .deb at the end
#   BUILD=dir scripts/package.sh  packs an existing build with the desktop program instead
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build="${BUILD:-$root/build/package}"

# The programs are built for where the package puts them (/usr: they find their samples
# and documentation there), with Debian's hardening flags (fortify, PIE, bind now).
command -v dpkg-buildflags >/dev/null || { echo "package.sh: dpkg-buildflags is missing (apt-get install dpkg-dev)" >&2; exit 1; }
export DEB_BUILD_MAINT_OPTIONS=hardening=+all
cxxflags="$(dpkg-buildflags --get CPPFLAGS) $(dpkg-buildflags --get CXXFLAGS)"
ldflags=$(dpkg-buildflags --get LDFLAGS)
if [ -z "${BUILD:-}" ] || [ ! -f "$build/CPackConfig.cmake" ]; then
  cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DSTATION_UI=ON \
    -DSTATION_TESTS=OFF -DSTATION_BENCH=OFF -DCMAKE_INSTALL_PREFIX=/usr \
    -DCMAKE_POSITION_INDEPENDENT_CODE=ON -DCMAKE_CXX_FLAGS="$cxxflags" \
    -DCMAKE_EXE_LINKER_FLAGS="$ldflags" -DCMAKE_SHARED_LINKER_FLAGS="$ldflags" >/dev/null
fi
cmake --build "$build" -j 2
rm -f "$build"/corvane-station_*.deb
(cd "$build" && cpack -G DEB >/dev/null)
deb=$(ls "$build"/corvane-station_*.deb)

command -v lintian >/dev/null || { echo "package.sh: lintian is missing (apt-get install lintian)" >&2; exit 1; }
# Errors fail the package; warnings are shown.
lintian --fail-on error --tag-display-limit 0 "$deb"
# A hardening gap is a failure too.
if lintian --tag-display-limit 0 "$deb" | grep -E 'hardening-no-(relro|fortify-functions|bindnow|pie)'; then
  echo "package.sh: the programs lack Debian's hardening" >&2
  exit 1
fi
version=$(sed -n 's/^project(corvane_station VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
bash "$root/tests/ui/package_test.sh" "$build" "$version" "$deb"
# The packaged programs look for the samples and documentation where the package puts them:
# corvane-ctl, given a setup file from elsewhere, names /usr/share/corvane-station among the
# folders it looked in for camera types (a text search of the binary misses a path the
# optimiser builds from immediates).
unpacked=$(mktemp -d)
trap 'rm -rf "$unpacked"' EXIT
dpkg-deb -x "$deb" "$unpacked"
cp "$unpacked/usr/share/corvane-station/studio.csd" "$unpacked/studio.csd"
looked=$(cd "$unpacked" && "$unpacked/usr/bin/corvane-ctl" --simulate --setup studio.csd --save backup.csd read 1 2>&1 || true)
[[ "$looked" == *"/usr/share/corvane-station)"* ]] ||
  { echo "package.sh: corvane-ctl does not look for its samples in /usr/share/corvane-station: $looked" >&2; exit 1; }
QT_QPA_PLATFORM=offscreen "$unpacked/usr/bin/corvane-station" --help | grep -q /usr/share/doc/corvane-station ||
  { echo "package.sh: corvane-station does not point at /usr/share/doc/corvane-station" >&2; exit 1; }
echo "$deb"
