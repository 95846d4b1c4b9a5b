#!/usr/bin/env bash
# Measures what the station costs at rest: it starts the desktop program on Qt's offscreen
# platform, leaves it alone for a few seconds, then reads its CPU time and context switches
# (every thread, from /proc) over a measuring window and prints the share of one core and
# the wake-ups per second.
#   scripts/idle-cost.sh [seconds]          on the built-in simulated camera line
#   scripts/idle-cost.sh [seconds] --pty    on a pseudo-terminal served by camera-sim
#   scripts/idle-cost.sh [seconds] --remote on the built-in line, remote control on and one
#                                           TCP client connected that says nothing
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build="${BUILD:-$root/build/gcc}"
seconds="${1:-60}"
mode="${2:-builtin}"
settle=5

cmake --build "$build" --target corvane-station camera-sim >/dev/null
pids=()
config=""
cleanup() {
  for p in "${pids[@]}"; do kill "$p" 2>/dev/null || true; done
  [ -z "$config" ] || rm -rf "$config"
}
trap cleanup EXIT

args=()
if [ "$mode" = "--pty" ]; then
  link=$(mktemp -u /tmp/corvane-idle-line.XXXXXX)
  "$build/sim/camera-sim" --setup "$root/samples/studio.csd" --link "$link" >/dev/null 2>&1 &
  pids+=($!)
  for _ in $(seq 50); do [ -e "$link" ] && break; sleep 0.1; done
  [ -e "$link" ] || { echo "idle-cost: camera-sim did not open its line" >&2; exit 1; }
  args=(--port "$link")
fi

if [ "$mode" = "--remote" ]; then
  port=$(( 20000 + RANDOM % 20000 ))
  args=(--remote --remote-port "$port" --osc-port "$((port + 1))")
fi

# Settings of this run only, so that the user's remembered session plays no part.
config=$(mktemp -d /tmp/corvane-idle-config.XXXXXX)
XDG_CONFIG_HOME="$config" QT_QPA_PLATFORM=offscreen "$build/ui/corvane-station" "${args[@]}" 2>/dev/null &
station=$!
pids+=("$station")
sleep "$settle"
[ -d "/proc/$station" ] || { echo "idle-cost: the station did not start" >&2; exit 1; }
if [ "$mode" = "--remote" ]; then
  exec 3<>"/dev/tcp/127.0.0.1/$port" || { echo "idle-cost: no remote control on port $port" >&2; exit 1; }
  sleep 1
fi

# CPU ticks (user + system) of the process, and context switches of each thread ("tid n").
# A worker thread that ends in the window (Qt lets idle pool threads go after 30 s) takes
# its count with it, so the switches are counted per thread: the ones alive at the end, from
# their count at the start (or 0 when they started later).
ticks() { awk '{ print $14 + $15 }' "/proc/$station/stat"; }
switches() {
  for t in /proc/"$station"/task/*; do
    awk -v tid="${t##*/}" '/ctxt_switches/ { n += $2 } END { print tid, n }' "$t/status" 2>/dev/null || true
  done
}

t0=$(ticks); before=$(switches); start=$(date +%s.%N)
sleep "$seconds"
t1=$(ticks); after=$(switches); end=$(date +%s.%N)
s0=0
s1=$(awk 'NR == FNR { was[$1] = $2; next } { n += $2 - was[$1] } END { print n + 0 }' <(echo "$before") <(echo "$after"))
hz=$(getconf CLK_TCK)
awk -v t="$((t1 - t0))" -v s="$((s1 - s0))" -v hz="$hz" -v a="$start" -v b="$end" -v m="$mode" 'BEGIN {
  secs = b - a
  printf "station at rest (%s), %.1f s: %.3f %% of a core, %.1f wake-ups/s\n", m, secs, 100 * t / hz / secs, s / secs }'
