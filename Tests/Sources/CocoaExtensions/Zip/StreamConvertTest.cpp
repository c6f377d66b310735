#include "Sources/CocoaExtensions/Zip/StreamConvert.h"

#include <gtest/gtest.h>

#include "Platform/Foundation/AssertionHandler.h"
#include "Platform/Foundation/Exception.h"
#include "Sources/CocoaExtensions/Zip/ZipAssertion.h"

namespace parlavox {
namespace {

TEST(StreamConvert, BytesPassUnchangedWithoutUsableKeys) {
    for (int byte = 0; byte < 256; ++byte) {
        const auto b = static_cast<std::uint8_t>(byte);
        EXPECT_EQ(SHIFER_streamConvert(b, 3, nullptr, nullptr), b);
        EXPECT_EQ(SHIFER_streamConvert(b, 3, "keys", nullptr), b);
        EXPECT_EQ(SHIFER_streamConvert(b, 3, nullptr, "keys"), b);
        EXPECT_EQ(SHIFER_streamConvert(b, 3, "k", "other"), b) << "a first key of one character";
        EXPECT_EQ(SHIFER_streamConvert(b, 3, "k", ""), b);
    }
}

TEST(StreamConvert, MixesBothKeys) {
    struct Row {
        const char* name;
        std::uint8_t byte;
        std::uint64_t index;
        const char* first;
        const char* second;
        std::uint8_t want;
    };
    // 'a' is 0x61, 'b' 0x62, 'c' 0x63, 'd' 0x64: mix(a, b) = (0xC4 & 0xAA) | (0x61 & 0x55) = 0xC1,
    // mix(c, d) = (0xC8 & 0xAA) | (0x63 & 0x55) = 0xC9.
    constexpr Row kRows[] = {
        {"first pair", 0x00, 0, "abcd", "xy", 'x' ^ 0xC1},
        {"second pair", 0x00, 1, "abcd", "xy", 'y' ^ 0xC9},
        {"the index wraps at the pairs", 0x00, 2, "abcd", "xy", 'x' ^ 0xC1},
        {"an odd character of the first key is not used", 0x00, 1, "abc", "xy", 'x' ^ 0xC1},
        {"the pair wraps at the second key", 0x00, 1, "abcd", "x", 'x' ^ 0xC9},
        {"the byte is combined", 0xFF, 0, "abcd", "xy", 0xFF ^ 'x' ^ 0xC1},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto converted = SHIFER_streamConvert(row.byte, row.index, row.first, row.second);
        EXPECT_EQ(converted, row.want);
        EXPECT_EQ(SHIFER_streamConvert(converted, row.index, row.first, row.second), row.byte)
            << "twice restores the byte";
    }
}

TEST(StreamConvert, EmptySecondKeyIsAnAssertionFailure) {
    try {
        (void)SHIFER_streamConvert(1, 0, "abcd", "");
        FAIL() << "nothing was raised";
    } catch (const platform::AssertionFailure& failure) {
        EXPECT_EQ(failure.reason(), "Invalid parameter not satisfying: secondKey.length > 0");
        EXPECT_EQ(failure.file(), kZipSourceFile) << "that of the whole container";
    }
    struct Silent : platform::AssertionHandler {
        void handleFailure(const platform::AssertionFailure&) override {}
    } silent;
    const platform::AssertionHandlerScope scope(silent);
    EXPECT_EQ(SHIFER_streamConvert(0x5A, 0, "abcd", ""), 0x5A)
        << "unchanged when the handler returns";
}

}  // namespace
}  // namespace parlavox
