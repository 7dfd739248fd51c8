#!/usr/bin/env bash
# Builds the fuzz targets with libFuzzer and the address and undefined-behaviour sanitizers and runs each for a
# while, two at a time, from the seeds of fuzz/corpus and from what earlier runs found worth keeping.
#
#   tools/fuzz.sh [SECONDS] [TARGET...]   SECONDS for each target, 12 without it; all targets without names
#   tools/fuzz.sh check [TARGET...]       as .ci/run does it: the seeds alone, a fixed number of inputs from a fixed
#                                         start, so that the outcome is no matter of chance
#
# An input that crashes a target, takes ten seconds or a gigabyte is kept in build/fuzz/findings, its report beside
# it, and the script ends with 1. What was mended goes to fuzz/corpus, where every test run replays it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

amount=${1:-12}
shift || true
build=build/fuzz
limits=("-max_total_time=$amount")
# No target comes to the end of its time on a machine that is not very busy.
[[ $amount != check ]] || limits=(-seed=1 -runs=6000 -max_total_time=30)
[[ -f $build/build.ninja ]] || cmake --preset fuzz --log-level=WARNING >&2
cmake --build --preset fuzz >&2

targets=("$@")
if [[ ${#targets[@]} -eq 0 ]]; then
  for source in fuzz/*_fuzz.cpp; do targets+=("$(basename "$source" _fuzz.cpp)"); done
fi

# In memory, where flushing costs nothing.
scratch=$(mktemp -d -p /dev/shm 2>/dev/null || mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export TMPDIR=$scratch LC_ALL=C.UTF-8 TZ=UTC build amount limits_text="${limits[*]}"

# Runs one target and says how that went.
run_target() {
  local target=$1_fuzz report=$build/findings/$1.txt kept=$build/corpus/$1_fuzz
  [[ $amount != check ]] || kept=$TMPDIR/$target
  mkdir -p "$kept" "$build/findings"
  # shellcheck disable=SC2086
  if "$build/bin/$target" $limits_text -timeout=10 -rss_limit_mb=1024 -max_len=20000 \
    -artifact_prefix="$build/findings/$1-" "$kept" "fuzz/corpus/$target" 2>"$report"; then
    printf '%-16s %s\n' "$1" "$(grep -o 'Done [0-9]* runs in [0-9]* second(s)' "$report")"
    rm "$report"
    return
  fi
  printf '%-16s FAILED, see %s\n' "$1" "$report"
  # The sentence of a demand that does not hold stands right before the engine's own line.
  grep -m 1 -B 1 -E '^==[0-9]+==.*ERROR|runtime error' "$report" || tail -n 3 "$report"
  return 1
}
export -f run_target

printf '%s\n' "${targets[@]}" | xargs -P 2 -I '{}' bash -c 'run_target {}'
