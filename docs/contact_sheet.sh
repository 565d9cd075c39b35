#!/usr/bin/env bash
# Draws all shapes of the catalogue with their defaults on one sheet: docs/images/shapes.svg and, where rsvg-convert is
# there, shapes.png. Needs a built korvanta-batch (./run.sh).
set -euo pipefail
cd "$(dirname "$0")/.."
batch=${1:-build/station/korvanta-batch}
sheet=docs/images/shapes.svg
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

columns=10
cell=150
caption=18
thicker=3 # a cell is much smaller than the picture that a shape is drawn for
names=$("$batch" --list-shapes | awk '{print $1}')
rows=$(((($(wc -w <<<"$names") + columns - 1)) / columns))
{
    printf '<svg xmlns="http://www.w3.org/2000/svg" width="%d" height="%d" font-family="sans-serif" font-size="13">\n' \
        $((columns * cell)) $((rows * cell))
    printf '<rect width="100%%" height="100%%" fill="white"/>\n'
    i=0
    for name in $names; do
        "$batch" "$name" --station station --quiet --svg "$work/shape.svg"
        x=$((i % columns * cell))
        y=$((i / columns * cell))
        printf '<text x="%d" y="%d" text-anchor="middle">%s</text>\n' $((x + cell / 2)) $((y + cell - 4)) "$name"
        sed "1s|width=\"640\"|x=\"$((x + 6))\" y=\"$((y + 6))\" width=\"$((cell - 12))\" height=\"$((cell - caption - 8))\"|" \
            "$work/shape.svg" |
            awk -v f="$thicker" 'match($0, /stroke-width="[0-9.]+"/) {
                width = substr($0, RSTART + 14, RLENGTH - 15) * f
                $0 = substr($0, 1, RSTART - 1) "stroke-width=\"" width "\"" substr($0, RSTART + RLENGTH)
            } 1'
        i=$((i + 1))
    done
    printf '</svg>\n'
} >"$work/shapes.svg"
mv "$work/shapes.svg" "$sheet"
if command -v rsvg-convert >/dev/null; then
    rsvg-convert "$sheet" -o "${sheet%.svg}.png"
fi
