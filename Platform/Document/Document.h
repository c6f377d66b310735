// The base class of documents: which file a document belongs to, whether it was changed, how its
// changes are undone, and the chains of operations through which it is read and saved.
//
// Reading goes from the URL to a file wrapper, from there to bytes; a subclass overrides the step
// that it knows better. Saving goes the same way back: from the save operation to a file that is
// written beside its place, to the wrapper, to bytes.
//
// A document is used on one thread at a time, but for writing on a thread of its own, which the
// subclass allows: the other thread waits then until the writing has taken from the document what
// it needs, and may go on changing it. How such a save ends is left for the main queue.

#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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

/// What a document is saved for, with the platform's numbers.
enum class SaveOperation : std::int32_t {
    Save = 0,               ///< to its file
    SaveAs = 1,             ///< to another file, which becomes its file
    SaveTo = 2,             ///< a copy, in another format perhaps
    AutosaveElsewhere = 3,  ///< to a file that is there for the case of a crash
    AutosaveInPlace = 4,    ///< to its file, without having been asked
    AutosaveAs = 5,         ///< to another file, which becomes its file, without having been asked
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
    /// changes that undoing and redoing cannot take back to it. What is just being saved differs
    /// until the save has ended.
    ///
    /// Selector: isDocumentEdited
    [[nodiscard]] bool isDocumentEdited() const {
        return changes_.isAny() || (savedChanges_ && savedChanges_->isAny());
    }

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

    // Saving.

    /// Called with the error when a save has ended, or with nothing when it has succeeded.
    using CompletionHandler = std::function<void(const std::optional<Error>&)>;

    /// Saves the document and tells the handler how that ended.
    ///
    /// After a save to the document's own file, or one that makes a file its own, the document
    /// belongs to the file and has no changes but those that were made since; autosaving elsewhere
    /// only notes the place. A failed save leaves all that as it was, and always has an error. The
    /// event ends with the beginning of a save. What writing throws comes out where the save ends,
    /// and the handler is not called then.
    ///
    /// A save that is not asynchronous has ended when this returns. Otherwise this returns as soon
    /// as the document may be changed again, and the main queue ends the save, which keeps the
    /// document alive until then; saves that are asked for meanwhile follow it.
    ///
    /// Selector: saveToURL:ofType:forSaveOperation:completionHandler:
    virtual void saveToURL(const URL& url, const std::string& ofType,
                           SaveOperation forSaveOperation, CompletionHandler completionHandler);

    /// Writes the document beside `url` and then puts it there in one step, so that a failure
    /// leaves what was there. A file that is replaced passes its permissions on.
    ///
    /// Selector: writeSafelyToURL:ofType:forSaveOperation:error:
    [[nodiscard]] virtual bool writeSafelyToURL(const URL& url, const std::string& ofType,
                                                SaveOperation forSaveOperation,
                                                ErrorLocation error);

    /// Writes the document to `url`; `originalContentsURL` is the file that it belongs to. This
    /// class leaves both aside but the type.
    ///
    /// Selector: writeToURL:ofType:forSaveOperation:originalContentsURL:error:
    [[nodiscard]] virtual bool writeToURL(const URL& url, const std::string& ofType,
                                          SaveOperation forSaveOperation,
                                          const std::optional<URL>& originalContentsURL,
                                          ErrorLocation error);

    /// Writes the document to `url`. This class writes the file wrapper, whose name follows.
    ///
    /// Selector: writeToURL:ofType:error:
    [[nodiscard]] virtual bool writeToURL(const URL& url, const std::string& ofType,
                                          ErrorLocation error);

    /// Returns the document as a file wrapper; null when it cannot be had, then perhaps with an
    /// error. This class makes a regular file of the bytes.
    ///
    /// Selector: fileWrapperOfType:error:
    [[nodiscard]] virtual std::shared_ptr<FileWrapper> fileWrapperOfType(const std::string& ofType,
                                                                         ErrorLocation error);

    /// Returns the document as bytes; nothing when it cannot be had, then perhaps with an error.
    ///
    /// This class raises InternalInconsistencyException: subclasses know what to write.
    ///
    /// Selector: dataOfType:error:
    [[nodiscard]] virtual std::optional<Data> dataOfType(const std::string& ofType,
                                                         ErrorLocation error);

    /// The types that the document can be saved as. This class answers what the main bundle
    /// declares (CFBundleDocumentTypes): all types that it can write for a copy, otherwise those
    /// that it can read as well.
    ///
    /// Selector: writableTypesForSaveOperation:
    [[nodiscard]] virtual std::vector<std::string> writableTypesForSaveOperation(
        SaveOperation forSaveOperation) const;

    /// Whether the main bundle declares that it can read and write the type.
    ///
    /// Selector: isNativeType:
    [[nodiscard]] static bool isNativeType(std::string_view type);

    /// Whether a save may write on a thread of its own. This class says no.
    ///
    /// Selector: canAsynchronouslyWriteToURL:ofType:forSaveOperation:
    [[nodiscard]] virtual bool canAsynchronouslyWriteToURL(const URL& url,
                                                           const std::string& ofType,
                                                           SaveOperation forSaveOperation) const;

    /// Whether documents are autosaved to their own files. This class says no.
    ///
    /// Selector: autosavesInPlace
    [[nodiscard]] static bool autosavesInPlace() { return false; }

    /// The type that the document is autosaved as: its own.
    ///
    /// Selector: autosavingFileType
    [[nodiscard]] virtual std::optional<std::string> autosavingFileType() const {
        return fileType_;
    }

    /// Where the document was autosaved elsewhere; none when it was not since its last save.
    [[nodiscard]] const std::optional<URL>& autosavedContentsFileURL() const {
        return autosavedContentsFileURL_;
    }
    void setAutosavedContentsFileURL(std::optional<URL> url) {
        autosavedContentsFileURL_ = std::move(url);
    }

    /// Called by what writes, when it needs nothing more of the document: whoever asked for an
    /// asynchronous save may go on. Does nothing at other times.
    ///
    /// Selector: unblockUserInteraction
    static void unblockUserInteraction();

protected:
    /// Binds the document to the file at `url` and its type, reads it and takes over the file's
    /// modification date. False when reading fails.
    [[nodiscard]] bool initContentsOfURL(const URL& url, const std::string& ofType,
                                         ErrorLocation error);

private:
    /// How far the contents are from the file's.
    struct Changes {
        std::int64_t count = 0;
        /// Until the next save, no count leads back to what the file holds.
        bool hasLeftTheFile = false;

        [[nodiscard]] bool isAny() const { return count != 0 || hasLeftTheFile; }
    };

    /// One save, with what it was asked for and who waits for it.
    struct Saving;

    void undoManagerDid(UndoEvent event);
    void begin(const std::shared_ptr<Saving>& saving);
    void beginOnThread(const std::shared_ptr<Saving>& saving);
    void write(Saving& saving);
    void end(Saving& saving);
    void takeOver(const Saving& saving);

    std::optional<URL> fileURL_;
    std::optional<std::string> fileType_;
    std::optional<Date> fileModificationDate_;
    std::optional<URL> autosavedContentsFileURL_;
    Changes changes_;
    /// While a save writes them: the changes that the file does not hold yet. Whether the contents
    /// have left the old file is kept here, for the case that the save fails.
    std::optional<Changes> savedChanges_;
    bool isSaving_ = false;
    std::deque<std::shared_ptr<Saving>> waitingSaves_;
    HasUndoManager hasUndoManager_ = HasUndoManager::Yes;
    std::shared_ptr<UndoManager> undoManager_;
};

}  // namespace platform
