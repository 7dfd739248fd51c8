#!/usr/bin/env bash
# Builds a preset; ./run begins with the programs alone, ./test with everything. Nothing is installed, configured
# or compiled again that is there already. What happens goes to standard error.
#
#   tools/build.sh [programs|release]   release without a word
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=${1:-release}
build=build/$preset

# step WORDS COMMAND...: says what is done, and where it fails what to do.
step() {
  local words=$1
  shift
  "$@" >&2 && return
  echo "$words failed; the lines above say why. Mend that and call again; what is done already is kept." >&2
  exit 1
}

if [[ $preset == programs ]]; then tools/setup.sh programs; else tools/setup.sh; fi

cache=$build/CMakeCache.txt
if [[ -f $cache ]] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$cache"; then
  # The folder was moved or copied with its build in it.
  rm -rf "$build"
fi
if [[ ! -f $build/build.ninja ]]; then
  echo "Building Brantlow for the first time: [a/b] counts the steps." >&2
  step "Setting up the build" cmake --preset "$preset" --log-level=WARNING
fi
step "Building" cmake --build --preset "$preset"
