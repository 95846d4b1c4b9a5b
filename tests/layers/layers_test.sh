#!/usr/bin/env bash
# The layer picture of docs/architecture.md, checked: each folder includes only the folders it
# may, and the clients of the front door (remote/, ctl/) reach the station through its named
# actions and readout only (the station itself is assembled in ctl's main alone).
#   tests/layers/layers_test.sh SOURCE_ROOT
set -uo pipefail
root=${1:?source root}
cd "$root" || exit 2

declare -A allowed=(
  [common]=""
  [link]="common"
  [line]="common link"
  [platform]="common"
  [camtype]="common"
  [setupfile]="common camtype"
  [panel]="common link camtype"
  [autosetup]="common link"
  [funcedit]="common link camtype"
  [scenes]="common link camtype panel funcedit"
  [app]="common link line camtype setupfile panel autosetup funcedit scenes"
  [remote]="common link app"
  [ctl]="common link camtype app remote platform setupfile sim"
  [sim]="common"
)

failed=0
for folder in "${!allowed[@]}"; do
  while IFS= read -r hit; do
    used=${hit#*#include \"}
    used=${used%%/*}
    [ "$used" = "$folder" ] && continue
    if [[ " ${allowed[$folder]} " != *" $used "* ]]; then
      echo "layer broken: $hit ($folder/ may include: ${allowed[$folder]:-nothing of ours})"
      failed=1
    fi
  done < <(grep -rn -E '^#include "[a-z_]+/' "$folder" --include='*.cpp' --include='*.hpp' --include='*.in')
done

while IFS= read -r hit; do
  case "$hit" in ctl/main.cpp:*) continue ;; esac
  echo "front door bypassed: $hit (use app/actions.hpp and the readout)"
  failed=1
done < <(grep -rn -E '^#include "app/station\.hpp"' remote ctl)

[ "$failed" -eq 0 ] && echo "layers: every include points up the picture"
exit "$failed"
