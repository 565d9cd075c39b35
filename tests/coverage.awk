# Reads a coverage trace (lcov) and prints a row for the sources below src/ whose path without its extension matches one of
# the patterns of `sources`: label, lines, lines reached, per cent, and the same of branches. Fails when lines fall below
# `minimum` per cent, or branches below `branch_minimum`. With `missing` the lines that nothing reached follow.
BEGIN { FS = "[:,]"; patterns = split(sources, pattern, " ") }
/^SF:/ {
    path = substr($0, 4)
    sub(/^.*\/src\//, "", path)
    stem = path
    sub(/\.[a-z]+$/, "", stem)
    wanted = 0
    for (i = 1; i <= patterns; ++i) wanted = wanted || stem ~ "^" pattern[i] "$"
    wanted = wanted && $0 ~ /\/src\// && path !~ /\/src\//
}
wanted && /^DA:/ { line[path, $2] += $3; place[path, $2] = path ":" $2 }
wanted && /^BRDA:/ { branch[path, $2, $3, $4] += $5 }
function percent(part, whole) { return whole == 0 ? 100 : int(1000 * part / whole) / 10 } # never rounded up
END {
    for (at in line) { ++lines; reached += line[at] > 0 }
    for (at in branch) { ++branches; taken += branch[at] > 0 }
    if (lines == 0) { print label ": nothing was counted"; exit 1 }
    printf "%-24s %6d %6d %6.1f %% %6d %6d %6.1f %%\n", label, lines, reached, percent(reached, lines), \
        branches, taken, percent(taken, branches)
    if (missing != "") for (at in line) if (line[at] == 0) print "    src/" place[at] | "sort -t: -k1,1 -k2,2n"
    if (missing != "") close("sort -t: -k1,1 -k2,2n")
    if (percent(reached, lines) < minimum || percent(taken, branches) < branch_minimum) {
        print label ": below " minimum " % of lines" (branch_minimum ? " or " branch_minimum " % of branches" : "")
        exit 1
    }
}
