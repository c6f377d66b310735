#include "Platform/Text/HtmlText.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/HtmlCharacters.h"

namespace platform {
namespace {

constexpr char16_t kLineSeparator = 0x2028;

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
        unit = writeWords(utf8, unit);
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
    for (; count < utf8.size() && isHtmlBlank(utf8[count]); ++count) {
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

void HtmlText::separate(std::uint32_t look) {
    if (!hasBlank_) {
        hasBlank_ = true;
        hasLineEnd_ = false;
        blankLook_ = look;
    }
}

void HtmlText::breakLine(std::uint32_t look) {
    hasBlank_ = false;
    beginText(kLineSeparator, look);
    add({&kLineSeparator, 1}, look);
    isAtStart_ = true;
}

void HtmlText::endParagraph(std::uint32_t look) {
    isBehindReturn_ = false;
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
    const char16_t* const unit = writeCharacters(utf8, text_.data() + start);
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
