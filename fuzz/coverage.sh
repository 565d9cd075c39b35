#!/usr/bin/env bash
# Line coverage of each reader by the inputs of fuzz/corpus alone. Prints a row for each reader: lines, lines reached, per
# cent. The status is 1 when one of them falls below 95 % (or what MINIMUM says).
#   fuzz/coverage.sh              the table
#   fuzz/coverage.sh --missing    the lines that no input reaches, too
set -euo pipefail
cd "$(dirname "$0")/.."
minimum=${MINIMUM:-95}

# Reader, its targets, and the sources that read.
readers=(
    "DXF drawings|DxfAscii DxfBinary|import/Dxf[A-Za-z]* import/DrawingReader import/Korvanta_DxfIn"
    "ISO programs|Iso|import/Korvanta_IsoIn"
    "Message catalogue|Catalogue|shell/MsgBox_Unicode"
    "Key files|KeyFiles|platform/KeyText[A-Za-z]* platform/ProfileStrings"
    "Job texts (.nst)|JobText|jobfiles/JobText config/JobKeys"
    "Job geometry (.drw)|JobDrawing|jobfiles/DrawingRecord jobfiles/JobDrawing"
    "Shape drawings (.DBG)|Dbg|shapes/PictureRecords shapes/DimensionDrawing platform/RecordFile"
    "Post-processor tables|Templates|post/PprTable post/Templates post/BlockWriters post/MotionWriters post/ProgramWalk"
)

# What instrumented programs count while the build runs them is nobody's.
export LLVM_PROFILE_FILE=/dev/null
cmake --preset coverage >/dev/null
targets=()
for reader in "${readers[@]}"; do
    IFS='|' read -r _ names _ <<<"$reader"
    for name in $names; do targets+=("$name"); done
done
cmake --build --preset coverage --target "${targets[@]/#/fuzz_}" >build/coverage/build.log || { cat build/coverage/build.log; exit 1; }

out=build/coverage/fuzz-profiles
rm -rf "$out"
mkdir -p "$out/tmp"
memory=/dev/shm
[ -w "$memory" ] || memory=${TMPDIR:-/tmp}
TMPDIR=$(mktemp -d "$memory/fuzz.XXXXXX")
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT
for name in "${targets[@]}"; do
    LLVM_PROFILE_FILE=$out/$name.profraw "build/coverage/bin/fuzz_$name" "fuzz/corpus/$name" >"$out/$name.log" 2>&1 ||
        { echo "an input of fuzz/corpus/$name breaks its target:"; tail -n 20 "$out/$name.log"; exit 1; }
done

status=0
for reader in "${readers[@]}"; do
    IFS='|' read -r label names sources <<<"$reader"
    objects=()
    profiles=()
    for name in $names; do
        objects+=(-object "build/coverage/bin/fuzz_$name")
        profiles+=("$out/$name.profraw")
    done
    llvm-profdata merge -sparse "${profiles[@]}" -o "$out/reader.profdata"
    llvm-cov export "${objects[@]:1:1}" "${objects[@]:2}" -instr-profile="$out/reader.profdata" -format=lcov 2>/dev/null |
        awk -v label="$label" -v sources="$sources" -v minimum="$minimum" -v missing="${1:-}" -f tests/coverage.awk || status=1
done
exit $status
