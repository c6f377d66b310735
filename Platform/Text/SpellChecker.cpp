#include "Platform/Text/SpellChecker.h"

#include <new>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/CharacterSet.h"
#include "Platform/Text/Modules/SpellingModule.h"
#include "Platform/Text/SubstringEnumeration.h"

namespace platform {
namespace {

bool hasLetter(std::u16string_view word) {
    for (std::size_t i = 0; i < word.size(); ++i) {
        char32_t codePoint = word[i];
        if (isHighSurrogate(word[i]) && i + 1 < word.size() && isLowSurrogate(word[i + 1])) {
            codePoint = 0x10000 + ((codePoint & 0x3FF) << 10) + (word[++i] & 0x3FF);
        }
        if (isLetter(codePoint)) {
            return true;
        }
    }
    return false;
}

bool isMisspelled(std::u16string_view word, const std::string& dictionaryPath) {
    if (!hasLetter(word)) {
        return false;
    }
    const auto& functions = moduleFunctions<SpellingFunctions>();
    const SpellingVerdict verdict =
        functions.check(dictionaryPath.c_str(), word.data(), word.size());
    if (verdict == SpellingVerdict::NoMemory) {
        throw std::bad_alloc();
    }
    return verdict == SpellingVerdict::Misspelled;
}

}  // namespace

SpellChecker SpellChecker::sharedSpellChecker() {
    return SpellChecker({"/usr/share/hunspell", "/usr/share/myspell/dicts"});
}

Range SpellChecker::checkSpellingOfString(std::u16string_view string, std::uint64_t startingAt,
                                          std::string_view language) const {
    if (startingAt > string.size()) {
        raise(RangeException("a start at " + std::to_string(startingAt) + " of a text of " +
                             std::to_string(string.size()) + " units"));
    }
    Range misspelled{kNotFound, 0};
    const std::string* const path = dictionaries_.pathForLanguage(language);
    if (path == nullptr) {
        return misspelled;
    }
    enumerateSubstringsInRange(string, {startingAt, string.size() - startingAt},
                               static_cast<unsigned>(TextUnitKind::Word),
                               [&](const EnumeratedSubstring& word, bool& stop) {
                                   stop = isMisspelled(*word.substring, *path);
                                   if (stop) {
                                       misspelled = word.substringRange;
                                   }
                               });
    return misspelled;
}

}  // namespace platform
