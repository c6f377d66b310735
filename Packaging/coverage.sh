#!/usr/bin/env bash
# Prints how much of each source file the tests have executed; run by `make coverage` after them.
set -euo pipefail
cd "$(dirname "$0")/.."

build=build/coverage
find "$build" -name '*.gcda' -print0 | xargs -0 -r gcov --no-output --branch-probabilities 2>/dev/null |
    awk '
    function number(text) { sub(/^[^:]*:/, "", text); return text + 0 }
    /^File / {
        file = $2
        gsub(/\x27/, "", file)
        wanted = file ~ /^(Platform|Sources|Host|Tools)\/.*\.cpp$/
        next
    }
    !wanted { next }
    /^Lines executed:/ {
        # A second such line sums up all files and belongs to none.
        if (file in lines) { wanted = 0; next }
        lines[file] = $NF
        hit[file] = number($0) * $NF / 100
    }
    /^Branches executed:/ { branches[file] = number($0) }
    END {
        for (file in lines) {
            printf "%6.1f %% of %5d lines, %6.1f %% of branches  %s\n", \
                100 * hit[file] / lines[file], lines[file], branches[file], file | "sort -k10"
            all += lines[file]; executed += hit[file]
        }
        close("sort -k10")
        if (all > 0) printf "%6.1f %% of %5d lines in all\n", 100 * executed / all, all
    }'
