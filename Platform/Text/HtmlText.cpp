#include "Platform/Text/HtmlText.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/HtmlTag.h"

namespace platform {
namespace {

constexpr char16_t kLineSeparator = 0x2028;

constexpr bool isBlank(char byte) {
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

/// Whether a line end between two units only lays out the source.
bool isSourceLayout(char16_t last, char16_t next) {
    // Rare characters have a second half, which tells no script: the other side decides.
    return isEastAsian(next) && (isEastAsian(last) || isLowSurrogate(last));
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

/// Takes a character off sound UTF-8, writes it to `unit` and returns the place behind it.
char16_t* appendCharacter(std::string_view& utf8, char16_t* unit) {
    constexpr char32_t kFirstOfTwo = 0x10000;
    const char32_t codePoint = takeCodePoint(utf8);
    if (codePoint < kFirstOfTwo) {
        *unit++ = static_cast<char16_t>(codePoint);
    } else {
        *unit++ = static_cast<char16_t>(0xD800U + ((codePoint - kFirstOfTwo) >> 10U));
        *unit++ = static_cast<char16_t>(0xDC00U + (codePoint & 0x3FFU));
    }
    return unit;
}

constexpr auto kAsciiOfWords = [] {
    std::array<bool, 256> signs{};
    for (std::size_t sign = 0; sign < 0x80; ++sign) {
        signs[sign] = !isBlank(static_cast<char>(sign));
    }
    return signs;
}();

/// The same for all characters up to a blank that is more than one between two words of ASCII.
char16_t* appendWords(std::string_view& utf8, char16_t* unit) {
    const auto isOfWord = [](char byte) {
        return kAsciiOfWords[static_cast<unsigned char>(byte)];
    };
    while (!utf8.empty() && !isBlank(utf8.front())) {
        if (!isOfWord(utf8.front())) {
            unit = appendCharacter(utf8, unit);
            continue;
        }
        const char* at = utf8.data();
        const char* const last = at + utf8.size() - 1;
        while (at != last && (isOfWord(*at) || (*at == ' ' && isOfWord(at[1])))) {
            *unit++ = static_cast<unsigned char>(*at++);
        }
        if (isOfWord(*at)) {
            *unit++ = static_cast<unsigned char>(*at++);
        }
        utf8.remove_prefix(static_cast<std::size_t>(at - utf8.data()));
    }
    return unit;
}

}  // namespace

void HtmlText::append(std::string_view utf8, std::uint32_t look) {
    utf8.remove_prefix(noteBlanks(utf8, look));
    if (utf8.empty()) {
        return;
    }
    beginText(firstUnitOf(utf8), look);
    const std::size_t start = text_.size();
    text_.resize(start + utf8.size());
    char16_t* unit = text_.data() + start;
    while (!utf8.empty()) {
        unit = appendWords(utf8, unit);
        utf8.remove_prefix(noteBlanks(utf8, look));
        if (hasBlank_ && !utf8.empty()) {
            if (!hasLineEnd_ || !isSourceLayout(*(unit - 1), firstUnitOf(utf8))) {
                *unit++ = u' ';
            }
            hasBlank_ = hasLineEnd_ = false;
        }
    }
    text_.resize(static_cast<std::size_t>(unit - text_.data()));
    addRun(text_.size() - start, look);
}

/// Counts the blanks that a text begins with; they are written when text follows.
std::size_t HtmlText::noteBlanks(std::string_view utf8, std::uint32_t look) {
    std::size_t count = 0;
    for (; count < utf8.size() && isBlank(utf8[count]); ++count) {
        hasLineEnd_ = hasLineEnd_ || utf8[count] == '\n' || utf8[count] == '\r';
    }
    if (count > 0 && !hasBlank_) {
        hasBlank_ = true;
        blankLook_ = look;
    }
    return count;
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
    // Room was made for a page without any markup.
    if (text_.size() < text_.capacity() / 2) {
        text_.shrink_to_fit();
    }
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
    const bool isShown = hasBlank_ && !isAtStart_;
    if (isShown && !(hasLineEnd_ && isSourceLayout(text_.back(), first))) {
        add(u" ", blankLook_);
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
    const std::size_t start = text_.size();
    text_.resize(start + utf8.size());
    char16_t* unit = text_.data() + start;
    while (!utf8.empty()) {
        unit = appendCharacter(utf8, unit);
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
