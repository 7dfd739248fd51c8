#!/usr/bin/env bash
# Tests that tools/tour.sh leaves a folder alone that holds anything but an earlier tour.
#
#   tour_test.sh TOUR
set -euo pipefail
tour=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

mkdir -p "$scratch/app/Data"
echo "T1" > "$scratch/app/Data/Mine.ddq"
cp "$scratch/app/Data/Mine.ddq" "$scratch/page.png"
if output=$("$tour" "$scratch" 2>&1); then
  echo "FAILED: the tour started in a folder with files: $output"
  exit 1
fi
[[ $output == *"$scratch holds files that are not of a tour. Name a new or an empty folder."* ]] || {
  echo "FAILED: it said: $output"
  exit 1
}
[[ $(cat "$scratch/app/Data/Mine.ddq") == T1 && -e $scratch/page.png && ! -e $scratch/.brantlow-tour ]] || {
  echo "FAILED: the folder is not what it was"
  exit 1
}
echo "the tour leaves a user's folder alone"
