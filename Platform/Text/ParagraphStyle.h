// How a paragraph is laid out: the value of the attribute "NSParagraphStyle".
//
// Lengths are in points. Immutable; any thread at once.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/BuildBudget.h"
#include "Platform/Foundation/PreservedObject.h"
#include "Platform/Foundation/Result.h"

namespace platform {

/// Where lines stand between their margins, with the numbers that archives have.
enum class TextAlignment : std::int64_t {
    Left = 0,
    Right = 1,
    Center = 2,
    Justified = 3,
    Natural = 4
};

/// Which way a paragraph reads.
enum class WritingDirection : std::int64_t { Natural = -1, LeftToRight = 0, RightToLeft = 1 };

/// A place that tabs lead to.
struct TextTab {
    double location = 0;
    TextAlignment alignment = TextAlignment::Left;

    friend bool operator==(const TextTab&, const TextTab&) = default;
};

/// A list that a paragraph is an item of.
struct TextList {
    /// What stands in front of an item, such as "{disc}" or "{decimal}.".
    std::string markerFormat;
    std::int64_t options = 0;
    std::int64_t startingItemNumber = 1;

    friend bool operator==(const TextList&, const TextList&) = default;
};

/// What a paragraph style says; the defaults are those of the platform.
struct ParagraphLayout {
    TextAlignment alignment = TextAlignment::Natural;
    WritingDirection baseWritingDirection = WritingDirection::Natural;
    std::int64_t lineBreakMode = 0;
    double firstLineHeadIndent = 0;
    double headIndent = 0;
    double tailIndent = 0;
    double lineSpacing = 0;
    double paragraphSpacing = 0;
    double paragraphSpacingBefore = 0;
    double minimumLineHeight = 0;
    double maximumLineHeight = 0;
    double lineHeightMultiple = 0;
    double defaultTabInterval = 0;
    double hyphenationFactor = 0;
    /// 0 for text, 1 to 6 for headings.
    std::int64_t headerLevel = 0;
    /// Absent for the default tabs, one every 28 points.
    std::optional<std::vector<TextTab>> tabStops = std::nullopt;
    /// The lists that the paragraph is in, outermost first.
    std::vector<TextList> textLists = {};

    friend bool operator==(const ParagraphLayout&, const ParagraphLayout&) = default;
};

/// A paragraph's layout as an object that texts can hold. Tables are kept, not understood.
class ParagraphStyle final : public PreservedObject {
public:
    explicit ParagraphStyle(ParagraphLayout layout) : layout_(std::move(layout)) {}

    /// Returns the style that `archived` is. What it states in a wrong form counts as not stated. A
    /// Fault when the copies are more than the budget has left.
    static Result<std::shared_ptr<const ParagraphStyle>> fromArchived(
        std::shared_ptr<const OpaqueObject> archived, BuildBudget& budget);

    [[nodiscard]] const ParagraphLayout& layout() const { return layout_; }

private:
    ParagraphStyle(std::shared_ptr<const OpaqueObject> archived, ParagraphLayout layout)
        : PreservedObject(std::move(archived)), layout_(std::move(layout)) {}

    [[nodiscard]] std::shared_ptr<const ArchivedClassNames> ownClass() const override;
    void encodeFields(KeyedArchiver& coder) const override;

    ParagraphLayout layout_;
};

}  // namespace platform
