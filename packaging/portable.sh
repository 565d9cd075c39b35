#!/usr/bin/env bash
# Makes the portable form from the release build: a folder with program and station in one, the libraries that a Debian 12
# desktop doesn't have for sure, and their licences, packed into build/packages. packaging/make.sh calls it.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
version=$(sed -n 's/^project(Korvanta VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
name=korvanta-$version
work=$(mktemp -d "$root/build/packages/portable.XXXXXX")
trap 'rm -rf "$work"' EXIT
folder=$work/$name

# The same rules of installing as the Debian package, taken apart: what was in bin, lib and the template lies in one folder.
DESTDIR=$work/installed cmake --install build/release --strip >/dev/null
installed=$work/installed/usr
mkdir -p "$folder/lib" "$folder/plugins" "$folder/licences"
cp -r "$installed/share/korvanta/station/." "$folder/"
# The manual beside the pages that it points to.
mkdir "$folder/docs"
cp -r "$installed"/share/doc/korvanta/{manual,images,compensation.md,host-link.md,packaging.md} "$folder/docs/"
cp "$root/LICENSE" "$folder/licences/korvanta.txt"
cp "$installed"/bin/* "$(find "$installed" -name korvanta-painter.so)" "$folder/"

# What comes from the machine, so that it fits the machine: the C and C++ libraries, the graphics driver's side of OpenGL,
# the plain X11 libraries, and fontconfig, whose settings and fonts are the machine's own.
from_machine='^(ld-linux.*|linux-vdso|libc|libm|libdl|libpthread|librt|libresolv|libstdc\+\+|libgcc_s|libGL|libGLX|libEGL|libGLdispatch|libX11|libX11-xcb|libxcb|libXau|libXdmcp|libfontconfig|libfreetype|libexpat)\.so'

# Window system, pictures and input of the window library. The plugins of other window systems aren't needed on a desktop:
# Wayland desktops serve X11 programs, too.
plugins=$(qtpaths6 --plugin-dir 2>/dev/null || qmake6 -query QT_INSTALL_PLUGINS)
for plugin in platforms/libqxcb.so imageformats/libqsvg.so iconengines/libqsvgicon.so \
    xcbglintegrations/libqxcb-glx-integration.so xcbglintegrations/libqxcb-egl-integration.so \
    platforminputcontexts/libcomposeplatforminputcontextplugin.so \
    platforminputcontexts/libibusplatforminputcontextplugin.so; do
    install -D -m 644 "$plugins/$plugin" "$folder/plugins/$plugin"
done

# All that programs and plugins need, and what those need in turn, as plain files: some sticks know no links.
find "$folder" -maxdepth 1 -type f \( -perm -u+x -o -name '*.so' \) -print0 >"$work/objects"
find "$folder/plugins" -name '*.so' -print0 >>"$work/objects"
xargs -0 ldd <"$work/objects" | sed -n 's/^\t\(\S*\) => \(\/\S*\) .*/\1 \2/p' | sort -u >"$work/needed"
if xargs -0 ldd <"$work/objects" | grep 'not found'; then
    exit 1
fi
while read -r soname path; do
    [[ $soname =~ $from_machine ]] && continue
    install -m 644 "$(readlink -f "$path")" "$folder/lib/$soname"
    # A merged /usr knows a library under two names; the package manager may know only one of them.
    real=$(readlink -f "$path")
    package=$(dpkg-query -S "$real" 2>/dev/null || dpkg-query -S "${real#/usr}")
    printf '%s\t%s\n' "$soname" "${package%%:*}"
done <"$work/needed" >"$work/owners"

# A search path of the old kind counts for the libraries of libraries, too: those stay as Debian built them.
for program in korvanta korvanta-batch korvanta-host korvanta-painter.so; do
    patchelf --force-rpath --set-rpath '$ORIGIN/lib' "$folder/$program"
done
printf '[Paths]\nPrefix=.\nPlugins=plugins\n' >"$folder/qt.conf"

# Each library's terms, the texts of the licences that they point to, and where the sources are.
{
    echo "Korvanta is under the terms of korvanta.txt. The libraries in lib and plugins are those of Debian 12, unchanged;"
    echo "each is under the terms of the file of its package. You may replace them by others of the same name."
    echo "Sources: apt-get source SOURCE=VERSION on a machine with Debian's source entries."
    echo
    printf '%-34s %-26s %s\n' Library Package "Source and version"
} >"$folder/licences/README.txt"
dpkg-query -S "$plugins/platforms/libqxcb.so" "$plugins/imageformats/libqsvg.so" | sed 's/^\([^:]*\):.*\/\(.*\)$/\2\t\1/' >>"$work/owners"
sort -u "$work/owners" | while IFS=$'\t' read -r library package; do
    source=$(dpkg-query -W -f '${source:Package} ${source:Version}\n' "$package" | head -n 1)
    printf '%-34s %-26s %s\n' "$library" "$package" "$source" >>"$folder/licences/README.txt"
    cp -L "/usr/share/doc/$package/copyright" "$folder/licences/$package.txt"
done
mkdir "$folder/licences/common"
grep -rhoE '/usr/share/common-licenses/[A-Za-z0-9]+(-[0-9.]*[0-9])?' "$folder/licences" | sort -u | while read -r licence; do
    if [ -f "$licence" ]; then
        cp -L "$licence" "$folder/licences/common/"
    fi
done

cat >"$folder/README.txt" <<'TEXT'
Korvanta, portable form for Debian 12 (amd64)

Start ./korvanta, or ./korvanta-batch without a window. Nothing needs to be installed on a machine with a desktop.
Settings, tables, drawings, jobs and programs lie in this folder and travel with it. The manual is in docs/manual.

The stick needs a file system that knows programs: ext4 or exFAT. From FAT32 copy the folder to the disk first.
On a stick that may only be read the station remembers nothing, and saving ends it with a message. Let NC_PATH and NESTING_PATH in
Korvanta.ini name folders of the machine to save there.

The licences of Korvanta and of the libraries in lib are in the folder licences.
TEXT
chmod -R u=rwX,go=rX "$folder"
tar -C "$work" --sort=name --owner=0 --group=0 --numeric-owner --mtime="@${SOURCE_DATE_EPOCH:-$(date +%s)}" \
    -czf "$work/portable.tar.gz" "$name"
mv "$work/portable.tar.gz" "$root/build/packages/$name-portable.tar.gz" # complete, or not there
