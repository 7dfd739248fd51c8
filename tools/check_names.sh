#!/usr/bin/env bash
# Checks that a name of ours means one thing: the linker takes the first of two definitions that it meets, and
# says nothing about the other one.
#
#   tools/check_names.sh types [SOURCE_FOLDER]   no type is defined in two places of the source
#   tools/check_names.sh private [SOURCE_FOLDER] no type, constant or routine of one file's own is defined in another
#                                                file of its folder too: a quick build compiles them in one piece
#   tools/check_names.sh symbols BUILD           no program of BUILD/bin is made of two object files that define
#                                                the same strong symbol; BUILD is a Ninja build that is up to date
#
# Prints each offence and exits 1 when there is one, or when there is nothing to check.
set -euo pipefail

# Definitions at namespace scope, which clang-format leaves at the margin: "NAME FILE:LINE". What stands in an
# unnamed namespace is its file's own.
types_of() {
  find "$1" -type f \( -name '*.h' -o -name '*.cpp' \) -print0 | sort -z | xargs -0 -r awk '
    FNR == 1 { depth = 0; unnamed = 0 }
    /^(inline )?namespace .*\{$/ {
      name = $0
      sub(/^(inline )?namespace */, "", name)
      sub(/ *\{$/, "", name)
      scope[++depth] = name
      if (name == "") unnamed++
      next
    }
    /^\}  \/\/ namespace/ {
      if (scope[depth] == "") unnamed--
      depth--
      next
    }
    unnamed { next }
    /^(class|struct|union|enum) / && !/^[^{]*;/ {
      name = $0
      sub(/^(enum )?(class|struct|union|enum) /, "", name)
      sub(/[^A-Za-z0-9_:].*/, "", name)
      sub(/:+$/, "", name)
      note(name)
    }
    /^using [A-Za-z0-9_]+ =/ { note($2) }
    function note(name,    full, i) {
      if (name == "") return
      for (i = 1; i <= depth; i++) full = full scope[i] "::"
      print full name, FILENAME ":" FNR
    }'
}

# What stands in unnamed namespaces: "FOLDER::NAME FILE:LINE", a routine with the types of its arguments, since
# another one may bear its name. Other names for a type may stand in several files.
private_names_of() {
  find "$1" -type f -name '*.cpp' -print0 | sort -z | xargs -0 -r awk '
    FNR == 1 {
      depth = 0
      unnamed = 0
      folder = FILENAME
      sub(/\/[^\/]*$/, "", folder)
    }
    /^(inline )?namespace .*\{$/ {
      scope[++depth] = /^(inline )?namespace \{$/
      unnamed += scope[depth]
      next
    }
    /^\}  \/\/ namespace/ { unnamed -= scope[depth--] }
    !unnamed || !/^[A-Za-z]/ || /^(using|template|static_assert)/ || /__attribute__/ { next }
    /^(class|struct|union|enum) / && !/^[^{]*;/ {
      name = $0
      sub(/^(enum )?(class|struct|union|enum) /, "", name)
      sub(/[^A-Za-z0-9_].*/, "", name)
      note(name)
      next
    }
    match($0, /[ *&]k[A-Z][A-Za-z0-9_]*( =|\[|\{|\()/) && !/^[^=]*\(.*k[A-Z]/ {
      name = substr($0, RSTART + 1)
      sub(/[^A-Za-z0-9_].*/, "", name)
      note(name)
      next
    }
    /^[^=]*[ *&][A-Za-z_][A-Za-z0-9_]*\(/ {
      line = FNR
      text = $0
      while (text !~ /\)/ && (getline more) > 0) text = text more
      name = text
      sub(/\(.*/, "", name)
      sub(/.*[ *&]/, "", name)
      sub(/^[^(]*\(/, "", text)
      sub(/\).*/, "", text)
      gsub(/[ *&][A-Za-z_][A-Za-z0-9_]*( = [^,]*)?(,|$)/, "&;", text)
      types = ""
      parts = split(text, part, ";")
      for (i = 1; i <= parts; i++) {
        mark = part[i]
        if (i < parts) sub(/[A-Za-z0-9_]+( = [^,]*)?,?$/, "", mark)
        gsub(/ /, "", mark)
        types = types mark ","
      }
      sub(/,+$/, "", types)
      note(name "(" types ")", line)
    }
    function note(name, line) {
      if (name != "" && !told[FILENAME, name]++) print folder "::" name, FILENAME ":" (line ? line : FNR)
    }'
}

# What the link of a program names of this build: its object files and archives.
linked_files() {
  ninja -C "$1" -t commands -s "$2" | tr ' ' '\n' | grep -E '^[^/-].*\.(o|a)$' | sort -u || true
}

# The strong symbols of some files of a build: "SYMBOL FILE[MEMBER]". Weak ones (inline routines, templates) are
# meant to stand in many files.
strong_symbols() {
  (cd "$1" && xargs -r nm -A -P -g --defined-only 2>/dev/null) |
    awk '$3 ~ /^[ABCDGRST]$/ { sub(/:$/, "", $1); print $2, $1 }'
}

# Of lines "NAME PLACE" prints each name that stands at more than one place; fails when one does.
report_twice() {
  sort -u | awk '
    $1 == name { places = places " " $2; count++; next }
    { flush(); name = $1; places = " " $2; count = 1 }
    function flush() { if (count > 1) { print name " is defined at" places; offences++ } }
    END { flush(); exit offences > 0 }'
}

case ${1:-} in
  types)
    cd "${2:-$(dirname "${BASH_SOURCE[0]}")/../src}"
    found=$(types_of .)
    if [[ -z $found ]]; then
      echo "no types here"
      exit 1
    fi
    report_twice <<<"$found"
    ;;
  private)
    cd "${2:-$(dirname "${BASH_SOURCE[0]}")/../src}"
    found=$(private_names_of .)
    if [[ -z $found ]]; then
      echo "no private names here"
      exit 1
    fi
    report_twice <<<"$found"
    ;;
  symbols)
    build=${2:?tools/check_names.sh symbols BUILD}
    mapfile -t programs < <(cd "$build" && find bin -type f -perm -u+x 2>/dev/null | sort)
    if [[ ${#programs[@]} -eq 0 ]]; then
      echo "no programs in $build/bin"
      exit 1
    fi
    failed=0
    for program in "${programs[@]}"; do
      files=$(linked_files "$build" "$program")
      if [[ -z $files ]]; then
        echo "$program: the build does not tell what it is made of"
        failed=1
      else
        strong_symbols "$build" <<<"$files" | report_twice | c++filt | sed "s#^#$program: #" || failed=1
      fi
    done
    exit "$failed"
    ;;
  *)
    echo "usage: tools/check_names.sh types [SOURCE_FOLDER] | private [SOURCE_FOLDER] | symbols BUILD" >&2
    exit 2
    ;;
esac
