#!/usr/bin/env bash
# Builds and runs every test twice: with GCC, and with Clang under AddressSanitizer and
# UndefinedBehaviorSanitizer. Warnings are errors in both builds. Both builds include the
# desktop program; its widget tests run on Qt's offscreen platform.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/install-deps.sh"
jobs=$(nproc)
# Rebuilds reuse what an earlier build compiled (ccache is one of the packages installed).
export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR="$root" CCACHE_NOHASHDIR=1

cmake -S "$root" -B "$root/build/gcc" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_CXX_COMPILER=g++ -DSTATION_BENCH=ON -DSTATION_UI=ON
cmake --build "$root/build/gcc" -j "$jobs"
ctest --test-dir "$root/build/gcc" --output-on-failure -j "$jobs"
"$root/scripts/build-minimal.sh"

cmake -S "$root" -B "$root/build/asan" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
  -DCMAKE_CXX_COMPILER=clang++ -DSTATION_SANITIZE=ON -DSTATION_BENCH=OFF -DSTATION_UI=ON
cmake --build "$root/build/asan" -j "$jobs"
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
  ctest --test-dir "$root/build/asan" --output-on-failure -j "$jobs"
