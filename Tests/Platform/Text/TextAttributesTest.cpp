// The values of text attributes: made here, read from archives, and written again.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/KeyedArchiver.h"
#include "Platform/Foundation/KeyedUnarchiver.h"
#include "Platform/Text/AttributedString.h"
#include "Platform/Text/AttributedStringCoding.h"
#include "Platform/Text/Color.h"
#include "Platform/Text/Font.h"
#include "Platform/Text/ParagraphStyle.h"
#include "Platform/Text/TextAttachment.h"

namespace platform {
namespace {

Value decode(const Data& archive) {
    const auto unarchiver = KeyedUnarchiver::initForReadingWithData(archive);
    unarchiver->addClasses(attributedTextClasses());
    return unarchiver->decodeObject();
}

/// The value as an archive brings it back; null when it is no `Type` then.
template <class Type>
std::shared_ptr<const Type> again(const Value& value) {
    return std::dynamic_pointer_cast<const Type>(
        decode(KeyedArchiver::archivedDataWithRootObject(value)).object());
}

Value object(std::vector<std::string> names, std::vector<OpaqueField> fields) {
    return Value(OpaqueObject::make(std::move(names), std::move(fields)));
}

Value bytes(std::string_view text) {
    return Value(Data::copyOf(text));
}

/// Whether reading `value` gives a `Type` that is written again with the same bytes.
template <class Type>
void expectKept(const Value& value) {
    const Data archive = KeyedArchiver::archivedDataWithRootObject(value);
    const auto typed = std::dynamic_pointer_cast<const Type>(decode(archive).object());
    ASSERT_NE(typed, nullptr);
    EXPECT_NE(typed->archivedForm(), nullptr);
    EXPECT_EQ(KeyedArchiver::archivedDataWithRootObject(Value(typed)), archive);
}

TEST(Font, IsReadFromEveryFormThatStatesAName) {
    const Value descriptor =
        object({"NSFontDescriptor", "NSObject"},
               {{"NSFontDescriptorAttributes",
                 Value(Dictionary{{"NSFontNameAttribute", Value(u"Menlo-Bold")},
                                  {"NSFontSizeAttribute", Value(11)}}),
                 FieldForm::Reference}});
    const struct {
        const char* name;
        Value font;
        const char* fontName;
        double pointSize;
    } kRows[] = {
        {"usual",
         object({"NSFont", "NSObject"}, {{"NSName", Value(u"Helvetica"), FieldForm::Reference},
                                         {"NSSize", Value(12.5)},
                                         {"NSfFlags", Value(16)}}),
         "Helvetica", 12.5},
        {"a whole size", object({"NSFont"}, {{"NSName", Value(u"A")}, {"NSSize", Value(9)}}), "A",
         9},
        {"no size", object({"NSFont"}, {{"NSName", Value(u"A")}}), "A", 0},
        {"a size that is none",
         object({"NSFont"}, {{"NSName", Value(u"A")}, {"NSSize", Value(u"x")}}), "A", 0},
        {"other names",
         object({"NSFont"}, {{"UIFontName", Value(u"B")}, {"UIFontPointSize", Value(7.0)}}), "B",
         7},
        {"a descriptor", object({"NSFont"}, {{"NSDescriptor", descriptor}}), "Menlo-Bold", 11},
        {"a descriptor by another name",
         object({"NSFont"}, {{"NSTextStyleDescriptor", descriptor}, {"NSSize", Value(14.0)}}),
         "Menlo-Bold", 14},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto font = again<Font>(row.font);
        ASSERT_NE(font, nullptr);
        EXPECT_EQ(font->fontName(), row.fontName);
        EXPECT_EQ(font->pointSize(), row.pointSize);
        expectKept<Font>(row.font);
    }
}

TEST(Font, OfAClassThatNamesAStandInIsAFont) {
    const auto hinted = std::make_shared<OpaqueObject>();
    hinted->type = std::make_shared<const ArchivedClassNames>(
        ArchivedClassNames{{"UIFont", "NSObject"}, {"NSFont"}});
    hinted->fields = {{"NSName", Value(u"A")}, {"UIFontTraits", Value(2)}};
    const Value value(std::static_pointer_cast<const Object>(hinted));
    const auto font = again<Font>(value);
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font->archivedClass()->names.front(), "UIFont");
    EXPECT_EQ((*font->archivedForm())["UIFontTraits"], Value(2));
    expectKept<Font>(value);
}

TEST(Font, WithoutANameStaysOpaque) {
    for (const Value& font : {object({"NSFont"}, {}), object({"NSFont"}, {{"NSName", Value(4)}})}) {
        EXPECT_NE(again<OpaqueObject>(font), nullptr);
    }
}

TEST(Font, MadeHereIsReadBack) {
    const auto font = again<Font>(Value(std::make_shared<const Font>("Times-Roman", 18)));
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font->fontName(), "Times-Roman");
    EXPECT_EQ(font->pointSize(), 18);
    EXPECT_EQ(font->archivedClass()->names, (std::vector<std::string>{"NSFont", "NSObject"}));
}

TEST(Color, IsReadInEverySpace) {
    using std::string_literals::operator""s;
    using Numbers = std::vector<double>;
    const struct {
        const char* name;
        Value color;
        ColorSpace space;
        Numbers components;
        double alpha;
        std::optional<Rgb> rgb;
    } kRows[] = {
        {"calibrated RGB",
         object({"NSColor"}, {{"NSColorSpace", Value(1)}, {"NSRGB", bytes("0.5 0 1\0"s)}}),
         ColorSpace::CalibratedRgb,
         {0.5, 0, 1},
         1,
         Rgb{0.5, 0, 1}},
        {"device RGB with alpha",
         object({"NSColor"},
                {{"NSColorSpace", Value(2)}, {"NSRGB", bytes("0.87 0.87 0.84 0.8\0"s)}}),
         ColorSpace::DeviceRgb,
         {0.87, 0.87, 0.84},
         0.8,
         Rgb{0.87, 0.87, 0.84}},
        {"calibrated white",
         object({"NSColor"}, {{"NSColorSpace", Value(3)}, {"NSWhite", bytes("0\0"s)}}),
         ColorSpace::CalibratedWhite,
         {0},
         1,
         Rgb{0, 0, 0}},
        {"device white with alpha, no NUL",
         object({"NSColor"}, {{"NSColorSpace", Value(4)}, {"NSWhite", bytes("0.25 0.5")}}),
         ColorSpace::DeviceWhite,
         {0.25},
         0.5,
         Rgb{0.25, 0.25, 0.25}},
        {"device CMYK",
         object({"NSColor"}, {{"NSColorSpace", Value(5)}, {"NSCYMK", bytes("1 0 0 0.5\0"s)}}),
         ColorSpace::DeviceCmyk,
         {1, 0, 0, 0.5},
         1,
         Rgb{0, 0.5, 0.5}},
        {"named",
         object({"NSColor"}, {{"NSColorSpace", Value(6)},
                              {"NSCatalogName", Value(u"System"), FieldForm::Reference},
                              {"NSColorName", Value(u"textColor"), FieldForm::Reference},
                              {"NSColor", object({"NSColor"}, {{"NSColorSpace", Value(3)},
                                                               {"NSWhite", bytes("1\0"s)}})}}),
         ColorSpace::Named,
         {},
         1,
         Rgb{1, 1, 1}},
        {"named without a fallback",
         object({"NSColor"}, {{"NSColorSpace", Value(6)}}),
         ColorSpace::Named,
         {},
         1,
         std::nullopt},
        {"pattern",
         object({"NSColor"}, {{"NSColorSpace", Value(10)}}),
         ColorSpace::Pattern,
         {},
         1,
         std::nullopt},
        {"with a profile",
         object({"NSColor"},
                {{"NSColorSpace", Value(1)},
                 {"NSRGB", bytes("0 1 0\0"s)},
                 {"NSComponents", bytes("0 1 0 1")},
                 {"NSCustomColorSpace", object({"NSColorSpace"}, {{"NSID", Value(7)}})}}),
         ColorSpace::CalibratedRgb,
         {0, 1, 0},
         1,
         Rgb{0, 1, 0}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto color = again<Color>(row.color);
        ASSERT_NE(color, nullptr);
        EXPECT_EQ(color->colorSpace(), row.space);
        EXPECT_EQ(color->components(), row.components);
        EXPECT_EQ(color->alphaComponent(), row.alpha);
        EXPECT_EQ(color->rgb(), row.rgb);
        expectKept<Color>(row.color);
    }
    const auto named = again<Color>(kRows[5].color);
    EXPECT_EQ(named->catalogNameComponent(), "System");
    EXPECT_EQ(named->colorNameComponent(), "textColor");
}

TEST(Color, ThatMakesNoSenseStaysOpaque) {
    const struct {
        const char* name;
        std::vector<OpaqueField> fields;
    } kRows[] = {
        {"no space", {{"NSRGB", bytes("0 0 0")}}},
        {"an unknown space", {{"NSColorSpace", Value(7)}, {"NSRGB", bytes("0 0 0")}}},
        {"no components", {{"NSColorSpace", Value(1)}}},
        {"components that are no bytes", {{"NSColorSpace", Value(1)}, {"NSRGB", Value(u"0 0 0")}}},
        {"too few components", {{"NSColorSpace", Value(1)}, {"NSRGB", bytes("0 0")}}},
        {"too many components", {{"NSColorSpace", Value(3)}, {"NSWhite", bytes("0 0 0")}}},
        {"no numbers", {{"NSColorSpace", Value(1)}, {"NSRGB", bytes("red")}}},
    };
    for (const auto& row : kRows) {
        EXPECT_NE(again<OpaqueObject>(object({"NSColor"}, row.fields)), nullptr) << row.name;
    }
}

TEST(Color, MadeHereIsReadBackInEverySpaceWithComponents) {
    const struct {
        ColorSpace space;
        std::vector<double> components;
        double alpha;
    } kRows[] = {
        {ColorSpace::CalibratedRgb, {0.1, 0.2, 0.3}, 1}, {ColorSpace::DeviceRgb, {0, 1, 0.5}, 0.25},
        {ColorSpace::CalibratedWhite, {0.5}, 0},         {ColorSpace::DeviceWhite, {1}, 1},
        {ColorSpace::DeviceCmyk, {0, 0.25, 0.5, 1}, 1},
    };
    for (const auto& row : kRows) {
        const auto color = again<Color>(
            Value(std::make_shared<const Color>(row.space, row.components, row.alpha)));
        ASSERT_NE(color, nullptr);
        EXPECT_EQ(color->colorSpace(), row.space);
        EXPECT_EQ(color->components(), row.components);
        EXPECT_EQ(color->alphaComponent(), row.alpha);
    }
}

TEST(Color, OfAnotherNumberOfComponentsRaises) {
    EXPECT_THROW(Color(ColorSpace::DeviceRgb, {1}), InvalidArgumentException);
    EXPECT_THROW(Color(ColorSpace::Pattern, {}), InvalidArgumentException);
}

TEST(ParagraphStyle, MadeHereIsReadBack) {
    ParagraphLayout layout;
    layout.alignment = TextAlignment::Center;
    layout.baseWritingDirection = WritingDirection::RightToLeft;
    layout.lineBreakMode = 4;
    layout.firstLineHeadIndent = 1;
    layout.headIndent = 2;
    layout.tailIndent = -3;
    layout.lineSpacing = 4;
    layout.paragraphSpacing = 5;
    layout.paragraphSpacingBefore = 6;
    layout.minimumLineHeight = 7;
    layout.maximumLineHeight = 8;
    layout.lineHeightMultiple = 1.5;
    layout.defaultTabInterval = 28;
    layout.hyphenationFactor = 0.5;
    layout.headerLevel = 2;
    layout.tabStops = {{36, TextAlignment::Left}, {72.5, TextAlignment::Right}};
    layout.textLists = {{"{disc}", 0, 1}, {"{decimal}.", 1, 5}};
    const auto style = again<ParagraphStyle>(Value(std::make_shared<const ParagraphStyle>(layout)));
    ASSERT_NE(style, nullptr);
    EXPECT_EQ(style->layout(), layout);
}

TEST(ParagraphStyle, DefaultTabsAndNoTabsDiffer) {
    ParagraphLayout layout;
    EXPECT_EQ(again<ParagraphStyle>(Value(std::make_shared<const ParagraphStyle>(layout)))
                  ->layout()
                  .tabStops,
              std::nullopt);
    layout.tabStops.emplace();
    EXPECT_EQ(again<ParagraphStyle>(Value(std::make_shared<const ParagraphStyle>(layout)))
                  ->layout()
                  .tabStops,
              std::vector<TextTab>());
}

TEST(ParagraphStyle, DefaultsAreNotWritten) {
    const auto style =
        again<ParagraphStyle>(Value(std::make_shared<const ParagraphStyle>(ParagraphLayout())));
    ASSERT_EQ(style->archivedForm()->fields.size(), 1u);
    EXPECT_EQ(style->archivedForm()->fields.front().name, "NSTabStops");
    EXPECT_EQ(style->layout(), ParagraphLayout());
}

TEST(ParagraphStyle, WhatMakesNoSenseCountsAsNotStated) {
    const Value style = object({"NSMutableParagraphStyle", "NSParagraphStyle", "NSObject"},
                               {{"NSAlignment", Value(9)},
                                {"NSWritingDirection", Value(-5)},
                                {"NSHeadIndent", Value(u"wide")},
                                {"NSTabStops", Value(Array{Value(3)}), FieldForm::Reference},
                                {"NSTextLists", Value(u"none")},
                                {"NSTextBlocks", object({"NSTextTableBlock"}, {})}});
    const auto read = again<ParagraphStyle>(style);
    ASSERT_NE(read, nullptr);
    ParagraphLayout want;
    want.tabStops.emplace();
    EXPECT_EQ(read->layout(), want);
    EXPECT_NE((*read->archivedForm())["NSTextBlocks"].object(), nullptr) << "tables are kept";
    expectKept<ParagraphStyle>(style);
}

TEST(ParagraphStyle, ListsAndTabsThatManyStylesShareCountForEachOfThem) {
    const struct {
        const char* name;
        Value element;
        const char* key;
    } kRows[] = {
        {"long markers",
         object({"NSTextList", "NSObject"},
                {{"NSMarkerFormat", Value(std::u16string(50000, u'x')), FieldForm::Reference}}),
         "NSTextLists"},
        {"many tabs", object({"NSTextTab", "NSObject"}, {{"NSLocation", Value(1.0)}}),
         "NSTabStops"},
    };
    for (const auto& row : kRows) {
        const Value elements(Array(2000, row.element));
        Array styles;
        for (int i = 0; i < 500; ++i) {
            styles.push_back(object({"NSParagraphStyle", "NSObject"},
                                    {{row.key, elements, FieldForm::Reference}}));
        }
        EXPECT_THROW((void)decode(KeyedArchiver::archivedDataWithRootObject(Value(styles))),
                     UnarchiveException)
            << row.name;
    }
}

TEST(TextAttachment, HoldsAFile) {
    const auto file = FileWrapper::initRegularFileWithContents(Data::copyOf("pixels"));
    file->setPreferredFilename("a.png");
    const Value made(std::make_shared<const TextAttachment>(file.get()));
    const auto attachment = again<TextAttachment>(made);
    ASSERT_NE(attachment, nullptr);
    const auto read = attachment->fileWrapper();
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->preferredFilename(), "a.png");
    EXPECT_EQ(read->regularFileContents(), Data::copyOf("pixels"));
    EXPECT_NE(attachment->fileWrapper(), read) << "each caller gets one of its own";
    expectKept<TextAttachment>(made);
}

TEST(TextAttachment, WithoutAReadableFileHasNone) {
    const struct {
        const char* name;
        Value attachment;
    } kRows[] = {
        {"made without one", Value(std::make_shared<const TextAttachment>(nullptr))},
        {"null", object({"NSTextAttachment"}, {{"NSFileWrapper", Value(), FieldForm::Reference}})},
        {"no field", object({"NSTextAttachment"}, {})},
        {"no bytes",
         object({"NSTextAttachment"}, {{"NSFileWrapper", object({"NSFileWrapper"}, {})}})},
        {"unknown bytes", object({"NSTextAttachment"},
                                 {{"NSFileWrapper", object({"NSFileWrapper"},
                                                           {{"NSFileWrapperData", bytes("x")}})}})},
        {"a subclass",
         object({"Token", "NSTextAttachment", "NSObject"}, {{"NSCell", Value(u"c")}})},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto attachment = again<TextAttachment>(row.attachment);
        ASSERT_NE(attachment, nullptr);
        EXPECT_EQ(attachment->fileWrapper(), nullptr);
        expectKept<TextAttachment>(row.attachment);
    }
}

/// The attributes of a run as words, "Size=3".
Attributes sized(int size) {
    return std::make_shared<const Dictionary>(Dictionary{{"Size", Value(size)}});
}

TEST(AttributedString, IsReadBackWithItsRuns) {
    const Attributes large = sized(20);
    const Attributes small = sized(10);
    const struct {
        const char* name;
        AttributedString text;
    } kRows[] = {
        {"empty", AttributedString()},
        {"plain", AttributedString(u"no attributes")},
        {"one run", AttributedString(std::make_shared<const std::u16string>(u"abc"), {{3, large}})},
        {"several runs, one without attributes",
         AttributedString(std::make_shared<const std::u16string>(std::u16string(700, u'x')),
                          {{200, large}, {1, nullptr}, {300, small}, {199, large}})},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto text =
            again<AttributedString>(Value(std::make_shared<const AttributedString>(row.text)));
        ASSERT_NE(text, nullptr);
        EXPECT_EQ(text->string(), row.text.string());
        ASSERT_EQ(text->runs().size(), row.text.runs().size());
        for (std::size_t i = 0; i < text->runs().size(); ++i) {
            const AttributeRun& want = row.text.runs()[i];
            EXPECT_EQ(text->runs()[i].length, want.length);
            EXPECT_EQ(*text->runs()[i].attributes,
                      want.attributes ? *want.attributes : Dictionary());
        }
    }
}

TEST(AttributedString, SetsThatRunsShareAreWrittenOnce) {
    const Attributes large = sized(20);
    std::vector<AttributeRun> runs;
    for (int i = 0; i < 50; ++i) {
        runs.push_back({1, large});
        runs.push_back({1, sized(i)});
    }
    const AttributedString text(std::make_shared<const std::u16string>(std::u16string(100, u'x')),
                                runs);
    const auto again1 =
        again<AttributedString>(Value(std::make_shared<const AttributedString>(text)));
    ASSERT_EQ(again1->runs().size(), 100u);
    EXPECT_EQ(again1->runs()[0].attributes, again1->runs()[98].attributes) << "the same object";
    EXPECT_EQ(*again1->runs()[99].attributes, *sized(49));
}

}  // namespace
}  // namespace platform
