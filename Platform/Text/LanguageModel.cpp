#include "Platform/Text/LanguageModel.h"

#include <algorithm>

#include "Platform/Text/LanguageLists.h"

namespace platform {
namespace {

const LanguageList& listFor(Script script) {
    return kLanguageLists[static_cast<std::size_t>(script)];
}

}  // namespace

std::span<const LanguageEvidence> LanguageModelTable::find(std::uint32_t hash) const noexcept {
    const std::size_t bucket = hash >> (32 - kBucketBits);
    for (std::size_t i = buckets[bucket]; i < buckets[bucket + 1]; i++) {
        if (keys[i] == hash) {
            return evidence.subspan(first[i], first[i + 1] - first[i]);
        }
    }
    return {};
}

std::span<const Language> languagesInScript(Script script) noexcept {
    return listFor(script).languages;
}

int placeOfLanguage(Script script, std::string_view code) noexcept {
    const auto& codes = listFor(script).codes;
    const auto found = std::lower_bound(
        codes.begin(), codes.end(), code,
        [](const CodeOfLanguage& row, std::string_view value) { return row.code < value; });
    return found != codes.end() && found->code == code ? found->place : -1;
}

std::uint64_t languagesWithLetter(Script script, char16_t letter) noexcept {
    const auto& letters = listFor(script).letters;
    const auto found = std::lower_bound(
        letters.begin(), letters.end(), letter,
        [](const LetterOfLanguages& row, char16_t value) { return row.letter < value; });
    return found != letters.end() && found->letter == letter ? found->languages : ~std::uint64_t{0};
}

}  // namespace platform
