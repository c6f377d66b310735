#include "Sources/Document/Document.h"

#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/Codable.h"
#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/KeyedUnarchiver.h"
#include "Platform/Foundation/TypeRegistry.h"
#include "Platform/Text/RtfdReader.h"
#include "Platform/Text/TextReader.h"
#include "Sources/Document/PackageHeader.h"
#include "Sources/Document/TextUnarchiver.h"
#include "Sources/TextImport/ImportUtils.h"
#include "Sources/TextImport/PDFImporter.h"

namespace parlavox {

using platform::AttributedString;
using platform::Data;
using platform::ErrorLocation;
using platform::FailureContext;
using platform::FileWrapper;
using platform::noteFailure;
using platform::TypeRegistry;
using platform::URL;
using platform::Value;

namespace {

constexpr char kPdfType[] = "com.adobe.pdf";
constexpr char kHtmlType[] = "public.html";
constexpr char kRtfdType[] = "com.apple.rtfd";

/// The bytes of the archive's member `name`; nothing when it is missing or no regular file.
std::optional<Data> contentsOfMember(const ZipWrapper& archive, std::string_view name) {
    const auto member = archive.fileWrapperForKey(name);
    return member != nullptr && member->isRegularFile() ? member->regularFileContents()
                                                        : std::nullopt;
}

/// What an archive's root is when it is no text, for a person.
std::string describeRoot(const Value& root) {
    const auto object = root.object();
    const auto* const codable = dynamic_cast<const platform::Codable*>(object.get());
    const auto type = codable != nullptr ? codable->archivedClass() : nullptr;
    return type != nullptr ? "root object of class " + type->names.front() + ", which is no text"
                           : "root object that is no text";
}

/// The compatibility version that "contents.plist" states; nothing when there is none.
std::optional<std::int64_t> versionIn(const Data& contents) {
    const FailureContext context(kContentsMember);
    const auto header = packageHeader(contents);
    if (!header) {
        noteFailure(header.fault().detail);
        return std::nullopt;
    }
    const auto version = compatibilityVersion(header.value());
    if (!version) {
        noteFailure("no compatibility version in the header");
    }
    return version;
}

/// An imported text without what does not belong into a document.
AttributedString cleanedImport(const AttributedString& text) {
    return ImportUtils::createCleanCopy(ImportUtils::createCopyWithoutAttachments(text));
}

}  // namespace

std::shared_ptr<Document> Document::init() {
    auto document = std::make_shared<Document>(Creation());
    document->setFileType(kDocumentType);
    return document;
}

std::shared_ptr<Document> Document::initWithContentsOfURL(const URL& url, const std::string& ofType,
                                                          ErrorLocation error) {
    auto document = init();
    if (isPackageType(ofType)) {
        return document->initContentsOfURL(url, ofType, error) ? document : nullptr;
    }
    if (!document->readFromURL(url, ofType, error)) {
        return nullptr;
    }
    document->setFileModificationDate(platform::currentDate());
    return document;
}

bool Document::canConcurrentlyReadDocumentsOfType(std::string_view) {
    return true;
}

bool Document::readFromURL(const URL& url, const std::string& ofType, ErrorLocation error) {
    if (isPackageType(ofType)) {
        return readPackage(url.path(), error);
    }
    if (!platform::Document::readFromURL(url, ofType, error)) {
        return false;
    }
    updateChangeCount(platform::ChangeKind::Done);
    return true;
}

bool Document::readPackage(const std::string& path, ErrorLocation error) {
    const auto archive =
        ZipWrapper::initWithPath(path, std::static_pointer_cast<Document>(shared_from_this()));
    if (archive == nullptr) {
        return false;
    }
    const auto contents = contentsOfMember(*archive, kContentsMember);
    if (!contents) {
        platform::noteFailureUnlessNoted("no contents.plist in the archive");
        return false;
    }
    const auto version = versionIn(*contents);
    if (!version) {
        return false;
    }
    if (*version >= kFirstUnknownCompatibilityVersion) {
        noteFailure("needs a newer reader (compatibility version " + std::to_string(*version) +
                    ")");
        platform::leaveError(error, {PVSpecificErrorDomain, kNewerReaderNeeded, {}});
        return false;
    }
    const auto text = archive->fileWrapperForKey(kTextMember);
    if (text != nullptr && text->isRegularFile()) {
        readText(*text);
    }
    return true;
}

void Document::readText(const FileWrapper& member) {
    const FailureContext context(kTextMember);
    const auto contents = member.regularFileContents();
    if (!contents) {
        platform::raise(platform::UnarchiveException("contents that can't be read"));
    }
    const auto unarchiver = TextUnarchiver::initWithTagValuesDictionary(nullptr, *contents);
    const Value root = unarchiver->decodeObject();
    unarchiver->finishDecoding();
    if (root.isNull()) {
        return;
    }
    const auto object = root.object();
    if (const auto* const text = dynamic_cast<const AttributedString*>(object.get())) {
        replaceRealStorageWithAttributedString(*text);
    } else if (auto string = root.sharedString()) {
        replaceRealStorageWithAttributedString(AttributedString(std::move(string), {}));
    } else {
        platform::raise(platform::UnarchiveException(describeRoot(root)));
    }
}

bool Document::readFromFileWrapper(const std::shared_ptr<FileWrapper>& wrapper,
                                   const std::string& ofType, ErrorLocation error) {
    if (!TypeRegistry::typeConformsToType(ofType, kRtfdType)) {
        return platform::Document::readFromFileWrapper(wrapper, ofType, error);
    }
    const auto text = platform::attributedStringFromRtfd(*wrapper);
    if (!text) {
        noteFailure(text.fault().detail);
        return false;
    }
    replaceRealStorageWithAttributedString(cleanedImport(text.value()));
    setEditing(Editing::No);
    return true;
}

bool Document::readFromData(const Data& data, const std::string& ofType, ErrorLocation) {
    if (TypeRegistry::typeConformsToType(ofType, kPdfType)) {
        auto pages = PDFImporter::createStringFromPDFData(data);
        if (!pages) {
            return false;
        }
        replaceRealStorageWithAttributedString(*std::move(pages));
        return true;
    }
    const bool isHtml = TypeRegistry::typeConformsToType(ofType, kHtmlType);
    const auto text = platform::attributedStringFromData(
        data, isHtml ? platform::TextFormat::Html : platform::TextFormat::Plain);
    if (!text) {
        noteFailure(text.fault().detail);
        return false;
    }
    replaceRealStorageWithAttributedString(cleanedImport(text.value()));
    return true;
}

void Document::replaceRealStorageWithAttributedString(AttributedString text) {
    textStorage_ = std::make_shared<platform::TextStorage>(std::move(text));
}

void Document::setTextStorage(AttributedString text) {
    registerUndoOfText();
    textStorage_->replaceCharactersInRangeWithAttributedString({0, textStorage_->length()},
                                                               std::move(text));
}

void Document::setTextStorage(std::u16string string) {
    registerUndoOfText();
    textStorage_->replaceCharactersInRangeWithString({0, textStorage_->length()},
                                                     std::move(string));
}

void Document::registerUndoOfText() {
    const auto manager = undoManager();
    if (manager == nullptr) {
        return;
    }
    manager->registerUndoWithTarget(
        this, [weak = weak_from_this(), text = textStorage_->attributedString()] {
            if (const auto document = std::static_pointer_cast<Document>(weak.lock())) {
                document->setTextStorage(text);
            }
        });
}

}  // namespace parlavox
