#!/usr/bin/env bash
# The Debian package holds what a studio machine needs and its programs run from it: packs
# the build with CPack (or takes the .deb given), unpacks it with dpkg-deb -x and runs each
# program's --version from the unpacked tree. Exit 77 (skipped) without dpkg-deb.
#   package_test.sh BUILD VERSION [DEB]
set -euo pipefail
build=$1
version=$2
deb=${3:-}
command -v dpkg-deb >/dev/null && command -v dpkg-shlibdeps >/dev/null || { echo "package_test: no dpkg tools"; exit 77; }
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fail() { echo "package_test: $*" >&2; exit 1; }

if [ -z "$deb" ]; then
  cpack --config "$build/CPackConfig.cmake" -G DEB -B "$tmp/pack" >"$tmp/cpack.log" 2>&1 || { cat "$tmp/cpack.log" >&2; fail "cpack"; }
  deb=$(ls "$tmp"/pack/corvane-station_*.deb)
fi
[ "$(dpkg-deb -f "$deb" Package)" = corvane-station ] || fail "package name"
[ "$(dpkg-deb -f "$deb" Version)" = "$version" ] || fail "version"
depends=$(dpkg-deb -f "$deb" Depends)
for lib in libqt6widgets6 libqt6serialport6 libqt6network6 liblo7 libc6; do
  [[ "$depends" == *"$lib"* ]] || fail "Depends lacks $lib: $depends"
done

root=$tmp/root
dpkg-deb -x "$deb" "$root"
for f in bin/corvane-station bin/camera-sim bin/corvane-ctl \
         share/applications/corvane-station.desktop share/icons/hicolor/scalable/apps/corvane-station.svg \
         share/man/man1/corvane-station.1.gz share/man/man1/corvane-ctl.1.gz share/man/man1/camera-sim.1.gz \
         share/corvane-station/studio.csd share/corvane-station/st1.fcl \
         share/doc/corvane-station/remote-control.md share/doc/corvane-station/copyright \
         share/doc/corvane-station/changelog.gz; do
  [ -s "$root/usr/$f" ] || fail "$f is not in the package"
done

nodisplay=(env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM)
for program in corvane-station camera-sim corvane-ctl; do
  got=$("${nodisplay[@]}" "$root/usr/bin/$program" --version) || fail "$program --version failed"
  [ "$got" = "$program $version" ] || fail "$program --version said: $got"
done
echo "package_test: $(basename "$deb") holds the programs, and they run"
