// A document of the reading application: attributed text with its settings.
//
// Documents are read from packages of the own format and imported from other formats; they are
// saved as packages, by intention without their text, and their text is exported as RTF and plain
// text. A document is used on one thread at a time; different documents may be read on different
// threads at once. A package is saved on a thread of its own, see the base class. Positions in the
// text count UTF-16 code units.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Document/Document.h"
#include "Platform/Foundation/IndexSet.h"
#include "Platform/Foundation/Value.h"
#include "Platform/Text/AttributedString.h"
#include "Platform/Text/TextStorage.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapperDelegate.h"
#include "Sources/Document/PackageFormat.h"

namespace parlavox {

/// Whether a document's text may be edited.
enum class Editing : bool { No, Yes };

/// Whether a document's tags panel is shown.
enum class TagsPanelVisible : bool { No, Yes };

/// Whether the user interface has to set the defaults for printing up.
enum class SetUpPrintInfoDefaults : bool { No, Yes };

/// The size of a window, in points.
struct WindowSize {
    double width = 0;
    double height = 0;

    friend bool operator==(const WindowSize&, const WindowSize&) = default;
};

/// The document class; also the delegate of the archives that it opens.
class Document final : public platform::Document, public ZipWrapperDelegate {
public:
    /// Returns a new, empty document of the own type that belongs to no file.
    ///
    /// Selector: init
    [[nodiscard]] static std::shared_ptr<Document> init();

    /// Returns the document that the file at `url` holds; null when it cannot be read, then perhaps
    /// with an error at the location.
    ///
    /// A package is bound to its file and type. Anything else is imported: the result is a new,
    /// untitled document of the own type with unsaved changes.
    ///
    /// Selector: initWithContentsOfURL:ofType:error:
    [[nodiscard]] static std::shared_ptr<Document> initWithContentsOfURL(
        const platform::URL& url, const std::string& ofType, platform::ErrorLocation error);

    explicit Document(Creation key) : platform::Document(key) {}

    /// True for every type.
    ///
    /// Selector: canConcurrentlyReadDocumentsOfType:
    [[nodiscard]] static bool canConcurrentlyReadDocumentsOfType(std::string_view typeName);

    /// Replaces the text by that of the file at `url`; a package without a text leaves the text as
    /// it is. Returns false, with the text as it was, when the file cannot be read.
    ///
    /// An error is left for a package that needs a newer reader (PVSpecificErrorDomain, code 0) and
    /// for what the base class refuses; other failures leave none. A package whose text is damaged
    /// raises UnarchiveException, one whose archive is damaged ArchiveRangeError or
    /// AssertionFailure.
    ///
    /// Selector: readFromURL:ofType:error:
    [[nodiscard]] bool readFromURL(const platform::URL& url, const std::string& ofType,
                                   platform::ErrorLocation error) override;

    /// Imports the text of an RTFD folder, which leaves the document not editing; all else is for
    /// the base class. A folder that can't be imported leaves no error.
    ///
    /// Selector: readFromFileWrapper:ofType:error:
    [[nodiscard]] bool readFromFileWrapper(const std::shared_ptr<platform::FileWrapper>& wrapper,
                                           const std::string& ofType,
                                           platform::ErrorLocation error) override;

    /// Imports text from bytes in whatever format they are. Never leaves an error.
    ///
    /// Selector: readFromData:ofType:error:
    [[nodiscard]] bool readFromData(const platform::Data& data, const std::string& ofType,
                                    platform::ErrorLocation error) override;

    /// Puts a new text storage with a copy of `text` in the place of the old one. No undo, no
    /// notification: who watched the old storage must turn to the new one.
    ///
    /// Selector: replaceRealStorageWithAttributedString:
    void replaceRealStorageWithAttributedString(platform::AttributedString text);

    /// The application's main window controller; null when there is none, or none any more. It
    /// belongs to the user interface: kept here for it, never used.
    [[nodiscard]] std::shared_ptr<platform::Object> mainWindowController() const {
        return mainWindowController_.lock();
    }
    void setMainWindowController(std::weak_ptr<platform::Object> controller) {
        mainWindowController_ = std::move(controller);
    }

    /// A flag of the user interface: kept here for it, never used.
    [[nodiscard]] SetUpPrintInfoDefaults setUpPrintInfoDefaults() const {
        return setUpPrintInfoDefaults_;
    }
    void setSetUpPrintInfoDefaults(SetUpPrintInfoDefaults setUp) {
        setUpPrintInfoDefaults_ = setUp;
    }

    /// The text; never null.
    [[nodiscard]] const std::shared_ptr<platform::TextStorage>& textStorage() const {
        return textStorage_;
    }

    /// Replaces the whole text by a copy of `text`, which can be undone; the storage stays the same
    /// object.
    ///
    /// Selector: setTextStorage:
    void setTextStorage(platform::AttributedString text);

    /// The same for characters alone: all of them take the attributes of the first one replaced.
    void setTextStorage(std::u16string string);

    [[nodiscard]] Editing isEditing() const { return editing_; }
    void setEditing(Editing editing) { editing_ = editing; }

    [[nodiscard]] TagsPanelVisible tagsPanelVisible() const { return tagsPanelVisible_; }
    void setTagsPanelVisible(TagsPanelVisible visible) { tagsPanelVisible_ = visible; }

    /// The templates that the user made for tags; absent until there were any.
    [[nodiscard]] const std::optional<platform::Array>& customTagTemplates() const {
        return customTagTemplates_;
    }

    /// Inserts templates so that each is at its index in the new list.
    ///
    /// This and the next two can be undone; a name that is not empty names the step in the user's
    /// language. Each posts DocumentCustomTagTemplatesDidChangeNotification, also when it is undone
    /// or redone. No indexes for some templates do nothing at all; otherwise counts that differ,
    /// and indexes beyond the list, raise as the platform's arrays do.
    ///
    /// Selector: insertCustomTagTemplates:atIndexes:withUndoActionName:
    void insertCustomTagTemplates(const platform::Array& templates,
                                  const platform::IndexSet& atIndexes,
                                  const std::string& withUndoActionName);

    /// Selector: removeCustomTagTemplatesAtIndexes:withUndoActionName:
    void removeCustomTagTemplatesAtIndexes(const platform::IndexSet& indexes,
                                           const std::string& withUndoActionName);

    /// Moves a template to where it shall be in the list without it.
    ///
    /// Selector: moveCustomTagTemplateAtIndex:toIndex:withUndoActionName:
    void moveCustomTagTemplateAtIndex(std::uint64_t index, std::uint64_t toIndex,
                                      const std::string& withUndoActionName);

    /// The place of the insertion point.
    [[nodiscard]] std::uint64_t cursorLocation() const { return cursorLocation_; }
    void setCursorLocation(std::uint64_t location) { cursorLocation_ = location; }

    /// 0 is horizontal.
    [[nodiscard]] std::int64_t textLayoutOrientation() const { return textLayoutOrientation_; }
    void setTextLayoutOrientation(std::int64_t orientation) {
        textLayoutOrientation_ = orientation;
    }

    /// The colour behind the text; null for none.
    [[nodiscard]] const std::shared_ptr<const platform::Object>& backgroundColor() const {
        return backgroundColor_;
    }
    void setBackgroundColor(std::shared_ptr<const platform::Object> color) {
        backgroundColor_ = std::move(color);
    }

    [[nodiscard]] WindowSize windowSize() const { return windowSize_; }
    void setWindowSize(WindowSize size) { windowSize_ = size; }

    // Saving.

    using platform::Document::writeToURL;

    /// Writes a package with the templates, the settings and the header, all stored; not the text,
    /// by intention. Never leaves an error. Other types are written as the base class does.
    ///
    /// Selector: writeToURL:ofType:error:
    [[nodiscard]] bool writeToURL(const platform::URL& url, const std::string& ofType,
                                  platform::ErrorLocation error) override;

    /// Returns the text without its tags, as RTF or in UTF-8, where a lone surrogate becomes
    /// U+FFFD. Nothing, and no error, for other types.
    ///
    /// Selector: dataOfType:error:
    [[nodiscard]] std::optional<platform::Data> dataOfType(const std::string& ofType,
                                                           platform::ErrorLocation error) override;

    /// A copy can be saved as the two export types, all else as the base class says.
    ///
    /// Selector: writableTypesForSaveOperation:
    [[nodiscard]] std::vector<std::string> writableTypesForSaveOperation(
        platform::SaveOperation forSaveOperation) const override;

    /// True for packages.
    ///
    /// Selector: canAsynchronouslyWriteToURL:ofType:forSaveOperation:
    [[nodiscard]] bool canAsynchronouslyWriteToURL(
        const platform::URL& url, const std::string& ofType,
        platform::SaveOperation forSaveOperation) const override;

    /// Selector: autosavesInPlace
    [[nodiscard]] static bool autosavesInPlace() { return true; }

    /// Saves as the base class does. After a save that succeeded and the handler's call,
    /// DocumentDidSaveNotification is posted.
    ///
    /// Selector: saveToURL:ofType:forSaveOperation:completionHandler:
    void saveToURL(const platform::URL& url, const std::string& ofType,
                   platform::SaveOperation forSaveOperation,
                   CompletionHandler completionHandler) override;

    /// Returns what "contents.plist" holds when the document is saved now: the header, with the
    /// name and version of the main bundle.
    ///
    /// Selector: metadataDictionary
    [[nodiscard]] platform::Dictionary metadataDictionary() const;

    /// Nothing: the document has no settings.
    ///
    /// Selector: settingsDictionary
    [[nodiscard]] platform::Value settingsDictionary() const;

    /// Always 1, the fastest.
    ///
    /// Selector: compressLevelForFileWrapper:zipWrapper:
    std::optional<std::uint32_t> compressLevelForFileWrapper(
        const std::shared_ptr<platform::FileWrapper>& wrapper,
        const ZipWrapper& zipWrapper) override;

private:
    friend class DocumentTestPeer;

    [[nodiscard]] bool readPackage(const std::string& path, platform::ErrorLocation error);
    void readText(const platform::FileWrapper& member);
    void registerUndoOfText();
    void registerUndoOfTemplates(const std::string& actionName,
                                 std::function<void(Document&)> undo);
    void setCustomTagTemplates(platform::Array templates, platform::Dictionary userInfo);

    std::weak_ptr<platform::Object> mainWindowController_;
    std::shared_ptr<platform::TextStorage> textStorage_ = std::make_shared<platform::TextStorage>();
    SetUpPrintInfoDefaults setUpPrintInfoDefaults_ = SetUpPrintInfoDefaults::No;
    Editing editing_ = Editing::Yes;
    TagsPanelVisible tagsPanelVisible_ = TagsPanelVisible::Yes;
    std::optional<platform::Array> customTagTemplates_;
    std::uint64_t cursorLocation_ = 0;
    std::int64_t textLayoutOrientation_ = 0;
    std::shared_ptr<const platform::Object> backgroundColor_;
    WindowSize windowSize_;
};

}  // namespace parlavox
