#!/usr/bin/env bash
# Cuts every sample drawing with PPR_LinuxCNC.ini and hands the programs to LinuxCNC's own interpreter, rs274 (Debian:
# linuxcnc-uspace), which isn't among the packages of setup.sh. Run it after a change to that table.
set -euo pipefail
cd "$(dirname "$0")/../.."
command -v rs274 >/dev/null || { echo "rs274 isn't installed" >&2; exit 2; }

cmake --preset dev >/dev/null
cmake --build --preset dev --target korvanta-batch
work=$(mktemp -d)
trap 'rm -r "$work"' EXIT
cp -r station/. "$work/"
sed -i 's/^PPR_INI=.*/PPR_INI=PPR_LinuxCNC.ini\r/' "$work/Korvanta.ini"

leads=(--set "Move Step=1" --set "LeadIn : A=2" --set "LeadIn : B=1" --key CopyLeads)
check() {
    local drawing=$1 kind=$2
    shift 2
    build/dev/bin/korvanta-batch --station "$work" "$drawing" --program CHECK --quiet "$@"
    if rs274 -g "$work"/PROGRAM/CHECK.ngc >"$work/moves" 2>"$work/errors"; then
        echo "accepted  $kind  $(basename "$drawing")"
    else
        echo "refused   $kind  $(basename "$drawing")" >&2
        cat "$work/errors" >&2
        exit 1
    fi
}
for drawing in station/DXF/*.dxf; do
    check "./$drawing" "plain        "
    check "./$drawing" "leads in nest" "${leads[@]}" --set "X Gap=10" --set "Y Gap=10" --set "X Sheet=*3" --set "Y Sheet=*2"
    check "./$drawing" "mirrored     " "${leads[@]}" --set "Mirror=1" --set "Angle=33" --set "Scale=1.3"
    check "./$drawing" "wide kerf    " --set "Move Step=1" --set "LeadIn : A=1.2" --set "LeadIn : B=1.2" --key CopyLeads --input 1=2
done
