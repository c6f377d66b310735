// A walk over the boundaries of words or sentences in one text, as the root locale's rules set
// them.
//
// An object belongs to one thread at a time; its text must stay as it is while the object lives.

#pragma once

#include <cstddef>
#include <string_view>

#include "Platform/Text/Modules/UnicodeModule.h"

namespace platform {

/// A place in a text that moves from boundary to boundary, always forwards.
///
/// The rules look far back where they look back at all: to find a sentence's start from behind, the
/// library goes back to the last line end. So a walk starts near to what is wanted, at a place
/// where it can, and goes forwards from there.
class BoundaryWalk {
public:
    /// What there is behind the last boundary, the text's end.
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    /// Raises InvalidArgumentException for a text of 2^31 - 1 units or more.
    BoundaryWalk(BoundaryKind kind, std::u16string_view text);
    ~BoundaryWalk();
    BoundaryWalk(const BoundaryWalk&) = delete;
    BoundaryWalk& operator=(const BoundaryWalk&) = delete;

    /// Starts at `start`, which is the text's start or one that startBefore has answered.
    void startAt(std::size_t start);

    /// Moves to the next boundary and returns it; kNone at the text's end.
    std::size_t next();

    /// Where it is.
    [[nodiscard]] std::size_t position() const { return position_; }

    /// Whether the stretch that ends here is a word, and not what stands between words.
    [[nodiscard]] bool isBehindWord() const;

    /// A place at or before `position` where a walk may start: all boundaries behind it are then
    /// those of a walk from the text's start. For words it is a boundary itself.
    [[nodiscard]] std::size_t startBefore(std::size_t position) const;

private:
    [[nodiscard]] bool mayStartAt(std::size_t position) const;

    const UnicodeFunctions& functions_;
    const BoundaryKind kind_;
    const std::u16string_view text_;
    BoundaryIterator* const iterator_;
    std::size_t start_ = 0;
    std::size_t position_ = 0;
};

}  // namespace platform
