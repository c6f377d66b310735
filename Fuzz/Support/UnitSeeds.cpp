// Texts with a range in each.

#include <string_view>

#include "Fuzz/Support/Seeds.h"

namespace fuzz {
namespace {

using platform::Data;

/// What the target takes: a range, options, and the text.
Data question(std::uint32_t location, std::uint32_t length, std::uint8_t options,
              std::u16string_view text) {
    std::string bytes;
    for (const std::uint32_t number : {location, length}) {
        for (unsigned shift = 0; shift < 32; shift += 8) {
            bytes += static_cast<char>(number >> shift & 0xFF);
        }
    }
    bytes += static_cast<char>(options);
    return Data::copyOf(bytes + littleEndianBytes(text));
}

}  // namespace

std::vector<Seed> textAnalysisSeeds() {
    constexpr std::uint8_t kWords = 3;
    constexpr std::uint8_t kSentences = 4;
    constexpr std::uint8_t kParagraphs = 1;
    constexpr std::uint8_t kReverse = 8;
    return {
        {"words", question(4, 1, kWords, u"One two three. And so on, isn't it?")},
        {"sentences-reverse",
         question(20, 9, kSentences | kReverse, u"The first one is here.  The second one is not.")},
        {"two-languages",
         question(3, 0, kSentences,
                  u"This sentence is written in English. Dieser Satz ist auf Deutsch "
                  u"geschrieben worden. Yes. Und noch einer davon, damit es reicht.")},
        {"paragraph-ends", question(2, 3, kParagraphs, u"a\r\nb\r\rc\n\n \u2029d\u2028e\u0085")},
        {"scripts", question(1, 2, kWords,
                             u"\u6BCE\u665A\u3001\u767B\u308A \u0E2A\u0E27\u0E31\u0E2A\u0E14\u0E35 "
                             u"\uC548\uB155 \u05E9\u05DC\u05D5\u05DD \U0001F468\u200D\U0001F469")},
        {"lone-surrogates", question(1, 1, kWords, u"\xDE00\xD83D\xD83D\xDE00 a\xD83D")},
        {"no-language", question(0, 0, kSentences, u"12 34. 56? 78! 90.")},
        {"blank", question(1, 1, kParagraphs | kReverse, u" \n\t\u3000\n")},
    };
}

}  // namespace fuzz
