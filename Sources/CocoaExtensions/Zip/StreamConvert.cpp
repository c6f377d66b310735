#include "Sources/CocoaExtensions/Zip/StreamConvert.h"

#include <string_view>

#include "Sources/CocoaExtensions/Zip/ZipAssertion.h"

namespace parlavox {

std::uint8_t SHIFER_streamConvert(std::uint8_t byte, std::uint64_t index, const char* firstKey,
                                  const char* secondKey) {
    if (firstKey == nullptr || secondKey == nullptr) {
        return byte;
    }
    const std::string_view first(firstKey);
    const std::string_view second(secondKey);
    if (first.size() < 2) {
        return byte;
    }
    if (!zipRequire(!second.empty(), "secondKey.length > 0", __LINE__)) {
        return byte;
    }
    const std::uint64_t pairs = first.size() / 2;
    const std::uint64_t pair = index % pairs;
    const auto a = static_cast<std::uint8_t>(first[2 * pair]);
    const auto b = static_cast<std::uint8_t>(first[2 * pair + 1]);
    const auto mix = static_cast<std::uint8_t>(((b * 2) & 0xAA) | (a & 0x55));
    const auto key = static_cast<std::uint8_t>(second[pair % second.size()]);
    return static_cast<std::uint8_t>(byte ^ key ^ mix);
}

}  // namespace parlavox
