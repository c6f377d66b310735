// Reaches the operations of an archive that only make sense while it is being opened.

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "Platform/Foundation/Data.h"
#include "Sources/CocoaExtensions/Zip/ZipTemporaryFolder.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"

namespace parlavox {

class ZipWrapperTestPeer {
public:
    /// An archive whose bytes are there and have not been scanned.
    static std::shared_ptr<ZipWrapper> unscanned(std::optional<platform::Data> data) {
        auto wrapper = ZipWrapper::initWithData(platform::Data(), nullptr);
        wrapper->stackSize_ = data ? static_cast<std::uint32_t>(data->size()) : 0;
        wrapper->inputData_ = std::move(data);
        return wrapper;
    }

    static void setStackSize(ZipWrapper& wrapper, std::uint32_t size) { wrapper.stackSize_ = size; }

    static bool scanLocalHeader(ZipWrapper& wrapper) { return wrapper.scanLocalHeader(); }

    static void scanZipFileInConsecutiveOrderWithDeclaredEntriesCount(ZipWrapper& wrapper,
                                                                      std::uint32_t count,
                                                                      std::uint32_t end) {
        wrapper.scanZipFileInConsecutiveOrderWithDeclaredEntriesCount(count, end);
    }

    static platform::Range rangeOfData(const ZipWrapper& wrapper,
                                       const std::optional<platform::Data>& data,
                                       platform::Range range) {
        return wrapper.rangeOfData(data, range);
    }

    static std::optional<std::string> createStringFromFilenameRecord(const std::byte* bytes,
                                                                     std::int64_t count) {
        return ZipWrapper::createStringFromFilenameRecord(bytes, count);
    }

    static bool addFileWrapperForPath(ZipWrapper& wrapper, const std::optional<std::string>& path,
                                      SZipFileInfo entry) {
        return wrapper.addFileWrapperForPath(path, entry);
    }

    static std::optional<platform::Data> dataForEntry(const ZipWrapper& wrapper,
                                                      SZipFileInfo entry) {
        return wrapper.dataForEntry(entry);
    }

    static bool writeEntry(const ZipWrapper& wrapper, SZipFileInfo entry,
                           const std::shared_ptr<platform::OutputStream>& stream) {
        return wrapper.writeEntry(entry, stream);
    }

    static bool insert(ZipWrapper& wrapper, const std::shared_ptr<platform::FileWrapper>& child,
                       std::string_view path) {
        return wrapper.insert(child, path);
    }

    static void forgetTemporaryFolder() { ZipTemporaryFolder::forget(); }
};

}  // namespace parlavox
