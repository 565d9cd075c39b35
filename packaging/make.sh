#!/usr/bin/env bash
# Builds the Debian package and the portable form into build/packages.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
packages=$root/build/packages

cmake --preset release >/dev/null
cmake --build --preset release --target korvanta korvanta-batch korvanta-host korvanta-painter drawings package_files

mkdir -p "$packages"
rm -f "$packages"/korvanta_*.deb "$packages"/korvanta-*-portable.tar.gz
# The date of all files inside is that of the last change of the sources: the same sources give the same package.
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct 2>/dev/null || date +%s)
export SOURCE_DATE_EPOCH
umask 022 # the modes of the folders in a package are those that are made here
(cd build/release && cpack -G DEB -B "$packages" >"$packages/cpack.log" 2>&1) || { cat "$packages/cpack.log" >&2; exit 1; }
rm -rf "$packages/_CPack_Packages"
packaging/portable.sh

ls -lh "$packages"/korvanta*
