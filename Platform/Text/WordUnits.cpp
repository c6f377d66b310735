#include "Platform/Text/WordUnits.h"

namespace platform {

bool WordUnits::moveToFirst() {
    return set(wordFrom(0));
}

bool WordUnits::moveToLast() {
    return set(wordUpTo(static_cast<std::int32_t>(size_)));
}

bool WordUnits::moveTo(std::uint64_t position) {
    if (position >= static_cast<std::uint64_t>(size_)) {
        return false;
    }
    // What follows a word is its own; what the text begins with is the first word's.
    const std::int32_t end = boundaries_.following(static_cast<std::int32_t>(position));
    const std::optional<Word> before = wordUpTo(end);
    return set(before ? before : wordFrom(end));
}

bool WordUnits::moveToNext() {
    if (!next_) {
        return false;
    }
    previous_ = word_;
    word_ = *next_;
    next_ = wordFrom(word_.end);
    return true;
}

bool WordUnits::moveToPrevious() {
    if (!previous_) {
        return false;
    }
    next_ = word_;
    word_ = *previous_;
    previous_ = wordUpTo(word_.begin);
    return true;
}

TextUnit WordUnits::unit() const {
    const auto rangeOf = [](std::int64_t begin, std::int64_t end) {
        return Range{static_cast<std::uint64_t>(begin), static_cast<std::uint64_t>(end - begin)};
    };
    return {rangeOf(word_.begin, word_.end),
            rangeOf(previous_ ? word_.begin : 0, next_ ? next_->begin : size_)};
}

/// The first word that begins at `boundary` or later.
std::optional<WordUnits::Word> WordUnits::wordFrom(std::int32_t boundary) {
    boundaries_.goTo(boundary);
    for (std::int32_t end = boundaries_.next(); end != Boundaries::kNone;
         end = boundaries_.next()) {
        if (boundaries_.isBehindWord()) {
            return Word{boundary, end};
        }
        boundary = end;
    }
    return std::nullopt;
}

/// The last word that ends at `boundary` or earlier.
std::optional<WordUnits::Word> WordUnits::wordUpTo(std::int32_t boundary) {
    boundaries_.goTo(boundary);
    while (boundary > 0) {
        const bool isWord = boundaries_.isBehindWord();
        const std::int32_t begin = boundaries_.previous();
        if (isWord) {
            return Word{begin, boundary};
        }
        boundary = begin;
    }
    return std::nullopt;
}

bool WordUnits::set(std::optional<Word> word) {
    if (!word) {
        return false;
    }
    word_ = *word;
    previous_ = wordUpTo(word_.begin);
    next_ = wordFrom(word_.end);
    return true;
}

}  // namespace platform
