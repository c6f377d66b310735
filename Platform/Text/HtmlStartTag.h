// The tag that begins an element, as the parser gets it.
//
// Pure functions; any thread at once.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "Platform/Text/HtmlKinds.h"
#include "Platform/Text/HtmlReferences.h"
#include "Platform/Text/HtmlTag.h"

namespace platform {

/// Appends the start of a tag to `written`, up to what ends it: the name of the kind and those
/// attributes that mean something to it, their values in quotes and without references but to the
/// signs of markup. Returns whether there are such attributes.
bool appendHtmlStartTag(const HtmlTag& tag, const HtmlKind& kind, std::string& written);

/// Appends what stands at the start of `text`, the sign '&', as it can be written: the character
/// that a reference stands for, or the sign itself. Returns how much of the text it was.
std::size_t appendHtmlReference(std::string_view text, HtmlReferencePlace place,
                                std::string& written);

/// How many bytes at the start of a text can be written as they are.
[[nodiscard]] std::size_t lengthOfPlainHtml(std::string_view text);

/// Appends characters, the signs of markup by reference and control characters as blanks, or not at
/// all.
void appendEscapedHtml(std::string_view text, std::string& written);

}  // namespace platform
