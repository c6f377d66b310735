// RTF that other programs wrote: the words in it, against the texts that are expected.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/RtfReader.h"
#include "Tests/Support/TestData.h"
#include "Tests/Support/Words.h"

namespace platform {
namespace {

/// Documents that are read otherwise than expected, and why.
struct Difference {
    const char* name;
    const char* reason;
    /// How many words are missing, and how many are there that are not expected.
    long missing;
    long unexpected;
};
constexpr Difference kDifferences[] = {
    {"pyth-zh-cn.rtf", "its hidden text is left out", 17, 0},
    {"abiword-rtftest.rtf", "its hidden text is left out, and a word ends there", 1, 1},
    {"pandoc-footnote.rtf", "numbers of footnotes are not in the document", 4, 0},
    {"pandoc-list_legacy.rtf", "numbers of old lists are not in the document", 2, 0},
    {"pandoc-image.rtf", "a description is expected that is not in the document", 1, 0},
};

/// The folders that hold documents: of this tree, and of the machine where it has one.
std::vector<std::filesystem::path> folders() {
    std::vector<std::filesystem::path> found{test::dataPath("rtf")};
    if (const char* const more = std::getenv("PARLAVOX_FIXTURES")) {
        found.push_back(std::filesystem::path(more) / "rtf");
    }
    return found;
}

Data contentsOf(const std::filesystem::path& path) {
    return FileManager::defaultManager().contentsAtPath(path.string()).value();
}

void expectWords(const std::filesystem::path& document, const Difference& difference) {
    std::filesystem::path expected = document;
    expected += ".expected.txt";
    const auto text = attributedStringFromRtf(contentsOf(document));
    ASSERT_TRUE(text) << text.fault().detail;
    const test::Words found = test::wordsIn(text.value().string());
    const test::Words wanted = test::wordsIn(utf16FromUtf8(contentsOf(expected).view()).value());
    const test::Words missing = test::moreIn(wanted, found);
    const test::Words unexpected = test::moreIn(found, wanted);
    EXPECT_EQ(test::sum(missing), difference.missing) << test::list(missing);
    EXPECT_EQ(test::sum(unexpected), difference.unexpected) << test::list(unexpected);
}

TEST(RealRtf, HasTheWordsThatAreExpected) {
    std::set<std::string> seen;
    for (const std::filesystem::path& folder : folders()) {
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            const std::string name = entry.path().filename().string();
            if (!std::filesystem::exists(entry.path().string() + ".expected.txt") ||
                !seen.insert(name).second) {
                continue;
            }
            SCOPED_TRACE(name);
            Difference known{"", "", 0, 0};
            for (const Difference& difference : kDifferences) {
                if (name == difference.name) {
                    known = difference;
                }
            }
            expectWords(entry.path(), known);
        }
    }
    EXPECT_GT(seen.size(), 60U);
}

}  // namespace
}  // namespace platform
