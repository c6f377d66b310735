// One central record of an archive that is being written, with its entry's name.
//
// Immutable; any thread at once.

#pragma once

#include <memory>
#include <optional>

#include "Platform/Foundation/Data.h"
#include "Sources/CocoaExtensions/Zip/ZipRecords.h"

namespace parlavox {

/// A central record and the bytes of the name that follows it.
class ZipFileHeader final {
    struct PassKey {};

public:
    /// Returns a header object that holds a copy of `fileHeader` and the name's bytes.
    ///
    /// Absent name bytes are an assertion failure ("fileNameData != nil"); null when its handler
    /// returns.
    ///
    /// Selector: initWithFileHeader:fileNameData:
    [[nodiscard]] static std::shared_ptr<const ZipFileHeader> initWithFileHeader(
        SFileHeader fileHeader, std::optional<platform::Data> fileNameData);

    ZipFileHeader(PassKey, const SFileHeader& fileHeader, platform::Data fileNameData);

    [[nodiscard]] SFileHeader fileHeader() const { return fileHeader_; }
    [[nodiscard]] const platform::Data& fileNameData() const { return fileNameData_; }

private:
    SFileHeader fileHeader_;
    platform::Data fileNameData_;
};

}  // namespace parlavox
