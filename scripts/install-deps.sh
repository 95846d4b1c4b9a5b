#!/usr/bin/env bash
# Installs, with apt-get, whatever the build and the tests need and the machine lacks.
set -euo pipefail

packages=(cmake ninja-build g++ clang libclang-rt-14-dev libgtest-dev libgmock-dev libbenchmark-dev socat
          qt6-base-dev qt6-serialport-dev qt6-httpserver-dev qt6-websockets-dev liblo-dev pkg-config ccache
          dpkg-dev lintian                             # the Debian package and its checks
          chromium chromium-driver python3-selenium)  # the browser panel's tests

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo_cmd=()
[ "$(id -u)" -ne 0 ] && sudo_cmd=(sudo)
echo "Installing: ${missing[*]}"
"${sudo_cmd[@]}" apt-get update -qq
DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -qq "${missing[@]}"
