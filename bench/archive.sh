#!/usr/bin/env bash
# Times the import of a downloaded archive of 8,000 tickers with 20 years each against `cat` of the unpacked
# files. Before each of them its files are taken out of the system's cache, so that both wait for the disk:
#   (a) `cat` of the unpacked files to /dev/null
#   (b) `read_archive` of the archive: every file unpacked, read and checked
#   (c) `read_archive` of the unpacked files
#   (d) `brantlow-batch import-history` of the archive: (b), the year files, the flush to the disk
#
#   bench/archive.sh [FOLDER]
#
# The archive is made in FOLDER (default: a folder under /var/tmp) unless it is there already: 3.2 GB, and 3 GB
# more for the database, which goes again. ROUNDS (default 3) rounds, the shortest times count; (d) runs once.
# Exit status 1 when (b) or (c) takes more than 3 times (a), or (d) more than 300 MB.
set -euo pipefail

folder=${1:-/var/tmp/brantlow-bench-archive}
rounds=${ROUNDS:-3}
tickers=${TICKERS:-8000}
programs=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build/release/bin
most_ratio=3
most_megabytes=300
today=2026-11-20

for program in make_archive read_archive forget_files timed_run brantlow-batch; do
  [[ -x $programs/$program ]] || { echo "archive.sh: build $program first (./test)" >&2; exit 2; }
done
if [[ ! -f $folder/us.zip ]]; then
  echo "Making the archive in $folder"
  "$programs/make_archive" "$folder" --tickers "$tickers" --today "$today"
fi

list=$(mktemp)
app=$folder/app
trap 'rm -rf "$list" "$app"' EXIT
find "$folder/unpacked" -type f | sort > "$list"
forget() { { cat "$list"; echo "$folder/us.zip"; } | "$programs/forget_files"; }
timed() { "$programs/timed_run" "$@" 2>&1 > /dev/null | tail -n 1; }

import() {
  rm -rf "$app"
  mkdir -p "$app/Data" "$app/Quotes/EOD"
  "$programs/timed_run" "$programs/brantlow-batch" --app "$app" --today "$today" import-history "$folder/us.zip" \
    2>&1 > /dev/null | tail -n 1
}

{
  for ((round = 1; round <= rounds; round++)); do
    forget; echo "cat $(timed xargs -a "$list" cat)"
    forget; echo "archive $(timed "$programs/read_archive" "$folder/us.zip")"
    forget; echo "folder $(timed "$programs/read_archive" "$folder/unpacked")"
  done
  forget; echo "import $(import)"
} | awk -v most_ratio="$most_ratio" -v most_megabytes="$most_megabytes" '
  NF != 4 { print "unexpected: " $0; failed = 1; next }
  !($1 in best) || $2 < best[$1] { best[$1] = $2 }
  !($1 in cpu) || $3 < cpu[$1] { cpu[$1] = $3 }
  $4 > peak[$1] { peak[$1] = $4 }
  END {
    if (failed || !best["cat"]) exit 1
    split("cat archive folder import", names)
    for (i = 1; i <= 4; i++) {
      name = names[i]
      printf "  (%c) %-8s %7.2f s (%.2f s of processor), %4d MB, %.2f of (a)\n", 96 + i, name, best[name], cpu[name],
        peak[name], best[name] / best["cat"]
    }
    printf "  (goal: (b) and (c) at most %d times (a); (d) below %d MB)\n", most_ratio, most_megabytes
    exit best["archive"] > most_ratio * best["cat"] || best["folder"] > most_ratio * best["cat"] ||
      peak["import"] > most_megabytes
  }'
