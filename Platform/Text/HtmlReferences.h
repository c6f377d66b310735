// References of HTML to characters: &eacute; &#233; &#xE9;
//
// Pure functions; any thread at once.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// Where a reference stands. In the value of an attribute, such as a URL, names without a semicolon
/// are none when "=" or a letter or digit follows.
enum class HtmlReferencePlace : std::uint8_t { Text, Attribute };

/// Appends to `characters`, in UTF-8, what the reference at the start of `text` stands for; returns
/// its length. 0 when what begins with '&' there is no reference.
///
/// Numbers of control characters are those of windows-1252. What no character has becomes U+FFFD; a
/// NUL does, too.
[[nodiscard]] std::size_t readHtmlReference(std::string_view text, HtmlReferencePlace place,
                                            std::string& characters);

}  // namespace platform
