// Finds the words, sentences and paragraphs around a cursor, and the languages of a text.
//
// All positions and lengths count UTF-16 units. A unit's range is its own text without the white
// space or separators that follow it. What is not there is NotFoundRange or absent. Texts of 2^31 -
// 1 units or more can be divided into paragraphs alone; for all else they raise
// InvalidArgumentException. Pure functions; any thread at once.
// Navigation costs what lies between the current range and the unit that is found, not what the
// text is long.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Sources/TextAnalysis/LanguageSegment.h"
#include "Sources/TextAnalysis/RangeFunctions.h"

namespace parlavox {

/// A sentence of fewer characters is too short for its language to be told.
inline constexpr std::uint64_t kMinimalSentenceLengthToDetectLanguage = 10;

/// How many characters on each side of a line-end hyphen are searched for a word.
inline constexpr std::uint64_t kMaxLengthToFindNextWord = 100;

/// Language codes in the order of preference. Absent when every language is allowed; an empty list
/// allows none.
using AllowedLanguages = std::optional<std::vector<std::string>>;

/// A class of class-level operations; there are no instances.
class TextAnalyzeUtils {
public:
    TextAnalyzeUtils() = delete;

    /// The search that all navigation is: goes to the unit that meets `fromRange` (the first one;
    /// with the reverse flag the last one), with `findNext` to the one behind it (before it), and
    /// from there on to the first one that is not blank.
    ///
    /// `withOptions` holds the platform's number of the unit (paragraphs 1, words 3, sentences 4;
    /// there are no others) and may hold its reverse flag, 0x100. An insertion point, a range of
    /// length 0, meets the unit that contains it or begins there; backwards, the one at the text's
    /// end takes the last unit that is not blank.
    ///
    /// Selector: rangeInString:fromRange:withOptions:findNext:
    [[nodiscard]] static Range rangeInString(std::u16string_view string, Range fromRange,
                                             unsigned withOptions, bool findNext);

    /// Selector: rangeOfCurrentWordInString:currentRange:
    [[nodiscard]] static Range rangeOfCurrentWordInString(std::u16string_view string,
                                                          Range currentRange);
    /// Selector: rangeOfNextWordInString:currentRange:
    [[nodiscard]] static Range rangeOfNextWordInString(std::u16string_view string,
                                                       Range currentRange);
    /// Goes to the start of the word that holds the cursor first, as all Previous operations do,
    /// and only from there to the one before it.
    ///
    /// Selector: rangeOfPreviousWordInString:currentRange:
    [[nodiscard]] static Range rangeOfPreviousWordInString(std::u16string_view string,
                                                           Range currentRange);
    /// Selector: rangeOfCurrentSentenceInString:currentRange:
    [[nodiscard]] static Range rangeOfCurrentSentenceInString(std::u16string_view string,
                                                              Range currentRange);
    /// Selector: rangeOfNextSentenceInString:currentRange:
    [[nodiscard]] static Range rangeOfNextSentenceInString(std::u16string_view string,
                                                           Range currentRange);
    /// Selector: rangeOfPreviousSentenceInString:currentRange:
    [[nodiscard]] static Range rangeOfPreviousSentenceInString(std::u16string_view string,
                                                               Range currentRange);
    /// Selector: rangeOfCurrentParagraphInString:currentRange:
    [[nodiscard]] static Range rangeOfCurrentParagraphInString(std::u16string_view string,
                                                               Range currentRange);
    /// Selector: rangeOfNextParagraphInString:currentRange:
    [[nodiscard]] static Range rangeOfNextParagraphInString(std::u16string_view string,
                                                            Range currentRange);
    /// Selector: rangeOfPreviousParagraphInString:currentRange:
    [[nodiscard]] static Range rangeOfPreviousParagraphInString(std::u16string_view string,
                                                                Range currentRange);

    /// Whether nothing is left of a string without white space and newlines at both ends; an absent
    /// string is empty.
    ///
    /// Selector: isStringEmpty:
    [[nodiscard]] static bool isStringEmpty(std::optional<std::u16string_view> string);

    /// Cuts a text into segments of one language each, in order and without gaps, neighbours of
    /// different languages. Nothing when no stretch of it has an allowed language.
    ///
    /// Selector: languageSegmentsForString:allowedLanguageCodes:
    [[nodiscard]] static std::optional<std::vector<std::shared_ptr<LanguageSegment>>>
    languageSegmentsForString(std::u16string_view string,
                              const AllowedLanguages& allowedLanguageCodes);

    /// Returns the language at a position, which it looks for in a few sentences there, then
    /// backwards and then forwards. The text's end stands for its last character; nothing beyond it
    /// and where no language is found.
    ///
    /// Selector: languageCodeForString:atLocation:allowedLanguageCodes:
    [[nodiscard]] static std::optional<std::string> languageCodeForString(
        std::u16string_view string, std::uint64_t atLocation,
        const AllowedLanguages& allowedLanguageCodes);

    /// Where the span begins whose language is asked for `targetLocation`: behind the nearest
    /// sentence before it that is long enough for a language of its own.
    ///
    /// Raises RangeException for a location beyond 10 that does not lie in the text.
    ///
    /// Selector: startLocationForDeterminingLanguageSegmentsForString:targetLocation:
    [[nodiscard]] static std::uint64_t startLocationForDeterminingLanguageSegmentsForString(
        std::u16string_view string, std::uint64_t targetLocation);

    /// Where that span ends: behind the first sentence, or run of short sentences, from
    /// `startLocation` on that is long enough and ends behind `atLocation`.
    ///
    /// Raises RangeException when the start does not lie in the text.
    ///
    /// Selector: endLocationForDeterminingLanguageSegmentsForString:atLocation:startLocation:
    [[nodiscard]] static std::uint64_t endLocationForDeterminingLanguageSegmentsForString(
        std::u16string_view string, std::uint64_t atLocation, std::uint64_t startLocation);

    /// Returns the first allowed language that the code begins with, as en begins en-GB but not
    /// eng; nothing when there is none.
    ///
    /// Selector: languageForLanguageWithCode:fromAllowedLanguages:
    [[nodiscard]] static std::optional<std::string> languageForLanguageWithCode(
        const std::string& code, const AllowedLanguages& fromAllowedLanguages);
};

}  // namespace parlavox
