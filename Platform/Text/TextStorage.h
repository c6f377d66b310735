// The text of a document: attributed text with an identity of its own.
//
// A storage is shared by those who show and change one text, so it is held by shared_ptr and its
// text is changed in place. One thread at a time.

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/Range.h"
#include "Platform/Text/AttributedString.h"

namespace platform {

/// A place that holds attributed text.
///
/// The first change after the text was asked for as attributed text costs a copy of it; others cost
/// what they touch, moving what lies behind, and a walk over the runs.
class TextStorage {
public:
    /// Makes an empty storage.
    TextStorage() = default;

    /// Makes a storage with a copy of `text`; the characters are shared until one side changes.
    ///
    /// Selector: initWithAttributedString:
    explicit TextStorage(AttributedString text) : text_(std::move(text)) {}

    TextStorage(const TextStorage&) = delete;
    TextStorage& operator=(const TextStorage&) = delete;

    /// The text with its attributes; valid until the storage changes or ends. A copy of it stays as
    /// it is.
    [[nodiscard]] const AttributedString& attributedString() const;

    /// The characters alone; valid until the storage changes or ends.
    [[nodiscard]] const std::u16string& string() const;

    [[nodiscard]] std::uint64_t length() const { return string().size(); }

    /// Puts `attributedString` in the place of the characters in `range`, with its attributes.
    ///
    /// Raises RangeException, and changes nothing, when the range does not lie in the text.
    ///
    /// Selector: replaceCharactersInRange:withAttributedString:
    void replaceCharactersInRangeWithAttributedString(Range range,
                                                      AttributedString attributedString);

    /// Puts `string` in the place of the characters in `range`. It takes the attributes of the
    /// first of them; where there is none, those of the character before, if any.
    ///
    /// Raises RangeException, and changes nothing, when the range does not lie in the text.
    ///
    /// Selector: replaceCharactersInRange:withString:
    void replaceCharactersInRangeWithString(Range range, std::u16string string);

    /// Replaces the whole text.
    ///
    /// Selector: setAttributedString:
    void setAttributedString(AttributedString attributedString);

private:
    /// Text that nobody else holds.
    struct Draft {
        std::shared_ptr<std::u16string> string;
        std::vector<AttributeRun> runs;
    };

    [[nodiscard]] const std::vector<AttributeRun>& runs() const;
    void requireInText(Range range) const;

    /// The text as it was when it was last asked for, unless there is a draft.
    mutable AttributedString text_;
    mutable std::optional<Draft> draft_;
};

}  // namespace platform
