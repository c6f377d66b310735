#include "Platform/Text/LanguageModel.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "Platform/Text/LanguageText.h"

namespace platform {
namespace {

TEST(LanguageText, HoldsTheWordsOfOneScript) {
    const LanguageText text =
        wordsInScript(u"L'\u00C9t\u00E9 \u03B1 1990\u2019s u\u0308ber\u0301 x", Script::Latin);
    EXPECT_EQ(text.letters, u"_l_\u00E9t\u00E9_s_u\u0308ber\u0301_x_");
    ASSERT_EQ(text.words.size(), 5U);
    EXPECT_TRUE(text.words[0].isBeforeApostrophe);
    EXPECT_FALSE(text.words[0].isBehindApostrophe);
    EXPECT_TRUE(text.words[1].isBehindApostrophe);
    EXPECT_TRUE(text.words[2].isBehindApostrophe);
    EXPECT_EQ(text.words[3].start, 9U);
    EXPECT_EQ(text.words[3].length, 6U);
    EXPECT_FALSE(text.words[4].isBehindApostrophe);
    EXPECT_EQ(wordsInScript(u"", Script::Latin).letters, u"_");
    EXPECT_EQ(wordsInScript(std::u16string(100'000, u'e'), Script::Latin).letters.size(),
              kMostLanguageLetters + 1);
}

TEST(LanguageModel, KnowsWordsGramsLettersAndCodes) {
    LanguageModelHash the(Script::Latin);
    for (const char16_t letter : std::u16string_view(u"the")) {
        the.add(letter);
    }
    const auto english = static_cast<std::uint8_t>(placeOfLanguage(Script::Latin, "en"));
    const auto evidence = kWordTable.find(the.value());
    ASSERT_EQ(evidence.size(), 1U);
    EXPECT_EQ(evidence[0].language, english);
    EXPECT_GT(evidence[0].weight, 16);
    EXPECT_FALSE(kGramTable.find(the.value()).empty());
    EXPECT_TRUE(kWordTable.find(0x12345678).empty());
    EXPECT_EQ(languagesInScript(Script::Latin)[english].code, "en");
    EXPECT_EQ(placeOfLanguage(Script::Latin, "no"), placeOfLanguage(Script::Latin, "nb"));
    EXPECT_EQ(placeOfLanguage(Script::Latin, "ru"), -1);
    EXPECT_EQ(placeOfLanguage(Script::Cyrillic, ""), -1);
    const auto spanish = static_cast<unsigned>(placeOfLanguage(Script::Latin, "es"));
    EXPECT_EQ(languagesWithLetter(Script::Latin, u'ñ') >> english & 1, 0U);
    EXPECT_EQ(languagesWithLetter(Script::Latin, u'ñ') >> spanish & 1, 1U);
    EXPECT_EQ(languagesWithLetter(Script::Latin, u'e'), ~0ULL);
    EXPECT_EQ(languagesWithLetter(Script::Devanagari, u'क'), ~0ULL);
    for (std::size_t script = 0; script < kSharedScriptCount; ++script) {
        EXPECT_LE(languagesInScript(static_cast<Script>(script)).size(), kMostLanguages);
        EXPECT_GE(languagesInScript(static_cast<Script>(script)).size(), 2U);
    }
}

}  // namespace
}  // namespace platform
