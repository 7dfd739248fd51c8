#!/usr/bin/env bash
# Times an earlier build of the batch tool and this one, in turn on the same files:
#   update    17,999 tickers with a year of history each, from a practice market on the loopback
#   populate  the first 500 of them
#   select    all of them
#   split     twenty tickers, one call after another
#
#   bench/compare.sh BEFORE [FOLDER]   BEFORE is the folder of the earlier programs, .../build/release/bin
#
# The database and the market's prices are made in FOLDER (default: a folder under /var/tmp, 1.3 GB) unless they
# are there already. Every round (ROUNDS, 5 without it) runs both, the earlier one first in every other round, and
# puts the files back before each run; the shortest times count. Exit status 1 when one takes more than 1.1 times
# what it took before.
set -euo pipefail

[[ $# -ge 1 ]] || { echo "compare.sh: which programs are the earlier ones?" >&2; exit 2; }
before=$(cd "$1" && pwd)
folder=${2:-/var/tmp/brantlow-bench-update}
rounds=${ROUNDS:-5}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
programs=$here/../build/release/bin
most_ratio=1.1
day=2026-06-08
# shellcheck source=bench/market.sh
source "$here/market.sh"

for program in make_database timed_run brantlow-batch brantlow-market; do
  [[ -x $programs/$program ]] || { echo "compare.sh: build $program first (./test)" >&2; exit 2; }
done
[[ -x $before/brantlow-batch ]] || { echo "compare.sh: no brantlow-batch in $before" >&2; exit 2; }

if [[ ! -f $folder/Data/Bench.ddq ]]; then
  echo "Making the database in $folder"
  "$programs/make_database" "$folder" --tickers 17999 --years 1 --today "$day" --market "$folder/market"
fi
kept=$folder/kept
if [[ ! -d $kept ]]; then
  mkdir "$kept"
  cp -a "$folder/Quotes" "$folder/Data" "$kept/"
fi

hosts=$(mktemp)
times=$(mktemp)
trap 'stop_market; rm -f "$hosts" "$times"' EXIT

# A ticker whose price halves in the middle of the year.
halving() {
  awk 'BEGIN { for (i = 0; i < 120; ++i) {
    price = i < 60 ? 100 : 50
    printf "\"%02d/%02d/26\",\"\",%d,%d,%d,1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,%d\r\n",
           1 + int(i / 28), 1 + i % 28, price, price, price, price } }'
}

restore() {
  rm -rf "$folder/Quotes" "$folder/Data" "$folder/Back Up"
  cp -a "$kept/Quotes" "$kept/Data" "$folder/"
  cp "$hosts" "$folder/Data/Hosts.ini"
  head -n 501 "$folder/Data/Bench.ddq" > "$folder/Data/Some.ddq"
  for number in {1..20}; do halving > "$folder/Quotes/EOD/HALF$number.26"; done
  sync -f "$folder"
}

# run WHICH WORK COMMAND...: a line "WORK WHICH SECONDS PROCESSOR MEGABYTES".
run() {
  local which=$1 work=$2
  shift 2
  restore
  echo "$work $which $("$programs/timed_run" "$@" 2>&1 > /dev/null | tail -n 1)" >> "$times"
}

# shellcheck disable=SC2016
splits='for n in {1..20}; do "$0" --app "$1" --today "$2" split "HALF$n" 2/1; done'
compare() {
  local which=$1 from=$2 call
  call=("$from/brantlow-batch" --app "$folder" --today "$day")
  run "$which" update "${call[@]}" update Bench.ddq
  run "$which" populate "${call[@]}" populate Some.ddq --years 2
  run "$which" select "${call[@]}" select Bench.ddq
  run "$which" split bash -c "$splits" "$from/brantlow-batch" "$folder" "$day"
}

rm -f "$folder/Data/Hosts.ini"
start_market "$folder/market" "$day" "$folder/Data/Hosts.ini"
cp "$folder/Data/Hosts.ini" "$hosts"
for ((round = 0; round < rounds; round++)); do
  if ((round % 2 == 0)); then
    compare before "$before"
    compare now "$programs"
  else
    compare now "$programs"
    compare before "$before"
  fi
done
restore

awk -v most_ratio="$most_ratio" '
  NF != 5 { print "unexpected: " $0; failed = 1; next }
  { key = $1 " " $2 }
  !(key in best) || $3 < best[key] { best[key] = $3 }
  !(key in cpu) || $4 < cpu[key] { cpu[key] = $4 }
  !($1 in seen) { seen[$1] = 1; order[++works] = $1 }
  END {
    for (i = 1; i <= works; ++i) {
      work = order[i]
      ratio = best[work " now"] / best[work " before"]
      printf "  %-9s %6.2f s before, %6.2f s now: %.2f (of processor %.2f s and %.2f s)\n", work,
             best[work " before"], best[work " now"], ratio, cpu[work " before"], cpu[work " now"]
      if (ratio > most_ratio) failed = 1
    }
    exit failed
  }' "$times"
