#!/usr/bin/env bash
# Sets up, builds, and opens the station in build/station. Where there is no display it cuts a sample drawing into an NC
# program by korvanta-batch instead.
# With arguments: hands them to korvanta-batch of build/station; paths among them start where you are.
set -euo pipefail
caller=$PWD
cd "$(dirname "$0")"

./setup.sh
cmake --preset release >/dev/null
cmake --build --preset release --target korvanta korvanta-batch korvanta-host drawings

# The program folder of a station: the program with its texts, tables and sample drawings around it. What a run changed
# there stays.
station=build/station
root=$PWD
mkdir -p "$station"
cp -rn station/. "$station/"
cp -f build/release/bin/korvanta build/release/bin/korvanta-batch build/release/bin/korvanta-painter.so \
    build/release/bin/korvanta-host build/release/Korvanta.DBG "$station/"

if [ $# -gt 0 ]; then
    cd "$caller"
    exec "$root/$station/korvanta-batch" "$@"
fi

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$station/korvanta"
fi

echo "No display here: korvanta-batch cuts a sample drawing instead of the station's window."
"$station/korvanta-batch" BRACKET.dxf --program BRACKET --verify \
    --set "Move Step=1" --set "LeadIn : A=3" --set "LeadIn : B=1.5" --key CopyLeads \
    --set "X Sheet=1000" --set "Y Sheet=500" --set "Kerf=1.2" --set "X Gap=8" --set "Y Gap=8" --set "Nesting=1"
program=$(find "$station" -name 'BRACKET*' -path '*PROGRAM*' ! -name '*.part' | head -n 1)
echo
echo "First lines of $program:"
head -n 16 "$program"
