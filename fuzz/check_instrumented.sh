#!/usr/bin/env bash
# Fails unless every object in the given libraries carries libFuzzer's coverage counters
# (the __sancov_cntrs section that -fsanitize=fuzzer-no-link adds). A library built
# without them leaves the fuzzer blind to its code.
# Usage: check_instrumented.sh <library.a>...
set -euo pipefail
[ $# -gt 0 ] || { echo "no libraries given" >&2; exit 2; }
status=0
for lib in "$@"; do
  [ -f "$lib" ] || { echo "missing: $lib" >&2; status=1; continue; }
  # objdump -h prints "<lib>(member):  file format ..." and then that member's sections.
  blind=$(objdump -h "$lib" | awk '
    /file format/ { if (member != "" && !seen) print member; member = $1; sub(/:$/, "", member); seen = 0 }
    /__sancov_cntrs/ { seen = 1 }
    END { if (member != "" && !seen) print member }')
  members=$(objdump -h "$lib" | grep -c 'file format' || true)
  if [ "$members" -eq 0 ]; then
    echo "no objects in $lib" >&2; status=1
  elif [ -n "$blind" ]; then
    echo "without coverage counters in $(basename "$lib"):" >&2
    echo "$blind" | sed 's/^/  /' >&2
    status=1
  else
    echo "$(basename "$lib"): $members objects, all instrumented"
  fi
done
exit $status
