// The class behind CFArrayRef. One thread at a time while it changes, any thread after that.

#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "Platform/CoreFoundation/CFArray.h"
#include "Platform/CoreFoundation/Object.h"

namespace platform::cf {

/// Whether a collection may be changed once its maker has it.
enum class Changes : bool { Never, Allowed };

class Array final : public PlainObject<Array> {
public:
    static constexpr TypeID kType = TypeID::Array;

    /// `callBacks` may be null.
    Array(Changes changes, const CFArrayCallBacks* callBacks);
    ~Array();

    [[nodiscard]] bool canChange() const noexcept { return changes_ == Changes::Allowed; }
    [[nodiscard]] std::span<const void* const> values() const noexcept { return values_; }

    /// Throws std::bad_alloc and leaves the array as it was.
    void append(const void* value);

    [[nodiscard]] bool isEqual(const Object& other) const noexcept override;
    [[nodiscard]] CFHashCode hash() const noexcept override { return values_.size(); }

private:
    Changes changes_;
    CFArrayCallBacks callBacks_;
    std::vector<const void*> values_;
};

inline CFMutableArrayRef refOf(Array* array) noexcept {
    return reinterpret_cast<CFMutableArrayRef>(array);
}

}  // namespace platform::cf
