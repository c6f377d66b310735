#include "Platform/Text/TextStorage.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Platform/Foundation/Exception.h"
#include "Tests/Support/LetteredText.h"

namespace platform {
namespace {

using test::lettersOf;

AttributedString text(std::u16string characters, const std::string& letters) {
    return test::letteredText(std::move(characters), letters);
}

TEST(TextStorage, AttributedTextReplacesCharactersAndRuns) {
    struct Row {
        const char* name;
        Range range;
        AttributedString replacement;
        std::u16string wantString;
        const char* wantRuns;
    };
    // The text is 012345 with the runs aa|bb|--.
    const Row rows[] = {
        {"inside a run, same attributes", {0, 1}, text(u"xy", "aa"), u"xy12345", "aaa|bb|--"},
        {"inside a run, others", {1, 1}, text(u"xy", "--"), u"0xy2345", "a|--|bb|--"},
        {"in the middle of a run", {1, 0}, text(u"x", "b"), u"0x12345", "a|b|a|bb|--"},
        {"over several runs", {1, 4}, text(u"x", "b"), u"0x5", "a|b|-"},
        {"a whole run by its neighbours'", {2, 2}, text(u"xy", "a-"), u"01xy45", "aaa|---"},
        {"a whole run by nothing", {2, 2}, text(u"", ""), u"0145", "aa|--"},
        {"between runs", {2, 0}, text(u"x", "-"), u"01x2345", "aa|-|bb|--"},
        {"between runs, like the one before", {2, 0}, text(u"x", "a"), u"01x2345", "aaa|bb|--"},
        {"between runs, like the one behind", {2, 0}, text(u"x", "b"), u"01x2345", "aa|bbb|--"},
        {"at the start", {0, 0}, text(u"x", "a"), u"x012345", "aaa|bb|--"},
        {"at the end", {6, 0}, text(u"x", "a"), u"012345x", "aa|bb|--|a"},
        {"the end", {4, 2}, text(u"x", "b"), u"0123x", "aa|bbb"},
        {"everything", {0, 6}, text(u"x", "b"), u"x", "b"},
        {"everything by nothing", {0, 6}, text(u"", ""), u"", ""},
        {"more runs than before", {3, 1}, text(u"xyzw", "a-ab"), u"012xyzw45", "aa|b|a|-|a|b|--"},
        {"nothing by nothing", {3, 0}, text(u"", ""), u"012345", "aa|bb|--"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        TextStorage storage(text(u"012345", "aabb--"));
        storage.replaceCharactersInRangeWithAttributedString(row.range, row.replacement);
        EXPECT_EQ(storage.string(), row.wantString);
        EXPECT_EQ(storage.length(), row.wantString.size());
        EXPECT_EQ(storage.attributedString().string(), row.wantString);
        EXPECT_EQ(lettersOf(storage.attributedString()), row.wantRuns);
    }
}

TEST(TextStorage, PlainTextTakesAttributesFromWhatItReplaces) {
    struct Row {
        const char* name;
        Range range;
        std::u16string replacement;
        std::u16string wantString;
        const char* wantRuns;
    };
    const Row rows[] = {
        {"of the first character", {1, 4}, u"xyz", u"0xyz5", "aaaa|-"},
        {"a whole run", {2, 2}, u"x", u"01x45", "aa|b|--"},
        {"everything", {0, 6}, u"xy", u"xy", "aa"},
        {"by nothing", {2, 2}, u"", u"0145", "aa|--"},
        {"no character: of the one before", {2, 0}, u"x", u"01x2345", "aaa|bb|--"},
        {"no character at the start", {0, 0}, u"x", u"x012345", "-|aa|bb|--"},
        {"no character at the end", {6, 0}, u"x", u"012345x", "aa|bb|---"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        TextStorage storage(text(u"012345", "aabb--"));
        storage.replaceCharactersInRangeWithString(row.range, row.replacement);
        EXPECT_EQ(storage.string(), row.wantString);
        EXPECT_EQ(lettersOf(storage.attributedString()), row.wantRuns);
    }
    TextStorage empty;
    empty.replaceCharactersInRangeWithString({0, 0}, u"x");
    EXPECT_EQ(lettersOf(empty.attributedString()), "-");
}

TEST(TextStorage, RangesBeyondTheTextRaiseAndChangeNothing) {
    TextStorage storage(text(u"012345", "aabb--"));
    for (const Range range : {Range{7, 0}, Range{6, 1}, Range{0, 7}, Range{kNotFound, 0},
                              Range{1, ~std::uint64_t{0}}}) {
        EXPECT_THROW(storage.replaceCharactersInRangeWithString(range, u"x"), RangeException);
        EXPECT_THROW(storage.replaceCharactersInRangeWithAttributedString(range, text(u"x", "a")),
                     RangeException);
    }
    EXPECT_EQ(storage.string(), u"012345");
}

TEST(TextStorage, CopiesOfTheTextStayAsTheyAre) {
    TextStorage storage(text(u"012", "aab"));
    const AttributedString before = storage.attributedString();
    storage.replaceCharactersInRangeWithString({0, 1}, u"x");
    const AttributedString between = storage.attributedString();
    storage.replaceCharactersInRangeWithString({1, 1}, u"y");
    storage.replaceCharactersInRangeWithString({2, 1}, u"z");
    EXPECT_EQ(before.string(), u"012");
    EXPECT_EQ(lettersOf(before), "aa|b");
    EXPECT_EQ(between.string(), u"x12");
    EXPECT_EQ(storage.string(), u"xyz");
}

TEST(TextStorage, ItsOwnTextCanReplaceAPartOfIt) {
    TextStorage storage(text(u"012", "aab"));
    storage.replaceCharactersInRangeWithAttributedString({1, 0}, storage.attributedString());
    EXPECT_EQ(storage.string(), u"001212");
    storage.replaceCharactersInRangeWithAttributedString({0, 6}, storage.attributedString());
    EXPECT_EQ(storage.string(), u"001212");
    storage.replaceCharactersInRangeWithString({5, 1}, storage.string());
    EXPECT_EQ(storage.string(), u"00121001212");
    EXPECT_EQ(lettersOf(storage.attributedString()), "aaa|b|a|bbbbbb");
}

TEST(TextStorage, ManySmallChangesAddUp) {
    TextStorage storage;
    std::u16string want;
    for (int i = 0; i < 1000; ++i) {
        const std::u16string letter(1, static_cast<char16_t>(u'a' + i % 26));
        const std::size_t place = want.size() / 2;
        storage.replaceCharactersInRangeWithAttributedString({place, 0},
                                                             text(letter, i % 2 == 0 ? "a" : "b"));
        want.insert(place, letter);
    }
    EXPECT_EQ(storage.string(), want);
    std::uint64_t covered = 0;
    for (const AttributeRun& run : storage.attributedString().runs()) {
        covered += run.length;
    }
    EXPECT_EQ(covered, 1000u);
}

TEST(TextStorage, TheWholeTextCanBeSet) {
    TextStorage storage(text(u"012", "aab"));
    storage.replaceCharactersInRangeWithString({0, 1}, u"x");
    storage.setAttributedString(text(u"new", "bb-"));
    EXPECT_EQ(storage.string(), u"new");
    EXPECT_EQ(lettersOf(storage.attributedString()), "bb|-");
}

}  // namespace
}  // namespace platform
