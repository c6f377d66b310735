#include "Tools/pvdoc/Export.h"

#include <string>

#include "Platform/Foundation/Exception.h"
#include "Sources/Document/ExportTypes.h"
#include "Tools/pvdoc/InputFile.h"
#include "Tools/pvdoc/SavedDocument.h"
#include "Tools/pvdoc/TextOfFile.h"

namespace pvdoc {

using platform::Fault;
using platform::FaultCode;
using platform::Outcome;

namespace {

Outcome saveAndCompare(parlavox::Document& document, const std::string& path,
                       const std::string& type) {
    PV_TRY(saveDocument(document, path, type, platform::SaveOperation::SaveTo));
    if (document.dataOfType(type, nullptr) != PV_TRY(readFile(path))) {
        return Fault{FaultCode::Malformed, "read back, the text differs"};
    }
    return platform::done();
}

}  // namespace

Outcome exportText(const Conversion& conversion, ExportFormat format) {
    PV_TRY(checkTarget(conversion.target, conversion.overwrite));
    const auto document = documentOfFile(conversion.source);
    if (!document) {
        return inFile(conversion.source, document.fault());
    }
    const std::string type = format == ExportFormat::Rtf ? parlavox::kRtfWithoutTagsType
                                                         : parlavox::kTextWithoutTagsType;
    return writeBeside(conversion.target, [&](const std::string& path) -> Outcome {
        try {
            return saveAndCompare(*document.value(), path, type);
        } catch (const platform::Exception& exception) {
            return Fault{FaultCode::System, exception.reason()};
        }
    });
}

}  // namespace pvdoc
