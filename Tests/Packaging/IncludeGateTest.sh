#!/usr/bin/env bash
# The include gate lets a sound tree pass and finds each kind of wrong include.
# shellcheck source=../Support/GateTree.sh
. "$(dirname "$0")/../Support/GateTree.sh"

# allows FILE INCLUDE
allows() {
    new_tree
    write "$1" "#include $2"
    expect_ok "$1 includes $2"
}

# refuses FILE INCLUDE [TEXT]
refuses() {
    new_tree
    write "$1" '// one line above' "#include $2"
    expect_finding "$1 includes $2" "$1:2: ${3:-}"
}

# The empty row: a file that includes nothing.
new_tree
write Sources/Document/Document.h '#pragma once'
expect_ok "nothing included"

# Every storey at once, in the order of the house.
new_tree
write Platform/Foundation/Data.h '#include <vector>' '#include "Platform/Foundation/Range.h"'
write Platform/Foundation/Xml.cpp '#include <expat.h>'
write Platform/Text/Font.cpp '#include <unicode/brkiter.h>' '#include "Platform/Foundation/Data.h"'
write Platform/Text/Modules/Pdf.cpp '#include <glib.h>' '#include "Platform/Text/Font.h"'
write Platform/Document/Base.h '#include "Platform/Text/Font.h"'
write Platform/CoreFoundation/CFString.h '#include <stdint.h>' '#include "Platform/CoreFoundation/CFBase.h"'
write Platform/CoreFoundation/CFString.cpp '#include "Platform/Foundation/Data.h"'
write Platform/CoreFoundation/Runtime.h '#include "Platform/Foundation/Data.h"'
write Sources/CocoaExtensions/Zip/Inflate.cpp '#include <zlib.h>' '#include "Platform/Foundation/Data.h"'
write Sources/TextAnalysis/Words.h '#include "Platform/Text/Font.h"'
write Sources/TextImport/Import.cpp '#include "Sources/TextAnalysis/Words.h"'
write Sources/Document/Document.cpp '#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"' \
    '#include "Sources/TextImport/Import.h"' '#include "Platform/Document/Base.h"'
write Sources/Importer/Main.cpp '#include "Sources/Document/Document.h"' \
    '#include "Platform/CoreFoundation/CoreFoundation.h"'
write Host/Main.cpp '#include <CLI/CLI.hpp>' '#include <sys/stat.h>' \
    '#include "Sources/Importer/ParlavoxImporter.h"' '#include "Sources/TextAnalysis/Words.h"'
write Tools/Main.cpp '#include <fmt/format.h>' '#include "Sources/Document/Document.h"'
write Packaging/generate/Main.cpp '#include "Platform/Foundation/TypeTable.h"'
write Tests/Host/MainTest.cpp '#include <gtest/gtest.h>' '#include "Host/Main.h"'
write Tests/Data/old.h '#include <anything.h>'
expect_ok "a sound tree"

# Upward, or sideways.
refuses Platform/Foundation/Data.cpp '"Platform/Text/Font.h"' "Platform/Foundation may not include"
refuses Platform/Text/Font.cpp '"Platform/Document/Base.h"' "Platform/Text may not include"
refuses Platform/Document/Base.h '"Sources/Document/Document.h"'
refuses Platform/Document/Base.h '"Platform/CoreFoundation/CFString.h"'
refuses Platform/CoreFoundation/CFString.h '"Platform/Foundation/Data.h"'
refuses Platform/CoreFoundation/CoreFoundation.h '"Platform/Foundation/Data.h"'
refuses Platform/CoreFoundation/CFString.cpp '"Platform/Text/Font.h"'
refuses Sources/CocoaExtensions/Zip/ZipWrapper.h '"Platform/Text/Font.h"'
refuses Sources/TextAnalysis/Words.h '"Sources/TextImport/Import.h"'
refuses Sources/TextAnalysis/Words.h '"Platform/Document/Base.h"'
refuses Sources/TextImport/Import.h '"Sources/CocoaExtensions/Zip/ZipWrapper.h"'
refuses Sources/Document/Document.h '"Sources/Importer/Main.h"'
refuses Sources/Importer/Main.cpp '"Sources/TextImport/Import.h"'
refuses Sources/Importer/Main.cpp '"Platform/Text/Font.h"'
refuses Host/Main.cpp '"Sources/Document/Document.h"' "Host may not include"
refuses Host/Main.cpp '"Sources/CocoaExtensions/Zip/ZipWrapper.h"'
refuses Host/Main.cpp '"Sources/Importer/Main.cpp"'
refuses Tools/Main.cpp '"Host/Main.h"'
refuses Packaging/generate/Main.cpp '"Sources/Document/Document.h"'
refuses Sources/Document/Document.h '"Tests/Support/TestData.h"'

# Libraries out of their place.
refuses Platform/Text/Font.h '<unicode/brkiter.h>' "the library header <unicode/brkiter.h>"
refuses Sources/CocoaExtensions/Zip/ZipWrapper.h '<zlib.h>'
refuses Sources/Document/Document.cpp '<zlib.h>'
refuses Sources/CocoaExtensions/Zip/Inflate.cpp '<expat.h>'
refuses Sources/TextImport/Import.cpp '<fmt/format.h>'
refuses Host/Main.cpp '<poppler.h>'
refuses Tools/Main.cpp '<gtest/gtest.h>'
refuses Sources/Document/Document.cpp '<Platform/Foundation/Data.h>'

# Spellings that hide where an include leads.
refuses Platform/Text/Font.cpp '"Font.h"' '"Font.h" is not written from the top'
refuses Platform/Text/Font.cpp '"../Foundation/Data.h"' '"../Foundation/Data.h" is not written from the top'
refuses Platform/Foundation/Data.cpp '"Platform/Foundation/../Text/Font.h"' \
    '"Platform/Foundation/../Text/Font.h" has steps in its path'
refuses Platform/Foundation/Data.cpp 'HEADER' "an include that a macro names"
refuses Platform/Foundation/Data.h ' <expat.h>  // why'
new_tree
write Platform/Foundation/Data.cpp '  #  include "Platform/Text/Font.h"'
expect_finding "blanks around the sign" "Platform/Foundation/Data.cpp:1:"

# A folder that nobody has given a place.
new_tree
write Sources/Novel/Novel.h '#pragma once'
expect_finding "an unknown folder" "Sources/Novel/Novel.h: its folder has no place"

# The beginning of a folder's name is not the folder.
new_tree
write Platform/TextArt/Art.h '#pragma once'
expect_finding "a folder that begins like another" "Platform/TextArt/Art.h: its folder has no place"
refuses Platform/Text/Font.cpp '"Platform/FoundationX/Data.h"'
allows Platform/Text/Font.cpp '"Platform/Foundation/Data.h"'

finish
