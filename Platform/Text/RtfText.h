// An RTF document's text while it grows, with the looks of its runs.
//
// One thread at a time.

#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Text/AttributedString.h"
#include "Platform/Text/RtfAttributes.h"
#include "Platform/Text/RtfCodePages.h"
#include "Platform/Text/RtfFormat.h"

namespace platform {

/// Takes text in bytes and in characters. What a paragraph looks like is known only at its end.
class RtfText {
public:
    /// Text behind the run number `mostRuns` has no attributes.
    ///
    /// Requires: `attributes` lives as long as this object.
    RtfText(RtfAttributes& attributes, std::size_t mostRuns)
        : attributes_(attributes), mostRuns_(mostRuns) {}

    /// Makes room, so that the text is not moved while it grows.
    void reserve(std::size_t length) { text_.reserve(length); }

    /// How the text looks from now on.
    void setFormat(const RtfCharacterFormat& format) {
        if (format != format_) {
            endRun();
            format_ = format;
        }
    }

    /// What bytes are in from now on. Requires: isRtfCodePage.
    void setCodePage(int number) { decoder_.setCodePage(number); }

    /// Appends text in bytes.
    void append(std::string_view bytes, bool areAscii);

    /// Appends a whole character.
    void append(char16_t unit) {
        decoder_.finish(text_);
        text_ += unit;
    }

    /// Appends half a character or a whole one. A half that has no other becomes U+FFFD.
    void appendUnit(char16_t unit);

    /// Ends a paragraph, cell or row with its character.
    void endParagraph(const RtfParagraphFormat& format);
    void endCell(const RtfParagraphFormat& format);
    void endRow(const RtfParagraphFormat& format);

    /// Ends the last paragraph unless it has ended, or there is none.
    void finishParagraph(const RtfParagraphFormat& format);

    /// Takes over what another text has, as paragraphs of their own, and leaves it empty.
    void takeParagraphs(RtfText& other, const RtfParagraphFormat& format);

    /// The length with all that waits.
    [[nodiscard]] std::size_t length();

    [[nodiscard]] bool empty() { return length() == 0; }

    /// Takes the characters from a place on, without their looks.
    [[nodiscard]] std::u16string takeCharacters(std::size_t from = 0);

    /// The text with its attributes, once.
    [[nodiscard]] AttributedString finish(const RtfParagraphFormat& format);

private:
    /// A stretch of the paragraph that has not ended.
    struct OpenRun {
        RtfCharacterFormat format;
        std::size_t length;
    };
    /// One of paragraphs that have.
    struct Run {
        std::uint32_t length;
        std::uint32_t set;
    };

    void endRun();
    void closeRuns(const RtfParagraphFormat& format);
    void addRun(std::size_t length, std::uint32_t set);
    void mendLoneSurrogate();

    RtfAttributes& attributes_;
    const std::size_t mostRuns_;
    RtfDecoder decoder_;
    std::u16string text_;
    RtfCharacterFormat format_;
    std::size_t runStart_ = 0;
    std::vector<OpenRun> openRuns_;
    /// Grows without being moved, because there may be many.
    std::deque<Run> runs_;
    /// The place behind a high surrogate that was appended; 0 for none.
    std::size_t behindSurrogate_ = 0;
    /// The place behind the tab of a cell; 0 for none.
    std::size_t behindCell_ = 0;
};

}  // namespace platform
