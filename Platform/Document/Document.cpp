#include "Platform/Document/Document.h"

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileManager.h"

namespace platform {

bool Document::canConcurrentlyReadDocumentsOfType(std::string_view) {
    return false;
}

void Document::updateChangeCount(ChangeKind change) {
    switch (change) {
        case ChangeKind::Done:
            // What was undone below the save could only come back by redoing, and a new change
            // ends that.
            changes_.hasLeftTheFile = changes_.hasLeftTheFile || changes_.count < 0;
            if (savedChanges_ && savedChanges_->count + changes_.count < 0) {
                savedChanges_->hasLeftTheFile = true;
            }
            [[fallthrough]];
        case ChangeKind::Redone:
            ++changes_.count;
            break;
        case ChangeKind::Undone:
            --changes_.count;
            break;
        case ChangeKind::Cleared:
            changes_ = {};
            savedChanges_ = savedChanges_ ? std::optional(Changes()) : std::nullopt;
            break;
        case ChangeKind::ReadOtherContents:
            changes_.hasLeftTheFile = true;
            if (savedChanges_) {
                savedChanges_->hasLeftTheFile = true;
            }
            break;
        case ChangeKind::Autosaved:
            // The document's own file did not change.
            break;
    }
}

std::shared_ptr<UndoManager> Document::undoManager() {
    if (undoManager_ == nullptr && hasUndoManager_ == HasUndoManager::Yes) {
        undoManager_ = std::make_shared<UndoManager>();
        // The manager may outlive the document, and one that was given up counts no more.
        undoManager_->addObserver(
            [weak = weak_from_this(), manager = undoManager_.get()](UndoEvent event) {
                const auto document = weak.lock();
                if (document != nullptr && document->undoManager_.get() == manager) {
                    document->undoManagerDid(event);
                }
            });
    }
    return undoManager_;
}

void Document::setHasUndoManager(HasUndoManager hasUndoManager) {
    hasUndoManager_ = hasUndoManager;
    if (hasUndoManager == HasUndoManager::No) {
        undoManager_.reset();
    }
}

void Document::undoManagerDid(UndoEvent event) {
    switch (event) {
        case UndoEvent::WillCloseUndoGroup:
            if (undoManager_->groupingLevel() == 1 && undoManager_->hasOpenActions()) {
                updateChangeCount(ChangeKind::Done);
            }
            break;
        case UndoEvent::DidUndoChange:
            updateChangeCount(ChangeKind::Undone);
            break;
        case UndoEvent::DidRedoChange:
            updateChangeCount(ChangeKind::Redone);
            break;
        default:
            break;
    }
}

bool Document::readFromURL(const URL& url, const std::string& ofType, ErrorLocation error) {
    // A wrapper takes a link as a link; a document is what the link leads to.
    const auto wrapper = FileWrapper::initWithPath(
        FileManager::defaultManager().stringByResolvingSymlinksInPath(url.path()),
        FileReading::WhenAsked, error);
    return wrapper != nullptr && readFromFileWrapper(wrapper, ofType, error);
}

bool Document::readFromFileWrapper(const std::shared_ptr<FileWrapper>& wrapper,
                                   const std::string& ofType, ErrorLocation error) {
    const auto contents =
        wrapper->isRegularFile() ? wrapper->regularFileContents() : std::optional<Data>();
    if (!contents) {
        const std::string cause = "no readable file of type " + ofType;
        noteFailure(cause);
        leaveError(error, {std::string(kCocoaErrorDomain), kFileReadUnknownError, cause});
        return false;
    }
    return readFromData(*contents, ofType, error);
}

bool Document::readFromData(const Data&, const std::string&, ErrorLocation) {
    raise(InternalInconsistencyException(
        "readFromData:ofType:error: is a subclass responsibility but has not been overridden."));
}

bool Document::initContentsOfURL(const URL& url, const std::string& ofType, ErrorLocation error) {
    fileURL_ = url;
    fileType_ = ofType;
    if (!readFromURL(url, ofType, error)) {
        return false;
    }
    const auto attributes = FileManager::defaultManager().attributesOfItemAtPath(url.path());
    fileModificationDate_ =
        attributes ? std::optional<Date>(attributes->modificationDate) : std::nullopt;
    return true;
}

}  // namespace platform
