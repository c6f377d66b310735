// What a ZipWrapper asks and tells the object that works with it.
//
// Called on the thread that reads or writes the archive.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace platform {
class FileWrapper;
}

namespace parlavox {

class ZipWrapper;

/// All operations are optional: a default body stands for a delegate that does not answer.
class ZipWrapperDelegate {
public:
    virtual ~ZipWrapperDelegate() = default;

    /// Returns the level at which the regular file `wrapper` is to be written: 0 stores, 1 to 10
    /// deflate. Nothing when the delegate does not answer; the file is stored then.
    ///
    /// Selector: compressLevelForFileWrapper:zipWrapper:
    virtual std::optional<std::uint32_t> compressLevelForFileWrapper(
        const std::shared_ptr<platform::FileWrapper>& wrapper, const ZipWrapper& zipWrapper);

    /// Told that the entry named `from` stands in the tree under the key `toName`.
    ///
    /// Selector: zipWrapper:didChangeFileNameFrom:toName:
    virtual void zipWrapperDidChangeFileNameFromToName(const ZipWrapper& zipWrapper,
                                                       const std::string& from,
                                                       const std::string& toName);
};

inline std::optional<std::uint32_t> ZipWrapperDelegate::compressLevelForFileWrapper(
    const std::shared_ptr<platform::FileWrapper>&, const ZipWrapper&) {
    return std::nullopt;
}

inline void ZipWrapperDelegate::zipWrapperDidChangeFileNameFromToName(const ZipWrapper&,
                                                                      const std::string&,
                                                                      const std::string&) {
}

}  // namespace parlavox
