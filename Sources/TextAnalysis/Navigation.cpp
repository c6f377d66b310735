// The units around a cursor.

#include <algorithm>

#include "Platform/Text/CharacterSet.h"
#include "Platform/Text/SubstringEnumeration.h"
#include "Platform/Text/TextUnits.h"
#include "Sources/TextAnalysis/TextAnalyzeUtils.h"

namespace parlavox {

using platform::kEnumerationReverse;
using platform::TextUnitKind;
using platform::TextUnits;

namespace {

/// A walk over a text's units in one direction.
class Walk {
public:
    Walk(std::u16string_view string, TextUnitKind kind, bool isReverse)
        : string_(string), units_(TextUnits::over(string, kind)), isReverse_(isReverse) {}

    /// Goes to where the walk begins.
    bool begin() { return isReverse_ ? units_->moveToLast() : units_->moveToFirst(); }

    /// Goes to the first unit of the walk that meets `range`.
    bool beginAtUnitThatMeets(Range range) {
        if (!units_->moveTo(characterThatIsMetFirst(range))) {
            return false;
        }
        const bool endsBeyond64Bits = range.end() < range.location;
        return !endsBeyond64Bits ||
               PVIntersectionRange(units_->enclosingRange(), range) != NotFoundRange;
    }

    bool goOn() { return isReverse_ ? units_->moveToPrevious() : units_->moveToNext(); }

    /// The range of the unit that it is at, or of the first one from there on that is not blank.
    Range firstNotBlank() {
        do {
            const Range range = units_->substringRange();
            if (!TextAnalyzeUtils::isStringEmpty(string_.substr(range.location, range.length))) {
                return range;
            }
        } while (goOn());
        return NotFoundRange;
    }

private:
    /// Enclosing ranges follow one another without gaps, so the unit that holds this character is
    /// the one that a walk from the text's end would find.
    [[nodiscard]] std::uint64_t characterThatIsMetFirst(Range range) const {
        const bool hasLast = range.location < string_.size() && range.end() > range.location;
        return isReverse_ && hasLast ? std::min<std::uint64_t>(range.end(), string_.size()) - 1
                                     : range.location;
    }

    const std::u16string_view string_;
    const std::unique_ptr<TextUnits> units_;
    const bool isReverse_;
};

Range current(std::u16string_view string, Range range, TextUnitKind kind) {
    return TextAnalyzeUtils::rangeInString(string, range, static_cast<unsigned>(kind), false);
}

Range next(std::u16string_view string, Range range, TextUnitKind kind) {
    return TextAnalyzeUtils::rangeInString(string, range, static_cast<unsigned>(kind), true);
}

Range previous(std::u16string_view string, Range range, TextUnitKind kind) {
    const unsigned options = static_cast<unsigned>(kind) | kEnumerationReverse;
    const Range found = TextAnalyzeUtils::rangeInString(string, range, options, false);
    return found.location == range.location
               ? TextAnalyzeUtils::rangeInString(string, range, options, true)
               : found;
}

}  // namespace

Range TextAnalyzeUtils::rangeInString(std::u16string_view string, Range fromRange,
                                      unsigned withOptions, bool findNext) {
    const std::optional<TextUnitKind> kind = platform::textUnitKindIn(withOptions);
    if (fromRange == NotFoundRange || !kind) {
        return NotFoundRange;
    }
    const bool isReverse = (withOptions & kEnumerationReverse) != 0;
    Walk walk(string, *kind, isReverse);
    // An insertion point at the end of the text meets no unit; backwards all lie before it.
    if (isReverse && fromRange == Range{string.size(), 0}) {
        return walk.begin() ? walk.firstNotBlank() : NotFoundRange;
    }
    const bool isAtUnit = walk.beginAtUnitThatMeets(fromRange) && (!findNext || walk.goOn());
    return isAtUnit ? walk.firstNotBlank() : NotFoundRange;
}

Range TextAnalyzeUtils::rangeOfCurrentWordInString(std::u16string_view string, Range currentRange) {
    return current(string, currentRange, TextUnitKind::Word);
}

Range TextAnalyzeUtils::rangeOfNextWordInString(std::u16string_view string, Range currentRange) {
    return next(string, currentRange, TextUnitKind::Word);
}

Range TextAnalyzeUtils::rangeOfPreviousWordInString(std::u16string_view string,
                                                    Range currentRange) {
    return previous(string, currentRange, TextUnitKind::Word);
}

Range TextAnalyzeUtils::rangeOfCurrentSentenceInString(std::u16string_view string,
                                                       Range currentRange) {
    return current(string, currentRange, TextUnitKind::Sentence);
}

Range TextAnalyzeUtils::rangeOfNextSentenceInString(std::u16string_view string,
                                                    Range currentRange) {
    return next(string, currentRange, TextUnitKind::Sentence);
}

Range TextAnalyzeUtils::rangeOfPreviousSentenceInString(std::u16string_view string,
                                                        Range currentRange) {
    return previous(string, currentRange, TextUnitKind::Sentence);
}

Range TextAnalyzeUtils::rangeOfCurrentParagraphInString(std::u16string_view string,
                                                        Range currentRange) {
    return current(string, currentRange, TextUnitKind::Paragraph);
}

Range TextAnalyzeUtils::rangeOfNextParagraphInString(std::u16string_view string,
                                                     Range currentRange) {
    return next(string, currentRange, TextUnitKind::Paragraph);
}

Range TextAnalyzeUtils::rangeOfPreviousParagraphInString(std::u16string_view string,
                                                         Range currentRange) {
    return previous(string, currentRange, TextUnitKind::Paragraph);
}

bool TextAnalyzeUtils::isStringEmpty(std::optional<std::u16string_view> string) {
    return !string || platform::stringByTrimmingWhitespaceAndNewlines(*string).empty();
}

}  // namespace parlavox
