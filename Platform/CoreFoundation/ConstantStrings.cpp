// The constant strings that CFSTR names: one object for each text, for as long as the process
// lives.

#include <algorithm>
#include <mutex>
#include <shared_mutex>
#include <string>
#include <string_view>
#include <unordered_map>

#include "Platform/CoreFoundation/CFString.h"
#include "Platform/CoreFoundation/String.h"
#include "Platform/Foundation/Unicode.h"

namespace platform::cf {
namespace {

/// Constant strings by the bytes they were named with. The table keeps its own bytes: the literal
/// goes when the code that holds it is unloaded.
class ConstantStrings {
public:
    /// The process's table. It is never destroyed, as its strings never go.
    static ConstantStrings& shared() {
        static auto& table = *new ConstantStrings;
        return table;
    }

    CFStringRef named(std::string_view text) {
        {
            const std::shared_lock lock(mutex_);
            const auto found = strings_.find(text);
            if (found != strings_.end()) {
                return refOf(found->second);
            }
        }
        const std::unique_lock lock(mutex_);
        const auto found = strings_.find(text);
        return refOf(found != strings_.end() ? found->second : add(text));
    }

private:
    struct TextHash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    const String* add(std::string_view text) {
        const String*& place = strings_[std::string(text)];
        place = isAscii(text) ? String::ofAscii(text) : withReplacements(text);
        place->makeEternal();
        return place;
    }

    static const String* withReplacements(std::string_view text) {
        std::u16string units(text.size(), u'\uFFFD');
        std::transform(text.begin(), text.end(), units.begin(), [](unsigned char byte) {
            return byte < 0x80 ? static_cast<char16_t>(byte) : u'\uFFFD';
        });
        return String::ofUnits(units);
    }

    std::shared_mutex mutex_;
    std::unordered_map<std::string, const String*, TextHash, std::equal_to<>> strings_;
};

}  // namespace
}  // namespace platform::cf

extern "C" {

// A constant cannot fail: without memory for it, the process ends.
CFStringRef __CFStringMakeConstantString(const char* cStr) {
    return platform::cf::orEnd([&] { return platform::cf::ConstantStrings::shared().named(cStr); });
}

}  // extern "C"
