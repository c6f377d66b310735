// Text of sentences and paragraphs, the same each time.

#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace bench {

enum class Paragraphs : bool { One, Many };

/// Returns text of about `units` UTF-16 units: English words in sentences of 5 to 20 words, in
/// paragraphs of about six sentences or in a single one.
inline std::u16string sentencesOf(std::uint64_t units, Paragraphs paragraphs = Paragraphs::Many) {
    static constexpr std::u16string_view kWords[] = {
        u"the",    u"a",     u"keeper",  u"climbed",  u"steps",  u"every",     u"evening",
        u"and",    u"lit",   u"lamp",    u"that",     u"showed", u"ships",     u"their",
        u"way",    u"home",  u"while",   u"wind",     u"came",   u"from",      u"west",
        u"it's",   u"water", u"harbour", u"3.14",     u"stones", u"quietly",   u"because",
        u"nobody", u"would", u"have",    u"believed", u"him",    u"otherwise", u"light",
    };
    std::minstd_rand random;
    std::u16string text;
    text.reserve(units + 200);
    while (text.size() < units) {
        const std::size_t start = text.size();
        for (unsigned words = 5 + random() % 16; words > 0; --words) {
            text += kWords[random() % std::size(kWords)];
            text += words == 1 ? u"." : random() % 9 == 0 ? u", " : u" ";
        }
        text[start] = static_cast<char16_t>(text[start] - (text[start] >= u'a' ? 32 : 0));
        text += random() % 6 == 0 && paragraphs == Paragraphs::Many ? u'\n' : u' ';
    }
    return text;
}

}  // namespace bench
