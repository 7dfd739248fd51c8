#!/usr/bin/env bash
# Changes one row after another of the tables that the program stands on (columns, names of tests, bands, labels,
# series) and looks whether a test notices: a row that can be changed without a failing test is a row without a
# test. Nothing of the checkout is touched: it works in a copy, build/mutants.
#
#   tools/mutate_tables.sh [COUNT|all [SEED]]
#   tools/mutate_tables.sh FILE:LINE...
#
# COUNT rows (20 without it) or all of them are drawn by SEED (1), or the named ones are taken. In each the last letter
# of its first text changes, or where it has no text its first digit. Built, without optimisation, and tested are the
# engine and the batch tool; the tests that noticed other rows run first. Exit status 1 where a change went unnoticed;
# those rows are named.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

if [[ ${1:-} == *:* ]]; then named=("$@") count=$# seed=1; else named=() count=${1:-20} seed=${2:-1}; fi
tables=(src/store/columns.cpp src/store/columns.h src/selector/catalogue.cpp src/selector/test_table.cpp
  src/chart/series_tables.h src/chart/pick_lists.h src/acquire/feeds/fundamental_labels.h)
copy=build/mutants/source
programs=(engine_tests batch_tests)

# Made anew: a file that is older than what a former run built of it would not be built again.
rm -rf "$copy"
mkdir -p "$copy"
git ls-files -z --cached --others --exclude-standard | tar -c --null --files-from=- | tar -x -C "$copy"
cd "$copy"

# Lines within braces or quotes that hold a text or a number, as "file:line".
rows() {
  if ((${#named[@]} > 0)); then printf '%s\n' "${named[@]}"; return; fi
  awk '/^ *(\/\/|#|namespace|return|if|for|using)/ { next }
       /^ +.*"[^"]*[A-Za-z][^"]*"/ || /^ +\{[^}]*[0-9]/ { print FILENAME ":" FNR }' "${tables[@]}"
}
# file:line as it is to become.
change() {
  awk -v at="${1##*:}" 'FNR != at { print; next }
    match($0, /"[^"]*[A-Za-z][^"]*"/) {
      text = substr($0, RSTART, RLENGTH)
      for (i = length(text); i > 0; --i) if (substr(text, i, 1) ~ /[A-Za-z]/ && substr(text, i - 1, 1) != "\\") break
      # Some readers of these texts pass over case.
      letter = toupper(substr(text, i, 1)) == "Q" ? "X" : "Q"
      print substr($0, 1, RSTART - 1) substr(text, 1, i - 1) letter substr(text, i + 1) substr($0, RSTART + RLENGTH)
      next
    }
    match($0, /[0-9]/) { print substr($0, 1, RSTART - 1) (substr($0, RSTART, 1) + 1) % 10 substr($0, RSTART + 1); next }
    { print }' "${1%%:*}"
}
build() { cmake --build --preset release --target "${programs[@]}" > build.txt 2>&1; }
# Whether all tests pass, or those of FILTER.
passes() {
  local program
  for program in "${programs[@]}"; do
    LC_ALL=C.UTF-8 TZ=UTC "build/release/bin/$program" --gtest_brief=1 --gtest_fail_fast --gtest_filter="${1:-*}" \
      > tests.txt 2>&1 || return 1
  done
}
# The tests that noticed a change, the last one in front.
noticing=()
is_noticed() {
  build || return 0
  local filter
  filter=$(IFS=:; echo "${noticing[*]}")
  [[ -z $filter ]] || passes "$filter" || return 0
  ! passes || return 1
  local test
  test=$(sed -n 's/^\[  FAILED  \] \([^ ,]*\.[^ ,]*\).*/\1/p' tests.txt | head -n 1)
  [[ -z $test ]] || noticing=("$test" "${noticing[@]:0:30}")
}

[[ $count != all ]] || count=$(rows | wc -l)

echo "Building the copy"
cmake --preset release -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG= > build.txt
build || { tail -n 20 build.txt; exit 2; }
passes || { tail -n 20 tests.txt; echo "mutate_tables.sh: the tests fail without a change" >&2; exit 2; }

unnoticed=0
number=0
while read -r row; do
  file=${row%%:*}
  number=$((number + 1))
  cp "$file" original
  change "$row" > changed
  cp changed "$file"
  if is_noticed; then
    echo "$number of $count: $row noticed"
  else
    echo "$number of $count: $row UNNOTICED: $(sed -n "${row##*:}p" original)"
    unnoticed=$((unnoticed + 1))
  fi
  cp original "$file"
done < <(rows | awk -v seed="$seed" 'BEGIN { srand(seed) } { print rand() "\t" $0 }' | sort -n | head -n "$count" | cut -f 2 |
  sort -t : -k 1,1 -k 2,2n)
echo "$((number - unnoticed)) of $number changed rows failed a test"
[[ $unnoticed -eq 0 ]]
