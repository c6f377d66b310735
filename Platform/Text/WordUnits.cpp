#include "Platform/Text/WordUnits.h"

namespace platform {
namespace {

/// How far before a place a walk starts at first; twice as far as long as that is not enough.
constexpr std::size_t kLookBack = 50;

}  // namespace

bool WordUnits::moveToLast() {
    return size_ > 0 && moveTo(size_ - 1);
}

bool WordUnits::moveTo(std::uint64_t position) {
    if (position >= size_) {
        return false;
    }
    for (std::size_t distance = kLookBack;; distance *= 2) {
        const std::size_t start = startFor(position, distance);
        if (findFrom(start, position)) {
            return true;
        }
        if (start == 0) {
            // What the text begins with is the first word's, if there is one.
            if (next_) {
                word_ = *next_;
                next_ = nextWord();
                return true;
            }
            return false;
        }
    }
}

bool WordUnits::moveToNext() {
    if (!next_) {
        return false;
    }
    if (walk_.position() != next_->end) {
        return moveTo(next_->begin);
    }
    before_.assign(1, word_);
    word_ = *next_;
    next_ = nextWord();
    return true;
}

bool WordUnits::moveToPrevious() {
    if (!hasPrevious()) {
        return false;
    }
    next_ = word_;
    word_ = before_.back();
    before_.pop_back();
    return true;
}

Range WordUnits::substringRange() const {
    return {word_.begin, word_.end - word_.begin};
}

Range WordUnits::enclosingRange() {
    const std::size_t begin = hasPrevious() ? word_.begin : 0;
    return {begin, (next_ ? next_->begin : size_) - begin};
}

std::size_t WordUnits::startFor(std::size_t position, std::size_t distance) const {
    return position < distance ? 0 : walk_.startBefore(position - distance);
}

/// The next word of the walk.
std::optional<WordUnits::Word> WordUnits::nextWord() {
    std::size_t begin = walk_.position();
    for (std::size_t end = walk_.next(); end != BoundaryWalk::kNone; end = walk_.next()) {
        if (walk_.isBehindWord()) {
            return Word{begin, end};
        }
        begin = end;
    }
    return std::nullopt;
}

/// Walks from `start` to the last word that begins at `position` or before; false when there is
/// none from there on.
bool WordUnits::findFrom(std::size_t start, std::size_t position) {
    walk_.startAt(start);
    before_.clear();
    next_ = nextWord();
    while (next_ && next_->begin <= position) {
        before_.push_back(*next_);
        next_ = nextWord();
    }
    if (before_.empty()) {
        return false;
    }
    word_ = before_.back();
    before_.pop_back();
    return true;
}

/// Whether there is a word before, which is looked for when nobody knows.
bool WordUnits::hasPrevious() {
    if (!before_.empty() || word_.begin == 0) {
        return !before_.empty();
    }
    const Word word = word_;
    const std::optional<Word> next = next_;
    for (std::size_t distance = kLookBack; before_.empty(); distance *= 2) {
        const std::size_t start = startFor(word.begin - 1, distance);
        if (findFrom(start, word.begin - 1)) {
            before_.push_back(word_);
        } else if (start == 0) {
            break;
        }
    }
    word_ = word;
    next_ = next;
    return !before_.empty();
}

}  // namespace platform
