// The names of the attributes that texts have here, the same as in archives.
//
// kAttachmentAttributeName stands with TextAttachment. Constant; any thread at once.

#pragma once

namespace platform {

/// A Font.
inline constexpr char kFontAttributeName[] = "NSFont";
/// A Color: that of the letters, and of what is behind them.
inline constexpr char kForegroundColorAttributeName[] = "NSColor";
inline constexpr char kBackgroundColorAttributeName[] = "NSBackgroundColor";
/// An integer, the sum of LineStyle numbers.
inline constexpr char kUnderlineStyleAttributeName[] = "NSUnderline";
inline constexpr char kStrikethroughStyleAttributeName[] = "NSStrikethrough";
/// An integer: how many steps above the line, below it when negative.
inline constexpr char kSuperscriptAttributeName[] = "NSSuperScript";
/// A ParagraphStyle.
inline constexpr char kParagraphStyleAttributeName[] = "NSParagraphStyle";
/// A URLReference.
inline constexpr char kLinkAttributeName[] = "NSLink";

/// How lines under and through text are drawn, with the platform's numbers: a style and a pattern
/// are added.
enum LineStyle : int {
    kNoLine = 0,
    kSingleLine = 1,
    kThickLine = 2,
    kDoubleLine = 9,
    kDotLine = 0x100,
    kDashLine = 0x200,
    kDashDotLine = 0x300,
    kDashDotDotLine = 0x400,
    kLineByWord = 0x8000
};

}  // namespace platform
