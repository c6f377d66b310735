// The paragraphs of a text; see TextUnits.h.

#pragma once

#include "Platform/Text/TextUnits.h"

namespace platform {

class ParagraphUnits final : public TextUnits {
public:
    explicit ParagraphUnits(std::u16string_view text) : text_(text) {}

    [[nodiscard]] bool moveToFirst() override { return moveTo(0); }
    [[nodiscard]] bool moveToLast() override;
    [[nodiscard]] bool moveTo(std::uint64_t position) override;
    [[nodiscard]] bool moveToNext() override;
    [[nodiscard]] bool moveToPrevious() override;
    [[nodiscard]] Range substringRange() const override;
    [[nodiscard]] Range enclosingRange() override;

private:
    [[nodiscard]] bool isTerminator(std::size_t position) const;
    [[nodiscard]] std::size_t startBefore(std::size_t position) const;
    void setFrom(std::size_t begin, std::size_t searched);

    const std::u16string_view text_;
    std::size_t begin_ = 0;
    std::size_t contentsEnd_ = 0;
    std::size_t end_ = 0;
};

}  // namespace platform
