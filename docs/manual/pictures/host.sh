#!/usr/bin/env bash
# The picture of the chapter on the host link: korvanta-host as a bar in the strip that the station keeps free, behind a
# start, a saved job and F7.
# Usage: docs/manual/pictures/host.sh folder
set -euo pipefail
cd "$(dirname "$0")/../../.."
. docs/window_pictures.sh
target=$1
bin=build/${KORVANTA_PRESET:-release}/bin

bus_pid=
host_pid=
host_pictures_cleanup() {
    local pid
    for pid in $host_pid $bus_pid; do
        kill "$pid" 2>/dev/null || true
    done
    window_pictures_cleanup
}
trap host_pictures_cleanup EXIT

build_station
cmake --build --preset "${KORVANTA_PRESET:-release}" --target korvanta-host
start_display 1024x768

address=unix:path=$window_pictures_work/bus
dbus-daemon --session --nofork --nopidfile --address="$address" >/dev/null 2>&1 &
bus_pid=$!
export DBUS_SESSION_BUS_ADDRESS=$address
for _ in $(seq 100); do
    [ -S "$window_pictures_work/bus" ] && break
    sleep 0.1
done

"$bin/korvanta-host" --bar 115 --viewer true >"$window_pictures_work/host.log" &
host_pid=$!
for _ in $(seq 100); do
    grep -q ready "$window_pictures_work/host.log" && break
    sleep 0.1
done

make_station "$window_pictures_work/PLATES" VELCOM=YES
start_station "$window_pictures_work/PLATES"
caps F10 F10 F10 "*5" Enter "*2" Enter F10 PLATE10 Enter
sleep 1
caps F7
grep -q "^open: .*PLATE10.nc (1)" "$window_pictures_work/host.log"
sleep 1.5 # the bar comes to the front once a second
window=root
photograph "$target/host.png"
