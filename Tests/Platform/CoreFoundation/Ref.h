// What the tests of the C library share: ownership and texts.

#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "Platform/CoreFoundation/CoreFoundation.h"

namespace test {

struct Release {
    void operator()(const void* object) const { CFRelease(object); }
};

/// Owns what a Create or Copy function returned.
template <class RefType>
using Ref = std::unique_ptr<std::remove_pointer_t<RefType>, Release>;

template <class RefType>
Ref<RefType> own(RefType object) {
    return Ref<RefType>(object);
}

/// A string of UTF-8 text; null when that is invalid.
inline Ref<CFStringRef> makeString(std::string_view utf8) {
    return own(
        CFStringCreateWithBytes(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(utf8.data()),
                                static_cast<CFIndex>(utf8.size()), kCFStringEncodingUTF8, false));
}

/// A string of these units.
inline Ref<CFStringRef> makeString(std::u16string_view units) {
    return own(CFStringCreateWithCharacters(kCFAllocatorDefault,
                                            reinterpret_cast<const UniChar*>(units.data()),
                                            static_cast<CFIndex>(units.size())));
}

/// The units of a string.
inline std::u16string unitsOf(CFStringRef string) {
    std::u16string units(static_cast<std::size_t>(CFStringGetLength(string)), u'\0');
    CFStringGetCharacters(string, CFRangeMake(0, CFStringGetLength(string)),
                          reinterpret_cast<UniChar*>(units.data()));
    return units;
}

/// A string as UTF-8; "(none)" for NULL and for one that cannot be written.
inline std::string utf8Of(CFStringRef string) {
    if (string == nullptr) {
        return "(none)";
    }
    std::string text(
        static_cast<std::size_t>(CFStringGetMaximumSizeOfFileSystemRepresentation(string)), '\0');
    if (!CFStringGetCString(string, text.data(), static_cast<CFIndex>(text.size()),
                            kCFStringEncodingUTF8)) {
        return "(none)";
    }
    return text.substr(0, text.find('\0'));
}

/// The place at a path.
inline Ref<CFURLRef> makeURL(std::string_view path, bool isFolder) {
    return own(CFURLCreateFromFileSystemRepresentation(
        kCFAllocatorDefault, reinterpret_cast<const UInt8*>(path.data()),
        static_cast<CFIndex>(path.size()), isFolder));
}

}  // namespace test
