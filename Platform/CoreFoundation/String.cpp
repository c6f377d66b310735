#include "Platform/CoreFoundation/String.h"

#include <algorithm>
#include <functional>

#include "Platform/CoreFoundation/StringCoding.h"
#include "Platform/Foundation/Unicode.h"

namespace platform::cf {
namespace {

/// Tells whether all units are ASCII; block by block, so that a compiler can do many at once and
/// other texts are known early.
bool areAscii(std::u16string_view units) noexcept {
    constexpr std::size_t kBlock = 256;
    while (!units.empty()) {
        const std::u16string_view block = units.substr(0, kBlock);
        unsigned all = 0;
        for (const char16_t unit : block) {
            all |= unit;
        }
        if (all >= 0x80) {
            return false;
        }
        units.remove_prefix(block.size());
    }
    return true;
}

}  // namespace

const String* String::ofAscii(std::string_view text) {
    auto narrow = std::make_unique_for_overwrite<char[]>(text.size() + 1);
    std::copy(text.begin(), text.end(), narrow.get());
    narrow[text.size()] = '\0';
    return new String(std::move(narrow), nullptr, text.size());
}

const String* String::ofUnits(std::u16string_view units) {
    if (areAscii(units)) {
        auto narrow = std::make_unique_for_overwrite<char[]>(units.size() + 1);
        std::transform(units.begin(), units.end(), narrow.get(),
                       [](char16_t unit) { return static_cast<char>(unit); });
        narrow[units.size()] = '\0';
        return new String(std::move(narrow), nullptr, units.size());
    }
    auto wide = std::make_unique_for_overwrite<char16_t[]>(units.size());
    std::copy(units.begin(), units.end(), wide.get());
    return new String(nullptr, std::move(wide), units.size());
}

const String* String::ofUtf8(std::string_view text) {
    if (isAscii(text)) {
        return ofAscii(text);
    }
    // The copy that this makes is cut to size.
    const std::optional<std::u16string> units = utf16FromUtf8(text);
    return units ? ofUnits(*units) : nullptr;
}

std::optional<std::string> String::utf8() const {
    if (isNarrow()) {
        return std::string(narrow());
    }
    const CharacterEncoder encode = encoderOf(kCFStringEncodingUTF8);
    std::string text;
    for (std::u16string_view rest = wide(); !rest.empty();) {
        const std::optional<EncodedCharacter> character = encode(rest);
        if (!character) {
            return std::nullopt;
        }
        text.append(reinterpret_cast<const char*>(character->bytes), character->byteCount);
        rest.remove_prefix(character->unitCount);
    }
    return text;
}

bool String::isEqual(const Object& other) const noexcept {
    const auto& string = static_cast<const String&>(other);
    if (isNarrow() != string.isNarrow()) {
        return false;
    }
    return isNarrow() ? narrow() == string.narrow() : wide() == string.wide();
}

CFHashCode String::hash() const noexcept {
    return isNarrow() ? std::hash<std::string_view>()(narrow())
                      : std::hash<std::u16string_view>()(wide());
}

std::optional<std::string> utf8Of(CFStringRef string) {
    return string == nullptr ? std::nullopt : objectAs<String>(string, "CFString").utf8();
}

}  // namespace platform::cf
