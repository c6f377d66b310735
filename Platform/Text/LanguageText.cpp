#include "Platform/Text/LanguageText.h"

#include <algorithm>
#include <utility>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/HanForms.h"

namespace platform {
namespace {

/// Takes the next character off `text`; a lone surrogate counts as one.
char32_t takeCharacter(std::u16string_view& text) {
    const char16_t unit = text.front();
    text.remove_prefix(1);
    if (isHighSurrogate(unit) && !text.empty() && isLowSurrogate(text.front())) {
        const char16_t low = text.front();
        text.remove_prefix(1);
        return 0x10000u + ((unit & 0x3FFu) << 10) + (low & 0x3FFu);
    }
    return unit;
}

bool isApostrophe(char32_t character) {
    return character == u'\'' || character == u'\u2019' || character == u'\u02BC';
}

/// Puts words together, letter by letter.
class WordCollector {
public:
    explicit WordCollector(LanguageText& text) : text_(text) {}

    void addLetter(char16_t letter) {
        text_.letters += smallLetter(letter);
        length_++;
    }

    /// A mark without a letter is dropped.
    void addMark(char16_t mark) {
        if (length_ > 0) {
            addLetter(mark);
        }
    }

    /// Ends the word, if there is one, before a character that belongs to none.
    void endWord(bool isApostrophe) {
        if (length_ > 0) {
            const auto end = static_cast<std::uint32_t>(text_.letters.size());
            text_.words.push_back({end - length_, length_, isBehindApostrophe_, isApostrophe});
            text_.letters += u'_';
        }
        length_ = 0;
        isBehindApostrophe_ = isApostrophe;
    }

private:
    LanguageText& text_;
    std::uint32_t length_ = 0;
    bool isBehindApostrophe_ = false;
};

}  // namespace

LetterCounts countLetters(std::u16string_view text) {
    LetterCounts counts;
    std::uint32_t all = 0;
    Script last = Script::None;
    bool isInName = false;
    while (!text.empty() && all < kMostLanguageLetters) {
        const char32_t character = takeCharacter(text);
        const Script script = scriptOf(character);
        counts.letters[static_cast<std::size_t>(script)]++;
        if (script == Script::Mark) {
            continue;
        }
        const bool isInWord = script == std::exchange(last, script);
        if (script == Script::Latin) {
            isInName = isInWord ? isInName : isCapital(static_cast<char16_t>(character));
            counts.latinInNames += isInName ? 1 : 0;
        } else if (script == Script::Han) {
            counts.hanForms[static_cast<std::size_t>(hanForm(character))]++;
        }
        all += script == Script::None ? 0 : 1;
    }
    return counts;
}

LanguageText wordsInScript(std::u16string_view text, Script script) {
    LanguageText words;
    words.letters.reserve(std::min(text.size(), kMostLanguageLetters) + 2);
    WordCollector collector(words);
    while (!text.empty() && words.letters.size() < kMostLanguageLetters) {
        const char32_t character = takeCharacter(text);
        const Script its = scriptOf(character);
        // Letters of shared scripts and marks are one unit each.
        if (its == script) {
            collector.addLetter(static_cast<char16_t>(character));
        } else if (its == Script::Mark) {
            collector.addMark(static_cast<char16_t>(character));
        } else {
            collector.endWord(isApostrophe(character));
        }
    }
    collector.endWord(false);
    return words;
}

}  // namespace platform
