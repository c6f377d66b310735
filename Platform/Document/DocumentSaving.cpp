// The part of Document that saves.

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>

#include "Platform/Document/DeclaredTypes.h"
#include "Platform/Document/Document.h"
#include "Platform/Foundation/AsciiCase.h"
#include "Platform/Foundation/ErrnoError.h"
#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/MainQueue.h"
#include "Platform/Foundation/StagedItem.h"

namespace platform {
namespace {

/// Lets a thread wait until another one says that it may go on.
class Gate {
public:
    void open() {
        {
            const std::lock_guard lock(mutex_);
            isOpen_ = true;
        }
        opened_.notify_all();
    }

    void wait() {
        std::unique_lock lock(mutex_);
        opened_.wait(lock, [this] { return isOpen_; });
    }

private:
    std::mutex mutex_;
    std::condition_variable opened_;
    bool isOpen_ = false;
};

/// The gate of the save that this thread writes; null when somebody else waits for nothing.
thread_local Gate* savesGate = nullptr;

/// Whether the save's file becomes, or is, the document's own.
bool isToOwnFile(SaveOperation operation) {
    return operation != SaveOperation::SaveTo && operation != SaveOperation::AutosaveElsewhere;
}

}  // namespace

struct Document::Saving {
    Saving(URL place, std::string ofType, SaveOperation forOperation, CompletionHandler handler)
        : url(std::move(place)),
          type(std::move(ofType)),
          operation(forOperation),
          completionHandler(std::move(handler)) {}

    const URL url;
    const std::string type;
    const SaveOperation operation;
    const CompletionHandler completionHandler;

    bool isWritten = false;
    std::optional<Error> error;
    /// What writing threw, for the thread that ends the save.
    std::exception_ptr exception;
};

void Document::saveToURL(const URL& url, const std::string& ofType, SaveOperation forSaveOperation,
                         CompletionHandler completionHandler) {
    auto saving =
        std::make_shared<Saving>(url, ofType, forSaveOperation, std::move(completionHandler));
    if (isSaving_) {
        waitingSaves_.push_back(std::move(saving));
    } else {
        begin(saving);
    }
}

void Document::begin(const std::shared_ptr<Saving>& saving) {
    isSaving_ = true;
    if (undoManager_ != nullptr) {
        // What was done until now belongs into this file, also in the eyes of those who undo it.
        undoManager_->endEvent();
    }
    if (isToOwnFile(saving->operation)) {
        // What is changed from now on is not in the file.
        savedChanges_ = std::exchange(changes_, {});
    }
    if (canAsynchronouslyWriteToURL(saving->url, saving->type, saving->operation)) {
        beginOnThread(saving);
        return;
    }
    write(*saving);
    end(*saving);
}

void Document::beginOnThread(const std::shared_ptr<Saving>& saving) {
    const auto gate = std::make_shared<Gate>();
    // The thread gives away what it holds: the document must not end there.
    const auto writeAndLeaveTheEnd = [gate](std::shared_ptr<Document> document,
                                            std::shared_ptr<Saving> its) {
        savesGate = gate.get();
        document->write(*its);
        savesGate = nullptr;
        MainQueue::mainQueue().add(
            [held = std::move(document), ending = std::move(its)] { held->end(*ending); });
        gate->open();
    };
    try {
        std::thread(writeAndLeaveTheEnd, shared_from_this(), saving).detach();
    } catch (const std::system_error&) {
        // No more threads: this one will do.
        writeAndLeaveTheEnd(shared_from_this(), saving);
    }
    gate->wait();
}

void Document::write(Saving& saving) {
    clearFailure();
    try {
        saving.isWritten =
            writeSafelyToURL(saving.url, saving.type, saving.operation, &saving.error);
    } catch (...) {
        saving.exception = std::current_exception();
    }
    if (!saving.isWritten && !saving.error) {
        const char* const cause = lastFailure();
        saving.error = Error{std::string(kCocoaErrorDomain), kFileWriteUnknownError,
                             cause != nullptr ? cause : saving.url.path() + ": can't be written"};
    }
}

void Document::end(Saving& saving) {
    if (saving.isWritten) {
        saving.error.reset();
        takeOver(saving);
    } else if (savedChanges_) {
        changes_.count += savedChanges_->count;
        changes_.hasLeftTheFile = savedChanges_->hasLeftTheFile;
    }
    savedChanges_.reset();
    isSaving_ = false;
    const std::shared_ptr<Document> self = shared_from_this();
    if (!waitingSaves_.empty()) {
        isSaving_ = true;
        MainQueue::mainQueue().add([self] {
            const auto next = std::move(self->waitingSaves_.front());
            self->waitingSaves_.pop_front();
            self->begin(next);
        });
    }
    if (saving.exception != nullptr) {
        std::rethrow_exception(saving.exception);
    }
    if (saving.completionHandler) {
        saving.completionHandler(saving.error);
    }
}

/// Takes over what a successful save has changed.
void Document::takeOver(const Saving& saving) {
    if (saving.operation == SaveOperation::AutosaveElsewhere) {
        setAutosavedContentsFileURL(saving.url);
        updateChangeCount(ChangeKind::Autosaved);
    } else if (isToOwnFile(saving.operation)) {
        setFileURL(saving.url);
        setFileType(saving.type);
        const auto attributes =
            FileManager::defaultManager().attributesOfItemAtPath(saving.url.path());
        setFileModificationDate(attributes ? std::optional<Date>(attributes->modificationDate)
                                           : std::nullopt);
        setAutosavedContentsFileURL(std::nullopt);
    }
}

bool Document::writeSafelyToURL(const URL& url, const std::string& ofType,
                                SaveOperation forSaveOperation, ErrorLocation error) {
    const auto refuse = [&](int cause) {
        Error refusal = cocoaErrorForErrno(cause, FileAccess::Writing, url.path());
        noteFailure(refusal.description);
        leaveError(error, std::move(refusal));
        return false;
    };
    // A link stays, and what it leads to is written, as that is what is read.
    StagedItem staged(FileManager::defaultManager().stringByResolvingSymlinksInPath(url.path()));
    if (!staged.isMade()) {
        return refuse(errno);
    }
    const URL beside = URL::fileURLWithPath(staged.path());
    return writeToURL(beside, ofType, forSaveOperation, fileURL_, error) &&
           (staged.putInPlace() || refuse(errno));
}

bool Document::writeToURL(const URL& url, const std::string& ofType, SaveOperation,
                          const std::optional<URL>&, ErrorLocation error) {
    return writeToURL(url, ofType, error);
}

bool Document::writeToURL(const URL& url, const std::string& ofType, ErrorLocation error) {
    const auto wrapper = fileWrapperOfType(ofType, error);
    unblockUserInteraction();
    if (wrapper == nullptr) {
        return false;
    }
    if (!wrapper->writeToFile(url.path(), Atomically::No, UpdateFilenames::Yes)) {
        const char* const cause = lastFailure();
        leaveError(error, {std::string(kCocoaErrorDomain), kFileWriteUnknownError,
                           cause != nullptr ? cause : ""});
        return false;
    }
    return true;
}

std::shared_ptr<FileWrapper> Document::fileWrapperOfType(const std::string& ofType,
                                                         ErrorLocation error) {
    auto data = dataOfType(ofType, error);
    return data ? FileWrapper::initRegularFileWithContents(*std::move(data)) : nullptr;
}

std::optional<Data> Document::dataOfType(const std::string&, ErrorLocation) {
    raise(InternalInconsistencyException(
        "dataOfType:error: is a subclass responsibility but has not been overridden."));
}

std::vector<std::string> Document::writableTypesForSaveOperation(
    SaveOperation forSaveOperation) const {
    std::vector<std::string> types;
    for (const DeclaredType& declared : declaredTypes()) {
        if (declared.isWritable &&
            (forSaveOperation == SaveOperation::SaveTo || declared.isReadable)) {
            types.push_back(declared.type);
        }
    }
    return types;
}

bool Document::isNativeType(std::string_view type) {
    const auto types = declaredTypes();
    return std::any_of(types.begin(), types.end(), [type](const DeclaredType& declared) {
        return equalIgnoringAsciiCase(declared.type, type) && declared.isReadable &&
               declared.isWritable;
    });
}

bool Document::canAsynchronouslyWriteToURL(const URL&, const std::string&, SaveOperation) const {
    return false;
}

void Document::unblockUserInteraction() {
    if (savesGate != nullptr) {
        savesGate->open();
    }
}

}  // namespace platform
