#!/usr/bin/env bash
# The recipe of an AppImage, one file that runs on systems with another Qt or none: gathers the programs with
# their libraries in build/appimage/Brantlow.AppDir, starts them from there without a screen, and makes
# build/appimage/Brantlow-x86_64.AppImage of it where appimagetool is in the path.
#
#   packaging/appimage.sh [DIR]      DIR: where the programs are built; build/release without it
#
# Build on the oldest system that the AppImage is to run on: the C library comes from the system that starts it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

build=${1:-build/release}
folder=build/appimage
root=$folder/Brantlow.AppDir
qt=$(qmake6 -query QT_INSTALL_PLUGINS)
libexec=$(qmake6 -query QT_INSTALL_LIBEXECS)
data=$(qmake6 -query QT_INSTALL_DATA)
# The parts of Qt that are loaded by name while the program runs.
plugins=(iconengines imageformats platforminputcontexts platforms printsupport tls
  wayland-decoration-client wayland-graphics-integration-client wayland-shell-integration xcbglintegrations)
# What has to be the system's own: the C library, the drivers of the screen, and what must fit them.
system='^(ld-linux|lib(c|m|dl|rt|pthread|resolv|anl|GL|GLX|EGL|GLdispatch|OpenGL|drm|gbm|X11|X11-xcb|xcb|fontconfig|freetype|harfbuzz|stdc\+\+|gcc_s|z|com_err|expat|asound|nss3|nssutil3|smime3|nspr4|plc4|plds4)\.so)'

rm -rf "$root"
mkdir -p "$root"
DESTDIR=$root cmake --install "$build" --prefix /usr > "$folder/install.txt"
mkdir -p "$root/usr/lib" "$root/usr/plugins"
for plugin in "${plugins[@]}"; do
  [[ ! -d $qt/$plugin ]] || cp -r "$qt/$plugin" "$root/usr/plugins/"
done
cp -r "$data/resources" "$root/usr/"
mkdir -p "$root/usr/libexec" "$root/usr/translations"
cp "$libexec/QtWebEngineProcess" "$root/usr/libexec/"
cp -r "$(qmake6 -query QT_INSTALL_TRANSLATIONS)/qtwebengine_locales" "$root/usr/translations/"
printf '[Paths]\nPrefix = ..\nLibraryExecutables = libexec\n' | tee "$root/usr/bin/qt.conf" > "$root/usr/libexec/qt.conf"

find "$root/usr" -type f \( -perm -u+x -o -name '*.so*' \) -exec ldd {} + 2> /dev/null |
  awk '$2 == "=>" && $3 ~ "^/" { print $3 }' | sort -u | while read -r library; do
  [[ $(basename "$library") =~ $system ]] || cp -L "$library" "$root/usr/lib/"
done
strip --strip-unneeded "$root"/usr/lib/*.so* "$root"/usr/bin/brantlow* 2> /dev/null || true

cp "$root/usr/share/applications/brantlow.desktop" "$root/"
cp "$root/usr/share/icons/hicolor/256x256/apps/brantlow.png" "$root/"
ln -sf brantlow.png "$root/.DirIcon"
# The name by which it is called chooses the program: a link "brantlow-batch" to the AppImage is the batch tool.
cat > "$root/AppRun" << 'RUN'
#!/bin/sh
here=$(dirname "$(readlink -f "$0")")
export LD_LIBRARY_PATH="$here/usr/lib${LD_LIBRARY_PATH:+:$LD_LIBRARY_PATH}"
name=$(basename "${ARGV0:-brantlow}")
case $name in
  brantlow-batch | brantlow-market) ;;
  *) name=brantlow ;;
esac
exec "$here/usr/bin/$name" "$@"
RUN
chmod +x "$root/AppRun"

home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
mkdir -m 700 "$home/runtime"
"$root/AppRun" --version
ARGV0=brantlow-batch "$root/AppRun" --app "$home/app" practice > "$home/practice.txt"
ARGV0=brantlow-batch "$root/AppRun" --app "$home/app" chart KO --out "$home/ko.png"
[[ -s $home/ko.png ]]
used=$(LD_DEBUG=libs HOME=$home BRANTLOW_HOME=$home/app QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=$home/runtime \
  "$root/AppRun" --version 2>&1 | grep -c "calling init: .*Brantlow.AppDir" || true)
[[ $used -gt 0 ]] || { echo "appimage.sh: the programs do not load the libraries beside them" >&2; exit 1; }
echo "$(find "$root" -type f | wc -l) files, $(du -sm "$root" | cut -f1) MB in $root; its programs start"

if command -v appimagetool > /dev/null; then
  ARCH=x86_64 appimagetool "$root" "$folder/Brantlow-x86_64.AppImage"
else
  echo "appimagetool is not in the path: the folder stands, the AppImage was not made."
fi
