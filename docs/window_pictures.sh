# Sourced by the scripts that take pictures of the real window: a display in memory, the station in a folder of its own, keys
# from outside, and photographs. Run from the root of the project; `set -euo pipefail` is the caller's.
#
#   build_station                    builds what the station needs (preset KORVANTA_PRESET, release without it)
#   start_display 1024x768           a display of that size without a window manager: the window is the picture
#   make_station FOLDER [KEY=VALUE ...]   a fresh station with keys of Korvanta.ini changed (and no question at the exit)
#   start_station FOLDER             opens its window and waits for it
#   caps F10 Enter 300 "*5" Ctrl+F7  strokes, words as on the key caps; any other word is typed, character by character
#   caps_of PAGE N                   the strokes of the Nth block of keys of a page
#   photograph FILE [WxH+X+Y [SIZE]] the window, or a part of it, as a small PNG of 256 colours, resized to such as 60%
#   stop_station, stop_display       both are over at the end of the script, too

window_pictures_work=$(mktemp -d)
display_pid=
station_pid=
window=

window_pictures_cleanup() {
    stop_station
    stop_display
    rm -rf "$window_pictures_work"
}
trap window_pictures_cleanup EXIT

build_station() {
    local preset=${KORVANTA_PRESET:-release}
    ./setup.sh
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset" --target korvanta korvanta-batch drawings
}

start_display() {
    exec 7>"$window_pictures_work/display"
    Xvfb -displayfd 7 -screen 0 "$1x24" -dpi 96 >/dev/null 2>&1 &
    display_pid=$!
    for _ in $(seq 100); do
        [ -s "$window_pictures_work/display" ] && break
        sleep 0.1
    done
    DISPLAY=:$(tr -d '\n' <"$window_pictures_work/display")
    export DISPLAY
}

stop_display() {
    [ -z "$display_pid" ] || { kill "$display_pid" && wait "$display_pid"; } 2>/dev/null || true
    display_pid=
}

make_station() {
    local folder=$1 setting
    shift
    cp -r station "$folder"
    local bin=build/${KORVANTA_PRESET:-release}
    cp "$bin/bin/korvanta" "$bin/bin/korvanta-batch" "$bin/bin/korvanta-painter.so" "$bin/Korvanta.DBG" "$folder/"
    for setting in EXIT_CONFIRM=NO SCREEN_RES=1024x768 "$@"; do
        grep -q "^;\?${setting%%=*}=" "$folder/Korvanta.ini"
        sed -i "s|^;\?${setting%%=*}=.*|$setting|" "$folder/Korvanta.ini"
    done
}

start_station() {
    XDG_RUNTIME_DIR=$window_pictures_work "$1/korvanta" &
    station_pid=$!
    window=$(xdotool search --sync --onlyvisible --name '^Korvanta V' | head -n 1)
    xdotool windowfocus --sync "$window"
    sleep 0.5
}

stop_station() {
    [ -z "$station_pid" ] || { kill "$station_pid" && wait "$station_pid"; } 2>/dev/null || true
    station_pid=
}

# The display's names of the keys of a word.
key_names() {
    local word=$1 i sign
    case $word in
    F[1-9] | F10 | Up | Down | Left | Right | Delete) echo "$word" ;;
    Enter) echo Return ;;
    Esc) echo Escape ;;
    Space) echo space ;;
    PageUp) echo Prior ;;
    PageDown) echo Next ;;
    Ctrl+*) echo "ctrl+${word#Ctrl+}" ;;
    *)
        word=${word#\"}
        word=${word%\"}
        for ((i = 0; i < ${#word}; i++)); do
            sign=${word:i:1}
            case $sign in
            '*') echo asterisk ;;
            .) echo period ;;
            -) echo minus ;;
            _) echo underscore ;;
            +) echo plus ;;
            *) echo "$sign" ;;
            esac
        done
        ;;
    esac
}

caps() {
    local word
    for word in "$@"; do
        key_names "$word" | xargs xdotool key --clearmodifiers --delay 30
        sleep 0.1
    done
}

caps_of() {
    local words
    read -r -d '' -a words < <(awk -v wanted="$2" '
        /^```/ { inside = 0 }
        inside && block == wanted { print }
        /^```keys/ { inside = 1; block++ }' "$1") || true
    [ ${#words[@]} -gt 0 ] || { echo "$1: no block of keys number $2" >&2; exit 1; }
    caps "${words[@]}"
}

photograph() {
    sleep 0.5
    import -window "$window" png:- |
        convert png:- ${2:+-crop "$2" +repage} ${3:+-resize "$3"} -strip +dither -colors 256 -define png:compression-level=9 "$1"
}
