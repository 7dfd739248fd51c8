#!/usr/bin/env bash
# Tests ./run in a folder of its own, with programs that write down how they were called in place of the real
# ones: what happens on the first call and later, with a display and without.
#
#   run_test.sh RUN
set -euo pipefail
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0

mkdir -p "$scratch/tools" "$scratch/build/programs/bin"
cp "$1" "$scratch/run"
cd "$scratch"

cat >tools/build.sh <<'END'
#!/usr/bin/env bash
echo "build $*" >>calls
END
cat >build/programs/bin/brantlow <<'END'
#!/usr/bin/env bash
echo "window $BRANTLOW_HOME" >>calls
END
# Practice makes the table and the settings; select saves an evaluation with five tickers.
cat >build/programs/bin/brantlow-batch <<'END'
#!/usr/bin/env bash
echo "batch $*" >>calls
[[ ! -e refuse ]] || { echo "refused" >&2; exit 1; }
case $3 in
  practice)
    mkdir -p app/Data
    printf 'Ticker Symbol\r\nKO\r\n' >app/Data/Practice.ddq
    printf '"Condition"\r\n"Buy"\r\n"A"\r\n"Value"\r\n""\r\n' >app/Data/VTRSELset.ini
    printf '"Condition"\r\n"Sell"\r\n"Value"\r\n""\r\n' >>app/Data/VTRSELset.ini
    printf '"Condition"\r\n"Hold"\r\n"Condition of A"\r\n"Value"\r\n""\r\n' >>app/Data/VTRSELset.ini
    ;;
  select)
    printf 'Ticker Symbol\tCondition 1\tCondition 2\tCondition 3\r\n' >app/Data/Evaluations.dbe
    printf 'KO\tBuy\t\t\r\nGE\t\t\tHold\r\nMMM\r\nT\tBuy\t\tHold\r\n' >>app/Data/Evaluations.dbe
    printf 'BRK.B\tBuy\t\t' >>app/Data/Evaluations.dbe
    echo "output of select"
    ;;
esac
END
cat >build/programs/bin/brantlow-market <<'END'
#!/usr/bin/env bash
echo "market $*" >>calls
echo "# practice market" >app/Data/Hosts.ini
[[ -e refuse ]] || echo "http://127.0.0.1:1"
END
: >build/programs/bin/brantlow-picture.so
chmod +x tools/build.sh build/programs/bin/*
unset DISPLAY WAYLAND_DISPLAY

expect() {
  if [[ $2 != "$3" ]]; then
    printf 'FAILED: %s\nexpected:\n%s\nfound:\n%s\n' "$1" "$2" "$3"
    failures=$((failures + 1))
  fi
}

# calls_of ENVIRONMENT...: runs ./run under it; $output and $calls tell what came of it.
calls_of() {
  rm -f calls
  status=0
  output=$(env "$@" ./run 2>/dev/null) || status=$?
  calls=$(cat calls)
}

market='market --with-parent --hosts app/Data/Hosts.ini'
calls_of LC_ALL=C
expect "the first call" "build programs
batch --app app practice
$market
batch --app app select Practice.ddq" "$calls"
expect "the hits" "
Stock Selector on Practice.ddq, daily: 5 tickers

              Verdict  Hits  Tickers
Condition 1   Buy         3  KO T BRK.B
Condition 2   Sell        0 
Condition 3   Hold        2  GE T

The result lies in app/Data/Evaluations.dbe" "$output"

echo "mine" >app/Data/Practice.ddq
echo "mine too" >app/Data/VTRDATAset.ini
calls_of LC_ALL=C
expect "a later call" "build programs
$market
batch --app app select Practice.ddq" "$calls"
expect "the user's table" "mine" "$(cat app/Data/Practice.ddq)"
expect "the user's settings" "mine too" "$(cat app/Data/VTRDATAset.ini)"

for display in DISPLAY=:7 WAYLAND_DISPLAY=wayland-0; do
  calls_of "$display" BRANTLOW_HOME=/elsewhere
  expect "with $display" "build programs
$market
window $scratch/app" "$calls"
done

echo '# newer' >>build/programs/bin/brantlow
calls_of DISPLAY=:7
expect "a newly built program" "$(cat build/programs/bin/brantlow)" "$(cat app/brantlow)"
before=$(stat -c %i%Y app/brantlow)
calls_of DISPLAY=:7
expect "a program that is in place" "$before" "$(stat -c %i%Y app/brantlow)"

echo "QuoteHost=https://mine" >app/Data/Hosts.ini
calls_of DISPLAY=:7
expect "a Hosts.ini of the user's own" $'build programs\n'"window $scratch/app" "$calls"
expect "what is in it" "QuoteHost=https://mine" "$(cat app/Data/Hosts.ini)"
rm app/Data/Hosts.ini
calls_of DISPLAY=:7
expect "a folder that was there, without hosts" $'build programs\n'"window $scratch/app" "$calls"

rm app/Data/Practice.ddq
touch refuse
calls_of DISPLAY=:7
expect "a refused practice table and a window" $'build programs\nbatch --app app practice\n'"window $scratch/app" "$calls"
calls_of LC_ALL=C
expect "a refused practice table and no window" $'build programs\nbatch --app app practice' "$calls"
expect "its exit status" 1 "$status"

echo "# practice market" >app/Data/Hosts.ini
calls_of DISPLAY=:7
expect "a market that does not start" "build programs
batch --app app practice
$market
window $scratch/app" "$calls"

[[ $failures -eq 0 ]] || exit 1
echo "all checks of ./run passed"
