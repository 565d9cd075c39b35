#!/usr/bin/env bash
# All pictures of the manual, into docs/manual/images (or the folder given as first argument), by the scripts in
# docs/manual/pictures.
# Usage: docs/manual/pictures.sh [folder [topic ...]]   topics: the names of those scripts, without .sh
set -euo pipefail
shopt -s nullglob
cd "$(dirname "$0")/../.."
target=$(realpath -m "${1:-docs/manual/images}")
shift || true
mkdir -p "$target"

if [ $# -gt 0 ]; then
    scripts=("${@/%/.sh}")
    scripts=("${scripts[@]/#/docs/manual/pictures/}")
else
    scripts=(docs/manual/pictures/*.sh)
fi
for script in "${scripts[@]}"; do
    echo "$script"
    "$script" "$target"
done
