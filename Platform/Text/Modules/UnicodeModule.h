// What the module `unicode` offers: walks over the boundaries of words and sentences, the
// properties of characters, and the conversion of code pages to UTF-16.
//
// Positions count UTF-16 units from the start of the text. An iterator or a converter belongs to
// one thread at a time; different ones to different threads.

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

/// What converts the bytes of one code page.
struct CodePage;

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

    /// Makes a converter of the code page `name`, one of the names that ICU has for it; null when
    /// there is none.
    CodePage* (*openCodePage)(const char* name);
    void (*closeCodePage)(CodePage* codePage);

    /// Converts the bytes from `*bytes` to `end` until they or the room for units, at least two,
    /// are used up, and moves both starts past what it did. It is done when no byte and no room is
    /// wanted any more. What is no character becomes U+FFFD; returns how often that was so. An
    /// incomplete character at the end waits for the next bytes, unless these are the last: then it
    /// is none, and the converter starts anew.
    std::size_t (*convert)(CodePage* codePage, const char** bytes, const char* end,
                           char16_t** units, char16_t* unitsEnd, bool areLast, bool* isDone);
};

}  // namespace platform
