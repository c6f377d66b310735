// What the instruction of a field in an RTF document says.
//
// Pure function; any thread at once.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// What a field adds to its result.
struct RtfField {
    /// Where the result leads; empty for nowhere.
    std::u16string link;
    /// The character that the field is instead of its result.
    std::optional<char16_t> symbol;
};

/// Returns the meaning of an instruction such as `HYPERLINK "https://example.org" \l "place"`.
[[nodiscard]] RtfField rtfField(std::u16string_view instruction);

}  // namespace platform
