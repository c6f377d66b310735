// HTML that people and programs wrote: the words in it, against the texts that are expected.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/HtmlReader.h"
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
    {"inscriptis-direct-enumeration.html", "letters are expected for bullets", 2, 0},
    {"inscriptis-enumerations.html", "letters are expected for bullets", 2, 0},
    {"inscriptis-nested-list.html", "letters are expected for bullets", 3, 0},
    {"tika-testHTML.html", "what the page is to be replaced by is expected as text", 3, 0},
    {"chardet-utf-16be-plane1-utf-16be.html", "a blank is expected behind each letter of UTF-16",
     3991, 228},
};

/// The folders that hold documents: of this tree, and of the machine where it has one.
std::vector<std::filesystem::path> folders() {
    std::vector<std::filesystem::path> found{test::dataPath("html")};
    if (const char* const more = std::getenv("PARLAVOX_FIXTURES")) {
        found.push_back(std::filesystem::path(more) / "html");
    }
    return found;
}

Data contentsOf(const std::filesystem::path& path) {
    return FileManager::defaultManager().contentsAtPath(path.string()).value();
}

void expectWords(const std::filesystem::path& document, const Difference& difference) {
    std::filesystem::path expected = document;
    expected += ".expected.txt";
    const auto text = attributedStringFromHtml(contentsOf(document));
    ASSERT_TRUE(text) << text.fault().detail;
    const test::Words found = test::wordsIn(text.value().string());
    const test::Words wanted = test::wordsIn(utf16FromUtf8(contentsOf(expected).view()).value());
    const test::Words missing = test::moreIn(wanted, found);
    const test::Words unexpected = test::moreIn(found, wanted);
    EXPECT_EQ(test::sum(missing), difference.missing) << test::list(missing);
    EXPECT_EQ(test::sum(unexpected), difference.unexpected) << test::list(unexpected);
}

TEST(RealHtml, HasTheWordsThatAreExpected) {
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
    EXPECT_GT(seen.size(), 45U);
}

}  // namespace
}  // namespace platform
