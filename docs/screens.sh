#!/usr/bin/env bash
# Pictures of every screen at every window size, in English, German and Chinese, into docs/screens (or the folder given
# as first argument): the real window on a virtual display, worked by keys.
# Usage: docs/screens.sh [folder [size ...]]   sizes: 640x480 800x600 1024x768 full
set -euo pipefail
cd "$(dirname "$0")/.."
target=$(realpath -m "${1:-docs/screens}")
shift || true
sizes=("$@")
[ ${#sizes[@]} -gt 0 ] || sizes=(640x480 800x600 1024x768 full)
mkdir -p "$target"

. docs/window_pictures.sh
build_station
work=$window_pictures_work

picture() {
    photograph "$target/$size-$name-$1.png"
}

# The road of one part, ten copies of R-05 on a sheet, with a picture of each screen.
walk() {
    caps F3 F3 F3 F3
    picture 1-input
    caps F10 300 Enter 200 Enter
    picture 2-parameters
    caps F10 Enter Enter Enter Enter Enter 5 Enter 3 Enter
    picture 3-cutting
    caps F10 '*5' Enter '*2' Enter 1.5 Enter 8 Enter 8 Enter
    picture 4-nesting
    caps F10 PLATE10
    picture 5-save
    caps Enter
    picture 6-saved
    caps F1 F1 F1 F1
    picture 7-dxf-in
    caps Esc
    picture 8-question
    caps F1
}

for size in "${sizes[@]}"; do
    screen=$size
    resolution=$size
    [ "$size" != full ] || screen=1920x1080 resolution=0
    start_display "$screen"
    for language in 1:english 3:german 6:chinese; do
        name=${language#*:}
        make_station "$work/station-$size-$name" "SCREEN_RES=$resolution" "LANGUAGE=${language%:*}" EXIT_CONFIRM=YES
        start_station "$work/station-$size-$name"
        walk
        stop_station
    done
    stop_display
done
