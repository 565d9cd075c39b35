#!/usr/bin/env bash
# Runs all fuzz targets with their corpora, as many at a time as there are processors.
#   fuzz/run.sh short       45 seconds for each target: what a change must pass
#   fuzz/run.sh nightly     eight hours in all
#   fuzz/run.sh MINUTES     so many in all
# Behind it: --only NAME      that target alone, as DxfAscii
#            --merge          takes what the run has found into fuzz/corpus, as few and as small inputs as give its coverage
# What breaks a target is minimised and named, and the status is 1: build/fuzz/found/<target>-crash-... . What a run finds
# on its way stays in build/fuzz/corpus, and the next one begins there.
set -euo pipefail
cd "$(dirname "$0")/.."

usage() { sed -n '2,9s/^# \{0,1\}//p' fuzz/run.sh >&2; exit 2; }

time=${1:-}
shift || usage
only=
merge=
while [ $# -gt 0 ]; do
    case $1 in
        --merge) merge=yes ;;
        --only) only=${2:?}; shift ;;
        *) usage ;;
    esac
    shift
done

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz

targets=()
for program in build/fuzz/bin/fuzz_*; do
    name=${program##*/fuzz_}
    [ -f "fuzz/$name.cpp" ] || continue # left of a target that is gone
    [ -z "$only" ] || [ "$only" = "$name" ] || continue
    targets+=("$name")
done
[ ${#targets[@]} -gt 0 ] || { echo "fuzz/run.sh: there is no target $only" >&2; exit 2; }

jobs=$(nproc)
rounds=$(((${#targets[@]} + jobs - 1) / jobs))
case $time in
    short) seconds=45 ;;
    nightly) seconds=$((8 * 3600 / rounds)) ;;
    *[!0-9.]* | '') usage ;;
    *) seconds=$(awk -v m="$time" -v r="$rounds" 'BEGIN { s = int(m * 60 / r); print s < 1 ? 1 : s }') ;;
esac

# The targets write files at every input: in memory, and gone afterwards.
memory=/dev/shm
[ -w "$memory" ] || memory=${TMPDIR:-/tmp}
export TMPDIR found=build/fuzz/found seconds
TMPDIR=$(mktemp -d "$memory/fuzz.XXXXXX")
trap 'rm -rf "$TMPDIR"' EXIT
mkdir -p "$found"

fuzz_one() {
    local name=$1 own=build/fuzz/corpus/$1 dictionary=()
    mkdir -p "$own"
    [ ! -f "fuzz/$name.dict" ] || dictionary=("-dict=fuzz/$name.dict")
    if "build/fuzz/bin/fuzz_$name" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=1024 -max_len=65536 \
        "${dictionary[@]}" -artifact_prefix="$found/$name-" "$own" "fuzz/corpus/$name" >"build/fuzz/$name.log" 2>&1; then
        printf '%-12s %s\n' "$name" "$(tail -n 1 "build/fuzz/$name.log")"
        return
    fi
    tail -n 40 "build/fuzz/$name.log"
    touch "$TMPDIR/failed"
}

minimise() {
    local name=$1 input=$2
    "build/fuzz/bin/fuzz_$name" -minimize_crash=1 -max_total_time=60 -timeout=20 -rss_limit_mb=1024 \
        -exact_artifact_path="$input.small" "$input" >"$input.log" 2>&1 || true
    [ -s "$input.small" ] || cp "$input" "$input.small"
}

# As few of the inputs as reach every line and branch that all of them reach: the counts of a loop don't matter.
merge_one() {
    local name=$1 all=$TMPDIR/$1-all few=$TMPDIR/$1-few
    mkdir -p "$all" "$few"
    cp "fuzz/corpus/$name"/* "$all"
    "build/fuzz/bin/fuzz_$name" -merge=1 -use_counters=0 -max_len=4096 -timeout=20 -rss_limit_mb=1024 \
        "$all" "build/fuzz/corpus/$name" >"build/fuzz/$name-merge.log" 2>&1
    "build/fuzz/bin/fuzz_$name" -set_cover_merge=1 -use_counters=0 -max_len=65536 -timeout=20 -rss_limit_mb=1024 \
        "$few" "$all" >>"build/fuzz/$name-merge.log" 2>&1
    # Inputs that were written by hand keep their names, and their place.
    local taken=0 file
    for file in "$few"/*; do
        grep -qxF "$(sha1sum <"$file")" <(for own in "fuzz/corpus/$name"/*; do sha1sum <"$own"; done) && continue
        cp "$file" "fuzz/corpus/$name/"
        taken=$((taken + 1))
    done
    printf '%-12s %d inputs taken, %d in all\n' "$name" "$taken" "$(find "fuzz/corpus/$name" -type f | wc -l)"
}
export -f fuzz_one

echo "fuzzing ${#targets[@]} targets, $seconds s each, $jobs at a time"
before=$(mktemp "$TMPDIR/before.XXXXXX")
find "$found" -name '*-slow-unit-*' -prune -o -type f -print | sort >"$before"
printf '%s\n' "${targets[@]}" | xargs -P "$jobs" -I{} bash -euo pipefail -c 'fuzz_one "$1"' _ {}

if [ -e "$TMPDIR/failed" ]; then
    echo "fuzzing found:"
    find "$found" -name '*-slow-unit-*' -prune -o -type f -print | sort | comm -13 "$before" - | while read -r input; do
        name=${input##*/}
        name=${name%%-*}
        case $input in
            *-crash-*) minimise "$name" "$input"; echo "  $input.small ($(stat -c %s "$input.small") bytes, of $input)" ;;
            *) echo "  $input" ;;
        esac
        echo "    again: build/fuzz/bin/fuzz_$name $input"
    done
    exit 1
fi

if [ -n "$merge" ]; then
    for name in "${targets[@]}"; do
        merge_one "$name"
    done
fi
