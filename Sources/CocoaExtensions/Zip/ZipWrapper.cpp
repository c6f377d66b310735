#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"

#include <limits>
#include <utility>

#include "Platform/Foundation/Buffer.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/PathString.h"
#include "Sources/CocoaExtensions/Zip/ZipAssertion.h"
#include "Sources/CocoaExtensions/Zip/ZipDirectoryWrapper.h"
#include "Sources/CocoaExtensions/Zip/ZipFileWrapper.h"

namespace parlavox {

using platform::Data;
using platform::FileManager;
using platform::FileWrapper;
using platform::InputStream;

namespace {

constexpr std::uint64_t kLargestArchive = std::numeric_limits<std::uint32_t>::max();

bool isTooLarge(std::uint64_t size) {
    if (size > kLargestArchive) {
        platform::noteFailure("archive of " + std::to_string(size) + " bytes, more than 4 GiB - 1");
    }
    return size > kLargestArchive;
}

/// Takes the next component from the front of `path`; a "/" at its very start is one.
std::string_view takeComponent(std::string_view& path, bool isFirst) {
    if (isFirst && path.starts_with('/')) {
        const std::string_view root = path.substr(0, 1);
        path.remove_prefix(1);
        return root;
    }
    path.remove_prefix(std::min(path.find_first_not_of('/'), path.size()));
    const std::string_view component = path.substr(0, path.find('/'));
    path.remove_prefix(component.size());
    return component;
}

/// Whether only separators are left.
bool isExhausted(std::string_view path) {
    return path.find_first_not_of('/') == path.npos;
}

}  // namespace

// Opening.

std::shared_ptr<ZipWrapper> ZipWrapper::make() {
    return std::make_shared<ZipWrapper>(Creation());
}

std::shared_ptr<ZipWrapper> ZipWrapper::initWithPath(const std::optional<std::string>& path,
                                                     Delegate withDelegate) {
    if (!zipRequire(path.has_value(), "path != nil", 158)) {
        return nullptr;
    }
    const auto attributes = FileManager::defaultManager().attributesOfItemAtPath(*path);
    const std::uint64_t size = attributes ? attributes->size : 0;
    if (isTooLarge(size)) {
        return nullptr;
    }
    const auto wrapper = make();
    wrapper->stackSize_ = static_cast<std::uint32_t>(size);
    const auto stream = InputStream::inputStreamWithFileAtPath(*path);
    return wrapper->initWithStreamContents(stream.get(), std::move(withDelegate)) ? wrapper
                                                                                  : nullptr;
}

std::shared_ptr<ZipWrapper> ZipWrapper::initRegularFileWithContents(std::optional<Data> contents,
                                                                    Delegate withDelegate) {
    if (!zipRequire(contents.has_value(), "data != nil", 139) || isTooLarge(contents->size())) {
        return nullptr;
    }
    const auto wrapper = make();
    wrapper->stackSize_ = static_cast<std::uint32_t>(contents->size());
    const auto stream = InputStream::inputStreamWithData(std::move(*contents));
    return wrapper->initWithStreamContents(stream.get(), std::move(withDelegate)) ? wrapper
                                                                                  : nullptr;
}

std::shared_ptr<ZipWrapper> ZipWrapper::initWithInputStream(std::shared_ptr<InputStream> stream,
                                                            Delegate withDelegate) {
    const auto wrapper = make();
    return wrapper->initWithStreamContents(stream.get(), std::move(withDelegate)) ? wrapper
                                                                                  : nullptr;
}

std::shared_ptr<ZipWrapper> ZipWrapper::initWithData(std::optional<Data> data,
                                                     Delegate withDelegate) {
    const auto wrapper = make();
    return wrapper->initWithBytes(std::move(data), std::move(withDelegate)) ? wrapper : nullptr;
}

std::shared_ptr<ZipWrapper> ZipWrapper::initSymbolicLinkWithDestination(
    const std::optional<std::string>& destination, Delegate withDelegate) {
    return initWithPath(destination, std::move(withDelegate));
}

bool ZipWrapper::initWithStreamContents(InputStream* stream, Delegate withDelegate) {
    if (!zipRequire(stream != nullptr, "stream != nil", 118)) {
        return false;
    }
    stream->open();
    if (stream->status() != platform::StreamStatus::Open) {
        const auto error = stream->error();
        platform::noteFailure(error ? error->description : "the file can't be opened");
        return false;
    }
    platform::Buffer buffer = platform::Buffer::zeroed(stackSize_);
    // The count is not looked at, by intention: what was not delivered stays zero.
    (void)stream->read(buffer.span());
    stream->close();
    return initWithBytes(Data::adopt(std::move(buffer)), std::move(withDelegate));
}

bool ZipWrapper::initWithBytes(std::optional<Data> data, Delegate withDelegate) {
    if (!zipRequire(data.has_value(), "data != nil", 101)) {
        return false;
    }
    initDirectory();
    inputData_ = std::move(data);
    delegate_ = std::move(withDelegate);
    scanLocalHeader();
    inputData_.reset();
    return true;
}

// The tree.

bool ZipWrapper::addFileWrapper(const std::optional<std::string>& path, SZipFileInfo withEntry) {
    if (!zipRequire(path.has_value(), "path != nil", 830) ||
        !zipRequire(isDirectory(), "[self isDirectory]", 831)) {
        return false;
    }
    std::string_view name = *path;
    const platform::FailureContext context(name);
    std::shared_ptr<FileWrapper> child;
    if (name.ends_with('\\') || name.ends_with('/')) {
        name.remove_suffix(1);
        child = ZipDirectoryWrapper::init();
    } else {
        child = fileWrapperForEntry(name, withEntry);
    }
    return child != nullptr && insert(child, name);
}

std::shared_ptr<FileWrapper> ZipWrapper::fileWrapperForEntry(std::string_view name,
                                                             const SZipFileInfo& entry) {
    // An empty file is refused, by intention: its archive goes through the scan of local headers.
    if (entry.UncompressedSize == 0) {
        platform::noteFailure("an empty file");
        return nullptr;
    }
    if (entry.UncompressedSize > kLargestEntryInMemory) {
        if (auto spooled = spooledEntry(name, entry)) {
            return spooled;
        }
    }
    auto contents = dataForEntry(entry);
    return contents ? FileWrapper::initRegularFileWithContents(std::move(*contents)) : nullptr;
}

/// A partly written file is left in the temporary folder when this fails, by intention.
std::shared_ptr<FileWrapper> ZipWrapper::spooledEntry(std::string_view name,
                                                      const SZipFileInfo& entry) {
    const auto path = generatedTempFilePathWithExtension(platform::pathExtension(name));
    if (!path) {
        return nullptr;
    }
    const auto stream =
        platform::OutputStream::outputStreamToFileAtPath(*path, platform::FileAppending::No);
    stream->open();
    if (stream->status() != platform::StreamStatus::Open || !writeEntry(entry, stream)) {
        return nullptr;
    }
    stream->close();
    return ZipFileWrapper::initWithPath(*path);
}

bool ZipWrapper::insert(const std::shared_ptr<FileWrapper>& child, std::string_view path) {
    if (isExhausted(path)) {
        // A name without any component is passed over.
        return true;
    }
    std::shared_ptr<FileWrapper> folder = shared_from_this();
    std::string component(takeComponent(path, true));
    while (!isExhausted(path)) {
        std::shared_ptr<FileWrapper> next = folder->fileWrapperForKey(component);
        if (next == nullptr) {
            next = FileWrapper::initDirectoryWithFileWrappers({});
            next->setPreferredFilename(component);
            folder->addFileWrapper(next);
        }
        if (!next->isDirectory()) {
            zipFail("Path component is not directory", 901);
            return false;
        }
        folder = std::move(next);
        component = takeComponent(path, false);
    }
    child->setPreferredFilename(component);
    if (const auto earlier = folder->fileWrapperForKey(component)) {
        folder->removeFileWrapper(earlier);
    }
    const std::string key = folder->addFileWrapper(child);
    if (key != component && delegate_ != nullptr) {
        delegate_->zipWrapperDidChangeFileNameFromToName(*this, component, key);
    }
    return true;
}

// What an archive answers as a file wrapper.

std::optional<Data> ZipWrapper::serializedRepresentation() const {
    return std::nullopt;
}

bool ZipWrapper::updateFromPath(const std::string&) {
    return false;
}

}  // namespace parlavox
