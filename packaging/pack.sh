#!/usr/bin/env bash
# Packs a text file without its time: the same text gives the same bytes.
#
#   pack.sh TEXT PACKED
set -euo pipefail
mkdir -p "$(dirname "$2")"
gzip -9n <"$1" >"$2"
