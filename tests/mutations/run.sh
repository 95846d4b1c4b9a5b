#!/usr/bin/env bash
# Plants each fault of faults.tsv in turn, rebuilds, runs every ctest entry and prints which
# entries caught it. Not part of the normal test run.
#
#   tests/mutations/run.sh [SOURCE_ROOT]      (default: this checkout)
#   FAULTS="link-ack-ticks sim-reply-class" tests/mutations/run.sh   (only these ids)
#   TESTS="ui_keys|Scenes" tests/mutations/run.sh    (only the ctest entries matching this regex)
#   QUICK=1 tests/mutations/run.sh     (stop at the first failing entry: a verdict, not every catcher)
#
# The build goes to SOURCE_ROOT/build/mut (GCC, UI on, benchmarks off). Each planted file is
# put back byte for byte afterwards (and rebuilt), also when the script is interrupted. The
# faults are planted in SOURCE_ROOT's working tree: to go on working meanwhile, run it on a
# clone (git clone . /tmp/mut && tests/mutations/run.sh /tmp/mut), never commit from the tree
# it plants in.
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "${1:-$here/../..}" && pwd)
table="$here/faults.tsv"
build="$root/build/mut"
export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER:-ccache}
export CCACHE_BASEDIR=${CCACHE_BASEDIR:-/work} CCACHE_NOHASHDIR=1
export QT_QPA_PLATFORM=offscreen

if [ ! -f "$build/build.ninja" ]; then
  cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=g++ \
    -DSTATION_BENCH=OFF -DSTATION_UI=ON >/dev/null || exit 1
fi

saved=""
# The original comes back with a new time stamp, so that the next build recompiles it.
restore() { if [ -n "$saved" ]; then cat "$saved" >"$target"; rm -f "$saved"; saved=""; fi; }
trap 'restore; exit 130' INT TERM

build_and_test() {  # prints the failed ctest entries, or a verdict
  if ! nice cmake --build "$build" -j2 >"$build/mut-build.log" 2>&1; then echo "DOES NOT BUILD"; return; fi
  rm -f "$build/Testing/Temporary/LastTestsFailed.log"
  local select=()
  [ -n "${TESTS:-}" ] && select+=(-R "$TESTS")
  local failed="$build/Testing/Temporary/LastTestsFailed.log"
  if [ -n "${QUICK:-}" ]; then
    # The quick tests first: the slow end-to-end ones run only when none of them caught it.
    nice ctest --test-dir "$build" -j2 --timeout 180 --stop-on-failure -LE 'e2e|web|package' "${select[@]}" \
      >"$build/mut-ctest.log" 2>&1
    [ -s "$failed" ] || nice ctest --test-dir "$build" -j2 --timeout 180 --stop-on-failure -L 'e2e|web|package' \
      "${select[@]}" >>"$build/mut-ctest.log" 2>&1
  else
    nice ctest --test-dir "$build" -j2 --timeout 180 "${select[@]}" >"$build/mut-ctest.log" 2>&1
  fi
  # One entry a line, "N:name"; value-parameterised names carry a "  # GetParam() = ..." tail.
  if [ -s "$failed" ]; then cut -d: -f2- "$failed" | sed 's/  # GetParam().*//' | sort | paste -sd' '; else echo "NOT CAUGHT"; fi
}

baseline=$(build_and_test)
echo "baseline (nothing may fail): ${baseline/NOT CAUGHT/all passed}"
printf '%-20s %-7s %s\n' fault caught "ctest entries that failed"
while IFS=$'\t' read -r id file original replacement what; do
  case "$id" in '#'* | '') continue ;; esac
  if [ -n "${FAULTS:-}" ] && [[ " $FAULTS " != *" $id "* ]]; then continue; fi
  target="$root/$file"
  saved=$(mktemp)
  cp "$target" "$saved"
  if ! ORIG="$original" REPL="$replacement" perl -0777 -i -pe '
        BEGIN { ($o, $r) = ($ENV{ORIG}, $ENV{REPL}); s/\\n/\n/g for $o, $r; }
        $n = () = /\Q$o\E/g;
        die "original text occurs $n times\n" unless $n == 1;
        s/\Q$o\E/$r/;' "$target"; then
    printf '%-20s %-7s %s\n' "$id" "-" "NOT PLANTED (original text not found once in $file)"
    restore
    continue
  fi
  result=$(build_and_test)
  restore
  case "$result" in
    "NOT CAUGHT" | "DOES NOT BUILD") count=0 ;;
    *) count=$(wc -w <<<"$result") ;;
  esac
  printf '%-20s %-7s %s\n' "$id" "$count" "$result"
done <"$table"
