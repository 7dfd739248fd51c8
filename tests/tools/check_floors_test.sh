#!/usr/bin/env bash
# Tests tools/check_floors.sh on small source trees: each offence is found and named, a sound tree passes.
#
#   check_floors_test.sh CHECKER
set -euo pipefail
checker=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0

# A sound tree in a new folder $tree.
new_tree() {
  tree=$(mktemp -d "$scratch/tree.XXXXXX")
  put base/text.h '#include <string>'
  put shell/settings/tables.h '#include "base/text.h"'
  put shell/session.h '#include "shell/settings/tables.h"'
  put store/table.h '#include "shell/session.h"' '#include "row.h"'
  put store/row.h '#pragma once'
  put acquire/feeds/update.cpp '#include <queue>' '#include "store/table.h"'
  put store/windows/frmGrid.h '#include <QWidget>' '#include "store/table.h"'
  put shell/frame/windows/frmMain.h '#include <QMainWindow>' '#include "store/windows/frmGrid.h"'
  put desktop/main.cpp '#include <QApplication>' '#include "shell/frame/windows/frmMain.h"'
}

# put FILE LINE...
put() {
  mkdir -p "$tree/$(dirname "$1")"
  local file=$tree/$1
  shift
  printf '%s\n' "$@" >"$file"
}

fail() {
  echo "FAILED: $1"
  failures=$((failures + 1))
}

# expect_offence NAME TEXT: the checker refuses $tree with a line that holds TEXT.
expect_offence() {
  local output
  if output=$("$checker" "$tree"); then
    fail "$1: passed"
  elif [[ $output != *"$2"* ]]; then
    fail "$1: no line with '$2' in: $output"
  fi
}

new_tree
output=$("$checker" "$tree") || fail "a sound tree: $output"
[[ -z $output ]] || fail "a sound tree prints: $output"

new_tree
put base/text.cpp '#include "store/table.h"'
expect_offence "an upward include" 'base/text.cpp: includes "store/table.h" from a higher floor'

new_tree
put store/table.cpp '  #  include   "store/windows/frmGrid.h"'
expect_offence "the engine including a window of its room" 'store/table.cpp: the engine includes no window, "store/windows/frmGrid.h"'

new_tree
put store/windows/frmGrid.cpp '#include "shell/frame/windows/frmMain.h"'
expect_offence "a window including the frame above it" 'store/windows/frmGrid.cpp: includes "shell/frame/windows/frmMain.h" from a higher'

new_tree
put batch/main.cpp '#include "store/table.h"'
put acquire/feeds/update.h '#include <batch/main.cpp>'
expect_offence "an upward include in angle brackets" 'acquire/feeds/update.h: includes "batch/main.cpp"'

for header in QString QtCore/QString QtWidgets qglobal.h; do
  [[ $header == QtWidgets ]] && included='<QtWidgets>' || included="<$header>"
  new_tree
  put store/table.cpp "#include $included"
  expect_offence "the engine including $included" "store/table.cpp: the engine includes no $header"
done

new_tree
put chart/chart.h '#include "acquire/feeds/feed.h"'
put acquire/feeds/feed.h '#include "research/page.h"'
put research/page.h '#include "chart/chart.h"'
expect_offence "a circle of three rooms" 'circle of rooms: chart/chart.h includes "acquire/feeds/feed.h"'

new_tree
put chart/windows/frmChart.h '#include "research/page.h"'
put research/page.h '#include "chart/chart.h"'
put chart/chart.h '#pragma once'
expect_offence "a circle that goes through a window" 'circle of rooms: chart/windows/frmChart.h includes "research/page.h"'

new_tree
put shell/settings/tables.cpp '#include "shell/session.h"'
expect_offence "a room including the one that stands on it" 'shell/settings/tables.cpp: includes "shell/session.h" from a higher'

new_tree
put store/table.cpp '#include "store/nowhere.h"'
expect_offence "an include of nothing" 'store/table.cpp: includes "store/nowhere.h", which is not in the source'

new_tree
put garage/car.h '#pragma once'
expect_offence "a room on no floor" 'garage/car.h: the folder stands on no floor'

tree=$(mktemp -d "$scratch/empty.XXXXXX")
expect_offence "an empty tree" 'no source files here'

[[ $failures -eq 0 ]] || exit 1
echo "all checks of the checker passed"
