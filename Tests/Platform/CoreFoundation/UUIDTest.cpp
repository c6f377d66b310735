#include "Platform/CoreFoundation/CFUUID.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <string_view>

#include "Tests/Platform/CoreFoundation/Ref.h"

namespace {

using namespace std::string_view_literals;
using test::makeString;
using test::own;
using test::utf8Of;

struct ParsingRow {
    const char* name;
    std::string_view text;
    const char* uuid;  // null: refused
};

constexpr ParsingRow kParsingRows[] = {
    {"upper case", "8B08C4BF-415B-11D8-B3F9-0003936726FC", "8B08C4BF-415B-11D8-B3F9-0003936726FC"},
    {"lower case", "8b08c4bf-415b-11d8-b3f9-0003936726fc", "8B08C4BF-415B-11D8-B3F9-0003936726FC"},
    {"braces", "{8B08C4BF-415B-11D8-B3F9-0003936726FC}", "8B08C4BF-415B-11D8-B3F9-0003936726FC"},
    {"leading blanks", "  8B08C4BF-415B-11D8-B3F9-0003936726FC",
     "8B08C4BF-415B-11D8-B3F9-0003936726FC"},
    {"trailing text", "8B08C4BF-415B-11D8-B3F9-0003936726FCABC",
     "8B08C4BF-415B-11D8-B3F9-0003936726FC"},
    {"bad digits", "8B08C4ZZ-415B-11D8-B3F9-0003936726FC", "8B08C400-415B-11D8-B3F9-0003936726FC"},
    {"missing digits", "8B08C4BF-415B", "8B08C4BF-415B-0000-0000-000000000000"},
    {"half a byte", "8B08C4BF-4", "8B08C4BF-4000-0000-0000-000000000000"},
    {"no digit at all", "--", "00000000-0000-0000-0000-000000000000"},
    {"beyond ASCII", "\u201E8B08C4BF-415B-11D8-B3F9-0003936726FC\u201D",
     "8B08C4BF-415B-11D8-B3F9-0003936726FC"},
    {"empty", "", nullptr},
};

TEST(CFUUID, ReadsTextLeniently) {
    for (const ParsingRow& row : kParsingRows) {
        SCOPED_TRACE(row.name);
        const auto uuid = own(CFUUIDCreateFromString(nullptr, makeString(row.text).get()));
        ASSERT_EQ(uuid == nullptr, row.uuid == nullptr);
        if (uuid) {
            EXPECT_EQ(utf8Of(own(CFUUIDCreateString(nullptr, uuid.get())).get()), row.uuid);
        }
    }
    EXPECT_EQ(CFUUIDCreateFromString(nullptr, nullptr), nullptr);
}

TEST(CFUUID, IsOneObjectForEachValue) {
    const auto text = makeString("13F60F02-3622-4F35-9891-EC10E6CD08F8"sv);
    const auto first = own(CFUUIDCreateFromString(nullptr, text.get()));
    const auto second = own(CFUUIDCreateFromUUIDBytes(nullptr, CFUUIDGetUUIDBytes(first.get())));
    EXPECT_EQ(first.get(), second.get());
    EXPECT_EQ(CFGetRetainCount(first.get()), 2);
}

TEST(CFUUID, BytesAreInTheOrderOfTheText) {
    const auto text = makeString("00112233-4455-6677-8899-AABBCCDDEEFF"sv);
    const auto uuid = own(CFUUIDCreateFromString(nullptr, text.get()));
    const CFUUIDBytes bytes = CFUUIDGetUUIDBytes(uuid.get());
    EXPECT_EQ(
        std::memcmp(&bytes, "\x00\x11\x22\x33\x44\x55\x66\x77\x88\x99\xAA\xBB\xCC\xDD\xEE\xFF", 16),
        0);
}

TEST(CFUUID, ConstantsSurviveReleases) {
    const auto make = [] {
        return CFUUIDGetConstantUUIDWithBytes(nullptr, 0xC0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12,
                                              13, 14, 15);
    };
    const CFUUIDRef constant = make();
    for (int i = 0; i < 3; ++i) {
        CFRelease(constant);
    }
    EXPECT_EQ(make(), constant);
    const auto same = own(
        CFUUIDCreateWithBytes(nullptr, 0xC0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15));
    EXPECT_EQ(same.get(), constant);
}

TEST(CFUUID, AnOwnedOneBecomesConstant) {
    const CFUUIDRef owned =
        CFUUIDCreateWithBytes(nullptr, 0xC1, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
    const CFUUIDRef constant = CFUUIDGetConstantUUIDWithBytes(nullptr, 0xC1, 1, 2, 3, 4, 5, 6, 7, 8,
                                                              9, 10, 11, 12, 13, 14, 15);
    CFRelease(owned);
    EXPECT_EQ(constant, owned);
    EXPECT_EQ(CFUUIDGetUUIDBytes(constant).byte0, 0xC1);
}

TEST(CFUUID, NewOnesDiffer) {
    const auto first = own(CFUUIDCreate(nullptr));
    const auto second = own(CFUUIDCreate(nullptr));
    EXPECT_FALSE(CFEqual(first.get(), second.get()));
    EXPECT_EQ(CFUUIDGetUUIDBytes(first.get()).byte6 >> 4, 4) << "the version of random ones";
}

}  // namespace
