#include "Platform/Text/SentenceUnits.h"

#include "Platform/Text/CharacterSet.h"

namespace platform {
namespace {

/// How far before a place a walk starts at first; twice as far as long as that is not enough.
constexpr std::size_t kLookBack = 200;

}  // namespace

bool SentenceUnits::moveToLast() {
    return !text_.empty() && moveTo(text_.size() - 1);
}

bool SentenceUnits::moveTo(std::uint64_t position) {
    if (position >= text_.size()) {
        return false;
    }
    std::size_t distance = kLookBack;
    while (!findFrom(position < distance ? 0 : walk_.startBefore(position - distance), position)) {
        distance *= 2;
    }
    return true;
}

bool SentenceUnits::moveToNext() {
    if (end_ == text_.size()) {
        return false;
    }
    if (walk_.position() != end_) {
        return moveTo(end_);
    }
    before_.assign(1, begin_);
    begin_ = end_;
    end_ = walk_.next();
    return true;
}

bool SentenceUnits::moveToPrevious() {
    if (begin_ == 0) {
        return false;
    }
    if (before_.empty()) {
        return moveTo(begin_ - 1);
    }
    end_ = begin_;
    begin_ = before_.back();
    before_.pop_back();
    return true;
}

Range SentenceUnits::substringRange() const {
    const std::u16string_view segment = text_.substr(begin_, end_ - begin_);
    const std::u16string_view trimmed = stringByTrimmingWhitespaceAndNewlines(segment);
    return {static_cast<std::uint64_t>(trimmed.data() - text_.data()), trimmed.size()};
}

Range SentenceUnits::enclosingRange() {
    return {begin_, end_ - begin_};
}

/// Walks from `start` to the sentence with `position`; false when no boundary lies between.
bool SentenceUnits::findFrom(std::size_t start, std::size_t position) {
    walk_.startAt(start);
    // Whether there is a boundary at a later start cannot be seen from there.
    const std::size_t first = start == 0 ? 0 : walk_.next();
    if (first > position) {
        return false;
    }
    before_.clear();
    begin_ = first;
    for (end_ = walk_.next(); end_ <= position; end_ = walk_.next()) {
        before_.push_back(begin_);
        begin_ = end_;
    }
    return true;
}

}  // namespace platform
