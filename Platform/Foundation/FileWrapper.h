// A file, a folder or a symbolic link in memory, with its name, apart from any place on the disk.
//
// A wrapper is one of the three kinds from its initialisation on; a message that only another kind
// understands raises InternalInconsistencyException. Wrappers are shared; a folder holds its
// children, a child knows its folders weakly. Names and keys are bytes, mostly UTF-8.
// A tree of wrappers belongs to one thread at a time.

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Error.h"
#include "Platform/Foundation/FileWrapperChildren.h"
#include "Platform/Foundation/FileWrapperContents.h"

namespace platform {

/// Whether a file is written beside its place and then put there in one step.
enum class Atomically : bool { No, Yes };

/// When the files in a folder are read: at once, or each when its contents are first asked for.
enum class FileReading : bool { Immediate, WhenAsked };

/// Whether wrappers take over the names under which they were written.
enum class UpdateFilenames : bool { No, Yes };

/// A node of a file tree. Derived classes may hold their contents elsewhere.
class FileWrapper : public std::enable_shared_from_this<FileWrapper> {
protected:
    /// The key to the constructor: wrappers are made shared, then initialised.
    struct Creation {
        explicit Creation() = default;
    };

public:
    /// Makes a wrapper of no kind yet, for std::make_shared.
    explicit FileWrapper(Creation);
    virtual ~FileWrapper();
    FileWrapper(const FileWrapper&) = delete;
    FileWrapper& operator=(const FileWrapper&) = delete;

    /// Selector: initRegularFileWithContents:
    [[nodiscard]] static std::shared_ptr<FileWrapper> initRegularFileWithContents(Data contents);

    /// Returns a folder with `children` under exactly the given keys. A child without a preferred
    /// filename takes its key as one.
    ///
    /// Raises InvalidArgumentException when a child is null, or a key is empty or occurs twice.
    ///
    /// Selector: initDirectoryWithFileWrappers:
    [[nodiscard]] static std::shared_ptr<FileWrapper> initDirectoryWithFileWrappers(
        std::vector<FileWrapperEntry> children);

    /// Selector: initSymbolicLinkWithDestination:
    [[nodiscard]] static std::shared_ptr<FileWrapper> initSymbolicLinkWithDestination(
        std::string destination);

    /// Returns what is at `path`, all of it read now; links are not followed. Folders come with all
    /// they hold, hidden files too, in the order of their names.
    ///
    /// Returns null and leaves an error of the platform's domain when anything cannot be read, is
    /// neither file nor folder nor link, or lies more than 128 folders deep.
    ///
    /// Selector: initWithPath:error:
    [[nodiscard]] static std::shared_ptr<FileWrapper> initWithPath(const std::string& path,
                                                                   ErrorLocation error);

    /// The same with a choice. Of files in folders that are read when asked for, only the places
    /// are taken down: such a file has no contents when it can't be read any more.
    ///
    /// Selector: initWithPath:options:error:
    [[nodiscard]] static std::shared_ptr<FileWrapper> initWithPath(const std::string& path,
                                                                   FileReading options,
                                                                   ErrorLocation error);

    /// Returns a wrapper of what a reader has found.
    [[nodiscard]] static std::shared_ptr<FileWrapper> initWithContents(
        FileWrapperContents contents);

    [[nodiscard]] bool isRegularFile() const;
    [[nodiscard]] bool isDirectory() const;
    [[nodiscard]] bool isSymbolicLink() const;

    /// The name that was last read from or written to disk; none for a wrapper made in memory.
    [[nodiscard]] virtual std::optional<std::string> filename() const { return filename_; }

    /// The name that the wrapper would like to have in a folder.
    [[nodiscard]] const std::optional<std::string>& preferredFilename() const {
        return preferredFilename_;
    }

    /// Raises InternalInconsistencyException when the name is empty.
    ///
    /// Selector: setFilename:
    virtual void setFilename(std::string filename);

    /// Sets the preferred name. All folders of the wrapper remove and add it again, so that its
    /// keys may change and it becomes their last child.
    ///
    /// Raises InternalInconsistencyException when the name is empty.
    ///
    /// Selector: setPreferredFilename:
    virtual void setPreferredFilename(std::string preferredFilename);

    /// Adds `child` to this folder and returns its key: its preferred name, or when that is taken
    /// `1__#$!@%!#__name` with the first number whose key is free.
    ///
    /// Raises InvalidArgumentException when the child is null, this folder itself, or without a
    /// preferred filename. Requires: the child does not hold this folder.
    ///
    /// Selector: addFileWrapper:
    virtual std::string addFileWrapper(std::shared_ptr<FileWrapper> child);

    /// Removes all keys of `child`, which is compared by identity; one that is not there is no
    /// error.
    ///
    /// Selector: removeFileWrapper:
    virtual void removeFileWrapper(const std::shared_ptr<FileWrapper>& child);

    /// Returns the key of `child`, nothing when this folder does not hold it.
    ///
    /// Selector: keyForFileWrapper:
    [[nodiscard]] std::optional<std::string> keyForFileWrapper(
        const std::shared_ptr<FileWrapper>& child) const;

    /// Returns the child under `key`, null when there is none.
    [[nodiscard]] std::shared_ptr<FileWrapper> fileWrapperForKey(std::string_view key) const;

    /// The keys and children of this folder, in the order in which they were added.
    ///
    /// Selector: fileWrappers
    [[nodiscard]] const FileWrapperChildren& fileWrappers() const;

    /// Returns the bytes of this file; nothing when they cannot be had.
    ///
    /// Selector: regularFileContents
    [[nodiscard]] virtual std::optional<Data> regularFileContents() const;

    /// Returns the path of a file that holds the contents of this one, for wrappers whose contents
    /// are on the disk. This class has none.
    ///
    /// Selector: contentFilePath
    [[nodiscard]] virtual std::optional<std::string> contentFilePath() const;

    /// Returns where this link leads, as it is written.
    ///
    /// Selector: symbolicLinkDestination
    [[nodiscard]] virtual std::string symbolicLinkDestination() const;

    /// Returns the tree that `data`, a serialized representation, holds; null when it is none.
    ///
    /// Selector: initWithSerializedRepresentation:
    [[nodiscard]] static std::shared_ptr<FileWrapper> initWithSerializedRepresentation(
        const Data& data);

    /// Returns the whole tree as one run of bytes (FileWrapperSerialization.h); nothing when that
    /// cannot be had.
    ///
    /// Selector: serializedRepresentation
    [[nodiscard]] virtual std::optional<Data> serializedRepresentation() const;

    /// Becomes what is at `path`, whatever kind that is, under the same rules as initWithPath; a
    /// folder gets new children, the former ones leave it. The filename is set, the preferred one
    /// stays. Returns false, with nothing changed, when reading fails.
    ///
    /// Selector: updateFromPath:
    virtual bool updateFromPath(const std::string& path);

    /// Writes the wrapper to `path` and returns whether all of it could be written.
    ///
    /// A folder is made, then each child is written under its key; the first that fails ends the
    /// writing, as does a key that is no file name. Not atomically, a file is overwritten, while a
    /// folder or a link must not be there yet. Atomically, what was there is replaced in one step
    /// and stays as it was on failure. With `updateFilenames`, each wrapper that was written has
    /// the name of its file as its filename, also when a later one failed.
    ///
    /// Selector: writeToFile:atomically:updateFilenames:
    virtual bool writeToFile(const std::string& path, Atomically atomically,
                             UpdateFilenames updateFilenames);

protected:
    /// Makes this a file, also for derived classes that have its bytes elsewhere.
    void initRegular(Data contents = {});

    /// Makes this a folder; children as in initDirectoryWithFileWrappers.
    void initDirectory(std::vector<FileWrapperEntry> children = {});

    void initSymbolicLink(std::string destination);

    /// Makes this what is at `path`, as initWithPath, and takes both names from there.
    [[nodiscard]] bool initFromPath(const std::string& path, ErrorLocation error,
                                    FileReading reading = FileReading::Immediate);

private:
    struct Directory;

    [[nodiscard]] Directory& directory(std::string_view operation) const;
    void leaveChildren();
    void addParent(const std::weak_ptr<FileWrapper>& parent);
    void removeParent(const FileWrapper& parent);
    [[nodiscard]] std::vector<std::shared_ptr<FileWrapper>> parents() const;
    [[nodiscard]] bool readContents(const std::string& path, ErrorLocation error,
                                    FileReading reading);
    void init(FileWrapperContents contents);
    [[nodiscard]] bool writeInPlace(const std::string& path, UpdateFilenames updateFilenames);
    [[nodiscard]] bool writeBeside(const std::string& path, UpdateFilenames updateFilenames);
    [[nodiscard]] bool writeChildren(const std::string& path, UpdateFilenames updateFilenames);
    static void bury(std::unique_ptr<Directory> directory) noexcept;

    std::optional<std::string> filename_;
    std::optional<std::string> preferredFilename_;
    /// A file that is asked for its contents becomes one that has been read.
    mutable std::variant<std::monostate, Data, UnreadFile, std::unique_ptr<Directory>,
                         LinkDestination>
        content_;
    // Most wrappers are in one folder at most.
    std::weak_ptr<FileWrapper> parent_;
    std::vector<std::weak_ptr<FileWrapper>> otherParents_;
};

}  // namespace platform
