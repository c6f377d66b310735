// The spelling dictionaries that are installed: which languages there are, and where.
//
// A dictionary is two files of one name, NAME.aff and NAME.dic; its name is its language.
// Immutable; any thread at once.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// The dictionaries of some folders, as they are when the object is made.
class SpellingDictionaries {
public:
    /// Folders that are missing hold none. Of two dictionaries of one name the first folder's
    /// counts.
    explicit SpellingDictionaries(const std::vector<std::string>& folders);

    /// The languages: "en_US", or "eo" where no country is named. Dictionaries for the country
    /// where most people speak the language come first, then the others, both in alphabetical
    /// order. One that has several names is listed once.
    [[nodiscard]] const std::vector<std::string>& identifiers() const { return identifiers_; }

    /// The path of the dictionary for `language`, without the extensions; null when there is none.
    ///
    /// Any name of a dictionary is found. Otherwise "en", as well as "en_US", stands for the first
    /// one listed that begins so and goes on with "_".
    [[nodiscard]] const std::string* pathForLanguage(std::string_view language) const;

private:
    struct Dictionary {
        std::vector<std::string> names;
        std::string path;
    };

    std::vector<std::string> identifiers_;
    /// In the order of the identifiers.
    std::vector<Dictionary> dictionaries_;
};

}  // namespace platform
