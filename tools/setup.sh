#!/usr/bin/env bash
# Installs the Debian packages that building, testing and running Brantlow need, where some are missing.
# This is the one list of them.
#
#   tools/setup.sh            installs what is missing, as root or through sudo
#   tools/setup.sh programs   the same for what the programs alone need
#   tools/setup.sh packages   the same for the programs and for making packages of them
#   tools/setup.sh --all      all of it, with what .ci/run checks and fuzzes by
#   tools/setup.sh --list     prints all packages, one a line
set -euo pipefail

packages=(
  # building
  ccache cmake g++ ninja-build pkg-config
  # libraries of the engine and the batch tool
  libcli11-dev libfmt-dev nlohmann-json3-dev
  # the web: downloads, whose certificates and signatures are checked, and the text of pages; the practice market
  ca-certificates libcpp-httplib-dev libcurl4-openssl-dev libgumbo-dev libssl-dev
  # downloaded archives
  libarchive-dev
  # windows, on X11 and Wayland, with their fonts, and the engine of the browser window
  fonts-dejavu-core qt6-base-dev qt6-svg-dev qt6-wayland qt6-webengine-dev
)
tests=(
  # tests and benchmarks
  dbus-daemon git libbenchmark-dev libgmock-dev libgtest-dev
)
checks=(
  # formatting and fuzzing
  clang-14 clang-format libclang-rt-14-dev
)
packing=(
  # packages and what looks at them
  appstream debootstrap desktop-file-utils dpkg-dev file lintian
)
case ${1:-} in
  programs) ;;
  packages) packages+=("${packing[@]}") ;;
  --all | --list) packages+=("${tests[@]}" "${checks[@]}" "${packing[@]}") ;;
  *) packages+=("${tests[@]}") ;;
esac

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

by_hand() {
  echo "$1 Install these packages as root and call again:" >&2
  echo "  apt-get install --no-install-recommends ${missing[*]}" >&2
  exit 1
}

command -v apt-get >/dev/null || by_hand "This is no Debian system."
as_root=()
if [[ $(id -u) -ne 0 ]]; then
  command -v sudo >/dev/null || by_hand "Packages are missing, and there is no sudo."
  as_root=(sudo)
fi
echo "Installing ${#missing[@]} packages: ${missing[*]}" >&2
"${as_root[@]}" apt-get update -qq >&2 || by_hand "The list of packages did not come."
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
  apt-get install -y -qq --no-install-recommends -o Dpkg::Use-Pty=0 "${missing[@]}" >&2 ||
  by_hand "The packages could not be installed."
