#!/usr/bin/env bash
# Tests tools/check_names.sh on small source trees and small builds: each offence is found and named, what is
# sound passes.
#
#   check_names_test.sh CHECKER
set -euo pipefail
checker=$(realpath "$1")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0

# put FILE LINE...
put() {
  mkdir -p "$folder/$(dirname "$1")"
  local file=$folder/$1
  shift
  printf '%s\n' "$@" >"$file"
}

fail() {
  echo "FAILED: $1"
  failures=$((failures + 1))
}

# passes NAME CALL...: the checker says nothing and ends with 0.
passes() {
  local name=$1 output
  shift
  output=$("$checker" "$@") || fail "$name: $output"
  [[ -z $output ]] || fail "$name prints: $output"
}

# refuses NAME TEXT CALL...: the checker ends with 1 and prints a line that holds TEXT.
refuses() {
  local name=$1 text=$2 output status=0
  shift 2
  output=$("$checker" "$@") || status=$?
  [[ $status -eq 1 ]] || fail "$name: exit status $status"
  [[ $output == *"$text"* ]] || fail "$name: no line with '$text' in: $output"
}

new_tree() {
  folder=$(mktemp -d "$scratch/tree.XXXXXX")
  put a.h 'namespace ours {' 'class Later;' 'struct Row {' '    struct Part {};' '};' \
    'enum class Kind { A };' 'using Text = int;' '}  // namespace ours'
  put b.cpp 'namespace ours {' 'namespace {' 'struct Row {};' '}  // namespace' 'class Later final : public Row {' \
    '    struct Part {};' '};' '}  // namespace ours'
  put c.h 'namespace ours::other {' 'struct Row {};' '}  // namespace ours::other'
}

new_tree
passes "a sound tree" types "$folder"
for row in 'struct Row {' 'struct Row final : Later {' 'class Row : public Later,' 'enum class Row { A };' \
  'enum Row : int {' 'using Row = int;' 'union Row {'; do
  new_tree
  put d.cpp 'namespace ours {' "$row" '};' '}  // namespace ours'
  refuses "a second type: $row" 'ours::Row is defined at ./a.h:3 ./d.cpp:2' types "$folder"
done
new_tree
put d.cpp 'namespace ours {' 'namespace {' '}  // namespace' 'struct Row {};' '}  // namespace ours'
refuses "a second type behind an unnamed namespace" 'ours::Row is defined at' types "$folder"
new_tree
put d.h 'namespace ours {' 'namespace other {' 'struct Row {};' '}  // namespace other' '}  // namespace ours'
refuses "a second type of a namespace in steps" 'ours::other::Row is defined at ./c.h:2 ./d.h:3' types "$folder"
folder=$(mktemp -d "$scratch/empty.XXXXXX")
refuses "an empty tree" 'no types here' types "$folder"

new_rooms() {
  folder=$(mktemp -d "$scratch/rooms.XXXXXX")
  put room/a.cpp 'namespace ours {' 'namespace {' 'constexpr int kWidth = 6;' 'struct Row {};' \
    'std::string Text(int value) {' '}' '}  // namespace' '}  // namespace ours'
  put other/b.cpp 'namespace ours {' 'namespace {' 'constexpr int kWidth = 7;' 'struct Row {};' \
    'std::string Text(int value) {' '}' '}  // namespace' '}  // namespace ours'
}

# in_room LINE...: a second file of the room, with these lines in its unnamed namespace.
in_room() {
  put room/b.cpp 'namespace ours {' 'namespace {' "$@" '}  // namespace' '}  // namespace ours'
}

new_rooms
passes "names of two rooms" private "$folder"
in_room 'std::string Text(const Row& row) {' '}' 'std::string Text(const Row& row, int place) {' '}' \
  'constexpr int kWidths[] = {' '    kWidth = 3};' 'using Row = int;'
passes "a routine of other arguments, another constant, another name of a type" private "$folder"
put room/b.cpp 'namespace ours {' 'struct Row {};' 'std::string Text(int value) {' '}' '}  // namespace ours'
passes "what is no file's own" private "$folder"
for row in 'constexpr int kWidth = 7;' 'const std::array<int, 2> kWidth = {1, 2};' 'constexpr Size kWidth(6, 7);' \
  'constexpr Size kWidth{6, 7};' 'constexpr int kWidth[] = {'; do
  new_rooms
  in_room "$row"
  refuses "a second constant: $row" './room::kWidth is defined at ./room/a.cpp:3 ./room/b.cpp:3' private "$folder"
done
for row in 'struct Row {' 'class Row final : public Later {' 'enum class Row { A };'; do
  new_rooms
  in_room "$row"
  refuses "a second type: $row" './room::Row is defined at ./room/a.cpp:4 ./room/b.cpp:3' private "$folder"
done
for row in 'std::string Text(int value) {' 'int Text(int other) {' 'std::string Text(int) {'; do
  new_rooms
  in_room "$row" '}'
  refuses "a second routine: $row" './room::Text(int) is defined at ./room/a.cpp:5 ./room/b.cpp:3' private "$folder"
done
folder=$(mktemp -d "$scratch/empty.XXXXXX")
refuses "no private names" 'no private names here' private "$folder"

# A build in $folder of the program bin/one from the object files main.o and extra.o and the archive lib.a with
# first.o and second.o; extra.o and second.o have the given text.
new_build() {
  folder=$(mktemp -d "$scratch/build.XXXXXX")
  put main.cpp 'inline int Twice(int a) { return 2 * a; }' 'int main() { return Twice(0); }'
  put first.cpp 'namespace ours { int Find(const char*) { return 1; } }'
  put extra.cpp "$1"
  put second.cpp "$2"
  put build.ninja 'rule compile' '  command = c++ -c $in -o $out' 'rule pack' '  command = ar rcs $out $in' \
    'rule link' '  command = c++ -o $out $in -lm' \
    'build main.o: compile main.cpp' 'build first.o: compile first.cpp' 'build extra.o: compile extra.cpp' \
    'build second.o: compile second.cpp' 'build lib.a: pack first.o second.o' \
    'build bin/one: link main.o extra.o lib.a'
  ninja -C "$folder" >/dev/null
}

new_build 'inline int Twice(int a) { return 2 * a; } int Other() { return Twice(3); }' \
  'static int Find(const char*) { return 2; } int Fourth() { return Find(""); }'
passes "a sound build" symbols "$folder"
new_build '' 'namespace ours { int Find(const char*) { return 2; } }'
refuses "two members of an archive" 'bin/one: ours::Find(char const*) is defined at lib.a[first.o] lib.a[second.o]' \
  symbols "$folder"
new_build 'namespace ours { int Find(const char*) { return 2; } }' ''
refuses "a member of an archive and an object file" \
  'bin/one: ours::Find(char const*) is defined at extra.o lib.a[first.o]' symbols "$folder"
# The linker takes what it needs from an archive and never looks at the rest.
new_build 'int state = 1;' 'int state = 2;'
refuses "two variables" 'bin/one: state is defined at extra.o lib.a[second.o]' symbols "$folder"
folder=$(mktemp -d "$scratch/empty.XXXXXX")
refuses "a build without programs" 'no programs in' symbols "$folder"

[[ $failures -eq 0 ]] || exit 1
echo "all checks of the checker passed"
