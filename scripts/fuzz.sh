#!/usr/bin/env bash
# Builds the libFuzzer targets with Clang and the sanitizers and runs each for a while.
# Usage: scripts/fuzz.sh [seconds per target, default 60]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
seconds=${1:-60}
"$root/scripts/install-deps.sh"

cmake -S "$root" -B "$root/build/fuzz" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_CXX_COMPILER=clang++ -DSTATION_SANITIZE=ON -DSTATION_FUZZ=ON -DSTATION_BENCH=OFF
cmake --build "$root/build/fuzz" -j "$(nproc)"

for target in "$root"/build/fuzz/fuzz/fuzz_*; do
  [ -x "$target" ] || continue
  name=$(basename "$target")
  corpus="$root/build/fuzz/corpus/$name"
  mkdir -p "$corpus"
  seeds="$root/fuzz/seeds/${name#fuzz_}"
  echo "== $name for ${seconds}s"
  if [ -d "$seeds" ]; then
    "$target" -max_total_time="$seconds" -print_final_stats=1 "$corpus" "$seeds"
  else
    "$target" -max_total_time="$seconds" -print_final_stats=1 "$corpus"
  fi
done
