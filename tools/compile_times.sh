#!/usr/bin/env bash
# Compiles a preset from nothing and without the compiler's cache, and tells what it costs: processor seconds of
# each room, of everything, and of the ten slowest files. What it builds goes again.
#
#   tools/compile_times.sh [programs|release] [TARGET...]   programs, and all of it, without a word
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=${1:-programs}
shift || true
build=$PWD/build/compile-times
log=$build/seconds
rm -rf "$build"
mkdir -p "$build"
trap 'rm -rf "$build"' EXIT

cat >"$build/timed" <<END
#!/usr/bin/env bash
# The compiler, and a line with its processor seconds and the file that it was called for.
exec 3>&1 4>&2
TIMEFORMAT='%U %S'
status=0
seconds=\$( { time "\$@" >&3 2>&4; } 2>&1) || status=\$?
echo "\$seconds \${*: -1}" >>'$log'
exit "\$status"
END
chmod +x "$build/timed"

cmake --preset "$preset" -B "$build" -DCMAKE_CXX_COMPILER_LAUNCHER="$build/timed" --log-level=WARNING >/dev/null
TIMEFORMAT='Clock: %R s; processor, with all other tools: %U s user, %S s system'
time cmake --build "$build" "${@/#/--target=}" >/dev/null

# A room is the folder of a file without its windows/; what the build makes itself is one of its own. A quick build
# compiles a room in one piece, that of a library without rooms under the library's name.
rooms='
  { file = $3
    sub(/^.*\.\.\//, "", file); sub("^" top "/", "", file)
    if (match(file, /[^\/]*\.dir\/Unity\/unity_.*_cxx\.cxx$/)) {
      room = substr(file, RSTART)
      if (room ~ /unity_0_cxx|^[a-z]*_tests\.dir/) sub(/\.dir\/.*/, "", room)
      sub(/^.*\/unity_/, "", room); sub(/_cxx\.cxx$/, "", room); sub(/\/windows$/, "", room)
    } else if (file ~ /autogen|cmake_pch|^build\//) room = "made by the build"
    else { room = file; sub(/\/[^\/]*$/, "", room); sub(/\/windows$/, "", room); sub(/^src\//, "", room) }
    seconds[room] += $1 + $2; files[room]++ }
  END { for (room in seconds) printf "%8.1f s %5d files  %s\n", seconds[room], files[room], room }'
awk -v top="$PWD" "$rooms" "$log" | sort -rn
awk '{ all += $1 + $2 } END { printf "%8.1f s %5d files  all\n", all, NR }' "$log"
echo "The slowest files:"
awk '{ printf "%8.1f s  %s\n", $1 + $2, $3 }' "$log" | sort -rn | head -n 10 | sed -E "s#(\.\./)+|$PWD/##"
