// The text of a document: attributed text with an identity of its own.
//
// A storage is shared by those who show and change one text, so it is held by shared_ptr and its
// text is changed in place. One thread at a time.

#pragma once

#include <memory>
#include <string>
#include <utility>

#include "Platform/Text/AttributedString.h"

namespace platform {

/// A place that holds attributed text.
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

    /// The text with its attributes; valid until the storage changes or ends.
    [[nodiscard]] const AttributedString& attributedString() const { return text_; }

    /// The characters alone; valid until the storage changes or ends.
    [[nodiscard]] const std::u16string& string() const { return text_.string(); }

private:
    AttributedString text_;
};

}  // namespace platform
