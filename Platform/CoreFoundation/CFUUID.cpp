#include "Platform/CoreFoundation/CFUUID.h"

#include <sys/random.h>

#include <bit>
#include <string>

#include "Platform/CoreFoundation/String.h"
#include "Platform/CoreFoundation/UUID.h"

static_assert(sizeof(CFUUIDBytes) == 16 && alignof(CFUUIDBytes) == 1);

namespace platform::cf {
namespace {

CFUUIDRef uuidOf(const UUIDBytes& bytes) {
    return orNull([&] { return refOf(UUID::of(bytes)); });
}

const String* textOf(const UUIDBytes& bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) {
            text += '-';
        }
        text += kDigits[bytes[i] >> 4];
        text += kDigits[bytes[i] & 0xF];
    }
    return String::ofAscii(text);
}

}  // namespace
}  // namespace platform::cf

using platform::cf::objectAs;
using platform::cf::orNull;
using platform::cf::String;
using platform::cf::textOf;
using platform::cf::TypeID;
using platform::cf::UUID;
using platform::cf::UUIDBytes;
using platform::cf::uuidFromText;
using platform::cf::uuidOf;

extern "C" {

CFTypeID CFUUIDGetTypeID(void) {
    return static_cast<CFTypeID>(TypeID::UUID);
}

CFUUIDRef CFUUIDCreate(CFAllocatorRef) {
    UUIDBytes bytes;
    if (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
        return nullptr;
    }
    // Version 4, random, in the usual variant.
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x40);
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);
    return uuidOf(bytes);
}

CFUUIDRef CFUUIDCreateFromUUIDBytes(CFAllocatorRef, CFUUIDBytes bytes) {
    return uuidOf(std::bit_cast<UUIDBytes>(bytes));
}

CFUUIDRef CFUUIDCreateWithBytes(CFAllocatorRef, UInt8 byte0, UInt8 byte1, UInt8 byte2, UInt8 byte3,
                                UInt8 byte4, UInt8 byte5, UInt8 byte6, UInt8 byte7, UInt8 byte8,
                                UInt8 byte9, UInt8 byte10, UInt8 byte11, UInt8 byte12, UInt8 byte13,
                                UInt8 byte14, UInt8 byte15) {
    return uuidOf({byte0, byte1, byte2, byte3, byte4, byte5, byte6, byte7, byte8, byte9, byte10,
                   byte11, byte12, byte13, byte14, byte15});
}

CFUUIDRef CFUUIDCreateFromString(CFAllocatorRef, CFStringRef uuidStr) {
    if (uuidStr == nullptr) {
        return nullptr;
    }
    const auto& text = objectAs<String>(uuidStr, "CFUUIDCreateFromString");
    if (text.length() == 0) {
        return nullptr;
    }
    if (!text.isNarrow()) {
        return uuidOf(uuidFromText(text.wide()));
    }
    return orNull([&] {
        return uuidOf(uuidFromText(std::u16string(text.narrow().begin(), text.narrow().end())));
    });
}

CFStringRef CFUUIDCreateString(CFAllocatorRef, CFUUIDRef uuid) {
    const auto& object = objectAs<UUID>(uuid, "CFUUIDCreateString");
    return orNull([&] { return refOf(textOf(object.bytes())); });
}

CFUUIDBytes CFUUIDGetUUIDBytes(CFUUIDRef uuid) {
    return std::bit_cast<CFUUIDBytes>(objectAs<UUID>(uuid, "CFUUIDGetUUIDBytes").bytes());
}

CFUUIDRef CFUUIDGetConstantUUIDWithBytes(CFAllocatorRef, UInt8 byte0, UInt8 byte1, UInt8 byte2,
                                         UInt8 byte3, UInt8 byte4, UInt8 byte5, UInt8 byte6,
                                         UInt8 byte7, UInt8 byte8, UInt8 byte9, UInt8 byte10,
                                         UInt8 byte11, UInt8 byte12, UInt8 byte13, UInt8 byte14,
                                         UInt8 byte15) {
    return orNull([&] {
        const UUID* uuid = UUID::of({byte0, byte1, byte2, byte3, byte4, byte5, byte6, byte7, byte8,
                                     byte9, byte10, byte11, byte12, byte13, byte14, byte15});
        uuid->makeEternal();
        return refOf(uuid);
    });
}

}  // extern "C"
