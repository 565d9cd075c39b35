#!/usr/bin/env bash
# Draws the artwork anew from docs/draw_art.py, then all of it on contact sheets as the window shows it: at 40, 50 and
# 60 pixels, in colour and in grey, at pixel ratio 1 (docs/images/artwork.png) and 2 (artwork-fine.png); and the logo
# beside the program, station/IMAGES/LOGO.BMP.
set -euo pipefail
cd "$(dirname "$0")/.."
python3 docs/draw_art.py
cmake --preset dev >/dev/null
ninja -C build/dev picture_sheets
build/dev/bin/picture_sheets logo .
build/dev/bin/picture_sheets artwork .
