#!/usr/bin/env bash
# The moving picture at the top of the README: the road of one part through the real window, from the list to the running
# simulation and the saved program, into docs/images/road.gif (or the file given as first argument).
set -euo pipefail
cd "$(dirname "$0")/.."
. docs/window_pictures.sh
target=$(realpath -m "${1:-docs/images/road.gif}")
frames=$window_pictures_work/frames
mkdir -p "$frames"
number=0

# frame SECONDS TEXT: the window as it is, with a line of text below it, for so long.
frame() {
    number=$((number + 1))
    local file
    file=$frames/$(printf %02d "$number").png
    sleep "${settle:-0.5}"
    import -window "$window" png:- | convert png:- -resize 720x -gravity south -background '#2b3440' -splice 0x34 \
        -fill white -font DejaVu-Sans -pointsize 17 -annotate +0+7 "$2" "$file"
    delays+=(-delay "$(awk "BEGIN { print int(100 * $1) }")" "$file")
}
delays=()

build_station
start_display 1024x768
station=$window_pictures_work/station
make_station "$station" SIMSPEED=9
start_station "$station"
frame 1.5 'F3 to F6: choose a shape'
caps F3 F3 F3 F3
frame 1.5 'R-05, F10'
caps F10
frame 1.2 'its sizes'
caps 300 Enter 200 Enter
frame 1.8 '300 Enter 200 Enter, F10'
caps F10 Enter Enter Enter Enter 1 Enter
frame 1.2 'leads'
caps 3 Enter 2 Enter
frame 1.8 '3 Enter 2 Enter, F10'
caps F10
frame 1 'one plate'
caps '*5' Enter '*2' Enter
frame 1.4 '*5 Enter *2 Enter: ten plates'
caps 1.5 Enter 8 Enter 8 Enter
frame 1.4 'kerf and gaps'
settle=0
caps F8
for _ in 1 2 3; do
    sleep 0.7
    frame 0.6 'F8: watch the cut'
done
settle=0.5
caps F10 PLATE10
frame 1.5 'F10, a name'
caps Enter
frame 3 'Enter: PROGRAM/PLATE10.nc is written'
[ -s "$station/PROGRAM/PLATE10.nc" ]

mkdir -p "$(dirname "$target")"
convert "${delays[@]}" -loop 0 +dither -colors 64 -layers Optimize "$target"
ls -l "$target"
