#include "Platform/Foundation/Base64.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

using namespace std::string_view_literals;

TEST(Base64, GoesThereAndBackAtEveryLength) {
    constexpr std::string_view kBytes("\x00\xFF\x10light w", 10);
    constexpr const char* kTexts[] = {"", "AA==", "AP8=", "AP8Q", "AP8QbA==", "AP8QbGk="};
    for (std::size_t size = 0; size < std::size(kTexts); ++size) {
        EXPECT_EQ(base64FromBytes(kBytes.substr(0, size)), kTexts[size]);
        EXPECT_EQ(bytesFromBase64(kTexts[size]), kBytes.substr(0, size));
    }
}

TEST(Base64, ReadsDamagedTextAsThePlatformDoes) {
    struct Row {
        const char* name;
        std::string_view text;
        std::string_view want;
    };
    constexpr Row kRows[] = {
        {"white space", " b\nG\tk \v=\f\r", "li"},
        {"no digits", "A*P-8.Q\xC3\xA9", "\x00\xFF\x10"sv},
        {"one digit is left over", "AP8QA", "\x00\xFF\x10"sv},
        {"padding is missing", "AP8QbGk", "\x00\xFF\x10"sv},
        {"nothing but padding", "====", "\0"sv},
        {"padding after the end", "AP8Q====", "\x00\xFF\x10\0"sv},
        {"too much padding", "A===", "\0"sv},
        {"padding inside", "AA=A", "\0\0\0"sv},
        {"padding, then something that is no digit", "AA*=", ""},
        {"padding that does not end its group", "AAA=*A=BC", "\0\0\0\0B"sv},
        {"padding in two groups", "AA==bGk=", "\0li"sv},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(bytesFromBase64(row.text), row.want) << row.name;
    }
}

}  // namespace
}  // namespace platform
