#!/usr/bin/env bash
# Disturbs every command of the batch tool at its file calls, one after another, and says what was not kept: a line
# a command, what was broken behind it, and the sum. Ends with 1 where something was not kept.
#
#   tools/fault_sweep.sh [COUNT] [PATTERN]   COUNT faults of each kind for each command, 0 (as without it) for
#                                            every call; PATTERN names the commands as the tests are named
#
# Needs what ./test builds.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

programs=$PWD/build/release/bin
export BRANTLOW_FAULTS=${1:-0} LC_ALL=C.UTF-8 TZ=UTC
report=$(mktemp)
trap 'rm -f "$report"' EXIT

status=0
"$programs/fault_tests" --gtest_filter="Commands/FaultSweep.*/${2:-*}" > "$report" || status=1
awk '
  /Failure$/ { breaches++ }
  /^rounds: / { rounds = $2; sum += $2 }
  /^\[ +(OK|FAILED) +\] Commands.*ms\)$/ {
    sub(/.*LeavesWholeFilesAndATrueSentence\//, ""); sub(/[ ,].*/, "")
    printf "%-20s %6d runs\n", $0, rounds; rounds = 0
  }
  /^\.\.\/|Failure$/ { shown = 1 }
  /^rounds: |^\[/ { shown = 0 }
  shown { print "    " $0 }
  END { printf "%d runs, %d breaches\n", sum, breaches }' "$report"
exit "$status"
