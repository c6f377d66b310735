// The least that must be done to get a document's text: the yardstick of the benchmarks.
//
// Reads the file, inflates both members and picks the string straight from the binary property
// list, with the same zlib as the importer. It trusts its input, which only the benchmarks make:
// no checks, no attributes, one form of archive. Stateless; any thread at once.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace bench {

/// One inflated member.
struct FloorMember {
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;

    [[nodiscard]] std::string_view view() const { return {bytes.get(), size}; }
};

/// The two members that a reader needs.
struct FloorPackage {
    FloorMember contents;
    FloorMember text;
};

/// Reads the file at `path` and inflates both members.
[[nodiscard]] FloorPackage floorPackage(const char* path);

/// Inflates all members of the archive at `path`, one after the other with one stream of zlib, and
/// keeps none of them; returns how many bytes they were.
[[nodiscard]] std::uint64_t floorInflate(const char* path);

/// Picks the text from the keyed archive of an attributed string.
[[nodiscard]] std::u16string floorString(std::string_view archive);

}  // namespace bench
