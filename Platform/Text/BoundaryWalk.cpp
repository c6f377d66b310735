#include "Platform/Text/BoundaryWalk.h"

#include <cstdint>
#include <limits>
#include <new>
#include <string>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/Unicode.h"

namespace platform {
namespace {

bool isAsciiLetterOrDigit(char16_t unit) {
    const char16_t lower = unit | 0x20;
    return (lower >= u'a' && lower <= u'z') || (unit >= u'0' && unit <= u'9');
}

/// Characters behind which there is always a boundary; but for one between CR and LF.
bool endsLine(char16_t unit) {
    return unit == u'\n' || unit == u'\r' || unit == u'\u0085' || unit == u'\u2028' ||
           unit == u'\u2029';
}

/// White space that no letter extends, and the marks that end what is written without any.
bool separatesWords(char16_t unit) {
    return unit == u' ' || unit == u'\u3000' || unit == u'\u3001' || unit == u'\u3002';
}

char32_t codePointAt(std::u16string_view text, std::size_t position) {
    const char16_t unit = text[position];
    if (!isHighSurrogate(unit) || position + 1 == text.size() ||
        !isLowSurrogate(text[position + 1])) {
        return unit;
    }
    return 0x10000 + ((char32_t{unit} & 0x3FF) << 10) + (text[position + 1] & 0x3FFU);
}

}  // namespace

BoundaryWalk::BoundaryWalk(BoundaryKind kind, std::u16string_view text)
    : functions_(moduleFunctions<UnicodeFunctions>()),
      kind_(kind),
      text_(text),
      iterator_(functions_.lend(kind)) {
    if (iterator_ == nullptr) {
        throw std::bad_alloc();
    }
    if (text.size() >= std::numeric_limits<std::int32_t>::max()) {
        functions_.giveBack(kind_, iterator_);
        raise(InvalidArgumentException("a text of " + std::to_string(text.size()) +
                                       " units is too long to be divided"));
    }
}

BoundaryWalk::~BoundaryWalk() {
    functions_.giveBack(kind_, iterator_);
}

void BoundaryWalk::startAt(std::size_t start) {
    const std::u16string_view rest = text_.substr(start);
    if (!functions_.setText(iterator_, rest.data(), static_cast<std::int32_t>(rest.size()))) {
        throw std::bad_alloc();
    }
    start_ = start;
    position_ = start;
}

std::size_t BoundaryWalk::next() {
    const std::int32_t boundary = functions_.next(iterator_);
    if (boundary < 0) {
        return kNone;
    }
    position_ = start_ + static_cast<std::size_t>(boundary);
    return position_;
}

bool BoundaryWalk::isBehindWord() const {
    return functions_.isBehindWord(iterator_);
}

std::size_t BoundaryWalk::startBefore(std::size_t position) const {
    while (position > 0 && !mayStartAt(position)) {
        --position;
    }
    return position;
}

bool BoundaryWalk::mayStartAt(std::size_t position) const {
    const char16_t before = text_[position - 1];
    const char16_t unit = text_[position];
    if (endsLine(before) && !(before == u'\r' && unit == u'\n')) {
        return true;
    }
    if (isLowSurrogate(unit) && isHighSurrogate(before)) {
        return false;
    }
    if (kind_ == BoundaryKind::Sentence) {
        return isAsciiLetterOrDigit(unit) ||
               functions_.startsSentencesOver(codePointAt(text_, position));
    }
    return separatesWords(before) &&
           (isAsciiLetterOrDigit(unit) || functions_.startsWordsOver(codePointAt(text_, position)));
}

}  // namespace platform
