#!/usr/bin/env bash
# Pictures of the second chapter: each key of the bar, cut out of the window where it shows, and the zoom and the measured
# line.
# Usage: docs/manual/pictures/keys.sh folder
set -euo pipefail
cd "$(dirname "$0")/../../.."
. docs/window_pictures.sh
target=$1

# The keys of the bar as they are now: "3:plus" is F3 under the name key-plus.png.
cut_keys() {
    local key number
    sleep 0.5
    import -window "$window" "$window_pictures_work/bar.png"
    for key in "$@"; do
        number=$((${key%%:*} - 1))
        convert "$window_pictures_work/bar.png" -crop "94x60+$((4 + number * 1024 / 10))+708" +repage \
            -strip +dither -colors 64 -define png:compression-level=9 "$target/key-${key#*:}.png"
    done
}

build_station
start_display 1024x768
make_station "$window_pictures_work/station" SIMSPEED=3
"$window_pictures_work/station/korvanta-batch" R-05 --set "X Sheet=*2" --save SAMPLE --quiet
start_station "$window_pictures_work/station"

cut_keys 1:next-tab 2:previous-tab 3:right 4:left 5:down 6:up 9:leave 10:open
caps F2
cut_keys 7:host 8:delete
caps F1 F3 F3 F3 F3 F10
cut_keys 1:lists 10:cutting

caps F10
cut_keys 2:zoom 3:plus 4:minus 5:quarter-left 6:quarter-right 9:parameters 10:nesting
caps Down
cut_keys 3:mirror-none 4:mirror-y 5:mirror-x 6:mirror-both
caps Down Down
cut_keys 5:copy-leads 6:turn-path 7:cursor-on 8:cursor-back
caps Down
cut_keys 5:lead-on 6:lead-back 7:lead-next
caps F2 3
cut_keys 3:zoom-more 4:zoom-less 5:zoom-right 6:zoom-left 7:zoom-down 8:zoom-up
caps F6 F6 F6 F6 F6 F7 F7 F7 F7
photograph "$target/keys-zoom-frame.png"
caps Enter
photograph "$target/keys-zoomed.png"
caps F2

# A line measured along the cut corner of the zoomed view, half pulled and done.
caps F2 1 Enter F2
eval "$(xdotool getwindowgeometry --shell "$window" | grep -E '^(X|Y)=')"
xdotool mousemove $((X + 79)) $((Y + 648)) mousedown 1 mousemove $((X + 300)) $((Y + 400)) \
    mousemove $((X + 426)) $((Y + 72)) mouseup 1 mousemove $((X + 700)) $((Y + 690))
photograph "$target/keys-measure.png"

caps F10
cut_keys 5:star 8:simulate 9:back-to-cutting 10:name
caps Down Down Down Down Down
cut_keys 3:rows 4:columns 5:staggered-rows 6:staggered-columns
caps Down
cut_keys 5:start
caps F8
cut_keys 5:stop
caps F10
cut_keys 9:back-to-nest
