#!/usr/bin/env bash
# The list gate finds what is not built, fuzz targets without seeds, ill-ended files and scripts that
# do not parse.
# shellcheck source=../Support/GateTree.sh
. "$(dirname "$0")/../Support/GateTree.sh"

sound_tree() {
    new_tree
    write Tests/CMakeLists.txt 'pv_test(all SOURCES Nested/DeepTest.cpp)'
    write Tests/Nested/DeepTest.cpp '// a test'
    write Tests/Host/CMakeLists.txt 'pv_test(host' '    SOURCES MainTest.cpp' ')'
    write Tests/Host/MainTest.cpp '// a test'
    write Sources/CMakeLists.txt 'pv_library(all SOURCES Zip/Zip.cpp)'
    write Sources/Zip/Zip.cpp '// a source'
    write Fuzz/Zip/CMakeLists.txt 'pv_fuzz(zip_fuzz' '    SOURCE ZipFuzz.cpp' ')'
    write Fuzz/Zip/ZipFuzz.cpp '// a target'
    write Fuzz/Zip/corpus/zip_fuzz/empty ''
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

for folder in Sources/Zip Fuzz/Zip Benchmarks; do
    sound_tree
    write "$folder/Lost.cpp" '// in no list'
    expect_finding "a source in no list" "$folder/Lost.cpp: is not listed in "
done

sound_tree
rm "$tree/Fuzz/Zip/corpus/zip_fuzz/empty"
expect_finding "a target without seeds" "Fuzz/Zip/corpus/zip_fuzz: a fuzz target without seeds"

sound_tree
write Fuzz/Zip/corpus/gzip_fuzz/empty ''
expect_finding "seeds without a target" "Fuzz/Zip/corpus/gzip_fuzz: seeds of no fuzz target"

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
