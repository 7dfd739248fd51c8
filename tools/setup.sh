#!/usr/bin/env bash
# Installs the Debian packages that building, testing and running Brantlow need, where some are missing.
# This is the one list of them.
#
#   tools/setup.sh          installs what is missing, as root or through sudo
#   tools/setup.sh --list   prints the packages, one a line
set -euo pipefail

packages=(
  # building
  ccache cmake g++ git ninja-build pkg-config
  # libraries of the engine and the batch tool
  libcli11-dev libfmt-dev nlohmann-json3-dev
  # the web: downloads, whose certificates and signatures are checked, and the text of pages
  ca-certificates libcurl4-openssl-dev libgumbo-dev libssl-dev
  # windows, on X11 and Wayland, with their fonts, and the engine of the browser window
  fonts-dejavu-core qt6-base-dev qt6-svg-dev qt6-wayland qt6-webengine-dev
  # tests, benchmarks and checks
  clang-format libbenchmark-dev libcpp-httplib-dev libgmock-dev libgtest-dev
)

if [[ ${1:-} == --list ]]; then
  printf '%s\n' "${packages[@]}"
  exit 0
fi

missing=()
for package in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
  [[ $status == installed ]] || missing+=("$package")
done
[[ ${#missing[@]} -gt 0 ]] || exit 0

as_root=()
if [[ $(id -u) -ne 0 ]]; then
  if ! command -v sudo >/dev/null; then
    echo "These packages are missing; install them as root: ${missing[*]}" >&2
    exit 1
  fi
  as_root=(sudo)
fi
echo "Installing ${missing[*]}" >&2
"${as_root[@]}" apt-get update -qq >&2
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
  apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
