// Counts the words of texts, to compare what readers find in documents with what is expected.

#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "Platform/Foundation/Unicode.h"

namespace test {

/// Words and how often each occurs.
using Words = std::map<std::u16string, long>;

/// Whether a unit is a word of its own, because its script puts no blanks between words.
inline bool isUnspaced(char16_t unit) {
    return (unit >= 0x0E00 && unit <= 0x0EFF) || (unit >= 0x3040 && unit <= 0x30FF) ||
           (unit >= 0x3400 && unit <= 0x9FFF) || (unit >= 0xFF66 && unit <= 0xFF9F);
}

/// Whether a unit stands between words: ASCII without letters and digits, blanks and signs.
inline bool isBetweenWords(char16_t unit) {
    const bool isAsciiWord = (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'Z') ||
                             (unit >= u'a' && unit <= u'z') || unit == u'_';
    return (unit < 0x80 && !isAsciiWord) || (unit >= 0x80 && unit <= 0xBF) ||
           (unit >= 0xE000 && unit <= 0xF8FF) || (unit >= 0x2000 && unit <= 0x2BFF) ||
           (unit >= 0x3000 && unit <= 0x303F) || unit >= 0xFF00;
}

/// The words of a text. Layout, blanks and signs between them do not count.
inline Words wordsIn(std::u16string_view text) {
    Words words;
    std::u16string word;
    const auto finish = [&] {
        if (!word.empty()) {
            ++words[std::exchange(word, {})];
        }
    };
    constexpr char16_t kSoftHyphen = 0xAD;
    for (const char16_t unit : text) {
        if (isUnspaced(unit)) {
            finish();
            ++words[std::u16string(1, unit)];
        } else if (isBetweenWords(unit) && unit != kSoftHyphen) {
            finish();
        } else if (unit != kSoftHyphen) {
            word += unit;
        }
    }
    finish();
    return words;
}

/// The words that there are more of in `words` than in `others`, with how many more.
inline Words moreIn(const Words& words, const Words& others) {
    Words more;
    for (const auto& [word, count] : words) {
        const auto other = others.find(word);
        const long left = count - (other != others.end() ? other->second : 0);
        if (left > 0) {
            more[word] = left;
        }
    }
    return more;
}

/// Words for a message.
inline std::string list(const Words& words) {
    std::string text;
    for (const auto& [word, count] : words) {
        text += " " + platform::utf8FromUtf16(word) + "*" + std::to_string(count);
    }
    return text;
}

/// How many words there are in all.
inline long sum(const Words& words) {
    long all = 0;
    for (const auto& [word, count] : words) {
        all += count;
    }
    return all;
}

}  // namespace test
