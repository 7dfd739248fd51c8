#!/usr/bin/env bash
# Writes the manual page of the batch tool from the tool's own help, so that the two cannot differ.
#
#   tools/make_man_page.sh PATH/brantlow-batch VERSION > brantlow-batch.1
set -euo pipefail

tool=$1
version=$2

# Text as roff takes it: backslashes, dashes, and points and quotes at the start of a line.
escape() { sed -e 's/\\/\\e/g' -e 's/-/\\-/g' -e "s/^[.']/\\\\\&&/"; }

# The lines of a help text between one of its headings and the next.
section() { awk -v head="$1" '$0 == head { on = 1; next } /^[A-Z][A-Za-z ]*:$/ { on = 0 } on'; }

help=$("$tool" --help)
echo ".TH BRANTLOW\\-BATCH 1 \"\" \"Brantlow $version\" \"User Commands\""
echo '.SH NAME'
echo 'brantlow\-batch \- Brantlow without a window'
echo '.SH SYNOPSIS'
echo '.B brantlow\-batch'
sed -n '1s/^Usage: brantlow-batch //p' <<< "$help" | escape
echo '.SH DESCRIPTION'
sed -n '3p' <<< "$help" | escape
echo 'A FILE is a name in the folder Data of the application folder.'
echo '.SH OPTIONS'
section 'Options:' <<< "$help" | awk '/^  --/ { sub(/^  /, ""); name = $0; sub(/   *.*/, "", name);
  text = $0; sub(/^.*   */, "", text); printf ".TP\n%s\n%s\n", name, text }' | escape | sed 's/^\\&\.TP/.TP/'
echo '.SH COMMANDS'
for command in $(section 'Commands:' <<< "$help" | awk 'NF { print $1 }'); do
  text=$("$tool" "$command" --help)
  echo '.SS'
  sed -n '1s/^Usage: brantlow-batch //p' <<< "$text" | escape
  sed -n '3,/^Options:/p' <<< "$text" | sed '$d' | escape
  echo '.nf'
  section 'Options:' <<< "$text" | grep -vE '^  --(app|today|time|wait|help) ' | sed '/^$/d' | escape || true
  echo '.fi'
done
echo '.SH EXIT STATUS'
echo '.nf'
section 'Exit status:' <<< "$help" | escape
echo '.fi'
echo '.SH ENVIRONMENT'
echo '.TP'
echo '.B BRANTLOW_HOME'
echo "The desktop program's application folder. The batch tool takes its folder from \\-\\-app alone."
