#!/usr/bin/env bash
# Makes the pictures of the help, assets/Help/pictures, anew: walks through the windows (tools/tour.sh) and cuts its
# pictures to what a page shows of them. Look at each before it is kept.
#
#   tools/help_pictures.sh [FOLDER]   FOLDER: where the tour works, or the tour of an earlier call to be cut again
#
# Needs what tools/tour.sh needs. The practice prices move on week by week, and so do the pictures' figures.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# Help pages are as wide as their window at its first size. More colours are not seen at this size.
most_width=720
colours=64
most_bytes=61440

# Picture, station of the tour, and the part of the window in front: as width, height and place, or all of it.
pictures=(
  'welcome welcome 700x380+162+160'
  'new-list new-list all'
  'table updated 720x400+0+0'
  'filter filter 720x260+0+0'
  'last-run last-run 620x260+0+0'
  'verdicts selected all'
  'explain explained all'
  'conditions selector-settings all'
  'study study all'
  'chart drawn all'
  'sources sources all'
  'alarms fired-alarms 800x220+0+0'
  'check check all'
)

folder=${1:-}
if [[ -z $folder ]]; then
  folder=$(mktemp -d)
  trap 'rm -rf "$folder"' EXIT
fi
[[ -d $folder/windows ]] || tools/tour.sh "$folder" 1024x768

target=assets/Help/pictures
mkdir -p "$target"
for row in "${pictures[@]}"; do
  read -r name station part <<< "$row"
  cut=()
  [[ $part == all ]] || cut=(-crop "$part" +repage)
  convert "$folder/windows/$station.png" "${cut[@]}" -resize "${most_width}x>" +dither -colors "$colours" -strip \
    -define png:compression-level=9 "PNG8:$target/$name.png"
  bytes=$(stat -c %s "$target/$name.png")
  echo "$name.png $(identify -format '%wx%h' "$target/$name.png") $bytes bytes"
  if ((bytes > most_bytes)); then
    echo "help_pictures.sh: $name.png is too large; show less of the window" >&2
    exit 1
  fi
done
