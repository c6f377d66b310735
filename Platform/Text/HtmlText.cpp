#include "Platform/Text/HtmlText.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/HtmlTag.h"

namespace platform {
namespace {

constexpr char16_t kLineSeparator = 0x2028;

bool isBlank(char byte) {
    return byte == ' ' || byte == '\n' || byte == '\t' || byte == '\r' || byte == '\f';
}

/// Whether a unit belongs to a script that puts no blanks between words and whose characters are
/// wide.
bool isEastAsian(char16_t unit) {
    const bool isInKanaOrHan = (unit >= 0x2E80 && unit <= 0x312F) ||
                               (unit >= 0x3190 && unit <= 0xA4CF) ||
                               (unit >= 0xF900 && unit <= 0xFAFF);
    const bool isFullWidth = unit >= 0xFF00 && unit <= 0xFF60;
    const bool isHalfOfHan = (unit >= 0xD840 && unit <= 0xD88F);
    return isInKanaOrHan || isFullWidth || isHalfOfHan;
}

/// Decodes the form at the start of sound UTF-8 and takes it off.
char32_t takeCodePoint(std::string_view& utf8) {
    const auto byteAt = [&](std::size_t i) {
        return i < utf8.size() ? static_cast<unsigned char>(utf8[i]) : 0U;
    };
    const unsigned first = byteAt(0);
    const std::size_t size = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    char32_t codePoint = size == 1 ? first : first & (0xFFU >> (size + 1));
    for (std::size_t i = 1; i < size; ++i) {
        codePoint = (codePoint << 6U) | (byteAt(i) & 0x3FU);
    }
    utf8.remove_prefix(std::min(size, utf8.size()));
    return codePoint;
}

char16_t firstUnitOf(std::string_view utf8) {
    const char32_t codePoint = takeCodePoint(utf8);
    constexpr char32_t kFirstOfTwo = 0x10000;
    return codePoint < kFirstOfTwo
               ? static_cast<char16_t>(codePoint)
               : static_cast<char16_t>(0xD800U + ((codePoint - kFirstOfTwo) >> 10U));
}

/// The last unit that tells the script; the second half of a character does not.
char16_t lastUnitOf(const std::u16string& text) {
    const bool isPair = text.size() > 1 && isLowSurrogate(text.back());
    return isPair ? text[text.size() - 2] : text.back();
}

std::size_t lengthOfWord(std::string_view text) {
    const auto* const end = std::find_if(text.begin(), text.end(), isBlank);
    return static_cast<std::size_t>(end - text.begin());
}

}  // namespace

void HtmlText::append(std::string_view utf8, std::uint32_t look) {
    while (!utf8.empty()) {
        if (isBlank(utf8.front())) {
            blankLook_ = hasBlank_ ? blankLook_ : look;
            hasLineEnd_ = hasLineEnd_ || utf8.front() == '\n' || utf8.front() == '\r';
            hasBlank_ = true;
            utf8.remove_prefix(1);
            continue;
        }
        const std::size_t length = lengthOfWord(utf8);
        beginText(firstUnitOf(utf8), look);
        addCharacters(utf8.substr(0, length), look);
        utf8.remove_prefix(length);
    }
}

void HtmlText::appendPreformatted(std::string_view utf8, std::uint32_t look) {
    while (!utf8.empty()) {
        if (utf8.front() != '\n' && utf8.front() != '\r') {
            const std::size_t length = std::min(utf8.find_first_of("\r\n"), utf8.size());
            beginText(firstUnitOf(utf8), look);
            addCharacters(utf8.substr(0, length), look);
            utf8.remove_prefix(length);
            isBehindReturn_ = false;
            continue;
        }
        if (utf8.front() == '\r' || !isBehindReturn_) {
            beginText(u'\n', look);
            add(u"\n", look);
            isAtStart_ = true;
        }
        isBehindReturn_ = utf8.front() == '\r';
        utf8.remove_prefix(1);
    }
}

void HtmlText::breakLine(std::uint32_t look) {
    hasBlank_ = false;
    beginText(kLineSeparator, look);
    add({&kLineSeparator, 1}, look);
    isAtStart_ = true;
}

void HtmlText::endParagraph(std::uint32_t look) {
    hasBlank_ = false;
    hasLineEnd_ = false;
    if (endedCells_ > 0 || text_.empty()) {
        return;
    }
    if (text_.back() == kLineSeparator) {
        text_.back() = u'\n';
    } else if (!isAtStart_) {
        add(u"\n", look);
        isAtStart_ = true;
    }
}

void HtmlText::beginTable() {
    if (endedCells_ > 0) {
        separateCells(HtmlAttributes::kNoAttributes);
    }
    rows_.push_back({text_.size()});
}

void HtmlText::beginRow(std::uint32_t look) {
    endedCells_ = 0;
    if (isInTable() && text_.size() > rows_.back().start && isAtStart_ && text_.back() == u'\t') {
        // A table without text stood in the last cell.
        text_.back() = u'\n';
    }
    endParagraph(look);
    if (isInTable()) {
        rows_.back().start = text_.size();
    }
}

void HtmlText::beginCell() {
    hasBlank_ = false;
    hasLineEnd_ = false;
    if (endedCells_ == 0 && !isAtStart_) {
        // The text before stands in no cell.
        endedCells_ = 1;
    }
}

void HtmlText::endCell() {
    hasBlank_ = false;
    hasLineEnd_ = false;
    ++endedCells_;
}

void HtmlText::endTable(std::uint32_t look) {
    beginRow(look);
    if (isInTable()) {
        rows_.pop_back();
    }
}

AttributedString HtmlText::finish(const HtmlAttributes& attributes) {
    if (!text_.empty() && text_.back() == kLineSeparator) {
        text_.back() = u'\n';
    }
    std::vector<AttributeRun> runs;
    runs.reserve(runs_.size());
    for (const Run& run : runs_) {
        appendRun(runs, run.length, attributes[run.look]);
    }
    text_.shrink_to_fit();
    return {std::make_shared<const std::u16string>(std::move(text_)), std::move(runs)};
}

/// Writes what was put off until there is text.
void HtmlText::beginText(char16_t first, std::uint32_t look) {
    if (endedCells_ > 0) {
        separateCells(look);
    }
    if (!marker_.empty()) {
        if (!isAtStart_) {
            add(u"\n", look);
        }
        add(marker_, look);
        marker_.clear();
        isAtStart_ = true;
    }
    if (hasBlank_ && !isAtStart_) {
        const bool isSourceLayout =
            hasLineEnd_ && isEastAsian(first) && isEastAsian(lastUnitOf(text_));
        if (!isSourceLayout) {
            add(u" ", blankLook_);
        }
    }
    hasBlank_ = false;
    hasLineEnd_ = false;
    isAtStart_ = false;
}

void HtmlText::separateCells(std::uint32_t look) {
    const bool hasText = isInTable() && text_.size() > rows_.back().start;
    std::size_t tabs = std::exchange(endedCells_, 0);
    if (hasText && (text_.back() == u'\n' || text_.back() == kLineSeparator)) {
        // The last paragraph of the cell ends with the cell.
        text_.back() = u'\t';
        --tabs;
    }
    add(std::u16string(tabs, u'\t'), look);
    isAtStart_ = true;
}

void HtmlText::add(std::u16string_view units, std::uint32_t look) {
    text_ += units;
    addRun(units.size(), look);
}

void HtmlText::addCharacters(std::string_view utf8, std::uint32_t look) {
    constexpr char32_t kFirstOfTwo = 0x10000;
    const std::size_t start = text_.size();
    text_.resize(start + utf8.size());
    char16_t* unit = text_.data() + start;
    while (!utf8.empty()) {
        if (static_cast<unsigned char>(utf8.front()) < 0x80) {
            *unit++ = static_cast<unsigned char>(utf8.front());
            utf8.remove_prefix(1);
            continue;
        }
        const char32_t codePoint = takeCodePoint(utf8);
        if (codePoint < kFirstOfTwo) {
            *unit++ = static_cast<char16_t>(codePoint);
        } else {
            *unit++ = static_cast<char16_t>(0xD800U + ((codePoint - kFirstOfTwo) >> 10U));
            *unit++ = static_cast<char16_t>(0xDC00U + (codePoint & 0x3FFU));
        }
    }
    text_.resize(static_cast<std::size_t>(unit - text_.data()));
    addRun(text_.size() - start, look);
}

void HtmlText::addRun(std::size_t length, std::uint32_t look) {
    if (length == 0) {
        return;
    }
    if (runs_.size() >= mostRuns_) {
        look = HtmlAttributes::kNoAttributes;
    }
    if (!runs_.empty() && runs_.back().look == look) {
        runs_.back().length += length;
    } else {
        runs_.push_back({length, look});
    }
}

}  // namespace platform
