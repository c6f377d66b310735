// The sentences of a text; see TextUnits.h.

#pragma once

#include "Platform/Text/Boundaries.h"
#include "Platform/Text/TextUnits.h"

namespace platform {

class SentenceUnits final : public TextUnits {
public:
    explicit SentenceUnits(std::u16string_view text)
        : text_(text), boundaries_(BoundaryKind::Sentence, text) {}

    [[nodiscard]] bool moveToFirst() override { return moveTo(0); }
    [[nodiscard]] bool moveToLast() override;
    [[nodiscard]] bool moveTo(std::uint64_t position) override;
    [[nodiscard]] bool moveToNext() override;
    [[nodiscard]] bool moveToPrevious() override;
    [[nodiscard]] TextUnit unit() const override;

private:
    const std::u16string_view text_;
    Boundaries boundaries_;
    std::int32_t begin_ = 0;
    std::int32_t end_ = 0;
};

}  // namespace platform
