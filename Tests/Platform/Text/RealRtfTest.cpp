// RTF that other programs wrote: the words in it, against the texts that are expected.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/RtfReader.h"
#include "Tests/Support/TestData.h"

namespace platform {
namespace {

/// Words and how often each occurs.
using Words = std::map<std::u16string, long>;

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

/// Whether a unit is a word of its own, because its script puts no blanks between words.
bool isUnspaced(char16_t unit) {
    return (unit >= 0x0E00 && unit <= 0x0EFF) || (unit >= 0x3040 && unit <= 0x30FF) ||
           (unit >= 0x3400 && unit <= 0x9FFF) || (unit >= 0xFF66 && unit <= 0xFF9F);
}

/// Whether a unit stands between words: ASCII without letters and digits, blanks and signs.
bool isBetweenWords(char16_t unit) {
    const bool isAsciiWord = (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'Z') ||
                             (unit >= u'a' && unit <= u'z') || unit == u'_';
    return (unit < 0x80 && !isAsciiWord) || (unit >= 0x80 && unit <= 0xBF) ||
           (unit >= 0xE000 && unit <= 0xF8FF) || (unit >= 0x2000 && unit <= 0x2BFF) ||
           (unit >= 0x3000 && unit <= 0x303F) || unit >= 0xFF00;
}

Words wordsIn(std::u16string_view text) {
    Words words;
    std::u16string word;
    const auto finish = [&] {
        if (!word.empty()) {
            ++words[std::exchange(word, {})];
        }
    };
    constexpr char16_t kSoftHyphen = 0xAD;
    for (const char16_t unit : text) {
        if (isUnspaced(unit)) {
            finish();
            ++words[std::u16string(1, unit)];
        } else if (isBetweenWords(unit) && unit != kSoftHyphen) {
            finish();
        } else if (unit != kSoftHyphen) {
            word += unit;
        }
    }
    finish();
    return words;
}

/// The words that there are more of in `words` than in `others`, with how many more.
Words moreIn(const Words& words, const Words& others) {
    Words more;
    for (const auto& [word, count] : words) {
        const auto other = others.find(word);
        const long left = count - (other != others.end() ? other->second : 0);
        if (left > 0) {
            more[word] = left;
        }
    }
    return more;
}

std::string list(const Words& words) {
    std::string text;
    for (const auto& [word, count] : words) {
        text += " " + utf8FromUtf16(word) + "*" + std::to_string(count);
    }
    return text;
}

long sum(const Words& words) {
    long all = 0;
    for (const auto& [word, count] : words) {
        all += count;
    }
    return all;
}

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
    const Words found = wordsIn(text.value().string());
    const Words wanted = wordsIn(utf16FromUtf8(contentsOf(expected).view()).value());
    const Words missing = moreIn(wanted, found);
    const Words unexpected = moreIn(found, wanted);
    EXPECT_EQ(sum(missing), difference.missing) << list(missing);
    EXPECT_EQ(sum(unexpected), difference.unexpected) << list(unexpected);
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
