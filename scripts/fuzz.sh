#!/usr/bin/env bash
# Builds the libFuzzer targets with Clang and the sanitizers, the libraries they exercise
# with coverage feedback, and runs each target in turn for a while from its seed folder
# and with its dictionary. Refuses to fuzz when a library lacks its coverage counters.
# Usage: scripts/fuzz.sh [seconds per target, default 60]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
seconds=${1:-60}
"$root/scripts/install-deps.sh"

cmake -S "$root" -B "$root/build/fuzz" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_CXX_COMPILER=clang++ -DSTATION_SANITIZE=ON -DSTATION_FUZZ=ON -DSTATION_BENCH=OFF
cmake --build "$root/build/fuzz" -j "$(nproc)" --target fuzzers

if ! ctest --test-dir "$root/build/fuzz" -R '^fuzz_.*_instrumented$' --no-tests=error --output-on-failure; then
  echo "fuzz.sh: the fuzzed libraries are built without coverage counters; not fuzzing blind" >&2
  exit 1
fi

for target in "$root"/build/fuzz/fuzz/fuzz_*; do
  [ -x "$target" ] || continue
  name=$(basename "$target")
  corpus="$root/build/fuzz/corpus/$name"
  mkdir -p "$corpus"
  seeds="$root/fuzz/seeds/${name#fuzz_}"
  dict="$root/fuzz/dict/${name#fuzz_}.dict"
  [ -d "$seeds" ] || { echo "fuzz.sh: no seed folder $seeds" >&2; exit 1; }
  [ -f "$dict" ] || { echo "fuzz.sh: no dictionary $dict" >&2; exit 1; }
  echo "== $name for ${seconds}s"
  "$target" -max_total_time="$seconds" -print_final_stats=1 -dict="$dict" "$corpus" "$seeds"
done
