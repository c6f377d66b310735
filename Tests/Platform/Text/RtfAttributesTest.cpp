// What the characters and paragraphs of RTF documents look like.

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/FileWrapper.h"
#include "Platform/Foundation/URLReference.h"
#include "Platform/Text/AttributeNames.h"
#include "Platform/Text/Color.h"
#include "Platform/Text/Font.h"
#include "Platform/Text/FontTraits.h"
#include "Platform/Text/ParagraphStyle.h"
#include "Platform/Text/RtfReader.h"
#include "Platform/Text/RtfWriter.h"

namespace platform {
namespace {

AttributedString read(const std::string& rtf, const AttachmentFinder& find = {}) {
    return attributedStringFromRtf(Data::copyOf(rtf), find).value();
}

/// A document with three fonts and two colours.
AttributedString readBody(std::string_view body) {
    return read(
        R"({\rtf1\ansi\deff0{\fonttbl{\f0 Helvetica;}{\f1 Times New Roman;}{\f2 Menlo-Bold;}})"
        R"({\colortbl;\red255\green0\blue51;\red0;})" +
        std::string(body) + "}");
}

/// The attribute of the text's last character.
Value lastValue(const AttributedString& text, const char* name) {
    const Attributes attributes = text.attributesAtIndex(text.length() - 1);
    return attributes != nullptr ? (*attributes)[name] : Value();
}

template <class Type>
std::shared_ptr<const Type> lastObject(const AttributedString& text, const char* name) {
    return std::dynamic_pointer_cast<const Type>(lastValue(text, name).object());
}

TEST(RtfAttributes, NameFonts) {
    const struct {
        const char* body;
        const char* name;
        double size;
    } kRows[] = {
        {"x", "Helvetica", 12},
        {R"(\f1\fs36 x)", "Times New Roman", 18},
        {R"(\f1\fs25 x)", "Times New Roman", 12.5},
        {R"(\b x)", "Helvetica-Bold", 12},
        {R"(\b\i x)", "Helvetica-BoldOblique", 12},
        {R"(\f1\i x)", "Times New Roman-Italic", 12},
        {R"(\f2\b x)", "Menlo-Bold", 12},
        {R"(\f2\i x)", "Menlo-BoldItalic", 12},
        {R"(\b\b0 x)", "Helvetica", 12},
        {R"({\b\f1 y}x)", "Helvetica", 12},
        {R"(\b\i\f1\fs50\plain x)", "Helvetica", 12},
        {R"(\fs0 x)", "Helvetica", 12},
        {R"(\fs-7 x)", "Helvetica", 12},
        {R"(\fs2147483647 x)", "Helvetica", 32767.5},
        {R"(\f9 x)", "Helvetica", 12},
    };
    for (const auto& row : kRows) {
        const auto font = lastObject<Font>(readBody(row.body), kFontAttributeName);
        ASSERT_NE(font, nullptr) << row.body;
        EXPECT_EQ(font->fontName(), row.name) << row.body;
        EXPECT_EQ(font->pointSize(), row.size) << row.body;
    }
}

TEST(RtfAttributes, NameFontsInTheirCodePage) {
    const auto font = lastObject<Font>(
        read(R"({\rtf1{\fonttbl{\f0\fcharset128 \'82\'6c S\u233? ;}}\f0 x})"), kFontAttributeName);
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font->fontName(), "\xEF\xBC\xAD S\xC3\xA9");
}

TEST(RtfAttributes, DrawLinesAndRaiseText) {
    const struct {
        const char* body;
        const char* name;
        Value want;
    } kRows[] = {
        {"x", kUnderlineStyleAttributeName, Value()},
        {R"(\ul x)", kUnderlineStyleAttributeName, Value(1)},
        {R"(\uldb x)", kUnderlineStyleAttributeName, Value(9)},
        {R"(\ulth x)", kUnderlineStyleAttributeName, Value(2)},
        {R"(\uld x)", kUnderlineStyleAttributeName, Value(0x101)},
        {R"(\ulw x)", kUnderlineStyleAttributeName, Value(0x8001)},
        {R"(\ul\ulnone x)", kUnderlineStyleAttributeName, Value()},
        {R"(\ul\ul0 x)", kUnderlineStyleAttributeName, Value()},
        {R"(\strike x)", kStrikethroughStyleAttributeName, Value(1)},
        {R"(\striked1 x)", kStrikethroughStyleAttributeName, Value(9)},
        {R"(\strike\strike0 x)", kStrikethroughStyleAttributeName, Value()},
        {R"(\super x)", kSuperscriptAttributeName, Value(1)},
        {R"(\sub x)", kSuperscriptAttributeName, Value(-1)},
        {R"(\super\nosupersub x)", kSuperscriptAttributeName, Value()},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(lastValue(readBody(row.body), row.name), row.want) << row.body;
    }
}

TEST(RtfAttributes, HaveTheTablesColors) {
    const struct {
        const char* body;
        const char* name;
        std::optional<Rgb> want;
    } kRows[] = {
        {R"(\cf1 x)", kForegroundColorAttributeName, Rgb{1, 0, 0.2}},
        {R"(\cf2 x)", kForegroundColorAttributeName, Rgb{0, 0, 0}},
        {R"(\cf0 x)", kForegroundColorAttributeName, std::nullopt},
        {R"(\cf3 x)", kForegroundColorAttributeName, std::nullopt},
        {R"(\cf-1 x)", kForegroundColorAttributeName, std::nullopt},
        {R"(\cb1 x)", kBackgroundColorAttributeName, Rgb{1, 0, 0.2}},
        {R"(\highlight1 x)", kBackgroundColorAttributeName, Rgb{1, 0, 0.2}},
        {R"(\cf1\plain x)", kForegroundColorAttributeName, std::nullopt},
    };
    for (const auto& row : kRows) {
        const auto color = lastObject<Color>(readBody(row.body), row.name);
        EXPECT_EQ(color ? color->rgb() : std::nullopt, row.want) << row.body;
    }
}

TEST(RtfAttributes, LayParagraphsOut) {
    const struct {
        const char* body;
        ParagraphLayout want;
    } kRows[] = {
        {R"(\ql x\par)", {.alignment = TextAlignment::Left}},
        {R"(\qr x\par)", {.alignment = TextAlignment::Right}},
        {R"(\qc x\par)", {.alignment = TextAlignment::Center}},
        {R"(\qj x\par)", {.alignment = TextAlignment::Justified}},
        {R"(\qc x)", {.alignment = TextAlignment::Center}},
        {R"(x\qc\par)", {.alignment = TextAlignment::Center}},
        {R"(\rtlpar x\par)", {.baseWritingDirection = WritingDirection::RightToLeft}},
        {R"(\li720\fi-360\ri100 x\par)",
         {.firstLineHeadIndent = 18, .headIndent = 36, .tailIndent = -5}},
        {R"(\sb100\sa40 x\par)", {.paragraphSpacing = 2, .paragraphSpacingBefore = 5}},
        {R"(\sl360\slmult1 x\par)", {.lineHeightMultiple = 1.5}},
        {R"(\sl280 x\par)", {.minimumLineHeight = 14}},
        {R"(\sl-280 x\par)", {.minimumLineHeight = 14, .maximumLineHeight = 14}},
        {R"(\tx200\tqr\tx400\tqc\tx600 x\par)",
         {.tabStops = std::vector<TextTab>{{10, TextAlignment::Left},
                                           {20, TextAlignment::Right},
                                           {30, TextAlignment::Center}}}},
        {R"(\qc\tx5 y\par\pard\qr x\par)", {.alignment = TextAlignment::Right}},
    };
    for (const auto& row : kRows) {
        const AttributedString text = readBody(row.body);
        const auto style = lastObject<ParagraphStyle>(text, kParagraphStyleAttributeName);
        ASSERT_NE(style, nullptr) << row.body;
        EXPECT_EQ(style->layout(), row.want) << row.body;
    }
    EXPECT_TRUE(lastValue(readBody(R"(\qc y\par\pard x)"), kParagraphStyleAttributeName).isNull());
}

TEST(RtfAttributes, LeadWhereFieldsSay) {
    const struct {
        const char* instruction;
        const char* want;
    } kRows[] = {
        {R"(HYPERLINK "http://a/b?c=d")", "http://a/b?c=d"},
        {R"( hyperlink  http://a )", "http://a"},
        {R"({HYPERLINK {"http://a"}})", "http://a"},
        {R"(HYPERLINK "http://a" \\l "place" \\o "tip" \\t "_blank")", "http://a#place"},
        {R"(HYPERLINK \\l "place")", "#place"},
        {R"(HYPERLINK \\h \\n "http://a" \\* MERGEFORMAT)", "http://a"},
        {R"(HYPERLINK "file:///C:\\\\b\\\\c")", "file:///C:\\b\\c"},
        {R"(HYPERLINK "\u233?")", "\xC3\xA9"},
        {R"(HYPERLINK "http://a)", "http://a"},
        {R"(HYPERLINK)", nullptr},
        {R"(REF a)", nullptr},
    };
    for (const auto& row : kRows) {
        const auto link = lastObject<URLReference>(
            readBody(R"({\field{\*\fldinst )" + std::string(row.instruction) +
                     R"(}{\fldrslt\plain x}})"),
            kLinkAttributeName);
        ASSERT_EQ(link != nullptr, row.want != nullptr) << row.instruction;
        if (link != nullptr) {
            EXPECT_EQ(link->relativeString(), row.want) << row.instruction;
        }
    }
    const AttributedString text = readBody(R"({\field{\*\fldinst HYPERLINK "a"}{\fldrslt b}}c)");
    EXPECT_TRUE(lastValue(text, kLinkAttributeName).isNull());
}

TEST(RtfAttributes, HoldAttachments) {
    const auto file = std::make_shared<const TextAttachment>(
        FileWrapper::initRegularFileWithContents(Data::copyOf("pixels")).get());
    const AttachmentFinder find = [&](std::string_view name) {
        return name == "a b.png" ? file : nullptr;
    };
    const AttributedString text = read(
        R"({\rtf1{{\NeXTGraphic a b.png \width1}\'ac}{{\NeXTGraphic c.png}\'ac}{\pict 0}x})", find);
    EXPECT_EQ(text.string(), u"\uFFFC\uFFFC\uFFFCx");
    ASSERT_EQ(text.runs().size(), 3U);
    const auto attachmentAt = [&](std::uint64_t index) {
        return std::dynamic_pointer_cast<const TextAttachment>(
            (*text.attributesAtIndex(index))[kAttachmentAttributeName].object());
    };
    EXPECT_EQ(attachmentAt(0), file);
    ASSERT_NE(attachmentAt(1), nullptr);
    EXPECT_EQ(attachmentAt(1)->fileWrapper(), nullptr);
    EXPECT_EQ(attachmentAt(2), attachmentAt(1));
    EXPECT_EQ(attachmentAt(3), nullptr);
}

TEST(RtfAttributes, AreSharedByRunsThatLookAlike) {
    std::string body;
    for (int i = 0; i < 1000; ++i) {
        body += R"({\b b}a\par )";
    }
    const AttributedString text = readBody(body);
    ASSERT_EQ(text.runs().size(), 2000U);
    EXPECT_EQ(text.runs()[0].attributes, text.runs()[1998].attributes);
    EXPECT_EQ(text.runs()[1].attributes, text.runs()[1999].attributes);
    EXPECT_EQ(readBody(R"(a{\b0 b}{c}\fs24 d)").runs().size(), 1U);
}

TEST(RtfAttributes, OfTooManyLooksAreLeftOut) {
    constexpr int kLooks = 20'000;
    std::string body;
    for (int i = 1; i <= kLooks; ++i) {
        body += "\\fs" + std::to_string(i) + " a";
    }
    const AttributedString text = readBody(body + "\\fs1{\\pict 0}\\fs30000{\\pict 0}");
    EXPECT_EQ(text.length(), kLooks + 2U);
    EXPECT_EQ(text.runs().back().length, 2U);
    EXPECT_NE(lastObject<TextAttachment>(text, kAttachmentAttributeName), nullptr);
    EXPECT_EQ(text.attributesAtIndex(kLooks - 1), text.attributesAtIndex(kLooks - 2));
    EXPECT_NE(text.attributesAtIndex(1), text.attributesAtIndex(0));
}

TEST(RtfAttributes, OfTooManyRunsAreLeftOut) {
    constexpr std::size_t kPairs = 10'000;
    std::string body;
    for (std::size_t i = 0; i < kPairs; ++i) {
        body += "{\\b a}b";
    }
    const AttributedString text = readBody(body + "{\\pict 0}");
    EXPECT_EQ(text.length(), 2 * kPairs + 1);
    EXPECT_LT(text.runs().size(), 2 * kPairs);
    EXPECT_GT(text.runs().size(), body.size() / 6);
    EXPECT_NE(text.runs().front().attributes, nullptr);
    EXPECT_EQ(text.runs().back().attributes, nullptr);
}

TEST(RtfAttributes, AreReadAsTheyAreWritten) {
    const AttributedString text =
        readBody(R"(\pard\qc\li720\fi-360\sb100\sl280\tx500\b\cf1 a\plain\f1\fs31\i\ul b\par)"
                 R"(\pard\rtlpar\plain c\super d\plain\strike\cb2 e\line f\par)"
                 R"({\field{\*\fldinst{HYPERLINK "http://a/"}}{\fldrslt g}} h\u-10179?\u-8704?)");
    const Data written = rtfFromAttributedString(text);
    const AttributedString again = attributedStringFromRtf(written).value();
    EXPECT_EQ(again.string(), text.string());
    EXPECT_EQ(rtfFromAttributedString(again), written);
    EXPECT_EQ(again.runs().size(), text.runs().size());
}

TEST(FontTraits, AreAddedToNames) {
    const struct {
        const char* name;
        FontTraits traits;
        const char* want;
    } kRows[] = {
        {"Helvetica", {}, "Helvetica"},
        {"Helvetica", {true, false}, "Helvetica-Bold"},
        {"Helvetica-Bold", {false, true}, "Helvetica-BoldOblique"},
        {"Helvetica-Bold", {false, false}, "Helvetica-Bold"},
        {"Menlo-Regular", {true, true}, "Menlo-BoldItalic"},
        {"Times-Roman", {false, true}, "Times-Italic"},
        {"Avenir-Black", {true, false}, "Avenir-Black"},
        {"HiraKakuProN-W3", {true, false}, "HiraKakuProN-W3-Bold"},
        {"Georgia-BoldItalic", {true, true}, "Georgia-BoldItalic"},
        {"", {true, false}, "-Bold"},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(fontNameWithTraits(row.name, row.traits), row.want) << row.name;
    }
}

}  // namespace
}  // namespace platform
