#include "Platform/Text/ParagraphUnits.h"

namespace platform {

bool ParagraphUnits::moveToLast() {
    return !text_.empty() && moveTo(text_.size() - 1);
}

bool ParagraphUnits::moveTo(std::uint64_t position) {
    if (position >= text_.size()) {
        return false;
    }
    // Between CR and LF is inside the end of the paragraph before.
    const bool isInsideEnd =
        position > 0 && text_[position] == u'\n' && text_[position - 1] == u'\r';
    const std::size_t inside = position - (isInsideEnd ? 1 : 0);
    setFrom(startBefore(inside), inside);
    return true;
}

bool ParagraphUnits::moveToNext() {
    if (end_ == text_.size()) {
        return false;
    }
    setFrom(end_, end_);
    return true;
}

bool ParagraphUnits::moveToPrevious() {
    return begin_ > 0 && moveTo(begin_ - 1);
}

Range ParagraphUnits::substringRange() const {
    return {begin_, contentsEnd_ - begin_};
}

Range ParagraphUnits::enclosingRange() {
    return {begin_, end_ - begin_};
}

bool ParagraphUnits::isTerminator(std::size_t position) const {
    const char16_t unit = text_[position];
    return unit == u'\n' || unit == u'\r' || unit == u'\u2029';
}

/// Where the paragraph begins that `position` lies in.
std::size_t ParagraphUnits::startBefore(std::size_t position) const {
    while (position > 0 && !isTerminator(position - 1)) {
        --position;
    }
    return position;
}

/// Sets the paragraph that begins at `begin` and has no end before `searched`.
void ParagraphUnits::setFrom(std::size_t begin, std::size_t searched) {
    begin_ = begin;
    contentsEnd_ = searched;
    while (contentsEnd_ < text_.size() && !isTerminator(contentsEnd_)) {
        ++contentsEnd_;
    }
    const bool hasEnd = contentsEnd_ < text_.size();
    const bool endsWithTwo = hasEnd && text_[contentsEnd_] == u'\r' &&
                             contentsEnd_ + 1 < text_.size() && text_[contentsEnd_ + 1] == u'\n';
    end_ = contentsEnd_ + (endsWithTwo ? 2 : hasEnd ? 1 : 0);
}

}  // namespace platform
