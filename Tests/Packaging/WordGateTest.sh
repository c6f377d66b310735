#!/usr/bin/env bash
# The word gate finds references to papers outside the project and nothing else.
# shellcheck source=../Support/GateTree.sh
. "$(dirname "$0")/../Support/GateTree.sh"

# The words are put together here, so that the gate does not find them in this file.
s=spec
refused=(
    "as the ${s}ification says"
    "two S${s#s}ifications"
    "see The ${s^}, the $s"
    "in $s.md"
    "Part"" 2.1 of it"
    "Parts"" 2.1 to 2.3"
    "a sub""agent"
    "in /""work/main"
    "in ../""shared/facts"
)
for line in "${refused[@]}"; do
    new_tree
    write README.md 'A line above.' "$line"
    expect_finding "$line" "README.md:2:$line"
done

new_tree
write README.md "UTTypeTagSp""ecification" 'Part of the whole, part 2' 'special, inspect' \
    'workshop /network/ shared/' 'the specimen'
write Tests/Data/origin.md "as the ${s}ification says"
write .ci/run '../''shared'
write image.bin "\\0 $s.md"
expect_ok "words that only look alike, data, and what is not text"

finish
