#!/usr/bin/env bash
# The data gate finds data that no test reads and data of unknown origin.
# shellcheck source=../Support/GateTree.sh
. "$(dirname "$0")/../Support/GateTree.sh"

sound_tree() {
    new_tree
    write Tests/Data/letters/README.md '| file | origin | licence |' '| a.txt, b.txt | us | MIT |'
    write Tests/Data/letters/a.txt 'a'
    write Tests/Data/letters/b.txt 'b'
    write Tests/Data/whole/README.md 'Origin: us. Licence: MIT.' 'one and two'
    write Tests/Data/whole/one.txt '1'
    write Tests/Data/whole/two.expected.txt '2'
    write Tests/Platform/LetterTest.cpp 'read(dataPath("letters/a.txt"));' \
        'read(letters() / "b.txt");'
    write Tests/Platform/WholeTest.cpp 'for (auto& file : directory_iterator(dataPath("whole")))'
}

new_tree
expect_ok "no data at all"

sound_tree
expect_ok "named files and walked folders"

sound_tree
write Tests/Data/letters/README.md 'Origin, licence: a, b and deep.'
write Tests/Data/whole/deep/README.md 'Origin, licence: three.'
write Tests/Data/whole/deep/three.txt '3'
expect_ok "a folder below one that is walked"

sound_tree
write Tests/Data/whole/README.md 'Origin: us. Licence: MIT.' 'one, two and three.rtfd'
write Tests/Data/whole/three.rtfd/TXT.rtf 'text'
write Tests/Data/whole/three.rtfd/picture.png 'picture'
expect_ok "a document that is a folder"

sound_tree
write Tests/Data/whole/three.rtfd/TXT.rtf 'text'
expect_finding "a document of unknown origin" "Tests/Data/whole/three.rtfd: Tests/Data/whole/README.md"

sound_tree
write Tests/Platform/LetterTest.cpp 'read(dataPath("letters/a.txt"));'
expect_finding "a file that nobody names" "Tests/Data/letters/b.txt: no test reads it"

sound_tree
write Tests/Platform/LetterTest.cpp 'read("letters/a.txt");' 'read("letters/bXtxt");' \
    'read("ab.txt");' '// letters/b.txt'
expect_finding "names that only look alike" "Tests/Data/letters/b.txt: no test reads it"

sound_tree
write Tests/Platform/LetterTest.cpp 'dataPath("letters") / "a.txt"'
expect_finding "a folder that is named and not walked" "Tests/Data/letters/b.txt: no test reads it"

sound_tree
write Tests/Data/letters/README.md 'Origin and licence of a.txt.'
expect_finding "a file of unknown origin" "Tests/Data/letters/b.txt: Tests/Data/letters/README.md does"

sound_tree
write Tests/Data/letters/README.md 'a.txt and b.txt are under the MIT licence.'
expect_finding "a folder without origin" "Tests/Data/letters/README.md: does not tell the origin"

sound_tree
write Tests/Data/letters/README.md 'The origin of a.txt and b.txt is here.'
expect_finding "a folder without licence" "Tests/Data/letters/README.md: does not tell the licence"

sound_tree
rm "$tree/Tests/Data/letters/README.md"
expect_finding "a folder without README" "Tests/Data/letters: has no README.md"

finish
