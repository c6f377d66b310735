#include "Platform/Text/SentenceUnits.h"

#include "Platform/Text/CharacterSet.h"

namespace platform {

bool SentenceUnits::moveToLast() {
    return !text_.empty() && moveTo(text_.size() - 1);
}

bool SentenceUnits::moveTo(std::uint64_t position) {
    if (position >= text_.size()) {
        return false;
    }
    end_ = boundaries_.following(static_cast<std::int32_t>(position));
    begin_ = boundaries_.previous();
    return true;
}

bool SentenceUnits::moveToNext() {
    boundaries_.goTo(end_);
    const std::int32_t end = boundaries_.next();
    if (end == Boundaries::kNone) {
        return false;
    }
    begin_ = end_;
    end_ = end;
    return true;
}

bool SentenceUnits::moveToPrevious() {
    boundaries_.goTo(begin_);
    const std::int32_t begin = boundaries_.previous();
    if (begin == Boundaries::kNone) {
        return false;
    }
    end_ = begin_;
    begin_ = begin;
    return true;
}

TextUnit SentenceUnits::unit() const {
    const std::u16string_view segment = text_.substr(begin_, end_ - begin_);
    const std::u16string_view trimmed = stringByTrimmingWhitespaceAndNewlines(segment);
    const auto begin = static_cast<std::uint64_t>(trimmed.data() - text_.data());
    return {{begin, trimmed.size()}, {static_cast<std::uint64_t>(begin_), segment.size()}};
}

}  // namespace platform
