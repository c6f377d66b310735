#include "Platform/Text/UnitSearch.h"

#include <gtest/gtest.h>

#include <string>

namespace platform {
namespace {

TEST(UnitSearch, FindsTheFirstFromAnyPlaceInTextsOfAnyLength) {
    for (const std::size_t length : {0, 1, 2, 63, 64, 65, 127, 128, 129, 200}) {
        std::u16string text(length, u'x');
        for (std::size_t from = 0; from <= length; ++from) {
            EXPECT_EQ(findUnit(text, u'-', from), std::u16string::npos) << length << ' ' << from;
        }
        for (std::size_t at = 0; at < length; ++at) {
            text[at] = u'-';
            for (std::size_t from = 0; from <= length; ++from) {
                EXPECT_EQ(findUnit(text, u'-', from), text.find(u'-', from))
                    << length << ' ' << at << ' ' << from;
            }
            if (at % 3 != 0) {
                text[at] = u'x';
            }
        }
    }
}

TEST(UnitSearch, HalvesOfAunitAreNotTheUnit) {
    const std::u16string text(100, u'\u2D00');
    EXPECT_EQ(findUnit(text + u"\u2D2D\u002D", u'-', 0), 101U);
    EXPECT_EQ(findUnit(text, u'\0', 0), std::u16string::npos);
}

}  // namespace
}  // namespace platform
