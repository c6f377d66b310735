// How a stretch of an RTF text looks, as numbers that lead to tables.
//
// Plain records: they are copied with every group.

#pragma once

#include <compare>
#include <cstdint>

#include "Platform/Text/ParagraphStyle.h"

namespace platform {

/// The look of characters. An index of 0 means the default, or none.
struct RtfCharacterFormat {
    std::uint16_t font = 0;
    std::uint16_t halfPoints = 24;
    std::uint16_t color = 0;
    std::uint16_t backgroundColor = 0;
    std::uint16_t link = 0;
    std::uint16_t attachment = 0;
    std::uint16_t underline = 0;
    std::uint8_t strikethrough = 0;
    std::int8_t superscript = 0;
    bool isBold = false;
    bool isItalic = false;

    friend auto operator<=>(const RtfCharacterFormat&, const RtfCharacterFormat&) = default;
};

/// The layout of paragraphs; lengths are in twentieths of a point.
struct RtfParagraphFormat {
    std::int32_t left = 0;
    std::int32_t firstLine = 0;
    std::int32_t right = 0;
    std::int32_t before = 0;
    std::int32_t after = 0;
    std::int32_t lineSpacing = 0;
    /// RtfTabs' number of the tabs.
    std::uint16_t tabs = 0;
    /// Whether the spacing is a multiple of the usual one, in 240ths.
    bool isMultiple = false;
    TextAlignment alignment = TextAlignment::Natural;
    WritingDirection direction = WritingDirection::Natural;

    friend auto operator<=>(const RtfParagraphFormat&, const RtfParagraphFormat&) = default;
};

}  // namespace platform
