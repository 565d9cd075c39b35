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

./setup.sh
cmake --preset release >/dev/null
cmake --build --preset release --target korvanta drawings

work=$(mktemp -d)
display_pid=
cleanup() {
    [ -z "$display_pid" ] || kill "$display_pid" 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT

# A display without a window manager: the window is the picture.
start_display() {
    exec 7>"$work/display"
    Xvfb -displayfd 7 -screen 0 "$1x24" -dpi 96 >/dev/null 2>&1 &
    display_pid=$!
    for _ in $(seq 100); do
        [ -s "$work/display" ] && break
        sleep 0.1
    done
    DISPLAY=:$(tr -d '\n' <"$work/display")
    export DISPLAY
}

stop_display() {
    kill "$display_pid" && wait "$display_pid" 2>/dev/null || true
    display_pid=
}

keys() {
    xdotool key --clearmodifiers --delay 30 "$@"
    sleep 0.2
}

picture() {
    sleep 0.3
    import -window "$window" "$target/$size-$name-$1.png"
}

# The road of one part, ten copies of R-05 on a sheet, with a picture of each screen.
walk() {
    keys F3 F3 F3 F3
    picture 1-input
    keys F10 3 0 0 Return 2 0 0 Return
    picture 2-parameters
    keys F10 Return Return Return Return Return 5 Return 3 Return
    picture 3-cutting
    keys F10 asterisk 5 Return asterisk 2 Return 1 period 5 Return 8 Return 8 Return
    picture 4-nesting
    keys F10 P L A T E 1 0
    picture 5-save
    keys Return
    sleep 0.5
    picture 6-saved
    keys F1 F1 F1 F1
    picture 7-dxf-in
    keys Escape
    picture 8-question
    keys F1
}

for size in "${sizes[@]}"; do
    screen=$size
    resolution=$size
    [ "$size" != full ] || screen=1920x1080 resolution=0
    start_display "$screen"
    for language in 1:english 3:german 6:chinese; do
        name=${language#*:}
        station=$work/station-$size-$name
        cp -r station "$station"
        cp build/release/bin/korvanta build/release/Korvanta.DBG "$station/"
        sed -i -e "s/^SCREEN_RES=.*/SCREEN_RES=$resolution/" -e "s/^LANGUAGE=.*/LANGUAGE=${language%:*}/" \
            "$station/Korvanta.ini"
        XDG_RUNTIME_DIR=$work "$station/korvanta" &
        program=$!
        window=$(xdotool search --sync --onlyvisible --name '^Korvanta V' | head -n 1)
        xdotool windowfocus --sync "$window"
        sleep 0.5
        walk
        kill "$program" && wait "$program" 2>/dev/null || true
    done
    stop_display
done
