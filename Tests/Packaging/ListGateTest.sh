#!/usr/bin/env bash
# The list gate finds tests that are not built, ill-ended files and scripts that do not parse.
# shellcheck source=../Support/GateTree.sh
. "$(dirname "$0")/../Support/GateTree.sh"

sound_tree() {
    new_tree
    write Tests/CMakeLists.txt 'pv_test(all SOURCES Nested/DeepTest.cpp)'
    write Tests/Nested/DeepTest.cpp '// a test'
    write Tests/Host/CMakeLists.txt 'pv_test(host' '    SOURCES MainTest.cpp' ')'
    write Tests/Host/MainTest.cpp '// a test'
    write tool.sh 'echo fine'
    write run '#!/usr/bin/env bash' 'echo fine'
}

sound_tree
expect_ok "a sound tree"

sound_tree
: >"$tree/empty.txt"
printf 'a\0b' >"$tree/binary.bin"
printf 'as it came' >"$tree/odd.txt"
mkdir -p "$tree/Tests/Data" && mv "$tree/odd.txt" "$tree/Tests/Data/odd.txt"
expect_ok "empty files, binary files and data have no line to end"

sound_tree
write Tests/Host/OtherTest.cpp '// a test'
expect_finding "a test that is not listed" "OtherTest.cpp: is not listed in Tests/Host/CMakeLists.txt"

sound_tree
write Tests/Host/AinTest.cpp '// a test'
expect_finding "the end of a listed name" "Tests/Host/AinTest.cpp: is not listed"

sound_tree
write Tests/Host/CMakeLists.txt '# MainTest.cpp comes back later'
expect_finding "a name in a comment" "Tests/Host/MainTest.cpp: is not listed"

sound_tree
write Tests/Nested/OtherTest.cpp '// a test'
expect_finding "a test below the list's folder" "OtherTest.cpp: is not listed in Tests/CMakeLists.txt"

sound_tree
printf 'no end' >"$tree/a.txt"
expect_finding "a last line without end" "a.txt: the last line has no end"

sound_tree
printf 'line\n\n' >"$tree/a.txt"
expect_finding "an empty line at the end" "a.txt: ends with an empty line"

# bash itself prints lines of its own, so only the verdict is compared.
for script in tool.sh run; do
    sound_tree
    write "$script" '#!/usr/bin/env bash' 'if true; then'
    if "$gate" "$tree" >"$tree.out" 2>&1 || ! grep -q "^$script: does not parse" "$tree.out"; then
        echo "FAILED: a script that does not parse: $script"
        failures=1
    fi
    rm -f "$tree.out"
done

finish
