#include "Platform/Foundation/Base64.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(Base64, GoesThereAndBackAtEveryLength) {
    constexpr std::string_view kBytes("\x00\xFF\x10light w", 10);
    constexpr const char* kTexts[] = {"", "AA==", "AP8=", "AP8Q", "AP8QbA==", "AP8QbGk="};
    for (std::size_t size = 0; size < std::size(kTexts); ++size) {
        EXPECT_EQ(base64FromBytes(kBytes.substr(0, size)), kTexts[size]);
        EXPECT_EQ(bytesFromBase64(kTexts[size]), kBytes.substr(0, size));
    }
}

TEST(Base64, ReadsWhiteSpaceAndMissingPaddingButNothingElse) {
    EXPECT_EQ(bytesFromBase64(" b\nG\tk "), "li");
    for (const char* bad : {"A", "A===", "AA=A", "AA*A", "AAAA====", "\xC3\xA9"}) {
        EXPECT_EQ(bytesFromBase64(bad), std::nullopt) << bad;
    }
}

}  // namespace
}  // namespace platform
