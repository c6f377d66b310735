// A document's package, opened so that it can be written again with one member changed.
//
// One thread.

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Result.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"
#include "Tools/pvdoc/ArchiveListing.h"

namespace pvdoc {

/// The members of a document.
class Package {
public:
    /// Opens the document at `path`. A Fault without the path when it can't be read, needs a newer
    /// reader, or a member is not what the directory says.
    static platform::Result<Package> open(const std::string& path);

    /// The bytes of the member, nothing when there is none.
    [[nodiscard]] std::optional<platform::Data> contentsOf(std::string_view name) const;

    /// Writes the package again to its place, with other contents under `name`, or without it. All
    /// other members are as they were, also stored or deflated. A Fault names the file, and what
    /// was there is as it was.
    platform::Outcome writeWith(std::string_view name,
                                const std::optional<platform::Data>& contents) const;

private:
    platform::Outcome check() const;

    std::string path_;
    ArchiveListing listing_;
    std::shared_ptr<parlavox::ZipWrapper> archive_;
};

}  // namespace pvdoc
