#!/usr/bin/env bash
# Times the selector run against reading the same files:
#   (a) `cat` of all year files to /dev/null
#   (b) `brantlow-batch select` over all tickers
#
#   bench/select.sh [daily|cold|weekly] [FOLDER]
#
# daily: 17,999 tickers with four years, on a warm cache; cold: the same database, what the files hold taken out
# of the cache before (a) and before (b); weekly: 2,000 tickers with 21 years, warm. The database is made in
# FOLDER (default: a folder under /var/tmp) unless it is there already; daily takes 2.9 GB, weekly 1.8 GB. Each
# of ROUNDS rounds (default 5) runs (a) and then (b); the shortest times count. Exit status 1 when (b) takes more
# than 0.6 times (a), weekly 3 times, or more than 400 MB.
set -euo pipefail

interval=${1:-daily}
folder=${2:-/var/tmp/brantlow-bench-${interval/cold/daily}}
rounds=${ROUNDS:-5}
programs=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build/release/bin
most_megabytes=400
today=2026-12-31

case $interval in
  daily | cold) size=(--tickers 17999 --years 4) most_ratio=0.6 ;;
  weekly) size=(--tickers 2000 --years 21) most_ratio=3 ;;
  *) echo "select.sh: $interval is neither daily, cold nor weekly" >&2; exit 2 ;;
esac
for program in make_database timed_run brantlow-batch forget_files; do
  [[ -x $programs/$program ]] || { echo "select.sh: build $program first (./test)" >&2; exit 2; }
done

if [[ ! -f $folder/Data/Bench.ddq ]]; then
  echo "Making the database in $folder"
  "$programs/make_database" "$folder" "${size[@]}" --today "$today"
fi

list=$(mktemp)
trap 'rm -f "$list"' EXIT
find "$folder/Quotes/EOD" -type f -print0 | sort -z > "$list"
files=$(tr -cd '\0' < "$list" | wc -c)
bytes=$(xargs -0 -a "$list" cat | wc -c)  # warms the cache

# Before a run: on a cold cache it finds nothing of the year files there.
prepare() { [[ $interval != cold ]] || tr '\0' '\n' < "$list" | "$programs/forget_files"; }
read_all() { "$programs/timed_run" xargs -0 -a "$list" cat 2>&1 > /dev/null; }
select_all() {
  "$programs/timed_run" "$programs/brantlow-batch" --app "$folder" --today "$today" \
    select Bench.ddq --interval "${interval/cold/daily}" 2>&1 > /dev/null
}

for ((round = 1; round <= rounds; round++)); do
  prepare
  echo "cat $(read_all)"
  prepare
  echo "select $(select_all)"
done | awk -v files="$files" -v bytes="$bytes" -v interval="$interval" \
  -v most_ratio="$most_ratio" -v most_megabytes="$most_megabytes" '
  NF != 4 { print "unexpected: " $0; failed = 1; next }
  { printf "  %-7s %6.2f s  %6.2f s of processor  %4d MB\n", $1, $2, $3, $4 }
  !($1 in best) || $2 < best[$1] { best[$1] = $2 }
  !($1 in cpu) || $3 < cpu[$1] { cpu[$1] = $3 }
  $4 > peak[$1] { peak[$1] = $4 }
  END {
    if (failed || !best["cat"]) exit 1
    ratio = best["select"] / best["cat"]
    printf "%s: %d files, %.0f MB\n", interval, files, bytes / 1e6
    printf "  (a) cat     %6.2f s (%.2f s of processor)\n", best["cat"], cpu["cat"]
    printf "  (b) select  %6.2f s (%.2f s of processor), peak memory %d MB\n", best["select"], cpu["select"], peak["select"]
    printf "  (b) / (a)   %6.2f (goal: at most %g, below %d MB)\n", ratio, most_ratio, most_megabytes
    exit ratio > most_ratio || peak["select"] >= most_megabytes
  }'
