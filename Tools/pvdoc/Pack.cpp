#include "Tools/pvdoc/Pack.h"

#include <memory>
#include <string_view>
#include <utility>

#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/FileWrapper.h"
#include "Platform/Foundation/PathString.h"
#include "Platform/Foundation/PropertyListSerialization.h"
#include "Platform/Foundation/TypeRegistry.h"
#include "Platform/Text/TextFormat.h"
#include "Platform/Text/TextReader.h"
#include "Sources/Document/PackageFormat.h"
#include "Sources/Document/PackageHeader.h"
#include "Sources/Document/TextArchiver.h"
#include "Tools/pvdoc/ArchiveWriting.h"
#include "Tools/pvdoc/FileType.h"
#include "Tools/pvdoc/InputFile.h"
#include "Tools/pvdoc/MarkedUpText.h"
#include "Tools/pvdoc/TextOfFile.h"

namespace pvdoc {

using platform::AttributedString;
using platform::Data;
using platform::Dictionary;
using platform::FileWrapperEntry;
using platform::Outcome;
using platform::Result;
using platform::Value;

namespace {

/// The text of plain text with its marks obeyed; attachments lie in the folder of `source`.
Result<AttributedString> markedUpText(const std::string& source, const Data& contents) {
    const auto text = PV_TRY(platform::attributedStringFromData(contents));
    const std::string folder = platform::stringByDeletingLastPathComponent(source);
    return attributedTextFromMarks(text.string(), [&](const std::string& name) -> Result<Data> {
        auto attachment = readFile(platform::stringByAppendingPathComponent(folder, name));
        return attachment ? std::move(attachment) : Result<Data>(inFile(name, attachment.fault()));
    });
}

/// The text of a document, or of what its bytes or its name tell to be something else than plain
/// text, as it is imported; that of plain text with its marks obeyed.
Result<AttributedString> textOf(const std::string& source) {
    const Data contents = PV_TRY(readDocumentFile(source));
    const std::string type = typeOfFile(source, contents).identifier;
    const bool isPlain =
        !parlavox::isPackageType(type) &&
        platform::TypeRegistry::typeConformsToType(type, "public.data") &&
        platform::textFormatOfBytes(contents.view()).format == platform::TextFormat::Plain;
    return isPlain ? markedUpText(source, contents) : textOfFile(source);
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

FileWrapperEntry member(std::string_view name, Data contents) {
    return {std::string(name),
            platform::FileWrapper::initRegularFileWithContents(std::move(contents))};
}

}  // namespace

Outcome pack(const PackOptions& options) {
    PV_TRY(checkTarget(options.target, options.overwrite));
    auto text = textOf(options.source);
    if (!text) {
        return inFile(options.source, text.fault());
    }
    const Value root(std::make_shared<const AttributedString>(std::move(text).value()));
    return writeArchive(
        options.target,
        {member(parlavox::kContentsMember, PV_TRY(headerOf(options.compatibilityVersion))),
         member(parlavox::kTextMember, parlavox::TextArchiver::archivedDataWithRootObject(root))},
        [&](const TreeMember&) { return options.isStored ? 0 : kUsualLevel; });
}

}  // namespace pvdoc
