#!/usr/bin/env bash
# Walks through the program on a screen of its own, from the first start to the exit, as a newcomer would, and
# writes a picture of every station: to be looked at by whoever changed a window.
#
#   tools/tour.sh FOLDER [WIDTHxHEIGHT] [light|dark] [PERCENT]
#   tools/tour.sh --all FOLDER
#
# Needs the programs built (./test) and the packages xvfb xauth openbox xdotool imagemagick. FOLDER is new, empty
# or of an earlier tour: what it holds is made anew. QT_SCALE_FACTOR=2 shows the program at twice the size, PERCENT
# that of the letters alone. --all makes tours of 1024 by 768, of 1400 by 950, of 3840 by 2160 at twice the size and
# of letters of 150 percent, each on a light and on a dark desktop, in folders of FOLDER.
set -euo pipefail

if [[ ${1:-} == --all ]]; then
  folder=${2:?tools/tour.sh --all FOLDER}
  for colours in light dark; do
    "$0" "$folder/1024x768-$colours" 1024x768 "$colours"
    "$0" "$folder/1400x950-$colours" 1400x950 "$colours"
    QT_SCALE_FACTOR=2 "$0" "$folder/3840x2160-$colours" 3840x2160 "$colours"
    "$0" "$folder/letters-$colours" 1024x768 "$colours" 150
  done
  exit
fi

if [[ -z ${BRANTLOW_TOUR_SCREEN:-} ]]; then
  folder=${1:?tools/tour.sh FOLDER [WIDTHxHEIGHT]}
  # What is deleted below is a tour's own: a folder with files of anyone else is left as it is.
  if [[ ! -e $folder/.brantlow-tour && -n $(ls -A "$folder" 2> /dev/null) ]]; then
    echo "tour.sh: $folder holds files that are not of a tour. Name a new or an empty folder." >&2
    exit 1
  fi
  mkdir -p "$folder"
  touch "$folder/.brantlow-tour"
  BRANTLOW_TOUR_SCREEN=${2:-1400x950} exec xvfb-run -a -s "-screen 0 ${2:-1400x950}x24 -nolisten tcp" \
    "$0" "$(realpath "$folder")" "${3:-light}" "${4:-100}"
fi

folder=$1
colours=$2
percent=$3
programs=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build/release/bin
rm -rf "$folder/app" "$folder/home" "$folder/windows" "$folder"/*.png
mkdir -p "$folder/home" "$folder/app" "$folder/windows"
export HOME=$folder/home XDG_CONFIG_HOME=$folder/home/config XDG_RUNTIME_DIR=$folder/home/runtime
mkdir -m 700 -p "$XDG_RUNTIME_DIR"
# The colours and letters of the desktop, as one of the usual desktops keeps them.
mkdir -p "$XDG_CONFIG_HOME"
points=$((9 * percent / 100)).$((9 * percent % 100 / 10))
{
  printf '[General]\nfont=Sans Serif,%s,-1,5,50,0,0,0,0,0\n' "$points"
  [[ $colours == light ]] || printf '%s\n' \
    '[Colors:Window]' BackgroundNormal=42,46,50 ForegroundNormal=236,238,240 \
    '[Colors:View]' BackgroundNormal=27,30,32 BackgroundAlternate=35,38,41 ForegroundNormal=236,238,240 \
    ForegroundLink=100,180,250 ForegroundVisited=190,150,230 \
    '[Colors:Button]' BackgroundNormal=49,54,59 ForegroundNormal=236,238,240 \
    '[Colors:Selection]' BackgroundNormal=61,130,190 ForegroundNormal=255,255,255 \
    '[Colors:Tooltip]' BackgroundNormal=49,54,59 ForegroundNormal=236,238,240
} > "$XDG_CONFIG_HOME/kdeglobals"
# The usual colours and letters are those of no desktop at all.
[[ $colours == light && $percent == 100 ]] || export XDG_CURRENT_DESKTOP=KDE KDE_SESSION_VERSION=5
# The sandbox of web pages does not start as root.
[[ $(id -u) -ne 0 ]] || export QTWEBENGINE_DISABLE_SANDBOX=1

started=()
stop() {
  for process in "${started[@]}"; do kill "$process" 2> /dev/null || true; done
}
trap stop EXIT

station=0
# Takes the picture of this station, and one of the window in front alone in windows/; the pause lets windows be
# drawn.
picture() {
  sleep "${2:-1}"
  station=$((station + 1))
  local file window
  file=$folder/$(printf '%02d' "$station")-$1.png
  import -window root "$file"
  window=$(xdotool getactivewindow 2> /dev/null || echo root)
  # A window that went meanwhile, as that of a short run, has no picture of its own.
  timeout 15 import -window "$window" "$folder/windows/$1.png" 2> /dev/null ||
    cp "$file" "$folder/windows/$1.png"
  echo "$file"
}
keys() { xdotool key --delay 60 "$@"; }
# Runs an entry of the menu by its words, from the palette of commands.
command_named() {
  keys ctrl+shift+p
  wait_for window_named '^Commands and Tickers$'
  xdotool type --delay 15 "$1"
  sleep 0.5
  keys Return
}
# Shows a window that an entry opens, and closes it.
window_of() {
  command_named "$2"
  picture "$1" "${3:-1.5}"
  keys Escape
  sleep 0.3
}
# Waits until the text of a status file of the application folder, or its absence, is as told.
wait_for() {
  local tries
  for ((tries = 0; tries < 240; tries++)); do
    if "$@" 2> /dev/null; then return; fi
    sleep 0.25
  done
  echo "tour.sh: waited too long for: $*" >&2
  exit 1
}
window_named() { xdotool search --onlyvisible --name "$1" > /dev/null; }
newer() { [[ $1 -nt $2 ]]; }
run_ended() { ! window_named 'Exit, Pause or Resume Process'; }

# ends PROGRAM: the program has left the screen.
ends() { wait_for bash -c "! kill -0 $1"; }
# Presses the mouse so far right of and below a corner of the window in front; a number below 0 counts from the
# right or from the bottom.
press() {
  local WINDOW WIDTH HEIGHT scale=${QT_SCALE_FACTOR:-1}
  eval "$(xdotool getactivewindow getwindowgeometry --shell | grep -E '^(WINDOW|WIDTH|HEIGHT)=')"
  xdotool mousemove --window "$WINDOW" \
    $((($1 < 0 ? WIDTH : 0) + $1 * scale)) $((($2 < 0 ? HEIGHT : 0) + $2 * scale)) click 1
}
start() {
  BRANTLOW_HOME=$folder/app "$programs/brantlow" &
  program=$!
  started+=("$program")
}

openbox > /dev/null 2>&1 &
started+=($!)

# The very first start: no table yet, and nobody to ask.
start
wait_for window_named '^Brantlow$'
picture splash 0
wait_for window_named '^Brantlow'
picture welcome 4
keys ctrl+shift+n
sleep 1
xdotool type --delay 20 'AAPL KO NFLX BRK.B'
picture new-list 1
keys Escape Escape
sleep 1
keys ctrl+q
ends "$program"

# All else is done with the practice table and market.
"$programs/brantlow-market" --hosts "$folder/app/Data/Hosts.ini" > "$folder/market.txt" &
started+=($!)
wait_for grep -q http "$folder/market.txt"
"$programs/brantlow-batch" --app "$folder/app" practice
"$programs/brantlow-batch" --app "$folder/app" alarm Practice.ddq AMD --high 1
"$programs/brantlow-batch" --app "$folder/app" alarm Practice.ddq NFLX --low 9999
start
wait_for window_named 'Practice.ddq'
picture start 2

command_named "Populate Database"
picture populate-asks 1
keys Return
picture populate-asks-again 1
# Cancel is the default of the question.
keys Left Return
picture populating 0.5
wait_for run_ended
picture populated 1

touch "$folder/mark"
keys F5
picture update-begins 0.3
wait_for newer "$folder/app/Quotes/EOD/QuoteList.ddq" "$folder/mark"
wait_for run_ended
picture updated 4
# The first field of the status bar tells what the run did.
press 60 -12
picture last-run 1
keys Escape
keys ctrl+shift+a
picture fired-alarms 1
keys Escape
keys ctrl+f
sleep 0.5
xdotool type --delay 20 'Change > 0 and Volume > 5M'
picture filter 1
keys Escape
keys F9
picture selector-asks 1
keys Return
wait_for newer "$folder/app/Data/Evaluations.dbe" "$folder/mark"
# A slow machine is still at its rows then.
wait_for run_ended
picture selected 3
keys ctrl+g
picture chart 2
keys ctrl+shift+g
picture candlesticks 2
# A trend line by keys: from a bar under the crosshair to one further left.
keys t
xdotool key --repeat 25 --delay 15 Left
keys Return
xdotool key --repeat 55 --delay 15 Left
keys Return
picture drawn 1
keys Escape
# From the list of price series on to the button behind the other lists and Draw.
keys alt+p Tab Tab Tab Tab space
picture back-test 1.5
keys Escape
command_named "Distinct Colours"
picture chart-distinct 1.5
command_named "Colours of the Desktop"
command_named "Fit Chart to Window"
picture chart-own-size 1.5
command_named "Fit Chart to Window"
keys Escape
# By the filter into the table, and there to the first cell of the third condition.
keys ctrl+f Return Home Right Right Right Return
picture explained 2
keys ctrl+w
picture table-closed 1
keys alt+2
picture table-again 1.5
keys ctrl+F9
picture study 5
keys ctrl+w
for station_of in 'palette:' 'new-market:New from a Market' 'import-history:Import History' 'sources:Quote Sources' \
  'alarm-mail:Alarm Mail' 'check:Check Database' 'delete-files:Delete File' 'split:Split Adjustment' 'keys:Keys' \
  'about:About' 'terms:Terms, Conditions'; do
  if [[ ${station_of#*:} == '' ]]; then
    keys ctrl+shift+p
    picture palette 1
    keys Escape
    continue
  fi
  window_of "${station_of%%:*}" "${station_of#*:}"
done
keys alt+e
picture edit-menu 1
keys Escape Escape
keys ctrl+comma
picture settings 2
for tab in 2 3 4 5; do
  keys ctrl+Tab
  picture "settings-$tab" 1
done
keys Escape
keys shift+F9
picture selector-settings 2
keys Escape
command_named "Setup Wizard"
picture wizard 1
keys Escape
keys F1
picture help 2
keys Escape
keys alt+v
picture view-menu 1
keys m
picture browser 5
keys ctrl+q
ends "$program"
echo "The tour ended."
