#include "Platform/Foundation/AsciiCase.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(AsciiCase, ComparesOnlyAsciiLettersInEitherCase) {
    EXPECT_TRUE(equalIgnoringAsciiCase("AbC-9.z", "aBc-9.Z"));
    EXPECT_FALSE(equalIgnoringAsciiCase("abc", "abcd"));
    EXPECT_FALSE(equalIgnoringAsciiCase("\xC4", "\xE4"));
    EXPECT_FALSE(equalIgnoringAsciiCase("@", "`")) << "neighbours of the letters have no case";
    EXPECT_FALSE(equalIgnoringAsciiCase("[", "{"));
    EXPECT_TRUE(compareIgnoringAsciiCase("abc", "ABD") < 0);
    EXPECT_TRUE(compareIgnoringAsciiCase("ab", "ABC") < 0);
    EXPECT_TRUE(compareIgnoringAsciiCase("z", "\xC4") < 0) << "bytes are unsigned";
}

}  // namespace
}  // namespace platform
