#include "Platform/Foundation/OpenStepPropertyList.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace platform {
namespace {

using namespace std::string_view_literals;

Value data(std::string_view bytes) {
    return {Data::copyOf(bytes)};
}

Value list(std::vector<Value> elements) {
    return {Array(std::move(elements))};
}

/// `depth` arrays inside each other, with `content` in the innermost one.
std::u16string nested(std::size_t depth, std::u16string_view content) {
    std::u16string text(depth, u'(');
    return text.append(content).append(depth, u')');
}

TEST(OpenStepPropertyList, ReadsValues) {
    struct Row {
        const char* name;
        std::u16string_view text;
        Value want;
    };
    const Row rows[] = {
        {"all characters without quotes", u"azAZ09_$/:.-", u"azAZ09_$/:.-"},
        {"a number is a string", u"42", u"42"},
        {"slashes inside are no comment", u"/usr//lib/a.so", u"/usr//lib/a.so"},
        {"quotes", u"\"a 'b' = ;\"", u"a 'b' = ;"},
        {"single quotes", u"'a \"b\"'", u"a \"b\""},
        {"no characters", u"\"\"", u""},
        {"characters of other scripts", u"\"灯台 \U0001F600\"", u"灯台 \U0001F600"},
        {"line ends in quotes", u"\"a\r\nb\"", u"a\r\nb"},
        {"letters after a backslash", uR"("\a\b\f\n\r\t\v\"\'\\\q")", u"\a\b\f\n\r\t\v\"'\\q"},
        {"line end after a backslash", u"\"a\\\nb\"", u"a\nb"},
        {"octal", uR"("\101\60a\7")", u"A0a\a"},
        {"octal takes three digits", uR"("\1012\0609")",
         u"A2"
         u"09"},
        {"octal ends before an 8", uR"("\68")",
         u"\x06"
         u"8"},
        {"octal in the old system's characters", uR"("\200\341\375")", u"\u00A0\u00C6\u00FF"},
        {"octal without a character", uR"("\377")", u"\uFFFD"},
        {"octal beyond a byte", uR"("\501")", u"A"},
        {"hexadecimal", uR"("\U20ac\U20AC\U41\U0041b")", u"€€AAb"},
        {"hexadecimal ends before a g", uR"("\U6g")", u"\x06g"},
        {"a pair of surrogates", uR"("\UD83D\UDE00")", u"\U0001F600"},
        {"small u means nothing", uR"("\u0041")", u"u0041"},
        {"data", u"<0a1b 2C>", data("\x0A\x1B\x2C")},
        {"data over lines", u"<\n\t0a\r\n1b\u2028 >", data("\x0A\x1B")},
        {"no data", u"<>", data("")},
        {"array", u"(a, \"b\", <00>)", list({Value(u"a"), Value(u"b"), data("\0"sv)})},
        {"comma at the end", u"(a,)", list({Value(u"a")})},
        {"empty array", u"( )", list({})},
        {"dictionary", u"{a = b; \"c d\" = (1);}",
         Dictionary{{"a", Value(u"b")}, {"c d", list({Value(u"1")})}}},
        {"empty dictionary", u"{}", Dictionary()},
        {"a key alone stands for itself", u"{a; 'b c' ;}",
         Dictionary{{"a", Value(u"a")}, {"b c", Value(u"b c")}}},
        {"the last of equal keys", u"{a = b; a = c;}", Dictionary{{"a", Value(u"c")}}},
        {"containers inside each other", u"({a = {b = ();};},({}))",
         list({Dictionary{{"a", Dictionary{{"b", list({})}}}}, list({Dictionary()})})},
        {"all white space", u"\t\n\v\f\r \u2028\u2029(a)\u2029", list({Value(u"a")})},
        {"comments", u"// one\n(/* two */ a /***/, // three\rb // four\u2028)//",
         list({Value(u"a"), Value(u"b")})},
        {"comment to the end of the text", u"(a) /* b", list({Value(u"a")})},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto value = valueFromOpenStep(row.text);
        ASSERT_TRUE(value) << value.fault().detail;
        EXPECT_EQ(value.value(), row.want);
    }
}

TEST(OpenStepPropertyList, TextWithoutAListIsAnEmptyDictionary) {
    for (const std::u16string_view text : {u" "sv, u"\n\u2028\t"sv, u"// nothing"sv, u"/**/"sv}) {
        const auto value = valueFromOpenStep(text);
        ASSERT_TRUE(value) << value.fault().detail;
        EXPECT_EQ(value.value(), Value(Dictionary()));
    }
}

TEST(OpenStepPropertyList, StringsFilesAreDictionariesWithoutBraces) {
    struct Row {
        const char* name;
        std::u16string_view text;
        Dictionary want;
    };
    const Row rows[] = {
        {"pairs",
         u"/* Menu */\n\"Quit\" = \"Beenden\";\nopen = \"\\U00D6ffnen\";\n",
         {{"Quit", Value(u"Beenden")}, {"open", Value(u"Öffnen")}}},
        {"keys alone", u"a; b;", {{"a", Value(u"a")}, {"b", Value(u"b")}}},
        {"containers as values",
         u"a = (1, {b = c;});",
         {{"a", list({Value(u"1"), Dictionary{{"b", Value(u"c")}}})}}},
        {"what no key begins ends it", u"a = b; } c = d;", {{"a", Value(u"b")}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto value = valueFromOpenStep(row.text);
        ASSERT_TRUE(value) << value.fault().detail;
        EXPECT_EQ(value.value(), Value(row.want));
    }
}

TEST(OpenStepPropertyList, DamageIsNamedWithItsLine) {
    struct Row {
        const char* name;
        std::u16string_view text;
        const char* detail;
    };
    const Row rows[] = {
        {"nothing", u"", "no text in line 1"},
        {"no value", u"\n)", "unexpected character ) in line 2"},
        {"byte-order mark", u"\uFEFF(a)", "unexpected character \uFEFF in line 1"},
        {"character of two units", u"\U0001F600", "unexpected character \U0001F600 in line 1"},
        {"array without an end", u"(a,\r\n", "end of the text where a value belongs in line 2"},
        {"element without a comma", u"(\n\ra b)", "no ',' or ')' after an element in line 3"},
        {"nothing before a comma", u"(,)", "unexpected character , in line 1"},
        {"nothing between commas", u"(a,,b)", "unexpected character , in line 1"},
        {"other bracket", u"(a}", "no ',' or ')' after an element in line 1"},
        {"dictionary without an end", u"{a = b;\n\n",
         "end of the text where a string belongs in line 3"},
        {"last semicolon missing", u"{a = b}", "no ';' after a value in line 1"},
        {"equals sign missing", u"{a b;}", "no '=' or ';' after a key in line 1"},
        {"value missing", u"{a = ;}", "unexpected character ; in line 1"},
        {"key that is no string", u"{(a) = b;}", "unexpected character ( in line 1"},
        {"strings file without a semicolon", u"a = b", "no ';' after a value in line 1"},
        {"strings file, later line", u"a = b;\rc = d\r\n", "no ';' after a value in line 3"},
        {"two strings", u"a b", "no '=' or ';' after a key in line 1"},
        {"string without an end", u"(\n\"a\n", "string without an end in line 2"},
        {"string without an end in a strings file", u"a;\n'b", "string without an end in line 2"},
        {"backslash at the end", u"\"a\\", "string without an end in line 1"},
        {"escaped quote at the end", u"\"a\\\"", "string without an end in line 1"},
        {"data without an end", u"<0a", "data without an end in line 1"},
        {"half a byte", u"<0>", "no pair of hexadecimal digits in data in line 1"},
        {"white space inside a byte", u"<0 a>", "no pair of hexadecimal digits in data in line 1"},
        {"no hexadecimal digits", u"<0g>", "no pair of hexadecimal digits in data in line 1"},
        {"digits of other scripts", u"<\u0130\u0130>",
         "no pair of hexadecimal digits in data in line 1"},
        {"comment in data", u"<0a/**/0b>", "no pair of hexadecimal digits in data in line 1"},
        {"after an array", u"(a)\n(b)", "something after the list in line 2"},
        {"after a dictionary", u"{} a", "something after the list in line 1"},
        {"after data", u"<00>;", "something after the list in line 1"},
        {"other systems' integer", u"<*I42>", "no pair of hexadecimal digits in data in line 1"},
        {"other systems' base64", u"<[AQID]>", "no pair of hexadecimal digits in data in line 1"},
        {"XML", u"<plist/>", "no pair of hexadecimal digits in data in line 1"},
        {"JSON", u"{\"a\": 1}", "no '=' or ';' after a key in line 1"},
        {"a character that needs quotes", u"(a+b)", "no ',' or ')' after an element in line 1"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto value = valueFromOpenStep(row.text);
        ASSERT_FALSE(value);
        EXPECT_EQ(value.fault().code, FaultCode::Malformed);
        EXPECT_EQ(value.fault().detail, row.detail);
    }
}

TEST(OpenStepPropertyList, EveryPrefixOfAGoodListIsRefused) {
    constexpr std::u16string_view kWhole =
        u"{ a = (b, \"c\\\"\\101\\U20AC\", <0a 0b>, {d; 'e' = {};}, ()); /* f */ g = h; }";
    ASSERT_TRUE(valueFromOpenStep(kWhole));
    for (std::size_t size = 0; size < kWhole.size(); ++size) {
        const bool isBlank = size == 0;
        const auto value = valueFromOpenStep(kWhole.substr(0, size));
        ASSERT_FALSE(value) << size;
        EXPECT_EQ(value.fault().detail == "no text in line 1", isBlank) << size;
    }
}

TEST(OpenStepPropertyList, PrefixesOfAStringsFileAreReadWhereAPairEnds) {
    constexpr std::u16string_view kWhole = u"\"a\" = \"b\"; c = (d); e;";
    for (std::size_t size = 0; size <= kWhole.size(); ++size) {
        const std::u16string_view text = kWhole.substr(0, size);
        // A first string alone is a list, too.
        const bool isWhole =
            size == 3 || size == 4 || text.ends_with(u';') || text.ends_with(u"; ");
        EXPECT_EQ(static_cast<bool>(valueFromOpenStep(text)), isWhole) << size;
    }
}

TEST(OpenStepPropertyList, NestingIsBounded) {
    EXPECT_TRUE(valueFromOpenStep(nested(512, u"a")));
    EXPECT_TRUE(valueFromOpenStep(nested(511, u"{}")));
    for (const std::u16string& text : {nested(513, u"a"), nested(512, u"{}"), nested(100000, u""),
                                       std::u16string(100000, u'('), nested(100000, u"a")}) {
        const auto value = valueFromOpenStep(text);
        ASSERT_FALSE(value);
        EXPECT_EQ(value.fault().code, FaultCode::TooDeep);
        EXPECT_EQ(value.fault().detail, "nested deeper than 512 levels in line 1");
    }
    std::u16string pairs;
    for (int i = 0; i < 514; ++i) {
        pairs += u"a = {";
    }
    const auto value = valueFromOpenStep(pairs);
    ASSERT_FALSE(value);
    EXPECT_EQ(value.fault().code, FaultCode::TooDeep);
}

}  // namespace
}  // namespace platform
