#include "Host/OutputText.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace host {
namespace {

using namespace std::string_view_literals;

struct TextRow {
    const char* name;
    std::u16string_view text;
    std::string_view want;
};

constexpr TextRow kTextRows[] = {
    {"nothing", u""sv, ""},
    {"plain", u"word\n"sv, "word\n"},
    {"all widths", u"a\u00E4\u20AC\U0001F600"sv, "a\u00E4\u20AC\U0001F600"},
    {"NUL is dropped", u"a\0b"sv, "ab"},
    {"NUL at both ends", u"\0ab\0"sv, "ab"},
    {"an attachment's place is dropped", u"a\uFFFCb"sv, "ab"},
    {"only what is dropped", u"\0\uFFFC\0"sv, ""},
    {"a lone high surrogate",
     u"a\xD83D"
     "b"sv,
     "a\uFFFDb"},
    {"a lone low surrogate at the end", u"a\xDE00"sv, "a\uFFFD"},
    {"surrogates in the wrong order", u"\xDE00\xD83D"sv, "\uFFFD\uFFFD"},
    {"what is dropped joins no pair", u"\xD83D\0\xDE00"sv, "\uFFFD\uFFFD"},
    {"a byte-order mark stays", u"\uFEFFa"sv, "\uFEFFa"},
};

TEST(OutputText, IsUtf8WithoutWhatOutputCannotHold) {
    for (const TextRow& row : kTextRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(utf8ForOutput(row.text), row.want);
    }
}

TEST(ErrorLine, IsOneLineWhateverTheNames) {
    EXPECT_EQ(errorLine("a.txt", "too dull"), "pvindex: a.txt: too dull\n");
    EXPECT_EQ(errorLine("a\nb\x1B[1m", "c\r\td\x7F"), "pvindex: a?b?[1m: c??d?\n");
    EXPECT_EQ(errorLine("\xFF\xC3\xA4", ""), "pvindex: \xFF\xC3\xA4: \n");
}

TEST(JsonLine, HoldsTheTextOfAFileThatWasRead) {
    FileOutcome outcome;
    outcome.path = "a.txt";
    outcome.type = "public.plain-text";
    outcome.duration = std::chrono::microseconds(1500);
    outcome.ok = true;
    outcome.text = "\"a\"\n\u20AC";
    EXPECT_EQ(jsonLine(outcome),
              R"({"path":"a.txt","type":"public.plain-text","ok":true,"milliseconds":1.5,)"
              R"("text":"\"a\"\n€"})"
              "\n");
}

TEST(JsonLine, HoldsTheErrorOfAFileThatWasNot) {
    FileOutcome outcome;
    outcome.path = "a\xFF/\xC3";
    outcome.error = "no \xE2\x82 such";
    EXPECT_EQ(jsonLine(outcome),
              "{\"path\":\"a\uFFFD/\uFFFD\",\"type\":null,\"ok\":false,\"milliseconds\":0.0,"
              "\"error\":\"no \uFFFD such\"}\n");
}

}  // namespace
}  // namespace host
