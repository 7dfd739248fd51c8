#!/usr/bin/env bash
# Starts the desktop program twice on one folder, without a screen: the second copy says that the first is open and
# fails, a scheduled one ends quietly, and a program that is told to end closes its windows in order.
#
#   second_copy_test.sh BRANTLOW
set -euo pipefail
program=$1
source "$(dirname "${BASH_SOURCE[0]}")/desktop_scene.sh"
mkdir -p "$BRANTLOW_HOME/Data"
printf 'Ticker Symbol\tLast Price\r\nKO\t1.000\r\n' >"$scratch/app/Data/Mine.ddq"
printf '"Mine.ddq"\r\n""\r\n""\r\n""\r\n' >"$scratch/app/Data/VTRMRUset.ini"
printf 'VendorHost=http://127.0.0.1:9\r\n' >"$scratch/app/Data/Hosts.ini"

# Without a screen and without a folder: what is asked of the program itself.
[[ $(QT_QPA_PLATFORM=none "$program" --version) =~ ^Brantlow\ [0-9]+\.[0-9]+\.[0-9]+$ ]] || fail "--version"
[[ $(QT_QPA_PLATFORM=none "$program" --help) == *--select* ]] || fail "--help"
status=0
"$program" --nothing 2>"$scratch/wrong.txt" || status=$?
[[ $status -eq 2 ]] || fail "a wrong call ended with $status"
grep -q -- "--nothing" "$scratch/wrong.txt" || fail "a wrong call is not named"

start

"$program" >"$scratch/second.txt" 2>&1 &
second=$!
wait_for "the second copy's sentence" grep -q \
  "^Brantlow is open already with the folder $scratch/app. Two copies would write over each other's files, so this one ends.$" \
  "$scratch/second.txt"
kill -0 "$second" || fail "the sentence is not shown until it is read"
kill -TERM "$second"
status=0
wait "$second" || status=$?
[[ $status -eq 1 ]] || fail "the second copy ended with $status"

status=0
"$program" --scheduled >"$scratch/scheduled.txt" 2>&1 || status=$?
[[ $status -eq 0 ]] || fail "the scheduled copy ended with $status"
! grep -q "open already" "$scratch/scheduled.txt" || fail "the scheduled copy spoke"

kill -0 "$open" || fail "the first copy is gone"
before=$(stat -c %i "$scratch/app/Data/VTRMRUset.ini")
close
[[ $(stat -c %i "$scratch/app/Data/VTRMRUset.ini") != "$before" ]] || fail "the list of recent files was not kept"
[[ -e $scratch/config/Brantlow.ini || -n $(find "$scratch/config" -type f) ]] || fail "the window's place was not kept"
[[ ! -e $scratch/app/Brantlow.lock ]] || fail "the folder is still locked"
echo "all checks of a second copy passed"
