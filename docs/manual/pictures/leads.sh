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
line() {
    printf '0\nLINE\n8\n0\n10\n%s\n20\n%s\n11\n%s\n21\n%s\n' "$@"
}
{
    printf '0\nSECTION\n2\nENTITIES\n'
    line 0 0 100 0 && line 100 0 100 70 && line 100 70 0 70 && line 0 70 0 0
    line 25 25 55 25 && line 55 25 70 50
    printf '0\nENDSEC\n0\nEOF\n'
} >"$station/DXF/SLIT.dxf"
python3 docs/manual/pictures/leads.py "$station/korvanta-batch" "$station" "$target"
sed 's/width="120" height="72"/width="360" height="216"/' src/qt/art/lead-help.svg >"$target/lead-help.svg"
