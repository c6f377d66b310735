#include "Platform/Text/BareWideText.h"

#include <algorithm>
#include <string>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/ControlCharacters.h"
#include "Platform/Text/Scripts.h"

namespace platform {
namespace {

constexpr std::size_t kUnitsToOdd = 50;
constexpr std::size_t kUnitsToSenseless = 20;

/// Cuts off the beginning of a form that the end of a sample of UTF-8 has cut.
std::string_view withoutCutForm(std::string_view bytes) {
    for (std::size_t count = 1; count <= std::min<std::size_t>(3, bytes.size()); count++) {
        if (static_cast<unsigned char>(bytes[bytes.size() - count]) >= 0xC0) {
            return bytes.substr(0, bytes.size() - count);
        }
    }
    return bytes;
}

/// Whether the bytes may well be UTF-8 with few control characters.
bool isLikelyUtf8(std::string_view sample) {
    while (sample.ends_with('\0')) {
        sample.remove_suffix(1);
    }
    const auto strays =
        static_cast<std::size_t>(std::count_if(sample.begin(), sample.end(), [](char byte) {
            return isStrayControl(static_cast<unsigned char>(byte));
        }));
    return strays * kUnitsToSenseless <= sample.size() &&
           (strays == 0 || utf16FromUtf8(withoutCutForm(sample)));
}

/// Characters that stand between letters of any script.
bool isCommonSign(char16_t unit) {
    return (unit >= 0x20 && unit < 0x7F) || (unit >= 0xA0 && unit < 0x100) || unit == 0xFEFF ||
           (unit >= 0x2000 && unit < 0x2C00) || (unit >= 0x3000 && unit < 0x3040) ||
           (unit >= 0xFF00 && unit < 0xFFF0) || (unit < 0x20 && !isStrayControl(unit));
}

/// Scripts that stand side by side in one word are one: those of East Asia.
Script groupOf(Script script) {
    return script >= Script::Han && script <= Script::Hangul ? Script::Han : script;
}

/// Whether a surrogate begins a character beyond U+FFFF of the planes that are in use.
bool beginsUsedPlane(char16_t high) {
    return high < 0xD8C0 || (high >= 0xDB40 && high < 0xDB80);
}

/// The number of units that make no sense.
std::size_t senselessUnits(std::u16string_view text) {
    std::size_t count = 0;
    Script last = Script::None;
    for (std::size_t i = 0; i < text.size(); i++) {
        if (isHighSurrogate(text[i]) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            count += beginsUsedPlane(text[i]) ? 0 : 1;
            last = Script::None;
            i++;
            continue;
        }
        const Script script = groupOf(scriptOf(text[i]));
        const bool isMixed = script < Script::Unnamed && last < Script::Unnamed && script != last;
        const bool isSenseless =
            script == Script::Unnamed || (script == Script::None && !isCommonSign(text[i]));
        count += isMixed || isSenseless ? 1 : 0;
        last = script == Script::Mark ? last : script;
    }
    return count;
}

/// Whether a unit has an upper byte that no text in an encoding of bytes has. Rare Latin letters
/// and marks are no evidence: small numbers look like them.
bool isOdd(char16_t unit) {
    const bool isRareLatin = unit >= 0x0100 && unit < 0x0370;
    const auto upper = static_cast<char16_t>(unit >> 8);
    return !isRareLatin && (isStrayControl(upper) || upper == 0x0E);
}

/// The number of units that make no sense when the bytes are read so; nothing when that is out of
/// the question.
std::optional<std::size_t> senselessUnits(std::string_view sample, WideEncoding encoding) {
    const std::u16string text = utf16FromWideBytes(sample, encoding);
    const auto odd = static_cast<std::size_t>(std::count_if(text.begin(), text.end(), isOdd));
    const std::size_t senseless = senselessUnits(text);
    const bool isPossible = !text.empty() && odd > 0 && odd * kUnitsToOdd >= text.size() &&
                            senseless * kUnitsToSenseless <= text.size();
    return isPossible ? std::optional(senseless) : std::nullopt;
}

bool isUtf32(std::string_view sample, WideEncoding encoding) {
    const std::u16string text = utf16FromWideBytes(sample, encoding);
    return !text.empty() && text.find(kReplacementCharacter) == std::u16string::npos &&
           senselessUnits(text) * kUnitsToSenseless <= text.size();
}

}  // namespace

std::optional<WideEncoding> evidentWideEncoding(std::string_view bytes) {
    const std::string_view sample = bytes.substr(0, kWideSample);
    if (isLikelyUtf8(sample)) {
        return std::nullopt;
    }
    const std::string_view wholeUnits = sample.substr(0, sample.size() / 4 * 4);
    for (const auto encoding : {WideEncoding::Utf32LittleEndian, WideEncoding::Utf32BigEndian}) {
        if (isUtf32(wholeUnits, encoding)) {
            return encoding;
        }
    }
    const std::string_view wholePairs = sample.substr(0, sample.size() / 2 * 2);
    const auto little = senselessUnits(wholePairs, WideEncoding::Utf16LittleEndian);
    const auto big = senselessUnits(wholePairs, WideEncoding::Utf16BigEndian);
    if (little && (!big || *little <= *big)) {
        return WideEncoding::Utf16LittleEndian;
    }
    return big ? std::optional(WideEncoding::Utf16BigEndian) : std::nullopt;
}

}  // namespace platform
