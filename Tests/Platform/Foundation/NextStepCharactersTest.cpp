#include "Platform/Foundation/NextStepCharacters.h"

#include <gtest/gtest.h>

#include <set>

namespace platform {
namespace {

TEST(NextStepCharacters, LowerHalfIsAscii) {
    for (unsigned code = 0; code < 0x80; ++code) {
        EXPECT_EQ(characterFromNextStep(static_cast<std::uint8_t>(code)), code);
    }
}

TEST(NextStepCharacters, UpperHalfHasAnOrderOfItsOwn) {
    struct Row {
        const char* name;
        std::uint8_t code;
        char16_t want;
    };
    constexpr Row kRows[] = {
        {"first", 0x80, 0x00A0},
        {"A with grave", 0x81, 0x00C0},
        {"C with cedilla", 0x87, 0x00C7},
        {"U with grave", 0x97, 0x00D9},
        {"division sign", 0x9F, 0x00F7},
        {"copyright", 0xA0, 0x00A9},
        {"fraction slash", 0xA4, 0x2044},
        {"apostrophe", 0xA9, 0x2019},
        {"ligature fi", 0xAE, 0xFB01},
        {"bullet", 0xB7, 0x2022},
        {"per mille", 0xBD, 0x2030},
        {"ogonek", 0xCE, 0x02DB},
        {"em dash", 0xD0, 0x2014},
        {"a with grave", 0xD5, 0x00E0},
        {"AE", 0xE1, 0x00C6},
        {"L with stroke", 0xE8, 0x0141},
        {"dotless i", 0xF5, 0x0131},
        {"sharp s", 0xFB, 0x00DF},
        {"last", 0xFD, 0x00FF},
        {"no character", 0xFE, 0xFFFD},
        {"no character", 0xFF, 0xFFFD},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(characterFromNextStep(row.code), row.want) << row.name;
    }
}

TEST(NextStepCharacters, NoCharacterComesTwice) {
    std::set<char16_t> characters;
    for (unsigned code = 0; code < 0xFE; ++code) {
        EXPECT_TRUE(
            characters.insert(characterFromNextStep(static_cast<std::uint8_t>(code))).second)
            << code;
    }
}

}  // namespace
}  // namespace platform
