// The names of the attributes that the system's readers give to text and its writers understand.
//
// The name of an attachment's attribute is in TextAttachment.h.

#pragma once

namespace platform {

/// A Font.
inline constexpr char kFontAttributeName[] = "NSFont";

/// A ParagraphStyle; absent for a paragraph as it comes.
inline constexpr char kParagraphStyleAttributeName[] = "NSParagraphStyle";

/// The text's Color; absent for black.
inline constexpr char kForegroundColorAttributeName[] = "NSColor";

/// The Color behind the text; absent for none.
inline constexpr char kBackgroundColorAttributeName[] = "NSBackgroundColor";

/// An integer, the kind of line below the text: a LineStyle and perhaps a pattern added to it.
inline constexpr char kUnderlineStyleAttributeName[] = "NSUnderline";

/// An integer, the kind of line through the text, in the same way.
inline constexpr char kStrikethroughStyleAttributeName[] = "NSStrikethrough";

/// An integer: above 0 raised, below 0 lowered text.
inline constexpr char kSuperscriptAttributeName[] = "NSSuperScript";

/// A URLReference, or a string with a URL.
inline constexpr char kLinkAttributeName[] = "NSLink";

/// Kinds of lines below and through text, with the platform's numbers.
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
