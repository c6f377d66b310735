#include "Platform/Foundation/Data.h"

#include <cstring>
#include <utility>

#include "Platform/Foundation/Exception.h"

namespace platform {

Data Data::copyOf(std::span<const std::byte> bytes) {
    return adopt(std::vector<std::byte>(bytes.begin(), bytes.end()));
}

Data Data::copyOf(std::string_view bytes) {
    return copyOf(std::as_bytes(std::span(bytes)));
}

Data Data::adopt(Buffer bytes) {
    const std::span<const std::byte> span = bytes.span();
    std::shared_ptr<const void> owner(std::move(bytes.bytes_));
    return Data(std::move(owner), span);
}

Data Data::adopt(std::vector<std::byte> bytes) {
    auto owner = std::make_shared<const std::vector<std::byte>>(std::move(bytes));
    const std::span<const std::byte> span(*owner);
    return Data(std::move(owner), span);
}

Data Data::adopt(std::string bytes) {
    auto owner = std::make_shared<const std::string>(std::move(bytes));
    const std::span<const std::byte> span = std::as_bytes(std::span(*owner));
    return Data(std::move(owner), span);
}

Data Data::subdataWithRange(Range range) const {
    if (!range.liesWithin(size())) {
        raise(RangeException("range {" + std::to_string(range.location) + ", " +
                             std::to_string(range.length) + "} reaches beyond " +
                             std::to_string(size()) + " bytes"));
    }
    return Data(owner_, bytes_.subspan(range.location, range.length));
}

}  // namespace platform
