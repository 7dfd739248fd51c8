#!/usr/bin/env bash
# Builds the fuzz targets with libFuzzer and the address and undefined-behaviour sanitizers and runs each for a
# while, two at a time, from the seeds of fuzz/corpus and from what earlier runs found worth keeping.
#
#   tools/fuzz.sh [SECONDS] [TARGET...]   SECONDS for each target, 12 without it; all targets without names
#   tools/fuzz.sh check [TARGET...]       as .ci/run does it, about a minute on two idle processors: the seeds alone
#                                         and a fixed number of inputs from a fixed start, so that the outcome is no
#                                         matter of chance
#   tools/fuzz.sh build                   builds them alone
#
# An input that crashes a target, takes ten seconds or a gigabyte is kept in build/fuzz/findings, its report beside
# it, and the script ends with 1. What was mended goes to fuzz/corpus, where every test run replays it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

amount=${1:-12}
shift || true
build=build/fuzz
# The inputs of a check: each target has about the same share of its minute.
declare -A inputs=(
  [archive]=80000 [change_list]=120000 [fundamentals]=15000 [history_reply]=115000 [hosts]=40000 [import]=5000
  [live_reply]=75000 [quote_reply]=40000 [settings]=11000 [source_definition]=70000 [split_page]=230000 [table]=7000
  [year_file]=2400
)
[[ -f $build/build.ninja ]] || cmake --preset fuzz --log-level=WARNING >&2
cmake --build --preset fuzz >&2
[[ $amount != build ]] || exit 0

targets=("$@")
if [[ ${#targets[@]} -eq 0 ]]; then
  for source in fuzz/*_fuzz.cpp; do targets+=("$(basename "$source" _fuzz.cpp)"); done
fi

# In memory, where flushing costs nothing.
scratch=$(mktemp -d -p /dev/shm 2>/dev/null || mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export TMPDIR=$scratch LC_ALL=C.UTF-8 TZ=UTC build amount

# Runs one target, in a check so many inputs, and says how that went.
run_target() {
  local target=$1_fuzz report=$build/findings/$1.txt kept=$build/corpus/$1_fuzz limits=("-max_total_time=$amount")
  if [[ $amount == check ]]; then
    kept=$TMPDIR/$target
    limits=(-seed=1 "-runs=$2")
  fi
  mkdir -p "$kept" "$build/findings"
  if "$build/bin/$target" "${limits[@]}" -timeout=10 -rss_limit_mb=1024 -max_len=20000 \
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

for target in "${targets[@]}"; do echo "$target ${inputs[$target]:-6000}"; done |
  xargs -P 2 -L 1 bash -c 'run_target "$@"' run_target
