// The control words of RTF that mean something here, and what each does.
//
// Constant; any thread at once.

#pragma once

#include <cstdint>
#include <string_view>

#include "Platform/Text/RtfTokenizer.h"

namespace platform {

/// What a control word does; in brackets what its argument is.
enum class RtfAction : std::uint8_t {
    // Text.
    Insert,        ///< one character [its UTF-16 unit]
    EndParagraph,  ///< the paragraph's end, or a section's
    EndCell,
    EndRow,
    Unicode,      ///< the character whose UTF-16 unit is the number
    UnicodeSkip,  ///< how many characters stand in for each of those
    Binary,       ///< so many raw bytes follow
    // The document.
    CodePage,      ///< the number is the code page
    CharacterSet,  ///< of the whole document [its code page]
    DefaultFont,
    // Characters.
    Plain,          ///< the default of all of them
    Flag,           ///< one of two ways to look [RtfFlag]
    Underline,      ///< [LineStyle]
    Strikethrough,  ///< [LineStyle]
    Superscript,    ///< [steps]
    Font,
    FontSize,
    Color,
    BackgroundColor,
    // Tables of the document.
    FontCharset,
    FontCodePage,
    ColorPart,  ///< [RtfColors::Part]
    // Paragraphs.
    ParagraphDefaults,
    Alignment,  ///< [TextAlignment]
    Direction,  ///< [WritingDirection]
    Length,     ///< [RtfLength]
    LineSpacing,
    LineSpacingKind,
    Tab,
    TabKind,  ///< [TextAlignment]
    // What the text of a group is.
    Destination,  ///< [RtfDestination]
};

/// Ways to look that are on or off.
enum class RtfFlag : std::uint8_t { Bold, Italic, Hidden, Deleted };

/// Lengths of a paragraph, in twentieths of a point.
enum class RtfLength : std::uint8_t { Left, FirstLine, Right, Before, After };

/// What the text of a group is, or what the group stands for.
enum class RtfDestination : std::uint8_t {
    Body,     ///< text like that around it
    Skipped,  ///< nothing that is read
    FontTable,
    ColorTable,
    Note,  ///< a footnote or an endnote
    Picture,
    Object,   ///< an embedded file, whose look may follow as a result
    Graphic,  ///< the name of an attached file
    Field,
    FieldInstruction,
    FieldResult,
    Alternatives,  ///< the same in bytes and in Unicode
    InUnicode,     ///< the one of them that counts
};

struct RtfControlWord {
    std::string_view name;
    RtfAction action;
    std::int32_t argument = 0;
};

/// Returns what a word's token means; null when it is not known.
[[nodiscard]] const RtfControlWord* rtfControlWord(const RtfToken& word);

}  // namespace platform
