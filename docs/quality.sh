#!/usr/bin/env bash
# Measures the quality of the program and rewrites the figures in docs/quality.md: coverage by the tests and by the fuzz
# corpora, the number of tests, what the static and dynamic checks find, and sizes. Takes a quarter of an hour, mostly the
# linter's; "--quick" leaves that out. A check that finds something stands in the table and on the terminal, and the status is 1.
set -euo pipefail
cd "$(dirname "$0")/.."
page=docs/quality.md
quick=${1:-}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0

# A check by name: how many lines it has to say. All of our checks are silent when they find nothing.
findings() { # name, log, command...
    local name=$1 log=$work/$2
    shift 2
    if "$@" >"$log" 2>&1; then
        echo "| $name | none |"
    else
        cat "$log" >&2
        echo "| $name | **$(grep -cE 'error|warning|==[0-9]+==|style|performance|portability' "$log" || true) lines** |"
        touch "$work/failed"
    fi
}

format() { git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror; }

# Rows of tests/coverage.awk as rows of a table: label, lines, reached, per cent, and the same of branches.
coverage_rows() {
    sed -nE 's/^(.*[^ ]) +([0-9]+) +([0-9]+) +([0-9.]+ %) +([0-9]+) +([0-9]+) +([0-9.]+ %)$/| \1 | \2 | \4 | \5 | \7 |/p' "$1"
}

cases_without_window() {
    local program
    for program in build/coverage/test-profiles/test_*.log; do
        program=build/coverage/bin/$(basename "$program" .log)
        "$program" --gtest_list_tests | grep -c '^  '
    done | awk '{ cases += $1 } END { print cases }'
}
lines_of() { git ls-files -- "$@" | xargs -d '\n' cat | wc -l; }
files_of() { git ls-files -- "$@" | wc -l; }

measure() {
    ./setup.sh
    cmake --preset dev >/dev/null
    cmake --build --preset dev --target korvanta-batch test_post drawings >"$work/build.log" || { tail -n 40 "$work/build.log"; exit 1; }
    tests/coverage.sh >"$work/tests.txt" || touch "$work/failed"
    fuzz/coverage.sh >"$work/fuzz.txt" || touch "$work/failed"
    {
        findings "clang-format" format.log format
        if [ "$quick" = --quick ]; then
            echo "| clang-tidy, by \`.clang-tidy\` | not run |"
        else
            findings "clang-tidy, by \`.clang-tidy\`" lint.log tests/lint.sh
        fi
        findings "cppcheck: warning, performance, portability" cppcheck.log tests/cppcheck.sh
        findings "valgrind on the road of a part" memcheck.log tests/memcheck.sh
    } >"$work/checks.txt"
}

figures() {
    local inputs
    inputs=$(files_of 'fuzz/corpus/*')
    echo
    echo "Measured $(date +%Y-%m-%d) by \`docs/quality.sh\` at $(git log -1 --format=%h)."
    echo
    echo "| Room | Lines of code | Reached by the tests | Branches | Taken |"
    echo "|---|---|---|---|---|"
    coverage_rows "$work/tests.txt"
    echo
    echo "| Reader | Lines of code | Reached by its corpus | Branches | Taken |"
    echo "|---|---|---|---|---|"
    coverage_rows "$work/fuzz.txt"
    echo
    echo "| Check | Findings |"
    echo "|---|---|"
    cat "$work/checks.txt"
    echo
    echo "| Count | |"
    echo "|---|---|"
    echo "| Test cases without the window's | $(cases_without_window) |"
    echo "| Test cases of the window | $(grep -hE '^ *TEST(_F|_P)?\(' tests/qt/*.cpp tests/window/*.cpp | wc -l) |"
    echo "| Inputs of the fuzz corpora | $inputs, $(($(git ls-files -z 'fuzz/corpus/*' | xargs -0 cat | wc -c) / 1024)) KB |"
    echo "| Program, all rooms | $(files_of 'src/*.cpp' 'src/*.h') files, $(lines_of 'src/*.cpp' 'src/*.h') lines |"
    echo "| of it window and batch tool | $(lines_of 'src/qt/*.cpp' 'src/qt/*.h' 'src/batch/*.cpp' 'src/batch/*.h') lines |"
    echo "| Tests, benchmarks, fuzz targets | $(files_of 'tests/*.cpp' 'tests/*.h' 'bench/*.cpp' 'fuzz/*.cpp' 'fuzz/*.h') files, $(lines_of 'tests/*.cpp' 'tests/*.h' 'bench/*.cpp' 'fuzz/*.cpp' 'fuzz/*.h') lines |"
    echo "| Longest file of the program | $(git ls-files 'src/*.cpp' 'src/*.h' | xargs wc -l | grep -v ' total$' | sort -rn | awk 'NR == 1 { print "`" $2 "`, " $1 " lines" }') |"
    echo
}

measure
for rows in tests fuzz; do
    [ -n "$(coverage_rows "$work/$rows.txt")" ] || {
        cat "$work/$rows.txt" >&2
        echo "docs/quality.sh: coverage was not measured, $page stays as it is" >&2
        exit 1
    }
done
figures >"$work/figures.md"
# Everything between the two marks is ours, the rest of the page is written by hand.
awk -v figures="$work/figures.md" '
    /^<!-- end of figures -->$/ { skip = 0 }
    !skip { print }
    /^<!-- figures -->$/ { skip = 1; while ((getline row < figures) > 0) print row }' "$page" >"$work/page.md"
cp "$work/page.md" "$page"
[ ! -e "$work/failed" ] || status=1
echo "$page is up to date"
exit $status
