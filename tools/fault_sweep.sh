#!/usr/bin/env bash
# Disturbs every command of the batch tool at its file calls, one after another, and says what was not kept.
#
#   tools/fault_sweep.sh [COUNT] [PATTERN]   COUNT faults of each kind for each command, 0 (as without it) for
#                                            every call; PATTERN names the commands as the tests are named
#
# Needs what ./test builds.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

programs=$PWD/build/release/bin
export BRANTLOW_FAULTS=${1:-0} LC_ALL=C.UTF-8 TZ=UTC
exec "$programs/fault_tests" --gtest_filter="Commands/FaultSweep.*/${2:-*}"
