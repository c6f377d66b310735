// The attributes of an element as the parser hands them over.
//
// A view, valid as long as what it looks at.

#pragma once

#include <string_view>

#include "Platform/Foundation/AsciiCase.h"

namespace platform {

/// Finds values by the names of their attributes, which are in lower case.
class HtmlValues {
public:
    /// Takes names and values in turn with a null behind the last; null for none.
    explicit HtmlValues(const char* const* pairs) : pairs_(pairs) {}

    /// The value of an attribute, empty for a name without one; null when there is none.
    [[nodiscard]] const char* operator[](std::string_view name) const {
        for (const char* const* pair = pairs_; pair != nullptr && *pair != nullptr; pair += 2) {
            if (name == *pair) {
                return pair[1] != nullptr ? pair[1] : "";
            }
        }
        return nullptr;
    }

    [[nodiscard]] bool isEmpty() const { return pairs_ == nullptr; }
    [[nodiscard]] bool has(std::string_view name) const { return (*this)[name] != nullptr; }

    /// Whether an attribute has a value, in whatever case.
    [[nodiscard]] bool is(std::string_view name, std::string_view value) const {
        const char* const found = (*this)[name];
        return found != nullptr && equalIgnoringAsciiCase(found, value);
    }

private:
    const char* const* pairs_;
};

}  // namespace platform
