// The words of a text; see TextUnits.h.

#pragma once

#include <optional>

#include "Platform/Text/Boundaries.h"
#include "Platform/Text/TextUnits.h"

namespace platform {

class WordUnits final : public TextUnits {
public:
    explicit WordUnits(std::u16string_view text)
        : size_(static_cast<std::int64_t>(text.size())), boundaries_(BoundaryKind::Word, text) {}

    [[nodiscard]] bool moveToFirst() override;
    [[nodiscard]] bool moveToLast() override;
    [[nodiscard]] bool moveTo(std::uint64_t position) override;
    [[nodiscard]] bool moveToNext() override;
    [[nodiscard]] bool moveToPrevious() override;
    [[nodiscard]] TextUnit unit() const override;

private:
    struct Word {
        std::int32_t begin;
        std::int32_t end;
    };

    [[nodiscard]] std::optional<Word> wordFrom(std::int32_t boundary);
    [[nodiscard]] std::optional<Word> wordUpTo(std::int32_t boundary);
    [[nodiscard]] bool set(std::optional<Word> word);

    const std::int64_t size_;
    Boundaries boundaries_;
    // The neighbours say where the enclosing range ends and whether it begins with the text.
    std::optional<Word> previous_;
    Word word_{};
    std::optional<Word> next_;
};

}  // namespace platform
