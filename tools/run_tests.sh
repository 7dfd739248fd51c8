#!/usr/bin/env bash
# Runs the tests of a preset that is built, without a screen and without touching the user's own settings. A test
# that leaves a folder of its own behind has failed too.
#
#   tools/run_tests.sh PRESET [OPTION...]   OPTION: what ctest takes, as -R PATTERN
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=$1
shift

# shellcheck source=tools/scratch.sh
source tools/scratch.sh
scratch=$(new_scratch)
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
