#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "Platform/Foundation/PropertyListSerialization.h"

namespace platform {
namespace {

using namespace std::string_view_literals;

using enum PropertyListFormat;

/// `text` in units of `size` bytes.
std::string wide(std::u32string_view text, std::size_t size, bool isBigEndian) {
    std::string bytes;
    for (const char32_t unit : text) {
        for (std::size_t i = 0; i < size; ++i) {
            const std::size_t shift = 8 * (isBigEndian ? size - 1 - i : i);
            bytes.push_back(static_cast<char>(unit >> shift & 0xFF));
        }
    }
    return bytes;
}

constexpr std::u32string_view kOldText = U"{a = \"\u20AC\";}";
constexpr std::u32string_view kXmlText =
    U"<?xml version=\"1.0\" encoding=\"UTF-16\"?>"
    U"<plist><dict><key>a</key><string>\u20AC</string></dict></plist>";

std::u32string marked(std::u32string_view text) {
    return U"\uFEFF" + std::u32string(text);
}

TEST(PropertyListFormat, IsFoundAndTold) {
    struct Row {
        const char* name;
        std::string bytes;
        PropertyListFormat want;
    };
    const std::string binary(
        PropertyListSerialization::dataWithPropertyList(Dictionary{{"a", Value(u"\u20AC")}}, Binary)
            .value()
            .view());
    const std::string oldText = "{a = \"\u20AC\";}";
    const std::string xmlText = "<plist><dict><key>a</key><string>\u20AC</string></dict></plist>";
    const Row rows[] = {
        {"binary", binary, Binary},
        {"XML", xmlText, Xml},
        {"XML after white space", "\n" + xmlText, Xml},
        {"XML with a mark", "\xEF\xBB\xBF" + xmlText, Xml},
        {"XML with a mark that declares something else",
         "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + xmlText, Xml},
        {"XML in UTF-16, little-endian", wide(marked(kXmlText), 2, false), Xml},
        {"XML in UTF-16, big-endian", wide(marked(kXmlText), 2, true), Xml},
        {"XML in UTF-32, little-endian", wide(marked(kXmlText), 4, false), Xml},
        {"XML in UTF-32, big-endian", wide(marked(kXmlText), 4, true), Xml},
        {"old text", oldText, OpenStep},
        {"strings file", "a = \"\u20AC\";", OpenStep},
        {"old text in UTF-16, little-endian", wide(marked(kOldText), 2, false), OpenStep},
        {"old text in UTF-16, big-endian", wide(marked(kOldText), 2, true), OpenStep},
        {"old text in UTF-32, little-endian", wide(marked(kOldText), 4, false), OpenStep},
        {"old text in UTF-32, big-endian", wide(marked(kOldText), 4, true), OpenStep},
        {"UTF-16 without a mark loses its first unit",
         wide(U"?" + std::u32string(kOldText), 2, true), OpenStep},
        {"also when it is XML", wide(U"?" + std::u32string(kXmlText), 2, true), Xml},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        PropertyListFormat format = row.want == Xml ? Binary : Xml;
        const auto value =
            PropertyListSerialization::propertyListWithData(Data::copyOf(row.bytes), &format);
        ASSERT_TRUE(value) << value.fault().detail;
        EXPECT_EQ(value.value(), Value(Dictionary{{"a", Value(u"\u20AC")}}));
        EXPECT_EQ(format, row.want);
    }
}

TEST(PropertyListFormat, WhiteSpaceIsAnEmptyDictionary) {
    PropertyListFormat format = Xml;
    const auto value =
        PropertyListSerialization::propertyListWithData(Data::copyOf(" \n"), &format);
    ASSERT_TRUE(value) << value.fault().detail;
    EXPECT_EQ(value.value(), Value(Dictionary()));
    EXPECT_EQ(format, OpenStep);
}

TEST(PropertyListFormat, AFaultTellsWhatIsWrongInEitherText) {
    struct Row {
        const char* name;
        std::string bytes;
        const char* detail;
    };
    const Row rows[] = {
        {"no bytes", "", "no element found in line 1; as old text format: no text in line 1"},
        {"no characters", "\xFF\xFE",
         "no element found in line 1; as old text format: no text in line 1"},
        {"XML", "<plist>\n</dict></plist>",
         "mismatched tag in line 2; "
         "as old text format: no pair of hexadecimal digits in data in line 1"},
        {"old text", "{a = 1;\nb = 2}",
         "not well-formed (invalid token) in line 1; "
         "as old text format: no ';' after a value in line 2"},
        {"old text with a mark in UTF-8", "\xEF\xBB\xBF(a)",
         "syntax error in line 1; as old text format: unexpected character \uFEFF in line 1"},
        {"Latin 1", "(\xE9)", "syntax error in line 1; as old text format: text that is not UTF-8"},
        {"UTF-16 without a mark, little-endian", wide(kOldText, 2, false),
         "not well-formed (invalid token) in line 1; "
         "as old text format: unexpected character \u6100 in line 1"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        PropertyListFormat format = Binary;
        const auto value =
            PropertyListSerialization::propertyListWithData(Data::copyOf(row.bytes), &format);
        ASSERT_FALSE(value);
        EXPECT_EQ(value.fault().code, FaultCode::Malformed);
        EXPECT_EQ(value.fault().detail, row.detail);
        EXPECT_EQ(format, Binary) << "stays as it was";
    }
}

TEST(PropertyListFormat, TheOldTextIsNotWritten) {
    const auto data = PropertyListSerialization::dataWithPropertyList(Value(u"a"), OpenStep);
    ASSERT_FALSE(data);
    EXPECT_EQ(data.fault().code, FaultCode::Unsupported);
}

}  // namespace
}  // namespace platform
