#include "Platform/Text/Scripts.h"

#include <gtest/gtest.h>

#include <string_view>

#include "Platform/Text/HanForms.h"

namespace platform {
namespace {

TEST(Scripts, BelongToLettersAlone) {
    struct Row {
        char32_t character;
        Script script;
    };
    constexpr Row kRows[] = {
        {U'a', Script::Latin},        {U'Z', Script::Latin},         {U'@', Script::None},
        {U'[', Script::None},         {U'`', Script::None},          {U'{', Script::None},
        {U'7', Script::None},         {U'\0', Script::None},         {U'×', Script::None},
        {U'÷', Script::None},         {U'ÿ', Script::Latin},         {U'ệ', Script::Latin},
        {U'Ω', Script::Greek},        {U'ё', Script::Cyrillic},      {U'؟', Script::None},
        {U'٣', Script::None},         {U'ـ', Script::None},          {U'گ', Script::Arabic},
        {U'\u064E', Script::Mark},    {U'\u0301', Script::Mark},     {U'ि', Script::Devanagari},
        {U'।', Script::None},         {U'५', Script::None},          {U'ৰ', Script::Bengali},
        {U'।', Script::None},         {U'ก', Script::Thai},          {U'฿', Script::None},
        {U'々', Script::Han},         {U'。', Script::None},         {U'ー', Script::Kana},
        {U'・', Script::None},        {U'ㄅ', Script::Bopomofo},     {U'한', Script::Hangul},
        {U'\xD800', Script::None},    {U'\xDFFF', Script::None},     {U'\uFFFD', Script::None},
        {U'\U00020000', Script::Han}, {U'\U0001F600', Script::None}, {0x10FFFF, Script::None},
        {0xFFFFFFFF, Script::None},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(scriptOf(row.character), row.script) << std::hex << std::uint32_t{row.character};
    }
}

TEST(Scripts, HaveSmallLetters) {
    constexpr std::u16string_view kCapitals = u"AZÀÖØÞĀĶĹŇŊŶŸŹŽƏƠƯȘȚẞẠỸІЄҐЁАЯҒӘÖİŢ";
    constexpr std::u16string_view kSmall = u"azàöøþāķĺňŋŷÿźžəơưșțßạỹієґёаяғәöiț";
    ASSERT_EQ(kCapitals.size(), kSmall.size());
    for (std::size_t i = 0; i < kCapitals.size(); ++i) {
        EXPECT_EQ(smallLetter(kCapitals[i]), kSmall[i]) << i;
        EXPECT_TRUE(isCapital(kCapitals[i])) << i;
        EXPECT_EQ(smallLetter(kSmall[i]), kSmall[i]) << i;
        EXPECT_FALSE(isCapital(kSmall[i])) << i;
    }
    for (const char16_t other : std::u16string_view(u"ı×÷ţ1@[`{ªßﬁ한\xD800")) {
        EXPECT_FALSE(isCapital(other)) << static_cast<unsigned>(other);
    }
}

TEST(HanForms, TellWhereACharacterIsAtHome) {
    constexpr std::u16string_view kForms[] = {u"人山我的一", u"漢語國學們", u"汉语学习们",
                                              u"駅図働辺円"};
    for (std::size_t form = 0; form < std::size(kForms); ++form) {
        for (const char16_t character : kForms[form]) {
            EXPECT_EQ(hanForm(character), static_cast<HanForm>(form))
                << std::hex << static_cast<unsigned>(character);
        }
    }
    for (const char32_t beyond :
         {U'a', U'\u3400', U'\uA000', U'\U00020000', char32_t{0xFFFFFFFF}}) {
        EXPECT_EQ(hanForm(beyond), HanForm::Common);
    }
}

}  // namespace
}  // namespace platform
