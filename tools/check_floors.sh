#!/usr/bin/env bash
# Checks how the rooms of the source lean on one another. A room is a folder with its windows: a file includes
# only from its own floor or below, no two rooms include one another, directly or in a circle, and only windows
# and the desktop program know the window toolkit.
#
#   tools/check_floors.sh [SOURCE_FOLDER]
#
# Prints each offence and exits 1 when there is one, or when there is nothing to check.
set -euo pipefail
cd "${1:-$(dirname "${BASH_SOURCE[0]}")/../src}"

# Ground first; a room that is not named here has no floor to stand on.
floors='base|shell/settings|shell|acquire/web store|indicators alerts acquire/schedule acquire/version practice'
floors+='|selector splits|chart acquire/feeds acquire/feeds/live acquire/feeds/archives research study|check daily screens|shell/frame|desktop batch market'

{
  find . -type f \( -name '*.h' -o -name '*.cpp' \) -printf 'file %P\n'
  grep -rE --include='*.h' --include='*.cpp' '^[[:space:]]*#[[:space:]]*include' . || true
} | awk -v floors="$floors" '
  function folder_of(path) {
    return path ~ /\// ? substr(path, 1, length(path) - length(base_of(path)) - 1) : "."
  }
  function base_of(path) {
    sub(/.*\//, "", path)
    return path
  }
  function room_of(path,    folder) {
    folder = folder_of(path)
    sub(/\/windows$/, "", folder)
    return folder
  }
  function floor_of(room) {
    return room in floor ? floor[room] : 0
  }
  function shows_windows(path) {
    return path ~ /\/windows\// || path ~ /^desktop\//
  }
  function complain(text) {
    print text
    offences++
  }
  function check_toolkit(file, target) {
    if (shows_windows(file)) return
    if (target ~ /^(Q[A-Z]|Qt[A-Za-z0-9]*(\/|$)|q[a-z]*\.h$)/)
      complain(file ": the engine includes no " target)
    if (shows_windows(target)) complain(file ": the engine includes no window, \"" target "\"")
  }
  function check_include(file, target,    from, to) {
    from = room_of(file)
    to = (target in known) ? room_of(target) : from
    if (!(target in known) && !((folder_of(file) "/" target) in known)) {
      complain(file ": includes \"" target "\", which is not in the source")
      return
    }
    if (floor_of(to) > floor_of(from)) complain(file ": includes \"" target "\" from a higher floor")
    if (to != from) edge[from, to] = file " includes \"" target "\""
  }
  # Takes away every room that includes nothing or is included by nothing, until only circles are left.
  function strip_to_circles(    key, part, out, in_, changed) {
    do {
      changed = 0
      split("", out)
      split("", in_)
      for (key in edge) {
        split(key, part, SUBSEP)
        out[part[1]] = 1
        in_[part[2]] = 1
      }
      for (key in edge) {
        split(key, part, SUBSEP)
        if (!(part[2] in out) || !(part[1] in in_)) {
          delete edge[key]
          changed = 1
        }
      }
    } while (changed)
  }
  BEGIN {
    count = split(floors, level, "|")
    for (i = 1; i <= count; i++) {
      rooms = split(level[i], room, " ")
      for (j = 1; j <= rooms; j++) floor[room[j]] = i
    }
  }
  /^file / {
    path = substr($0, 6)
    known[path] = 1
    files++
    if (!floor_of(room_of(path)) && !(room_of(path) in homeless)) {
      homeless[room_of(path)] = 1
      complain(path ": the folder stands on no floor")
    }
    next
  }
  {
    colon = index($0, ":")
    file = substr($0, 3, colon - 3)
    text = substr($0, colon + 1)
    if (!match(text, /[<"][^>"]*[>"]/)) next
    mark = substr(text, RSTART, 1)
    target = substr(text, RSTART + 1, RLENGTH - 2)
    check_toolkit(file, target)
    # Angle brackets are for what lies outside, unless they name a file of the source.
    if (mark == "\"" || target in known) check_include(file, target)
  }
  END {
    strip_to_circles()
    for (key in edge) complain("circle of rooms: " edge[key])
    if (!files) complain("no source files here")
    exit offences > 0
  }'
