// The functions that make strings.

#include <algorithm>
#include <memory>
#include <string_view>

#include "Platform/CoreFoundation/CFString.h"
#include "Platform/CoreFoundation/String.h"
#include "Platform/CoreFoundation/StringCoding.h"
#include "Platform/Foundation/Unicode.h"

namespace platform::cf {
namespace {

constexpr bool kLittleEndianMachine = __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__;

const String* stringOfAscii(std::string_view bytes) {
    return isAscii(bytes) ? String::ofAscii(bytes) : nullptr;
}

const String* stringOfUtf8(std::string_view bytes) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kMark)) {
        bytes.remove_prefix(kMark.size());
    }
    return String::ofUtf8(bytes);
}

const String* stringOfUtf16(std::string_view bytes, bool littleEndian) {
    if (bytes.size() % 2 != 0) {
        return nullptr;
    }
    const std::size_t count = bytes.size() / 2;
    auto units = std::make_unique_for_overwrite<char16_t[]>(count);
    std::copy(bytes.begin(), bytes.end(), reinterpret_cast<char*>(units.get()));
    if (littleEndian != kLittleEndianMachine) {
        std::transform(units.get(), units.get() + count, units.get(), [](char16_t unit) {
            return static_cast<char16_t>((unit << 8) | (unit >> 8));
        });
    }
    return String::ofUnits({units.get(), count});
}

const String* stringOfMarkedUtf16(std::string_view bytes, bool external) {
    if (bytes.starts_with("\xFF\xFE")) {
        return stringOfUtf16(bytes.substr(2), true);
    }
    if (bytes.starts_with("\xFE\xFF")) {
        return stringOfUtf16(bytes.substr(2), false);
    }
    return stringOfUtf16(bytes, !external && kLittleEndianMachine);
}

const String* stringOfBytes(std::string_view bytes, CFStringEncoding encoding, bool external) {
    switch (encoding) {
        case kCFStringEncodingASCII:
            return stringOfAscii(bytes);
        case kCFStringEncodingUTF8:
            return stringOfUtf8(bytes);
        case kCFStringEncodingUTF16:
            return stringOfMarkedUtf16(bytes, external);
        case kCFStringEncodingUTF16BE:
        case kCFStringEncodingUTF16LE:
            return stringOfUtf16(bytes, encoding == kCFStringEncodingUTF16LE);
        default:
            return nullptr;
    }
}

}  // namespace
}  // namespace platform::cf

using platform::cf::extendsAscii;
using platform::cf::objectAs;
using platform::cf::orNull;
using platform::cf::String;
using platform::cf::stringOfBytes;

extern "C" {

CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const UInt8* bytes, CFIndex numBytes,
                                    CFStringEncoding encoding, Boolean isExternalRepresentation) {
    if (numBytes < 0 || (bytes == nullptr && numBytes > 0)) {
        return nullptr;
    }
    const std::string_view text(reinterpret_cast<const char*>(bytes),
                                static_cast<std::size_t>(numBytes));
    return orNull([&] { return refOf(stringOfBytes(text, encoding, isExternalRepresentation)); });
}

CFStringRef CFStringCreateWithCString(CFAllocatorRef, const char* cStr, CFStringEncoding encoding) {
    if (cStr == nullptr || !extendsAscii(encoding)) {
        return nullptr;
    }
    return orNull([&] { return refOf(stringOfBytes(cStr, encoding, false)); });
}

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar* chars, CFIndex numChars) {
    if (numChars < 0 || (chars == nullptr && numChars > 0)) {
        return nullptr;
    }
    // A UniChar and a char16_t are the same sixteen bits to the machine, yet not the same type.
    const auto count = static_cast<std::size_t>(numChars);
    return orNull([&] {
        return refOf(String::ofUnits({reinterpret_cast<const char16_t*>(chars), count}));
    });
}

CFStringRef CFStringCreateCopy(CFAllocatorRef, CFStringRef theString) {
    objectAs<String>(theString, "CFStringCreateCopy").retain();
    return theString;
}

}  // extern "C"
