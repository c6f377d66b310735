#!/usr/bin/env bash
# The tidy gate finds what clang-tidy finds, also in headers, and looks only at what has changed.
# shellcheck source=../Support/GateTree.sh
. "$(dirname "$0")/../Support/GateTree.sh"
export JOBS=1
unset PARLAVOX_TIDY_CACHE

# Stands before the real program and writes down which sources it is asked to look at.
programs=$(mktemp -d)
trap 'rm -rf "$tree" "$programs"' EXIT
real=$(command -v clang-tidy-14)
# stand_in LINE...: what the program does with sources.
stand_in() {
    printf '%s\n' '#!/usr/bin/env bash' "case \$* in *--version) exec '$real' --version ;; esac" "$@" \
        >"$programs/clang-tidy-14"
    chmod +x "$programs/clang-tidy-14"
}
stand_in "echo \"\${@: -1}\" >>'$programs/calls'" "exec '$real' \"\$@\""
PATH=$programs:$PATH

new_tree
write CMakePresets.json '{"version": 6, "configurePresets": [{"name": "clang",' \
    '"generator": "Ninja", "binaryDir": "${sourceDir}/build/clang",' \
    '"cacheVariables": {"CMAKE_CXX_COMPILER": "clang++"}}]}'
write CMakeLists.txt 'cmake_minimum_required(VERSION 3.25)' 'project(Small LANGUAGES CXX)' \
    'set(CMAKE_EXPORT_COMPILE_COMMANDS ON)' 'include_directories(${CMAKE_SOURCE_DIR})' \
    'add_library(small Sources/One.cpp Sources/Two.cpp)'
write .clang-tidy "Checks: '-*,modernize-use-override,modernize-use-nullptr'" \
    "WarningsAsErrors: '*'" "HeaderFilterRegex: 'Sources/'"
write Sources/One.cpp '#include "Sources/Outer.h"' 'int one() { return 1; }'
write Sources/Two.cpp 'int two() { return 2; }'
write Sources/Outer.h '#include "Sources/Inner.h"'
write Sources/Inner.h 'struct Base {' '    virtual void run() = 0;' '};'

# expect_calls NAME SOURCE...: which sources were looked at since the last time.
expect_calls() {
    local calls=
    if [ -e "$programs/calls" ]; then calls=$(sort "$programs/calls" | paste -sd ' '); fi
    rm -f "$programs/calls"
    if [ "$calls" != "${*:2}" ]; then
        echo "FAILED: $1: looked at '$calls' instead of '${*:2}'"
        failures=1
    fi
}

expect_ok "a clean tree"
expect_calls "a clean tree" Sources/One.cpp Sources/Two.cpp
expect_ok "a clean tree again"
expect_calls "a clean tree again"

write Sources/Two.cpp 'int* two() { return 0; }'
for time in first second; do
    expect_finding "a fault, $time time" "Sources/Two.cpp:1:21: error: use nullptr"
    expect_calls "a fault, $time time" Sources/Two.cpp
done
write Sources/Two.cpp 'int two() { return 2; }'
expect_ok "as it was before"
expect_calls "as it was before"

# A header's finding stands once, however many sources include it.
write Sources/Inner.h 'struct Base {' '    virtual void run() = 0;' '};' \
    'struct Derived : Base {' '    void run();' '};'
write Sources/Two.cpp '#include "Sources/Inner.h"' 'int two() { return 2; }'
expect_finding "a fault in a header" "Sources/Inner.h:5:10: error: annotate this function"
expect_calls "a fault in a header" Sources/One.cpp Sources/Two.cpp

write .clang-tidy "Checks: '-*,modernize-use-nullptr'" "WarningsAsErrors: '*'"
expect_ok "other settings"
expect_calls "other settings" Sources/One.cpp Sources/Two.cpp

write Sources/Lost.cpp 'int lost() { return 3; }'
expect_finding "a source that nobody compiles" "Sources/Lost.cpp: is not compiled"
rm "$tree/Sources/Lost.cpp"
write Sources/Lost.h '// nobody includes it'
expect_finding "a header that nobody includes" "Sources/Lost.h: no source includes it"
rm "$tree/Sources/Lost.h"
rm -f "$programs/calls"

# A tool that fails without a finding is no clean verdict.
write Sources/Two.cpp 'int two() { return 3; }'
stand_in 'echo broken tool' 'exit 1'
expect_finding "a tool that fails" "broken tool"

finish
