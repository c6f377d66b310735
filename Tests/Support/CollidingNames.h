// Names that the standard library's hash of a string, whose seed everybody knows, takes for one.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace test {

/// Makes names of 16 bytes. That hash takes 8 bytes at a time, in steps that can be undone: the
/// second 8 bytes are chosen to undo what the first have done.
inline std::vector<std::string> collidingNames(std::size_t count) {
    constexpr std::uint64_t kFactor = 0xC6A4A7935BD1E995;
    std::uint64_t inverse = kFactor;
    for (int i = 0; i < 5; ++i) {
        inverse *= 2 - kFactor * inverse;
    }
    const auto mix = [](std::uint64_t word) {
        word *= kFactor;
        return (word ^ (word >> 47)) * kFactor;
    };
    const auto unmix = [inverse](std::uint64_t word) {
        word *= inverse;
        return (word ^ (word >> 47)) * inverse;
    };
    constexpr std::uint64_t kStart = 0xC70F6907 ^ (16 * kFactor);
    std::vector<std::string> names;
    for (std::uint64_t i = 0; i < count; ++i) {
        const std::uint64_t words[] = {i, unmix((kStart ^ mix(i)) * kFactor)};
        names.emplace_back(reinterpret_cast<const char*>(words), sizeof words);
    }
    return names;
}

}  // namespace test
