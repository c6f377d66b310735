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

/// An integer, the kind of line below the text: 0 none, 1 single, 2 thick, 9 double.
inline constexpr char kUnderlineStyleAttributeName[] = "NSUnderline";

/// An integer, the kind of line through the text: 0 none, 1 single.
inline constexpr char kStrikethroughStyleAttributeName[] = "NSStrikethrough";

/// An integer: above 0 raised, below 0 lowered text.
inline constexpr char kSuperscriptAttributeName[] = "NSSuperScript";

/// A URLReference, or a string with a URL.
inline constexpr char kLinkAttributeName[] = "NSLink";

}  // namespace platform
