#include "Platform/Text/RtfField.h"

#include <algorithm>

#include "Platform/Text/RtfCodePages.h"

namespace platform {
namespace {

struct Word {
    std::u16string text;
    bool isQuoted = false;
};

/// The words of an instruction. A backslash in quotes takes the next character as it is.
class Words {
public:
    explicit Words(std::u16string_view instruction) : rest_(instruction) {}

    std::optional<Word> next() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(u" \t\n"), rest_.size()));
        if (rest_.empty()) {
            return std::nullopt;
        }
        return rest_.front() == u'"' ? quoted() : bare();
    }

    std::u16string nextText() {
        auto word = next();
        return word ? std::move(word->text) : std::u16string();
    }

private:
    Word bare() {
        const std::size_t length = std::min(rest_.find_first_of(u" \t\n\""), rest_.size());
        Word word{std::u16string(rest_.substr(0, length))};
        rest_.remove_prefix(length);
        return word;
    }

    Word quoted() {
        Word word{{}, true};
        std::size_t at = 1;
        for (; at < rest_.size() && rest_[at] != u'"'; ++at) {
            at += rest_[at] == u'\\' && at + 1 < rest_.size() ? 1 : 0;
            word.text += rest_[at];
        }
        rest_.remove_prefix(std::min(at + 1, rest_.size()));
        return word;
    }

    std::u16string_view rest_;
};

/// Whether `word` is `name`, in any case of letters.
bool isNamed(std::u16string_view word, std::string_view name) {
    return std::equal(word.begin(), word.end(), name.begin(), name.end(),
                      [](char16_t unit, char letter) {
                          return unit == static_cast<char16_t>(letter) ||
                                 unit == static_cast<char16_t>(letter | 0x20);
                      });
}

/// The letter of a switch such as `\l`; 0 for other words.
char16_t switchOf(const Word& word) {
    const bool isSwitch = !word.isQuoted && word.text.size() == 2 && word.text[0] == u'\\';
    return isSwitch ? static_cast<char16_t>(word.text[1] | 0x20) : char16_t{0};
}

std::u16string linkOf(Words words) {
    std::u16string link;
    std::u16string place;
    while (const auto word = words.next()) {
        switch (switchOf(*word)) {
            case u'l':
                place = words.nextText();
                break;
            case u'o':  // what is shown beside the pointer
            case u't':  // the window that it opens in
                (void)words.next();
                break;
            case 0:
                link = link.empty() ? word->text : link;
                break;
            default:
                break;
        }
    }
    return place.empty() ? link : link + u"#" + place;
}

/// A number in decimal or, behind "0x", hexadecimal digits; none above 0xFFFF.
std::optional<unsigned> numberOf(std::u16string_view digits) {
    const bool isHexadecimal = digits.starts_with(u"0x") || digits.starts_with(u"0X");
    digits.remove_prefix(isHexadecimal ? 2 : 0);
    const unsigned base = isHexadecimal ? 16 : 10;
    constexpr std::u16string_view kDigits = u"0123456789abcdef";
    unsigned number = 0;
    for (const char16_t digit : digits) {
        const std::size_t value =
            kDigits.find(digit > u'9' ? static_cast<char16_t>(digit | 0x20) : digit);
        if (value >= base || number > 0xFFFF) {
            return std::nullopt;
        }
        number = number * base + static_cast<unsigned>(value);
    }
    return digits.empty() || number > 0xFFFF ? std::nullopt : std::optional(number);
}

std::optional<char16_t> symbolOf(Words words) {
    const auto number = numberOf(words.nextText());
    if (!number || *number < 0x20) {
        return std::nullopt;
    }
    std::u16string font;
    bool isUnicode = *number > 0xFF;
    while (const auto word = words.next()) {
        switch (switchOf(*word)) {
            case u'f':
                font = words.nextText();
                break;
            case u's':  // the size
                (void)words.next();
                break;
            case u'u':
                isUnicode = true;
                break;
            default:
                break;
        }
    }
    if (isUnicode) {
        return static_cast<char16_t>(*number);
    }
    RtfDecoder decoder;
    decoder.setCodePage(rtfCodePageOfPictures(font).value_or(kRtfDefaultCodePage));
    std::u16string symbol;
    const char byte = static_cast<char>(*number);
    decoder.append(symbol, {&byte, 1});
    return symbol.front();
}

}  // namespace

RtfField rtfField(std::u16string_view instruction) {
    Words words(instruction);
    const std::u16string name = words.nextText();
    if (isNamed(name, "HYPERLINK")) {
        return {linkOf(words), std::nullopt};
    }
    if (isNamed(name, "SYMBOL")) {
        return {{}, symbolOf(words)};
    }
    return {};
}

}  // namespace platform
