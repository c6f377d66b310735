#include "Platform/Text/AttributedStringCoding.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/KeyedUnarchiver.h"
#include "Platform/Text/AttributedString.h"
#include "Tools/samples/ArchiveBuilder.h"

namespace platform {
namespace {

using namespace std::string_view_literals;
using samples::ArchiveBuilder;
using samples::TextRun;

std::shared_ptr<const AttributedString> decode(const Data& archive) {
    const auto unarchiver = KeyedUnarchiver::initForReadingWithData(archive);
    unarchiver->addClasses(attributedTextClasses());
    return std::dynamic_pointer_cast<const AttributedString>(unarchiver->decodeObject().object());
}

/// The runs as "length:Size" words, "-" for none.
std::string runsOf(const AttributedString& text) {
    std::string words;
    for (const AttributeRun& run : text.runs()) {
        const auto size = run.attributes ? (*run.attributes)["Size"].integer() : std::nullopt;
        words += std::to_string(run.length) + ":" + (size ? std::to_string(*size) : "-") + " ";
    }
    return words;
}

/// An archive under construction with attribute sets of one size each.
struct Sized {
    ArchiveBuilder builder;

    Uid set(int size) {
        return builder.addDictionary({{builder.add(u"Size"), builder.add(Value(size))}});
    }
};

TEST(AttributedStringCoding, RunsFollowTheirTable) {
    struct Row {
        const char* name;
        std::u16string text;
        std::vector<TextRun> runs;
        const char* want;
    };
    const Row rows[] = {
        {"one run", u"0123456789", {{10, 1}}, "10:20 "},
        {"a set used twice", u"0123456789", {{1, 0}, {3, 1}, {6, 0}}, "1:10 3:20 6:10 "},
        {"neighbours with equal sets", u"abcd", {{2, 0}, {2, 0}}, "2:10 2:10 "},
        {"lengths of two bytes", std::u16string(516, u'x'), {{516, 0}}, "516:10 "},
        {"surrogate pairs count as two", u"\U0001F600!", {{2, 0}, {1, 1}}, "2:10 1:20 "},
        {"runs of no length", u"abc", {{0, 0}, {3, 1}, {0, 0}}, "3:20 "},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Sized archive;
        const std::vector<Uid> sets{archive.set(10), archive.set(20)};
        const auto text = decode(
            archive.builder.finish(archive.builder.addAttributedString(row.text, sets, row.runs)));
        ASSERT_NE(text, nullptr);
        EXPECT_EQ(text->string(), row.text);
        EXPECT_EQ(runsOf(*text), row.want);
    }
}

TEST(AttributedStringCoding, OneSetCoversTheWholeText) {
    Sized archive;
    const Uid set = archive.set(9);
    const auto text =
        decode(archive.builder.finish(archive.builder.addAttributedString(u"Failed", {set})));
    EXPECT_EQ(runsOf(*text), "6:9 ");
}

TEST(AttributedStringCoding, DamagedAttributesEndWhereTheDamageIs) {
    const auto runsOfTable = [](std::string_view table, bool withSets = true) {
        Sized archive;
        ArchiveBuilder& b = archive.builder;
        std::vector<Uid> sets{archive.set(10), Uid{9999}, archive.set(30)};
        Dictionary fields{{"NSString", Value(b.add(u"0123456789"))},
                          {"NSAttributeInfo", Value(b.add(Data::copyOf(table)))}};
        if (withSets) {
            fields.set("NSAttributes", b.addArray(sets));
        }
        const auto text =
            decode(b.finish(b.addInstance(b.addClass({"NSAttributedString", "NSObject"}), fields)));
        EXPECT_EQ(text->string(), u"0123456789");
        return runsOf(*text);
    };
    struct Row {
        const char* name;
        std::string_view table;
        const char* want;
    };
    constexpr Row kRows[] = {
        {"ends inside a number", "\x02\x00\x83"sv, "2:10 8:- "},
        {"ends before the index", "\x02\x00\x03"sv, "2:10 8:- "},
        {"index outside", "\x02\x00\x03\x07\x05\x00"sv, "2:10 8:- "},
        {"damaged set", "\x02\x00\x03\x01\x05\x00"sv, "2:10 8:- "},
        {"run too long", "\x02\x00\x03\x02\x09\x00"sv, "2:10 3:30 5:- "},
        {"runs too short", "\x02\x00\x03\x02"sv, "2:10 3:30 5:- "},
        {"bytes after the last run", "\x0A\x00\x05\x00\xFF"sv, "10:10 "},
        {"number of eleven bytes", "\x02\x00\x83\x80\x80\x80\x80\x80\x80\x80\x80\x80\x80\x01\x00"sv,
         "2:10 8:- "},
        {"largest number", "\x02\x00\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x01\x00"sv, "2:10 8:- "},
        {"number of 65 bits", "\x02\x00\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x02\x00"sv,
         "2:10 8:- "},
        {"no runs", ""sv, "10:- "},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(runsOfTable(row.table), row.want);
    }
    EXPECT_EQ(runsOfTable("\x0A\x00"sv, false), "10:- ") << "table without sets";
}

TEST(AttributedStringCoding, ArrayOfSetsWithoutATableGivesTheBareText) {
    Sized archive;
    ArchiveBuilder& b = archive.builder;
    const Uid sets = b.addArray({archive.set(10)});
    const auto text = decode(b.finish(
        b.addInstance(b.addClass({"NSAttributedString", "NSObject"}),
                      {{"NSString", Value(b.add(u"abc"))}, {"NSAttributes", Value(sets)}})));
    EXPECT_EQ(runsOf(*text), "3:- ");
}

TEST(AttributedStringCoding, SetsMayStandInNumberedFields) {
    Sized archive;
    ArchiveBuilder& b = archive.builder;
    const Uid sets = b.addInstance(
        b.addClass({"NSArray", "NSObject"}),
        {{"NS.object.1", Value(archive.set(20))}, {"NS.object.0", Value(archive.set(10))}});
    const Uid table = b.add(Data::copyOf(samples::runTable({{1, 0}, {2, 1}})));
    const auto text = decode(b.finish(b.addInstance(b.addClass({"NSAttributedString", "NSObject"}),
                                                    {{"NSString", Value(b.add(u"abc"))},
                                                     {"NSAttributes", Value(sets)},
                                                     {"NSAttributeInfo", Value(table)}})));
    EXPECT_EQ(runsOf(*text), "1:10 2:20 ");
}

TEST(AttributedStringCoding, DictionaryIsNoArrayOfSets) {
    Sized archive;
    ArchiveBuilder& b = archive.builder;
    const Uid table = b.add(Data::copyOf(samples::runTable({{3, 0}})));
    const auto text = decode(b.finish(b.addInstance(b.addClass({"NSAttributedString", "NSObject"}),
                                                    {{"NSString", Value(b.add(u"abc"))},
                                                     {"NSAttributes", Value(archive.set(10))},
                                                     {"NSAttributeInfo", Value(table)}})));
    EXPECT_EQ(runsOf(*text), "3:- ");
}

TEST(AttributedStringCoding, EveryClassOfAttributedTextIsRead) {
    for (const std::string_view name :
         {"NSAttributedString", "NSMutableAttributedString", "NSTextStorage"}) {
        SCOPED_TRACE(name);
        ArchiveBuilder b;
        const Uid string = b.addInstance(b.addClass({"NSMutableString", "NSString", "NSObject"}),
                                         {{"NS.string", Value(u"caf\u00E9")}});
        const auto text = decode(
            b.finish(b.addInstance(b.addClass({name, "NSObject"}),
                                   {{"NSString", Value(string)}, {"NSDelegate", Value(Uid{0})}})));
        ASSERT_NE(text, nullptr);
        EXPECT_EQ(text->string(), u"caf\u00E9");
    }
}

TEST(AttributedStringCoding, MissingTextIsEmptyAndWrongTextRaises) {
    struct Row {
        const char* name;
        std::optional<Value> text;
        bool raises;
    };
    const Row rows[] = {
        {"no text at all", std::nullopt, false},
        {"null text", Value(Uid{0}), false},
        {"inline text", Value(u"abc"), false},
        {"reference outside", Value(Uid{77}), true},
        {"a number", Value(7), true},
        {"itself", Value(Uid{2}), true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ArchiveBuilder b;
        Dictionary fields;
        if (row.text) {
            fields.set("NSString", *row.text);
        }
        const Uid root =
            b.addInstance(b.addClass({"NSAttributedString", "NSObject"}), std::move(fields));
        ASSERT_EQ(root.index, 2u);
        if (row.raises) {
            EXPECT_THROW((void)decode(b.finish(root)), UnarchiveException);
        } else {
            const std::u16string want = row.text == Value(u"abc") ? u"abc" : u"";
            EXPECT_EQ(decode(b.finish(root))->string(), want);
        }
    }
}

TEST(AttributedStringCoding, ARunTableThatManyTextsShareCountsForEachOfThem) {
    constexpr std::size_t kRuns = 1000;
    Sized sized;
    ArchiveBuilder& b = sized.builder;
    const Uid table = b.add(Data::copyOf(samples::runTable({kRuns, TextRun{1, 0}})));
    const Dictionary fields{{"NSString", Value(b.add(std::u16string(kRuns, u'x')))},
                            {"NSAttributes", Value(b.addArray({sized.set(10)}))},
                            {"NSAttributeInfo", Value(table)}};
    const Uid type = b.addClass({"NSAttributedString", "NSObject"});
    std::vector<Uid> texts;
    for (int i = 0; i < 100; ++i) {
        texts.push_back(b.addInstance(type, fields));
    }
    const auto unarchiver = KeyedUnarchiver::initForReadingWithData(b.finish(b.addArray(texts)));
    unarchiver->addClasses(attributedTextClasses());
    std::size_t runs = 0;
    for (const Value& value : *unarchiver->decodeObject().array()) {
        const auto text = std::dynamic_pointer_cast<const AttributedString>(value.object());
        ASSERT_EQ(text->length(), kRuns);
        runs += text->runs().size();
    }
    EXPECT_GE(runs, kRuns) << "the first text has its runs";
    EXPECT_LT(runs, 20 * kRuns);
}

TEST(AttributedStringCoding, TextKeepsNulAttachmentsAndLoneSurrogates) {
    const std::u16string odd = {u'a', 0, 0xFFFC, 0xD83D, u'z'};
    EXPECT_EQ(decode(samples::archiveOfText(odd))->string(), odd);
}

}  // namespace
}  // namespace platform
