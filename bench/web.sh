#!/usr/bin/env bash
# Times what the program fills from the web against the web alone, a practice market on the loopback:
#   (a) one `curl` that asks for all addresses of the run, one after another, and throws the replies away
#   (b) `brantlow-batch update` over 17,999 tickers with a year of history each, or
#       `brantlow-batch populate --years 5` for 500 tickers
#   (c) beside an update, the reading and lengthening of its year files alone, and their flush to the disk
# or what it costs that a day is on the disk when the run ends, a file system of its own for FOLDER provided:
#   (a) that update with every flush left out
#   (b) the same update of the same files
#
#   bench/web.sh [update|populate|flush] [FOLDER]
#
# The database and the market's prices are made in FOLDER (default: a folder under /var/tmp) unless they are
# there already; update takes 1.3 GB. Every round is a day of its own, up to five (ROUNDS), and runs (a) and
# then (b), every other time (b) and then (a) where both are updates; the shortest times count. Exit status 1 when (b)
# takes more than 2 times (a), populating more than 1.5 times, flushing more than 1.3 times, or more than 300 MB.
set -euo pipefail

work=${1:-update}
folder=${2:-/var/tmp/brantlow-bench-${work/flush/update}}
rounds=${ROUNDS:-5}
programs=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build/release/bin
source "$(dirname "${BASH_SOURCE[0]}")/market.sh"
most_megabytes=300
first_day=2026-06-08  # a Monday

case $work in
  update) size=(--tickers 17999 --years 1) most_ratio=2 addresses=() baseline=curl ;;
  populate) size=(--tickers 500 --years 6) most_ratio=1.5 addresses=(--years 5) baseline=curl ;;
  flush) size=(--tickers 17999 --years 1) most_ratio=1.3 baseline=unflushed ;;
  *) echo "web.sh: $work is neither update, populate nor flush" >&2; exit 2 ;;
esac
((rounds >= 1 && rounds <= 5)) || { echo "web.sh: ROUNDS is 1 to 5" >&2; exit 2; }
for program in make_database timed_run append_lines web_addresses brantlow-batch brantlow-market; do
  [[ -x $programs/$program ]] || { echo "web.sh: build $program first (./test)" >&2; exit 2; }
done

if [[ ! -f $folder/Data/Bench.ddq ]]; then
  echo "Making the database in $folder"
  "$programs/make_database" "$folder" "${size[@]}" --today "$first_day" --market "$folder/market"
fi

list=$(mktemp)
times=$(mktemp)
stop() {
  stop_market
  rm -f "$list" "$times"
}
trap stop EXIT

fetch_all() { "$programs/timed_run" curl --silent --fail --noproxy '*' --config "$list" 2>&1; }
run_program() {
  local command=(update Bench.ddq)
  [[ $work != populate ]] || command=(populate Bench.ddq --years 5)
  "$programs/timed_run" "$programs/brantlow-batch" --app "$folder" --today "$1" "${command[@]}" 2>&1 > /dev/null |
    tail -n 1
}

# The web alone, and then the program.
compare_with_curl() {
  "$programs/web_addresses" "$folder" --today "$1" "${addresses[@]}" |
    sed 's/.*/url = "&"\noutput = "\/dev\/null"/' > "$list"
  echo "curl $(fetch_all)"
  echo "$work $(run_program "$1")"
  if [[ $work == update ]]; then
    find "$folder/Quotes/EOD" -name "*.${1:2:2}" | sort | "$programs/append_lines" |
      awk '{ print (NR == 1 ? "append" : "flush"), $0, 0 }'
  fi
}

# Updates of the same files, which lie on the disk before each of them.
kept=$folder/kept
restore() {
  rm -rf "$folder/Quotes" "$folder/Data"
  cp -a "$kept/Quotes" "$kept/Data" "$folder/"
  cp "$1" "$folder/Data/Hosts.ini"
  sync -f "$folder"
}
compare_flushes() {
  cp "$folder/Data/Hosts.ini" "$list"
  local flush order=(unflushed flush)
  (($2 % 2 == 0)) || order=(flush unflushed)
  for flush in "${order[@]}"; do
    restore "$list"
    local module=
    [[ $flush == flush ]] || module=$programs/no-flush.so
    echo "$flush $(LD_PRELOAD=$module run_program "$1")"
  done
  restore "$list"
}
if [[ $work == flush && ! -d $kept ]]; then
  mkdir "$kept"
  cp -a "$folder/Quotes" "$folder/Data" "$kept/"
fi

for ((round = 0; round < rounds; round++)); do
  today=$(date -d "$first_day + $round days" +%F)
  start_market "$folder/market" "$today" "$folder/Data/Hosts.ini"
  if [[ $work == flush ]]; then compare_flushes "$today" "$round"; else compare_with_curl "$today"; fi
done > "$times"
awk -v work="$work" -v baseline="$baseline" -v most_ratio="$most_ratio" -v most_megabytes="$most_megabytes" '
  NF != 4 { print "unexpected: " $0; failed = 1; next }
  { printf "  %-9s %6.2f s  %6.2f s of processor  %4d MB\n", $1, $2, $3, $4 }
  !($1 in best) || $2 < best[$1] { best[$1] = $2 }
  $4 > peak[$1] { peak[$1] = $4 }
  END {
    if (failed || !best[baseline]) exit 1
    ratio = best[work] / best[baseline]
    if (best["append"]) {
      alone = best[baseline] + best["append"]
      printf "  (a) and (c) alone are %.2f times (a), with the flush %.2f times\n",
             alone / best[baseline], (alone + best["flush"]) / best[baseline]
    }
    printf "  (b) / (a)  %6.2f (goal: at most %g, below %d MB)\n", ratio, most_ratio, most_megabytes
    exit ratio > most_ratio || peak[work] > most_megabytes
  }' "$times"
