#!/usr/bin/env bash
# How close corvane-ctl comes to the line's own pace: a backup and a restore of eight
# cameras against camera-sim on a pseudo-terminal, each timed as the program's whole run and
# set against the poll floor (one frame per 40 ms poll: the replies of a backup, the frames
# the cameras acknowledged on a restore). Prints the ratios; the targets are 1.15 and 1.1, and
# 1.2 for one camera read or written alone.
#   scripts/ctl-ratio.sh            (BUILD=build/gcc by default)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build="${BUILD:-$root/build/gcc}"
cmake --build "$build" --target corvane-ctl camera-sim >/dev/null

work=$(mktemp -d /tmp/corvane-ratio.XXXXXX)
sim_pid=""
cleanup() { [ -n "$sim_pid" ] && kill "$sim_pid" 2>/dev/null; rm -rf "$work"; }
trap cleanup EXIT

# The sample studio with two more cameras, so that all eight positions answer.
tr -d '\r' <"$root/samples/studio.csd" |
  sed -e 's/^Camera 7=|$/Camera 7=ST1|7/' -e 's/^Camera 8=|$/Camera 8=PT2|8/' -e 's/$/\r/' >"$work/eight.csd"
cp "$root"/samples/*.fcl "$work/"

"$build/sim/camera-sim" --setup "$work/eight.csd" --link "$work/line" >/dev/null 2>&1 &
sim_pid=$!
for _ in $(seq 50); do [ -e "$work/line" ] && break; sleep 0.1; done
[ -e "$work/line" ] || { echo "ctl-ratio: camera-sim did not open its line" >&2; exit 1; }

ctl() {  # prints seconds taken; the program's messages go to $work/err
  local start end
  start=$(date +%s.%N)
  "$build/ctl/corvane-ctl" --port "$work/line" --quiet "$@" 2>"$work/err" >/dev/null || {
    cat "$work/err" >&2; echo "ctl-ratio: corvane-ctl failed" >&2; exit 1; }
  end=$(date +%s.%N)
  echo "$end - $start" | bc -l
}
sum() { grep -o "$1" "$work/err" | grep -o '^[0-9]*' | paste -sd+ | bc; }

backup_s=$(ctl --setup "$work/eight.csd" read 1-8 --save "$work/backup.csd")
replies=$(sum '[0-9]* replies')
restore_s=$(ctl --setup "$work/backup.csd" write 1-8)
acked=$(sum '[0-9]* acknowledged')

report() {  # name seconds frames target
  local floor ratio
  floor=$(echo "$3 * 0.040" | bc -l)
  ratio=$(echo "$2 / $floor" | bc -l)
  printf '%-8s %6.2f s  floor %6.2f s (%d frames x 40 ms)  ratio %.3f  (target <= %s)\n' "$1" "$2" "$floor" "$3" "$ratio" "$4"
}
report backup "$backup_s" "$replies" 1.15
report restore "$restore_s" "$acked" 1.1

# One camera: the start of the run weighs most here.
one_read_s=$(ctl --setup "$work/backup.csd" read 1)
one_replies=$(sum '[0-9]* replies')
one_write_s=$(ctl --setup "$work/backup.csd" write 1)
one_acked=$(sum '[0-9]* acknowledged')
report "read 1" "$one_read_s" "$one_replies" 1.2
report "write 1" "$one_write_s" "$one_acked" 1.2
