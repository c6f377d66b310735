#include "Platform/Foundation/MagicBytes.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace platform {
namespace {

using namespace std::string_view_literals;

struct Row {
    const char* name;
    std::string_view bytes;
    std::string_view want;
};

constexpr Row kRows[] = {
    {"an empty file", "", "public.plain-text"},
    {"plain text", "Some words.\r\n\tMore.\f", "public.plain-text"},
    {"text of several bytes a character", "\u00E4\u20AC\U0001F600", "public.plain-text"},
    {"UTF-8 with its mark", "\xEF\xBB\xBFtext", "public.plain-text"},
    {"a NUL", "text\0text"sv, "public.data"},
    {"an escape", "\x1B[1mbold", "public.data"},
    {"a control character of two bytes", "a\u009Bb", "public.data"},
    {"the end of a line as one control character", "a\u0085b", "public.plain-text"},
    {"not UTF-8", "na\xEFve", "public.data"},
    {"UTF-8 that ends early", "a\xE2\x82", "public.data"},
    {"UTF-16, big end first", "\xFE\xFF\0a\x20\xAC"sv, "public.plain-text"},
    {"UTF-16, little end first",
     "\xFF\xFE"
     "a\0\xAC\x20"sv,
     "public.plain-text"},
    {"UTF-16 with half a unit", "\xFE\xFF\0a\0"sv, "public.data"},
    {"UTF-16 with a lone surrogate", "\xFE\xFF\xD8\x3D\0a"sv, "public.data"},
    {"UTF-16 that ends in a high surrogate", "\xFE\xFF\0a\xD8\x3D"sv, "public.data"},
    {"UTF-16 with a surrogate pair", "\xFE\xFF\xD8\x3D\xDE\0"sv, "public.plain-text"},
    {"UTF-16 with a control character", "\xFE\xFF\0\0"sv, "public.data"},
    {"PDF", "%PDF-1.4\n%\xE2\xE3", "com.adobe.pdf"},
    {"rich text", "{\\rtf1\\ansi", "public.rtf"},
    {"a page's declaration", "<!DOCTYPE HTML><p>", "public.html"},
    {"a page's first tag after blanks", "\xEF\xBB\xBF \n<Html lang=en>", "public.html"},
    {"a tag that only begins alike", "<htmlx>", "public.plain-text"},
    {"another archive", "PK\3\4\x14\0\0\0"sv, "public.data"},
};

TEST(MagicBytes, TellTheType) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(typeOfBytes(row.bytes, {}), row.want);
    }
}

std::string localHeader(std::string_view name) {
    std::string header("PK\3\4", 4);
    header.resize(30, '\0');
    header[26] = static_cast<char>(name.size());
    return header.append(name);
}

std::string centralHeader(std::string_view name) {
    std::string header("PK\1\2", 4);
    header.resize(46, '\0');
    header[28] = static_cast<char>(name.size());
    return header.append(name);
}

TEST(MagicBytes, KnowOurPackageByAnEntryName) {
    constexpr std::string_view kOwn = "com.brightmill.parlavox.parlavox";
    const std::string other = localHeader("text.plist") + "data";
    EXPECT_EQ(typeOfBytes(localHeader("contents.plist"), {}), kOwn);
    EXPECT_EQ(typeOfBytes(other + localHeader("contents.plist"), {}), kOwn);
    EXPECT_EQ(typeOfBytes(other, "cut" + centralHeader("contents.plist")), kOwn);
}

TEST(MagicBytes, DoNotTakeOtherTextForAnEntryName) {
    const std::string other = localHeader("text.plist");
    EXPECT_EQ(typeOfBytes(other + "contents.plist", {}), "public.data");
    EXPECT_EQ(typeOfBytes(other + localHeader("sub/contents.plist"), {}), "public.data");
    EXPECT_EQ(typeOfBytes(other + localHeader("contents.plist.bak"), {}), "public.data");
    EXPECT_EQ(typeOfBytes("PK\3\4contents.plist", "contents.plist"), "public.data");
}

TEST(MagicBytes, DoNotMindACharacterThatTheLookCutsOff) {
    for (const std::string_view character : {"\u00E4"sv, "\u20AC"sv, "\U0001F600"sv}) {
        for (std::size_t kept = 1; kept <= character.size(); ++kept) {
            std::string bytes(kMagicBytes - kept, 'a');
            bytes += character.substr(0, kept);
            EXPECT_EQ(typeOfBytes(bytes, {}), "public.plain-text") << character << kept;
        }
    }
    EXPECT_EQ(typeOfBytes(std::string(kMagicBytes - 1, 'a') + "\xFF", {}), "public.data");
    std::string units = "\xFE\xFF";
    while (units.size() < kMagicBytes - 2) {
        units.append("\0a", 2);
    }
    EXPECT_EQ(typeOfBytes(units + "\xD8\x3D", {}), "public.plain-text");
}

}  // namespace
}  // namespace platform
