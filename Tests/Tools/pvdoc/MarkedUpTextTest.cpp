#include "Tools/pvdoc/MarkedUpText.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "Platform/Foundation/OpaqueObject.h"
#include "Platform/Foundation/URLReference.h"
#include "Platform/Text/Color.h"
#include "Platform/Text/Font.h"
#include "Platform/Text/ParagraphStyle.h"
#include "Platform/Text/TextAttachment.h"

namespace pvdoc {
namespace {

using platform::AttributedString;
using platform::Data;
using platform::Fault;
using platform::FaultCode;
using platform::FieldForm;
using platform::Result;
using platform::Value;

Result<AttributedString> read(std::u16string_view source) {
    return attributedTextFromMarks(source, [](const std::string& name) -> Result<Data> {
        return name == "pictures/a.png" ? Result<Data>(Data::copyOf("pixels"))
                                        : Result<Data>(Fault{FaultCode::System, "no " + name});
    });
}

/// The value of an attribute of the character at `index`, as a `Type`; null when it is none.
template <class Type>
std::shared_ptr<const Type> attribute(const AttributedString& text, std::uint64_t index,
                                      std::string_view name) {
    const auto attributes = text.attributesAtIndex(index);
    return attributes != nullptr
               ? std::dynamic_pointer_cast<const Type>((*attributes)[name].object())
               : nullptr;
}

/// The runs as "length:names" words.
std::string runsOf(const AttributedString& text) {
    std::string words;
    for (const platform::AttributeRun& run : text.runs()) {
        words += std::to_string(run.length) + ":";
        if (run.attributes != nullptr) {
            for (const auto& [name, value] : run.attributes->entries()) {
                words += name + ",";
            }
        }
        words += " ";
    }
    return words;
}

TEST(MarkedUpText, MarksBecomeRuns) {
    const struct {
        const char* name;
        std::u16string source;
        std::u16string text;
        const char* runs;
    } kRows[] = {
        {"nothing", u"", u"", ""},
        {"no marks", u"plain { text }\n", u"plain { text }\n", "15: "},
        {"one mark", u"a{{underline}}bc{{/underline}}d", u"abcd", "1: 2:NSUnderline, 1: "},
        {"nested marks", u"{{underline}}a{{font F 9}}b{{/font}}c{{/underline}}", u"abc",
         "1:NSUnderline, 1:NSUnderline,NSFont, 1:NSUnderline, "},
        {"a mark within its like", u"{{font F 9}}a{{font G 9}}b{{/font}}{{/font}}", u"ab",
         "1:NSFont, 1:NSFont, "},
        {"a mark around nothing", u"a{{underline}}{{/underline}}b", u"ab", "2: "},
        {"neighbours with the same mark",
         u"{{underline}}a{{/underline}}{{underline}}b{{/underline}}", u"ab", "2:NSUnderline, "},
        {"braces with a backslash", u"\\{{font}} \\\\", u"{{font}} \\\\", "11: "},
        {"an attachment", u"see {{attach pictures/a.png}}!", u"see \uFFFC!",
         "4: 1:NSAttachment, 1: "},
        {"an attachment within a mark", u"{{underline}}{{attach pictures/a.png}}{{/underline}}",
         u"\uFFFC", "1:NSUnderline,NSAttachment, "},
        {"surrogate pairs count as two", u"{{underline}}\U0001F600{{/underline}}", u"\U0001F600",
         "2:NSUnderline, "},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto text = read(row.source);
        ASSERT_TRUE(text) << text.fault().detail;
        EXPECT_EQ(text.value().string(), row.text);
        EXPECT_EQ(runsOf(text.value()), row.runs);
    }
}

TEST(MarkedUpText, EveryMarkGivesItsAttribute) {
    const auto text = read(
        u"{{font \"Times New Roman\" 12.5}}0{{/font}}{{color 0.5 0 1 0.25}}1{{/color}}"
        u"{{link https://example.org/}}2{{/link}}{{align justified}}3{{/align}}"
        u"{{attach pictures/a.png}}{{tag Pause AcmePause n=-3 x=1.5 on=true "
        u"label=\"short pause\" empty=}}5{{/tag}}");
    ASSERT_TRUE(text) << text.fault().detail;
    const AttributedString& string = text.value();
    const auto font = attribute<platform::Font>(string, 0, "NSFont");
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font->fontName(), "Times New Roman");
    EXPECT_EQ(font->pointSize(), 12.5);
    const auto color = attribute<platform::Color>(string, 1, "NSColor");
    ASSERT_NE(color, nullptr);
    EXPECT_EQ(color->rgb(), (platform::Rgb{0.5, 0, 1}));
    EXPECT_EQ(color->alphaComponent(), 0.25);
    EXPECT_EQ(attribute<platform::URLReference>(string, 2, "NSLink")->relativeString(),
              "https://example.org/");
    EXPECT_EQ(
        attribute<platform::ParagraphStyle>(string, 3, "NSParagraphStyle")->layout().alignment,
        platform::TextAlignment::Justified);
    const auto file = attribute<platform::TextAttachment>(string, 4, "NSAttachment")->fileWrapper();
    EXPECT_EQ(file->preferredFilename(), "a.png");
    EXPECT_EQ(file->regularFileContents(), Data::copyOf("pixels"));
    const auto tag = attribute<platform::OpaqueObject>(string, 5, "Pause");
    ASSERT_NE(tag, nullptr);
    EXPECT_EQ(tag->type->names, (std::vector<std::string>{"AcmePause", "NSObject"}));
    EXPECT_EQ((*tag)["n"], Value(-3));
    EXPECT_EQ((*tag)["x"], Value(1.5));
    EXPECT_EQ((*tag)["on"], Value(true));
    EXPECT_EQ((*tag)["label"], Value(u"short pause"));
    EXPECT_EQ((*tag)["empty"], Value(u""));
    EXPECT_EQ(tag->fields[0].form, FieldForm::Inline);
    EXPECT_EQ(tag->fields[3].form, FieldForm::Reference);
}

TEST(MarkedUpText, TheSameMarksShareTheirAttributes) {
    const auto text = read(u"{{font F 9}}a{{/font}}b{{font F 9}}c{{/font}}");
    ASSERT_EQ(text.value().runs().size(), 3u);
    EXPECT_EQ(text.value().runs()[0].attributes, text.value().runs()[2].attributes);
}

TEST(MarkedUpText, AWrongMarkIsNamedWithItsLine) {
    const struct {
        const char16_t* source;
        const char* fault;
    } kRows[] = {
        {u"a\nb{{bold}}c{{/bold}}", "line 2: unknown mark bold"},
        {u"{{}}", "line 1: {{}} says nothing"},
        {u"{{font F 9}}\n\n", "line 3: font is left open"},
        {u"{{/font}}", "line 1: /font where nothing is open"},
        {u"{{underline}}{{font F 9}}{{/underline}}", "line 1: /underline where font is open"},
        {u"a {{ b", "line 1: {{ without }}"},
        {u"{{font F}}", "line 1: font wants a name and a size"},
        {u"{{font F large}}", "line 1: font wants a name and a size"},
        {u"{{color 1 1}}", "line 1: color wants three or four numbers from 0 to 1"},
        {u"{{color 1 1 2}}", "line 1: color wants three or four numbers from 0 to 1"},
        {u"{{color 1 1 red}}", "line 1: color wants three or four numbers from 0 to 1"},
        {u"{{color 1 1 1 1 1}}", "line 1: color wants three or four numbers from 0 to 1"},
        {u"{{link}}", "line 1: link wants an address"},
        {u"{{underline twice}}", "line 1: underline wants nothing more"},
        {u"{{align middle}}", "line 1: align wants left, right, center or justified"},
        {u"{{tag Pause}}", "line 1: tag wants an attribute's name and a class"},
        {u"{{tag Pause P key}}", "line 1: tag's fields are written key=value"},
        {u"{{tag Pause P =value}}", "line 1: tag's fields are written key=value"},
        {u"{{tag Pause \"P}}", "line 1: a quotation mark without its other half"},
        {u"{{attach}}", "line 1: attach wants a file"},
        {u"{{attach b.png}}", "line 1: no b.png"},
    };
    for (const auto& row : kRows) {
        const auto text = read(row.source);
        ASSERT_FALSE(text) << row.fault;
        EXPECT_EQ(text.fault().detail, row.fault);
    }
}

}  // namespace
}  // namespace pvdoc
