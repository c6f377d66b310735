// pvdoc units and pvdoc languages, as texts for people and for programs.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "Tests/Support/TemporaryFolder.h"
#include "Tools/pvdoc/Clean.h"
#include "Tools/pvdoc/CommandLine.h"
#include "Tools/pvdoc/Units.h"

namespace pvdoc {
namespace {

using platform::TextUnitKind;

struct Listed {
    std::uint64_t count = 0;
    std::string output;
};

Listed unitsOf(const std::string& text, TextUnitKind kind, ListingForm form) {
    const test::TemporaryFolder folder;
    folder.write("a.txt", text);
    Listed listed;
    const auto count = listUnits(folder.path("a.txt"), kind, form,
                                 [&](std::string_view more) { listed.output += more; });
    listed.count = count ? count.value() : ~std::uint64_t{0};
    return listed;
}

TEST(PvdocUnits, AreATableForPeople) {
    const Listed listed =
        unitsOf("One is.\tTwo\u00E9.\n", TextUnitKind::Sentence, ListingForm::Table);
    EXPECT_EQ(listed.count, 2u);
    EXPECT_EQ(listed.output,
              "  location    length  text\n"
              "         0         7  One is.\n"
              "         8         5  Two\u00E9.\n");
}

TEST(PvdocUnits, AreLinesOfJsonForPrograms) {
    EXPECT_EQ(unitsOf("a \"b\"", TextUnitKind::Word, ListingForm::JsonLines).output,
              "{\"location\":0,\"length\":1,\"text\":\"a\"}\n"
              "{\"location\":3,\"length\":1,\"text\":\"b\"}\n");
    EXPECT_EQ(unitsOf("a\n\n\"b\"", TextUnitKind::Paragraph, ListingForm::JsonLines).output,
              "{\"location\":0,\"length\":1,\"text\":\"a\"}\n"
              "{\"location\":2,\"length\":0,\"text\":\"\"}\n"
              "{\"location\":3,\"length\":3,\"text\":\"\\\"b\\\"\"}\n");
}

TEST(PvdocUnits, NeedAFileWithText) {
    const Output ignore = [](std::string_view) {
    };
    const auto missing =
        listUnits("/nowhere/a.txt", TextUnitKind::Word, ListingForm::Table, ignore);
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.fault().detail, "No such file or directory");
    EXPECT_EQ(unitsOf(std::string(100, '\0'), TextUnitKind::Word, ListingForm::Table).count,
              ~std::uint64_t{0});
}

TEST(PvdocClean, FindsWhatWasTakenOut) {
    struct Row {
        const char* name;
        std::u16string_view before;
        std::u16string_view after;
        std::vector<std::pair<std::uint64_t, Removal::Kind>> want;
    };
    using enum Removal::Kind;
    using namespace std::string_view_literals;
    const Row rows[] = {
        {"nothing", u"well- known", u"well- known", {}},
        {"a hyphen", u"exam- ple", u"example", {{4, Hyphen}}},
        {"one of two", u"a well- known exam- ple", u"a well- known example", {{18, Hyphen}}},
        {"the first of two", u"exam- ple of well- known", u"example of well- known", {{4, Hyphen}}},
        {"NULs", u"\0a\0\0"sv, u"a", {{0, Nul}, {2, Nul}, {3, Nul}}},
        {"a NUL inside of a hyphen",
         u"ex-\0 am\0- ple"sv,
         u"example",
         {{2, Hyphen}, {3, Nul}, {7, Nul}, {8, Hyphen}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        std::vector<std::pair<std::uint64_t, Removal::Kind>> found;
        for (const Removal& removal : removalsBetween(row.before, row.after)) {
            found.emplace_back(removal.location, removal.kind);
        }
        EXPECT_EQ(found, row.want);
    }
}

TEST(PvdocClean, PrintsTheTextOrWhatChanges) {
    const test::TemporaryFolder folder;
    folder.write("a.txt", "An exam- ple of a well- known one.\n");
    const auto output = [&](CleanForm form) {
        std::string text;
        EXPECT_TRUE(
            clean(folder.path("a.txt"), form, [&](std::string_view more) { text += more; }));
        return text;
    };
    EXPECT_EQ(output(CleanForm::Text), "An example of a well- known one.\n");
    EXPECT_EQ(output(CleanForm::Changes), "         7  exam- ple -> example\n");
}

CommandLine read(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "pvdoc");
    return CommandLine::read(static_cast<int>(arguments.size()), arguments.data());
}

TEST(PvdocCommandLine, TakesOneKindOfUnits) {
    const auto answer = read({"units", "--paragraphs", "--json", "a.txt"});
    ASSERT_TRUE(answer.request) << answer.error;
    EXPECT_EQ(answer.request->command, Command::Units);
    EXPECT_EQ(answer.request->file, "a.txt");
    EXPECT_EQ(answer.request->unitKind, TextUnitKind::Paragraph);
    EXPECT_EQ(answer.request->form, ListingForm::JsonLines);
    EXPECT_EQ(read({"units", "a.txt"}).status, kWrongCommandLine);
    EXPECT_EQ(read({"units", "--words", "--sentences", "a.txt"}).status, kWrongCommandLine);
}

TEST(PvdocCommandLine, TakesAllowedLanguagesWithCommas) {
    const auto answer = read({"languages", "--allow", "en,de", "-"});
    ASSERT_TRUE(answer.request) << answer.error;
    EXPECT_EQ(answer.request->command, Command::Languages);
    EXPECT_EQ(answer.request->file, "-");
    EXPECT_EQ(answer.request->allowed, (std::vector<std::string>{"en", "de"}));
    EXPECT_FALSE(read({"languages", "a.txt"}).request->allowed);
    const auto before = read({"languages", "--allow", "en,de", "a.txt", "--json"});
    ASSERT_TRUE(before.request) << before.error;
    EXPECT_EQ(before.request->file, "a.txt");
}

}  // namespace
}  // namespace pvdoc
