#include "Packaging/generate/LanguageTables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "Packaging/generate/HanTables.h"
#include "Packaging/generate/LanguageSource.h"
#include "Platform/Text/HanForms.h"
#include "Platform/Text/LanguageModel.h"

namespace packaging {
namespace {

using platform::Script;

TEST(LanguageSource, ReadsDeclarationsAndWords) {
    const auto languages = languagesFromText(
        "# a comment\n\n"
        "@ nb Latin letters=øå data=nb,nn also=no lead=-2\n"
        "@ sr Cyrillic unnamed\n"
        "nb og i og\n"
        "nb det i\n");
    ASSERT_TRUE(languages);
    ASSERT_EQ(languages.value().size(), 2U);
    const LanguageRecord& norwegian = languages.value()[0];
    EXPECT_EQ(norwegian.code, "nb");
    EXPECT_EQ(norwegian.script, Script::Latin);
    EXPECT_TRUE(norwegian.isNamed);
    EXPECT_EQ(norwegian.lead, -2);
    EXPECT_EQ(norwegian.letters, u"øå");
    EXPECT_EQ(norwegian.models, (std::vector<std::string>{"nb", "nn"}));
    EXPECT_EQ(norwegian.aliases, (std::vector<std::string>{"nb", "no"}));
    EXPECT_EQ(norwegian.words, (std::vector<std::u16string>{u"og", u"i", u"det"}));
    const LanguageRecord& serbian = languages.value()[1];
    EXPECT_FALSE(serbian.isNamed);
    EXPECT_EQ(serbian.script, Script::Cyrillic);
    EXPECT_EQ(serbian.models, std::vector<std::string>{"sr"});
}

TEST(LanguageSource, PartsWordsWhereTextsPartThem) {
    const auto languages = languagesFromText(
        "@ fr Latin\n"
        "fr d'un qu' 's c'est-\u200Cx\n");
    ASSERT_TRUE(languages);
    EXPECT_EQ(languages.value()[0].words,
              (std::vector<std::u16string>{u"un", u"d'", u"qu'", u"'s", u"x", u"est-", u"c'"}));
}

TEST(LanguageSource, NamesTheLineThatMakesNoSense) {
    constexpr const char* kLines[] = {
        "de der die",          "@ de",
        "@ de Klingon",        "@ de Latin letters",
        "@ de Latin lead=x",   "@ de Latin lead=1x",
        "@ de Latin colour=1", "@",
    };
    for (const char* line : kLines) {
        const auto languages = languagesFromText(std::string("@ en Latin\n\n") + line + "\n");
        ASSERT_FALSE(languages) << line;
        EXPECT_EQ(languages.fault().detail, "line 3") << line;
    }
}

TEST(LanguageTables, TakesGramsOfLettersInSmallLetters) {
    EXPECT_EQ(gramsFromModel("_\t20\nE\t 5\ne\nn,_\n_De_\n1\nabcdef\n\nй_"),
              (Grams{u"e", u"_de_", u"й_"}));
    EXPECT_EQ(gramsFromModel(""), Grams{});
}

bool holds(const std::string& source, const std::string& part) {
    return source.find(part) != source.npos;
}

TEST(LanguageTables, ListLanguagesCodesAndLetters) {
    const auto languages = languagesFromText(
        "@ en Latin\n@ xx Latin unnamed letters=é also=aa lead=-3\n@ ru Cyrillic\n"
        "en the\nxx te\n");
    ASSERT_TRUE(languages);
    const std::string source =
        languageTables(languages.value(), {{{u"t", u"th"}}, {{u"te"}, {u"t"}}, {}});
    EXPECT_TRUE(holds(source, "{\"en\", true, 0},\n    {\"xx\", false, -3},")) << source;
    EXPECT_TRUE(holds(source, "{\"aa\", 1},{\"en\", 0},{\"xx\", 1},")) << source;
    // Only the second language writes U+00E9.
    EXPECT_TRUE(holds(source, "{233,2u},")) << source;
}

TEST(HanTables, AreMadeForTheWholeBlock) {
    const std::string source = hanTables();
    EXPECT_EQ(std::count(source.begin(), source.end(), ','),
              static_cast<std::ptrdiff_t>(platform::kHanCount / 4));
}

}  // namespace
}  // namespace packaging
