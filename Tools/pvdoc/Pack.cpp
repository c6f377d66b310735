#include "Tools/pvdoc/Pack.h"

#include <memory>

#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/FileWrapper.h"
#include "Platform/Foundation/PathString.h"
#include "Platform/Foundation/PropertyListSerialization.h"
#include "Platform/Text/TextReader.h"
#include "Sources/Document/PackageFormat.h"
#include "Sources/Document/TextArchiver.h"
#include "Tools/pvdoc/InputFile.h"
#include "Tools/pvdoc/MarkedUpText.h"
#include "Tools/samples/ZipBuilder.h"

namespace pvdoc {

using platform::AttributedString;
using platform::Data;
using platform::Dictionary;
using platform::Fault;
using platform::FaultCode;
using platform::FileManager;
using platform::Outcome;
using platform::Result;
using platform::Value;

namespace {

Fault inFile(const std::string& path, const Fault& fault) {
    return {fault.code, path + ": " + fault.detail, true};
}

/// The text of the source with its marks obeyed; attachments lie in its folder.
Result<AttributedString> textOf(const std::string& source) {
    const auto text = platform::attributedStringFromData(PV_TRY(readFile(source)));
    if (!text) {
        return text.fault();
    }
    const std::string folder = platform::stringByDeletingLastPathComponent(source);
    return attributedTextFromMarks(
        text.value().string(), [&](const std::string& name) -> Result<Data> {
            auto contents = readFile(platform::stringByAppendingPathComponent(folder, name));
            return contents ? std::move(contents) : Result<Data>(inFile(name, contents.fault()));
        });
}

/// The header, without anything that says where it was written.
Result<Data> headerOf(std::int64_t compatibilityVersion) {
    const auto key = [](std::string_view name) {
        return std::string(name);
    };
    const Dictionary header{
        {key(parlavox::kApplicationKey), Value(u"pvdoc")},
        {key(parlavox::kApplicationVersionKey), Value::fromUtf8(PV_VERSION)},
        {key(parlavox::kCreatedKey), Value(platform::currentDate())},
        {key(parlavox::kDocumentFormatVersionKey), Value(parlavox::kDocumentFormatVersion)},
        {key(parlavox::kCompatibilityVersionKey), Value(compatibilityVersion)}};
    return platform::PropertyListSerialization::dataWithPropertyList(
        Value(Dictionary{{key(parlavox::kHeaderKey), Value(header)}}),
        platform::PropertyListFormat::Xml);
}

}  // namespace

Outcome pack(const PackOptions& options) {
    const FileManager& files = FileManager::defaultManager();
    if (options.overwrite == Overwrite::No && files.fileExistsAtPath(options.target)) {
        return Fault{FaultCode::System, options.target + ": is there already; --force replaces it"};
    }
    auto text = textOf(options.source);
    if (!text) {
        return inFile(options.source, text.fault());
    }
    const Value root(std::make_shared<const AttributedString>(std::move(text).value()));
    const auto packing = options.isStored ? samples::Packing::Stored : samples::Packing::Deflated;
    samples::ZipBuilder archive;
    archive.add(parlavox::kContentsMember, PV_TRY(headerOf(options.compatibilityVersion)), packing);
    archive.add(parlavox::kTextMember, parlavox::TextArchiver::archivedDataWithRootObject(root),
                packing);
    const auto file = platform::FileWrapper::initRegularFileWithContents(archive.finish());
    if (!file->writeToFile(options.target, platform::Atomically::Yes,
                           platform::UpdateFilenames::No)) {
        return Fault{FaultCode::System, options.target + ": cannot be written"};
    }
    return platform::done();
}

}  // namespace pvdoc
