#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include "Platform/Foundation/PropertyListSerialization.h"
#include "Platform/Foundation/XmlPropertyList.h"

namespace platform {
namespace {

using namespace std::string_view_literals;

Result<Value> read(std::string_view bytes) {
    return PropertyListSerialization::propertyListWithData(Data::copyOf(bytes));
}

/// A binary property list of objects given as bytes, the first of them on top.
std::string binary(const std::vector<std::string>& objects, int referenceSize = 1) {
    std::string file = "bplist00";
    std::string table;
    for (const std::string& object : objects) {
        table += static_cast<char>(file.size() >> 8);
        table += static_cast<char>(file.size());
        file += object;
    }
    const std::size_t tableOffset = file.size();
    file += table + std::string(6, '\0') + '\2' + static_cast<char>(referenceSize);
    file += std::string(7, '\0') + static_cast<char>(objects.size());
    file += std::string(8, '\0') + std::string(6, '\0');
    file += static_cast<char>(tableOffset >> 8);
    file += static_cast<char>(tableOffset);
    return file;
}

std::string xml(std::string_view content) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" +
           std::string(content) + "</plist>\n";
}

/// The document type that the platform writes, on a line of its own.
std::string standardDocumentType() {
    return "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n";
}

Value everyKind() {
    return Dictionary{
        {"array", Value(Array{Value(1), Value(u"two"), Value(Array{}), Value(Dictionary())})},
        {"data", Value(Data::copyOf("\0\1\2three"sv))},
        {"date", Value(Date{86400.0 * 365})},
        {"empty", Value(u"")},
        {"false", Value(false)},
        {"integer", Value(std::int64_t{-123456789012})},
        {"largest", Value(std::numeric_limits<std::uint64_t>::max())},
        {"real", Value(0.1)},
        {"text & <more>", Value(u"caf\u00E9 \U0001F600 & <tag>")},
        {"true", Value(true)},
    };
}

TEST(PropertyList, BothFormatsGoThereAndBack) {
    const Value value = everyKind();
    for (const auto format : {PropertyListFormat::Binary, PropertyListFormat::Xml}) {
        const auto data = PropertyListSerialization::dataWithPropertyList(value, format);
        ASSERT_TRUE(data);
        const auto back = PropertyListSerialization::propertyListWithData(data.value());
        ASSERT_TRUE(back) << back.fault().detail;
        EXPECT_EQ(back.value(), value);
    }
}

TEST(PropertyList, WhatIsNoneIsNotWritten) {
    Value nested = Value(1);
    for (int i = 0; i < 513; ++i) {
        nested = Array{std::move(nested)};
    }
    const struct {
        const char* name;
        Value value;
        FaultCode code;
        const char* detail;
    } kRows[] = {
        {"nothing", Value(), FaultCode::Unsupported, "value that is no property list"},
        {"nothing in an array", Value(Array{Value()}), FaultCode::Unsupported,
         "value that is no property list"},
        {"an object", Value(std::make_shared<const Object>()), FaultCode::Unsupported,
         "value that is no property list"},
        {"too deep", nested, FaultCode::TooDeep, "property list nested deeper than 512 levels"},
    };
    for (const auto& row : kRows) {
        for (const auto format : {PropertyListFormat::Binary, PropertyListFormat::Xml}) {
            SCOPED_TRACE(row.name);
            const auto data = PropertyListSerialization::dataWithPropertyList(row.value, format);
            ASSERT_FALSE(data);
            EXPECT_EQ(data.fault().code, row.code);
            EXPECT_EQ(data.fault().detail, row.detail);
        }
    }
}

TEST(XmlPropertyList, WritesNumbersThatAreNoneByName) {
    const auto written = [](double number) {
        const auto data =
            PropertyListSerialization::dataWithPropertyList(Value(number), PropertyListFormat::Xml);
        const std::string text(data.value().view());
        const std::size_t start = text.find("<real>");
        return text.substr(start, text.find("</real>") - start);
    };
    EXPECT_EQ(written(std::numeric_limits<double>::quiet_NaN()), "<real>nan");
    EXPECT_EQ(written(std::numeric_limits<double>::infinity()), "<real>+infinity");
    EXPECT_EQ(written(-std::numeric_limits<double>::infinity()), "<real>-infinity");
}

TEST(PropertyList, XmlIsLaidOutAsThePlatformDoes) {
    const Value value = Dictionary{
        {"z", Value(Array{Value(0.1), Value(3.0), Value(0.0), Value(INFINITY), Value(true)})},
        {"a", Value(Data::copyOf("\1\2\3"))},
        {"e", Value(Dictionary())},
        {"d", Value(Date{0.75})},
        {"u", Value(Uid{7})},
    };
    const auto data =
        PropertyListSerialization::dataWithPropertyList(value, PropertyListFormat::Xml);
    ASSERT_TRUE(data);
    EXPECT_EQ(data.value().view(), R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
	<key>a</key>
	<data>
	AQID
	</data>
	<key>d</key>
	<date>2001-01-01T00:00:00Z</date>
	<key>e</key>
	<dict/>
	<key>u</key>
	<dict>
		<key>CF$UID</key>
		<integer>7</integer>
	</dict>
	<key>z</key>
	<array>
		<real>0.10000000000000001</real>
		<real>3</real>
		<real>0.0</real>
		<real>+infinity</real>
		<true/>
	</array>
</dict>
</plist>
)");
}

TEST(PropertyList, LongDataIsBrokenIntoLinesThatFitTheDepth) {
    const Value value = Array{Value(Data::adopt(std::string(100, 'x')))};
    const auto data =
        PropertyListSerialization::dataWithPropertyList(value, PropertyListFormat::Xml);
    ASSERT_TRUE(data);
    const std::size_t start = data.value().view().find("<data>\n\t") + 8;
    EXPECT_EQ(data.value().view().find('\n', start) - start, 68u);
    EXPECT_EQ(PropertyListSerialization::propertyListWithData(data.value()).value(), value);
}

TEST(PropertyList, EveryPrefixOfAGoodListIsRefused) {
    for (const auto format : {PropertyListFormat::Binary, PropertyListFormat::Xml}) {
        const auto data = PropertyListSerialization::dataWithPropertyList(everyKind(), format);
        const std::string_view whole = data.value().view();
        // All but the line end after the closing tag.
        for (std::size_t size = 0; size + 1 < whole.size(); ++size) {
            // Letters of the binary signature are a string in the old text format.
            const bool isString = size > 0 && "bplist"sv.starts_with(whole.substr(0, size));
            EXPECT_EQ(static_cast<bool>(read(whole.substr(0, size))), isString && size < 6) << size;
        }
    }
}

TEST(BinaryPropertyList, ReadsScalarsOfEveryWidth) {
    struct Row {
        const char* name;
        std::string_view object;
        Value want;
    };
    const Row rows[] = {
        {"null", "\x00"sv, Value()},
        {"false", "\x08"sv, Value(false)},
        {"one byte is unsigned", "\x10\xFF"sv, Value(255)},
        {"two bytes", "\x11\xFF\xFF"sv, Value(65535)},
        {"four bytes", "\x12\xFF\xFF\xFF\xFF"sv, Value(std::int64_t{4294967295})},
        {"eight bytes are signed", "\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"sv, Value(-1)},
        {"sixteen bytes, positive", "\x14\0\0\0\0\0\0\0\0\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"sv,
         Value(std::numeric_limits<std::uint64_t>::max())},
        {"single real", "\x22\x3F\x80\0\0"sv, Value(1.0)},
        {"double real", "\x23\x40\x04\0\0\0\0\0\0"sv, Value(2.5)},
        {"date", "\x33\x40\x04\0\0\0\0\0\0"sv, Value(Date{2.5})},
        {"reference of three bytes", "\x82\1\2\3"sv, Value(Uid{0x010203})},
        {"reference of sixteen bytes", "\x8F\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x09"sv, Value(Uid{9})},
        {"UTF-16", "\x62\0a\xD8\x3D"sv, Value(std::u16string{u'a', 0xD83D})},
        {"ordered set as array", "\xB0"sv, Value(Array{})},
        {"set as array", "\xC0"sv, Value(Array{})},
        {"count that follows", "\x5F\x10\x02xy"sv, Value(u"xy")},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto value = read(binary({std::string(row.object)}));
        ASSERT_TRUE(value) << value.fault().detail;
        EXPECT_EQ(value.value(), row.want);
    }
}

TEST(BinaryPropertyList, DamageIsNamedWithItsPlace) {
    struct Row {
        const char* name;
        std::string file;
        FaultCode code;
        const char* detail;
    };
    std::string badTop = binary({"\x09"});
    badTop[badTop.size() - 9] = 4;
    std::string badTable = binary({"\x09"});
    badTable[badTable.size() - 1] = 3;
    std::string badCount = binary({"\x09"});
    badCount[badCount.size() - 17] = 2;
    const Row rows[] = {
        {"top object outside", badTop, FaultCode::Malformed, "top object 4 of 1 at offset 11"},
        {"table inside the header", badTable, FaultCode::Malformed, "offset table at offset 3"},
        {"more objects than table", badCount, FaultCode::Malformed,
         "offset table of 2 objects at offset 9"},
        {"unknown marker", binary({"\x70"}), FaultCode::Malformed,
         "unknown marker 112 at offset 8"},
        {"string beyond the objects",
         binary({"\x55"
                 "ab"}),
         FaultCode::Truncated, "object of 5 units at offset 8 reaches beyond the objects"},
        {"count near 63 bits", binary({"\x5F\x13\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF"}),
         FaultCode::Truncated,
         "object of 9223372036854775807 units at offset 8 reaches beyond the objects"},
        {"reference outside", binary({"\xA1\x05"}), FaultCode::Malformed, "object 5 of 1"},
        {"array that holds itself", binary({std::string("\xA1\x00", 2)}), FaultCode::Cyclic,
         "object 0 contains itself"},
        {"key that is no string", binary({"\xD1\x01\x01", "\x09"}), FaultCode::Malformed,
         "dictionary key that is no string"},
        {"string that is not ASCII", binary({"\x51\xE9"}), FaultCode::Malformed,
         "string that is not ASCII at offset 9"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto value = read(row.file);
        ASSERT_FALSE(value);
        EXPECT_EQ(value.fault().code, row.code);
        EXPECT_EQ(value.fault().detail, row.detail);
    }
}

TEST(BinaryPropertyList, SharedReferencesAreNotExpanded) {
    // Forty arrays, each naming the next one ten times: ten to the fortieth leaves.
    std::vector<std::string> objects;
    for (char i = 1; i <= 40; ++i) {
        objects.push_back("\xAA" + std::string(10, i));
    }
    objects.push_back("\x09");
    const auto value = read(binary(objects));
    ASSERT_TRUE(value) << value.fault().detail;
    EXPECT_EQ(value.value().array()->size(), 10u);
}

TEST(BinaryPropertyList, NestingIsBoundedWhicheverEndIsBuiltFirst) {
    for (const bool innerFirst : {false, true}) {
        std::string file = "bplist00";
        constexpr int kLists = 5000;
        std::vector<std::size_t> offsets;
        const auto reference = [&](int number) {
            file += static_cast<char>(number >> 8);
            file += static_cast<char>(number);
        };
        // Object 0 names all lists or the last one, list n holds list n - 1.
        offsets.push_back(file.size());
        if (innerFirst) {
            file += "\xAF\x11";
            reference(kLists);
            for (int i = 1; i <= kLists; ++i) {
                reference(i);
            }
        } else {
            file += '\xA1';
            reference(kLists);
        }
        for (int i = 1; i <= kLists; ++i) {
            offsets.push_back(file.size());
            file += i == 1 ? '\xA0' : '\xA1';
            if (i > 1) {
                reference(i - 1);
            }
        }
        const std::size_t table = file.size();
        for (const std::size_t offset : offsets) {
            reference(static_cast<int>(offset));
        }
        file += std::string(6, '\0') + "\2\2" + std::string(6, '\0');
        reference(kLists + 1);
        file += std::string(14, '\0');
        reference(static_cast<int>(table));
        const auto value = read(file);
        ASSERT_FALSE(value);
        EXPECT_EQ(value.fault().code, FaultCode::TooDeep) << value.fault().detail;
    }
}

TEST(BinaryPropertyList, LongKeysThatManyDictionariesShareAreRead) {
    Array list;
    for (int i = 0; i < 3000; ++i) {
        Dictionary dictionary;
        for (int k = 0; k < 5; ++k) {
            dictionary.set(std::string(70, 'k') + std::to_string(k), Value(i));
        }
        list.push_back(Value(std::move(dictionary)));
    }
    const Value value(std::move(list));
    const auto data =
        PropertyListSerialization::dataWithPropertyList(value, PropertyListFormat::Binary);
    const auto back = PropertyListSerialization::propertyListWithData(data.value());
    ASSERT_TRUE(back) << back.fault().detail;
    EXPECT_EQ(back.value(), value);
}

TEST(BinaryPropertyList, ObjectsThatOverlapEndInAFault) {
    // Many objects at one place, all named by the top one, each almost as large as the file.
    std::string file = "bplist00";
    constexpr int kObjects = 250;
    file += "\xAF\x10" + std::string(1, static_cast<char>(kObjects - 1));
    for (int i = 1; i < kObjects; ++i) {
        file += static_cast<char>(i);
    }
    const std::size_t shared = file.size();
    file +=
        "\xAF\x11\x40" + std::string(1, '\0') + std::string(0x4000, static_cast<char>(kObjects));
    const std::size_t leaf = file.size();
    file += "\x09";
    const std::size_t tableOffset = file.size();
    for (int i = 0; i <= kObjects; ++i) {
        const std::size_t offset = i == 0 ? 8 : i == kObjects ? leaf : shared;
        file += static_cast<char>(offset >> 8);
        file += static_cast<char>(offset);
    }
    file += std::string(6, '\0') + "\2\1" + std::string(7, '\0') + static_cast<char>(kObjects + 1) +
            std::string(14, '\0') + static_cast<char>(tableOffset >> 8) +
            static_cast<char>(tableOffset);
    const auto value = read(file);
    ASSERT_FALSE(value);
    EXPECT_EQ(value.fault().detail, "holds more than 64 times its size");
}

TEST(BinaryPropertyList, OtherVersionsAreNotGuessedAt) {
    std::string file = binary({"\x09"});
    file.replace(6, 2, "01");
    EXPECT_TRUE(read(file)) << "the second digit does not matter";
    file.replace(6, 2, "10");
    const auto value = read(file);
    ASSERT_FALSE(value);
    EXPECT_EQ(value.fault().code, FaultCode::Unsupported);
}

TEST(XmlPropertyList, ReadsWhatOthersWrite) {
    struct Row {
        const char* name;
        std::string text;
        Value want;
    };
    const Row rows[] = {
        {"no declaration, no plist element", "<dict><key>a</key><true/></dict>",
         Dictionary{{"a", Value(true)}}},
        {"white space first", "\n  " + xml("<true/>"), Value(true)},
        {"hexadecimal", xml("<integer>0x1F</integer>"), Value(31)},
        {"smallest integer", xml("<integer>-9223372036854775808</integer>"),
         Value(std::numeric_limits<std::int64_t>::min())},
        {"blanks around a number", xml("<integer> +7\n</integer>"), Value(7)},
        {"vanishing digits", xml("<real>0." + std::string(400, '0') + "1</real>"), Value(0.0)},
        {"vanishing exponent", xml("<real>-1e-400</real>"), Value(-0.0)},
        {"vanishing beyond any exponent", xml("<real>1e-99999999999999999999</real>"), Value(0.0)},
        {"overflowing digits", xml("<real>1" + std::string(400, '0') + "e-10</real>"),
         Value(std::numeric_limits<double>::infinity())},
        {"overflowing exponent", xml("<real>-1e+400</real>"),
         Value(-std::numeric_limits<double>::infinity())},
        {"infinity", xml("<real>-infinity</real>"),
         Value(-std::numeric_limits<double>::infinity())},
        {"entity references", xml("<string>&lt;&#x20AC;&amp;</string>"), Value(u"<\u20AC&")},
        {"CDATA", xml("<string><![CDATA[<b>]]></string>"), Value(u"<b>")},
        {"empty key", xml("<dict><key></key><string/></dict>"), Dictionary{{"", Value(u"")}}},
        {"the last of equal keys", xml("<dict><key>a</key><true/><key>a</key><false/></dict>"),
         Dictionary{{"a", Value(false)}}},
        {"data over lines", xml("<data>\n\tAQ\n\tID\n</data>"), Value(Data::copyOf("\1\2\3"))},
        {"data that is not all base64", xml("<data>A.QI-D*</data>"), Value(Data::copyOf("\1\2\3"))},
        {"date", xml("<date>1970-01-01T00:00:00Z</date>"), Value(Date{-978307200})},
        {"comments", xml("<array><!-- one --><true/></array>"), Value(Array{Value(true)})},
        {"the standard document type, which is not loaded",
         standardDocumentType() + "<plist><string>&amp;&#65;</string></plist>", Value(u"&A")},
        {"empty internal subset", "<!DOCTYPE plist []><plist><true/></plist>", Value(true)},
        {"declarations that change nothing",
         "<!DOCTYPE plist [<!ELEMENT plist ANY><!NOTATION n SYSTEM \"n\">]>"
         "<plist><true/></plist>",
         Value(true)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto value = read(row.text);
        ASSERT_TRUE(value) << value.fault().detail;
        EXPECT_EQ(value.value(), row.want);
    }
}

TEST(XmlPropertyList, DamageIsNamedWithItsLine) {
    struct Row {
        const char* name;
        std::string text;
        const char* detail;
    };
    const Row rows[] = {
        {"empty", "", "no element found in line 1"},
        {"unknown element", xml("\n<set/>"), "bad <set> in line 3"},
        {"empty integer", xml("<integer/>"), "bad <integer> in line 2"},
        {"integer beyond 64 bits", xml("<integer>18446744073709551616</integer>"),
         "bad <integer> in line 2"},
        {"bad date", xml("<date>2001-13-01T00:00:00Z</date>"), "bad <date> in line 2"},
        {"value without key", xml("<dict><true/></dict>"), "value without a key in line 2"},
        {"key without value", xml("<dict><key>a</key></dict>"), "key without a value in line 2"},
        {"key in an array", xml("<array><key>a</key></array>"),
         "<key> where none belongs in line 2"},
        {"two values", xml("<true/><true/>"), "second value after the property list in line 2"},
        {"text between", xml("<array>x</array>"), "text between elements in line 2"},
        {"element in a string", xml("<string><b/></string>"), "<b> inside <string> in line 2"},
        {"nothing inside", xml(""), "XML without a property list"},
        {"declared entity",
         "<!DOCTYPE plist [<!ENTITY a \"b\">]><plist><string>&a;</string></plist>",
         "declared entity in line 1"},
        {"external entity",
         "<!DOCTYPE plist [<!ENTITY a SYSTEM \"/etc/hostname\">]>"
         "<plist><string>&a;</string></plist>",
         "declared entity in line 1"},
        {"declared attribute",
         "<!DOCTYPE plist [\n<!ATTLIST string a CDATA \"b\">]><plist><true/></plist>",
         "declared attribute in line 2"},
        {"attribute declared without a default",
         "<!DOCTYPE plist [<!ATTLIST string a (b|c) #IMPLIED>]><plist><true/></plist>",
         "declared attribute in line 1"},
        {"undefined entity", xml("<string>\n&foo;</string>"), "undefined entity in line 3"},
        {"undefined entity with a document type",
         standardDocumentType() + "<plist>\n<string>a&foo;b</string></plist>",
         "undefined entity &foo; in line 3"},
        {"undefined entity between elements",
         standardDocumentType() + "<plist>&foo;<true/></plist>",
         "undefined entity &foo; in line 2"},
        {"entity declared where declarations are passed over",
         "<!DOCTYPE plist [%p; <!ENTITY foo \"b\">]><plist><string>&foo;</string></plist>",
         "undefined entity &foo; in line 1"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto value = valueFromXml(Data::copyOf(row.text));
        ASSERT_FALSE(value);
        EXPECT_EQ(value.fault().detail, row.detail);
    }
}

TEST(XmlPropertyList, NestingIsBounded) {
    std::string open, close;
    for (int i = 0; i < 512; ++i) {
        open += "<array>";
        close += "</array>";
    }
    EXPECT_TRUE(read(xml(open + close)));
    const auto deeper = read(xml("<array>" + open + close + "</array>"));
    ASSERT_FALSE(deeper);
    EXPECT_EQ(deeper.fault().code, FaultCode::TooDeep);
}

TEST(XmlPropertyList, ReadsUtf16WithAMark) {
    const std::u16string text = u"\uFEFF<plist><string>\u00E9</string></plist>";
    const auto value =
        read({reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)});
    ASSERT_TRUE(value) << value.fault().detail;
    EXPECT_EQ(value.value(), Value(u"\u00E9"));
}

TEST(PropertyListSerialization, XmlKeysAreInTheOrderOfTheirUtf16Units) {
    const Value value(Dictionary{{"\uFF5E", Value(1)},
                                 {"\U0001F600", Value(2)},
                                 {"ab", Value(3)},
                                 {"a", Value(4)},
                                 {"\uE000", Value(5)},
                                 {"\u00E9", Value(6)}});
    const Data data =
        PropertyListSerialization::dataWithPropertyList(value, PropertyListFormat::Xml).value();
    std::string order;
    for (std::size_t at = data.view().find("<key>"); at != std::string_view::npos;
         at = data.view().find("<key>", at + 1)) {
        const std::size_t integer = data.view().find("<integer>", at);
        order += data.view()[integer + 9];
    }
    EXPECT_EQ(order, "436251");
}

}  // namespace
}  // namespace platform
