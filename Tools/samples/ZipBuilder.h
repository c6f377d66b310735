// Builds zip archives entry by entry, good ones and odd ones.
//
// For samples and tests: every field can be set to anything, so that damage can be built, too.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Data.h"
#include "Sources/CocoaExtensions/Zip/ZipRecords.h"

namespace samples {

/// Whether an entry's contents are deflated.
enum class Packing : bool { Stored, Deflated };

/// One entry: its name, its data as they stand in the archive, and both of its headers.
struct ZipEntry {
    std::string name;
    platform::Data data;
    parlavox::SLocalFileHeader local;
    parlavox::SFileHeader central;
    bool isListed = true;  ///< whether the central directory has it
};

/// Collects entries.
class ZipBuilder {
public:
    /// Adds an entry with good headers and returns it, to be spoilt. A name that ends in "/" makes
    /// a folder.
    ZipEntry& add(std::string_view name, const platform::Data& contents,
                  Packing packing = Packing::Deflated);
    ZipEntry& add(std::string_view name, std::string_view contents,
                  Packing packing = Packing::Deflated);

    /// Changes the end record before it is written.
    using EndHook = void (*)(parlavox::SDirectory& end);

    /// Returns the archive, entries in the order in which they were added.
    [[nodiscard]] platform::Data finish(EndHook hook = nullptr) const;

private:
    std::vector<ZipEntry> entries_;
};

}  // namespace samples
