#!/usr/bin/env bash
# Which lines and branches of each room the tests reach: builds a copy that counts, runs the tests in it and prints
# a table. A room with less than 90 % of its lines reached is an error.
#
#   tools/coverage.sh [FILE]   FILE takes the figures of every source file, as CSV
#
# Needs the package gcovr beside what ./test installs.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# shellcheck source=tools/scratch.sh
source tools/scratch.sh
scratch=$(new_scratch)
trap 'rm -rf "$scratch"' EXIT
# Some tests look at their files as another user.
chmod 711 "$scratch"
mkdir -m 1777 "$scratch/files"
build=build/coverage
[[ -f $build/build.ninja ]] || cmake --preset coverage --log-level=WARNING >&2
cmake --build --preset coverage >&2
find "$build" -name '*.gcda' -delete
# The tests of a program run in one process, since each process adds its counts to those of every file. Left out are
# those that disturb a program at its n-th file call: the counting is such calls as well.
for program in engine_tests batch_tests market_tests; do
  LC_ALL=C.UTF-8 TZ=UTC TMPDIR=$scratch/files "$build/bin/$program" --gtest_brief=1 >&2
done
tools/run_tests.sh coverage -R '^(windows|Desktop|BatchProgram|MarketProgram)\.' >&2

files=${1:-$build/files.csv}
# A branch that only an exception thrown by a library takes is no decision of ours.
gcovr --root . --filter src/ --object-directory "$build" --exclude-throw-branches --exclude-unreachable-branches \
  --gcov-ignore-parse-errors -j "$(nproc)" --csv "$files" "$build/src" >&2

awk -F, '
  NR == 1 { for (i = 1; i <= NF; ++i) at[$i] = i; next }
  {
    room = $1
    sub(/^src\//, "", room); sub(/\/[^\/]*$/, "", room); sub(/\/windows$/, "", room)
    for (i = 0; i < 2; ++i) {
      key = i ? "all rooms" : room
      lines[key] += $at["line_total"]; met[key] += $at["line_covered"]
      branches[key] += $at["branch_total"]; taken[key] += $at["branch_covered"]
    }
  }
  function share(part, whole) { return whole ? sprintf("%.1f %%", 100 * part / whole) : "none" }
  END {
    for (room in lines) {
      printf "| %s | %d | %s | %d | %s |\n", room, lines[room], share(met[room], lines[room]), branches[room],
        share(taken[room], branches[room])
      if (met[room] < 0.9 * lines[room]) low = low " " room
    }
    if (low) { print "coverage.sh: less than 90 % of the lines are reached in" low > "/dev/stderr"; exit 1 }
  }' "$files" > "$build/rooms.txt" || status=$?
echo "| room | lines | of them reached | branches | of them taken |"
echo "|---|---|---|---|---|"
sort "$build/rooms.txt"
exit "${status:-0}"
