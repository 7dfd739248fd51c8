#!/usr/bin/env bash
# Builds the release preset of everything; ./run and ./test begin with it. Nothing is installed, configured or
# compiled again that is there already. What happens goes to standard error.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

tools/setup.sh

cache=build/release/CMakeCache.txt
if [[ -f $cache ]] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$cache"; then
  # The folder was moved or copied with its build in it.
  rm -rf build/release
fi
if [[ ! -f build/release/build.ninja ]]; then
  cmake --preset release >&2
fi
cmake --build --preset release >&2
