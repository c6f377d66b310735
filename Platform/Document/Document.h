// The base class of documents: which file a document belongs to, whether it was changed, how its
// changes are undone, and the chain of operations through which it is read.
//
// Reading goes from the URL to a file wrapper, from there to bytes; a subclass overrides the step
// that it knows better. A document is used on one thread at a time.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Error.h"
#include "Platform/Foundation/FileWrapper.h"
#include "Platform/Foundation/URL.h"
#include "Platform/Foundation/UndoManager.h"
#include "Platform/Foundation/Value.h"

namespace platform {

/// What happened to a document's contents, with the platform's numbers.
enum class ChangeKind : std::int32_t {
    Done = 0,
    Undone = 1,
    Cleared = 2,
    ReadOtherContents = 3,
    Autosaved = 4,
    Redone = 5,
};

/// Whether the changes of a document can be undone.
enum class HasUndoManager : bool { No, Yes };

/// A document without contents of its own.
class Document : public std::enable_shared_from_this<Document> {
protected:
    /// The key to the constructor: documents are made shared, then initialised.
    struct Creation {
        explicit Creation() = default;
    };

public:
    explicit Document(Creation) {}
    virtual ~Document() = default;
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    /// Whether documents of the type may be read on several threads at once. This class says no.
    ///
    /// Selector: canConcurrentlyReadDocumentsOfType:
    [[nodiscard]] static bool canConcurrentlyReadDocumentsOfType(std::string_view typeName);

    /// The file that the document belongs to; none for a new document.
    [[nodiscard]] const std::optional<URL>& fileURL() const { return fileURL_; }
    void setFileURL(std::optional<URL> url) { fileURL_ = std::move(url); }

    /// The type that the document would be saved as; none until it is set.
    [[nodiscard]] const std::optional<std::string>& fileType() const { return fileType_; }
    void setFileType(std::optional<std::string> type) { fileType_ = std::move(type); }

    /// When the document's file was last changed, as far as the document knows.
    [[nodiscard]] const std::optional<Date>& fileModificationDate() const {
        return fileModificationDate_;
    }
    void setFileModificationDate(std::optional<Date> date) { fileModificationDate_ = date; }

    /// Counts a change of the contents.
    ///
    /// Selector: updateChangeCount:
    virtual void updateChangeCount(ChangeKind change);

    /// Whether the contents differ from the file's: more or fewer changes than at the last save, or
    /// changes that undoing and redoing cannot take back to it.
    ///
    /// Selector: isDocumentEdited
    [[nodiscard]] bool isDocumentEdited() const { return changeCount_ != 0 || hasLeftTheFile_; }

    /// The undo manager, made when it is first asked for; null for a document without one.
    ///
    /// It counts the changes: a group that is closed with actions in it is one, undoing takes it
    /// back, redoing makes it again.
    ///
    /// Selector: undoManager
    [[nodiscard]] std::shared_ptr<UndoManager> undoManager();

    /// Whether the document has an undo manager or would make one; at first it would.
    ///
    /// Selector: hasUndoManager
    [[nodiscard]] HasUndoManager hasUndoManager() const { return hasUndoManager_; }

    /// A document that shall have none gives up the one that it has.
    ///
    /// Selector: setHasUndoManager:
    void setHasUndoManager(HasUndoManager hasUndoManager);

    /// Reads the document from the file at `url`. Returns false when that fails, then perhaps with
    /// an error at the location.
    ///
    /// This class makes a file wrapper and hands it on; a file that cannot be read leaves an error
    /// of the platform's domain.
    ///
    /// Selector: readFromURL:ofType:error:
    [[nodiscard]] virtual bool readFromURL(const URL& url, const std::string& ofType,
                                           ErrorLocation error);

    /// Reads the document from a file wrapper.
    ///
    /// This class hands a regular file's bytes on; it refuses everything else with code 256 of the
    /// platform's domain.
    ///
    /// Selector: readFromFileWrapper:ofType:error:
    [[nodiscard]] virtual bool readFromFileWrapper(const std::shared_ptr<FileWrapper>& wrapper,
                                                   const std::string& ofType, ErrorLocation error);

    /// Reads the document from bytes.
    ///
    /// This class raises InternalInconsistencyException: subclasses know what bytes mean.
    ///
    /// Selector: readFromData:ofType:error:
    [[nodiscard]] virtual bool readFromData(const Data& data, const std::string& ofType,
                                            ErrorLocation error);

protected:
    /// Binds the document to the file at `url` and its type, reads it and takes over the file's
    /// modification date. False when reading fails.
    [[nodiscard]] bool initContentsOfURL(const URL& url, const std::string& ofType,
                                         ErrorLocation error);

private:
    void undoManagerDid(UndoEvent event);

    std::optional<URL> fileURL_;
    std::optional<std::string> fileType_;
    std::optional<Date> fileModificationDate_;
    std::int64_t changeCount_ = 0;
    // Until the next save, no count leads back to what the file holds.
    bool hasLeftTheFile_ = false;
    HasUndoManager hasUndoManager_ = HasUndoManager::Yes;
    std::shared_ptr<UndoManager> undoManager_;
};

}  // namespace platform
