#include "Packaging/generate/LanguageSource.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

#include "Platform/Foundation/Unicode.h"

namespace packaging {
namespace {

using platform::Fault;
using platform::FaultCode;
using platform::Result;
using platform::Script;

constexpr std::pair<std::string_view, Script> kScriptNames[] = {
    {"Latin", Script::Latin},           {"Cyrillic", Script::Cyrillic}, {"Arabic", Script::Arabic},
    {"Devanagari", Script::Devanagari}, {"Bengali", Script::Bengali},   {"Hebrew", Script::Hebrew},
    {"Ethiopic", Script::Ethiopic},
};

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(separator), text.size());
        if (end > 0) {
            parts.push_back(text.substr(0, end));
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return parts;
}

Script scriptNamed(std::string_view name) {
    const auto* const found = std::find_if(std::begin(kScriptNames), std::end(kScriptNames),
                                           [&](const auto& row) { return row.first == name; });
    return found == std::end(kScriptNames) ? Script::None : found->second;
}

/// Takes one field of a declaration; returns whether it makes sense.
bool takeField(LanguageRecord& language, std::string_view field) {
    if (field == "unnamed") {
        language.isNamed = false;
        return true;
    }
    const std::size_t equals = std::min(field.find('='), field.size() - 1);
    const std::string_view name = field.substr(0, equals);
    const std::string_view value = field.substr(equals + 1);
    if (name == "letters") {
        language.letters = platform::utf16FromUtf8Lossy(value);
    } else if (name == "data") {
        const auto models = split(value, ',');
        language.models.assign(models.begin(), models.end());
    } else if (name == "also") {
        for (const std::string_view alias : split(value, ',')) {
            language.aliases.emplace_back(alias);
        }
    } else if (name == "lead") {
        const char* const end = value.data() + value.size();
        return std::from_chars(value.data(), end, language.lead).ptr == end;
    } else {
        return false;
    }
    return true;
}

std::optional<LanguageRecord> declaredLanguage(const std::vector<std::string_view>& fields) {
    LanguageRecord language;
    if (fields.size() < 3) {
        return std::nullopt;
    }
    language.code = fields[1];
    language.script = scriptNamed(fields[2]);
    language.models = language.aliases = {language.code};
    const bool isSound = std::all_of(fields.begin() + 3, fields.end(), [&](std::string_view field) {
        return takeField(language, field);
    });
    return isSound && language.script != Script::None ? std::optional(std::move(language))
                                                      : std::nullopt;
}

/// Adds a word. As in a text, an apostrophe ends one and belongs to it, and U+200C ends one; a word
/// that is said to follow an apostrophe begins with it.
void addWord(LanguageRecord& language, std::u16string_view word) {
    const std::size_t end = word.find_first_of(u"'\u200C", 1);
    if (end != word.npos) {
        addWord(language, word.substr(end + 1));
        word = word.substr(0, end + (word[end] == u'\'' ? 1 : 0));
    }
    auto& words = language.words;
    if (!word.empty() && std::find(words.begin(), words.end(), word) == words.end()) {
        words.emplace_back(word);
    }
}

/// Takes the words of a line whose language is declared; returns whether it is.
bool takeWords(std::vector<LanguageRecord>& languages,
               const std::vector<std::string_view>& fields) {
    const auto language =
        std::find_if(languages.begin(), languages.end(),
                     [&](const LanguageRecord& row) { return row.code == fields.front(); });
    if (language == languages.end()) {
        return false;
    }
    for (std::size_t i = 1; i < fields.size(); i++) {
        addWord(*language, platform::utf16FromUtf8Lossy(fields[i]));
    }
    return true;
}

}  // namespace

Result<std::vector<LanguageRecord>> languagesFromText(std::string_view text) {
    std::vector<LanguageRecord> languages;
    std::size_t number = 0;
    while (!text.empty()) {
        number++;
        const std::size_t end = std::min(text.find('\n'), text.size());
        const auto fields = split(text.substr(0, end), ' ');
        text.remove_prefix(std::min(end + 1, text.size()));
        if (fields.empty() || fields.front().starts_with('#')) {
            continue;
        }
        if (fields.front() != "@" ? takeWords(languages, fields) : false) {
            continue;
        }
        auto language = fields.front() == "@" ? declaredLanguage(fields) : std::nullopt;
        if (!language) {
            return Fault{FaultCode::Malformed, "line " + std::to_string(number)};
        }
        languages.push_back(std::move(*language));
    }
    return languages;
}

}  // namespace packaging
