#!/usr/bin/env bash
# Runs every gate: one line each, OK or FAIL, and the findings of those that fail.
set -uo pipefail
cd "$(dirname "$0")" || exit 1

failed=0
gate() {
    local name=$1 output
    shift
    if output=$("$@" 2>&1); then
        echo "OK    $name"
    else
        echo "FAIL  $name"
        printf '%s\n' "$output" | sed 's/^/      /'
        failed=1
    fi
}

gate "format: all code is laid out as .clang-format says" ./format.sh
gate "includes: they point down the storeys" ./includes.sh
gate "headers: each compiles alone" ./headers.sh
gate "tidy: clang-tidy has nothing to say" ./tidy.sh
gate "words: nothing refers to papers outside the project" ./words.sh
gate "lists: all sources and tests are built, files end well, scripts parse" ./lists.sh
gate "selectors: functions are what their keyword names say" ./selectors.sh
gate "data: every file is read by a test, its origin and licence are told" ./data.sh
exit "$failed"
