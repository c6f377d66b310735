// The boundaries that the Unicode Consortium expects, line by line.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "Platform/Foundation/Unicode.h"
#include "Tests/Support/Segments.h"
#include "Tests/Support/TestData.h"

namespace platform {
namespace {

/// One line: its text, where its segments lie, and which of them have letters or digits.
struct BreakLine {
    std::string marks;  ///< as in the file, without the comment
    std::u16string text;
    std::vector<Range> segments;
    std::vector<Range> words;
};

bool isOfWords(const std::string& comment) {
    for (const char* kind : {"(ALetter)", "(Hebrew_Letter)", "(Numeric)", "(Katakana)"}) {
        if (comment.find(kind) != std::string::npos) {
            return true;
        }
    }
    return false;
}

/// The comment says what each character is, between the same marks.
std::vector<std::string> commentsOfSegments(const std::string& comment) {
    std::vector<std::string> comments;
    const std::string mark = "\u00F7 [";
    for (std::size_t at = comment.find(mark); at != std::string::npos;) {
        const std::size_t next = comment.find(mark, at + 1);
        comments.push_back(comment.substr(at, next - at));
        at = next;
    }
    return comments;
}

BreakLine parsed(const std::string& line) {
    const std::size_t end = line.find('#');
    BreakLine result;
    result.marks = line.substr(0, line.find_last_not_of(" \t", end - 1) + 1);
    std::istringstream marks(result.marks);
    const std::vector<std::string> comments = commentsOfSegments(line.substr(end));
    std::uint64_t begin = 0;
    std::size_t number = 0;
    for (std::string mark, codePoint; marks >> mark; marks >> codePoint) {
        if (!codePoint.empty()) {
            std::string utf8;
            appendUtf8(utf8, std::stoul(codePoint, nullptr, 16));
            result.text += utf16FromUtf8Lossy(utf8);
        }
        if (mark == "\u00F7" && !result.text.empty()) {
            const Range segment{begin, result.text.size() - begin};
            result.segments.push_back(segment);
            if (isOfWords(comments.at(number++))) {
                result.words.push_back(segment);
            }
            begin = result.text.size();
        }
    }
    return result;
}

std::vector<BreakLine> linesOf(const char* name) {
    std::ifstream file(test::dataPath("segmentation") / name);
    std::vector<BreakLine> lines;
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with('#')) {
            lines.push_back(parsed(line));
        }
    }
    return lines;
}

TEST(UnicodeBreak, SentencesEncloseTheSegmentsOfEachLine) {
    const std::vector<BreakLine> lines = linesOf("SentenceBreakTest-15.0.txt");
    ASSERT_EQ(lines.size(), 256u);
    for (const BreakLine& line : lines) {
        SCOPED_TRACE(line.marks);
        std::vector<Range> enclosing;
        for (const TextUnit& unit : test::unitsIn(line.text, {0, line.text.size()}, 4)) {
            enclosing.push_back(unit.enclosingRange);
        }
        EXPECT_EQ(enclosing, line.segments);
    }
}

/// Lines with other words than the segments with letters and digits.
struct OtherWords {
    const char* marks;
    std::vector<Range> words;
};

const OtherWords kOtherWords[] = {
    // The root locale's rules do not join words at a colon.
    {"÷ 0061 × 003A × 0061 × 2060 ÷", {{0, 1}, {2, 2}}},
    {"÷ 0061 × 003A × 0061 ÷ 0027 ÷", {{0, 1}, {2, 1}}},
    {"÷ 0061 × 003A × 0308 × 0061 × 2060 ÷", {{0, 1}, {3, 2}}},
    {"÷ 0061 × 003A × 0308 × 0061 ÷ 0027 ÷", {{0, 1}, {3, 1}}},
    {"÷ 0061 × 003A × 0308 × 0061 ÷ 002C ÷", {{0, 1}, {3, 1}}},
    {"÷ 0061 × 003A × 0308 × 0061 ÷ 003A ÷", {{0, 1}, {3, 1}}},
    {"÷ 0061 × 003A × 0308 × 05D0 ÷", {{0, 1}, {3, 1}}},
    {"÷ 0061 × 003A × 05D0 ÷", {{0, 1}, {2, 1}}},
    // Two joiners of words count as a word, and what ends with a symbol counts as a symbol.
    {"÷ 005F × 005F ÷", {{0, 2}}},
    {"÷ 0061 × 200D × 1F6D1 ÷", {}},
    {"÷ 0061 × 200D × 2701 ÷", {}},
};

const std::vector<Range>& expectedWords(const BreakLine& line) {
    const auto* const other =
        std::find_if(std::begin(kOtherWords), std::end(kOtherWords),
                     [&](const OtherWords& row) { return row.marks == line.marks; });
    return other == std::end(kOtherWords) ? line.words : other->words;
}

TEST(UnicodeBreak, WordsAreTheSegmentsWithLettersOrDigits) {
    const std::vector<BreakLine> lines = linesOf("WordBreakTest-15.0.txt");
    ASSERT_EQ(lines.size(), 952u);
    for (const BreakLine& line : lines) {
        SCOPED_TRACE(line.marks);
        std::vector<Range> words;
        for (const TextUnit& unit : test::unitsIn(line.text, {0, line.text.size()}, 3)) {
            words.push_back(unit.substringRange);
        }
        EXPECT_EQ(words, expectedWords(line));
    }
}

}  // namespace
}  // namespace platform
