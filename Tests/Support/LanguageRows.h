// Texts of known language, as tables of tab-separated lines: a language's code first, the text
// last.
//
// The tables come from several projects, which call some languages differently; here they have the
// platform's codes.

#pragma once

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Unicode.h"

namespace test {

struct LanguageRow {
    std::string language;
    std::u16string text;
};

/// The codes of the languages that the platform can name.
inline constexpr std::string_view kNamedLanguages[] = {
    "am", "ar", "bg", "bn", "bo", "ca", "chr", "cs",      "da",      "de", "el", "en",
    "es", "fa", "fi", "fr", "gu", "he", "hi",  "hr",      "hu",      "hy", "id", "is",
    "it", "ja", "ka", "kk", "km", "kn", "ko",  "lo",      "ml",      "mn", "mr", "ms",
    "my", "nb", "nl", "or", "pa", "pl", "pt",  "ro",      "ru",      "si", "sk", "sv",
    "ta", "te", "th", "tr", "uk", "ur", "vi",  "zh-Hans", "zh-Hant",
};

/// A label without a script stands for Chinese in either.
inline constexpr std::string_view kAnyChinese = "zh";

inline bool isNamedLanguage(std::string_view language) {
    return language == kAnyChinese ||
           std::find(std::begin(kNamedLanguages), std::end(kNamedLanguages), language) !=
               std::end(kNamedLanguages);
}

/// Whether the answer is right for a text of `language`; for one that cannot be named, "und" is.
inline bool isRightLanguage(std::string_view language, std::string_view answer) {
    if (!isNamedLanguage(language)) {
        return answer == "und";
    }
    return language == kAnyChinese ? answer.starts_with("zh-") : answer == language;
}

/// The platform's code for a code of the tables, or of CLD2's.
inline std::string platformLanguage(std::string_view code) {
    constexpr std::array<std::string_view, 2> kOthers[] = {
        {"iw", "he"}, {"no", "nb"}, {"nn", "nb"}};
    for (const auto& [other, ours] : kOthers) {
        if (code == other) {
            return std::string(ours);
        }
    }
    return std::string(code);
}

/// The rows of one table. A text that says that it is missing is left out.
inline std::vector<LanguageRow> languageRows(const std::filesystem::path& path) {
    std::vector<LanguageRow> rows;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        const std::string text = line.substr(line.rfind('\t') + 1);
        if (text != "[missing]") {
            rows.push_back({platformLanguage(line.substr(0, line.find('\t'))),
                            platform::utf16FromUtf8Lossy(text)});
        }
    }
    return rows;
}

/// Classes of texts by their lengths in UTF-16 units.
inline constexpr const char* kLengthClasses[] = {"below 10", "10 to 29", "30 to 99", "from 100"};

inline std::size_t lengthClassOf(const LanguageRow& row) {
    const std::size_t length = row.text.size();
    return length < 10 ? 0 : length < 30 ? 1 : length < 100 ? 2 : 3;
}

}  // namespace test
