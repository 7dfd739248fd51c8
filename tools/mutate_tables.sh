#!/usr/bin/env bash
# Changes one text and one number after another of the tables that the program stands on (columns, names of tests,
# bands, labels, series) and looks whether a test notices: what can be changed without a failing test is without a test.
# Nothing of the checkout is touched: it works in a copy, build/mutants.
#
#   tools/mutate_tables.sh [COUNT|all [SEED]]
#   tools/mutate_tables.sh FILE[:LINE]...
#
# COUNT changes (20 without it) or all of them are drawn by SEED (1), or those of the named files and rows are taken. Of
# a text the last letter changes, and a number becomes one more. One build holds them all, each behind a switch
# (tools/mutate_tables.pl); the environment picks the one of a run. Built, without optimisation, and tested are the engine
# and the batch tool; without a change all tests must pass. The tests that noticed other changes run first, then those of
# the table's own room; what they leave is looked at by all tests. Exit status 1 where a change went unnoticed; those are named.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

if [[ ${1:-} == */* ]]; then named=("$@") count=all; else named=() count=${1:-20}; fi
seed=${2:-1}
tables=(src/store/columns.cpp src/store/columns.h src/selector/catalogue.cpp src/selector/test_table.cpp
  src/chart/series_tables.h src/chart/pick_lists.h src/acquire/feeds/fundamental_labels.h)
copy=build/mutants/source
programs=(engine_tests batch_tests)

# Made anew: a file that is older than what a former run built of it would not be built again.
rm -rf "$copy"
mkdir -p "$copy"
git ls-files -z --cached --others --exclude-standard | tar -c --null --files-from=- | tar -x -C "$copy"
cd "$copy"

perl tools/mutate_tables.pl "${tables[@]}" > changes.txt
cat > src/switched.h <<'SWITCHED'
#pragma once
#include <cstddef>
#include <cstdlib>
// The number of the change that this run has, or 0.
inline int ChosenChange() {
    static const int chosen = [] {
        const char* text = std::getenv("BRANTLOW_CHANGE");
        return text == nullptr ? 0 : std::atoi(text);
    }();
    return chosen;
}
template <std::size_t N, typename... Changed>
const char (&Switched(int first, const char (&text)[N], const Changed&... changed))[N] {
    int number = first;
    const char(*chosen)[N] = &text;
    ((number++ == ChosenChange() ? void(chosen = &changed) : void()), ...);
    return *chosen;
}
// A number of whatever type its field has.
struct SwitchedNumber {
    SwitchedNumber(int number, double as_is, double changed) : value(number == ChosenChange() ? changed : as_is) {}
    template <typename Number>
    operator Number() const { return static_cast<Number>(value); }
    double value;
};
SWITCHED

echo "Building the copy with $(wc -l < changes.txt) switches"
cmake --preset release -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG= > build.txt
cmake --build --preset release --target "${programs[@]}" > build.txt 2>&1 || { grep -m 20 -A 3 'error' build.txt; exit 2; }

# Whether all tests pass with change NUMBER, or those of FILTER.
passes() {
  local program
  for program in "${programs[@]}"; do
    BRANTLOW_CHANGE=$1 LC_ALL=C.UTF-8 TZ=UTC timeout 1800 "build/release/bin/$program" --gtest_brief=1 --gtest_fail_fast \
      --gtest_filter="${2:-*}" > tests.txt 2>&1 || return 1
  done
}
# The suites whose files lie in the folder of tests that answers to the table's own.
suites_beside() {
  local folder=tests/${1#src/}
  grep -ohE '^TEST(_[FP])?\((\w+)' "${folder%/*}"/*.cpp | sed 's/.*(\(.*\)/\1.*:*\/\1.*/' | sort -u | paste -s -d :
}
# Which test notices change NUMBER of a row of TABLE, sought among all tests or in the table's own room: what it prints.
noticing=()
notice() {
  local filter where='*'
  filter=$(IFS=:; echo "${noticing[*]}")
  [[ ${3:-} == all ]] || where=$(suites_beside "$2")
  if { [[ -z $filter ]] || passes "$1" "$filter"; } && passes "$1" "$where"; then return 1; fi
  # Of a program that broke down no test is told.
  noticed_by=$(sed -n 's/^\[  FAILED  \] \([^ ,]*\.[^ ,]*\).*/\1/p' tests.txt | head -n 1)
  [[ -z $noticed_by || ":$filter:" == *":$noticed_by:"* ]] || noticing=("$noticed_by" "${noticing[@]:0:30}")
}

passes 0 || { tail -n 20 tests.txt; echo "mutate_tables.sh: the tests fail without a change" >&2; exit 2; }

if ((${#named[@]} > 0)); then
  for name in "${named[@]}"; do awk -F '\t' -v name="$name" '$2 == name || index($2, name ":") == 1' changes.txt; done > drawn.txt
else
  [[ $count != all ]] || count=$(wc -l < changes.txt)
  awk -v seed="$seed" 'BEGIN { srand(seed) } { print rand() "\t" $0 }' changes.txt | sort -n | head -n "$count" | cut -f 2- |
    sort -n > drawn.txt
fi

# What no test of its own room notices is left for a second round, in which all tests run for each.
look_through() {
  local change row what count
  count=$(wc -l < "$1")
  local number=0
  : > left.txt
  while IFS=$'\t' read -r change row what; do
    number=$((number + 1))
    if notice "$change" "${row%%:*}" "${2:-}"; then
      echo "$number of $count: $row $what noticed by ${noticed_by:-a program that broke down}"
    else
      printf '%s\t%s\t%s\n' "$change" "$row" "$what" >> left.txt
      [[ ${2:-} != all ]] || echo "$number of $count: $row $what UNNOTICED"
    fi
  done < "$1"
}
look_through drawn.txt
mv left.txt second.txt
[[ ! -s second.txt ]] || echo "$(wc -l < second.txt) changes are left for all tests"
look_through second.txt all

# How many lines of FILE are changes of TABLE, and in how many rows.
changes_of() { awk -F '\t' -v table="$1:" 'index($2, table) == 1 { ++n } END { print n + 0 }' "$2"; }
for table in "${tables[@]}"; do
  taken=$(changes_of "$table" drawn.txt)
  [[ $taken -eq 0 ]] || echo "$table: $((taken - $(changes_of "$table" left.txt))) of $taken changes failed a test," \
    "in $(grep -o "$table:[0-9]*" drawn.txt | sort -u | wc -l) rows"
done
echo "$(($(wc -l < drawn.txt) - $(wc -l < left.txt))) of $(wc -l < drawn.txt) changes failed a test"
[[ ! -s left.txt ]]
