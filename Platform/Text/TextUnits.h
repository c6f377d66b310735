// The units of a text: its paragraphs, sentences or words, in order and by position.
//
// A paragraph ends with CR, LF, both in a row or U+2029. Sentences and words are those of Unicode's
// text segmentation as the root locale has it; white space, punctuation and symbols are no words.
// To go to a unit costs what lies between its ends and a few hundred units before, not what the
// text is long; where nothing but punctuation stands, or a script is written without spaces, also
// what lies between it and the next letter, space or line end before. An object belongs to one
// thread at a time; its text must stay as it is while the object lives.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "Platform/Foundation/Range.h"

namespace platform {

/// The platform's numbers for units.
enum class TextUnitKind : std::uint8_t { Paragraph = 1, Word = 3, Sentence = 4 };

/// Returns the kind of units in the platform's options for enumeration, their low byte; nothing for
/// one that is not offered.
[[nodiscard]] std::optional<TextUnitKind> textUnitKindIn(unsigned options);

/// One unit, in UTF-16 units from the text's start.
struct TextUnit {
    /// A paragraph without its end, a word, or a sentence without white space and newlines at both
    /// of its ends; an empty range at its start when it has nothing else.
    Range substringRange;

    /// The unit and what follows it up to the next one; the first begins where the text begins.
    /// Each unit of a text with any lies in one such range.
    Range enclosingRange;

    friend constexpr bool operator==(const TextUnit&, const TextUnit&) = default;
};

/// A place that moves from unit to unit. It is at none until it has moved to one; a move that finds
/// none answers false and leaves it where it was.
class TextUnits {
public:
    /// Raises InvalidArgumentException for sentences and words of a text of 2^31 - 1 units or more.
    [[nodiscard]] static std::unique_ptr<TextUnits> over(std::u16string_view text,
                                                         TextUnitKind kind);
    virtual ~TextUnits() = default;
    TextUnits(const TextUnits&) = delete;
    TextUnits& operator=(const TextUnits&) = delete;

    [[nodiscard]] virtual bool moveToFirst() = 0;
    [[nodiscard]] virtual bool moveToLast() = 0;

    /// Moves to the unit in whose enclosing range the character at `position` lies; false beyond
    /// the text's end.
    [[nodiscard]] virtual bool moveTo(std::uint64_t position) = 0;

    /// Requires: it is at a unit.
    [[nodiscard]] virtual bool moveToNext() = 0;
    [[nodiscard]] virtual bool moveToPrevious() = 0;

    /// The ranges of the unit that it is at; see TextUnit. Requires: there is one.
    [[nodiscard]] virtual Range substringRange() const = 0;
    [[nodiscard]] virtual Range enclosingRange() = 0;
    [[nodiscard]] TextUnit unit() { return {substringRange(), enclosingRange()}; }

protected:
    TextUnits() = default;
};

}  // namespace platform
