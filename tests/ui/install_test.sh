#!/usr/bin/env bash
# Installs the build into a temporary prefix and checks what a Linux desktop and an operator
# find there: the three programs, the menu entry, the icon, the manual pages (each listing
# every option its program's --help lists), the remote-control guide and the samples;
# --version without a display; and the installed station, started from another folder on
# the offscreen platform, reading its camera types from the installed samples.
set -euo pipefail
build=$1
version=$2
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fail() { echo "install_test: $*" >&2; exit 1; }

prefix=$tmp/prefix
cmake --install "$build" --prefix "$prefix" >/dev/null

for f in bin/corvane-station bin/camera-sim bin/corvane-ctl share/man/man1/corvane-ctl.1 \
         share/applications/corvane-station.desktop \
         share/icons/hicolor/scalable/apps/corvane-station.svg \
         share/man/man1/corvane-station.1 share/man/man1/camera-sim.1 \
         share/corvane-station/studio.csd share/corvane-station/st1.fcl \
         share/doc/corvane-station/remote-control.md; do
  [ -s "$prefix/$f" ] || fail "$f is not installed"
done
grep -qx 'Exec=corvane-station' "$prefix/share/applications/corvane-station.desktop" || fail "desktop entry"
grep -qx 'Icon=corvane-station' "$prefix/share/applications/corvane-station.desktop" || fail "desktop entry"

nodisplay=(env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM)
[ "$("${nodisplay[@]}" "$prefix/bin/corvane-station" --version)" = "corvane-station $version" ] || fail "--version"
[ "$("${nodisplay[@]}" "$prefix/bin/camera-sim" --version)" = "camera-sim $version" ] || fail "camera-sim --version"
[ "$("$prefix/bin/corvane-ctl" --version)" = "corvane-ctl $version" ] || fail "corvane-ctl --version"

for program in corvane-station camera-sim corvane-ctl; do
  page=$prefix/share/man/man1/$program.1
  options=$("${nodisplay[@]}" "$prefix/bin/$program" --help | grep -o -- '--[a-z][a-z-]*' | sort -u)
  [ -n "$options" ] || fail "$program --help lists no options"
  for option in $options; do
    grep -qF -- "${option//-/\\-}" "$page" || fail "$program.1 does not list $option"
  done
done
"${nodisplay[@]}" "$prefix/bin/corvane-station" --help | grep -qF "share/doc/corvane-station/remote-control.md" \
  || fail "corvane-station --help does not name the installed remote-control guide"

mkdir "$tmp/elsewhere" "$tmp/config"
cd "$tmp/elsewhere"
rc=0
XDG_CONFIG_HOME=$tmp/config QT_QPA_PLATFORM=offscreen timeout 4 "$prefix/bin/corvane-station" 2>"$tmp/err" || rc=$?
[ "$rc" = 124 ] || { cat "$tmp/err" >&2; fail "the station ended by itself (exit $rc)"; }
grep -q "4 camera types from $prefix/share/corvane-station\$" "$tmp/err" || { cat "$tmp/err" >&2; fail "types"; }
grep -q "cameras of $prefix/share/corvane-station/studio.csd\$" "$tmp/err" || { cat "$tmp/err" >&2; fail "studio"; }
echo "install_test: all installed and found"
