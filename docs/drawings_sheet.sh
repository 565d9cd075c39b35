#!/usr/bin/env bash
# Draws the dimensioned drawings of all shapes on one sheet, docs/images/drawings.png. With a folder as argument: sheets
# of nine instead, as large as the window shows them at 640x480 and at 1024x768, there also with a parameter standing out.
set -euo pipefail
folder=${1:+$(realpath -m "$1")}
cd "$(dirname "$0")/.."
cmake --preset dev >/dev/null
ninja -C build/dev test_qt drawings
if [ -n "$folder" ]; then
    mkdir -p "$folder"
    export KORVANTA_SHEET_FOLDER=$folder
fi
build/dev/bin/test_qt --gtest_also_run_disabled_tests --gtest_filter='DrawingSheet.*'
