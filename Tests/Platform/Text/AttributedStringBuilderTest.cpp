#include "Platform/Text/AttributedStringBuilder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "Platform/Foundation/Exception.h"
#include "Tests/Support/LetteredText.h"

namespace platform {
namespace {

using test::letteredText;
using test::lettersOf;

TEST(AttributedStringBuilder, PiecesKeepTheirAttributes) {
    struct Row {
        const char* name;
        std::vector<Range> pieces;
        std::u16string wantString;
        const char* wantRuns;
    };
    // The text is 0123456 with the runs aa|bb|-|aa.
    const Row rows[] = {
        {"none", {}, u"", ""},
        {"empty ones", {{0, 0}, {3, 0}, {7, 0}}, u"", ""},
        {"the whole", {{0, 7}}, u"0123456", "aa|bb|-|aa"},
        {"the whole and empty ones", {{0, 0}, {0, 7}, {7, 0}}, u"0123456", "aa|bb|-|aa"},
        {"the whole twice", {{0, 7}, {0, 7}}, u"01234560123456", "aa|bb|-|aaaa|bb|-|aa"},
        {"the whole and a piece", {{0, 7}, {2, 1}}, u"01234562", "aa|bb|-|aa|b"},
        {"a piece and the whole", {{6, 1}, {0, 7}}, u"60123456", "aaa|bb|-|aa"},
        {"all but one character", {{0, 2}, {3, 4}}, u"013456", "aa|b|-|aa"},
        {"all but a run: its neighbours stay two", {{0, 2}, {4, 3}}, u"01456", "aa|-|aa"},
        {"all between two equal runs", {{0, 2}, {5, 2}}, u"0156", "aaaa"},
        {"parts of one run", {{0, 1}, {1, 1}}, u"01", "aa"},
        {"over several runs", {{1, 5}}, u"12345", "a|bb|-|a"},
        {"backwards", {{5, 2}, {3, 2}, {0, 3}}, u"5634012", "aa|b|-|aa|b"},
        {"one again", {{2, 2}, {2, 2}}, u"2323", "bbbb"},
        {"the last character", {{6, 1}}, u"6", "a"},
    };
    const AttributedString source = letteredText(u"0123456", "aabb-aa");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        AttributedStringBuilder builder;
        for (const Range piece : row.pieces) {
            builder.append(source, piece);
        }
        const AttributedString built = builder.finish();
        EXPECT_EQ(built.string(), row.wantString);
        EXPECT_EQ(lettersOf(built), row.wantRuns);
        EXPECT_EQ(source.string(), u"0123456");
        EXPECT_EQ(lettersOf(source), "aa|bb|-|aa");
    }
}

TEST(AttributedStringBuilder, PiecesMayComeFromSeveralStrings) {
    const AttributedString first = letteredText(u"0123", "aabb");
    AttributedStringBuilder builder;
    builder.append(first, {3, 1});
    // Strings that go at once, perhaps to make place for the next one.
    for (const char16_t digit : std::u16string(u"4567")) {
        builder.append(letteredText(std::u16string(2, digit), "bc"), {1, 1});
        builder.append(letteredText(std::u16string(2, digit), "bb"), {0, 2});
    }
    builder.append(first, {0, 2});
    const AttributedString built = builder.finish();
    EXPECT_EQ(built.string(), u"344455566677701");
    EXPECT_EQ(lettersOf(built), "b|c|bb|c|bb|c|bb|c|bb|aa");
}

TEST(AttributedStringBuilder, OneWholeStringIsShared) {
    const AttributedString source = letteredText(u"0123", "aabb");
    AttributedStringBuilder builder;
    builder.append(source, {0, 0});
    builder.append(source, {0, 4});
    const AttributedString built = builder.finish();
    EXPECT_EQ(&built.string(), &source.string());
    EXPECT_EQ(&built.runs(), &source.runs());
}

TEST(AttributedStringBuilder, FinishingBeginsAnew) {
    const AttributedString source = letteredText(u"0123", "aabb");
    AttributedStringBuilder builder;
    builder.append(source, {1, 2});
    EXPECT_EQ(builder.finish().string(), u"12");
    EXPECT_EQ(builder.finish().string(), u"");
    builder.append(source, {0, 4});
    EXPECT_EQ(builder.finish().string(), u"0123");
    builder.append(source, {2, 2});
    EXPECT_EQ(builder.finish().string(), u"23");
}

TEST(AttributedStringBuilder, RangesBeyondTheTextRaiseAndChangeNothing) {
    const AttributedString source = letteredText(u"0123", "aabb");
    AttributedStringBuilder builder;
    builder.append(source, {0, 1});
    for (const Range range : {Range{5, 0}, Range{4, 1}, Range{0, 5}, Range{kNotFound, 0},
                              Range{1, ~std::uint64_t{0}}}) {
        EXPECT_THROW(builder.append(source, range), RangeException);
    }
    EXPECT_EQ(builder.finish().string(), u"0");
}

TEST(AttributedStringBuilder, RandomPiecesAreThoseOfTheText) {
    std::mt19937 random(1);
    for (int round = 0; round < 500; ++round) {
        std::u16string text;
        std::string letters;
        for (std::size_t length = random() % 30; length > 0; --length) {
            text += static_cast<char16_t>(u'0' + random() % 40);
            letters += "ab-"[random() % 3];
        }
        const AttributedString source = letteredText(text, letters);
        AttributedStringBuilder builder;
        std::u16string wantText;
        std::string wantLetters;
        for (int piece = 0; piece < 5; ++piece) {
            const std::size_t location = random() % (text.size() + 1);
            const std::size_t length = random() % (text.size() - location + 1);
            builder.append(source, {location, length});
            wantText += text.substr(location, length);
            wantLetters += letters.substr(location, length);
        }
        const AttributedString built = builder.finish();
        EXPECT_EQ(built.string(), wantText);
        EXPECT_EQ(lettersOf(built), lettersOf(letteredText(wantText, wantLetters)));
    }
}

}  // namespace
}  // namespace platform
