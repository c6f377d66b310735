#include "Platform/Text/SpellingDictionaries.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "Tests/Support/TemporaryFolder.h"
#include "Tests/Support/TestData.h"

namespace platform {
namespace {

using Names = std::vector<std::string>;

/// A folder with empty dictionaries.
class DictionaryFolder {
public:
    explicit DictionaryFolder(const Names& names) {
        for (const std::string& name : names) {
            folder_.write(name + ".aff", "");
            folder_.write(name + ".dic", "");
        }
    }

    void link(const std::string& name, const std::string& target) const {
        for (const char* extension : {".aff", ".dic"}) {
            std::filesystem::create_symlink(target + extension, folder_.path(name + extension));
        }
    }

    [[nodiscard]] std::string path(const std::string& name) const { return folder_.path(name); }
    [[nodiscard]] const std::string& path() const { return folder_.path(); }
    [[nodiscard]] const test::TemporaryFolder& files() const { return folder_; }

private:
    test::TemporaryFolder folder_;
};

TEST(SpellingDictionaries, UsualCountriesComeFirst) {
    struct Row {
        const char* name;
        Names installed;
        Names want;
    };
    const Row rows[] = {
        {"none", {}, {}},
        {"the country is named as the language is", {"de_AT", "de_DE"}, {"de_DE", "de_AT"}},
        {"it is not", {"en_AU", "en_GB", "en_US"}, {"en_US", "en_AU", "en_GB"}},
        {"no country", {"eo", "en_GB", "fr_FR", "fr"}, {"eo", "fr", "fr_FR", "en_GB"}},
        {"none is the usual one", {"en_ZA", "en_GB"}, {"en_GB", "en_ZA"}},
        {"several languages",
         {"sv_FI", "sv_SE", "pt_PT", "pt_BR", "de_CH", "nb_NO"},
         {"nb_NO", "pt_BR", "sv_SE", "de_CH", "pt_PT", "sv_FI"}},
        {"a variant of the usual one", {"de_DE_frami", "de_DE"}, {"de_DE", "de_DE_frami"}},
        {"hyphens", {"ca-valencia", "en-US"}, {"en_US", "ca_valencia"}},
        {"three letters", {"kmr_Latn", "gug_PY"}, {"gug_PY", "kmr_Latn"}},
        {"no languages", {"hyph_de", "README", "x", "De_DE", "de.old", "1_2", ""}, {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const DictionaryFolder folder(row.installed);
        EXPECT_EQ(SpellingDictionaries({folder.path()}).identifiers(), row.want);
    }
}

TEST(SpellingDictionaries, BothFilesAreNeeded) {
    const DictionaryFolder folder({"en_US"});
    folder.files().write("de_DE.dic", "");
    folder.files().write("fr_FR.aff", "");
    folder.link("it_IT", "nothing");
    std::filesystem::create_directory(folder.path("es_ES.dic"));
    folder.files().write("es_ES.aff", "");
    EXPECT_EQ(SpellingDictionaries({folder.path()}).identifiers(), Names({"en_US"}));
}

TEST(SpellingDictionaries, NamesOfOneDictionaryAreListedOnce) {
    struct Row {
        const char* name;
        Names files;
        Names links;  ///< to the first file
        Names want;
    };
    const Row rows[] = {
        {"under the name of the files", {"en_GB"}, {"en_AG", "en_ZW"}, {"en_GB"}},
        {"under that of the usual country", {"es_ANY"}, {"es_AR", "es_ES", "es_MX"}, {"es_ES"}},
        {"others stay", {"de_DE", "de_AT"}, {"de_BE", "de_LU"}, {"de_DE", "de_AT"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const DictionaryFolder folder(row.files);
        for (const std::string& name : row.links) {
            folder.link(name, row.files.front());
        }
        const SpellingDictionaries dictionaries({folder.path()});
        EXPECT_EQ(dictionaries.identifiers(), row.want);
        for (const std::string& name : row.links) {
            EXPECT_EQ(dictionaries.pathForLanguage(name),
                      dictionaries.pathForLanguage(row.files.front()))
                << name;
        }
    }
}

TEST(SpellingDictionaries, TheFirstFolderThatHasAnameCounts) {
    const DictionaryFolder first({"en_US"});
    const DictionaryFolder second({"en_US", "de_DE"});
    second.link("sv_SE", first.path("en_US"));
    const SpellingDictionaries dictionaries({first.path(), second.path(), "/nowhere"});
    EXPECT_EQ(dictionaries.identifiers(), Names({"de_DE", "en_US"}));
    EXPECT_EQ(*dictionaries.pathForLanguage("en_US"), first.path("en_US"));
    EXPECT_EQ(*dictionaries.pathForLanguage("de_DE"), second.path("de_DE"));
}

TEST(SpellingDictionaries, LanguagesFindTheirDictionary) {
    const DictionaryFolder folder(
        {"en_US", "en_GB", "de_AT", "de_CH", "fil_PH", "eo", "sr_Latn_RS"});
    folder.link("de_LI", "de_CH");
    const SpellingDictionaries dictionaries({folder.path()});
    struct Row {
        const char* language;
        const char* want;
    };
    const Row rows[] = {
        {"en_US", "en_US"},   {"en_GB", "en_GB"},        {"en-GB", "en_GB"}, {"en", "en_US"},
        {"de", "de_AT"},      {"de_LI", "de_CH"},        {"eo", "eo"},       {"fil", "fil_PH"},
        {"sr", "sr_Latn_RS"}, {"sr-Latn", "sr_Latn_RS"}, {"fi", nullptr},    {"e", nullptr},
        {"", nullptr},        {"en_", nullptr},          {"en_AU", nullptr}, {"eo_XX", nullptr},
        {"EN", nullptr},      {"zh-Hans", nullptr},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.language);
        const std::string* const path = dictionaries.pathForLanguage(row.language);
        EXPECT_EQ(path == nullptr ? "" : *path, row.want == nullptr ? "" : folder.path(row.want));
    }
}

TEST(SpellingDictionaries, DataIsListed) {
    const std::filesystem::path folder = test::dataPath("spelling");
    std::set<std::string> want;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".dic") {
            want.insert(entry.path().stem().string());
        }
    }
    const SpellingDictionaries dictionaries({folder.string()});
    const Names& identifiers = dictionaries.identifiers();
    EXPECT_EQ(std::set<std::string>(identifiers.begin(), identifiers.end()), want);
    EXPECT_EQ(want.size(), 6U);
}

}  // namespace
}  // namespace platform
