#include "Platform/Text/RtfText.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <utility>

#include "Platform/Foundation/Unicode.h"

namespace platform {

void RtfText::append(std::string_view bytes, bool areAscii) {
    if (!areAscii || !decoder_.takesAsciiAsItIs()) {
        decoder_.append(text_, bytes);
        return;
    }
    const std::size_t start = text_.size();
    text_.resize(start + bytes.size());
    std::copy(bytes.begin(), bytes.end(), text_.begin() + static_cast<std::ptrdiff_t>(start));
}

void RtfText::appendUnit(char16_t unit) {
    decoder_.finish(text_);
    const bool completes =
        isLowSurrogate(unit) && behindSurrogate_ != 0 && behindSurrogate_ == text_.size();
    if (!completes) {
        mendLoneSurrogate();
    }
    text_ += isLowSurrogate(unit) && !completes ? kReplacementCharacter : unit;
    behindSurrogate_ = isHighSurrogate(unit) ? text_.size() : 0;
}

void RtfText::mendLoneSurrogate() {
    if (behindSurrogate_ != 0) {
        text_[behindSurrogate_ - 1] = kReplacementCharacter;
        behindSurrogate_ = 0;
    }
}

void RtfText::endParagraph(const RtfParagraphFormat& format) {
    append(u'\n');
    closeRuns(format);
}

void RtfText::endCell(const RtfParagraphFormat& format) {
    append(u'\t');
    closeRuns(format);
    behindCell_ = text_.size();
}

void RtfText::endRow(const RtfParagraphFormat& format) {
    decoder_.finish(text_);
    if (behindCell_ != 0 && behindCell_ == text_.size()) {
        // The row's end is that of its last cell, too.
        text_.back() = u'\n';
    } else {
        endParagraph(format);
    }
    behindCell_ = 0;
}

void RtfText::finishParagraph(const RtfParagraphFormat& format) {
    decoder_.finish(text_);
    if (!text_.empty() && text_.back() != u'\n') {
        endParagraph(format);
    }
}

void RtfText::takeParagraphs(RtfText& other, const RtfParagraphFormat& format) {
    other.finishParagraph(format);
    if (other.text_.empty()) {
        return;
    }
    other.closeRuns(format);
    finishParagraph(format);
    closeRuns(format);
    text_ += other.takeCharacters();
    runStart_ = text_.size();
    for (const Run& run : other.runs_) {
        addRun(run.length, run.set);
    }
    other.runs_.clear();
}

std::size_t RtfText::length() {
    decoder_.flush(text_);
    return text_.size();
}

std::u16string RtfText::takeCharacters(std::size_t from) {
    decoder_.finish(text_);
    mendLoneSurrogate();
    std::u16string taken = text_.substr(from);
    text_.resize(from);
    openRuns_.clear();
    runStart_ = from;
    behindCell_ = 0;
    return taken;
}

AttributedString RtfText::finish(const RtfParagraphFormat& format) {
    decoder_.finish(text_);
    mendLoneSurrogate();
    closeRuns(format);
    std::vector<AttributeRun> runs;
    runs.reserve(runs_.size());
    for (; !runs_.empty(); runs_.pop_front()) {
        appendRun(runs, runs_.front().length, attributes_[runs_.front().set]);
    }
    // Room was made for a text without any control words.
    if (text_.size() < text_.capacity() / 2) {
        text_.shrink_to_fit();
    }
    return {std::make_shared<const std::u16string>(std::move(text_)), std::move(runs)};
}

void RtfText::endRun() {
    decoder_.flush(text_);
    if (text_.size() == runStart_) {
        return;
    }
    openRuns_.push_back({format_, text_.size() - runStart_});
    runStart_ = text_.size();
    // A paragraph without an end must not keep more than its text is worth.
    constexpr std::size_t kMostOpenRuns = 4096;
    if (openRuns_.size() == kMostOpenRuns) {
        closeRuns({});
    }
}

void RtfText::closeRuns(const RtfParagraphFormat& format) {
    if (!openRuns_.empty() || text_.size() != runStart_) {
        endRun();
    }
    const std::uint16_t paragraph = attributes_.indexOf(format);
    for (const OpenRun& run : openRuns_) {
        addRun(run.length, attributes_.indexOf(run.format, paragraph));
    }
    openRuns_.clear();
}

void RtfText::addRun(std::size_t length, std::uint32_t set) {
    if (runs_.size() >= mostRuns_) {
        set = RtfAttributes::kNoAttributes;
    }
    constexpr std::size_t kMost = std::numeric_limits<std::uint32_t>::max();
    const bool goesOn =
        !runs_.empty() && runs_.back().set == set && length <= kMost - runs_.back().length;
    if (goesOn) {
        runs_.back().length += static_cast<std::uint32_t>(length);
        return;
    }
    for (; length > kMost; length -= kMost) {
        runs_.push_back({static_cast<std::uint32_t>(kMost), set});
    }
    runs_.push_back({static_cast<std::uint32_t>(length), set});
}

}  // namespace platform
