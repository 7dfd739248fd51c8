#!/usr/bin/env bash
# The manual page and the completion of the batch tool: every command and every option of the tool is in them.
#
#   man_page_test.sh PATH/brantlow-batch PATH/make_man_page.sh PATH/brantlow-batch.bash
set -euo pipefail

tool=$1
make_page=$2
completion=$3
failed=0
fail() {
  echo "$1" >&2
  failed=1
}

page=$("$make_page" "$tool" 9.8.7)
plain=${page//\\-/-}
[[ $plain == *'"Brantlow 9.8.7"'* ]] || fail "the page does not name the version"
commands=$("$tool" --help | awk '/^Commands:/ { on = 1; next } /^[A-Z]/ { on = 0 } on && NF { print $1 }')
[[ $(wc -l <<< "$commands") -gt 20 ]] || fail "the help lists too few commands"

source "$completion"
# What is offered for the word that the given words end with.
offered() {
  COMP_WORDS=("$tool" "$@")
  COMP_CWORD=$#
  COMPREPLY=()
  _brantlow_batch
  printf '%s\n' "${COMPREPLY[@]}"
}

all=$(offered '')
for command in $commands; do
  usage=$("$tool" "$command" --help | head -n 1)
  grep -qxF -- "${usage#Usage: brantlow-batch }" <<< "$plain" || fail "no heading in the page: $usage"
  grep -qx -- "$command" <<< "$all" || fail "the completion does not offer $command"
  for option in $("$tool" "$command" --help | awk '$1 ~ /^--/ { print $1 }'); do
    [[ $plain == *"$option"* ]] || fail "not in the page: $command $option"
    grep -qx -- "$option" <<< "$(offered "$command" -)" || fail "not offered: $command $option"
  done
done

[[ $(offered sel) == select ]] || fail "sel is not completed to select"
[[ $(offered select X.ddq --interval w) == weekly ]] || fail "--interval w is not completed"
[[ $(offered backup p) == program ]] || fail "backup p is not completed"
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/Data"
touch "$folder/Data/Jan.ddq" "$folder/Data/Old.dbe"
[[ $(offered --app "$folder" update '') == Jan.ddq ]] || fail "the tables of --app are not offered"
exit "$failed"
