#!/usr/bin/env bash
# Pictures of the first chapter: its own key strokes, with a look at each screen.
# Usage: docs/manual/pictures/first-cut.sh folder
set -euo pipefail
cd "$(dirname "$0")/../../.."
. docs/window_pictures.sh
target=$1
page=docs/manual/01-first-cut.md

look() {
    photograph "$target/first-cut-$1.png"
}

build_station
start_display 1024x768
make_station "$window_pictures_work/station"
start_station "$window_pictures_work/station"
caps_of $page 1
look 1-input
caps_of $page 2
look 2-parameters
caps_of $page 3
caps_of $page 4
caps_of $page 5
look 3-cutting
caps_of $page 6
caps_of $page 7
look 4-nesting
caps_of $page 8
sleep 1
look 5-simulation
caps F10 PLATE10
look 6-save
caps Enter
sleep 1
look 7-saved
grep -q 'X0.500 Y33.500' "$window_pictures_work/station/PROGRAM/PLATE10.nc"
