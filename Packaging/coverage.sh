#!/usr/bin/env bash
# Prints how much of each source file the tests have executed; run by `make coverage` after them.
set -euo pipefail
cd "$(dirname "$0")/.."

build=build/coverage
find "$build" -name '*.gcda' -print0 | xargs -0 -r gcov --no-output --branch-probabilities 2>/dev/null |
    awk '
    /^File /            { file = $2; gsub(/\x27/, "", file); wanted = file ~ /^(Platform|Sources|Host|Tools)\/.*\.cpp$/ }
    /^$/                { wanted = 0 }  # a summary of all files follows without a name
    !wanted             { next }
    /^Lines executed:/  { split($0, part, /[:%]| of /); lines[file] = part[4]; hit[file] = part[2] * part[4] / 100 }
    /^Branches executed:/ { split($0, part, /[:%]| of /); branches[file] = part[2] }
    END {
        for (file in lines) {
            printf "%6.1f %% of %5d lines, %6.1f %% of branches  %s\n", \
                100 * hit[file] / lines[file], lines[file], branches[file], file | "sort -k9"
            all += lines[file]; executed += hit[file]
        }
        close("sort -k9")
        if (all > 0) printf "%6.1f %% of %5d lines in all\n", 100 * executed / all, all
    }'
