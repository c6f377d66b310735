// Which encoding a page is in.

#include "Platform/Text/HtmlEncoding.h"

#include <gtest/gtest.h>

#include <string_view>

#include "Platform/Foundation/FileManager.h"
#include "Platform/Text/CodePageConverter.h"
#include "Tests/Support/TestData.h"

namespace platform {
namespace {

std::string_view declared(std::string_view page) {
    const char* const name = declaredHtmlEncoding(page);
    return name != nullptr ? name : "(none)";
}

TEST(HtmlEncoding, IsDeclared) {
    struct Row {
        const char* name;
        std::string_view page;
        std::string_view want;
    };
    constexpr Row kRows[] = {
        {"nothing", "<p>words</p>", "(none)"},
        {"without quotes", "<meta charset=koi8-r>", "koi8-r"},
        {"in capitals and blanks", "<META CHARSET=' KOI8-R '>", "koi8-r"},
        {"another name of it", "<meta charset=cskoi8r>", "koi8-r"},
        {"Latin", "<meta charset=latin1>", "windows-1252"},
        {"Chinese", "<meta charset=gb2312>", "gb18030"},
        {"Korean", "<meta charset=ks_c_5601-1987>", "windows-949"},
        {"UTF-16 that could be read", "<meta charset=utf-16>", "utf-8"},
        {"a name that nobody knows", "<meta charset=utf-7><meta charset=big5>", "big5-hkscs"},
        {"half a name", "<meta charset=win>", "(none)"},
        {"two names", "<meta charset='big5 big5'>", "(none)"},
        {"by a pragma", "<meta http-equiv=Content-Type content='text/html;charset=big5'>",
         "big5-hkscs"},
        {"behind blanks", "<meta http-equiv=Content-Type content='a; charset = \"big5\" b'>",
         "big5-hkscs"},
        {"with a year", "<meta charset=ISO_8859-7:1987>", "iso-8859-7"},
        {"by a name of old programs", "<meta charset=csISOLatinHebrew>", "iso-8859-8"},
        {"Greek", "<meta charset=csisolatingreek>", "iso-8859-7"},
        {"Chinese by a number", "<meta charset=csiso58gb231280>", "gb18030"},
        {"UTF-8 by an old name", "<meta charset=unicode11utf8>", "utf-8"},
        {"a pragma without the name", "<meta http-equiv=Content-Type content='charset big5'>",
         "(none)"},
        {"another pragma", "<meta http-equiv=refresh content='charset=big5'>", "(none)"},
        {"by XML", "<?xml version='1.0' encoding=\"EUC-JP\"?>", "euc-jp"},
        {"by XML in another place", " <?xml encoding='euc-jp'?>", "(none)"},
        {"in a comment", "<!-- <meta charset=big5> -->", "(none)"},
        {"in another attribute", "<p title='<meta charset=big5>'>", "(none)"},
        {"in an end", "</meta charset=big5>", "(none)"},
        {"cut off", "<meta charset=big5", "(none)"},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(declared(row.page), row.want) << row.name;
    }
}

TEST(HtmlEncoding, IsNotLookedForFarBehind) {
    const std::string page = std::string(20'000, ' ') + "<meta charset=big5>";
    EXPECT_EQ(declared(page), "(none)");
}

TEST(HtmlEncoding, IsOneThatTheLibraryHas) {
    for (const char* const label :
         {"windows-1250", "windows-1258", "windows-874", "iso-8859-2",     "iso-8859-3",
          "iso-8859-4",   "iso-8859-5",   "iso-8859-6",  "iso-8859-7",     "iso-8859-8",
          "iso-8859-10",  "iso-8859-13",  "iso-8859-14", "iso-8859-15",    "koi8-r",
          "koi8-u",       "ibm866",       "macintosh",   "x-mac-cyrillic", "gbk",
          "big5",         "euc-jp",       "iso-2022-jp", "shift_jis",      "euc-kr"}) {
        const std::string page = "<meta charset=" + std::string(label) + ">";
        const char* const name = declaredHtmlEncoding(page);
        ASSERT_NE(name, nullptr) << label;
        EXPECT_NE(CodePageConverter::converterNamed(name), nullptr) << label;
    }
}

TEST(HtmlEncoding, IsThatWhichBrowsersFind) {
    struct Row {
        const char* file;
        std::string_view want;
    };
    constexpr Row kRows[] = {
        {"002", "windows-1252"}, {"005", "iso-8859-2"}, {"006", "iso-8859-2"},
        {"008", "iso-8859-2"},   {"009", "iso-8859-2"}, {"012", "(none)"},
        {"013", "(none)"},       {"014", "(none)"},     {"016", "(none)"},
        {"018", "(none)"},       {"019", "(none)"},     {"020", "(none)"},
        {"024", "iso-8859-2"},   {"027", "iso-8859-2"}, {"032", "iso-8859-2"},
        {"034", "(none)"},       {"036", "(none)"},     {"040", "iso-8859-2"},
        {"050", "iso-8859-2"},   {"052", "iso-8859-2"}, {"056", "iso-8859-2"},
        {"058", "iso-8859-2"},   {"060", "(none)"},     {"062", "(none)"},
        {"064", "(none)"},       {"066", "euc-jp"},     {"068", "(none)"},
        {"072", "(none)"},       {"076", "utf-8"},      {"080", "utf-8"},
    };
    for (const Row& row : kRows) {
        const auto path =
            test::dataPath("html/html5lib-enc-" + std::string(row.file) + ".html").string();
        const auto page = FileManager::defaultManager().contentsAtPath(path);
        ASSERT_TRUE(page) << path;
        EXPECT_EQ(declared(page->view()), row.want) << path;
    }
}

TEST(HtmlEncoding, SoundUtf8SharesTheBytesOfThePage) {
    const Data page = Data::copyOf("\xEF\xBB\xBF<p>\xC3\xA9");
    const Data utf8 = utf8OfHtml(page).value();
    EXPECT_EQ(utf8.view(), "<p>\xC3\xA9");
    EXPECT_EQ(utf8.bytes(), page.bytes() + 3);
}

}  // namespace
}  // namespace platform
