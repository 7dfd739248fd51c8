#!/usr/bin/env bash
# Checks that the lines of the settings files are said in one place: outside shell/settings no table of settings
# is read or written by a number, and no constant that a file with settings in it could use for that is a line's
# number.
#
#   tools/check_settings_lines.sh [SOURCE_FOLDER]
set -euo pipefail
cd "${1:-$(dirname "${BASH_SOURCE[0]}")/../src}"

offences=$(
  {
    grep -rnE '(Column|Data|Graph|Selector|Mru|Net|ImEx|Own|Src|Mail)Settings\.(Text|Number|At|Set)\( *([0-9]|k[A-Za-z]*Line)' \
      --include='*.h' --include='*.cpp' . || true
    grep -rlE 'shell/(settings/|session\.h)' --include='*.h' --include='*.cpp' . |
      xargs -r grep -HnE 'constexpr (std::size_t|int) k[A-Za-z]*Line *= *[0-9]+;' || true
  } | grep -v '^\./shell/settings/' || true
)
if [[ -n $offences ]]; then
  echo "These lines of settings files are numbered outside shell/settings/lines.h:"
  echo "$offences"
  exit 1
fi
