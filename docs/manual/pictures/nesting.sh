#!/usr/bin/env bash
# Pictures of the chapter on nesting, drawn from what korvanta-batch makes of the nests in them.
# Usage: docs/manual/pictures/nesting.sh folder
set -euo pipefail
cd "$(dirname "$0")/../../.."
. docs/window_pictures.sh
target=$1

build_station
station=$window_pictures_work/station
make_station "$station"
python3 docs/manual/pictures/nesting.py "$station/korvanta-batch" "$station" "$target"
