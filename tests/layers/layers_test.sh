#!/usr/bin/env bash
# The layer picture of docs/architecture.md, checked: each folder includes only the folders it
# may, and the clients of the front door (remote/, ctl/) reach the station through its named
# actions and readout only (the station itself is assembled in ctl's main alone). The door
# stays shut: Station keeps no public data, nothing opens its privacy, and the windows of
# ui/panel and ui/windows are handed form models, never the station.
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

# Station's public part holds functions only: a data member there would be a door anyone could
# walk through.
while IFS= read -r hit; do
  echo "station opened: app/station.hpp: $hit (its parts are private; hand a view its models through forms())"
  failed=1
done < <(awk '/^class Station /{inside=1; pub=0} inside && /^public:/{pub=1} inside && /^private:/{pub=0} inside && /^};/{inside=0}
  inside && pub && /^    [A-Za-z_0-9:<>, ]+[ &*]+[A-Za-z_0-9]+( *=.*| *\{.*\})?;/ && !/\(/ {print}' app/station.hpp)

while IFS= read -r hit; do
  echo "privacy opened: $hit"
  failed=1
done < <(grep -rn -E '#define +(private|protected|class)\b|friend +(class|struct) +[A-Za-z_]*(Test|Rig|View|Window)' \
  --include='*.cpp' --include='*.hpp' app ui remote ctl tests fuzz bench)

while IFS= read -r hit; do
  echo "window holds the station: $hit (hand it the form models and the readout)"
  failed=1
done < <(grep -rn -E '\bStation *[&*]' ui/panel ui/windows ui/widgets --include='*.cpp' --include='*.hpp')

[ "$failed" -eq 0 ] && echo "layers: every include points up the picture; the station's door is shut"
exit "$failed"
