#!/usr/bin/env bash
# Tests tools/check_settings_lines.sh on small source trees: each way to number a settings line is found, what
# reads by name passes.
#
#   check_settings_lines_test.sh CHECKER
set -euo pipefail
checker=$(realpath "$1")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0

# expect STATUS NAME FILE LINE...: the checker's exit status for a tree with this one file.
expect() {
  local wanted=$1 name=$2 file=$3 status=0 output
  shift 3
  rm -rf "$scratch/src"
  mkdir -p "$scratch/src/$(dirname "$file")"
  printf '%s\n' "$@" >"$scratch/src/$file"
  output=$("$checker" "$scratch/src") || status=$?
  if [[ $status -ne $wanted || ($wanted -eq 1 && $output != *"$file"*) ]]; then
    echo "FAILED: $name: status $status: $output"
    failures=$((failures + 1))
  fi
}

expect 0 "a read by name" chart/a.cpp '#include "shell/settings/lines.h"' 'return Get(settings, kChartStyle);'
expect 0 "a line number of another file" market/a.cpp 'constexpr std::size_t kLastLine = 4;'
expect 0 "the place of the rows" shell/settings/a.cpp 'x = s.NetSettings.Text(3);'
expect 1 "a read by number" chart/a.cpp 'x = s.NetSettings.Text(3);'
expect 1 "a write by number" store/b.cpp 's.DataSettings.Set( 13, day);'
expect 1 "a read by a constant" store/b.cpp 'x = s.ImExSettings.Number(kHeaderLine);'
expect 1 "a constant" store/b.h '#include "shell/session.h"' 'inline constexpr std::size_t kHeaderLine = 7;'

[[ $failures -eq 0 ]]
