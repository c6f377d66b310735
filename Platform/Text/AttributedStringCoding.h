// How attributed text is kept in keyed archives.
//
// Constant; any thread at once.

#pragma once

#include <span>

#include "Platform/Foundation/KeyedUnarchiver.h"

namespace platform {

/// The classes of attributed text, to be added to an unarchiver: texts become AttributedString
/// objects; fonts, colours, paragraph styles and attachments become Font, Color, ParagraphStyle and
/// TextAttachment objects, or stay opaque where they make no sense.
///
/// A text that is missing is empty, one that is no string is a Fault. Attributes that are damaged
/// end where the damage begins: the text is kept, with the attributes before it.
[[nodiscard]] std::span<const CodableClass> attributedTextClasses();

}  // namespace platform
