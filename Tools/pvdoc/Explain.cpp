#include "Tools/pvdoc/Explain.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <set>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/PropertyListSerialization.h"
#include "Platform/Foundation/TypeRegistry.h"
#include "Platform/Foundation/Unicode.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"
#include "Sources/Document/Document.h"
#include "Sources/Document/PackageFormat.h"
#include "Sources/Document/PackageHeader.h"
#include "Sources/Document/TextUnarchiver.h"
#include "Tools/pvdoc/ArchiveListing.h"
#include "Tools/pvdoc/FileType.h"
#include "Tools/pvdoc/Header.h"
#include "Tools/pvdoc/Hyphens.h"
#include "Tools/pvdoc/InputFile.h"
#include "Tools/pvdoc/Languages.h"
#include "Tools/pvdoc/ObjectSurvey.h"
#include "Tools/pvdoc/Report.h"

namespace pvdoc {

using platform::AttributedString;
using platform::Data;
using platform::Dictionary;
using platform::Result;
using platform::Value;

namespace {

/// Runs beyond these are only counted.
constexpr std::size_t kShownRuns = 20;

void explainArchive(const Data& contents, Report& report) {
    const auto listing = listArchive(contents);
    if (!listing) {
        report.add("archive", "none: " + listing.fault().detail);
        return;
    }
    report.add("archive", "end record at " + std::to_string(listing.value().endRecord) + ", " +
                              counted(listing.value().declaredCount, "member") +
                              (listing.value().damage.empty() ? "" : "; ") +
                              listing.value().damage);
}

/// The bytes of a member as the importer gets them; nothing when there are none, which the report
/// tells.
std::optional<Data> explainMember(const parlavox::ZipWrapper& archive, std::string_view name,
                                  Report& report) {
    const auto member = archive.fileWrapperForKey(name);
    if (member == nullptr) {
        report.add("member", std::string(name) + " is not there");
        return std::nullopt;
    }
    auto contents = member->isRegularFile() ? member->regularFileContents() : std::nullopt;
    report.add("member", std::string(name) + (contents ? ", " + counted(contents->size(), "byte")
                                                       : " is no file that can be read"));
    return contents;
}

void explainVersion(const Data& contents, Report& report) {
    const auto header = parlavox::packageHeader(contents);
    const auto version = header ? parlavox::compatibilityVersion(header.value()) : std::nullopt;
    if (!version) {
        report.add("version", "no compatibility version: the file is refused");
        return;
    }
    const bool isKnown = *version < parlavox::kFirstUnknownCompatibilityVersion;
    report.add("version", "compatibility version " + std::to_string(*version) +
                              (isKnown ? ": this reader knows it"
                                       : ": a newer reader is needed, the file is refused"));
}

std::string keysOf(const Value& dictionary) {
    std::string keys;
    if (dictionary.dictionary() != nullptr) {
        for (const auto& [key, value] : dictionary.dictionary()->entries()) {
            keys += (keys.empty() ? "" : ", ") + key;
        }
    }
    return keys;
}

void explainFrame(const Data& archive, Report& report) {
    const auto frame = platform::PropertyListSerialization::propertyListWithData(archive);
    const Dictionary* const fields = frame ? frame.value().dictionary() : nullptr;
    if (fields == nullptr || (*fields)["$objects"].array() == nullptr) {
        report.add("text",
                   frame ? "no keyed archive" : "no property list: " + frame.fault().detail);
        return;
    }
    report.add("text", "keyed archive by " + (*fields)["$archiver"].utf8().value_or("?") + ", " +
                           counted((*fields)["$objects"].array()->size(), "object") +
                           ", at its top: " + keysOf((*fields)["$top"]));
}

std::string describeRoot(const Value& root) {
    const auto object = root.object();
    if (dynamic_cast<const AttributedString*>(object.get()) != nullptr) {
        return "attributed text";
    }
    if (root.string() != nullptr) {
        return "a plain string: text without attributes";
    }
    if (root.isNull()) {
        return "the null object: an empty document";
    }
    const auto* const codable = dynamic_cast<const platform::Codable*>(object.get());
    const auto type = codable != nullptr ? codable->archivedClass() : nullptr;
    return (type != nullptr ? "an object of class " + type->names.front() : shown(root)) +
           ", which is no text";
}

void explainRuns(const AttributedString& text, Report& report) {
    std::set<const Dictionary*> sets;
    for (const platform::AttributeRun& run : text.runs()) {
        sets.insert(run.attributes.get());
    }
    report.add("runs", counted(text.runs().size(), "run") + " with " + counted(sets.size(), "set") +
                           " of attributes");
    std::uint64_t position = 0;
    for (std::size_t i = 0; i < text.runs().size() && i < kShownRuns; ++i) {
        const platform::AttributeRun& run = text.runs()[i];
        const std::string keys =
            run.attributes != nullptr ? keysOf(Value(run.attributes)) : std::string();
        report.add("", std::to_string(position) + " to " + std::to_string(position + run.length) +
                           ": " + (keys.empty() ? "no attributes" : keys));
        position += run.length;
    }
    if (text.runs().size() > kShownRuns) {
        report.add("", "and " + std::to_string(text.runs().size() - kShownRuns) + " more");
    }
}

void explainClasses(const AttributedString& text, Report& report) {
    for (const auto& [name, found] : surveyAttributes(text)) {
        std::string where;
        for (const std::string& attribute : found.attributes) {
            where += (where.empty() ? "" : ", ") + attribute;
        }
        report.add("class", (name.empty() ? "without a name" : name) + ", " +
                                counted(found.count, "object") + " in " + where +
                                (found.isKnown ? ", understood" : ", not known: kept as it is"));
    }
}

void explainText(const Data& archive, Report& report) {
    explainFrame(archive, report);
    const auto unarchiver = parlavox::TextUnarchiver::initWithTagValuesDictionary(nullptr, archive);
    const Value root = unarchiver->decodeObject();
    unarchiver->finishDecoding();
    report.add("root", describeRoot(root));
    const auto object = root.object();
    if (const auto* const text = dynamic_cast<const AttributedString*>(object.get())) {
        explainRuns(*text, report);
        explainClasses(*text, report);
    }
}

void explainPackage(const Data& contents, Report& report) {
    explainArchive(contents, report);
    const auto archive = parlavox::ZipWrapper::initRegularFileWithContents(contents);
    if (archive == nullptr) {
        return;
    }
    if (const auto header = explainMember(*archive, parlavox::kContentsMember, report)) {
        explainVersion(*header, report);
    }
    if (const auto text = explainMember(*archive, parlavox::kTextMember, report)) {
        explainText(*text, report);
    }
}

/// Why reading failed, as far as anybody noted it.
std::string causeOfFailure() {
    const char* const cause = platform::lastFailure();
    return cause != nullptr ? cause : "no cause was noted";
}

/// Reads the file as the importer does; true when it has a text.
bool explainResult(const std::string& path, const std::string& type, Report& report) {
    platform::clearFailure();
    const auto document = parlavox::Document::init();
    if (!document->readFromURL(platform::URL::fileURLWithPath(path), type, nullptr)) {
        report.add("result", "not read: " + causeOfFailure());
        return false;
    }
    const std::u16string& text = document->textStorage()->string();
    reportLanguages(text, report);
    report.add("result", "text of " + counted(text.size(), "UTF-16 unit"));
    return true;
}

}  // namespace

Result<Explanation> explain(const std::string& path) {
    const Data contents = PV_TRY(readDocumentFile(path));
    Report report;
    report.add("file", path + ", " + counted(contents.size(), "byte"));
    const auto [type, reason] = typeOfFile(path, contents);
    report.add("type", type + ", " + reason);
    Explanation explanation;
    // Damage that an archive cannot be read beyond is raised, here as in the importer.
    try {
        report.add("way", parlavox::isPackageType(type)
                              ? "a document of the own format: an archive of members"
                              : "imported: the text reader finds the format");
        if (parlavox::isPackageType(type)) {
            explainPackage(contents, report);
        } else if (platform::TypeRegistry::typeConformsToType(type, "com.adobe.pdf")) {
            reportHyphens(contents, report);
        }
        explanation.isRead = explainResult(path, type, report);
    } catch (const std::exception& exception) {
        report.add("result", std::string("not read: ") + exception.what());
    }
    explanation.report = report.text();
    return explanation;
}

}  // namespace pvdoc
