#include "Platform/Text/RtfWriter.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/URLReference.h"
#include "Platform/Text/AttributeNames.h"
#include "Platform/Text/Color.h"
#include "Platform/Text/Font.h"
#include "Platform/Text/FontTraits.h"
#include "Platform/Text/ParagraphStyle.h"
#include "Platform/Text/TextAttachment.h"

namespace {

using platform::AttributedString;
using platform::AttributeRun;
using platform::Attributes;
using platform::Color;
using platform::ColorSpace;
using platform::Dictionary;
using platform::Font;
using platform::FontTraits;
using platform::ParagraphLayout;
using platform::ParagraphStyle;
using platform::TextAlignment;
using platform::Value;

Attributes attributesOf(std::vector<Dictionary::Entry> entries) {
    return std::make_shared<const Dictionary>(std::move(entries));
}

Attributes attribute(const char* name, Value value) {
    return attributesOf({{name, std::move(value)}});
}

template <class Object, class... Arguments>
Value made(Arguments... arguments) {
    return Value(std::static_pointer_cast<const platform::Object>(
        std::make_shared<const Object>(std::move(arguments)...)));
}

Attributes layout(const ParagraphLayout& layout) {
    return attribute(platform::kParagraphStyleAttributeName, made<ParagraphStyle>(layout));
}

struct Piece {
    std::u16string text;
    Attributes attributes;
};

AttributedString textOf(const std::vector<Piece>& pieces) {
    auto text = std::make_shared<std::u16string>();
    std::vector<AttributeRun> runs;
    for (const Piece& piece : pieces) {
        *text += piece.text;
        platform::appendRun(runs, piece.text.size(), piece.attributes);
    }
    return {text, runs};
}

std::string rtfOf(const std::vector<Piece>& pieces) {
    return std::string(platform::rtfFromAttributedString(textOf(pieces)).view());
}

/// What stands behind the tables.
std::string bodyOf(const std::vector<Piece>& pieces) {
    const std::string rtf = rtfOf(pieces);
    const std::string_view tablesEnd = "}\n";
    const std::size_t colors = rtf.find("{\\colortbl");
    const std::size_t start = rtf.find(tablesEnd, colors) + tablesEnd.size();
    return rtf.substr(start, rtf.size() - tablesEnd.size() - start);
}

/// The words for text without attributes.
constexpr char kPlain[] = "\\pard \\plain\\f0\\fs24 ";

TEST(RtfWriter, WritesAnEmptyText) {
    EXPECT_EQ(rtfOf({}), "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0\n{\\fonttbl}\n{\\colortbl;}\n}\n");
}

TEST(RtfWriter, WritesCharacters) {
    const struct {
        const char16_t* text;
        const char* rtf;
    } kRows[] = {
        {u"plain", "plain"},
        {u"{a}\\", "\\{a\\}\\\\"},
        {u"a\tb", "a\\tab b"},
        {u"a\u2028b", "a\\line b"},
        {u"\u00E9\u20AC", "\\u233\\'3f\\u8364\\'3f"},
        {u"\uFFFD", "\\u-3\\'3f"},
        {u"\U0001F600", "\\u-10179\\'3f\\u-8704\\'3f"},
        {u"\xD800x", "\\u-10240\\'3fx"},
        {u"\u0007\u007F", "\\u7\\'3f\\u127\\'3f"},
        {u"a\nb\n", "a\\par\nb\\par\n"},
        {u"a\r\nb", "a\\u13\\'3f\\par\nb"},
        {u"\u2029", "\\u8233\\'3f"},
        {u"\u00A0\u00AD", "\\u160\\'3f\\u173\\'3f"},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(bodyOf({{row.text, nullptr}}), kPlain + std::string(row.rtf));
    }
    EXPECT_EQ(bodyOf({{std::u16string(1, u'\0'), nullptr}}), kPlain + std::string("\\u0\\'3f"));
    EXPECT_EQ(bodyOf({{u"\n", nullptr}}), "\\pard \\par\n");
}

TEST(RtfWriter, GivesEachFontAPlaceInTheTable) {
    const auto font = [](const char* name, double size) {
        return attribute(platform::kFontAttributeName, made<Font>(std::string(name), size));
    };
    const std::string rtf = rtfOf({{u"a", font("Times-Roman", 12)},
                                   {u"b", font("Helvetica-BoldOblique", 10.5)},
                                   {u"c", font("Times-Roman", 14)},
                                   {u"d", font("{;\u00E9\\", 0)}});
    EXPECT_NE(rtf.find("{\\fonttbl{\\f0\\fnil\\fcharset0 Times-Roman;}"
                       "{\\f1\\fnil\\fcharset0 Helvetica-BoldOblique;}"
                       "{\\f2\\fnil\\fcharset0 \\{\\u233\\'3f\\\\;}}"),
              std::string::npos);
    EXPECT_NE(rtf.find("\\plain\\f0\\fs24 a\\plain\\f1\\b\\i\\fs21 b\\plain\\f0\\fs28 c"
                       "\\plain\\f2\\fs24 d"),
              std::string::npos);
}

TEST(RtfWriter, GivesEachColorAPlaceInTheTable) {
    const Value red = made<Color>(ColorSpace::CalibratedRgb, std::vector<double>{1, 0.2, 0});
    const Value grey = made<Color>(ColorSpace::CalibratedWhite, std::vector<double>{0.5});
    const Value odd =
        made<Color>(ColorSpace::DeviceRgb,
                    std::vector<double>{-1, 2, std::numeric_limits<double>::quiet_NaN()});
    const std::string rtf =
        rtfOf({{u"a", attribute(platform::kForegroundColorAttributeName, red)},
               {u"b", attributesOf({{platform::kForegroundColorAttributeName, grey},
                                    {platform::kBackgroundColorAttributeName, red}})},
               {u"c", attribute(platform::kForegroundColorAttributeName, odd)}});
    EXPECT_NE(rtf.find("{\\colortbl;\\red255\\green51\\blue0;\\red128\\green128\\blue128;"
                       "\\red0\\green255\\blue0;}"),
              std::string::npos);
    EXPECT_NE(rtf.find("\\fs24\\cf1 a\\plain\\f0\\fs24\\cf2\\cb1 b\\plain\\f0\\fs24\\cf3 c"),
              std::string::npos);
}

TEST(RtfWriter, WritesLinesAndPlaces) {
    const struct {
        const char* name;
        int value;
        const char* words;
    } kRows[] = {
        {platform::kUnderlineStyleAttributeName, 0, ""},
        {platform::kUnderlineStyleAttributeName, 1, "\\ul"},
        {platform::kUnderlineStyleAttributeName, 2, "\\ulth"},
        {platform::kUnderlineStyleAttributeName, 9, "\\uldb"},
        {platform::kUnderlineStyleAttributeName, 0x100 | 1, "\\ul"},
        {platform::kStrikethroughStyleAttributeName, 0, ""},
        {platform::kStrikethroughStyleAttributeName, 1, "\\strike"},
        {platform::kSuperscriptAttributeName, 1, "\\super"},
        {platform::kSuperscriptAttributeName, -1, "\\sub"},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(bodyOf({{u"x", attribute(row.name, Value(row.value))}}),
                  "\\pard \\plain\\f0\\fs24" + std::string(row.words) + " x");
    }
}

TEST(RtfWriter, WritesParagraphs) {
    const struct {
        ParagraphLayout layout;
        const char* words;
    } kRows[] = {
        {{}, ""},
        {{.alignment = TextAlignment::Left}, "\\ql"},
        {{.alignment = TextAlignment::Right}, "\\qr"},
        {{.alignment = TextAlignment::Center}, "\\qc"},
        {{.alignment = TextAlignment::Justified}, "\\qj"},
        {{.baseWritingDirection = platform::WritingDirection::RightToLeft}, "\\rtlpar"},
        {{.baseWritingDirection = platform::WritingDirection::LeftToRight}, "\\ltrpar"},
        {{.firstLineHeadIndent = 36, .headIndent = 18, .tailIndent = -10}, "\\li360\\fi360\\ri200"},
        {{.firstLineHeadIndent = 0, .headIndent = 18, .tailIndent = 400}, "\\li360\\fi-360"},
        {{.paragraphSpacing = 6, .paragraphSpacingBefore = 12.5}, "\\sb250\\sa120"},
        {{.lineHeightMultiple = 1.5}, "\\sl360\\slmult1"},
        {{.minimumLineHeight = 14}, "\\sl280"},
        {{.minimumLineHeight = 14, .maximumLineHeight = 14}, "\\sl-280"},
        {{.tabStops = std::vector<platform::TextTab>{{28.35, TextAlignment::Left},
                                                     {100, TextAlignment::Right},
                                                     {200, TextAlignment::Center}}},
         "\\tx567\\tqr\\tx2000\\tqc\\tx4000"},
        {{.headIndent = 1e300, .lineHeightMultiple = 1e300},
         "\\li31680\\fi-31680\\sl31680\\slmult1"},
        {{.headIndent = std::numeric_limits<double>::infinity(),
          .tabStops = std::vector<platform::TextTab>{{std::numeric_limits<double>::quiet_NaN(),
                                                      TextAlignment::Left}}},
         ""},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(bodyOf({{u"x", layout(row.layout)}}),
                  "\\pard" + std::string(row.words) + " \\plain\\f0\\fs24 x");
    }
}

TEST(RtfWriter, LetsAParagraphsFirstCharacterDecide) {
    const auto centered = layout({.alignment = TextAlignment::Center});
    const auto right = layout({.alignment = TextAlignment::Right});
    EXPECT_EQ(bodyOf({{u"a", centered}, {u"b\nc", right}, {u"d\n", centered}, {u"e", right}}),
              "\\pard\\qc \\plain\\f0\\fs24 ab\\par\n\\pard\\qr cd\\par\ne");
}

TEST(RtfWriter, WritesLinksAsFields) {
    const auto link = [](Value value) {
        return attribute(platform::kLinkAttributeName, std::move(value));
    };
    const Attributes url =
        link(made<platform::URLReference>(std::string("https://example.org/{a}?b=1")));
    EXPECT_EQ(bodyOf({{u"see ", nullptr}, {u"here\nand", url}, {u".", nullptr}}),
              "\\pard \\plain\\f0\\fs24 see "
              "{\\field{\\*\\fldinst{HYPERLINK \"https://example.org/\\{a\\}?b=1\"}}"
              "{\\fldrslt \\plain\\f0\\fs24 here}}\\par\n"
              "{\\field{\\*\\fldinst{HYPERLINK \"https://example.org/\\{a\\}?b=1\"}}"
              "{\\fldrslt \\plain\\f0\\fs24 and}}.");
    const struct {
        Value value;
        bool isWritten;
    } kRows[] = {
        {Value(u"mailto:a@b"), true},
        {Value(u""), false},
        {Value(u"a\"b"), false},
        {Value(u"a\\b"), false},
        {Value(std::u16string(2'083, u'a').c_str()), true},
        {Value(std::u16string(2'084, u'a').c_str()), false},
        {Value(1), false},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(bodyOf({{u"x", link(row.value)}}).find("HYPERLINK") != std::string::npos,
                  row.isWritten);
    }
}

TEST(RtfWriter, LeavesAttachmentsOut) {
    const Attributes attachment =
        attribute(platform::kAttachmentAttributeName, made<platform::TextAttachment>(nullptr));
    EXPECT_EQ(bodyOf({{u"a", nullptr}, {u"\uFFFC", attachment}, {u"b", nullptr}}),
              kPlain + std::string("ab"));
}

TEST(FontTraits, AreReadFromTheStyleInTheName) {
    const struct {
        const char* name;
        FontTraits traits;
    } kRows[] = {
        {"Helvetica", {}},
        {"Helvetica-Bold", {true, false}},
        {"Helvetica-Oblique", {false, true}},
        {"Helvetica-BoldOblique", {true, true}},
        {"TimesNewRomanPS-BoldItalicMT", {true, true}},
        {"Avenir-Black", {true, false}},
        {"Bold", {}},
        {"ArialMT", {}},
        {"Times-Roman", {}},
        {"-", {}},
        {"", {}},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(platform::fontTraitsOf(row.name), row.traits) << row.name;
    }
}

}  // namespace
