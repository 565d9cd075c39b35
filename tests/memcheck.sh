#!/usr/bin/env bash
# The road of a part under valgrind: each kind of source to a program and a saved job, the job opened again, and the golden
# programs of the post-processor. Any bad access, use of an unset value or lost block is a failure.
#   tests/memcheck.sh [BUILD]     programs of build/BUILD, "dev" when nothing is told
set -euo pipefail
cd "$(dirname "$0")/.."
build=$PWD/build/${1:-dev}

memcheck=(valgrind --quiet --error-exitcode=99 --leak-check=full --errors-for-leak-kinds=definite,indirect,possible)
memory=/dev/shm
[ -w "$memory" ] || memory=${TMPDIR:-/tmp}
station=$(mktemp -d "$memory/memcheck.XXXXXX")
trap 'rm -rf "$station"' EXIT
cp -r station/. "$station"
cp "$build/Korvanta.DBG" "$station"
# Without the module that paints the preview beside it: what the window library does is not ours to check.
cp "$build/bin/korvanta-batch" "$station"

runs=0
check() {
    runs=$((runs + 1))
    "${memcheck[@]}" "$@" >"$station/log" 2>&1 || { echo "memcheck.sh: $*"; cat "$station/log"; exit 1; }
}
cd "$station"
check ./korvanta-batch BRACKET.dxf --set "Move Step=1" --set "LeadIn : A=3" --set "LeadIn : B=1.5" --key CopyLeads \
    --set "Angle=30" --set "X Sheet=*2" --set "Y Sheet=*2" --program BRACKET --save BRACKET
check ./korvanta-batch GASKET.dxf --set "Move Step=1" --set "LeadIn : A=1" --key CopyLeads --program GASKET
check ./korvanta-batch R-05 --param A=300 --param X=25 --set "X Sheet=*2" --set "Nesting=3" --program PLATE --save PLATE
check ./korvanta-batch R-01 --program ONE
check ./korvanta-batch PLATE.nst --program PLATE2 --save PLATE3
check ./korvanta-batch BRACKET.nst --program BRACKET2 --svg BRACKET.svg --json BRACKET.json
check ./korvanta-batch ONE.nc --program AGAIN
grep -q M30 PROGRAM/AGAIN.nc # the roads lead to their end
check "$build/bin/test_post" --gtest_brief=1 --gtest_filter='Golden*:*/Golden*'
echo "memcheck: $runs runs without a finding"
