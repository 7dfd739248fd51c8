#!/usr/bin/env bash
# Runs the tests of a preset that is built, without a screen and without touching the user's own settings. A test
# that leaves a folder of its own behind has failed too.
#
#   tools/run_tests.sh PRESET [OPTION...]   OPTION: what ctest takes, as -R PATTERN
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=$1
shift

# The tests flush thousands of small files: where the system's memory has a folder with room, and programs may be
# started from there, their files lie in it.
scratch_in_memory() {
  local folder room
  room=$(df --output=avail --block-size=M /dev/shm 2>/dev/null | tail -n 1 | tr -dc 0-9)
  ((${room:-0} >= 1024)) || return 1
  folder=$(mktemp -d -p /dev/shm 2>/dev/null) || return 1
  printf '#!/bin/sh\n' >"$folder/probe"
  chmod +x "$folder/probe"
  if "$folder/probe" 2>/dev/null; then echo "$folder"; else
    rm -rf "$folder"
    return 1
  fi
}
scratch=$(scratch_in_memory || mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir -m 700 "$scratch/runtime"
# Some tests look at their files as another user.
chmod 711 "$scratch"
mkdir -m 1777 "$scratch/files"

unset DISPLAY WAYLAND_DISPLAY BRANTLOW_HOME
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 TZ=UTC
export TMPDIR=$scratch/files
export XDG_RUNTIME_DIR=$scratch/runtime XDG_CONFIG_HOME=$scratch/config XDG_DATA_HOME=$scratch/data
# More tests at a time than there are processors: the long ones wait for windows, hosts and clocks most of the time.
ctest --preset "$preset" --parallel $(($(nproc) * 2)) --no-tests=error "$@"

left=$(find "$scratch/files" -mindepth 1 -maxdepth 1 -name 'brantlow-*')
[[ -z $left ]] || { printf 'Left behind by a test:\n%s\n' "$(find $left)" >&2; exit 1; }
