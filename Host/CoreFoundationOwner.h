// Ownership of CoreFoundation objects, and their strings as ours.
//
// An owner serves one thread at a time; the objects follow CoreFoundation's own rules.

#pragma once

#include <string>
#include <utility>

#include "Platform/CoreFoundation/CoreFoundation.h"
#include "Platform/Foundation/Unicode.h"

namespace host {

/// Owns one reference of an object, or nothing, and gives it back at the end of its life.
template <class Ref>
class Owner {
public:
    Owner() = default;
    /// Takes over what a function with Create or Copy in its name has returned; may be null.
    explicit Owner(Ref ref) : ref_(ref) {}
    ~Owner() { reset(); }
    Owner(Owner&& other) noexcept : ref_(std::exchange(other.ref_, nullptr)) {}
    Owner& operator=(Owner&& other) noexcept {
        reset();
        ref_ = std::exchange(other.ref_, nullptr);
        return *this;
    }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;

    [[nodiscard]] Ref get() const { return ref_; }
    explicit operator bool() const { return ref_ != nullptr; }

private:
    void reset() {
        if (ref_ != nullptr) {
            CFRelease(ref_);
        }
    }

    Ref ref_ = nullptr;
};

/// Returns the units of `string`.
[[nodiscard]] inline std::u16string unitsOf(CFStringRef string) {
    std::u16string units(static_cast<std::size_t>(CFStringGetLength(string)), u'\0');
    static_assert(sizeof(UniChar) == sizeof(char16_t));
    CFStringGetCharacters(string, CFRangeMake(0, static_cast<CFIndex>(units.size())),
                          reinterpret_cast<UniChar*>(units.data()));
    return units;
}

/// Returns a string of these UTF-8 bytes; null when they are not valid UTF-8.
[[nodiscard]] inline Owner<CFStringRef> stringOf(std::string_view utf8) {
    return Owner<CFStringRef>(
        CFStringCreateWithBytes(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(utf8.data()),
                                static_cast<CFIndex>(utf8.size()), kCFStringEncodingUTF8, false));
}

}  // namespace host
