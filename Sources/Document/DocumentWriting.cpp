// The part of Document that writes and saves.

#include <utility>
#include <vector>

#include "Platform/Foundation/Bundle.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/KeyedArchiver.h"
#include "Platform/Foundation/Log.h"
#include "Platform/Foundation/NotificationCenter.h"
#include "Platform/Foundation/PropertyListSerialization.h"
#include "Platform/Foundation/TypeRegistry.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/RtfWriter.h"
#include "Sources/Document/Document.h"
#include "Sources/Document/DocumentNotifications.h"
#include "Sources/Document/ExportTypes.h"
#include "Sources/Document/PackageHeader.h"
#include "Sources/TextImport/RTFExporter.h"

namespace parlavox {

using platform::Bundle;
using platform::Data;
using platform::Dictionary;
using platform::ErrorLocation;
using platform::FileWrapper;
using platform::FileWrapperEntry;
using platform::KeyedArchiver;
using platform::SaveOperation;
using platform::TypeRegistry;
using platform::URL;
using platform::Value;

namespace {

constexpr char kUnknownApplication[] = "parlavox";
constexpr char kUnknownVersion[] = "???";

std::string applicationName(const Bundle& bundle) {
    const auto identifier = bundle.bundleIdentifier();
    if (!identifier) {
        platform::log("Failed to get bundle ID of application.");
    }
    return identifier.value_or(kUnknownApplication);
}

std::string applicationVersion(const Bundle& bundle) {
    const auto version = bundle.objectForInfoDictionaryKey("CFBundleShortVersionString").utf8();
    if (!version) {
        platform::log("Failed to get bundle version of application.");
    }
    return version.value_or(kUnknownVersion);
}

FileWrapperEntry member(std::string_view name, Data contents) {
    return {std::string(name), FileWrapper::initRegularFileWithContents(std::move(contents))};
}

}  // namespace

Dictionary Document::metadataDictionary() const {
    const auto bundle = Bundle::mainBundle();
    std::vector<Dictionary::Entry> header;
    header.push_back({std::string(kApplicationKey), Value::fromUtf8(applicationName(*bundle))});
    header.push_back(
        {std::string(kApplicationVersionKey), Value::fromUtf8(applicationVersion(*bundle))});
    header.push_back({std::string(kCreatedKey), Value(platform::currentDate())});
    header.push_back({std::string(kDocumentFormatVersionKey), Value(kDocumentFormatVersion)});
    header.push_back({std::string(kCompatibilityVersionKey), Value(kCompatibilityVersion)});
    return Dictionary{{std::string(kHeaderKey), Value(Dictionary(std::move(header)))}};
}

Value Document::settingsDictionary() const {
    return {};
}

bool Document::writeToURL(const URL& url, const std::string& ofType, ErrorLocation error) {
    if (!isPackageType(ofType)) {
        return platform::Document::writeToURL(url, ofType, error);
    }
    std::vector<FileWrapperEntry> members;
    // What cannot be archived is left out, by intention.
    const auto addArchive = [&members](std::string_view name, const Value& root) {
        auto archive = KeyedArchiver::archiveOfRootObject(root);
        if (archive) {
            members.push_back(member(name, std::move(archive).value()));
        } else {
            platform::noteFailure(std::string(name) + ": " + archive.fault().detail);
        }
    };
    if (customTagTemplates_ && !customTagTemplates_->empty()) {
        addArchive(kTagTemplatesMember, Value(*customTagTemplates_));
    }
    addArchive(kDocumentSettingsMember, settingsDictionary());
    unblockUserInteraction();
    auto contents = platform::PropertyListSerialization::dataWithPropertyList(
        Value(metadataDictionary()), platform::PropertyListFormat::Xml);
    if (contents) {
        members.push_back(member(kContentsMember, std::move(contents).value()));
    } else {
        platform::log("Failed to create document's metadata. Error = " + contents.fault().detail +
                      ".");
    }
    return ZipWrapper::initDirectoryWithFileWrappers(std::move(members))
        ->writeToFile(url.path(), platform::Atomically::No, platform::UpdateFilenames::No);
}

std::optional<Data> Document::dataOfType(const std::string& ofType, ErrorLocation) {
    const auto withoutTags = [this] {
        return RTFExporter::stringByRemovingTags(textStorage_->attributedString());
    };
    if (TypeRegistry::typeConformsToType(ofType, kRtfWithoutTagsType)) {
        return platform::rtfFromAttributedString(withoutTags());
    }
    if (TypeRegistry::typeConformsToType(ofType, kTextWithoutTagsType)) {
        return Data::adopt(platform::utf8FromUtf16(withoutTags().string()));
    }
    return std::nullopt;
}

std::vector<std::string> Document::writableTypesForSaveOperation(
    SaveOperation forSaveOperation) const {
    if (forSaveOperation == SaveOperation::SaveTo) {
        return {kRtfWithoutTagsType, kTextWithoutTagsType};
    }
    return platform::Document::writableTypesForSaveOperation(forSaveOperation);
}

bool Document::canAsynchronouslyWriteToURL(const URL& url, const std::string& ofType,
                                           SaveOperation forSaveOperation) const {
    return isPackageType(ofType) ||
           platform::Document::canAsynchronouslyWriteToURL(url, ofType, forSaveOperation);
}

void Document::saveToURL(const URL& url, const std::string& ofType, SaveOperation forSaveOperation,
                         CompletionHandler completionHandler) {
    auto handler = [document = shared_from_this(), inner = std::move(completionHandler)](
                       const std::optional<platform::Error>& error) {
        if (inner) {
            inner(error);
        }
        if (!error) {
            platform::NotificationCenter::defaultCenter().postNotificationName(
                DocumentDidSaveNotification, document.get());
        }
    };
    platform::Document::saveToURL(url, ofType, forSaveOperation, std::move(handler));
}

std::optional<std::uint32_t> Document::compressLevelForFileWrapper(
    const std::shared_ptr<FileWrapper>&, const ZipWrapper&) {
    return 1;
}

}  // namespace parlavox
