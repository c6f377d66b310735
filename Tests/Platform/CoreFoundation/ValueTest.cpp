// Objects of any type, numbers, truth values, bytes, moments and places.

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <string>
#include <string_view>

#include "Tests/Platform/CoreFoundation/Ref.h"

namespace {

using namespace std::string_view_literals;
using test::makeString;
using test::makeURL;
using test::own;
using test::Ref;
using test::utf8Of;

template <class Value>
Ref<CFNumberRef> makeNumber(CFNumberType type, Value value) {
    return own(CFNumberCreate(nullptr, type, &value));
}

TEST(CFType, NullEndsTheProcess) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(CFRelease(nullptr), "CFRelease");
    EXPECT_DEATH(CFRetain(nullptr), "CFRetain");
    EXPECT_DEATH(CFEqual(CFSTR("a"), nullptr), "CFEqual");
    EXPECT_DEATH(CFHash(nullptr), "CFHash");
    EXPECT_DEATH(CFGetTypeID(nullptr), "CFGetTypeID");
}

TEST(CFType, TellsTypesApart) {
    const auto number = makeNumber(kCFNumberSInt32Type, SInt32{1});
    EXPECT_EQ(CFGetTypeID(number.get()), CFNumberGetTypeID());
    EXPECT_EQ(CFGetTypeID(kCFBooleanTrue), CFBooleanGetTypeID());
    EXPECT_EQ(CFGetTypeID(CFSTR("")), CFStringGetTypeID());
    EXPECT_NE(CFNumberGetTypeID(), CFBooleanGetTypeID());
    EXPECT_FALSE(CFEqual(number.get(), kCFBooleanTrue));
}

TEST(CFType, EqualObjectsHaveTheSameHash) {
    const UInt8 bytes[] = {1, 2};
    const auto makeData = [&] {
        return own(CFDataCreate(nullptr, bytes, sizeof bytes));
    };
    const auto makeDate = [] {
        return own(CFDateCreate(nullptr, -0.5));
    };
    const auto makePlace = [] {
        return makeURL("/tmp/caf\u00E9", false);
    };
    const auto makeIdentifier = [] {
        return own(CFUUIDCreateFromString(nullptr, CFSTR("0102030405060708090A0B0C0D0E0F10")));
    };
    EXPECT_EQ(CFHash(makeData().get()), CFHash(makeData().get()));
    EXPECT_EQ(CFHash(makeDate().get()), CFHash(makeDate().get()));
    EXPECT_EQ(CFHash(makePlace().get()), CFHash(makePlace().get()));
    EXPECT_EQ(CFHash(makeIdentifier().get()), CFHash(makeIdentifier().get()));
    EXPECT_EQ(CFHash(makeString("caf\u00E9"sv).get()), CFHash(makeString("caf\u00E9"sv).get()));
    EXPECT_EQ(CFHash(kCFBooleanTrue), CFHash(CFRetain(kCFBooleanTrue)));
    EXPECT_NE(CFHash(kCFBooleanTrue), CFHash(kCFBooleanFalse)) << "objects, not values";
}

TEST(CFType, EveryObjectTellsItsOwnType) {
    const UInt8 byte = 0;
    const auto data = own(CFDataCreate(nullptr, &byte, 1));
    const auto date = own(CFDateCreate(nullptr, 0));
    const auto array = own(CFArrayCreate(nullptr, nullptr, 0, nullptr));
    const auto dictionary = own(CFDictionaryCreateMutable(nullptr, 0, nullptr, nullptr));
    const auto uuid = own(CFUUIDCreate(nullptr));
    const auto url = makeURL("/", true);
    const struct {
        CFTypeRef object;
        CFTypeID type;
    } kRows[] = {
        {data.get(), CFDataGetTypeID()},   {date.get(), CFDateGetTypeID()},
        {array.get(), CFArrayGetTypeID()}, {dictionary.get(), CFDictionaryGetTypeID()},
        {uuid.get(), CFUUIDGetTypeID()},   {url.get(), CFURLGetTypeID()},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(CFGetTypeID(row.object), row.type);
        for (const auto& other : kRows) {
            EXPECT_EQ(row.type == other.type, &row == &other) << "no two types have one number";
        }
    }
}

TEST(CFBoolean, HasTwoValuesThatNeverGo) {
    CFRelease(kCFBooleanTrue);
    CFRelease(kCFBooleanTrue);
    EXPECT_TRUE(CFBooleanGetValue(kCFBooleanTrue));
    EXPECT_FALSE(CFBooleanGetValue(kCFBooleanFalse));
    EXPECT_FALSE(CFEqual(kCFBooleanTrue, kCFBooleanFalse));
}

TEST(CFNumber, ComparesByValueWhateverTheType) {
    const auto seven = makeNumber(kCFNumberSInt32Type, SInt32{7});
    const auto sevenReal = makeNumber(kCFNumberDoubleType, 7.0);
    EXPECT_TRUE(CFEqual(seven.get(), sevenReal.get()));
    EXPECT_EQ(CFHash(seven.get()), CFHash(sevenReal.get()));
    EXPECT_FALSE(CFEqual(seven.get(), makeNumber(kCFNumberDoubleType, 7.5).get()));
    const auto most = makeNumber(kCFNumberSInt64Type, std::numeric_limits<SInt64>::max());
    EXPECT_FALSE(CFEqual(most.get(), makeNumber(kCFNumberDoubleType, 9223372036854775807.0).get()))
        << "the double is one more";
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(CFEqual(makeNumber(kCFNumberDoubleType, nan).get(),
                        makeNumber(kCFNumberDoubleType, -nan).get()));
    EXPECT_FALSE(CFNumberIsFloatType(seven.get()));
    EXPECT_TRUE(CFNumberIsFloatType(sevenReal.get()));
}

struct IntegerRow {
    const char* name;
    double value;
    bool exact;
    SInt32 got;
};

constexpr IntegerRow kIntegerRows[] = {
    {"whole", 42.0, true, 42},
    {"cut toward zero", 2.9, false, 2},
    {"cut toward zero, negative", -2.9, false, -2},
    {"beyond the top", 3e9, false, 2147483647},
    {"beyond the bottom", -3e9, false, -2147483648},
    {"beyond all integers", 1e300, false, 2147483647},
    {"infinite", -std::numeric_limits<double>::infinity(), false, -2147483648},
    {"no number", std::numeric_limits<double>::quiet_NaN(), false, 0},
};

TEST(CFNumber, TellsWhatDoesNotFit) {
    for (const IntegerRow& row : kIntegerRows) {
        SCOPED_TRACE(row.name);
        SInt32 got = 99;
        const auto number = makeNumber(kCFNumberDoubleType, row.value);
        EXPECT_EQ(CFNumberGetValue(number.get(), kCFNumberSInt32Type, &got), row.exact);
        EXPECT_EQ(got, row.got);
    }
}

TEST(CFNumber, GoesToEveryType) {
    const auto number = makeNumber(kCFNumberCFIndexType, CFIndex{100});
    SInt8 narrow = 0;
    EXPECT_TRUE(CFNumberGetValue(number.get(), kCFNumberCharType, &narrow));
    EXPECT_EQ(narrow, 100);
    float real = 0;
    EXPECT_TRUE(CFNumberGetValue(number.get(), kCFNumberFloatType, &real));
    EXPECT_EQ(real, 100.0f);
    const auto large = makeNumber(kCFNumberSInt64Type, SInt64{1} << 40);
    SInt16 small = 0;
    EXPECT_FALSE(CFNumberGetValue(large.get(), kCFNumberSInt16Type, &small));
    EXPECT_EQ(small, 32767);
    EXPECT_FALSE(
        CFNumberGetValue(makeNumber(kCFNumberDoubleType, 1e300).get(), kCFNumberFloatType, &real));
    EXPECT_EQ(real, std::numeric_limits<float>::max());
    EXPECT_EQ(CFNumberCreate(nullptr, 99, &small), nullptr);
    EXPECT_FALSE(CFNumberGetValue(number.get(), 99, &small));
}

TEST(CFData, HoldsACopy) {
    UInt8 bytes[] = {1, 0, 3};
    const auto data = own(CFDataCreate(nullptr, bytes, 3));
    bytes[0] = 9;
    ASSERT_EQ(CFDataGetLength(data.get()), 3);
    EXPECT_EQ(CFDataGetBytePtr(data.get())[0], 1);
    const UInt8 same[] = {1, 0, 3};
    EXPECT_TRUE(CFEqual(data.get(), own(CFDataCreate(nullptr, same, 3)).get()));
    EXPECT_FALSE(CFEqual(data.get(), own(CFDataCreate(nullptr, same, 2)).get()));
    EXPECT_EQ(CFDataCreate(nullptr, same, -1), nullptr);
}

TEST(CFDate, HoldsAMoment) {
    const auto date = own(CFDateCreate(nullptr, 86400.5));
    EXPECT_EQ(CFDateGetAbsoluteTime(date.get()), 86400.5);
    EXPECT_TRUE(CFEqual(date.get(), own(CFDateCreate(nullptr, 86400.5)).get()));
}

struct PathRow {
    const char* name;
    std::string_view path;
    bool valid;
    std::string_view got;
};

constexpr PathRow kPathRows[] = {
    {"plain", "/tmp/a", true, "/tmp/a"},
    {"slash at the end", "/tmp/a/", true, "/tmp/a"},
    {"root", "/", true, "/"},
    {"any bytes", "/tmp/\xFF", true, "/tmp/\xFF"},
    {"relative", "a/b", true, "a/b"},
    {"empty", "", false, ""},
    {"NUL inside", "/a\0b"sv, false, ""},
};

TEST(CFURL, KeepsPaths) {
    for (const PathRow& row : kPathRows) {
        SCOPED_TRACE(row.name);
        const auto url = makeURL(row.path, false);
        ASSERT_EQ(url != nullptr, row.valid);
        if (!url) {
            continue;
        }
        char buffer[32];
        const auto size = static_cast<CFIndex>(row.got.size());
        auto* bytes = reinterpret_cast<UInt8*>(buffer);
        EXPECT_FALSE(CFURLGetFileSystemRepresentation(url.get(), false, bytes, size));
        ASSERT_TRUE(CFURLGetFileSystemRepresentation(url.get(), false, bytes, size + 1));
        EXPECT_EQ(std::string_view(buffer), row.got);
    }
}

TEST(CFURL, RelativePathsAreTakenFromTheCurrentFolder) {
    const auto path = makeString("some.txt"sv);
    const auto url =
        own(CFURLCreateWithFileSystemPath(nullptr, path.get(), kCFURLPOSIXPathStyle, false));
    UInt8 buffer[4096];
    ASSERT_TRUE(CFURLGetFileSystemRepresentation(url.get(), true, buffer, sizeof buffer));
    EXPECT_EQ(std::string(reinterpret_cast<char*>(buffer)),
              (std::filesystem::current_path() / "some.txt").string());
    EXPECT_EQ(utf8Of(own(CFURLCopyFileSystemPath(url.get(), kCFURLPOSIXPathStyle)).get()),
              "some.txt");
}

TEST(CFURL, IsMadeOfTextInThePosixStyleAlone) {
    const auto make = [](std::u16string_view path, CFURLPathStyle style) {
        return own(CFURLCreateWithFileSystemPath(nullptr, makeString(path).get(), style, false));
    };
    const auto url = make(u"/tmp/caf\u00E9 \U0001F600", kCFURLPOSIXPathStyle);
    ASSERT_NE(url, nullptr);
    EXPECT_EQ(utf8Of(own(CFURLCopyFileSystemPath(url.get(), kCFURLPOSIXPathStyle)).get()),
              "/tmp/caf\u00E9 \U0001F600");
    EXPECT_EQ(make(u"/tmp", 1), nullptr) << "another style";
    const char16_t lone[] = {u'/', 0xD800, u'a'};
    EXPECT_EQ(make({lone, 3}, kCFURLPOSIXPathStyle), nullptr) << "a lone surrogate has no bytes";
    EXPECT_EQ(CFURLCreateWithFileSystemPath(nullptr, nullptr, kCFURLPOSIXPathStyle, false),
              nullptr);
}

TEST(CFURL, OnlyUtf8PathsBecomeStrings) {
    EXPECT_EQ(CFURLCopyFileSystemPath(makeURL("/\xFF", false).get(), kCFURLPOSIXPathStyle),
              nullptr);
    const auto url = makeURL("/caf\u00E9/", false);
    EXPECT_EQ(utf8Of(own(CFURLCopyFileSystemPath(url.get(), kCFURLPOSIXPathStyle)).get()),
              "/caf\u00E9");
    EXPECT_EQ(CFURLCopyFileSystemPath(url.get(), 1), nullptr);
    EXPECT_TRUE(CFEqual(url.get(), makeURL("/caf\u00E9", true).get()));
    EXPECT_FALSE(CFEqual(url.get(), makeURL("/caf\u00E9", false).get())) << "a file, not a folder";
}

}  // namespace
