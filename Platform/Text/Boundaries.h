// The boundaries of words or sentences in one text, as the root locale's rules set them.
//
// Finding one costs what lies between it and its neighbours, not what the text is long. An object
// belongs to one thread at a time; its text must stay as it is while the object lives.

#pragma once

#include <cstdint>
#include <string_view>

#include "Platform/Text/Modules/UnicodeModule.h"

namespace platform {

/// A place in a text that moves from boundary to boundary. Both ends of a text are boundaries.
class Boundaries {
public:
    /// What a move answers when there is no boundary to go to.
    static constexpr std::int32_t kNone = -1;

    /// Starts at the text's start. Raises InvalidArgumentException for a text of 2 GiB or more.
    Boundaries(BoundaryKind kind, std::u16string_view text);
    ~Boundaries();
    Boundaries(const Boundaries&) = delete;
    Boundaries& operator=(const Boundaries&) = delete;

    /// Where it is.
    [[nodiscard]] std::int32_t position() const { return position_; }

    /// Moves to the next boundary or to the one before; stays where there is none.
    std::int32_t next();
    std::int32_t previous();

    /// Moves to the first boundary behind `position`, which lies before the text's end.
    std::int32_t following(std::int32_t position);

    /// Moves to `boundary`, which is one.
    void goTo(std::int32_t boundary);

    /// Whether the stretch that ends here is a word, and not what stands between words.
    [[nodiscard]] bool isBehindWord() const;

private:
    std::int32_t moveTo(std::int32_t boundary);

    const UnicodeFunctions& functions_;
    const BoundaryKind kind_;
    BoundaryIterator* const iterator_;
    std::int32_t position_ = 0;
};

}  // namespace platform
