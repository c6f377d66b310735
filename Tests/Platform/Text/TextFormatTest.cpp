#include "Platform/Text/TextFormat.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace platform {
namespace {

using namespace std::string_view_literals;

TEST(TextFormat, IsFoundInTheFirstBytes) {
    struct Row {
        const char* name;
        std::string_view bytes;
        TextFormat want;
    };
    constexpr Row kRows[] = {
        {"empty", ""sv, TextFormat::Plain},
        {"words", "words"sv, TextFormat::Plain},
        {"RTF", "{\\rtf1 words}"sv, TextFormat::Rtf},
        {"RTF behind a mark and white space", "\xEF\xBB\xBF\r\n {\\rtf1}"sv, TextFormat::Rtf},
        {"RTF's start cut off", "{\\rt"sv, TextFormat::Plain},
        {"RTF inside", "see {\\rtf1}"sv, TextFormat::Plain},
        {"flat RTFD", "rtfd\0\0\0\0\3\0\0\0"sv, TextFormat::FlatRtfd},
        {"a word that begins as RTFD does", "rtfd files"sv, TextFormat::Plain},
        {"PDF", "%PDF-1.7\n"sv, TextFormat::Pdf},
        {"PDF's name inside", " %PDF-"sv, TextFormat::Plain},
        {"HTML", "<html>"sv, TextFormat::Html},
        {"HTML with an attribute", "<HTML lang=fr>caf\xE9"sv, TextFormat::Html},
        {"a document type", "<!DOCTYPE HTML PUBLIC>"sv, TextFormat::Html},
        {"the shortest document type", "<!doctype html>"sv, TextFormat::Html},
        {"behind a mark and white space", "\xEF\xBB\xBF \t\r\n<!DocType Html>"sv, TextFormat::Html},
        {"behind comments", "<!-- a --> <!----><head>"sv, TextFormat::Html},
        {"a tag in a comment", "<!-- <html> -->words"sv, TextFormat::Plain},
        {"a comment without end", "<!-- <html>"sv, TextFormat::Plain},
        {"XHTML", "<?xml version=\"1.0\"?>\n<!DOCTYPE html>"sv, TextFormat::Html},
        {"XHTML without a type", "<?xml version=\"1.0\"?><html xmlns=\"a\">"sv, TextFormat::Html},
        {"a page without its head", "<body bgcolor=\"red\">"sv, TextFormat::Html},
        {"a page that begins with its title", "<title>Words</title>"sv, TextFormat::Html},
        {"in UTF-16", "\xFF\xFE\n\0<\0h\0t\0M\0l\0>\0"sv, TextFormat::Html},
        {"in UTF-32", "\0\0\xFE\xFF\0\0\0<\0\0\0h\0\0\0t\0\0\0m\0\0\0l\0\0\0>"sv, TextFormat::Html},
        {"HTML inside", "see <html>"sv, TextFormat::Plain},
        {"HTML's start cut off", "<html"sv, TextFormat::Plain},
        {"a longer name", "<htmlx>"sv, TextFormat::Plain},
        {"another document type", "<!DOCTYPE plist>"sv, TextFormat::Plain},
        {"XML", "<?xml version=\"1.0\"?><plist>"sv, TextFormat::Plain},
        {"a declaration without end", "<?xml version"sv, TextFormat::Plain},
        {"a tag that any markup has", "<p>words"sv, TextFormat::Plain},
        {"a zip archive", "PK\3\4\x14\0"sv, TextFormat::Binary},
        {"letters of a zip archive", "PK is short"sv, TextFormat::Plain},
        {"a program",
         "\x7F"
         "ELF\2\1\1"sv,
         TextFormat::Binary},
        {"a PNG picture", "\x89PNG\r\n\x1A\n"sv, TextFormat::Binary},
        {"a JPEG picture", "\xFF\xD8\xFF\xE0"sv, TextFormat::Binary},
        {"a GIF picture", "GIF89a\x10\0\x10\0"sv, TextFormat::Binary},
        {"a text on GIF pictures", "GIF89a is a format"sv, TextFormat::Plain},
        {"a program of another system", "MZ\x90\0\3\0"sv, TextFormat::Binary},
        {"a text that begins with MZ", "MZ, he said"sv, TextFormat::Plain},
        {"a film",
         "\0\0\0\x18"
         "ftypmp42"sv,
         TextFormat::Binary},
        {"a gzip file", "\x1F\x8B\x08\0"sv, TextFormat::Binary},
        {"an old document", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1\0"sv, TextFormat::Binary},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(textFormatOfBytes(row.bytes).format, row.want);
        EXPECT_FALSE(textFormatOfBytes(row.bytes).name.empty());
    }
}

TEST(TextFormat, ManyCommentsTakeLinearTime) {
    std::string bytes;
    for (int i = 0; i < 100'000; i++) {
        bytes += "<!---->\n";
    }
    EXPECT_EQ(textFormatOfBytes(bytes).format, TextFormat::Plain);
    bytes += "<html>";
    EXPECT_EQ(textFormatOfBytes(bytes).format, TextFormat::Html);
}

}  // namespace
}  // namespace platform
