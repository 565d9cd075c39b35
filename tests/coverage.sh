#!/usr/bin/env bash
# Line and branch coverage of korvanta_core by all tests that need no window, as clang counts them: an exception that
# may pass a call is no branch. Prints a row for each room and one for the whole; the status is 1 when a test fails, or when
# a row falls below its limit.
#   tests/coverage.sh              the table
#   tests/coverage.sh --missing    the lines that no test reaches, too
set -euo pipefail
cd "$(dirname "$0")/.."
rooms=(state platform geometry config profile shapes nesting import post jobfiles shell)
room_lines=95 room_branches=85
core_lines=98 core_branches=93

# What instrumented programs count while the build runs them is nobody's.
export LLVM_PROFILE_FILE=/dev/null
cmake --preset coverage >/dev/null
cmake --build --preset coverage >build/coverage/build.log || { tail -n 40 build/coverage/build.log; exit 1; }

out=build/coverage/test-profiles
rm -rf "$out"
mkdir -p "$out"
export out
run_one() {
    local name=${1##*/}
    LLVM_PROFILE_FILE=$out/$name-%4m.profraw "$1" --gtest_brief=1 >"$out/$name.log" 2>&1 ||
        { echo "$name fails:"; tail -n 40 "$out/$name.log"; return 1; }
}
export -f run_one
programs=()
for folder in tests/*/; do
    [ "$folder" != tests/controls/ ] || continue # a minute in other programs, and what it runs the others run as well
    program=build/coverage/bin/test_$(basename "$folder")
    [ ! -x "$program" ] || programs+=("$program")
done
printf '%s\n' "${programs[@]}" | xargs -P "$(nproc)" -I{} bash -euo pipefail -c 'run_one "$1"' _ {}

objects=(build/coverage/bin/korvanta-batch)
for program in "${programs[@]}"; do objects+=(-object "$program"); done
llvm-profdata merge -sparse "$out"/*.profraw -o "$out/tests.profdata"
llvm-cov export "${objects[@]}" -instr-profile="$out/tests.profdata" -format=lcov >"$out/tests.lcov" 2>/dev/null

row() { # label, sources, least per cent of lines and branches
    awk -v label="$1" -v sources="$2" -v minimum="$3" -v branch_minimum="$4" -v missing="$5" -f tests/coverage.awk "$out/tests.lcov"
}
status=0
for room in "${rooms[@]}"; do
    row "$room" "$room/.*" "$room_lines" "$room_branches" "${1:-}" || status=1
done
all="${rooms[*]/%//.*}"
row korvanta_core "$all" "$core_lines" "$core_branches" "" || status=1
exit $status
