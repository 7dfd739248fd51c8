#!/usr/bin/env bash
# Checks that results do not hang on the machine: the engine is built by another compiler and for another
# processor, its tests pass there, and what the batch tool prints for the practice table is the same to the last
# byte as that of the ordinary build.
#
#   tools/same_digits.sh [quick] [clang] [plain] [arm64]
#
# quick: built as ./run does it, without tests. clang: built by clang. plain: the ordinary build on an emulated x86-64 processor without AVX. arm64: cross-built and
# run under emulation. Without a name all of them. Needs the programs and tests built (./test), and for the last two
# the packages qemu-user-static, g++-aarch64-linux-gnu and debootstrap. Exit status 1 where a digit differs or a
# test fails.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# shellcheck source=tools/scratch.sh
source tools/scratch.sh
work=$(new_scratch)
# Some tests look at their files as another user.
chmod 711 "$work"
mkdir -m 1777 "$work/files"
trap 'rm -rf "$work"' EXIT
sysroot=$PWD/build/arm64-root
day=2026-11-21
failed=0

# What the folder's tickers come to, by the program that the arguments start.
print_all() {
  local call=("$@" --app "$work/app" --today "$day") interval
  local tickers
  mapfile -t tickers < <(tail -n +2 "$work/app/Data/Practice.ddq" | cut -f1)
  for interval in daily weekly monthly; do
    "${call[@]}" indicators "${tickers[@]}" --interval "$interval"
    "${call[@]}" evaluate "${tickers[@]}" --interval "$interval"
    "${call[@]}" signals "${tickers[@]}" --interval "$interval"
  done
  "${call[@]}" study Practice.ddq --every-day --signals "$work/signals.csv"
  cat "$work/signals.csv"
  "${call[@]}" chart "${tickers[0]}" --series "MA 60,LR MINMAX CL,MLR 30 T.CL" --out -
}

# An emulation says of a program that is not there that it was started, and has it end at once.
emulation_lacks=RunSystemCommand.AMissingProgramIsNotStarted

# A share of the tests on each processor.
run_tests() {
  echo "$name: the engine's tests"
  local share shares running=()
  shares=$(nproc)
  for ((share = 0; share < shares; share++)); do
    LC_ALL=C.UTF-8 TZ=UTC TMPDIR=$work/files GTEST_TOTAL_SHARDS=$shares GTEST_SHARD_INDEX=$share \
      "$@" --gtest_brief=1 --gtest_filter="-$left_out" > "$work/tests$share.txt" 2>&1 &
    running+=($!)
  done
  for ((share = 0; share < shares; share++)); do
    if ! wait "${running[share]}"; then
      tail -n 30 "$work/tests$share.txt"
      failed=1
    fi
    tail -n 2 "$work/tests$share.txt"
  done
}

# NAME PROGRAM TESTS COMMAND...: runs the engine's tests, unless TESTS is empty, and compares what the program
# prints. The command starts both, where they need one.
compare() {
  local name=$1 runner=() program tests left_out=
  [[ $name != arm64 && $name != plain ]] || left_out=$emulation_lacks
  shift
  program=$1
  tests=$2
  shift 2
  runner=("$@")
  [[ -z $tests ]] || run_tests "${runner[@]}" "$tests"
  print_all "${runner[@]}" "$program" > "$work/$name.txt"
  if cmp "$work/ordinary.txt" "$work/$name.txt"; then
    echo "$name: $(stat -c %s "$work/$name.txt") bytes of results, all the same"
  else
    failed=1
  fi
}

# The libraries for arm64, unpacked and not installed.
make_sysroot() {
  [[ ! -e $sysroot/complete ]] || return 0
  rm -rf "$sysroot"
  debootstrap --arch=arm64 --foreign --variant=minbase \
    --include=libarchive-dev,libc6-dev,libcli11-dev,libcpp-httplib-dev,libcurl4-openssl-dev,libfmt-dev,libgmock-dev,libgtest-dev,libgumbo-dev,libssl-dev,libstdc++-12-dev,nlohmann-json3-dev \
    bookworm "$sysroot"
  local package
  for package in "$sysroot"/var/cache/apt/archives/*.deb; do dpkg -x "$package" "$sysroot"; done
  touch "$sysroot/complete"
}

build() {
  cmake --preset "$1" > "$work/build.txt" || { cat "$work/build.txt"; exit 1; }
  cmake --build --preset "$1"
}

[[ $# -gt 0 ]] || set -- quick clang plain arm64
mkdir "$work/app"
build/release/bin/brantlow-batch --app "$work/app" --today "$day" practice > "$work/practice.txt"
print_all build/release/bin/brantlow-batch > "$work/ordinary.txt"
for name in "$@"; do
  case $name in
    quick)
      build programs
      compare quick build/programs/bin/brantlow-batch ''
      ;;
    clang)
      build engine-clang
      compare clang build/engine-clang/bin/brantlow-batch build/engine-clang/bin/engine_tests
      ;;
    plain)
      compare plain build/release/bin/brantlow-batch build/release/bin/engine_tests qemu-x86_64-static -cpu Nehalem
      ;;
    arm64)
      make_sysroot
      BRANTLOW_SYSROOT=$sysroot build engine-arm64
      compare arm64 build/engine-arm64/bin/brantlow-batch build/engine-arm64/bin/engine_tests \
        qemu-aarch64-static -L "$sysroot"
      ;;
    *)
      echo "same_digits.sh: '$name' is none of quick, clang, plain, arm64" >&2
      exit 2
      ;;
  esac
done
exit "$failed"
