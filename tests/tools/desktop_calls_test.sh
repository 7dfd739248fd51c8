#!/usr/bin/env bash
# What the desktop program does as its command line asks, without a screen and against hosts that nobody serves: a
# table to open, --update, --select, and a --scheduled copy that hands the day's run over to the window that is open
# and ends with its status.
#
#   desktop_calls_test.sh BRANTLOW
set -euo pipefail
program=$1
source "$(dirname "${BASH_SOURCE[0]}")/desktop_scene.sh"

# make_folder DAILY SELECTOR: a folder with two tables; the words of lines 9 and 16 of the data settings. With the
# hour 00:00 a daily run is always due.
make_folder() {
  rm -rf "$BRANTLOW_HOME"
  mkdir -p "$BRANTLOW_HOME/Data"
  local name line
  for name in Mine Other; do
    printf 'Ticker Symbol\tLast Price\r\n%s\t1.000\r\n' "${name^^}" >"$BRANTLOW_HOME/Data/$name.ddq"
  done
  printf '"Mine.ddq"\r\n""\r\n""\r\n""\r\n' >"$BRANTLOW_HOME/Data/VTRMRUset.ini"
  for name in Vendor Quote History YahooBiz YahooScreen NasdaqMain; do
    printf '%sHost=http://127.0.0.1:9\r\n' "$name"
  done >"$BRANTLOW_HOME/Data/Hosts.ini"
  for line in '"Manually"' '""' '""' '""' '""' '""' '"Manual Save"' '"Manual Save"' "\"$1\"" '"00"' '"00"' '""' '""' \
    '""' '""' "\"$2\""; do
    printf '%s\r\n' "$line"
  done >"$BRANTLOW_HOME/Data/VTRDATAset.ini"
}
newest() { head -1 "$BRANTLOW_HOME/Data/VTRMRUset.ini" | tr -d '\r"'; }
told() { grep -q "$1" "$BRANTLOW_HOME/Data/Last Run.txt"; }

make_folder None Manual
start Other.ddq
close
[[ $(newest) == Other.ddq ]] || fail "FILE: the newest table is $(newest)"

make_folder None Manual
start --update
wait_for "the update's list" test -s "$BRANTLOW_HOME/Data/Last Run.txt"
close
told '^MINE: failed' || fail "--update: $(cat "$BRANTLOW_HOME/Data/Last Run.txt")"

make_folder None Automatic
start --select
wait_for "the selector's table" grep -q MINE "$BRANTLOW_HOME/Data/Evaluations.dbe"
close
[[ ! -e "$BRANTLOW_HOME/Data/Last Run.txt" ]] || fail "--select ran an update"

# Nobody serves the quotes: the day's run brings nothing, which is status 1, whoever waits for it.
make_folder EOD Manual
start
status=0
"$program" --scheduled >"$scratch/scheduled.txt" 2>&1 || status=$?
[[ $status -eq 1 ]] || fail "the scheduled copy ended with $status"
! grep -q "open already" "$scratch/scheduled.txt" || fail "the scheduled copy ran into the lock"
kill -0 "$open" || fail "the window is gone"
told '^MINE: failed' || fail "the window did not do the day's run"
close
echo "all checks of the command line passed"
