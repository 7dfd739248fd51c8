#!/usr/bin/env bash
# Times the check of the database against reading the same files, on a warm cache:
#   (a) `cat` of all year files to /dev/null
#   (b) `brantlow-batch check`
#
#   bench/check.sh [FOLDER]
#
# 17,999 tickers with four years, 2.9 GB; the database is made in FOLDER (default: a folder under /var/tmp)
# unless it is there already. Each of ROUNDS rounds (default 5) runs (a) and then (b); the shortest times count.
# Exit status 1 when (b) takes more than 3 times (a), or finds a fault in a database without any.
set -euo pipefail

folder=${1:-/var/tmp/brantlow-bench-daily}
rounds=${ROUNDS:-5}
programs=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build/release/bin
most_ratio=3
today=2026-12-31

for program in make_database timed_run brantlow-batch; do
  [[ -x $programs/$program ]] || { echo "check.sh: build $program first (./test)" >&2; exit 2; }
done
if [[ ! -f $folder/Data/Bench.ddq ]]; then
  echo "Making the database in $folder"
  "$programs/make_database" "$folder" --tickers 17999 --years 4 --today "$today"
fi

list=$(mktemp)
trap 'rm -f "$list"' EXIT
find "$folder/Quotes/EOD" -type f -print0 | sort -z > "$list"
xargs -0 -a "$list" cat > /dev/null  # warms the cache
"$programs/brantlow-batch" --app "$folder" --today "$today" check | tail -1

for ((round = 1; round <= rounds; round++)); do
  echo "cat $("$programs/timed_run" xargs -0 -a "$list" cat 2>&1 > /dev/null)"
  echo "check $("$programs/timed_run" "$programs/brantlow-batch" --app "$folder" --today "$today" check \
    2>&1 > /dev/null)"
done | awk -v most_ratio="$most_ratio" '
  !($1 in best) || $2 < best[$1] { best[$1] = $2 }
  !($1 in cpu) || $3 < cpu[$1] { cpu[$1] = $3 }
  $4 > peak[$1] { peak[$1] = $4 }
  END {
    if (!best["cat"] || !best["check"]) exit 1
    ratio = best["check"] / best["cat"]
    printf "  (a) cat    %6.2f s (%.2f s of processor)\n", best["cat"], cpu["cat"]
    printf "  (b) check  %6.2f s (%.2f s of processor), peak memory %d MB\n", best["check"], cpu["check"], peak["check"]
    printf "  (b) / (a)  %6.2f (goal: at most %d)\n", ratio, most_ratio
    exit ratio > most_ratio
  }'
