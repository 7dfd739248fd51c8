#!/usr/bin/env bash
# Calls the batch program itself: exit statuses, where its output goes, --help.
#
#   program_test.sh PROGRAM
set -euo pipefail
program=$1
app=$(mktemp -d)
trap 'rm -rf "$app"' EXIT
failures=0

# expect STATUS OUT-PATTERN ERR-PATTERN ARGUMENT...: patterns are extended expressions over the whole output;
# "" stands for no output at all.
expect() {
  local status=0 wanted=$1 out=$2 err=$3
  shift 3
  "$program" --app "$app/folder" "$@" >"$app/out" 2>"$app/err" || status=$?
  if [[ $status != "$wanted" ]] || ! fits "$out" "$app/out" || ! fits "$err" "$app/err"; then
    printf 'FAILED: %s\nstatus %s, wanted %s\n' "$*" "$status" "$wanted"
    head -c 500 "$app/out" "$app/err"
    failures=$((failures + 1))
  fi
}

fits() {
  if [[ -z $1 ]]; then [[ ! -s $2 ]]; else grep -Eqz -- "$1" "$2"; fi
}

expect 0 '^Usage: brantlow-batch .*Commands:.*practice.*settings' '' --help
expect 0 '^Usage: brantlow-batch practice' '' practice --help
expect 2 '' '^--app: .* is no folder' settings
expect 0 '^Saved: Practice.ddq' '' --today 2026-11-21 practice
expect 1 '' '^The application folder already holds' --today 2026-11-21 practice
expect 0 '^\{"ColumnSettings":\[' '' settings
expect 1 '' '^none.ini: no such file in Data' settings none.ini
expect 0 '^Hit 52 Week Low' '' catalogue
expect 0 '^Saved: Evaluations.dbe' '' --today 2026-11-21 select Practice.ddq
expect 1 '' '^To run Stock Selector, you will need to open an End of Day Quote File' select Evaluations.dbe
expect 1 '' '^None.ddq: no such file in Data' select None.ddq
expect 2 '' '^--interval: ' select Practice.ddq --interval hourly
expect 0 '^\{"ticker":"SPX","interval":"weekly","BarCount":279,' '' --today 2026-11-21 series SPX --interval weekly
expect 2 '' '^fly: no such command' fly
expect 2 '' '^--today: .never. is no day' --today never settings

# Output that cannot be written is no success.
status=0
"$program" --app "$app/folder" settings >/dev/full 2>"$app/err" || status=$?
if [[ $status != 1 ]] || ! fits '^standard output could not be written' "$app/err"; then
  echo "FAILED: a full disk behind standard output: status $status"
  failures=$((failures + 1))
fi

# Ctrl-C in the midst of a long run: it stops at the next ticker, and the table is whole.
data=$app/folder/Data
awk 'NR == 1 { print; next } { row[++n] = $0 }
  END { for (i = 0; i < 17999; i++) print row[i % n + 1] }' "$data/Practice.ddq" >"$data/Long.ddq"
rm "$data/Evaluations.dbe"
# A shell starts its background jobs deaf to Ctrl-C; a job of its own group is not.
set -m
"$program" --app "$app/folder" --today 2026-11-21 select Long.ddq --interval weekly >"$app/out" 2>"$app/err" &
set +m
until grep -qs "\b$!\b" "$app/folder/Brantlow.lock"; do sleep 0.05; done
kill -INT $!
status=0
wait $! || status=$?
if [[ $status != 130 ]] || ! fits '^Saved: Evaluations.dbe.Tickers: [0-9]+ of 17999' "$app/out" ||
  [[ -s $app/err || $(wc -l <"$data/Evaluations.dbe") != 18000 ]]; then
  echo "FAILED: Ctrl-C: status $status"
  head -c 500 "$app/out" "$app/err"
  failures=$((failures + 1))
fi

exit $((failures > 0))
