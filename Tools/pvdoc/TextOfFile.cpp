#include "Tools/pvdoc/TextOfFile.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "Platform/Foundation/Failure.h"
#include "Platform/Text/TextReader.h"
#include "Tools/pvdoc/FileType.h"
#include "Tools/pvdoc/InputFile.h"
#include "Tools/pvdoc/Target.h"

namespace pvdoc {

using parlavox::Document;
using platform::AttributedString;
using platform::Data;
using platform::Fault;
using platform::FaultCode;
using platform::Result;

namespace {

Result<Data> readStandardInput() {
    std::string bytes;
    std::array<char, 65536> block;
    while (true) {
        const ssize_t count = ::read(STDIN_FILENO, block.data(), block.size());
        if (count < 0 && errno != EINTR) {
            return Fault{FaultCode::System, std::strerror(errno)};
        }
        if (count == 0) {
            return Data::copyOf(bytes);
        }
        bytes.append(block.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    }
}

}  // namespace

Result<std::shared_ptr<Document>> documentOfFile(const std::string& path) {
    const std::string type = typeOfFile(path, PV_TRY(readDocumentFile(path))).identifier;
    platform::clearFailure();
    auto document = Document::init();
    if (!document->readFromURL(platform::URL::fileURLWithPath(path), type, nullptr)) {
        return Fault{FaultCode::Unsupported, causeOfFailure({}, "it has no text that can be read")};
    }
    return document;
}

Result<AttributedString> textOfFile(const std::string& path) {
    if (path == "-") {
        return platform::attributedStringFromData(PV_TRY(readStandardInput()));
    }
    return PV_TRY(documentOfFile(path))->textStorage()->attributedString();
}

}  // namespace pvdoc
