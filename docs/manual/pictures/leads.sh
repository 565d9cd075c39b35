#!/usr/bin/env bash
# Pictures of the chapter on leads, drawn from what korvanta-batch makes of the parts in them.
# Usage: docs/manual/pictures/leads.sh folder
set -euo pipefail
cd "$(dirname "$0")/../../.."
. docs/window_pictures.sh
target=$1

build_station
station=$window_pictures_work/station
make_station "$station"
# A plate of 100 x 70 with a slit of two lines in it.
printf '%s\n' 0 SECTION 2 ENTITIES \
    0 LINE 10 0 20 0 11 100 21 0 0 LINE 10 100 20 0 11 100 21 70 \
    0 LINE 10 100 20 70 11 0 21 70 0 LINE 10 0 20 70 11 0 21 0 \
    0 LINE 10 25 20 25 11 55 21 25 0 LINE 10 55 20 25 11 70 21 50 0 ENDSEC 0 EOF >"$station/DXF/SLIT.dxf"
python3 docs/manual/pictures/leads.py "$station/korvanta-batch" "$station" "$target"
sed 's/width="120" height="72"/width="360" height="216"/' src/qt/art/lead-help.svg >"$target/lead-help.svg"
