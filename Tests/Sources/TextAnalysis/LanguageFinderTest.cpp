#include "Sources/TextAnalysis/LanguageFinder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/SubstringEnumeration.h"

namespace parlavox {
namespace {

using Code = std::optional<std::string>;
using platform::EnumeratedSubstring;

constexpr auto kSentences = static_cast<unsigned>(platform::TextUnitKind::Sentence);

/// A text is in English behind an x and in German behind a y; without them it has no language.
std::string tagged(std::u16string_view stretch) {
    const std::size_t sign = stretch.find_first_of(u"xy");
    if (sign == std::u16string_view::npos) {
        return "und";
    }
    return stretch[sign] == u'x' ? "en-GB" : "de";
}

std::size_t tagCount = 0;
std::size_t taggedUnits = 0;

std::string countedTag(std::u16string_view stretch) {
    ++tagCount;
    taggedUnits += stretch.size();
    return tagged(stretch);
}

/// The rule as it is told, step by step and without a memory.
class Model {
public:
    Model(std::u16string_view string, const AllowedLanguages& allowed)
        : string_(string), allowed_(allowed) {}

    [[nodiscard]] Code languageAt(std::uint64_t location) const {
        if (string_.empty() || location > string_.size()) {
            return std::nullopt;
        }
        location = std::min<std::uint64_t>(location, string_.size() - 1);
        std::uint64_t start = startFor(location);
        const std::uint64_t firstEnd = endFor(location, start);
        std::uint64_t end = firstEnd;
        Code code = codes(start, end).back();
        while (!code && start > 0) {
            end = start;
            start = startFor(start - 1);
            code = codes(start, end).back();
        }
        for (std::uint64_t from = firstEnd; !code && from < string_.size(); from = end) {
            end = endFor(from, from);
            code = codes(from, end).front();
        }
        return code;
    }

    [[nodiscard]] std::uint64_t startFor(std::uint64_t target) const {
        if (target <= 10) {
            return 0;
        }
        std::uint64_t start = 0;
        platform::enumerateSubstringsInRange(
            string_, {0, target + 1}, kSentences | platform::kEnumerationReverse,
            [&](const EnumeratedSubstring& sentence, bool& stop) {
                const Range enclosing = sentence.enclosingRange;
                const bool holdsTarget = enclosing.location <= target && target < enclosing.end();
                if (!isBlank(sentence) && sentence.substring->size() >= 10 && !holdsTarget) {
                    start = enclosing.end();
                    stop = true;
                }
            });
        return start;
    }

    [[nodiscard]] std::uint64_t endFor(std::uint64_t location, std::uint64_t start) const {
        std::uint64_t result = string_.size();
        std::uint64_t p = 0;
        std::uint64_t q = 0;
        platform::enumerateSubstringsInRange(string_, {start, string_.size() - start}, kSentences,
                                             [&](const EnumeratedSubstring& sentence, bool& stop) {
                                                 const std::uint64_t end =
                                                     sentence.enclosingRange.end();
                                                 if (isBlank(sentence)) {
                                                     return;
                                                 }
                                                 if (p != 0) {
                                                     if (sentence.substringRange.end() - q >= 10) {
                                                         stop = location < end;
                                                         p = 0;
                                                         q = 0;
                                                     }
                                                 } else if (sentence.substring->size() < 10) {
                                                     q = sentence.substringRange.location;
                                                     p = sentence.enclosingRange.location;
                                                 } else {
                                                     stop = location < end;
                                                 }
                                                 result = stop ? end : result;
                                             });
        return result;
    }

private:
    static bool isBlank(const EnumeratedSubstring& sentence) {
        return TextAnalyzeUtils::isStringEmpty(sentence.substring);
    }

    /// The languages of the segments of a span; one that is none when there are no segments.
    [[nodiscard]] std::vector<Code> codes(std::uint64_t start, std::uint64_t end) const {
        const std::u16string_view span = string_.substr(start, end - start);
        std::vector<Code> acceptable;
        for (const Range& chunk : chunksOf(span)) {
            std::string tag = tagged(span.substr(chunk.location, chunk.length));
            if (allowed_) {
                tag = TextAnalyzeUtils::languageForLanguageWithCode(tag, allowed_).value_or("und");
            }
            if (tag != "und") {
                acceptable.push_back(std::move(tag));
            }
        }
        return acceptable.empty() ? std::vector<Code>{std::nullopt} : acceptable;
    }

    static std::vector<Range> chunksOf(std::u16string_view span) {
        std::vector<Range> chunks;
        std::uint64_t p = 0;
        std::uint64_t q = 0;
        const auto append = [&](std::uint64_t start, std::uint64_t end) {
            start = chunks.empty() ? 0 : start;
            chunks.push_back({start, end - start});
        };
        platform::enumerateSubstringsInRange(span, {0, span.size()}, kSentences,
                                             [&](const EnumeratedSubstring& sentence, bool&) {
                                                 const Range own = sentence.substringRange;
                                                 const Range enclosing = sentence.enclosingRange;
                                                 if (isBlank(sentence)) {
                                                     p = p == 0 ? enclosing.location : p;
                                                 } else if (p == 0 && own.length < 10) {
                                                     q = own.location;
                                                     p = enclosing.location;
                                                 } else if (p == 0) {
                                                     append(enclosing.location, enclosing.end());
                                                 } else if (own.end() - q >= 10) {
                                                     append(p, enclosing.end());
                                                     p = 0;
                                                     q = 0;
                                                 }
                                             });
        if (chunks.empty()) {
            return {{0, span.size()}};
        }
        chunks.back().length = span.size() - chunks.back().location;
        return chunks;
    }

    const std::u16string_view string_;
    const AllowedLanguages allowed_;
};

/// Texts of many short and some longer sentences, with what makes ends of sentences doubtful.
class RandomText {
public:
    explicit RandomText(unsigned seed) : random_(seed) {}

    std::u16string next() {
        static const std::vector<std::u16string> kPieces = {u"a",
                                                            u"abc",
                                                            u"B",
                                                            u"\u00C9",
                                                            u"1",
                                                            u"12",
                                                            u" ",
                                                            u" ",
                                                            u"  ",
                                                            u".",
                                                            u". ",
                                                            u"! ",
                                                            u"? ",
                                                            u"\n",
                                                            u"\n\n",
                                                            u"\r\n",
                                                            u"\u2029",
                                                            u",",
                                                            u", ",
                                                            u"- ",
                                                            u")",
                                                            u"\"",
                                                            u"\u0301",
                                                            u"\u3042",
                                                            u"\u3002",
                                                            u"\U0001F600",
                                                            u"\U0001D400",
                                                            u"\xD83D",
                                                            u"\u0661",
                                                            u"\u0627",
                                                            u"e.g. ",
                                                            u"A. ",
                                                            u"3. ",
                                                            u"\u00AD",
                                                            u"\u200B",
                                                            u"\uFF9E",
                                                            u"\u24D0",
                                                            u"1-",
                                                            u"abcdefghijk. ",
                                                            u"Abc defghi jk. "};
        std::u16string text;
        const std::size_t pieces = random_() % 60;
        // Some texts have more languages than others, many have none.
        const std::size_t signs = random_() % 3;
        for (std::size_t i = 0; i < pieces; ++i) {
            text += kPieces[random_() % kPieces.size()];
            if (signs != 0 && random_() % (signs * 15) == 0) {
                text += random_() % 2 == 0 ? u'x' : u'y';
            }
        }
        return text;
    }

    std::uint64_t below(std::uint64_t bound) { return random_() % bound; }

private:
    std::mt19937 random_;
};

TEST(LanguageFinder, AnswersAsTheRuleDoes) {
    RandomText random(1);
    for (int round = 0; round < 500; ++round) {
        const std::u16string text = random.next();
        SCOPED_TRACE(platform::utf8FromUtf16(text));
        for (const AllowedLanguages& allowed :
             {AllowedLanguages(), AllowedLanguages({"en", "fr"}), AllowedLanguages({"de"})}) {
            const Model model(text, allowed);
            LanguageFinder ascending(text, allowed, tagged);
            LanguageFinder anyOrder(text, allowed, tagged);
            for (std::uint64_t location = 0; location <= text.size() + 1; ++location) {
                ASSERT_EQ(ascending.languageCodeAtLocation(location), model.languageAt(location))
                    << "at " << location;
                const std::uint64_t other = random.below(text.size() + 2);
                ASSERT_EQ(anyOrder.languageCodeAtLocation(other), model.languageAt(other))
                    << "at " << other;
            }
        }
    }
}

TEST(LanguageFinder, SpansBeginAndEndAsTheRuleHasIt) {
    RandomText random(2);
    for (int round = 0; round < 500; ++round) {
        const std::u16string text = random.next();
        SCOPED_TRACE(platform::utf8FromUtf16(text));
        if (text.empty()) {
            continue;
        }
        const AllowedLanguages all;
        const Model model(text, all);
        LanguageSpanStarts starts(text);
        LanguageSpanStarts startsInAnyOrder(text);
        for (std::uint64_t location = 0; location < text.size(); ++location) {
            const std::uint64_t start = model.startFor(location);
            ASSERT_EQ(starts.startFor(location), start) << "at " << location;
            ASSERT_EQ(TextAnalyzeUtils::startLocationForDeterminingLanguageSegmentsForString(
                          text, location),
                      start)
                << "at " << location;
            const std::uint64_t other = random.below(text.size());
            ASSERT_EQ(startsInAnyOrder.startFor(other), model.startFor(other)) << "at " << other;
        }
        const std::uint64_t start = random.below(text.size() + 1);
        LanguageSpanEnds ends(text, start);
        LanguageSpanEnds endsInAnyOrder(text, start);
        for (std::uint64_t location = 0; location <= text.size() + 1; ++location) {
            ASSERT_EQ(ends.endFor(location), model.endFor(location, start)) << "at " << location;
            const std::uint64_t other = random.below(text.size() + 2);
            ASSERT_EQ(endsInAnyOrder.endFor(other), model.endFor(other, start)) << "at " << other;
        }
    }
}

TEST(LanguageFinder, AwholeTextWithoutAlanguageIsLookedAtFewTimes) {
    const std::vector<std::u16string> sentences = {
        u"a- b\n", u"a- b c. ", u"A- b and so on until here. ", u"a- b ", u"1- 2\n\n",
    };
    for (const std::u16string& sentence : sentences) {
        SCOPED_TRACE(platform::utf8FromUtf16(sentence));
        std::u16string text;
        while (text.size() < 20'000) {
            text += sentence;
        }
        LanguageFinder finder(text, std::nullopt, countedTag);
        taggedUnits = 0;
        for (std::size_t at = 0; at != std::u16string::npos; at = text.find(u'-', at + 1)) {
            ASSERT_EQ(finder.languageCodeAtLocation(at), std::nullopt);
        }
        EXPECT_LE(taggedUnits, 12 * text.size());
    }
}

TEST(LanguageFinder, OneSpanIsAskedOnce) {
    const std::u16string text = u"The x is here, and here, and here it is. The y is there.";
    LanguageFinder finder(text, std::nullopt, countedTag);
    tagCount = 0;
    for (std::uint64_t location = 0; location < 40; ++location) {
        EXPECT_EQ(finder.languageCodeAtLocation(location), "en-GB");
    }
    EXPECT_EQ(tagCount, 1U);
}

}  // namespace
}  // namespace parlavox
