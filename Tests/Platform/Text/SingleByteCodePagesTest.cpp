#include "Platform/Text/SingleByteCodePages.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "Platform/Text/CodePageConverter.h"

namespace platform {
namespace {

TEST(SingleByteCodePages, AreWhatTheUnicodeLibraryHas) {
    const struct {
        int number;
        const char* name;
    } kRows[] = {
        {437, "ibm-437"},         {720, "ibm-720"},
        {737, "ibm-737"},         {775, "ibm-775"},
        {850, "ibm-850"},         {852, "ibm-852"},
        {855, "ibm-855"},         {857, "ibm-857"},
        {858, "ibm-858"},         {860, "ibm-860"},
        {861, "ibm-861"},         {862, "ibm-862"},
        {863, "ibm-863"},         {864, "ibm-864"},
        {865, "ibm-865"},         {866, "ibm-866"},
        {869, "ibm-869"},         {874, "windows-874"},
        {1250, "windows-1250"},   {1251, "windows-1251"},
        {1252, "windows-1252"},   {1253, "windows-1253"},
        {1254, "windows-1254"},   {1255, "windows-1255"},
        {1256, "windows-1256"},   {1257, "windows-1257"},
        {1258, "windows-1258"},   {10000, "macintosh"},
        {10006, "x-mac-greek"},   {10007, "x-mac-cyrillic"},
        {10021, "windows-874"},   {10029, "x-mac-centraleurroman"},
        {10081, "x-mac-turkish"}, {10005, "windows-1255"},
        {20866, "koi8-r"},        {21866, "koi8-u"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto converter = CodePageConverter::converterNamed(row.name);
        ASSERT_NE(converter, nullptr);
        std::u16string want;
        for (int byte = 0x80; byte <= 0xFF; ++byte) {
            const char character = static_cast<char>(byte);
            converter->append(want, {&character, 1});
        }
        if (std::string_view(row.name) == "windows-1255") {
            // A point that Unicode got later than the library its table, and browsers know.
            want[0xCA - 0x80] = u'\u05BA';
        }
        EXPECT_EQ(upperHalfOfCodePage(row.number), want);
    }
}

TEST(SingleByteCodePages, OfTheMacintoshDifferInFewPlaces) {
    const struct {
        int number;
        std::size_t place;
        char16_t want;
    } kRows[] = {
        {10004, 0xC7, u'\u0627'}, {10010, 0xAF, u'\u0218'}, {10079, 0xA0, u'\u00DD'},
        {10082, 0xA9, u'\u0160'}, {10010, 0x80, u'\u00C4'}, {10082, 0x80, u'\u00C4'},
    };
    for (const auto& row : kRows) {
        const std::u16string_view half = upperHalfOfCodePage(row.number);
        ASSERT_EQ(half.size(), 128U);
        EXPECT_EQ(half[row.place - 0x80], row.want) << row.number;
    }
}

TEST(SingleByteCodePages, AnswerNothingForOthers) {
    for (const int number : {0, -1, 436, 932, 936, 949, 950, 1361, 65001, 100000}) {
        EXPECT_TRUE(upperHalfOfCodePage(number).empty()) << number;
    }
}

}  // namespace
}  // namespace platform
