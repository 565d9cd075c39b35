#!/usr/bin/env bash
# Draws the dimensioned drawings of all shapes on one sheet, docs/images/drawings.png. With a folder as argument: sheets
# of nine instead, as large as the window shows them at 640x480 and at 1024x768, there also with a parameter standing out.
set -euo pipefail
folder=${1:+$(realpath -m "$1")}
cd "$(dirname "$0")/.."
cmake --preset dev >/dev/null
ninja -C build/dev picture_sheets drawings
[ -z "$folder" ] || mkdir -p "$folder"
build/dev/bin/picture_sheets drawings . build/dev ${folder:+"$folder"}
