#!/usr/bin/env bash
# The dimensioned drawings of the seventy shapes, as the Parameters screen shows them: shape-R-01.png and so on.
set -euo pipefail
cd "$(dirname "$0")/../../.."
target=$(realpath -m "${1:-docs/manual/images}")
preset=${KORVANTA_PRESET:-release}
./setup.sh
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset" --target picture_sheets drawings
mkdir -p "$target"
"build/$preset/bin/picture_sheets" shapes . "build/$preset" "$target"
