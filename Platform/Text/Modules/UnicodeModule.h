// What the module `unicode` offers: walks over the boundaries of words and sentences, and the
// properties of characters.
//
// Positions count UTF-16 units from the start of the text. An iterator belongs to one thread at a
// time; different ones to different threads.

#pragma once

#include <cstddef>
#include <cstdint>

#include "Platform/Text/Modules/Module.h"

namespace platform {

enum class BoundaryKind : std::uint8_t { Word, Sentence };

/// Which way a character makes its line read.
enum class CharacterDirection : std::uint8_t { FromTheLeft, FromTheRight, Number, Mark, Neutral };

/// An iterator that is lent.
struct BoundaryIterator;

struct UnicodeFunctions : ModuleHead {
    static constexpr char kName[] = "unicode";

    /// Lends an iterator; null when it cannot be made.
    BoundaryIterator* (*lend)(BoundaryKind kind);
    void (*giveBack)(BoundaryKind kind, BoundaryIterator* iterator);

    /// Puts the iterator at the start of `length` units, which must stay as they are until it gets
    /// another text or is given back. Whether it could.
    bool (*setText)(BoundaryIterator* iterator, const char16_t* text, std::int32_t length);
    /// Goes to the next boundary; -1 at the end.
    std::int32_t (*next)(BoundaryIterator* iterator);
    /// Whether what lies before the iterator's boundary is a word and not what lies between words.
    bool (*isBehindWord)(BoundaryIterator* iterator);

    /// Whether the general category of a code point is one of letters or marks, or of letters
    /// alone.
    bool (*isLetter)(char32_t codePoint);
    bool (*isBaseLetter)(char32_t codePoint);
    /// Whether the boundaries behind a code point don't depend on what stands before it: it is no
    /// sentence end, nothing that may follow one up to the boundary, and no extension of another.
    bool (*startsSentencesOver)(char32_t codePoint);
    /// Whether there is a boundary of words before a code point that stands behind white space: it
    /// is neither white space nor an extension of it.
    bool (*startsWordsOver)(char32_t codePoint);

    CharacterDirection (*directionOf)(char32_t codePoint);
    /// The character whose form is that of a code point in a mirror; itself when there is none.
    char32_t (*mirrored)(char32_t codePoint);
    /// The character that a letter and a mark make together; 0 when there is none.
    char32_t (*composed)(char32_t letter, char32_t mark);
    /// Writes what a code point stands for when its form does not count, in at most `room` units;
    /// returns how many there are, 0 when it stands for nothing but itself.
    std::size_t (*plainForm)(char32_t codePoint, char16_t* units, std::size_t room);
};

}  // namespace platform
