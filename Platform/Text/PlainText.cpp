#include "Platform/Text/PlainText.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Foundation/WideText.h"
#include "Platform/Text/BareWideText.h"
#include "Platform/Text/CodePageConverter.h"
#include "Platform/Text/ControlCharacters.h"
#include "Platform/Text/EncodingDetector.h"

namespace platform {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// How many control characters a text may have: one in so many units, and some in any case.
struct Tolerance {
    std::size_t unitsToStray;
    std::size_t always;
};
constexpr Tolerance kSoundText = {3, 0};
constexpr Tolerance kGuessedText = {20, 2};

/// Counts in blocks of one size, which compilers make wide instructions of.
std::size_t countStrays(std::u16string_view text) {
    constexpr std::size_t kBlock = 64;
    std::size_t count = 0;
    for (; text.size() >= kBlock; text.remove_prefix(kBlock)) {
        std::uint16_t inBlock = 0;
        for (std::size_t i = 0; i < kBlock; i++) {
            inBlock = static_cast<std::uint16_t>(inBlock + (isStrayControl(text[i]) ? 1 : 0));
        }
        count += inBlock;
    }
    return count +
           static_cast<std::size_t>(std::count_if(text.begin(), text.end(), isStrayControl));
}

Result<std::u16string> checkedText(std::u16string text, Tolerance tolerance) {
    const std::size_t size = text.find_last_not_of(u'\0') + 1;
    const std::size_t strays = countStrays(std::u16string_view(text).substr(0, size));
    const bool isOnlyNul = size == 0 && !text.empty();
    if ((strays > tolerance.always && strays * tolerance.unitsToStray > size) || isOnlyNul) {
        return Fault{FaultCode::Unsupported,
                     "no text: " + std::to_string(isOnlyNul ? text.size() : strays) +
                         " control characters among " + std::to_string(text.size()) + " units"};
    }
    return text;
}

/// The text of ASCII that switches to other character sets by escapes; nothing for other ASCII.
std::optional<std::u16string> textWithEscapes(std::string_view ascii) {
    struct Escape {
        std::string_view bytes;
        const char* encoding;
    };
    constexpr Escape kEscapes[] = {
        {"\x1B$)C", "iso-2022-kr"}, {"\x1B$B", "iso-2022-jp"},  {"\x1B$@", "iso-2022-jp"},
        {"\x1B(J", "iso-2022-jp"},  {"\x1B$(D", "iso-2022-jp"}, {"\x1B(I", "iso-2022-jp"},
    };
    const std::size_t first = ascii.find('\x1B');
    if (first == std::string_view::npos) {
        return std::nullopt;
    }
    const auto* const escape =
        std::find_if(std::begin(kEscapes), std::end(kEscapes),
                     [&](const Escape& row) { return ascii.substr(first).starts_with(row.bytes); });
    const auto converter = escape != std::end(kEscapes)
                               ? CodePageConverter::converterNamed(escape->encoding)
                               : nullptr;
    std::u16string text;
    if (converter == nullptr || converter->append(text, ascii) > 0) {
        return std::nullopt;
    }
    return text;
}

/// Whether bytes that are not UTF-8 were meant to be.
bool isDamagedUtf8(std::string_view bytes) {
    constexpr std::size_t kFormsToBroken = 4;
    std::size_t forms = 0;
    std::size_t broken = 0;
    while (!bytes.empty()) {
        const std::size_t length = utf8FormLength(bytes);
        forms += length > 1 ? 1 : 0;
        broken += length == 0 ? 1 : 0;
        bytes.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return forms >= kFormsToBroken * broken;
}

}  // namespace

Result<std::u16string> plainTextFromBytes(std::string_view bytes) {
    if (auto text = utf16FromMarkedBytes(bytes)) {
        return checkedText(std::move(*text), kSoundText);
    }
    if (bytes.starts_with(kUtf8Mark)) {
        return checkedText(utf16FromUtf8Lossy(bytes.substr(kUtf8Mark.size())), kSoundText);
    }
    if (const auto encoding = evidentWideEncoding(bytes)) {
        return checkedText(utf16FromWideBytes(bytes, *encoding), kSoundText);
    }
    if (auto text = utf16FromUtf8(bytes)) {
        const bool isAsciiAlone = text->size() == bytes.size();
        if (auto other = isAsciiAlone ? textWithEscapes(bytes) : std::nullopt) {
            return checkedText(std::move(*other), kSoundText);
        }
        return checkedText(std::move(*text), kSoundText);
    }
    const char* const encoding = isDamagedUtf8(bytes) ? kUtf8Name : likeliestEncoding(bytes);
    return checkedText(textInEncoding(bytes, encoding), kGuessedText);
}

}  // namespace platform
