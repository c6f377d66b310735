#include "Platform/CoreFoundation/CFData.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string_view>

#include "Platform/CoreFoundation/Object.h"

namespace platform::cf {
namespace {

/// The class behind CFDataRef. Immutable; any thread.
class Bytes final : public PlainObject<Bytes> {
public:
    static constexpr TypeID kType = TypeID::Data;

    explicit Bytes(std::string_view bytes)
        : PlainObject(kType),
          bytes_(std::make_unique_for_overwrite<char[]>(bytes.size())),
          size_(bytes.size()) {
        std::copy(bytes.begin(), bytes.end(), bytes_.get());
    }

    [[nodiscard]] std::string_view view() const noexcept { return {bytes_.get(), size_}; }

    [[nodiscard]] bool isEqual(const Object& other) const noexcept override {
        return view() == static_cast<const Bytes&>(other).view();
    }
    [[nodiscard]] CFHashCode hash() const noexcept override {
        return std::hash<std::string_view>()(view());
    }

private:
    std::unique_ptr<char[]> bytes_;
    std::size_t size_;
};

}  // namespace
}  // namespace platform::cf

using platform::cf::Bytes;
using platform::cf::objectAs;
using platform::cf::orNull;
using platform::cf::TypeID;

extern "C" {

CFTypeID CFDataGetTypeID(void) {
    return static_cast<CFTypeID>(TypeID::Data);
}

CFDataRef CFDataCreate(CFAllocatorRef, const UInt8* bytes, CFIndex length) {
    if (length < 0 || (bytes == nullptr && length > 0)) {
        return nullptr;
    }
    const std::string_view view(reinterpret_cast<const char*>(bytes),
                                static_cast<std::size_t>(length));
    return orNull([&] { return reinterpret_cast<CFDataRef>(new Bytes(view)); });
}

CFIndex CFDataGetLength(CFDataRef theData) {
    return static_cast<CFIndex>(objectAs<Bytes>(theData, "CFDataGetLength").view().size());
}

const UInt8* CFDataGetBytePtr(CFDataRef theData) {
    return reinterpret_cast<const UInt8*>(
        objectAs<Bytes>(theData, "CFDataGetBytePtr").view().data());
}

}  // extern "C"
