#!/usr/bin/env bash
# Sets up, builds, and does the main job: cuts a sample drawing into an NC program in build/station.
# With arguments: hands them to korvanta-batch of build/station; paths among them start where you are.
set -euo pipefail
caller=$PWD
cd "$(dirname "$0")"

./setup.sh
cmake --preset release >/dev/null
cmake --build --preset release --target korvanta-batch

# The program folder of a station: the program with its texts, tables and sample drawings around it. What a run changed
# there stays.
station=build/station
root=$PWD
mkdir -p "$station"
cp -rn station/. "$station/"
cp -f build/release/bin/korvanta-batch "$station/"

if [ $# -gt 0 ]; then
    cd "$caller"
    exec "$root/$station/korvanta-batch" "$@"
fi

"$station/korvanta-batch" BRACKET.dxf --program BRACKET \
    --set "Move Step=1" --set "LeadIn : A=3" --set "LeadIn : B=1.5" --key CopyLeads \
    --set "X Sheet=1000" --set "Y Sheet=500" --set "Kerf=1.2" --set "X Gap=8" --set "Y Gap=8" --set "Nesting=1"
program=$(find "$station" -name 'BRACKET*' -path '*PROGRAM*' ! -name '*.part' | head -n 1)
echo
echo "First lines of $program:"
head -n 16 "$program"
