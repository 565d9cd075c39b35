#!/usr/bin/env bash
# The dimensioned drawings of the seventy shapes, as the Parameters screen shows them: shape-R-01.png and so on.
set -euo pipefail
cd "$(dirname "$0")/../../.."
target=$(realpath -m "${1:-docs/manual/images}")
cmake --preset dev >/dev/null
ninja -C build/dev picture_sheets drawings >/dev/null
mkdir -p "$target"
build/dev/bin/picture_sheets shapes . build/dev "$target"
