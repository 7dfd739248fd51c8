#!/usr/bin/env bash
# Makes the Debian packages in build/package/packages, the program's and that of its debug symbols, and checks them:
# lintian, the desktop entry, the metadata, and a start of the unpacked programs without a screen.
#
#   tools/package.sh              makes and checks them
#   tools/package.sh --built DIR  packs what is built in DIR and checks that; its programs have no debug symbols
#   tools/package.sh --twice      builds once more in another folder and compares the bytes
#   tools/package.sh --try ROOT   as root: makes a bare Debian 12 in ROOT by debootstrap, installs the package there by
#                                 apt under a lower version, upgrades it, works with it, removes it, and looks that the
#                                 user's files are still there
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

tools/setup.sh packages
build=build/package
# A compiler's cache would give the second build what it kept of the first.
[[ ${1:-} != --twice ]] || export CCACHE_DISABLE=1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# make_packages FOLDER: builds this source there, and the packages below it.
make_packages() {
  cmake --preset package -B "$1" --log-level=WARNING >&2
  cmake --build "$1" >&2
  pack "$1"
}

# The packer tells the checksums of debug symbols with the folder that they were made in, and adds neither changelog nor
# copyright. Their package, where there is one, is packed once more, with the names that its files are installed under
# and the documents of the program's package.
mend_symbols() {
  local package name=brantlow-dbgsym
  for package in packages/"$name"_*.ddeb; do
    [[ -e $package ]] || continue
    dpkg-deb -R "$package" "$scratch/$name" &&
      mkdir -p "$scratch/$name/usr/share/doc" &&
      ln -s brantlow "$scratch/$name/usr/share/doc/$name" &&
      (cd "$scratch/$name" && find usr -type f -print0 | sort -z | xargs -0 md5sum >DEBIAN/md5sums) &&
      dpkg-deb --root-owner-group -b "$scratch/$name" "$package" || return 1
    rm -rf "${scratch:?}/$name"
  done
}

# pack FOLDER [CPACK_OPTION...]: the packages of what is built there.
pack() {
  rm -rf "$1/packages"
  mkdir -p "$1/packages"
  # Files come out as umask makes them, and the day of the version stands in their names and headers.
  (
    umask 022
    SOURCE_DATE_EPOCH=$(date -u -d "$(sed -n 's/^ -- .*>  //p' packaging/debian_changelog.in | head -n 1)" +%s)
    export SOURCE_DATE_EPOCH
    cd "$1" && cpack -G DEB "${@:2}" && mend_symbols
  ) >"$scratch/cpack.txt" 2>&1 || {
    cat "$scratch/cpack.txt" >&2
    exit 1
  }
}

one_package() { find "$1/packages" -maxdepth 1 -name 'brantlow_*.deb'; }

# end_in_order PROCESS LOCK: once the window holds the lock, asks it to end until it does.
end_in_order() {
  while kill -0 "$1" && [[ ! -e $2 ]]; do sleep 0.2; done
  while kill -TERM "$1"; do sleep 1; done
} 2>/dev/null

# Exit status and words of the programs below ROOT/usr, in a folder of their own.
start_programs() {
  local root=$1 home=$scratch/home program
  mkdir -p "$home"
  mkdir -m 700 "$scratch/runtime"
  local batch=("$root/usr/bin/brantlow-batch" --app "$home/app")
  "$root/usr/bin/brantlow" --version
  "${batch[@]}" practice >/dev/null
  "${batch[@]}" select Practice.ddq >/dev/null
  "${batch[@]}" chart KO --out "$home/ko.png" >/dev/null
  [[ -s $home/ko.png && -s $home/app/Data/Evaluations.dbe ]]
  HOME=$home BRANTLOW_HOME=$home/app XDG_RUNTIME_DIR=$scratch/runtime QT_QPA_PLATFORM=offscreen \
    QTWEBENGINE_DISABLE_SANDBOX=1 "$root/usr/bin/brantlow" >"$scratch/window.txt" 2>&1 &
  program=$!
  end_in_order "$program" "$home/app/Brantlow.lock"
  wait "$program" || {
    cat "$scratch/window.txt"
    echo "the window did not end in order"
    return 1
  }
}

check_package() {
  local package=$1 root=$scratch/root
  dpkg-deb -x "$package" "$root"
  lintian --fail-on error --tag-display-limit 0 "${package%/*}"/*deb
  desktop-file-validate "$root/usr/share/applications/brantlow.desktop"
  appstreamcli validate --no-net "$root"/usr/share/metainfo/*.xml
  start_programs "$root"
}

# What a person does with an installed package, from its upgrade up to its removal. It runs in the tried system.
tried_there() {
  set -e
  local market window tries
  brantlow-batch --app /root/Brantlow practice
  sha256sum /root/Brantlow/Data/*.ddq /root/Brantlow/Quotes/EOD/* >/root/before
  apt-get install -y -qq --no-install-recommends /tmp/brantlow.deb
  dpkg-query -W -f '${Version} in the place of 0.9.0\n' brantlow
  dpkg --verify brantlow
  sha256sum -c --quiet /root/before
  brantlow --version
  brantlow-market --hosts /root/Brantlow/Data/Hosts.ini >/tmp/market.txt &
  market=$!
  for ((tries = 0; tries < 300; tries++)); do
    if grep -q http /tmp/market.txt; then break; fi
    sleep 0.2
  done
  brantlow-batch --app /root/Brantlow update Practice.ddq
  brantlow-batch --app /root/Brantlow chart KO --out /root/ko.png
  brantlow >/tmp/window.txt 2>&1 &
  window=$!
  end_in_order "$window" /root/Brantlow/Brantlow.lock
  wait "$window"
  kill "$market"
  sha256sum /root/Brantlow/Data/*.ddq /root/Brantlow/Quotes/EOD/* >/root/before
  apt-get remove -y -qq --purge brantlow
  [[ ! -e /usr/bin/brantlow ]]
  sha256sum -c --quiet /root/before
  echo "installed, upgraded, used and removed; the user's files are as they were"
}

try_in_root() {
  local package=$1 root=$2
  [[ -e $root/bin/bash ]] || debootstrap --variant=minbase bookworm "$root"
  cp "$package" "$root/tmp/brantlow.deb"
  dpkg-deb -R "$package" "$scratch/lower"
  sed -i 's/^Version: .*/Version: 0.9.0/' "$scratch/lower/DEBIAN/control"
  dpkg-deb -b --root-owner-group "$scratch/lower" "$root/tmp/lower.deb" >/dev/null
  cp /etc/resolv.conf "$root/etc/"
  mkdir -p -m 700 "$root/tmp/runtime"
  mount --bind /proc "$root/proc"
  # shellcheck disable=SC2064  # the folders of now
  trap "umount '$root/proc'; rm -rf '$scratch'" EXIT
  chroot "$root" env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 \
    DEBIAN_FRONTEND=noninteractive QT_QPA_PLATFORM=offscreen QTWEBENGINE_DISABLE_SANDBOX=1 \
    XDG_RUNTIME_DIR=/tmp/runtime bash -c "
      $(declare -f end_in_order tried_there)
      rm -rf /root/Brantlow
      apt-get update -qq && apt-get install -y -qq --no-install-recommends /tmp/lower.deb && tried_there"
}

if [[ ${1:-} == --built ]]; then
  build=${2:?tools/package.sh --built DIR}
  # For a look at every change: nothing is compiled for it, and it is packed quickly.
  pack "$build" -D CPACK_DEBIAN_DEBUGINFO_PACKAGE=OFF -D CPACK_STRIP_FILES=ON -D CPACK_DEBIAN_COMPRESSION_TYPE=gzip
  check_package "$(one_package "$build")"
  ls -l "$build"/packages/*deb
  exit
fi
make_packages "$build"
package=$(one_package "$build")
case ${1:-} in
  '') check_package "$package" ;;
  --twice)
    make_packages "$build-again"
    for made in "$build"/packages/*deb; do cmp "$made" "$build-again/packages/${made##*/}"; done
    echo "both builds gave the same bytes"
    ;;
  --try) try_in_root "$package" "$(realpath -m "${2:?tools/package.sh --try ROOT}")" ;;
  *)
    echo "usage: tools/package.sh [--built DIR | --twice | --try ROOT]" >&2
    exit 2
    ;;
esac
ls -l "$build"/packages/*deb
