// Builds keyed archives object by object, good ones and odd ones.
//
// For samples and tests: nothing is checked, so that damage can be built, too.

#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/PropertyListSerialization.h"
#include "Platform/Foundation/Value.h"

namespace samples {

/// A stretch of text and the attribute set that it has.
struct TextRun {
    std::uint64_t length;
    std::uint64_t attributes;
};

/// Collects an archive's objects.
class ArchiveBuilder {
public:
    ArchiveBuilder();

    /// Adds an entry to the table of objects and returns its reference.
    platform::Uid add(platform::Value entry);

    /// Adds a class entry with its name and superclasses.
    platform::Uid addClass(std::initializer_list<std::string_view> names);

    /// Adds an instance of a class that was added before.
    platform::Uid addInstance(platform::Uid type, platform::Dictionary fields);

    /// Adds an array or dictionary object of references.
    platform::Uid addArray(const std::vector<platform::Uid>& elements);
    platform::Uid addDictionary(
        const std::vector<std::pair<platform::Uid, platform::Uid>>& entries);

    /// Adds an attributed string. With one attribute set and no runs, the set covers the text.
    platform::Uid addAttributedString(std::u16string_view text,
                                      const std::vector<platform::Uid>& attributeSets = {},
                                      const std::vector<TextRun>& runs = {});

    /// Returns the archive with `root` on top.
    [[nodiscard]] platform::Data finish(
        platform::Uid root,
        platform::PropertyListFormat format = platform::PropertyListFormat::Binary) const;

    /// Returns the archive with `top` as its top-level values.
    [[nodiscard]] platform::Data finishWithTop(
        platform::Dictionary top,
        platform::PropertyListFormat format = platform::PropertyListFormat::Binary) const;

private:
    platform::Array objects_;
};

/// Returns the bytes of a run table.
[[nodiscard]] std::string runTable(const std::vector<TextRun>& runs);

/// Returns an archive of `text` without attributes.
[[nodiscard]] platform::Data archiveOfText(std::u16string_view text);

}  // namespace samples
