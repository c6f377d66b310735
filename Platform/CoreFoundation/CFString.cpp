// The functions that ask strings.

#include "Platform/CoreFoundation/CFString.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "Platform/CoreFoundation/String.h"
#include "Platform/CoreFoundation/StringCoding.h"

namespace platform::cf {
namespace {

constexpr CFIndex kMaxIndex = std::numeric_limits<CFIndex>::max();

CFIndex indexOf(std::size_t size) noexcept {
    return static_cast<CFIndex>(size);
}

/// Where bytes are written: a buffer of a fixed size, or nowhere, only counted.
class ByteSink {
public:
    ByteSink(UInt8* buffer, CFIndex size) noexcept
        : buffer_(buffer), room_(buffer == nullptr ? kMaxIndex : std::max<CFIndex>(size, 0)) {}

    [[nodiscard]] CFIndex used() const noexcept { return used_; }
    [[nodiscard]] CFIndex room() const noexcept { return room_ - used_; }

    /// Writes all the bytes or, where they don't fit, none; tells which.
    bool write(const void* bytes, CFIndex count) noexcept {
        if (count > room()) {
            return false;
        }
        if (buffer_ != nullptr && count > 0) {
            std::memcpy(buffer_ + used_, bytes, static_cast<std::size_t>(count));
        }
        used_ += count;
        return true;
    }

private:
    UInt8* buffer_;
    CFIndex room_;
    CFIndex used_ = 0;
};

/// Writes what fits of a narrow string's characters; returns how many.
CFIndex writeNarrow(std::string_view units, ByteSink& sink) noexcept {
    const CFIndex count = std::min(indexOf(units.size()), sink.room());
    sink.write(units.data(), count);
    return count;
}

/// Writes the characters of `units` until one does not fit or cannot be written; returns how many
/// units that were.
CFIndex writeUnits(std::u16string_view units, CharacterEncoder encode, UInt8 lossByte,
                   ByteSink& sink) {
    const std::size_t all = units.size();
    while (!units.empty()) {
        std::optional<EncodedCharacter> character = encode(units);
        if (!character && lossByte != 0) {
            character = EncodedCharacter{{lossByte}, 1, 1};
        }
        if (!character || !sink.write(character->bytes, character->byteCount)) {
            break;
        }
        units.remove_prefix(character->unitCount);
    }
    return indexOf(all - units.size());
}

/// Writes the characters of a narrow string in an encoding that does not extend ASCII.
CFIndex writeWidened(std::string_view units, CharacterEncoder encode, ByteSink& sink) {
    for (std::size_t i = 0; i < units.size(); ++i) {
        const char16_t unit = static_cast<unsigned char>(units[i]);
        const std::optional<EncodedCharacter> character = encode({&unit, 1});
        if (!character || !sink.write(character->bytes, character->byteCount)) {
            return indexOf(i);
        }
    }
    return indexOf(units.size());
}

CFIndex writeRange(const String& string, CFRange range, CFStringEncoding encoding, UInt8 lossByte,
                   ByteSink& sink) {
    const CharacterEncoder encode = encoderOf(encoding);
    const auto location = static_cast<std::size_t>(range.location);
    const auto length = static_cast<std::size_t>(range.length);
    if (encode == nullptr) {
        return 0;
    }
    if (!string.isNarrow()) {
        return writeUnits(string.wide().substr(location, length), encode, lossByte, sink);
    }
    const std::string_view units = string.narrow().substr(location, length);
    return extendsAscii(encoding) ? writeNarrow(units, sink) : writeWidened(units, encode, sink);
}

void expectRange(const String& string, CFRange range, const char* function) noexcept {
    const CFIndex length = indexOf(string.length());
    expect(range.location >= 0 && range.length >= 0 && range.location <= length &&
               range.length <= length - range.location,
           function);
}

/// Writes the string and a NUL; false, with an empty string in the buffer, when that cannot be.
bool writeCString(const String& string, char* buffer, CFIndex bufferSize,
                  CFStringEncoding encoding) {
    if (buffer == nullptr || bufferSize <= 0) {
        return false;
    }
    const CFIndex length = indexOf(string.length());
    ByteSink sink(reinterpret_cast<UInt8*>(buffer), bufferSize - 1);
    const bool whole = extendsAscii(encoding) &&
                       writeRange(string, CFRangeMake(0, length), encoding, 0, sink) == length;
    buffer[whole ? sink.used() : 0] = '\0';
    return whole;
}

bool holdsNul(const String& string) noexcept {
    return string.isNarrow() ? string.narrow().find('\0') != std::string_view::npos
                             : string.wide().find(u'\0') != std::u16string_view::npos;
}

}  // namespace
}  // namespace platform::cf

using platform::cf::ByteSink;
using platform::cf::expect;
using platform::cf::expectRange;
using platform::cf::extendsAscii;
using platform::cf::holdsNul;
using platform::cf::indexOf;
using platform::cf::kMaxIndex;
using platform::cf::maxBytesPerUnit;
using platform::cf::objectAs;
using platform::cf::String;
using platform::cf::TypeID;
using platform::cf::writeCString;

extern "C" {

CFTypeID CFStringGetTypeID(void) {
    return static_cast<CFTypeID>(TypeID::String);
}

CFIndex CFStringGetLength(CFStringRef theString) {
    return indexOf(objectAs<String>(theString, "CFStringGetLength").length());
}

UniChar CFStringGetCharacterAtIndex(CFStringRef theString, CFIndex idx) {
    const auto& string = objectAs<String>(theString, "CFStringGetCharacterAtIndex");
    expect(idx >= 0 && idx < indexOf(string.length()), "CFStringGetCharacterAtIndex");
    return string.unitAt(static_cast<std::size_t>(idx));
}

void CFStringGetCharacters(CFStringRef theString, CFRange range, UniChar* buffer) {
    const auto& string = objectAs<String>(theString, "CFStringGetCharacters");
    expectRange(string, range, "CFStringGetCharacters");
    const auto location = static_cast<std::size_t>(range.location);
    const auto length = static_cast<std::size_t>(range.length);
    if (string.isNarrow()) {
        const std::string_view units = string.narrow().substr(location, length);
        std::transform(units.begin(), units.end(), buffer,
                       [](char unit) { return static_cast<unsigned char>(unit); });
    } else {
        const std::u16string_view units = string.wide().substr(location, length);
        std::copy(units.begin(), units.end(), buffer);
    }
}

Boolean CFStringGetCString(CFStringRef theString, char* buffer, CFIndex bufferSize,
                           CFStringEncoding encoding) {
    const auto& string = objectAs<String>(theString, "CFStringGetCString");
    return writeCString(string, buffer, bufferSize, encoding);
}

const char* CFStringGetCStringPtr(CFStringRef theString, CFStringEncoding encoding) {
    const auto& string = objectAs<String>(theString, "CFStringGetCStringPtr");
    // With a NUL inside, what the pointer shows would not be the whole string.
    if (!string.isNarrow() || !extendsAscii(encoding) || holdsNul(string)) {
        return nullptr;
    }
    return string.narrow().data();
}

CFIndex CFStringGetBytes(CFStringRef theString, CFRange range, CFStringEncoding encoding,
                         UInt8 lossByte, Boolean isExternalRepresentation, UInt8* buffer,
                         CFIndex maxBufLen, CFIndex* usedBufLen) {
    const auto& string = objectAs<String>(theString, "CFStringGetBytes");
    expectRange(string, range, "CFStringGetBytes");
    ByteSink sink(buffer, maxBufLen);
    constexpr char16_t kMark = 0xFEFF;
    CFIndex units = 0;
    if (encoding != kCFStringEncodingUTF16 || !isExternalRepresentation ||
        sink.write(&kMark, sizeof kMark)) {
        units = writeRange(string, range, encoding, lossByte, sink);
    }
    if (usedBufLen != nullptr) {
        *usedBufLen = sink.used();
    }
    return units;
}

CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding encoding) {
    const auto bytes = indexOf(maxBytesPerUnit(encoding));
    if (bytes == 0 || length < 0 || length > kMaxIndex / bytes) {
        return kCFNotFound;
    }
    return length * bytes;
}

Boolean CFStringGetFileSystemRepresentation(CFStringRef string, char* buffer, CFIndex maxBufLen) {
    const auto& path = objectAs<String>(string, "CFStringGetFileSystemRepresentation");
    if (buffer != nullptr && maxBufLen > 0 && holdsNul(path)) {
        buffer[0] = '\0';
        return false;
    }
    return writeCString(path, buffer, maxBufLen, kCFStringEncodingUTF8);
}

CFIndex CFStringGetMaximumSizeOfFileSystemRepresentation(CFStringRef string) {
    const CFIndex length = CFStringGetLength(string);
    return CFStringGetMaximumSizeForEncoding(length, kCFStringEncodingUTF8) + 1;
}

}  // extern "C"
