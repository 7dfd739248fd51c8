# shellcheck shell=bash
# For scripts that run tests, which source it: a folder for what the tests write. The tests flush thousands of small
# files: where the system's memory has a folder with room, and programs may be started from there, it lies in it.

scratch_in_memory() {
  local folder room
  room=$(df --output=avail --block-size=M /dev/shm 2>/dev/null | tail -n 1 | tr -dc 0-9)
  ((${room:-0} >= 1024)) || return 1
  folder=$(mktemp -d -p /dev/shm 2>/dev/null) || return 1
  printf '#!/bin/sh\n' >"$folder/probe"
  chmod +x "$folder/probe"
  if "$folder/probe" 2>/dev/null; then echo "$folder"; else
    rm -rf "$folder"
    return 1
  fi
}
# Makes the folder and prints its path.
new_scratch() { scratch_in_memory || mktemp -d; }
