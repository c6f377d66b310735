// The sentences of a text; see TextUnits.h.

#pragma once

#include <vector>

#include "Platform/Text/BoundaryWalk.h"
#include "Platform/Text/TextUnits.h"

namespace platform {

class SentenceUnits final : public TextUnits {
public:
    explicit SentenceUnits(std::u16string_view text)
        : text_(text), walk_(BoundaryKind::Sentence, text) {}

    [[nodiscard]] bool moveToFirst() override { return moveTo(0); }
    [[nodiscard]] bool moveToLast() override;
    [[nodiscard]] bool moveTo(std::uint64_t position) override;
    [[nodiscard]] bool moveToNext() override;
    [[nodiscard]] bool moveToPrevious() override;
    [[nodiscard]] Range substringRange() const override;
    [[nodiscard]] Range enclosingRange() override;

private:
    [[nodiscard]] bool findFrom(std::size_t start, std::size_t position);

    const std::u16string_view text_;
    BoundaryWalk walk_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    /// Where the sentences begin that are known to come before, in order.
    std::vector<std::size_t> before_;
};

}  // namespace platform
