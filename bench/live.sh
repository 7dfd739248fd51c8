#!/usr/bin/env bash
# Times an update of 8,000 tickers by one day of the whole market (12,500 rows in one reply) against the update
# of the same tickers from the standard source (534 requests), a practice market on the loopback:
#   (a) `brantlow-batch update`
#   (b) `brantlow-batch update --source massive`
#
#   bench/live.sh [FOLDER]
#
# Two databases with a year of each ticker and the market's prices are made in FOLDER (default: a folder under
# /var/tmp), 1.2 GB. Every round is a day of its own, up to five (ROUNDS), and runs (a) on the one and (b) on the
# other; the shortest times count. Exit status 1 when (b) takes more than 2 times (a), or more than 300 MB, or
# when the days that they stored differ.
set -euo pipefail

folder=${1:-/var/tmp/brantlow-bench-live}
rounds=${ROUNDS:-5}
programs=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build/release/bin
source "$(dirname "${BASH_SOURCE[0]}")/market.sh"
most_ratio=2
most_megabytes=300
market_rows=12500
tickers=8000
first_day=2026-06-08  # a Monday
export BRANTLOW_KEY_MASSIVE=practice

((rounds >= 1 && rounds <= 5)) || { echo "live.sh: ROUNDS is 1 to 5" >&2; exit 2; }
for program in make_database timed_run brantlow-batch brantlow-market; do
  [[ -x $programs/$program ]] || { echo "live.sh: build $program first (./test)" >&2; exit 2; }
done

# The days that are stored are those of this run.
rm -rf "$folder"
echo "Making two databases in $folder"
"$programs/make_database" "$folder/standard" --tickers $market_rows --years 1 --today "$first_day" \
  --market "$folder/market"
head -n $((tickers + 1)) "$folder/standard/Data/Bench.ddq" > "$folder/table"
mv "$folder/table" "$folder/standard/Data/Bench.ddq"
cp -r "$folder/standard" "$folder/live"

times=$(mktemp)
stop() {
  stop_market
  rm -rf "$times" "$folder"
}
trap stop EXIT

# The session is over.
update() {
  local app=$1 today=$2
  shift 2
  "$programs/timed_run" "$programs/brantlow-batch" --app "$app" --today "$today" --time 23:30 update Bench.ddq "$@" \
    2>&1 > /dev/null | tail -n 1
}

for ((round = 0; round < rounds; round++)); do
  today=$(date -d "$first_day + $round days" +%F)
  start_market "$folder/market" "$today" "$folder/standard/Data/Hosts.ini"
  cp "$folder/standard/Data/Hosts.ini" "$folder/live/Data/Hosts.ini"
  echo "standard $(update "$folder/standard" "$today")"
  echo "live $(update "$folder/live" "$today" --source massive)"
done > "$times"

newest=$(tail -q -n 1 "$folder"/{standard,live}/Quotes/EOD/T00001.26 | cut -c2-9 | sort -u)
[[ $newest == "$(date -d "$today" +%m/%d/%y)" ]] || { echo "the newest day is not stored: $newest"; exit 1; }
# Date, close, low, high and volume: the standard source tells more.
days_of() { (cd "$1/Quotes/EOD" && tail -q -n "$rounds" T0*.26 | cut -d, -f1,3-6 | cksum); }
[[ $(days_of "$folder/standard") == "$(days_of "$folder/live")" ]] || { echo "the stored days differ"; exit 1; }

awk -v most_ratio="$most_ratio" -v most_megabytes="$most_megabytes" '
  NF != 4 { print "unexpected: " $0; failed = 1; next }
  { printf "  %-8s %6.2f s  %6.2f s of processor  %4d MB\n", $1, $2, $3, $4 }
  !($1 in best) || $2 < best[$1] { best[$1] = $2 }
  $4 > peak[$1] { peak[$1] = $4 }
  END {
    if (failed || !best["standard"]) exit 1
    ratio = best["live"] / best["standard"]
    printf "  (b) / (a) %6.2f (goal: at most %d, below %d MB)\n", ratio, most_ratio, most_megabytes
    exit ratio > most_ratio || peak["live"] > most_megabytes
  }' "$times"
