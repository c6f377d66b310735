#include "Platform/Foundation/FileWrapper.h"

#include <algorithm>
#include <utility>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileWrapperReader.h"
#include "Platform/Foundation/FileWrapperSerialization.h"
#include "Platform/Foundation/PathString.h"

namespace platform {
namespace {

[[noreturn]] void raiseWrongKind(std::string_view operation, std::string_view kind) {
    raise(InternalInconsistencyException(std::string(operation) + " needs a wrapper of a " +
                                         std::string(kind)));
}

void checkName(std::string_view name, std::string_view operation) {
    if (name.empty()) {
        raise(InternalInconsistencyException(std::string(operation) + " needs a name"));
    }
}

void checkEntry(const FileWrapperEntry& entry) {
    if (entry.child == nullptr || entry.key.empty()) {
        raise(InvalidArgumentException("a child of a folder needs a wrapper and a key"));
    }
}

}  // namespace

struct FileWrapper::Directory {
    FileWrapperChildren children;
    std::unique_ptr<Directory> nextBuried;
};

FileWrapper::FileWrapper(Creation) {
}

FileWrapper::~FileWrapper() {
    if (auto* content = std::get_if<std::unique_ptr<Directory>>(&content_)) {
        bury(std::move(*content));
    }
}

// Were each folder to let go of its children itself, a deep tree would overflow the stack. So the
// outermost one works off a list to which the folders below it only add themselves.
void FileWrapper::bury(std::unique_ptr<Directory> directory) noexcept {
    thread_local std::unique_ptr<Directory>* waiting = nullptr;
    if (waiting != nullptr) {
        directory->nextBuried = std::move(*waiting);
        *waiting = std::move(directory);
        return;
    }
    std::unique_ptr<Directory> first = std::move(directory);
    waiting = &first;
    while (first != nullptr) {
        const std::unique_ptr<Directory> ending = std::move(first);
        first = std::move(ending->nextBuried);
    }
    waiting = nullptr;
}

std::shared_ptr<FileWrapper> FileWrapper::initRegularFileWithContents(Data contents) {
    auto wrapper = std::make_shared<FileWrapper>(Creation());
    wrapper->initRegular(std::move(contents));
    return wrapper;
}

std::shared_ptr<FileWrapper> FileWrapper::initDirectoryWithFileWrappers(
    std::vector<FileWrapperEntry> children) {
    auto wrapper = std::make_shared<FileWrapper>(Creation());
    wrapper->initDirectory(std::move(children));
    return wrapper;
}

std::shared_ptr<FileWrapper> FileWrapper::initSymbolicLinkWithDestination(std::string destination) {
    auto wrapper = std::make_shared<FileWrapper>(Creation());
    wrapper->initSymbolicLink(std::move(destination));
    return wrapper;
}

std::shared_ptr<FileWrapper> FileWrapper::initWithPath(const std::string& path,
                                                       ErrorLocation error) {
    return initWithPath(path, FileReading::Immediate, error);
}

std::shared_ptr<FileWrapper> FileWrapper::initWithPath(const std::string& path, FileReading options,
                                                       ErrorLocation error) {
    auto wrapper = std::make_shared<FileWrapper>(Creation());
    return wrapper->initFromPath(path, error, options) ? wrapper : nullptr;
}

std::shared_ptr<FileWrapper> FileWrapper::initWithContents(FileWrapperContents contents) {
    auto wrapper = std::make_shared<FileWrapper>(Creation());
    wrapper->init(std::move(contents));
    return wrapper;
}

void FileWrapper::initRegular(Data contents) {
    leaveChildren();
    content_ = std::move(contents);
}

void FileWrapper::initDirectory(std::vector<FileWrapperEntry> children) {
    auto directory = std::make_unique<Directory>();
    for (FileWrapperEntry& entry : children) {
        checkEntry(entry);
        if (!directory->children.add(std::move(entry.key), std::move(entry.child))) {
            raise(InvalidArgumentException("a key of a folder occurs twice"));
        }
    }
    leaveChildren();
    content_ = std::move(directory);
    const std::weak_ptr<FileWrapper> self = weak_from_this();
    for (const auto& [key, child] : fileWrappers()) {
        if (!child->preferredFilename()) {
            child->setPreferredFilename(key);
        }
        child->addParent(self);
    }
}

void FileWrapper::initSymbolicLink(std::string destination) {
    leaveChildren();
    content_ = LinkDestination{std::move(destination)};
}

bool FileWrapper::initFromPath(const std::string& path, ErrorLocation error, FileReading reading) {
    if (!readContents(path, error, reading)) {
        return false;
    }
    setFilename(lastPathComponent(path));
    setPreferredFilename(lastPathComponent(path));
    return true;
}

bool FileWrapper::updateFromPath(const std::string& path) {
    if (!readContents(path, nullptr, FileReading::Immediate)) {
        return false;
    }
    setFilename(lastPathComponent(path));
    return true;
}

bool FileWrapper::readContents(const std::string& path, ErrorLocation error, FileReading reading) {
    std::optional<FileWrapperContents> contents = FileWrapperReader(error, reading).read(path);
    if (!contents) {
        return false;
    }
    init(*std::move(contents));
    return true;
}

void FileWrapper::init(FileWrapperContents contents) {
    if (auto* const bytes = std::get_if<Data>(&contents)) {
        initRegular(std::move(*bytes));
    } else if (auto* const file = std::get_if<UnreadFile>(&contents)) {
        leaveChildren();
        content_ = std::move(*file);
    } else if (auto* const children = std::get_if<std::vector<FileWrapperEntry>>(&contents)) {
        initDirectory(std::move(*children));
    } else {
        initSymbolicLink(std::get<LinkDestination>(std::move(contents)).path);
    }
}

bool FileWrapper::isRegularFile() const {
    return std::holds_alternative<Data>(content_) || std::holds_alternative<UnreadFile>(content_);
}

bool FileWrapper::isDirectory() const {
    return std::holds_alternative<std::unique_ptr<Directory>>(content_);
}

bool FileWrapper::isSymbolicLink() const {
    return std::holds_alternative<LinkDestination>(content_);
}

void FileWrapper::setFilename(std::string filename) {
    checkName(filename, "setFilename");
    filename_ = std::move(filename);
}

void FileWrapper::setPreferredFilename(std::string preferredFilename) {
    checkName(preferredFilename, "setPreferredFilename");
    preferredFilename_ = std::move(preferredFilename);
    for (const std::shared_ptr<FileWrapper>& parent : parents()) {
        const std::shared_ptr<FileWrapper> self = shared_from_this();
        parent->removeFileWrapper(self);
        parent->addFileWrapper(self);
    }
}

std::string FileWrapper::addFileWrapper(std::shared_ptr<FileWrapper> child) {
    FileWrapperChildren& children = directory("addFileWrapper").children;
    if (child == nullptr || child.get() == this || !child->preferredFilename()) {
        raise(InvalidArgumentException("a child of a folder needs a wrapper and a preferred name"));
    }
    FileWrapper& added = *child;
    std::string key = children.addUnderFreeKey(*added.preferredFilename(), std::move(child));
    added.addParent(weak_from_this());
    return key;
}

void FileWrapper::removeFileWrapper(const std::shared_ptr<FileWrapper>& child) {
    FileWrapperChildren& children = directory("removeFileWrapper").children;
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): it may be the entry that goes.
    const std::shared_ptr<FileWrapper> held = child;
    if (held != nullptr && children.remove(*held)) {
        held->removeParent(*this);
    }
}

std::optional<std::string> FileWrapper::keyForFileWrapper(
    const std::shared_ptr<FileWrapper>& child) const {
    const FileWrapperChildren& children = directory("keyForFileWrapper").children;
    return child == nullptr ? std::nullopt : children.keyOf(*child);
}

std::shared_ptr<FileWrapper> FileWrapper::fileWrapperForKey(std::string_view key) const {
    return directory("fileWrapperForKey").children.find(key);
}

const FileWrapperChildren& FileWrapper::fileWrappers() const {
    return directory("fileWrappers").children;
}

std::optional<Data> FileWrapper::regularFileContents() const {
    if (const auto* const file = std::get_if<UnreadFile>(&content_)) {
        auto contents = FileWrapperReader(nullptr, FileReading::Immediate).read(file->path);
        if (!contents || !std::holds_alternative<Data>(*contents)) {
            return std::nullopt;
        }
        content_ = std::get<Data>(*std::move(contents));
    }
    const auto* const contents = std::get_if<Data>(&content_);
    if (contents == nullptr) {
        raiseWrongKind("regularFileContents", "file");
    }
    return *contents;
}

std::optional<std::string> FileWrapper::contentFilePath() const {
    return std::nullopt;
}

std::string FileWrapper::symbolicLinkDestination() const {
    const auto* const link = std::get_if<LinkDestination>(&content_);
    if (link == nullptr) {
        raiseWrongKind("symbolicLinkDestination", "symbolic link");
    }
    return link->path;
}

std::shared_ptr<FileWrapper> FileWrapper::initWithSerializedRepresentation(const Data& data) {
    auto wrapper = fileWrapperFromSerializedRepresentation(data);
    if (!wrapper) {
        noteFailure(wrapper.fault().detail);
        return nullptr;
    }
    return std::move(wrapper).value();
}

std::optional<Data> FileWrapper::serializedRepresentation() const {
    return serializedRepresentationOf(*this);
}

FileWrapper::Directory& FileWrapper::directory(std::string_view operation) const {
    const auto* content = std::get_if<std::unique_ptr<Directory>>(&content_);
    if (content == nullptr) {
        raiseWrongKind(operation, "folder");
    }
    return **content;
}

void FileWrapper::leaveChildren() {
    if (isDirectory()) {
        for (const auto& [key, child] : fileWrappers()) {
            child->removeParent(*this);
        }
    }
}

void FileWrapper::addParent(const std::weak_ptr<FileWrapper>& parent) {
    if (parent_.expired()) {
        parent_ = parent;
        return;
    }
    const auto isParent = [&parent](const std::weak_ptr<FileWrapper>& other) {
        return !other.owner_before(parent) && !parent.owner_before(other);
    };
    if (isParent(parent_) || std::any_of(otherParents_.begin(), otherParents_.end(), isParent)) {
        return;
    }
    std::erase_if(otherParents_, [](const auto& other) { return other.expired(); });
    otherParents_.push_back(parent);
}

void FileWrapper::removeParent(const FileWrapper& parent) {
    const auto isParent = [&parent](const std::weak_ptr<FileWrapper>& other) {
        return other.lock().get() == &parent;
    };
    if (isParent(parent_)) {
        parent_.reset();
    }
    std::erase_if(otherParents_, isParent);
}

std::vector<std::shared_ptr<FileWrapper>> FileWrapper::parents() const {
    std::vector<std::shared_ptr<FileWrapper>> parents;
    const auto append = [&parents](const std::weak_ptr<FileWrapper>& parent) {
        if (auto held = parent.lock()) {
            parents.push_back(std::move(held));
        }
    };
    append(parent_);
    std::for_each(otherParents_.begin(), otherParents_.end(), append);
    return parents;
}

}  // namespace platform
