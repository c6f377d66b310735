// What the writer of RTF writes, the reader reads: text and attributes.

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "Platform/Foundation/URLReference.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/AttributeNames.h"
#include "Platform/Text/Color.h"
#include "Platform/Text/Font.h"
#include "Platform/Text/ParagraphStyle.h"
#include "Platform/Text/RtfReader.h"
#include "Platform/Text/RtfWriter.h"

namespace platform {
namespace {

template <class Made, class... Arguments>
Value made(Arguments... arguments) {
    return Value(std::static_pointer_cast<const Object>(
        std::make_shared<const Made>(std::move(arguments)...)));
}

template <class Kind>
std::shared_ptr<const Kind> objectAt(const Attributes& attributes, const char* name) {
    return attributes ? std::dynamic_pointer_cast<const Kind>((*attributes)[name].object())
                      : nullptr;
}

std::string colorAt(const Attributes& attributes, const char* name) {
    const auto color = objectAt<Color>(attributes, name);
    const auto rgb = color ? color->rgb() : std::nullopt;
    const auto part = [](double component) {
        return std::to_string(std::lround(component * 255)) + ",";
    };
    return rgb ? part(rgb->red) + part(rgb->green) + part(rgb->blue) : "none";
}

/// What a character looks like, as far as RTF tells of it.
std::string look(const Attributes& attributes) {
    const auto number = [&](const char* name) {
        return std::to_string(attributes ? (*attributes)[name].integerValue().value_or(0) : 0) +
               " ";
    };
    const auto font = objectAt<Font>(attributes, kFontAttributeName);
    const auto link = objectAt<URLReference>(attributes, kLinkAttributeName);
    return (font ? font->fontName() + " " + std::to_string(font->pointSize()) : "no font") + " " +
           number(kUnderlineStyleAttributeName) + number(kStrikethroughStyleAttributeName) +
           number(kSuperscriptAttributeName) + colorAt(attributes, kForegroundColorAttributeName) +
           " " + colorAt(attributes, kBackgroundColorAttributeName) + " " +
           (link ? link->relativeString() : "");
}

/// The looks and layouts of all characters.
struct Looks {
    std::vector<std::string> characters;
    std::vector<ParagraphLayout> layouts;
};

Looks looksOf(const AttributedString& text) {
    Looks looks;
    for (const auto& [length, attributes] : text.runs()) {
        const auto style = objectAt<ParagraphStyle>(attributes, kParagraphStyleAttributeName);
        looks.characters.insert(looks.characters.end(), length, look(attributes));
        looks.layouts.insert(looks.layouts.end(), length,
                             style ? style->layout() : ParagraphLayout());
    }
    return looks;
}

class RandomText {
public:
    explicit RandomText(unsigned seed) : random_(seed) {}

    AttributedString next() {
        auto text = std::make_shared<std::u16string>();
        std::vector<AttributeRun> runs;
        const std::size_t paragraphs = 1 + below(6);
        for (std::size_t i = 0; i < paragraphs; i++) {
            const Value style = layout();
            const std::size_t pieces = 1 + below(5);
            for (std::size_t piece = 0; piece < pieces; piece++) {
                std::u16string characters = this->characters();
                characters += piece + 1 == pieces ? u"\n" : u"";
                *text += characters;
                appendRun(runs, characters.size(), attributes(style));
            }
        }
        return {text, runs};
    }

private:
    std::size_t below(std::size_t bound) { return random_() % bound; }
    bool flip() { return below(2) == 0; }

    std::u16string characters() {
        static constexpr std::array<std::u16string_view, 14> kPieces = {
            u"words ",     u"{\\}", u"\t",     u"\u2028", u"caf\u00E9", u"\u65E5\u672C", u"\u0634",
            u"\U0001F600", u"-1 ?", u"\u00A0", u"\u00AD", u"\u2014",    u"\u0007",       u"u8364"};
        std::u16string characters;
        for (std::size_t i = 1 + below(6); i > 0; i--) {
            characters += kPieces[below(kPieces.size())];
        }
        return characters;
    }

    Value layout() {
        if (flip()) {
            return {};
        }
        ParagraphLayout layout;
        layout.alignment = static_cast<TextAlignment>(below(4));
        layout.headIndent = static_cast<double>(below(40));
        layout.firstLineHeadIndent = static_cast<double>(below(40));
        layout.tailIndent = -static_cast<double>(below(20));
        layout.paragraphSpacing = static_cast<double>(below(20));
        layout.paragraphSpacingBefore = static_cast<double>(below(20));
        return made<ParagraphStyle>(layout);
    }

    Value color() {
        const auto part = [this] {
            return static_cast<double>(below(256)) / 255;
        };
        return made<Color>(ColorSpace::CalibratedRgb, std::vector<double>{part(), part(), part()});
    }

    Attributes attributes(const Value& style) {
        static constexpr std::array kFonts = {"Helvetica", "Helvetica-Bold", "Times-Italic",
                                              "Courier-BoldOblique", "Menlo-Regular"};
        std::vector<Dictionary::Entry> entries;
        entries.push_back(
            {kFontAttributeName, made<Font>(std::string(kFonts[below(kFonts.size())]),
                                            4 + static_cast<double>(below(100)) / 2)});
        const auto add = [&](const char* name, const Value& value) {
            if (below(4) == 0) {
                entries.push_back({name, value});
            }
        };
        add(kUnderlineStyleAttributeName, Value(flip() ? int{kSingleLine} : int{kDoubleLine}));
        add(kStrikethroughStyleAttributeName, Value(int{kSingleLine}));
        add(kSuperscriptAttributeName, Value(flip() ? 1 : -1));
        add(kForegroundColorAttributeName, color());
        add(kBackgroundColorAttributeName, color());
        add(kLinkAttributeName,
            made<URLReference>(std::string("https://example.org/?q=a b&c={1}")));
        if (!style.isNull()) {
            entries.push_back({kParagraphStyleAttributeName, style});
        }
        return std::make_shared<const Dictionary>(std::move(entries));
    }

    std::mt19937 random_;
};

TEST(RtfRoundTrip, TextAndAttributesComeBack) {
    RandomText random(1);
    for (int round = 0; round < 400; round++) {
        const AttributedString text = random.next();
        SCOPED_TRACE(utf8FromUtf16(text.string()));
        const auto again = attributedStringFromRtf(rtfFromAttributedString(text));
        ASSERT_TRUE(again);
        ASSERT_EQ(again.value().string(), text.string());
        const Looks before = looksOf(text);
        const Looks after = looksOf(again.value());
        for (std::size_t i = 0; i < text.length(); i++) {
            // A line end in a link stands behind its field.
            if (text.string()[i] != u'\n') {
                ASSERT_EQ(after.characters[i], before.characters[i]) << i;
            }
            const ParagraphLayout& layout = before.layouts[i];
            const ParagraphLayout& read = after.layouts[i];
            ASSERT_EQ(read.alignment, layout.alignment) << i;
            ASSERT_EQ(read.headIndent, layout.headIndent) << i;
            ASSERT_EQ(read.firstLineHeadIndent, layout.firstLineHeadIndent) << i;
            ASSERT_EQ(read.tailIndent, layout.tailIndent) << i;
            ASSERT_EQ(read.paragraphSpacing, layout.paragraphSpacing) << i;
            ASSERT_EQ(read.paragraphSpacingBefore, layout.paragraphSpacingBefore) << i;
        }
    }
}

TEST(RtfRoundTrip, EveryUnitOfTextComesBack) {
    std::u16string text;
    for (char32_t unit = 1; unit < 0x10000; unit++) {
        const bool isSurrogate = unit >= 0xD800 && unit <= 0xDFFF;
        if (!isSurrogate) {
            text += static_cast<char16_t>(unit);
        }
    }
    for (char32_t point = 0x10000; point < 0x110000; point += 0x101) {
        text += utf16FromUtf8Lossy([&] {
            std::string utf8;
            appendUtf8(utf8, point);
            return utf8;
        }());
    }
    const auto again = attributedStringFromRtf(rtfFromAttributedString(AttributedString(text)));
    ASSERT_TRUE(again);
    EXPECT_EQ(again.value().string(), text);
}

}  // namespace
}  // namespace platform
