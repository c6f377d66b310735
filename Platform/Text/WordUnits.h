// The words of a text; see TextUnits.h.

#pragma once

#include <optional>
#include <vector>

#include "Platform/Text/BoundaryWalk.h"
#include "Platform/Text/TextUnits.h"

namespace platform {

class WordUnits final : public TextUnits {
public:
    explicit WordUnits(std::u16string_view text)
        : size_(text.size()), walk_(BoundaryKind::Word, text) {}

    [[nodiscard]] bool moveToFirst() override { return moveTo(0); }
    [[nodiscard]] bool moveToLast() override;
    [[nodiscard]] bool moveTo(std::uint64_t position) override;
    [[nodiscard]] bool moveToNext() override;
    [[nodiscard]] bool moveToPrevious() override;
    [[nodiscard]] Range substringRange() const override;
    [[nodiscard]] Range enclosingRange() override;

private:
    struct Word {
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    [[nodiscard]] std::size_t startFor(std::size_t position, std::size_t distance) const;
    [[nodiscard]] std::optional<Word> nextWord();
    [[nodiscard]] bool findFrom(std::size_t start, std::size_t position);
    [[nodiscard]] bool hasPrevious();

    const std::size_t size_;
    BoundaryWalk walk_;
    /// Words that are known to come before, in order.
    std::vector<Word> before_;
    Word word_;
    /// The neighbour behind, which ends the enclosing range.
    std::optional<Word> next_;
};

}  // namespace platform
