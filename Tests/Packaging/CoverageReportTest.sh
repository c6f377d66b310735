#!/usr/bin/env bash
# The coverage report sums up folders and fails when one of them has too little.
# The first argument is the awk program under test.
set -euo pipefail
program=$1
failures=0

# check NAME WANTED_STATUS WANTED_LINE SUMMARY_LINE...: one of the report's lines, all of it.
check() {
    local output status=0
    output=$(printf '%s\n' "${@:4}" 'filename,line_total,and so on' | sort |
        awk -f "$program" 2>&1) || status=$?
    if [ "$status" != "$2" ] || ! grep -Fxq -- "$3" <<<"$output"; then
        echo "FAILED: $1: exit code $status, output:"
        echo "$output"
        failures=1
    fi
}

# Each row: file, lines, of them run, share, branches, of them taken, share.
whole='Sources/Zip/Zip.cpp,10,10,1.0,4,4,1.0'
check "a file" 0 '100.0 % of    10 lines  100.0 % of     4 branches  Sources/Zip/Zip.cpp' "$whole"
check "a file without branches" 0 '100.0 % of     3 lines  100.0 % of     0 branches  Host/A.h' \
    "$whole" 'Host/A.h,3,3,1.0,0,0,'
check "a folder's sum" 0 ' 50.0 % of    20 lines   25.0 % of     8 branches  Host' \
    "$whole" 'Host/A.cpp,10,6,0.6,4,2,0.5' 'Host/B.cpp,10,4,0.4,4,0,0.0'
check "nearly all is not all" 1 ' 99.9 % of 10000 lines  100.0 % of     0 branches  Sources' \
    'Sources/A.cpp,10000,9999,1.0,0,0,'
check "one line of Sources is missing" 1 'FAIL  Sources: 95.0 % of lines, 100 % are wanted' \
    "$whole" 'Sources/A.cpp,10,9,0.9,0,0,'
check "Platform folders stand alone" 1 'FAIL  Platform/Text: 94.0 % of lines, 95 % are wanted' \
    "$whole" 'Platform/Foundation/A.cpp,900,900,1.0,0,0,' 'Platform/Text/A.cpp,100,94,0.94,0,0,'
check "enough of a Platform folder" 0 \
    ' 95.0 % of   100 lines  100.0 % of     0 branches  Platform/Text' \
    "$whole" 'Platform/Text/A.cpp,100,95,0.95,0,0,'
check "nothing was counted" 1 'FAIL  nothing of Sources was built to be counted'
exit "$failures"
