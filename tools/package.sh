#!/usr/bin/env bash
# Makes the Debian packages in build/package/packages, the program's and that of its debug symbols, and checks them:
# lintian, the desktop entry, the metadata, and a start of the unpacked programs without a screen.
#
#   tools/package.sh              makes and checks them
#   tools/package.sh --twice      builds once more in another folder and compares the bytes
#   tools/package.sh --try ROOT   as root: makes a bare Debian 12 in ROOT by debootstrap, installs the package there by
#                                 apt, works with it, removes it, and looks that the user's files are still there
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

tools/setup.sh packages
build=build/package
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# make_packages FOLDER: builds this source there, and the packages below it.
make_packages() {
  cmake --preset package -B "$1" --log-level=WARNING >&2
  cmake --build "$1" >&2
  rm -rf "$1/packages"
  mkdir -p "$1/packages"
  # Files come out as umask makes them, and the day of the version stands in their names and headers.
  (
    umask 022
    SOURCE_DATE_EPOCH=$(date -u -d "$(sed -n 's/^ -- .*>  //p' packaging/debian_changelog.in | head -n 1)" +%s)
    export SOURCE_DATE_EPOCH
    cd "$1" && cpack -G DEB >"$scratch/cpack.txt" 2>&1
  ) || {
    cat "$scratch/cpack.txt" >&2
    exit 1
  }
  find "$1/packages" -mindepth 2 -name '*deb' -not -path '*/_CPack_Packages/*' -exec mv -t "$1/packages" {} +
}

one_package() { find "$1/packages" -maxdepth 1 -name 'brantlow_*.deb'; }

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
  local tries
  for ((tries = 0; tries < 600; tries++)); do
    [[ ! -e $home/config ]] || break
    if [[ -e $home/.config/Brantlow || -e $home/app/Brantlow.lock ]]; then break; fi
    kill -0 "$program" || break
    sleep 0.2
  done
  kill -TERM "$program"
  wait "$program" || {
    cat "$scratch/window.txt"
    echo "the window did not end in order"
    return 1
  }
}

check_package() {
  local package=$1 root=$scratch/root
  dpkg-deb -x "$package" "$root"
  lintian --fail-on error --tag-display-limit 0 "$package"
  desktop-file-validate "$root/usr/share/applications/brantlow.desktop"
  appstreamcli validate --no-net "$root"/usr/share/metainfo/*.xml
  start_programs "$root"
}

# in_root COMMAND...: runs it in the tried system, as root without a screen.
in_root() {
  chroot "$1" env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen \
    QTWEBENGINE_DISABLE_SANDBOX=1 XDG_RUNTIME_DIR=/tmp bash -c "$2"
}

try_in_root() {
  local package=$1 root=$2
  [[ -e $root/bin/bash ]] || debootstrap --variant=minbase bookworm "$root"
  cp "$package" "$root/tmp/brantlow.deb"
  mount --bind /proc "$root/proc"
  trap 'umount "'"$root"'/proc"; rm -rf "$scratch"' EXIT
  in_root "$root" "apt-get update -qq && apt-get install -y --no-install-recommends /tmp/brantlow.deb"
  in_root "$root" "
    set -e
    brantlow --version
    brantlow-batch --app /root/Brantlow practice
    brantlow-market --hosts /root/Brantlow/Data/Hosts.ini >/tmp/market.txt & market=\$!
    for i in \$(seq 100); do grep -q http /tmp/market.txt && break; sleep 0.1; done
    brantlow-batch --app /root/Brantlow update Practice.ddq
    brantlow-batch --app /root/Brantlow chart KO --out /root/ko.png
    brantlow >/tmp/window.txt 2>&1 & window=\$!
    for i in \$(seq 300); do [[ -e /root/Brantlow/Brantlow.lock ]] && break; sleep 0.2; done
    sleep 5; kill -TERM \$window; wait \$window
    kill \$market
    sha256sum /root/Brantlow/Data/Practice.ddq >/root/before
    apt-get remove -y --purge brantlow
    sha256sum -c /root/before
    ! command -v brantlow"
}

make_packages "$build"
package=$(one_package "$build")
case ${1:-} in
  '') check_package "$package" ;;
  --twice)
    make_packages "$build-again"
    cmp "$package" "$(one_package "$build-again")"
    echo "both builds gave the same bytes"
    ;;
  --try) try_in_root "$package" "$(realpath -m "${2:?tools/package.sh --try ROOT}")" ;;
  *)
    echo "usage: tools/package.sh [--twice | --try ROOT]" >&2
    exit 2
    ;;
esac
ls -l "$build"/packages/*deb
