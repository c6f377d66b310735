// What the module `unicode` offers: iterators over the boundaries of words and sentences, and the
// properties of characters.
//
// Positions count UTF-16 units from the start of the text. A boundary that is not there is -1. An
// iterator belongs to one thread at a time; different ones to different threads.

#pragma once

#include <cstdint>

#include "Platform/Text/Modules/Module.h"

namespace platform {

enum class BoundaryKind : std::uint8_t { Word, Sentence };

/// An iterator that is lent.
struct BoundaryIterator;

struct UnicodeFunctions : ModuleHead {
    static constexpr char kName[] = "unicode";

    /// Lends an iterator over `length` units at `text`, which must stay as they are until it is
    /// given back; at their start. Null when there is no memory. Requires: length below 2 GiB.
    BoundaryIterator* (*lend)(BoundaryKind kind, const char16_t* text, std::int32_t length);
    void (*giveBack)(BoundaryKind kind, BoundaryIterator* iterator);

    /// Where there is none, the iterator stays.
    std::int32_t (*next)(BoundaryIterator* iterator);
    std::int32_t (*previous)(BoundaryIterator* iterator);
    /// Goes to the first boundary behind a position.
    std::int32_t (*following)(BoundaryIterator* iterator, std::int32_t position);
    /// Goes to a position, which is a boundary.
    void (*goTo)(BoundaryIterator* iterator, std::int32_t boundary);
    /// Whether what lies before the iterator's boundary is a word and not what lies between words.
    bool (*isBehindWord)(BoundaryIterator* iterator);

    /// Whether the general category of a code point is one of letters or marks.
    bool (*isLetter)(char32_t codePoint);
};

}  // namespace platform
