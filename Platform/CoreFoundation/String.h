// The class behind CFStringRef: immutable UTF-16 units, one byte each while they are all ASCII.
//
// The form is canonical (ASCII is always narrow), so strings of different forms are never equal.
// Immutable; any thread.

#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/CoreFoundation/CFString.h"
#include "Platform/CoreFoundation/Object.h"

namespace platform::cf {

class String final : public PlainObject<String> {
public:
    static constexpr TypeID kType = TypeID::String;

    /// These return a new string, owned by the caller, or throw std::bad_alloc.
    /// Requires: `text` is ASCII.
    [[nodiscard]] static const String* ofAscii(std::string_view text);
    [[nodiscard]] static const String* ofUnits(std::u16string_view units);
    /// Null when the text is no valid UTF-8. A byte order mark is a character.
    [[nodiscard]] static const String* ofUtf8(std::string_view text);

    [[nodiscard]] std::size_t length() const noexcept { return length_; }
    [[nodiscard]] char16_t unitAt(std::size_t index) const noexcept {
        return isNarrow() ? static_cast<unsigned char>(narrow_[index]) : wide_[index];
    }

    [[nodiscard]] bool isNarrow() const noexcept { return narrow_ != nullptr; }
    /// The units of a narrow string, with a NUL behind them.
    [[nodiscard]] std::string_view narrow() const noexcept { return {narrow_.get(), length_}; }
    /// The units of another string.
    [[nodiscard]] std::u16string_view wide() const noexcept { return {wide_.get(), length_}; }

    /// The string as UTF-8; nothing when it holds a lone surrogate. May throw std::bad_alloc.
    [[nodiscard]] std::optional<std::string> utf8() const;

    [[nodiscard]] bool isEqual(const Object& other) const noexcept override;
    [[nodiscard]] CFHashCode hash() const noexcept override;

private:
    String(std::unique_ptr<char[]> narrow, std::unique_ptr<char16_t[]> wide, std::size_t length)
        : PlainObject(kType), narrow_(std::move(narrow)), wide_(std::move(wide)), length_(length) {}

    std::unique_ptr<char[]> narrow_;
    std::unique_ptr<char16_t[]> wide_;
    std::size_t length_;
};

inline CFStringRef refOf(const String* string) noexcept {
    return reinterpret_cast<CFStringRef>(string);
}

/// The text of a string that the caller has as a Ref, as UTF-8; nothing when that cannot be.
[[nodiscard]] std::optional<std::string> utf8Of(CFStringRef string);

}  // namespace platform::cf
