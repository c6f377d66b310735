// An importer in use: one instance of a plug-in's importer interface.
//
// Calls run foreign code in this process, which may throw anything, crash or never return.
// One thread at a time.

#pragma once

#include <optional>
#include <string>
#include <utility>

#include "Sources/Importer/MetadataImporterPlugin.h"

namespace host {

/// Tells why the last call gave nothing, as one line of UTF-8; null when it knows no reason.
using LastFailureFunction = const char* (*)();

/// Holds the instance, and gives its reference back at the end of its life.
class Importer {
public:
    /// Takes over one reference of `instance`. `lastFailure` may be null.
    /// Requires: the plug-in's code outlives this object.
    Importer(MetadataImporterPluginType* instance, LastFailureFunction lastFailure)
        : instance_(instance), lastFailure_(lastFailure) {}
    ~Importer();
    Importer(Importer&& other) noexcept
        : instance_(std::exchange(other.instance_, nullptr)), lastFailure_(other.lastFailure_) {}
    Importer& operator=(Importer&&) = delete;

    /// Returns the text of the file, empty when the importer delivers none; nothing when it cannot
    /// read the file. Throws what the importer throws, and std::bad_alloc.
    ///
    /// Requires: `path` is a CoreFoundation string's worth of UTF-8, and `type` is UTF-8.
    [[nodiscard]] std::optional<std::u16string> textOfFile(const std::string& path,
                                                           const std::string& type);

    /// Why the last call gave nothing; empty when that is not known.
    [[nodiscard]] std::string lastFailure() const;

private:
    MetadataImporterPluginType* instance_;  // null in one that was moved from
    LastFailureFunction lastFailure_;
};

}  // namespace host
