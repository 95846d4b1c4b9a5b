#!/usr/bin/env bash
# Every option a program's --help names is in its manual page (as the page writes it,
# "\-\-name"): a new option cannot ship undocumented in the page.
#   manual_test.sh BUILD_DIR SOURCE_DIR
set -uo pipefail
build=$1 source=$2
export QT_QPA_PLATFORM=offscreen
status=0
for program in ui/corvane-station ctl/corvane-ctl sim/camera-sim; do
  name=$(basename "$program")
  page="$source/desktop/$name.1"
  help=$("$build/$program" --help 2>&1) || { echo "$name --help failed"; status=1; continue; }
  for option in $(grep -o -- '--[a-z][a-z-]*' <<<"$help" | sort -u); do
    escaped=$(sed 's/-/\\-/g' <<<"$option")
    grep -qF -- "$escaped" "$page" || { echo "$name: $option is in --help but not in $name.1"; status=1; }
  done
done
[ $status -eq 0 ] && echo "manual_test: every option of --help is in the manual pages"
exit $status
