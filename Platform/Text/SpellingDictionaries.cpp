#include "Platform/Text/SpellingDictionaries.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <system_error>
#include <tuple>
#include <utility>

namespace platform {
namespace {

/// The country where most people speak a language, where it is not named as the language is.
constexpr std::array<std::pair<std::string_view, std::string_view>, 46> kCountries = {{
    {"af", "ZA"}, {"an", "ES"}, {"ar", "EG"}, {"be", "BY"}, {"bn", "BD"}, {"bo", "CN"},
    {"br", "FR"}, {"bs", "BA"}, {"ca", "ES"}, {"cs", "CZ"}, {"da", "DK"}, {"dz", "BT"},
    {"el", "GR"}, {"en", "US"}, {"et", "EE"}, {"eu", "ES"}, {"fa", "IR"}, {"fil", "PH"},
    {"ga", "IE"}, {"gd", "GB"}, {"gl", "ES"}, {"gu", "IN"}, {"he", "IL"}, {"hi", "IN"},
    {"hy", "AM"}, {"ja", "JP"}, {"ka", "GE"}, {"kk", "KZ"}, {"ko", "KR"}, {"lo", "LA"},
    {"ml", "IN"}, {"nb", "NO"}, {"ne", "NP"}, {"nn", "NO"}, {"oc", "FR"}, {"pt", "BR"},
    {"si", "LK"}, {"sl", "SI"}, {"sq", "AL"}, {"sr", "RS"}, {"sv", "SE"}, {"sw", "TZ"},
    {"te", "IN"}, {"uk", "UA"}, {"vi", "VN"}, {"zh", "CN"},
}};

constexpr std::size_t kShortestLanguage = 2;
constexpr std::size_t kLongestLanguage = 3;

bool isLower(char character) {
    return character >= 'a' && character <= 'z';
}

/// The language that `name` begins with; empty when it does not begin with one.
std::string_view languageOf(std::string_view name) {
    const auto end = std::find_if_not(name.begin(), name.end(), isLower);
    const auto length = static_cast<std::size_t>(end - name.begin());
    const bool isLanguage = length >= kShortestLanguage && length <= kLongestLanguage &&
                            (end == name.end() || *end == '_');
    return isLanguage ? name.substr(0, length) : std::string_view();
}

/// Whether the language alone, without a country, would mean a dictionary of that name.
bool isDefault(std::string_view identifier) {
    const std::string_view language = languageOf(identifier);
    if (identifier == language) {
        return true;
    }
    const std::string_view country = identifier.substr(language.size() + 1);
    const auto* const row =
        std::find_if(kCountries.begin(), kCountries.end(),
                     [&](const auto& other) { return other.first == language; });
    if (row != kCountries.end()) {
        return country == row->second;
    }
    return std::equal(country.begin(), country.end(), language.begin(), language.end(),
                      [](char upper, char lower) { return upper + ('a' - 'A') == lower; });
}

std::string withUnderscores(std::string_view language) {
    std::string identifier(language);
    std::replace(identifier.begin(), identifier.end(), '-', '_');
    return identifier;
}

/// Which file a path leads to.
using FileIdentity = std::pair<dev_t, ino_t>;

std::optional<FileIdentity> identityOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    return FileIdentity{status.st_dev, status.st_ino};
}

/// A name of a dictionary.
struct Found {
    std::string identifier;
    std::string path;
    bool isLink = false;

    /// What decides which of its names a dictionary is listed under, and where.
    [[nodiscard]] auto order() const {
        return std::tuple(!isDefault(identifier), isLink, std::string_view(identifier));
    }
};

/// The names of each dictionary, by its two files.
using FoundByFiles = std::map<std::pair<FileIdentity, FileIdentity>, std::vector<Found>>;

void collect(const std::string& folder, FoundByFiles& found, std::set<std::string>& taken) {
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::filesystem::path& file = entry->path();
        std::string identifier = withUnderscores(file.stem().string());
        if (file.extension() != ".dic" || languageOf(identifier).empty()) {
            continue;
        }
        const std::string path = folder + "/" + file.stem().string();
        const auto affixes = identityOf(path + ".aff");
        const auto words = identityOf(file.string());
        if (affixes && words && taken.insert(identifier).second) {
            std::error_code ignored;
            found[{*affixes, *words}].push_back(
                {std::move(identifier), path, std::filesystem::is_symlink(file, ignored)});
        }
    }
}

}  // namespace

SpellingDictionaries::SpellingDictionaries(const std::vector<std::string>& folders) {
    FoundByFiles found;
    std::set<std::string> taken;
    for (const std::string& folder : folders) {
        collect(folder, found, taken);
    }
    const auto precedes = [](const Found& first, const Found& second) {
        return first.order() < second.order();
    };
    std::vector<std::pair<Found, Dictionary>> sorted;
    for (const auto& [files, names] : found) {
        const Found& first = *std::min_element(names.begin(), names.end(), precedes);
        Dictionary dictionary{{}, first.path};
        for (const Found& name : names) {
            dictionary.names.push_back(name.identifier);
        }
        sorted.emplace_back(Found{first.identifier, first.path}, std::move(dictionary));
    }
    std::sort(sorted.begin(), sorted.end(), [&](const auto& first, const auto& second) {
        return precedes(first.first, second.first);
    });
    for (auto& [name, dictionary] : sorted) {
        identifiers_.push_back(std::move(name.identifier));
        dictionaries_.push_back(std::move(dictionary));
    }
}

const std::string* SpellingDictionaries::pathForLanguage(std::string_view language) const {
    const std::string wanted = withUnderscores(language);
    for (const Dictionary& dictionary : dictionaries_) {
        const auto& names = dictionary.names;
        if (std::find(names.begin(), names.end(), wanted) != names.end()) {
            return &dictionary.path;
        }
    }
    const std::string start = wanted + "_";
    for (std::size_t i = 0; !wanted.empty() && i < identifiers_.size(); ++i) {
        if (identifiers_[i].starts_with(start)) {
            return &dictionaries_[i].path;
        }
    }
    return nullptr;
}

}  // namespace platform
