#!/usr/bin/env bash
# Checks that the list in tools/setup.sh is complete: what the build reads and what the scripts call has to
# come from the listed packages, what they depend on, or what every Debian system has. On a machine in use a
# missing line would go unnoticed otherwise.
#
#   tools/check_packages.sh files BUILD    names each file that the build uses from another package
#   tools/check_packages.sh programs DIR   fills DIR with links to the programs of these packages, to serve as
#                                          the whole PATH of a call
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# What the packages hold, one path a line. /lib and /bin are links to /usr/lib and /usr/bin.
# shellcheck disable=SC2016  # ${...} is a field of dpkg-query
packaged_files() {
  local essential listed
  mapfile -t essential < <(dpkg-query -W -f='${Package} ${Essential} ${Priority}\n' |
    awk '$2 == "yes" || $3 == "required" { print $1 }')
  mapfile -t listed < <(tools/setup.sh --list)
  apt-cache depends --recurse --installed --no-recommends --no-suggests --no-enhances \
    --no-conflicts --no-breaks --no-replaces apt "${essential[@]}" "${listed[@]}" |
    awk '/^[a-z0-9]/ { print $1 }' | sort -u |
    # Names of virtual packages are no packages; the query says so and passes over them.
    { xargs dpkg-query --show --showformat='${db:Status-Status} ${binary:Package}\n' 2>/dev/null || true; } |
    awk '$1 == "installed" { print $2 }' |
    xargs dpkg-query -L | sed -E 's#^/(lib|lib64|bin|sbin)(/|$)#/usr/\1\2#' | sort -u
}

# Headers that the build read, files that its configuration found, and libraries that its programs load.
# The window toolkit's configuration looks for GLU and does without it where it is missing.
used_files() {
  {
    ninja -C "$1" -t deps | awk '/^    \// { print $1 }'
    awk -F= '$1 ~ /:FILEPATH$/ && $1 !~ /_glu_/ && $2 ~ /^\// { print $2 }' "$1/CMakeCache.txt"
    find "$1/bin" -type f -perm -u+x -exec ldd {} + | awk '$2 == "=>" && $3 ~ /^\// { print $3 }'
  } | grep -v "^$PWD/" | sort -u | xargs -r realpath -s | xargs -r realpath |
    sed -E 's#^/(lib|lib64)/#/usr/\1/#' | sort -u
}

case ${1:-} in
  files)
    used=$(used_files "$2")
    if [[ -z $used ]]; then
      echo "No build to check in $2"
      exit 1
    fi
    strangers=$(comm -13 <(packaged_files) <(echo "$used"))
    if [[ -n $strangers ]]; then
      echo "Used by the build, but not from the packages of tools/setup.sh:"
      echo "$strangers"
      exit 1
    fi
    ;;
  programs)
    packaged_files | grep -E '^/usr/s?bin/[^/]+$' | while read -r program; do
      ln -sf "$program" "$2/"
    done
    # Names such as awk and c++ are links that the system keeps outside the packages, to one of several programs.
    find /usr/bin -lname '/etc/alternatives/*' -printf '%f\n' | while read -r name; do
      { update-alternatives --list "$name" 2>/dev/null || true; } | while read -r target; do
        [[ ! -e $2/${target##*/} ]] || ln -sf "$target" "$2/$name"
      done
    done
    ;;
  *)
    echo "usage: tools/check_packages.sh files BUILD | programs DIR" >&2
    exit 2
    ;;
esac
