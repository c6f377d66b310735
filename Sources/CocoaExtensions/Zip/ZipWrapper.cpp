#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"

#include <limits>
#include <utility>

#include "Platform/Foundation/Buffer.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/PathString.h"
#include "Sources/CocoaExtensions/Zip/RawInflater.h"
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

/// Removes a file when an exception ends its writing: no wrapper will own it.
class BegunFile {
public:
    explicit BegunFile(const std::string& path) : path_(&path) {}
    ~BegunFile() {
        if (path_ != nullptr) {
            FileManager::defaultManager().removeFileAtPath(*path_);
        }
    }
    BegunFile(const BegunFile&) = delete;
    BegunFile& operator=(const BegunFile&) = delete;

    /// From now on the file stays.
    void leave() { path_ = nullptr; }

private:
    const std::string* path_;
};

}  // namespace

// Opening. Each way in forgets what the thread failed at before, so that a failure noted on the way
// is the opening's own.

ZipWrapper::ZipWrapper(Creation key) : FileWrapper(key) {
}

ZipWrapper::~ZipWrapper() = default;

std::shared_ptr<ZipWrapper> ZipWrapper::make() {
    return std::make_shared<ZipWrapper>(Creation());
}

std::shared_ptr<ZipWrapper> ZipWrapper::initDirectoryWithFileWrappers(
    std::vector<platform::FileWrapperEntry> children) {
    auto wrapper = make();
    wrapper->initDirectory(std::move(children));
    return wrapper;
}

std::shared_ptr<ZipWrapper> ZipWrapper::initWithPath(const std::optional<std::string>& path,
                                                     Delegate withDelegate) {
    platform::clearFailure();
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
    platform::clearFailure();
    if (!zipRequire(contents.has_value(), "data != nil", 139) || isTooLarge(contents->size())) {
        return nullptr;
    }
    const auto wrapper = make();
    wrapper->stackSize_ = static_cast<std::uint32_t>(contents->size());
    const auto stream = InputStream::inputStreamWithData(std::move(*contents));
    return wrapper->initWithStreamContents(stream.get(), std::move(withDelegate)) ? wrapper
                                                                                  : nullptr;
}

std::shared_ptr<ZipWrapper> ZipWrapper::initWithInputStream(
    const std::shared_ptr<InputStream>& stream, Delegate withDelegate) {
    platform::clearFailure();
    const auto wrapper = make();
    return wrapper->initWithStreamContents(stream.get(), std::move(withDelegate)) ? wrapper
                                                                                  : nullptr;
}

std::shared_ptr<ZipWrapper> ZipWrapper::initWithData(std::optional<Data> data,
                                                     Delegate withDelegate) {
    platform::clearFailure();
    const auto wrapper = make();
    return wrapper->initWithBytes(std::move(data), std::move(withDelegate)) ? wrapper : nullptr;
}

std::shared_ptr<ZipWrapper> ZipWrapper::initSymbolicLinkWithDestination(
    const std::optional<std::string>& destination, Delegate withDelegate) {
    return initWithPath(destination, std::move(withDelegate));
}

std::shared_ptr<ZipWrapper> ZipWrapper::initWithPath(const std::optional<std::string>& path) {
    return initWithPath(path, nullptr);
}

std::shared_ptr<ZipWrapper> ZipWrapper::initRegularFileWithContents(std::optional<Data> contents) {
    return initRegularFileWithContents(std::move(contents), nullptr);
}

std::shared_ptr<ZipWrapper> ZipWrapper::initSymbolicLinkWithDestination(
    const std::optional<std::string>& destination) {
    return initSymbolicLinkWithDestination(destination, nullptr);
}

bool ZipWrapper::initWithStreamContents(InputStream* stream, Delegate withDelegate) {
    if (!zipRequire(stream != nullptr, "stream != nil", 118)) {
        return false;
    }
    stream->open();
    if (stream->streamStatus() != platform::StreamStatus::Open) {
        const auto error = stream->streamError();
        // Our own streams have noted more: the path, too.
        platform::noteFailureUnlessNoted(error ? error->description : "the file can't be opened");
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
    inflater_.reset();
    inputData_.reset();
    return true;
}

// The tree.

bool ZipWrapper::addFileWrapperForPath(const std::optional<std::string>& path,
                                       SZipFileInfo withEntry) {
    // All broken conditions are reported before any has its effect.
    const bool hasPath = zipRequire(path.has_value(), "path != nil", 830);
    const bool isFolder = zipRequire(isDirectory(), "[self isDirectory]", 831);
    if (!hasPath || !isFolder) {
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
    const bool isLarge = entry.UncompressedSize > kLargestEntryInMemory;
    if (isLarge) {
        if (auto spooled = spooledEntry(name, entry)) {
            return spooled;
        }
    }
    auto contents = contentsToKeep(entry);
    if (!contents) {
        return nullptr;
    }
    if (isLarge) {
        // In memory the entry is whole, so what kept it from its file is no failure.
        platform::clearFailure();
    }
    return FileWrapper::initRegularFileWithContents(std::move(*contents));
}

/// A partly written file is left in the temporary folder when this fails quietly, by intention.
std::shared_ptr<FileWrapper> ZipWrapper::spooledEntry(std::string_view name,
                                                      const SZipFileInfo& entry) {
    const auto path = generatedTempFilePathWithExtension(platform::pathExtension(name));
    if (!path) {
        return nullptr;
    }
    const auto stream =
        platform::OutputStream::outputStreamToFileAtPath(*path, platform::FileAppending::No);
    BegunFile file(*path);
    stream->open();
    if (stream->streamStatus() != platform::StreamStatus::Open || !writeEntry(entry, stream)) {
        file.leave();
        return nullptr;
    }
    stream->close();
    auto wrapper = ZipFileWrapper::initWithPath(*path);
    file.leave();
    return wrapper;
}

bool ZipWrapper::insert(const std::shared_ptr<FileWrapper>& child, std::string_view path) {
    if (path.empty()) {
        // A name without any component is passed over. Separators alone are one: the root's "/".
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

bool ZipWrapper::fileManagerShouldProceedAfterError(const FileManager&, const platform::Error&) {
    return false;
}

}  // namespace parlavox
