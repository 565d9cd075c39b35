#!/usr/bin/env bash
# Pictures of the chapter on drawings and programs, drawn from what korvanta-batch reads out of files made here.
# Usage: docs/manual/pictures/drawings.sh folder
set -euo pipefail
cd "$(dirname "$0")/../../.."
. docs/window_pictures.sh
target=$1

build_station
station=$window_pictures_work/station
make_station "$station"
mkdir -p "$station/PROGRAM"
python3 docs/manual/pictures/drawings.py "$station/korvanta-batch" "$station" "$target"
