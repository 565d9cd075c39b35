#!/usr/bin/env bash
# Pictures of the last chapter: every box that an operator can meet, cut out of the window.
# Usage: docs/manual/pictures/trouble.sh folder
set -euo pipefail
cd "$(dirname "$0")/../../.."
. docs/window_pictures.sh
target=$1

box() {
    photograph "$target/trouble-$1.png" 560x230+232+269 60%
}

build_station
start_display 1024x768
station=$window_pictures_work/station
make_station "$station" EXIT_CONFIRM=YES
"$station/korvanta-batch" R-05 --save PLATE --quiet
echo "no drawing" >"$station/DXF/BAD.dxf"
start_station "$station"

caps F3 F3 F3 F3 F10 0 F10
box bad-part
caps F10 F1 F1 F1 F1 F10
box bad-import
caps F10 F1 F1 F8
box delete
caps F1 F1 F10 F10 F10 F10 PLATE Enter
box overwrite
caps F1 F9 Esc
box leave
stop_station

sed -i 's/^VL=.*/VL=2.00/' "$station/NEST/PLATE.nst"
start_station "$station"
caps F2 F10
box old-format
