#!/usr/bin/env bash
# Times the study of the ten shipped conditions, one year of daily bars, over all tickers:
#   (a) `brantlow-batch select`, one day; times the evaluated days that is the naive way
#   (b) `brantlow-batch study`
#   (c) three simple conditions in pandas, where python3-pandas is installed
#
#   bench/study.sh [FOLDER]
#
# 17,999 tickers with four years, as bench/select.sh makes them in FOLDER (default: a folder under /var/tmp).
# Exit status 1 when (b) takes 60 s or more, or 600 MB or more.
set -euo pipefail

folder=${1:-/var/tmp/brantlow-bench-daily}
programs=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build/release/bin
most_seconds=60
most_megabytes=600
today=2026-12-31

for program in make_database timed_run brantlow-batch; do
  [[ -x $programs/$program ]] || { echo "study.sh: build $program first (./test)" >&2; exit 2; }
done
if [[ ! -f $folder/Data/Bench.ddq ]]; then
  echo "Making the database in $folder"
  "$programs/make_database" "$folder" --tickers 17999 --years 4 --today "$today"
fi
find "$folder/Quotes/EOD" -type f -print0 | xargs -0 cat > /dev/null  # warms the cache

timed() { "$programs/timed_run" "$@" 2>&1 > /dev/null; }
batch() { timed "$programs/brantlow-batch" --app "$folder" --today "$today" "$@"; }

read -r select_clock select_cpu select_peak <<< "$(batch select Bench.ddq)"
found=$(mktemp)
trap 'rm -f "$found"' EXIT
read -r clock cpu peak <<< "$("$programs/timed_run" "$programs/brantlow-batch" --app "$folder" --today "$today" \
  study Bench.ddq --from 2026-01-15 2>&1 > "$found")"
days=$(sed 's/.*"evaluated":\([0-9]*\).*/\1/' "$found")
echo "study: $days evaluated days of tickers"
printf '  (a) select  %7.2f s (%.2f s of processor), %d MB; such a run a day would take %.0f s of processor\n' \
  "$select_clock" "$select_cpu" "$select_peak" "$(awk -v cpu="$select_cpu" -v days="$days" 'BEGIN { print cpu * days / 17999 }')"
printf '  (b) study   %7.2f s (%.2f s of processor), %d MB (goal: below %d s, below %d MB)\n' \
  "$clock" "$cpu" "$peak" "$most_seconds" "$most_megabytes"
python=$(for p in python3 /usr/bin/python3; do "$p" -c "import pandas" 2> /dev/null && echo "$p" && break; done || true)
if [[ -n $python ]]; then
  read -r pandas_clock pandas_cpu pandas_peak <<< "$(timed "$python" "$(dirname "${BASH_SOURCE[0]}")/study_pandas.py" "$folder/Quotes/EOD")"
  printf '  (c) pandas  %7.2f s (%.2f s of processor), %d MB, three conditions of two averages each\n' \
    "$pandas_clock" "$pandas_cpu" "$pandas_peak"
else
  echo "  (c) pandas  not measured: python3-pandas is not installed"
fi
awk -v clock="$clock" -v peak="$peak" -v s="$most_seconds" -v m="$most_megabytes" \
  'BEGIN { exit clock >= s || peak >= m }'
